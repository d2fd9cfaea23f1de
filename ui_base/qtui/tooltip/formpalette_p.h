// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

class QWidget;

namespace Vela::UiBase::Internal {

/// Puts the colours of the dark palette in place of the light ones in the style sheets of a form,
/// when the host has chosen the dark one. The forms are drawn in the light palette.
void dressForPalette(QWidget &form);

/// The ground of a card: white in the light palette.
QColor groundColor();

/// The outline of a card: grey in the light palette.
QColor lineColor();

} // namespace Vela::UiBase::Internal
