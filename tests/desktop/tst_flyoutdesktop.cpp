// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// The road of a flyout with a real pointer, a real keyboard and the focus of a window manager.

#include <ui_base/ArrowedWindow>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/toolbar/flyoutroad.h"

#include <QLineEdit>
#include <QTest>

using namespace Lumo::Test;
using namespace Vela::UiBase;

namespace {

bool clickAsUser(const QWidget &widget)
{
    return pointAsUser(onScreen(widget).center()) && Lumo::Test::clickAsUser(1);
}

bool clickPartAsUser(const RoadCommand &command, const char *name)
{
    return clickAsUser(*part(command, name));
}

/// Whether something else than the view is seen where the panel stands.
bool isSeen(const RoadCommand &command)
{
    const QColor panel = command.panel->palette().color(QPalette::Window);
    return colourOnScreen(onScreen(*command.panel).topLeft() + QPoint(4, 40)) == panel;
}

} // namespace

class TestFlyoutDesktop : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void clickShowsThePanelAndLeavesTheFocus();
    void workIsAppliedStoppedAndClosed();
    void otherButtonTakesOver();
    void keysOpenAndCloseFromTheView();
    void keyOfTheCommandWorksInThePanel();
    void escapeClosesFromTheViewAndFromThePanel_data();
    void escapeClosesFromTheViewAndFromThePanel();
    void keysGoIntoThePanelAndBack();
    void panelGoesWithAMovedWindow();
};

void TestFlyoutDesktop::clickShowsThePanelAndLeavesTheFocus()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    QVERIFY(clickAsUser(*road.smooth->button));
    QTRY_VERIFY(road.smooth->panel->isVisible());
    QTRY_VERIFY(isSeen(*road.smooth));
    QTRY_VERIFY(!road.save->isEnabled());
    QCOMPARE(QApplication::activeWindow(), road.window.get());
    QVERIFY(clickAsUser(*road.smooth->button));
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QTRY_VERIFY(road.save->isEnabled());
    QTRY_COMPARE(road.log.events(),
                 QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("closed(smooth)")}));
}

void TestFlyoutDesktop::workIsAppliedStoppedAndClosed()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    QVERIFY(clickAsUser(*road.smooth->button));
    QTRY_VERIFY(isSeen(*road.smooth));
    QVERIFY(clickPartAsUser(*road.smooth, "advanced_button"));
    QTRY_VERIFY(road.smooth->panel->AdvancedPanel()->isVisible());
    QVERIFY(clickPartAsUser(*road.smooth, "info_button"));
    QTRY_VERIFY(road.info->isVisible());
    QVERIFY(clickPartAsUser(*road.smooth, "apply_button"));
    QTRY_COMPARE(road.smooth->worksBegun.load(), 1);
    QVERIFY(clickPartAsUser(*road.smooth, "close_button"));
    QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
    QTRY_VERIFY(!road.smooth->isRunning());
    QVERIFY(road.smooth->wasStopped);
    QVERIFY(road.smooth->panel->isVisible());
    QVERIFY(clickPartAsUser(*road.smooth, "reset_button"));
    QTRY_COMPARE(road.smooth->resets, 1);
    QVERIFY(clickPartAsUser(*road.smooth, "close_button"));
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QVERIFY(!road.info->isVisible());
    QTRY_VERIFY(road.save->isEnabled());
}

void TestFlyoutDesktop::otherButtonTakesOver()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    QVERIFY(clickAsUser(*road.smooth->button));
    QTRY_VERIFY(isSeen(*road.smooth));
    QVERIFY(clickAsUser(*road.measure->button));
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QTRY_VERIFY(isSeen(*road.measure));
    QTRY_VERIFY(!road.exportCommand->isEnabled());
    QVERIFY(road.save->isEnabled());
    QVERIFY(!road.smooth->isChecked());
}

void TestFlyoutDesktop::keysOpenAndCloseFromTheView()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    for (int round = 0; round < 2; ++round) {
        QVERIFY(pressKeyAsUser(QStringLiteral("ctrl+m")));
        QTRY_VERIFY(isSeen(*road.smooth));
        QTRY_VERIFY(!road.save->isEnabled());
        QVERIFY(pressKeyAsUser(QStringLiteral("ctrl+m")));
        QTRY_VERIFY(!road.smooth->panel->isVisible());
        QTRY_VERIFY(road.save->isEnabled());
    }
}

void TestFlyoutDesktop::keyOfTheCommandWorksInThePanel()
{
    FlyoutRoad road;
    auto *const edit = new QLineEdit(road.smooth->panel->MainPanel());
    edit->setGeometry(0, 0, 150, 30);
    QVERIFY(road.isReady());
    QVERIFY(clickAsUser(*road.smooth->button));
    QTRY_VERIFY(isSeen(*road.smooth));
    QVERIFY(clickAsUser(*edit));
    QTRY_VERIFY(edit->hasFocus());
    QVERIFY(pressKeyAsUser(QStringLiteral("ctrl+m")));
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QTRY_VERIFY(road.save->isEnabled());
}

void TestFlyoutDesktop::escapeClosesFromTheViewAndFromThePanel_data()
{
    QTest::addColumn<bool>("inPanel");
    QTest::newRow("view") << false;
    QTest::newRow("panel") << true;
}

void TestFlyoutDesktop::escapeClosesFromTheViewAndFromThePanel()
{
    QFETCH(bool, inPanel);
    FlyoutRoad road;
    auto *const edit = new QLineEdit(road.smooth->panel->MainPanel());
    edit->setGeometry(0, 0, 150, 30);
    road.view->setFocusPolicy(Qt::StrongFocus);
    QVERIFY(road.isReady());
    road.view->setFocus();
    QVERIFY(clickAsUser(*road.smooth->button));
    QTRY_VERIFY(isSeen(*road.smooth));
    if (inPanel) {
        QVERIFY(clickAsUser(*edit));
        QTRY_VERIFY(edit->hasFocus());
        QVERIFY(typeAsUser(QStringLiteral("12")));
        QTRY_COMPARE(edit->text(), QStringLiteral("12"));
    }
    QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QTRY_VERIFY(road.save->isEnabled());
    QTRY_COMPARE(QApplication::activeWindow(), road.window.get());
}

void TestFlyoutDesktop::keysGoIntoThePanelAndBack()
{
    FlyoutRoad road;
    auto *const edit = new QLineEdit(road.smooth->panel->MainPanel());
    edit->setGeometry(0, 0, 150, 30);
    road.view->setFocusPolicy(Qt::StrongFocus);
    QVERIFY(road.isReady());
    road.view->setFocus();
    QVERIFY(pressKeyAsUser(QStringLiteral("ctrl+m")));
    QTRY_VERIFY(isSeen(*road.smooth));
    QVERIFY(pressKeyAsUser(QStringLiteral("F6")));
    QTRY_VERIFY(edit->hasFocus());
    QVERIFY(typeAsUser(QStringLiteral("12")));
    QTRY_COMPARE(edit->text(), QStringLiteral("12"));
    QVERIFY(pressKeyAsUser(QStringLiteral("F6")));
    QTRY_VERIFY(road.view->getQtWidget()->hasFocus());
    QVERIFY(pressKeyAsUser(QStringLiteral("F6")));
    QTRY_VERIFY(edit->hasFocus());
    QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QTRY_VERIFY(road.view->getQtWidget()->hasFocus());
}

void TestFlyoutDesktop::panelGoesWithAMovedWindow()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    QVERIFY(clickAsUser(*road.smooth->button));
    QTRY_VERIFY(isSeen(*road.smooth));
    const QPoint distance =
        onScreen(*road.smooth->panel).topLeft() - onScreen(*road.smooth->button).topLeft();
    QVERIFY(moveAsUser(*road.window, 220, 160));
    QTRY_COMPARE(onScreen(*road.smooth->panel).topLeft() - onScreen(*road.smooth->button).topLeft(),
                 distance);
    QTRY_VERIFY(isSeen(*road.smooth));
}

LUMO_TEST_MAIN(TestFlyoutDesktop)
#include "tst_flyoutdesktop.moc"
