// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandindex_p.h"

#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandgroup.h"

#include <algorithm>
#include <limits>

namespace Vela::UiBase {
namespace {

constexpr int none = -1;

/// Whether the class of @p command has left @p Class::getCommand() as it is. Only GCC can tell; with
/// other compilers every command is asked, which is slower and gives the same.
template<typename Class>
bool findsLike(CommandBase &command)
{
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpmf-conversions"
#pragma GCC diagnostic ignored "-Wpedantic"
    using Operation = CommandBase *(*)(Class *, const QString &);
    const auto actual = (Operation)(static_cast<Class &>(command).*(&Class::getCommand));
    const auto own = (Operation)(&Class::getCommand);
    return actual == own;
#pragma GCC diagnostic pop
#else
    Q_UNUSED(command)
    return false;
#endif
}

/// Whether the command of @p entry finds commands in a way known here.
bool isIndexable(const CommandRoll::Entry &entry)
{
    if (!entry.group)
        return findsLike<CommandBase>(*entry.command);
    // CommandGroup looks into the bag of its own, which need not be the one that the object offers.
    return findsLike<CommandGroup>(*entry.command)
        && &entry.group->CommandGroup::commandBag() == entry.children;
}

} // namespace

CommandIndex::CommandIndex(std::shared_ptr<const CommandRoll> roll)
    : m_roll(std::move(roll))
{
    const std::vector<CommandRoll::Entry> &entries = m_roll->entries();
    m_hits.reserve(entries.size());
    m_first.reserve(static_cast<int>(entries.size()));
    std::vector<std::size_t> tops;
    for (std::size_t top = 0; top < entries.size(); top = entries[top].end)
        tops.push_back(top);
    // From the back, so that the hits of an id, each put before the others, come in order.
    std::for_each(tops.rbegin(), tops.rend(), [this](std::size_t top) { addTop(top); });
    std::reverse(m_asked.begin(), m_asked.end());
}

void CommandIndex::find(const QString &id, std::vector<Found> &found)
{
    auto asked = m_asked.begin();
    const auto askUntil = [&](std::size_t position) {
        for (; asked != m_asked.end() && entryAt(*asked).position < position; ++asked)
            ask(entryAt(*asked), id, found);
    };
    for (int hit = firstHit(id); hit != none; hit = m_hits[std::size_t(hit)].next) {
        const CommandRoll::Entry &entry = entryAt(m_hits[std::size_t(hit)].entry);
        askUntil(entry.position);
        if (std::shared_ptr<CommandBase> command = entry.lock())
            found.push_back({std::move(command), entry.group != nullptr});
    }
    askUntil(std::numeric_limits<std::size_t>::max());
}

/// Contexts tell their ids in one order, so what is looked for after an id is mostly what was looked
/// for after it the last time, and comparing costs less than a look into the table.
int CommandIndex::firstHit(const QString &id)
{
    const int guess = m_last == none ? none : m_hits[std::size_t(m_last)].successor;
    const bool isGuessed = guess != none && idOf(guess) == id;
    const int first = isGuessed ? guess : m_first.value(id, none);
    if (m_last != none)
        m_hits[std::size_t(m_last)].successor = first;
    m_last = first;
    return first;
}

void CommandIndex::ask(const CommandRoll::Entry &entry, const QString &id,
                       std::vector<Found> &found)
{
    const std::shared_ptr<CommandBase> asked = entry.lock();
    CommandBase *const command = asked ? asked->getCommand(id) : nullptr;
    if (!command)
        return;
    std::shared_ptr<CommandBase> owner(command->weak_from_this().lock(), command);
    found.push_back({std::move(owner), qobject_cast<CommandGroup *>(command) != nullptr});
}

/// Adds the ids of the entry at the top of the bag and of all below it, if all of them can be known.
void CommandIndex::addTop(std::size_t index)
{
    const auto first = m_roll->entries().begin() + std::ptrdiff_t(index);
    const auto last = m_roll->entries().begin() + std::ptrdiff_t(first->end);
    if (!std::all_of(first, last, isIndexable)) {
        m_asked.push_back(index);
        return;
    }
    for (std::size_t i = index; i < first->end; ++i)
        addHit(i);
}

/// Adds an entry unless one of its id stands below the same entry of the bag already.
void CommandIndex::addHit(std::size_t index)
{
    const CommandRoll::Entry &entry = entryAt(index);
    const int first = m_first.value(entry.id, none);
    if (first != none && entryAt(m_hits[std::size_t(first)].entry).position == entry.position)
        return;
    m_first.insert(entry.id, static_cast<int>(m_hits.size()));
    m_hits.push_back({index, first, none});
}

} // namespace Vela::UiBase
