// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/changesquestion.h"

#include "dialogs/dialogparts.h"

#include <ui_base/TaskDialog>

#include <QCoreApplication>

namespace Workbench {

using namespace Vela::UiToolkit;

namespace {

class Text
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::ChangesQuestion)
};

} // namespace

EChanges askAboutChanges(QWidget *window, const QString &fileName)
{
    const QList<SIconButton> faces {
        {QStringLiteral(":/resources/images/sys_issue_ignore.png"), Text::tr("Cancel")},
        {QStringLiteral(":/resources/images/sys_message_box_button_no.png"), Text::tr("Discard")},
        {QStringLiteral(":/resources/images/sys_message_box_button_yes.png"),
         Text::tr("Save As...")}};
    const EDialogResult answer = TaskDialog::showQuestionMessage(
        window, asWritten(Text::tr("%1 was changed.").arg(fileName)),
        Text::tr("The changes are lost unless they are saved."), EDialogButtons::ButtonsCustom3,
        faces);
    if (answer == EDialogResult::Custom3)
        return EChanges::Save;
    return answer == EDialogResult::Custom2 ? EChanges::Discard : EChanges::Keep;
}

} // namespace Workbench
