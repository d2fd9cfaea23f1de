// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/dialogcommand.h"

#include "language.h"

#include <ui_base/CmdsViewController>

#include <QDialog>

namespace Workbench {
namespace {

void centerOver(const QWidget &window, QWidget &dialog)
{
    const QPoint middle = window.mapToGlobal(window.rect().center());
    dialog.move(middle - dialog.rect().center());
}

} // namespace

DialogCommand::DialogCommand()
    : CommandBase(nullptr)
{ }

bool DialogCommand::onExecuteAsync(bool checked)
{
    Q_UNUSED(checked)
    const QWidget *view = getViewController() ? getViewController()->getQtWidget() : nullptr;
    if (!m_dialog && view) {
        m_dialog = makeDialog(view->window());
        if (!m_dialog)
            return false;
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        if (m_dialog->accessibleDescription().isEmpty()) {
            // The dialog belongs to the window, which can keep it longer.
            const QPointer<DialogCommand> self(this);
            inEveryLanguage(*m_dialog, [self, dialog = m_dialog.data()] {
                if (self)
                    dialog->setAccessibleDescription(self->whatsThis());
            });
        }
        centerOver(*view->window(), *m_dialog);
    }
    if (!m_dialog)
        return false;
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
    return true;
}

} // namespace Workbench
