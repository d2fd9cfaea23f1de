// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/commandgroup.h"
#include "ui_base/toolbar/toolbar.h"
#include "ui_base/toolbar/toolbarmanager.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QPoint>
#include <QPointer>
#include <QString>

class QLabel;

namespace Vela::UiBase {

/// The state of a ToolbarManager. A subclass with state of its own derives from this and hands an
/// object of its class to the protected constructor of the manager. Lengths are logical pixels.
class LUMO_UI_BASE_EXPORT ToolbarManagerPrivate
{
    Q_DECLARE_PUBLIC(ToolbarManager)

public:
    ToolbarManagerPrivate();
    virtual ~ToolbarManagerPrivate();

    void initialize(ToolBar *mainBar);

    void addSeparator();
    void removeSeparator(int index);
    void setSeparatorVisible();

    void addToolbar(ToolBar *bar);
    /// The bar of a group.
    /// @param existed becomes whether there was one
    /// @param create whether one is made when there was none; it is not in the row yet
    /// @return null without one, and always null once the main bar has died
    ToolBar *getToolbar(CommandGroup *group, bool &existed, bool create);
    ToolBar *findDynamicToolbar(const QString &groupId) const;
    void removeToolbar(ToolBar *bar);

    /// Puts separator and bars where they belong now.
    void calcGeometries();
    void calcDynamicToolbarPanelGeometry();
    void calcInnerToolbarPositions();

    void onCommandGroupStateChanged(CommandGroup *group, bool active);
    void setToolbarVisible(ToolBar *bar);
    /// Shows the bars whose groups are active; false does nothing.
    void setToolbarsVisible(bool visible);
    /// The number of bars whose groups are active, seen or not.
    int visibleToolbarCount() const;

    QList<ToolBar *> toolbars; ///< in the order of adding; one that dies leaves the list
    QPoint panelPos;           ///< corner of the separator, in coordinates of what it floats over
    QPointer<ToolBar> mainToolBar;
    QList<QLabel *> separators; ///< one that dies leaves the list
    QMap<ToolBar *, bool> toolbarActive;

protected:
    ToolbarManager *q_ptr = nullptr;

private:
    friend class ToolbarManager;

    struct SKnownGroup
    {
        QPointer<CommandGroup> group;
        QString id;
    };

    QWidget *parentForBars() const;
    void forgetToolbar(ToolBar *bar);
    void addCommand(CommandBase *command, CommandGroup *group);
    void removeCommand(CommandBase *command);
    void remember(CommandGroup *group);
    void forgetLater(CommandGroup *dead);
    QString idOf(CommandGroup *group) const;
    void enableLikeMainToolBar();
    static void moveBar(ToolBar *bar, const QPoint &globalPosition);
    void release();

    // A group can die while its announcement waits for delivery.
    QHash<CommandGroup *, SKnownGroup> knownGroups;
};

} // namespace Vela::UiBase
