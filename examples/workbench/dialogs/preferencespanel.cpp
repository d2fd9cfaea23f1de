// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/preferencespanel.h"

#include <ui_base/FlyoutBase>
#include <ui_base/MDialogBase>
#include <ui_base/QtUiToolkit>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

#include <utility>

namespace Workbench {

using Vela::UiBase::FlyoutBase;
using Vela::UiBase::MDialogBase;

PreferencesPanel::PreferencesPanel(std::shared_ptr<Preferences> preferences)
    : m_preferences(std::move(preferences))
    , m_kept(m_preferences->values())
    , m_language(new QComboBox)
    , m_background(new QComboBox)
    , m_languageLabel(new QLabel)
    , m_backgroundLabel(new QLabel)
    , m_cards(new QCheckBox)
    , m_advanced(new QWidget)
    , m_notifications(new QCheckBox)
    , m_dark(new QCheckBox)
{
    m_language->setObjectName(QStringLiteral("language"));
    // By value of ELanguage. Who can't read the present language finds his own by its name.
    m_language->addItems({QString(), QStringLiteral("English"), QStringLiteral("Deutsch")});
    m_languageLabel->setBuddy(m_language);
    m_background->setObjectName(QStringLiteral("background"));
    m_background->addItems({QString(), QString(), QString()}); // by value of EBackground
    m_backgroundLabel->setBuddy(m_background);
    m_cards->setObjectName(QStringLiteral("cards"));
    m_notifications->setObjectName(QStringLiteral("notifications"));
    setMinimumWidth(260);
    m_dark->setObjectName(QStringLiteral("dark"));
    auto *const rows = new QFormLayout(this);
    rows->addRow(m_languageLabel, m_language);
    rows->addRow(m_backgroundLabel, m_background);
    rows->addRow(m_cards);
    auto *const column = new QVBoxLayout(m_advanced);
    // The flyout sets its main panel in by so much more.
    column->setContentsMargins(rows->contentsMargins() + QMargins(7, 0, 7, 0));
    column->addWidget(m_notifications);
    column->addWidget(m_dark);

    inEveryLanguage(*this, [this] { speak(); });
    showValues();
    connect(m_language, QOverload<int>::of(&QComboBox::activated), this,
            &PreferencesPanel::takeValues);
    connect(m_preferences.get(), &Preferences::changed, this, &PreferencesPanel::showValues);
    connect(m_background, QOverload<int>::of(&QComboBox::activated), this,
            &PreferencesPanel::takeValues);
    connect(m_cards, &QCheckBox::clicked, this, &PreferencesPanel::takeValues);
    connect(m_notifications, &QCheckBox::clicked, this, &PreferencesPanel::takeValues);
    connect(m_dark, &QCheckBox::clicked, this, &PreferencesPanel::takeValues);
}

PreferencesPanel::~PreferencesPanel()
{
    // Nobody took it.
    if (m_advanced && !m_advanced->parent())
        delete m_advanced.data();
}

QWidget *PreferencesPanel::advancedPanel() const
{
    return m_advanced;
}

void PreferencesPanel::reset()
{
    m_preferences->setValues({});
}

void PreferencesPanel::keep()
{
    m_kept = m_preferences->values();
    m_preferences->keep();
}

void PreferencesPanel::giveUp()
{
    m_preferences->setValues(m_kept);
}

void PreferencesPanel::speak()
{
    m_languageLabel->setText(tr("&Language"));
    m_language->setAccessibleName(tr("Language"));
    m_language->setItemText(int(ELanguage::System), tr("As the system"));
    m_backgroundLabel->setText(tr("&Background"));
    m_background->setAccessibleName(tr("Background"));
    m_background->setItemText(int(EBackground::Light), tr("Light"));
    m_background->setItemText(int(EBackground::Grey), tr("Grey"));
    m_background->setItemText(int(EBackground::Dark), tr("Dark"));
    m_cards->setText(tr("Explain buttons by cards"));
    if (!m_advanced)
        return;
    m_notifications->setText(tr("Tell of edits over the view"));
    m_dark->setText(tr("Dark colors from the next start on"));
}

void PreferencesPanel::showValues()
{
    const SPreferences &values = m_preferences->values();
    m_language->setCurrentIndex(int(values.language));
    m_background->setCurrentIndex(int(values.background));
    m_cards->setChecked(values.hasCards);
    if (!m_advanced)
        return;
    m_notifications->setChecked(values.hasNotifications);
    m_dark->setChecked(values.isDark);
}

void PreferencesPanel::takeValues()
{
    SPreferences values = m_preferences->values();
    values.language = ELanguage(m_language->currentIndex());
    values.background = EBackground(m_background->currentIndex());
    values.hasCards = m_cards->isChecked();
    if (m_advanced) {
        values.hasNotifications = m_notifications->isChecked();
        values.isDark = m_dark->isChecked();
    }
    m_preferences->setValues(values);
}

MDialogBase *makePreferencesDialog(std::shared_ptr<Preferences> preferences, QWidget *window)
{
    auto panel = std::make_unique<PreferencesPanel>(std::move(preferences));
    MDialogBase *dialog = Vela::UiBase::QtUiToolkit::Instance().CreateFlyoutDialog(
        window, PreferencesPanel::tr("Preferences"), panel.get(), panel->advancedPanel(), true,
        true, true, true);
    auto *const flyout = dialog ? dialog->findChild<FlyoutBase *>() : nullptr;
    if (!flyout) {
        delete dialog;
        return nullptr;
    }
    PreferencesPanel *const content = panel.release();
    inEveryLanguage(*flyout, [flyout] { flyout->SetTitle(PreferencesPanel::tr("Preferences")); });
    dialog->BindResetButton(content, SLOT(reset()));
    QObject::connect(flyout, &FlyoutBase::ApplyChanges, content, [content, dialog] {
        content->keep();
        dialog->accept();
    });
    QObject::connect(dialog, &QDialog::finished, content, &PreferencesPanel::giveUp);
    return dialog;
}

} // namespace Workbench
