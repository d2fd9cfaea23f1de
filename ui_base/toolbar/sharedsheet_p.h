// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

class QWidget;

/// Style sheets for many buttons that are alike. Qt makes a style of its own for each widget with a
/// sheet, parses the sheet for each and keeps what it finds, which costs several times as much as all
/// the rest of a button.
namespace Vela::UiBase::Internal {

/// As QWidget::setStyleSheet(), for a new button without a sheet. Buttons without a style of their own
/// share one. The change of style is not told by an event.
void setSharedSheet(QWidget &button, const QString &sheet);

/// Polishes a button. What the sheet changed at one that is just like it is taken over, and only the
/// style below the sheets polishes it. The style can be asked about the button all the same, and
/// answers right unless it had been asked before; where that counts, see polishInFull().
/// @param polish polishes @p button as usual; called when there was none like it
/// @return whether polishInFull() is still to come
bool polishAlike(QWidget &button, const std::function<void()> &polish);

/// Has the style polish a button for which polishAlike() stood in.
void polishInFull(QWidget &button);

} // namespace Vela::UiBase::Internal
