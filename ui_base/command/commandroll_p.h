// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/commandbag.h"

#include <QString>

#include <memory>
#include <vector>

namespace Vela::UiBase {

class CommandGroup;

/// The commands of a bag and of the groups in it, in the order in which a walk meets them, as they were
/// when it was made. It owns none of them, so it may be kept from one walk to the next: describes()
/// tells whether a walk would still meet the same.
class CommandRoll
{
public:
    struct Entry
    {
        /// The command, kept alive by the result; null when it has died.
        std::shared_ptr<CommandBase> lock() const;
        bool isOf(const std::shared_ptr<CommandBase> &other) const;

        QString id;
        CommandBase *command;
        std::weak_ptr<CommandBase> owner;
        bool isOwned;
        /// The command if it is a group, and what the group then gave as its bag.
        const CommandGroup *group;
        const CommandBag *children;
        /// The place in the bag of the command, or of the group at the top that it stands below.
        std::size_t position;
        /// Where the entries of the commands below this one end; they follow it.
        std::size_t end;
    };

    explicit CommandRoll(const CommandBag &bag);

    /// Whether @p bag and the groups in it hold the very same commands in the same places, and all of
    /// them tell the ids that they told. Asks every command.
    bool describes(const CommandBag &bag) const;

    const std::vector<Entry> &entries() const { return m_entries; }

private:
    void add(const std::shared_ptr<CommandBase> &command, std::size_t position);
    bool matches(const CommandBag &bag, std::size_t &next) const;

    std::vector<Entry> m_entries;
    bool m_allOwned = true;
};

} // namespace Vela::UiBase
