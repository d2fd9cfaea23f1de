// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CommandState>
#include <ui_base/State>

#include <gtest/gtest.h>

#include <QVariant>

#include <algorithm>
#include <type_traits>
#include <vector>

namespace {

using Vela::UiBase::CommandState;
using Vela::UiBase::State;

constexpr State::Action Off = State::Off;
constexpr State::Action On = State::On;
constexpr State::Action Keep = State::Keep;
constexpr State::Action actions[] = {Off, On, Keep};

static_assert(sizeof(State) == 4);
static_assert(sizeof(CommandState) == 8);
static_assert(std::is_nothrow_copy_constructible_v<State>);
static_assert(std::is_trivially_copy_constructible_v<State>);
static_assert(std::is_trivially_destructible_v<State>);
static_assert(std::is_nothrow_copy_assignable_v<State>);
static_assert(std::is_nothrow_swappable_v<State>);
static_assert(std::is_nothrow_copy_assignable_v<CommandState>);
static_assert(std::is_nothrow_swappable_v<CommandState>);
static_assert(std::is_same_v<std::underlying_type_t<State::Action>, std::int32_t>);
static_assert(int(State::Off) == 0 && int(State::On) == 1 && int(State::Keep) == 2);

// Usable in constant expressions.
static_assert(State() == Keep);
static_assert(State(true) == On && State(false) == Off);
static_assert(CommandState() == CommandState(Off, Off));

TEST(State, DefaultIsKeep)
{
    EXPECT_EQ(State::Action(State()), Keep);
}

TEST(State, StoresTheGivenValue)
{
    for (const State::Action action : actions)
        EXPECT_EQ(State::Action(State(action)), action);
    EXPECT_EQ(State::Action(State(true)), On);
    EXPECT_EQ(State::Action(State(false)), Off);
}

TEST(State, CopiesArePlain)
{
    for (const State::Action action : actions) {
        const State original(action);
        const State copy(original);
        EXPECT_EQ(State::Action(copy), action);
    }
}

TEST(State, AssignmentSkipsKeep)
{
    for (const State::Action left : actions) {
        for (const State::Action right : actions) {
            const State::Action expected = right == Keep ? left : right;
            State fromState(left);
            fromState = State(right);
            EXPECT_EQ(State::Action(fromState), expected) << left << " = State " << right;
            State fromAction(left);
            fromAction = right;
            EXPECT_EQ(State::Action(fromAction), expected) << left << " = Action " << right;
        }
    }
}

TEST(State, AssignmentReturnsTheLeftSide)
{
    State state(On);
    EXPECT_EQ(&(state = State(Keep)), &state);
    EXPECT_EQ(&(state = Off), &state);
}

TEST(State, AssignsBool)
{
    State state;
    state = true;
    EXPECT_EQ(State::Action(state), On);
    state = false;
    EXPECT_EQ(State::Action(state), Off);
}

TEST(State, OverwriteTakesKeepToo)
{
    for (const State::Action left : actions) {
        for (const State::Action right : actions) {
            State state(left);
            EXPECT_EQ(&state.overwrite(State(right)), &state);
            EXPECT_EQ(State::Action(state), right);
        }
    }
}

TEST(State, NegationSwapsOnAndOffAndLeavesKeep)
{
    const State on(On);
    EXPECT_EQ(State::Action(!on), Off);
    EXPECT_EQ(State::Action(on), On);
    EXPECT_EQ(State::Action(!State(Off)), On);
    EXPECT_EQ(State::Action(!State(Keep)), Keep);
}

TEST(State, OnlyOnReadsAsTrue)
{
    const State keep(Keep);
    EXPECT_TRUE(bool(State(On)));
    EXPECT_FALSE(bool(State(Off)));
    EXPECT_FALSE(bool(keep));

    State changeable(Keep);
    EXPECT_FALSE(changeable ? true : false);
    const bool copied = changeable;
    EXPECT_FALSE(copied);
}

struct Combination
{
    State::Action left;
    State::Action right;
    State::Action result;
};

TEST(State, AndFollowsItsTable)
{
    const Combination table[] = {
        {Off, Off, Off},  {Off, On, Off}, {Off, Keep, Off}, //
        {On, Off, Off},   {On, On, On},   {On, Keep, On},   //
        {Keep, Off, Off}, {Keep, On, On}, {Keep, Keep, Keep},
    };
    for (const Combination &row : table) {
        State state(row.left);
        EXPECT_EQ(&(state &= State(row.right)), &state);
        EXPECT_EQ(State::Action(state), row.result) << row.left << " &= " << row.right;
    }
}

TEST(State, OrFollowsItsTable)
{
    const Combination table[] = {
        {Off, Off, Off},  {Off, On, On},  {Off, Keep, Off}, //
        {On, Off, On},    {On, On, On},   {On, Keep, On},   //
        {Keep, Off, Off}, {Keep, On, On}, {Keep, Keep, Keep},
    };
    for (const Combination &row : table) {
        State state(row.left);
        EXPECT_EQ(&(state |= State(row.right)), &state);
        EXPECT_EQ(State::Action(state), row.result) << row.left << " |= " << row.right;
    }
}

TEST(State, ExclusiveOrFollowsItsTable)
{
    const Combination table[] = {
        {Off, Off, Off},  {Off, On, On},  {Off, Keep, Off}, //
        {On, Off, On},    {On, On, Off},  {On, Keep, On},   //
        {Keep, Off, Off}, {Keep, On, On}, {Keep, Keep, Keep},
    };
    for (const Combination &row : table) {
        State state(row.left);
        EXPECT_EQ(&(state ^= State(row.right)), &state);
        EXPECT_EQ(State::Action(state), row.result) << row.left << " ^= " << row.right;
    }
}

TEST(State, ComparesByValue)
{
    for (const State::Action left : actions) {
        for (const State::Action right : actions) {
            const bool isSame = left == right;
            EXPECT_EQ(State(left) == State(right), isSame);
            EXPECT_EQ(State(left) == right, isSame);
            EXPECT_EQ(left == State(right), isSame);
            EXPECT_EQ(State(left) != State(right), !isSame);
            EXPECT_EQ(State(left) != right, !isSame);
            EXPECT_EQ(left != State(right), !isSame);
        }
    }
}

TEST(State, AlgorithmsThatSwapCarryKeep)
{
    std::vector<State> states {On, Keep, Off};
    std::reverse(states.begin(), states.end());
    EXPECT_EQ(states, (std::vector<State> {Off, Keep, On}));
    std::swap(states[0], states[1]);
    using std::swap;
    swap(states[1], states[2]);
    EXPECT_EQ(State::Action(states[2]), Off);
}

TEST(CommandState, DefaultIsStatedAndOff)
{
    const CommandState state;
    EXPECT_EQ(State::Action(state.enabled), Off);
    EXPECT_EQ(State::Action(state.checked), Off);
}

TEST(CommandState, ConstructionAndCopiesCarryKeep)
{
    const CommandState state(Keep, On);
    EXPECT_EQ(State::Action(state.enabled), Keep);
    EXPECT_EQ(State::Action(state.checked), On);
    const CommandState copy(state);
    EXPECT_EQ(State::Action(copy.enabled), Keep);
    EXPECT_EQ(State::Action(copy.checked), On);
}

TEST(CommandState, AssignmentSkipsKeepByField)
{
    for (const State::Action enabled : actions) {
        for (const State::Action checked : actions) {
            CommandState state(On, Off);
            EXPECT_EQ(&(state = CommandState(enabled, checked)), &state);
            EXPECT_EQ(State::Action(state.enabled), enabled == Keep ? On : enabled);
            EXPECT_EQ(State::Action(state.checked), checked == Keep ? Off : checked);
        }
    }
}

TEST(CommandState, OverwriteTakesKeepToo)
{
    CommandState state(On, Off);
    EXPECT_EQ(&state.overwrite({Keep, Keep}), &state);
    EXPECT_EQ(state, CommandState(Keep, Keep));
}

TEST(CommandState, ComparesBothFields)
{
    EXPECT_TRUE(CommandState(On, Keep) == CommandState(On, Keep));
    EXPECT_TRUE(CommandState(On, Keep) != CommandState(On, Off));
    EXPECT_TRUE(CommandState(Off, Keep) != CommandState(On, Keep));
}

TEST(CommandState, SwapCarriesKeep)
{
    CommandState left(Keep, On);
    CommandState right(Off, Keep);
    swap(left, right);
    EXPECT_EQ(left, CommandState(Off, Keep));
    EXPECT_EQ(right, CommandState(Keep, On));
}

TEST(CommandState, TravelsInAVariant)
{
    const CommandState keepOn(Keep, On);
    QVariant variant = QVariant::fromValue(CommandState(Off, Off));
    variant.setValue(keepOn);
    EXPECT_EQ(variant.value<CommandState>(), keepOn);
    EXPECT_STREQ(variant.typeName(), "Vela::UiBase::CommandState");
}

} // namespace
