// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandbag.h"

#include "ui_base/command/commandbase.h"

#include <algorithm>
#include <atomic>

namespace Vela::UiBase {
namespace {

// Atomic because a thread may have bags of its own.
std::atomic<unsigned> changes {0};

// Ids of a family begin alike and differ at the end, so most are told apart by that without a call.
bool isSameId(const QString &left, const QString &right)
{
    const int size = left.size();
    return size == right.size()
        && (size == 0 || (left.at(size - 1) == right.at(size - 1) && left == right));
}

} // namespace

CommandBag::~CommandBag() = default;

bool CommandBag::addCommand(const std::shared_ptr<CommandBase> &command)
{
    if (!command)
        return false;
    const QString id = command->commandId();
    const auto isHere = [&](const value_type &entry) {
        return entry.second == command && isSameId(entry.first, id);
    };
    if (std::any_of(begin(), end(), isHere))
        return false;
    emplace_back(id, command);
    ++changes;
    return true;
}

bool CommandBag::addCommand(CommandBase *command)
{
    return command && addCommand(command->shared_from_this());
}

CommandBase *CommandBag::operator[](const QString &id) const
{
    return getCommand(id);
}

CommandBase *CommandBag::getCommand(const QString &id) const
{
    int index = 0;
    return getCommand(id, index);
}

CommandBase *CommandBag::getCommand(const QString &id, int &index) const
{
    const auto hasId = [&id](const value_type &entry) { return isSameId(entry.first, id); };
    const auto found = std::find_if(begin(), end(), hasId);
    index = static_cast<int>(found - begin());
    return found == end() ? nullptr : found->second.get();
}

bool CommandBag::hasCommand(const QString &id) const
{
    return getCommand(id) != nullptr;
}

bool CommandBag::hasCommand(const QString &id, int &index) const
{
    return getCommand(id, index) != nullptr;
}

CommandBase *CommandBag::commandAt(int index) const
{
    if (index < 0 || static_cast<size_type>(index) >= size())
        return nullptr;
    return (*this)[static_cast<size_type>(index)].second.get();
}

bool CommandBag::removeCommand(const QString &id)
{
    int index = 0;
    if (!hasCommand(id, index))
        return false;
    // Out of the bag first: the end of the command may ask the bag again.
    const value_type leaving = std::move((*this)[static_cast<size_type>(index)]);
    erase(begin() + index);
    ++changes;
    return true;
}

unsigned CommandBag::generation()
{
    return changes;
}

} // namespace Vela::UiBase
