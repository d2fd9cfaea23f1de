// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/icontype.h"
#include "ui_base/uibaseexport.h"

class QAction;
class QIcon;
class QSize;
class QString;

namespace Vela::UiBase {

/// Where the toolkit gets icons from. A host that keeps its icons elsewhere than in the resources,
/// or names them otherwise, derives from this class (or from DefaultIconProvider, when only some
/// icons differ) and hands an object to QtUiToolkit::IconProvider(). Main thread only.
class LUMO_UI_BASE_EXPORT IIconProvider
{
public:
    /// Makes the icon @p name, and remembers on @p action what UpdateIconSize() needs to make it
    /// again in another size. The icon is returned, not set on the action.
    /// @param name what the provider knows the icon by
    /// @param action may be null
    /// @param type the kind of file to make it of
    /// @param size logical size for icons that are drawn at a size; ignored for bitmaps
    /// @return an empty icon when there is none of that name
    virtual QIcon CreateIcon(const QString &name, QAction *action, EIconType type,
                             const QSize &size) const = 0;

    /// Makes the icon @p name from bitmaps in their own size, for nobody in particular.
    virtual QIcon CreateIcon(const QString &name) const = 0;

    /// Gives @p action its icon in the logical size @p size; null is ignored.
    virtual void UpdateIconSize(QAction *action, const QSize &size) = 0;

    /// Returns @p icon in the logical size @p size, and a copy of it when that is not possible.
    virtual QIcon UpdateIconSize(const QIcon &icon, const QSize &size) = 0;

    // Declared last, so that the operations keep the first places of the table.
    virtual ~IIconProvider();

protected:
    IIconProvider() = default;
    IIconProvider(const IIconProvider &) = default;
    IIconProvider &operator=(const IIconProvider &) = default;
};

} // namespace Vela::UiBase
