// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/popup/direction.h"
#include "ui_base/uibaseexport.h"

#include <QIcon>
#include <QPoint>
#include <QString>
#include <QToolButton>

#include <memory>

class QAction;

namespace Vela::UiBase {

class ToolBar;
class ToolButtonPrivate;
class TooltipObject;
class WidgetPosCalculator;

/// The button by which tool bars, action panels and tool panels show an action, which as a rule is a
/// command. The command knows its button by CommandBase::toolButton(), and the button carries the
/// command's id in its property COMMANDID_PROPERTY.
///
/// While the pointer is over the button, and while it is checked, it shows the picture that its icon
/// has for QIcon::Active, and otherwise the one for QIcon::Normal. It never takes the focus.
///
/// A button on a tool bar has a tooltip with the text of the action's tool tip, in the tooltip group
/// of the bar, which comes and goes at once. It is made when it is first needed.
///
/// All mouse presses, moves and releases are posted to the tool bar as well, also while the button is
/// locked. The tool bar places the button and gives it its size.
///
/// The button belongs to its parent, which for one on a tool bar is a panel of that. Main thread only.
class LUMO_UI_BASE_EXPORT ToolButton : public QToolButton
{
    Q_OBJECT

public:
    /// Decides when an action may be enabled, see EnableActions().
    class LUMO_UI_BASE_EXPORT IToolButtonCallbackHandler
    {
    public:
        virtual ~IToolButtonCallbackHandler();

        /// Whether @p action may be enabled now. Asked when the pointer comes to the tool bar.
        virtual bool IsActionEnabled(QAction *action) = 0;
    };

    /// Name of the dynamic property by which a button made for a command carries the command's id,
    /// "CMDID_PROP". The tool bar sets it.
    static const QString COMMANDID_PROPERTY;

    /// A button that shows @p action on @p toolBar. With one of the two missing it is a bare one.
    /// @param action not owned; the button shows its icon, text and check mark, follows its enabled
    ///               state and triggers it
    /// @param toolBar not owned; hears the mouse events of the button
    /// @param parent owner of the button, may be null
    ToolButton(QAction *action, ToolBar *toolBar, QWidget *parent);
    /// A bare button, without action, tool bar and tooltip.
    /// @param parent owner of the button, may be null
    explicit ToolButton(QWidget *parent);
    ~ToolButton() override;

    /// Makes an icon of picture files.
    /// @param normal file of the picture at rest; empty for none
    /// @param active file of the picture under the pointer; with an empty one it is @p normal
    /// @return a null icon when both are empty
    static QIcon CreateToolButtonIcon(const QString &normal, const QString &active);

    /// Makes an action with the icon that CreateToolButtonIcon() makes of the two files; else like
    /// the other form.
    static QAction *CreateToolButtonAction(QWidget *parent, const QString &text,
                                           const QString &normalIcon, const QString &activeIcon,
                                           const QString &tooltip, QObject *receiver,
                                           const char *slot);
    /// Makes an action for a tool button.
    /// @param parent owner of the action; with null the caller is
    /// @param text the action's text
    /// @param icon the action's icon
    /// @param tooltip the action's tool tip; an empty one leaves it to follow from the text
    /// @param receiver whose slot triggered() is connected to
    /// @param slot the slot as SLOT() writes it. Without a receiver or a slot the action does
    ///             nothing and is not checkable
    static QAction *CreateToolButtonAction(QWidget *parent, const QString &text, const QIcon &icon,
                                           const QString &tooltip, QObject *receiver,
                                           const char *slot);

    /// The action that the button was built for; null for a bare one and once the action has died.
    QAction *Action() const;

    /// The tooltip, which belongs to the button; null for a bare button.
    TooltipObject *GetTooltipObject() const;
    /// Sets where the tooltip stands and its arrow. Nothing for a bare button.
    /// @param arrow the arrow of the tooltip's window
    /// @param direction the side of the button on which it stands, if there is room
    /// @param baseOffset its distance from the button, in logical pixels
    /// @param align how it is aligned with the button; without effect on a window with an arrow
    /// @param additionalOffset is added to its place; without effect on a window with an arrow
    void SetTooltipParameters(const ArrowedWindow::SArrowParam &arrow, EDirection direction,
                              int baseOffset, EWidgetsAlign align, QPoint additionalOffset);
    /// Brings the tooltip in front of other widgets, as after one of them was raised.
    void RaiseTooltip();
    /// Gives the tooltip the text that the action's tool tip has now. It does not follow by itself,
    /// but for a change of the application's language: then a tooltip that still reads as the button
    /// has written it takes the action's new text on the next turn of the event loop.
    void RefreshTooltip();

    /// Whether the pointer is inside the button now.
    bool Hovered() const;

    /// Shows the picture for the pointer being over the button, if @p hovered is true and the button
    /// is enabled, else the one at rest. Nothing changes for a button without an icon.
    void IconState(bool hovered);
    /// Prepares the two pictures that are shown in turns: out of the present icon when there are
    /// none yet, or when they do not have the size iconSize(). They are made once, so an icon set
    /// later shows until the next hover only, unless its size differs. The icon on show has one
    /// picture after that, so when only iconSize() changes both become the picture now shown; set
    /// the full icon again together with the new size.
    void InitIcons();

    /// Has @p handler decide whether @p action may be enabled. All handlers of an action have to
    /// agree; they are asked in the order of registration, one that was registered twice twice.
    /// @param action null is ignored; its handlers are forgotten when it dies
    /// @param handler not owned, and has to live as long as the button and the action; null is
    ///                ignored
    void SetCallbackHandler(QAction *action, IToolButtonCallbackHandler *handler);

    /// Locks the button: it is not pressed or clicked any more and shows no tooltip, while its tool
    /// bar still hears its mouse events. A press that is going on is given up. A tool bar locks its
    /// buttons while it moves.
    void SetLocked(bool locked);

    /// Whether a toggle of a button with a menu closes the menus of all other buttons on its tool
    /// bar. In spite of the name it does so when the button is checked, too. Nothing for a button
    /// without a menu. Off by default.
    void SetHideMenuWhenUnchecked(bool hide);
    /// With true, leaves out ClickedHandler() at the next click, once. ToolButtonClicked() is
    /// emitted all the same.
    void SuppressClickedHandler(bool suppress);
    /// Whether a click of the mouse is on its way to ClickedHandler(). True from the release of the
    /// mouse button, so while the action is triggered, until ToolButtonClicked() has been emitted;
    /// never for a click from code.
    bool ClickedHandlerRequested() const;

    /// Lets the button stand in for a button of its menu. Nothing here; buttons with a menu of
    /// buttons override it.
    virtual void SetExtendMode(bool on);
    /// Called at a click, after ToolButtonClicked(). Nothing here; buttons with a menu override it.
    virtual void ClickedHandler();
    /// Asks the callback handlers of Action() and enables the action and the button when all agree,
    /// or disables both. Without handlers nothing changes. The tool bar calls it when the pointer
    /// comes in.
    virtual void EnableActions();
    /// Whether the button stands for @p action.
    virtual bool IsActionAssociated(QAction *action);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Takes a click: emits ToolButtonClicked() and calls ClickedHandler(). Nothing while the button
    /// is locked.
    void OnClicked(bool isChecked);
    /// Follows a change of the check mark: see SetHideMenuWhenUnchecked(); and a button that was
    /// unchecked shows the picture that its pointer asks for.
    void OnToggled(bool checked);

Q_SIGNALS:
    /// The button was clicked, with the mouse or from code, and is not locked.
    void ToolButtonClicked();

protected:
    /// For subclasses with a private class of their own; otherwise like the public form.
    /// @param dd taken over and deleted by the button
    ToolButton(ToolButtonPrivate &dd, QAction *action, ToolBar *toolBar, QWidget *parent);
    /// \overload
    ToolButton(ToolButtonPrivate &dd, QWidget *parent);

    /// Has @p calc place a popup beside the button: sets direction, base offset, alignment and
    /// additional offset.
    void SetPosParameters(WidgetPosCalculator &calc, EDirection direction, int baseOffset,
                          EWidgetsAlign align, QPoint additionalOffset);

    /// Is polished as all buttons that are alike, and by itself when its style is asked.
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    /// Paints what its style sheet says. A button on a bar that shows nothing but its icon does so out
    /// of pictures that the buttons of the bar share.
    void paintEvent(QPaintEvent *event) override;
    /// Keeps the accessible name in step with the action, and the picture as long as the action has
    /// the same icon.
    void actionEvent(QActionEvent *event) override;
    /// Shows the picture at rest while the button is disabled.
    void changeEvent(QEvent *event) override;

    /// Owned by the button; what subclasses cast to their own.
    const std::unique_ptr<ToolButtonPrivate> d_ptr;

private:
    friend class ToolBar;
    friend class ToolBarPrivate;
    Q_DECLARE_PRIVATE(ToolButton)
    Q_DISABLE_COPY(ToolButton)
};

} // namespace Vela::UiBase
