// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QObject>

#include <memory>

class QAbstractButton;
class QMainWindow;
class QMenu;

namespace Vela::UiBase {

class LumoMenuManagerPrivate;

/// Decides which of the menus of a row of buttons is open.
///
/// In plain mode it hands each menu to its button and Qt pops it up on a press. In custom-hover mode
/// the menus are frameless windows: one is shown as soon as the pointer enters its button, the
/// pointer on another button switches to that one's menu without delay, and all are hidden when the
/// pointer has been away for 200 milliseconds. The keyboard stays where it is meanwhile. In both modes
/// a menu is told by QMenu::aboutToShow() that it opens, so that it can be filled then, and the choice
/// of an action hides it. The menu opens at the left end of its button, from right to left as well,
/// and is shifted as far as the screen wants it when it does not fit there.
///
/// Custom-hover mode needs no pointer: in the main window F10 or a tap on Alt opens the first menu, and
/// a press of a button without a mouse, by its mnemonic or an assistive tool, opens its own. Such a
/// menu is the active window: the arrow keys go through it and to its neighbours, and when it has gone
/// the main window is active again. A click on a button opens its menu again, and Escape that nothing
/// in the main window takes hides all menus. A main window that is hidden takes the menus along, and
/// one that is moved has open menus move with it. The shortcuts in the menus of enabled buttons work in
/// the main window, which holds the actions of those menus for it.
///
/// While a menu of custom-hover mode is open, its button has the style sheet of its property
/// AlternateStyleProperty, otherwise that of OriginalStyleProperty; an empty one changes nothing. The
/// change is painted at once, in a turn of the event loop out of the change itself, so that
/// whatever waits in the loop runs then.
///
/// Neither buttons nor menus are owned. A button that dies is dropped; one whose menu dies stays as a
/// button without a menu. GUI thread only.
///
/// docs/menus.md tells more.
class LUMO_UI_BASE_EXPORT LumoMenuManager : public QObject
{
    Q_OBJECT

public:
    /// Dynamic property of a button: the style sheet that it has while its menu is closed.
    static constexpr char OriginalStyleProperty[] = "OriginalStyle";
    /// Dynamic property of a button: the style sheet that it has while its menu is open.
    static constexpr char AlternateStyleProperty[] = "AlternateStyle";

    /// @param mainWindow the window around the buttons, which tells in custom-hover mode that the
    ///                   pointer is away; its mouse tracking is turned on then. Not owned, may be null
    /// @param menuOffsetY logical pixels from the bottom of a button to the top of its menu, in
    ///                    custom-hover mode
    /// @param customHover true for custom-hover mode, false for plain mode
    LumoMenuManager(QMainWindow *mainWindow, int menuOffsetY, bool customHover, QObject *parent);
    /// Hides the open menus of custom-hover mode.
    ~LumoMenuManager() override;

    /// Links @p menu to @p button in place of the one that was linked; on a started manager at once.
    /// A replaced menu of custom-hover mode is hidden.
    /// @param button null is ignored. Plain mode gives menus to a QPushButton or a QToolButton only
    /// @param menu null makes a button that only closes the menus of others. Custom-hover mode makes
    ///             it a frameless window; one without a parent widget is shown where it stands
    void AddButtonMenuLinkage(QAbstractButton *button, QMenu *menu);

    /// The menu of @p button; null when it has none or is not linked.
    QMenu *GetMenu(QAbstractButton *button) const;

    /// A linked button with exactly this text, or null. Of several it is any one, but always the same.
    QAbstractButton *FindButton(const QString &text) const;

    /// Makes the links work. A second call does nothing new.
    void Start();
    /// Takes the menus from the buttons in plain mode; in custom-hover mode buttons no longer open
    /// theirs, and one that is open goes 200 milliseconds later unless the pointer is in it or Start()
    /// comes before. The links are kept for the next Start().
    void Stop();
    /// Whether the links work. False at first.
    bool IsStarted() const;

    /// Watches buttons, menus and the main window in custom-hover mode. Consumes nothing.
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// The pointer has been away long enough: hides all linked menus.
    void OnMenuHideTimerTimeOut();
    /// An action was chosen: hides the menu that sent the signal.
    void OnMenuActionTriggered();

private:
    const std::unique_ptr<LumoMenuManagerPrivate> d;
    Q_DISABLE_COPY(LumoMenuManager)
};

} // namespace Vela::UiBase
