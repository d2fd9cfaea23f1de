// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/toolstateprotocol.h"

#include "ui_base/tool/virtualslot.h"

#include <gtest/gtest.h>

#include <type_traits>

using Vela::UiBase::InteractiveTool;
using Vela::UiBase::ToolStateProtocol;

static_assert(std::has_virtual_destructor_v<ToolStateProtocol>);
static_assert(std::is_copy_constructible_v<ToolStateProtocol>);
static_assert(std::is_nothrow_move_assignable_v<ToolStateProtocol>);

namespace {

using Operation = void (ToolStateProtocol::*)(InteractiveTool *);

constexpr Operation operations[] = {
    &ToolStateProtocol::toolActivated,      &ToolStateProtocol::toolDeactivated,
    &ToolStateProtocol::toolBeganOperating, &ToolStateProtocol::toolEndedOperating,
    &ToolStateProtocol::toolSuspended,      &ToolStateProtocol::toolResumed,
    &ToolStateProtocol::toolCursorChange};

class Listener : public ToolStateProtocol
{
public:
    void toolActivated(InteractiveTool *) override { heard.push_back("activated"); }
    void toolDeactivated(InteractiveTool *) override { heard.push_back("deactivated"); }
    void toolBeganOperating(InteractiveTool *) override { heard.push_back("began"); }
    void toolEndedOperating(InteractiveTool *) override { heard.push_back("ended"); }
    void toolSuspended(InteractiveTool *) override { heard.push_back("suspended"); }
    void toolResumed(InteractiveTool *) override { heard.push_back("resumed"); }
    void toolCursorChange(InteractiveTool *) override { heard.push_back("cursor"); }

    std::vector<std::string> heard;
};

TEST(ToolStateProtocol, allOperationsHaveEmptyDefaults)
{
    ToolStateProtocol observer;
    for (const Operation operation : operations)
        (observer.*operation)(nullptr);
}

TEST(ToolStateProtocol, reachesDelegateInTheExportedInstantiation)
{
    Tessel::Delegator<ToolStateProtocol> sender;
    const auto listener = std::make_shared<Listener>();
    sender.setDelegate(listener, false);
    for (const Operation operation : operations)
        sender.broadcast(operation, nullptr);
    const std::vector<std::string> expected = {"activated", "deactivated", "began", "ended",
                                               "suspended", "resumed",     "cursor"};
    EXPECT_EQ(listener->heard, expected);
}

TEST(ToolStateProtocol, theOrderOfTheOperationsStays)
{
    using P = ToolStateProtocol;
    EXPECT_TRUE(Lumo::Test::areInFollowingSlots(
        &P::toolActivated, &P::toolDeactivated, &P::toolBeganOperating, &P::toolEndedOperating,
        &P::toolSuspended, &P::toolResumed, &P::toolCursorChange));
}

} // namespace
