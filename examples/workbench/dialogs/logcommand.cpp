// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/logcommand.h"

#include "dialogs/logdialog.h"
#include "language.h"

#include <utility>

namespace Workbench {

LogCommand::LogCommand(std::shared_ptr<MessageLog> log)
    : m_log(std::move(log))
{
    inEveryLanguage(*this, [this] {
        setText(tr("&Log"));
        setToolTip(tr("What the program has said"));
        setWhatsThis(
            tr("Lists the beginning and the end of every command, the problems, and what else "
               "the program has said since it began."));
    });
    setObjectName(QStringLiteral("log"));
    setShortcut(Qt::CTRL + Qt::Key_L);
}

QDialog *LogCommand::makeDialog(QWidget *window)
{
    return new LogDialog(m_log, window);
}

} // namespace Workbench
