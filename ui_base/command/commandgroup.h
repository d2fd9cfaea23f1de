// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/commandbase.h"
#include "ui_base/uibaseexport.h"

#include <QString>

#include <memory>

class QActionGroup;

namespace Vela::UiBase {

class CommandBag;
class CommandContext;
class CommandGroupImpl;
class ToolBar;

/// A command that holds commands, which may be groups again: one checkable action for all of them.
///
/// The children stand in an exclusive QActionGroup, so checking one unchecks the other, and the user
/// can't uncheck the one that is checked; groupActionGroup() makes them independent. The group is
/// enabled as soon as a child changes and one of them is enabled, and its check mark follows the child
/// that ran last. It is never run itself; only its children are. Observers and states are passed
/// down to the children of that moment.
///
/// The group owns its children by shared pointers and lives by shared pointers itself. A virtual group is
/// one that only exists to give a single command a group of its own. Main thread only, apart from
/// what CommandBase allows.
/// \sa docs/commands.md
class LUMO_UI_BASE_EXPORT CommandGroup : public CommandBase
{
    Q_OBJECT

public:
    /// A group without children that is checkable and enabled, laid out as a grid of size 2, run on the
    /// main thread and without a controller.
    /// @param icon name of the icon for QtUiToolkit::CreateIcon()
    /// @param toolTip text of the action's tool tip
    /// @param name object name, which makes the last part of the id: the groups of one controller need
    ///             different ones, or they are merged
    explicit CommandGroup(const QString &icon = {}, const QString &toolTip = {},
                          const QString &name = {});
    /// The children that outlive the group have none afterwards.
    ~CommandGroup() override;

    /// The name of the class, with which the ids of groups begin.
    static const QString className();
    /// className() and the object name, with nothing between them.
    const QString commandId() const override;

    /// Makes a virtual group named @p name that holds @p command, and sets @p baseGroupName on both. The
    /// command is adopted when nobody owns it yet.
    /// @return the group, which nobody owns yet; null for a null command
    static CommandGroup *WrapSingleCmdIntoVirtualCmdGroup(CommandBase *command, int rank,
                                                          const QString &name,
                                                          const QString &baseGroupName);

    /// The children in the order of adding. Changing the bag in place leaves out all that addCommand()
    /// and removeCommand() do besides.
    virtual const CommandBag &commandBag() const;
    /// \copydoc commandBag() const
    virtual CommandBag &commandBag();

    /// Adds a child. The tool button of a checkable group takes over the child's icon, so that it
    /// shows the one that was added last.
    /// @param command the child, which the group owns from now on with its other owners
    /// @param rank its place on a tool bar, ascending
    /// @return the child; null for null, when a child has this id, and for this group or one that
    ///         holds it, which changes nothing
    virtual CommandBase *addCommand(const std::shared_ptr<CommandBase> &command, int rank = 0);
    /// The same for a plain pointer. A command that nobody owns yet is adopted: it is deleted with its
    /// last owner, which is at once if the group refuses it. One that is owned is shared.
    virtual CommandBase *addCommand(CommandBase *command, int rank = 0);
    /// Removes a child, or a command that a group among the children holds at any depth, which can end
    /// its life. A sub-group that becomes empty by it goes too. The tool button of the group that held
    /// it takes over the icon of the last child, which still is the leaving one if that was last.
    /// @return whether there was such a command
    virtual bool removeCommand(const QString &id);

    /// Whether this group has the id, or a child has the command.
    bool hasCommand(const QString &id) const override;
    /// This group by its id, else what the first child that knows the id has; null when none has.
    CommandBase *getCommand(const QString &id) override;
    /// The group with the object name @p name among the commands below this one, at any depth; null when
    /// there is none. This group itself does not count.
    virtual CommandGroup *getCommandGroup(const QString &name);

    /// Takes the children of @p other in, under the ranks that they have there; children with an id that
    /// is taken stay out. @p other keeps its bag, goes on owning its children with this group, and
    /// stays their commandGroup(). If this bag has an entry with the id of @p other, the groups among
    /// the children are merged into the entries of their ids instead, which from then on share all their
    /// parts with them. Null and this group itself are ignored.
    virtual void absorbCommandGroup(CommandGroup *other);

    /// Enables the action of the group and its tool button, and nothing below it.
    virtual void setEnabled(bool enabled);
    /// Checks the action of the group and its tool button, and nothing below it.
    virtual void setChecked(bool checked);

    /// The rank that was set for the id; 0 without one.
    virtual int getCommandRank(const QString &id);
    /// Sets a rank, also for an id that is not in the bag.
    virtual void setCommandRank(const QString &id, int rank);

    /// Whether the group exists for a single command only; false by default.
    virtual bool isVirtualGroup() const;
    /// Marks the group as one that exists for a single command only.
    virtual void setVirtualGroup(bool isVirtual);

    /// The states of this group and of its children, one level deep.
    virtual CommandContext commandContext();

    /// Number of rows of the grid; 2 by default.
    int gridSize() const;
    /// Sets the number of rows of the grid.
    void setGridSize(int size);
    /// Whether tool bars lay the children out as a grid; true by default.
    bool isGrid() const;
    /// Makes tool bars lay the children out as a grid or in a line.
    void setGrid(bool grid);

    /// The group that holds the children's actions, exclusive by default. Owned by this command; null
    /// when the group whose parts this one shares has ended.
    QActionGroup *groupActionGroup() const;

    /// The tool bar that shows the children; null when there is none or it has died. Not owned.
    ToolBar *toolbar() const;
    /// Called by tool bars that show the children; null takes the bar away.
    void setToolbar(ToolBar *toolbar);

    /// The button that shows the group; null when there is none or it has died. Not owned.
    ToolButton *toolButton() const override;
    /// Gives the group its button, which becomes checkable as the group is and closes the menus of
    /// other buttons when it is toggled. Null takes the button away.
    void setToolButton(ToolButton *button) override;

    /// Calls @p slot of this group, written with SLOT(), whenever a child of @p other is about to be
    /// checked. With uncheckChildren(bool) the two groups exclude each other. A null group or slot is
    /// ignored.
    void listenToTrigger(CommandGroup *other, const char *slot);

    /// Sets the state of the group, then enables every child if @p state says enabled, and disables
    /// every child if it says anything else, State::Keep included. The check mark does not go down.
    void setCommandState(const CommandState &state) override;
    /// Calls the same on each child.
    void saveCommandState() override;
    /// Calls the same on each child.
    void restoreCommandState() override;
    /// Marks the group and each child.
    void setAddedToCmdsVC(bool added) override;

    /// Adds @p name to each child that is no group, and not to the group itself.
    void addAttachedCommandGroupName(const QString &name) override;
    /// Removes @p name from each child that is no group, and not from the group itself.
    void removeAttachedCommandGroupName(const QString &name) override;

    /// Registers the observer on the group and on each present child.
    /// @throw std::invalid_argument as Broadcaster::addObserver()
    void addObserver(CommandStateProtocol *observer) override;
    /// Registers the observer on the group and on each present child, always as a direct one: the flag
    /// is ignored.
    void addObserver(const std::shared_ptr<CommandStateProtocol> &observer,
                     bool onMainQueue) override;
    /// Removes the observer from the group and from each present child.
    /// @throw std::invalid_argument as Broadcaster::removeObserver()
    void removeObserver(CommandStateProtocol *observer) override;
    /// \copydoc removeObserver(CommandStateProtocol *)
    void removeObserver(const std::shared_ptr<CommandStateProtocol> &observer) override;

public Q_SLOTS:
    /// Calls onExecuteAsync() and nothing else: no waypoint, no announcement.
    bool onExecute(bool checked = false) override;
    /// Does nothing. @return true
    bool onExecuteAsync(bool checked) override;
    /// Unchecks each child that is checked, which runs it, and then the group. The argument is there for
    /// the signals it is connected to.
    virtual void uncheckChildren(bool checked);

Q_SIGNALS:
    /// A child is about to be checked. @p checked is always true.
    void childToBeTriggered(bool checked);

protected Q_SLOTS:
    /// Takes over the check mark of a child that was triggered or toggled.
    virtual void onChildTriggered(bool checked);
    /// Announces a child that is about to be checked.
    virtual void onChildToBeTriggered(bool checked);
    /// Enables the group if a child is enabled, else disables it.
    virtual void onChildChanged();

private:
    bool removeFromSubGroup(const QString &id);
    void mergeIntoEntry(const QString &id, CommandGroup *child);

    // Shared with groups that took it over in absorbCommandGroup().
    std::shared_ptr<CommandGroupImpl> d;
    Q_DISABLE_COPY(CommandGroup)
};

} // namespace Vela::UiBase
