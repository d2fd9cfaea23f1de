// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/WidgetPosCalculator>

#include "arrowreference.h"
#include "openwindow.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/popup/widgetposcalculator_p.h"

#include <QApplication>
#include <QMetaType>

#include <limits>
#include <memory>
#include <optional>
#include <type_traits>

using Lumo::Test::Dice;
using Lumo::Test::OpenWindow;
using Lumo::Test::referenceArrow;
using Lumo::Test::ReferenceLayout;
using Lumo::Test::referenceLayout;
using namespace Vela::UiBase;

using SArrowParam = ArrowedWindow::SArrowParam;
using Candidate = QPair<SArrowParam, EDirection>;
using Directions = QList<EDirection>;

static_assert(std::is_base_of_v<QObject, WidgetPosCalculator>);
static_assert(
    !std::is_constructible_v<WidgetPosCalculator, WidgetPosCalculatorPrivate &, QObject *>);
static_assert(!std::is_copy_constructible_v<WidgetPosCalculator>);
static_assert(std::has_virtual_destructor_v<WidgetPosCalculatorPrivate>);

namespace {

constexpr int Largest = std::numeric_limits<int>::max();
constexpr int Smallest = std::numeric_limits<int>::min();
constexpr auto Left = EDirection::Left;
constexpr auto Top = EDirection::Top;
constexpr auto Right = EDirection::Right;
constexpr auto Bottom = EDirection::Bottom;
constexpr auto NoDirection = EDirection::NoDirection;

const QRect Everywhere(-100000, -100000, 200000, 200000);

// A calculator that tells what its subclasses know, and can have its own idea of what fits.
class OpenCalculator : public WidgetPosCalculator
{
public:
    using WidgetPosCalculator::GetFullPriorityDirectionList;
    using WidgetPosCalculator::GetMaxAvailableMovingArea;
    using WidgetPosCalculator::GetPosition;
    using WidgetPosCalculator::GetRefGeometry;
    using WidgetPosCalculator::PrepareArrowParamPairs;
    using WidgetPosCalculator::WidgetPosCalculator;

    WidgetPosCalculatorPrivate &data() { return *d_ptr; }
    QList<Candidate> candidates() const { return d_ptr->arrowParamPairs; }
};

// Takes the candidate with this number, counted from 0, and none else.
class PickyCalculator : public OpenCalculator
{
public:
    explicit PickyCalculator(int accepted)
        : m_accepted(accepted)
    { }
    bool VerifyPosition(const QPoint &pos, const QRect &rect, QPoint &adjust) const override
    {
        Q_UNUSED(adjust)
        seen << QRect(pos, rect.size());
        return seen.size() - 1 == m_accepted;
    }
    mutable QList<QRect> seen;

private:
    const int m_accepted;
};

// A window with a button in it and a popup beside that.
struct Scene
{
    QWidget window;
    QWidget *const button = new QWidget(&window);
    QWidget *const popup = new QWidget(&window);
    OpenCalculator calculator;

    Scene()
    {
        window.setGeometry(100, 50, 800, 600);
        button->setGeometry(300, 200, 60, 40);
        popup->resize(100, 80);
        calculator.SetWidget(popup);
        calculator.SetRefWidget(button);
        calculator.setMaxAvailableRect(Everywhere);
    }

    QPoint solve(bool useArrow = false, const QRect &rect = QRect()) const
    {
        QPoint result(-1, -2);
        return calculator.GetPosition(result, rect, useArrow, QPoint()) ? result
                                                                        : QPoint(Largest, Largest);
    }
};

// A scene whose popup is a window with an arrow.
struct ArrowScene
{
    QWidget window;
    QWidget *const button = new QWidget(&window);
    OpenWindow *const popup = new OpenWindow(&window);
    QWidget *const content = new QWidget;
    OpenCalculator calculator;

    explicit ArrowScene(const QSize &size = QSize(200, 100))
    {
        window.resize(800, 600);
        button->setGeometry(300, 200, 60, 40);
        content->setFixedSize(size);
        popup->AttachWidget(content);
        calculator.SetWidget(popup);
        calculator.SetRefWidget(button);
        calculator.setMaxAvailableRect(Everywhere);
    }

    QPoint solve() const
    {
        QPoint result(-1, -2);
        return calculator.GetPosition(result, QRect(), true, QPoint()) ? result
                                                                       : QPoint(Largest, Largest);
    }
    SArrowParam arrow() const
    {
        SArrowParam current;
        popup->GetCurrentArrowParam(current);
        return current;
    }
};

SArrowParam arrowAt(EArrowPosition position)
{
    SArrowParam arrow;
    arrow.position = position;
    return arrow;
}

// The rectangle that a popup is held in.
bool fits(const QPoint &at, const QSize &size, const QRect &area)
{
    const QRect inner = area.adjusted(30, 30, -30, -30);
    return at.x() >= inner.x() && at.y() >= inner.y()
        && at.x() + size.width() <= inner.x() + inner.width()
        && at.y() + size.height() <= inner.y() + inner.height();
}

// What plain mode has to find, from its formulas.
QPoint referencePlain(const QRect &r, const QSize &w, const Directions &directions, int base,
                      EWidgetsAlign alignment, const QPoint &additional, const QRect &area,
                      EDirection &last)
{
    int x = 0;
    int y = 0;
    const int right = r.x() + r.width() - 1;
    const int bottom = r.y() + r.height() - 1;
    for (const EDirection d : directions) {
        last = d;
        if (d == Top || d == Bottom) {
            y = d == Bottom ? bottom + base : r.y() - base - w.height();
            if (alignment == EWidgetsAlign::AlignStart)
                x = r.x();
            if (alignment == EWidgetsAlign::AlignCenter)
                x = r.x() + (r.width() - w.width()) / 2;
            if (alignment == EWidgetsAlign::AlignEnd)
                x = right - w.width();
        } else if (d == Left || d == Right) {
            x = d == Right ? right + base : r.x() - base - w.width();
            if (alignment == EWidgetsAlign::AlignStart)
                y = r.y();
            if (alignment == EWidgetsAlign::AlignCenter)
                y = r.y() + (r.height() - w.height()) / 2;
            if (alignment == EWidgetsAlign::AlignEnd)
                y = bottom - w.height();
        }
        x += additional.x();
        y += additional.y();
        if (fits(QPoint(x, y), w, area))
            break;
    }
    return {x, y};
}

// The place of one candidate of the arrow mode, from its formulas.
QPoint referenceCandidate(EArrowPosition pos, bool custom, EDirection d, const QRect &r,
                          const QSize &w, const QPoint &a, int base)
{
    const int right = r.x() + r.width() - 1;
    const int bottom = r.y() + r.height() - 1;
    const bool isLeftCorner = pos == EArrowPosition::TopLeft || pos == EArrowPosition::BottomLeft;
    const bool isTopCorner = pos == EArrowPosition::TopLeft || pos == EArrowPosition::TopRight;
    const bool isCorner = int(pos) >= 5 && int(pos) <= 8;
    int x = r.center().x() - a.x();
    int y = r.center().y() - a.y();
    if (d == Top || d == Bottom || d == NoDirection) {
        if (!custom && isCorner)
            x = isLeftCorner ? right + base - a.x() : -a.x() - base;
        y = d == Bottom ? bottom + base - a.y()
                        : r.y() - base - w.height() + (w.height() - 1 - a.y());
        return {x, y};
    }
    if (d != Left && d != Right)
        return {0, 0};
    if (!custom && isCorner)
        y = isTopCorner ? bottom + base - a.y() : -a.y() - base;
    x = d == Right ? right + base - a.x() : r.x() - base - w.width() + (w.width() - 1 - a.x());
    return {x, y};
}

} // namespace

class WidgetPosCalculatorTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithItsDefaults();
    void settersOnlyStore();
    void virtualOperationsStandInOrder();
    void subclassBringsItsOwnPrivatePart();
    void directionIsCompleted_data();
    void directionIsCompleted();
    void directionsAreCompleted_data();
    void directionsAreCompleted();
    void directionIgnoresItsIndex();
    void noPopupOrReferenceIsRefused();
    void deadWidgetsAreRefused();
    void referencePointIsASquare();
    void referenceWidgetInTheParent();
    void referenceWidgetGlobally();
    void popupWithoutParentIsGlobal();
    void areaIsInset();
    void areaOfTheActiveWindow();
    void areaLeavesRoomForSubWidgets();
    void areaLeavesRoomForSubWidgetsOfTheContent();
    void areaIgnoresWhatIsNoSubWidget();
    void positionsInsideTheAreaAreGood();
    void overflowTellsTheSlide_data();
    void overflowTellsTheSlide();
    void withoutAreaEverythingIsGood();
    void plainCandidates_data();
    void plainCandidates();
    void onlyTheSizeOfThePopupCounts();
    void firstFittingDirectionIsTaken();
    void lastDirectionStandsWhenNothingFits();
    void additionalOffsetIsAddedToEachCandidate();
    void unknownAlignmentLeavesTheAxis();
    void unknownDirectionKeepsTheCandidate();
    void subclassDecidesWhatFits();
    void plainSolvesEqualTheReference();
    void candidatesOfOneArrow();
    void candidatesWithoutAutoDecide();
    void candidatesOfManyArrows();
    void candidatesWithoutAnyArrow();
    void arrowCandidateEqualsTheReference();
    void arrowIsPlacedAtTheReference_data();
    void arrowIsPlacedAtTheReference();
    void overflowingArrowIsSlid_data();
    void overflowingArrowIsSlid();
    void slideIsLimited();
    void narrowPopupSlidesTheOtherWay();
    void firstArrowWinsEvenWhenItOverflows();
    void slidArrowIsOnOfferAfterwards();
    void arrowSolveWithoutContentTriesAll();
    void arrowModeNeedsAnArrowedWindow();
    void arrowSolvesEqualTheReference();
    void referenceMayDieBeforeTheArrowIsPlaced();
    void withoutAreaTheFirstArrowIsTaken();
    void hugeNumbersEnd();
    void hugePopupsEnd();
    void popupsLargerThanTheAreaEnd();
};

void WidgetPosCalculatorTest::startsWithItsDefaults()
{
    QObject owner;
    auto *const calculator = new OpenCalculator(&owner);
    QCOMPARE(calculator->parent(), &owner);
    QVERIFY(!calculator->Widget());
    QVERIFY(!calculator->RefWidget());
    QCOMPARE(calculator->RefWiget(), QPoint(0, 0));
    QCOMPARE(calculator->BaseOffset(), 10);
    QCOMPARE(calculator->Alignment(), EWidgetsAlign::AlignCenter);
    QCOMPARE(calculator->AdditionalOffset(), QPoint(0, 0));
    QCOMPARE(calculator->Directions(), Directions {Top});
    QCOMPARE(calculator->Direction(), NoDirection);
    QVERIFY(calculator->data().useRefWidget);
    QVERIFY(!calculator->data().calcGlobalPos);
    QVERIFY(calculator->data().maxAvailableRect.isNull());
    QVERIFY(calculator->candidates().isEmpty());
}

void WidgetPosCalculatorTest::settersOnlyStore()
{
    QWidget popup;
    QWidget reference;
    OpenCalculator calculator;
    calculator.SetWidget(&popup);
    calculator.SetRefPoint(QPoint(3, 4));
    QVERIFY(!calculator.data().useRefWidget);
    calculator.SetRefWidget(&reference);
    QVERIFY(calculator.data().useRefWidget);
    calculator.SetBaseOffset(-7);
    calculator.SetAlignment(EWidgetsAlign::AlignEnd);
    calculator.SetAdditionalOffset(QPoint(5, 6));
    calculator.setCalcGlobalPos(true);
    calculator.setMaxAvailableRect(QRect(1, 2, 3, 4));
    QCOMPARE(calculator.Widget(), &popup);
    QCOMPARE(calculator.RefWidget(), &reference);
    QCOMPARE(calculator.RefWiget(), QPoint(3, 4));
    QCOMPARE(calculator.BaseOffset(), -7);
    QCOMPARE(calculator.Alignment(), EWidgetsAlign::AlignEnd);
    QCOMPARE(calculator.AdditionalOffset(), QPoint(5, 6));
    QVERIFY(calculator.data().calcGlobalPos);
    QCOMPARE(calculator.data().maxAvailableRect, QRect(1, 2, 3, 4));
    QCOMPARE(popup.pos(), QPoint(0, 0));
    QVERIFY(popup.isHidden());
}

void WidgetPosCalculatorTest::virtualOperationsStandInOrder()
{
    using Solve =
        bool (WidgetPosCalculator::*)(QPoint &, const QRect &, bool, const QPoint &) const;
    const Solve solve = &WidgetPosCalculator::GetPosition;
    QVERIFY(Lumo::Test::standInThisOrder(solve, &WidgetPosCalculator::Initialize,
                                         &WidgetPosCalculator::VerifyPosition));
    WidgetPosCalculator().Initialize();
}

void WidgetPosCalculatorTest::subclassBringsItsOwnPrivatePart()
{
    class FarPrivate : public WidgetPosCalculatorPrivate
    {
    public:
        explicit FarPrivate(bool *ended)
            : m_ended(ended)
        {
            baseOffset = 99;
        }
        ~FarPrivate() override { *m_ended = true; }

    private:
        bool *const m_ended;
    };
    class FarCalculator : public WidgetPosCalculator
    {
    public:
        FarCalculator(FarPrivate &dd, QObject *parent)
            : WidgetPosCalculator(dd, parent)
        { }
    };
    bool hasEnded = false;
    {
        QObject owner;
        auto d = std::make_unique<FarPrivate>(&hasEnded);
        const auto *const calculator = new FarCalculator(*d.release(), &owner);
        QCOMPARE(calculator->BaseOffset(), 99);
        QCOMPARE(calculator->parent(), &owner);
    }
    QVERIFY(hasEnded);
}

void WidgetPosCalculatorTest::directionIsCompleted_data()
{
    QTest::addColumn<EDirection>("direction");
    QTest::addColumn<Directions>("completed");
    QTest::newRow("left") << Left << Directions {Left, Right, Top, Bottom};
    QTest::newRow("top") << Top << Directions {Top, Bottom, Left, Right};
    QTest::newRow("right") << Right << Directions {Right, Left, Top, Bottom};
    QTest::newRow("bottom") << Bottom << Directions {Bottom, Top, Left, Right};
    QTest::newRow("none") << NoDirection << Directions {Left, Top, Right, Bottom};
}

void WidgetPosCalculatorTest::directionIsCompleted()
{
    QFETCH(EDirection, direction);
    WidgetPosCalculator calculator;
    calculator.SetDirection(direction);
    QTEST(calculator.Directions(), "completed");
    QCOMPARE(calculator.Direction(), direction);
    calculator.SetDirection(Top);
    calculator.SetDirection(direction);
    QTEST(calculator.Directions(), "completed");
}

void WidgetPosCalculatorTest::directionsAreCompleted_data()
{
    QTest::addColumn<Directions>("given");
    QTest::addColumn<Directions>("completed");
    QTest::newRow("none given") << Directions {} << Directions {Left, Top, Right, Bottom};
    QTest::newRow("right, top") << Directions {Right, Top} << Directions {Right, Top, Left, Bottom};
    QTest::newRow("bottom, left") << Directions {Bottom, Left}
                                  << Directions {Bottom, Left, Right, Top};
    QTest::newRow("top, bottom") << Directions {Top, Bottom}
                                 << Directions {Top, Bottom, Left, Right};
    QTest::newRow("all") << Directions {Bottom, Right, Top, Left}
                         << Directions {Bottom, Right, Top, Left};
    QTest::newRow("without direction") << Directions {NoDirection, Right, NoDirection, NoDirection}
                                       << Directions {Right, Left, Top, Bottom};
    QTest::newRow("twice") << Directions {Top, Top} << Directions {Top, Top, Bottom, Left, Right};
    QTest::newRow("unknown") << Directions {EDirection(9)}
                             << Directions {EDirection(9), Left, Top, Right, Bottom};
}

void WidgetPosCalculatorTest::directionsAreCompleted()
{
    QFETCH(Directions, given);
    QFETCH(Directions, completed);
    WidgetPosCalculator calculator;
    calculator.SetDirections(given);
    QCOMPARE(calculator.Directions(), completed);
    QCOMPARE(calculator.Direction(), completed.first());
}

void WidgetPosCalculatorTest::directionIgnoresItsIndex()
{
    WidgetPosCalculator calculator;
    calculator.SetDirection(Right);
    for (const int index : {0, 1, 5, -1, Largest})
        QCOMPARE(calculator.Direction(index), Right);
}

void WidgetPosCalculatorTest::noPopupOrReferenceIsRefused()
{
    QWidget popup;
    QWidget reference;
    OpenCalculator calculator;
    QPoint result(7, 8);
    QVERIFY(!calculator.GetPosition(result, QRect(0, 0, 5, 5), false, QPoint()));
    calculator.SetRefWidget(&reference);
    QVERIFY(!calculator.GetPosition(result, QRect(0, 0, 5, 5), false, QPoint()));
    QRect area(1, 2, 3, 4);
    QVERIFY(!calculator.GetMaxAvailableMovingArea(area));
    QCOMPARE(area, QRect(1, 2, 3, 4));
    calculator.SetWidget(&popup);
    calculator.SetRefWidget(nullptr);
    QVERIFY(!calculator.GetPosition(result, QRect(0, 0, 5, 5), false, QPoint()));
    QVERIFY(!calculator.GetPosition(result, QRect(0, 0, 5, 5), true, QPoint()));
    QRect geometry(1, 2, 3, 4);
    QVERIFY(!calculator.GetRefGeometry(geometry));
    QCOMPARE(geometry, QRect(1, 2, 3, 4));
    QCOMPARE(result, QPoint(7, 8));
    calculator.SetRefPoint(QPoint(0, 0));
    QVERIFY(calculator.GetPosition(result, QRect(0, 0, 5, 5), false, QPoint()));
}

void WidgetPosCalculatorTest::deadWidgetsAreRefused()
{
    Scene scene;
    QPoint result(7, 8);
    delete scene.button;
    QVERIFY(!scene.calculator.RefWidget());
    QVERIFY(!scene.calculator.GetPosition(result, QRect(), false, QPoint()));
    scene.calculator.SetRefPoint(QPoint(1, 1));
    delete scene.popup;
    QVERIFY(!scene.calculator.Widget());
    QVERIFY(!scene.calculator.GetPosition(result, QRect(), false, QPoint()));
    QCOMPARE(result, QPoint(7, 8));
}

void WidgetPosCalculatorTest::referencePointIsASquare()
{
    Scene scene;
    scene.calculator.SetRefPoint(QPoint(100, 200));
    QRect geometry;
    QVERIFY(scene.calculator.GetRefGeometry(geometry));
    QCOMPARE(geometry, QRect(97, 197, 7, 7));
    scene.calculator.SetDirection(Bottom);
    QCOMPARE(scene.solve(), QPoint(97 + (7 - 100) / 2, 203 + 10));
    scene.calculator.SetDirection(Left);
    QCOMPARE(scene.solve(), QPoint(97 - 10 - 100, 197 + (7 - 80) / 2));
    // It is taken as it stands.
    scene.calculator.setCalcGlobalPos(true);
    QVERIFY(scene.calculator.GetRefGeometry(geometry));
    QCOMPARE(geometry, QRect(97, 197, 7, 7));
}

void WidgetPosCalculatorTest::referenceWidgetInTheParent()
{
    Scene scene;
    QRect geometry;
    QVERIFY(scene.calculator.GetRefGeometry(geometry));
    QCOMPARE(geometry, QRect(300, 200, 60, 40));
    // Each may stand in another widget.
    QWidget left(&scene.window);
    left.move(10, 20);
    scene.button->setParent(&left);
    scene.button->move(3, 4);
    QWidget right(&scene.window);
    right.move(100, 200);
    scene.popup->setParent(&right);
    QVERIFY(scene.calculator.GetRefGeometry(geometry));
    QCOMPARE(geometry, QRect(13 - 100, 24 - 200, 60, 40));
}

void WidgetPosCalculatorTest::referenceWidgetGlobally()
{
    Scene scene;
    scene.calculator.setCalcGlobalPos(true);
    QRect geometry;
    QVERIFY(scene.calculator.GetRefGeometry(geometry));
    QCOMPARE(geometry, QRect(400, 250, 60, 40));
}

void WidgetPosCalculatorTest::popupWithoutParentIsGlobal()
{
    Scene scene;
    QWidget popup;
    scene.calculator.SetWidget(&popup);
    QRect geometry;
    QVERIFY(scene.calculator.GetRefGeometry(geometry));
    QCOMPARE(geometry, QRect(400, 250, 60, 40));
}

void WidgetPosCalculatorTest::areaIsInset()
{
    Scene scene;
    QRect area;
    scene.calculator.setMaxAvailableRect(QRect(10, 20, 500, 400));
    QVERIFY(scene.calculator.GetMaxAvailableMovingArea(area));
    QCOMPARE(area, QRect(40, 50, 440, 340));
    // One smaller than the insets is turned inside out, and holds nothing.
    scene.calculator.setMaxAvailableRect(QRect(10, 20, 5, 5));
    QVERIFY(scene.calculator.GetMaxAvailableMovingArea(area));
    QCOMPARE(area, QRect(QPoint(40, 50), QPoint(-16, -6)));
    QPoint adjust;
    QVERIFY(!scene.calculator.VerifyPosition(QPoint(11, 21), QRect(0, 0, 1, 1), adjust));
}

void WidgetPosCalculatorTest::areaOfTheActiveWindow()
{
    Scene scene;
    QRect area(1, 2, 3, 4);
    for (const QRect &unset :
         {QRect(), QRect(50, 60, 0, 0), QRect(50, 60, 10, 0), QRect(50, 60, -3, 10)}) {
        scene.calculator.setMaxAvailableRect(unset);
        QVERIFY(!QApplication::activeWindow());
        QVERIFY(!scene.calculator.GetMaxAvailableMovingArea(area));
    }
    QCOMPARE(area, QRect(1, 2, 3, 4));
    scene.window.show();
    scene.window.activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &scene.window);
    QVERIFY(scene.calculator.GetMaxAvailableMovingArea(area));
    QCOMPARE(area, QRect(30, 30, 740, 540));
    // A rectangle of one's own comes first.
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 100, 100));
    QVERIFY(scene.calculator.GetMaxAvailableMovingArea(area));
    QCOMPARE(area, QRect(30, 30, 40, 40));
}

void WidgetPosCalculatorTest::areaLeavesRoomForSubWidgets()
{
    Scene scene;
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 1000, 1000));
    scene.window.show();
    QVariantList entries;
    const auto add = [&](const QVariant &direction, const QSize &size, bool visible) {
        auto *const widget = new QWidget(&scene.window);
        widget->resize(size);
        widget->setVisible(visible);
        widget->setProperty("direction_to", direction);
        entries << QVariant::fromValue(widget);
        scene.popup->setProperty("sub_widgets", entries);
        QRect area;
        scene.calculator.GetMaxAvailableMovingArea(area);
        return QMargins(area.left(), area.top(), 999 - area.right(), 999 - area.bottom());
    };
    const auto value = [](EDirection direction) { return QVariant::fromValue(direction); };
    QCOMPARE(add(value(Left), QSize(100, 1), true), QMargins(130, 30, 30, 30));
    QCOMPARE(add(value(Left), QSize(100, 1), false), QMargins(130, 30, 30, 30));
    QCOMPARE(add(value(Top), QSize(1, 20), true), QMargins(130, 50, 30, 30));
    QCOMPARE(add(value(Right), QSize(40, 1), true), QMargins(130, 50, 70, 30));
    QCOMPARE(add(value(Bottom), QSize(1, 50), true), QMargins(130, 50, 70, 80));
    QCOMPARE(add(value(NoDirection), QSize(9, 9), true), QMargins(130, 50, 70, 80));
    QCOMPARE(add(77, QSize(9, 9), true), QMargins(130, 50, 70, 80));
    QCOMPARE(add(int(Bottom), QSize(1, 6), true), QMargins(130, 50, 70, 86));
    QCOMPARE(add(QStringLiteral("beside"), QSize(5, 1), true), QMargins(135, 50, 70, 86));
    QCOMPARE(add(QVariant(), QSize(6, 1), true), QMargins(141, 50, 70, 86));
    QCOMPARE(add(value(Left), QSize(3, 1), true), QMargins(144, 50, 70, 86));
}

void WidgetPosCalculatorTest::areaLeavesRoomForSubWidgetsOfTheContent()
{
    ArrowScene scene;
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 1000, 1000));
    scene.window.show();
    QWidget side(&scene.window);
    side.resize(100, 10);
    side.show();
    side.setProperty("direction_to", QVariant::fromValue(Left));
    const QVariantList entries {QVariant::fromValue(&side)};
    // Those of the window itself do not count.
    scene.popup->setProperty("sub_widgets", entries);
    QRect area;
    QVERIFY(scene.calculator.GetMaxAvailableMovingArea(area));
    QCOMPARE(area.left(), 30);
    scene.content->setProperty("sub_widgets", entries);
    QVERIFY(scene.calculator.GetMaxAvailableMovingArea(area));
    QCOMPARE(area.left(), 130);
    scene.popup->DetachWidget();
    QVERIFY(scene.calculator.GetMaxAvailableMovingArea(area));
    QCOMPARE(area.left(), 30);
}

void WidgetPosCalculatorTest::areaIgnoresWhatIsNoSubWidget()
{
    Scene scene;
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 1000, 1000));
    scene.popup->setProperty("another", 5);
    for (const QVariant &value :
         {QVariant(7), QVariant(QStringLiteral("text")), QVariant(QVariantList()),
          QVariant(QVariantList {QVariant(), 5, QVariant::fromValue<QWidget *>(nullptr)})}) {
        scene.popup->setProperty("sub_widgets", value);
        QRect area;
        QVERIFY(scene.calculator.GetMaxAvailableMovingArea(area));
        QCOMPARE(area, QRect(30, 30, 940, 940));
    }
}

void WidgetPosCalculatorTest::positionsInsideTheAreaAreGood()
{
    Scene scene;
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 300, 200));
    const QRect popup(0, 0, 100, 80);
    for (const QPoint &corner :
         {QPoint(30, 30), QPoint(170, 30), QPoint(30, 90), QPoint(170, 90)}) {
        QPoint adjust(7, 8);
        QVERIFY(scene.calculator.VerifyPosition(corner, popup, adjust));
        QCOMPARE(adjust, QPoint(7, 8));
    }
    for (const QPoint &past : {QPoint(29, 30), QPoint(30, 29), QPoint(171, 30), QPoint(30, 91)}) {
        QPoint adjust;
        QVERIFY(!scene.calculator.VerifyPosition(past, popup, adjust));
    }
    QPoint adjust;
    QVERIFY(scene.calculator.VerifyPosition(QPoint(25, 20), QRect(5, 10, 100, 80), adjust));
}

void WidgetPosCalculatorTest::overflowTellsTheSlide_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("slide");
    // The area is 30..469 by 30..369.
    QTest::newRow("left") << QPoint(10, 50) << QSize(200, 100) << QPoint(-20, 0);
    QTest::newRow("left, far") << QPoint(-500, 50) << QSize(200, 100) << QPoint(-130, 0);
    QTest::newRow("right") << QPoint(300, 50) << QSize(200, 100) << QPoint(30, 0);
    QTest::newRow("right, far") << QPoint(900, 50) << QSize(200, 100) << QPoint(130, 0);
    QTest::newRow("right, by 50 at most 30") << QPoint(420, 50) << QSize(100, 100) << QPoint(30, 0);
    QTest::newRow("top") << QPoint(50, 5) << QSize(200, 100) << QPoint(0, -25);
    QTest::newRow("top, far") << QPoint(50, -300) << QSize(200, 100) << QPoint(0, -30);
    QTest::newRow("bottom") << QPoint(50, 280) << QSize(200, 100) << QPoint(0, 10);
    QTest::newRow("bottom, far") << QPoint(50, 700) << QSize(200, 100) << QPoint(0, 30);
    QTest::newRow("left before right") << QPoint(0, 50) << QSize(600, 100) << QPoint(-30, 0);
    QTest::newRow("right before top") << QPoint(300, 0) << QSize(200, 100) << QPoint(30, 0);
    QTest::newRow("top before bottom") << QPoint(50, 0) << QSize(200, 500) << QPoint(0, -30);
    QTest::newRow("narrow, left") << QPoint(0, 50) << QSize(60, 100) << QPoint(10, 0);
    QTest::newRow("narrow, right") << QPoint(450, 50) << QSize(60, 100) << QPoint(-10, 0);
    QTest::newRow("low, top") << QPoint(50, 0) << QSize(200, 20) << QPoint(0, 50);
    QTest::newRow("low, bottom") << QPoint(50, 390) << QSize(200, 20) << QPoint(0, -50);
}

void WidgetPosCalculatorTest::overflowTellsTheSlide()
{
    QFETCH(QPoint, position);
    QFETCH(QSize, size);
    Scene scene;
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 500, 400));
    QPoint adjust;
    QVERIFY(!scene.calculator.VerifyPosition(position, QRect(QPoint(0, 0), size), adjust));
    QTEST(adjust, "slide");
}

void WidgetPosCalculatorTest::withoutAreaEverythingIsGood()
{
    Scene scene;
    scene.calculator.setMaxAvailableRect(QRect());
    QVERIFY(!QApplication::activeWindow());
    QPoint adjust(7, 8);
    QVERIFY(scene.calculator.VerifyPosition(QPoint(-5000, 9000), QRect(0, 0, 10, 10), adjust));
    QCOMPARE(adjust, QPoint(7, 8));
    scene.button->move(-5000, 9000);
    scene.calculator.SetDirection(Left);
    QCOMPARE(scene.solve(), QPoint(-5110, 8980));
    QCOMPARE(scene.calculator.Direction(), Left);
    QVERIFY(OpenCalculator().VerifyPosition(QPoint(), QRect(), adjust));
}

void WidgetPosCalculatorTest::plainCandidates_data()
{
    QTest::addColumn<EDirection>("direction");
    QTest::addColumn<EWidgetsAlign>("alignment");
    QTest::addColumn<QPoint>("position");
    const auto start = EWidgetsAlign::AlignStart;
    const auto centre = EWidgetsAlign::AlignCenter;
    const auto end = EWidgetsAlign::AlignEnd;
    // The reference covers 300..359 by 200..239, the popup has 100 by 80.
    QTest::newRow("left, start") << Left << start << QPoint(190, 200);
    QTest::newRow("left, centre") << Left << centre << QPoint(190, 180);
    QTest::newRow("left, end") << Left << end << QPoint(190, 159);
    QTest::newRow("top, start") << Top << start << QPoint(300, 110);
    QTest::newRow("top, centre") << Top << centre << QPoint(280, 110);
    QTest::newRow("top, end") << Top << end << QPoint(259, 110);
    QTest::newRow("right, start") << Right << start << QPoint(369, 200);
    QTest::newRow("right, centre") << Right << centre << QPoint(369, 180);
    QTest::newRow("right, end") << Right << end << QPoint(369, 159);
    QTest::newRow("bottom, start") << Bottom << start << QPoint(300, 249);
    QTest::newRow("bottom, centre") << Bottom << centre << QPoint(280, 249);
    QTest::newRow("bottom, end") << Bottom << end << QPoint(259, 249);
}

void WidgetPosCalculatorTest::plainCandidates()
{
    QFETCH(EDirection, direction);
    QFETCH(EWidgetsAlign, alignment);
    Scene scene;
    scene.calculator.SetDirection(direction);
    scene.calculator.SetAlignment(alignment);
    QTEST(scene.solve(), "position");
    QCOMPARE(scene.calculator.Direction(), direction);
}

void WidgetPosCalculatorTest::onlyTheSizeOfThePopupCounts()
{
    Scene scene;
    const QPoint expected = scene.solve();
    QCOMPARE(scene.solve(false, QRect(0, 0, 100, 80)), expected);
    QCOMPARE(scene.solve(false, QRect(-500, 70, 100, 80)), expected);
    QCOMPARE(scene.solve(false, QRect(5, 5, 0, 30)), expected);
    QCOMPARE(scene.solve(false, QRect(0, 0, 120, 80)), expected - QPoint(10, 0));
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 800, 600));
    QCOMPARE(scene.solve(false, QRect(-5000, 7000, 100, 80)), expected);
}

void WidgetPosCalculatorTest::firstFittingDirectionIsTaken()
{
    Scene scene;
    scene.calculator.SetDirections({Top, Left, Bottom});
    scene.calculator.setMaxAvailableRect(QRect(0, 100, 800, 500));
    QCOMPARE(scene.solve(), QPoint(190, 180));
    QCOMPARE(scene.calculator.Direction(), Left);
    scene.calculator.setMaxAvailableRect(QRect(200, 100, 600, 500));
    QCOMPARE(scene.solve(), QPoint(280, 249));
    QCOMPARE(scene.calculator.Direction(), Bottom);
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 800, 600));
    QCOMPARE(scene.solve(), QPoint(280, 110));
    QCOMPARE(scene.calculator.Direction(), Top);
}

void WidgetPosCalculatorTest::lastDirectionStandsWhenNothingFits()
{
    Scene scene;
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 70, 70));
    QCOMPARE(scene.solve(), QPoint(280, 110));
    QCOMPARE(scene.calculator.Direction(), Top);
    scene.calculator.SetDirection(Top);
    QCOMPARE(scene.solve(), QPoint(369, 180));
    QCOMPARE(scene.calculator.Direction(), Right);
}

void WidgetPosCalculatorTest::additionalOffsetIsAddedToEachCandidate()
{
    Scene scene;
    scene.calculator.SetAdditionalOffset(QPoint(3, -40));
    QCOMPARE(scene.solve(), QPoint(283, 70));
    scene.calculator.SetDirection(Top);
    scene.calculator.setMaxAvailableRect(QRect(0, 41, 800, 600));
    QCOMPARE(scene.solve(), QPoint(283, 209));
    QCOMPARE(scene.calculator.Direction(), Bottom);
}

void WidgetPosCalculatorTest::unknownAlignmentLeavesTheAxis()
{
    Scene scene;
    scene.calculator.SetAlignment(EWidgetsAlign(5));
    scene.calculator.SetAdditionalOffset(QPoint(3, 4));
    scene.calculator.SetDirections({Top, Left});
    QCOMPARE(scene.solve(), QPoint(3, 114));
    // The one before it has been tried and has left its mark on the other axis.
    scene.calculator.setMaxAvailableRect(QRect(100, 50, 900, 900));
    QCOMPARE(scene.solve(), QPoint(193, 118));
}

void WidgetPosCalculatorTest::unknownDirectionKeepsTheCandidate()
{
    Scene scene;
    scene.calculator.SetAdditionalOffset(QPoint(3, 4));
    scene.calculator.data().directions = {EDirection(9)};
    QCOMPARE(scene.solve(), QPoint(3, 4));
    scene.calculator.data().directions = {Top, NoDirection, EDirection(9)};
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 61, 61));
    QCOMPARE(scene.solve(), QPoint(280 + 9, 110 + 12));
    QCOMPARE(scene.calculator.Direction(), EDirection(9));
    scene.calculator.data().directions.clear();
    QCOMPARE(scene.solve(), QPoint(0, 0));
}

void WidgetPosCalculatorTest::subclassDecidesWhatFits()
{
    Scene scene;
    PickyCalculator picky(2);
    picky.SetWidget(scene.popup);
    picky.SetRefWidget(scene.button);
    picky.SetDirection(Top);
    QPoint result;
    QVERIFY(static_cast<WidgetPosCalculator &>(picky).GetPosition(result, QRect(9, 9, 100, 80),
                                                                  false, QPoint()));
    QCOMPARE(result, QPoint(190, 180));
    QCOMPARE(picky.Direction(), Left);
    const QSize size(100, 80);
    const QList<QRect> expected {QRect(QPoint(280, 110), size), QRect(QPoint(280, 249), size),
                                 QRect(QPoint(190, 180), size)};
    QCOMPARE(picky.seen, expected);
}

void WidgetPosCalculatorTest::plainSolvesEqualTheReference()
{
    Dice dice(61);
    Scene scene;
    for (int i = 0; i < 20000; ++i) {
        const QRect reference(dice.roll(-50, 700), dice.roll(-50, 500), dice.roll(0, 90),
                              dice.roll(0, 90));
        const QSize size(dice.roll(1, 300), dice.roll(1, 300));
        const QRect area(dice.roll(-50, 100), dice.roll(-50, 100), dice.roll(61, 800),
                         dice.roll(61, 700));
        Directions directions {EDirection(dice.roll(0, 4))};
        if (dice.flip())
            directions << EDirection(dice.roll(0, 3));
        scene.button->setGeometry(reference);
        scene.calculator.SetDirections(directions);
        scene.calculator.SetAlignment(EWidgetsAlign(dice.roll(0, 3)));
        scene.calculator.SetBaseOffset(dice.roll(-10, 30));
        scene.calculator.SetAdditionalOffset(QPoint(dice.roll(-9, 9), dice.roll(-9, 9)));
        scene.calculator.setMaxAvailableRect(area);
        EDirection last = NoDirection;
        const QPoint expected = referencePlain(
            reference, size, scene.calculator.Directions(), scene.calculator.BaseOffset(),
            scene.calculator.Alignment(), scene.calculator.AdditionalOffset(), area, last);
        QCOMPARE(scene.solve(false, QRect(QPoint(i, -i), size)), expected);
        QCOMPARE(scene.calculator.Direction(), last);
    }
}

void WidgetPosCalculatorTest::candidatesOfOneArrow()
{
    OpenCalculator calculator;
    calculator.SetDirection(Bottom);
    SArrowParam given {EArrowPosition::TopLeft, 15, true, 180, 70, false, 20, QPoint(1, 2)};
    calculator.PrepareArrowParamPairs({given}, true);
    QList<Candidate> expected {{given, Right}};
    SArrowParam made = given;
    made.offset = 0;
    made.customAngle = false;
    const auto add = [&](EDirection direction, std::initializer_list<EArrowPosition> positions) {
        for (const EArrowPosition position : positions) {
            made.position = position;
            expected << Candidate(made, direction);
        }
    };
    using P = EArrowPosition;
    add(Bottom, {P::Top, P::TopLeft, P::TopRight});
    add(Top, {P::Bottom, P::BottomLeft, P::BottomRight});
    add(Left, {P::Right, P::TopRight, P::BottomRight});
    add(Right, {P::Left, P::TopLeft, P::BottomLeft});
    expected << Candidate(given, Right);
    QVERIFY(calculator.candidates() == expected);
    // Again, and with other directions, and what was tried is forgotten.
    calculator.PrepareArrowParamPairs({given}, true);
    QVERIFY(calculator.candidates() == expected);
    calculator.SetDirection(Top);
    calculator.PrepareArrowParamPairs({given}, true);
    QCOMPARE(calculator.candidates().at(1).second, Top);
    QCOMPARE(calculator.candidates().size(), 14);
    calculator.PrepareArrowParamPairs({given}, false);
    QCOMPARE(calculator.candidates().size(), 1);
}

void WidgetPosCalculatorTest::candidatesWithoutAutoDecide()
{
    OpenCalculator calculator;
    calculator.PrepareArrowParamPairs({arrowAt(EArrowPosition::Left)}, false);
    QVERIFY((calculator.candidates() == QList<Candidate> {{arrowAt(EArrowPosition::Left), Right}}));
    calculator.PrepareArrowParamPairs(
        {arrowAt(EArrowPosition::Left), arrowAt(EArrowPosition::Bottom)}, false);
    QVERIFY((calculator.candidates()
             == QList<Candidate> {{arrowAt(EArrowPosition::Left), Right},
                                  {arrowAt(EArrowPosition::Bottom), Top},
                                  {arrowAt(EArrowPosition::Left), Right}}));
    calculator.PrepareArrowParamPairs({}, false);
    QVERIFY(calculator.candidates().isEmpty());
}

void WidgetPosCalculatorTest::candidatesOfManyArrows()
{
    using P = EArrowPosition;
    OpenCalculator calculator;
    QList<SArrowParam> params;
    for (const P position : {P::Top, P::Bottom, P::Left, P::Right, P::TopLeft, P::TopRight,
                             P::BottomRight, P::BottomLeft, P::None, P(9), P(-3)})
        params << arrowAt(position);
    calculator.PrepareArrowParamPairs(params, false);
    const Directions expected {Bottom, Top, Right, Left, Right, Left, Left, Right, Bottom};
    QCOMPARE(calculator.candidates().size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        QCOMPARE(calculator.candidates().at(i).second, expected.at(i));
        QCOMPARE(calculator.candidates().at(i).first.position, params.at(i % 8).position);
    }
    // The list of a fresh calculator holds one direction.
    calculator.PrepareArrowParamPairs(params, true);
    QCOMPARE(calculator.candidates().size(), 8 + 3 + 1);
}

void WidgetPosCalculatorTest::candidatesWithoutAnyArrow()
{
    OpenCalculator calculator;
    calculator.data().directions = {NoDirection, EDirection(8), Left};
    calculator.PrepareArrowParamPairs({}, true);
    using P = EArrowPosition;
    QList<Candidate> expected;
    for (const P position : {P::Right, P::TopRight, P::BottomRight, P::Right})
        expected << Candidate(arrowAt(position), Left);
    QVERIFY(calculator.candidates() == expected);
    calculator.data().directions.clear();
    calculator.PrepareArrowParamPairs({}, true);
    QVERIFY(calculator.candidates().isEmpty());
}

void WidgetPosCalculatorTest::arrowCandidateEqualsTheReference()
{
    Dice dice(62);
    OpenCalculator calculator;
    for (int position = -1; position <= 9; ++position) {
        for (int direction = -1; direction <= 5; ++direction) {
            for (const bool custom : {false, true}) {
                calculator.SetBaseOffset(dice.roll(-20, 20));
                const QRect reference(dice.roll(-99, 99), dice.roll(-99, 99), dice.roll(0, 99),
                                      dice.roll(0, 99));
                const QSize size(dice.roll(1, 300), dice.roll(1, 300));
                const QPoint apex(dice.roll(-9, 300), dice.roll(-9, 300));
                SArrowParam arrow = arrowAt(EArrowPosition(position));
                arrow.customAngle = custom;
                const Candidate candidate(arrow, EDirection(direction));
                QCOMPARE(
                    calculator.GetPosition(candidate, reference, QRect(QPoint(0, 0), size), apex),
                    referenceCandidate(arrow.position, custom, candidate.second, reference, size,
                                       apex, calculator.BaseOffset()));
            }
        }
    }
}

void WidgetPosCalculatorTest::arrowIsPlacedAtTheReference_data()
{
    QTest::addColumn<EArrowPosition>("position");
    QTest::addColumn<EDirection>("direction");
    QTest::addColumn<QPoint>("apex");
    // Where the apex comes to point to: 10 pixels beside the button, which covers 300..359 by
    // 200..239.
    QTest::newRow("top") << EArrowPosition::Top << Bottom << QPoint(329, 249);
    QTest::newRow("bottom") << EArrowPosition::Bottom << Top << QPoint(329, 189);
    QTest::newRow("left") << EArrowPosition::Left << Right << QPoint(369, 219);
    QTest::newRow("right") << EArrowPosition::Right << Left << QPoint(289, 219);
    QTest::newRow("top left") << EArrowPosition::TopLeft << Right << QPoint(369, 249);
    QTest::newRow("top right") << EArrowPosition::TopRight << Left << QPoint(289, 249);
}

void WidgetPosCalculatorTest::arrowIsPlacedAtTheReference()
{
    QFETCH(EArrowPosition, position);
    QFETCH(QPoint, apex);
    ArrowScene scene;
    scene.popup->SetArrow(position, 10, false, 0, 90, true, 0);
    const QPoint place = scene.solve();
    QCOMPARE(place + scene.popup->GetArrowPoint(), apex);
    QTEST(scene.calculator.Direction(), "direction");
    QVERIFY(!scene.popup->isVisible());
    QCOMPARE(scene.popup->pos(), QPoint(0, 0));
}

void WidgetPosCalculatorTest::overflowingArrowIsSlid_data()
{
    QTest::addColumn<EArrowPosition>("position");
    QTest::addColumn<QRect>("area");
    QTest::addColumn<bool>("alongX");
    QTest::addColumn<int>("offset");
    // The window stands at 224..436 by 84..200 for the bottom arrow.
    QTest::newRow("left") << EArrowPosition::Bottom << QRect(209, 0, 900, 900) << true << -15;
    QTest::newRow("right") << EArrowPosition::Bottom << QRect(0, 0, 449, 900) << true << 18;
    QTest::newRow("top") << EArrowPosition::Right << QRect(0, 145, 900, 900) << false << -11;
    QTest::newRow("bottom") << EArrowPosition::Left << QRect(0, 0, 900, 280) << false << 27;
}

void WidgetPosCalculatorTest::overflowingArrowIsSlid()
{
    QFETCH(EArrowPosition, position);
    QFETCH(QRect, area);
    ArrowScene scene;
    scene.popup->SetArrow(position, 10, false, 0, 90, true, 0);
    const QPoint wanted = scene.solve() + scene.popup->GetArrowPoint();
    scene.calculator.setMaxAvailableRect(area);
    const QPoint place = scene.solve();
    QTEST(scene.arrow().offset, "offset");
    QTEST(scene.arrow().offsetAlongX, "alongX");
    // The apex still points to the same place, and the window is inside now.
    QCOMPARE(place + scene.popup->GetArrowPoint(), wanted);
    QVERIFY(fits(place, scene.popup->size(), area));
}

void WidgetPosCalculatorTest::slideIsLimited()
{
    ArrowScene scene(QSize(87, 60));
    scene.popup->SetArrow(EArrowPosition::Bottom, 10, false, 0, 90, true, 0);
    const QPoint free = scene.solve();
    QCOMPARE(scene.popup->width(), 100);
    // It overflows by 50 and may slide by 30.
    scene.calculator.setMaxAvailableRect(QRect(0, 0, free.x() + 100 + 30 - 50, 900));
    const QPoint place = scene.solve();
    QCOMPARE(scene.arrow().offset, 30);
    QCOMPARE(place, free - QPoint(30, 0));
    QCOMPARE(scene.calculator.Direction(), Top);
}

void WidgetPosCalculatorTest::narrowPopupSlidesTheOtherWay()
{
    ArrowScene scene(QSize(47, 60));
    scene.popup->SetArrow(EArrowPosition::Bottom, 10, false, 0, 90, true, 0);
    const QPoint free = scene.solve();
    QCOMPARE(scene.popup->width(), 60);
    scene.calculator.setMaxAvailableRect(QRect(0, 0, free.x() + 60 + 30 - 5, 900));
    QCOMPARE(scene.solve(), free + QPoint(10, 0));
    QCOMPARE(scene.arrow().offset, -10);
}

void WidgetPosCalculatorTest::firstArrowWinsEvenWhenItOverflows()
{
    ArrowScene scene;
    scene.popup->SetArrow(EArrowPosition::Bottom, 10, false, 0, 90, true, 0);
    scene.popup->AddArrow(arrowAt(EArrowPosition::Top));
    scene.calculator.SetDirection(Bottom);
    // There is no room above and all of it below.
    scene.calculator.setMaxAvailableRect(QRect(0, 190, 900, 900));
    const QPoint place = scene.solve();
    QCOMPARE(scene.calculator.Direction(), Top);
    QCOMPARE(scene.arrow().position, EArrowPosition::Bottom);
    QVERIFY(place.y() < 190);
    QCOMPARE(scene.calculator.candidates().size(), 2 + 12 + 1);
}

void WidgetPosCalculatorTest::slidArrowIsOnOfferAfterwards()
{
    ArrowScene scene;
    scene.popup->SetArrow(EArrowPosition::Bottom, 10, false, 0, 90, true, 0);
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 449, 900));
    const QPoint place = scene.solve();
    QCOMPARE(scene.popup->GetArrowParams().size(), 2);
    QCOMPARE(scene.popup->GetArrowParams().last().offset, 18);
    QCOMPARE(scene.solve(), place);
    QCOMPARE(scene.popup->GetArrowParams().size(), 2);
    // With room again the one that was offered first comes back.
    scene.calculator.setMaxAvailableRect(Everywhere);
    QVERIFY(scene.solve() != place);
    QCOMPARE(scene.arrow().offset, 0);
}

void WidgetPosCalculatorTest::arrowSolveWithoutContentTriesAll()
{
    ArrowScene scene;
    scene.calculator.SetDirection(Left);
    const std::unique_ptr<QWidget> content(scene.popup->DetachWidget());
    QCOMPARE(scene.solve(), QPoint(0, 0));
    // The last candidate is the first once more.
    QCOMPARE(scene.calculator.Direction(), Top);
}

void WidgetPosCalculatorTest::arrowModeNeedsAnArrowedWindow()
{
    const Scene scene;
    QCOMPARE(scene.solve(true), QPoint(0, 0));
}

void WidgetPosCalculatorTest::arrowSolvesEqualTheReference()
{
    Dice dice(63);
    ArrowScene scene;
    for (int i = 0; i < 3000; ++i) {
        const QRect content(QPoint(0, 0), QSize(dice.roll(20, 250), dice.roll(20, 200)));
        const QRect reference(dice.roll(0, 700), dice.roll(0, 500), dice.roll(1, 90),
                              dice.roll(1, 90));
        const QRect area(dice.roll(-50, 50), dice.roll(-50, 50), dice.roll(200, 900),
                         dice.roll(200, 700));
        const int base = dice.roll(0, 15);
        SArrowParam arrow {EArrowPosition(dice.roll(1, 8)),
                           dice.roll(6, 25),
                           dice.flip(),
                           dice.roll(0, 359),
                           90,
                           dice.flip(),
                           dice.flip() ? dice.roll(-60, 60) : 0,
                           QPoint()};
        scene.content->setFixedSize(content.size());
        scene.button->setGeometry(reference);
        scene.popup->SetArrow(arrow);
        scene.calculator.SetBaseOffset(base);
        scene.calculator.setMaxAvailableRect(area);

        static const std::array<EDirection, 9> sides {NoDirection, Bottom, Top,  Right, Left,
                                                      Right,       Left,   Left, Right};
        const EDirection direction = sides.at(std::size_t(arrow.position));
        arrow = referenceArrow(arrow, content);
        ReferenceLayout layout = referenceLayout(arrow, content, 0, 1, 5);
        const auto place = [&] {
            return referenceCandidate(arrow.position, arrow.customAngle, direction, reference,
                                      layout.size, layout.arrowPoint, base);
        };
        QPoint expected = place();
        if (!fits(expected, layout.size, area)) {
            const QRect inner = area.adjusted(30, 30, -30, -30);
            const QRect t(expected, layout.size);
            const bool isSideways = t.left() < inner.left() || t.right() > inner.right();
            const int limit = (isSideways ? t.width() : t.height()) - 70;
            arrow.offsetAlongX = true;
            if (t.left() < inner.left())
                arrow.offset -= std::min(limit, inner.left() - t.left());
            else if (t.right() > inner.right())
                arrow.offset += std::min(limit, t.right() - inner.right());
            else if (t.top() < inner.top())
                arrow.offset -= std::min(limit, inner.top() - t.top());
            else
                arrow.offset += std::min(limit, t.bottom() - inner.bottom());
            arrow.offsetAlongX = isSideways && limit != 0;
            arrow = referenceArrow(arrow, content);
            layout = referenceLayout(arrow, content, 0, 1, 5);
            expected = place();
        }
        QCOMPARE(scene.solve(), expected);
        QCOMPARE(scene.calculator.Direction(), direction);
        QCOMPARE(scene.popup->GetArrowPoint(), layout.arrowPoint);
        QCOMPARE(scene.popup->GetBounds(), layout.bounds);
        QVERIFY(scene.arrow() == arrow);
    }
}

void WidgetPosCalculatorTest::hugeNumbersEnd()
{
    for (const int huge : {Largest, Smallest}) {
        for (const bool withArrow : {false, true}) {
            ArrowScene scene;
            QPoint result;
            const auto solve = [&] {
                return scene.calculator.GetPosition(result, QRect(), withArrow, QPoint());
            };
            scene.calculator.SetBaseOffset(huge);
            QVERIFY(solve());
            scene.calculator.SetAdditionalOffset(QPoint(huge, huge));
            QVERIFY(solve());
            scene.calculator.SetRefPoint(QPoint(huge, huge));
            QVERIFY(solve());
            scene.popup->SetArrow(EArrowPosition::Left, huge, true, huge, huge, false, huge);
            QVERIFY(solve());
            scene.calculator.setMaxAvailableRect(
                QRect(QPoint(Smallest, Smallest), QPoint(Largest, Largest)));
            QVERIFY(solve());
            scene.calculator.setMaxAvailableRect(
                QRect(QPoint(Largest - 5, Largest - 5), QPoint(Largest, Largest)));
            QVERIFY(solve());
            scene.calculator.setMaxAvailableRect(
                QRect(QPoint(Smallest, Smallest), QPoint(Smallest + 5, Smallest + 5)));
            QVERIFY(solve());
        }
    }
}

void WidgetPosCalculatorTest::referenceMayDieBeforeTheArrowIsPlaced()
{
    ArrowScene scene;
    scene.popup->SetArrow(EArrowPosition::Left, 10, false, 0, 90, true, 0);
    const SArrowParam before = scene.arrow();
    delete scene.button;
    QCOMPARE(scene.solve(), QPoint(Largest, Largest));
    QVERIFY(scene.arrow() == before);
    scene.calculator.SetRefPoint(QPoint(50, 60));
    QVERIFY(scene.solve() != QPoint(Largest, Largest));
    delete scene.popup;
    QCOMPARE(scene.solve(), QPoint(Largest, Largest));
}

void WidgetPosCalculatorTest::withoutAreaTheFirstArrowIsTaken()
{
    ArrowScene scene;
    scene.popup->SetArrow(EArrowPosition::Left, 10, false, 0, 90, true, 0);
    scene.calculator.setMaxAvailableRect(QRect());
    QVERIFY(!QApplication::activeWindow());
    scene.button->move(-9000, 7000);
    QCOMPARE(scene.solve() + scene.popup->GetArrowPoint(), QPoint(-9000 + 59 + 10, 7000 + 19));
    QCOMPARE(scene.arrow().offset, 0);
}

void WidgetPosCalculatorTest::hugePopupsEnd()
{
    Scene scene;
    scene.calculator.SetAlignment(EWidgetsAlign::AlignEnd);
    const QRect all(QPoint(Smallest, Smallest), QPoint(Largest, Largest));
    for (const QRect &area : {QRect(0, 0, 500, 400), all}) {
        scene.calculator.setMaxAvailableRect(area);
        for (const QRect &popup :
             {all, QRect(0, 0, Largest, Largest), QRect(QPoint(Smallest, 0), QPoint(-1, 5)),
              QRect(0, 0, -5, -7), QRect(QPoint(0, 0), QPoint(Smallest, Smallest))}) {
            for (const EDirection direction : {Left, Top, Right, Bottom}) {
                scene.calculator.SetDirection(direction);
                scene.calculator.SetRefPoint(QPoint(Largest, Smallest));
                QVERIFY(scene.solve(false, popup) != QPoint(Largest, Largest));
                scene.calculator.SetRefWidget(scene.button);
                QVERIFY(scene.solve(false, popup) != QPoint(Largest, Largest));
            }
        }
    }
    scene.calculator.setMaxAvailableRect(QRect(0, 0, 500, 400));
    for (const int huge : {Largest, Smallest}) {
        QPoint adjust;
        QVERIFY(!scene.calculator.VerifyPosition(QPoint(huge, 50), QRect(0, 0, 100, 80), adjust));
        QCOMPARE(adjust, QPoint(huge < 0 ? -30 : 30, 0));
        QVERIFY(!scene.calculator.VerifyPosition(QPoint(huge, huge), all, adjust));
    }
}

void WidgetPosCalculatorTest::popupsLargerThanTheAreaEnd()
{
    for (const QSize &size : {QSize(0, 0), QSize(1, 1), QSize(5000, 5000), QSize(5000, 1)}) {
        for (const bool autoDecide : {false, true}) {
            ArrowScene scene(size);
            scene.popup->SetAutoDecideArrowPosition(autoDecide);
            scene.calculator.setMaxAvailableRect(QRect(0, 0, 20, 20));
            QPoint result(Largest, Largest);
            QVERIFY(scene.calculator.GetPosition(result, QRect(), true, QPoint()));
            QVERIFY(result != QPoint(Largest, Largest));
            QVERIFY(scene.calculator.GetPosition(result, QRect(0, 0, 5000, 5000), false, QPoint()));
        }
    }
}

LUMO_TEST_MAIN(WidgetPosCalculatorTest)
#include "tst_widgetposcalculator.moc"
