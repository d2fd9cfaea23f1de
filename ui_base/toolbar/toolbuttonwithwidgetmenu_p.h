// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/toolbuttonwithmenu_p.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"

namespace Vela::UiBase {

class FlyoutBase;

/// The state of a ToolButtonWithWidgetMenu.
class LUMO_UI_BASE_EXPORT ToolButtonWithWidgetMenuPrivate : public ToolButtonWithMenuPrivate
{
    Q_DECLARE_PUBLIC(ToolButtonWithWidgetMenu)

public:
    /// Takes a widget from the button that opens it, if there is one. What that runs may delete
    /// anything.
    static void takeFromButton(QWidget *widget);

    QPointer<ArrowedWindow> arrowedWindow;
    QPointer<QWidget> menuWidget;       ///< as the caller gave it
    QPointer<QWidget> extendController; ///< the button that stands in for this one

private:
    friend class ToolButtonWithWidgetMenu;

    void makeArrowedWindow();
    bool isWrapped() const;
    bool canOpen(const QWidget *widget) const;
    void setMenu(QWidget *widget, bool useArrowedWindow);
    static ToolButtonWithWidgetMenu *buttonOf(const QWidget *widget);
    void dropFormer(const QWidget *next);
    void placeWidget(QWidget *widget, bool useArrowedWindow);
    void connectFlyout(FlyoutBase *flyout);
    void disconnectWidget(QWidget *widget);
    void letWidgetGo();
    void giveWidgetBack();
    QWidget *homeOfWidget() const;
    void setFormerParent(QWidget *parent);
    void closeEmpty(const QObject *dead);
    void closeFlyout();
    void tellFlyoutItsBounds() const;
    ToolButtonWithButtonMenu *controller() const;
    ToolBar *baseToolBar() const;
    bool isShownThroughController() const;

    QPointer<QWidget> formerParent; ///< of the widget, before the window took it
    QMetaObject::Connection formerParentEnd;
    bool isClosing = false;
    bool isRelocating = false;
};

} // namespace Vela::UiBase
