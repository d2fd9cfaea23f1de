// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/baseviewcontroller.h"

#include "ui_base/viewcontroller/baseview.h"

#include <QPointer>
#include <QWidget>

namespace Vela::UiBase {

class BaseViewControllerPrivate
{
public:
    QPointer<BaseView> view;
};

BaseViewController::BaseViewController()
    : BaseViewController(new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags()))
{ }

BaseViewController::BaseViewController(BaseView *view)
    : d(std::make_unique<BaseViewControllerPrivate>())
{
    if (view)
        view->setViewController(this);
}

BaseViewController::~BaseViewController() = default;

void BaseViewController::setView(BaseView *view)
{
    if (view && view != d->view)
        view->setViewController(this);
}

BaseView *BaseViewController::getView() const
{
    return d->view;
}

QWidget *BaseViewController::getQtWidget() const
{
    return d->view ? d->view->getQtWidget() : nullptr;
}

void BaseViewController::moveToView(BaseView *view)
{
    if (QWidget *const earlier = getQtWidget())
        earlier->close();
    d->view = view;
}

} // namespace Vela::UiBase
