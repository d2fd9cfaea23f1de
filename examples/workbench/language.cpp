// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <utility>

// The catalogue stands in a static library, from which the linker takes only what is asked for.
static void initCatalogue()
{
    Q_INIT_RESOURCE(workbench_parts_translations);
}

namespace Workbench {
namespace {

const QString english = QStringLiteral("en");
const QString german = QStringLiteral("de");
const QString catalogues = QStringLiteral(":/translations");

/// Whether a program that speaks English needs no other locale than @p locale.
bool isEnglish(const QLocale &locale)
{
    return locale.language() == QLocale::English || locale.language() == QLocale::C;
}

} // namespace

QString codeOf(ELanguage language)
{
    switch (language) {
    case ELanguage::English:
        return english;
    case ELanguage::German:
        return german;
    case ELanguage::System:
        break;
    }
    return {};
}

ELanguage languageOf(const QString &code)
{
    if (code == german)
        return ELanguage::German;
    return code == english ? ELanguage::English : ELanguage::System;
}

Language &Language::instance()
{
    static Language language;
    return language;
}

Language::Language()
    : m_system(QLocale::system())
{
    initCatalogue();
}

Language::~Language() = default;

ELanguage Language::spoken() const
{
    if (m_choice != ELanguage::System)
        return m_choice;
    for (const QString &name : m_system.uiLanguages()) {
        const QLocale wanted(name);
        if (wanted.language() == QLocale::German)
            return ELanguage::German;
        if (isEnglish(wanted))
            return ELanguage::English;
    }
    return ELanguage::English;
}

void Language::choose(ELanguage language)
{
    m_choice = language;
    install();
}

void Language::setSystem(const QLocale &locale)
{
    m_system = locale;
    install();
}

/// The system's where it is one of that language, since a country has its own way with numbers.
QLocale Language::localeOf(ELanguage language) const
{
    if (language == ELanguage::German)
        return m_system.language() == QLocale::German ? m_system : QLocale(QLocale::German);
    return isEnglish(m_system) ? m_system : QLocale(QLocale::English);
}

void Language::install()
{
    const ELanguage language = spoken();
    const QLocale locale = localeOf(language);
    if (std::exchange(m_installed, language) == language && QLocale() == locale)
        return;
    QLocale::setDefault(locale);
    m_translators.clear();
    if (language != ELanguage::English) {
        load(locale, QStringLiteral("qtbase"),
             QLibraryInfo::location(QLibraryInfo::TranslationsPath));
        load(locale, QStringLiteral("lumo_ui_base"), catalogues);
        load(locale, QStringLiteral("workbench"), catalogues);
    }
    Q_EMIT changed();
}

/// Qt's own texts may not be there: not every installation has them.
void Language::load(const QLocale &locale, const QString &catalogue, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(locale, catalogue, QStringLiteral("_"), folder))
        return;
    QCoreApplication::installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
}

void inEveryLanguage(QObject &object, const std::function<void()> &speak)
{
    speak();
    QObject::connect(&Language::instance(), &Language::changed, &object, speak);
}

} // namespace Workbench
