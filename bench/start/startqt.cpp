// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// A window of Qt alone, with as many actions on a tool bar as the argument says, which ends as soon
// as it has been painted.

#include "start/firstframe.h"

#include <QAction>
#include <QApplication>
#include <QToolBar>

#include <cstdlib>

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    const int count = argc > 1 ? std::atoi(argv[1]) : 0;
    QWidget window;
    if (count > 0) {
        auto *const bar = new QToolBar(&window);
        const QIcon icon = Lumo::Bench::commandIcon();
        for (int i = 0; i < count; ++i)
            bar->addAction(icon, QStringLiteral("Command %1").arg(i));
        bar->resize(1200, 40);
    }
    return Lumo::Bench::showUntilFirstFrame(window);
}
