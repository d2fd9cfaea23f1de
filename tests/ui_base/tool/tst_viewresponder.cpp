// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/viewresponder.h"

#include "ui_base/tool/virtualslot.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>

#include <type_traits>

using Vela::UiBase::ViewResponder;

// An interface that is only ever a base, without data and without a destructor of its own.
static_assert(!std::has_virtual_destructor_v<ViewResponder>);
static_assert(!std::is_destructible_v<ViewResponder>);
static_assert(sizeof(ViewResponder) == sizeof(void *));

namespace {

template<typename Event>
using Operation = bool (ViewResponder::*)(Event *);

constexpr Operation<QMouseEvent> mouseOperations[] = {
    &ViewResponder::mouseDoubleClick, &ViewResponder::mouseMove, &ViewResponder::mousePress,
    &ViewResponder::mouseRelease};
constexpr Operation<QWheelEvent> wheelOperation = &ViewResponder::mouseWheel;
constexpr Operation<QEvent> crossingOperations[] = {&ViewResponder::mouseEnter,
                                                    &ViewResponder::mouseLeave};
constexpr Operation<QDragEnterEvent> dragEnterOperation = &ViewResponder::mouseDragEnter;
constexpr Operation<QDragLeaveEvent> dragLeaveOperation = &ViewResponder::mouseDragLeave;
constexpr Operation<QDragMoveEvent> dragMoveOperation = &ViewResponder::mouseDragMove;
constexpr Operation<QDropEvent> dropOperation = &ViewResponder::mouseDrop;
constexpr Operation<QKeyEvent> keyOperations[] = {&ViewResponder::keyPress,
                                                  &ViewResponder::keyRelease};

class Bystander final : public ViewResponder
{ };

class Listener : public ViewResponder
{
public:
    virtual ~Listener() = default;

    bool mouseDoubleClick(QMouseEvent *) override { return hear("mouseDoubleClick"); }
    bool mouseMove(QMouseEvent *) override { return hear("mouseMove"); }
    bool mousePress(QMouseEvent *) override { return hear("mousePress"); }
    bool mouseRelease(QMouseEvent *) override { return hear("mouseRelease"); }
    bool mouseWheel(QWheelEvent *) override { return hear("mouseWheel"); }
    bool mouseEnter(QEvent *) override { return hear("mouseEnter"); }
    bool mouseLeave(QEvent *) override { return hear("mouseLeave"); }
    bool mouseDragEnter(QDragEnterEvent *) override { return hear("mouseDragEnter"); }
    bool mouseDragLeave(QDragLeaveEvent *) override { return hear("mouseDragLeave"); }
    bool mouseDragMove(QDragMoveEvent *) override { return hear("mouseDragMove"); }
    bool mouseDrop(QDropEvent *) override { return hear("mouseDrop"); }
    bool keyPress(QKeyEvent *) override { return hear("keyPress"); }
    bool keyRelease(QKeyEvent *) override { return hear("keyRelease"); }

    std::string heard;

private:
    bool hear(const char *operation)
    {
        heard = operation;
        return true;
    }
};

/// Drag events are made with an application only.
class ViewResponderTest : public testing::Test
{
protected:
    int argc = 1;
    char name[18] = "tst_viewresponder";
    char *argv[2] = {name, nullptr};
    QApplication application {argc, argv};
};

/// Sends one event of each of the thirteen kinds, in the order of the interface, and collects what
/// @p call answers.
template<typename Call>
auto sendAll(ViewResponder &responder, const Call &call)
{
    QMouseEvent mouse(QEvent::MouseButtonPress, {1, 2}, Qt::LeftButton, Qt::LeftButton, {});
    QWheelEvent wheel({1, 2}, {1, 2}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QEvent enter(QEvent::Enter);
    QMimeData data;
    QDragEnterEvent dragEnter({1, 2}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QDragLeaveEvent dragLeave;
    QDragMoveEvent dragMove({1, 2}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QDropEvent drop({1, 2}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, {});

    std::vector<decltype(call(true))> answers;
    for (const auto operation : mouseOperations)
        answers.push_back(call((responder.*operation)(&mouse)));
    answers.push_back(call((responder.*wheelOperation)(&wheel)));
    for (const auto operation : crossingOperations)
        answers.push_back(call((responder.*operation)(&enter)));
    answers.push_back(call((responder.*dragEnterOperation)(&dragEnter)));
    answers.push_back(call((responder.*dragLeaveOperation)(&dragLeave)));
    answers.push_back(call((responder.*dragMoveOperation)(&dragMove)));
    answers.push_back(call((responder.*dropOperation)(&drop)));
    for (const auto operation : keyOperations)
        answers.push_back(call((responder.*operation)(&key)));
    return answers;
}

TEST_F(ViewResponderTest, consumesNothingByDefault)
{
    Bystander bystander;
    const auto answers = sendAll(bystander, [](bool consumed) { return int(consumed); });
    EXPECT_EQ(answers, std::vector<int>(13, 0));
}

TEST_F(ViewResponderTest, eachOfTheThirteenOperationsCanBeOverridden)
{
    Listener listener;
    const auto heard = sendAll(listener, [&listener](bool consumed) {
        return consumed ? listener.heard : std::string("not consumed");
    });
    const std::vector<std::string> expected = {
        "mouseDoubleClick", "mouseMove",  "mousePress",     "mouseRelease",   "mouseWheel",
        "mouseEnter",       "mouseLeave", "mouseDragEnter", "mouseDragLeave", "mouseDragMove",
        "mouseDrop",        "keyPress",   "keyRelease"};
    EXPECT_EQ(heard, expected);
}

TEST_F(ViewResponderTest, theOrderOfTheOperationsStays)
{
    using R = ViewResponder;
    EXPECT_EQ(Lumo::Test::virtualSlot(&R::mouseDoubleClick), 0u);
    EXPECT_TRUE(Lumo::Test::areInFollowingSlots(
        &R::mouseDoubleClick, &R::mouseMove, &R::mousePress, &R::mouseRelease, &R::mouseWheel,
        &R::mouseEnter, &R::mouseLeave, &R::mouseDragEnter, &R::mouseDragLeave, &R::mouseDragMove,
        &R::mouseDrop, &R::keyPress, &R::keyRelease));
}

} // namespace
