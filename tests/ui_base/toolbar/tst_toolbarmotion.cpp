// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolBar>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/menubutton.h"

#include <QAction>
#include <QPropertyAnimation>
#include <QSignalSpy>
#include <QState>
#include <QTest>

using Lumo::Test::MenuBar;
using Lumo::Test::MenuButton;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolButton;

namespace {

class MovingBar : public MenuBar
{
public:
    explicit MovingBar(QWidget *parent = nullptr, Qt::ToolBarArea area = Qt::TopToolBarArea)
        : MenuBar(parent, area)
    { }
    using ToolBar::GetAnimationTargetPos;
    using ToolBar::InitializePosAnimation;

    QPropertyAnimation *animation() { return findChild<QPropertyAnimation *>(); }
    /// Lets the slide that runs be at its end now.
    void finishSlide()
    {
        QPropertyAnimation *const running = animation();
        running->setCurrentTime(running->duration());
    }
};

/// A window of 400 x 200 with a bar of 38 x 38.
class Scene
{
public:
    explicit Scene(Qt::ToolBarArea area = Qt::TopToolBarArea, bool isShown = true)
        : bar(&window, area)
    {
        window.resize(400, 200);
        button = bar.AddAction(&action, QStringLiteral("tools"));
        if (!isShown)
            bar.hide();
        window.show();
    }

    bool isLocked() const { return !button->GetTooltipObject()->IsTooltipEnabled(); }

    QWidget window;
    QAction action;
    MovingBar bar;
    ToolButton *button = nullptr;
};

} // namespace

class TestToolBarMotion : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void barKeepsItsPlace_data();
    void barKeepsItsPlace();
    void barKeepsItsPlaceOnlyWhenAsked();
    void barFollowsTheSizeOfItsParent();
    void autoPositionComesAfterAMoment();
    void barWithoutParentStaysWhereItIs();
    void contentsFillTheBar();

    void slideGoesFromOutsideToInside_data();
    void slideGoesFromOutsideToInside();
    void widgetWithoutParentDoesNotSlide();
    void slideOfNothingIsNone();
    void animationIsMadeForAnyWidget();
    void shownBarSlidesIn();
    void barThatWasNeverShownSlidesInToItsSide_data();
    void barThatWasNeverShownSlidesInToItsSide();
    void barHasItsSizeBeforeItIsShown();
    void hiddenBarSlidesOut();
    void barThatSlidOutIsUsableWhenItIsShownAtOnce();
    void laterSlideWins_data();
    void laterSlideWins();
    void showModeIsCorrectedForAHiddenBar();
    void barIsShownInFrontOfOthers();
    void barHasAStateMachineThatRuns();
};

void TestToolBarMotion::barKeepsItsPlace_data()
{
    QTest::addColumn<int>("area");
    QTest::addColumn<bool>("centered");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("left") << int(Qt::LeftToolBarArea) << false << QPoint(7, 11);
    QTest::newRow("left, centred") << int(Qt::LeftToolBarArea) << true << QPoint(7, 81);
    QTest::newRow("right") << int(Qt::RightToolBarArea) << false << QPoint(355, 11);
    QTest::newRow("right, centred") << int(Qt::RightToolBarArea) << true << QPoint(355, 81);
    QTest::newRow("top") << int(Qt::TopToolBarArea) << false << QPoint(7, 11);
    QTest::newRow("top, centred") << int(Qt::TopToolBarArea) << true << QPoint(181, 11);
    QTest::newRow("bottom") << int(Qt::BottomToolBarArea) << false << QPoint(7, 151);
    QTest::newRow("bottom, centred") << int(Qt::BottomToolBarArea) << true << QPoint(181, 151);
    QTest::newRow("no single side")
        << int(Qt::TopToolBarArea | Qt::LeftToolBarArea) << false << QPoint(0, 0);
    QTest::newRow("all sides") << int(Qt::AllToolBarAreas) << false << QPoint(3, 4);
    QTest::newRow("no side") << int(Qt::NoToolBarArea) << false << QPoint(3, 4);
}

void TestToolBarMotion::barKeepsItsPlace()
{
    QFETCH(int, area);
    QFETCH(bool, centered);
    Scene scene;
    scene.bar.opened()->area = Qt::ToolBarArea(area);
    scene.bar.move(3, 4);
    scene.bar.SetEnableAutoPosition(true);
    QCOMPARE(scene.bar.pos(), QPoint(3, 4));
    scene.bar.SetOffset(QPoint(7, 11));
    scene.bar.SetCentered(centered);
    QTEST(scene.bar.pos(), "place");
}

void TestToolBarMotion::barKeepsItsPlaceOnlyWhenAsked()
{
    Scene scene;
    scene.bar.move(3, 4);
    scene.bar.SetOffset(QPoint(7, 11));
    scene.bar.SetCentered(false);
    scene.bar.OnAutoPosition();
    QCOMPARE(scene.bar.pos(), QPoint(3, 4));
}

void TestToolBarMotion::barFollowsTheSizeOfItsParent()
{
    Scene scene(Qt::BottomToolBarArea);
    scene.bar.SetEnableAutoPosition(true);
    scene.bar.SetOffset(QPoint(0, 0));
    QCOMPARE(scene.bar.pos(), QPoint(181, 162));
    scene.window.resize(500, 300);
    QCOMPARE(scene.bar.pos(), QPoint(231, 262));
}

void TestToolBarMotion::autoPositionComesAfterAMoment()
{
    Scene scene;
    scene.bar.opened()->autoPositionInterval = 1;
    scene.bar.SetEnableAutoPosition(true);
    scene.bar.move(3, 4);
    scene.bar.AutoPosition();
    QCOMPARE(scene.bar.pos(), QPoint(3, 4));
    QTRY_COMPARE(scene.bar.pos(), QPoint(181, 0));
}

void TestToolBarMotion::barWithoutParentStaysWhereItIs()
{
    MovingBar bar;
    bar.SetEnableAutoPosition(true);
    bar.move(3, 4);
    bar.SetOffset(QPoint(7, 11));
    QCOMPARE(bar.pos(), QPoint(3, 4));
    QWidget parent;
    MovingBar orphan(&parent);
    orphan.setParent(nullptr);
    orphan.move(3, 4);
    orphan.SetEnableAutoPosition(true);
    orphan.SetOffset(QPoint(7, 11)); // its parent of the beginning is still there
    QVERIFY(orphan.pos() != QPoint(3, 4));
}

void TestToolBarMotion::contentsFillTheBar()
{
    Scene scene;
    scene.bar.SetPos(QPoint(5, 5));
    QWidget *const central = scene.bar.opened()->centralWidget;
    central->resize(90, 60);
    QCOMPARE(scene.bar.size(), QSize(90, 60));
    QCOMPARE(central->pos(), QPoint(0, 0));
    scene.bar.SetPos(QPoint(5, 5));
    scene.button->parentWidget()->resize(50, 50);
    QCOMPARE(central->pos(), QPoint(0, 0));
}

void TestToolBarMotion::slideGoesFromOutsideToInside_data()
{
    QTest::addColumn<int>("area");
    QTest::addColumn<QPoint>("inside");
    QTest::addColumn<QPoint>("outside");
    QTest::newRow("left") << int(Qt::LeftToolBarArea) << QPoint(7, 4) << QPoint(-38, 4);
    QTest::newRow("right") << int(Qt::RightToolBarArea) << QPoint(355, 4) << QPoint(400, 4);
    QTest::newRow("top") << int(Qt::TopToolBarArea) << QPoint(3, 11) << QPoint(3, -38);
    QTest::newRow("bottom") << int(Qt::BottomToolBarArea) << QPoint(3, 151) << QPoint(3, 200);
    QTest::newRow("no side") << int(Qt::NoToolBarArea) << QPoint(3, 4) << QPoint(3, 4);
}

void TestToolBarMotion::slideGoesFromOutsideToInside()
{
    QFETCH(int, area);
    QFETCH(QPoint, inside);
    QFETCH(QPoint, outside);
    Scene scene;
    scene.bar.opened()->area = Qt::ToolBarArea(area);
    scene.bar.move(3, 4);
    const auto place = [&](bool show, bool isStart) {
        return MovingBar::GetAnimationTargetPos(show, isStart, &scene.bar, &scene.bar,
                                                QPoint(7, 11));
    };
    QCOMPARE(place(true, true), outside);
    QCOMPARE(place(true, false), inside);
    QCOMPARE(place(false, true), inside);
    QCOMPARE(place(false, false), outside);
}

void TestToolBarMotion::widgetWithoutParentDoesNotSlide()
{
    MovingBar bar;
    bar.move(3, 4);
    QCOMPARE(MovingBar::GetAnimationTargetPos(true, true, &bar, &bar, QPoint(7, 11)), QPoint(3, 4));
}

void TestToolBarMotion::slideOfNothingIsNone()
{
    QWidget window;
    QWidget panel(&window);
    panel.move(3, 4);
    MovingBar bar;
    const QEasingCurve curve;
    QCOMPARE(MovingBar::InitializePosAnimation(true, nullptr, &bar, {}, curve, 1), nullptr);
    QCOMPARE(MovingBar::InitializePosAnimation(true, &panel, nullptr, {}, curve, 1), nullptr);
    QVERIFY(panel.findChildren<QPropertyAnimation *>().isEmpty());
    QCOMPARE(MovingBar::GetAnimationTargetPos(true, true, nullptr, &bar, {}), QPoint());
    QCOMPARE(MovingBar::GetAnimationTargetPos(true, true, &panel, nullptr, {}), QPoint(3, 4));
}

void TestToolBarMotion::animationIsMadeForAnyWidget()
{
    Scene scene;
    QWidget panel(&scene.window);
    panel.setGeometry(20, 30, 60, 50);
    QSignalSpy shown(&scene.bar, &ToolBar::ShowAnimationFinished);
    QSignalSpy hidden(&scene.bar, &ToolBar::HideAnimationFinished);
    for (const bool show : {true, false}) {
        QPropertyAnimation *const animation = MovingBar::InitializePosAnimation(
            show, &panel, &scene.bar, QPoint(7, 11), QEasingCurve::InCubic, 40);
        QCOMPARE(animation->parent(), &panel);
        QCOMPARE(animation->targetObject(), &panel);
        QCOMPARE(animation->propertyName(), QByteArray("pos"));
        QCOMPARE(animation->duration(), 40);
        QCOMPARE(animation->easingCurve().type(), QEasingCurve::InCubic);
        QCOMPARE(animation->startValue().toPoint(), show ? QPoint(20, -50) : QPoint(20, 11));
        QCOMPARE(animation->endValue().toPoint(), show ? QPoint(20, 11) : QPoint(20, -50));
        animation->start();
        animation->setCurrentTime(40);
    }
    QCOMPARE(shown.count(), 1);
    QCOMPARE(hidden.count(), 1);
    QVERIFY(!scene.bar.isVisible());
}

void TestToolBarMotion::shownBarSlidesIn()
{
    Scene scene(Qt::TopToolBarArea, false);
    scene.bar.SetOffset(QPoint(0, 9));
    scene.bar.setEnabled(false);
    scene.bar.SetLocked(true);
    QSignalSpy finished(&scene.bar, &ToolBar::ShowAnimationFinished);
    scene.bar.ShowAnimated();
    QVERIFY(scene.bar.isVisible());
    QVERIFY(scene.bar.isEnabled());
    QVERIFY(scene.bar.InShowMode());
    QCOMPARE(scene.bar.animation()->duration(), 300);
    QCOMPARE(scene.bar.animation()->easingCurve().type(), QEasingCurve::OutExpo);
    QVERIFY(scene.bar.y() < 9);
    QVERIFY(scene.isLocked());
    scene.bar.finishSlide();
    QCOMPARE(scene.bar.y(), 9);
    QVERIFY(!scene.isLocked());
    QCOMPARE(finished.count(), 1);
    QTRY_COMPARE(scene.bar.animation(), nullptr);
}

void TestToolBarMotion::barThatWasNeverShownSlidesInToItsSide_data()
{
    QTest::addColumn<int>("area");
    QTest::addColumn<QPoint>("outside");
    QTest::addColumn<QPoint>("inside");
    QTest::newRow("right") << int(Qt::RightToolBarArea) << QPoint(400, 0) << QPoint(355, 0);
    QTest::newRow("bottom") << int(Qt::BottomToolBarArea) << QPoint(0, 200) << QPoint(0, 151);
    QTest::newRow("left") << int(Qt::LeftToolBarArea) << QPoint(-38, 0) << QPoint(7, 0);
}

void TestToolBarMotion::barThatWasNeverShownSlidesInToItsSide()
{
    QFETCH(int, area);
    Scene scene(Qt::ToolBarArea(area), false);
    scene.bar.SetOffset(QPoint(7, 11));
    scene.bar.ShowAnimated();
    QTEST(scene.bar.animation()->startValue().toPoint(), "outside");
    scene.bar.finishSlide();
    QTEST(scene.bar.pos(), "inside");
}

void TestToolBarMotion::barHasItsSizeBeforeItIsShown()
{
    MovingBar bar;
    QAction first;
    QAction second;
    bar.AddAction(&first, QStringLiteral("tools"));
    QCOMPARE(bar.size(), QSize(38, 38));
    bar.AddAction(&second, QStringLiteral("tools"));
    QCOMPARE(bar.size(), QSize(75, 38));
    bar.RemoveButton(&second);
    QCOMPARE(bar.size(), QSize(38, 38));
}

void TestToolBarMotion::barThatSlidOutIsUsableWhenItIsShownAtOnce()
{
    Scene scene;
    scene.bar.HideAnimated();
    scene.bar.finishSlide();
    QVERIFY(scene.isLocked());
    scene.bar.ShowMe();
    QVERIFY(!scene.isLocked());
    // A lock of the host's is left alone, and so is one of a slide that runs.
    scene.bar.SetLocked(true);
    scene.bar.hide();
    scene.bar.ShowMe();
    QVERIFY(scene.isLocked());
    scene.bar.HideAnimated();
    scene.bar.hide();
    scene.bar.ShowAnimated();
    QVERIFY(scene.isLocked());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    scene.bar.finishSlide();
    QVERIFY(!scene.isLocked());
}

void TestToolBarMotion::hiddenBarSlidesOut()
{
    Scene scene;
    auto *const menu = new QWidget(&scene.window);
    auto *const menuButton = new MenuButton(&scene.bar, menu);
    menuButton->ShowMenu();
    scene.bar.SetOffset(QPoint(0, 9));
    QSignalSpy finished(&scene.bar, &ToolBar::HideAnimationFinished);
    scene.bar.HideAnimated();
    QVERIFY(!menuButton->IsMenuShowing());
    QVERIFY(!menuButton->SaveMenuState());
    QVERIFY(scene.isLocked());
    QVERIFY(scene.bar.isVisible());
    QVERIFY(!scene.bar.InShowMode());
    QCOMPARE(scene.bar.animation()->duration(), 300);
    QCOMPARE(scene.bar.animation()->easingCurve().type(), QEasingCurve::InExpo);
    scene.bar.finishSlide();
    QVERIFY(!scene.bar.isVisible());
    QVERIFY(scene.isLocked());
    QCOMPARE(finished.count(), 1);
}

void TestToolBarMotion::laterSlideWins_data()
{
    QTest::addColumn<bool>("showsLast");
    QTest::newRow("hide, then show") << true;
    QTest::newRow("show, then hide") << false;
}

void TestToolBarMotion::laterSlideWins()
{
    QFETCH(bool, showsLast);
    Scene scene;
    scene.bar.SetOffset(QPoint(0, 9));
    QSignalSpy shown(&scene.bar, &ToolBar::ShowAnimationFinished);
    QSignalSpy hidden(&scene.bar, &ToolBar::HideAnimationFinished);
    if (showsLast) {
        scene.bar.HideAnimated();
        scene.bar.ShowAnimated();
    } else {
        scene.bar.ShowAnimated();
        scene.bar.HideAnimated();
    }
    QCOMPARE(scene.bar.InShowMode(), showsLast);
    QTRY_COMPARE(shown.count() + hidden.count(), 1);
    QTRY_COMPARE(scene.bar.animation(), nullptr);
    QCOMPARE(shown.count() + hidden.count(), 1);
    QCOMPARE(scene.bar.isVisible(), showsLast);
    QCOMPARE(scene.isLocked(), !showsLast);
    QCOMPARE(scene.bar.y(), showsLast ? 9 : -38);
}

void TestToolBarMotion::showModeIsCorrectedForAHiddenBar()
{
    Scene scene;
    QVERIFY(scene.bar.InShowMode());
    scene.bar.hide();
    QVERIFY(!scene.bar.InShowMode());
    scene.bar.show();
    QVERIFY(!scene.bar.InShowMode());
}

void TestToolBarMotion::barIsShownInFrontOfOthers()
{
    Scene scene(Qt::TopToolBarArea, false);
    const QWidget other(&scene.window);
    scene.bar.ShowMe();
    QVERIFY(scene.bar.isVisible());
    QCOMPARE(scene.window.children().last(), &scene.bar);
}

void TestToolBarMotion::barHasAStateMachineThatRuns()
{
    MovingBar bar;
    QTRY_VERIFY(bar.opened()->stateMachine.isRunning());
    QCOMPARE(bar.opened()->stateMachine.initialState(), bar.opened()->initialState);
    QVERIFY(bar.opened()->initialState->transitions().isEmpty());
}

LUMO_TEST_MAIN(TestToolBarMotion)
#include "tst_toolbarmotion.moc"
