// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/aboutcommand.h"

#include "dialogs/aboutdialog.h"
#include "language.h"

namespace Workbench {

AboutCommand::AboutCommand()
{
    inEveryLanguage(*this, [this] {
        setText(tr("&About Workbench"));
        setToolTip(tr("What program this is"));
        setWhatsThis(tr("Tells what program this is and what it is made of."));
    });
    setObjectName(QStringLiteral("about"));
    setMenuRole(QAction::AboutRole);
}

QDialog *AboutCommand::makeDialog(QWidget *window)
{
    return new AboutDialog(window);
}

} // namespace Workbench
