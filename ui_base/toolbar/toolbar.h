// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/popup/direction.h"
#include "ui_base/toolbar/toolbutton.h"
#include "ui_base/uibaseexport.h"

#include <QColor>
#include <QIcon>
#include <QMap>
#include <QMargins>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QWidget>

#include <memory>

class QAction;
class QEasingCurve;
class QPropertyAnimation;
class QToolButton;

namespace Vela::UiBase {

class CommandBase;
class CommandGroup;
class ToolBarPrivate;
class ToolButtonWithButtonMenu;
class ToolButtonWithWidgetMenu;

/// A bar of tool buttons along one side of its parent, which lays its buttons out itself.
///
/// Buttons stand in groups. Each group has a panel, a plate with its buttons in a line along the bar or
/// in a grid, and thin separators between them. Ranks order the buttons of a panel and, by the
/// lowest of its buttons, the panels. All buttons have the same fixed size; the bar is as large as
/// its contents.
///
/// What hears of a click, of a command or of the end of a slide may delete the bar and all that stands
/// on it. ButtonMenuVisibilityChange() can come while Qt toggles a button, or hides or resizes a widget,
/// in the midst of which these must not be deleted: use QObject::deleteLater() there.
///
/// The bar belongs to its parent; buttons and panels belong to the bar. It takes no focus. For a bar
/// in the frame of a main window, with a handle and docking, QToolBar will do. Main thread only.
class LUMO_UI_BASE_EXPORT ToolBar : public QWidget
{
    Q_OBJECT
    /// Where the contents stand inside of the bar.
    Q_PROPERTY(QPoint Pos READ Pos WRITE SetPos)

public:
    /// Which corners of the background and of the plates are rounded.
    enum class EToolBarRoundCorner : int {
        RoundAllCorners = 0,   ///< all four
        RoundOuterCorners = 1, ///< the two that are away from the side on which the bar stands
        NoRoundCorners = 2     ///< none
    };

    /// An empty bar whose panels are lines.
    /// @param parent owner of the bar, may be null. Its size is watched for the position of the bar
    /// @param area the side of the parent along which the bar stands: horizontal at the top and the
    ///             bottom, else vertical. With a value that is no single side the bar has no layout
    ///             until OnToolBarAreaSetLayout()
    ToolBar(QWidget *parent, Qt::ToolBarArea area);
    /// An empty bar whose panels are grids.
    /// @param gridSize number of cells in a row, or in a column without @p gridRowMajor; below 1 the
    ///                 panels are lines
    /// @param gridRowMajor whether the cells are filled row by row rather than column by column
    /// @param parent as above
    /// @param area as above
    ToolBar(int gridSize, bool gridRowMajor, QWidget *parent, Qt::ToolBarArea area);
    ~ToolBar() override;

    /// Whether the bar stands at the top or at the bottom.
    bool IsHorizontalLayout() const;
    /// Whether the panels are grids.
    bool IsGridLayout() const;
    /// Lays the bar out once its side is known; for a subclass whose side was not known when the bar
    /// was made. Panels that were added before come in by their ranks. Does nothing a second time.
    void OnToolBarAreaSetLayout();

    /// Adds a button for an action to the end of a group, or in front of the first button that has a
    /// higher rank, if that stands in the same group. In a grid a rank above 0 is the number of the
    /// cell, counted from 1; a button that stands there already stays, below the new one.
    /// @param action not owned; its icon is brought to the size of the bar's icons
    /// @param groupName the group; a new one goes in front of the group with the next higher rank
    /// @param rank place among the buttons, ascending; equal ranks stand in the order of adding. In a
    ///             grid it is the number of the cell, from 1 to 10000; with any other the button
    ///             stands in the cell of its place in the order of adding
    /// @param useTooltipDefaults whether the tooltip stands as SetButtonDefaultTooltipParameters() says
    /// @param useMenuDefaults whether a menu opens as SetButtonDefaultMenuParameters() says; a plain
    ///                        button has none
    /// @return the button, owned by the bar; null for a null action
    ToolButton *AddAction(QAction *action, const QString &groupName = {}, int rank = 0,
                          bool useTooltipDefaults = true, bool useMenuDefaults = true);

    /// Adds a button that opens a widget, mostly a FlyoutBase, in an ArrowedWindow; else like the plain
    /// form. A flyout is told of its button, see FlyoutBase::SetToolButton().
    /// @param menuWidget see ToolButtonWithWidgetMenu::SetMenu()
    /// @return the button, owned by the bar; null for a null action or widget
    ToolButtonWithWidgetMenu *AddAction(QAction *action, QWidget *menuWidget,
                                        const QString &groupName = {}, int rank = 0,
                                        bool useTooltipDefaults = true,
                                        bool useMenuDefaults = true);
    /// Adds a button that opens a menu of buttons; else like the plain form. The buttons of the menu
    /// get the size of those of this bar.
    /// @param action becomes the default action of the button; not owned, may be null
    /// @param icon shown where the action has none
    /// @param menu see ToolButtonWithButtonMenu::SetMenu()
    /// @param hideOnClick whether a click on a button of the menu closes it
    /// @param tooltip text of the tooltip
    /// @return the button, owned by the bar; null for a null menu, for this bar, and for one whose menu
    ///         this bar is
    ToolButtonWithButtonMenu *AddAction(QAction *action, const QIcon &icon, ToolBar *menu,
                                        bool hideOnClick, const QString &groupName = {},
                                        int rank = 0, const QString &tooltip = {},
                                        bool useTooltipDefaults = true,
                                        bool useMenuDefaults = true);
    /// Adds a button that opens a menu of buttons above a horizontal bar or at the right of a vertical
    /// one, centred, or in line with its first cells if the menu is a grid. The button is in extend
    /// mode, see ToolButtonWithButtonMenu::SetExtendMode(). The other parameters are those of
    /// AddAction().
    /// @param parent has to be there, and is not used otherwise
    /// @param toolBar the bar to add it to
    /// @param checkable whether the button is
    /// @param objectName object name of the button
    /// @return the button, owned by the bar; null when @p parent or @p menu is null
    static ToolButtonWithButtonMenu *CreateToolButton(QWidget *parent, QAction *action,
                                                      ToolBar &toolBar, ToolBar *menu,
                                                      const QString &groupName, const QIcon &icon,
                                                      int rank, bool hideOnClick, bool checkable,
                                                      const QString &tooltip,
                                                      const QString &objectName);

    /// Brings panels and bar to the size of their contents and the bar to its place.
    /// @param forceRelayout makes panels that were filled just now measure themselves again
    void AdjustToolBarSize(bool forceRelayout);

    /// Sets the room around the panels, none by default. In logical pixels, as all lengths here.
    void SetMainContentMargins(QMargins margins);
    /// \sa SetMainContentMargins()
    QMargins GetMainContentMargins() const;
    /// Sets the room around the buttons of each panel, 1 by default.
    void SetGroupContentMargins(QMargins margins);
    /// \sa SetGroupContentMargins()
    QMargins GetGroupContentMargins() const;
    /// Sets the room between two buttons of a panel, which is also the thickness of the separator in
    /// it; 1 by default. With 0 no separators are seen.
    void SetButtonSpacing(int spacing);
    /// \sa SetButtonSpacing()
    int GetButtonSpacing() const;
    /// Sets the room between two panels, 10 by default.
    void SetButtonGroupSpacing(int spacing);
    /// \sa SetButtonGroupSpacing()
    int GetButtonGroupSpacing() const;

    /// Sets the size of all buttons, 36 x 36 by default, and with it that of their icons, which are
    /// smaller by ButtonIconSizeDiff().
    /// @param size one with a negative length is ignored
    void SetButtonSize(const QSize &size);
    /// \sa SetButtonSize()
    QSize ButtonSize() const;
    /// The size of the icons, 24 x 24 until SetButtonSize() is called.
    QSize IconSize() const;
    /// Sets whether buttons show icon, text or both; the icon by default. Changes no sizes.
    void SetToolButtonStyle(Qt::ToolButtonStyle style);
    /// Gives all buttons a style sheet.
    /// @param includeSubMenus whether the buttons of the menus of buttons get it, too
    void SetButtonStyleSheet(const QString &styleSheet, bool includeSubMenus);

    /// Sets the colour of the background.
    void SetBackColor(const QColor &color);
    /// Sets the colour of the plates behind the panels.
    void SetGroupBackColor(const QColor &color);
    /// Sets the colour of the separators. It is seen when the bar is painted the next time.
    void SetButtonSeparatorColor(const QColor &color);
    /// Sets the frame, 1 pixel around each panel by default.
    /// @param width 0 is no frame
    /// @param color colour of the frame
    /// @param aroundPanels whether each panel is framed rather than all of them together
    void SetBorder(int width, const QColor &color, bool aroundPanels);
    /// Sets which corners are rounded, by default none.
    /// @param main corners of the background
    /// @param group corners of the plates
    /// @param radius of both
    void SetRoundCorner(EToolBarRoundCorner main, EToolBarRoundCorner group, int radius);
    /// Switches the drop shadow on or off; off by default.
    void EnableShadow(bool enable);

    /// Moves the contents inside of the bar.
    void SetPos(const QPoint &pos);
    /// \sa SetPos()
    QPoint Pos() const;

    /// Takes margins, colours, sizes, corners, border and all defaults for buttons over from
    /// another bar. Panels that are there keep their margins. Null is ignored.
    void CopyAllParametersFrom(const ToolBar *other);
    /// Takes only the defaults for menus of buttons over. Null is ignored.
    void CopyButtonDefaultMenuParameters(const ToolBar *other);
    /// Takes only the defaults for tooltips over. Null is ignored.
    void CopyButtonDefaultTooltipParameters(const ToolBar *other);
    /// Takes all that CopyAllParametersFrom() does, and puts the tooltips of buttons made later to the
    /// right of them, as suits a menu.
    /// @param from may be this bar; null leaves all but the tooltips as it is
    /// @param tooltipGroup see SetTooltipGroup()
    void ApplyDefaultToolbarParams(const ToolBar *from, const QString &tooltipGroup);
    /// Sets how menus of buttons that are added later open. By default they open above the buttons, on a
    /// bar at the top too.
    /// @param shadow whether they have a drop shadow
    /// @param arrow their arrow
    /// @param offset distance from the button
    /// @param direction side of the button on which they open, if there is room
    /// @param align how they are aligned with the button
    /// @param additionalOffset is added to their place
    void SetButtonDefaultMenuParameters(bool shadow, const ArrowedWindow::SArrowParam &arrow,
                                        int offset, EDirection direction, EWidgetsAlign align,
                                        QPoint additionalOffset);
    /// Sets where the tooltips of buttons that are added later stand; the parameters are those of
    /// SetButtonDefaultMenuParameters(). By default they stand 10 pixels above, on a bar at the top and
    /// on a vertical one too.
    void SetButtonDefaultTooltipParameters(const ArrowedWindow::SArrowParam &arrow, int offset,
                                           EDirection direction, EWidgetsAlign align,
                                           QPoint additionalOffset);
    /// Sets the name of the group in which the tooltips of buttons made later exclude each other.
    void SetTooltipGroup(const QString &group);
    /// Name of the group of the tooltips; empty by default.
    QString GetTooltipGroupName() const;

protected:
    /// Adds what a group holds. A virtual group adds no level: its commands come to this bar, and
    /// groups in it are left out. Any other group has its own bar, CommandGroup::toolbar(), to which
    /// its commands and groups are added. One that has none gets it as the menu of a button on this
    /// bar, by CreateSubToolBar() and AddButton().
    /// @param group the group, not owned; null is ignored
    /// @param parentGroup the group that holds it, null for one that is added by itself
    /// @return the last button made for a virtual group, else the button of the group; null when there
    ///         is none
    virtual ToolButton *AddCommandGroup(CommandGroup *group, CommandGroup *parentGroup);

public:
    /// Adds what a group holds, which has to be a virtual group or to have its own bar already.
    /// @return the last button made for a virtual group, else the button of the group; null when there
    ///         is none
    virtual ToolButton *AddCommandGroup(CommandGroup *group);
    /// Removes the button of a command from the bar or the menu in which it stands, or those of all
    /// commands that a group holds.
    /// @return whether there was a button for the command, or for every command of the group
    virtual bool RemoveCommand(CommandBase *command);
    /// The size of the contents; invalid while there is no layout.
    QSize sizeHint() const override;
    /// The same: the bar does not shrink.
    QSize minimumSizeHint() const override;
    /// Moves the bar to its place in its parent after a moment, once for many calls. Nothing unless
    /// SetEnableAutoPosition() is on.
    virtual void AutoPosition();
    /// Whether the pointer is inside the bar now.
    virtual bool Hovered();

    /// Has the bar keep its place at its side of the parent, also when either is resized; off by
    /// default.
    void SetEnableAutoPosition(bool enable);
    /// Sets whether the bar stands in the middle of its side, which is the default.
    void SetCentered(bool centered);
    /// Sets the distance from the side (x at the left and right, y at the top and bottom) and, for a
    /// bar that is not centred, along it; (100, 0) by default.
    void SetOffset(const QPoint &offset);
    /// Sets whether an open menu is moved only 100 milliseconds after the last resize rather than with
    /// each; off by default.
    void setDelayRelocationOnResize(bool delay);

    /// Registers a handler at the first button that stands for @p action, see
    /// ToolButton::SetCallbackHandler().
    void AddCallbackHandler(ToolButton::IToolButtonCallbackHandler *handler, QAction *action);
    /// Has every button ask its handlers, see ToolButton::EnableActions(). Called by itself when the
    /// pointer comes in.
    void EnableActions();
    /// The first button with this text, or null.
    /// @param includeSubMenus whether the buttons of the menus of buttons count
    ToolButton *FindOneButton(const QString &text, bool includeSubMenus) const;
    /// Makes a button one of a group of which only the clicked one is checked. A click on a button that
    /// is in no such group unchecks all of them.
    /// @param group name of the group
    /// @param button not owned; null and one that is in the group already are ignored
    void AddExclusiveGroupButton(const QString &group, QToolButton *button);
    /// Locks all buttons or unlocks them, see ToolButton::SetLocked(). Those of menus are left alone.
    void SetLocked(bool locked);

    /// Slides the bar in from its side in 300 milliseconds and unlocks its buttons at the end. A hide
    /// that has not ended is given up.
    void ShowAnimated();
    /// Closes all menus, locks the buttons and slides the bar out to its side in 300 milliseconds, to
    /// be hidden at the end. A show that has not ended is given up. The buttons are unlocked when the
    /// bar has slid in again, or is shown without a slide.
    void HideAnimated();
    /// Shows the bar in front of other widgets.
    void ShowMe();
    /// Closes all menus and hides the bar.
    /// @param keepMenuState whether the menus open again when the bar is shown the next time
    void HideMe(bool keepMenuState);
    /// Whether the bar is in show mode: at first, and from ShowAnimated() on, until it slides out or
    /// is found hidden by this call. To be shown in another way does not bring it back.
    bool InShowMode();

    /// Sets whether the menus on this bar stay open when the host tells of a click outside; off by
    /// default.
    /// \sa OnMouseClickedOutside()
    void SetKeepStateOnClickOutside(bool keep);
    /// Closes the menus of all buttons but one.
    /// @param keepState whether the menus open again when the bar is shown the next time
    /// @param except the button whose menu stays open; null for none
    void HideAllButtonMenusExcept(bool keepState, ToolButton *except);
    /// Closes the first open menu, in the order of the buttons and those of a menu behind its own; for
    /// hosts to call when Escape was pressed. A popup in a menu is dismissed by OnDismissWidgetMenu().
    /// Nothing on a bar that is a menu, and nothing while the button of that menu is disabled.
    void DismissLeafMenu();
    /// The button whose popup another one stands in for at present, on this bar or in its menus; or
    /// null.
    ToolButtonWithWidgetMenu *GetActiveButton() const;
    /// Called by buttons with a widget. A click on another button closes the popup of this one.
    void SetActiveButton(ToolButtonWithWidgetMenu *button);
    /// An empty map.
    QMap<ToolButton *, ToolBar *> GetAllParentButtonsMap(ToolButton *button) const;
    /// The bar on which the button stands whose menu this bar is, going on from there to one that is
    /// no menu; the bar itself when it is none.
    ToolBar *GetBaseToolBar();

public Q_SLOTS:
    /// Closes the menus of this bar's buttons, but not one whose bar keeps its state. For hosts that
    /// watch clicks beside the bar.
    void OnMouseClickedOutside();
    /// Takes the click of the button that sends it.
    void OnToolButtonClicked();
    /// Moves the bar to its place in its parent. Nothing unless SetEnableAutoPosition() is on.
    void OnAutoPosition();
    /// Unlocks the buttons when the bar has slid in.
    void OnShowAnimationDone();
    /// Hides the bar when it has slid out.
    void OnHideAnimationDone();
    /// Moves the first open menu to where it belongs now.
    void OnResizeTimerTimeOut();

Q_SIGNALS:
    /// Buttons were added or removed.
    void LayoutChanged();
    /// The menu of a button on this bar or in one of its menus was opened or closed. What hears of it
    /// must not delete bars or buttons at once, see the class.
    void ButtonMenuVisibilityChange(Vela::UiBase::ToolButton *button, bool isVisible);
    /// The bar has slid in.
    void ShowAnimationFinished();
    /// The bar has slid out.
    void HideAnimationFinished();
    /// For owners to emit: flyouts of the bar are to be closed.
    void CloseFlyout();
    /// A button of the bar was clicked.
    void ToolButtonClicked(Vela::UiBase::ToolButton *button);

protected:
    /// For subclasses with a private class of their own; else like the public forms.
    /// @param dd taken over and deleted by the bar
    ToolBar(ToolBarPrivate &dd, QWidget *parent, Qt::ToolBarArea area, int gridSize = 0,
            bool gridRowMajor = true);

    /// Adds a button for a command, by the command's base group and its rank in @p group, or finds the
    /// one that is there: a command stands on a bar once. That of a FlyoutCommand opens the command's
    /// widget; one without a widget gets no button.
    /// @return the button; null for null and for a group
    virtual ToolButton *AddSingleCommand(CommandBase *command, CommandGroup *group);
    /// Removes the button of a command from whichever bar it stands on, from the base bar downwards.
    /// @return whether there was one; false for null and for a group
    virtual bool RemoveSingleCommand(CommandBase *command);
    /// Makes the bar for what a group without a bar holds: a grid or a line, floating, with the looks of
    /// the base bar.
    /// @return the bar, not owned by anyone but the widget by which this one is placed; null for null
    virtual ToolBar *CreateSubToolBar(CommandGroup *group);
    /// Adds the button for a group to this bar, by CreateToolButton().
    /// @param menu the bar of the group
    /// @return the button; null for a null group or menu, and when this bar has no parent
    virtual ToolButton *AddButton(ToolBar *menu, CommandGroup *group, int rank);
    /// Dismisses an open popup of a button in a menu: has the button that stands in for it take a
    /// click, as soon as the present event has been handled. Null is ignored.
    /// @param owner the button of the menu
    /// @param leaf the button on it
    virtual void OnDismissWidgetMenu(ToolButtonWithButtonMenu *owner,
                                     ToolButtonWithWidgetMenu *leaf);
    /// How much smaller icons are than their buttons, in both directions.
    virtual int ButtonIconSizeDiff();

    /// Removes the button that shows an action. The last one of a group goes with its panel; any other
    /// stays alive as a child of the panel.
    /// @return whether there was one
    bool RemoveButton(QAction *action);
    /// Sets a new button up and puts it in its place; the parameters are those of AddAction().
    void OnButtonCreated(ToolButton *button, const QString &groupName, bool useTooltipDefaults,
                         bool useMenuDefaults, int rank);
    /// Keeps exclusive groups so after a click on @p clicked.
    void OnButtonClickCheckExclusiveGroups(ToolButton *clicked);
    /// Passes a mouse event of a bar that is a menu on to the base bar.
    void PassMouseEvent(QMouseEvent *event);
    /// The widget by which the bar is placed: its parent when it was made; null once that has died.
    QWidget *getRefParent() const;

    /// Starts the state machine of the bar, which has one state and no transitions: something for
    /// subclasses to attach their own to.
    void InitializeStateMachine();
    /// Makes the timer of setDelayRelocationOnResize().
    void InitializeResizeTimer();
    /// Makes the animation by which a bar slides, not started yet.
    /// @param show whether it slides in
    /// @param widget what is moved, and owner of the animation
    /// @param toolBar whose side counts, and who is told of the end
    /// @param offset distance from the side at rest
    /// @param curve of the movement
    /// @param durationMs in milliseconds
    /// @return null without a widget or a bar
    static QPropertyAnimation *InitializePosAnimation(bool show, QWidget *widget, ToolBar *toolBar,
                                                      QPoint offset, const QEasingCurve &curve,
                                                      int durationMs);
    /// Where a slide begins or ends: at rest, or just outside of the parent. The parameters are those
    /// of InitializePosAnimation(). A widget without parent, or with no bar, stays where it is.
    static QPoint GetAnimationTargetPos(bool show, bool isStart, QWidget *widget, ToolBar *toolBar,
                                        QPoint offset);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void enterEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

    /// Owned by the bar; what subclasses cast to their own.
    const std::unique_ptr<ToolBarPrivate> d_ptr;

private:
    friend class ToolButton;
    friend class ToolButtonPrivate;
    friend class ToolButtonWithMenu;
    friend class ToolbarManager;
    friend class ToolbarManagerPrivate;
    friend class ToolButtonWithMenuPrivate;
    Q_DECLARE_PRIVATE(ToolBar)
    Q_DISABLE_COPY(ToolBar)
};

} // namespace Vela::UiBase
