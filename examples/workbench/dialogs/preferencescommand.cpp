// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/preferencescommand.h"

#include "dialogs/preferencespanel.h"
#include "language.h"

#include <ui_base/MDialogBase>

#include <utility>

namespace Workbench {

PreferencesCommand::PreferencesCommand(std::shared_ptr<Preferences> preferences)
    : m_preferences(std::move(preferences))
{
    inEveryLanguage(*this, [this] {
        setText(tr("&Preferences..."));
        setToolTip(tr("Choose how the program looks and behaves"));
        setWhatsThis(tr("Chooses the language, the background of the view, whether buttons explain "
                        "themselves, and more."));
    });
    setObjectName(QStringLiteral("preferences"));
    setShortcut(Qt::CTRL + Qt::Key_Comma);
    setMenuRole(QAction::PreferencesRole);
}

QDialog *PreferencesCommand::makeDialog(QWidget *window)
{
    return makePreferencesDialog(m_preferences, window);
}

} // namespace Workbench
