// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ArrowedWindow>
#include <ui_base/ATooltipObject>
#include <ui_base/BaseView>
#include <ui_base/FloatingLayer>
#include <ui_base/WidgetPosCalculator>

#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/qtui/tooltip/tooltipscene.h"

#include <lumo_common_res/Styles>

#include <QApplication>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWindow>

#include <functional>
#include <limits>
#include <memory>
#include <type_traits>

using namespace Vela::UiBase;
using Lumo::Test::fire;
using Lumo::Test::originOf;
using Lumo::Test::stateOf;
using Lumo::Test::TooltipScene;
using ETooltipType = ATooltipObject::ETooltipType;
using Tip = Lumo::Test::Peek<ATooltipObject>;

static_assert(std::is_base_of_v<QObject, ATooltipObject>);
static_assert(std::has_virtual_destructor_v<ATooltipObject::IHoverCallbackHandler>);
static_assert(!std::is_copy_constructible_v<ATooltipObject>);

Q_DECLARE_METATYPE(std::function<void(Tip &)>)

namespace {

const QString Group = QStringLiteral("group");

// Which of the filter operations were called, in order.
class Recorder : public ATooltipObject
{
public:
    using ATooltipObject::ATooltipObject;

    QStringList calls;
    std::function<void()> onCall;

    static bool virtualsStandInOrder()
    {
        return Lumo::Test::standInThisOrder(
            &Recorder::SetEnableHoverEvents, &Recorder::ShowTooltip, &Recorder::HideTooltip,
            &Recorder::CanTooltipBeShown, &Recorder::CheckMouseHover, &Recorder::OnTooltipClicked,
            &Recorder::EventFilterOnEnter, &Recorder::EventFilterOnLeave,
            &Recorder::EventFilterOnMouseMove, &Recorder::EventFilterOnMouseButtonPress,
            &Recorder::EventFilterOnHide);
    }

protected:
    void EventFilterOnEnter(QObject *) override { note("enter"); }
    void EventFilterOnLeave(QObject *) override { note("leave"); }
    void EventFilterOnMouseMove(QObject *, QEvent *) override { note("move"); }
    void EventFilterOnMouseButtonPress(QObject *, QEvent *) override { note("press"); }
    void EventFilterOnHide(QObject *) override { note("hide"); }

private:
    void note(const char *call)
    {
        calls << QLatin1String(call);
        if (onCall)
            onCall();
    }
};

struct Handler : ATooltipObject::IHoverCallbackHandler
{
    QList<bool> heard;
    void OnHoverStatusChanged(bool hovered) override { heard << hovered; }
};

// A content of one size, with a label in it.
QWidget *makeContent(const QSize &size = QSize(80, 30), QWidget *parent = nullptr)
{
    auto *const content = new QWidget(parent);
    content->setFixedSize(size);
    new QLabel(content);
    return content;
}

// Stands to the right of the host of the scene, 5 pixels away.
void standBeside(const Tip &tip, QWidget *host)
{
    tip.GetPosCalculator()->SetRefWidget(host);
    const_cast<Tip &>(tip).SetTooltipType(ETooltipType::TooltipRight);
}

void send(QObject *receiver, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(receiver, &event);
}

bool isEaten(QWidget *receiver, bool *isAccepted = nullptr)
{
    QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), receiver->mapToGlobal(QPoint(1, 1)));
    const bool result = QCoreApplication::sendEvent(receiver, &event);
    if (isAccepted)
        *isAccepted = event.isAccepted();
    return result;
}

} // namespace

class ATooltipObjectTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void virtualsStandInTheOrderOfHosts();
    void costsLittleUntilItIsNeeded();
    void partsAreMadeWithTheirDefaults();
    void aPreparationRunsOnceAndWhenNeeded_data();
    void aPreparationRunsOnceAndWhenNeeded();
    void aPreparationRunsAtOnceWhenNeededAlready();
    void presetsSetEverything_data();
    void presetsSetEverything();
    void hoverBottomKeepsArrowAndBorder();
    void anUnknownPresetChangesNothing();
    void timesReachTimersThatAreThere();
    void negativeTimesCountAsZero();
    void timersComeAndGoWithTheirSettings();
    void contentStandsInTheFrame();
    void contentStandsAlone();
    void nullAndTheSameContentChangeNothing();
    void aFormerContentComesBackHidden_data();
    void aFormerContentComesBackHidden();
    void theEndOfAFormerContentIsNoConcern();
    void theFrameIsMadeAnewWhenSomebodyDeletedIt();
    void textControlIsOneLabel();
    void textControlOfANullStringIsNone();
    void setTextChangesTheFirstLabel();
    void setTextNeedsALabel();
    void showsBesideItsReference();
    void standsInsideItsView();
    void floatsAndTakesNoFocus();
    void placesItselfAnewWhereItStandsInTheLayer();
    void followsTheSizeOfItsContent_data();
    void followsTheSizeOfItsContent();
    void aContentThatGrowsWhenShownStandsRight();
    void disabledOrEmptyItStaysHidden();
    void disablingHidesIt();
    void showingHidesTheGroup();
    void aContentThatClosesItselfIsNotVisible();
    void theContentMayEndTheTooltipWhileShown();
    void aClickOnTheWindowDismisses_data();
    void aClickOnTheWindowDismisses();
    void enteringStopsAndLeavingStartsTheDismissTimer();
    void theDismissTimerAsksForHoveringOnlyWithHoverEvents();
    void theCheckTimerHides();
    void eventsReachTheirOperations();
    void aDisabledTooltipHearsNothing();
    void qtsToolTipNeverAppears();
    void qtsToolTipEventShowsWhereThePointerWas();
    void operationsMayEndTheTooltip();
    void handlersHearTheirState();
    void askingForPagesIsASignal();
    void goesWithWhatItBelongsTo_data();
    void goesWithWhatItBelongsTo();
    void takesItsWindowAlong_data();
    void takesItsWindowAlong();
    void leavesContentsOfOthersAlone();
    void aContentOfADyingWindowGoesWithIt();
    void withoutParentItStandsOnTheScreen();
};

void ATooltipObjectTest::virtualsStandInTheOrderOfHosts()
{
    QVERIFY(Recorder::virtualsStandInOrder());
}

void ATooltipObjectTest::costsLittleUntilItIsNeeded()
{
    QWidget parent;
    Tip tip(Group, &parent);
    tip.ForceHideTooltip();
    tip.SetUseCustomTooltipSettings(true);
    tip.SetCustomTooltipShowUpTime(0);
    tip.SetCustomTooltipDismissTime(0);
    tip.SetEnableTooltip(false);
    tip.SetEnableTooltip(true);
    tip.SetEnableCheckTimer(true);
    QVERIFY(!tip.IsVisible());
    QVERIFY(tip.children().isEmpty());
    QCOMPARE(parent.children(), QObjectList {&tip});
}

void ATooltipObjectTest::partsAreMadeWithTheirDefaults()
{
    QWidget parent;
    Tip tip(Group, &parent);
    ArrowedWindow *const frame = tip.GetArrowedWindow();
    QVERIFY(frame);
    QCOMPARE(frame->parentWidget(), &parent);
    QCOMPARE(stateOf(frame).borderColor, QColor(150, 150, 150, 100));
    QCOMPARE(stateOf(frame).borderWidth, 0);
    QCOMPARE(stateOf(frame).borderJoin, Qt::BevelJoin);

    const WidgetPosCalculator *const calculator = tip.GetPosCalculator();
    QCOMPARE(calculator->parent(), &tip);
    QCOMPARE(calculator->Alignment(), EWidgetsAlign::AlignCenter);
    QCOMPARE(calculator->Directions().first(), EDirection::Top);

    for (const QTimer *timer : {tip.showTimer(), tip.dismissTimer(), tip.checkTimer()}) {
        QCOMPARE(timer->parent(), &tip);
        QVERIFY(!timer->isActive());
    }
    QCOMPARE(tip.showTimer()->interval(), 500);
    QVERIFY(tip.showTimer()->isSingleShot());
    QCOMPARE(tip.dismissTimer()->interval(), 1000);
    QVERIFY(tip.dismissTimer()->isSingleShot());
    QCOMPARE(tip.checkTimer()->interval(), 20000);
    QVERIFY(!tip.checkTimer()->isSingleShot());
    QVERIFY(tip.IsTooltipEnabled());
    QVERIFY(!tip.IsHoverEventsEnabled());

    // A child widget that nobody hid would appear with its parent.
    parent.show();
    QVERIFY(!frame->isVisible());
}

void ATooltipObjectTest::aPreparationRunsOnceAndWhenNeeded_data()
{
    QTest::addColumn<std::function<void(Tip &)>>("need");
    const auto row = [](const char *name, std::function<void(Tip &)> need) {
        QTest::newRow(name) << std::move(need);
    };
    row("content", [](Tip &tip) { tip.TooltipControl(); });
    row("frame", [](Tip &tip) { tip.GetArrowedWindow(); });
    row("calculator", [](Tip &tip) { tip.GetPosCalculator(); });
    row("text", [](Tip &tip) { tip.setText(QStringLiteral("text")); });
    row("type", [](Tip &tip) { tip.SetTooltipType(ETooltipType::TooltipTop); });
    row("taking out", [](Tip &tip) { tip.DetachTooltipControl(); });
    row("showing", [](Tip &tip) { tip.ShowTooltip(); });
    row("asking for showing", [](Tip &tip) { QVERIFY(tip.CanTooltipBeShown()); });
}

void ATooltipObjectTest::aPreparationRunsOnceAndWhenNeeded()
{
    QFETCH(std::function<void(Tip &)>, need);
    QWidget parent;
    Tip tip(Group, &parent);
    int runs = 0;
    tip.SetPreparation([](ATooltipObject &) { QFAIL("replaced"); });
    tip.SetPreparation([&](ATooltipObject &prepared) {
        ++runs;
        QCOMPARE(&prepared, &tip);
        prepared.SetTooltipControl(makeContent(), true);
    });
    QCOMPARE(runs, 0);
    need(tip);
    QCOMPARE(runs, 1);
    need(tip);
    tip.GetPosCalculator();
    QCOMPARE(runs, 1);
}

void ATooltipObjectTest::aPreparationRunsAtOnceWhenNeededAlready()
{
    Tip tip(Group, nullptr);
    tip.GetPosCalculator();
    int runs = 0;
    tip.SetPreparation({});
    tip.SetPreparation([&](ATooltipObject &) { ++runs; });
    QCOMPARE(runs, 1);
}

void ATooltipObjectTest::presetsSetEverything_data()
{
    QTest::addColumn<ETooltipType>("type");
    QTest::addColumn<EArrowPosition>("arrow");
    QTest::addColumn<EDirection>("direction");
    QTest::addColumn<EWidgetsAlign>("alignment");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("showUp");
    QTest::addColumn<int>("dismiss");
    QTest::addColumn<bool>("isForHovering");
    QTest::newRow("right") << ETooltipType::TooltipRight << EArrowPosition::Left
                           << EDirection::Right << EWidgetsAlign::AlignCenter << 5 << 0 << 0
                           << false;
    QTest::newRow("top") << ETooltipType::TooltipTop << EArrowPosition::Bottom << EDirection::Top
                         << EWidgetsAlign::AlignCenter << 10 << 0 << 0 << false;
    QTest::newRow("right far") << ETooltipType::TooltipRightFar << EArrowPosition::Left
                               << EDirection::Right << EWidgetsAlign::AlignCenter << 10 << 0 << 0
                               << false;
    QTest::newRow("hover bottom") << ETooltipType::TooltipHoverBottom << EArrowPosition::TopRight
                                  << EDirection::Bottom << EWidgetsAlign::AlignStart << 10 << 500
                                  << 1000 << true;
    QTest::newRow("hover left") << ETooltipType::TooltipHoverLeft << EArrowPosition::Left
                                << EDirection::Left << EWidgetsAlign::AlignStart << 10 << 500
                                << 1000 << true;
}

void ATooltipObjectTest::presetsSetEverything()
{
    QFETCH(ETooltipType, type);
    QFETCH(EArrowPosition, arrow);
    QFETCH(bool, isForHovering);
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    tip.GetArrowedWindow()->SetArrow(EArrowPosition::TopRight, 33, true, 300, 70, false, 1);
    tip.SetUseCustomTooltipSettings(false);
    tip.SetCustomTooltipShowUpTime(7);
    tip.SetCustomTooltipDismissTime(8);
    tip.GetPosCalculator()->SetAdditionalOffset(QPoint(3, 4));

    tip.SetTooltipType(type);
    ArrowedWindow::SArrowParam current;
    tip.GetArrowedWindow()->GetCurrentArrowParam(current);
    QCOMPARE(current.position, arrow);
    if (type != ETooltipType::TooltipHoverBottom) {
        ArrowedWindow::SArrowParam expected;
        expected.position = arrow;
        expected.angle = 0;
        QVERIFY(current == expected);
        QCOMPARE(stateOf(tip.GetArrowedWindow()).borderWidth, 1);
        QCOMPARE(stateOf(tip.GetArrowedWindow()).borderColor,
                 Vela::Resource::Styles::Instance().ColorActionPanelBorder());
    }
    const WidgetPosCalculator *const calculator = tip.GetPosCalculator();
    QTEST(calculator->Directions().first(), "direction");
    QTEST(calculator->Alignment(), "alignment");
    QTEST(calculator->BaseOffset(), "offset");
    QCOMPARE(calculator->AdditionalOffset(), QPoint(0, 0));
    QVERIFY(tip.showTimer());
    QTEST(tip.showTimer()->interval(), "showUp");
    QTEST(tip.dismissTimer()->interval(), "dismiss");
    QVERIFY(tip.state().useCustomSettings);
    QCOMPARE(tip.state().clickToDismiss, !isForHovering);
    QCOMPARE(tip.state().tooltipType, type);
}

void ATooltipObjectTest::hoverBottomKeepsArrowAndBorder()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    tip.GetArrowedWindow()->SetArrow(EArrowPosition::Right, 12, true, 10, 60, false, 2);
    tip.GetArrowedWindow()->SetBorder(Qt::red, 3, Qt::DashLine, Qt::MiterJoin);
    ArrowedWindow::SArrowParam before;
    tip.GetArrowedWindow()->GetCurrentArrowParam(before);

    tip.SetTooltipType(ETooltipType::TooltipHoverBottom);
    ArrowedWindow::SArrowParam after;
    tip.GetArrowedWindow()->GetCurrentArrowParam(after);
    QVERIFY(before == after);
    QCOMPARE(stateOf(tip.GetArrowedWindow()).borderColor, QColor(Qt::red));
    QCOMPARE(stateOf(tip.GetArrowedWindow()).borderWidth, 3);
}

void ATooltipObjectTest::anUnknownPresetChangesNothing()
{
    for (const int value : {-1, 5}) {
        Tip tip(Group, nullptr);
        tip.SetUseCustomTooltipSettings(false);
        tip.GetPosCalculator()->SetAdditionalOffset(QPoint(3, 4));
        tip.SetTooltipType(static_cast<ETooltipType>(value));
        QCOMPARE(static_cast<int>(tip.state().tooltipType), value);
        QCOMPARE(tip.GetPosCalculator()->AdditionalOffset(), QPoint(3, 4));
        QCOMPARE(tip.GetPosCalculator()->Directions().first(), EDirection::Top);
        QCOMPARE(tip.dismissTimer()->interval(), 1000);
        QVERIFY(!tip.showTimer());
    }
}

void ATooltipObjectTest::timesReachTimersThatAreThere()
{
    Tip tip(Group, nullptr);
    tip.SetCustomTooltipShowUpTime(11);
    tip.GetPosCalculator();
    QCOMPARE(tip.showTimer()->interval(), 11);
    tip.SetCustomTooltipShowUpTime(12);
    tip.SetCustomTooltipDismissTime(13);
    tip.SetCustomTooltipCheckTime(14);
    QCOMPARE(tip.showTimer()->interval(), 12);
    QCOMPARE(tip.dismissTimer()->interval(), 13);
    QCOMPARE(tip.checkTimer()->interval(), 14);
    for (const QTimer *timer : {tip.showTimer(), tip.dismissTimer(), tip.checkTimer()})
        QVERIFY(!timer->isActive());
}

void ATooltipObjectTest::negativeTimesCountAsZero()
{
    Tip tip(Group, nullptr);
    for (const bool isMade : {false, true}) {
        if (isMade)
            tip.GetPosCalculator();
        tip.SetCustomTooltipShowUpTime(-1);
        tip.SetCustomTooltipDismissTime(-2);
        tip.SetCustomTooltipCheckTime(std::numeric_limits<int>::min());
        tip.GetPosCalculator();
        for (const QTimer *timer : {tip.showTimer(), tip.dismissTimer(), tip.checkTimer()})
            QCOMPARE(timer->interval(), 0);
        QCOMPARE(tip.state().dismissTime, 0);
    }
}

void ATooltipObjectTest::timersComeAndGoWithTheirSettings()
{
    Tip without(Group, nullptr);
    without.SetUseCustomTooltipSettings(false);
    without.SetEnableCheckTimer(false);
    without.GetPosCalculator();
    QVERIFY(!without.showTimer());
    QVERIFY(without.dismissTimer());
    QVERIFY(!without.checkTimer());
    without.SetCustomTooltipShowUpTime(21);
    without.SetCustomTooltipCheckTime(22);
    without.SetUseCustomTooltipSettings(true);
    without.SetEnableCheckTimer(true);
    QCOMPARE(without.showTimer()->interval(), 21);
    QCOMPARE(without.checkTimer()->interval(), 22);

    const QPointer<QTimer> showTimer = without.showTimer();
    const QPointer<QTimer> checkTimer = without.checkTimer();
    without.SetUseCustomTooltipSettings(true);
    without.SetEnableCheckTimer(true);
    QCOMPARE(without.showTimer(), showTimer.data());
    QCOMPARE(without.checkTimer(), checkTimer.data());
    without.SetUseCustomTooltipSettings(false);
    without.SetEnableCheckTimer(false);
    QVERIFY(!showTimer);
    QVERIFY(!checkTimer);
}

void ATooltipObjectTest::contentStandsInTheFrame()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    QWidget *const content = makeContent();
    QVERIFY(!tip.SetTooltipControl(content, true));
    QCOMPARE(tip.TooltipControl(), content);
    QCOMPARE(tip.popup(), tip.GetArrowedWindow());
    QCOMPARE(content->parentWidget(), tip.GetArrowedWindow());
    QCOMPARE(tip.GetPosCalculator()->Widget(), tip.GetArrowedWindow());
    QVERIFY(!tip.popup()->isVisible());
}

void ATooltipObjectTest::contentStandsAlone()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    QWidget *const content = makeContent();
    tip.SetTooltipControl(content, false);
    QCOMPARE(tip.popup(), content);
    QCOMPARE(content->parentWidget(), scene.host.data());
    QCOMPARE(tip.GetPosCalculator()->Widget(), content);
    QVERIFY(!content->isVisible());

    standBeside(tip, scene.host);
    tip.ShowTooltip();
    QVERIFY(content->isVisible());
    QVERIFY(!tip.GetArrowedWindow()->isVisible());
    // Right of the last pixel of the host, and with its middle at the middle of the host.
    QCOMPARE(originOf(content), scene.host->mapToGlobal(QPoint(59 + 5, 5)));
}

void ATooltipObjectTest::nullAndTheSameContentChangeNothing()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    QVERIFY(!tip.SetTooltipControl(nullptr, true));
    QVERIFY(!tip.TooltipControl());
    tip.AttachTooltipControl(nullptr);
    QVERIFY(!tip.DetachTooltipControl());

    QWidget *const content = makeContent();
    tip.SetTooltipControl(content, true);
    standBeside(tip, scene.host);
    tip.ShowTooltip();
    QVERIFY(!tip.SetTooltipControl(content, false));
    QVERIFY(!tip.SetTooltipControl(nullptr, true));
    QCOMPARE(tip.TooltipControl(), content);
    QCOMPARE(tip.popup(), tip.GetArrowedWindow());
    QVERIFY(tip.IsVisible());
}

void ATooltipObjectTest::aFormerContentComesBackHidden_data()
{
    QTest::addColumn<bool>("hadArrow");
    QTest::addColumn<bool>("hasArrow");
    QTest::newRow("frame/frame") << true << true;
    QTest::newRow("frame/alone") << true << false;
    QTest::newRow("alone/frame") << false << true;
    QTest::newRow("alone/alone") << false << false;
}

void ATooltipObjectTest::aFormerContentComesBackHidden()
{
    QFETCH(bool, hadArrow);
    QFETCH(bool, hasArrow);
    TooltipScene scene;
    Tip tip(Group, scene.host);
    QWidget *const former = makeContent();
    tip.SetTooltipControl(former, hadArrow);
    standBeside(tip, scene.host);
    tip.ShowTooltip();
    const QPointer<QWidget> formerPopup = tip.popup();

    QWidget *const content = makeContent(QSize(50, 20));
    QCOMPARE(tip.SetTooltipControl(content, hasArrow), former);
    QVERIFY(!former->isVisible());
    QVERIFY(!formerPopup->isVisible());
    QVERIFY(!content->isVisible());
    QVERIFY(!tip.IsVisible());
    QCOMPARE(former->parentWidget(), hadArrow ? tip.GetArrowedWindow() : scene.host.data());
    QCOMPARE(tip.TooltipControl(), content);

    tip.ShowTooltip();
    QVERIFY(content->isVisible());
    QVERIFY(!former->isVisible());
    QVERIFY(qobject_cast<FloatingLayer *>(tip.popup()->parentWidget()));

    QCOMPARE(tip.DetachTooltipControl(), content);
    QVERIFY(!content->isVisible());
    QVERIFY(!tip.TooltipControl());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(scene.host->findChildren<FloatingLayer *>().size(), hadArrow || hasArrow ? 1 : 0);
}

void ATooltipObjectTest::theEndOfAFormerContentIsNoConcern()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    QWidget *const former = makeContent();
    tip.SetTooltipControl(former, true);
    QCOMPARE(tip.SetTooltipControl(makeContent(), true), former);
    tip.ShowTooltip();
    delete former;
    QVERIFY(tip.IsVisible());
}

void ATooltipObjectTest::theFrameIsMadeAnewWhenSomebodyDeletedIt()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    delete tip.GetArrowedWindow();
    QVERIFY(!tip.GetArrowedWindow());
    QVERIFY(!tip.TooltipControl());
    tip.SetTooltipType(ETooltipType::TooltipTop);
    tip.ShowTooltip();
    QVERIFY(!tip.IsVisible());

    tip.SetTooltipControl(makeContent(), true);
    QVERIFY(tip.GetArrowedWindow());
    standBeside(tip, scene.host);
    tip.ShowTooltip();
    QVERIFY(tip.GetArrowedWindow()->isVisible());
}

void ATooltipObjectTest::textControlIsOneLabel()
{
    const QString text = QStringLiteral("Fills holes");
    const std::unique_ptr<QWidget> control(ATooltipObject::CreateTooltipControl(text));
    QVERIFY(!control->parent());
    QVERIFY(control->testAttribute(Qt::WA_ShowWithoutActivating));
    QCOMPARE(control->focusPolicy(), Qt::NoFocus);
    QCOMPARE(control->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(control->styleSheet(), Vela::Resource::Styles::Instance().DialogToolTip());
    const auto *const layout = qobject_cast<QVBoxLayout *>(control->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(5, 5, 5, 5));
    QCOMPARE(layout->alignment(), Qt::AlignTop);
    QCOMPARE(layout->sizeConstraint(), QLayout::SetFixedSize);

    const QList<QLabel *> labels = control->findChildren<QLabel *>();
    QCOMPARE(labels.size(), 1);
    QCOMPARE(layout->indexOf(labels.first()), 0);
    QCOMPARE(labels.first()->text(), text);
    QVERIFY(labels.first()->testAttribute(Qt::WA_ShowWithoutActivating));
    QCOMPARE(labels.first()->focusPolicy(), Qt::NoFocus);
    QCOMPARE(labels.first()->styleSheet(), Vela::Resource::Styles::Instance().DialogToolTip());
    QCOMPARE(control->size(), layout->sizeHint());
}

void ATooltipObjectTest::textControlOfANullStringIsNone()
{
    QVERIFY(!ATooltipObject::CreateTooltipControl(QString()));
    const std::unique_ptr<QWidget> empty(ATooltipObject::CreateTooltipControl(QStringLiteral("")));
    QVERIFY(empty);
}

void ATooltipObjectTest::setTextChangesTheFirstLabel()
{
    Tip tip(Group, nullptr);
    auto *const content = makeContent();
    new QLabel(QStringLiteral("second"), content);
    tip.SetTooltipControl(content, true);
    QVERIFY(tip.setText(QStringLiteral("text")));
    const QList<QLabel *> labels = content->findChildren<QLabel *>();
    QCOMPARE(labels.at(0)->text(), QStringLiteral("text"));
    QCOMPARE(labels.at(1)->text(), QStringLiteral("second"));
}

void ATooltipObjectTest::setTextNeedsALabel()
{
    Tip tip(Group, nullptr);
    QVERIFY(!tip.setText(QStringLiteral("text")));
    tip.SetTooltipControl(new QWidget, true);
    QVERIFY(!tip.setText(QStringLiteral("text")));
}

void ATooltipObjectTest::showsBesideItsReference()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    standBeside(tip, scene.host);
    QVERIFY(tip.CanTooltipBeShown());
    tip.ShowTooltip();
    QVERIFY(tip.IsVisible());
    QVERIFY(tip.popup()->isVisible());
    QVERIFY(tip.TooltipControl()->isVisible());
    const QPoint apex = tip.popup()->mapToGlobal(tip.GetArrowedWindow()->GetArrowPoint());
    QCOMPARE(apex, scene.host->mapToGlobal(QPoint(59 + 5, 19)));

    tip.HideTooltip();
    QVERIFY(!tip.IsVisible());
    QVERIFY(!tip.popup()->isVisible());
}

void ATooltipObjectTest::standsInsideItsView()
{
    TooltipScene scene;
    auto *const view = new BaseView(scene.window.get(), Qt::Widget);
    view->getQtWidget()->setGeometry(50, 50, 300, 300);
    view->getQtWidget()->show();
    scene.host->setParent(view->getQtWidget());
    scene.host->setGeometry(200, 230, 60, 30);
    scene.host->show();
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(QSize(60, 40)), false);
    tip.GetPosCalculator()->SetRefWidget(scene.host);
    tip.GetPosCalculator()->SetDirection(EDirection::Bottom);
    tip.GetPosCalculator()->SetBaseOffset(10);
    tip.ShowTooltip();
    // Below there is room in the window, but not in the view less its margin of 30.
    QCOMPARE(tip.GetPosCalculator()->Direction(), EDirection::Top);
    QCOMPARE(originOf(tip.popup()), scene.host->mapToGlobal(QPoint(0, -10 - 40)));

    scene.host->move(200, 150);
    tip.ShowTooltip();
    QCOMPARE(tip.GetPosCalculator()->Direction(), EDirection::Bottom);
}

void ATooltipObjectTest::floatsAndTakesNoFocus()
{
    TooltipScene scene;
    for (const bool useArrow : {true, false}) {
        Tip tip(Group, scene.host);
        tip.SetTooltipControl(makeContent(), useArrow);
        standBeside(tip, scene.host);
        tip.ShowTooltip();
        const auto *const layer = qobject_cast<FloatingLayer *>(tip.popup()->window());
        QVERIFY(layer);
        QVERIFY(layer->windowHandle()->flags() & Qt::WindowDoesNotAcceptFocus);
        QVERIFY(layer->testAttribute(Qt::WA_ShowWithoutActivating));
        QCOMPARE(FloatingLayer::getWidgetOriginalParent(tip.popup()), scene.host.data());
    }
}

// The position in the layer is (0,0). A move to just that is none to Qt.
void ATooltipObjectTest::placesItselfAnewWhereItStandsInTheLayer()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), false);
    tip.GetPosCalculator()->SetRefPoint(scene.host->mapToGlobal(QPoint(30, 30)));
    tip.ShowTooltip();
    const QPoint before = originOf(tip.popup());
    // A square of 7 pixels around the point, a gap of 10, and the content on top, in the middle.
    const QPoint point = scene.host->mapToGlobal(QPoint(36 + 3, 30 + 10 + 3));
    tip.GetPosCalculator()->SetRefPoint(point);
    tip.ShowTooltip();
    QVERIFY(originOf(tip.popup()) != before);
    QCOMPARE(originOf(tip.popup()), originOf(scene.host));
    tip.ShowTooltip();
    QCOMPARE(originOf(tip.popup()), originOf(scene.host));
}

void ATooltipObjectTest::followsTheSizeOfItsContent_data()
{
    QTest::addColumn<bool>("useArrow");
    QTest::newRow("frame") << true;
    QTest::newRow("alone") << false;
}

void ATooltipObjectTest::followsTheSizeOfItsContent()
{
    QFETCH(bool, useArrow);
    TooltipScene scene;
    Tip tip(Group, scene.host);
    QWidget *const content = makeContent();
    tip.SetTooltipControl(content, useArrow);
    standBeside(tip, scene.host);
    tip.ShowTooltip();
    const int middle = scene.host->mapToGlobal(scene.host->rect().center()).y();

    content->setFixedSize(90, 120);
    QTRY_VERIFY(qAbs(tip.popup()->mapToGlobal(tip.popup()->rect().center()).y() - middle) <= 1);
    QVERIFY(tip.popup()->height() >= 120);
    QCOMPARE(tip.popup()->window()->size(), tip.popup()->size());
    tip.HideTooltip();
    content->setFixedSize(90, 50);
    QCoreApplication::processEvents();
    QVERIFY(!tip.popup()->isVisible());
}

void ATooltipObjectTest::aContentThatGrowsWhenShownStandsRight()
{
    class Growing : public QWidget
    {
    protected:
        void showEvent(QShowEvent *event) override
        {
            setFixedSize(70, 120);
            QWidget::showEvent(event);
        }
    };
    for (const bool useArrow : {true, false}) {
        TooltipScene scene;
        Tip tip(Group, scene.host);
        auto *const content = new Growing;
        content->setFixedSize(70, 20);
        tip.SetTooltipControl(content, useArrow);
        standBeside(tip, scene.host);
        tip.ShowTooltip();
        const int middle = scene.host->mapToGlobal(scene.host->rect().center()).y();
        const int popupMiddle = tip.popup()->mapToGlobal(tip.popup()->rect().center()).y();
        QVERIFY2(qAbs(popupMiddle - middle) <= 1,
                 qPrintable(QStringLiteral("%1 %2").arg(popupMiddle).arg(middle)));
    }
}

void ATooltipObjectTest::disabledOrEmptyItStaysHidden()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.ShowTooltip();
    QVERIFY(!tip.IsVisible());
    QVERIFY(!tip.CanTooltipBeShown());
    tip.SetTooltipControl(makeContent(), true);
    tip.SetEnableTooltip(false);
    QVERIFY(!tip.CanTooltipBeShown());
    tip.ShowTooltip();
    QVERIFY(!tip.IsVisible());
    QVERIFY(!tip.popup()->isVisible());

    tip.SetEnableTooltip(true);
    delete tip.TooltipControl();
    QVERIFY(!tip.CanTooltipBeShown());
    tip.ShowTooltip();
    QVERIFY(!tip.IsVisible());
}

void ATooltipObjectTest::disablingHidesIt()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    tip.ShowTooltip();
    tip.SetEnableTooltip(true);
    QVERIFY(tip.IsVisible());
    tip.SetEnableTooltip(false);
    QVERIFY(!tip.IsVisible());
    QVERIFY(!tip.popup()->isVisible());
    QVERIFY(!tip.IsTooltipEnabled());

    QMetaObject::invokeMethod(&tip, "OnEnableTooltip", Q_ARG(bool, true));
    QVERIFY(tip.IsTooltipEnabled());
    tip.ShowTooltip();
    QMetaObject::invokeMethod(&tip, "OnEnableTooltip", Q_ARG(bool, false));
    QVERIFY(!tip.IsVisible());
}

void ATooltipObjectTest::showingHidesTheGroup()
{
    TooltipScene scene;
    Tip first(Group, scene.host);
    Tip second(Group, scene.other);
    Tip elsewhere(QStringLiteral("another"), scene.other);
    for (Tip *tip : {&first, &second, &elsewhere})
        tip->SetTooltipControl(makeContent(), true);
    elsewhere.ShowTooltip();
    first.ShowTooltip();
    second.ShowTooltip();
    QVERIFY(!first.IsVisible());
    QVERIFY(!first.popup()->isVisible());
    QVERIFY(second.IsVisible());
    QVERIFY(elsewhere.IsVisible());
}

void ATooltipObjectTest::aContentThatClosesItselfIsNotVisible()
{
    TooltipScene scene;
    for (const bool useArrow : {true, false}) {
        Tip tip(Group, scene.host);
        tip.SetTooltipControl(makeContent(), useArrow);
        tip.ShowTooltip();
        tip.TooltipControl()->hide();
        QVERIFY(!tip.IsVisible());
        QVERIFY(!tip.popup()->isVisible());
        tip.ShowTooltip();
        QVERIFY(tip.IsVisible());
        QVERIFY(tip.TooltipControl()->isVisible());
    }
}

void ATooltipObjectTest::theContentMayEndTheTooltipWhileShown()
{
    struct Ending : QWidget
    {
        std::function<void()> end;
        void showEvent(QShowEvent *) override { end(); }
    };
    TooltipScene scene;
    auto tip = std::make_unique<Tip>(Group, scene.host);
    auto *const content = new Ending;
    // The content is in the middle of its event: it has to outlive the tooltip.
    content->setParent(scene.window.get());
    content->end = [&] { tip.reset(); };
    tip->SetTooltipControl(content, false);
    tip->ShowTooltip();
    QVERIFY(!tip);
    QVERIFY(!content->isVisible());
}

void ATooltipObjectTest::aClickOnTheWindowDismisses_data()
{
    QTest::addColumn<bool>("dismisses");
    QTest::newRow("dismissing") << true;
    QTest::newRow("staying") << false;
}

void ATooltipObjectTest::aClickOnTheWindowDismisses()
{
    QFETCH(bool, dismisses);
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    if (!dismisses)
        tip.SetClickToDismissTooltip(false);
    tip.ShowTooltip();
    QTest::mouseClick(tip.popup(), Qt::RightButton);
    QCOMPARE(tip.IsVisible(), !dismisses);
}

void ATooltipObjectTest::enteringStopsAndLeavingStartsTheDismissTimer()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    tip.ShowTooltip();
    tip.showTimer()->start(100000);
    tip.SetCustomTooltipDismissTime(100000);
    send(tip.popup(), QEvent::Leave);
    QVERIFY(tip.dismissTimer()->isActive());
    QVERIFY(!tip.showTimer()->isActive());
    send(tip.popup(), QEvent::Enter);
    QVERIFY(!tip.dismissTimer()->isActive());

    tip.showTimer()->start(100000);
    tip.state().useCustomSettings = false;
    send(tip.popup(), QEvent::Leave);
    QVERIFY(tip.showTimer()->isActive());
}

void ATooltipObjectTest::theDismissTimerAsksForHoveringOnlyWithHoverEvents()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    standBeside(tip, scene.host);
    QVERIFY(!Tip(Group, nullptr).CheckMouseHover());
    tip.ShowTooltip();
    TooltipScene::pointAt(tip.popup());
    QVERIFY(tip.CheckMouseHover());
    fire(tip.dismissTimer());
    QVERIFY(!tip.IsVisible());

    tip.SetEnableHoverEvents(true);
    QVERIFY(!tip.IsHoverEventsEnabled());
    tip.state().hoverEventsEnabled = true;
    tip.ShowTooltip();
    fire(tip.dismissTimer());
    QVERIFY(tip.IsVisible());
    TooltipScene::pointNowhere();
    QVERIFY(!tip.CheckMouseHover());
    fire(tip.dismissTimer());
    QVERIFY(!tip.IsVisible());
}

void ATooltipObjectTest::theCheckTimerHides()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    tip.ShowTooltip();
    fire(tip.checkTimer());
    QVERIFY(!tip.IsVisible());
}

void ATooltipObjectTest::eventsReachTheirOperations()
{
    QWidget watched;
    Recorder tip(Group, nullptr);
    watched.installEventFilter(&tip);
    send(&watched, QEvent::Enter);
    send(&watched, QEvent::Hide);
    send(&watched, QEvent::Leave);
    watched.setMouseTracking(true);
    QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(&watched, &move);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&watched, &press);
    send(&watched, QEvent::ToolTipChange);
    QCOMPARE(tip.calls.join(QLatin1Char(' ')), QStringLiteral("enter hide leave move press"));
}

void ATooltipObjectTest::aDisabledTooltipHearsNothing()
{
    QWidget watched;
    Recorder tip(Group, nullptr);
    watched.installEventFilter(&tip);
    tip.SetEnableTooltip(false);
    send(&watched, QEvent::Enter);
    send(&watched, QEvent::Leave);
    send(&watched, QEvent::Hide);
    QVERIFY(tip.calls.isEmpty());
}

void ATooltipObjectTest::qtsToolTipNeverAppears()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    scene.host->setToolTip(QStringLiteral("Qt's"));
    scene.host->installEventFilter(&tip);
    tip.SetTooltipControl(makeContent(), true);
    bool isAccepted = false;
    QVERIFY(isEaten(scene.host, &isAccepted));
    QVERIFY(isAccepted);
    QVERIFY(!tip.IsVisible());
    tip.SetEnableTooltip(false);
    QVERIFY(isEaten(scene.host, &isAccepted));
    QVERIFY(!isAccepted);
}

void ATooltipObjectTest::qtsToolTipEventShowsWhereThePointerWas()
{
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(makeContent(), true);
    standBeside(tip, scene.host);
    tip.SetUseCustomTooltipSettings(false);
    tip.ShowTooltip();
    send(tip.popup(), QEvent::Leave);
    tip.HideTooltip();
    QVERIFY(isEaten(tip.popup()));
    QVERIFY(!tip.IsVisible());

    tip.ShowTooltip();
    TooltipScene::pointAt(tip.popup());
    send(tip.popup(), QEvent::Leave);
    tip.HideTooltip();
    tip.state().hoverHold = true;
    QVERIFY(isEaten(tip.popup()));
    QVERIFY(tip.IsVisible());
    QVERIFY(!tip.state().hoverHold);

    tip.HideTooltip();
    tip.SetUseCustomTooltipSettings(true);
    QVERIFY(isEaten(tip.popup()));
    QVERIFY(!tip.IsVisible());
}

void ATooltipObjectTest::operationsMayEndTheTooltip()
{
    QWidget watched;
    auto tip = std::make_unique<Recorder>(Group, nullptr);
    watched.installEventFilter(tip.get());
    tip->onCall = [&tip] {
        // The function object must not be the one that dies.
        auto dying = std::move(tip);
    };
    send(&watched, QEvent::Enter);
    QVERIFY(!tip);
}

void ATooltipObjectTest::handlersHearTheirState()
{
    Handler hovered;
    Handler normal;
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.OnHoverStatusChanged(true);
    tip.OnHoverStatusChanged(false);
    tip.SetHoveredStateCallbackHandler(&hovered);
    tip.SetNormalStateCallbackHandler(&normal);
    tip.OnHoverStatusChanged(true);
    QCOMPARE(hovered.heard, QList<bool> {true});
    QVERIFY(normal.heard.isEmpty());
    tip.OnHoverStatusChanged(false);
    QCOMPARE(normal.heard, QList<bool> {false});

    // A subclass that held the tooltip up hears of the end when it goes.
    tip.SetTooltipControl(makeContent(), true);
    tip.ShowTooltip();
    tip.state().hoverHold = true;
    tip.state().hoverEventsEnabled = true;
    tip.HideTooltip();
    QCOMPARE(normal.heard.size(), 2);
    tip.HideTooltip();
    QCOMPARE(normal.heard.size(), 2);
}

void ATooltipObjectTest::askingForPagesIsASignal()
{
    Tip tip(Group, nullptr);
    QSignalSpy index(&tip, &ATooltipObject::SetPageIndex);
    QSignalSpy keyword(&tip, &ATooltipObject::SetKeyword);
    tip.SetTooltipIndex(-3);
    tip.SetTooltipKeyword(QStringLiteral("word"));
    QCOMPARE(index, (QList<QVariantList> {{-3}}));
    QCOMPARE(keyword, (QList<QVariantList> {{QStringLiteral("word")}}));
}

void ATooltipObjectTest::goesWithWhatItBelongsTo_data()
{
    QTest::addColumn<QString>("dies");
    QTest::addColumn<bool>("useArrow");
    for (const char *dies : {"tooltip", "parent", "window", "content", "popup", "layer"}) {
        for (const bool useArrow : {true, false}) {
            QTest::addRow("%s/%s", dies, useArrow ? "frame" : "alone")
                << QString::fromLatin1(dies) << useArrow;
        }
    }
}

void ATooltipObjectTest::goesWithWhatItBelongsTo()
{
    QFETCH(QString, dies);
    QFETCH(bool, useArrow);
    TooltipScene scene;
    QPointer<Tip> tip = new Tip(Group, scene.host);
    tip->SetTooltipControl(makeContent(), useArrow);
    tip->ShowTooltip();
    const QPointer<QWidget> content = tip->TooltipControl();
    const QPointer<QWidget> popup = tip->popup();
    const QPointer<QWidget> layer = popup->parentWidget();
    QVERIFY(layer->isVisible());
    const QHash<QString, std::function<void()>> ends {
        {QStringLiteral("tooltip"), [&] { delete tip.data(); }},
        {QStringLiteral("parent"), [&] { delete scene.host.data(); }},
        {QStringLiteral("window"), [&] { scene.window.reset(); }},
        {QStringLiteral("content"), [&] { delete content.data(); }},
        {QStringLiteral("popup"), [&] { delete popup.data(); }},
        {QStringLiteral("layer"), [&] { delete layer.data(); }},
    };
    ends.value(dies)();

    for (const QWidget *w : {content.data(), popup.data(), layer.data()})
        QVERIFY(!w || !w->isVisible());
    if (tip) {
        QVERIFY(!tip->IsVisible());
        tip->ForceHideTooltip();
        // It may come up once more when it has all it needs.
        tip->ShowTooltip();
        QCOMPARE(tip->IsVisible(), !content.isNull());
        delete tip.data();
    }
    QVERIFY(!content);
    QVERIFY(!popup);
}

void ATooltipObjectTest::takesItsWindowAlong_data()
{
    QTest::addColumn<bool>("useArrow");
    QTest::addColumn<bool>("wasShown");
    QTest::newRow("frame/never shown") << true << false;
    QTest::newRow("frame/shown") << true << true;
    QTest::newRow("alone/never shown") << false << false;
    QTest::newRow("alone/shown") << false << true;
}

// The parent stays, and nothing of the tooltip may be left in it.
void ATooltipObjectTest::takesItsWindowAlong()
{
    QFETCH(bool, useArrow);
    QFETCH(bool, wasShown);
    TooltipScene scene;
    auto tip = std::make_unique<Tip>(Group, scene.host);
    const QPointer<QWidget> content = makeContent();
    tip->SetTooltipControl(content, useArrow);
    if (wasShown)
        tip->ShowTooltip();
    tip.reset();
    QVERIFY(!content);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(scene.host->children().isEmpty());
}

void ATooltipObjectTest::leavesContentsOfOthersAlone()
{
    TooltipScene scene;
    QWidget *const content = makeContent(QSize(40, 30), scene.other);
    auto tip = std::make_unique<Tip>(Group, scene.host);
    tip->SetTooltipControl(content, false);
    QCOMPARE(content->parentWidget(), scene.other.data());
    standBeside(*tip, scene.host);
    tip->ShowTooltip();
    QVERIFY(content->isVisible());
    // Where the host is, not where the content's own parent is.
    QCOMPARE(originOf(content), scene.host->mapToGlobal(QPoint(59 + 5, 5)));
    tip.reset();
    QCOMPARE(content->parentWidget(), scene.other.data());
    QVERIFY(!content->isVisible());
}

// The tooltip dies before the owner of its content, within the end of their window.
void ATooltipObjectTest::aContentOfADyingWindowGoesWithIt()
{
    auto window = std::make_unique<QWidget>();
    auto *const tip = new Tip(Group, window.get());
    auto *const owner = new QWidget(window.get());
    const QPointer<QWidget> content = makeContent(QSize(40, 30), owner);
    tip->SetTooltipControl(content, false);
    window->show();
    tip->ShowTooltip();
    QVERIFY(content->isVisible());
    window.reset();
    QVERIFY(!content);
}

void ATooltipObjectTest::withoutParentItStandsOnTheScreen()
{
    TooltipScene scene;
    for (const bool useArrow : {true, false}) {
        Tip tip(Group, nullptr);
        const QPointer<QWidget> content = makeContent();
        tip.SetTooltipControl(content, useArrow);
        QVERIFY(!content->isVisible());
        tip.GetPosCalculator()->SetRefPoint(QPoint(400, 300));
        tip.ShowTooltip();
        QVERIFY(content->isVisible());
        const QRect popup(originOf(tip.popup()), tip.popup()->size());
        QVERIFY2(popup.left() < 400 && popup.right() > 400, "above the point");
        QVERIFY(popup.bottom() < 300 && popup.bottom() > 280);
    }
}

LUMO_TEST_MAIN(ATooltipObjectTest)
#include "tst_atooltipobject.moc"
