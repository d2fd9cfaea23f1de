// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandroll_p.h"

#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandgroup.h"

namespace Vela::UiBase {

std::shared_ptr<CommandBase> CommandRoll::Entry::lock() const
{
    if (isOwned)
        return owner.lock();
    return {std::shared_ptr<void>(), command};
}

/// The same owner means the same object, since the weak pointer keeps the owner's address taken.
bool CommandRoll::Entry::isOf(const std::shared_ptr<CommandBase> &other) const
{
    return other.get() == command && !owner.owner_before(other) && !other.owner_before(owner)
        && other->commandId() == id;
}

CommandRoll::CommandRoll(const CommandBag &bag)
{
    m_entries.reserve(bag.size());
    for (std::size_t position = 0; position < bag.size(); ++position) {
        if (bag[position].second)
            add(bag[position].second, position);
    }
}

void CommandRoll::add(const std::shared_ptr<CommandBase> &command, std::size_t position)
{
    const std::size_t place = m_entries.size();
    const auto *const group = qobject_cast<const CommandGroup *>(command.get());
    const CommandBag *const children = group ? &group->commandBag() : nullptr;
    // Another command could come to the address of one that nobody owns, and not be told from it.
    const bool isOwned = command.use_count() > 0;
    m_allOwned = m_allOwned && isOwned;
    m_entries.push_back({command->commandId(), command.get(), command, isOwned, group, children,
                         position, place + 1});
    if (!children)
        return;
    for (const auto &[id, child] : *children) {
        if (child)
            add(child, position);
    }
    m_entries[place].end = m_entries.size();
}

bool CommandRoll::describes(const CommandBag &bag) const
{
    std::size_t next = 0;
    return m_allOwned && matches(bag, next) && next == m_entries.size();
}

bool CommandRoll::matches(const CommandBag &bag, std::size_t &next) const
{
    for (const auto &[id, command] : bag) {
        if (!command)
            continue;
        if (next == m_entries.size())
            return false;
        const Entry &entry = m_entries[next++];
        if (!entry.isOf(command))
            return false;
        if (!entry.group)
            continue;
        const CommandBag *const children = &entry.group->commandBag();
        if (children != entry.children || !matches(*children, next) || next != entry.end)
            return false;
    }
    return true;
}

} // namespace Vela::UiBase
