// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/broadcaster.h"
#include "core/sharedobject.h"
#include "ui_base/command/commandstate.h"
#include "ui_base/command/commandstateprotocol.h"
#include "ui_base/uibaseexport.h"

#include <lumo_app_service/CloudServiceProtocol>
#include <tessel/dispatch.h>

#include <QAction>
#include <QString>
#include <QStringList>

#include <memory>
#include <type_traits>

class QSize;
class QWidget;

/// Gives a concrete command class its id: a static className() with the name of the class, its
/// namespace included, and a commandId() that returns it. Stands in the class body behind Q_OBJECT,
/// which it needs; like that it leaves the access at private.
#define COMMAND_ID                                                                                 \
public:                                                                                            \
    static const QString className()                                                               \
    {                                                                                              \
        static const QString name = QString::fromUtf8(staticMetaObject.className());               \
        return name;                                                                               \
    }                                                                                              \
    const QString commandId() const override                                                       \
    {                                                                                              \
        static_assert(QtPrivate::HasQ_OBJECT_Macro<std::decay_t<decltype(*this)>>::Value,          \
                      "A class with COMMAND_ID needs Q_OBJECT");                                   \
        return className();                                                                        \
    }                                                                                              \
                                                                                                   \
private:

namespace Vela::UiBase {

class BaseView;
class CmdsViewController;
class CommandBaseImpl;
class CommandContext;
class CommandGroup;
class ToolButton;

/// The root of every user command: an action with an id, tags and a place in a group, a state that
/// is read and written as a whole, and one flow of execution for work in place and in the
/// background.
///
/// Derive from it, write COMMAND_ID into the class body and the work into onExecuteAsync():
///
/// @code
/// class SmoothCommand : public Vela::UiBase::CommandBase
/// {
///     Q_OBJECT
///     COMMAND_ID
///
/// public:
///     explicit SmoothCommand(Vela::UiBase::CmdsViewController *controller)
///         : CommandBase(controller)
///     { }
///     bool onExecuteAsync(bool checked) override { return smoothMesh(); }
/// };
/// @endcode
///
/// Every trigger of the action runs a command that is not checkable, and every change of the check
/// mark one that is, whoever makes it: the user, the group or setCommandState(). For an action that
/// only has to call a slot a plain QAction will do.
///
/// A command has no parent. It lives by shared pointers; the bag, group or manager that it is added
/// to owns it, and it dies with the last owner. Main thread only, except for onExecuteAsync() of a
/// command with a background quality of service, and for broadcast() and the observer lists.
/// \sa docs/commands.md
class LUMO_UI_BASE_EXPORT CommandBase : public QAction,
                                        public Tessel::Broadcaster<CommandStateProtocol>,
                                        public Vela::Services::CloudServiceProtocol,
                                        public virtual Tessel::SharedObject<CommandBase>
{
    Q_OBJECT
    Q_PROPERTY(Vela::UiBase::CommandState state READ commandState WRITE setCommandState)

public:
    /// Which message of a run is meant. Values beyond the two are the application's.
    enum class ENotification : int {
        ExecutionBegan = 0, ///< shown when a run begins
        ExecutionEnded = 1, ///< shown when it ends
    };

    /// Drops all observers. Signals nothing any more.
    ~CommandBase() override;

    /// The id, which is what contexts, bags and managers know the command by. COMMAND_ID implements
    /// it. A command with an empty id can't be added to a manager.
    virtual const QString commandId() const = 0;

    /// Does nothing: a command is owned by shared pointers and never by a parent.
    virtual void setParent(QObject *parent);

    /// Whether @p tag is among commandTags(), in any case of its letters.
    virtual bool hasTag(const QString &tag) const;
    /// Free labels by which commands are found, in the order of adding.
    virtual QStringList commandTags() const;
    /// Appends @p tag unless it is there in the same case.
    virtual void addTag(const QString &tag);
    /// Removes all entries equal to @p tag, case included.
    virtual void removeTag(const QString &tag);

    /// The state that a reset of the commands gives this one: enabled and not checked.
    virtual CommandState defaultCommandState() const;
    /// Whether the action is enabled and whether it is checked. Both facts are stated.
    virtual CommandState commandState() const;
    /// Takes over what @p state says; State::Keep leaves a fact alone, and so does a check mark for
    /// a command that is not checkable. Mind that a change of the check mark runs the command.
    virtual void setCommandState(const CommandState &state);
    /// Called when the states of all commands are to be remembered. Nothing by default.
    virtual void saveCommandState();
    /// Called when the states of all commands are to be put back. Nothing by default.
    virtual void restoreCommandState();

    /// Brings the action's icon to the logical size @p size; see QtUiToolkit::UpdateIconSize(). An
    /// icon that the toolkit did not make for this action stays as it is.
    void updateIconSize(const QSize &size);

    /// Sets the controller that the command works for, not owned; null is none. Does not move the
    /// action from view to view.
    virtual void setViewController(CmdsViewController *viewController);
    /// The controller that the command works for; null when there is none or it has died.
    CmdsViewController *getViewController() const;
    /// The controller's view; null without a controller or when the view has gone.
    BaseView *getView() const;
    /// The widget of that view; null when there is none.
    QWidget *getViewQtWidget() const;

    /// Where onExecuteAsync() runs. Main, which is the default, means in place.
    virtual Tessel::EQualityOfService executionQoS() const;
    /// Sets where onExecuteAsync() runs, from the next run on.
    virtual void setExecutionQoS(const Tessel::EQualityOfService &qos);

    /// Whether the view controller shows a busy cursor and messages during a run. Off by default.
    virtual bool isExecutionNotificationEnabled() const;
    /// Switches the busy cursor and the messages on or off.
    virtual void enableExecutionNotification(bool enable);
    /// The message, or an empty text when none was set. Asked for when it is to be shown: override it
    /// to say something else at the end of a run that was stopped.
    virtual const QString getExecutionNotificationMessage(ENotification notification) const;
    /// Sets a message; an empty text shows none. Keep values small: there is a place for each up to the
    /// largest. A negative @p notification and the largest int are ignored.
    virtual void setExecutionNotificationMessage(ENotification notification,
                                                 const QString &message);

    /// The work of the command. Runs on the main thread or, with another executionQoS(), on a
    /// worker, where it must not touch widgets or the state of actions. An exception out of
    /// background work ends the process.
    /// @param checked the check mark that the command runs with
    /// @return whether it did what it was asked; the result of background work is dropped
    virtual bool onExecuteAsync(bool checked) = 0;

    /// Whether @p id names this command or, for a command that holds others, one of those.
    virtual bool hasCommand(const QString &id) const;
    /// This command or one that it holds, by id; null when there is none.
    virtual CommandBase *getCommand(const QString &id);

    /// The group that holds the command; null when there is none or it has died. Not owned.
    virtual CommandGroup *commandGroup() const;
    /// Called by groups that take the command in or let it go.
    virtual void setCommandGroup(CommandGroup *group);

    /// The button that shows the command; null when there is none or it has died. Not owned.
    virtual ToolButton *toolButton() const;
    /// Called by tool bars that make a button for the command; null takes the button away.
    virtual void setToolButton(ToolButton *button);

    /// Name of the group that the command is meant for; Resource::String::COMMAND_DEFAULT_GROUP
    /// until one is set.
    virtual const QString baseGroupName() const;
    /// Sets the name of the group that the command is meant for, on a tool bar the panel of its
    /// button. An empty one is a name too, and not that of the default group.
    virtual void setBaseGroupName(const QString &name);

    /// A mark that applications set and read; off by default.
    virtual bool isAttached() const;
    /// Sets or clears the mark.
    virtual void setAttached(bool attached);

    /// Appends the name of a further group that the command is attached to, unless it is there in
    /// the same case.
    virtual void addAttachedCommandGroupName(const QString &name);
    /// Removes all entries equal to @p name, case included.
    virtual void removeAttachedCommandGroupName(const QString &name);
    /// Names of the further groups, in the order of adding.
    virtual const QStringList attachedCommandGroupNames() const;
    /// The same list for changing in place; it lives as long as the command.
    virtual QStringList &attachedCommandGroupName() const;

    /// Marks the command as taken by the manager of a view controller; managers call it.
    virtual void setAddedToCmdsVC(bool added);
    /// Whether a manager holds the command.
    bool addedToCmdsVC() const;

public Q_SLOTS:
    /// Runs the command: writes a begin waypoint, broadcasts commandBeganExecuting(), does the work
    /// and announces the end in the same way.
    ///
    /// In place, all of this happens within the call. With a background quality of service the call
    /// returns once the work was dispatched. While the work runs the application can't change the
    /// workspace, and the context of getExecutionCommandContext(), if it has entries, is pushed on
    /// the controller's manager; both end on the main thread, where the end is announced. A command
    /// owned by a shared pointer stays alive until then. A second call meanwhile starts a second
    /// run; contexts of runs that overlap come back as they were only if the runs end in reverse
    /// order.
    /// When the background refuses the work, no end is announced and a context that was pushed
    /// stays.
    /// @return the result of onExecuteAsync(), or for the background whether it accepted the work
    virtual bool onExecute(bool checked = false);

Q_SIGNALS:
    /// A checkable command is about to run with the check mark @p checked.
    void toBeToggled(bool checked);
    /// A command that is not checkable is about to run.
    void toBeTriggered(bool checked);

protected:
    /// Makes a command for a controller, which is not owned; null is none. The widget of its view,
    /// if there is one, gets the action, so that shortcuts work in it.
    explicit CommandBase(CmdsViewController *viewController);

    void onUserLogIn() override;
    void onUserLogOut() override;

protected Q_SLOTS:
    /// Runs a command that is not checkable. Connected to the action's triggered().
    virtual void onTriggered(bool checked);
    /// Runs a checkable command. Connected to the action's toggled().
    virtual void onToggled(bool checked);

protected:
    /// The states in which a background run holds other commands; asked for at its start, after the
    /// begin was announced, and not for a run in place. Empty by default, which holds none.
    virtual CommandContext getExecutionCommandContext() const;

private:
    friend class CommandBaseImpl;

    bool m_addedToCmdsVC = false;
    const std::unique_ptr<CommandBaseImpl> d;
    Q_DISABLE_COPY(CommandBase)
};

} // namespace Vela::UiBase
