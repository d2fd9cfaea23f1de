// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandcontext.h"

#include <vector>

namespace Vela::UiBase {
namespace {

using Map = QMap<QString, CommandState>;

/// Inserts into @p map the entries of @p other that it lacks, all of them or none.
void insertMissing(Map &map, const Map &other)
{
    std::vector<Map::iterator> inserted;
    inserted.reserve(static_cast<std::size_t>(other.size()));
    try {
        for (auto entry = other.cbegin(); entry != other.cend(); ++entry) {
            if (!map.contains(entry.key()))
                inserted.push_back(map.insert(entry.key(), entry.value()));
        }
    } catch (...) {
        for (const Map::iterator &entry : inserted)
            map.erase(entry);
        throw;
    }
}

} // namespace

CommandContext::CommandContext()
    : m_map(std::make_unique<Map>())
{ }

CommandContext::CommandContext(const CommandContext &other)
    : m_map(std::make_unique<Map>(other.get()))
{ }

CommandContext::CommandContext(CommandContext &&other) noexcept = default;

CommandContext::~CommandContext() = default;

CommandContext &CommandContext::operator=(const CommandContext &other)
{
    map() = other.get();
    return *this;
}

CommandContext &CommandContext::operator=(CommandContext &&other) noexcept
{
    m_map.swap(other.m_map);
    return *this;
}

const QMap<QString, CommandState> &CommandContext::get() const
{
    return map();
}

CommandContext::Map &CommandContext::map() const
{
    if (!m_map)
        m_map = std::make_unique<Map>();
    return *m_map;
}

CommandState &CommandContext::operator[](const QString &id)
{
    return map()[id];
}

CommandState CommandContext::operator[](const QString &id) const
{
    return map()[id];
}

CommandContext CommandContext::operator!() const
{
    CommandContext result(*this);
    for (CommandState &state : *result.m_map)
        state.overwrite({!state.enabled, !state.checked});
    return result;
}

CommandContext CommandContext::operator&(const CommandContext &other) const
{
    CommandContext result(*this);
    result &= other;
    return result;
}

CommandContext CommandContext::operator|(const CommandContext &other) const
{
    CommandContext result(*this);
    result |= other;
    return result;
}

CommandContext &CommandContext::operator&=(const CommandContext &other)
{
    Map &own = map();
    own.detach();
    const Map &theirs = other.get();
    for (auto entry = theirs.cbegin(); entry != theirs.cend(); ++entry) {
        const auto found = own.find(entry.key());
        if (found == own.end())
            continue;
        found->checked &= entry->checked;
        found->enabled &= entry->enabled;
    }
    return *this;
}

CommandContext &CommandContext::operator|=(const CommandContext &other)
{
    Map &own = map();
    own.detach();
    const Map &theirs = other.get();
    insertMissing(own, theirs);
    // An entry taken over just now meets itself here, which leaves it as it is.
    for (auto entry = theirs.cbegin(); entry != theirs.cend(); ++entry) {
        CommandState &state = *own.find(entry.key());
        state.checked |= entry->checked;
        state.enabled |= entry->enabled;
    }
    return *this;
}

void CommandContext::overwrite(const CommandState &state)
{
    // A copy, because the argument may be an entry of this very context.
    const CommandState value = state;
    for (CommandState &entry : map())
        entry.overwrite(value);
}

void CommandContext::overwrite(const QString &id, const CommandState &state)
{
    const CommandState value = state;
    map()[id].overwrite(value);
}

void CommandContext::update(const CommandState &state)
{
    const CommandState value = state;
    for (CommandState &entry : map())
        entry = value;
}

void CommandContext::update(const QString &id, const CommandState &state)
{
    const CommandState value = state;
    map()[id] = value;
}

} // namespace Vela::UiBase
