// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/menu/menubuilder.h"
#include "ui_base/qtui/menu/menumanager.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMap>
#include <QMenu>
#include <QPoint>
#include <QPointer>
#include <QToolButton>

class QAccessibleInterface;

namespace Vela::UiBase {

/// The state of a MenuBuilder.
class LUMO_UI_BASE_EXPORT MenuBuilderPrivate
{
public:
    MenuBuilderPrivate(const QString &name, QMainWindow *window, QWidget *parentWidget,
                       Qt::ToolButtonStyle style, const QString &sheet);
    virtual ~MenuBuilderPrivate();

    /// What assistive tools see of a bar and its items.
    static QAccessibleInterface *MakeAccessible(const QString &className, QObject *object);

    void InitializeMenuManager(bool customHover);
    void CreateMenuBar();

    /// Makes an item; null when there is one of this name.
    QSharedPointer<QToolButton> AddOrInsertMenuBarItem(bool append, int index, const QString &name,
                                                       const QIcon &icon,
                                                       const QString &alternateStyle,
                                                       const QString &group,
                                                       const QString &tooltip);
    void SetFace(QToolButton *button, const QIcon &icon) const;
    void JoinGroup(QToolButton *button, const QString &group);
    void Place(QToolButton *button, bool append, int index);
    void Drop(QToolButton *button);
    /// Gives items that read something else by now the room for that, and their menus the name.
    void FollowTexts();
    void FollowText(QToolButton *button, const QString &before);
    void Connect(const QSharedPointer<QToolButton> &button, QObject *receiver,
                 const char *slot) const;

    /// Makes room for an icon of this size; an empty one is ignored.
    void SetMenuBarIconOnlySizePolicy(const QSize &size);
    /// Makes the bar at least this wide.
    void SetMenuBarTextOnlySizePolicy(int width);

    /// The menu of an item; null when there is no item or no menu. An unknown name is counted as an
    /// item from then on.
    QMenu *MenuOf(const QString &item);
    /// The menu of @p button, made when there is none, which @p isNew then tells.
    QMenu *MenuFor(QToolButton *button, bool &isNew);
    QAction *CreateAction(const AppMenuItemSpecifier &spec) const;
    void AddSpecifier(QMenu *menu, QMenu *mirror, const AppMenuItemSpecifier &spec) const;
    void AddActions(QMenu *menu, QMenu *mirror, const QVector<QAction *> &actions,
                    QAction *before) const;
    void AddAction(QMenu *menu, QAction *action, QAction *before) const;
    QMenu *AddActionForSubMenu(QMenu *menu, const QString &title, QAction *before,
                               bool separatorAfter) const;
    /// Looks for a sub menu of any depth.
    QMenu *FindMenu(QMenu *menu, const QString &title) const;
    /// Looks for an action of any depth.
    QAction *FindAction(QMenu *menu, const QString &text) const;

    MenuBuilder *q = nullptr;
    QPointer<QMainWindow> mainWindow;
    QPointer<QWidget> parent;
    QString barName;
    QSharedPointer<QHBoxLayout> layout;
    /// Items by text. The value of a name that was only asked for is null.
    QMap<QString, QSharedPointer<QToolButton>> menuBarItems;
    Qt::ToolButtonStyle toolButtonStyle;
    QString styleSheet;
    QPoint menuPosition;
    int itemWidth = 30;
    LumoMenuManager *menuManager = nullptr;
    QMap<QString, QPointer<QButtonGroup>> buttonGroups;
    QMap<QToolButton *, QSharedPointer<AppMenuToggleItemSpecifier>> toggleSpecifiers;
    /// What the items read when their room was found.
    QMap<QToolButton *, QString> itemTexts;
    /// Second copies of menus for a native menu bar, by item; filled by subclasses, not owned.
    QMap<QString, QPointer<QMenu>> mirrorMenus;

private:
    Q_DISABLE_COPY(MenuBuilderPrivate)
};

} // namespace Vela::UiBase
