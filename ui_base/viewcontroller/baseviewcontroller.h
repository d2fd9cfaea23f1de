// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/sharedobject.h"
#include "ui_base/uibaseexport.h"

#include <QObject>

#include <memory>

class QWidget;

namespace Vela::UiBase {

class BaseView;
class BaseViewControllerPrivate;

/// Owns the behaviour of a view. The view owns the controller, which dies with it unless somebody
/// else shares it. Main thread only.
class LUMO_UI_BASE_EXPORT BaseViewController
    : public QObject,
      public virtual Tessel::SharedObject<BaseViewController>
{
    Q_OBJECT

public:
    /// Makes a view with a window of its own, which owns the controller from now on.
    BaseViewController();
    /// Hands the controller to @p view, which owns it from now on. With null it has no view and
    /// belongs to the caller.
    explicit BaseViewController(BaseView *view);
    ~BaseViewController() override;

    /// Moves the controller to @p view; null is ignored. The widget of the earlier view is closed.
    virtual void setView(BaseView *view);
    /// The view, or null when it has gone.
    BaseView *getView() const;
    /// The view's widget, or null when it has gone.
    QWidget *getQtWidget() const;

private:
    friend class BaseView;
    void moveToView(BaseView *view);

    const std::unique_ptr<BaseViewControllerPrivate> d;
    Q_DISABLE_COPY(BaseViewController)
};

} // namespace Vela::UiBase
