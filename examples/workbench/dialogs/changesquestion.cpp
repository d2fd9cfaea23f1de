// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/changesquestion.h"

#include "dialogs/dialogparts.h"

#include <ui_base/TaskDialog>

#include <QCoreApplication>

namespace Workbench {

using namespace Vela::UiToolkit;

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("Workbench::ChangesQuestion", source);
}

} // namespace

EChanges askAboutChanges(QWidget *window, const QString &fileName)
{
    const QList<SIconButton> faces {
        {QStringLiteral(":/resources/images/sys_issue_ignore.png"), text("Cancel")},
        {QStringLiteral(":/resources/images/sys_message_box_button_no.png"), text("Discard")},
        {QStringLiteral(":/resources/images/sys_message_box_button_yes.png"), text("Save As...")}};
    const EDialogResult answer = TaskDialog::showQuestionMessage(
        window, asWritten(text("%1 was changed.").arg(fileName)),
        text("The changes are lost unless they are saved."), EDialogButtons::ButtonsCustom3, faces);
    if (answer == EDialogResult::Custom3)
        return EChanges::Save;
    return answer == EDialogResult::Custom2 ? EChanges::Discard : EChanges::Keep;
}

} // namespace Workbench
