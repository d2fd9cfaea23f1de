// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Colours for style sheets, written as CSS writes them. For what is made out of these; the palette
/// of the widgets themselves, and its dark counterpart, come from Vela::Resource::Styles.
namespace Vela::UiBase::StyleConstants {

/// Lines between parts of a panel.
inline const QString SeparatorColor = QStringLiteral("rgb(160, 160, 160)");
/// Ground of panels.
inline const QString PanelColor = QStringLiteral("rgb(240, 240, 240)");
/// The darker accent.
inline const QString AccentDarkColor = QStringLiteral("rgb(41, 101, 163)");

/// A button at rest.
inline const QString ButtonColor = QStringLiteral("rgba(83, 131, 181, 100%)");
/// A hovered button.
inline const QString ButtonHoverColor = QStringLiteral("rgba(41, 101, 163, 100%)");
/// A hovered close button.
inline const QString CloseHoverColor = QStringLiteral("rgba(224, 67, 67, 100%)");

/// Nothing is painted.
inline const QString TransparentColor = QStringLiteral("rgba(0, 0, 0, 0%)");
/// White of the opacity `%1`, a number from 0 to 255 or a percentage, for QString::arg().
inline const QString TranslucentWhiteColor = QStringLiteral("rgba(255, 255, 255, %1)");

/// A panel lit from above.
inline const QString PanelGradient =
    QStringLiteral("qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 rgb(255, 255, 255), "
                   "stop:1 rgb(240, 240, 240))");
/// The accent from light to dark, from above.
inline const QString AccentGradient =
    QStringLiteral("qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 rgb(83, 131, 181), "
                   "stop:1 rgb(41, 101, 163))");

} // namespace Vela::UiBase::StyleConstants
