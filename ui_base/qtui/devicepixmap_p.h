// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

class QAction;
class QWidget;

/// Pictures for screens of any device pixel ratio. Sizes are logical unless a name says otherwise,
/// and the application's attributes play no part. Ratios come from the functions below, which never
/// answer less than 1. All of it is for the main thread, and gives null pictures without a
/// QGuiApplication.
namespace Vela::UiBase::Internal {

/// The highest ratio among the screens; 1 without an application.
qreal highestDevicePixelRatio();

/// The ratio of the screen of @p widget.
qreal devicePixelRatioFor(const QWidget &widget);

/// The highest ratio among the screens of the widgets that show @p action, and among all screens
/// when it is shown by none.
qreal devicePixelRatioFor(const QAction &action);

/// @p size in the pixels of a screen with the ratio @p ratio.
QSize physicalSize(const QSize &size, qreal ratio);

/// The size that @p pixmap takes up in the interface.
QSize logicalSize(const QPixmap &pixmap);

/// The key in QPixmapCache for what the file @p path shows while it has these contents. The time of
/// the file would not do: resources that are built reproducibly all have the same.
QString pictureKey(const QString &path, const QByteArray &contents);

/// Loads the bitmap file @p path for a screen with the ratio @p ratio: "name@Nx.png" beside it, for
/// N the ratio rounded up or, without that file, the next whole number below that has one; without
/// any, the file itself. Null and silent when the file is missing or damaged.
QPixmap loadPixmap(const QString &path, qreal ratio);

/// @p pixmap scaled smoothly to fit into @p size in its own proportions, in the pixels that @p
/// ratio asks for. Null when either is empty.
QPixmap fitted(const QPixmap &pixmap, const QSize &size, qreal ratio);

/// The picture of @p icon for the room @p size on a screen with the ratio @p ratio. QIcon::pixmap()
/// would give it in that many pixels only under Qt::AA_UseHighDpiPixmaps.
QPixmap pixmapOf(const QIcon &icon, const QSize &size, qreal ratio,
                 QIcon::Mode mode = QIcon::Normal, QIcon::State state = QIcon::Off);

/// An icon of the pictures for QIcon::Normal and QIcon::Active, both for @p state; null ones are
/// left out. As soon as one has a ratio above 1 the icon's actualSize() is the logical one, while
/// it draws in full resolution.
QIcon iconOf(const QPixmap &normal, const QPixmap &active, QIcon::State state = QIcon::Off);

} // namespace Vela::UiBase::Internal
