// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ArrowedWindow>
#include <ui_base/DefaultTooltip>
#include <ui_base/TooltipWrapper>
#include <ui_base/WidgetPosCalculator>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/qtui/tooltip/tooltipscene.h"
#include "ui_base/qtui/tooltip/tooltipwrapper_p.h"

#include <QSignalSpy>

using namespace Vela::UiBase;
using Lumo::Test::fire;
using Lumo::Test::originOf;
using Lumo::Test::TooltipScene;
using Tip = Lumo::Test::Peek<TooltipWrapper>;
using EShow = TooltipWrapper::ETooltipShowUpType;

namespace {

const QString Group = QStringLiteral("group");

struct WrapperScene : TooltipScene
{
    Tip tip {Group, window.get()};
    DefaultTooltip *content = new DefaultTooltip;
    QPoint point {260, 330};

    WrapperScene() { tip.SetTooltipControl(content, true); }
};

} // namespace

class TooltipWrapperTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pointsAtThePoint();
    void keepsItsReferenceWithoutAPoint();
    void anAutomaticOneGoesByItself();
    void aManualOneStaysUntilItIsTakenDown();
    void aManualOneEndsTheTimeOfAnAutomaticOne();
    void theTimeOfAnAutomaticOneStartsWhenItIsUp();
    void anotherOfItsGroupMayEndIt_data();
    void anotherOfItsGroupMayEndIt();
    void goesAfterTheDismissTime();
    void withoutContentNothingAppears();
    void aHiddenContentTakesItDown();
    void goesWithItsParent_data();
    void goesWithItsParent();
    void hidesTheOthersOfItsGroup();
    void textReachesTheContent();
    void anotherTextKeepsItAtItsPoint();
    void hoveringIsNotItsConcern();
};

void TooltipWrapperTest::pointsAtThePoint()
{
    WrapperScene scene;
    scene.content->onUpdateTooltip(QStringLiteral("A remark"));
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    QVERIFY(scene.tip.IsVisible());
    QVERIFY(scene.content->isVisible());
    const QPoint apex =
        scene.tip.popup()->mapToGlobal(scene.tip.GetArrowedWindow()->GetArrowPoint());
    // The reference is a square of 7 pixels, and the gap to the pixel of the apex is 10.
    QCOMPARE(apex, scene.point - QPoint(0, 3 + 10 + 1));
}

void TooltipWrapperTest::keepsItsReferenceWithoutAPoint()
{
    WrapperScene scene;
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    const QPoint first = originOf(scene.tip.popup());
    scene.tip.Show(scene.point + QPoint(40, 0), false, EShow::ShowUpManualDismiss);
    QCOMPARE(originOf(scene.tip.popup()), first);
    scene.tip.Show(scene.point + QPoint(40, 0), true, EShow::ShowUpManualDismiss);
    QCOMPARE(originOf(scene.tip.popup()), first + QPoint(40, 0));

    scene.tip.GetPosCalculator()->SetRefWidget(scene.host);
    scene.tip.Show(scene.point, false, EShow::ShowUpManualDismiss);
    QVERIFY(originOf(scene.tip.popup()) != first + QPoint(40, 0));
}

void TooltipWrapperTest::anAutomaticOneGoesByItself()
{
    WrapperScene scene;
    scene.tip.Show(scene.point, true, EShow::ShowUpAutoDismiss);
    QVERIFY(scene.tip.dismissTimer()->isActive());
    QCOMPARE(scene.tip.dismissTimer()->interval(), 20000);
    QVERIFY(scene.tip.dismissTimer()->isSingleShot());
    QVERIFY(scene.tip.IsVisible());
    fire(scene.tip.dismissTimer());
    QVERIFY(!scene.tip.IsVisible());

    static_cast<TooltipWrapperPrivate &>(scene.tip.state()).autoDismissTime = 1;
    scene.tip.Show(scene.point, true, EShow::ShowUpAutoDismiss);
    QTRY_VERIFY(!scene.tip.IsVisible());
}

void TooltipWrapperTest::aManualOneStaysUntilItIsTakenDown()
{
    WrapperScene scene;
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    for (const QTimer *timer :
         {scene.tip.showTimer(), scene.tip.dismissTimer(), scene.tip.checkTimer()})
        QVERIFY(!timer->isActive());
    scene.tip.ForceHideTooltip();
    QVERIFY(!scene.tip.IsVisible());
    QVERIFY(!scene.tip.popup()->window()->isVisible());
}

void TooltipWrapperTest::aManualOneEndsTheTimeOfAnAutomaticOne()
{
    WrapperScene scene;
    scene.tip.Show(scene.point, true, EShow::ShowUpAutoDismiss);
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    QVERIFY(!scene.tip.dismissTimer()->isActive());
    scene.tip.DelayHide();
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    QVERIFY(!scene.tip.dismissTimer()->isActive());
    QVERIFY(scene.tip.IsVisible());
}

// Code that runs while it is shown, such as that of its content, may touch the same timer.
void TooltipWrapperTest::theTimeOfAnAutomaticOneStartsWhenItIsUp()
{
    class Hasty : public QWidget
    {
    public:
        explicit Hasty(TooltipWrapper &tip)
            : m_tip(tip)
        { }

    protected:
        void showEvent(QShowEvent *) override { m_tip.DelayHide(); }

    private:
        TooltipWrapper &m_tip;
    };
    TooltipScene scene;
    Tip tip(Group, scene.window.get());
    tip.SetTooltipControl(new Hasty(tip), true);
    tip.Show(QPoint(260, 330), true, EShow::ShowUpAutoDismiss);
    QVERIFY(tip.dismissTimer()->isActive());
    QCOMPARE(tip.dismissTimer()->interval(), 20000);
    // A manual one has no time of its own, so that of the content counts.
    tip.ForceHideTooltip();
    tip.Show(QPoint(260, 330), true, EShow::ShowUpManualDismiss);
    QVERIFY(tip.dismissTimer()->isActive());
    QCOMPARE(tip.dismissTimer()->interval(), 1000);
}

void TooltipWrapperTest::anotherOfItsGroupMayEndIt_data()
{
    QTest::addColumn<EShow>("type");
    QTest::newRow("automatic") << EShow::ShowUpAutoDismiss;
    QTest::newRow("manual") << EShow::ShowUpManualDismiss;
}

void TooltipWrapperTest::anotherOfItsGroupMayEndIt()
{
    QFETCH(EShow, type);
    class Ender : public QWidget
    {
    public:
        std::unique_ptr<TooltipWrapper> victim;

    protected:
        void hideEvent(QHideEvent *) override { victim.reset(); }
    };
    TooltipScene scene;
    auto *const ender = new Ender;
    Tip other(Group, scene.window.get());
    other.SetTooltipControl(ender, true);
    other.Show(QPoint(260, 330), true, EShow::ShowUpManualDismiss);
    auto owned = std::make_unique<Tip>(Group, scene.window.get());
    owned->SetTooltipControl(new DefaultTooltip, true);
    TooltipWrapper *const tip = owned.get();
    ender->victim = std::move(owned);
    tip->Show(QPoint(260, 330), true, type);
    QVERIFY(!ender->victim);
    QVERIFY(!other.IsVisible());
}

void TooltipWrapperTest::goesAfterTheDismissTime()
{
    WrapperScene scene;
    scene.tip.SetCustomTooltipDismissTime(3);
    scene.tip.Show(scene.point, true, EShow::ShowUpAutoDismiss);
    scene.tip.DelayHide();
    QCOMPARE(scene.tip.dismissTimer()->interval(), 3);
    QTRY_VERIFY(!scene.tip.IsVisible());
}

void TooltipWrapperTest::withoutContentNothingAppears()
{
    TooltipScene scene;
    Tip tip(Group, scene.window.get());
    tip.DelayHide();
    tip.Show(QPoint(200, 200), true, EShow::ShowUpAutoDismiss);
    QVERIFY(!tip.IsVisible());
    QVERIFY(!tip.GetArrowedWindow()->isVisible());
}

void TooltipWrapperTest::aHiddenContentTakesItDown()
{
    WrapperScene scene;
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    scene.content->hide();
    QVERIFY(!scene.tip.IsVisible());

    // What it watches beside its window counts as well.
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    scene.other->installEventFilter(&scene.tip);
    scene.other->hide();
    QVERIFY(!scene.tip.IsVisible());
}

void TooltipWrapperTest::goesWithItsParent_data()
{
    QTest::addColumn<bool>("isParentItself");
    QTest::newRow("the parent is hidden") << true;
    QTest::newRow("what the parent stands in is hidden") << false;
}

void TooltipWrapperTest::goesWithItsParent()
{
    QFETCH(bool, isParentItself);
    TooltipScene scene;
    Tip tip(Group, scene.host);
    tip.SetTooltipControl(new DefaultTooltip, true);
    tip.Show(QPoint(260, 330), true, EShow::ShowUpManualDismiss);
    tip.Show(QPoint(260, 330), true, EShow::ShowUpManualDismiss);
    scene.other->hide();
    QVERIFY(tip.IsVisible());
    (isParentItself ? scene.host.data() : scene.window.get())->hide();
    QVERIFY(!tip.IsVisible());
    QVERIFY(!tip.popup()->window()->isVisible());
}

void TooltipWrapperTest::hidesTheOthersOfItsGroup()
{
    WrapperScene scene;
    Tip second(Group, scene.window.get());
    second.SetTooltipControl(new DefaultTooltip, true);
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    second.Show(scene.point, true, EShow::ShowUpManualDismiss);
    QVERIFY(!scene.tip.IsVisible());
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    QVERIFY(!second.IsVisible());
    QVERIFY(scene.tip.IsVisible());
}

void TooltipWrapperTest::textReachesTheContent()
{
    WrapperScene scene;
    QSignalSpy spy(&scene.tip, &TooltipWrapper::UpdateTooltipText);
    connect(&scene.tip, &TooltipWrapper::UpdateTooltipText, scene.content,
            &DefaultTooltip::onUpdateTooltip);
    scene.tip.UpdateText(QStringLiteral("text"));
    QCOMPARE(spy, (QList<QVariantList> {{QStringLiteral("text")}}));
    QCOMPARE(scene.content->findChild<QLabel *>()->text(), QStringLiteral("text"));
}

void TooltipWrapperTest::anotherTextKeepsItAtItsPoint()
{
    WrapperScene scene;
    connect(&scene.tip, &TooltipWrapper::UpdateTooltipText, scene.content,
            &DefaultTooltip::onUpdateTooltip);
    scene.tip.UpdateText(QStringLiteral("short"));
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    const int width = scene.tip.popup()->width();
    scene.tip.UpdateText(QStringLiteral("a text that is a good deal longer"));
    QTRY_VERIFY(scene.tip.popup()->width() > width);
    const auto apex = [&] {
        return scene.tip.popup()->mapToGlobal(scene.tip.GetArrowedWindow()->GetArrowPoint());
    };
    QTRY_COMPARE(apex(), scene.point - QPoint(0, 3 + 10 + 1));
}

void TooltipWrapperTest::hoveringIsNotItsConcern()
{
    WrapperScene scene;
    scene.tip.SetTooltipType(ATooltipObject::ETooltipType::TooltipHoverLeft);
    QVERIFY(!scene.tip.IsHoverEventsEnabled());
    scene.tip.Show(scene.point, true, EShow::ShowUpManualDismiss);
    TooltipScene::pointAt(scene.tip.popup());
    fire(scene.tip.dismissTimer());
    QVERIFY(!scene.tip.IsVisible());
}

LUMO_TEST_MAIN(TooltipWrapperTest)
#include "tst_tooltipwrapper.moc"
