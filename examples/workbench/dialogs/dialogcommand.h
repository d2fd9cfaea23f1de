// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandBase>

#include <QDialog>
#include <QPointer>

namespace Workbench {

/// A command that brings up a dialog beside the work, over the window of its controller. There is
/// one at a time: while it is up the command brings it to the front.
class DialogCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT

public:
    /// The dialog; null while it is not up.
    QDialog *dialog() const { return m_dialog; }

    bool onExecuteAsync(bool checked) override;

protected:
    DialogCommand();

    /// Makes the dialog, which @p window owns and which is deleted when it is closed. Null when that
    /// is not possible.
    virtual QDialog *makeDialog(QWidget *window) = 0;

private:
    QPointer<QDialog> m_dialog;
};

} // namespace Workbench
