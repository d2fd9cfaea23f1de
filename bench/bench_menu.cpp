// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// How long does it take from the pointer on an item until its menu of twenty entries has been painted?
// QMenuBar with the same entries is the peer, once with the look of the style and once with the style
// sheet that ours has anyway. The menus have been shown before: it is the way of every later time.

#include "ui_base/qtui/menu/menubuilder.h"

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"

#include <lumo_common_res/Styles>

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

#include <benchmark/benchmark.h>

using namespace Lumo::Bench;
using Vela::Resource::Styles;
using Vela::UiBase::MenuBuilder;

namespace {

constexpr int entryCount = 20;
const QString item = QStringLiteral("File");

QVector<QAction *> makeEntries(QObject *parent)
{
    QVector<QAction *> entries;
    for (int i = 0; i < entryCount; ++i)
        entries << new QAction(QStringLiteral("An entry with the number %1").arg(i), parent);
    return entries;
}

/// Sees the first paint event of a menu after it was reset.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QObject *menu) { menu->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }

    bool painted = false;
};

template<typename Open>
void openAndHide(benchmark::State &state, QMainWindow &window, QMenu &menu, Open open)
{
    window.show();
    PaintWatch watch(&menu);
    const auto once = [&] {
        watch.painted = false;
        open();
        processEventsUntil([&watch] { return watch.painted; });
        menu.hide();
        QCoreApplication::processEvents();
    };
    once();
    for (auto _ : state)
        once();
    if (menu.actions().size() != entryCount)
        state.SkipWithError("the menu lacks entries");
}

void openMenuBar(benchmark::State &state, const QString &styleSheet)
{
    QMainWindow window;
    QMenu *menu = window.menuBar()->addMenu(item);
    menu->setStyleSheet(styleSheet);
    menu->addActions(makeEntries(menu).toList());
    openAndHide(state, window, *menu,
                [&] { window.menuBar()->setActiveAction(menu->menuAction()); });
}

void openPlain(benchmark::State &state)
{
    openMenuBar(state, {});
}

void openStyled(benchmark::State &state)
{
    openMenuBar(state, Styles::Instance().MenuMain());
}

void openMenuBuilder(benchmark::State &state)
{
    QMainWindow window;
    MenuBuilder bar(item, &window, &window, Qt::ToolButtonTextOnly, true, {});
    bar.AddMenuBarItem(item, {}, {}, {}, {});
    bar.AddDropDownMenu(item, makeEntries(&window), nullptr);
    bar.Start();
    const auto button = bar.GetMenuBarItem(item);
    openAndHide(state, window, *button->findChild<QMenu *>(), [&] {
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(button.data(), &enter);
    });
}

BENCHMARK(openPlain);
BENCHMARK(openStyled);
BENCHMARK(openMenuBuilder);

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}
