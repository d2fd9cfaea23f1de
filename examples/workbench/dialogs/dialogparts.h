// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

class QBoxLayout;
class QString;

namespace Vela::UiBase {
class DialogEx;
}

namespace Workbench {

/// Gives @p dialog, which has no frame of the window system, the name that @p title tells, the look of the
/// library's dialogs, and a title row with a button that closes it. The row stands on the bar that
/// the dialog is moved by.
/// @return the column below that row
QBoxLayout *dressUp(Vela::UiBase::DialogEx &dialog, const std::function<QString()> &title);

/// Gives @p text, which may hold the name of a file, a form that a dialog shows letter by letter,
/// even if the file is called like markup.
QString asWritten(const QString &text);

} // namespace Workbench
