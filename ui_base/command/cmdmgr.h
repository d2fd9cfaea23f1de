// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/delegator.h"
#include "core/sharedobject.h"
#include "ui_base/command/cmdmgrprotocol.h"
#include "ui_base/command/commandcontext.h"
#include "ui_base/command/commandstateprotocol.h"
#include "ui_base/uibaseexport.h"

#include <QString>
#include <QVector>

#include <memory>

namespace Vela::UiBase {

class CommandBag;
class CommandBase;

/// Owns the commands of one view controller, and reads, changes and restores the state of all of
/// them as a whole.
///
/// Pushing a context remembers what the commands look like and then applies the context to them;
/// popping puts back what was remembered. What a context does happens later on the main queue, in
/// the order of the calls, never inside them. Since a remembered state is complete, a pop undoes
/// every change made since the push, except those written in by updateContextInStack().
///
/// Applying a context runs the commands whose check mark it changes. While that lasts the queries
/// of the current state answer with an empty context, and a push neither remembers nor applies
/// anything.
///
/// The manager lives by shared pointers; what it posts is dropped when it dies first, and one that
/// no shared pointer owns hears of no run and applies no context. It hears on the executing thread
/// of the commands that it holds. Main thread only, except for the queries, which other threads may
/// ask and then wait for the main thread. Observers may add and remove commands, push and pop
/// contexts, and let go of the manager from within their calls.
/// \sa docs/commands.md
class LUMO_UI_BASE_EXPORT CmdMgr : public Tessel::Delegator<CmdMgrProtocol>,
                                   public CommandStateProtocol,
                                   public virtual Tessel::SharedObject<CmdMgr>
{
public:
    CmdMgr();
    /// Lets go of all commands, without announcing them.
    ~CmdMgr() override;

    /// Takes in @p command, which is adopted when nobody owns it yet, marks it as added and
    /// announces it with commandAdded().
    ///
    /// A group whose id is taken is merged into the group that has it, which is announced and
    /// returned in its place; the one handed in stays with the caller. Commands of the top level
    /// whose ids a new group knows leave the top level.
    /// @return the command; null for null, for a command that is held already, which is then
    ///         announced as null, and for one that an observer has removed again
    /// @throw std::runtime_error when the command's id is empty; the command stays with the caller
    CommandBase *addCommand(CommandBase *command);
    /// Announces with commandRemoved() that @p command leaves, and lets go of it, which can end its
    /// life. A command that stands in a group is removed there; a top-level group that becomes
    /// empty by it is removed and announced too. What leaves is the first command with the id of
    /// @p command.
    /// @return false for null only
    bool removeCommand(CommandBase *command);
    /// Removes the command that findCommand() gives for @p id.
    /// @return whether there was one
    bool removeCommand(const QString &id);
    /// Removes each top-level command that is there at the call. The remembered contexts stay.
    void removeAllCommands();

    /// The first command with this id, or null.
    CommandBase *findCommand(const QString &id) const;
    /// The commands that have @p tag, in any case of its letters, in the order of the bag; a group
    /// is followed by the commands in it.
    /// @param tag the tag that CommandBase::hasTag() is asked for
    /// @param bag where to look; null stands for the commands of the manager
    QVector<CommandBase *> findCommands(const QString &tag, CommandBag *bag = nullptr) const;
    /// The top-level commands in the order of adding. Call it on a const manager, with
    /// std::as_const() say: the form for one that is not const is for subclasses.
    const CommandBag &commandBag() const;
    /// The command between its commandBegan() and commandEnded(); null when there is none or it has
    /// died.
    std::shared_ptr<CommandBase> runningCommand() const;

    /// The default state of each command. @param bag null stands for the commands of the manager
    CommandContext defaultContext(CommandBag *bag) const;
    /// The present state of each command; both facts are stated.
    /// @param bag null stands for the commands of the manager
    CommandContext currentContext(CommandBag *bag) const;
    /// The present state of the commands that @p context has entries for, and of all commands in
    /// the groups among them. Unknown ids are left out.
    CommandContext currentContext(const CommandContext &context) const;
    /// The present state of the commands with this tag.
    CommandContext currentContext(const QString &tag) const;
    /// The checked commands, as checked and with nothing said of whether they are enabled.
    /// @param bag null stands for the commands of the manager
    CommandContext currentActiveContext(CommandBag *bag) const;
    /// The checked commands with this tag, as checked and as enabled as they are.
    CommandContext currentActiveContext(const QString &tag) const;
    /// Takes each command out of use and says nothing of its check mark.
    /// @param bag null stands for the commands of the manager
    CommandContext disabledContext(CommandBag *bag) const;
    /// The same for the commands with this tag.
    CommandContext disabledContext(const QString &tag) const;
    /// Unchecks each command and says nothing of whether it is enabled.
    /// @param bag null stands for the commands of the manager
    CommandContext inactiveContext(CommandBag *bag) const;
    /// The same for the commands with this tag.
    CommandContext inactiveContext(const QString &tag) const;

    /// Applies @p context on the main queue, in the order of its ids. Ids of no command are
    /// skipped.
    void setContext(CommandContext context);
    /// Remembers the present state of all commands, then applies @p context. Right behind a pop, whose
    /// work still waits, what that puts back is remembered.
    void pushContext(CommandContext context);
    /// Applies what was remembered last and forgets it. Without a remembered state, nothing
    /// happens.
    void popContext();
    /// Forgets all remembered states, then applies the default states.
    void resetContext();
    /// Writes @p state into the remembered states, so that it survives the coming pops. Goes from
    /// the oldest one on and stops at the first without an entry for @p id; State::Keep leaves a
    /// fact as it was remembered.
    void updateContextInStack(const QString &id, const CommandState &state);
    /// Calls saveCommandState() on each top-level command, groups first, on the main queue.
    void saveContext();
    /// Calls restoreCommandState() on each top-level command, groups first, on the main queue.
    void restoreContext();

    void commandBegan(CommandBase *command) override;
    void commandEnded(CommandBase *command) override;

    CmdMgr(const CmdMgr &) = delete;
    CmdMgr &operator=(const CmdMgr &) = delete;

protected:
    /// The top-level commands, for changing in place, which announces nothing.
    CommandBag &commandBag();
    /// Applies @p context as setContext() does, but within the call.
    void applyContext(const CommandContext &context);
    /// removeCommand() has let go of @p command and, if it is a group, of those in it. They can be
    /// running; the manager does not hear when that ends. Nothing by default.
    virtual void letGoOf(CommandBase *command);

private:
    class CmdMgrImpl;

    std::weak_ptr<CommandBase> m_runningCommand;
    const std::unique_ptr<CmdMgrImpl> d;
};

} // namespace Vela::UiBase
