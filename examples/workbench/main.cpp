// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/messagelog.h"
#include "language.h"
#include "look.h"
#include "mainwindow.h"
#include "options.h"
#include "preferences.h"
#include "tour/tour.h"
#include "tracing.h"

#include <lumo_app_service/ApplicationService>
#include <ui_base/StartUp>

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include <cstdio>
#include <memory>

namespace {

void prepareApplication()
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // The view is the one window inside the main window; its neighbours stay plain widgets.
    QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication::setOrganizationName(QStringLiteral("lumo_ui_base"));
    QApplication::setApplicationName(QStringLiteral("workbench"));
}

/// The file with the settings of that name; none for a tour, which is the same for everybody.
QString settingsFile(const Workbench::Options &options, const QString &name)
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    const bool isTour = !options.tourFolder.isEmpty();
    return isTour ? QString() : folder.filePath(name);
}

/// Brings the preferences of the latest run, and keeps those of this one.
void rememberPreferences(Workbench::Preferences &preferences, const QString &file)
{
    preferences.setValues(Workbench::readPreferences(file));
    QObject::connect(
        &preferences, &Workbench::Preferences::kept, &preferences,
        [&preferences, file] { Workbench::writePreferences(file, preferences.values()); });
}

/// Brings the list of the latest run, and keeps that of this one.
void rememberRecentFiles(Workbench::RecentFiles &recent, const QString &file)
{
    recent.setPaths(Workbench::readRecentFiles(file));
    QObject::connect(&recent, &Workbench::RecentFiles::changed, &recent,
                     [&recent, file] { Workbench::writeRecentFiles(file, recent.paths()); });
}

Workbench::ELook chosenLook(const Workbench::Options &options, const QString &file)
{
    const bool isDark =
        options.isDark || (!file.isEmpty() && Workbench::readPreferences(file).isDark);
    return isDark ? Workbench::ELook::Dark : Workbench::ELook::Light;
}

/// Before there is anything that it is to be the language of. A tour compares texts, which are
/// English wherever it is taken.
void chooseLanguage(const Workbench::Options &options, const QString &file)
{
    auto &language = Workbench::Language::instance();
    if (!options.tourFolder.isEmpty())
        language.setSystem(QLocale(QLocale::English, QLocale::UnitedStates));
    const bool isKept = !file.isEmpty();
    language.choose(isKept ? Workbench::readPreferences(file).language
                           : Workbench::ELanguage::System);
}

} // namespace

int main(int argc, char *argv[])
{
    prepareApplication();
    QApplication application(argc, argv);
    // The command line is answered in the system's language.
    Workbench::Language::instance().choose(Workbench::ELanguage::System);
    const Workbench::Options options = Workbench::readOptions(application);
    const QString preferences = settingsFile(options, QStringLiteral("preferences.ini"));
    chooseLanguage(options, preferences);
    Workbench::applyLook(application, chosenLook(options, preferences));
    Vela::UiBase::StartUp();

    if (!options.tourFolder.isEmpty())
        QDir().mkpath(options.tourFolder);
    std::unique_ptr<Workbench::Tracing> tracing;
    if (!options.traceFile.isEmpty()) {
        tracing = std::make_unique<Workbench::Tracing>(options.traceFile);
        const QString problem = tracing->errorText();
        if (!problem.isEmpty()) {
            std::fprintf(stderr, "workbench: %s\n", problem.toLocal8Bit().constData());
            return 2;
        }
    }

    Workbench::MainWindow window;
    const Workbench::MessageTap tap(window.log());
    Vela::Services::ApplicationService::GetInstance().setMainWindow(&window);
    window.show();
    if (!options.tourFolder.isEmpty())
        return Workbench::Tour(window, options, tracing.get()).run();
    rememberPreferences(window.preferences(), preferences);
    rememberRecentFiles(window.recentFiles(), settingsFile(options, QStringLiteral("recent.ini")));
    window.openFile(options.file);
    return QApplication::exec();
}
