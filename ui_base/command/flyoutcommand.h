// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/commandbase.h"
#include "ui_base/tool/viewresponder.h"
#include "ui_base/uibaseexport.h"

#include <QPointer>
#include <QString>
#include <QStringList>

#include <memory>

class QEvent;
class QKeySequence;
class QWidget;

namespace Vela::UiBase {

class FlyoutBase;
class FlyoutCommandPrivate;

/// A command that lives as long as its panel is open: it begins when the panel opens, runs when the
/// user applies the settings, and ends when the panel closes. Use CommandBase for a command that
/// has nothing to set.
///
/// A trigger, or a change of the check mark, therefore does not run the command but begins it, and
/// ends it when it was unchecked. In between the context of getBeginCommandContext() holds the
/// other commands of the controller, and the controller offers all input of its view to this
/// command first: override what you need of ViewResponder. The work, onExecuteAsync(), is done in
/// the background and must not touch the panel.
///
/// The panel is a FlyoutBase, whose signals the command follows from its construction on, or any
/// other widget, which makes the command a simple flyout: that one takes part in no context, and
/// its application calls onExecute() and onFinalize(). The panel is shown and hidden by its button,
/// not by the command; one that was checked or unchecked otherwise, by a shortcut say, has the
/// button do it on the next turn of the event loop. The panel gets the action, so that the shortcut
/// works in it, too.
///
/// Begin and end have to come in pairs, since each pushes or pops one context. The command is
/// neither told of a cancelled panel, which is hidden without having been closed, nor does it
/// touch its own check mark when the panel closes. A derived class that keeps the three in step
/// whatever ends it:
///
/// @code
/// SmoothCommand::SmoothCommand(FlyoutBase *panel, CmdsViewController *controller)
///     : FlyoutCommand(panel, controller)
/// {
///     setCheckable(true);
///     connect(panel, &FlyoutBase::CancelChanges, this, &SmoothCommand::onFinalize);
/// }
///
/// void SmoothCommand::onBegin()
/// {
///     if (isActive())
///         return;
///     setIsActive(true);
///     FlyoutCommand::onBegin();
/// }
///
/// void SmoothCommand::onFinalize()
/// {
///     if (!isActive())
///         return;
///     setIsActive(false);
///     setChecked(false); // calls onFinalize() again, which returns at once
///     FlyoutCommand::onFinalize();
/// }
/// @endcode
///
/// Neither owns the other, and either may die first. A panel that dies while it is open does not
/// end the command. Main thread only, except for onExecuteAsync().
/// \sa docs/flyouts.md
class LUMO_UI_BASE_EXPORT FlyoutCommand : public CommandBase, public ViewResponder
{
    Q_OBJECT

public:
    ~FlyoutCommand() override;

    /// The panel; null for a simple flyout and when it has died.
    virtual FlyoutBase *flyout() const;
    /// The widget, whether it is a FlyoutBase or not; null when there is none or it has died.
    virtual QWidget *simpleFlyout() const;
    /// Whether there is no FlyoutBase, which is so without any widget, too.
    virtual bool isSimpleFlyout() const;
    /// Whether the derived class says that its panel is up; false by default.
    /// \sa setIsActive()
    virtual bool isActive() const;

public Q_SLOTS:
    /// Begins the command: pushes the context of getBeginCommandContext() on the controller's
    /// manager, unless this is a simple flyout, and tells the observers with commandBegan(), by
    /// which it becomes the running command.
    ///
    /// When the begin is not the work of a click with the mouse on the flyout's ToolButton(), that
    /// is clicked on the next turn of the event loop, so that it shows the panel; not if the panel
    /// is up or the command has ended by then.
    virtual void onBegin();
    /// Ends the command: pops the context, unless this is a simple flyout, and tells the observers
    /// with commandEnded(). The check mark stays as it is, and so does which command of its exclusive
    /// QActionGroup is checked, also when the pop puts back what was remembered with another one.
    virtual void onFinalize();
    /// The user asks for the settings as they were at first. The main panel has heard of it by its
    /// own signal ResetValues(), if it has one. Called if the flyout had its reset button when the
    /// command was made. Nothing by default.
    virtual void onReset();
    /// Closes the panel from outside, which ends the command. Nothing happens unless isActive() is
    /// true and the panel is visible.
    virtual void onExitCommand();

protected Q_SLOTS:
    /// Escape was released in the panel. Nothing by default.
    virtual void onESCKeyReleased();

public:
    /// The states in which the command holds others while its panel is open; asked for at each
    /// begin. Empty by default, which holds none.
    virtual CommandContext getBeginCommandContext() const;
    /// Called before each run, in place: reads the settings out of the panel, or refuses the run
    /// with false. True by default.
    virtual bool onBeforeExecute();

    /// The tags of the base and Resource::String::TAG_FLYOUT as the last.
    QStringList commandTags() const override;

public Q_SLOTS:
    /// Runs the command as CommandBase::onExecute() does, if onBeforeExecute() agrees. The flyout's
    /// apply button calls it.
    /// @return false when it does not agree, and nothing is announced then
    bool onExecute(bool checked = false) override;

protected:
    /// A command whose work is done in the background, at the quality UserInitiated, under a busy
    /// cursor.
    /// @param flyoutWidget the panel, not owned. With null the command has no panel to show
    /// @param controller not owned; null is none
    FlyoutCommand(QWidget *flyoutWidget, CmdsViewController *controller);

    /// Says whether the panel is up. The class itself never does; without it onExitCommand() does
    /// nothing.
    void setIsActive(bool active);

    /// Has the panel follow the enabled state of the action.
    bool event(QEvent *e) override;

private Q_SLOTS:
    void onTriggered(bool checked) override;
    void onToggled(bool checked) override;

private:
    void followFlyout(FlyoutBase *panel);
    void turnPanelLater(bool visible);
    void writeCheckMarkIntoStack();
    void writeChoiceIntoStack();

    const std::unique_ptr<FlyoutCommandPrivate> d;
    Q_DISABLE_COPY(FlyoutCommand)
};

/// A command for a key that steps through the members of a group, one with each press: it toggles
/// the one behind the checked member, and the exclusive group unchecks that. One per group is
/// enough; where each member has a key of its own, none is needed.
///
/// It lives as commands do. Main thread only.
class LUMO_UI_BASE_EXPORT CycleCheckableCommand : public CommandBase
{
    Q_OBJECT

public:
    /// A command that is not checkable.
    /// @param controller not owned; null is none. The key works in the widget of its view
    /// @param shortcut the key
    /// @param group whose members are stepped through; not owned, may be null and may die first
    CycleCheckableCommand(CmdsViewController *controller, const QKeySequence &shortcut,
                          CommandGroup *group);

    /// The name of the class, with which the ids of its objects begin.
    static QString className();
    /// className() and the object name of the group, with nothing between them; className() alone
    /// without a group. It stays as it is when the group dies.
    const QString commandId() const override;

    /// Toggles the first enabled member from the one behind the first checked member on, in a
    /// circle; from the first member on when none is checked. When no member is enabled, toggles
    /// the one that it started with. @p checked is not used.
    /// @return false without a group, and for one that is disabled or empty
    bool onExecuteAsync(bool checked) override;

private:
    const QPointer<CommandGroup> m_cycleGroup;
    QString m_nameOfDeadGroup;
    Q_DISABLE_COPY(CycleCheckableCommand)
};

} // namespace Vela::UiBase
