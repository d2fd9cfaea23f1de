// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/baseview.h"

#include "ui_base/viewcontroller/baseviewcontroller.h"
#include "ui_base/viewcontroller/deactivationwatcher_p.h"

#include <lumo_app_service/ApplicationService>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPointer>
#include <QWidget>

#include <utility>

namespace Vela::UiBase {
namespace {

QWidget *widgetOf(const BaseView *view)
{
    return view ? view->getQtWidget() : nullptr;
}

/// Whether @p widget is @p other or around it, also across windows.
bool isAround(const QWidget *widget, const QWidget *other)
{
    while (other && other != widget)
        other = other->parentWidget();
    return other;
}

} // namespace

/// What a view calls in an event may end it. So each step that follows such a call first looks
/// whether the view lives, and the controller is held while it is called.
class BaseViewPrivate
{
public:
    explicit BaseViewPrivate(BaseView *view)
        : q(view)
        , watcher(DeactivationWatcher::shared())
    { }

    bool handle(QEvent *event);
    bool handleMouse(QMouseEvent *event);
    bool handleView(QEvent *event);
    bool press(QMouseEvent *event);
    bool release(QMouseEvent *event);
    bool doubleClick(QMouseEvent *event);
    bool show(QShowEvent *event);
    bool close(QCloseEvent *event);
    void releaseAltKey();
    bool wasVisible() const;

    /// Offers the event to the controller. @return whether that consumed it
    template<typename Event>
    bool offer(bool (ViewResponder::*operation)(Event *), QEvent *event)
    {
        const std::shared_ptr<BaseViewController> controller = viewController;
        return controller && (controller.get()->*operation)(static_cast<Event *>(event));
    }

    /// Calls the view's hook, then @p operation of the controller. @return false
    template<typename Event, typename Class, typename Result>
    bool hookThen(void (BaseView::*hook)(Event *), Result (Class::*operation)(Event *),
                  QEvent *event)
    {
        if (!callHook(hook, event))
            return false;
        if (const std::shared_ptr<BaseViewController> controller = viewController)
            (controller.get()->*operation)(static_cast<Event *>(event));
        return false;
    }

    /// @return whether the view has survived its hook
    template<typename Event>
    bool callHook(void (BaseView::*hook)(Event *), QEvent *event)
    {
        const QPointer<BaseView> living(q);
        (q->*hook)(static_cast<Event *>(event));
        return living;
    }

    /// Reads something of the widget, or answers @p without when it has gone.
    template<typename Result, typename Read>
    Result ask(const Read &read, Result without) const
    {
        return qtWidget ? read(*qtWidget) : without;
    }

    BaseView *const q;
    const std::shared_ptr<DeactivationWatcher> watcher;
    std::shared_ptr<BaseViewController> viewController;
    QPointer<QWidget> qtWidget;
    bool doubleClicked = false;
    bool movedWhilePressed = false;
    bool pressed = false;
    int lastKey = Qt::Key_unknown;
    bool hiddenBeforeMinimize = false;
    bool hiddenByMinimize = false;
    bool ignoresVeto = false;
};

bool BaseViewPrivate::handle(QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        lastKey = static_cast<QKeyEvent *>(event)->key();
        return offer(&ViewResponder::keyPress, event);
    case QEvent::KeyRelease:
        lastKey = Qt::Key_unknown;
        return offer(&ViewResponder::keyRelease, event);
    case QEvent::Wheel:
        return offer(&ViewResponder::mouseWheel, event);
    case QEvent::DragEnter:
        return offer(&ViewResponder::mouseDragEnter, event);
    case QEvent::DragMove:
        return offer(&ViewResponder::mouseDragMove, event);
    case QEvent::DragLeave:
        return offer(&ViewResponder::mouseDragLeave, event);
    case QEvent::Drop:
        return offer(&ViewResponder::mouseDrop, event);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return handleMouse(static_cast<QMouseEvent *>(event));
    default:
        return handleView(event);
    }
}

bool BaseViewPrivate::handleMouse(QMouseEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(event);
    case QEvent::MouseButtonRelease:
        return release(event);
    case QEvent::MouseButtonDblClick:
        return doubleClick(event);
    default:
        movedWhilePressed = pressed;
        return offer(&ViewResponder::mouseMove, event);
    }
}

bool BaseViewPrivate::handleView(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Enter:
        return hookThen(&BaseView::enterEvent, &ViewResponder::mouseEnter, event);
    case QEvent::Leave:
        return hookThen(&BaseView::leaveEvent, &ViewResponder::mouseLeave, event);
    case QEvent::Move:
        return hookThen(&BaseView::moveEvent, &BaseViewController::viewDidMove, event);
    case QEvent::Resize:
        return hookThen(&BaseView::resizeEvent, &BaseViewController::viewDidResize, event);
    case QEvent::Show:
        return show(static_cast<QShowEvent *>(event));
    case QEvent::Hide:
        if (!callHook(&BaseView::hideEvent, event))
            return false;
        if (const std::shared_ptr<BaseViewController> controller = viewController)
            controller->viewWillDisappear();
        return false;
    case QEvent::Close:
        return close(static_cast<QCloseEvent *>(event));
    case QEvent::Paint:
        callHook(&BaseView::paintEvent, event);
        return false;
    case QEvent::WinIdChange:
        callHook(&BaseView::winIdChangeEvent, event);
        return false;
    case QEvent::LanguageChange:
        // A controller stands in no tree of widgets, along which Qt tells of that.
        if (const std::shared_ptr<BaseViewController> controller = viewController)
            QCoreApplication::sendEvent(controller.get(), event);
        return false;
    default:
        return false;
    }
}

bool BaseViewPrivate::press(QMouseEvent *event)
{
    movedWhilePressed = false;
    pressed = true;
    return !doubleClicked && offer(&ViewResponder::mousePress, event);
}

bool BaseViewPrivate::release(QMouseEvent *event)
{
    const bool endsDoubleClick = std::exchange(doubleClicked, false);
    pressed = false;
    return !endsDoubleClick && offer(&ViewResponder::mouseRelease, event);
}

bool BaseViewPrivate::doubleClick(QMouseEvent *event)
{
    if (movedWhilePressed)
        return false;
    doubleClicked = true;
    return offer(&ViewResponder::mouseDoubleClick, event);
}

bool BaseViewPrivate::show(QShowEvent *event)
{
    const QPointer<BaseView> living(q);
    q->showEvent(event);
    if (!living)
        return false;
    if (const std::shared_ptr<BaseViewController> controller = viewController) {
        if (!controller->isLoaded())
            controller->viewDidLoad();
        if (living && viewController == controller)
            controller->viewWillAppear();
    }
    if (!living)
        return false;
    hiddenBeforeMinimize = false;
    hiddenByMinimize = false;
    Q_EMIT q->viewShown();
    return false;
}

bool BaseViewPrivate::close(QCloseEvent *event)
{
    const QPointer<BaseView> living(q);
    q->closeEvent(event);
    if (!living || !event->isAccepted())
        return !event->isAccepted();
    const std::shared_ptr<BaseViewController> controller = viewController;
    const bool agrees = !controller || controller->viewWillClose();
    event->setAccepted(agrees || !living || ignoresVeto);
    return !event->isAccepted();
}

// Leaving the application with Alt+Tab takes the release of the key to another application.
void BaseViewPrivate::releaseAltKey()
{
    if (lastKey != Qt::Key_Alt)
        return;
    auto *const release =
        new QKeyEvent(QEvent::KeyRelease, lastKey, Qt::NoModifier, QString(), false, 1);
    QCoreApplication::postEvent(q, release);
}

/// Whether the widget was visible before the main window was minimised. A view around this one may
/// have been hidden for that a moment ago, which must not count.
bool BaseViewPrivate::wasVisible() const
{
    const QWidget *outermost = nullptr;
    for (QWidget *around = qtWidget->parentWidget(); around; around = around->parentWidget()) {
        const BaseView *const view = BaseView::getBaseViewOfQtWidget(around);
        if (view && view->d->hiddenByMinimize)
            outermost = around;
    }
    return outermost ? qtWidget->isVisibleTo(outermost) : qtWidget->isVisible();
}

BaseView::BaseView(QWidget *parent, Qt::WindowFlags flags)
    : d(std::make_unique<BaseViewPrivate>(this))
{
    init(parent, flags);
}

BaseView::BaseView(BaseView *parent, Qt::WindowFlags flags)
    : d(std::make_unique<BaseViewPrivate>(this))
{
    init(widgetOf(parent), flags);
}

void BaseView::init(QWidget *parent, Qt::WindowFlags flags)
{
    d->qtWidget = new QWidget(parent, flags);
    d->qtWidget->setAttribute(Qt::WA_DeleteOnClose);
    d->qtWidget->installEventFilter(this);
    setParent(d->qtWidget);
    d->watcher->add(this);
    Services::ApplicationService::GetInstance().addAppStateDelegate(this);
}

BaseView::~BaseView()
{
    Services::ApplicationService::GetInstance().removeAppStateDelegate(this);
    d->watcher->remove(this);
    if (d->qtWidget)
        d->qtWidget->removeEventFilter(this);
    d->qtWidget.clear();
    BaseView::setViewController(nullptr);
}

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

QWidget *BaseView::operator->() const
{
    return d->qtWidget;
}

void BaseView::setQtWidget(QWidget *widget)
{
    if (!widget || isAround(widget, d->qtWidget))
        return;
    const QPointer<BaseView> living(this);
    const QPointer<QWidget> later(widget);
    const QPointer<QWidget> earlier = d->qtWidget;
    setParent(widget);
    const QPointer<QWidget> parent = earlier ? earlier->parentWidget() : widget->parentWidget();
    closeRegardless();
    // What hears of the close may end the new widget, and give the view another one.
    if (!living || this->parent() != later)
        return;
    if (earlier)
        earlier->removeEventFilter(this);
    widget->setParent(parent);
    widget->setAttribute(Qt::WA_DeleteOnClose);
    widget->installEventFilter(this);
    d->qtWidget = widget;
}

void BaseView::setViewController(BaseViewController *controller)
{
    if (controller == d->viewController.get())
        return;
    std::shared_ptr<BaseViewController> adopted;
    if (controller) {
        adopted = controller->shared_from_this();
        if (!adopted)
            return;
        const QPointer<BaseView> living(this);
        const QPointer<BaseView> earlier = controller->getView();
        if (earlier)
            earlier->giveUp(controller);
        // What hears of the close may end this view, and move the controller again.
        const BaseView *const present = controller->getView();
        if (!living || (present && present != earlier))
            return;
    }
    // Swapped first, so that a controller which ends here finds the view as it will be.
    d->viewController.swap(adopted);
    if (adopted) {
        disconnect(this, &BaseView::viewShown, adopted.get(), &BaseViewController::viewDidShow);
        adopted->leaveView(this);
    }
    if (controller) {
        controller->enterView(this);
        connect(this, &BaseView::viewShown, controller, &BaseViewController::viewDidShow,
                Qt::QueuedConnection);
    }
}

/// Closes the widget, whatever the controller says to it.
void BaseView::closeRegardless()
{
    const QPointer<BaseView> living(this);
    const bool wasIgnored = std::exchange(d->ignoresVeto, true);
    close();
    if (living)
        d->ignoresVeto = wasIgnored;
}

/// Closes the widget and lets go of the controller, which is about to get another view.
void BaseView::giveUp(BaseViewController *controller)
{
    const QPointer<BaseView> living(this);
    closeRegardless();
    if (living && d->viewController.get() == controller)
        setViewController(nullptr);
}

BaseViewController *BaseView::getViewController() const
{
    return d->viewController.get();
}

void BaseView::setParentView(BaseView *parent)
{
    QWidget *const around = widgetOf(parent);
    if (d->qtWidget && !isAround(d->qtWidget, around))
        d->qtWidget->setParent(around);
}

void BaseView::setDeleteOnCloseAttribute(bool on)
{
    if (!d->qtWidget)
        return;
    d->qtWidget->setAttribute(Qt::WA_DeleteOnClose, on);
    for (QWidget *const widget : d->qtWidget->findChildren<QWidget *>())
        widget->setAttribute(Qt::WA_DeleteOnClose, on);
}

void BaseView::adjustSize()
{
    if (d->qtWidget)
        d->qtWidget->adjustSize();
}

void BaseView::clearFocus()
{
    if (d->qtWidget)
        d->qtWidget->clearFocus();
}

bool BaseView::close()
{
    return !d->qtWidget || d->qtWidget->close();
}

void BaseView::hide()
{
    if (d->qtWidget)
        d->qtWidget->hide();
}

void BaseView::raise()
{
    if (d->qtWidget)
        d->qtWidget->raise();
}

void BaseView::show()
{
    if (d->qtWidget)
        d->qtWidget->show();
}

void BaseView::update()
{
    if (d->qtWidget)
        d->qtWidget->update();
}

void BaseView::unsetCursor()
{
    if (d->qtWidget)
        d->qtWidget->unsetCursor();
}

void BaseView::setFocus()
{
    if (d->qtWidget)
        d->qtWidget->setFocus();
}

void BaseView::setFocusPolicy(Qt::FocusPolicy policy)
{
    if (d->qtWidget)
        d->qtWidget->setFocusPolicy(policy);
}

void BaseView::resize(const QSize &size)
{
    if (d->qtWidget)
        d->qtWidget->resize(size);
}

void BaseView::setAcceptDrops(bool on)
{
    if (d->qtWidget)
        d->qtWidget->setAcceptDrops(on);
}

void BaseView::setAttribute(Qt::WidgetAttribute attribute, bool on)
{
    if (d->qtWidget)
        d->qtWidget->setAttribute(attribute, on);
}

bool BaseView::testAttribute(Qt::WidgetAttribute attribute) const
{
    return d->qtWidget && d->qtWidget->testAttribute(attribute);
}

void BaseView::setAutoFillBackground(bool enabled)
{
    if (d->qtWidget)
        d->qtWidget->setAutoFillBackground(enabled);
}

bool BaseView::getAutoFillBackground() const
{
    return d->qtWidget && d->qtWidget->autoFillBackground();
}

void BaseView::setCursor(const QCursor &cursor)
{
    if (d->qtWidget)
        d->qtWidget->setCursor(cursor);
}

QCursor BaseView::getCursor() const
{
    return d->qtWidget ? d->qtWidget->cursor() : QCursor();
}

void BaseView::setGeometry(const QRect &geometry)
{
    if (d->qtWidget)
        d->qtWidget->setGeometry(geometry);
}

const QRect &BaseView::getGeometry() const
{
    static const QRect none;
    return d->qtWidget ? d->qtWidget->geometry() : none;
}

QRect BaseView::getRect() const
{
    return d->qtWidget ? d->qtWidget->rect() : QRect();
}

QSize BaseView::getSize() const
{
    return getRect().size();
}

int BaseView::getWidth() const
{
    return getRect().width();
}

int BaseView::getHeight() const
{
    return getRect().height();
}

QLayout *BaseView::getLayout() const
{
    return d->qtWidget ? d->qtWidget->layout() : nullptr;
}

void BaseView::setLayout(QLayout *layout)
{
    if (d->qtWidget && layout)
        d->qtWidget->setLayout(layout);
}

QRegion BaseView::getMask() const
{
    return d->qtWidget ? d->qtWidget->mask() : QRegion();
}

void BaseView::setMouseTracking(bool enable)
{
    if (d->qtWidget)
        d->qtWidget->setMouseTracking(enable);
}

void BaseView::setSizePolicy(QSizePolicy policy)
{
    if (d->qtWidget)
        d->qtWidget->setSizePolicy(policy);
}

void BaseView::setSizePolicy(QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical)
{
    setSizePolicy({horizontal, vertical});
}

WId BaseView::getWinId() const
{
    return d->qtWidget ? d->qtWidget->winId() : WId();
}

WId BaseView::getEffectiveWinId() const
{
    return d->qtWidget ? d->qtWidget->effectiveWinId() : WId();
}

bool BaseView::isHidden() const
{
    return !d->qtWidget || d->qtWidget->isHidden();
}

bool BaseView::isVisible() const
{
    return d->qtWidget && d->qtWidget->isVisible();
}

QPoint BaseView::mapFromGlobal(const QPoint &position) const
{
    return d->qtWidget ? d->qtWidget->mapFromGlobal(position) : position;
}

QPoint BaseView::mapToGlobal(const QPoint &position) const
{
    return d->qtWidget ? d->qtWidget->mapToGlobal(position) : position;
}

bool BaseView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == QCoreApplication::instance()) {
        if (event->type() == QEvent::ApplicationDeactivate)
            d->releaseAltKey();
        return QObject::eventFilter(watched, event);
    }
    if (!watched || watched != d->qtWidget)
        return QObject::eventFilter(watched, event);
    const QPointer<QObject> living(watched);
    bool ends = false;
    try {
        ends = d->handle(event);
    } catch (...) {
        qWarning("BaseView: an exception was thrown in the event of a view");
    }
    if (living)
        return ends;
    // Qt would go on with the widget, and with its parents if nobody accepts the event.
    event->accept();
    return true;
}

void BaseView::appWindowStateChanged(const Qt::WindowStates &oldState,
                                     const Qt::WindowStates &newState)
{
    const bool wasMinimized = oldState.testFlag(Qt::WindowMinimized);
    const bool isMinimized = newState.testFlag(Qt::WindowMinimized);
    if (!d->qtWidget || wasMinimized == isMinimized)
        return;
    if (isMinimized) {
        d->hiddenBeforeMinimize = !d->wasVisible();
        d->hiddenByMinimize = !d->hiddenBeforeMinimize;
        hide();
    } else if (!d->hiddenBeforeMinimize) {
        d->hiddenByMinimize = false;
        show();
    }
}

void BaseView::showEvent(QShowEvent *)
{
    setFocus();
    setMouseTracking(true);
    setAcceptDrops(true);
}

void BaseView::hideEvent(QHideEvent *)
{
    clearFocus();
    setMouseTracking(false);
    setAcceptDrops(false);
}

void BaseView::closeEvent(QCloseEvent *event)
{
    event->accept();
}

void BaseView::resizeEvent(QResizeEvent *) { }
void BaseView::moveEvent(QMoveEvent *) { }
void BaseView::winIdChangeEvent(QEvent *) { }
void BaseView::paintEvent(QPaintEvent *) { }
void BaseView::enterEvent(QEvent *) { }
void BaseView::leaveEvent(QEvent *) { }

} // namespace Vela::UiBase
