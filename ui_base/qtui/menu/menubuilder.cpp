// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/menu/menubuilder.h"

#include "ui_base/qtui/menu/menubuilder_p.h"

#include "ui_base/qtui/accessibleopener_p.h"
#include "ui_base/qtui/qtuitoolkit.h"

#include <lumo_common_res/Styles>

#include <QCursor>
#include <QDebug>
#include <QLabel>
#include <QMenuBar>
#include <QPalette>
#include <QVariant>

#include <algorithm>
#include <utility>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace Vela::UiBase {

/// Shares an object that belongs to its Qt parent: no share deletes it.
template<typename Object>
static QSharedPointer<Object> Share(Object *object)
{
    return QSharedPointer<Object>(object, [](Object *) {});
}

/// The nearest length that a widget can be given. QWIDGETSIZE_MAX itself stands for no limit.
static int Extent(int length)
{
    return qBound(0, length, QWIDGETSIZE_MAX - 1);
}

/// A text without the mark of its key.
static QString NameOf(const QString &text)
{
    return QAction(text).iconText();
}

/// Names a sub menu by its title for assistive tools, to which Qt tells the title of a window only.
static void NameAfterTitle(QMenu *subMenu)
{
    const QString title = NameOf(subMenu->title());
    subMenu->setAccessibleName(title);
    QObject::connect(subMenu->menuAction(), &QAction::changed, subMenu,
                     [subMenu, last = title]() mutable {
                         if (subMenu->accessibleName() != last)
                             return; // the owner's
                         last = NameOf(subMenu->title());
                         subMenu->setAccessibleName(last);
                     });
}

/// Adds the actions of @p menu to @p actions, each followed by those of its own menu. An action may
/// show a menu that it also stands in.
static void CollectActions(const QMenu *menu, QVector<const QMenu *> &seen,
                           QVector<QAction *> &actions)
{
    if (!menu || seen.contains(menu))
        return;
    seen << menu;
    const QList<QAction *> own = menu->actions();
    for (QAction *action : own) {
        actions << action;
        CollectActions(action->menu(), seen, actions);
    }
}

static QVector<QAction *> WithSubActions(const QMenu *menu)
{
    QVector<const QMenu *> seen;
    QVector<QAction *> actions;
    CollectActions(menu, seen, actions);
    return actions;
}

static bool IsInMirror(QAction::MenuRole role)
{
    return role != QAction::AboutRole && role != QAction::PreferencesRole
        && role != QAction::QuitRole;
}

/// Stops a started manager while its menus change.
class ManagerPause
{
public:
    explicit ManagerPause(LumoMenuManager *manager)
        : m_manager(manager && manager->IsStarted() ? manager : nullptr)
    {
        if (m_manager)
            m_manager->Stop();
    }
    ~ManagerPause()
    {
        if (m_manager)
            m_manager->Start();
    }

private:
    QPointer<LumoMenuManager> m_manager;
    Q_DISABLE_COPY(ManagerPause)
};

MenuBuilderPrivate::MenuBuilderPrivate(const QString &name, QMainWindow *window,
                                       QWidget *parentWidget, Qt::ToolButtonStyle style,
                                       const QString &sheet)
    : mainWindow(window)
    , parent(parentWidget)
    , barName(name)
    , toolButtonStyle(style)
    , styleSheet(sheet.isEmpty() ? Resource::Styles::Instance().MenuMain() : sheet)
{ }

MenuBuilderPrivate::~MenuBuilderPrivate()
{
    for (const QPointer<QButtonGroup> &group : std::as_const(buttonGroups))
        delete group;
}

QAccessibleInterface *MenuBuilderPrivate::MakeAccessible(const QString &className, QObject *object)
{
    using Internal::AccessibleOpener;
    if (className == QLatin1String(MenuBuilder::staticMetaObject.className()))
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::MenuBar);
    auto *item = qobject_cast<QToolButton *>(object);
    const bool isItem = item && className == QLatin1String(item->metaObject()->className())
        && qobject_cast<MenuBuilder *>(item->parent());
    if (!isItem)
        return nullptr;
    return new AccessibleOpener(*item, [item]() -> AccessibleOpener::SOpened {
        auto *bar = qobject_cast<MenuBuilder *>(item->parent());
        return {bar ? bar->d_func()->menuManager->GetMenu(item) : nullptr,
                AccessibleOpener::EKind::Menu};
    });
}

void MenuBuilderPrivate::InitializeMenuManager(bool customHover)
{
    menuManager = new LumoMenuManager(mainWindow, 0, customHover, q);
}

void MenuBuilderPrivate::CreateMenuBar()
{
    QAccessible::installFactory(MakeAccessible);
    q->setObjectName(barName);
    QSizePolicy policy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    q->setSizePolicy(policy);
    q->setContextMenuPolicy(Qt::NoContextMenu);
    q->setContentsMargins(0, 0, 0, 0);
    // Not quite transparent: the bar gets the mouse between its items also where it is a window.
    QPalette palette = q->palette();
    palette.setColor(QPalette::Window, QColor(255, 255, 255, 1));
    q->setPalette(palette);
    q->setAutoFillBackground(true);
    layout = Share(new QHBoxLayout(q));
    layout->setObjectName(QStringLiteral("layout"));
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
}

QSharedPointer<QToolButton> MenuBuilderPrivate::AddOrInsertMenuBarItem(
    bool append, int index, const QString &name, const QIcon &icon, const QString &alternateStyle,
    const QString &group, const QString &tooltip)
{
    qDebug() << name;
    if (!layout || menuBarItems.contains(name))
        return {};
    auto *item = new QToolButton(q);
    QSharedPointer<QToolButton> button = Share(item);
    QObject::connect(item, &QObject::destroyed, q, [this, item] { Drop(item); });
    item->setFocusPolicy(Qt::NoFocus);
    item->setText(name);
    itemTexts.insert(item, name);
    menuBarItems.insert(name, button);
    item->setObjectName(name);
    item->setToolTip(tooltip);
    qDebug() << menuBarItems.count();
    SetFace(item, icon);
    q->SetMenuBarItemStyle(button, false);
    if (!alternateStyle.isEmpty()) {
        item->setProperty(LumoMenuManager::OriginalStyleProperty, styleSheet);
        item->setProperty(LumoMenuManager::AlternateStyleProperty, alternateStyle);
    }
    JoinGroup(item, group);
    Place(item, append, index);
    menuManager->AddButtonMenuLinkage(item, nullptr);
    return button;
}

void MenuBuilderPrivate::SetFace(QToolButton *button, const QIcon &icon) const
{
    if (toolButtonStyle != Qt::ToolButtonIconOnly) {
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        return;
    }
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setIcon(icon);
    button->setIconSize(icon.actualSize(QSize(200, 200), QIcon::Normal, QIcon::Off));
}

void MenuBuilderPrivate::JoinGroup(QToolButton *button, const QString &group)
{
    if (group.isEmpty())
        return;
    QPointer<QButtonGroup> &buttons = buttonGroups[group];
    if (!buttons)
        buttons = new QButtonGroup;
    button->setCheckable(true);
    buttons->addButton(button, -1);
}

void MenuBuilderPrivate::Place(QToolButton *button, bool append, int index)
{
    if (append || index > layout->count())
        layout->addWidget(button, 0, {});
    else
        layout->insertWidget(index, button, 0, {});
    q->adjustSize();
    // Where the layout did not come to the button yet, its width tells nothing of its text.
    const int wanted = button->sizeHint().boundedTo(button->maximumSize()).width();
    itemWidth = std::max({itemWidth, button->width(), wanted});
}

void MenuBuilderPrivate::Drop(QToolButton *button)
{
    toggleSpecifiers.remove(button);
    itemTexts.remove(button);
    for (auto it = menuBarItems.begin(); it != menuBarItems.end(); ++it) {
        if (it.value().data() == button) {
            menuBarItems.erase(it);
            return;
        }
    }
}

void MenuBuilderPrivate::FollowTexts()
{
    const int widthBefore = itemWidth;
    for (auto it = itemTexts.begin(); it != itemTexts.end(); ++it) {
        const QString before = std::exchange(it.value(), it.key()->text());
        if (before != it.value())
            FollowText(it.key(), before);
    }
    if (itemWidth != widthBefore)
        q->resize(itemWidth * menuBarItems.count(), q->height());
}

void MenuBuilderPrivate::FollowText(QToolButton *button, const QString &before)
{
    QMenu *const menu = menuManager->GetMenu(button);
    if (menu && menu->accessibleName() == NameOf(before))
        menu->setAccessibleName(NameOf(button->text()));
    const int wanted = button->sizeHint().boundedTo(button->maximumSize()).width();
    itemWidth = std::max(itemWidth, wanted);
}

void MenuBuilderPrivate::Connect(const QSharedPointer<QToolButton> &button, QObject *receiver,
                                 const char *slot) const
{
    QObject *const target = receiver ? receiver : mainWindow.data();
    if (button && target && slot)
        QObject::connect(button.data(), SIGNAL(clicked()), target, slot);
}

void MenuBuilderPrivate::SetMenuBarIconOnlySizePolicy(const QSize &size)
{
    if (size.isEmpty())
        return;
    q->setMinimumWidth(Extent(size.width() + 4));
    q->updateGeometry();
}

void MenuBuilderPrivate::SetMenuBarTextOnlySizePolicy(int width)
{
    q->setMinimumWidth(Extent(width));
    q->updateGeometry();
}

QMenu *MenuBuilderPrivate::MenuOf(const QString &item)
{
    const QSharedPointer<QToolButton> button = menuBarItems[item];
    return button && menuManager ? menuManager->GetMenu(button.data()) : nullptr;
}

QMenu *MenuBuilderPrivate::MenuFor(QToolButton *button, bool &isNew)
{
    QMenu *menu = menuManager->GetMenu(button);
    isNew = !menu;
    if (isNew) {
        menu = new QMenu(button);
        menu->setFocusPolicy(Qt::NoFocus);
        menu->setAccessibleName(NameOf(button->text()));
    }
    return menu;
}

QAction *MenuBuilderPrivate::CreateAction(const AppMenuItemSpecifier &spec) const
{
    QObject *const receiver = spec.receiver ? spec.receiver : mainWindow.data();
    return QtUiToolkit::Instance().CreateAction(spec.iconName, spec.text, q, spec.shortcut,
                                                receiver, spec.slot, QAction::TextHeuristicRole);
}

void MenuBuilderPrivate::AddSpecifier(QMenu *menu, QMenu *mirror,
                                      const AppMenuItemSpecifier &spec) const
{
    QAction *action = CreateAction(spec);
    menu->addAction(action);
    menu->installEventFilter(q);
    if (mirror && IsInMirror(spec.menuRole))
        mirror->addAction(action);
}

void MenuBuilderPrivate::AddActions(QMenu *menu, QMenu *mirror, const QVector<QAction *> &actions,
                                    QAction *before) const
{
    for (QAction *action : actions) {
        AddAction(menu, action, before);
        if (mirror && (!action || IsInMirror(action->menuRole())))
            AddAction(mirror, action, before);
    }
}

void MenuBuilderPrivate::AddAction(QMenu *menu, QAction *action, QAction *before) const
{
    // Both put it at the end when there is nothing to stand before.
    if (action)
        menu->insertAction(before, action);
    else
        menu->insertSeparator(before);
}

QMenu *MenuBuilderPrivate::AddActionForSubMenu(QMenu *menu, const QString &title, QAction *before,
                                               bool separatorAfter) const
{
    if (QMenu *found = FindMenu(menu, title))
        return found;
    auto *subMenu = new QMenu(title, menu);
    NameAfterTitle(subMenu);
    if (before)
        subMenu->setFocusPolicy(Qt::NoFocus);
    menu->insertMenu(before, subMenu);
    if (separatorAfter)
        menu->insertSeparator(before);
    return subMenu;
}

QMenu *MenuBuilderPrivate::FindMenu(QMenu *menu, const QString &title) const
{
    if (title.isEmpty())
        return nullptr;
    const QVector<QAction *> actions = WithSubActions(menu);
    for (const QAction *action : actions) {
        if (action->menu() && action->menu()->title() == title)
            return action->menu();
    }
    return nullptr;
}

QAction *MenuBuilderPrivate::FindAction(QMenu *menu, const QString &text) const
{
    if (text.isEmpty())
        return nullptr;
    const QVector<QAction *> actions = WithSubActions(menu);
    const auto found = std::find_if(actions.cbegin(), actions.cend(),
                                    [&text](const QAction *each) { return each->text() == text; });
    return found == actions.cend() ? nullptr : *found;
}

MenuBuilder::MenuBuilder(const QString &name, QMainWindow *mainWindow, QWidget *parent,
                         Qt::ToolButtonStyle style, bool customHover, const QString &styleSheet)
    : MenuBuilder(*new MenuBuilderPrivate(name, mainWindow, parent, style, styleSheet), parent)
{
    MenuBuilder::Initialize(customHover);
}

MenuBuilder::MenuBuilder(MenuBuilderPrivate &dd, QWidget *parent)
    : QWidget(parent, Qt::FramelessWindowHint)
    , d_ptr(&dd)
{
    d_ptr->q = this;
}

MenuBuilder::~MenuBuilder()
{
    const auto items = std::exchange(d_ptr->menuBarItems, {});
    d_ptr->itemTexts.clear();
    for (const QSharedPointer<QToolButton> &button : items) {
        if (button) {
            // A caller's share keeps the pointer, but the button ends with its bar, wherever it is.
            button->disconnect(this);
            delete button.data();
        }
    }
}

void MenuBuilder::Initialize(bool customHover)
{
    Q_D(MenuBuilder);
    if (d->menuManager)
        return;
    setFocusPolicy(Qt::NoFocus);
    d->InitializeMenuManager(customHover);
    d->CreateMenuBar();
}

void MenuBuilder::SetMenuBarItemStyle(QSharedPointer<QToolButton> &button, bool isSeparator)
{
    Q_D(MenuBuilder);
    if (!button)
        return;
    SetMenuBarItemButtonStyle(button, d->toolButtonStyle);
    button->setAttribute(Qt::WA_TranslucentBackground);
    button->setAutoFillBackground(false);
    button->setCheckable(false);
    button->setAutoRaise(true);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setStyleSheet(isSeparator ? Resource::Styles::Instance().Separator() : d->styleSheet);
}

void MenuBuilder::SetMenuBarItemButtonStyle(QSharedPointer<QToolButton> &button,
                                            Qt::ToolButtonStyle style)
{
    if (!button)
        return;
    if (style == Qt::ToolButtonIconOnly) {
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        button->setFixedSize(button->iconSize() + QSize(4, 4));
    } else {
        button->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
        button->setMinimumWidth(50);
        button->setMaximumWidth(QWIDGETSIZE_MAX);
    }
    adjustSize();
}

void MenuBuilder::SetDropDownMenuStyle(QMenu *menu)
{
    Q_D(MenuBuilder);
    if (!menu)
        return;
    menu->setStyleSheet(d->styleSheet);
#ifdef Q_OS_WIN
    const auto window = reinterpret_cast<HWND>(menu->winId());
    SetClassLongW(window, GCL_STYLE, GetClassLongW(window, GCL_STYLE) & ~CS_DROPSHADOW);
#endif
}

QMainWindow *MenuBuilder::GetMainWindow()
{
    return d_ptr->mainWindow;
}

QAction *MenuBuilder::FindAction(const QString &item, const QString &text)
{
    Q_D(MenuBuilder);
    return d->FindAction(d->MenuOf(item), text);
}

bool MenuBuilder::AddMenuBarItem(const QSharedPointer<AppMenuItemSpecifier> &spec,
                                 const QString &alternateStyle, const QString &group)
{
    Q_D(MenuBuilder);
    if (!spec)
        return false;
    const auto button =
        d->AddOrInsertMenuBarItem(true, 0, spec->text, {}, alternateStyle, group, {});
    d->Connect(button, spec->receiver, spec->slot);
    return !button.isNull();
}

bool MenuBuilder::AddMenuBarItem(const QString &name, const char *slot, const QIcon &icon,
                                 const QString &alternateStyle, const QString &group,
                                 const QString &tooltip)
{
    Q_D(MenuBuilder);
    const auto button =
        d->AddOrInsertMenuBarItem(true, 0, name, icon, alternateStyle, group, tooltip);
    d->Connect(button, nullptr, slot);
    return !button.isNull();
}

bool MenuBuilder::AddMenuBarItem(const QString &name, const QIcon &icon,
                                 const QString &alternateStyle, const QString &group,
                                 const QString &tooltip)
{
    return AddMenuBarItem(name, nullptr, icon, alternateStyle, group, tooltip);
}

bool MenuBuilder::InsertMenuBarItem(int index, const QString &name, const QIcon &icon,
                                    const QString &alternateStyle, const QString &group,
                                    const QString &tooltip)
{
    Q_D(MenuBuilder);
    return !d->AddOrInsertMenuBarItem(false, index, name, icon, alternateStyle, group, tooltip)
                .isNull();
}

bool MenuBuilder::AddMenuBarToggleItem(const QString &name,
                                       const QSharedPointer<AppMenuToggleItemSpecifier> &spec,
                                       const QString &alternateStyle, const QString &group)
{
    Q_D(MenuBuilder);
    if (!spec)
        return false;
    const QString iconName = spec->isActive ? spec->activeIcon : spec->inactiveIcon;
    const auto button =
        d->AddOrInsertMenuBarItem(true, 0, name, QIcon(iconName), alternateStyle, group, {});
    if (!button)
        return false;
    d->Connect(button, nullptr, spec->slot);
    button->setToolTip(spec->isActive ? spec->activeToolTip : spec->inactiveToolTip);
    d->toggleSpecifiers[button.data()] = spec;
    return true;
}

bool MenuBuilder::AddMenuBarToggleTextItem(const QString &name, const QString &styleSheet,
                                           const QString &tooltip, const char *slot, int height)
{
    if (!AddMenuBarItem(name, slot, {}, {}, {}, tooltip))
        return false;
    const QSharedPointer<QToolButton> button = GetMenuBarItem(name);
    SetMenuItemButtonStyle(name, Qt::ToolButtonTextOnly);
    SetMenuItemStyleSheet(name, styleSheet);
    button->setFixedHeight(Extent(height));
    button->setCursor(Qt::PointingHandCursor);
    return true;
}

bool MenuBuilder::AddSeparator(bool horizontal, int length)
{
    Q_D(MenuBuilder);
    if (!d->layout)
        return false;
    const int extent = Extent(length);
    auto *line = new QLabel;
    line->setFixedSize(horizontal ? QSize(extent, 1) : QSize(1, extent));
    d->layout->addWidget(line, 0, {});
    adjustSize();
    return true;
}

QSharedPointer<QToolButton> MenuBuilder::GetMenuBarItem(const QString &name) const
{
    return d_ptr->menuBarItems.value(name);
}

QSharedPointer<AppMenuToggleItemSpecifier> MenuBuilder::GetMenuBarToggleItemSpecifier(
    const QString &name) const
{
    return d_ptr->toggleSpecifiers.value(d_ptr->menuBarItems.value(name).data());
}

void MenuBuilder::SetMenuItemButtonStyle(const QString &name, Qt::ToolButtonStyle style)
{
    QSharedPointer<QToolButton> button = GetMenuBarItem(name);
    if (!button)
        return;
    button->setToolButtonStyle(style);
    SetMenuBarItemButtonStyle(button, style);
}

void MenuBuilder::SetMenuItemStyleSheet(const QString &name, const QString &sheet)
{
    const QSharedPointer<QToolButton> button = GetMenuBarItem(name);
    if (!button)
        return;
    button->setProperty(LumoMenuManager::OriginalStyleProperty, sheet);
    button->setStyleSheet(sheet);
}

bool MenuBuilder::AddDropDownMenu(const QString &item, QList<AppMenuItemSpecifier> &specs)
{
    Q_D(MenuBuilder);
    const QSharedPointer<QToolButton> button = d->menuBarItems[item];
    if (!button)
        return false;
    bool isNew = false;
    QMenu *menu = d->MenuFor(button.data(), isNew);
    QMenu *mirror = d->mirrorMenus.value(item);
    for (const AppMenuItemSpecifier &spec : std::as_const(specs)) {
        if (!spec.text.isEmpty())
            d->AddSpecifier(menu, mirror, spec);
        else
            d->AddActions(menu, mirror, {nullptr}, nullptr);
    }
    SetDropDownMenuStyle(menu);
    if (isNew)
        d->menuManager->AddButtonMenuLinkage(button.data(), menu);
    return true;
}

bool MenuBuilder::AddDropDownMenu(const QString &item, const QVector<QAction *> &actions,
                                  QAction *before)
{
    Q_D(MenuBuilder);
    const QSharedPointer<QToolButton> button = d->menuBarItems[item];
    if (!button)
        return false;
    const ManagerPause pause(d->menuManager);
    bool isNew = false;
    QMenu *menu = d->MenuFor(button.data(), isNew);
    if (isNew)
        menu->installEventFilter(this);
    d->AddActions(menu, d->mirrorMenus.value(item), actions, before);
    SetDropDownMenuStyle(menu);
    if (isNew)
        d->menuManager->AddButtonMenuLinkage(button.data(), menu);
    return true;
}

bool MenuBuilder::AddSubMenu(const QString &item, const QString &title,
                             QList<AppMenuItemSpecifier> &specs)
{
    Q_D(MenuBuilder);
    QMenu *menu = d->MenuOf(item);
    if (!menu)
        return false;
    const ManagerPause pause(d->menuManager);
    QMenu *mirror = d->mirrorMenus.value(item);
    QMenu *subMenu = menu->addMenu(title);
    NameAfterTitle(subMenu);
    QMenu *subMirror = mirror ? mirror->addMenu(title) : nullptr;
    for (const AppMenuItemSpecifier &spec : std::as_const(specs)) {
        if (spec.text.isEmpty())
            subMenu->addSeparator();
        else
            d->AddSpecifier(subMenu, subMirror, spec);
    }
    SetDropDownMenuStyle(subMenu);
    return true;
}

bool MenuBuilder::AddSubMenu(const QString &item, const QString &title,
                             const QVector<QAction *> &actions, QAction *before,
                             bool separatorAfter)
{
    Q_D(MenuBuilder);
    QMenu *menu = d->MenuOf(item);
    if (!menu)
        return false;
    const ManagerPause pause(d->menuManager);
    QMenu *mirror = d->mirrorMenus.value(item);
    QMenu *subMenu = d->AddActionForSubMenu(menu, title, before, separatorAfter);
    QMenu *subMirror =
        mirror ? d->AddActionForSubMenu(mirror, title, before, separatorAfter) : nullptr;
    d->AddActions(subMenu, subMirror, actions, before);
    SetDropDownMenuStyle(subMenu);
    return true;
}

bool MenuBuilder::AppendMenuItem(const QString &item, AppMenuItemSpecifier &spec)
{
    Q_D(MenuBuilder);
    const QSharedPointer<QToolButton> button = d->menuBarItems[item];
    if (!button || !button->menu())
        return false;
    button->menu()->addAction(d->CreateAction(spec));
    return true;
}

void MenuBuilder::AppendMenuBarItems(QMenuBar *menuBar)
{
    Q_D(MenuBuilder);
    if (!menuBar)
        return;
    for (const QPointer<QMenu> &menu : std::as_const(d->mirrorMenus)) {
        if (menu)
            menuBar->addMenu(menu);
    }
}

void MenuBuilder::Start()
{
    Q_D(MenuBuilder);
    if (d->menuManager)
        d->menuManager->Start();
}

void MenuBuilder::HideMe()
{
    Q_D(MenuBuilder);
    const QPointer<MenuBuilder> alive(this);
    // Hiding a menu may run the event loop, where items come and go.
    const QStringList names = d->menuBarItems.keys();
    for (const QString &name : names) {
        const QPointer<QToolButton> button = GetMenuBarItem(name).data();
        QMenu *menu = button ? d->menuManager->GetMenu(button) : nullptr;
        if (menu && menu->isVisible())
            menu->hide();
        if (!alive)
            return;
    }
    hide();
}

bool MenuBuilder::CanHide() const
{
    for (const QSharedPointer<QToolButton> &button : std::as_const(d_ptr->menuBarItems)) {
        if (!button)
            continue;
        if (!button->isVisible())
            return true;
        if (button->rect().contains(button->mapFromGlobal(QCursor::pos())))
            return false;
        if (button->menu() && button->menu()->isVisible())
            return false;
    }
    return true;
}

bool MenuBuilder::IsMenuVisible() const
{
    for (const QSharedPointer<QToolButton> &button : std::as_const(d_ptr->menuBarItems)) {
        if (!button)
            continue;
        if (!button->isVisible())
            return false;
        if (button->menu() && button->menu()->isVisible())
            return true;
    }
    return false;
}

void MenuBuilder::InstallEventFilter(QObject *filter)
{
    for (const QSharedPointer<QToolButton> &button : std::as_const(d_ptr->menuBarItems)) {
        if (!button)
            continue;
        button->installEventFilter(filter);
        if (button->menu())
            button->menu()->installEventFilter(filter);
    }
}

bool MenuBuilder::event(QEvent *event)
{
    Q_D(MenuBuilder);
    // An item asks for that when its text has changed.
    if (event->type() == QEvent::LayoutRequest && d->menuManager)
        d->FollowTexts();
    return QWidget::event(event);
}

void MenuBuilder::SetMenuPosition(QPoint &position)
{
    Q_D(MenuBuilder);
    d->menuPosition = position;
    resize(d->itemWidth * d->menuBarItems.count(), height());
    move(d->menuPosition);
}

void MenuBuilder::SetButtonEnabled(const QString &text, bool enabled)
{
    Q_D(MenuBuilder);
    QAbstractButton *button = d->menuManager ? d->menuManager->FindButton(text) : nullptr;
    if (button)
        button->setEnabled(enabled);
}

void MenuBuilder::setFixedMenuWidth(const QString &text, int width)
{
    Q_D(MenuBuilder);
    QAbstractButton *button = d->menuManager ? d->menuManager->FindButton(text) : nullptr;
    if (!button)
        return;
    if (width > 0)
        button->setMinimumWidth(Extent(width));
    if (QMenu *menu = d->menuManager->GetMenu(button))
        menu->setFixedWidth(std::max(Extent(width), button->width()));
}

} // namespace Vela::UiBase
