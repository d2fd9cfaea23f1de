// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolBarUtil>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/popup/floatinglayer.h"
#include "ui_base/toolbar/menubutton.h"

#include <QGraphicsEffect>

#include <type_traits>

using Lumo::Test::MenuBar;
using Vela::UiBase::ArrowedWindow;
using Vela::UiBase::EArrowPosition;
using Vela::UiBase::EDirection;
using Vela::UiBase::EWidgetsAlign;
using Vela::UiBase::FloatingLayer;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolBarPrivate;
using Vela::UiBase::ToolBarUtil;

static_assert(!std::is_default_constructible_v<ToolBarUtil>);

namespace {

/// A window with a bar of looks that no other bar has.
class Scene
{
public:
    Scene()
        : window(std::make_unique<QWidget>())
        , base(new MenuBar(window.get(), Qt::LeftToolBarArea))
    {
        base->SetButtonSize(QSize(50, 50));
        base->SetGroupContentMargins(QMargins(1, 2, 3, 4));
        base->SetGroupBackColor(Qt::cyan);
        base->SetButtonGroupSpacing(17);
        base->SetTooltipGroup(QStringLiteral("tips"));
        base->SetRoundCorner(ToolBar::EToolBarRoundCorner::RoundAllCorners,
                             ToolBar::EToolBarRoundCorner::RoundAllCorners, 9);
        base->SetButtonDefaultTooltipParameters({}, 99, EDirection::Left, EWidgetsAlign::AlignEnd,
                                                QPoint(9, 9));
    }

    std::unique_ptr<QWidget> window;
    MenuBar *base;
};

const ToolBarPrivate &partsOf(const ToolBar &bar)
{
    struct Open : ToolBar
    {
        static const ToolBarPrivate &of(const ToolBar &opened) { return *(opened.*&Open::d_ptr); }
    };
    return Open::of(bar);
}

ArrowedWindow::SArrowParam arrowAt(EArrowPosition position)
{
    ArrowedWindow::SArrowParam arrow;
    arrow.position = position;
    arrow.length = 10;
    arrow.customAngle = false;
    arrow.angle = 0;
    arrow.apexAngle = 90;
    arrow.offsetAlongX = true;
    arrow.offset = 0;
    return arrow;
}

void checkTakenLooks(ToolBar &menu, const Scene &scene)
{
    const ToolBarPrivate &parts = partsOf(menu);
    QCOMPARE(menu.GetGroupContentMargins(), scene.base->GetGroupContentMargins());
    QCOMPARE(menu.GetButtonGroupSpacing(), scene.base->GetButtonGroupSpacing());
    QCOMPARE(menu.GetTooltipGroupName(), scene.base->GetTooltipGroupName());
    QCOMPARE(parts.groupBackColor, QColor(Qt::cyan));
    QCOMPARE(parts.cornerRadius, 9);
    QVERIFY(!menu.graphicsEffect() || !menu.graphicsEffect()->isEnabled());
    QVERIFY(FloatingLayer::getWidgetOriginalParent(&menu) == scene.window.get());
}

void checkTooltips(const ToolBar &menu, EArrowPosition position, int offset, EDirection direction)
{
    const auto &tooltip = partsOf(menu).defaultTooltip;
    QVERIFY(tooltip.arrow == arrowAt(position));
    QCOMPARE(tooltip.offset, offset);
    QCOMPARE(tooltip.direction, direction);
    QCOMPARE(tooltip.align, EWidgetsAlign::AlignCenter);
    QCOMPARE(tooltip.additionalOffset, QPoint(0, 0));
}

} // namespace

class ToolBarUtilTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aMenuOfAnActionPanelIsAGridFilledRowByRow();
    void aMenuOfAnActionPanelCanBeALine();
    void aMenuOfAMainBarIsAGridFilledColumnByColumn();
    void aMenuOfAMainBarIsAVerticalLineElse();
    void aMenuOfAMainBarTakesTheSizeOfTheBaseElse();
    void aGridOfNoCellsIsALineAtTheTop();
    void aBaseThatIsNoBarGivesNothing();
    void aMenuWithoutParentIsTheCallers();
    void aMenuThatNoButtonHasIsLeftToTheCaller();
};

void ToolBarUtilTest::aMenuOfAnActionPanelIsAGridFilledRowByRow()
{
    const Scene scene;
    const std::unique_ptr<ToolBar> menu(
        ToolBarUtil::CreateActionPanelToolBar(scene.window.get(), scene.base, true, 4));
    QVERIFY(menu->IsGridLayout());
    QVERIFY(partsOf(*menu).gridRowMajor);
    QCOMPARE(partsOf(*menu).gridSize, 4);
    QCOMPARE(partsOf(*menu).area, Qt::TopToolBarArea);
    QCOMPARE(menu->ButtonSize(), QSize(50, 50));
    checkTakenLooks(*menu, scene);
    checkTooltips(*menu, EArrowPosition::Top, 7, EDirection::Bottom);
}

void ToolBarUtilTest::aMenuOfAnActionPanelCanBeALine()
{
    const Scene scene;
    const std::unique_ptr<ToolBar> menu(
        ToolBarUtil::CreateActionPanelToolBar(scene.window.get(), scene.base, false, 4));
    QVERIFY(!menu->IsGridLayout());
    QCOMPARE(partsOf(*menu).area, Qt::TopToolBarArea);
    checkTakenLooks(*menu, scene);
    checkTooltips(*menu, EArrowPosition::Top, 7, EDirection::Bottom);
}

void ToolBarUtilTest::aMenuOfAMainBarIsAGridFilledColumnByColumn()
{
    const Scene scene;
    const std::unique_ptr<ToolBar> menu(ToolBarUtil::CreateMainToolBarButtonMenu(
        scene.window.get(), scene.base, QSize(11, 11), QSize(30, 30), true, 3));
    QVERIFY(menu->IsGridLayout());
    QVERIFY(!partsOf(*menu).gridRowMajor);
    QCOMPARE(partsOf(*menu).gridSize, 3);
    QCOMPARE(partsOf(*menu).area, Qt::TopToolBarArea);
    QCOMPARE(menu->ButtonSize(), QSize(30, 30));
    // Icons follow from the size of the buttons.
    QVERIFY(menu->IconSize() != QSize(11, 11));
    checkTakenLooks(*menu, scene);
    checkTooltips(*menu, EArrowPosition::Left, 7, EDirection::Right);
}

void ToolBarUtilTest::aMenuOfAMainBarIsAVerticalLineElse()
{
    const Scene scene;
    const std::unique_ptr<ToolBar> menu(ToolBarUtil::CreateMainToolBarButtonMenu(
        scene.window.get(), scene.base, QSize(), QSize(30, 30), false, 3));
    QVERIFY(!menu->IsGridLayout());
    QCOMPARE(partsOf(*menu).area, Qt::LeftToolBarArea);
    checkTakenLooks(*menu, scene);
    checkTooltips(*menu, EArrowPosition::Left, 5, EDirection::Right);
}

void ToolBarUtilTest::aMenuOfAMainBarTakesTheSizeOfTheBaseElse()
{
    const Scene scene;
    const std::unique_ptr<ToolBar> menu(ToolBarUtil::CreateMainToolBarButtonMenu(
        scene.window.get(), scene.base, QSize(11, 11), QSize(), true, 3));
    QCOMPARE(menu->ButtonSize(), QSize(50, 50));
    QCOMPARE(menu->IconSize(), scene.base->IconSize());
    const std::unique_ptr<ToolBar> other(ToolBarUtil::CreateMainToolBarButtonMenu(
        scene.window.get(), scene.base, QSize(), QSize(-1, 30), false, 0));
    QCOMPARE(other->ButtonSize(), QSize(50, 50));
}

void ToolBarUtilTest::aGridOfNoCellsIsALineAtTheTop()
{
    const Scene scene;
    const std::unique_ptr<ToolBar> menu(ToolBarUtil::CreateMainToolBarButtonMenu(
        scene.window.get(), scene.base, QSize(), QSize(), true, 0));
    QVERIFY(!menu->IsGridLayout());
    QVERIFY(menu->IsHorizontalLayout());
    QCOMPARE(partsOf(*menu).area, Qt::TopToolBarArea);
    const std::unique_ptr<ToolBar> other(
        ToolBarUtil::CreateActionPanelToolBar(scene.window.get(), scene.base, true, -3));
    QVERIFY(!other->IsGridLayout());
}

void ToolBarUtilTest::aBaseThatIsNoBarGivesNothing()
{
    QWidget window;
    for (QWidget *base : {static_cast<QWidget *>(nullptr), &window}) {
        QVERIFY(!ToolBarUtil::CreateActionPanelToolBar(&window, base, true, 4));
        QVERIFY(
            !ToolBarUtil::CreateMainToolBarButtonMenu(&window, base, QSize(), QSize(), true, 4));
    }
    QVERIFY(window.children().isEmpty());
}

void ToolBarUtilTest::aMenuWithoutParentIsTheCallers()
{
    const Scene scene;
    const std::unique_ptr<ToolBar> menu(
        ToolBarUtil::CreateActionPanelToolBar(nullptr, scene.base, true, 4));
    QVERIFY(menu);
    QCOMPARE(menu->ButtonSize(), QSize(50, 50));
}

void ToolBarUtilTest::aMenuThatNoButtonHasIsLeftToTheCaller()
{
    Scene scene;
    const std::unique_ptr<ToolBar> menu(
        ToolBarUtil::CreateActionPanelToolBar(scene.window.get(), scene.base, true, 4));
    const QPointer<ToolBar> living(menu.get());
    scene.window.reset();
    QVERIFY(living);
}

LUMO_TEST_MAIN(ToolBarUtilTest)
#include "tst_toolbarutil.moc"
