// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/messagelog.h"
#include "look.h"
#include "mainwindow.h"
#include "options.h"
#include "tour/tour.h"
#include "tracing.h"

#include <lumo_app_service/ApplicationService>
#include <ui_base/StartUp>

#include <QApplication>
#include <QDir>

#include <cstdio>
#include <memory>

namespace {

void prepareApplication()
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // The view is the one window inside the main window; its neighbours stay plain widgets.
    QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication::setApplicationName(QStringLiteral("workbench"));
}

} // namespace

int main(int argc, char *argv[])
{
    prepareApplication();
    QApplication application(argc, argv);
    const Workbench::Options options = Workbench::readOptions(application);
    Workbench::applyLook(application);
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
    window.openFile(options.file);
    return QApplication::exec();
}
