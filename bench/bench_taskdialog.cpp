// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// How long does it take to make a question with three buttons and to have it painted for the first
// time? QMessageBox with the same texts is the peer. It does without a style sheet and without the
// shadows of card and buttons, which have to be blurred.

#include "ui_base/qtui/taskdialog/taskdialog.h"

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Lumo::Bench;
using namespace Vela::UiToolkit;

namespace {

const QString title = QStringLiteral("Close the mesh?");
const QString message = QStringLiteral("\"bunny.obj\" has changes that are not saved.");

std::unique_ptr<QDialog> makeTaskDialog()
{
    return std::make_unique<TaskDialog>(nullptr, title, message, EDialogButtons::ButtonsYesNoCancel,
                                        EDialogIcon::IconQuestion);
}

std::unique_ptr<QDialog> makeMessageBox()
{
    auto box =
        std::make_unique<QMessageBox>(QMessageBox::Question, QString(), title,
                                      QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box->setInformativeText(message);
    return box;
}

/// Sees the first paint event of a dialog.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QObject *dialog) { dialog->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }

    bool painted = false;
};

using Make = std::unique_ptr<QDialog> (*)();

template<Make make>
void show(benchmark::State &state)
{
    for (auto _ : state) {
        const std::unique_ptr<QDialog> dialog = make();
        const PaintWatch watch(dialog.get());
        dialog->show();
        processEventsUntil([&watch] { return watch.painted; });
        // What is painted with the dialog, its children, has been by then.
        QCoreApplication::processEvents();
    }
}

BENCHMARK_TEMPLATE(show, makeMessageBox)->Name("showQt");
BENCHMARK_TEMPLATE(show, makeTaskDialog)->Name("showTaskDialog");

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}
