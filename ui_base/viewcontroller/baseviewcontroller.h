// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/delegator.h"
#include "core/sharedobject.h"
#include "ui_base/qtui/notification/notificationbar.h"
#include "ui_base/tool/viewresponder.h"
#include "ui_base/uibaseexport.h"
#include "ui_base/viewcontroller/presentviewprotocol.h"

#include <lumo_app_service/ShutdownProtocol>

#include <QObject>

#include <memory>

class QMoveEvent;
class QResizeEvent;
class QWidget;

namespace Vela::UiBase {

class BaseView;
class BaseViewControllerPrivate;

/// Owns the behaviour of a view: hears its life cycle, gets its input as a ViewResponder, presents
/// other view controllers over it and shows notifications on it.
///
/// In the order of a view's life: viewDidLoad() at the first show, viewWillAppear(),
/// viewDidAppear() on the next turn of the event loop, viewWillDisappear() when the view is hidden
/// or covered, and viewWillClose() when it is about to be closed. While it is loaded it is asked,
/// as the Services::ShutdownProtocol it is, whether the application may shut down.
///
/// It is sent the QEvent::LanguageChange of its view's widget, so a controller whose commands speak
/// the language of the application gives them their texts again in its event().
///
/// The view owns the controller by a shared pointer, so it dies with the view unless somebody else
/// shares it. It has to come from new and is adopted by the first view or shared_from_this(). A
/// controller without a view, or one whose view has gone, is legal: nothing happens to it, and its
/// operations answer as of a view that was closed. Main thread only, apart from showNotification()
/// and hideNotification(). A thread that calls these has to keep the controller alive meanwhile,
/// and to let go of it on the main thread. Without that it posts the call there, with a weak pointer
/// that was taken on the main thread:
///
/// @code
/// const std::weak_ptr<BaseViewController> controller = this->controller;
/// Tessel::dispatchAsync([controller, text] {
///     if (const auto living = controller.lock())
///         living->showNotification(text, eNotificationFadeInOut, 3000, false, nullptr, nullptr);
/// }, Tessel::EQualityOfService::Main);
/// @endcode
/// \sa BaseView, docs/views.md
class LUMO_UI_BASE_EXPORT BaseViewController
    : public QObject,
      public virtual Tessel::SharedObject<BaseViewController>,
      public ViewResponder,
      public Services::ShutdownProtocol,
      public Tessel::Delegator<PresentViewProtocol>
{
    Q_OBJECT

public:
    /// Makes a view with a window of its own, which owns the controller from now on.
    BaseViewController();
    /// Hands the controller to @p view, which owns it from now on. With null it has no view and
    /// belongs to the caller.
    explicit BaseViewController(BaseView *view);
    ~BaseViewController() override;

    /// Makes the view of @p parent the parent of the view; null, or a controller without a view,
    /// makes a window of it. Nothing else is linked by that. \sa BaseView::setParentView
    virtual void setParentViewController(BaseViewController *parent);

    /// Moves the controller to @p view; null and the present view are ignored. The widget of the
    /// earlier view is closed. \sa BaseView::setViewController
    virtual void setView(BaseView *view);
    /// The view, or null when there is none or it has gone.
    BaseView *getView() const;
    /// The view's widget, or null when it has gone.
    QWidget *getQtWidget() const;

    /// Shows the view.
    void show();
    /// Hides the view.
    void hide();
    /// Closes the view. @return false when the view or viewWillClose() refused
    bool close();
    /// Whether the view is visible.
    bool isVisible() const;
    /// Whether viewDidLoad() has run and no viewWillClose() since.
    bool isLoaded() const;

    /// The view is shown for the first time, or again after a close. Registers the controller as a
    /// delegate of the application's shutdown. Overrides have to call it.
    virtual void viewDidLoad();
    /// The view is about to appear. Nothing by default.
    virtual void viewWillAppear();
    /// The view was hidden, or is about to be covered by a presented one. Hides a notification.
    /// Overrides have to call it.
    virtual void viewWillDisappear();
    /// The view has appeared, or was uncovered by a dismissal. Brings a notification back that is
    /// still showing. Overrides have to call it.
    virtual void viewDidAppear();
    /// The view is about to be closed. Ends what viewDidLoad() began. Overrides that agree have to
    /// call it; one that refuses returns false without it, and stays loaded.
    /// @return false to keep the view open, which a caller may overrule where it says so
    virtual bool viewWillClose();
    /// The view's widget has another size. Gives a presented view the same. Overrides have to call
    /// it.
    virtual void viewDidResize(QResizeEvent *event);
    /// The view's widget has another position in its parent. Nothing by default.
    virtual void viewDidMove(QMoveEvent *event);

    /// Shows a text on the view, in place of what is shown there. Any thread: it happens later on
    /// the main queue, and not at all when the controller or its view has gone by then.
    /// @param text the message; an empty one ends the present message
    /// @param fade how it comes and goes
    /// @param milliseconds how long it stays; see NotificationBar::ShowSimpleText()
    /// @param showCloseButton whether the user gets a button to close it by
    /// @param receiver whose @p slot is called when the message is clicked; null, or one that has
    ///        died, is none. Who was called before is not called any more
    /// @param slot written with SLOT(); null is none
    void showNotification(const QString &text, ENotificationFadeOption fade, int milliseconds,
                          bool showCloseButton, QObject *receiver, const char *slot);
    /// The same with a widget in place of a text.
    /// @param content belongs to the message from now on, and is deleted with it; must not be used
    ///        by the caller any more. Deleted, too, when it can't be shown and has no parent. One
    ///        that has died by then shows nothing; null shows the present message once more
    void showNotification(QWidget *content, ENotificationFadeOption fade, int milliseconds,
                          bool showCloseButton, QObject *receiver, const char *slot);
    /// Makes the present message fade out; without one nothing happens. Any thread, later on the
    /// main queue.
    void hideNotification();
    /// Whether a message is showing; see NotificationBar::isShowing(). Main thread.
    bool isNotificationShowing();

    /// Shows @p controller over this one, whose delegates are asked first and may take it over.
    /// Otherwise its view becomes a child of this view, with the geometry of this view, and is
    /// raised and shown; this controller hears viewWillDisappear(), while its view stays visible
    /// underneath. The presented controller lives through its own view, and neither keeps the other
    /// alive.
    /// @param direction kept with the presented controller for who wants to animate it
    /// @return false for null, this controller, one whose view is around this one, and one that has
    ///         no view or loses it before it is shown; else true
    virtual bool presentViewController(BaseViewController *controller,
                                       ETransitionDirection direction);
    /// Ends the presentation of this controller: its delegates are asked first and may take it
    /// over. Otherwise the presenting controller hears viewWillAppear() and viewDidAppear(), and
    /// this view is closed, also when the controller was never presented.
    /// @return true, also when the view has gone or the close was refused
    virtual bool dismissViewController();
    /// The controller that presented this one; null when there is none or it has died.
    std::shared_ptr<BaseViewController> presentingViewController() const;
    /// The controller presented over this one; null when there is none or it has died.
    std::shared_ptr<BaseViewController> presentedViewController() const;
    /// By which direction this controller is presented; eTransitionNone when it is not.
    ETransitionDirection transitionDirection() const;

public Q_SLOTS:
    /// Calls viewDidAppear(), of which an exception ends in a warning. The view calls it on the
    /// turn of the event loop after its show.
    void viewDidShow();

private:
    friend class BaseView;
    friend class BaseViewControllerPrivate;
    void enterView(BaseView *view);
    void leaveView(BaseView *view);

    const std::unique_ptr<BaseViewControllerPrivate> d;
    Q_DISABLE_COPY(BaseViewController)
};

} // namespace Vela::UiBase
