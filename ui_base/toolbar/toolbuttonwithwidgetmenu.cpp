// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"

#include "ui_base/toolbar/toolbuttonwithwidgetmenu_p.h"

#include "ui_base/popup/floatinglayer.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/toolbar/toolbar_p.h"
#include "ui_base/toolbar/toolbuttonwithbuttonmenu.h"

#include <QScopedValueRollback>

namespace Vela::UiBase {
namespace {

// By which a widget knows the button that opens it.
const char *const MenuButtonProperty = "vela_menu_button";

FlyoutBase *flyoutOf(QWidget *widget)
{
    return qobject_cast<FlyoutBase *>(widget);
}

// Whether a window has begun to delete its children: it has left its chain of focus by then, which
// those that change their parents are entered in.
bool isEnding(const QWidget &window)
{
    return !window.nextInFocusChain();
}

QWidget *parentToReturnTo(QWidget *widget)
{
    QWidget *const parent = widget->parentWidget();
    if (qobject_cast<FloatingLayer *>(parent))
        return FloatingLayer::getWidgetOriginalParent(widget);
    return qobject_cast<ArrowedWindow *>(parent) ? nullptr : parent;
}

// The widget whose coordinates place an information widget, also while that floats.
const QWidget *groundOf(QWidget *widget)
{
    if (const QWidget *const parent = FloatingLayer::getWidgetOriginalParent(widget))
        return parent;
    const QWidget *const parent = widget->isWindow() ? nullptr : widget->parentWidget();
    return qobject_cast<const FloatingLayer *>(parent) ? nullptr : parent;
}

} // namespace

void ToolButtonWithWidgetMenuPrivate::makeArrowedWindow()
{
    Q_Q(ToolButtonWithWidgetMenu);
    arrowedWindow = new ArrowedWindow(toolBar ? partsOf(*toolBar).refParent.data() : nullptr);
    arrowedWindow->SetBorder(QColor(Qt::gray), 0, Qt::SolidLine, Qt::BevelJoin);
    arrowedWindow->hide();
    // It tells before its widget goes with it.
    QObject::connect(arrowedWindow, &QObject::destroyed, q, [this] { arrowedWindow.clear(); });
}

bool ToolButtonWithWidgetMenuPrivate::isWrapped() const
{
    return menu && menu == arrowedWindow;
}

ToolButtonWithButtonMenu *ToolButtonWithWidgetMenuPrivate::controller() const
{
    return qobject_cast<ToolButtonWithButtonMenu *>(extendController);
}

ToolBar *ToolButtonWithWidgetMenuPrivate::baseToolBar() const
{
    return toolBar ? toolBar->GetBaseToolBar() : nullptr;
}

bool ToolButtonWithWidgetMenuPrivate::isShownThroughController() const
{
    const ToolButtonWithButtonMenu *const owner = controller();
    return owner && owner->IsStandingInFor(q_func());
}

// Whether the widget can be in a popup of this button.
bool ToolButtonWithWidgetMenuPrivate::canOpen(const QWidget *widget) const
{
    return widget && widget != arrowedWindow && widget != q_func()
        && !widget->isAncestorOf(q_func());
}

void ToolButtonWithWidgetMenuPrivate::setMenu(QWidget *widget, bool useArrowedWindow)
{
    Q_Q(ToolButtonWithWidgetMenu);
    if (!canOpen(widget))
        return;
    const QPointer<ToolButtonWithWidgetMenu> self(q);
    const QPointer<QWidget> next(widget);
    if (buttonOf(widget) != q)
        takeFromButton(widget);
    if (self && next)
        dropFormer(widget);
    if (!self || !next)
        return;
    menuWidget = widget;
    widget->setProperty(MenuButtonProperty, QVariant::fromValue<QWidget *>(q));
    QObject::connect(widget, &QObject::destroyed, q, [this](QObject *dead) { closeEmpty(dead); });
    if (FlyoutBase *const flyout = flyoutOf(widget))
        connectFlyout(flyout);
    placeWidget(widget, useArrowedWindow);
}

ToolButtonWithWidgetMenu *ToolButtonWithWidgetMenuPrivate::buttonOf(const QWidget *widget)
{
    return qobject_cast<ToolButtonWithWidgetMenu *>(
        widget->property(MenuButtonProperty).value<QWidget *>());
}

// It goes home, where the next button finds it.
void ToolButtonWithWidgetMenuPrivate::takeFromButton(QWidget *widget)
{
    ToolButtonWithWidgetMenu *const button = buttonOf(widget);
    if (!button)
        return;
    const QPointer<QWidget> guard(widget);
    const QPointer<QWidget> home = button->d_func()->formerParent;
    const bool wasWrapped = button->d_func()->isWrapped();
    button->d_func()->letWidgetGo();
    if (guard && home && wasWrapped)
        guard->setParent(home);
}

// Lets go of the widget, which lives on.
void ToolButtonWithWidgetMenuPrivate::letWidgetGo()
{
    Q_Q(ToolButtonWithWidgetMenu);
    const QPointer<ToolButtonWithWidgetMenu> self(q);
    if (isShownThroughController())
        controller()->OnExitExtendMode();
    if (self)
        q->HideMenu();
    if (!self)
        return;
    if (menuWidget)
        disconnectWidget(menuWidget);
    if (isWrapped())
        arrowedWindow->DetachWidget();
    menuWidget = nullptr;
    menu = nullptr;
}

void ToolButtonWithWidgetMenuPrivate::disconnectWidget(QWidget *widget)
{
    Q_Q(ToolButtonWithWidgetMenu);
    widget->setProperty(MenuButtonProperty, QVariant());
    QObject::disconnect(widget, nullptr, q, nullptr);
    QObject::disconnect(q, nullptr, widget, nullptr);
}

void ToolButtonWithWidgetMenuPrivate::dropFormer(const QWidget *next)
{
    QWidget *const former = menuWidget;
    if (!former || former == next)
        return;
    disconnectWidget(former);
    if (isWrapped())
        arrowedWindow->DetachWidget();
    menu = nullptr;
    setFormerParent(nullptr);
    deletePopup(former);
}

void ToolButtonWithWidgetMenuPrivate::placeWidget(QWidget *widget, bool useArrowedWindow)
{
    if (!arrowedWindow)
        makeArrowedWindow();
    if (useArrowedWindow) {
        if (!isWrapped() && !formerParent)
            setFormerParent(parentToReturnTo(widget));
        arrowedWindow->AttachWidget(widget);
        menu = arrowedWindow;
    } else {
        if (isWrapped() && arrowedWindow->DetachWidget() == widget)
            widget->setParent(homeOfWidget());
        menu = widget;
    }
    FloatingLayer::makeWidgetFloating(menu, QMargins());
    buttonKind = EButtonKind::WidgetMenu;
    posCalculator->SetWidget(menu);
    menu->hide();
}

void ToolButtonWithWidgetMenuPrivate::connectFlyout(FlyoutBase *flyout)
{
    Q_Q(ToolButtonWithWidgetMenu);
    const auto once = Qt::UniqueConnection;
    QObject::connect(flyout, &FlyoutBase::CloseFlyout, q, &ToolButtonWithWidgetMenu::OnFlyoutClosed,
                     once);
    // What is cancelled while the flyout stays open is its work.
    QObject::disconnect(flyout, &FlyoutBase::CancelChanges, q, nullptr);
    QObject::connect(flyout, &FlyoutBase::CancelChanges, q, [q] {
        if (!q->IsMenuShowing())
            q->OnFlyoutClosed();
    });
    QObject::connect(flyout, &FlyoutBase::FlyoutResized, q,
                     &ToolButtonWithWidgetMenu::OnFlyoutResized, once);
    QObject::connect(flyout, &FlyoutBase::SubWidgetVisibilityChanged, q,
                     &ToolButtonWithWidgetMenu::OnFlyoutSubWidgetVisibilityChanged, once);
    QObject::connect(flyout, &FlyoutBase::SetPartialBackgroundColor, q,
                     &ToolButtonWithWidgetMenu::OnFlyoutSetPartialBackgroundColor, once);
    QObject::connect(q, &ToolButtonWithWidgetMenu::ESCKeyReleased, flyout,
                     &FlyoutBase::ESCKeyReleased, once);
}

// The widget of the popup is dying, and what is left of the popup is an empty window.
void ToolButtonWithWidgetMenuPrivate::closeEmpty(const QObject *dead)
{
    Q_Q(ToolButtonWithWidgetMenu);
    if (menuWidget && menuWidget != dead)
        return;
    const QPointer<ToolButtonWithWidgetMenu> self(q);
    const bool wasShowing = q->IsMenuShowing();
    if (isWrapped())
        arrowedWindow->hide();
    if (!self)
        return;
    menuWidget = nullptr;
    menu = nullptr;
    setFormerParent(nullptr);
    if (isShownThroughController())
        controller()->OnExitExtendMode();
    if (self)
        q->HideMenuEx();
    if (!self)
        return;
    enableTooltip(true);
    if (wasShowing)
        tellVisibility(false);
}

// Where the widget lives without this button.
QWidget *ToolButtonWithWidgetMenuPrivate::homeOfWidget() const
{
    QWidget *const home =
        formerParent ? formerParent.data() : FloatingLayer::getWidgetOriginalParent(menu);
    return home && !isEnding(*home->window()) ? home : nullptr;
}

void ToolButtonWithWidgetMenuPrivate::giveWidgetBack()
{
    QWidget *const widget = menuWidget;
    if (!widget)
        return;
    disconnectWidget(widget);
    widget->hide();
    QWidget *const home = homeOfWidget();
    if (isWrapped())
        arrowedWindow->DetachWidget();
    const QPointer<FloatingLayer> layer = qobject_cast<FloatingLayer *>(widget->parentWidget());
    if (!home) {
        deletePopup(widget);
        return;
    }
    widget->setParent(home);
    if (layer)
        layer->deleteLater();
}

// It forgets a parent that goes before its children do.
void ToolButtonWithWidgetMenuPrivate::setFormerParent(QWidget *parent)
{
    Q_Q(ToolButtonWithWidgetMenu);
    if (formerParent)
        QObject::disconnect(formerParentEnd);
    formerParent = parent;
    if (parent)
        formerParentEnd =
            QObject::connect(parent, &QObject::destroyed, q, [this] { formerParent = nullptr; });
}

// A flyout tells of its closing itself if it was visible. It must not be told to close by the button
// that hears of it.
void ToolButtonWithWidgetMenuPrivate::closeFlyout()
{
    FlyoutBase *const flyout = flyoutOf(menuWidget);
    if (!flyout || isClosing)
        return;
    if (flyout->isVisible())
        flyout->CloseMe();
    else
        Q_EMIT flyout->CloseFlyout();
}

// The information widget stands at the lower edge of the window.
void ToolButtonWithWidgetMenuPrivate::tellFlyoutItsBounds() const
{
    FlyoutBase *const flyout = flyoutOf(menuWidget);
    if (!flyout || !menu || !flyout->InfoDialog())
        return;
    const QWidget *const ground = groundOf(flyout->InfoDialog());
    const QPoint corner = menu->mapToGlobal(QPoint(0, 0));
    const QRect bounds(ground ? ground->mapFromGlobal(corner) : corner, menu->size());
    flyout->SetBounds(bounds, isWrapped() ? arrowedWindow->GetBounds() : menu->rect());
}

ToolButtonWithWidgetMenu::ToolButtonWithWidgetMenu(QAction *action, ToolBar *toolBar, QWidget *menu,
                                                   QWidget *parent)
    : ToolButtonWithWidgetMenu(*new ToolButtonWithWidgetMenuPrivate, action, toolBar, menu, parent)
{ }

ToolButtonWithWidgetMenu::ToolButtonWithWidgetMenu(ToolButtonWithWidgetMenuPrivate &dd,
                                                   QAction *action, ToolBar *toolBar, QWidget *menu,
                                                   QWidget *parent)
    : ToolButtonWithMenu(dd, action, toolBar, parent)
{
    Q_D(ToolButtonWithWidgetMenu);
    d->makeArrowedWindow();
    connect(this, &ToolButtonWithWidgetMenu::CloseFlyout, this, [d] { d->closeFlyout(); });
    d->setMenu(menu, true);
}

ToolButtonWithWidgetMenu::~ToolButtonWithWidgetMenu()
{
    Q_D(ToolButtonWithWidgetMenu);
    if (d->isShownThroughController())
        d->controller()->OnExitExtendMode();
    d->giveWidgetBack();
    d->deletePopup(d->arrowedWindow);
}

void ToolButtonWithWidgetMenu::SetMenu(QWidget *widget, bool useArrowedWindow)
{
    Q_D(ToolButtonWithWidgetMenu);
    const QPointer<ToolButtonWithWidgetMenu> self(this);
    const QPointer<QWidget> next(widget);
    if (IsMenuShowing() && d->canOpen(widget))
        HideMenu();
    if (self && next)
        d->setMenu(next, useArrowedWindow);
}

void ToolButtonWithWidgetMenu::SetMenuParameters(bool shadow,
                                                 const ArrowedWindow::SArrowParam &arrow,
                                                 EDirection direction, int baseOffset,
                                                 EWidgetsAlign align, QPoint additionalOffset)
{
    Q_D(ToolButtonWithWidgetMenu);
    if (d->arrowedWindow) {
        d->arrowedWindow->SetArrow(arrow);
        d->arrowedWindow->EnableShadow(shadow);
    }
    SetMenuPosParameters(direction, baseOffset, align, additionalOffset);
}

ArrowedWindow *ToolButtonWithWidgetMenu::GetArrowedWindow() const
{
    Q_D(const ToolButtonWithWidgetMenu);
    return d->arrowedWindow;
}

QWidget *ToolButtonWithWidgetMenu::ExtendController() const
{
    Q_D(const ToolButtonWithWidgetMenu);
    return d->extendController;
}

void ToolButtonWithWidgetMenu::SetExtendController(QWidget *controller)
{
    Q_D(ToolButtonWithWidgetMenu);
    if (controller)
        d->extendController = controller;
}

void ToolButtonWithWidgetMenu::CloseMenu()
{
    Q_D(ToolButtonWithWidgetMenu);
    const QPointer<ToolButtonWithWidgetMenu> self(this);
    if (flyoutOf(d->menuWidget))
        Q_EMIT CloseFlyout();
    else if (d->menu)
        d->menu->hide();
    if (!self)
        return;
    d->enableTooltip(true);
    ToolBar *const base = d->baseToolBar();
    if (base && base->GetActiveButton() == this)
        base->SetActiveButton(nullptr);
}

void ToolButtonWithWidgetMenu::ClickedHandler()
{
    Q_D(ToolButtonWithWidgetMenu);
    if (!d->menu)
        return;
    const QPointer<ToolButtonWithWidgetMenu> self(this);
    if (!d->menu->isVisible())
        d->extendController ? OnRequestShowMenu() : ShowMenu();
    else if (!d->noHideMenuOnClick)
        HideMenu();
    if (self)
        update();
}

void ToolButtonWithWidgetMenu::ShowMenu()
{
    Q_D(ToolButtonWithWidgetMenu);
    if (!d->menu)
        return;
    const QPointer<ToolButtonWithWidgetMenu> self(this);
    ToolButtonWithButtonMenu *const controller = d->controller();
    if (controller && controller->IsInExtendMode()) {
        controller->SetSavedMenuOwner(this);
        if (ToolBar *const base = d->baseToolBar())
            base->SetActiveButton(this);
        if (TooltipObject *const tooltip = controller->GetTooltipObject())
            tooltip->SetEnableTooltip(false);
    }
    ToolButtonWithMenu::ShowMenu();
    if (self)
        d->tellFlyoutItsBounds();
}

void ToolButtonWithWidgetMenu::HideMenu()
{
    Q_D(ToolButtonWithWidgetMenu);
    if (d->saveMenuState && IsMenuShowing())
        d->savedMenuOwner = this;
    ToolButtonWithMenu::HideMenu();
}

QPoint ToolButtonWithWidgetMenu::GetMenuPosition()
{
    Q_D(ToolButtonWithWidgetMenu);
    if (!d->menu)
        return {};
    // The popup takes its size on the way, and a flyout would ask for the place again.
    const QScopedValueRollback<bool> guard(d->isRelocating, true);
    return d->menuPosition(d->extendController ? d->extendController.data() : this, d->isWrapped());
}

void ToolButtonWithWidgetMenu::OnRequestShowMenu()
{
    Q_D(ToolButtonWithWidgetMenu);
    ToolButtonWithButtonMenu *const controller = d->controller();
    if (!controller)
        return;
    const QPointer<ToolButtonWithWidgetMenu> self(this);
    controller->OnEnterExtendMode(this);
    if (self)
        ShowMenu();
}

void ToolButtonWithWidgetMenu::OnFlyoutClosed()
{
    Q_D(ToolButtonWithWidgetMenu);
    const QPointer<ToolButtonWithWidgetMenu> self(this);
    d->isClosing = true;
    if (ToolButtonWithButtonMenu *const controller = d->controller())
        controller->OnExitExtendMode();
    else if (isCheckable())
        setChecked(false);
    if (!self)
        return;
    d->isClosing = false;
    // Closed while its bar was hidden it is not to open again with that.
    d->savedMenuOwner = nullptr;
    if (!IsMenuShowing())
        d->enableTooltip(true);
    d->tellVisibility(false);
}

void ToolButtonWithWidgetMenu::OnFlyoutResized()
{
    Q_D(ToolButtonWithWidgetMenu);
    if (!IsMenuShowing() || d->isRelocating)
        return;
    RecalcMenuPosAndMove();
    d->tellFlyoutItsBounds();
}

void ToolButtonWithWidgetMenu::OnFlyoutSubWidgetVisibilityChanged(bool)
{
    Q_D(ToolButtonWithWidgetMenu);
    if (d->isRelocating)
        return;
    RecalcMenuPosAndMove();
    d->tellFlyoutItsBounds();
}

void ToolButtonWithWidgetMenu::OnFlyoutSetPartialBackgroundColor(bool showColor, const QRect &rc,
                                                                 const QColor &color)
{
    Q_D(ToolButtonWithWidgetMenu);
    if (d->arrowedWindow)
        d->arrowedWindow->SetPartialBackgroundColor(showColor, rc, color);
}

} // namespace Vela::UiBase
