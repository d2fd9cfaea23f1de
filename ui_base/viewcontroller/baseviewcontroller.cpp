// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/baseviewcontroller.h"

#include "ui_base/viewcontroller/baseview.h"

#include <lumo_app_service/ApplicationService>

#include <QPointer>
#include <QResizeEvent>
#include <QWidget>

#include <utility>

namespace Vela::UiBase {
namespace {

/// The controller as long as somebody owns it; one that nobody owns is not adopted by the look.
std::shared_ptr<BaseViewController> ownedPointer(BaseViewController *controller)
{
    if (auto owner = controller->weak_from_this().lock())
        return {std::move(owner), controller};
    return nullptr;
}

/// Whether the view of @p controller can be put into the view of @p presenter.
bool canBePresented(const BaseViewController &controller, const BaseViewController &presenter)
{
    const QWidget *const widget = controller.getQtWidget();
    const QWidget *around = presenter.getQtWidget();
    while (around && around != widget)
        around = around->parentWidget();
    return widget && !around;
}

} // namespace

class BaseViewControllerPrivate
{
public:
    QPointer<BaseView> view;
    std::weak_ptr<BaseViewController> presentingController;
    std::weak_ptr<BaseViewController> presentedController;
    ETransitionDirection transition = eTransitionNone;
    bool isLoaded = false;
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

void BaseViewController::enterView(BaseView *view)
{
    d->view = view;
}

void BaseViewController::leaveView(BaseView *view)
{
    if (d->view == view)
        d->view.clear();
}

void BaseViewController::setParentViewController(BaseViewController *parent)
{
    if (d->view)
        d->view->setParentView(parent ? parent->getView() : nullptr);
}

void BaseViewController::show()
{
    if (d->view)
        d->view->show();
}

void BaseViewController::hide()
{
    if (d->view)
        d->view->hide();
}

bool BaseViewController::close()
{
    return !d->view || d->view->close();
}

bool BaseViewController::isVisible() const
{
    return d->view && d->view->isVisible();
}

bool BaseViewController::isLoaded() const
{
    return d->isLoaded;
}

void BaseViewController::viewDidLoad()
{
    auto &service = Services::ApplicationService::GetInstance();
    // Entered once, so that it is asked once, however often an override calls this.
    service.removeShutdownDelegate(this);
    service.addShutdownDelegate(this);
    d->isLoaded = true;
}

void BaseViewController::viewWillAppear() { }

void BaseViewController::viewWillDisappear() { }

void BaseViewController::viewDidAppear() { }

bool BaseViewController::viewWillClose()
{
    d->isLoaded = false;
    Services::ApplicationService::GetInstance().removeShutdownDelegate(this);
    return true;
}

void BaseViewController::viewDidResize(QResizeEvent *event)
{
    const std::shared_ptr<BaseViewController> presented = presentedViewController();
    if (event && presented && presented->getView())
        presented->getView()->resize(event->size());
}

void BaseViewController::viewDidMove(QMoveEvent *) { }

void BaseViewController::viewDidShow()
{
    // Held, since an override may end the view.
    const std::shared_ptr<BaseViewController> self = ownedPointer(this);
    try {
        viewDidAppear();
    } catch (...) {
        qWarning("BaseViewController: an exception was thrown when a view appeared");
    }
}

bool BaseViewController::presentViewController(BaseViewController *controller,
                                               ETransitionDirection direction)
{
    if (!controller || controller == this)
        return false;
    // The delegates, and the views on their way, may let go of either.
    const std::shared_ptr<BaseViewController> self = ownedPointer(this);
    const std::shared_ptr<BaseViewController> presented = ownedPointer(controller);
    const auto answers =
        delegate(&PresentViewProtocol::presentViewController, controller, direction);
    if (!answers.empty() && answers.front())
        return true;
    if (!presented || !canBePresented(*presented, *this))
        return false;
    presented->setParentViewController(this);
    if (BaseView *const view = presented->getView()) {
        if (getQtWidget())
            view->setGeometry(d->view->getGeometry());
        view->raise();
    }
    presented->d->presentingController = self;
    presented->d->transition = direction;
    d->presentedController = presented;
    viewWillDisappear();
    presented->show();
    return true;
}

bool BaseViewController::dismissViewController()
{
    const std::shared_ptr<BaseViewController> self = ownedPointer(this);
    const auto answers = delegate(&PresentViewProtocol::dismissViewController);
    if (!answers.empty() && answers.front())
        return true;
    if (const std::shared_ptr<BaseViewController> presenting = presentingViewController()) {
        presenting->d->presentedController.reset();
        presenting->viewWillAppear();
        presenting->viewDidAppear();
        d->presentingController.reset();
    }
    d->transition = eTransitionNone;
    close();
    return true;
}

std::shared_ptr<BaseViewController> BaseViewController::presentingViewController() const
{
    return d->presentingController.lock();
}

std::shared_ptr<BaseViewController> BaseViewController::presentedViewController() const
{
    return d->presentedController.lock();
}

ETransitionDirection BaseViewController::transitionDirection() const
{
    return d->transition;
}

} // namespace Vela::UiBase
