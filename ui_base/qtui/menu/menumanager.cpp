// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/menu/menumanager.h"

#include "ui_base/qtui/menu/menukeys_p.h"

#include "ui_base/qtui/accessibleopener_p.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMap>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSet>
#include <QTimer>
#include <QToolButton>
#include <QVariant>
#include <QVector>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

/// The corner of something of @p size that belongs at @p corner: right there if the screen has the
/// room, else as near to it as the screen allows.
static QPoint KeptOnScreen(const QPoint &corner, const QSize &size, const QScreen *screen)
{
    if (!screen)
        return corner;
    const QRect room = screen->availableGeometry();
    const QPoint last = room.bottomRight() - QPoint(size.width() - 1, size.height() - 1);
    return {std::max(room.left(), std::min(corner.x(), last.x())),
            std::max(room.top(), std::min(corner.y(), last.y()))};
}

class LumoMenuManagerPrivate
{
public:
    LumoMenuManagerPrivate(LumoMenuManager *manager, QMainWindow *window, int offset, bool hover)
        : q(manager)
        , mainWindow(window)
        , menuOffsetY(offset)
        , customHover(hover)
    { }

    void Initialize();
    void LinkButtonMenu(bool link);
    void LinkPlain(QAbstractButton *button, QMenu *menu) const;
    void LinkHover(QAbstractButton *button, QMenu *menu, bool link) const;
    void SyncShortcuts(QAbstractButton *button, QMenu *menu) const;
    void DropShortcuts(QMenu *menu) const;
    void WatchMenu(QMenu *menu);
    void WatchButton(QAbstractButton *button);
    void DropButton(QAbstractButton *button);
    void DropMenu(QMenu *menu);
    void ShowClosedFace(QAbstractButton *button) const;
    void LetGo(QMenu *menu) const;
    void WatchSubMenus(QMenu *menu) const;
    void End();

    bool IsCursorOver() const;
    bool IsAnyOpen() const;
    void PlaceMenu(QAbstractButton *button) const;
    void PlaceOpenMenus() const;
    void SwitchTo(QAbstractButton *button);
    void Show(QMenu *menu) const;
    void HideAll();
    void HideSubMenus(QMenu *menu) const;
    void ApplyStyle(QMenu *menu, const char *property) const;
    void TellVisibility(QMenu *menu, bool isVisible) const;
    void OnEvent(QObject *watched, QEvent::Type type);
    void OnEnter(QObject *watched);
    void OnMenuHidden(QMenu *menu) const;
    void Open(QAbstractButton *button);
    QVector<QPointer<QMenu>> Menus() const;

    LumoMenuManager *const q;
    QMap<QAbstractButton *, QMenu *> buttonMenus;
    /// A widget only: it is compared while it ends, when it is a QMainWindow no more.
    QPointer<QWidget> mainWindow;
    int menuOffsetY;
    bool customHover;
    QTimer *menuHideTimer = nullptr;
    MenuKeys *keys = nullptr;
    int menuHideInterval = 200;
    bool started = false;
    /// Whether the end of the links has set the timer going, which their new beginning takes back.
    bool isLeaving = false;
    QSet<QMenu *> watchedMenus;
    /// Counts what shows and hides menus, so that a call that was overtaken notices it.
    int turns = 0;
};

static void CollectMenus(QMenu *menu, QVector<QMenu *> &menus)
{
    // An action may show a menu that it also stands in.
    if (menus.contains(menu))
        return;
    menus << menu;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->menu())
            CollectMenus(action->menu(), menus);
    }
}

static QVector<QMenu *> WithSubMenus(QMenu *menu)
{
    QVector<QMenu *> menus;
    CollectMenus(menu, menus);
    return menus;
}

static bool Contains(const QWidget *widget, const QPoint &global)
{
    return widget->rect().contains(widget->mapFromGlobal(global));
}

void LumoMenuManagerPrivate::Initialize()
{
    if (!customHover)
        return;
    menuHideTimer = new QTimer(q);
    menuHideTimer->setInterval(menuHideInterval);
    menuHideTimer->setSingleShot(true);
    QObject::connect(menuHideTimer, &QTimer::timeout, q, &LumoMenuManager::OnMenuHideTimerTimeOut);
    keys = new MenuKeys(*q, mainWindow,
                        {[this] { return buttonMenus.keys().toVector(); },
                         [this](QAbstractButton *button) {
                             menuHideTimer->stop();
                             Open(button);
                         },
                         [this] { menuHideTimer->stop(); }});
    if (mainWindow) {
        mainWindow->setMouseTracking(true);
        mainWindow->installEventFilter(q);
    }
}

void LumoMenuManagerPrivate::LinkButtonMenu(bool link)
{
    for (auto it = buttonMenus.cbegin(); it != buttonMenus.cend(); ++it) {
        QMenu *menu = link ? it.value() : nullptr;
        if (customHover)
            LinkHover(it.key(), menu, link);
        else
            LinkPlain(it.key(), menu);
    }
}

void LumoMenuManagerPrivate::LinkPlain(QAbstractButton *button, QMenu *menu) const
{
    if (auto *pushButton = qobject_cast<QPushButton *>(button)) {
        pushButton->setMenu(menu);
    } else if (auto *toolButton = qobject_cast<QToolButton *>(button)) {
        toolButton->setMenu(menu);
        toolButton->setPopupMode(QToolButton::InstantPopup);
    }
}

void LumoMenuManagerPrivate::LinkHover(QAbstractButton *button, QMenu *menu, bool link) const
{
    if (!link) {
        // The menus stay watched: one that is open still has to close when the pointer leaves it.
        button->removeEventFilter(q);
        DropShortcuts(buttonMenus.value(button));
        return;
    }
    button->installEventFilter(q);
    if (!menu)
        return;
    SyncShortcuts(button, menu);
    menu->installEventFilter(q);
    WatchSubMenus(menu);
}

void LumoMenuManagerPrivate::WatchSubMenus(QMenu *menu) const
{
    const QVector<QMenu *> menus = WithSubMenus(menu);
    std::for_each(menus.cbegin() + 1, menus.cend(),
                  [this](QMenu *each) { each->installEventFilter(q); });
}

void LumoMenuManagerPrivate::SyncShortcuts(QAbstractButton *button, QMenu *menu) const
{
    if (!mainWindow || !menu)
        return;
    // Qt asks from an action to its menu, and from there to a widget of the active window.
    if (button->isEnabled())
        mainWindow->addAction(menu->menuAction());
    else
        mainWindow->removeAction(menu->menuAction());
}

void LumoMenuManagerPrivate::DropShortcuts(QMenu *menu) const
{
    if (mainWindow && menu)
        mainWindow->removeAction(menu->menuAction());
}

void LumoMenuManagerPrivate::WatchMenu(QMenu *menu)
{
    QObject::connect(menu, &QMenu::triggered, q, &LumoMenuManager::OnMenuActionTriggered,
                     Qt::UniqueConnection);
    if (customHover) {
        menu->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
        // A pointer that passes over the buttons leaves the keyboard where it is.
        menu->setAttribute(Qt::WA_ShowWithoutActivating);
    }
    if (watchedMenus.contains(menu))
        return;
    watchedMenus.insert(menu);
    QObject::connect(menu, &QObject::destroyed, q, [this, menu] { DropMenu(menu); });
}

void LumoMenuManagerPrivate::WatchButton(QAbstractButton *button)
{
    if (buttonMenus.contains(button))
        return;
    QObject::connect(button, &QObject::destroyed, q, [this, button] { DropButton(button); });
    if (keys)
        QObject::connect(button, &QAbstractButton::pressed, keys,
                         [this, button] { keys->OnPressed(button); });
}

void LumoMenuManagerPrivate::DropButton(QAbstractButton *button)
{
    LetGo(buttonMenus.take(button));
}

void LumoMenuManagerPrivate::DropMenu(QMenu *menu)
{
    watchedMenus.remove(menu);
    for (auto it = buttonMenus.begin(); it != buttonMenus.end(); ++it) {
        if (it.value() != menu)
            continue;
        it.value() = nullptr;
        // Not at once: a change of style reaches the children of the button, where Qt would take up
        // the dying menu once more and meet it with the next style sheet of the application.
        const QPointer<QAbstractButton> button = it.key();
        QTimer::singleShot(0, q, [this, button] {
            const QMenu *next = buttonMenus.value(button);
            if (button && !(next && next->isVisible()))
                ShowClosedFace(button);
        });
    }
}

void LumoMenuManagerPrivate::ShowClosedFace(QAbstractButton *button) const
{
    // An open menu that dies or is replaced sends no event that its button could be told by.
    const QString open = button->property(LumoMenuManager::AlternateStyleProperty).toString();
    if (customHover && !open.isEmpty() && button->styleSheet() == open)
        button->setStyleSheet(button->property(LumoMenuManager::OriginalStyleProperty).toString());
}

void LumoMenuManagerPrivate::LetGo(QMenu *menu) const
{
    const bool isLinked =
        std::find(buttonMenus.cbegin(), buttonMenus.cend(), menu) != buttonMenus.cend();
    if (!customHover || !menu || isLinked)
        return;
    DropShortcuts(menu);
    menu->hide();
}

// Whoever ends the manager may be in the middle of anything: no style change runs the event loop.
void LumoMenuManagerPrivate::End()
{
    if (!customHover)
        return;
    const QList<QAbstractButton *> linked = buttonMenus.keys();
    const QVector<QPointer<QAbstractButton>> buttons(linked.cbegin(), linked.cend());
    const QVector<QPointer<QMenu>> menus = Menus();
    for (QMenu *menu : menus) {
        DropShortcuts(menu);
        const QVector<QMenu *> watched = WithSubMenus(menu);
        for (QMenu *each : watched)
            each->removeEventFilter(q);
    }
    for (const QPointer<QMenu> &menu : menus) {
        if (menu)
            HideSubMenus(menu);
        if (menu)
            menu->hide();
    }
    for (const QPointer<QAbstractButton> &button : buttons) {
        if (button)
            ShowClosedFace(button);
    }
}

bool LumoMenuManagerPrivate::IsCursorOver() const
{
    const QPoint cursor = QCursor::pos();
    for (auto it = buttonMenus.cbegin(); it != buttonMenus.cend(); ++it) {
        if (!it.value() || !it.key()->isEnabled())
            continue;
        if (Contains(it.key(), cursor))
            return true;
        if (!it.value()->isVisible())
            continue;
        const QVector<QMenu *> menus = WithSubMenus(it.value());
        if (std::any_of(menus.cbegin(), menus.cend(),
                        [&cursor](const QMenu *menu) { return Contains(menu, cursor); }))
            return true;
    }
    return false;
}

void LumoMenuManagerPrivate::PlaceMenu(QAbstractButton *button) const
{
    QMenu *menu = buttonMenus.value(button);
    if (!menu || !menu->parentWidget())
        return;
    const QRect geometry = button->geometry();
    const QPoint corner(geometry.left(), geometry.bottom() + menuOffsetY);
    // The geometry of a button that is a window is global already.
    const QPoint place =
        button->parentWidget() ? button->parentWidget()->mapToGlobal(corner) : corner;
    const QScreen *const screen = QGuiApplication::screenAt(place);
    const QSize wanted =
        menu->sizeHint().expandedTo(menu->minimumSize()).boundedTo(menu->maximumSize());
    menu->move(KeptOnScreen(place, wanted, screen ? screen : button->screen()));
}

void LumoMenuManagerPrivate::PlaceOpenMenus() const
{
    for (auto it = buttonMenus.cbegin(); it != buttonMenus.cend(); ++it) {
        if (it.value() && it.value()->isVisible())
            PlaceMenu(it.key());
    }
}

bool LumoMenuManagerPrivate::IsAnyOpen() const
{
    return std::any_of(buttonMenus.cbegin(), buttonMenus.cend(),
                       [](const QMenu *menu) { return menu && menu->isVisible(); });
}

QVector<QPointer<QMenu>> LumoMenuManagerPrivate::Menus() const
{
    QVector<QPointer<QMenu>> menus;
    for (QMenu *menu : buttonMenus) {
        if (menu)
            menus << menu;
    }
    return menus;
}

void LumoMenuManagerPrivate::SwitchTo(QAbstractButton *button)
{
    const QMenu *own = buttonMenus.value(button);
    if (!own) {
        menuHideTimer->start();
        return;
    }
    const QPointer<LumoMenuManager> alive(q);
    const QVector<QPointer<QMenu>> menus = Menus();
    const int turn = ++turns;
    for (const QPointer<QMenu> &menu : menus) {
        if (!menu)
            continue;
        if (menu != own)
            menu->hide();
        else
            Show(menu);
        // Changed styles run the event loop, where the pointer may have reached another button.
        if (!alive || turn != turns)
            return;
    }
}

// While a menu is being shown, a changed style runs the event loop, where the menu may be hidden again.
// Qt goes on with the showing then, and the window would stay on the screen.
void LumoMenuManagerPrivate::Show(QMenu *menu) const
{
    const QPointer<LumoMenuManager> manager(q);
    const QPointer<QMenu> living(menu);
    menu->show();
    if (!living)
        return;
    if (menu->isVisible()) {
        menu->raise();
        return;
    }
    menu->removeEventFilter(manager);
    menu->show();
    menu->hide();
    if (manager && living)
        menu->installEventFilter(manager);
}

void LumoMenuManagerPrivate::HideAll()
{
    const QPointer<LumoMenuManager> alive(q);
    const QVector<QPointer<QMenu>> menus = Menus();
    const int turn = ++turns;
    for (const QPointer<QMenu> &menu : menus) {
        if (menu)
            menu->hide();
        if (!alive || turn != turns)
            return;
    }
}

void LumoMenuManagerPrivate::HideSubMenus(QMenu *menu) const
{
    // As popups they would keep Qt from noticing which window is active in the turn of the event loop
    // that a style change makes.
    const QVector<QMenu *> menus = WithSubMenus(menu);
    const QVector<QPointer<QMenu>> living(menus.crbegin(), menus.crend() - 1);
    for (const QPointer<QMenu> &subMenu : living) {
        if (subMenu)
            subMenu->hide();
    }
}

void LumoMenuManagerPrivate::ApplyStyle(QMenu *menu, const char *property) const
{
    QAbstractButton *button = buttonMenus.key(menu);
    if (!button)
        return;
    const QString style = button->property(property).toString();
    if (style.isEmpty())
        return;
    button->setStyleSheet(style);
    // The button shows its change before the menu paints itself. In a window that is going, perhaps
    // with its end, there is nothing to show.
    if (button->isVisible() && button->window()->isVisible())
        QCoreApplication::processEvents();
}

void LumoMenuManagerPrivate::TellVisibility(QMenu *menu, bool isVisible) const
{
    if (QAbstractButton *button = buttonMenus.key(menu))
        Internal::AccessibleOpener::tellState(*button, isVisible);
}

void LumoMenuManagerPrivate::OnMenuHidden(QMenu *menu) const
{
    const QPointer<LumoMenuManager> manager(q);
    const QPointer<QMenu> living(menu);
    TellVisibility(menu, false);
    HideSubMenus(menu);
    if (manager && living)
        ApplyStyle(menu, LumoMenuManager::OriginalStyleProperty);
}

// As QMenu::popup() does, so that a menu may be filled at the last moment and is as large as what is in
// it: left to itself, a window is no higher than two thirds of the screen.
static void Prepare(QMenu *menu)
{
    if (!menu || menu->isVisible())
        return;
    const QPointer<QMenu> living(menu);
    Q_EMIT menu->aboutToShow();
    if (!living)
        return;
    menu->ensurePolished();
    menu->resize(menu->sizeHint());
}

void LumoMenuManagerPrivate::OnEnter(QObject *watched)
{
    menuHideTimer->stop();
    if (auto *button = qobject_cast<QAbstractButton *>(watched))
        Open(button);
}

void LumoMenuManagerPrivate::Open(QAbstractButton *button)
{
    const QPointer<LumoMenuManager> manager(q);
    const QPointer<QAbstractButton> alive(button);
    Prepare(buttonMenus.value(button));
    if (!manager || !alive)
        return;
    PlaceMenu(button);
    SwitchTo(button);
    if (alive)
        button->update();
}

void LumoMenuManagerPrivate::OnEvent(QObject *watched, QEvent::Type type)
{
    auto *menu = qobject_cast<QMenu *>(watched);
    auto *button = qobject_cast<QAbstractButton *>(watched);
    const bool isOurs = menu || button;
    if (type == QEvent::MouseMove) {
        if (IsCursorOver())
            menuHideTimer->stop();
        else
            menuHideTimer->start();
    } else if (type == QEvent::Enter && isOurs) {
        OnEnter(watched);
    } else if (type == QEvent::Leave && isOurs) {
        menuHideTimer->start();
    } else if (type == QEvent::Show && menu) {
        TellVisibility(menu, true);
        WatchSubMenus(menu);
        ApplyStyle(menu, LumoMenuManager::AlternateStyleProperty);
    } else if (type == QEvent::Hide && menu) {
        OnMenuHidden(menu);
    } else if (type == QEvent::EnabledChange && button) {
        SyncShortcuts(button, buttonMenus.value(button));
    } else if (type == QEvent::Hide && watched == mainWindow) {
        HideAll(); // a window of their own would stay
    } else if (type == QEvent::Move && watched == mainWindow) {
        PlaceOpenMenus();
    }
}

LumoMenuManager::LumoMenuManager(QMainWindow *mainWindow, int menuOffsetY, bool customHover,
                                 QObject *parent)
    : QObject(parent)
    , d(std::make_unique<LumoMenuManagerPrivate>(this, mainWindow, menuOffsetY, customHover))
{
    d->Initialize();
}

LumoMenuManager::~LumoMenuManager()
{
    d->End();
}

void LumoMenuManager::AddButtonMenuLinkage(QAbstractButton *button, QMenu *menu)
{
    if (!button)
        return;
    d->WatchButton(button);
    QMenu *replaced = d->buttonMenus.value(button);
    d->buttonMenus[button] = menu;
    if (menu)
        d->WatchMenu(menu);
    if (d->started) {
        Stop();
        Start();
    }
    if (replaced && replaced != menu) {
        d->ShowClosedFace(button);
        d->LetGo(replaced);
    }
}

QMenu *LumoMenuManager::GetMenu(QAbstractButton *button) const
{
    return d->buttonMenus.value(button);
}

QAbstractButton *LumoMenuManager::FindButton(const QString &text) const
{
    const QList<QAbstractButton *> buttons = d->buttonMenus.keys();
    const auto found = std::find_if(buttons.cbegin(), buttons.cend(),
                                    [&text](const auto *each) { return each->text() == text; });
    return found == buttons.cend() ? nullptr : *found;
}

void LumoMenuManager::Start()
{
    d->LinkButtonMenu(true);
    d->started = true;
    if (std::exchange(d->isLeaving, false))
        d->menuHideTimer->stop();
}

void LumoMenuManager::Stop()
{
    d->LinkButtonMenu(false);
    d->started = false;
    // Buttons tell no more that the pointer leaves them.
    if (!d->menuHideTimer || d->menuHideTimer->isActive() || !d->IsAnyOpen())
        return;
    d->isLeaving = true;
    d->menuHideTimer->start();
}

bool LumoMenuManager::IsStarted() const
{
    return d->started;
}

bool LumoMenuManager::eventFilter(QObject *watched, QEvent *event)
{
    if (!d->customHover)
        return QObject::eventFilter(watched, event);
    const QPointer<LumoMenuManager> alive(this);
    const QPointer<QObject> receiver(watched);
    d->OnEvent(watched, event->type());
    if (alive && receiver)
        d->keys->OnEvent(watched, event);
    // Qt must not deliver to a receiver that died meanwhile.
    if (!alive || !receiver)
        return !receiver;
    return QObject::eventFilter(watched, event);
}

void LumoMenuManager::OnMenuHideTimerTimeOut()
{
    d->HideAll();
}

void LumoMenuManager::OnMenuActionTriggered()
{
    if (auto *menu = qobject_cast<QMenu *>(sender()))
        menu->hide();
}

} // namespace Vela::UiBase
