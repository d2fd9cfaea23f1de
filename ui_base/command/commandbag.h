// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QString>

#include <memory>
#include <utility>
#include <vector>

namespace Vela::UiBase {

class CommandBase;

/// An ordered container of commands that owns what it holds: pairs of the id and the owner, in the
/// order of adding. Walk it as the vector that it is.
///
/// Ids are case-sensitive, and every search starts at the front. Different commands may stand under
/// one id; the searches find the first. A copy owns the same commands. Main thread only.
class LUMO_UI_BASE_EXPORT CommandBag
    : public std::vector<std::pair<QString, std::shared_ptr<CommandBase>>>
{
public:
    CommandBag() = default;
    CommandBag(const CommandBag &other) = default;
    CommandBag(CommandBag &&other) noexcept = default;
    virtual ~CommandBag();

    CommandBag &operator=(const CommandBag &other) = default;
    CommandBag &operator=(CommandBag &&other) noexcept = default;

    /// Appends @p command under its id.
    /// @return false for null, and when the bag holds this very command under this id
    bool addCommand(const std::shared_ptr<CommandBase> &command);
    /// The same for a plain pointer. A command that nobody owns yet is adopted: it is deleted with
    /// its last owner, which is at once if the bag refuses it. One that is owned is shared.
    bool addCommand(CommandBase *command);

    using vector::operator[];
    /// The first command with this id, or null.
    CommandBase *operator[](const QString &id) const;
    /// The first command with this id, or null.
    CommandBase *getCommand(const QString &id) const;
    /// The same; @p index becomes its position, or size() when there is none.
    CommandBase *getCommand(const QString &id, int &index) const;

    /// Whether there is a command with this id.
    bool hasCommand(const QString &id) const;
    /// The same; @p index becomes its position, or size() when there is none.
    bool hasCommand(const QString &id, int &index) const;

    /// The command at a position, or null for a position out of range.
    CommandBase *commandAt(int index) const;

    /// Removes the first entry with this id, which can end the command's life; the others keep
    /// their order.
    /// @return whether there was one
    bool removeCommand(const QString &id);

private:
    friend class CommandIndex;

    /// Changes whenever addCommand() or removeCommand() changes some bag of the process.
    static unsigned generation();
};

} // namespace Vela::UiBase
