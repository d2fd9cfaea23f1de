// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/barscommand.h"

#include "language.h"

#include <QSignalBlocker>

namespace Workbench {

BarsCommand::BarsCommand()
    : CommandBase(nullptr)
{
    inEveryLanguage(*this, [this] {
        setText(tr("Tool &Bars"));
        setToolTip(tr("Show the bars around the view"));
    });
    setShortcut(Qt::Key_F9);
    setCheckable(true);
    const QSignalBlocker blocker(this); // they are shown already
    setChecked(true);
}

bool BarsCommand::onExecuteAsync(bool checked)
{
    Q_UNUSED(checked)
    return true;
}

} // namespace Workbench
