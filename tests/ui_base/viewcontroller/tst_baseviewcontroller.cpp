// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/BaseView>
#include <ui_base/BaseViewController>
#include <ui_base/ETransitionDirection>
#include <ui_base/PresentViewProtocol>

#include "recordingcontroller.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/popup/floatinglayer.h"
#include "ui_base/qtui/notification/notificationbar_p.h"

#include <lumo_app_service/ApplicationService>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <atomic>
#include <functional>
#include <limits>
#include <stdexcept>
#include <thread>

using Lumo::Test::EventLog;
using Lumo::Test::RecordingController;
using Vela::Services::ApplicationService;
using Vela::UiBase::BaseView;
using Vela::UiBase::BaseViewController;
using Vela::UiBase::eNotificationFadeOutOnly;
using Vela::UiBase::eNotificationNoFade;
using Vela::UiBase::eNotificationPulse;
using Vela::UiBase::ETransitionDirection;
using Vela::UiBase::eTransitionFromBottom;
using Vela::UiBase::eTransitionFromLeft;
using Vela::UiBase::eTransitionFromRight;
using Vela::UiBase::eTransitionFromTop;
using Vela::UiBase::eTransitionNone;
using Vela::UiBase::FloatingLayer;
using Vela::UiBase::NotificationBar;
using Vela::UiBase::NotificationBarPrivate;
using Vela::UiBase::PresentViewProtocol;

namespace {

/// Answers requests and records them.
class Presenter : public PresentViewProtocol
{
public:
    explicit Presenter(bool takesOver)
        : m_takesOver(takesOver)
    { }

    bool presentViewController(BaseViewController *controller,
                               ETransitionDirection direction) override
    {
        lastController = controller;
        lastDirection = direction;
        ++presented;
        if (asked)
            asked();
        return m_takesOver;
    }
    bool dismissViewController() override
    {
        ++dismissed;
        if (asked)
            asked();
        return m_takesOver;
    }

    std::function<void()> asked;

    BaseViewController *lastController = nullptr;
    ETransitionDirection lastDirection = eTransitionNone;
    int presented = 0;
    int dismissed = 0;

private:
    const bool m_takesOver;
};

/// A controller in a visible window, which another one can be presented over.
class Stage
{
public:
    Stage()
        : presenter(new RecordingController)
        , presented(new RecordingController)
        , window(presenter->getQtWidget())
        , overlay(presented->getQtWidget())
    {
        window->setGeometry(30, 40, 200, 150);
        presenter->show();
        QCoreApplication::processEvents();
        presenter->log.take();
    }
    ~Stage()
    {
        delete window.data();
        delete overlay.data();
    }

    QPointer<RecordingController> presenter;
    QPointer<RecordingController> presented;
    QPointer<QWidget> window;
    QPointer<QWidget> overlay;
};

/// Counts clicks.
class Receiver : public QObject
{
    Q_OBJECT

public:
    int clicks = 0;
    std::function<void()> clicked;

public Q_SLOTS:
    void click()
    {
        ++clicks;
        if (clicked)
            clicked();
    }
};

/// The bar over @p widget; null when there is none.
NotificationBar *barOf(const QWidget *widget)
{
    return widget->findChild<NotificationBar *>();
}

/// What a bar shows, without asking its window.
const NotificationBarPrivate &dataOf(NotificationBar *bar)
{
    struct Opened : NotificationBar
    {
        static const NotificationBarPrivate &of(NotificationBar *bar)
        {
            return *(bar->*(&Opened::d_ptr));
        }
    };
    return Opened::of(bar);
}

QStringList names(std::initializer_list<const char *> list)
{
    QStringList result;
    for (const char *const name : list)
        result << QString::fromLatin1(name);
    return result;
}

} // namespace

static_assert(eTransitionFromLeft == 0 && eTransitionFromTop == 1 && eTransitionFromRight == 2
              && eTransitionFromBottom == 3 && eTransitionNone == 4);
static_assert(sizeof(ETransitionDirection) == 4);

class TestBaseViewController : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void lifeHasItsOrder()
    {
        const Stage stage;
        RecordingController &controller = *stage.presented;
        controller.log.take();
        controller.show();
        QVERIFY(controller.isLoaded() && controller.isVisible());
        QTRY_VERIFY(controller.log.events().contains(QStringLiteral("viewDidAppear")));
        controller.hide();
        QVERIFY(!controller.isVisible() && controller.isLoaded());
        const auto shared = controller.shared_from_this();
        controller.show();
        QVERIFY(controller.close());
        QVERIFY(!controller.isLoaded());
        QStringList calls = controller.log.take();
        for (const char *const geometry : {"viewDidMove", "viewDidResize"})
            calls.removeAll(QString::fromLatin1(geometry));
        QCOMPARE(calls,
                 names({"viewDidLoad", "viewWillAppear", "viewDidAppear", "viewWillDisappear",
                        "viewWillAppear", "viewWillClose", "viewWillDisappear"}));
        QTRY_VERIFY(!stage.overlay);
    }

    void showAfterACloseLoadsAgain()
    {
        const Stage stage;
        stage.presenter->getView()->setDeleteOnCloseAttribute(false);
        QVERIFY(stage.presenter->close());
        QVERIFY(!stage.presenter->isLoaded());
        stage.presenter->log.take();
        stage.presenter->show();
        QCOMPARE(stage.presenter->log.events().first(), QStringLiteral("viewDidLoad"));
        QVERIFY(stage.presenter->isLoaded());
    }

    void viewIsAskedForControllersThatAreNewToIt()
    {
        class Asked : public BaseView
        {
        public:
            Asked()
                : BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags())
            { }
            void setViewController(BaseViewController *controller) override
            {
                ++asked;
                BaseView::setViewController(controller);
            }
            int asked = 0;
        };
        auto *const view = new Asked;
        auto *const controller = new BaseViewController(view);
        QCOMPARE(view->asked, 1);
        controller->setView(view);
        controller->setView(nullptr);
        QCOMPARE(view->asked, 1);
        QCOMPARE(controller->getView(), view);
        delete view->getQtWidget();
    }

    void viewDidShowCallsViewDidAppear()
    {
        const Stage stage;
        QVERIFY(QMetaObject::invokeMethod(stage.presenter, "viewDidShow"));
        QCOMPARE(stage.presenter->log.take(), names({"viewDidAppear"}));
    }

    void exceptionOfAnAppearingControllerEndsInAWarning()
    {
        const Stage stage;
        stage.presenter->onCall[QStringLiteral("viewDidAppear")] = [] {
            throw std::runtime_error("broken");
        };
        expectMessage(
            QStringLiteral("BaseViewController: an exception was thrown when a view appeared"));
        stage.presenter->viewDidShow();
    }

    void inputIsNotConsumedByDefault()
    {
        BaseViewController controller(nullptr);
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QVERIFY(!controller.mousePress(&event));
        QVERIFY(controller.canShutdown());
    }

    void loadedControllersAreAskedForTheShutdown()
    {
        class Asked : public BaseViewController
        {
        public:
            using BaseViewController::BaseViewController;
            bool canShutdown() override
            {
                ++asked;
                return agrees;
            }
            int asked = 0;
            bool agrees = true;
        };
        ApplicationService &service = ApplicationService::GetInstance();
        auto *const controller = new Asked;
        controller->getView()->setDeleteOnCloseAttribute(false);
        QVERIFY(service.requestShutdown());
        controller->show();
        controller->viewDidLoad();
        QVERIFY(service.requestShutdown());
        QCOMPARE(controller->asked, 1);
        controller->agrees = false;
        QVERIFY(!service.requestShutdown());
        controller->close();
        QVERIFY(service.requestShutdown());
        controller->show();
        QVERIFY(!service.requestShutdown());
        // It dies without a close.
        delete controller->getQtWidget();
        QVERIFY(service.requestShutdown());
    }

    void withoutAViewItAnswersAsAClosedOne()
    {
        const auto controller = std::make_shared<BaseViewController>(nullptr);
        const Stage stage;
        QCOMPARE(controller->getView(), nullptr);
        QCOMPARE(controller->getQtWidget(), nullptr);
        controller->show();
        controller->hide();
        QVERIFY(controller->close());
        QVERIFY(!controller->isVisible() && !controller->isLoaded());
        controller->setParentViewController(stage.presenter);
        controller->setView(nullptr);
        controller->viewDidResize(nullptr);
        controller->viewDidMove(nullptr);
        QVERIFY(controller->dismissViewController());
        QCOMPARE(controller->transitionDirection(), eTransitionNone);
    }

    void parentControllerIsTheParentOfTheView()
    {
        const Stage stage;
        const auto viewless = std::make_shared<BaseViewController>(nullptr);
        stage.presented->setParentViewController(stage.presenter);
        QCOMPARE(stage.overlay->parentWidget(), stage.window.data());
        QCOMPARE(stage.presenter->presentedViewController(), nullptr);
        stage.presented->setParentViewController(viewless.get());
        QCOMPARE(stage.overlay->parentWidget(), nullptr);
        stage.presented->setParentViewController(stage.presenter);
        stage.presented->setParentViewController(nullptr);
        QCOMPARE(stage.overlay->parentWidget(), nullptr);
    }

    void presentedViewCoversItsPresenter()
    {
        const Stage stage;
        stage.presented->setParentViewController(stage.presenter);
        auto *const sibling = new QWidget(stage.window);
        QVERIFY(stage.presenter->presentViewController(stage.presented, eTransitionFromTop));
        QCOMPARE(stage.overlay->parentWidget(), stage.window.data());
        QCOMPARE(stage.overlay->geometry(), stage.window->geometry());
        const QObjectList children = stage.window->children();
        QVERIFY(children.indexOf(stage.overlay) > children.indexOf(sibling));
        QCOMPARE(stage.presenter->presentedViewController().get(), stage.presented.data());
        QCOMPARE(stage.presented->presentingViewController().get(), stage.presenter.data());
        QCOMPARE(stage.presented->transitionDirection(), eTransitionFromTop);
        QCOMPARE(stage.presenter->log.take(), names({"viewWillDisappear"}));
        QVERIFY(stage.presenter->isVisible() && stage.presented->isVisible());
        QVERIFY(stage.presented->isLoaded());
        QTRY_VERIFY(stage.presented->log.events().contains(QStringLiteral("viewDidAppear")));
    }

    void presenterHearsBeforeThePresentedViewIsShown()
    {
        const Stage stage;
        bool wasVisible = true;
        stage.presenter->onCall[QStringLiteral("viewWillDisappear")] = [&] {
            wasVisible = stage.presented->isVisible();
        };
        stage.presenter->presentViewController(stage.presented, eTransitionNone);
        QVERIFY(!wasVisible);
    }

    void linksKeepNobodyAlive()
    {
        const Stage stage;
        stage.presenter->presentViewController(stage.presented, eTransitionNone);
        QCOMPARE(stage.presenter->weak_from_this().use_count(), 1L);
        QCOMPARE(stage.presented->weak_from_this().use_count(), 1L);
        stage.presented->close();
        QTRY_VERIFY(!stage.presented);
        QCOMPARE(stage.presenter->presentedViewController(), nullptr);
        stage.window->resize(300, 300);
    }

    void dismissalBringsThePresenterBack()
    {
        const Stage stage;
        stage.presenter->presentViewController(stage.presented, eTransitionFromLeft);
        const auto shared = stage.presented->shared_from_this();
        stage.presenter->log.take();
        stage.presenter->onCall[QStringLiteral("viewWillAppear")] = [&] {
            QCOMPARE(stage.presenter->presentedViewController(), nullptr);
            QVERIFY(stage.presented->presentingViewController());
        };
        QVERIFY(stage.presented->dismissViewController());
        QCOMPARE(stage.presenter->log.take(), names({"viewWillAppear", "viewDidAppear"}));
        QCOMPARE(stage.presented->presentingViewController(), nullptr);
        QCOMPARE(stage.presented->transitionDirection(), eTransitionNone);
        QVERIFY(!stage.presented->isVisible());
        QTRY_VERIFY(!stage.overlay);
        // Its view has gone.
        QVERIFY(stage.presented->dismissViewController());
    }

    void controllerThatWasNeverPresentedIsClosedByADismissal()
    {
        const Stage stage;
        QVERIFY(stage.presenter->dismissViewController());
        QTRY_VERIFY(!stage.window);
    }

    void dismissalWithoutItsPresenterClosesTheView()
    {
        const Stage stage;
        stage.presenter->presentViewController(stage.presented, eTransitionFromLeft);
        stage.presented->setParentViewController(nullptr);
        delete stage.window.data();
        QCOMPARE(stage.presented->presentingViewController(), nullptr);
        QVERIFY(stage.presented->dismissViewController());
        QTRY_VERIFY(!stage.overlay);
    }

    void refusedCloseDoesNotStopADismissal()
    {
        const Stage stage;
        stage.presenter->presentViewController(stage.presented, eTransitionFromLeft);
        stage.presented->agreesToClose = false;
        QVERIFY(stage.presented->dismissViewController());
        QVERIFY(stage.presented->isVisible());
        QCOMPARE(stage.presented->presentingViewController(), nullptr);
    }

    void presentedViewFollowsTheSizeOfItsPresenter_data()
    {
        QTest::addColumn<bool>("visible");
        QTest::newRow("visible") << true;
        QTest::newRow("hidden") << false;
    }

    void presentedViewFollowsTheSizeOfItsPresenter()
    {
        QFETCH(bool, visible);
        const Stage stage;
        stage.presenter->presentViewController(stage.presented, eTransitionFromRight);
        if (!visible)
            stage.presented->hide();
        stage.window->resize(321, 123);
        QCOMPARE(stage.overlay->size(), QSize(321, 123));
        QVERIFY(stage.presented->dismissViewController());
        stage.window->resize(400, 400);
        QCOMPARE(stage.overlay->size(), QSize(321, 123));
    }

    void presentingNothingOrItselfIsRefused()
    {
        const Stage stage;
        const auto delegate = std::make_shared<Presenter>(true);
        stage.presenter->setDelegate(delegate, false);
        QVERIFY(!stage.presenter->presentViewController(nullptr, eTransitionFromLeft));
        QVERIFY(!stage.presenter->presentViewController(stage.presenter, eTransitionFromLeft));
        QCOMPARE(delegate->presented, 0);
        QCOMPARE(stage.presenter->log.take(), QStringList());
    }

    void controllerThatCantBeShownIsRefused()
    {
        const Stage stage;
        const auto viewless = std::make_shared<BaseViewController>(nullptr);
        QVERIFY(!stage.presenter->presentViewController(viewless.get(), eTransitionFromLeft));
        BaseViewController unowned(nullptr);
        QVERIFY(!stage.presenter->presentViewController(&unowned, eTransitionFromLeft));
        QVERIFY(stage.presenter->presentViewController(stage.presented, eTransitionFromLeft));
        stage.presenter->log.take();
        QVERIFY(!stage.presented->presentViewController(stage.presenter, eTransitionFromLeft));
        QCOMPARE(stage.presented->presentedViewController(), nullptr);
        QCOMPARE(stage.presenter->transitionDirection(), eTransitionNone);
    }

    void presenterWithoutAViewMakesAWindow()
    {
        const Stage stage;
        stage.presented->setParentViewController(stage.presenter);
        const auto viewless = std::make_shared<BaseViewController>(nullptr);
        QVERIFY(viewless->presentViewController(stage.presented, eTransitionFromLeft));
        QVERIFY(stage.overlay->isWindow() && stage.overlay->isVisible());
        QVERIFY(stage.presented->dismissViewController());
        QTRY_VERIFY(!stage.overlay);
    }

    void delegateTakesThePresentationOver()
    {
        const Stage stage;
        const auto delegate = std::make_shared<Presenter>(true);
        stage.presenter->setDelegate(delegate, false);
        QVERIFY(stage.presenter->presentViewController(stage.presented, eTransitionFromBottom));
        QCOMPARE(delegate->lastController, stage.presented.data());
        QCOMPARE(delegate->lastDirection, eTransitionFromBottom);
        QCOMPARE(stage.presenter->log.take(), QStringList());
        QCOMPARE(stage.overlay->parentWidget(), nullptr);
        QCOMPARE(stage.presenter->presentedViewController(), nullptr);
        QCOMPARE(stage.presented->presentingViewController(), nullptr);
        QCOMPARE(stage.presented->transitionDirection(), eTransitionNone);
        QVERIFY(!stage.presented->isVisible());
    }

    void delegateTakesTheDismissalOver()
    {
        const Stage stage;
        stage.presenter->presentViewController(stage.presented, eTransitionFromBottom);
        stage.presenter->log.take();
        const auto delegate = std::make_shared<Presenter>(true);
        stage.presented->setDelegate(delegate, true);
        QVERIFY(stage.presented->dismissViewController());
        QCOMPARE(delegate->dismissed, 1);
        QVERIFY(stage.presented->isVisible());
        QCOMPARE(stage.presenter->log.take(), QStringList());
        QCOMPARE(stage.presented->transitionDirection(), eTransitionFromBottom);
    }

    void firstAnswerOfSeveralDelegatesCounts()
    {
        const Stage stage;
        const auto declines = std::make_shared<Presenter>(false);
        const auto takesOver = std::make_shared<Presenter>(true);
        stage.presenter->setDelegate(declines, false);
        stage.presenter->addObserver(takesOver, false);
        QVERIFY(stage.presenter->presentViewController(stage.presented, eTransitionFromLeft));
        QCOMPARE(takesOver->presented, 1);
        QVERIFY(stage.presented->isVisible());
        PresentViewProtocol byDefault;
        QVERIFY(!byDefault.presentViewController(stage.presented, eTransitionFromLeft));
        QVERIFY(!byDefault.dismissViewController());
    }

    void presentationSurvivesTheDeathOfEither_data()
    {
        QTest::addColumn<bool>("presenterDies");
        QTest::newRow("presenter") << true;
        QTest::newRow("presented") << false;
    }

    void presentationSurvivesTheDeathOfEither()
    {
        QFETCH(bool, presenterDies);
        const Stage stage;
        stage.presenter->onCall[QStringLiteral("viewWillDisappear")] = [&] {
            stage.presenter->onCall.clear();
            delete (presenterDies ? stage.window : stage.overlay).data();
        };
        stage.presenter->presentViewController(stage.presented, eTransitionFromLeft);
        QCOMPARE(stage.presenter.isNull(), presenterDies);
        QVERIFY(!stage.presented);
    }

    void delegateMayEndTheViews_data()
    {
        QTest::addColumn<bool>("takesOver");
        QTest::newRow("takes over") << true;
        QTest::newRow("declines") << false;
    }

    void delegateMayEndTheViews()
    {
        QFETCH(bool, takesOver);
        const Stage stage;
        const auto delegate = std::make_shared<Presenter>(takesOver);
        delegate->asked = [&] {
            delete stage.window.data();
            delete stage.overlay.data();
        };
        stage.presenter->setDelegate(delegate, false);
        QCOMPARE(stage.presenter->presentViewController(stage.presented, eTransitionFromLeft),
                 takesOver);
        QVERIFY(!stage.presenter && !stage.presented);
        const Stage another;
        another.presenter->presentViewController(another.presented, eTransitionFromLeft);
        another.presented->setDelegate(delegate, false);
        delegate->asked = [&] { delete another.window.data(); };
        QVERIFY(another.presented->dismissViewController());
        QVERIFY(!another.presenter && !another.presented);
    }

    void dismissalSurvivesTheDeathOfEither_data() { presentationSurvivesTheDeathOfEither_data(); }

    void dismissalSurvivesTheDeathOfEither()
    {
        QFETCH(bool, presenterDies);
        const Stage stage;
        stage.presenter->presentViewController(stage.presented, eTransitionFromLeft);
        stage.presenter->onCall[QStringLiteral("viewWillAppear")] = [&] {
            stage.presenter->onCall.clear();
            delete (presenterDies ? stage.window : stage.overlay).data();
        };
        QVERIFY(stage.presented->dismissViewController());
        QCOMPARE(stage.presenter.isNull(), presenterDies);
        QVERIFY(!stage.presented);
    }

    void viewMayEndWhileItIsPutInItsPlace()
    {
        const Stage stage;
        stage.presented->setParentViewController(stage.presenter);
        stage.presented->show();
        stage.presented->onCall[QStringLiteral("viewDidMove")] = [&] {
            stage.presented->onCall.clear();
            delete stage.presented->getView();
        };
        QVERIFY(!stage.presenter->presentViewController(stage.presented, eTransitionFromLeft));
        QVERIFY(!stage.presented);
        QCOMPARE(stage.presenter->presentedViewController(), nullptr);
        QCOMPARE(stage.presenter->log.take(), QStringList());
    }

    void notificationIsMadeOnFirstUseAndLater()
    {
        const Stage stage;
        QVERIFY(!stage.presenter->isNotificationShowing());
        auto *const edit = new QWidget(stage.window);
        stage.window->activateWindow();
        edit->show();
        edit->setFocus();
        stage.presenter->showNotification(QStringLiteral("saved"), eNotificationNoFade, 3000, true,
                                          nullptr, nullptr);
        QVERIFY(!barOf(stage.window));
        QTRY_VERIFY(stage.presenter->isNotificationShowing());
        NotificationBar *const bar = barOf(stage.window);
        QCOMPARE(FloatingLayer::getWidgetOriginalParent(bar), stage.window.data());
        QVERIFY(qobject_cast<FloatingLayer *>(bar->parentWidget()));
        QCOMPARE(FloatingLayer::getWidgetOffset(bar), QPoint(0, 0));
        QCOMPARE(dataOf(bar).text, QStringLiteral("saved"));
        QCOMPARE(dataOf(bar).fadeOption, eNotificationNoFade);
        QCOMPARE(dataOf(bar).dismissTimer->interval(), 3000);
        QVERIFY(dataOf(bar).closeButtonVisible);
        QCOMPARE(stage.window->focusWidget(), stage.window.data());
        stage.presenter->showNotification(QStringLiteral("again"), eNotificationPulse, 100, false,
                                          nullptr, nullptr);
        QTRY_COMPARE(dataOf(bar).text, QStringLiteral("again"));
        QCOMPARE(stage.window->findChildren<NotificationBar *>().size(), 1);
    }

    void notificationCanBeAWidget()
    {
        const Stage stage;
        const QPointer<QWidget> content = new QWidget;
        content->resize(50, 20);
        stage.presenter->showNotification(content, eNotificationFadeOutOnly, 1234, true, nullptr,
                                          nullptr);
        QTRY_VERIFY(stage.presenter->isNotificationShowing());
        const NotificationBarPrivate &data = dataOf(barOf(stage.window));
        QCOMPARE(data.control.data(), content.data());
        QCOMPARE(data.fadeOption, eNotificationFadeOutOnly);
        QCOMPARE(data.dismissTimer->interval(), 1234);
        QVERIFY(data.closeButtonVisible);
    }

    void contentThatCantBeShownIsDeleted()
    {
        const auto viewless = std::make_shared<BaseViewController>(nullptr);
        const QPointer<QWidget> content = new QWidget;
        viewless->showNotification(content, eNotificationNoFade, 3000, false, nullptr, nullptr);
        QTRY_VERIFY(!content);
        QWidget parent;
        auto *const owned = new QWidget(&parent);
        viewless->showNotification(owned, eNotificationNoFade, 3000, false, nullptr, nullptr);
        QPointer<QWidget> orphan = new QWidget;
        auto *const dying = new BaseViewController;
        dying->showNotification(orphan, eNotificationNoFade, 3000, false, nullptr, nullptr);
        delete dying->getQtWidget();
        QTRY_VERIFY(!orphan);
        QVERIFY(parent.children().contains(owned));
    }

    void contentThatHasDiedShowsNothing()
    {
        const Stage stage;
        auto *const content = new QWidget;
        stage.presenter->showNotification(content, eNotificationNoFade, 3000, false, nullptr,
                                          nullptr);
        delete content;
        QCoreApplication::processEvents();
        QVERIFY(!barOf(stage.window));
    }

    void notificationTakesAnyTime_data()
    {
        QTest::addColumn<int>("milliseconds");
        QTest::addColumn<int>("interval");
        QTest::newRow("the least") << std::numeric_limits<int>::min() << 0;
        QTest::newRow("negative") << -1 << 0;
        QTest::newRow("none") << 0 << 0;
        QTest::newRow("the most") << std::numeric_limits<int>::max()
                                  << std::numeric_limits<int>::max();
    }

    void notificationTakesAnyTime()
    {
        QFETCH(int, milliseconds);
        QFETCH(int, interval);
        const Stage stage;
        stage.presenter->showNotification(QStringLiteral("text"), eNotificationNoFade, milliseconds,
                                          true, nullptr, nullptr);
        QTRY_VERIFY(barOf(stage.window));
        NotificationBar *const bar = barOf(stage.window);
        QCOMPARE(dataOf(bar).text, QStringLiteral("text"));
        QCOMPARE(dataOf(bar).dismissTimer->interval(), interval);
        if (interval == 0)
            QTRY_VERIFY(!stage.presenter->isNotificationShowing());
        stage.presenter->showNotification(new QWidget, eNotificationPulse, milliseconds, true,
                                          nullptr, nullptr);
        QTRY_VERIFY(dataOf(bar).control);
        QCOMPARE(dataOf(bar).dismissTimer->interval(), interval);
        QTRY_VERIFY(stage.presenter->isNotificationShowing());
    }

    void hiddenNotificationGoes()
    {
        const Stage stage;
        stage.presenter->hideNotification();
        QCoreApplication::processEvents();
        QVERIFY(!barOf(stage.window));
        stage.presenter->showNotification(QStringLiteral("busy"), eNotificationPulse, 1000, true,
                                          nullptr, nullptr);
        QTRY_VERIFY(stage.presenter->isNotificationShowing());
        stage.presenter->hideNotification();
        QVERIFY(stage.presenter->isNotificationShowing());
        QTRY_VERIFY(!stage.presenter->isNotificationShowing());
        const NotificationBarPrivate &data = dataOf(barOf(stage.window));
        QCOMPARE(data.fadeOption, eNotificationFadeOutOnly);
        QCOMPARE(data.dismissTimer->interval(), 3000);
        QVERIFY(!data.closeButtonVisible);
    }

    void clickReachesTheLatestReceiver()
    {
        const Stage stage;
        const auto show = [&stage](QObject *receiver, const char *slot) {
            stage.presenter->showNotification(QStringLiteral("click"), eNotificationNoFade, 3000,
                                              false, receiver, slot);
            QCoreApplication::processEvents();
        };
        Receiver receiver;
        show(&receiver, SLOT(click()));
        NotificationBar *const bar = barOf(stage.window);
        Q_EMIT bar->mouseClicked();
        QCOMPARE(receiver.clicks, 1);
        Receiver other;
        show(&other, SLOT(click()));
        Q_EMIT bar->mouseClicked();
        QCOMPARE(receiver.clicks + other.clicks, 2);
        QCOMPARE(other.clicks, 1);
        // A receiver without a slot is none, and the one before is dropped all the same.
        show(&receiver, nullptr);
        show(nullptr, SLOT(click()));
        Q_EMIT bar->mouseClicked();
        QCOMPARE(receiver.clicks + other.clicks, 2);
    }

    void receiverMayDieBeforeItsMessageIsShown()
    {
        const Stage stage;
        auto receiver = std::make_unique<Receiver>();
        stage.presenter->showNotification(QStringLiteral("click"), eNotificationNoFade, 3000, false,
                                          receiver.get(), SLOT(click()));
        receiver.reset();
        QTRY_VERIFY(stage.presenter->isNotificationShowing());
        Q_EMIT barOf(stage.window)->mouseClicked();
    }

    void notificationFollowsTheView()
    {
        const Stage stage;
        stage.presenter->showNotification(QStringLiteral("busy"), eNotificationPulse, 3000, false,
                                          nullptr, nullptr);
        QTRY_VERIFY(stage.presenter->isNotificationShowing());
        const NotificationBar *const bar = barOf(stage.window);
        QVERIFY(bar->isVisible());
        stage.presenter->presentViewController(stage.presented, eTransitionNone);
        QVERIFY(!bar->isVisible() && stage.presenter->isNotificationShowing());
        stage.presented->dismissViewController();
        QVERIFY(bar->isVisible());
        stage.presenter->hideNotification();
        QTRY_VERIFY(!stage.presenter->isNotificationShowing());
        stage.presenter->viewDidAppear();
        QVERIFY(!bar->isVisible());
    }

    void notificationMovesWithTheController()
    {
        const Stage stage;
        stage.presented->getView()->setViewController(nullptr);
        BaseView *const later = BaseView::getBaseViewOfQtWidget(stage.overlay);
        const auto shared = stage.presenter->shared_from_this();
        const auto show = [&shared] {
            shared->showNotification(QStringLiteral("here"), eNotificationPulse, 3000, false,
                                     nullptr, nullptr);
        };
        show();
        QTRY_VERIFY(shared->isNotificationShowing());
        shared->getView()->setDeleteOnCloseAttribute(false);
        shared->setView(later);
        QVERIFY(!shared->isNotificationShowing());
        QTRY_VERIFY(!barOf(stage.window));
        show();
        QTRY_VERIFY(shared->isNotificationShowing());
        QVERIFY(barOf(stage.overlay));
        auto *const other = new QWidget;
        later->setDeleteOnCloseAttribute(false);
        later->setQtWidget(other);
        show();
        QTRY_VERIFY(barOf(other));
        QTRY_VERIFY(!barOf(stage.overlay));
        delete other;
    }

    void clickMayEndTheView()
    {
        const Stage stage;
        stage.presenter->showNotification(QStringLiteral("close"), eNotificationNoFade, 3000, false,
                                          stage.window, SLOT(close()));
        QTRY_VERIFY(stage.presenter->isNotificationShowing());
        QTest::mouseClick(barOf(stage.window), Qt::LeftButton);
        QTRY_VERIFY(!stage.window);
        QVERIFY(!stage.presenter);
    }

    void clickMayEndTheController()
    {
        const Stage stage;
        Receiver receiver;
        stage.presenter->showNotification(QStringLiteral("end"), eNotificationNoFade, 3000, false,
                                          &receiver, SLOT(click()));
        QTRY_VERIFY(stage.presenter->isNotificationShowing());
        const QPointer<NotificationBar> bar = barOf(stage.window);
        bool outlivedItsClick = false;
        receiver.clicked = [&] {
            stage.presenter->getView()->setViewController(nullptr);
            outlivedItsClick = bar;
        };
        QTest::mouseClick(bar, Qt::LeftButton);
        QVERIFY(outlivedItsClick && !stage.presenter);
        QTRY_VERIFY(!bar);
    }

    void notificationsOfThreadsOutliveTheirViews()
    {
        std::atomic<int> rounds {0};
        std::atomic<bool> stop {false};
        const auto controller = std::make_shared<BaseViewController>(nullptr);
        const auto work = [&] {
            while (!stop) {
                controller->showNotification(QStringLiteral("working"), eNotificationPulse, 10,
                                             true, nullptr, nullptr);
                controller->hideNotification();
                ++rounds;
                std::this_thread::yield();
            }
        };
        std::thread first(work);
        std::thread second(work);
        for (int i = 0; i < 20; ++i) {
            auto *const view = new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags());
            controller->setView(view);
            view->show();
            const int before = rounds;
            while (rounds < before + 10)
                QCoreApplication::processEvents();
            delete view->getQtWidget();
        }
        stop = true;
        first.join();
        second.join();
        QCoreApplication::processEvents();
        QVERIFY(!controller->isNotificationShowing());
    }

    void notificationOfADeadControllerIsDropped()
    {
        auto *const controller = new BaseViewController;
        std::thread([controller] {
            controller->showNotification(QStringLiteral("late"), eNotificationPulse, 3000, true,
                                         nullptr, nullptr);
            controller->hideNotification();
        }).join();
        delete controller->getQtWidget();
        QCoreApplication::processEvents();
    }

    void chainOfPresentationsUnwinds()
    {
        const Stage stage;
        const QPointer<RecordingController> third = new RecordingController;
        stage.presenter->presentViewController(stage.presented, eTransitionFromLeft);
        stage.presented->presentViewController(third, eTransitionFromLeft);
        stage.window->resize(222, 111);
        QCOMPARE(third->getQtWidget()->size(), QSize(222, 111));
        QVERIFY(third->dismissViewController());
        QVERIFY(stage.presented->dismissViewController());
        QTRY_VERIFY(!third && !stage.presented);
        QVERIFY(stage.presenter->isVisible());
    }
};

LUMO_TEST_MAIN(TestBaseViewController)
#include "tst_baseviewcontroller.moc"
