// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbuttonwithbuttonmenu.h"

#include "ui_base/toolbar/toolbuttonwithbuttonmenu_p.h"

#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/toolbar/toolbar_p.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"

#include <lumo_common_res/Styles>

#include <QAction>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionToolButton>

#include <algorithm>

namespace Vela::UiBase {
namespace {

// The triangle that points to a side, by its corners from the bottom right corner of the button.
QPolygon triangleTo(EDirection side)
{
    switch (side) {
    case EDirection::Left:
        return QVector<QPoint> {{-3, -2}, {-3, -7}, {-6, -4}};
    case EDirection::Right:
        return QVector<QPoint> {{-6, -2}, {-6, -7}, {-3, -4}};
    case EDirection::Top:
        return QVector<QPoint> {{-8, -2}, {-3, -2}, {-5, -5}};
    default:
        return QVector<QPoint> {{-8, -5}, {-3, -5}, {-5, -2}};
    }
}

EDirection opposite(EDirection side)
{
    switch (side) {
    case EDirection::Left:
        return EDirection::Right;
    case EDirection::Top:
        return EDirection::Bottom;
    case EDirection::Right:
        return EDirection::Left;
    case EDirection::Bottom:
        return EDirection::Top;
    default:
        return EDirection::Bottom;
    }
}

void enableTooltipOf(const ToolButton &button)
{
    if (TooltipObject *const tooltip = button.GetTooltipObject())
        tooltip->SetEnableTooltip(true);
}

} // namespace

void ToolButtonWithButtonMenuPrivate::SetDefaults()
{
    ToolButtonWithMenuPrivate::SetDefaults();
    buttonKind = EButtonKind::ButtonMenu;
    extendMode = false;
    inExtendMode = false;
    clearSelectionOnHide = false;
    savedIcon = {};
    arrowPath = {};
    arrowColor = Resource::Styles::Instance().ColorToolButtonArrow();
    extendButton = nullptr;
}

ToolBar *ToolButtonWithButtonMenuPrivate::menuBar() const
{
    return qobject_cast<ToolBar *>(menu);
}

QList<ToolButton *> ToolButtonWithButtonMenuPrivate::subButtons() const
{
    ToolBar *const bar = menuBar();
    return bar ? partsOf(*bar).CollectButtons<ToolButton>() : QList<ToolButton *>();
}

// A bar that this button stands on, at whichever level, would be its own menu.
bool ToolButtonWithButtonMenuPrivate::standsOn(const ToolBar *bar) const
{
    return toolBar && partsOf(*toolBar).standsOn(bar);
}

void ToolButtonWithButtonMenuPrivate::setMenu(ToolBar *next)
{
    Q_Q(ToolButtonWithButtonMenu);
    if (!next || standsOn(next))
        return;
    const QPointer<ToolButtonWithButtonMenu> self(q);
    const QPointer<ToolBar> bar(next);
    if (partsOf(*next).parentButton != q)
        takeFromButton(*next);
    if (!self || !bar)
        return;
    if (menu != next) {
        disconnectSubButtons();
        deletePopup(menu);
    }
    if (!self || !bar)
        return;
    takeMenu(next);
    next->SetEnableAutoPosition(false);
    partsOf(*next).parentButton = q;
    connectSubButtons();
    adoptIcon();
    next->hide();
    q->ApplyBaseToolBarParamsToButtonMenu();
}

// It is forgotten before its buttons end, one of which may have this one deleted.
void ToolButtonWithButtonMenuPrivate::takeMenu(ToolBar *next)
{
    if (menu == next)
        return;
    menu = next;
    QObject::connect(next, &QObject::destroyed, q_func(), [this](const QObject *dead) {
        if (menu == dead)
            menu = nullptr;
    });
}

void ToolButtonWithButtonMenuPrivate::takeFromButton(ToolBar &bar)
{
    if (auto *const owner =
            qobject_cast<ToolButtonWithButtonMenu *>(partsOf(bar).parentButton.data()))
        owner->d_func()->letMenuGo();
}

void ToolButtonWithButtonMenuPrivate::letMenuGo()
{
    Q_Q(ToolButtonWithButtonMenu);
    const QPointer<ToolButtonWithButtonMenu> self(q);
    if (inExtendMode)
        q->OnExitExtendMode();
    if (self)
        q->HideMenu();
    if (!self || !menuBar())
        return;
    q->SetExtendMode(false);
    disconnectSubButtons();
    partsOf(*menuBar()).parentButton = nullptr;
    QObject::disconnect(menu, &QObject::destroyed, q, nullptr);
    menu = nullptr;
}

void ToolButtonWithButtonMenuPrivate::connectSubButtons()
{
    Q_Q(ToolButtonWithButtonMenu);
    const QList<ToolButton *> buttons = subButtons();
    for (ToolButton *const button : buttons) {
        const auto *const menuButton = qobject_cast<ToolButtonWithMenu *>(button);
        if (menuButton && toolBar)
            QObject::connect(menuButton, &ToolButtonWithMenu::ButtonMenuVisibilityChange,
                             toolBar.data(), &ToolBar::ButtonMenuVisibilityChange,
                             Qt::UniqueConnection);
        if (const QAction *const chosen = button->Action())
            QObject::connect(chosen,
                             chosen->isCheckable() ? &QAction::toggled : &QAction::triggered, q,
                             &ToolButtonWithMenu::OnActionTriggered, Qt::UniqueConnection);
    }
}

void ToolButtonWithButtonMenuPrivate::disconnectSubButtons()
{
    Q_Q(ToolButtonWithButtonMenu);
    const QList<ToolButton *> buttons = subButtons();
    for (const ToolButton *const button : buttons) {
        if (const QAction *const chosen = button->Action())
            ToolBarPrivate::disconnectFromOwner(*chosen, *q);
    }
}

void ToolButtonWithButtonMenuPrivate::adoptIcon()
{
    Q_Q(ToolButtonWithButtonMenu);
    if (!q->icon().isNull())
        return;
    const QAction *chosen = q->GetFirstSubMenuAction(true);
    if (!chosen)
        chosen = q->GetFirstSubMenuAction(false);
    if (!chosen)
        return;
    q->setIcon(chosen->icon());
    iconPinned = false;
    q->IconState(q->Hovered());
}

void ToolButtonWithButtonMenuPrivate::showOwnIcon()
{
    Q_Q(ToolButtonWithButtonMenu);
    q->setIcon(defaultIcon);
    iconPinned = false;
    q->IconState(q->Hovered());
}

void ToolButtonWithButtonMenuPrivate::updateArrow()
{
    Q_Q(ToolButtonWithButtonMenu);
    const EDirection direction = posCalculator->Direction();
    const bool isSide = direction != EDirection::NoDirection;
    const EDirection closed = isSide ? direction : EDirection::Bottom;
    const bool pointsBack = isSide && q->IsMenuShowing();
    const QPolygon triangle = triangleTo(pointsBack ? opposite(closed) : closed);
    arrowPath = {};
    arrowPath.addPolygon(triangle.translated(q->rect().bottomRight()));
    arrowPath.closeSubpath();
}

// Connected anew each time: the button stays known to one for which the mode was switched off.
void ToolButtonWithButtonMenuPrivate::connectExtended(ToolButtonWithWidgetMenu *child)
{
    Q_Q(ToolButtonWithButtonMenu);
    child->SetExtendController(q);
    QObject::connect(child, &ToolButtonWithWidgetMenu::RequestShowMenu, child,
                     &ToolButtonWithWidgetMenu::OnRequestShowMenu, Qt::UniqueConnection);
    if (QWidget *const popup = child->GetMenu())
        popup->installEventFilter(q);
}

void ToolButtonWithButtonMenuPrivate::disconnectExtended(ToolButtonWithWidgetMenu *child)
{
    Q_Q(ToolButtonWithButtonMenu);
    if (!child->ExtendController())
        return;
    QObject::disconnect(child, &ToolButtonWithWidgetMenu::RequestShowMenu, child,
                        &ToolButtonWithWidgetMenu::OnRequestShowMenu);
    child->SetExtendController(nullptr);
    if (QWidget *const popup = child->GetMenu())
        popup->removeEventFilter(q);
}

bool ToolButtonWithButtonMenuPrivate::isAnyCheckableChecked() const
{
    const QList<ToolButton *> buttons = subButtons();
    return std::any_of(buttons.begin(), buttons.end(), [](const ToolButton *button) {
        return button->isCheckable() && button->isChecked();
    });
}

ToolButtonWithButtonMenu::ToolButtonWithButtonMenu(const QIcon &icon, ToolBar *toolBar,
                                                   ToolBar *menu, const QString &tooltip,
                                                   QWidget *parent)
    : ToolButtonWithButtonMenu(*new ToolButtonWithButtonMenuPrivate, icon, toolBar, menu, tooltip,
                               parent)
{ }

ToolButtonWithButtonMenu::ToolButtonWithButtonMenu(ToolButtonWithButtonMenuPrivate &dd,
                                                   const QIcon &icon, ToolBar *toolBar,
                                                   ToolBar *menu, const QString &tooltip,
                                                   QWidget *parent)
    : ToolButtonWithMenu(dd, icon, toolBar, tooltip, parent)
{
    Q_D(ToolButtonWithButtonMenu);
    d->setMenu(menu);
    d->updateArrow();
}

ToolButtonWithButtonMenu::~ToolButtonWithButtonMenu()
{
    Q_D(ToolButtonWithButtonMenu);
    // What goes with the menu must not come back to this button.
    d->extendButton.clear();
    d->deletePopup(d->menu);
}

ToolBar *ToolButtonWithButtonMenu::GetMenu() const
{
    Q_D(const ToolButtonWithButtonMenu);
    return d->menuBar();
}

void ToolButtonWithButtonMenu::SetMenu(ToolBar *menu)
{
    Q_D(ToolButtonWithButtonMenu);
    const QPointer<ToolButtonWithButtonMenu> self(this);
    const QPointer<ToolBar> next(menu);
    if (menu && IsMenuShowing() && !d->standsOn(menu))
        HideMenu();
    if (self && next)
        d->setMenu(next);
}

void ToolButtonWithButtonMenu::SetMenuParameters(EDirection direction, int baseOffset,
                                                 EWidgetsAlign align, QPoint additionalOffset)
{
    Q_D(ToolButtonWithButtonMenu);
    SetMenuPosParameters(direction, baseOffset, align, additionalOffset);
    d->updateArrow();
    update();
}

bool ToolButtonWithButtonMenu::IsInExtendMode() const
{
    Q_D(const ToolButtonWithButtonMenu);
    return d->inExtendMode;
}

bool ToolButtonWithButtonMenu::IsStandingInFor(const ToolButton *child) const
{
    Q_D(const ToolButtonWithButtonMenu);
    return d->inExtendMode && child && d->extendButton == child;
}

void ToolButtonWithButtonMenu::SetClearSelectionOnHide(bool clear)
{
    Q_D(ToolButtonWithButtonMenu);
    d->clearSelectionOnHide = clear;
}

void ToolButtonWithButtonMenu::OnEnterExtendMode(ToolButton *child)
{
    Q_D(ToolButtonWithButtonMenu);
    if (!child)
        return;
    const QPointer<ToolButtonWithButtonMenu> self(this);
    const QPointer<ToolButton> shown(child);
    if (d->inExtendMode && d->extendButton != child)
        OnExitExtendMode();
    if (!self || !shown)
        return;
    d->inExtendMode = true;
    d->extendButton = child;
    if (d->menu)
        ToolBarPrivate::hide(d->menu);
    if (!self || !shown)
        return;
    if (d->ownIconShown) {
        InitIcons(); // out of the borrowed icon otherwise
        d->savedIcon = icon();
    }
    setIcon(child->icon());
    d->ownIconShown = false;
    d->enableTooltip(false);
    if (isCheckable())
        setChecked(true);
}

void ToolButtonWithButtonMenu::OnExitExtendMode()
{
    Q_D(ToolButtonWithButtonMenu);
    const QPointer<ToolButtonWithButtonMenu> self(this);
    if (!d->ownIconShown) {
        if (d->toolBar)
            d->partsOf(*d->toolBar).unlockButtons();
        setIcon(d->savedIcon);
        d->ownIconShown = true;
        IconState(Hovered());
        d->enableTooltip(true);
        for (const ToolButton *const button : d->subButtons())
            enableTooltipOf(*button);
        auto *const child = qobject_cast<ToolButtonWithWidgetMenu *>(d->extendButton);
        d->extendButton.clear();
        if (child)
            child->CloseMenu();
        if (!self)
            return;
        d->saveMenuState = false;
        d->savedMenuOwner = nullptr;
    }
    if (isCheckable())
        setChecked(false);
    if (!self)
        return;
    d->updateArrow();
    d->inExtendMode = false;
    update();
}

QAction *ToolButtonWithButtonMenu::GetFirstSubMenuAction(bool checkedOnly) const
{
    Q_D(const ToolButtonWithButtonMenu);
    const QList<ToolButton *> buttons = d->subButtons();
    for (const ToolButton *const button : buttons) {
        QAction *const action = button->Action();
        if (action && (!checkedOnly || action->isChecked()))
            return action;
    }
    return nullptr;
}

void ToolButtonWithButtonMenu::ApplyBaseToolBarParamsToButtonMenu()
{
    Q_D(ToolButtonWithButtonMenu);
    ToolBar *const menu = d->menuBar();
    if (!menu || !d->toolBar)
        return;
    menu->SetButtonSpacing(d->toolBar->GetButtonSpacing());
    menu->SetMainContentMargins(d->toolBar->GetMainContentMargins());
    menu->SetButtonGroupSpacing(d->toolBar->GetButtonGroupSpacing());
    menu->SetGroupContentMargins(d->toolBar->GetGroupContentMargins());
    menu->SetButtonSize(d->toolBar->ButtonSize());
    menu->AdjustToolBarSize(false);
}

void ToolButtonWithButtonMenu::SetExtendMode(bool on)
{
    Q_D(ToolButtonWithButtonMenu);
    d->extendMode = on && d->menuBar();
    for (ToolButton *const button : d->subButtons()) {
        auto *const child = qobject_cast<ToolButtonWithWidgetMenu *>(button);
        if (!child)
            continue;
        if (on)
            d->connectExtended(child);
        else
            d->disconnectExtended(child);
    }
}

void ToolButtonWithButtonMenu::ClickedHandler()
{
    Q_D(ToolButtonWithButtonMenu);
    if (d->inExtendMode) {
        OnExitExtendMode();
        return;
    }
    if (!d->menu)
        return;
    const QPointer<ToolButtonWithButtonMenu> self(this);
    if (d->menu->isVisible())
        HideMenu();
    else
        ShowMenu();
    if (self)
        update();
}

void ToolButtonWithButtonMenu::EnableActions()
{
    Q_D(ToolButtonWithButtonMenu);
    if (!d->menu)
        return;
    const QPointer<ToolButtonWithButtonMenu> self(this);
    QList<QPointer<QAction>> actions;
    for (const ToolButton *const button : d->subButtons()) {
        if (button->Action())
            actions << button->Action();
    }
    bool isAnyEnabled = false;
    bool isLastEnabled = isEnabled();
    for (const QPointer<QAction> &action : qAsConst(actions)) {
        if (action && d->callbackHandlers.contains(action)) {
            isLastEnabled = d->isEnabledByHandlers(action);
            if (action)
                action->setEnabled(isLastEnabled);
            if (!self)
                return;
        }
        isAnyEnabled = isAnyEnabled || isLastEnabled;
    }
    setEnabled(isAnyEnabled);
}

bool ToolButtonWithButtonMenu::IsActionAssociated(QAction *action)
{
    Q_D(ToolButtonWithButtonMenu);
    const QList<ToolButton *> buttons = d->subButtons();
    return action && std::any_of(buttons.begin(), buttons.end(), [action](const auto *button) {
               return button->Action() == action;
           });
}

void ToolButtonWithButtonMenu::ShowMenu()
{
    Q_D(ToolButtonWithButtonMenu);
    const QPointer<ToolButtonWithButtonMenu> self(this);
    if (ToolBar *const menu = d->menuBar())
        menu->AdjustToolBarSize(false);
    ToolButtonWithMenu::ShowMenu();
    if (!self)
        return;
    d->updateArrow();
    update();
}

void ToolButtonWithButtonMenu::HideMenu()
{
    Q_D(ToolButtonWithButtonMenu);
    const QPointer<ToolButtonWithButtonMenu> self(this);
    if (d->saveMenuState && IsMenuShowing())
        d->savedMenuOwner = this;
    if (d->inExtendMode && !d->saveMenuState)
        OnExitExtendMode();
    if (self)
        ToolButtonWithMenu::HideMenu();
    if (!self)
        return;
    d->updateArrow();
    update();
}

QPoint ToolButtonWithButtonMenu::GetMenuPosition()
{
    Q_D(ToolButtonWithButtonMenu);
    return d->menu ? d->menuPosition(this, false) : QPoint();
}

void ToolButtonWithButtonMenu::HideMenuEx()
{
    Q_D(ToolButtonWithButtonMenu);
    if (!d->menu)
        return;
    const QPointer<ToolButtonWithButtonMenu> self(this);
    if (d->clearSelectionOnHide) {
        QList<QPointer<QAction>> actions;
        for (const ToolButton *const button : d->subButtons()) {
            if (button->Action() && button->Action()->isCheckable())
                actions << button->Action();
        }
        for (const QPointer<QAction> &action : qAsConst(actions)) {
            if (action)
                action->setChecked(false);
        }
        if (self)
            Q_EMIT ButtonMenuCleared();
        if (!self)
            return;
        d->showOwnIcon();
    }
    if (isCheckable() && !d->inExtendMode)
        setChecked(GetFirstSubMenuAction(true));
}

void ToolButtonWithButtonMenu::ActionTriggeredHandler(QAction *action)
{
    Q_D(ToolButtonWithButtonMenu);
    if (!d->extendMode) {
        InitIcons(); // out of the choice otherwise
        const bool isAnyChecked = d->isAnyCheckableChecked();
        if (!isCheckable() || (d->menuBar() && !isAnyChecked))
            setIcon(d->defaultIcon);
        else if (action && action->isCheckable())
            setIcon(action->icon());
        d->iconPinned = true;
        const QPointer<ToolButtonWithButtonMenu> self(this);
        if (isCheckable())
            setChecked(isAnyChecked);
        if (!self)
            return;
    }
    ToolButtonWithMenu::ActionTriggeredHandler(action);
}

void ToolButtonWithButtonMenu::enterEvent(QEvent *event)
{
    Q_D(ToolButtonWithButtonMenu);
    if (!d->inExtendMode)
        ToolButtonWithMenu::enterEvent(event);
}

void ToolButtonWithButtonMenu::leaveEvent(QEvent *event)
{
    Q_D(ToolButtonWithButtonMenu);
    if (!d->inExtendMode)
        ToolButtonWithMenu::leaveEvent(event);
}

void ToolButtonWithButtonMenu::mouseMoveEvent(QMouseEvent *event)
{
    Q_D(ToolButtonWithButtonMenu);
    if (!d->inExtendMode)
        ToolButtonWithMenu::mouseMoveEvent(event);
}

void ToolButtonWithButtonMenu::paintEvent(QPaintEvent *)
{
    Q_D(ToolButtonWithButtonMenu);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.features = QStyleOptionToolButton::None; // its own arrow is drawn below
    QPainter painter(this);
    d->paint(painter, option);
    if (d->locked)
        return;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillPath(d->arrowPath, d->arrowColor);
}

void ToolButtonWithButtonMenu::resizeEvent(QResizeEvent *event)
{
    Q_D(ToolButtonWithButtonMenu);
    d->updateArrow();
    ToolButtonWithMenu::resizeEvent(event);
}

} // namespace Vela::UiBase
