// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QVector>

#include <functional>

class QAbstractButton;
class QAction;
class QKeyEvent;
class QMenu;
class QWidget;

namespace Vela::UiBase {

class LumoMenuManager;

/// The way through the menus of custom-hover mode without a pointer.
///
/// F10 or a tap on Alt in the main window opens the first menu, and so does a press of a button that
/// comes from its mnemonic or an assistive tool. Such a menu becomes the active window, so that
/// QMenu hears the keys itself; what is added is the way to the neighbour menus, and the way back to
/// the main window when the menu has gone. Escape in the main window hides what the pointer opened.
/// Consumes nothing.
class MenuKeys : public QObject
{
    Q_OBJECT

public:
    using Buttons = QVector<QAbstractButton *>;
    /// What the keys need of the manager.
    struct SManagerLinks
    {
        std::function<Buttons()> buttons;            ///< all linked ones, in any order
        std::function<void(QAbstractButton *)> open; ///< as the pointer does that enters it
        std::function<void()> stayOpen;              ///< forgets that menus are to hide soon
    };

    MenuKeys(LumoMenuManager &manager, QWidget *window, SManagerLinks links);

    /// Hears what happens to the main window, to linked menus and to their sub menus.
    void OnEvent(QObject *watched, QEvent *event);
    /// Opens the menu of @p button, which was pressed.
    void OnPressed(QAbstractButton *button);

    /// Hears everything between the press and the release of Alt.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void OnWindowKey(const QKeyEvent &event);
    void OnMenuKey(QMenu &menu, const QKeyEvent &event);
    void OnMenuEvent(QMenu &menu, QEvent::Type type);
    void LoseActivation(QMenu &menu);
    void OpenMenuOf(QAbstractButton *button);
    void OpenFirst();
    void OpenNeighbour(int step);
    void Leave();
    void WatchAlt(bool watch);
    Buttons ButtonsFromTheLeft() const;

    LumoMenuManager &m_manager;
    const QPointer<QWidget> m_window;
    const SManagerLinks m_links;
    QPointer<QMenu> m_menu; // that the keys opened
};

} // namespace Vela::UiBase
