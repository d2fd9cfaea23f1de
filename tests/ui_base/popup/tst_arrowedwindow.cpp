// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ArrowedWindow>

#include "openwindow.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QGraphicsDropShadowEffect>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QPointer>
#include <QResizeEvent>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <limits>
#include <memory>
#include <type_traits>

using Lumo::Test::OpenWindow;
using namespace Vela::UiBase;

using SArrowParam = ArrowedWindow::SArrowParam;

static_assert(std::is_base_of_v<QWidget, ArrowedWindow>);
static_assert(std::is_same_v<std::underlying_type_t<EArrowPosition>, int>);
static_assert(!std::is_constructible_v<ArrowedWindow, ArrowedWindowPrivate &, QWidget *>);
static_assert(!std::is_copy_constructible_v<ArrowedWindow>);
static_assert(std::has_virtual_destructor_v<ArrowedWindowPrivate>);
static_assert(int(EArrowPosition::None) == 0 && int(EArrowPosition::Top) == 1
              && int(EArrowPosition::Bottom) == 2 && int(EArrowPosition::Left) == 3
              && int(EArrowPosition::Right) == 4 && int(EArrowPosition::TopLeft) == 5
              && int(EArrowPosition::TopRight) == 6 && int(EArrowPosition::BottomRight) == 7
              && int(EArrowPosition::BottomLeft) == 8);

namespace {

QWidget *makeContent(int width, int height)
{
    auto *const content = new QWidget;
    content->setFixedSize(width, height);
    return content;
}

SArrowParam arrowAt(EArrowPosition position)
{
    SArrowParam arrow;
    arrow.position = position;
    return arrow;
}

SArrowParam currentOf(const ArrowedWindow &window)
{
    SArrowParam arrow;
    window.GetCurrentArrowParam(arrow);
    return arrow;
}

// Counts how often a widget is told to lay itself out, shown, painted and the like.
class EventCounter : public QObject
{
public:
    EventCounter(QObject *watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += event->type() == m_type;
        return QObject::eventFilter(watched, event);
    }
    int count = 0;

private:
    const QEvent::Type m_type;
};

// A window whose private part has other defaults.
class GreenPrivate : public ArrowedWindowPrivate
{
public:
    explicit GreenPrivate(bool *ended)
        : m_ended(ended)
    {
        borderColor = Qt::green;
        cornerRadius = 9;
    }
    ~GreenPrivate() override { *m_ended = true; }

private:
    bool *const m_ended;
};

class GreenWindow : public ArrowedWindow
{
public:
    GreenWindow(GreenPrivate &dd, QWidget *parent)
        : ArrowedWindow(dd, parent)
    { }
    ArrowedWindowPrivate &data() { return *d_ptr; }

protected:
    void Initialize() override { QFAIL("called by the constructor of the base"); }
};

} // namespace

class ArrowedWindowTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithItsDefaults();
    void defaultArrow();
    void arrowsAreEqualWhenAllFieldsAre();
    void subclassBringsItsOwnPrivatePart();
    void attachedContentBelongsToTheWindow();
    void attachedContentSetsTheColour();
    void attachingLaysOutForTheCurrentArrow();
    void attachingWithoutArrowsLaysNothingOut();
    void attachingNullChangesNothing();
    void attachingTheContentAgainChangesNothing();
    void attachingWhatTheWindowStandsInChangesNothing();
    void attachingAnotherForgetsTheFirst();
    void contentOfAnotherWindowLeavesIt();
    void contentMayDieWhileAnotherIsHidden();
    void layoutMayBeDeleted();
    void initializingAgainSwitchesTheShadowOff();
    void detachedContentBelongsToItsOwner();
    void detachedContentThatNobodyTakesDiesWithTheWindow();
    void detachedContentCanComeBack();
    void contentMayDieWhileAttached();
    void setArrowKeepsTheRecordAsGiven();
    void setArrowByFieldsKeepsTheNormalised();
    void setArrowTakesItsOwnRecord();
    void addedArrowIsNotTheCurrentOne();
    void firstAddedArrowLaysOut();
    void noneIsRefused();
    void currentArrowIsListedOnce();
    void windowSizeNeedsContentAndPosition();
    void windowSizeIsARealLayout();
    void marginAndRadiusWaitForTheNextLayout();
    void repeatedLayoutRestoresWhatOthersChanged();
    void repeatedLayoutTouchesNothing();
    void marginsChangeWhenTheSizeDoesNot();
    void contentThatPrefersAnotherSizeGetsIt();
    void borderIsDrawnAtOnceAndLaidOutLater();
    void shadowIsOffUntilAskedFor();
    void shadowCanComeBack();
    void shadowMayBeTakenByAnotherEffect();
    void bandIsMovedIntoTheWindow();
    void bandFarAwayIsCutDown();
    void bandIsForgottenWhenDisabled();
    void resizedVisibleContentLaysOutAtOnce();
    void layoutDoesNotAnswerItself();
    void resizedHiddenContentLaysOutAtTheNextShow();
    void hidingTheContentHidesTheWindow();
    void showingTheWindowShowsTheContent();
    void contentHearsItsEvents();
    void windowTakesNoFocus();
    void autoDecideIsRemembered();
};

void ArrowedWindowTest::startsWithItsDefaults()
{
    QWidget parent;
    OpenWindow window(&parent);
    QCOMPARE(window.parentWidget(), &parent);
    QVERIFY(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(!window.isWindow());
    QVERIFY(OpenWindow().isWindow());
    QVERIFY(window.hasMouseTracking());
    QCOMPARE(window.focusPolicy(), Qt::NoFocus);
    QVERIFY(window.testAttribute(Qt::WA_ShowWithoutActivating));
    QVERIFY(qobject_cast<QVBoxLayout *>(window.layout()));
    QCOMPARE(window.layout()->sizeConstraint(), QLayout::SetFixedSize);
    QVERIFY(window.AutoDecideArrowPosition());
    QCOMPARE(window.GetArrowPoint(), QPoint(0, 0));
    QCOMPARE(window.GetBounds(), QRect());
    QVERIFY(!window.InternalWidget());
    QVERIFY(window.outline().isEmpty());
    QVERIFY(window.GetArrowParams() == QList<SArrowParam> {SArrowParam()});
    QVERIFY(currentOf(window) == SArrowParam());
    const ArrowedWindowPrivate &d = window.data();
    QCOMPARE(d.borderWidth, 1);
    QCOMPARE(d.borderColor, QColor(Qt::gray));
    QCOMPARE(d.borderStyle, Qt::SolidLine);
    QCOMPARE(d.borderJoin, Qt::BevelJoin);
    QCOMPARE(d.contentMargin, 0);
    QCOMPARE(d.cornerRadius, 5);
    QVERIFY(!d.backgroundColor.isValid());
    QVERIFY(!d.partialEnabled && !d.layoutDirty);
}

void ArrowedWindowTest::defaultArrow()
{
    const SArrowParam arrow;
    QCOMPARE(arrow.position, EArrowPosition::Bottom);
    QCOMPARE(arrow.length, 10);
    QCOMPARE(arrow.customAngle, false);
    QCOMPARE(arrow.angle, 90);
    QCOMPARE(arrow.apexAngle, 90);
    QCOMPARE(arrow.offsetAlongX, true);
    QCOMPARE(arrow.offset, 0);
    QCOMPARE(arrow.tip, QPoint(0, 0));
}

void ArrowedWindowTest::arrowsAreEqualWhenAllFieldsAre()
{
    const SArrowParam one {EArrowPosition::Left, 1, true, 2, 3, false, 4, QPoint(5, 6)};
    QVERIFY(one == SArrowParam(one) && !(one != SArrowParam(one)));
    QVector<SArrowParam> others(9, one);
    others[0].position = EArrowPosition::Right;
    others[1].length = 0;
    others[2].customAngle = false;
    others[3].angle = 0;
    others[4].apexAngle = 0;
    others[5].offsetAlongX = true;
    others[6].offset = 0;
    others[7].tip.setX(0);
    others[8].tip.setY(0);
    for (const SArrowParam &other : std::as_const(others))
        QVERIFY(one != other && !(one == other));
}

void ArrowedWindowTest::subclassBringsItsOwnPrivatePart()
{
    bool hasEnded = false;
    {
        auto d = std::make_unique<GreenPrivate>(&hasEnded);
        GreenWindow window(*d.release(), nullptr);
        QCOMPARE(window.data().borderColor, QColor(Qt::green));
        QVERIFY(window.layout());
        QVERIFY(window.GetShadow());
        window.AttachWidget(makeContent(100, 40));
        QCOMPARE(window.GetBounds().size(), QSize(118, 58));
    }
    QVERIFY(hasEnded);
}

void ArrowedWindowTest::attachedContentBelongsToTheWindow()
{
    const QPointer<QWidget> content = makeContent(100, 40);
    {
        OpenWindow window;
        const QPointer<QLayout> before = window.layout();
        window.AttachWidget(content);
        QVERIFY(!before);
        QCOMPARE(window.InternalWidget(), content.data());
        QCOMPARE(content->parentWidget(), &window);
        QVERIFY(qobject_cast<QVBoxLayout *>(window.layout()));
        QCOMPARE(window.layout()->sizeConstraint(), QLayout::SetFixedSize);
        QCOMPARE(window.layout()->count(), 1);
        QCOMPARE(window.layout()->itemAt(0)->widget(), content.data());
        QCOMPARE(window.layout()->itemAt(0)->alignment(), Qt::AlignCenter);
    }
    QVERIFY(!content);
}

void ArrowedWindowTest::attachedContentSetsTheColour()
{
    QWidget *const content = makeContent(10, 10);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(1, 2, 3));
    content->setPalette(palette);
    OpenWindow window;
    window.AttachWidget(content);
    QCOMPARE(window.data().backgroundColor, QColor(1, 2, 3));
}

void ArrowedWindowTest::attachingLaysOutForTheCurrentArrow()
{
    OpenWindow window;
    window.SetArrow(arrowAt(EArrowPosition::Left));
    QCOMPARE(currentOf(window).tip, QPoint(0, 0));
    window.AttachWidget(makeContent(100, 40));
    QCOMPARE(currentOf(window).tip, QPoint(0, 19));
    QCOMPARE(currentOf(window).angle, 180);
    // The one on offer waits for its turn.
    QCOMPARE(window.GetArrowParams().first().tip, QPoint(0, 0));
    QCOMPARE(window.size(), QSize(100 + 11 + 7, 40 + 6 + 7));
    QCOMPARE(window.data().sizeDelta, QSize(18, 13));
    QCOMPARE(window.GetArrowPoint(), QPoint(1, 25));
    QVERIFY(window.data().layoutDirty);
}

void ArrowedWindowTest::attachingWithoutArrowsLaysNothingOut()
{
    OpenWindow window;
    window.data().arrowParams.clear();
    window.AttachWidget(makeContent(100, 40));
    QCOMPARE(window.margins(), QMargins(0, 0, 0, 0));
    QCOMPARE(window.GetBounds(), QRect());
    QVERIFY(!window.data().layoutDirty);
}

void ArrowedWindowTest::attachingNullChangesNothing()
{
    OpenWindow window;
    window.AttachWidget(nullptr);
    QVERIFY(!window.InternalWidget());
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    window.AttachWidget(nullptr);
    QCOMPARE(window.InternalWidget(), content);
    QVERIFY(!content->testAttribute(Qt::WA_WState_ExplicitShowHide));
}

void ArrowedWindowTest::attachingTheContentAgainChangesNothing()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    const QPointer<QLayout> layout = window.layout();
    window.data().backgroundColor = Qt::red;
    window.AttachWidget(content);
    QCOMPARE(window.layout(), layout.data());
    QCOMPARE(window.data().backgroundColor, QColor(Qt::red));
}

void ArrowedWindowTest::attachingWhatTheWindowStandsInChangesNothing()
{
    QWidget outermost;
    auto *const parent = new QWidget(&outermost, Qt::Window);
    auto *const window = new OpenWindow(parent);
    QWidget *const content = makeContent(100, 40);
    window->AttachWidget(content);
    for (QWidget *const around : {static_cast<QWidget *>(window), parent, &outermost}) {
        window->AttachWidget(around);
        QCOMPARE(window->InternalWidget(), content);
    }
    QCOMPARE(window->parentWidget(), parent);
    QCOMPARE(parent->parentWidget(), &outermost);
    QVERIFY(!outermost.parentWidget());
}

void ArrowedWindowTest::contentOfAnotherWindowLeavesIt()
{
    OpenWindow first;
    OpenWindow second;
    QWidget *const content = makeContent(100, 40);
    first.AttachWidget(content);
    second.AttachWidget(content);
    QVERIFY(!first.InternalWidget());
    QCOMPARE(second.InternalWidget(), content);
    QCOMPARE(content->parentWidget(), &second);
    first.show();
    second.show();
    QVERIFY(content->isVisible());
    first.AttachWidget(makeContent(10, 10));
    QVERIFY(content->isVisible());
    content->hide();
    QVERIFY(first.isVisible());
    QVERIFY(second.isHidden());
}

void ArrowedWindowTest::contentMayDieWhileAnotherIsHidden()
{
    class Killer : public QWidget
    {
    public:
        explicit Killer(QWidget *victim)
            : m_victim(victim)
        { }

    protected:
        void hideEvent(QHideEvent *) override { delete m_victim; }

    private:
        const QPointer<QWidget> m_victim;
    };
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(new Killer(content));
    window.show();
    window.AttachWidget(content);
    QVERIFY(!window.InternalWidget());
}

void ArrowedWindowTest::layoutMayBeDeleted()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    delete window.layout();
    window.SetArrow(EArrowPosition::Left, 20, false, 0, 90, true, 0);
    QCOMPARE(window.size(), QSize(128, 53));
    window.SetPartialBackgroundColor(true, QRect(3, 20, 7, 12), Qt::blue);
    window.grab();
    window.AttachWidget(makeContent(60, 30));
    QCOMPARE(window.layout()->count(), 1);
    // So may one that somebody has put in its place.
    delete window.layout();
    auto *const other = new QVBoxLayout(&window);
    other->addWidget(window.InternalWidget());
    window.GenerateLayout();
    window.AttachWidget(content);
    QCOMPARE(window.layout()->count(), 1);
    QCOMPARE(window.layout()->itemAt(0)->widget(), content);
}

void ArrowedWindowTest::initializingAgainSwitchesTheShadowOff()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    const QPointer<QLayout> layout = window.layout();
    const QPointer<QGraphicsDropShadowEffect> shadow = window.GetShadow();
    window.Initialize();
    QCOMPARE(window.layout(), layout.data());
    QCOMPARE(window.GetShadow(), shadow.data());
    QCOMPARE(window.InternalWidget(), content);
    window.EnableShadow(true);
    window.Initialize();
    QVERIFY(!window.graphicsEffect());
}

void ArrowedWindowTest::attachingAnotherForgetsTheFirst()
{
    OpenWindow window;
    QWidget *const first = makeContent(100, 40);
    QWidget *const second = makeContent(60, 30);
    window.AttachWidget(first);
    window.show();
    window.AttachWidget(second);
    QVERIFY(window.isVisible());
    QVERIFY(first->isHidden());
    QCOMPARE(first->parentWidget(), &window);
    QCOMPARE(window.InternalWidget(), second);
    QCOMPARE(window.GetBounds().size(), QSize(70, 40));
    window.data().layoutDirty = false;
    first->setFixedSize(200, 200);
    first->show();
    first->hide();
    QVERIFY(window.isVisible());
    QCOMPARE(window.GetBounds().size(), QSize(70, 40));
}

void ArrowedWindowTest::detachedContentBelongsToItsOwner()
{
    std::unique_ptr<QWidget> content(makeContent(100, 40));
    {
        OpenWindow window;
        QVERIFY(!window.DetachWidget());
        window.AttachWidget(content.get());
        window.show();
        const QRect bounds = window.GetBounds();
        const QMargins margins = window.margins();
        QCOMPARE(window.DetachWidget(), content.get());
        QVERIFY(content->isHidden());
        QVERIFY(window.isVisible());
        QVERIFY(!window.InternalWidget());
        QCOMPARE(window.GetBounds(), bounds);
        QCOMPARE(window.margins(), margins);
        QCOMPARE(content->parentWidget(), &window);
        QVERIFY(!window.DetachWidget());
        content->setParent(nullptr);
    }
    QCOMPARE(content->size(), QSize(100, 40));
}

void ArrowedWindowTest::detachedContentThatNobodyTakesDiesWithTheWindow()
{
    QPointer<QWidget> content = makeContent(100, 40);
    {
        OpenWindow window;
        window.AttachWidget(content);
        window.DetachWidget();
    }
    QVERIFY(!content);
}

void ArrowedWindowTest::detachedContentCanComeBack()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    window.DetachWidget();
    window.AttachWidget(content);
    window.show();
    QVERIFY(content->isVisible());
    QCOMPARE(window.GetBounds().size(), QSize(110, 50));
}

void ArrowedWindowTest::contentMayDieWhileAttached()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    window.show();
    delete content;
    QVERIFY(!window.InternalWidget());
    SArrowParam arrow = arrowAt(EArrowPosition::Left);
    QSize size;
    QPoint point;
    QVERIFY(!window.GetArrowWindowSize(arrow, size, point));
    window.GenerateLayout();
    window.SetArrow(arrow);
    window.grab();
    window.hide();
    window.show();
    QVERIFY(!window.DetachWidget());
    window.AttachWidget(makeContent(60, 30));
    QCOMPARE(window.GetBounds().size(), QSize(70, 40));
}

void ArrowedWindowTest::setArrowKeepsTheRecordAsGiven()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    SArrowParam given = arrowAt(EArrowPosition::Top);
    given.tip = QPoint(20, 5);
    window.SetArrow(given);
    QVERIFY(currentOf(window) == given);
    QCOMPARE(window.data().arrowParams.size(), 1);
    // The layout too is that of the record as it was given.
    QCOMPARE(window.GetArrowPoint(), QPoint(20 + 6, 5 + 10 + 6));
    const QList<SArrowParam> &listed = window.GetArrowParams();
    QCOMPARE(listed.size(), 2);
    QCOMPARE(listed.first().tip, QPoint(49, 0));
    QCOMPARE(listed.first().angle, 270);
    QVERIFY(listed.last() == given);

    given = listed.first();
    window.SetArrow(given);
    QCOMPARE(window.GetArrowParams().size(), 1);
}

void ArrowedWindowTest::setArrowByFieldsKeepsTheNormalised()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.SetArrow(EArrowPosition::Right, 12, true, 20, 60, false, -7);
    const SArrowParam expected {EArrowPosition::Right, 12, true, 20, 60, false, -7, QPoint(99, 12)};
    QVERIFY(currentOf(window) == expected);
    QVERIFY(window.GetArrowParams() == QList<SArrowParam> {expected});
    QVERIFY(window.GetArrowPoint().x() > 100);
}

void ArrowedWindowTest::setArrowTakesItsOwnRecord()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.SetArrow(arrowAt(EArrowPosition::Left));
    window.SetArrow(window.GetArrowParams().last());
    QCOMPARE(currentOf(window).position, EArrowPosition::Left);
    window.AddArrow(window.GetArrowParams().first());
    QCOMPARE(window.GetArrowParams().last().position, EArrowPosition::Left);
}

void ArrowedWindowTest::addedArrowIsNotTheCurrentOne()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.SetArrow(EArrowPosition::Left, 10, false, 0, 90, true, 0);
    const SArrowParam before = currentOf(window);
    const QSize size = window.size();
    window.data().layoutDirty = false;
    window.AddArrow(arrowAt(EArrowPosition::Top));
    window.AddArrow(EArrowPosition::BottomRight, 14, true, 50, 70, false, -4);
    QVERIFY(currentOf(window) == before);
    QCOMPARE(window.size(), size);
    QVERIFY(!window.data().layoutDirty);
    const QList<SArrowParam> &listed = window.GetArrowParams();
    QCOMPARE(listed.size(), 3);
    QCOMPARE(listed.at(1).tip, QPoint(49, 0));
    const SArrowParam last {
        EArrowPosition::BottomRight, 14, true, 50, 70, false, -4, QPoint(99, 35)};
    QVERIFY(listed.at(2) == last);
    // After any added arrow the current one is the first on offer.
    window.data().currentArrow = listed.at(2);
    window.AddArrow(arrowAt(EArrowPosition::Bottom));
    QVERIFY(currentOf(window) == before);
}

void ArrowedWindowTest::firstAddedArrowLaysOut()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.data().arrowParams.clear();
    window.data().layoutDirty = false;
    window.AddArrow(arrowAt(EArrowPosition::Left));
    QVERIFY(window.data().layoutDirty);
    QCOMPARE(window.GetArrowPoint(), QPoint(1, 25));
}

void ArrowedWindowTest::noneIsRefused()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.SetArrow(EArrowPosition::Left, 10, false, 0, 90, true, 0);
    const SArrowParam before = currentOf(window);
    window.data().layoutDirty = false;
    SArrowParam none = arrowAt(EArrowPosition::None);
    window.SetArrow(none);
    window.SetArrow(EArrowPosition::None, 30, false, 0, 90, true, 0);
    window.AddArrow(none);
    window.AddArrow(EArrowPosition::None, 30, false, 0, 90, true, 0);
    QSize size(1, 2);
    QPoint point(3, 4);
    QVERIFY(!window.GetArrowWindowSize(none, size, point));
    QCOMPARE(size, QSize(1, 2));
    QCOMPARE(point, QPoint(3, 4));
    QVERIFY(none == arrowAt(EArrowPosition::None));
    QVERIFY(currentOf(window) == before);
    QVERIFY(window.GetArrowParams() == QList<SArrowParam> {before});
    QVERIFY(!window.data().layoutDirty);
}

void ArrowedWindowTest::currentArrowIsListedOnce()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.SetArrow(arrowAt(EArrowPosition::Left));
    QCOMPARE(window.GetArrowParams().size(), 2);
    QCOMPARE(window.GetArrowParams().size(), 2);
    SArrowParam slid = arrowAt(EArrowPosition::Left);
    slid.offsetAlongX = false;
    slid.offset = 5;
    QSize size;
    QPoint point;
    QVERIFY(window.GetArrowWindowSize(slid, size, point));
    QCOMPARE(window.GetArrowParams().size(), 3);
    QVERIFY(window.GetArrowParams().last() == slid);
}

void ArrowedWindowTest::windowSizeNeedsContentAndPosition()
{
    OpenWindow window;
    SArrowParam arrow = arrowAt(EArrowPosition::Left);
    QSize size(1, 2);
    QPoint point(3, 4);
    QVERIFY(!window.GetArrowWindowSize(arrow, size, point));
    QCOMPARE(size, QSize(1, 2));
    QCOMPARE(point, QPoint(3, 4));
    QVERIFY(arrow == arrowAt(EArrowPosition::Left));
    QVERIFY(currentOf(window) == SArrowParam());
    window.GenerateLayout();
    QCOMPARE(window.data().CalculateLayout(), QSize(0, 0));
    QVERIFY(!window.data().layoutDirty);
    QCOMPARE(window.GetBounds(), QRect());
}

void ArrowedWindowTest::windowSizeIsARealLayout()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    const QSize before = window.size();
    SArrowParam arrow = arrowAt(EArrowPosition::Left);
    arrow.length = 30;
    QSize size;
    QPoint point;
    QVERIFY(window.GetArrowWindowSize(arrow, size, point));
    QVERIFY(size != before);
    QCOMPARE(window.size(), size);
    QCOMPARE(window.GetArrowPoint(), point);
    QCOMPARE(arrow.tip, QPoint(0, 19));
    QVERIFY(currentOf(window) == arrow);
    QCOMPARE(window.InternalWidget()->size(), QSize(100, 40));
}

void ArrowedWindowTest::marginAndRadiusWaitForTheNextLayout()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    const QSize before = window.size();
    window.SetContentMargin(4);
    window.SetRoundCornerRadius(8);
    QCOMPARE(window.size(), before);
    window.GenerateLayout();
    QCOMPARE(window.size(), before + QSize(2 * 4 + 2 * 3, 2 * 4 + 3));
    QCOMPARE(window.GetBounds().size(), QSize(116, 56));
}

void ArrowedWindowTest::repeatedLayoutRestoresWhatOthersChanged()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    const QSize size = window.size();
    const QMargins margins = window.margins();
    const auto isRestored = [&] {
        window.GenerateLayout();
        return window.size() == size && window.minimumSize() == size && window.maximumSize() == size
            && window.margins() == margins;
    };
    window.setFixedSize(10, 10);
    QVERIFY(isRestored());
    window.setMinimumSize(5, 5);
    QVERIFY(isRestored());
    window.setMaximumSize(500, 500);
    QVERIFY(isRestored());
    window.layout()->setContentsMargins(50, 60, 70, 80);
    QVERIFY(isRestored());
    window.layout()->setContentsMargins(50, 60, 70, 80);
    window.layout()->activate();
    QVERIFY(window.size() != size);
    QVERIFY(isRestored());
    window.data().layoutDirty = false;
    QVERIFY(isRestored());
    QVERIFY(window.data().layoutDirty);
}

void ArrowedWindowTest::repeatedLayoutTouchesNothing()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.show();
    window.GenerateLayout();
    QCoreApplication::sendPostedEvents();
    const EventCounter requests(&window, QEvent::LayoutRequest);
    const EventCounter resizes(&window, QEvent::Resize);
    for (int i = 0; i < 3; ++i)
        window.GenerateLayout();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(requests.count, 0);
    QCOMPARE(resizes.count, 0);
}

void ArrowedWindowTest::marginsChangeWhenTheSizeDoesNot()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.SetArrow(EArrowPosition::Left, 20, false, 0, 90, true, 0);
    const QSize size = window.size();
    QCOMPARE(window.margins(), QMargins(21, 6, 7, 7));
    window.SetArrow(EArrowPosition::Right, 21, false, 0, 90, true, 0);
    QCOMPARE(window.size(), size);
    QCOMPARE(window.margins(), QMargins(6, 6, 22, 7));
}

void ArrowedWindowTest::contentThatPrefersAnotherSizeGetsIt()
{
    OpenWindow window;
    auto *const content = new QLabel(QStringLiteral("text"));
    const QSize preferred = content->sizeHint();
    content->resize(preferred * 3);
    window.AttachWidget(content);
    QCOMPARE(content->size(), preferred);
    SArrowParam arrow;
    QSize size;
    QPoint point;
    QVERIFY(window.GetArrowWindowSize(arrow, size, point));
    window.show();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(content->size(), preferred);
    QCOMPARE(window.size(), size);
    QCOMPARE(window.GetBounds().size(), preferred + QSize(10, 10));
}

void ArrowedWindowTest::borderIsDrawnAtOnceAndLaidOutLater()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QSize before = window.size();
    const EventCounter paints(&window, QEvent::Paint);
    window.SetBorder(Qt::red, 6, Qt::DotLine, Qt::RoundJoin);
    QTRY_VERIFY(paints.count > 0);
    QCOMPARE(window.size(), before);
    QCOMPARE(window.data().borderColor, QColor(Qt::red));
    QCOMPARE(window.data().borderWidth, 6);
    QCOMPARE(window.data().borderStyle, Qt::DotLine);
    QCOMPARE(window.data().borderJoin, Qt::RoundJoin);
    window.GenerateLayout();
    QCOMPARE(window.size(), before + QSize(6, 6));
}

void ArrowedWindowTest::shadowIsOffUntilAskedFor()
{
    OpenWindow window;
    const QPointer<QGraphicsDropShadowEffect> shadow = window.GetShadow();
    QVERIFY(shadow);
    QVERIFY(!window.graphicsEffect());
    QCOMPARE(shadow->blurRadius(), 15.0);
    QCOMPARE(shadow->offset(), QPointF(0, 0));
    QCOMPARE(shadow->color(), QColor(192, 192, 192, 166));
    window.EnableShadow(false);
    QCOMPARE(window.GetShadow(), shadow.data());
    shadow->setBlurRadius(7);
    window.EnableShadow(true);
    window.EnableShadow(true);
    QCOMPARE(window.graphicsEffect(), shadow.data());
    QCOMPARE(shadow->blurRadius(), 7.0);
}

void ArrowedWindowTest::shadowCanComeBack()
{
    OpenWindow window;
    window.EnableShadow(true);
    window.EnableShadow(false);
    QVERIFY(!window.graphicsEffect());
    QVERIFY(!window.GetShadow());
    window.EnableShadow(false);
    window.EnableShadow(true);
    QVERIFY(window.GetShadow());
    QCOMPARE(window.graphicsEffect(), window.GetShadow());
    QCOMPARE(window.GetShadow()->blurRadius(), 15.0);
}

void ArrowedWindowTest::shadowMayBeTakenByAnotherEffect()
{
    OpenWindow window;
    window.EnableShadow(true);
    window.setGraphicsEffect(new QGraphicsOpacityEffect);
    QVERIFY(!window.GetShadow());
    window.EnableShadow(true);
    QVERIFY(qobject_cast<QGraphicsDropShadowEffect *>(window.graphicsEffect()));
}

void ArrowedWindowTest::bandIsMovedIntoTheWindow()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.SetArrow(EArrowPosition::Left, 20, false, 0, 90, true, 0);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const EventCounter paints(&window, QEvent::Paint);
    window.SetPartialBackgroundColor(true, QRect(3, 20, 7, 12), Qt::blue);
    QTRY_VERIFY(paints.count > 0);
    QCOMPARE(window.GetBounds(), QRect(16, 1, 110, 50));
    QCOMPARE(window.margins().top(), 6);
    QCOMPARE(window.data().partialRect, QRect(3 + 16, 20 + 6, 110, 12));
    QCOMPARE(window.data().partialColor, QColor(Qt::blue));
    QVERIFY(window.data().partialEnabled);
}

void ArrowedWindowTest::bandFarAwayIsCutDown()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int smallest = std::numeric_limits<int>::min();
    for (const int top : {smallest, 0, largest}) {
        for (const int bottom : {smallest, 0, largest}) {
            const QRect band(QPoint(top, top), QPoint(bottom, bottom));
            window.SetPartialBackgroundColor(true, band, Qt::blue);
            QCOMPARE(window.data().partialRect.width(), window.GetBounds().width());
            window.grab();
        }
    }
}

void ArrowedWindowTest::bandIsForgottenWhenDisabled()
{
    OpenWindow window;
    window.AttachWidget(makeContent(100, 40));
    window.SetPartialBackgroundColor(true, QRect(3, 20, 7, 12), Qt::blue);
    const QRect band = window.data().partialRect;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const EventCounter paints(&window, QEvent::Paint);
    window.SetPartialBackgroundColor(false, QRect(1, 1, 1, 1), Qt::red);
    QTRY_VERIFY(paints.count > 0);
    QVERIFY(!window.data().partialEnabled);
    QCOMPARE(window.data().partialRect, band);
    QCOMPARE(window.data().partialColor, QColor(Qt::blue));
}

void ArrowedWindowTest::resizedVisibleContentLaysOutAtOnce()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    window.show();
    QCoreApplication::sendPostedEvents();
    const SArrowParam before = currentOf(window);
    for (const QSize &size : {QSize(160, 70), QSize(150, 60), QSize(300, 200)}) {
        content->setFixedSize(size);
        QCOMPARE(window.GetBounds().size(), size + QSize(10, 10));
        QCoreApplication::sendPostedEvents();
        // The arrow stays at its tip, which lies within the outline now, until it is set anew.
        QVERIFY(currentOf(window) == before);
        QCOMPARE(window.size(), size + QSize(13, 13));
        QCOMPARE(content->geometry(), QRect(QPoint(6, 6), size));
    }
    SArrowParam arrow;
    QSize size;
    QPoint point;
    QVERIFY(window.GetArrowWindowSize(arrow, size, point));
    QCOMPARE(size, QSize(300 + 13, 200 + 17));
}

void ArrowedWindowTest::layoutDoesNotAnswerItself()
{
    OpenWindow window;
    auto *const content = new QLabel(QStringLiteral("text"));
    window.AttachWidget(content);
    window.show();
    QCoreApplication::sendPostedEvents();
    const EventCounter resizes(content, QEvent::Resize);
    content->resize(200, 100);
    // On its way the window has given the content its own size back, and that is not laid out
    // again.
    QCOMPARE(content->size(), content->sizeHint());
    QVERIFY(resizes.count > 1);
    QVERIFY(window.GetBounds().width() >= 200);
    QVERIFY(window.data().layoutDirty);
}

void ArrowedWindowTest::resizedHiddenContentLaysOutAtTheNextShow()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    window.show();
    window.hide();
    window.data().layoutDirty = false;
    const QRect before = window.GetBounds();
    content->setFixedSize(150, 60);
    QResizeEvent resize(QSize(150, 60), QSize(100, 40));
    QCoreApplication::sendEvent(content, &resize);
    QCOMPARE(window.GetBounds(), before);
    QVERIFY(window.data().layoutDirty);
    window.show();
    QCOMPARE(window.GetBounds().size(), QSize(160, 70));
    QTRY_COMPARE(window.size(), QSize(163, 73));
}

void ArrowedWindowTest::hidingTheContentHidesTheWindow()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    window.show();
    QVERIFY(window.isVisible());
    content->hide();
    QVERIFY(window.isHidden());
}

void ArrowedWindowTest::showingTheWindowShowsTheContent()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    window.AttachWidget(content);
    content->hide();
    window.show();
    QVERIFY(content->isVisible());
    content->hide();
    window.show();
    QVERIFY(content->isVisible());
    // Without a due layout, what was changed waits.
    window.hide();
    window.data().layoutDirty = false;
    window.SetContentMargin(9);
    const QRect bounds = window.GetBounds();
    window.show();
    QCOMPARE(window.GetBounds(), bounds);
    window.hide();
    window.data().layoutDirty = true;
    window.show();
    QCOMPARE(window.GetBounds(), bounds.translated(9, 9));
}

void ArrowedWindowTest::contentHearsItsEvents()
{
    OpenWindow window;
    QWidget *const content = makeContent(100, 40);
    const EventCounter hides(content, QEvent::Hide);
    const EventCounter resizes(content, QEvent::Resize);
    window.AttachWidget(content);
    window.show();
    const int before = resizes.count;
    content->setFixedSize(120, 40);
    QVERIFY(resizes.count > before);
    content->hide();
    QCOMPARE(hides.count, 1);
}

void ArrowedWindowTest::windowTakesNoFocus()
{
    QWidget parent;
    parent.resize(300, 200);
    auto *const window = new ArrowedWindow(&parent);
    window->AttachWidget(makeContent(100, 40));
    parent.show();
    parent.setFocus();
    QTest::mouseClick(window, Qt::LeftButton);
    QVERIFY(!window->hasFocus());
    QCOMPARE(window->focusPolicy(), Qt::NoFocus);
}

void ArrowedWindowTest::autoDecideIsRemembered()
{
    ArrowedWindow window;
    window.SetAutoDecideArrowPosition(false);
    QVERIFY(!window.AutoDecideArrowPosition());
    window.SetAutoDecideArrowPosition(true);
    QVERIFY(window.AutoDecideArrowPosition());
}

LUMO_TEST_MAIN(ArrowedWindowTest)
#include "tst_arrowedwindow.moc"
