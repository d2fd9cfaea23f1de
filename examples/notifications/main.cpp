// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// Notification bars over four views: a text that stays, one with a close button, work that goes on,
// and a widget as the content.
//
//     notifications [--dark] [--shot FILE.png]

#include "shared/look.h"

#include <ui_base/NotificationBar>

#include <QApplication>
#include <QCommandLineParser>
#include <QGridLayout>
#include <QProgressBar>
#include <QTimer>

using namespace Vela::UiBase;

namespace {

constexpr int Minute = 60'000;

// 2. A bar belongs to the view that it floats over. Over a native view, such as one of OpenGL, it
// also needs FloatingLayer::makeWidgetFloating(bar, QMargins()).
NotificationBar *addView(QWidget &window, int row, int column)
{
    auto *const view = new QWidget(&window);
    view->setMinimumSize(640, 200);
    static_cast<QGridLayout *>(window.layout())->addWidget(view, row, column);
    return new NotificationBar(view);
}

QWidget *makeProgress()
{
    auto *const progress = new QProgressBar;
    progress->setValue(62);
    progress->setFixedSize(220, 22);
    return progress;
}

// 3. Nothing waits for the bars: each call returns at once.
void showMessages(QWidget &window)
{
    addView(window, 0, 0)
        ->ShowSimpleText(QStringLiteral("3 meshes were imported."), eNotificationFadeInOut, Minute,
                         false);
    addView(window, 0, 1)
        ->ShowSimpleText(
            QStringLiteral("The mesh has 12 holes. Close them before it is printed, or choose a "
                           "material that forgives."),
            eNotificationFadeOutOnly, Minute, true);
    addView(window, 1, 0)
        ->ShowSimpleText(QStringLiteral("Smoothing 1,240,000 triangles"), eNotificationPulse, 0,
                         false);
    addView(window, 1, 1)->ShowControl(makeProgress(), eNotificationFadeInOut, Minute, true);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("dark"), QStringLiteral("Dark palette.")});
    parser.addOption({QStringLiteral("shot"), QStringLiteral("Save a picture and leave."),
                      QStringLiteral("file")});
    parser.process(application);
    // 1. The palette is chosen before the first widget.
    chooseLook(application, parser.isSet(QStringLiteral("dark")));

    QWidget window;
    window.setWindowTitle(QStringLiteral("Notifications"));
    new QGridLayout(&window);
    showMessages(window);
    window.show();

    // 4. The messages have faded in by then.
    const QString file = parser.value(QStringLiteral("shot"));
    if (!file.isEmpty()) {
        QTimer::singleShot(1500, &window, [&window, file] {
            QCoreApplication::exit(window.grab().save(file) ? 0 : 1);
        });
    }
    return QApplication::exec();
}
