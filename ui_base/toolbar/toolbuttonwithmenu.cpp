// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbuttonwithmenu.h"

#include "ui_base/toolbar/toolbuttonwithmenu_p.h"

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/popup/floatinglayer.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/popup/windowarea_p.h"
#include "ui_base/qtui/accessibleopener_p.h"
#include "ui_base/toolbar/toolbar_p.h"

#include <QAction>
#include <QApplication>
#include <QMoveEvent>
#include <QTextDocumentFragment>

namespace Vela::UiBase {
namespace {

// A popup that floats tells its place inside of its layer; what move() takes is the layer's place.
QPoint placeOf(const QWidget &menu)
{
    const auto *const layer = qobject_cast<const FloatingLayer *>(menu.parentWidget());
    if (!layer)
        return menu.pos();
    const QWidget *const origin =
        FloatingLayer::getWidgetOriginalParent(const_cast<QWidget *>(&menu));
    const QPoint global = menu.mapToGlobal(QPoint(0, 0));
    return origin ? origin->mapFromGlobal(global) : global;
}

// What move() takes for a popup that is to stand at a point of the screen.
QPoint placeFor(QWidget &menu, const QPoint &global)
{
    const QWidget *origin = FloatingLayer::getWidgetOriginalParent(&menu);
    if (!origin && !menu.isWindow() && !qobject_cast<FloatingLayer *>(menu.parentWidget()))
        origin = menu.parentWidget();
    return origin ? origin->mapFromGlobal(global) : global;
}

} // namespace

void ToolButtonWithMenuPrivate::SetDefaults()
{
    ToolButtonPrivate::SetDefaults();
    menu = nullptr;
    noHideMenuOnClick = false;
    defaultIcon = {};
    ownIconShown = true;
    saveMenuState = true;
    savedMenuOwner = nullptr;
}

bool ToolButtonWithMenuPrivate::hasMenu() const
{
    return true;
}

void ToolButtonWithMenuPrivate::initializeMenu()
{
    Q_Q(ToolButtonWithMenu);
    posCalculator = new WidgetPosCalculator(q);
    posCalculator->SetRefWidget(q);
    posCalculator->SetAlignment(EWidgetsAlign::AlignCenter);
    posCalculator->SetBaseOffset(0);
    if (toolBar)
        QObject::connect(q, &ToolButtonWithMenu::ButtonMenuVisibilityChange, toolBar.data(),
                         &ToolBar::ButtonMenuVisibilityChange);
}

void ToolButtonWithMenuPrivate::enableTooltip(bool enable) const
{
    if (tooltipObject)
        tooltipObject->SetEnableTooltip(enable);
}

void ToolButtonWithMenuPrivate::tellVisibility(bool isVisible)
{
    Q_Q(ToolButtonWithMenu);
    Internal::AccessibleOpener::tellState(*q, isVisible);
    Q_EMIT q->ButtonMenuVisibilityChange(q, isVisible);
}

ToolBarPrivate &ToolButtonWithMenuPrivate::partsOf(ToolBar &bar)
{
    return *bar.d_func();
}

// The layer later: a click inside of it may be what has the popup deleted.
void ToolButtonWithMenuPrivate::deletePopup(QWidget *popup)
{
    const QPointer<FloatingLayer> layer =
        popup ? qobject_cast<FloatingLayer *>(popup->parentWidget()) : nullptr;
    delete popup;
    if (layer)
        layer->deleteLater();
}

QPoint ToolButtonWithMenuPrivate::menuPosition(QWidget *reference, bool isArrowed) const
{
    menu->adjustSize();
    posCalculator->SetWidget(menu);
    posCalculator->SetRefWidget(reference);
    posCalculator->setCalcGlobalPos(true);
    posCalculator->setMaxAvailableRect(availableArea());
    const auto *const window = isArrowed ? qobject_cast<ArrowedWindow *>(menu) : nullptr;
    QPoint position;
    posCalculator->GetPosition(position, menu->rect(), window,
                               window ? window->GetArrowPoint() : QPoint(0, 0));
    return placeFor(*menu, position);
}

QRect ToolButtonWithMenuPrivate::availableArea() const
{
    const QWidget *const parent = FloatingLayer::getWidgetOriginalParent(toolBar);
    return parent ? Internal::areaOnScreen(*parent) : Internal::windowAreaOnScreen(*q_func());
}

// A popup that floats stands at the corner of its layer, so a place of the same coordinates would be
// no move to Qt.
void ToolButtonWithMenuPrivate::moveMenu(const QPoint &position) const
{
    const bool floats = qobject_cast<FloatingLayer *>(menu->parentWidget());
    if (!floats || menu->pos() != position) {
        menu->move(position);
        return;
    }
    QMoveEvent event(position, position);
    QCoreApplication::sendEvent(menu, &event);
}

ToolButtonWithMenu::ToolButtonWithMenu(QAction *action, ToolBar *toolBar, QWidget *parent)
    : ToolButtonWithMenu(*new ToolButtonWithMenuPrivate, action, toolBar, parent)
{ }

ToolButtonWithMenu::ToolButtonWithMenu(const QIcon &icon, ToolBar *toolBar, const QString &tooltip,
                                       QWidget *parent)
    : ToolButtonWithMenu(*new ToolButtonWithMenuPrivate, icon, toolBar, tooltip, parent)
{ }

ToolButtonWithMenu::ToolButtonWithMenu(ToolButtonWithMenuPrivate &dd, QAction *action,
                                       ToolBar *toolBar, QWidget *parent)
    : ToolButton(dd, action, toolBar, parent)
{
    Q_D(ToolButtonWithMenu);
    d->initializeMenu();
}

ToolButtonWithMenu::ToolButtonWithMenu(ToolButtonWithMenuPrivate &dd, const QIcon &icon,
                                       ToolBar *toolBar, const QString &tooltip, QWidget *parent)
    : ToolButton(dd, parent)
{
    Q_D(ToolButtonWithMenu);
    d->toolBar = toolBar;
    d->initializeMenu();
    d->tooltipText = tooltip;
    d->initializeTooltipObject();
    d->defaultIcon = icon;
    setIcon(icon);
    setAccessibleName(QTextDocumentFragment::fromHtml(tooltip).toPlainText());
}

ToolButtonWithMenu::~ToolButtonWithMenu() = default;

QWidget *ToolButtonWithMenu::GetMenu() const
{
    Q_D(const ToolButtonWithMenu);
    return d->menu;
}

WidgetPosCalculator *ToolButtonWithMenu::GetPosCalculator() const
{
    Q_D(const ToolButtonWithMenu);
    return d->posCalculator;
}

bool ToolButtonWithMenu::IsMenuShowing() const
{
    Q_D(const ToolButtonWithMenu);
    return d->menu && d->menu->isVisible();
}

bool ToolButtonWithMenu::IsSubMenuButton(ToolButton *button) const
{
    Q_D(const ToolButtonWithMenu);
    const auto *const bar = qobject_cast<const ToolBar *>(d->menu);
    return bar && bar->d_func()->CollectButtons<ToolButton>().contains(button);
}

bool ToolButtonWithMenu::SaveMenuState() const
{
    Q_D(const ToolButtonWithMenu);
    return d->saveMenuState;
}

void ToolButtonWithMenu::SetSaveMenuState(bool save)
{
    Q_D(ToolButtonWithMenu);
    d->saveMenuState = save;
}

ToolButtonWithMenu *ToolButtonWithMenu::SavedMenuOwner() const
{
    Q_D(const ToolButtonWithMenu);
    return d->savedMenuOwner;
}

void ToolButtonWithMenu::SetSavedMenuOwner(ToolButtonWithMenu *owner)
{
    Q_D(ToolButtonWithMenu);
    d->savedMenuOwner = owner;
}

void ToolButtonWithMenu::SetNoHideMenuOnClick(bool noHide)
{
    Q_D(ToolButtonWithMenu);
    d->noHideMenuOnClick = noHide;
}

void ToolButtonWithMenu::SetMenuPosParameters(EDirection direction, int baseOffset,
                                              EWidgetsAlign align, QPoint additionalOffset)
{
    Q_D(ToolButtonWithMenu);
    SetPosParameters(*d->posCalculator, direction, baseOffset, align, additionalOffset);
}

void ToolButtonWithMenu::RecalcMenuPosAndMove()
{
    Q_D(ToolButtonWithMenu);
    if (!d->menu)
        return;
    // It stays visible: hidden for a moment, a flyout would close its side panels.
    const QPoint position = GetMenuPosition();
    if (d->menu)
        d->moveMenu(position);
}

void ToolButtonWithMenu::ShowMenu()
{
    Q_D(ToolButtonWithMenu);
    if (!d->menu)
        return;
    const QPointer<ToolButtonWithMenu> self(this);
    if (isCheckable())
        setChecked(true);
    if (self)
        RecalcMenuPosAndMove();
    if (!self || !d->menu)
        return;
    const bool wasVisible = d->menu->isVisible();
    d->menu->show();
    if (!self)
        return;
    d->enableTooltip(false);
    if (!wasVisible)
        d->tellVisibility(true);
    if (!self)
        return;
    d->saveMenuState = false;
    d->savedMenuOwner = nullptr;
}

void ToolButtonWithMenu::HideMenu()
{
    Q_D(ToolButtonWithMenu);
    if (!d->menu)
        return;
    const QPointer<ToolButtonWithMenu> self(this);
    HideMenuEx();
    if (!self || !d->menu)
        return;
    const bool wasVisible = d->menu->isVisible();
    ToolBarPrivate::hide(d->menu);
    if (!self)
        return;
    d->enableTooltip(true);
    if (wasVisible)
        d->tellVisibility(false);
    if (self && !d->saveMenuState)
        d->savedMenuOwner = nullptr;
}

void ToolButtonWithMenu::HideMenuEx()
{
    if (isCheckable() && isChecked())
        setChecked(false);
}

void ToolButtonWithMenu::ActionTriggeredHandler(QAction *)
{
    setDefaultAction(nullptr);
    setToolTip(QString());
    update();
}

void ToolButtonWithMenu::OnCloseMenu(QWidget *widget, bool isChecked)
{
    // Called later, as is usual, it may be given one that has died meanwhile.
    if (QApplication::allWidgets().contains(widget) && widget->isVisible())
        OnClicked(isChecked);
}

void ToolButtonWithMenu::OnActionTriggered(bool)
{
    if (auto *const action = qobject_cast<QAction *>(sender()))
        ActionTriggeredHandler(action);
}

bool ToolButtonWithMenu::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(ToolButtonWithMenu);
    // A popup that hides itself.
    if (event->type() == QEvent::Hide && d->ownIconShown) {
        d->enableTooltip(true);
        d->tellVisibility(false);
    }
    return ToolButton::eventFilter(watched, event);
}

void ToolButtonWithMenu::moveEvent(QMoveEvent *event)
{
    Q_D(ToolButtonWithMenu);
    if (IsMenuShowing())
        d->moveMenu(placeOf(*d->menu) + event->pos() - event->oldPos());
    ToolButton::moveEvent(event);
}

} // namespace Vela::UiBase
