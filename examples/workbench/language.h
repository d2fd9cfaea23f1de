// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>
#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class QTranslator;

namespace Workbench {

/// What the user can choose. The values are those of the rows in the preferences.
enum class ELanguage : int {
    System = 0, ///< the one that the system prefers, of those that the program speaks
    English = 1,
    German = 2
};

/// A short name that lasts from release to release; empty for the system's.
QString codeOf(ELanguage language);
/// The language of that name; the system's for a name that is unknown.
ELanguage languageOf(const QString &code);

/// The language that the program speaks and writes numbers in. Main thread only.
class Language : public QObject
{
    Q_OBJECT

public:
    /// Speaks English until something is chosen. There is one, as the application has one.
    static Language &instance();

    /// What was chosen last.
    ELanguage choice() const { return m_choice; }
    /// Which language that is.
    ELanguage spoken() const;

    /// Has the application speak @p language from now on. Emits changed() if that is another one than
    /// before. Needs the application.
    void choose(ELanguage language);
    /// Tells what counts as the system's language, in place of what the system says.
    void setSystem(const QLocale &locale);

Q_SIGNALS:
    /// The translators are installed; Qt tells the widgets of it later.
    void changed();

private:
    Language();
    ~Language() override;

    QLocale localeOf(ELanguage language) const;
    void install();
    void load(const QLocale &locale, const QString &catalogue, const QString &folder);

    QLocale m_system;
    ELanguage m_choice = ELanguage::English;
    ELanguage m_installed = ELanguage::English;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};

/// Calls @p speak, which sets texts of @p object, now and after each change of language, as long as
/// the object lives.
void inEveryLanguage(QObject &object, const std::function<void()> &speak);

} // namespace Workbench
