// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/iiconprovider.h"

#include <QIcon>

#include <memory>

namespace Vela::UiBase {

class DefaultIconProviderPrivate;

/// Finds icons by the names of their files below ":/resources/images/".
///
/// The icon "open" is made of "open_normal.png" and, if that file exists, "open_active.png" for the
/// mode QIcon::Active (".svg" instead of ".png" for EIconType::IconSvg). A name that already ends
/// in the suffix, in any case, is the name of a file and serves for both modes. Any other icon type
/// has no suffix: every name is the name of a file then, and is read as SVG.
///
/// On an action these dynamic properties are written, and read again by UpdateIconSize():
///
/// | property | meaning |
/// |---|---|
/// | "icon_type" | EIconType as an integer |
/// | "icon_normal_resource" | path of the file of the normal mode; empty if there is none |
/// | "icon_active_resource" | path of the file of the active mode; not set if there is none |
///
/// All sizes are logical. Pictures are prepared for the device pixel ratio of the screen that shows
/// the action's widgets, and for the highest of all screens as long as it has none: SVG is rendered
/// at it, and of "open_normal.png" the neighbour "open_normal@2x.png" or "@3x" is taken when there
/// is one. QIcon::actualSize() of such an icon is logical too, with and without
/// Qt::AA_UseHighDpiPixmaps.
///
/// Files that are missing or damaged are passed over in silence. Without a QGuiApplication every
/// icon is empty and no action is written to. Main thread only.
class LUMO_UI_BASE_EXPORT DefaultIconProvider : public IIconProvider
{
public:
    DefaultIconProvider();
    ~DefaultIconProvider() override;

    /// Makes the icon @p name of the type @p type and remembers its files on @p action, which may be
    /// null. A bitmap comes in its own size whatever @p size says. An SVG icon of an empty size is
    /// empty; its properties are written all the same. An "icon_active_resource" of an earlier icon
    /// goes when the new one has no active file.
    QIcon CreateIcon(const QString &name, QAction *action, EIconType type,
                     const QSize &size) const override;

    /// Makes the icon @p name from bitmaps.
    QIcon CreateIcon(const QString &name) const override;

    /// Sets the icon of @p action anew from the files that its properties name. A bitmap is scaled
    /// to fit into @p size, keeping its proportions, unless the icon has just this size already;
    /// SVG is rendered at @p size, and at its own when @p size is a default QSize. An action
    /// without "icon_normal_resource" keeps its icon, and null is ignored.
    void UpdateIconSize(QAction *action, const QSize &size) override;

    /// Returns an icon of the normal and the active picture of @p icon, scaled to fit into @p size.
    /// An icon that has this size, or no picture, is returned as it is. Sizes above 300 by 300 are
    /// seen as that.
    QIcon UpdateIconSize(const QIcon &icon, const QSize &size) override;

private:
    const std::unique_ptr<DefaultIconProviderPrivate> d;
    Q_DISABLE_COPY(DefaultIconProvider)
};

} // namespace Vela::UiBase
