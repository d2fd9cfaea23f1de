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

const CommandBag *plainChildrenOf(CommandBase &command)
{
    auto *const group = qobject_cast<CommandGroup *>(&command);
    return group && findsLike<CommandGroup>(command) ? &group->commandBag() : nullptr;
}

/// Whether @p command and all below it find commands in the ways known here.
bool isIndexable(CommandBase &command)
{
    if (findsLike<CommandBase>(command))
        return true;
    const CommandBag *const children = plainChildrenOf(command);
    return children && std::all_of(children->begin(), children->end(), [](const auto &entry) {
               return !entry.second || isIndexable(*entry.second);
           });
}

} // namespace

CommandIndex::CommandIndex(const CommandBag &bag)
    : m_generation(CommandBag::generation())
{
    m_hits.reserve(bag.size());
    m_first.reserve(static_cast<int>(bag.size()));
    // From the back, so that the hits of an id, each put before the others, come in order.
    for (std::size_t position = bag.size(); position-- > 0;) {
        if (bag[position].second)
            addEntry(bag[position].second, position);
    }
}

bool CommandIndex::isCurrent() const
{
    return m_generation == CommandBag::generation();
}

void CommandIndex::find(const QString &id, std::vector<std::shared_ptr<CommandBase>> &found) const
{
    auto asked = m_asked.rbegin();
    const auto askUntil = [&](std::size_t position) {
        for (; asked != m_asked.rend() && asked->position < position; ++asked) {
            if (CommandBase *const command = asked->command->getCommand(id))
                found.emplace_back(command->weak_from_this().lock(), command);
        }
    };
    for (int hit = m_first.value(id, none); hit != none; hit = m_hits[std::size_t(hit)].next) {
        askUntil(m_hits[std::size_t(hit)].position);
        found.push_back(m_hits[std::size_t(hit)].command);
    }
    askUntil(std::numeric_limits<std::size_t>::max());
}

void CommandIndex::addEntry(const std::shared_ptr<CommandBase> &command, std::size_t position)
{
    if (isIndexable(*command))
        addHits(command, position);
    else
        m_asked.push_back({command, position});
}

/// Adds the ids of a command and of all below it, the first of each, for one entry of the bag.
void CommandIndex::addHits(const std::shared_ptr<CommandBase> &command, std::size_t position)
{
    const QString id = command->commandId();
    const int first = m_first.value(id, none);
    if (first == none || m_hits[std::size_t(first)].position != position) {
        m_first.insert(id, static_cast<int>(m_hits.size()));
        m_hits.push_back({command, position, first});
    }
    if (const auto *const group = qobject_cast<const CommandGroup *>(command.get())) {
        for (const auto &[childId, child] : group->commandBag()) {
            if (child)
                addHits(child, position);
        }
    }
}

} // namespace Vela::UiBase
