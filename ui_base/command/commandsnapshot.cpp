// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandsnapshot_p.h"

#include "ui_base/command/commandbase.h"

#include <QHash>

namespace Vela::UiBase {

bool CommandSnapshot::refresh(const std::shared_ptr<const CommandRoll> &roll)
{
    if (!m_roll || m_roll != roll)
        return false;
    if (readStates())
        writeContext();
    return true;
}

void CommandSnapshot::remember(std::shared_ptr<const CommandRoll> roll, CommandContext context)
{
    clear();
    m_context = std::move(context);
    const std::vector<CommandRoll::Entry> &entries = roll->entries();
    const QMap<QString, CommandState> &map = m_context.get();
    // With ids that repeat a state can be made of those of several commands.
    if (std::size_t(map.size()) != entries.size())
        return;
    QHash<QString, std::size_t> entryOfId;
    entryOfId.reserve(map.size());
    for (std::size_t i = 0; i < entries.size(); ++i)
        entryOfId.insert(entries[i].id, i);
    m_order.reserve(entries.size());
    for (auto entry = map.keyBegin(); entry != map.keyEnd(); ++entry)
        m_order.push_back(entryOfId.value(*entry));
    m_roll = std::move(roll);
    m_states.resize(entries.size());
    readStates();
}

void CommandSnapshot::clear()
{
    m_roll.reset();
    m_context = CommandContext();
    m_states.clear();
    m_order.clear();
}

/// @return whether a state differs from that of before
bool CommandSnapshot::readStates()
{
    bool hasChanged = false;
    for (std::size_t i = 0; i < m_states.size(); ++i) {
        const CommandBase &command = *m_roll->entries()[i].command;
        const CommandState state(command.isEnabled(), command.isChecked());
        hasChanged = hasChanged || state != m_states[i];
        m_states[i] = state;
    }
    return hasChanged;
}

/// Into entries of its own: another thread may be reading those that were handed out.
void CommandSnapshot::writeContext()
{
    CommandContext written(m_context);
    auto place = m_order.cbegin();
    for (CommandState &state : written.map())
        state = m_states[*place++];
    m_context = std::move(written);
}

} // namespace Vela::UiBase
