// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/baseview.h"

#include "ui_base/viewcontroller/baseviewcontroller.h"

#include <QPointer>
#include <QWidget>

namespace Vela::UiBase {

class BaseViewPrivate
{
public:
    std::shared_ptr<BaseViewController> viewController;
    QPointer<QWidget> qtWidget;
};

BaseView::BaseView(QWidget *parent, Qt::WindowFlags flags)
    : d(std::make_unique<BaseViewPrivate>())
{
    d->qtWidget = new QWidget(parent, flags);
    d->qtWidget->setAttribute(Qt::WA_DeleteOnClose);
    setParent(d->qtWidget);
}

BaseView::BaseView(BaseView *parent, Qt::WindowFlags flags)
    : BaseView(parent ? parent->getQtWidget() : nullptr, flags)
{ }

BaseView::~BaseView() = default;

BaseView *BaseView::getBaseViewOfQtWidget(QWidget *widget)
{
    if (!widget)
        return nullptr;
    return widget->findChild<BaseView *>(QString(), Qt::FindDirectChildrenOnly);
}

QWidget *BaseView::getQtWidget() const
{
    return d->qtWidget;
}

void BaseView::setViewController(BaseViewController *controller)
{
    if (controller == d->viewController.get())
        return;
    std::shared_ptr<BaseViewController> adopted;
    if (controller) {
        adopted = controller->shared_from_this();
        controller->moveToView(this);
    }
    // Swapped first, so that a controller which ends here finds the view as it will be.
    d->viewController.swap(adopted);
}

BaseViewController *BaseView::getViewController() const
{
    return d->viewController.get();
}

} // namespace Vela::UiBase
