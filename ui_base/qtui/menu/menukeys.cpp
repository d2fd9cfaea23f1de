// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/menu/menukeys_p.h"

#include "ui_base/qtui/menu/menumanager.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QStyle>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

static bool CanBeChosen(const QAction *action)
{
    return action->isVisible() && action->isEnabled() && !action->isSeparator();
}

static void SelectFirst(QMenu &menu)
{
    const QList<QAction *> actions = menu.actions();
    const auto first = std::find_if(actions.cbegin(), actions.cend(), CanBeChosen);
    if (first != actions.cend())
        menu.setActiveAction(*first);
}

static bool HasOpenableMenu(const QAction *action)
{
    return action && action->isEnabled() && action->menu();
}

/// Whether @p event ends a tap on Alt that began before: the user does something else meanwhile.
static bool InterruptsTap(const QEvent &event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
        return static_cast<const QKeyEvent &>(event).key() != Qt::Key_Alt;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::ActivationChange:
    case QEvent::Shortcut:
        return true;
    default:
        return false;
    }
}

MenuKeys::MenuKeys(LumoMenuManager &manager, QWidget *window, SManagerLinks links)
    : QObject(&manager)
    , m_manager(manager)
    , m_window(window)
    , m_links(std::move(links))
{ }

void MenuKeys::OnEvent(QObject *watched, QEvent *event)
{
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (watched == m_window) {
        if (isKey)
            OnWindowKey(static_cast<const QKeyEvent &>(*event));
    } else if (auto *menu = qobject_cast<QMenu *>(watched)) {
        if (event->type() == QEvent::KeyPress)
            OnMenuKey(*menu, static_cast<const QKeyEvent &>(*event));
        else
            OnMenuEvent(*menu, event->type());
    }
}

void MenuKeys::OnWindowKey(const QKeyEvent &event)
{
    if (event.type() == QEvent::ShortcutOverride) {
        const bool isTap = event.key() == Qt::Key_Alt && event.modifiers() == Qt::AltModifier;
        if (isTap
            && m_window->style()->styleHint(QStyle::SH_MenuBar_AltKeyNavigation, nullptr, m_window))
            WatchAlt(true);
    } else if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::NoModifier) {
        OpenFirst();
    } else if (event.key() == Qt::Key_Escape) {
        m_manager.OnMenuHideTimerTimeOut();
    }
}

void MenuKeys::OnMenuKey(QMenu &menu, const QKeyEvent &event)
{
    if (event.key() == Qt::Key_F10) {
        m_manager.OnMenuHideTimerTimeOut();
        return; // what hides with the menus may have ended this
    }
    const bool isLeft = event.key() == Qt::Key_Left;
    if (!m_menu || (!isLeft && event.key() != Qt::Key_Right))
        return;
    // QMenu itself goes into sub menus and out of them.
    const bool isInwards = isLeft == menu.isRightToLeft();
    const bool isForQt = isInwards ? HasOpenableMenu(menu.activeAction()) : &menu != m_menu;
    if (!isForQt)
        OpenNeighbour(isLeft ? -1 : 1);
}

void MenuKeys::OnMenuEvent(QMenu &menu, QEvent::Type type)
{
    if (!m_menu)
        return;
    if (type == QEvent::Leave && !menu.isVisible())
        m_links.stayOpen(); // the keys took the menu away from below the pointer
    else if (&menu != m_menu)
        return;
    else if (type == QEvent::Hide)
        Leave();
    else if (type == QEvent::WindowDeactivate && !menu.isHidden()) // not by its own hiding
        LoseActivation(menu);
}

// The user has gone to another window, which keeps the activation. That is still under way: what the
// hiding of a menu sets off, perhaps the end of that window, waits until it is done.
void MenuKeys::LoseActivation(QMenu &menu)
{
    m_menu = nullptr;
    const QPointer<QMenu> lost(&menu);
    QTimer::singleShot(0, this, [this, lost] {
        if (lost && lost != m_menu)
            lost->hide();
    });
}

void MenuKeys::OnPressed(QAbstractButton *button)
{
    const QMenu *menu = m_manager.GetMenu(button);
    if (!menu || !m_manager.IsStarted())
        return;
    if (QGuiApplication::mouseButtons() == Qt::NoButton)
        OpenMenuOf(button);
    else if (!menu->isVisible())
        m_links.open(button);
}

void MenuKeys::OpenMenuOf(QAbstractButton *button)
{
    const QPointer<MenuKeys> alive(this);
    const QPointer<QMenu> menu = m_manager.GetMenu(button);
    m_menu = menu;
    m_links.open(button);
    const bool isOvertaken = !alive || !menu || m_menu != menu || !menu->isVisible();
    if (isOvertaken)
        return;
    menu->activateWindow();
    SelectFirst(*menu);
}

MenuKeys::Buttons MenuKeys::ButtonsFromTheLeft() const
{
    Buttons buttons = m_links.buttons();
    const auto cannotOpen = [this](QAbstractButton *button) {
        return !m_manager.GetMenu(button) || !button->isVisible() || !button->isEnabled();
    };
    buttons.erase(std::remove_if(buttons.begin(), buttons.end(), cannotOpen), buttons.end());
    std::sort(buttons.begin(), buttons.end(), [](const QWidget *one, const QWidget *other) {
        return one->mapToGlobal(QPoint()).x() < other->mapToGlobal(QPoint()).x();
    });
    return buttons;
}

void MenuKeys::OpenFirst()
{
    const Buttons buttons = ButtonsFromTheLeft();
    if (buttons.isEmpty() || !m_manager.IsStarted())
        return;
    OpenMenuOf(m_window->isRightToLeft() ? buttons.constLast() : buttons.constFirst());
}

void MenuKeys::OpenNeighbour(int step)
{
    const Buttons buttons = ButtonsFromTheLeft();
    const auto opensMenu = [this](QAbstractButton *button) {
        return m_manager.GetMenu(button) == m_menu;
    };
    const auto current = std::find_if(buttons.cbegin(), buttons.cend(), opensMenu);
    if (current == buttons.cend())
        return;
    const int count = buttons.size();
    const int place = int(current - buttons.cbegin());
    OpenMenuOf(buttons.at((place + step + count) % count));
}

void MenuKeys::Leave()
{
    m_menu = nullptr;
    if (m_window && m_window->isVisible())
        m_window->activateWindow();
}

void MenuKeys::WatchAlt(bool watch)
{
    if (watch)
        QCoreApplication::instance()->installEventFilter(this);
    else
        QCoreApplication::instance()->removeEventFilter(this);
}

bool MenuKeys::eventFilter(QObject *watched, QEvent *event)
{
    const bool isRelease = event->type() == QEvent::KeyRelease
        && static_cast<const QKeyEvent *>(event)->key() == Qt::Key_Alt;
    if (isRelease || InterruptsTap(*event))
        WatchAlt(false);
    const QPointer<MenuKeys> alive(this);
    const QPointer<QObject> receiver(watched);
    if (isRelease)
        OpenFirst();
    if (!alive || !receiver)
        return !receiver;
    return QObject::eventFilter(watched, event);
}

} // namespace Vela::UiBase
