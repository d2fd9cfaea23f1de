// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does it cost to lay out the frame of a popup, and to find its place beside a button? The
// content has 320 by 150 in a layout and 200 by 100 in a solve, and corners are round by 5 pixels. No
// two layouts in a row are the same unless it says so; a solve is asked the same each time. The
// window is hidden, as it is while its owner looks for a place.

#include "ui_base/popup/arrowedwindow_p.h"
#include "ui_base/popup/widgetposcalculator.h"

#include "support/runbenchmarks.h"

#include <QApplication>
#include <QPainterPath>
#include <QPolygonF>

#include <benchmark/benchmark.h>

using namespace Lumo::Bench;
using namespace Vela::UiBase;

namespace {

constexpr QSize LayoutContent(320, 150);
constexpr QSize SolveContent(200, 100);

class OpenWindow : public ArrowedWindow
{
public:
    explicit OpenWindow(const QSize &size, QWidget *parent = nullptr)
        : ArrowedWindow(parent)
    {
        auto *const content = new QWidget;
        content->setFixedSize(size);
        AttachWidget(content);
        SetArrow(EArrowPosition::Bottom, 10, false, 0, 90, true, 0);
    }
    const QPainterPath &outline() { return d_ptr->Outline(); }
};

// The same outline by the general operations of paths.
void layoutQt(benchmark::State &state)
{
    const QRectF rect = QRectF(QPointF(0, 0), LayoutContent).adjusted(-5, -5, 5, 5);
    int offset = 0;
    for (auto _ : state) {
        offset = 1 - offset;
        const QPointF tip(160 + offset, 149);
        QPainterPath body;
        body.addRoundedRect(rect, 5, 5);
        QPainterPath arrow;
        arrow.addPolygon(
            QPolygonF({tip + QPointF(0, 10), tip + QPointF(10, 0), tip - QPointF(10, 0)}));
        benchmark::DoNotOptimize(body.united(arrow).simplified());
    }
}
BENCHMARK(layoutQt);

void layOut(benchmark::State &state, bool withOutline)
{
    OpenWindow window(LayoutContent);
    ArrowedWindow::SArrowParam arrow;
    QSize size;
    QPoint apex;
    for (auto _ : state) {
        arrow.offset = 1 - arrow.offset;
        window.GetArrowWindowSize(arrow, size, apex);
        if (withOutline)
            benchmark::DoNotOptimize(window.outline().elementCount());
    }
}
BENCHMARK_CAPTURE(layOut, Window, false);
BENCHMARK_CAPTURE(layOut, Outline, true);

void layoutRepeated(benchmark::State &state)
{
    OpenWindow window(LayoutContent);
    for (auto _ : state)
        window.GenerateLayout();
}
BENCHMARK(layoutRepeated);

// A button in a window of 800 by 600, and the calculator of its popup.
struct Scene
{
    QWidget window;
    QWidget button {&window};
    WidgetPosCalculator calculator;

    Scene(const QPoint &place, QWidget *popup)
    {
        window.resize(800, 600);
        button.setGeometry(QRect(place, QSize(60, 40)));
        popup->setParent(&window);
        calculator.SetWidget(popup);
        calculator.SetRefWidget(&button);
        calculator.SetDirection(EDirection::Top);
        calculator.setMaxAvailableRect(window.rect());
    }
};

// There is no room above, so it goes below.
void solvePlain(benchmark::State &state)
{
    auto *const popup = new QWidget;
    Scene scene(QPoint(300, 50), popup);
    popup->resize(213, 117);
    QPoint result;
    for (auto _ : state) {
        scene.calculator.GetPosition(result, QRect(0, 0, 213, 117), false, QPoint());
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(solvePlain);

// It would leave the window on the right, so its arrow is slid.
void solveArrow(benchmark::State &state)
{
    Scene scene(QPoint(700, 300), new OpenWindow(SolveContent));
    QPoint result;
    for (auto _ : state) {
        scene.calculator.GetPosition(result, QRect(), true, QPoint());
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(solveArrow);

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    return runBenchmarks(argc, argv);
}
