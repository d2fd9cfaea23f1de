// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/interactivetool.h"

#include "support/eventloop.h"
#include "ui_base/tool/testtool.h"
#include "ui_base/tool/virtualslot.h"
#include "ui_base/viewcontroller/baseview.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPixmap>
#include <QTemporaryDir>

#include <type_traits>

using namespace Lumo::Test;
using namespace Vela::UiBase;

static_assert(std::is_base_of_v<ViewResponder, InteractiveTool>);
static_assert(std::is_base_of_v<Tessel::Delegator<ToolStateProtocol>, InteractiveTool>);
static_assert(std::has_virtual_destructor_v<InteractiveTool>);
static_assert(!std::is_copy_constructible_v<InteractiveTool>);
static_assert(!std::is_convertible_v<BaseView *, InteractiveTool>);
static_assert(std::is_same_v<std::underlying_type_t<EToolState>, int>);
static_assert(eToolInactive == 0 && eToolActive == 1 && eToolSuspended == 2 && eToolOperating == 3);

namespace {

/// Brings a new tool into the state of this name.
void bringTo(TestTool &tool, const QString &state)
{
    if (state != QLatin1String("inactive"))
        tool.activate();
    if (state == QLatin1String("suspended"))
        tool.suspend();
    if (state == QLatin1String("operating"))
        tool.startOperation();
    ASSERT_EQ(tool.state(), state);
}

class InteractiveToolTest : public testing::Test
{
protected:
    InteractiveToolTest() { tool->setDelegate(recorder, false); }

    /// Brings the tool into the state of this name and forgets what was heard on the way.
    void bringToolTo(const char *state)
    {
        bringTo(*tool, QString::fromLatin1(state));
        recorder->takeEvents();
    }

    QStringList heard() { return recorder->takeEvents(); }

    int argc = 1;
    char name[20] = "tst_interactivetool";
    char *argv[2] = {name, nullptr};
    QApplication application {argc, argv};
    std::shared_ptr<ToolRecorder> recorder = std::make_shared<ToolRecorder>();
    std::unique_ptr<TestTool> tool = std::make_unique<TestTool>(QStringLiteral("t"));
};

TEST_F(InteractiveToolTest, isInactiveAtFirst)
{
    EXPECT_FALSE(tool->isActive());
    EXPECT_FALSE(tool->isSuspended());
    EXPECT_FALSE(tool->isOperating());
    tool->deactivate();
    tool->suspend();
    EXPECT_EQ(heard(), QStringList());
    tool->activate();
    EXPECT_TRUE(tool->isActive());
}

TEST_F(InteractiveToolTest, eachStateIsTheOnlyOneThatIsReported)
{
    bringToolTo("active");
    EXPECT_TRUE(tool->isActive() && !tool->isSuspended() && !tool->isOperating());
    tool->suspend();
    EXPECT_TRUE(!tool->isActive() && tool->isSuspended() && !tool->isOperating());
    tool->resume();
    tool->startOperation();
    EXPECT_TRUE(!tool->isActive() && !tool->isSuspended() && tool->isOperating());
}

struct Transition
{
    const char *name;
    void (*call)(TestTool &tool);
    const char *from;
    const char *to;
    const char *heard;
};

const Transition transitions[] = {
    {"activate", [](TestTool &t) { t.activate(); }, "inactive", "active", "activated(t)"},
    {"deactivate", [](TestTool &t) { t.deactivate(); }, "active", "inactive", "deactivated(t)"},
    {"suspend", [](TestTool &t) { t.suspend(); }, "active", "suspended", "suspended(t)"},
    {"resume", [](TestTool &t) { t.resume(); }, "suspended", "active", "resumed(t)"},
    {"startOperation", [](TestTool &t) { t.startOperation(); }, "active", "operating",
     "began(t) cursor(t)"},
    {"endOperation", [](TestTool &t) { t.endOperation(); }, "operating", "active", "ended(t)"},
};

TEST_F(InteractiveToolTest, aTransitionHappensFromItsOwnStateAndIsIgnoredInAllOthers)
{
    for (const Transition &transition : transitions) {
        for (const char *state : {"inactive", "active", "suspended", "operating"}) {
            SCOPED_TRACE(std::string(transition.name) + " of a tool that is " + state);
            tool = std::make_unique<TestTool>(QStringLiteral("t"));
            tool->setDelegate(recorder, false);
            bringToolTo(state);
            transition.call(*tool);
            const bool isFrom = std::string(state) == transition.from;
            EXPECT_EQ(tool->state(), QLatin1String(isFrom ? transition.to : state));
            EXPECT_EQ(heard().join(QLatin1Char(' ')),
                      QLatin1String(isFrom ? transition.heard : ""));
        }
    }
}

/// Writes down in which state each notification finds the tool.
class StateObserver : public ToolStateProtocol
{
public:
    void toolActivated(InteractiveTool *tool) override { note(tool); }
    void toolDeactivated(InteractiveTool *tool) override { note(tool); }
    void toolBeganOperating(InteractiveTool *tool) override { note(tool); }
    void toolEndedOperating(InteractiveTool *tool) override { note(tool); }
    void toolSuspended(InteractiveTool *tool) override { note(tool); }
    void toolResumed(InteractiveTool *tool) override { note(tool); }

    QStringList states;

private:
    void note(InteractiveTool *tool) { states << static_cast<TestTool *>(tool)->state(); }
};

TEST_F(InteractiveToolTest, observersSeeTheNewStateAndHearBeforeTheCallReturns)
{
    const auto observer = std::make_shared<StateObserver>();
    tool->setDelegate(observer, false);
    tool->activate();
    EXPECT_EQ(observer->states, QStringList {QStringLiteral("active")});
    tool->suspend();
    tool->resume();
    tool->startOperation();
    tool->endOperation();
    tool->deactivate();
    const QStringList expected = {QStringLiteral("active"), QStringLiteral("suspended"),
                                  QStringLiteral("active"), QStringLiteral("operating"),
                                  QStringLiteral("active"), QStringLiteral("inactive")};
    EXPECT_EQ(observer->states, expected);
}

TEST_F(InteractiveToolTest, anObserverOnTheMainQueueHearsLater)
{
    tool->setDelegate(recorder, true);
    tool->activate();
    EXPECT_EQ(heard(), QStringList());
    QCoreApplication::processEvents();
    EXPECT_EQ(heard(), QStringList {QStringLiteral("activated(t)")});
}

TEST_F(InteractiveToolTest, tellsNobodyOfItsDeath)
{
    for (const char *state : {"inactive", "active", "suspended", "operating"}) {
        tool = std::make_unique<TestTool>(QStringLiteral("t"));
        tool->setDelegate(recorder, false);
        bringToolTo(state);
        tool.reset();
        EXPECT_EQ(heard(), QStringList()) << state;
    }
}

TEST_F(InteractiveToolTest, knowsItsViewUntilThatDies)
{
    EXPECT_EQ(tool->getView(), nullptr);
    auto window = std::make_unique<QWidget>();
    auto *const view = new BaseView(window.get(), Qt::WindowFlags());
    const TestTool ofView(QStringLiteral("v"), view);
    EXPECT_EQ(ofView.getView(), view);
    window.reset();
    EXPECT_EQ(ofView.getView(), nullptr);
}

TEST_F(InteractiveToolTest, showsAnArrowUnlessToldOtherwise)
{
    EXPECT_EQ(tool->getOperatingCursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(tool->getIdleCursor().shape(), Qt::ArrowCursor);
}

TEST_F(InteractiveToolTest, withoutAnIdleCursorTheOperatingOneServesForBoth)
{
    tool->setOperatingCursor(Qt::CrossCursor);
    EXPECT_EQ(tool->getIdleCursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(&tool->getIdleCursor(), &tool->getOperatingCursor());
    tool->setIdleCursor(Qt::OpenHandCursor);
    EXPECT_EQ(tool->getIdleCursor().shape(), Qt::OpenHandCursor);
    EXPECT_EQ(tool->getOperatingCursor().shape(), Qt::CrossCursor);
    tool->setIdleCursor(tool->getIdleCursor());
    EXPECT_EQ(tool->getIdleCursor().shape(), Qt::OpenHandCursor);
}

TEST_F(InteractiveToolTest, idleCursorsAreNotAnnounced)
{
    for (const char *state : {"inactive", "active", "suspended", "operating"}) {
        tool = std::make_unique<TestTool>(QStringLiteral("t"));
        tool->setDelegate(recorder, false);
        bringToolTo(state);
        tool->setIdleCursor(Qt::OpenHandCursor);
        EXPECT_EQ(heard(), QStringList()) << state;
    }
}

TEST_F(InteractiveToolTest, operatingCursorsAreAnnouncedInAnOperationOnly)
{
    for (const char *state : {"inactive", "active", "suspended", "operating"}) {
        tool = std::make_unique<TestTool>(QStringLiteral("t"));
        tool->setDelegate(recorder, false);
        bringToolTo(state);
        tool->setOperatingCursor(Qt::ClosedHandCursor);
        EXPECT_EQ(tool->getOperatingCursor().shape(), Qt::ClosedHandCursor) << state;
        const bool isOperating = std::string(state) == "operating";
        EXPECT_EQ(heard().join(QLatin1Char(' ')), QLatin1String(isOperating ? "cursor(t)" : ""))
            << state;
    }
}

TEST_F(InteractiveToolTest, anAnnouncedCursorIsSetAlready)
{
    bringToolTo("operating");
    Qt::CursorShape seen = Qt::BlankCursor;
    recorder->react("cursor(t)", [&] { seen = tool->getOperatingCursor().shape(); });
    tool->setOperatingCursor(Qt::ClosedHandCursor);
    EXPECT_EQ(seen, Qt::ClosedHandCursor);
}

TEST_F(InteractiveToolTest, loadsACursorOutOfAFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("cursor.png"));
    QPixmap pixmap(16, 12);
    pixmap.fill(Qt::red);
    ASSERT_TRUE(pixmap.save(path));
    const QCursor cursor = TestTool::loadCursorFromPath(path, {5, 7});
    EXPECT_EQ(cursor.shape(), Qt::BitmapCursor);
    EXPECT_EQ(cursor.pixmap().size(), QSize(16, 12));
    EXPECT_EQ(cursor.hotSpot(), QPoint(5, 7));
}

TEST_F(InteractiveToolTest, aFileThatCannotBeReadGivesTheDefaultCursor)
{
    for (const char *path : {"", "/there/is/none.png", ":/images"}) {
        const QCursor cursor = TestTool::loadCursorFromPath(QString::fromLatin1(path), {5, 7});
        EXPECT_EQ(cursor.shape(), Qt::ArrowCursor) << path;
    }
}

void expectEmpty(const QMouseEvent &event)
{
    EXPECT_EQ(event.type(), QEvent::None);
    EXPECT_EQ(event.localPos(), QPointF());
    EXPECT_EQ(event.button(), Qt::NoButton);
    EXPECT_EQ(event.buttons(), Qt::NoButton);
    EXPECT_EQ(event.modifiers(), Qt::NoModifier);
}

TEST_F(InteractiveToolTest, aPressStartsAnOperationThatLastsUntilTheButtonComesUp)
{
    bringToolTo("active");
    EXPECT_TRUE(press(*tool, Qt::LeftButton));
    EXPECT_EQ(heard().join(QLatin1Char(' ')), QLatin1String("began(t) cursor(t)"));
    EXPECT_TRUE(move(*tool, Qt::LeftButton));
    EXPECT_TRUE(tool->isOperating());
    EXPECT_TRUE(release(*tool, Qt::LeftButton));
    EXPECT_EQ(heard().join(QLatin1Char(' ')), QLatin1String("ended(t)"));
    EXPECT_TRUE(tool->isActive());
}

TEST_F(InteractiveToolTest, thePressIsTakenInTheActiveStateOnly)
{
    for (const char *state : {"inactive", "suspended", "operating"}) {
        tool = std::make_unique<TestTool>(QStringLiteral("t"));
        tool->setDelegate(recorder, false);
        bringToolTo(state);
        EXPECT_FALSE(press(*tool, Qt::LeftButton)) << state;
        EXPECT_EQ(tool->state(), QLatin1String(state));
        EXPECT_EQ(heard(), QStringList());
        expectEmpty(tool->startEvent());
    }
}

TEST_F(InteractiveToolTest, keepsACopyOfThePressWhileItOperates)
{
    expectEmpty(tool->startEvent());
    bringToolTo("active");
    QEvent::Type typeAtStart = QEvent::None;
    recorder->react("began(t)", [&] { typeAtStart = tool->startEvent().type(); });
    press(*tool, Qt::RightButton, {30, 40});
    EXPECT_EQ(typeAtStart, QEvent::MouseButtonPress);
    EXPECT_EQ(tool->startEvent().localPos(), QPointF(30, 40));
    EXPECT_EQ(tool->startEvent().button(), Qt::RightButton);
    EXPECT_EQ(tool->startEvent().buttons(), Qt::RightButton);
    EXPECT_EQ(tool->startEvent().modifiers(), Qt::ShiftModifier);
    release(*tool, Qt::RightButton);
    expectEmpty(tool->startEvent());
}

TEST_F(InteractiveToolTest, aSecondButtonChangesNothing)
{
    bringToolTo("active");
    press(*tool, Qt::LeftButton, {1, 2});
    heard();
    EXPECT_FALSE(press(*tool, Qt::RightButton, {9, 9}));
    EXPECT_EQ(tool->startEvent().localPos(), QPointF(1, 2));
    EXPECT_EQ(tool->startEvent().button(), Qt::LeftButton);
    EXPECT_TRUE(move(*tool, Qt::LeftButton | Qt::RightButton));
    EXPECT_FALSE(release(*tool, Qt::RightButton));
    EXPECT_TRUE(tool->isOperating());
    EXPECT_EQ(heard(), QStringList());
    EXPECT_TRUE(release(*tool, Qt::LeftButton));
    EXPECT_TRUE(tool->isActive());
}

TEST_F(InteractiveToolTest, aMoveIsTakenWhileTheButtonOfTheStartIsHeld)
{
    bringToolTo("active");
    EXPECT_FALSE(move(*tool, Qt::LeftButton));
    press(*tool, Qt::LeftButton);
    EXPECT_FALSE(move(*tool, Qt::NoButton));
    EXPECT_FALSE(move(*tool, Qt::RightButton));
    EXPECT_TRUE(tool->isOperating());
    EXPECT_TRUE(move(*tool, Qt::LeftButton));
}

TEST_F(InteractiveToolTest, aReleaseIsTakenInAnOperationOnly)
{
    for (const char *state : {"inactive", "active", "suspended"}) {
        tool = std::make_unique<TestTool>(QStringLiteral("t"));
        bringToolTo(state);
        EXPECT_FALSE(release(*tool, Qt::NoButton)) << state;
        EXPECT_EQ(tool->state(), QLatin1String(state));
    }
}

TEST_F(InteractiveToolTest, anOperationWithoutAPressIsNotEndedByTheMouse)
{
    bringToolTo("operating");
    expectEmpty(tool->startEvent());
    EXPECT_FALSE(move(*tool, Qt::NoButton));
    EXPECT_FALSE(move(*tool, Qt::LeftButton));
    EXPECT_FALSE(release(*tool, Qt::LeftButton));
    EXPECT_TRUE(tool->isOperating());
    EXPECT_TRUE(release(*tool, Qt::NoButton));
    EXPECT_TRUE(tool->isActive());
}

/// Counts how often the default input handling asks it to start and to end.
class BracketingTool : public TestTool
{
public:
    using TestTool::TestTool;
    int starts = 0;
    int ends = 0;

protected:
    void startOperation() override
    {
        ++starts;
        if (isAllowed)
            TestTool::startOperation();
    }
    void endOperation() override
    {
        ++ends;
        TestTool::endOperation();
    }

public:
    bool isAllowed = true;
    void endIt() { endOperation(); }
};

TEST_F(InteractiveToolTest, derivedToolsBracketTheOperation)
{
    BracketingTool bracketing;
    bracketing.activate();
    press(bracketing, Qt::LeftButton);
    release(bracketing, Qt::LeftButton);
    EXPECT_EQ(bracketing.starts, 1);
    EXPECT_EQ(bracketing.ends, 1);
}

TEST_F(InteractiveToolTest, theEndForgetsThePressAlsoWhenNothingOperates)
{
    BracketingTool refusing;
    refusing.isAllowed = false;
    refusing.activate();
    EXPECT_TRUE(press(refusing, Qt::LeftButton));
    EXPECT_TRUE(refusing.isActive());
    EXPECT_EQ(refusing.startEvent().type(), QEvent::MouseButtonPress);
    EXPECT_FALSE(move(refusing, Qt::LeftButton));
    EXPECT_FALSE(release(refusing, Qt::LeftButton));
    refusing.endIt();
    expectEmpty(refusing.startEvent());
    EXPECT_TRUE(refusing.isActive());
}

TEST_F(InteractiveToolTest, consumesNoOtherInput)
{
    bringToolTo("active");
    QMouseEvent doubleClick =
        mouseEvent(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton);
    QWheelEvent wheel({1, 2}, {1, 2}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, {});
    QEvent crossing(QEvent::Enter);
    EXPECT_FALSE(tool->mouseDoubleClick(&doubleClick));
    EXPECT_FALSE(tool->mouseWheel(&wheel));
    EXPECT_FALSE(tool->keyPress(&key) || tool->keyRelease(&key));
    EXPECT_FALSE(tool->mouseEnter(&crossing) || tool->mouseLeave(&crossing));
    EXPECT_TRUE(tool->isActive());
}

TEST_F(InteractiveToolTest, nullEventsAreNotTaken)
{
    bringToolTo("active");
    EXPECT_FALSE(tool->mousePress(nullptr));
    press(*tool, Qt::LeftButton);
    EXPECT_FALSE(tool->mouseMove(nullptr));
    EXPECT_FALSE(tool->mouseRelease(nullptr));
    EXPECT_TRUE(tool->isOperating());
}

TEST_F(InteractiveToolTest, mayDieOfAnyOfItsNotifications)
{
    for (const Transition &transition : transitions) {
        SCOPED_TRACE(transition.name);
        tool = std::make_unique<TestTool>(QStringLiteral("t"));
        tool->setDelegate(recorder, false);
        bringToolTo(transition.from);
        const QString first = QString::fromLatin1(transition.heard).section(QLatin1Char(' '), 0, 0);
        recorder->react(qPrintable(first), [this] { tool.reset(); });
        transition.call(*tool);
        EXPECT_EQ(tool, nullptr);
        EXPECT_EQ(heard(), QStringList {first});
    }
}

TEST_F(InteractiveToolTest, mayDieOfAPressAndOfARelease)
{
    bringToolTo("active");
    recorder->react("began(t)", [this] { tool.reset(); });
    EXPECT_TRUE(press(*tool, Qt::LeftButton));
    EXPECT_EQ(tool, nullptr);
    tool = std::make_unique<TestTool>(QStringLiteral("t"));
    tool->setDelegate(recorder, false);
    tool->activate();
    press(*tool, Qt::LeftButton);
    recorder->react("ended(t)", [this] { tool.reset(); });
    EXPECT_TRUE(release(*tool, Qt::LeftButton));
    EXPECT_EQ(tool, nullptr);
}

TEST_F(InteractiveToolTest, anOperationThatEndsInItsBeginShowsNoCursor)
{
    bringToolTo("active");
    recorder->react("began(t)", [this] { tool->endOperation(); });
    tool->startOperation();
    EXPECT_EQ(heard().join(QLatin1Char(' ')), QLatin1String("began(t) ended(t)"));
    EXPECT_TRUE(tool->isActive());
}

TEST_F(InteractiveToolTest, theOrderOfTheOperationsStays)
{
    using T = InteractiveTool;
    EXPECT_TRUE(areInFollowingSlots(&T::activate, &T::suspend, &T::resume, &T::deactivate,
                                    static_cast<void (T::*)()>(&TestTool::endOperation),
                                    static_cast<void (T::*)()>(&TestTool::startOperation)));
    EXPECT_GT(virtualSlot(&T::activate), virtualSlot(&ViewResponder::keyRelease));
}

} // namespace
