// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "window.h"

#include "support/testcase.h"
#include "support/testmain.h"

#include <ui_base/ToolButton>

#include <QFile>
#include <QRegularExpression>

using namespace Vela::UiBase;

namespace {

/// The window on the screen, and what it is made of.
struct Start
{
    Start()
    {
        window.resize(400, 300);
        window.show();
    }

    QWidget *widget() const { return window.centralWidget(); }
    ShapeView *view() const
    {
        return static_cast<ShapeView *>(BaseView::getBaseViewOfQtWidget(widget()));
    }
    CommandBase *command(const QString &id) const
    {
        auto *const controller = static_cast<CmdsViewController *>(view()->getViewController());
        return controller->findCommand(id);
    }

    Window window;
};

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The file without the lines on its licence.
QString programText(const QString &name)
{
    QString text = textOf(START_SOURCES "/" + name);
    return text.remove(QRegularExpression("\\A(//.*\n)+\n"));
}

} // namespace

class tst_Start : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void smoothCutsTheCornersInTheBackground();
    void filledStaysWithEachClick();
    void draggingTurnsTheShape();
    void pageShowsTheProgram();
};

void tst_Start::smoothCutsTheCornersInTheBackground()
{
    const Start start;
    CommandBase *const smooth = start.command(SmoothCommand::className());
    QVERIFY(smooth->toolButton());
    smooth->toolButton()->click();
    QVERIFY(!smooth->onExecute()); // one run at a time
    QTRY_COMPARE(start.view()->shape().size(), 12);
    QTRY_VERIFY(start.view()->getViewController()->isNotificationShowing());
    QTRY_VERIFY(smooth->isEnabled());
    smooth->trigger();
    QTRY_COMPARE(start.view()->shape().size(), 24);
    QTRY_VERIFY(smooth->isEnabled());
}

void tst_Start::filledStaysWithEachClick()
{
    const Start start;
    ToolButton *const button = start.command(FilledCommand::className())->toolButton();
    QTest::mouseClick(button, Qt::LeftButton);
    const QPoint inside = start.widget()->rect().center() + QPoint(0, -40);
    QCOMPARE(start.widget()->grab().toImage().pixelColor(inside), QColor(Qt::darkCyan));
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(start.widget()->grab().toImage().pixelColor(inside) != QColor(Qt::darkCyan));
}

void tst_Start::draggingTurnsTheShape()
{
    const Start start;
    start.command(FilledCommand::className())->setChecked(true);
    QWidget *const widget = start.widget();
    const QPoint top = widget->rect().center() + QPoint(0, -70);
    QCOMPARE(widget->grab().toImage().pixelColor(top), QColor(Qt::darkCyan));
    QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, QPoint(100, 20));
    QMouseEvent move(QEvent::MouseMove, QPoint(190, 20), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
    QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, QPoint(190, 20));
    QVERIFY(widget->grab().toImage().pixelColor(top) != QColor(Qt::darkCyan));
}

// The page has the files as they are, so that what is copied from it builds.
void tst_Start::pageShowsTheProgram()
{
    const QString page = textOf(START_PAGE);
    for (const char *const name : {"shapeview.h", "commands.h", "window.h", "main.cpp"}) {
        const QString text = programText(name);
        QVERIFY2(!text.isEmpty(), name);
        QVERIFY2(page.contains("```cpp\n" + text + "```\n"), name);
    }
}

LUMO_TEST_MAIN(tst_Start)
#include "tst_start.moc"
