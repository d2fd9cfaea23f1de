// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CommandContext>

#include "support/failingnew.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <functional>
#include <type_traits>
#include <vector>

namespace {

using Lumo::Test::FailingNew;
using Vela::UiBase::CommandContext;
using Vela::UiBase::CommandState;
using Vela::UiBase::State;

constexpr State::Action Off = State::Off;
constexpr State::Action On = State::On;
constexpr State::Action Keep = State::Keep;
constexpr State::Action actions[] = {Off, On, Keep};

static_assert(std::is_nothrow_move_constructible_v<CommandContext>);
static_assert(std::is_nothrow_move_assignable_v<CommandContext>);
static_assert(sizeof(CommandContext) == sizeof(void *));

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString c = QStringLiteral("c");

CommandContext contextOf(std::initializer_list<std::pair<QString, CommandState>> entries)
{
    CommandContext context;
    for (const auto &[id, state] : entries)
        context.overwrite(id, state);
    return context;
}

QStringList idsOf(const CommandContext &context)
{
    return context.get().keys();
}

/// Every context over the ids a and b: each is missing or has one of the nine states.
std::vector<CommandContext> allSmallContexts()
{
    std::vector<CommandContext> contexts {CommandContext()};
    for (const QString &id : {a, b}) {
        for (std::size_t i = 0, count = contexts.size(); i < count; ++i) {
            for (const State::Action enabled : actions) {
                for (const State::Action checked : actions) {
                    contexts.push_back(contexts[i]);
                    contexts.back().overwrite(id, {enabled, checked});
                }
            }
        }
    }
    return contexts;
}

TEST(CommandContext, StartsEmpty)
{
    EXPECT_TRUE(CommandContext().get().isEmpty());
}

TEST(CommandContext, WalksIdsInStringOrder)
{
    const CommandContext context =
        contextOf({{c, {}}, {a, {}}, {QStringLiteral("B"), {}}, {b, {}}});
    EXPECT_EQ(idsOf(context), QStringList({QStringLiteral("B"), a, b, c}));
}

TEST(CommandContext, ReadingAMissingIdInsertsIt)
{
    CommandContext context;
    EXPECT_EQ(context[a], CommandState(Off, Off));
    EXPECT_EQ(idsOf(context), QStringList(a));

    const CommandContext &constant = context;
    EXPECT_EQ(constant[b], CommandState(Off, Off));
    EXPECT_EQ(idsOf(context), QStringList({a, b}));
}

TEST(CommandContext, ConstReadGivesTheEntryByValue)
{
    const CommandContext context = contextOf({{a, {Keep, On}}});
    EXPECT_EQ(context[a], CommandState(Keep, On));
    static_assert(std::is_same_v<decltype(context[a]), CommandState>);
}

TEST(CommandContext, WritesThroughTheReference)
{
    CommandContext context;
    context[a].checked = On;
    EXPECT_EQ(context.get().value(a), CommandState(Off, On));
}

TEST(CommandContext, CopiesArePlainAndIndependent)
{
    const CommandContext original = contextOf({{a, {Keep, On}}, {b, {Off, Keep}}});
    CommandContext copy(original);
    EXPECT_EQ(copy, original);
    copy.overwrite({On, On});
    copy[c];
    EXPECT_EQ(original, contextOf({{a, {Keep, On}}, {b, {Off, Keep}}}));
}

TEST(CommandContext, AssignmentIsPlain)
{
    const CommandContext source = contextOf({{a, {Keep, Keep}}});
    CommandContext target = contextOf({{a, {On, On}}, {b, {On, On}}});
    target = source;
    EXPECT_EQ(target, source);
    const CommandContext &alias = target;
    target = alias;
    EXPECT_EQ(target, source);
}

TEST(CommandContext, EveryWriterLeavesTheSharedSourceAlone)
{
    const std::function<void(CommandContext &)> writers[] = {
        [](CommandContext &context) { context[a].enabled = Off; },
        [](CommandContext &context) { std::as_const(context)[c]; },
        [](CommandContext &context) {
            context &= contextOf({{a, {Off, Off}}});
        },
        [](CommandContext &context) {
            context |= contextOf({{b, {On, On}}});
        },
        [](CommandContext &context) {
            context.overwrite({Off, Off});
        },
        [](CommandContext &context) {
            context.overwrite(a, {Off, Off});
        },
        [](CommandContext &context) {
            context.update({Off, Off});
        },
        [](CommandContext &context) {
            context.update(a, {Off, Off});
        },
    };
    const CommandContext expected = contextOf({{a, {On, Keep}}});
    for (const auto &write : writers) {
        const CommandContext source = contextOf({{a, {On, Keep}}});
        CommandContext copy(source);
        write(copy);
        EXPECT_EQ(source, expected);
        EXPECT_NE(copy, expected);
    }
}

TEST(CommandContext, MovedFromContextIsEmptyAndUsable)
{
    CommandContext source = contextOf({{a, {On, On}}});
    CommandContext target(std::move(source));
    EXPECT_EQ(target, contextOf({{a, {On, On}}}));
    EXPECT_TRUE(source.get().isEmpty());

    CommandContext again(std::move(target));
    const CommandContext copyOfMoved(target);
    EXPECT_TRUE(copyOfMoved.get().isEmpty());
    target.update(b, {On, Off});
    EXPECT_EQ(target, contextOf({{b, {On, Off}}}));
}

TEST(CommandContext, EveryOperationWorksAfterAMove)
{
    const CommandContext other = contextOf({{a, {On, Keep}}});
    const auto moved = [] {
        CommandContext source;
        const CommandContext target(std::move(source));
        return source;
    };
    EXPECT_EQ(moved() | other, other);
    EXPECT_EQ(moved() & other, CommandContext());
    EXPECT_EQ(!moved(), CommandContext());
    EXPECT_EQ(other | moved(), other);
    const CommandContext empty = moved();
    EXPECT_EQ(empty[a], CommandState());
    CommandContext assigned = moved();
    assigned = other;
    EXPECT_EQ(assigned, other);
}

TEST(CommandContext, MoveAssignmentTakesTheEntries)
{
    CommandContext source = contextOf({{a, {Keep, On}}});
    CommandContext target = contextOf({{b, {On, On}}});
    target = std::move(source);
    EXPECT_EQ(target, contextOf({{a, {Keep, On}}}));
    source = contextOf({{c, {On, Off}}});
    EXPECT_EQ(idsOf(source), QStringList(c));
}

TEST(CommandContext, NegatesBothFactsAndLeavesKeep)
{
    const CommandContext context = contextOf({{a, {Keep, On}}, {b, {Off, Keep}}, {c, {On, Off}}});
    EXPECT_EQ(!context, contextOf({{a, {Keep, Off}}, {b, {On, Keep}}, {c, {Off, On}}}));
    EXPECT_EQ(context, contextOf({{a, {Keep, On}}, {b, {Off, Keep}}, {c, {On, Off}}}));
}

TEST(CommandContext, AndKeepsOwnEntriesCombinesSharedOnesAndTakesNone)
{
    const CommandContext left = contextOf({{a, {On, On}}, {b, {On, Keep}}});
    const CommandContext right = contextOf({{b, {Off, On}}, {c, {On, On}}});
    const CommandContext result = left & right;
    EXPECT_EQ(result, contextOf({{a, {On, On}}, {b, {Off, On}}}));
    EXPECT_EQ(left, contextOf({{a, {On, On}}, {b, {On, Keep}}}));
}

TEST(CommandContext, OrTakesMissingEntriesAsTheyStand)
{
    const CommandContext left = contextOf({{a, {On, On}}, {b, {Off, Keep}}});
    const CommandContext right = contextOf({{b, {On, Off}}, {c, {Keep, Keep}}});
    const CommandContext result = left | right;
    EXPECT_EQ(result, contextOf({{a, {On, On}}, {b, {On, Off}}, {c, {Keep, Keep}}}));
    EXPECT_EQ(left, contextOf({{a, {On, On}}, {b, {Off, Keep}}}));
}

TEST(CommandContext, CompoundOperatorsReturnTheLeftSide)
{
    CommandContext context;
    EXPECT_EQ(&(context |= CommandContext()), &context);
    EXPECT_EQ(&(context &= CommandContext()), &context);
}

TEST(CommandContext, CombiningAppliesTheOperatorOfStateToEachField)
{
    const std::vector<CommandContext> contexts = allSmallContexts();
    ASSERT_EQ(contexts.size(), 100u);
    for (const CommandContext &left : contexts) {
        for (const CommandContext &right : contexts) {
            CommandContext expectedAnd = left;
            CommandContext expectedOr = left;
            for (const QString &id : idsOf(right)) {
                const CommandState state = right.get().value(id);
                if (!left.get().contains(id)) {
                    expectedOr.overwrite(id, state);
                    continue;
                }
                expectedAnd[id].enabled &= state.enabled;
                expectedAnd[id].checked &= state.checked;
                expectedOr[id].enabled |= state.enabled;
                expectedOr[id].checked |= state.checked;
            }
            ASSERT_EQ(left & right, expectedAnd);
            ASSERT_EQ(left | right, expectedOr);
        }
    }
}

TEST(CommandContext, CombiningWithItselfChangesNothing)
{
    for (CommandContext context : allSmallContexts()) {
        const CommandContext before = context;
        context |= context;
        EXPECT_EQ(context, before);
        context &= context;
        EXPECT_EQ(context, before);
    }
}

TEST(CommandContext, OverwriteOfAllTakesKeepAndAddsNothing)
{
    CommandContext context = contextOf({{a, {On, On}}, {b, {Off, Off}}});
    context.overwrite({Keep, On});
    EXPECT_EQ(context, contextOf({{a, {Keep, On}}, {b, {Keep, On}}}));

    CommandContext empty;
    empty.overwrite({On, On});
    EXPECT_TRUE(empty.get().isEmpty());
}

TEST(CommandContext, UpdateOfAllSkipsKeepAndAddsNothing)
{
    CommandContext context = contextOf({{a, {On, On}}, {b, {Off, Off}}});
    context.update({Keep, On});
    EXPECT_EQ(context, contextOf({{a, {On, On}}, {b, {Off, On}}}));

    CommandContext empty;
    empty.update({On, On});
    EXPECT_TRUE(empty.get().isEmpty());
}

TEST(CommandContext, OverwriteOfAnEntryTakesKeep)
{
    CommandContext context = contextOf({{a, {On, On}}});
    context.overwrite(a, {Keep, Off});
    context.overwrite(b, {Keep, On});
    EXPECT_EQ(context, contextOf({{a, {Keep, Off}}, {b, {Keep, On}}}));
}

TEST(CommandContext, UpdateOfAnEntrySkipsKeep)
{
    CommandContext context = contextOf({{a, {On, On}}});
    context.update(a, {Keep, Off});
    context.update(b, {Keep, On});
    EXPECT_EQ(context, contextOf({{a, {On, Off}}, {b, {Off, On}}}));
}

TEST(CommandContext, AnEntryCanBeTheArgument)
{
    CommandContext context = contextOf({{a, {Keep, On}}, {b, {Off, Off}}});
    context.overwrite(context[a]);
    EXPECT_EQ(context, contextOf({{a, {Keep, On}}, {b, {Keep, On}}}));
    const CommandContext sharing(context);
    context.overwrite(c, *context.get().find(a));
    EXPECT_EQ(context.get().value(c), CommandState(Keep, On));
    EXPECT_EQ(idsOf(sharing), QStringList({a, b}));
}

TEST(CommandContext, IdsAreCaseSensitive)
{
    CommandContext context = contextOf({{a, {On, On}}});
    context.update(QStringLiteral("A"), {Off, Off});
    EXPECT_EQ(context.get().value(a), CommandState(On, On));
}

/// Walks @p operation through every failure of its allocations and expects each to change nothing.
void expectAllOrNothing(const CommandContext &start,
                        const std::function<void(CommandContext &)> &operation)
{
    CommandContext expected(start);
    operation(expected);
    for (std::size_t call = 0;; ++call) {
        CommandContext context(start);
        FailingNew fault(call);
        try {
            operation(context);
        } catch (const std::bad_alloc &) { }
        fault.disarm();
        EXPECT_EQ(context, fault.happened() ? start : expected) << "failing call " << call;
        if (!fault.happened())
            return;
    }
}

TEST(CommandContext, FailingAllocationsChangeNothing)
{
    const CommandContext start = contextOf({{a, {On, Keep}}, {b, {Off, On}}});
    const CommandContext other = contextOf({{b, {On, Off}}, {c, {Keep, On}}});
    expectAllOrNothing(start, [&](CommandContext &context) { context |= other; });
    expectAllOrNothing(start, [&](CommandContext &context) { context &= other; });
    expectAllOrNothing(start, [&](CommandContext &context) { context = context | other; });
    expectAllOrNothing(start, [&](CommandContext &context) { context = !context; });
    expectAllOrNothing(start, [&](CommandContext &context) { context = other; });
    expectAllOrNothing(start, [&](CommandContext &context) { context.update(c, {On, On}); });
    expectAllOrNothing(CommandContext(), [&](CommandContext &context) { context |= other; });
}

TEST(CommandContext, AFailingCopyLeaksNothing)
{
    const CommandContext start = contextOf({{a, {On, Keep}}});
    FailingNew fault(0);
    EXPECT_THROW(CommandContext copy(start), std::bad_alloc);
    fault.disarm();
    EXPECT_EQ(start, contextOf({{a, {On, Keep}}}));
}

} // namespace
