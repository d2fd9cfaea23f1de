// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "preferences.h"

#include <QSettings>

namespace Workbench {
namespace {

const QString backgroundKey = QStringLiteral("view/background");
const QString cardsKey = QStringLiteral("strip/cards");
const QString darkKey = QStringLiteral("window/dark");
const QString languageKey = QStringLiteral("window/language");
const QString notificationsKey = QStringLiteral("view/notifications");

EBackground backgroundOf(const QVariant &value)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    const bool isKnown =
        isNumber && number >= int(EBackground::Light) && number <= int(EBackground::Dark);
    return isKnown ? EBackground(number) : EBackground::Light;
}

} // namespace

void Preferences::setValues(const SPreferences &values)
{
    if (values == m_values)
        return;
    m_values = values;
    Q_EMIT changed();
}

void Preferences::keep()
{
    Q_EMIT kept();
}

SPreferences readPreferences(const QString &path)
{
    const QSettings settings(path, QSettings::IniFormat);
    SPreferences values;
    values.language = languageOf(settings.value(languageKey).toString());
    values.background = backgroundOf(settings.value(backgroundKey));
    values.hasCards = settings.value(cardsKey, values.hasCards).toBool();
    values.hasNotifications = settings.value(notificationsKey, values.hasNotifications).toBool();
    values.isDark = settings.value(darkKey, values.isDark).toBool();
    return values;
}

bool writePreferences(const QString &path, const SPreferences &values)
{
    QSettings settings(path, QSettings::IniFormat);
    settings.setValue(languageKey, codeOf(values.language));
    settings.setValue(backgroundKey, int(values.background));
    settings.setValue(cardsKey, values.hasCards);
    settings.setValue(notificationsKey, values.hasNotifications);
    settings.setValue(darkKey, values.isDark);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace Workbench
