// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QString;
class QWidget;

namespace Vela::UiToolkit {
class TaskDialog;
}

namespace Workbench {

/// Tells the user in the sentence @p text that something did not work, in a dialog that holds up
/// nothing but @p window. It is deleted when it is closed.
Vela::UiToolkit::TaskDialog *showProblem(QWidget *window, const QString &text);

} // namespace Workbench
