// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/problemdialog.h"

#include "dialogs/dialogparts.h"
#include "language.h"

#include <ui_base/TaskDialog>

#include <QCoreApplication>

namespace Workbench {

using namespace Vela::UiToolkit;

TaskDialog *showProblem(QWidget *window, const QString &text)
{
    auto *dialog =
        new TaskDialog(window, asWritten(text), EDialogButtons::ButtonsOk, EDialogIcon::IconError);
    inEveryLanguage(*dialog, [dialog] {
        dialog->setWindowTitle(QCoreApplication::translate("Workbench::ProblemDialog", "Problem"));
    });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
    return dialog;
}

} // namespace Workbench
