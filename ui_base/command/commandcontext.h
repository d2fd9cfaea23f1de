// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/commandstate.h"
#include "ui_base/uibaseexport.h"

#include <QMap>
#include <QString>

#include <memory>

namespace Vela::UiBase {

/// States of many commands by command id: what a command manager reads from its commands, applies
/// to them, and keeps on its stack.
///
/// Ids are case-sensitive and walked in the order of QString, never in that of insertion. Copies
/// are cheap: they share their data until one of them is written to. An operation that throws
/// std::bad_alloc has changed nothing. Reentrant, not thread-safe; mind that reading with operator[]
/// can write.
class LUMO_UI_BASE_EXPORT CommandContext
{
public:
    /// An empty context.
    CommandContext();
    /// Shares the entries of @p other until one of the two is written to.
    CommandContext(const CommandContext &other);
    /// Leaves @p other empty and usable.
    CommandContext(CommandContext &&other) noexcept;
    ~CommandContext();

    /// A plain copy: all entries of before go, also where @p other has no entry or a State::Keep.
    CommandContext &operator=(const CommandContext &other);
    /// The same; leaves @p other valid with unspecified content.
    CommandContext &operator=(CommandContext &&other) noexcept;

    /// The entries by id. The reference holds until the context is assigned to, moved from or dies.
    const QMap<QString, CommandState> &get() const;

    /// The entry of @p id, inserted first as not enabled and not checked when missing. The
    /// reference holds until the context is copied, assigned to or moved from.
    CommandState &operator[](const QString &id);
    /// The entry of @p id. A missing one is inserted here too, as not enabled and not checked, so
    /// asking for it changes get(); look into get() to ask without a trace.
    CommandState operator[](const QString &id) const;

    /// A copy with both facts of each entry negated; State::Keep stays.
    CommandContext operator!() const;
    /// A copy of this after operator&=() with @p other.
    CommandContext operator&(const CommandContext &other) const;
    /// A copy of this after operator|=() with @p other.
    CommandContext operator|(const CommandContext &other) const;

    /// Combines each entry that both have with State::operator&=(). Entries that only one side has
    /// stay as they are, here those of this context and not those of @p other: no entry is dropped
    /// and none is taken over.
    CommandContext &operator&=(const CommandContext &other);
    /// Combines each entry that both have with State::operator|=(), and takes over the entries that
    /// only @p other has as they stand, State::Keep included.
    CommandContext &operator|=(const CommandContext &other);

    /// Gives every entry the state @p state, State::Keep included. Adds none.
    void overwrite(const CommandState &state);
    /// Gives the entry of @p id, inserted when missing, the state @p state, State::Keep included.
    void overwrite(const QString &id, const CommandState &state);
    /// Assigns @p state to every entry; a fact that is State::Keep leaves that of the entry alone.
    /// Adds none.
    void update(const CommandState &state);
    /// Assigns @p state to the entry of @p id, which is inserted as not enabled and not checked
    /// when missing; a fact that is State::Keep leaves that of the entry alone.
    void update(const QString &id, const CommandState &state);

    /// Whether both hold the same ids with the same states.
    friend bool operator==(const CommandContext &left, const CommandContext &right)
    {
        return left.get() == right.get();
    }
    friend bool operator!=(const CommandContext &left, const CommandContext &right)
    {
        return !(left == right);
    }

private:
    friend class CommandSnapshot;
    using Map = QMap<QString, CommandState>;

    Map &map() const;

    // Null after a move only, and made anew by the next write.
    mutable std::unique_ptr<Map> m_map;
};

} // namespace Vela::UiBase

Q_DECLARE_TYPEINFO(Vela::UiBase::CommandContext, Q_MOVABLE_TYPE);
