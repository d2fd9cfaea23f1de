// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/commandroll_p.h"

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

namespace Vela::UiBase {

/// Finds by id what CommandBase::getCommand() of each command in a bag would give, without asking
/// all of them for each id. It knows the commands as its roll does.
///
/// Commands of classes that find commands in a way of their own are asked as ever.
class CommandIndex
{
public:
    struct Found
    {
        std::shared_ptr<CommandBase> command;
        bool isGroup;
    };

    explicit CommandIndex(std::shared_ptr<const CommandRoll> roll);

    const std::shared_ptr<const CommandRoll> &roll() const { return m_roll; }

    /// Appends the commands that the entries of the bag give for @p id, in the order of the bag. One
    /// that has died is left out, and one that nobody owns is not kept alive.
    void find(const QString &id, std::vector<Found> &found);

    /// Changes whenever addCommand() or removeCommand() changes some bag of the process, and tells so
    /// that a roll may describe its bag no longer.
    static unsigned generation() { return CommandBag::generation(); }

private:
    struct Hit
    {
        std::size_t entry;
        // The next hit of the id.
        int next;
        // The hit that was looked for after this one.
        int successor;
    };

    const CommandRoll::Entry &entryAt(std::size_t index) const { return m_roll->entries()[index]; }
    const QString &idOf(int hit) const { return entryAt(m_hits[std::size_t(hit)].entry).id; }
    int firstHit(const QString &id);
    void addHit(std::size_t index);
    void addTop(std::size_t index);
    static void ask(const CommandRoll::Entry &entry, const QString &id, std::vector<Found> &found);

    std::shared_ptr<const CommandRoll> m_roll;
    QHash<QString, int> m_first;
    std::vector<Hit> m_hits;
    // The hit that find() has found last, none at first.
    int m_last = -1;
    // Entries at the top of the bag, in its order.
    std::vector<std::size_t> m_asked;
};

} // namespace Vela::UiBase
