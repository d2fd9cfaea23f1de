// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ArrowedWindow>
#include <ui_base/TooltipManager>
#include <ui_base/TooltipObject>
#include <ui_base/WidgetPosCalculator>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/qtui/tooltip/tooltipobject_p.h"
#include "ui_base/qtui/tooltip/tooltipscene.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>

#include <memory>
#include <type_traits>

using namespace Vela::UiBase;
using Lumo::Test::fire;
using Lumo::Test::TooltipScene;

static_assert(std::is_base_of_v<ATooltipObject, TooltipObject>);

namespace {

const QString Group = QStringLiteral("group");
constexpr int Long = 1000000;

class Tip : public Lumo::Test::Peek<TooltipObject>
{
public:
    using Peek::Peek;
    TooltipObjectPrivate &own() const { return static_cast<TooltipObjectPrivate &>(state()); }
};

struct Handler : ATooltipObject::IHoverCallbackHandler
{
    QList<bool> heard;
    void OnHoverStatusChanged(bool hovered) override { heard << hovered; }
};

// A scene whose first host has a tooltip that comes at once and never goes by itself.
struct HoverScene : TooltipScene
{
    QPointer<Tip> tip = make(host);

    static Tip *make(QWidget *host, const QString &group = Group)
    {
        auto *const made = new Tip(group, host);
        made->SetTooltipControl(ATooltipObject::CreateTooltipControl(QStringLiteral("text")), true);
        made->SetTooltipType(ATooltipObject::ETooltipType::TooltipRight);
        made->SetCustomTooltipDismissTime(Long);
        made->AttachTo(host);
        return made;
    }

    // The pointer comes over the host and rests.
    void bringUp()
    {
        pointAt(host);
        pointAt(host, QPoint(1, 0));
    }
};

void moveOver(QWidget *widget, Qt::MouseButton button = Qt::NoButton)
{
    QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), button, button, {});
    QCoreApplication::sendEvent(widget, &move);
}

void send(QWidget *widget, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

class TooltipObjectTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void attachingPreparesTheHost();
    void attachingCostsLittle();
    void attachingToNullOrTheSameHostChangesNothing();
    void aFormerHostNoLongerBringsItUp();
    void itGoesWhenItGetsAnotherHost();
    void withoutHostItStaysHidden();
    void comesWhenThePointerRests();
    void withoutAViewItsWindowBoundsIt_data();
    void withoutAViewItsWindowBoundsIt();
    void eachMovementStartsTheTimeAnew();
    void aTimeOfZeroShowsItInTheNextPass();
    void aTooltipThatIsUpIsNotShownAgain();
    void withoutEnteringAMovementBringsNothing();
    void leavingStopsTheShowTimerAndStartsTheDismissTimer();
    void goesAtOnceWithADismissTimeOfZero();
    void comingBackStopsTheDismissTimer();
    void withoutHoverEventsItGoesUnderThePointer();
    void withHoverEventsItStaysUnderThePointer();
    void hoveringLooksAtHostAndWindow();
    void handlersHearOfHoveringOnlyWhenEnabled();
    void aPressOnTheHostHidesIt();
    void aClickOnTheWindowHidesIt();
    void pressesAreKeptTrackOf();
    void aHeldTooltipHearsNoMovement();
    void itGoesWithItsHost_data();
    void itGoesWithItsHost();
    void itDoesNotComeForAHiddenHost();
    void itDoesNotComeForAHostDisabledMeanwhile();
    void theHostMayDieFirst_data();
    void theHostMayDieFirst();
    void detachingHidesItAndLetsGo();
    void attachedAnewUnderThePointerItComes();
    void detachingKeepsTheOwnersConnections();
    void aDisabledTooltipDoesNotCome();
    void withQtsTimesItComesWithItsEvent();
    void oneOfAGroupIsUpAtATime();
    void aHandlerMayEndTheTooltip();
    void theSignalOfTheHostIsForOthersToEmit();
    void aContentWithoutAFrameGoesWithTheWindowOfItsHost();
    void manyTooltipsOfABarStayCheap();
};

void TooltipObjectTest::attachingPreparesTheHost()
{
    QWidget host;
    host.setFocusPolicy(Qt::StrongFocus);
    Tip tip(Group, nullptr);
    tip.AttachTo(&host);
    QVERIFY(host.testAttribute(Qt::WA_ShowWithoutActivating));
    QCOMPARE(host.focusPolicy(), Qt::NoFocus);
    QVERIFY(host.hasMouseTracking());
    QCOMPARE(tip.GetPosCalculator()->RefWidget(), &host);

    QWidget other;
    tip.AttachTo(&other);
    QCOMPARE(tip.GetPosCalculator()->RefWidget(), &other);
}

void TooltipObjectTest::attachingCostsLittle()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    int runs = 0;
    tip.SetPreparation([&](ATooltipObject &prepared) {
        ++runs;
        prepared.SetTooltipControl(ATooltipObject::CreateTooltipControl(QStringLiteral("text")),
                                   true);
        prepared.SetCustomTooltipShowUpTime(0);
    });
    tip.AttachTo(scene.host);
    TooltipScene::pointAt(scene.other);
    QCOMPARE(runs, 0);
    QVERIFY(tip.children().isEmpty());
    TooltipScene::pointAt(scene.host);
    TooltipScene::pointAt(scene.host, QPoint(1, 0));
    QCOMPARE(runs, 1);
    QTRY_VERIFY(tip.IsVisible());
}

void TooltipObjectTest::attachingToNullOrTheSameHostChangesNothing()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.AttachTo(nullptr);
    tip.Detach();
    tip.AttachTo(scene.host);
    scene.host->setFocusPolicy(Qt::TabFocus);
    tip.AttachTo(scene.host);
    tip.AttachTo(nullptr);
    QCOMPARE(scene.host->focusPolicy(), Qt::TabFocus);
    QCOMPARE(tip.own().hostWidget.data(), scene.host.data());
}

void TooltipObjectTest::aFormerHostNoLongerBringsItUp()
{
    HoverScene scene;
    scene.tip->AttachTo(scene.other);
    scene.bringUp();
    QVERIFY(!scene.tip->showTimer()->isActive());
    delete scene.host.data();
    QVERIFY(!scene.tip);
}

// The former host would take it along no more.
void TooltipObjectTest::itGoesWhenItGetsAnotherHost()
{
    HoverScene scene;
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    scene.tip->AttachTo(scene.host);
    QVERIFY(scene.tip->IsVisible());
    scene.tip->AttachTo(scene.other);
    QVERIFY(!scene.tip->IsVisible());

    scene.tip->SetCustomTooltipShowUpTime(Long);
    TooltipScene::pointAt(scene.other);
    TooltipScene::pointAt(scene.other, QPoint(1, 0));
    QVERIFY(scene.tip->showTimer()->isActive());
    scene.tip->AttachTo(scene.host);
    QVERIFY(!scene.tip->showTimer()->isActive());
}

void TooltipObjectTest::withoutHostItStaysHidden()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(new QLabel(QStringLiteral("text")), true);
    QVERIFY(!tip.CanTooltipBeShown());
    QVERIFY(!tip.CheckMouseHover());
    tip.ShowTooltip();
    QVERIFY(!tip.IsVisible());
}

void TooltipObjectTest::comesWhenThePointerRests()
{
    HoverScene scene;
    scene.tip->SetCustomTooltipShowUpTime(Long);
    TooltipScene::pointAt(scene.host);
    TooltipScene::pointAt(scene.host, QPoint(1, 0));
    QVERIFY(scene.tip->showTimer()->isActive());
    QCOMPARE(scene.tip->showTimer()->interval(), Long);
    QVERIFY(!scene.tip->IsVisible());
    fire(scene.tip->showTimer());
    QVERIFY(scene.tip->IsVisible());
    QVERIFY(scene.tip->popup()->isVisible());
}

void TooltipObjectTest::withoutAViewItsWindowBoundsIt_data()
{
    QTest::addColumn<QPoint>("corner");
    QTest::addColumn<QPoint>("host");
    QTest::addColumn<EDirection>("side");
    QTest::newRow("room at the right") << QPoint(260, 300) << QPoint(40, 180) << EDirection::Right;
    QTest::newRow("none at the right") << QPoint(20, 30) << QPoint(330, 180) << EDirection::Left;
}

// Wherever the window stands on the screen.
void TooltipObjectTest::withoutAViewItsWindowBoundsIt()
{
    QFETCH(QPoint, corner);
    QFETCH(QPoint, host);
    QFETCH(EDirection, side);
    HoverScene scene;
    scene.window->move(corner);
    scene.host->move(host);
    QApplication::setActiveWindow(scene.window.get());
    QCOMPARE(QApplication::activeWindow(), scene.window.get());
    auto *const card = new QWidget;
    card->setFixedSize(120, 80);
    scene.tip->SetTooltipControl(card, false);
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    const QRect seen(Lumo::Test::originOf(card), card->size());
    const QRect beside(Lumo::Test::originOf(scene.host), scene.host->size());
    if (side == EDirection::Right)
        QCOMPARE(seen.left(), beside.right() + 5);
    else
        QCOMPARE(seen.right(), beside.left() - 5 - 1);
}

void TooltipObjectTest::eachMovementStartsTheTimeAnew()
{
    HoverScene scene;
    scene.tip->SetCustomTooltipShowUpTime(Long);
    TooltipScene::pointAt(scene.host);
    TooltipScene::pointAt(scene.host, QPoint(1, 0));
    QTimer *const timer = scene.tip->showTimer();
    timer->setTimerType(Qt::PreciseTimer);
    timer->start();
    QTRY_VERIFY(timer->remainingTime() < Long - 50);

    QElapsedTimer sinceMove;
    sinceMove.start();
    moveOver(scene.host);
    const int remaining = timer->remainingTime();
    QVERIFY(timer->isActive());
    QVERIFY(remaining + sinceMove.elapsed() > Long - 25);
    QVERIFY(!scene.tip->IsVisible());
}

void TooltipObjectTest::aTimeOfZeroShowsItInTheNextPass()
{
    HoverScene scene;
    send(scene.host, QEvent::Enter);
    moveOver(scene.host);
    QVERIFY(!scene.tip->IsVisible());
    QTRY_VERIFY(scene.tip->IsVisible());
}

void TooltipObjectTest::aTooltipThatIsUpIsNotShownAgain()
{
    HoverScene scene;
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    TooltipScene::pointAt(scene.host, QPoint(3, 0));
    QVERIFY(!scene.tip->showTimer()->isActive());
}

void TooltipObjectTest::withoutEnteringAMovementBringsNothing()
{
    HoverScene scene;
    scene.tip->showTimer()->start(Long);
    moveOver(scene.host);
    QVERIFY(!scene.tip->showTimer()->isActive());
}

void TooltipObjectTest::leavingStopsTheShowTimerAndStartsTheDismissTimer()
{
    HoverScene scene;
    scene.tip->SetCustomTooltipShowUpTime(Long);
    scene.bringUp();
    QVERIFY(scene.tip->showTimer()->isActive());
    TooltipScene::pointNowhere();
    QVERIFY(!scene.tip->showTimer()->isActive());
    QVERIFY(scene.tip->dismissTimer()->isActive());
    QVERIFY(!scene.tip->own().hovering);
}

void TooltipObjectTest::goesAtOnceWithADismissTimeOfZero()
{
    HoverScene scene;
    scene.tip->SetCustomTooltipDismissTime(0);
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    TooltipScene::pointNowhere();
    QTRY_VERIFY(!scene.tip->IsVisible());
    QVERIFY(!scene.tip->popup()->window()->isVisible());
}

void TooltipObjectTest::comingBackStopsTheDismissTimer()
{
    HoverScene scene;
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    TooltipScene::pointNowhere();
    QVERIFY(scene.tip->dismissTimer()->isActive());
    send(scene.tip->popup(), QEvent::Enter);
    QVERIFY(scene.tip->dismissTimer()->isActive());
    send(scene.host, QEvent::Enter);
    QVERIFY(!scene.tip->dismissTimer()->isActive());

    scene.tip->dismissTimer()->start(Long);
    TooltipScene::pointAt(scene.host, QPoint(4, 0));
    QVERIFY(!scene.tip->dismissTimer()->isActive());
    QVERIFY(scene.tip->IsVisible());
}

void TooltipObjectTest::withoutHoverEventsItGoesUnderThePointer()
{
    HoverScene scene;
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    TooltipScene::pointAt(scene.tip->popup());
    QVERIFY(scene.tip->dismissTimer()->isActive());
    fire(scene.tip->dismissTimer());
    QVERIFY(!scene.tip->IsVisible());
}

void TooltipObjectTest::withHoverEventsItStaysUnderThePointer()
{
    HoverScene scene;
    scene.tip->SetEnableHoverEvents(true);
    QVERIFY(scene.tip->IsHoverEventsEnabled());
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    TooltipScene::pointAt(scene.tip->popup());
    fire(scene.tip->dismissTimer());
    QVERIFY(scene.tip->IsVisible());
    // Leaving the window is another time to go.
    scene.tip->dismissTimer()->stop();
    TooltipScene::pointNowhere();
    send(scene.tip->popup(), QEvent::Leave);
    QVERIFY(scene.tip->dismissTimer()->isActive());
    fire(scene.tip->dismissTimer());
    QVERIFY(!scene.tip->IsVisible());

    scene.tip->SetEnableHoverEvents(false);
    QVERIFY(!scene.tip->IsHoverEventsEnabled());
}

void TooltipObjectTest::hoveringLooksAtHostAndWindow()
{
    HoverScene scene;
    QVERIFY(!scene.tip->CheckMouseHover());
    scene.bringUp();
    QVERIFY(scene.tip->CheckMouseHover());
    QTRY_VERIFY(scene.tip->IsVisible());
    TooltipScene::pointAt(scene.tip->popup());
    QVERIFY(scene.tip->CheckMouseHover());
    QVERIFY(scene.tip->own().hoveredOnLeave);
    TooltipScene::pointNowhere();
    send(scene.tip->popup(), QEvent::Leave);
    QVERIFY(!scene.tip->CheckMouseHover());
    QVERIFY(!scene.tip->own().hoveredOnLeave);
}

void TooltipObjectTest::handlersHearOfHoveringOnlyWhenEnabled()
{
    Handler handler;
    HoverScene scene;
    scene.tip->SetHoveredStateCallbackHandler(&handler);
    scene.tip->SetNormalStateCallbackHandler(&handler);
    TooltipScene::pointAt(scene.host);
    TooltipScene::pointNowhere();
    QVERIFY(handler.heard.isEmpty());
    scene.tip->SetEnableHoverEvents(true);
    TooltipScene::pointAt(scene.host);
    QCOMPARE(handler.heard, QList<bool> {true});
    TooltipScene::pointNowhere();
    QCOMPARE(handler.heard, (QList<bool> {true, false}));
}

void TooltipObjectTest::aPressOnTheHostHidesIt()
{
    HoverScene scene;
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    QTest::mousePress(scene.host, Qt::LeftButton);
    QVERIFY(!scene.tip->IsVisible());
    QVERIFY(scene.tip->own().pressed);
    QTest::mouseRelease(scene.host, Qt::LeftButton);

    scene.tip->own().hideOnPress = false;
    scene.tip->ShowTooltip();
    QTest::mousePress(scene.host, Qt::LeftButton);
    QVERIFY(scene.tip->IsVisible());
    QTest::mouseRelease(scene.host, Qt::LeftButton);
}

void TooltipObjectTest::aClickOnTheWindowHidesIt()
{
    HoverScene scene;
    scene.tip->ShowTooltip();
    QTest::mouseClick(scene.tip->popup(), Qt::LeftButton);
    QVERIFY(!scene.tip->IsVisible());
    scene.tip->SetClickToDismissTooltip(false);
    scene.tip->ShowTooltip();
    QTest::mouseClick(scene.tip->popup(), Qt::LeftButton);
    QVERIFY(scene.tip->IsVisible());
}

void TooltipObjectTest::pressesAreKeptTrackOf()
{
    HoverScene scene;
    moveOver(scene.host, Qt::LeftButton);
    QVERIFY(scene.tip->own().pressed);
    moveOver(scene.host);
    QVERIFY(!scene.tip->own().pressed);
}

void TooltipObjectTest::aHeldTooltipHearsNoMovement()
{
    HoverScene scene;
    scene.tip->own().hoverHold = true;
    moveOver(scene.host, Qt::LeftButton);
    QVERIFY(!scene.tip->own().pressed);
    scene.tip->own().hoveredOnLeave = true;
    send(scene.host, QEvent::Leave);
    QVERIFY(scene.tip->own().hovering);
    QVERIFY(scene.tip->own().hoveredOnLeave);
    QVERIFY(scene.tip->dismissTimer()->isActive());
}

void TooltipObjectTest::itGoesWithItsHost_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"host hidden", "window hidden", "host disabled", "window disabled"})
        QTest::newRow(what) << QString::fromLatin1(what);
}

void TooltipObjectTest::itGoesWithItsHost()
{
    QFETCH(QString, what);
    HoverScene scene;
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    QWidget *const target =
        what.startsWith(QLatin1String("host")) ? scene.host.data() : scene.window.get();
    if (what.endsWith(QLatin1String("hidden")))
        target->hide();
    else
        target->setEnabled(false);
    QVERIFY(!scene.tip->IsVisible());
    QVERIFY(!scene.tip->popup()->window()->isVisible());
}

void TooltipObjectTest::itDoesNotComeForAHiddenHost()
{
    HoverScene scene;
    scene.tip->SetCustomTooltipShowUpTime(Long);
    scene.bringUp();
    scene.host->hide();
    fire(scene.tip->showTimer());
    QVERIFY(!scene.tip->IsVisible());
    QVERIFY(!scene.tip->CanTooltipBeShown());
}

void TooltipObjectTest::itDoesNotComeForAHostDisabledMeanwhile()
{
    HoverScene scene;
    scene.tip->SetCustomTooltipShowUpTime(Long);
    scene.bringUp();
    QVERIFY(scene.tip->showTimer()->isActive());
    scene.host->setEnabled(false);
    QVERIFY(!scene.tip->showTimer()->isActive());
}

void TooltipObjectTest::theHostMayDieFirst_data()
{
    QTest::addColumn<bool>("isUp");
    QTest::newRow("up") << true;
    QTest::newRow("about to come") << false;
}

// A tooltip that belongs to somebody else than its host.
void TooltipObjectTest::theHostMayDieFirst()
{
    QFETCH(bool, isUp);
    TooltipScene scene;
    Tip tip(Group, scene.window.get());
    tip.SetTooltipControl(new QLabel(QStringLiteral("text")), true);
    tip.SetCustomTooltipShowUpTime(Long);
    tip.AttachTo(scene.host);
    TooltipScene::pointAt(scene.host);
    TooltipScene::pointAt(scene.host, QPoint(1, 0));
    if (isUp)
        fire(tip.showTimer());
    QCOMPARE(tip.IsVisible(), isUp);
    delete scene.host.data();
    QVERIFY(!tip.IsVisible());
    QVERIFY(!tip.popup()->isVisible());
    fire(tip.showTimer());
    QVERIFY(!tip.IsVisible());
    QVERIFY(!tip.CheckMouseHover());
    tip.Detach();

    tip.AttachTo(scene.other);
    tip.ShowTooltip();
    QVERIFY(tip.IsVisible());
}

void TooltipObjectTest::detachingHidesItAndLetsGo()
{
    HoverScene scene;
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    scene.tip->Detach();
    QVERIFY(!scene.tip->IsVisible());
    QVERIFY(!scene.tip->CanTooltipBeShown());
    TooltipScene::pointNowhere();
    QVERIFY(!scene.tip->dismissTimer()->isActive());
    scene.bringUp();
    QVERIFY(!scene.tip->showTimer()->isActive());
    scene.tip->AttachTo(scene.host);
    TooltipScene::pointNowhere();
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
}

// The pointer entered before, and does not do so once more.
void TooltipObjectTest::attachedAnewUnderThePointerItComes()
{
    HoverScene scene;
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    scene.tip->Detach();
    scene.tip->AttachTo(scene.host);
    TooltipScene::pointAt(scene.host, QPoint(2, 0));
    QTRY_VERIFY(scene.tip->IsVisible());
}

void TooltipObjectTest::detachingKeepsTheOwnersConnections()
{
    HoverScene scene;
    connect(scene.host, &QWidget::windowTitleChanged, scene.tip.data(),
            [&](const QString &) { scene.tip->SetEnableTooltip(false); });
    scene.tip->Detach();
    scene.host->setWindowTitle(QStringLiteral("title"));
    QVERIFY(!scene.tip->IsTooltipEnabled());
}

void TooltipObjectTest::aDisabledTooltipDoesNotCome()
{
    HoverScene scene;
    scene.tip->SetEnableTooltip(false);
    scene.bringUp();
    QVERIFY(!scene.tip->showTimer()->isActive());
    scene.tip->ShowTooltip();
    QVERIFY(!scene.tip->IsVisible());
}

void TooltipObjectTest::withQtsTimesItComesWithItsEvent()
{
    HoverScene scene;
    scene.tip->SetUseCustomTooltipSettings(false);
    scene.bringUp();
    QVERIFY(!scene.tip->showTimer());
    send(scene.host, QEvent::ToolTip);
    QVERIFY(!scene.tip->IsVisible());

    // The pointer is still over the host when this one leaves.
    send(scene.host, QEvent::Leave);
    send(scene.host, QEvent::ToolTip);
    QVERIFY(scene.tip->IsVisible());
}

void TooltipObjectTest::oneOfAGroupIsUpAtATime()
{
    HoverScene scene;
    Tip *const second = HoverScene::make(scene.other);
    scene.bringUp();
    QTRY_VERIFY(scene.tip->IsVisible());
    TooltipScene::pointAt(scene.other);
    TooltipScene::pointAt(scene.other, QPoint(1, 0));
    QTRY_VERIFY(second->IsVisible());
    QVERIFY(!scene.tip->IsVisible());
    QVERIFY(!scene.tip->popup()->isVisible());
}

void TooltipObjectTest::aHandlerMayEndTheTooltip()
{
    struct Ending : ATooltipObject::IHoverCallbackHandler
    {
        QPointer<Tip> *tip = nullptr;
        void OnHoverStatusChanged(bool) override { delete tip->data(); }
    };
    for (const bool whenEntered : {true, false}) {
        HoverScene scene;
        Ending handler;
        handler.tip = &scene.tip;
        scene.tip->SetEnableHoverEvents(true);
        if (whenEntered)
            scene.tip->SetHoveredStateCallbackHandler(&handler);
        else
            scene.tip->SetNormalStateCallbackHandler(&handler);
        scene.bringUp();
        TooltipScene::pointNowhere();
        QVERIFY(!scene.tip);
    }
}

void TooltipObjectTest::theSignalOfTheHostIsForOthersToEmit()
{
    HoverScene scene;
    QSignalSpy spy(scene.tip.data(), &TooltipObject::HostWidgetClicked);
    QTest::mouseClick(scene.host, Qt::LeftButton);
    QCOMPARE(spy.count(), 0);
    Q_EMIT scene.tip->HostWidgetClicked();
    QCOMPARE(spy.count(), 1);
}

// Qt takes a window out of the order of focus before it deletes what is in it.
void TooltipObjectTest::aContentWithoutAFrameGoesWithTheWindowOfItsHost()
{
    TooltipScene scene;
    QPointer<QWidget> content = new QLabel(QStringLiteral("text"));
    auto *const tip = new Tip(Group, scene.host);
    tip->SetTooltipControl(content, false);
    tip->AttachTo(scene.host);
    tip->ShowTooltip();
    QVERIFY(content->isVisible());
    scene.window.reset();
    QVERIFY(!content);
}

// A bar gives each of its buttons a tooltip and shows one.
void TooltipObjectTest::manyTooltipsOfABarStayCheap()
{
    TooltipScene scene;
    QVector<Tip *> tips;
    for (int i = 0; i < 300; ++i) {
        auto *const button = new QWidget(scene.window.get());
        tips << new Tip(Group, button);
        tips.last()->SetPreparation([](ATooltipObject &tip) {
            tip.SetTooltipControl(new QLabel(QStringLiteral("text")), true);
        });
        tips.last()->AttachTo(button);
        button->show();
    }
    tips.first()->ShowTooltip();
    QVERIFY(tips.first()->IsVisible());
    for (const Tip *tip : qAsConst(tips))
        QCOMPARE(tip->children().isEmpty(), tip != tips.first());
}

LUMO_TEST_MAIN(TooltipObjectTest)
#include "tst_tooltipobject.moc"
