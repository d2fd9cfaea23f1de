// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// The whole road of a flyout as the user goes it: button, context, panel in its window, work,
// settings, information, and every way to close it.

#include <ui_base/ArrowedWindow>
#include <ui_base/InfoDialog>
#include <ui_base/QtUiToolkit>
#include <ui_base/ToolBar>
#include <ui_base/ToolButtonWithWidgetMenu>
#include <ui_base/TooltipExFactory>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/toolbar/flyoutroad.h"

#include <QActionGroup>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Lumo::Test;
using namespace Vela::UiBase;

class TestFlyoutRoad : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void clickOpensThePanelBesideItsButton();
    void contextHoldsUntilThePanelIsClosed();
    void everyWayToCloseEndsTheCommandOnce_data();
    void everyWayToCloseEndsTheCommandOnce();
    void panelOpensAgainWithOneClick_data();
    void panelOpensAgainWithOneClick();
    void applyWorksInTheBackgroundWhileThePanelIsBusy();
    void busyApplyButtonStopsTheWork();
    void workStopsWithItsPanel();
    void resetReachesSettingsAndCommand();
    void windowFollowsTheAdvancedSection();
    void informationHangsBeneathThePanel();
    void roomIsKeptForASidePanel();
    void wholeRoadFromBeginToEnd_data();
    void wholeRoadFromBeginToEnd();
    void escapeEndsEveryState_data();
    void escapeEndsEveryState();
    void escapeClosesWhatIsIdleAndStopsWhatIsBusy_data();
    void escapeClosesWhatIsIdleAndStopsWhatIsBusy();
    void escapeOfAClosedPanelDoesNothing();
    void shortcutOpensAndCloses();
    void otherButtonTakesOver_data();
    void otherButtonTakesOver();
    void windowMayCloseWithThePanelOpen();
    void windowMayCloseWhileThePanelIsBusy();
};

namespace {

struct CloseStep
{
    const char *name;
    void (*run)(FlyoutRoad &road, RoadCommand &command);
};

const CloseStep closeSteps[] = {
    {"button", [](FlyoutRoad &, RoadCommand &command) { clickOn(command.button); }},
    {"cross", [](FlyoutRoad &, RoadCommand &command) { clickPart(command, "close_button"); }},
    {"cancel", [](FlyoutRoad &, RoadCommand &command) { clickPart(command, "cancel_button"); }},
    {"exit", [](FlyoutRoad &, RoadCommand &command) { command.onExitCommand(); }},
    {"check mark", [](FlyoutRoad &, RoadCommand &command) { command.setChecked(false); }},
    {"close menu", [](FlyoutRoad &, RoadCommand &command) { command.button->CloseMenu(); }},
    {"other button", [](FlyoutRoad &road, RoadCommand &) { clickOn(road.saveButton); }},
    {"click from code", [](FlyoutRoad &, RoadCommand &command) { command.button->click(); }},
};

void addCloseSteps()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("checkable");
    for (const bool checkable : {true, false}) {
        for (int i = 0; i < int(std::size(closeSteps)); ++i) {
            const bool isForChecked =
                QLatin1String(closeSteps[i].name) == QLatin1String("check mark");
            if (checkable || !isForChecked)
                QTest::addRow("%s%s", closeSteps[i].name, checkable ? "" : ", plain")
                    << i << checkable;
        }
    }
}

/// A panel that the host shows at the right of the settings.
QWidget *addSidePanel(const FlyoutRoad &road)
{
    auto *const side = new QWidget(road.window.get());
    side->setFixedSize(300, 80);
    side->hide();
    road.smooth->panel->AddSubWidget(side, EDirection::Right);
    return side;
}

void showSidePanel(const FlyoutRoad &road, QWidget *side)
{
    side->show();
    Q_EMIT road.smooth->panel->SubWidgetVisibilityChanged(true);
    const QRect panel = onScreen(*road.smooth->panel);
    side->move(road.window->mapFromGlobal(panel.topRight() + QPoint(1, 0)));
}

/// What the user may have done before Escape; the panel is open afterwards.
struct OpenState
{
    const char *name;
    bool isBusy;
    void (*reach)(FlyoutRoad &road);
};

void openAsUser(FlyoutRoad &road)
{
    road.open(*road.smooth);
}

void beginWork(const FlyoutRoad &road)
{
    clickPart(*road.smooth, "apply_button");
    QTRY_VERIFY(road.smooth->worksBegun.load() > 0);
}

void openByKey(FlyoutRoad &road)
{
    QTest::keyClick(road.window.get(), Qt::Key_M, Qt::ControlModifier);
    road.settle();
    road.log.take();
    QVERIFY(road.smooth->panel->isVisible());
}

void openWith(FlyoutRoad &road, const char *name)
{
    openAsUser(road);
    clickPart(*road.smooth, name);
}

const OpenState openStates[] = {
    {"just opened", false, openAsUser},
    {"opened by its key", false, openByKey},
    {"opened from code", false,
     [](FlyoutRoad &road) {
         road.smooth->trigger();
         road.settle();
         road.log.take();
     }},
    {"reset", false, [](FlyoutRoad &road) { openWith(road, "reset_button"); }},
    {"advanced section", false, [](FlyoutRoad &road) { openWith(road, "advanced_button"); }},
    {"information", false, [](FlyoutRoad &road) { openWith(road, "info_button"); }},
    {"side panel", false,
     [](FlyoutRoad &road) {
         openAsUser(road);
         showSidePanel(road, addSidePanel(road));
     }},
    {"after work", false,
     [](FlyoutRoad &road) {
         openAsUser(road);
         beginWork(road);
         road.smooth->letWorkEnd();
         QTRY_VERIFY(!road.smooth->isRunning());
         road.settle();
         road.log.take();
     }},
    {"busy", true,
     [](FlyoutRoad &road) {
         openAsUser(road);
         beginWork(road);
     }},
    {"busy, opened by its key", true,
     [](FlyoutRoad &road) {
         openByKey(road);
         beginWork(road);
     }},
    {"busy, apply button that stops", true,
     [](FlyoutRoad &road) {
         road.smooth->panel->SetToggleApplyButtonEnabled(true);
         openAsUser(road);
         beginWork(road);
     }},
};

} // namespace

void TestFlyoutRoad::clickOpensThePanelBesideItsButton()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    clickOn(road.smooth->button);
    QVERIFY(road.smooth->isChecked());
    QTRY_VERIFY(road.smooth->panel->isVisible());
    const ArrowedWindow *const frame = road.smooth->button->GetArrowedWindow();
    QVERIFY(frame->isVisible());
    QVERIFY(frame->isAncestorOf(road.smooth->panel));
    QVERIFY(frame->window() != road.window.get());
    const QRect button = onScreen(*road.smooth->button);
    const QRect panel = onScreen(*road.smooth->panel);
    QVERIFY(panel.top() > button.bottom());
    QVERIFY(panel.left() < button.center().x() && panel.right() > button.center().x());
    QCOMPARE(road.controller->runningCommand().get(), road.smooth);
    QCOMPARE(road.log.take(), QStringList(QStringLiteral("opened(smooth)")));
}

void TestFlyoutRoad::contextHoldsUntilThePanelIsClosed()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    clickOn(road.smooth->button);
    QTRY_VERIFY(!road.save->isEnabled());
    QVERIFY(!road.saveButton->isEnabled());
    clickPart(*road.smooth, "close_button");
    QTRY_VERIFY(road.save->isEnabled());
    QVERIFY(road.saveButton->isEnabled());
}

void TestFlyoutRoad::everyWayToCloseEndsTheCommandOnce_data()
{
    addCloseSteps();
}

void TestFlyoutRoad::everyWayToCloseEndsTheCommandOnce()
{
    QFETCH(int, step);
    QFETCH(bool, checkable);
    FlyoutRoad road(checkable);
    // One that stays in use, so that its button can be clicked.
    road.smooth->beginContext = {};
    road.smooth->beginContext.overwrite(QStringLiteral("export"), {State::Off, State::Keep});
    QVERIFY(road.isReady());
    clickOn(road.smooth->button);
    QTRY_VERIFY(!road.exportCommand->isEnabled());
    QVERIFY(road.smooth->panel->isVisible());
    road.log.take();
    closeSteps[step].run(road, *road.smooth);
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QTRY_VERIFY(road.exportCommand->isEnabled());
    road.settle();
    QVERIFY(!road.smooth->button->GetArrowedWindow()->isVisible());
    QVERIFY(!road.smooth->isChecked());
    QVERIFY(!road.smooth->button->isChecked());
    QVERIFY(!road.controller->runningCommand());
    QCOMPARE(road.log.take(), QStringList(QStringLiteral("closed(smooth)")));
}

void TestFlyoutRoad::panelOpensAgainWithOneClick_data()
{
    addCloseSteps();
}

void TestFlyoutRoad::panelOpensAgainWithOneClick()
{
    QFETCH(int, step);
    QFETCH(bool, checkable);
    FlyoutRoad road(checkable);
    road.smooth->beginContext = {};
    QVERIFY(road.isReady());
    for (int round = 0; round < 3; ++round) {
        clickOn(road.smooth->button);
        road.settle();
        QVERIFY(road.smooth->panel->isVisible());
        QCOMPARE(road.smooth->isChecked(), checkable);
        QVERIFY(road.smooth->isActive());
        closeSteps[step].run(road, *road.smooth);
        road.settle();
        QVERIFY(!road.smooth->panel->isVisible());
        QVERIFY(!road.smooth->isActive());
    }
    QCOMPARE(road.log.take().size(), 6);
}

void TestFlyoutRoad::applyWorksInTheBackgroundWhileThePanelIsBusy()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    road.open(*road.smooth);
    clickPart(*road.smooth, "apply_button");
    QTRY_COMPARE(road.smooth->worksBegun.load(), 1);
    QVERIFY(!part(*road.smooth, "apply_button")->isEnabled());
    QVERIFY(!part(*road.smooth, "close_button")->isEnabled());
    QVERIFY(!part(*road.smooth, "cancel_button")->isEnabled());
    // The cross does nothing now.
    clickPart(*road.smooth, "close_button");
    QVERIFY(road.smooth->panel->isVisible());
    road.smooth->letWorkEnd();
    QTRY_VERIFY(!road.smooth->isRunning());
    QVERIFY(part(*road.smooth, "apply_button")->isEnabled());
    QVERIFY(part(*road.smooth, "close_button")->isEnabled());
    QVERIFY(road.smooth->panel->isVisible());
    QTRY_COMPARE(road.log.events(),
                 QStringList({QStringLiteral("began(smooth,false)"),
                              QStringLiteral("ended(smooth,false)")}));
    QVERIFY(!road.save->isEnabled());
}

void TestFlyoutRoad::busyApplyButtonStopsTheWork()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    road.smooth->panel->SetToggleApplyButtonEnabled(true);
    road.open(*road.smooth);
    clickPart(*road.smooth, "apply_button");
    QTRY_COMPARE(road.smooth->worksBegun.load(), 1);
    QCOMPARE(part(*road.smooth, "apply_button")->text(), QStringLiteral("Cancel"));
    clickPart(*road.smooth, "apply_button");
    QTRY_VERIFY(!road.smooth->isRunning());
    QVERIFY(road.smooth->wasStopped);
    QCOMPARE(part(*road.smooth, "apply_button")->text(), QStringLiteral("Apply"));
    QVERIFY(part(*road.smooth, "apply_button")->isEnabled());
    road.settle();
    QVERIFY(road.smooth->panel->isVisible());
    QVERIFY(road.smooth->isActive());
    QVERIFY(road.smooth->isChecked());
    QVERIFY(road.smooth->button->isChecked());
}

void TestFlyoutRoad::workStopsWithItsPanel()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    road.open(*road.smooth);
    clickPart(*road.smooth, "apply_button");
    QTRY_COMPARE(road.smooth->worksBegun.load(), 1);
    clickOn(road.smooth->button);
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QTRY_VERIFY(!road.smooth->isRunning());
    QVERIFY(road.smooth->wasStopped);
    road.open(*road.smooth);
    QVERIFY(part(*road.smooth, "apply_button")->isEnabled());
    QVERIFY(part(*road.smooth, "close_button")->isEnabled());
}

void TestFlyoutRoad::resetReachesSettingsAndCommand()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    road.open(*road.smooth);
    QSignalSpy settings(road.smooth->panel->MainPanel(), SIGNAL(ResetValues()));
    clickPart(*road.smooth, "reset_button");
    QCOMPARE(settings.count(), 1);
    QCOMPARE(road.smooth->resets, 1);
    QVERIFY(road.smooth->panel->isVisible());
}

void TestFlyoutRoad::windowFollowsTheAdvancedSection()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    road.open(*road.smooth);
    const ArrowedWindow *const frame = road.smooth->button->GetArrowedWindow();
    const QSize folded = frame->size();
    const QPoint place = onScreen(*road.smooth->panel).topLeft();
    clickPart(*road.smooth, "advanced_button");
    QVERIFY(road.smooth->panel->AdvancedPanel()->isVisible());
    QTRY_VERIFY(frame->height() > folded.height());
    QVERIFY(onScreen(*frame).contains(onScreen(*road.smooth->panel)));
    QCOMPARE(onScreen(*road.smooth->panel).topLeft(), place);
    clickPart(*road.smooth, "advanced_button");
    QTRY_COMPARE(frame->size(), folded);
}

void TestFlyoutRoad::informationHangsBeneathThePanel()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    road.open(*road.smooth);
    QVERIFY(road.smooth->panel->findChild<QWidget *>(QStringLiteral("ipanel"))->isVisible());
    clickPart(*road.smooth, "info_button");
    QVERIFY(road.info->isVisible());
    QTRY_VERIFY(onScreen(*road.info).top() >= onScreen(*road.smooth->panel).bottom());
    QVERIFY(road.smooth->panel->isVisible());
    clickPart(*road.smooth, "close_button");
    QVERIFY(!road.info->isVisible());
}

void TestFlyoutRoad::roomIsKeptForASidePanel()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    QWidget *const side = addSidePanel(road);
    road.window->layout()->setAlignment(road.bar, Qt::AlignHCenter);
    road.window->layout()->activate();
    road.open(*road.smooth);
    const QWidget *const frame = road.smooth->button->GetArrowedWindow();
    const QRect alone = onScreen(*frame);
    // The popup keeps 30 pixels off the edge of the window.
    const int edge = onScreen(*road.window).right() - 30;
    QVERIFY(alone.right() + side->width() > edge);
    showSidePanel(road, side);
    QCOMPARE(onScreen(*frame).right() + side->width(), edge);
    QVERIFY(onScreen(*road.window).contains(onScreen(*side)));
    QVERIFY(!onScreen(*side).intersects(onScreen(*road.smooth->panel)));
    side->hide();
    Q_EMIT road.smooth->panel->SubWidgetVisibilityChanged(false);
    QCOMPARE(onScreen(*frame), alone);
}

void TestFlyoutRoad::wholeRoadFromBeginToEnd_data()
{
    QTest::addColumn<QString>("begin");
    QTest::addColumn<bool>("checkable");
    for (const char *const begin : {"click", "shortcut", "code"}) {
        for (const bool checkable : {true, false})
            QTest::addRow("%s%s", begin, checkable ? "" : ", plain")
                << QString::fromLatin1(begin) << checkable;
    }
}

void TestFlyoutRoad::wholeRoadFromBeginToEnd()
{
    QFETCH(QString, begin);
    QFETCH(bool, checkable);
    FlyoutRoad road(checkable);
    QVERIFY(road.isReady());
    RoadCommand &smooth = *road.smooth;
    QWidget *const side = addSidePanel(road);
    if (begin == QStringLiteral("click"))
        clickOn(smooth.button);
    else if (begin == QStringLiteral("shortcut"))
        QTest::keyClick(road.window.get(), Qt::Key_M, Qt::ControlModifier);
    else
        smooth.trigger();
    QTRY_VERIFY(smooth.panel->isVisible());
    QTRY_VERIFY(!road.save->isEnabled());
    road.settle();
    QVERIFY(smooth.panel->isVisible());
    QCOMPARE(smooth.button->isChecked(), checkable);
    QCOMPARE(road.controller->runningCommand().get(), &smooth);
    const QWidget *const frame = smooth.button->GetArrowedWindow();
    QVERIFY(frame->isAncestorOf(smooth.panel));
    QVERIFY(onScreen(*smooth.panel).top() > onScreen(*smooth.button).bottom());

    clickPart(smooth, "apply_button");
    QTRY_COMPARE(smooth.worksBegun.load(), 1);
    QVERIFY(!part(smooth, "close_button")->isEnabled());
    smooth.letWorkEnd();
    QTRY_VERIFY(!smooth.isRunning());
    QVERIFY(part(smooth, "close_button")->isEnabled());
    clickPart(smooth, "reset_button");
    QCOMPARE(smooth.resets, 1);
    clickPart(smooth, "advanced_button");
    QVERIFY(smooth.panel->AdvancedPanel()->isVisible());
    clickPart(smooth, "info_button");
    QVERIFY(road.info->isVisible());
    showSidePanel(road, side);
    QVERIFY(onScreen(*frame).contains(onScreen(*smooth.panel)));
    road.settle();
    QVERIFY(!road.save->isEnabled());

    QTest::keyClick(smooth.panel->MainPanel(), Qt::Key_Escape);
    QTRY_VERIFY(!frame->isVisible());
    QTRY_VERIFY(road.save->isEnabled());
    road.settle();
    QVERIFY(!road.info->isVisible());
    QVERIFY(!smooth.button->isChecked());
    QVERIFY(!road.controller->runningCommand());
    QCOMPARE(
        road.log.take(),
        QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("began(smooth,false)"),
                     QStringLiteral("ended(smooth,false)"), QStringLiteral("closed(smooth)")}));
}

void TestFlyoutRoad::escapeEndsEveryState_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("inPanel");
    for (int i = 0; i < int(std::size(openStates)); ++i) {
        QTest::addRow("%s, in the view", openStates[i].name) << i << false;
        QTest::addRow("%s, in the panel", openStates[i].name) << i << true;
    }
}

void TestFlyoutRoad::escapeEndsEveryState()
{
    QFETCH(int, state);
    QFETCH(bool, inPanel);
    FlyoutRoad road;
    QVERIFY(road.isReady());
    openStates[state].reach(road);
    QVERIFY(road.smooth->panel->isVisible());
    QVERIFY(!road.save->isEnabled());
    QWidget *const target = inPanel ? road.smooth->panel->MainPanel() : road.view->getQtWidget();
    QTest::keyClick(target, Qt::Key_Escape);
    road.settle();
    if (openStates[state].isBusy) {
        QTRY_VERIFY(!road.smooth->isRunning());
        QVERIFY(road.smooth->wasStopped);
        QVERIFY(road.smooth->panel->isVisible());
        QVERIFY(!road.save->isEnabled());
        QTest::keyClick(target, Qt::Key_Escape);
    }
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QTRY_VERIFY(road.save->isEnabled());
    road.settle();
    QVERIFY(!road.info->isVisible());
    QVERIFY(!road.smooth->isChecked());
    QVERIFY(!road.smooth->button->isChecked());
    QVERIFY(!road.controller->runningCommand());
    QCOMPARE(road.log.take().last(), QStringLiteral("closed(smooth)"));
}

void TestFlyoutRoad::escapeClosesWhatIsIdleAndStopsWhatIsBusy_data()
{
    QTest::addColumn<bool>("inPanel");
    QTest::newRow("in the view") << false;
    QTest::newRow("in the panel") << true;
}

void TestFlyoutRoad::escapeClosesWhatIsIdleAndStopsWhatIsBusy()
{
    QFETCH(bool, inPanel);
    FlyoutRoad road;
    QVERIFY(road.isReady());
    QWidget *const target = inPanel ? road.smooth->panel->MainPanel() : road.view->getQtWidget();
    road.open(*road.smooth);
    clickPart(*road.smooth, "info_button");
    clickPart(*road.smooth, "advanced_button");
    clickPart(*road.smooth, "apply_button");
    QTRY_COMPARE(road.smooth->worksBegun.load(), 1);
    QTest::keyClick(target, Qt::Key_Escape);
    QTRY_VERIFY(!road.smooth->isRunning());
    QVERIFY(road.smooth->wasStopped);
    QVERIFY(road.smooth->panel->isVisible());
    QTest::keyClick(target, Qt::Key_Escape);
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    QVERIFY(!road.info->isVisible());
    QTRY_VERIFY(road.save->isEnabled());
    QVERIFY(!road.smooth->isChecked());
}

void TestFlyoutRoad::escapeOfAClosedPanelDoesNothing()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    QTest::keyClick(road.view->getQtWidget(), Qt::Key_Escape);
    road.settle();
    QCOMPARE(road.log.take(), QStringList());
}

void TestFlyoutRoad::shortcutOpensAndCloses()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    for (int round = 0; round < 2; ++round) {
        QTest::keyClick(road.window.get(), Qt::Key_M, Qt::ControlModifier);
        QVERIFY(road.smooth->isChecked());
        QTRY_VERIFY(road.smooth->panel->isVisible());
        QTRY_VERIFY(!road.save->isEnabled());
        QVERIFY(road.smooth->button->isChecked());
        // Back to the window, as from a click into the view.
        QVERIFY(road.isReady());
        QTest::keyClick(road.window.get(), Qt::Key_M, Qt::ControlModifier);
        QVERIFY(!road.smooth->isChecked());
        QTRY_VERIFY(!road.smooth->panel->isVisible());
        QTRY_VERIFY(road.save->isEnabled());
        QVERIFY(!road.smooth->button->isChecked());
        QCOMPARE(road.log.take(),
                 QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("closed(smooth)")}));
    }
}

void TestFlyoutRoad::otherButtonTakesOver_data()
{
    QTest::addColumn<bool>("exclusive");
    QTest::addColumn<bool>("checkable");
    QTest::newRow("exclusive group") << true << true;
    QTest::newRow("no group") << false << true;
    QTest::newRow("plain") << false << false;
}

void TestFlyoutRoad::otherButtonTakesOver()
{
    QFETCH(bool, exclusive);
    QFETCH(bool, checkable);
    FlyoutRoad road(checkable);
    QVERIFY(road.isReady());
    QActionGroup group(nullptr);
    group.setExclusive(exclusive);
    group.addAction(road.smooth);
    group.addAction(road.measure);
    road.open(*road.smooth);
    QTRY_VERIFY(!road.save->isEnabled());
    clickOn(road.measure->button);
    QTRY_VERIFY(road.measure->panel->isVisible());
    QTRY_VERIFY(!road.smooth->panel->isVisible());
    road.settle();
    QVERIFY(road.measure->panel->isVisible());
    QVERIFY(road.measure->isActive());
    QVERIFY(!road.smooth->isActive());
    QCOMPARE(road.measure->isChecked(), checkable);
    QVERIFY(!road.smooth->isChecked());
    QVERIFY(!road.smooth->button->isChecked());
    QCOMPARE(road.controller->runningCommand().get(), road.measure);
    QVERIFY(road.save->isEnabled());
    QVERIFY(!road.exportCommand->isEnabled());
    clickPart(*road.measure, "close_button");
    road.settle();
    QVERIFY(road.save->isEnabled());
    QVERIFY(road.exportCommand->isEnabled());
    QVERIFY(!road.controller->runningCommand());
}

void TestFlyoutRoad::windowMayCloseWithThePanelOpen()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    road.open(*road.smooth);
    clickPart(*road.smooth, "info_button");
    road.window.reset();
    QVERIFY(!road.controller);
    QVERIFY(!road.smooth);
}

void TestFlyoutRoad::windowMayCloseWhileThePanelIsBusy()
{
    FlyoutRoad road;
    QVERIFY(road.isReady());
    road.open(*road.smooth);
    clickPart(*road.smooth, "apply_button");
    QTRY_COMPARE(road.smooth->worksBegun.load(), 1);
    const QPointer<RoadCommand> kept = road.smooth;
    road.window.reset();
    QVERIFY(!road.controller);
    // The run keeps the command until its end.
    QVERIFY(kept);
    kept->letWorkEnd();
    QTRY_VERIFY(!kept);
}

LUMO_TEST_MAIN(TestFlyoutRoad)
#include "tst_flyoutroad.moc"
