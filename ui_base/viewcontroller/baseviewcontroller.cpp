// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/baseviewcontroller.h"

#include "ui_base/popup/floatinglayer.h"
#include "ui_base/viewcontroller/baseview.h"

#include <lumo_app_service/ApplicationService>
#include <tessel/dispatch.h>

#include <QByteArray>
#include <QMargins>
#include <QPointer>
#include <QResizeEvent>
#include <QWidget>

namespace Vela::UiBase {
namespace {

/// The controller as long as somebody owns it; one that nobody owns is not adopted by the look.
std::shared_ptr<BaseViewController> ownedPointer(BaseViewController *controller)
{
    if (const auto owner = controller->weak_from_this().lock())
        return {owner, controller};
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

/// Puts the view of @p controller over that of @p presenter, which hooks of it may end.
/// @return whether there is a view still
bool putOver(BaseViewController &controller, BaseViewController &presenter)
{
    controller.setParentViewController(&presenter);
    const QPointer<BaseView> view = controller.getView();
    if (view && presenter.getQtWidget())
        view->setGeometry(presenter.getView()->getGeometry());
    if (view)
        view->raise();
    return view;
}

/// Who is called when a message is clicked. Made on any thread, used on the main one.
struct ClickTarget
{
    QPointer<QObject> receiver;
    QByteArray slot;
};

ClickTarget clickTarget(QObject *receiver, const char *slot)
{
    return {receiver, QByteArray(slot)};
}

void setClickTarget(NotificationBar *bar, const ClickTarget &target)
{
    QObject::disconnect(bar, &NotificationBar::mouseClicked, nullptr, nullptr);
    if (target.receiver && !target.slot.isEmpty())
        QObject::connect(bar, SIGNAL(mouseClicked()), target.receiver, target.slot.constData());
}

} // namespace

class BaseViewControllerPrivate
{
public:
    NotificationBar *readyBar();
    void initializeNotificationBar();
    void dropNotificationBar();

    /// Calls @p work with this part on the main queue unless the controller has died by then.
    template<typename Work>
    static void post(BaseViewController *controller, const Work &work)
    {
        const std::weak_ptr<BaseViewController> weak = ownedPointer(controller);
        const auto posted = [weak, work] {
            const std::shared_ptr<BaseViewController> living = weak.lock();
            work(living ? living->d.get() : nullptr);
        };
        Tessel::dispatchAsync(posted, Tessel::EQualityOfService::Main);
    }

    QPointer<BaseView> view;
    std::weak_ptr<BaseViewController> presentingController;
    std::weak_ptr<BaseViewController> presentedController;
    ETransitionDirection transition = eTransitionNone;
    QPointer<NotificationBar> notificationBar;
    // What the bar stands over: the view may have got another widget since.
    QPointer<QWidget> notificationWidget;
    bool isLoaded = false;
};

/// The bar over the present widget, which is made on first use; null without a widget.
NotificationBar *BaseViewControllerPrivate::readyBar()
{
    QWidget *const widget = view ? view->getQtWidget() : nullptr;
    if (notificationBar && notificationWidget != widget)
        dropNotificationBar();
    if (!notificationBar && widget) {
        initializeNotificationBar();
        view->setFocus();
    }
    return notificationBar;
}

void BaseViewControllerPrivate::initializeNotificationBar()
{
    notificationWidget = view->getQtWidget();
    notificationBar = new NotificationBar(notificationWidget);
    FloatingLayer::makeWidgetFloating(notificationBar, QMargins());
}

/// Later, since its own click may have led here.
void BaseViewControllerPrivate::dropNotificationBar()
{
    if (notificationBar)
        notificationBar->deleteLater();
    notificationBar.clear();
}

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
    if (d->view != view)
        return;
    d->view.clear();
    d->dropNotificationBar();
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

void BaseViewController::viewWillDisappear()
{
    if (d->notificationBar)
        d->notificationBar->setVisible(false);
}

void BaseViewController::viewDidAppear()
{
    if (d->notificationBar)
        d->notificationBar->setVisible(d->notificationBar->isShowing());
}

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

void BaseViewController::showNotification(const QString &text, ENotificationFadeOption fade,
                                          int milliseconds, bool showCloseButton, QObject *receiver,
                                          const char *slot)
{
    const ClickTarget target = clickTarget(receiver, slot);
    BaseViewControllerPrivate::post(this, [=](BaseViewControllerPrivate *living) {
        NotificationBar *const bar = living ? living->readyBar() : nullptr;
        if (!bar)
            return;
        setClickTarget(bar, target);
        bar->ShowSimpleText(text, fade, milliseconds, showCloseButton);
    });
}

void BaseViewController::showNotification(QWidget *content, ENotificationFadeOption fade,
                                          int milliseconds, bool showCloseButton, QObject *receiver,
                                          const char *slot)
{
    const ClickTarget target = clickTarget(receiver, slot);
    const bool hadContent = content;
    const QPointer<QWidget> guarded(content);
    BaseViewControllerPrivate::post(this, [=](BaseViewControllerPrivate *living) {
        if (hadContent && !guarded)
            return;
        NotificationBar *const bar = living ? living->readyBar() : nullptr;
        if (bar) {
            setClickTarget(bar, target);
            bar->ShowControl(guarded, fade, milliseconds, showCloseButton);
        } else if (guarded && !guarded->parent()) {
            delete guarded.data();
        }
    });
}

void BaseViewController::hideNotification()
{
    BaseViewControllerPrivate::post(this, [](BaseViewControllerPrivate *living) {
        if (living && living->notificationBar)
            living->notificationBar->ShowSimpleText({}, eNotificationFadeOutOnly, 3000, false);
    });
}

bool BaseViewController::isNotificationShowing()
{
    return d->notificationBar && d->notificationBar->isShowing();
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
    if (!presented || !canBePresented(*presented, *this) || !putOver(*presented, *this))
        return false;
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
