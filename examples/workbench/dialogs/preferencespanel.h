// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "preferences.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;

namespace Vela::UiBase {
class MDialogBase;
}

namespace Workbench {

/// The settings of the preferences. What the user chooses acts at once; the flyout around the panel
/// says whether it lasts.
class PreferencesPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PreferencesPanel(std::shared_ptr<Preferences> preferences);
    ~PreferencesPanel() override;

    /// What stands below "Advanced"; owned by the flyout once it has it.
    QWidget *advancedPanel() const;

public Q_SLOTS:
    /// Chooses what is there without a choice.
    void reset();
    /// Makes what is chosen last.
    void keep();
    /// Chooses what was kept last, or else what was there at the beginning.
    void giveUp();

private:
    void speak();
    void showValues();
    void takeValues();

    const std::shared_ptr<Preferences> m_preferences;
    SPreferences m_kept;
    QComboBox *const m_language;
    QComboBox *const m_background;
    QLabel *const m_languageLabel;
    QLabel *const m_backgroundLabel;
    QCheckBox *const m_cards;
    QPointer<QWidget> m_advanced;
    // On the advanced panel, which lives and dies with the flyout.
    QCheckBox *const m_notifications;
    QCheckBox *const m_dark;
};

/// Makes the dialog with that panel in a flyout: apply keeps what is chosen and closes, whatever else
/// closes it gives it up. Null when there is no memory for it.
Vela::UiBase::MDialogBase *makePreferencesDialog(std::shared_ptr<Preferences> preferences,
                                                 QWidget *window);

} // namespace Workbench
