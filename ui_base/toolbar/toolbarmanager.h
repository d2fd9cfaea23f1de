// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/dynamiccommandgroupstateprotocol.h"
#include "ui_base/uibaseexport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Vela::UiBase {

class CommandBase;
class ToolBar;
class ToolbarManagerPrivate;

/// Hangs a row of tool bars beside a main one, for commands that are offered for a while only.
///
/// Each group of commands has a bar of its own, which is visible only while the group is active: from
/// commandGroupBegan() to commandGroupEnded(). The host announces that through a broadcaster:
///
/// \code
/// auto *manager = new ToolbarManager(mainBar);
/// manager->addDynamicCommandGroup(sculptGroup);
/// groupStates.addObserver(manager); // a Tessel::Broadcaster<DynamicCommandGroupStateProtocol>
/// groupStates.broadcast(&DynamicCommandGroupStateProtocol::commandGroupBegan, sculptGroup);
/// \endcode
///
/// The bars stand in the order of adding, behind the main bar and a separator: to the right of a
/// horizontal one, below a vertical one. A bar that is not active takes no room. They float above
/// native views, look like the main bar, follow it when it moves, and are enabled as it is. Their
/// tooltips are of the group that those of the main bar had when the bar was made. Each is a horizontal
/// line, also beside a vertical main bar.
///
/// The manager belongs to the parent of the main bar and can go earlier or later than the bar. It takes
/// its bars and its separator with it; none of them holds a command or a group alive. Once the main
/// bar has died, no bar is made or moved any more; those there are still come and go with their
/// groups. Main thread only, broadcasts included.
class LUMO_UI_BASE_EXPORT ToolbarManager : public QObject, public DynamicCommandGroupStateProtocol
{
    Q_OBJECT

public:
    /// Name of the dynamic property by which a bar carries the id of its group, "CMDGROUP_PROP".
    static const QString COMMANDGROUP_PROPERTY;
    /// The gap between the main bar and the separator, and between that and the first bar, in logical
    /// pixels.
    static constexpr int MAIN_SPACING = 10;

    /// A manager without bars, with its separator hidden.
    /// @param mainToolBar the bar to follow, not owned; its parent becomes the parent of the manager. With
    ///                    null the manager does nothing
    explicit ToolbarManager(ToolBar *mainToolBar);
    ~ToolbarManager() override;

    /// Makes a button for each command of the group on the bar of the group, which the first command
    /// makes. A group among them has a bar of its own, and so have the groups in it. A command that is
    /// there already is left alone.
    ///
    /// The bar is hidden by this, until its group begins or setVisible() shows the active ones again.
    /// @param group not owned; null and a group without commands are ignored
    void addDynamicCommandGroup(CommandGroup *group);
    /// Removes the button of a command, or those of all commands that a group holds at any depth. A bar
    /// goes with its last button, also from inside a click on that. Null and unknown commands are
    /// ignored.
    void removeDynamicCommand(CommandBase *command);
    /// Whether one of the bars has a button for the command with this id.
    bool findDynamicCommand(const QString &commandId);

    /// Hides the bars and the separator, or shows those whose group is active now. A group that begins
    /// while they are hidden shows its bar.
    void setVisible(bool visible);

    /// Shows the bar of the group at its place. Null, a group without a bar and one that has begun
    /// already are ignored.
    /// @param group one that was added here may have died between a broadcast and its delivery; only
    ///              the pointer is looked at then
    void commandGroupBegan(CommandGroup *group) override;
    /// Hides the bar of the group, and the separator with the last one; the bars behind it move up.
    /// @param group as for commandGroupBegan()
    void commandGroupEnded(CommandGroup *group) override;

protected:
    /// For subclasses with a private class of their own; else like the public form.
    /// @param dd taken over and deleted by the manager
    ToolbarManager(ToolbarManagerPrivate &dd, ToolBar *mainToolBar);

    /// Follows the main bar.
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Owned by the manager; what subclasses cast to their own.
    const std::unique_ptr<ToolbarManagerPrivate> d_ptr;

private:
    Q_DECLARE_PRIVATE(ToolbarManager)
    Q_DISABLE_COPY(ToolbarManager)
};

} // namespace Vela::UiBase
