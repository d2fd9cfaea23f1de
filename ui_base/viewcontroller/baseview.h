// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QObject>

#include <memory>

class QWidget;

namespace Vela::UiBase {

class BaseViewController;
class BaseViewPrivate;

/// The glue between one widget and one view controller. It is no widget itself but a child of the
/// one that it makes: closing that deletes it, the view with it, and with the view the last owner
/// of the controller. Main thread only.
class LUMO_UI_BASE_EXPORT BaseView : public QObject
{
    Q_OBJECT

public:
    /// Makes the view's widget, a plain one that is deleted when it is closed.
    /// @param parent parent of that widget and so its owner; null makes a window of it
    /// @param flags window flags of the widget
    BaseView(QWidget *parent, Qt::WindowFlags flags);
    /// The same with the widget of the view @p parent as the parent; null, or a view whose widget
    /// has gone, makes a window.
    BaseView(BaseView *parent, Qt::WindowFlags flags);
    /// Lets go of the controller.
    ~BaseView() override;

    /// The view of @p widget: null for null, and for a widget that has none of its own, also when
    /// one further up or down has.
    static BaseView *getBaseViewOfQtWidget(QWidget *widget);

    /// The widget, or null when it has gone.
    QWidget *getQtWidget() const;

    /// Takes over @p controller, which is adopted when nobody owns it yet. A controller that has
    /// another view leaves that, and its widget is closed. Null lets go of the present controller.
    virtual void setViewController(BaseViewController *controller);
    /// The controller, or null.
    BaseViewController *getViewController() const;

private:
    const std::unique_ptr<BaseViewPrivate> d;
    Q_DISABLE_COPY(BaseView)
};

} // namespace Vela::UiBase
