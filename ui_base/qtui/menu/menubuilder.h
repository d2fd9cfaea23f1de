// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QVector>
#include <QWidget>

#include <memory>

class QMainWindow;
class QMenu;
class QMenuBar;
class QToolButton;

namespace Vela::UiBase {

class MenuBuilderPrivate;

/// One entry of a menu of a MenuBuilder.
struct AppMenuItemSpecifier
{
    QString text;                ///< caption; empty makes a separator
    QString iconName;            ///< for QtUiToolkit::CreateAction(); empty for no icon
    QKeySequence shortcut;       ///< empty for none
    QObject *receiver = nullptr; ///< whose slot is called; null means the main window
    const char *slot = nullptr;  ///< as SLOT() writes it; null calls nothing
    QAction::MenuRole menuRole = QAction::TextHeuristicRole; ///< the About, Preferences and Quit
                                                             ///< roles stay out of mirror menus
};

/// An item of a MenuBuilder with two faces. The face is chosen when the item is made; afterwards the
/// caller changes it on the button.
struct AppMenuToggleItemSpecifier
{
    QString activeText;         ///< caption while active, for the caller
    QString activeIcon;         ///< path of the icon while active
    QString activeToolTip;      ///< tool tip while active
    QString inactiveText;       ///< caption while inactive, for the caller
    QString inactiveIcon;       ///< path of the icon while inactive
    QString inactiveToolTip;    ///< tool tip while inactive
    bool isActive = false;      ///< which face the item is made with
    const char *slot = nullptr; ///< slot of the main window for clicks, as SLOT() writes it
};

/// A menu bar of tool buttons, for use in place of QMenuBar where the bar shows icons, floats over a
/// main window, or has menus that open under the pointer; see LumoMenuManager. Items are addressed by
/// their text, which is unique in a bar; a text with an ampersand, as "&File", makes Alt and that
/// letter a press of the item. The text is also the name for assistive tools, of an icon too.
///
/// The text that an item was added with stays its name here when the button of GetMenuBarItem() is
/// given another one, as after a change of language: the bar makes room for that, and the menu takes
/// its accessible name. FindAction() and SetButtonEnabled() look for what is read at the time.
///
/// Whatever names an item that is not there returns false or null. The bar takes no focus. It owns
/// items, menus and actions made from specifiers; actions that are handed in stay the caller's. Two
/// debug lines are written per new item. GUI thread only.
///
/// docs/menus.md tells more.
class LUMO_UI_BASE_EXPORT MenuBuilder : public QWidget
{
    Q_OBJECT

public:
    /// @param name object name of the bar
    /// @param mainWindow receives what has no receiver of its own; not owned, may be null
    /// @param style Qt::ToolButtonIconOnly shows icons only, any other value texts only
    /// @param customHover whether menus open under the pointer, see LumoMenuManager
    /// @param styleSheet of items and menus; empty takes Resource::Styles::MenuMain()
    MenuBuilder(const QString &name, QMainWindow *mainWindow, QWidget *parent,
                Qt::ToolButtonStyle style, bool customHover, const QString &styleSheet);
    ~MenuBuilder() override;

    /// Makes manager and bar; for subclasses that use the protected constructor. A second call does
    /// nothing.
    virtual void Initialize(bool customHover);

    /// Gives @p button the look of an item; null is ignored.
    /// @param isSeparator whether it is to look like a separator
    virtual void SetMenuBarItemStyle(QSharedPointer<QToolButton> &button, bool isSeparator);

    /// Gives @p button the size of its style: at least 50 wide with a text, else 4 more than its icon
    /// both ways. Null is ignored.
    virtual void SetMenuBarItemButtonStyle(QSharedPointer<QToolButton> &button,
                                           Qt::ToolButtonStyle style);

    /// Gives a menu the style sheet of the bar, and on Windows no drop shadow; null is ignored.
    virtual void SetDropDownMenuStyle(QMenu *menu);

    /// The main window, or null.
    virtual QMainWindow *GetMainWindow();

    /// The first action in the menu of @p item or in menus below it with exactly this text.
    virtual QAction *FindAction(const QString &item, const QString &text);

    /// Adds an item that calls the slot of @p spec when it is clicked.
    /// @param spec null returns false
    /// @param alternateStyle style sheet while the menu is open; empty for no difference
    /// @param group name of an exclusive group that the item joins, checkable; empty for none
    /// @return false when there is an item of this name, here and in all that add items
    bool AddMenuBarItem(const QSharedPointer<AppMenuItemSpecifier> &spec,
                        const QString &alternateStyle, const QString &group);
    /// Adds an item that calls @p slot of the main window when it is clicked.
    bool AddMenuBarItem(const QString &name, const char *slot, const QIcon &icon,
                        const QString &alternateStyle, const QString &group,
                        const QString &tooltip);
    /// Adds an item that a click does nothing to.
    bool AddMenuBarItem(const QString &name, const QIcon &icon, const QString &alternateStyle,
                        const QString &group, const QString &tooltip);
    /// Adds an item before the one at @p index, or at the end when there is none.
    bool InsertMenuBarItem(int index, const QString &name, const QIcon &icon,
                           const QString &alternateStyle, const QString &group,
                           const QString &tooltip);
    /// Adds an item with the face that @p spec tells; null returns false.
    bool AddMenuBarToggleItem(const QString &name,
                              const QSharedPointer<AppMenuToggleItemSpecifier> &spec,
                              const QString &alternateStyle, const QString &group);
    /// Adds an item with a text in a bar of icons too.
    /// @param slot of the main window; null calls nothing
    /// @param height of the item in logical pixels
    bool AddMenuBarToggleTextItem(const QString &name, const QString &styleSheet,
                                  const QString &tooltip, const char *slot, int height);
    /// Adds an empty QLabel, one pixel thick and @p length long, between the items. Style sheets give it
    /// the colour of a line. Returns true.
    bool AddSeparator(bool horizontal, int length);

    /// The item of this name; null when there is none.
    QSharedPointer<QToolButton> GetMenuBarItem(const QString &name) const;
    /// The specifier of a toggle item; null when there is none.
    QSharedPointer<AppMenuToggleItemSpecifier> GetMenuBarToggleItemSpecifier(
        const QString &name) const;

    /// Changes what an item shows, and its size.
    void SetMenuItemButtonStyle(const QString &name, Qt::ToolButtonStyle style);
    /// Changes the style sheet of an item, also the one that it gets back when its menu closes.
    void SetMenuItemStyleSheet(const QString &name, const QString &sheet);

    /// Adds entries to the menu of @p item, which is made when there is none.
    bool AddDropDownMenu(const QString &item, QList<AppMenuItemSpecifier> &specs);
    /// Adds actions to the menu of @p item, which is made when there is none.
    /// @param actions null stands for a separator
    /// @param before where to add them; null is the end
    bool AddDropDownMenu(const QString &item, const QVector<QAction *> &actions, QAction *before);
    /// Adds a sub menu to the menu of @p item. False when that has none.
    bool AddSubMenu(const QString &item, const QString &title, QList<AppMenuItemSpecifier> &specs);
    /// Adds actions to the sub menu of this title, which is made when there is none. False when
    /// @p item has no menu.
    /// @param before where a new sub menu and the actions are added; null is the end
    /// @param separatorAfter whether a separator follows a new sub menu. One that has become empty is
    ///                       still there, with its separator
    bool AddSubMenu(const QString &item, const QString &title, const QVector<QAction *> &actions,
                    QAction *before, bool separatorAfter);
    /// Adds one entry to the menu that the button of @p item holds itself: plain mode, started.
    bool AppendMenuItem(const QString &item, AppMenuItemSpecifier &spec);
    /// Adds the mirror menus to a native menu bar; null is ignored.
    void AppendMenuBarItems(QMenuBar *menuBar);

    /// Makes the menus work.
    void Start();
    /// Hides open menus and the bar.
    void HideMe();
    /// Whether neither the pointer is on an item nor a menu open. Plain mode only.
    bool CanHide() const;
    /// Whether a menu is open. Plain mode only.
    bool IsMenuVisible() const;
    /// Has @p filter watch all items and the menus that their buttons hold.
    void InstallEventFilter(QObject *filter);
    /// Moves the bar to @p position in its parent, as wide as its widest item times their number.
    void SetMenuPosition(QPoint &position);
    /// Enables or disables the item with this text.
    void SetButtonEnabled(const QString &text, bool enabled);
    /// Gives the menu of an item a fixed width, which is never less than that of the item.
    /// @param width logical pixels; above 0 it is the least width of the item too
    void setFixedMenuWidth(const QString &text, int width);

protected:
    /// For subclasses with a private class of their own; they call Initialize().
    /// @param dd taken over and deleted by the bar
    MenuBuilder(MenuBuilderPrivate &dd, QWidget *parent);

    /// Makes room for an item that was given another text, by the width of all.
    bool event(QEvent *event) override;

    /// Owned by the bar; what subclasses cast to their own.
    const std::unique_ptr<MenuBuilderPrivate> d_ptr;

private:
    Q_DECLARE_PRIVATE(MenuBuilder)
    Q_DISABLE_COPY(MenuBuilder)
};

} // namespace Vela::UiBase
