// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolBar>

#include "support/paintcounter.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/popup/layoutbasewidget.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/toolbar_p.h"

#include <lumo_common_res/Styles>

#include <QAction>
#include <QBoxLayout>
#include <QCursor>
#include <QGraphicsDropShadowEffect>
#include <QGridLayout>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <limits>

using Lumo::Test::PaintCounter;
using Vela::Resource::Styles;
using Vela::UiBase::ArrowedWindow;
using Vela::UiBase::EArrowPosition;
using Vela::UiBase::EDirection;
using Vela::UiBase::EWidgetsAlign;
using Vela::UiBase::LayoutBaseWidget;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolBarPrivate;
using Vela::UiBase::ToolButton;
using Vela::UiBase::TooltipObject;
using Corners = ToolBar::EToolBarRoundCorner;

namespace {

const QString tools = QStringLiteral("tools");
const QString views = QStringLiteral("views");
const QString files = QStringLiteral("files");

/// Opens what subclasses see, and makes actions for its buttons.
class OpenBar : public ToolBar
{
public:
    using ToolBar::ToolBar;

    explicit OpenBar(QWidget *parent = nullptr, Qt::ToolBarArea area = Qt::TopToolBarArea)
        : ToolBar(parent, area)
    { }
    using ToolBar::RemoveButton;

    static bool virtualsStandInOrder()
    {
        using Group = Vela::UiBase::CommandGroup *;
        ToolButton *(ToolBar::*const addNested)(Group, Group) = &OpenBar::AddCommandGroup;
        ToolButton *(ToolBar::*const add)(Group) = &OpenBar::AddCommandGroup;
        return Lumo::Test::standInThisOrder(
            addNested, add, &OpenBar::RemoveCommand, &OpenBar::AutoPosition, &OpenBar::Hovered,
            &OpenBar::AddSingleCommand, &OpenBar::RemoveSingleCommand,
            &OpenBar::ButtonIconSizeDiff);
    }

    ToolButton *add(const QString &group, int rank = 0, const QString &text = {})
    {
        return AddAction(new QAction(text, this), group, rank);
    }
    ToolBarPrivate *opened() { return static_cast<ToolBarPrivate *>(d_ptr.get()); }
    QWidget *central() { return opened()->centralWidget; }
    QWidget *panel(const QString &group) { return central()->findChild<LayoutBaseWidget *>(group); }

    /// The panels in the order in which they stand, by the layout.
    QStringList panelOrder()
    {
        QStringList names;
        const QLayout *const layout = central()->layout();
        for (int i = 0; layout && i < layout->count(); ++i) {
            if (const QWidget *const widget = layout->itemAt(i)->widget())
                names << widget->objectName();
        }
        return names;
    }

    /// The buttons of a panel in the order in which they stand.
    QList<QWidget *> order(const QString &group)
    {
        QList<QWidget *> buttons;
        const QLayout *const layout = panel(group)->layout();
        for (int i = 0; i < layout->count(); ++i)
            buttons << layout->itemAt(i)->widget();
        return buttons;
    }

    /// The separators as they would be painted now.
    QVector<QRect> separators()
    {
        opened()->EnsurePaths();
        return opened()->separatorRects;
    }
};

/// The bar as it is painted, without its buttons.
/// A bar on a screen of ratio 2.
class FineBar : public OpenBar
{
public:
    using OpenBar::OpenBar;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        if (metric == PdmDevicePixelRatio)
            return 2;
        if (metric == PdmDevicePixelRatioScaled)
            return int(2 * devicePixelRatioFScale());
        return OpenBar::metric(metric);
    }
};

QImage paintedOf(OpenBar &bar)
{
    for (ToolButton *const button : bar.findChildren<ToolButton *>())
        button->setVisible(false);
    QImage image(bar.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    bar.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

ArrowedWindow::SArrowParam arrowAt(EArrowPosition position, int length)
{
    ArrowedWindow::SArrowParam arrow;
    arrow.position = position;
    arrow.length = length;
    return arrow;
}

void showAndSettle(QWidget &widget)
{
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(widget.window()));
    QCoreApplication::processEvents();
}

} // namespace

class TestToolBar : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void virtualsStandInTheOrderOfHosts();
    void newBarHasItsDefaults();
    void barIsHorizontalAtTopAndBottom_data();
    void barIsHorizontalAtTopAndBottom();
    void barWithoutSideHasNoLayoutUntilItsSideIsKnown();
    void gridWithoutSizeIsALine();

    void buttonsOfAGroupStandInOnePanel();
    void buttonTakesSizeStyleAndTooltipFromTheBar();
    void tooltipDefaultsAreLeftOutOnRequest();
    void nullActionMakesNoButton();
    void barWithoutSizesLearnsThemFromTheFirstIcon();
    void barWithoutSizesLearnsNothingFromAnActionWithoutIcon();
    void newPanelStandsByItsLowestRank_data();
    void newPanelStandsByItsLowestRank();
    void buttonsOfALineStandByRank_data();
    void buttonsOfALineStandByRank();
    void successorInAnotherPanelIsNoPlace();
    void panelsAndButtonsStandAlongTheBar_data();
    void panelsAndButtonsStandAlongTheBar();
    void addingTellsOfTheNewLayout();
    void fillingAVisibleBarShowsTheButtons();
    void buttonAddedToAVisibleBarIsPainted_data();
    void buttonAddedToAVisibleBarIsPainted();
    void hiddenButtonLeavesNoGap();
    void newButtonFillsTheRoomOfOneThatHasGone_data();
    void newButtonFillsTheRoomOfOneThatHasGone();
    void buttonOfAnotherSizeIsLaidOutToo();
    void removedButtonLeavesNoGap_data();
    void removedButtonLeavesNoGap();
    void barShrinksWithItsTallestButton();
    void buttonThatDiesIsForgotten();
    void barGrowsWithItsContents();

    void gridIsFilledByCount_data();
    void gridIsFilledByCount();
    void rankIsTheCellOfAGrid();
    void secondButtonInACellKeepsTheFirst();
    void emptyCellsOfAFirstLineKeepTheirRoom_data();
    void emptyCellsOfAFirstLineKeepTheirRoom();

    void buttonSizeGivesTheIconSize_data();
    void buttonSizeGivesTheIconSize();
    void marginsAndSpacingsAreKeptAndApplied();
    void toolButtonStyleReachesAllButtons();
    void styleSheetReachesAllButtons();
    void contentsMoveInsideTheBar();
    void shadowIsOffUntilItIsEnabled();
    void parametersAreCopied();
    void menuAndTooltipParametersAreCopiedAlone();
    void hoveredAsksThePointer();

    void separatorFollowsEveryButtonButTheLast_data();
    void separatorFollowsEveryButtonButTheLast();
    void separatorsStandInTheGapsFromRightToLeftToo_data();
    void separatorsStandInTheGapsFromRightToLeftToo();
    void separatorIsLeftOutAfterTheButtonAddedLast();
    void groupOfOneHasNoSeparator();
    void separatorsWithoutSpacingAreNotSeen();
    void separatorsOfAGridStandInAllGaps_data();
    void separatorsOfAGridStandInAllGaps();
    void cornersAreRoundWhereTheyAreWanted_data();
    void cornersAreRoundWhereTheyAreWanted();
    void plateBackgroundAndSeparatorsArePainted();
    void translucentPlateShowsTheBackground_data();
    void translucentPlateShowsTheBackground();
    void borderStandsWhereItIsWanted_data();
    void borderStandsWhereItIsWanted();
    void thinBorderHasThePixelsOfALine();
    void thinBorderIsWholeAtAHigherRatio();
    void separatorColorWaitsForTheNextPainting();
    void platesFollowTheirPanels();
};

void TestToolBar::virtualsStandInTheOrderOfHosts()
{
    QVERIFY(OpenBar::virtualsStandInOrder());
}

void TestToolBar::newBarHasItsDefaults()
{
    QWidget window;
    OpenBar bar(&window);
    QCOMPARE(bar.windowFlags() & Qt::FramelessWindowHint, Qt::FramelessWindowHint);
    QVERIFY(bar.testAttribute(Qt::WA_ShowWithoutActivating));
    QCOMPARE(bar.focusPolicy(), Qt::NoFocus);
    QVERIFY(bar.hasMouseTracking());
    QVERIFY(bar.central()->testAttribute(Qt::WA_ShowWithoutActivating));
    QCOMPARE(bar.central()->focusPolicy(), Qt::NoFocus);
    QCOMPARE(bar.central()->sizePolicy(),
             QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QVERIFY(!bar.IsGridLayout());
    QCOMPARE(bar.GetMainContentMargins(), QMargins());
    QCOMPARE(bar.GetGroupContentMargins(), QMargins(1, 1, 1, 1));
    QCOMPARE(bar.ButtonSize(), QSize(36, 36));
    QCOMPARE(bar.IconSize(), QSize(24, 24));
    QCOMPARE(bar.GetButtonSpacing(), 1);
    QCOMPARE(bar.GetButtonGroupSpacing(), 10);
    QCOMPARE(bar.GetTooltipGroupName(), QString());
    QCOMPARE(bar.Pos(), QPoint(0, 0));
    const ToolBarPrivate *const d = bar.opened();
    QCOMPARE(d->offset, QPoint(100, 0));
    QVERIFY(d->centered);
    QCOMPARE(d->backColor, Styles::Instance().ColorToolPaletteMainBack());
    QCOMPARE(d->groupBackColor, Styles::Instance().ColorActionPanelGroupBack());
    QCOMPARE(d->separatorColor, Styles::Instance().ColorToolPaletteButtonSeparator());
    QCOMPARE(d->borderColor, Styles::Instance().ColorActionPanelBorder());
    QCOMPARE(d->cornerRadius, 4);
    QCOMPARE(d->autoPositionInterval, 100);
    QCOMPARE(d->reservedMargin, 15);
    QVERIFY(!d->hSeparatorPixmap().isNull());
    QVERIFY(!d->vSeparatorPixmap().isNull());
    QCOMPARE(d->defaultMenu.offset, 5);
    QCOMPARE(d->defaultTooltip.offset, 10);
    QCOMPARE(d->defaultTooltip.arrow.position, EArrowPosition::Bottom);
    QCOMPARE(d->defaultTooltip.arrow.angle, 0);
    QVERIFY(d->defaultMenuShadow);
}

void TestToolBar::barIsHorizontalAtTopAndBottom_data()
{
    QTest::addColumn<int>("area");
    QTest::addColumn<bool>("isHorizontal");
    QTest::newRow("left") << int(Qt::LeftToolBarArea) << false;
    QTest::newRow("top") << int(Qt::TopToolBarArea) << true;
    QTest::newRow("right") << int(Qt::RightToolBarArea) << false;
    QTest::newRow("bottom") << int(Qt::BottomToolBarArea) << true;
}

void TestToolBar::barIsHorizontalAtTopAndBottom()
{
    QFETCH(int, area);
    QFETCH(bool, isHorizontal);
    OpenBar bar(nullptr, Qt::ToolBarArea(area));
    QCOMPARE(bar.IsHorizontalLayout(), isHorizontal);
    const auto *const layout = qobject_cast<QBoxLayout *>(bar.central()->layout());
    QCOMPARE(layout->direction(), isHorizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    QCOMPARE(layout->sizeConstraint(), QLayout::SetMinimumSize);
    QCOMPARE(layout->spacing(), 10);
    // A stretch stands first, and panels behind it.
    QCOMPARE(layout->count(), 1);
    QVERIFY(layout->itemAt(0)->spacerItem());
    bar.add(tools);
    QCOMPARE(layout->itemAt(1)->widget(), bar.panel(tools));
    QCOMPARE(qobject_cast<QHBoxLayout *>(bar.panel(tools)->layout()) != nullptr, isHorizontal);
    QCOMPARE(qobject_cast<QVBoxLayout *>(bar.panel(tools)->layout()) != nullptr, !isHorizontal);
}

void TestToolBar::barWithoutSideHasNoLayoutUntilItsSideIsKnown()
{
    OpenBar bar(nullptr, Qt::AllToolBarAreas);
    QCOMPARE(bar.central()->layout(), nullptr);
    ToolButton *const last = bar.add(tools, 7);
    ToolButton *const first = bar.add(views, 3);
    bar.OnToolBarAreaSetLayout();
    QCOMPARE(bar.central()->layout(), nullptr);
    bar.opened()->area = Qt::TopToolBarArea;
    bar.OnToolBarAreaSetLayout();
    QCOMPARE(bar.panelOrder(), QStringList({views, tools}));
    ToolButton *const second = bar.add(views, 4);
    showAndSettle(bar);
    QVERIFY(first->mapToGlobal({}).x() < last->mapToGlobal({}).x());
    QVERIFY(first->mapToGlobal({}).x() < second->mapToGlobal({}).x());
    const QLayout *const layout = bar.central()->layout();
    bar.OnToolBarAreaSetLayout();
    QCOMPARE(bar.central()->layout(), layout);
}

void TestToolBar::gridWithoutSizeIsALine()
{
    OpenBar bar(0, true, nullptr, Qt::TopToolBarArea);
    QVERIFY(!bar.IsGridLayout());
    bar.add(tools);
    QVERIFY(qobject_cast<QBoxLayout *>(bar.panel(tools)->layout()));
}

void TestToolBar::buttonsOfAGroupStandInOnePanel()
{
    OpenBar bar;
    ToolButton *const first = bar.add(tools);
    ToolButton *const second = bar.add(tools);
    ToolButton *const other = bar.add(views);
    QCOMPARE(bar.order(tools), QList<QWidget *>({first, second}));
    QCOMPARE(bar.order(views), QList<QWidget *>({other}));
    QCOMPARE(second->parentWidget(), bar.panel(tools));
    const QWidget *const panel = bar.panel(tools);
    QCOMPARE(panel->parentWidget(), bar.central());
    QVERIFY(panel->testAttribute(Qt::WA_ShowWithoutActivating));
    QCOMPARE(panel->focusPolicy(), Qt::NoFocus);
    QCOMPARE(panel->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(panel->layout()->contentsMargins(), QMargins(1, 1, 1, 1));
    QCOMPARE(panel->layout()->spacing(), 1);
}

void TestToolBar::buttonTakesSizeStyleAndTooltipFromTheBar()
{
    OpenBar bar;
    bar.SetButtonSize(QSize(50, 50));
    bar.SetToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar.SetTooltipGroup(tools);
    bar.SetButtonDefaultTooltipParameters(arrowAt(EArrowPosition::Left, 12), 7, EDirection::Right,
                                          EWidgetsAlign::AlignEnd, QPoint(1, 2));
    QAction action(QStringLiteral("Smooth"));
    QPixmap pixmap(64, 64);
    pixmap.fill(Qt::red);
    action.setIcon(pixmap);
    action.setProperty("icon_normal_resource",
                       QStringLiteral(":/resources/images/cmd_pan_normal.png"));
    const ToolButton *const button = bar.AddAction(&action, tools, 3);
    QCOMPARE(button->Action(), &action);
    QCOMPARE(button->minimumSize(), QSize(50, 50));
    QCOMPARE(button->maximumSize(), QSize(50, 50));
    QCOMPARE(button->iconSize(), QSize(34, 34));
    QCOMPARE(action.icon().actualSize(QSize(300, 300)), QSize(34, 34));
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    const TooltipObject *const tooltip = button->GetTooltipObject();
    QCOMPARE(tooltip->GetPosCalculator()->BaseOffset(), 7);
    QCOMPARE(tooltip->GetPosCalculator()->Directions().first(), EDirection::Right);
    QCOMPARE(tooltip->GetPosCalculator()->Alignment(), EWidgetsAlign::AlignEnd);
    QCOMPARE(tooltip->GetPosCalculator()->AdditionalOffset(), QPoint(1, 2));
    QCOMPARE(tooltip->GetArrowedWindow()->GetArrowParams().first().length, 12);
}

void TestToolBar::tooltipDefaultsAreLeftOutOnRequest()
{
    OpenBar bar;
    bar.SetButtonDefaultTooltipParameters({}, 7, EDirection::Right, EWidgetsAlign::AlignEnd, {});
    QAction action(QStringLiteral("Smooth"));
    const ToolButton *const button = bar.AddAction(&action, tools, 0, false, false);
    QCOMPARE(button->GetTooltipObject()->GetPosCalculator()->Directions().first(), EDirection::Top);
}

void TestToolBar::nullActionMakesNoButton()
{
    OpenBar bar;
    QCOMPARE(bar.AddAction(nullptr, tools), nullptr);
    QVERIFY(bar.panelOrder().isEmpty());
}

void TestToolBar::barWithoutSizesLearnsThemFromTheFirstIcon()
{
    OpenBar bar;
    bar.opened()->iconSize = QSize(0, 0);
    bar.opened()->buttonSize = QSize(0, 0);
    QAction action(QStringLiteral("Smooth"));
    QPixmap pixmap(20, 20);
    pixmap.fill(Qt::red);
    action.setIcon(pixmap);
    const ToolButton *const button = bar.AddAction(&action, tools);
    QCOMPARE(bar.IconSize(), QSize(20, 20));
    QCOMPARE(button->iconSize(), QSize(20, 20));
    // A width of 0 gives a difference of -7.
    QCOMPARE(bar.ButtonSize(), QSize(13, 13));
    QCOMPARE(button->minimumSize(), QSize(13, 13));
}

void TestToolBar::barWithoutSizesLearnsNothingFromAnActionWithoutIcon()
{
    OpenBar bar;
    bar.opened()->iconSize = QSize(0, 0);
    const ToolButton *const plain = bar.add(tools);
    QCOMPARE(bar.IconSize(), QSize(0, 0));
    QCOMPARE(plain->iconSize(), ToolButton(nullptr).iconSize());
    QAction action;
    action.setIcon(QPixmap(20, 20));
    bar.AddAction(&action, tools);
    QCOMPARE(bar.IconSize(), QSize(20, 20));
}

void TestToolBar::newPanelStandsByItsLowestRank_data()
{
    using Ranks = QList<QPair<QString, int>>;
    QTest::addColumn<Ranks>("added");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("ascending") << Ranks {{tools, 1}, {views, 2}, {files, 3}}
                               << QStringList {tools, views, files};
    QTest::newRow("descending") << Ranks {{tools, 3}, {views, 2}, {files, 1}}
                                << QStringList {files, views, tools};
    QTest::newRow("equal ranks stand behind")
        << Ranks {{tools, 2}, {files, 2}, {views, 2}} << QStringList {tools, files, views};
    QTest::newRow("the lowest of a panel counts")
        << Ranks {{tools, 9}, {tools, 2}, {views, 5}} << QStringList {tools, views};
    QTest::newRow("before the next higher one")
        << Ranks {{tools, 1}, {views, 9}, {files, 5}} << QStringList {tools, files, views};
    QTest::newRow("the first by name of two higher ones")
        << Ranks {{views, 5}, {tools, 5}, {files, 1}} << QStringList {views, files, tools};
}

void TestToolBar::newPanelStandsByItsLowestRank()
{
    using Ranks = QList<QPair<QString, int>>;
    QFETCH(Ranks, added);
    OpenBar bar;
    for (const auto &[group, rank] : qAsConst(added))
        bar.add(group, rank);
    QTEST(bar.panelOrder(), "order");
}

void TestToolBar::buttonsOfALineStandByRank_data()
{
    QTest::addColumn<QList<int>>("ranks");
    QTest::addColumn<QList<int>>("order");
    QTest::newRow("ascending") << QList<int> {1, 2, 3} << QList<int> {0, 1, 2};
    QTest::newRow("descending") << QList<int> {3, 2, 1} << QList<int> {2, 1, 0};
    QTest::newRow("equal") << QList<int> {0, 0, 0} << QList<int> {0, 1, 2};
    QTest::newRow("between") << QList<int> {1, 5, 3} << QList<int> {0, 2, 1};
    QTest::newRow("behind an equal one") << QList<int> {1, 5, 1} << QList<int> {0, 2, 1};
    QTest::newRow("highest possible, added last")
        << QList<int> {1, 2147483647} << QList<int> {0, 1};
    QTest::newRow("highest possible") << QList<int> {2147483647, 1} << QList<int> {1, 0};
}

void TestToolBar::buttonsOfALineStandByRank()
{
    QFETCH(QList<int>, ranks);
    QFETCH(QList<int>, order);
    OpenBar bar;
    QList<QWidget *> added;
    for (const int rank : qAsConst(ranks))
        added << bar.add(tools, rank);
    QList<QWidget *> expected;
    for (const int index : qAsConst(order))
        expected << added[index];
    QCOMPARE(bar.order(tools), expected);
    showAndSettle(bar);
    for (int i = 1; i < expected.size(); ++i)
        QCOMPARE(expected[i]->x(), expected[i - 1]->x() + 37);
}

void TestToolBar::successorInAnotherPanelIsNoPlace()
{
    OpenBar bar;
    ToolButton *const first = bar.add(tools, 1);
    ToolButton *const last = bar.add(tools, 9);
    bar.add(views, 5);
    // The next higher rank of all is 5, which stands in the other panel.
    ToolButton *const added = bar.add(tools, 4);
    QCOMPARE(bar.order(tools), QList<QWidget *>({first, last, added}));
}

void TestToolBar::panelsAndButtonsStandAlongTheBar_data()
{
    QTest::addColumn<int>("area");
    QTest::addColumn<QPoint>("second");
    QTest::addColumn<QPoint>("other");
    QTest::addColumn<QSize>("size");
    QTest::newRow("top") << int(Qt::TopToolBarArea) << QPoint(37, 0) << QPoint(85, 0)
                         << QSize(75 + 10 + 38, 38);
    QTest::newRow("left") << int(Qt::LeftToolBarArea) << QPoint(0, 37) << QPoint(0, 85)
                          << QSize(38, 75 + 10 + 38);
}

void TestToolBar::panelsAndButtonsStandAlongTheBar()
{
    QFETCH(int, area);
    QWidget window;
    OpenBar bar(&window, Qt::ToolBarArea(area));
    const ToolButton *const first = bar.add(tools);
    const ToolButton *const second = bar.add(tools);
    const ToolButton *const other = bar.add(views);
    showAndSettle(window);
    QCOMPARE(first->mapTo(&bar, QPoint()), QPoint(1, 1));
    QTEST(second->mapTo(&bar, QPoint()) - QPoint(1, 1), "second");
    QTEST(other->mapTo(&bar, QPoint()) - QPoint(1, 1), "other");
    QTEST(bar.size(), "size");
    QCOMPARE(bar.central()->geometry(), bar.rect());
}

void TestToolBar::addingTellsOfTheNewLayout()
{
    OpenBar bar;
    QSignalSpy changed(&bar, &ToolBar::LayoutChanged);
    bar.add(tools);
    bar.add(tools);
    QCOMPARE(changed.count(), 2);
}

void TestToolBar::fillingAVisibleBarShowsTheButtons()
{
    QWidget window;
    OpenBar bar(&window);
    showAndSettle(window);
    QList<ToolButton *> buttons;
    for (int i = 0; i < 5; ++i)
        buttons << bar.add(i < 3 ? tools : views, i + 1);
    QTRY_VERIFY(buttons.last()->isVisible());
    for (int i = 0; i < 5; ++i) {
        QVERIFY(buttons[i]->isVisible());
        QCOMPARE(buttons[i]->size(), QSize(36, 36));
        QCOMPARE(buttons[i]->pos(), QPoint(1 + 37 * (i % 3), 1));
    }
    QTRY_COMPARE(bar.width(), 112 + 10 + 75);
    // In front of what is there.
    ToolButton *const front = bar.add(tools, 0);
    QTRY_COMPARE(front->pos(), QPoint(1, 1));
    QTRY_COMPARE(buttons[2]->pos(), QPoint(1 + 37 * 3, 1));
}

void TestToolBar::buttonAddedToAVisibleBarIsPainted_data()
{
    QTest::addColumn<bool>("isGrid");
    QTest::newRow("the bar grows") << false;
    QTest::newRow("in a cell that is there") << true;
}

void TestToolBar::buttonAddedToAVisibleBarIsPainted()
{
    QFETCH(bool, isGrid);
    QWidget window;
    window.resize(400, 200);
    OpenBar bar(isGrid ? 3 : 0, false, &window, Qt::TopToolBarArea);
    bar.add(tools, 1);
    showAndSettle(window);
    std::array<PaintCounter, 2> counters;
    for (std::size_t i = 0; i < counters.size(); ++i)
        bar.add(tools, 2)->installEventFilter(&counters[i]);
    for (const PaintCounter &counter : counters)
        QTRY_VERIFY(counter.paints > 0);
}

void TestToolBar::hiddenButtonLeavesNoGap()
{
    QWidget window;
    OpenBar bar(&window);
    const ToolButton *const first = bar.add(tools);
    ToolButton *const second = bar.add(tools);
    const ToolButton *const third = bar.add(tools);
    showAndSettle(window);
    second->hide();
    bar.AdjustToolBarSize(false);
    QTRY_COMPARE(bar.width(), 75);
    QCOMPARE(first->x(), 1);
    QTRY_COMPARE(third->x(), 38);
    second->show();
    bar.AdjustToolBarSize(false);
    QTRY_COMPARE(third->x(), 75);
    QTRY_COMPARE(second->x(), 38);
}

void TestToolBar::newButtonFillsTheRoomOfOneThatHasGone_data()
{
    QTest::addColumn<bool>("isDeleted");
    QTest::addColumn<bool>("isVisible");
    QTest::newRow("deleted") << true << true;
    QTest::newRow("hidden") << false << true;
    QTest::newRow("deleted, filled while the bar is hidden") << true << false;
}

// The panel keeps its size in the meantime, and its buttons are spread over it.
void TestToolBar::newButtonFillsTheRoomOfOneThatHasGone()
{
    QFETCH(bool, isDeleted);
    QFETCH(bool, isVisible);
    QWidget window;
    OpenBar bar(&window);
    const ToolButton *const first = bar.add(tools);
    ToolButton *const second = bar.add(tools);
    const ToolButton *const third = bar.add(tools);
    showAndSettle(window);
    if (isDeleted)
        delete second;
    else
        second->hide();
    QCoreApplication::processEvents();
    bar.setVisible(isVisible);
    const ToolButton *const last = bar.add(tools);
    bar.show();
    QTRY_COMPARE(last->geometry(), QRect(75, 1, 36, 36));
    QCOMPARE(first->geometry(), QRect(1, 1, 36, 36));
    QCOMPARE(third->geometry(), QRect(38, 1, 36, 36));
}

void TestToolBar::buttonOfAnotherSizeIsLaidOutToo()
{
    QWidget window;
    OpenBar bar(&window);
    ToolButton *const first = bar.add(tools);
    const ToolButton *const second = bar.add(tools);
    showAndSettle(window);
    first->setFixedSize(60, 20);
    bar.AdjustToolBarSize(false);
    QTRY_COMPARE(second->x(), 62);
    QCOMPARE(bar.width(), 60 + 36 + 3);
    // Without a fixed size the button takes what it likes.
    first->setMinimumSize(10, 10);
    first->setMaximumSize(500, 500);
    bar.AdjustToolBarSize(false);
    QTRY_COMPARE(second->x(), first->geometry().right() + 2);
}

void TestToolBar::removedButtonLeavesNoGap_data()
{
    QTest::addColumn<bool>("isShown");
    QTest::addColumn<int>("removed");
    QTest::addColumn<int>("hidden");
    for (const bool isShown : {false, true}) {
        const QByteArray state = isShown ? "shown, " : "not shown, ";
        QTest::newRow(state + "first") << isShown << 0 << -1;
        QTest::newRow(state + "middle") << isShown << 2 << -1;
        QTest::newRow(state + "last") << isShown << 4 << -1;
        QTest::newRow(state + "middle, behind a hidden one") << isShown << 2 << 1;
        QTest::newRow(state + "the hidden one") << isShown << 1 << 1;
    }
}

void TestToolBar::removedButtonLeavesNoGap()
{
    QFETCH(bool, isShown);
    QFETCH(int, removed);
    QFETCH(int, hidden);
    QWidget window;
    OpenBar bar(&window);
    if (isShown)
        showAndSettle(window);
    QList<ToolButton *> buttons;
    for (int i = 0; i < 5; ++i)
        buttons << bar.add(tools);
    if (hidden >= 0)
        buttons[hidden]->hide();
    bar.AdjustToolBarSize(false);
    bar.RemoveButton(buttons[removed]->Action());
    int position = 1;
    for (int i = 0; i < 5; ++i) {
        if (i == removed || i == hidden)
            continue;
        QCOMPARE(buttons[i]->geometry(), QRect(position, 1, 36, 36));
        position += 37;
    }
    QCOMPARE(bar.panel(tools)->size(), QSize(position, 38));
}

void TestToolBar::barShrinksWithItsTallestButton()
{
    QWidget window;
    OpenBar bar(&window);
    showAndSettle(window);
    QList<ToolButton *> buttons;
    for (int i = 0; i < 3; ++i)
        buttons << bar.add(tools);
    buttons[1]->setFixedSize(50, 60);
    QTRY_COMPARE(bar.panel(tools)->size(), QSize(126, 62));
    bar.RemoveButton(buttons[1]->Action());
    QTRY_COMPARE(bar.panel(tools)->size(), QSize(75, 38));
    QTRY_COMPARE(buttons[2]->geometry(), QRect(38, 1, 36, 36));
}

void TestToolBar::buttonThatDiesIsForgotten()
{
    QWidget window;
    OpenBar bar(&window);
    ToolButton *const first = bar.add(tools, 1);
    ToolButton *const second = bar.add(tools, 2);
    showAndSettle(window);
    delete first;
    bar.SetButtonSize(QSize(40, 40));
    bar.SetLocked(true);
    QTRY_COMPARE(second->x(), 1);
    QVERIFY(bar.separators().isEmpty());
    delete second;
    ToolButton *const third = bar.add(tools, 1);
    QCOMPARE(bar.order(tools), QList<QWidget *>({third}));
}

void TestToolBar::barGrowsWithItsContents()
{
    QWidget window;
    window.resize(400, 100);
    OpenBar bar(&window);
    bar.SetEnableAutoPosition(true);
    bar.SetOffset(QPoint(0, 0));
    showAndSettle(window);
    bar.add(tools);
    QTRY_COMPARE(bar.x(), (400 - 38) / 2);
    bar.add(tools);
    QTRY_COMPARE(bar.x(), (400 - 75) / 2);
    bar.add(views);
    bar.SetButtonGroupSpacing(50);
    QTRY_COMPARE(bar.width(), 75 + 50 + 38);
    QTRY_COMPARE(bar.x(), (400 - 163) / 2);
}

void TestToolBar::gridIsFilledByCount_data()
{
    QTest::addColumn<int>("area");
    QTest::addColumn<bool>("rowMajor");
    QTest::addColumn<QPoint>("third");
    QTest::newRow("top, by rows") << int(Qt::TopToolBarArea) << true << QPoint(0, 1);
    QTest::newRow("top, by columns") << int(Qt::TopToolBarArea) << false << QPoint(1, 0);
    QTest::newRow("left, by rows") << int(Qt::LeftToolBarArea) << true << QPoint(0, 1);
    QTest::newRow("left, by columns") << int(Qt::LeftToolBarArea) << false << QPoint(1, 0);
}

void TestToolBar::gridIsFilledByCount()
{
    QFETCH(int, area);
    QFETCH(bool, rowMajor);
    QFETCH(QPoint, third);
    OpenBar bar(2, rowMajor, nullptr, Qt::ToolBarArea(area));
    QVERIFY(bar.IsGridLayout());
    QList<ToolButton *> buttons;
    for (int i = 0; i < 3; ++i)
        buttons << bar.add(tools);
    const auto *const grid = qobject_cast<QGridLayout *>(bar.panel(tools)->layout());
    QCOMPARE(grid->itemAtPosition(0, 0)->widget(), buttons[0]);
    QCOMPARE(grid->itemAtPosition(rowMajor ? 0 : 1, rowMajor ? 1 : 0)->widget(), buttons[1]);
    QCOMPARE(grid->itemAtPosition(third.y(), third.x())->widget(), buttons[2]);
    QCOMPARE(grid->columnMinimumWidth(0), 24);
    QCOMPARE(grid->rowMinimumHeight(0), 24);
    QCOMPARE(
        bar.panel(tools)->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size(), 3);
}

void TestToolBar::rankIsTheCellOfAGrid()
{
    OpenBar bar(2, true, nullptr, Qt::LeftToolBarArea);
    ToolButton *const fourth = bar.add(tools, 4);
    ToolButton *const byCount = bar.add(tools, 0);
    ToolButton *const negative = bar.add(tools, -5);
    ToolButton *const beyondAnyGrid = bar.add(tools, std::numeric_limits<int>::max());
    const auto *const grid = qobject_cast<QGridLayout *>(bar.panel(tools)->layout());
    QCOMPARE(grid->itemAtPosition(1, 1)->widget(), fourth);
    QCOMPARE(grid->itemAtPosition(0, 1)->widget(), byCount);
    QCOMPARE(grid->itemAtPosition(1, 0)->widget(), negative);
    QVERIFY(bar.order(tools).contains(beyondAnyGrid));
    QCOMPARE(grid->rowCount(), 2);
}

void TestToolBar::secondButtonInACellKeepsTheFirst()
{
    OpenBar bar(2, true, nullptr, Qt::LeftToolBarArea);
    const QPointer<ToolButton> first = bar.add(tools, 1);
    const QPointer<ToolButton> second = bar.add(tools, 1);
    QVERIFY(first);
    QVERIFY(bar.order(tools).contains(first));
    QVERIFY(bar.order(tools).contains(second));
}

void TestToolBar::emptyCellsOfAFirstLineKeepTheirRoom_data()
{
    QTest::addColumn<int>("area");
    QTest::addColumn<bool>("rowMajor");
    QTest::addColumn<QSize>("size");
    QTest::newRow("top, by columns") << int(Qt::TopToolBarArea) << false << QSize(38, 112);
    QTest::newRow("left, by rows") << int(Qt::LeftToolBarArea) << true << QSize(112, 38);
    QTest::newRow("top, by rows") << int(Qt::TopToolBarArea) << true << QSize(38, 38);
    QTest::newRow("left, by columns") << int(Qt::LeftToolBarArea) << false << QSize(38, 38);
}

void TestToolBar::emptyCellsOfAFirstLineKeepTheirRoom()
{
    QFETCH(int, area);
    QFETCH(bool, rowMajor);
    QWidget window;
    OpenBar bar(3, rowMajor, &window, Qt::ToolBarArea(area));
    bar.add(tools);
    showAndSettle(window);
    QTEST(bar.size(), "size");
}

void TestToolBar::buttonSizeGivesTheIconSize_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("icon");
    QTest::newRow("36") << 36 << 25;
    QTest::newRow("50") << 50 << 34;
    QTest::newRow("24") << 24 << 19;
    QTest::newRow("42, where both rules meet") << 42 << 28;
    QTest::newRow("90") << 90 << 60;
}

void TestToolBar::buttonSizeGivesTheIconSize()
{
    QFETCH(int, width);
    QFETCH(int, icon);
    OpenBar bar;
    const ToolButton *const button = bar.add(tools);
    bar.SetButtonSize(QSize(width, width + 2));
    QCOMPARE(bar.ButtonSize(), QSize(width, width + 2));
    QCOMPARE(bar.IconSize(), QSize(icon, icon + 2));
    QCOMPARE(button->minimumSize(), QSize(width, width + 2));
    QCOMPARE(button->maximumSize(), QSize(width, width + 2));
    QCOMPARE(button->iconSize(), QSize(icon, icon + 2));
    QCOMPARE(bar.panel(tools)->size(), QSize(width + 2, width + 4));
}

void TestToolBar::marginsAndSpacingsAreKeptAndApplied()
{
    OpenBar bar;
    bar.add(tools);
    bar.add(tools);
    const QMargins margins(1, 2, 3, 4);
    bar.SetMainContentMargins(margins);
    QCOMPARE(bar.GetMainContentMargins(), margins);
    QCOMPARE(bar.central()->layout()->contentsMargins(), margins);
    bar.SetGroupContentMargins(margins);
    QCOMPARE(bar.GetGroupContentMargins(), margins);
    QCOMPARE(bar.panel(tools)->layout()->contentsMargins(), margins);
    QCOMPARE(bar.panel(tools)->size(), QSize(4 + 73, 6 + 36));
    bar.SetButtonSpacing(5);
    QCOMPARE(bar.GetButtonSpacing(), 5);
    QCOMPARE(bar.panel(tools)->layout()->spacing(), 5);
    QCOMPARE(bar.panel(tools)->width(), 4 + 77);
    bar.SetButtonGroupSpacing(6);
    QCOMPARE(bar.GetButtonGroupSpacing(), 6);
    QCOMPARE(bar.central()->layout()->spacing(), 6);
    bar.add(views);
    QCOMPARE(bar.panel(views)->layout()->contentsMargins(), margins);
    QCOMPARE(bar.panel(views)->layout()->spacing(), 5);
}

void TestToolBar::toolButtonStyleReachesAllButtons()
{
    OpenBar bar;
    const ToolButton *const first = bar.add(tools);
    const ToolButton *const second = bar.add(views);
    const QSize size = bar.ButtonSize();
    bar.SetToolButtonStyle(Qt::ToolButtonTextOnly);
    QCOMPARE(first->toolButtonStyle(), Qt::ToolButtonTextOnly);
    QCOMPARE(second->toolButtonStyle(), Qt::ToolButtonTextOnly);
    QCOMPARE(bar.ButtonSize(), size);
}

void TestToolBar::styleSheetReachesAllButtons()
{
    OpenBar bar;
    const ToolButton *const first = bar.add(tools);
    const ToolButton *const second = bar.add(views);
    const QString sheet = QStringLiteral("QToolButton { border: none; }");
    bar.SetButtonStyleSheet(sheet, false);
    QCOMPARE(first->styleSheet(), sheet);
    QCOMPARE(second->styleSheet(), sheet);
}

void TestToolBar::contentsMoveInsideTheBar()
{
    OpenBar bar;
    bar.add(tools);
    QVERIFY(bar.setProperty("Pos", QPoint(5, 6)));
    QCOMPARE(bar.Pos(), QPoint(5, 6));
    QCOMPARE(bar.property("Pos").toPoint(), QPoint(5, 6));
    QCOMPARE(bar.central()->pos(), QPoint(5, 6));
    bar.opened()->EnsurePaths();
    QCOMPARE(bar.opened()->backgroundPath.boundingRect().toRect(), bar.central()->geometry());
    QCOMPARE(bar.opened()->panelPaths.first().boundingRect().topLeft().toPoint(),
             bar.panel(tools)->pos() + QPoint(5, 6));
}

void TestToolBar::shadowIsOffUntilItIsEnabled()
{
    OpenBar bar;
    const auto *const shadow = qobject_cast<QGraphicsDropShadowEffect *>(bar.graphicsEffect());
    QVERIFY(shadow);
    QVERIFY(!shadow->isEnabled());
    QCOMPARE(shadow->blurRadius(), 7.0);
    QCOMPARE(shadow->offset(), QPointF(0, 0));
    QCOMPARE(shadow->color(), Styles::Instance().ColorToolPaletteShadow());
    bar.EnableShadow(true);
    QVERIFY(shadow->isEnabled());
    bar.EnableShadow(false);
    QVERIFY(!shadow->isEnabled());
}

void TestToolBar::parametersAreCopied()
{
    OpenBar from;
    from.SetMainContentMargins(QMargins(1, 2, 3, 4));
    from.SetGroupContentMargins(QMargins(5, 6, 7, 8));
    from.SetButtonSize(QSize(50, 50));
    from.SetButtonSpacing(3);
    from.SetButtonGroupSpacing(4);
    from.SetToolButtonStyle(Qt::ToolButtonTextOnly);
    from.SetEnableAutoPosition(true);
    from.SetCentered(false);
    from.SetBackColor(Qt::red);
    from.SetGroupBackColor(Qt::green);
    from.SetBorder(5, Qt::blue, false);
    from.SetRoundCorner(Corners::RoundAllCorners, Corners::RoundOuterCorners, 9);
    from.SetButtonDefaultTooltipParameters(arrowAt(EArrowPosition::Left, 3), 2, EDirection::Left,
                                           EWidgetsAlign::AlignStart, QPoint(1, 1));
    from.SetButtonDefaultMenuParameters(false, arrowAt(EArrowPosition::Right, 4), 6,
                                        EDirection::Right, EWidgetsAlign::AlignEnd, QPoint(2, 2));
    from.opened()->autoPositionInterval = 7;
    from.opened()->hideOnButtonClick = true;
    from.opened()->reservedMargin = 8;
    from.SetOffset(QPoint(1, 1));

    OpenBar to;
    const ToolButton *const button = to.add(tools);
    to.CopyAllParametersFrom(&from);
    const ToolBarPrivate *const d = to.opened();
    QCOMPARE(to.GetMainContentMargins(), QMargins(1, 2, 3, 4));
    QCOMPARE(to.GetGroupContentMargins(), QMargins(5, 6, 7, 8));
    QCOMPARE(to.panel(tools)->layout()->contentsMargins(), QMargins(1, 1, 1, 1));
    QCOMPARE(button->minimumSize(), QSize(50, 50));
    QCOMPARE(to.IconSize(), QSize(34, 34));
    QCOMPARE(to.GetButtonSpacing(), 3);
    QCOMPARE(to.GetButtonGroupSpacing(), 4);
    QCOMPARE(d->toolButtonStyle, Qt::ToolButtonTextOnly);
    QVERIFY(d->autoPositionEnabled);
    QVERIFY(!d->centered);
    QCOMPARE(d->backColor, QColor(Qt::red));
    QCOMPARE(d->groupBackColor, QColor(Qt::green));
    QCOMPARE(d->borderWidth, 5);
    QCOMPARE(d->borderColor, QColor(Qt::blue));
    QVERIFY(d->borderAroundPanels);      // not among them
    QCOMPARE(d->offset, QPoint(100, 0)); // nor this
    QCOMPARE(d->mainRoundCorner, Corners::RoundAllCorners);
    QCOMPARE(d->groupRoundCorner, Corners::RoundOuterCorners);
    QCOMPARE(d->cornerRadius, 9);
    QCOMPARE(d->defaultTooltip.offset, 2);
    QCOMPARE(d->defaultTooltip.arrow, from.opened()->defaultTooltip.arrow);
    QCOMPARE(d->defaultMenu.direction, EDirection::Right);
    QVERIFY(!d->defaultMenuShadow);
    QCOMPARE(d->autoPositionInterval, 7);
    QVERIFY(d->hideOnButtonClick);
    QCOMPARE(d->reservedMargin, 8);
    to.CopyAllParametersFrom(nullptr);
    QCOMPARE(to.GetButtonSpacing(), 3);
    to.CopyAllParametersFrom(std::make_unique<OpenBar>().get());
    QCOMPARE(to.IconSize(), QSize(24, 24)); // not what the size of the buttons gives
}

void TestToolBar::menuAndTooltipParametersAreCopiedAlone()
{
    OpenBar from;
    from.SetButtonDefaultTooltipParameters({}, 2, EDirection::Left, EWidgetsAlign::AlignStart, {});
    from.SetButtonDefaultMenuParameters(false, {}, 6, EDirection::Right, EWidgetsAlign::AlignEnd,
                                        {});
    OpenBar to;
    to.CopyButtonDefaultMenuParameters(&from);
    QCOMPARE(to.opened()->defaultMenu.offset, 6);
    QVERIFY(!to.opened()->defaultMenuShadow);
    QCOMPARE(to.opened()->defaultTooltip.offset, 10);
    to.CopyButtonDefaultTooltipParameters(&from);
    QCOMPARE(to.opened()->defaultTooltip.offset, 2);
    to.CopyButtonDefaultMenuParameters(nullptr);
    to.CopyButtonDefaultTooltipParameters(nullptr);
    QCOMPARE(to.opened()->defaultTooltip.offset, 2);
}

void TestToolBar::hoveredAsksThePointer()
{
    QWidget window;
    window.resize(200, 100);
    OpenBar bar(&window);
    bar.add(tools);
    showAndSettle(window);
    QCursor::setPos(bar.mapToGlobal(QPoint(3, 3)));
    QVERIFY(bar.Hovered());
    QCursor::setPos(bar.mapToGlobal(QPoint(-3, 3)));
    QVERIFY(!bar.Hovered());
}

void TestToolBar::separatorFollowsEveryButtonButTheLast_data()
{
    QTest::addColumn<int>("area");
    QTest::addColumn<QVector<QRect>>("rects");
    QTest::newRow("top") << int(Qt::TopToolBarArea)
                         << QVector<QRect> {QRect(37, 5, 1, 28), QRect(74, 5, 1, 28)};
    QTest::newRow("left") << int(Qt::LeftToolBarArea)
                          << QVector<QRect> {QRect(5, 37, 28, 1), QRect(5, 74, 28, 1)};
}

void TestToolBar::separatorFollowsEveryButtonButTheLast()
{
    QFETCH(int, area);
    QWidget window;
    OpenBar bar(&window, Qt::ToolBarArea(area));
    for (int i = 0; i < 3; ++i)
        bar.add(tools);
    showAndSettle(window);
    QTEST(bar.separators(), "rects");
}

void TestToolBar::separatorsStandInTheGapsFromRightToLeftToo_data()
{
    QTest::addColumn<int>("gridSize");
    QTest::addColumn<bool>("rowMajor");
    QTest::addColumn<QVector<QRect>>("rects");
    const QRect upperGap(37, 5, 1, 28);
    const QRect belowFirst(42, 37, 28, 1);
    const QRect belowSecond(5, 37, 28, 1);
    const QRect lowerGap(37, 42, 1, 28);
    QTest::newRow("line") << 0 << true << QVector<QRect> {QRect(74, 5, 1, 28), upperGap};
    QTest::newRow("grid by rows") << 2 << true
                                  << QVector<QRect> {upperGap, belowFirst, belowSecond, lowerGap};
    QTest::newRow("grid by columns")
        << 2 << false << QVector<QRect> {belowFirst, upperGap, lowerGap, belowSecond};
}

void TestToolBar::separatorsStandInTheGapsFromRightToLeftToo()
{
    QFETCH(int, gridSize);
    QFETCH(bool, rowMajor);
    QWidget window;
    window.setLayoutDirection(Qt::RightToLeft);
    OpenBar bar(gridSize, rowMajor, &window, Qt::TopToolBarArea);
    for (int i = 0; i < (gridSize ? 4 : 3); ++i)
        bar.add(tools);
    showAndSettle(window);
    QTEST(bar.separators(), "rects");
    window.setLayoutDirection(Qt::LeftToRight);
    QCoreApplication::processEvents();
    const QVector<QRect> before = bar.separators();
    window.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    QTEST(bar.separators(), "rects");
    QVERIFY(bar.separators() != before);
}

void TestToolBar::separatorIsLeftOutAfterTheButtonAddedLast()
{
    QWidget window;
    OpenBar bar(&window);
    bar.add(tools, 1);
    bar.add(tools, 3);
    bar.add(tools, 2);
    showAndSettle(window);
    QCOMPARE(bar.separators(), QVector<QRect>({QRect(37, 5, 1, 28), QRect(111, 5, 1, 28)}));
}

void TestToolBar::groupOfOneHasNoSeparator()
{
    OpenBar bar;
    bar.add(tools);
    bar.add(views);
    QVERIFY(bar.separators().isEmpty());
}

void TestToolBar::separatorsWithoutSpacingAreNotSeen()
{
    QWidget window;
    OpenBar bar(&window);
    bar.SetButtonSpacing(0);
    bar.SetBorder(0, Qt::black, true);
    bar.SetButtonSeparatorColor(Qt::red);
    bar.add(tools);
    bar.add(tools);
    showAndSettle(window);
    for (const QRect &rect : bar.separators())
        QVERIFY(rect.isEmpty());
    const QImage image = paintedOf(bar);
    for (int x = 0; x < image.width(); ++x)
        QVERIFY(image.pixelColor(x, 19) != QColor(Qt::red));
}

void TestToolBar::separatorsOfAGridStandInAllGaps_data()
{
    QTest::addColumn<bool>("rowMajor");
    QTest::addColumn<QVector<QRect>>("rects");
    const QRect right(37, 5, 1, 28);
    const QRect below(5, 37, 28, 1);
    const QRect belowRight(42, 37, 28, 1);
    const QRect rightBelow(37, 42, 1, 28);
    QTest::newRow("by rows") << true << QVector<QRect> {right, below, belowRight, rightBelow};
    QTest::newRow("by columns") << false << QVector<QRect> {below, right, rightBelow, belowRight};
}

void TestToolBar::separatorsOfAGridStandInAllGaps()
{
    QFETCH(bool, rowMajor);
    QWidget window;
    OpenBar bar(2, rowMajor, &window, Qt::TopToolBarArea);
    for (int i = 0; i < 4; ++i)
        bar.add(tools);
    showAndSettle(window);
    QTEST(bar.separators(), "rects");
}

void TestToolBar::cornersAreRoundWhereTheyAreWanted_data()
{
    QTest::addColumn<int>("corners");
    QTest::addColumn<int>("area");
    // Top left, top right, bottom right, bottom left: whether the corner pixel is inside.
    QTest::addColumn<QVector<bool>>("inside");
    const int all = int(Corners::RoundAllCorners);
    const int outer = int(Corners::RoundOuterCorners);
    QTest::newRow("none") << int(Corners::NoRoundCorners) << int(Qt::TopToolBarArea)
                          << QVector<bool> {true, true, true, true};
    QTest::newRow("all") << all << int(Qt::TopToolBarArea)
                         << QVector<bool> {false, false, false, false};
    QTest::newRow("outer, left") << outer << int(Qt::LeftToolBarArea)
                                 << QVector<bool> {true, false, false, true};
    QTest::newRow("outer, top") << outer << int(Qt::TopToolBarArea)
                                << QVector<bool> {true, true, false, false};
    QTest::newRow("outer, right") << outer << int(Qt::RightToolBarArea)
                                  << QVector<bool> {false, true, true, false};
    QTest::newRow("outer, bottom")
        << outer << int(Qt::BottomToolBarArea) << QVector<bool> {false, false, true, true};
}

void TestToolBar::cornersAreRoundWhereTheyAreWanted()
{
    QFETCH(int, corners);
    QFETCH(int, area);
    QFETCH(QVector<bool>, inside);
    QWidget window;
    OpenBar bar(&window, Qt::ToolBarArea(area));
    bar.add(tools);
    showAndSettle(window);
    const QPointF points[] = {{1, 1}, {37, 1}, {37, 37}, {1, 37}};
    for (const bool isPlate : {false, true}) {
        bar.SetRoundCorner(isPlate ? Corners::NoRoundCorners : Corners(corners),
                           isPlate ? Corners(corners) : Corners::NoRoundCorners, 8);
        bar.opened()->EnsurePaths();
        const QPainterPath path =
            isPlate ? bar.opened()->panelPaths.first() : bar.opened()->backgroundPath;
        QCOMPARE(path.boundingRect().toRect(), QRect(0, 0, 38, 38));
        for (int i = 0; i < 4; ++i)
            QCOMPARE(path.contains(points[i]), inside[i]);
    }
}

void TestToolBar::plateBackgroundAndSeparatorsArePainted()
{
    QWidget window;
    OpenBar bar(&window);
    bar.SetBackColor(Qt::blue);
    bar.SetGroupBackColor(Qt::green);
    bar.SetButtonSeparatorColor(Qt::red);
    bar.SetBorder(0, Qt::black, true);
    bar.add(tools);
    bar.add(tools);
    bar.add(views);
    showAndSettle(window);
    const QImage image = paintedOf(bar);
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::green));
    QCOMPARE(image.pixelColor(37, 19), QColor(Qt::red));
    QCOMPARE(image.pixelColor(37, 4), QColor(Qt::green));
    QCOMPARE(image.pixelColor(80, 19), QColor(Qt::blue)); // between the panels
    QCOMPARE(image.pixelColor(90, 19), QColor(Qt::green));
}

void TestToolBar::translucentPlateShowsTheBackground_data()
{
    QTest::addColumn<QColor>("plate");
    QTest::addColumn<bool>("isRound");
    QTest::addColumn<QColor>("atCorner");
    QTest::addColumn<QColor>("inside");
    const QColor mixed(0, 0, 255);
    QTest::newRow("opaque") << QColor(Qt::green) << false << QColor(Qt::green) << QColor(Qt::green);
    QTest::newRow("transparent") << QColor(0, 255, 0, 0) << false << mixed << mixed;
    QTest::newRow("round") << QColor(Qt::green) << true << mixed << QColor(Qt::green);
}

void TestToolBar::translucentPlateShowsTheBackground()
{
    QFETCH(QColor, plate);
    QFETCH(bool, isRound);
    QWidget window;
    OpenBar bar(&window);
    bar.SetBackColor(Qt::blue);
    bar.SetGroupBackColor(plate);
    bar.SetBorder(0, Qt::black, true);
    if (isRound)
        bar.SetRoundCorner(ToolBar::EToolBarRoundCorner::NoRoundCorners,
                           ToolBar::EToolBarRoundCorner::RoundAllCorners, 8);
    bar.add(tools);
    showAndSettle(window);
    const QImage image = paintedOf(bar);
    QTEST(image.pixelColor(0, 0), "atCorner");
    QTEST(image.pixelColor(19, 19), "inside");
}

void TestToolBar::borderStandsWhereItIsWanted_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("aroundPanels");
    QTest::addColumn<bool>("atPanel");
    QTest::addColumn<bool>("atBar");
    QTest::newRow("none") << 0 << true << false << false;
    QTest::newRow("around the panels") << 1 << true << true << true;
    QTest::newRow("around the bar") << 1 << false << false << true;
}

void TestToolBar::borderStandsWhereItIsWanted()
{
    QFETCH(int, width);
    QFETCH(bool, aroundPanels);
    QWidget window;
    OpenBar bar(&window);
    bar.SetBorder(width, Qt::red, aroundPanels);
    bar.add(tools);
    bar.add(views);
    showAndSettle(window);
    const QImage image = paintedOf(bar);
    QTEST(image.pixelColor(37, 19) == QColor(Qt::red), "atPanel");
    QTEST(image.pixelColor(0, 19) == QColor(Qt::red), "atBar");
}

void TestToolBar::thinBorderHasThePixelsOfALine()
{
    QWidget window;
    OpenBar bar(&window);
    const QColor translucent(200, 30, 90, 100);
    bar.SetBackColor(Qt::transparent);
    bar.SetGroupBackColor(Qt::transparent);
    bar.SetBorder(1, translucent, true);
    bar.add(tools);
    showAndSettle(window);
    QImage expected(bar.size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    QPainter painter(&expected);
    painter.setPen(QPen(QBrush(translucent), 1));
    const QRect rect = bar.rect();
    painter.drawLine(rect.topLeft(), rect.topRight());
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomRight(), rect.bottomLeft());
    painter.drawLine(rect.bottomLeft(), rect.topLeft());
    painter.end();
    QCOMPARE(paintedOf(bar), expected);
}

// A line of a pen would lie half outside of the bar.
void TestToolBar::thinBorderIsWholeAtAHigherRatio()
{
    QWidget window;
    FineBar bar(&window);
    bar.SetBackColor(Qt::transparent);
    bar.SetGroupBackColor(Qt::transparent);
    bar.SetBorder(1, Qt::red, true);
    bar.add(tools)->setVisible(false);
    showAndSettle(window);
    QImage fine(2 * bar.size(), QImage::Format_ARGB32_Premultiplied);
    fine.setDevicePixelRatio(2);
    fine.fill(Qt::transparent);
    bar.render(&fine, {}, {}, QWidget::RenderFlags());
    QImage expected(bar.size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::red);
    QPainter painter(&expected);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(bar.rect().adjusted(1, 1, -1, -1), Qt::black);
    painter.end();
    fine.setDevicePixelRatio(1);
    QCOMPARE(fine, expected.scaled(fine.size()));
}

void TestToolBar::separatorColorWaitsForTheNextPainting()
{
    QWidget window;
    OpenBar bar(&window);
    bar.add(tools);
    bar.add(tools);
    showAndSettle(window);
    QTRY_VERIFY(bar.isVisible());
    PaintCounter watcher;
    QCoreApplication::processEvents();
    bar.installEventFilter(&watcher);
    bar.SetButtonSeparatorColor(Qt::red);
    QCoreApplication::processEvents();
    QCOMPARE(watcher.paints, 0);
    bar.SetBackColor(Qt::blue);
    QTRY_VERIFY(watcher.paints > 0);
}

void TestToolBar::platesFollowTheirPanels()
{
    QWidget window;
    OpenBar bar(&window);
    bar.add(tools);
    bar.add(views);
    showAndSettle(window);
    bar.SetButtonGroupSpacing(40);
    QTRY_COMPARE(bar.width(), 38 + 40 + 38);
    bar.opened()->EnsurePaths();
    QCOMPARE(bar.opened()->panelPaths.value(bar.panel(views)).boundingRect().toRect().left(), 78);
}

LUMO_TEST_MAIN(TestToolBar)
#include "tst_toolbar.moc"
