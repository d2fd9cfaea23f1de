// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// How long does it take from a click on a button until the first frame of what it opens? A QMenu that
// a button of Qt pops up is the peer. It has the same panel of settings between a title and two
// buttons, or the same actions. Both have been open before and were kept, unless it says first. On X11
// nobody but the window manager maps a window that it is to manage, while a menu maps itself: a bare
// window with the panel tells what is left to win there.

#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/qtui/qtuitoolkit.h"
#include "ui_base/startup.h"
#include "ui_base/toolbar/toolbar.h"
#include "ui_base/toolbar/toolbarutil.h"
#include "ui_base/toolbar/toolbuttonwithbuttonmenu.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QEventLoop>
#include <QFormLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidgetAction>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <memory>
#include <vector>

using namespace Lumo::Bench;
using namespace Vela::UiBase;

namespace {

constexpr int actionCount = 8;
// So long a window manager has to take note of what was hidden.
constexpr int pauseMs = 5;
const QString title = QStringLiteral("Smooth");

QWidget *makePanel()
{
    auto *const panel = new QWidget;
    auto *const form = new QFormLayout(panel);
    auto *const method = new QComboBox;
    method->addItems({QStringLiteral("Laplace"), QStringLiteral("Taubin")});
    form->addRow(QStringLiteral("Method"), method);
    form->addRow(QStringLiteral("Passes"), new QSpinBox);
    form->addRow(QStringLiteral("Strength"), new QDoubleSpinBox);
    form->addRow(new QCheckBox(QStringLiteral("Keep the border")));
    return panel;
}

QIcon makeIcon()
{
    QPixmap picture(24, 24);
    picture.fill(Qt::red);
    return QIcon(picture);
}

void addActions(QWidget &owner)
{
    const QIcon icon = makeIcon();
    for (int i = 0; i < actionCount; ++i)
        owner.addAction(new QAction(icon, QStringLiteral("Action %1").arg(i), &owner));
}

void fillWithSettings(QWidget &widget)
{
    auto *const column = new QVBoxLayout(&widget);
    column->addWidget(new QLabel(title));
    column->addWidget(makePanel());
    column->addWidget(new QPushButton(QStringLiteral("Cancel")));
    column->addWidget(new QPushButton(QStringLiteral("Apply")));
}

/// A window with a button of Qt.
class QtScene
{
public:
    explicit QtScene(QWidget *window)
        : m_button(new QToolButton(window))
    {
        m_button->setIcon(makeIcon());
        m_button->setGeometry(400, 300, 36, 36);
    }

    QWidget *button() const { return m_button; }

protected:
    QPoint below() const { return m_button->mapToGlobal(m_button->rect().bottomLeft()); }

    QToolButton *const m_button;
};

/// The button pops a menu up.
class MenuScene : public QtScene
{
public:
    explicit MenuScene(QWidget *window)
        : QtScene(window)
        , m_menu(new QMenu(window))
    {
        QObject::connect(m_button, &QToolButton::clicked, m_menu,
                         [this] { m_menu->popup(below()); });
    }

    QWidget *popup() const { return m_menu; }
    void close() { m_menu->hide(); }

protected:
    QMenu *const m_menu;
};

class PanelMenu : public MenuScene
{
public:
    explicit PanelMenu(QWidget *window)
        : MenuScene(window)
    {
        auto *const content = new QWidget;
        fillWithSettings(*content);
        auto *const action = new QWidgetAction(m_menu);
        action->setDefaultWidget(content);
        m_menu->addAction(action);
    }
};

class ActionMenu : public MenuScene
{
public:
    explicit ActionMenu(QWidget *window)
        : MenuScene(window)
    {
        addActions(*m_menu);
    }
};

/// The button shows a window without a frame.
class PanelWindow : public QtScene
{
public:
    explicit PanelWindow(QWidget *window)
        : QtScene(window)
        , m_window(new QDialog(window, Qt::FramelessWindowHint))
    {
        m_window->setAttribute(Qt::WA_ShowWithoutActivating);
        fillWithSettings(*m_window);
        QObject::connect(m_button, &QToolButton::clicked, m_window, [this] {
            m_window->move(below());
            m_window->show();
        });
    }

    QWidget *popup() const { return m_window; }
    void close() { m_window->hide(); }

private:
    QDialog *const m_window;
};

/// A window with a tool bar and a button on it that opens something.
class LumoScene
{
public:
    explicit LumoScene(QWidget *window)
        : m_bar(new ToolBar(window, Qt::LeftToolBarArea))
        , m_action(makeIcon(), title)
    { }

    QWidget *button() const { return m_button; }
    QWidget *popup() const { return m_button->GetMenu(); }
    void close() { m_button->HideMenu(); }

protected:
    ToolBar *const m_bar;
    QAction m_action;
    ToolButtonWithMenu *m_button = nullptr;
};

class Flyout : public LumoScene
{
public:
    explicit Flyout(QWidget *window)
        : LumoScene(window)
    {
        FlyoutBase *const flyout = QtUiToolkit::Instance().CreateFlyout(
            title, makePanel(), nullptr, true, true, true, false, window);
        m_button = m_bar->AddAction(&m_action, flyout, QStringLiteral("tools"));
    }
};

class ButtonMenu : public LumoScene
{
public:
    explicit ButtonMenu(QWidget *window)
        : LumoScene(window)
    {
        ToolBar *const menu = ToolBarUtil::CreateMainToolBarButtonMenu(window, m_bar, QSize(),
                                                                       QSize(), false, actionCount);
        addActions(*window);
        for (QAction *const action : window->actions())
            menu->AddAction(action, QStringLiteral("tools"));
        m_button =
            ToolBar::CreateToolButton(window, nullptr, *m_bar, menu, QStringLiteral("tools"),
                                      makeIcon(), 0, true, false, title, QStringLiteral("button"));
    }
};

/// Sees the first paint event of a widget, and counts them.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QObject *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }

    int paints = 0;
};

void click(QWidget &button)
{
    const QPointF inside = button.rect().center();
    const QPointF global = button.mapToGlobal(button.rect().center());
    const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
        QMouseEvent event(type, inside, global, Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&button, &event);
    };
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::NoButton);
}

void settle()
{
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(pauseMs);
    loop.exec();
}

double processSeconds()
{
    timespec time {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

struct Samples
{
    std::vector<double> waits; ///< on the wall, in seconds
    std::vector<double> costs; ///< of processor time, in seconds
    int openings = 0;
    int paints = 0;
};

template<typename Scene>
void openUntilPainted(Scene &scene, const PaintWatch &watch)
{
    click(*scene.button());
    // It sleeps meanwhile, so that a window system has the processor.
    while (watch.paints == 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

template<typename Scene>
void openOnce(Scene &scene, Samples &samples)
{
    using Clock = std::chrono::steady_clock;
    const PaintWatch watch(scene.popup());
    const double busyBefore = processSeconds();
    const Clock::time_point begin = Clock::now();
    openUntilPainted(scene, watch);
    samples.costs.push_back(processSeconds() - busyBefore);
    samples.waits.push_back(std::chrono::duration<double>(Clock::now() - begin).count());
    settle();
    ++samples.openings;
    samples.paints += watch.paints;
    scene.close();
    settle();
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

template<typename Scene>
struct Stage
{
    QWidget window;
    std::unique_ptr<Scene> scene;

    Stage()
    {
        window.resize(800, 600);
        scene = std::make_unique<Scene>(&window);
        window.show();
        window.activateWindow();
        processEventsUntil([this] {
            return window.windowHandle() && window.windowHandle()->isExposed()
                && QApplication::activeWindow() == &window;
        });
        settle();
    }
};

/// Opens again and again what was open before, or when @p first each time something new.
template<typename Scene, bool first>
void open(benchmark::State &state)
{
    auto stage = std::make_unique<Stage<Scene>>();
    Samples ignored;
    openOnce(*stage->scene, ignored);
    Samples samples;
    for (auto _ : state) {
        if (first)
            stage = std::make_unique<Stage<Scene>>();
        openOnce(*stage->scene, samples);
        state.SetIterationTime(samples.waits.back());
    }
    state.counters["wait_ns"] = median(samples.waits) * 1e9;
    state.counters["cost_ns"] = median(samples.costs) * 1e9;
    state.counters["paints"] = double(samples.paints) / samples.openings;
}

void again(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Iterations(25)->UseManualTime();
}

void few(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Iterations(8)->UseManualTime();
}

BENCHMARK_TEMPLATE(open, PanelMenu, false)->Name("openPanelMenu")->Apply(again);
BENCHMARK_TEMPLATE(open, PanelWindow, false)->Name("openPanelWindow")->Apply(again);
BENCHMARK_TEMPLATE(open, Flyout, false)->Name("openFlyout")->Apply(again);
BENCHMARK_TEMPLATE(open, ActionMenu, false)->Name("openActionMenu")->Apply(again);
BENCHMARK_TEMPLATE(open, ButtonMenu, false)->Name("openButtonMenu")->Apply(again);
BENCHMARK_TEMPLATE(open, PanelMenu, true)->Name("firstPanelMenu")->Apply(few);
BENCHMARK_TEMPLATE(open, Flyout, true)->Name("firstFlyout")->Apply(few);

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    StartUp();
    return Lumo::Bench::runBenchmarks(argc, argv);
}
