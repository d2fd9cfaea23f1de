// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/BaseView>
#include <ui_base/BaseViewController>
#include <ui_base/CmdsViewController>

#include "recordingcontroller.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_app_service/ApplicationService>

#include <QCloseEvent>
#include <QCursor>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWidget>

#include <stdexcept>
#include <type_traits>
#include <utility>

using Lumo::Test::EventLog;
using Lumo::Test::RecordingController;
using Vela::Services::ApplicationService;
using Vela::UiBase::BaseView;
using Vela::UiBase::BaseViewController;
using Vela::UiBase::CmdsViewController;

namespace {

/// Records the hooks of a view and the key releases that are sent to the view itself.
class RecordingView : public BaseView
{
public:
    explicit RecordingView(const EventLog &log, QWidget *parent = nullptr)
        : BaseView(parent, Qt::WindowFlags())
        , m_log(log)
    { }

    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::KeyRelease) {
            auto *const key = static_cast<QKeyEvent *>(event);
            m_log.add(QStringLiteral("released %1 %2 '%3' %4 %5")
                          .arg(key->key())
                          .arg(int(key->QInputEvent::modifiers()))
                          .arg(key->text())
                          .arg(key->isAutoRepeat())
                          .arg(key->count()));
        }
        return BaseView::event(event);
    }

    bool refusesClose = false;

protected:
    void showEvent(QShowEvent *event) override
    {
        m_log.add(QStringLiteral("showEvent"));
        BaseView::showEvent(event);
    }
    void hideEvent(QHideEvent *event) override
    {
        m_log.add(QStringLiteral("hideEvent"));
        BaseView::hideEvent(event);
    }
    void closeEvent(QCloseEvent *event) override
    {
        m_log.add(QStringLiteral("closeEvent"));
        event->ignore();
        if (!refusesClose)
            BaseView::closeEvent(event);
    }
    void resizeEvent(QResizeEvent *) override { m_log.add(QStringLiteral("resizeEvent")); }
    void moveEvent(QMoveEvent *) override { m_log.add(QStringLiteral("moveEvent")); }
    void winIdChangeEvent(QEvent *) override { m_log.add(QStringLiteral("winIdChangeEvent")); }
    void paintEvent(QPaintEvent *) override { m_log.add(QStringLiteral("paintEvent")); }
    void enterEvent(QEvent *) override { m_log.add(QStringLiteral("enterEvent")); }
    void leaveEvent(QEvent *) override { m_log.add(QStringLiteral("leaveEvent")); }

private:
    EventLog m_log;
};

/// A widget that counts the events which reach it.
class CountingWidget : public QWidget
{
public:
    int countOf(QEvent::Type type) const { return m_counts.value(type); }

protected:
    bool event(QEvent *event) override
    {
        ++m_counts[event->type()];
        return QWidget::event(event);
    }

private:
    QHash<int, int> m_counts;
};

/// A view in a window of its own with a recording controller, which share one log.
class Scene
{
public:
    Scene()
        : controller(new RecordingController(nullptr))
        , view(new RecordingView(controller->log))
    {
        view->setViewController(controller);
        window = view->getQtWidget();
    }
    ~Scene() { delete window.data(); }

    bool send(QEvent::Type type, Qt::MouseButtons buttons = Qt::NoButton) const
    {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), button, buttons, Qt::NoModifier);
        return view->eventFilter(window, &event);
    }
    bool sendKey(QEvent::Type type, int key) const
    {
        QKeyEvent event(type, key, Qt::NoModifier);
        return view->eventFilter(window, &event);
    }
    QStringList calls() const { return controller->log.take(); }
    int countOf(const char *call) const
    {
        return controller->log.events().count(QString::fromLatin1(call));
    }

    QPointer<RecordingController> controller;
    QPointer<RecordingView> view;
    QPointer<QWidget> window;
};

Qt::WindowStates minimized()
{
    return Qt::WindowMinimized;
}

void minimize(BaseView *view)
{
    view->appWindowStateChanged(Qt::WindowNoState, minimized());
}

void restore(BaseView *view)
{
    view->appWindowStateChanged(minimized(), Qt::WindowNoState);
}

void deactivateApplication()
{
    QEvent event(QEvent::ApplicationDeactivate);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &event);
}

BaseView *makeView(QWidget *parent = nullptr)
{
    return new BaseView(parent, Qt::WindowFlags());
}

template<typename Object, typename = void>
struct IsReparentable : std::false_type
{ };
template<typename Object>
struct IsReparentable<
    Object,
    std::void_t<decltype(std::declval<Object &>().setParent(static_cast<QObject *>(nullptr)))>>
    : std::true_type
{ };

} // namespace

// A view goes where its widget goes.
static_assert(IsReparentable<QObject>::value && !IsReparentable<BaseView>::value);

class TestBaseView : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void widgetOwnsTheView()
    {
        const QPointer<BaseView> view = makeView();
        QCOMPARE(view->parent(), view->getQtWidget());
        QVERIFY(view->getQtWidget()->testAttribute(Qt::WA_DeleteOnClose));
        view->getQtWidget()->close();
        QTRY_VERIFY(!view);
    }

    void widgetHasTheParentAndFlagsAskedFor()
    {
        QWidget parent;
        const BaseView *const view = new BaseView(&parent, Qt::Tool);
        QCOMPARE(view->getQtWidget()->parentWidget(), &parent);
        QCOMPARE(view->getQtWidget()->windowType(), Qt::Tool);
        const BaseView *const child =
            new BaseView(BaseView::getBaseViewOfQtWidget(view->getQtWidget()), Qt::WindowFlags());
        QCOMPARE(child->getQtWidget()->parentWidget(), view->getQtWidget());
    }

    void viewWithoutParentViewIsAWindow()
    {
        const BaseView *const view = new BaseView(static_cast<BaseView *>(nullptr), Qt::Window);
        QVERIFY(view->getQtWidget()->isWindow());
        delete view->getQtWidget();
    }

    void viewIsFoundByItsOwnWidgetOnly()
    {
        const BaseView *const view = makeView();
        QWidget *const child = new QWidget(view->getQtWidget());
        const BaseView *const inner = makeView(child);
        QCOMPARE(BaseView::getBaseViewOfQtWidget(view->getQtWidget()), view);
        QCOMPARE(BaseView::getBaseViewOfQtWidget(inner->getQtWidget()), inner);
        QCOMPARE(BaseView::getBaseViewOfQtWidget(child), nullptr);
        QCOMPARE(BaseView::getBaseViewOfQtWidget(nullptr), nullptr);
        delete view->getQtWidget();
    }

    void viewOwnsItsController()
    {
        BaseView *const view = makeView();
        const QPointer<BaseViewController> controller = new BaseViewController(view);
        QCOMPARE(view->getViewController(), controller.data());
        QCOMPARE(controller->getView(), view);
        QCOMPARE(controller->getQtWidget(), view->getQtWidget());
        QCOMPARE(controller->weak_from_this().use_count(), 1L);
        delete view->getQtWidget();
        QVERIFY(!controller);
    }

    void sharedControllerOutlivesItsView()
    {
        BaseView *const view = makeView();
        const auto controller = std::make_shared<BaseViewController>(nullptr);
        controller->setView(view);
        QCOMPARE(view->getViewController(), controller.get());
        delete view->getQtWidget();
        QCOMPARE(controller->getView(), nullptr);
        QCOMPARE(controller->getQtWidget(), nullptr);
    }

    void controllerMakesItsOwnView()
    {
        const QPointer<BaseViewController> controller = new BaseViewController;
        QVERIFY(controller->getQtWidget()->isWindow());
        delete controller->getQtWidget();
        QVERIFY(!controller);
    }

    void movedControllerClosesItsEarlierView()
    {
        const QPointer<BaseView> earlier = makeView();
        BaseView *const later = makeView();
        const QPointer<BaseViewController> controller = new BaseViewController(earlier);
        controller->setView(nullptr);
        QCOMPARE(controller->getView(), earlier.data());
        controller->setView(later);
        QTRY_VERIFY(!earlier);
        QVERIFY(controller);
        QCOMPARE(controller->getView(), later);
        delete later->getQtWidget();
        QVERIFY(!controller);
    }

    void viewLetsGoOfItsController()
    {
        BaseView *const view = makeView();
        const QPointer<BaseViewController> controller = new BaseViewController(view);
        view->setViewController(controller);
        QCOMPARE(controller->weak_from_this().use_count(), 1L);
        view->setViewController(nullptr);
        QVERIFY(!controller);
        QCOMPARE(view->getViewController(), nullptr);
        delete view->getQtWidget();
    }

    void commandsControllerHasOneOwnerCount()
    {
        BaseView *const view = makeView();
        auto *const controller = new CmdsViewController(view);
        const std::shared_ptr<CmdsViewController> shared = controller->shared_from_this();
        const auto manager = controller->CmdMgr::shared_from_this();
        QCOMPARE(shared.get(), controller);
        QCOMPARE(manager.get(), controller);
        QCOMPARE(shared.use_count(), 3L);
        delete view->getQtWidget();
        QCOMPARE(shared.use_count(), 2L);
    }

    void replacedControllerHasNoViewAndHearsOfNoShow()
    {
        BaseView *const view = makeView();
        const auto former = std::make_shared<RecordingController>(nullptr);
        former->setView(view);
        auto *const later = new RecordingController(view);
        QCOMPARE(former->getView(), nullptr);
        view->show();
        QTRY_VERIFY(later->log.events().contains(QStringLiteral("viewDidAppear")));
        QCOMPARE(former->log.events(), QStringList());
        former->setView(view);
        QCOMPARE(view->getViewController(), former.get());
        delete view->getQtWidget();
    }

    void vetoOfAMovedControllerDoesNotKeepItsEarlierViewOpen()
    {
        Scene scene;
        scene.view->show();
        scene.controller->agreesToClose = false;
        scene.calls();
        BaseView *const later = makeView();
        later->setViewController(scene.controller);
        QVERIFY(!scene.window->isVisible());
        QCOMPARE(scene.view->getViewController(), nullptr);
        QVERIFY(scene.calls().startsWith(QStringLiteral("closeEvent")));
        QTRY_VERIFY(!scene.window);
        QCOMPARE(later->getViewController(), scene.controller.data());
        delete later->getQtWidget();
        QVERIFY(!scene.controller);
    }

    void controllerGivenToAnEarlierViewWhileItClosesStaysThere()
    {
        const Scene scene;
        scene.view->setDeleteOnCloseAttribute(false);
        const QPointer<RecordingController> successor = new RecordingController(nullptr);
        scene.controller->onCall[QStringLiteral("viewWillClose")] = [&] {
            scene.view->setViewController(successor);
        };
        BaseView *const later = makeView();
        later->setViewController(scene.controller);
        QCOMPARE(later->getViewController(), scene.controller.data());
        QVERIFY(successor);
        QCOMPARE(scene.view->getViewController(), successor.data());
        delete later->getQtWidget();
    }

    void controllerThatMovesAgainOnItsWayStaysWhereItWentLast()
    {
        const Scene scene;
        BaseView *const later = makeView();
        BaseView *const latest = makeView();
        scene.controller->onCall[QStringLiteral("viewWillClose")] = [&] {
            latest->setViewController(scene.controller);
        };
        later->setViewController(scene.controller);
        QCOMPARE(scene.controller->getView(), latest);
        QCOMPARE(latest->getViewController(), scene.controller.data());
        QCOMPARE(later->getViewController(), nullptr);
        delete later->getQtWidget();
        QVERIFY(scene.controller);
        delete latest->getQtWidget();
        QVERIFY(!scene.controller);
    }

    void vetoOfALaterControllerCountsAgain()
    {
        const Scene scene;
        scene.view->refusesClose = true;
        scene.view->show();
        BaseView *const later = makeView();
        later->setViewController(scene.controller);
        scene.view->refusesClose = false;
        auto *const successor = new RecordingController(scene.view);
        successor->agreesToClose = false;
        QVERIFY(!scene.view->close());
        delete later->getQtWidget();
    }

    void earlierViewThatStaysOpenNoLongerDrivesAMovedController()
    {
        Scene scene;
        scene.view->refusesClose = true;
        scene.view->show();
        QTRY_COMPARE(scene.countOf("viewDidAppear"), 1);
        BaseView *const later = makeView();
        later->setViewController(scene.controller);
        scene.view->hide();
        scene.calls();
        scene.view->show();
        scene.send(QEvent::MouseButtonPress, Qt::LeftButton);
        QCoreApplication::processEvents();
        QCOMPARE(scene.countOf("mousePress") + scene.countOf("viewDidAppear"), 0);
        delete later->getQtWidget();
    }

    void viewOfADyingControllerIsNotThereForItsDestructor()
    {
        struct Leaving : BaseViewController
        {
            Leaving(BaseView *view, bool *sawView)
                : BaseViewController(view)
                , m_view(view)
                , m_sawView(sawView)
            { }
            ~Leaving() override
            {
                *m_sawView = getView() || getQtWidget() || m_view->getQtWidget();
            }

            BaseView *m_view;
            bool *m_sawView;
        };
        bool sawView = true;
        BaseView *const view = makeView();
        new Leaving(view, &sawView);
        delete view->getQtWidget();
        QVERIFY(!sawView);
    }

    void viewDeletedBeforeItsWidgetLeavesAPlainWidget()
    {
        QWidget parent;
        auto *const view = new BaseView(&parent, Qt::WindowFlags());
        const QPointer<RecordingController> controller = new RecordingController(view);
        QWidget *const widget = view->getQtWidget();
        // Watches the application with it.
        const Scene another;
        delete view;
        QVERIFY(!controller);
        QTest::mouseClick(widget, Qt::LeftButton);
        deactivateApplication();
        QCOMPARE(BaseView::getBaseViewOfQtWidget(widget), nullptr);
    }

    void forwardersReachTheWidget()
    {
        const Scene scene;
        BaseView &view = *scene.view;
        QWidget &widget = *scene.window;
        QCOMPARE(view.operator->(), &widget);
        view.resize({120, 80});
        QCOMPARE(widget.size(), QSize(120, 80));
        view.setGeometry({10, 20, 200, 100});
        QCOMPARE(widget.geometry(), QRect(10, 20, 200, 100));
        QCOMPARE(&view.getGeometry(), &widget.geometry());
        QCOMPARE(view.getRect(), QRect(0, 0, 200, 100));
        QCOMPARE(view.getSize(), QSize(200, 100));
        QCOMPARE(view.getWidth(), 200);
        QCOMPARE(view.getHeight(), 100);
        view.setFocusPolicy(Qt::WheelFocus);
        QCOMPARE(widget.focusPolicy(), Qt::WheelFocus);
        view.setAcceptDrops(true);
        QVERIFY(widget.acceptDrops());
        view.setMouseTracking(true);
        QVERIFY(widget.hasMouseTracking());
        view.setAttribute(Qt::WA_NoSystemBackground);
        QVERIFY(widget.testAttribute(Qt::WA_NoSystemBackground));
        QVERIFY(view.testAttribute(Qt::WA_NoSystemBackground));
        view.setAutoFillBackground(true);
        QVERIFY(widget.autoFillBackground() && view.getAutoFillBackground());
        view.setCursor(Qt::CrossCursor);
        QCOMPARE(widget.cursor().shape(), Qt::CrossCursor);
        QCOMPARE(view.getCursor().shape(), Qt::CrossCursor);
        view.unsetCursor();
        QCOMPARE(widget.cursor().shape(), Qt::ArrowCursor);
        view.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Minimum);
        QCOMPARE(widget.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Minimum));
        widget.setMask(QRegion(0, 0, 7, 7));
        QCOMPARE(view.getMask(), QRegion(0, 0, 7, 7));
        QCOMPARE(view.mapToGlobal({1, 2}), widget.mapToGlobal({1, 2}));
        QCOMPARE(view.mapFromGlobal({50, 60}), widget.mapFromGlobal({50, 60}));
    }

    void layoutIsHandedToTheWidget()
    {
        const Scene scene;
        auto *const layout = new QVBoxLayout;
        layout->addWidget(new QWidget);
        scene.view->setLayout(layout);
        scene.view->setLayout(nullptr);
        QCOMPARE(scene.window->layout(), layout);
        QCOMPARE(scene.view->getLayout(), layout);
        layout->itemAt(0)->widget()->setFixedSize(300, 40);
        scene.view->adjustSize();
        QVERIFY(scene.window->width() >= 300);
    }

    void forwardersShowHideFocusAndClose()
    {
        const Scene scene;
        QWidget *const sibling = new QWidget(scene.window);
        scene.view->show();
        BaseView *const inner = makeView(scene.window);
        QVERIFY(inner->isHidden());
        inner->show();
        QVERIFY(scene.view->isVisible() && inner->isVisible() && !inner->isHidden());
        scene.window->activateWindow();
        QTRY_VERIFY(QApplication::activeWindow() == scene.window);
        inner->clearFocus();
        QVERIFY(!inner->getQtWidget()->hasFocus());
        inner->setFocus();
        QVERIFY(inner->getQtWidget()->hasFocus());
        sibling->raise();
        inner->raise();
        QCOMPARE(scene.window->children().last(), inner->getQtWidget());
        QVERIFY(inner->getEffectiveWinId() == scene.window->effectiveWinId());
        QCOMPARE(scene.view->getWinId(), scene.window->winId());
        inner->hide();
        QVERIFY(inner->isHidden() && !inner->isVisible());
        QVERIFY(scene.view->close());
        QVERIFY(!scene.window->isVisible());
    }

    void updateRepaints()
    {
        const Scene scene;
        scene.view->show();
        QTRY_VERIFY(scene.countOf("paintEvent") > 0);
        QCoreApplication::processEvents();
        scene.calls();
        scene.view->update();
        QTRY_VERIFY(scene.countOf("paintEvent") > 0);
    }

    void viewWhoseWidgetHasGoneAnswersAsAClosedOne()
    {
        auto *const view = new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags());
        const std::unique_ptr<BaseView> owner(view);
        QWidget *const widget = view->getQtWidget();
        static_cast<QObject *>(view)->setParent(nullptr);
        new RecordingController(view);
        delete widget;
        QCOMPARE(view->getQtWidget(), nullptr);
        QCOMPARE(view->operator->(), nullptr);
        QVERIFY(view->isHidden() && !view->isVisible() && view->close());
        QCOMPARE(view->getGeometry(), QRect());
        QCOMPARE(view->getSize(), QSize(0, 0));
        QCOMPARE(view->getWidth() + view->getHeight(), 0);
        QVERIFY(!view->getLayout() && view->getMask().isEmpty());
        QVERIFY(!view->getWinId() && !view->getEffectiveWinId());
        QVERIFY(!view->testAttribute(Qt::WA_DeleteOnClose) && !view->getAutoFillBackground());
        QCOMPARE(view->getCursor().shape(), Qt::ArrowCursor);
        QCOMPARE(view->mapToGlobal({3, 4}), QPoint(3, 4));
        QCOMPARE(view->mapFromGlobal({3, 4}), QPoint(3, 4));
        QVBoxLayout layout;
        view->setLayout(&layout);
        touchEverything(*view);
        QCOMPARE(view->getViewController()->getQtWidget(), nullptr);
    }

    void parentViewBecomesTheParent()
    {
        const Scene outer;
        Scene inner;
        inner.view->setParentView(outer.view);
        QCOMPARE(inner.window->parentWidget(), outer.window.data());
        outer.view->setParentView(inner.view);
        QCOMPARE(outer.window->parentWidget(), nullptr);
        inner.view->setParentView(inner.view);
        QCOMPARE(inner.window->parentWidget(), outer.window.data());
        inner.view->setParentView(nullptr);
        QVERIFY(inner.window->isWindow());
    }

    void deleteOnCloseReachesEveryWidgetBelow()
    {
        const Scene scene;
        auto *const child = new QWidget(scene.window);
        auto *const object = new QObject(child);
        auto *const grandchild = new QWidget(child);
        scene.view->setDeleteOnCloseAttribute(true);
        Q_UNUSED(object)
        QVERIFY(child->testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(grandchild->testAttribute(Qt::WA_DeleteOnClose));
        scene.view->setDeleteOnCloseAttribute(false);
        QVERIFY(!scene.window->testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(!child->testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(!grandchild->testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(scene.view->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(scene.view);
    }

    void viewMovesToAnotherWidget()
    {
        QWidget parent;
        const EventLog log;
        auto *const view = new RecordingView(log, &parent);
        const QPointer<RecordingController> controller = new RecordingController(view);
        const QPointer<QWidget> earlier = view->getQtWidget();
        auto *const later = new QWidget;
        controller->agreesToClose = false;
        view->setQtWidget(later);
        QTRY_VERIFY(!earlier);
        QCOMPARE(view->getQtWidget(), later);
        QCOMPARE(view->parent(), later);
        QCOMPARE(later->parentWidget(), &parent);
        QVERIFY(later->testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(controller->log.events().contains(QStringLiteral("viewWillClose")));
        controller->log.take();
        QTest::mousePress(later, Qt::LeftButton);
        QCOMPARE(controller->log.take(), QStringList(QStringLiteral("mousePress")));
    }

    void earlierWidgetThatStaysIsNotHeardAnyMore()
    {
        QWidget parent;
        const EventLog log;
        auto *const view = new RecordingView(log, &parent);
        view->setDeleteOnCloseAttribute(false);
        QWidget *const earlier = view->getQtWidget();
        auto *const later = new QWidget;
        view->setQtWidget(later);
        auto *const controller = new RecordingController(view);
        QTest::mousePress(earlier, Qt::LeftButton);
        QCOMPARE(controller->log.take(), QStringList());
        view->setQtWidget(nullptr);
        view->setQtWidget(later);
        view->setQtWidget(&parent);
        QCOMPARE(view->getQtWidget(), later);
    }

    void widgetGivenWhileTheEarlierClosesIsTheOneThatStays()
    {
        const EventLog log;
        auto *const view = new RecordingView(log);
        const QPointer<RecordingController> controller = new RecordingController(view);
        const QPointer<QWidget> earlier = view->getQtWidget();
        QWidget later;
        auto *const latest = new QWidget;
        controller->agreesToClose = false;
        controller->onCall[QStringLiteral("viewWillClose")] = [&] {
            controller->onCall.clear();
            view->setQtWidget(latest);
        };
        view->setQtWidget(&later);
        QCOMPARE(view->getQtWidget(), latest);
        QCOMPARE(view->parent(), latest);
        QTRY_VERIFY(!earlier);
        delete latest;
        QVERIFY(!controller);
    }

    void newWidgetMayDieWhileTheEarlierCloses()
    {
        const EventLog log;
        const QPointer<RecordingView> view = new RecordingView(log);
        auto *const controller = new RecordingController(view);
        const QPointer<QWidget> earlier = view->getQtWidget();
        auto *const later = new QWidget;
        controller->onCall[QStringLiteral("viewWillClose")] = [&] { delete later; };
        view->setQtWidget(later);
        QVERIFY(!view);
        QTRY_VERIFY(!earlier);
    }

    void viewMayEndWhileItMovesToAnotherWidget()
    {
        const EventLog log;
        const QPointer<RecordingView> view = new RecordingView(log);
        auto *const controller = new RecordingController(view);
        const QPointer<QWidget> earlier = view->getQtWidget();
        QWidget later;
        controller->onCall[QStringLiteral("viewWillClose")] = [&] { delete view.data(); };
        view->setQtWidget(&later);
        QVERIFY(!view);
        QTRY_VERIFY(!earlier);
    }

    void viewCanMoveIntoAWidgetBelowItsOwn()
    {
        Scene scene;
        auto *const below = new QWidget(scene.window);
        scene.view->setQtWidget(below);
        QTRY_VERIFY(!scene.window);
        QVERIFY(scene.view && scene.controller);
        QVERIFY(below->isWindow());
        delete below;
        QVERIFY(!scene.view);
    }

    void eachEventReachesHookAndControllerOnce_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("calls");
        const auto row = [](QEvent::Type type, const char *name, const QStringList &calls) {
            QTest::newRow(name) << int(type) << calls;
        };
        const auto names = [](const char *hook, const char *call) {
            return QStringList {QString::fromLatin1(hook), QString::fromLatin1(call)};
        };
        row(QEvent::Enter, "enter", names("enterEvent", "mouseEnter"));
        row(QEvent::Leave, "leave", names("leaveEvent", "mouseLeave"));
        row(QEvent::WinIdChange, "window id", {QStringLiteral("winIdChangeEvent")});
        row(QEvent::PaletteChange, "an event of no concern", {});
    }

    void eachEventReachesHookAndControllerOnce()
    {
        QFETCH(int, type);
        QFETCH(QStringList, calls);
        const Scene scene;
        scene.controller->consumes = true;
        QEvent event = QEvent(QEvent::Type(type));
        QVERIFY(!scene.view->eventFilter(scene.window, &event));
        QCOMPARE(scene.calls(), calls);
        QCoreApplication::sendEvent(scene.window, &event);
        QCOMPARE(scene.calls(), calls);
        // Not of this view's widget.
        QWidget other;
        QVERIFY(!scene.view->eventFilter(&other, &event));
        QVERIFY(!scene.view->eventFilter(nullptr, &event));
        QCOMPARE(scene.calls(), QStringList());
    }

    void movesAndResizesAreToldOnce()
    {
        QWidget parent;
        const EventLog log;
        auto *const view = new RecordingView(log, &parent);
        auto *const controller = new RecordingController(view);
        view->show();
        parent.show();
        EventLog(log).take();
        controller->log.take();
        view->setGeometry({11, 12, 213, 114});
        QCOMPARE(EventLog(log).take().mid(0, 2),
                 QStringList({QStringLiteral("moveEvent"), QStringLiteral("resizeEvent")}));
        QCOMPARE(controller->log.take(),
                 QStringList({QStringLiteral("viewDidMove"), QStringLiteral("viewDidResize")}));
    }

    void consumedInputDoesNotReachTheWidget_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("call");
        const auto row = [](QEvent::Type type, const char *call) {
            QTest::newRow(call) << int(type) << QString::fromLatin1(call);
        };
        row(QEvent::MouseButtonPress, "mousePress");
        row(QEvent::MouseButtonRelease, "mouseRelease");
        row(QEvent::MouseButtonDblClick, "mouseDoubleClick");
        row(QEvent::MouseMove, "mouseMove");
        row(QEvent::Wheel, "mouseWheel");
        row(QEvent::KeyPress, "keyPress");
        row(QEvent::KeyRelease, "keyRelease");
        row(QEvent::DragEnter, "mouseDragEnter");
        row(QEvent::DragMove, "mouseDragMove");
        row(QEvent::DragLeave, "mouseDragLeave");
        row(QEvent::Drop, "mouseDrop");
    }

    void consumedInputDoesNotReachTheWidget()
    {
        QFETCH(int, type);
        QFETCH(QString, call);
        const EventLog log;
        auto *const view = new RecordingView(log);
        auto *const widget = new CountingWidget;
        widget->setAcceptDrops(true);
        view->setQtWidget(widget);
        auto *const controller = new RecordingController(view);
        sendInput(widget, QEvent::Type(type));
        QCOMPARE(controller->log.take(), QStringList(call));
        QCOMPARE(widget->countOf(QEvent::Type(type)), 1);
        controller->consumes = true;
        sendInput(widget, QEvent::Type(type));
        QCOMPARE(controller->log.take(), QStringList(call));
        QCOMPARE(widget->countOf(QEvent::Type(type)), 1);
        view->setViewController(nullptr);
        sendInput(widget, QEvent::Type(type));
        QCOMPARE(widget->countOf(QEvent::Type(type)), 2);
        delete widget;
    }

    void doubleClickHasNoRelease()
    {
        const Scene scene;
        scene.send(QEvent::MouseButtonPress, Qt::LeftButton);
        scene.send(QEvent::MouseButtonRelease);
        scene.send(QEvent::MouseButtonDblClick, Qt::LeftButton);
        scene.controller->consumes = true;
        QVERIFY(!scene.send(QEvent::MouseButtonRelease));
        QCOMPARE(scene.calls(),
                 QStringList({QStringLiteral("mousePress"), QStringLiteral("mouseRelease"),
                              QStringLiteral("mouseDoubleClick")}));
        scene.send(QEvent::MouseButtonPress, Qt::LeftButton);
        scene.send(QEvent::MouseButtonRelease);
        QCOMPARE(scene.calls(),
                 QStringList({QStringLiteral("mousePress"), QStringLiteral("mouseRelease")}));
    }

    void doubleClickAfterADragIsNone()
    {
        const Scene scene;
        scene.send(QEvent::MouseButtonPress, Qt::LeftButton);
        scene.send(QEvent::MouseMove, Qt::LeftButton);
        scene.controller->consumes = true;
        scene.calls();
        QVERIFY(!scene.send(QEvent::MouseButtonDblClick, Qt::LeftButton));
        QVERIFY(scene.send(QEvent::MouseButtonRelease));
        QCOMPARE(scene.calls(), QStringList(QStringLiteral("mouseRelease")));
    }

    void moveBetweenTheClicksDoesNotMatter()
    {
        const Scene scene;
        scene.send(QEvent::MouseButtonPress, Qt::LeftButton);
        scene.send(QEvent::MouseMove, Qt::LeftButton);
        scene.send(QEvent::MouseButtonRelease);
        scene.send(QEvent::MouseMove);
        scene.calls();
        scene.send(QEvent::MouseButtonDblClick, Qt::LeftButton);
        QCOMPARE(scene.calls(), QStringList(QStringLiteral("mouseDoubleClick")));
    }

    void pressForgetsTheDragBeforeIt()
    {
        const Scene scene;
        scene.send(QEvent::MouseButtonPress, Qt::LeftButton);
        scene.send(QEvent::MouseMove, Qt::LeftButton);
        scene.send(QEvent::MouseButtonRelease);
        scene.send(QEvent::MouseButtonPress, Qt::LeftButton);
        scene.calls();
        scene.send(QEvent::MouseButtonDblClick, Qt::LeftButton);
        QCOMPARE(scene.calls(), QStringList(QStringLiteral("mouseDoubleClick")));
    }

    void pressDuringADoubleClickIsSwallowed()
    {
        const Scene scene;
        scene.controller->consumes = true;
        scene.send(QEvent::MouseButtonDblClick, Qt::LeftButton);
        scene.calls();
        QVERIFY(!scene.send(QEvent::MouseButtonPress, Qt::LeftButton));
        QCOMPARE(scene.calls(), QStringList());
        // It was a press all the same: a drag follows from it.
        scene.send(QEvent::MouseMove, Qt::LeftButton);
        QVERIFY(!scene.send(QEvent::MouseButtonDblClick, Qt::LeftButton));
    }

    void leavingTheApplicationWithAltReleasesTheKeyOnTheView()
    {
        const Scene scene;
        scene.sendKey(QEvent::KeyPress, Qt::Key_Alt);
        scene.calls();
        deactivateApplication();
        QCOMPARE(scene.calls(), QStringList());
        QCoreApplication::processEvents();
        const QStringList released {QStringLiteral("released 16777251 0 '' 0 1")};
        QCOMPARE(scene.calls(), released);
        deactivateApplication();
        QCoreApplication::processEvents();
        QCOMPARE(scene.calls(), released);
        scene.sendKey(QEvent::KeyRelease, Qt::Key_Alt);
        scene.calls();
        deactivateApplication();
        QCoreApplication::processEvents();
        QCOMPARE(scene.calls(), QStringList());
    }

    void leavingTheApplicationWithAnotherKeyReleasesNothing()
    {
        const Scene scene;
        scene.sendKey(QEvent::KeyPress, Qt::Key_Alt);
        scene.sendKey(QEvent::KeyPress, Qt::Key_Tab);
        scene.calls();
        deactivateApplication();
        QEvent activation(QEvent::ApplicationActivate);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &activation);
        QCoreApplication::processEvents();
        QCOMPARE(scene.calls(), QStringList());
    }

    void viewsHearOfNothingButTheDeactivation()
    {
        class Listening : public BaseView
        {
        public:
            Listening()
                : BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags())
            { }
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                if (watched != getQtWidget())
                    heard << int(event->type());
                return BaseView::eventFilter(watched, event);
            }
            QVector<int> heard;
        };
        auto *const view = new Listening;
        QEvent activation(QEvent::ApplicationActivate);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &activation);
        deactivateApplication();
        QObject other;
        QEvent foreign(QEvent::ApplicationDeactivate);
        QCoreApplication::sendEvent(&other, &foreign);
        QCOMPARE(view->heard, QVector<int>({int(QEvent::ApplicationDeactivate)}));
        delete view->getQtWidget();
    }

    void viewsMayGoWhileTheyHearOfTheDeactivation()
    {
        class Closing : public BaseView
        {
        public:
            Closing()
                : BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags())
            { }
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                if (event->type() != QEvent::ApplicationDeactivate)
                    return BaseView::eventFilter(watched, event);
                for (const QPointer<QWidget> &widget : victims)
                    delete widget.data();
                return false;
            }
            QVector<QPointer<QWidget>> victims;
        };
        const QPointer<Closing> first = new Closing;
        const QPointer<Closing> second = new Closing;
        first->victims = {second->getQtWidget(), first->getQtWidget()};
        deactivateApplication();
        QVERIFY(!first && !second);
        const Scene scene;
        scene.sendKey(QEvent::KeyPress, Qt::Key_Alt);
        deactivateApplication();
        QCoreApplication::processEvents();
        QCOMPARE(scene.calls().size(), 2);
    }

    void showLoadsOnceAndAppearsOnTheNextTurn()
    {
        const Scene scene;
        connect(scene.view, &BaseView::viewShown, this,
                [&] { scene.controller->log.add(QStringLiteral("viewShown")); });
        scene.view->setAcceptDrops(false);
        scene.view->show();
        QStringList calls = scene.calls();
        calls = calls.mid(calls.indexOf(QStringLiteral("showEvent")));
        QCOMPARE(calls.mid(0, 4),
                 QStringList({QStringLiteral("showEvent"), QStringLiteral("viewDidLoad"),
                              QStringLiteral("viewWillAppear"), QStringLiteral("viewShown")}));
        QCOMPARE(calls.count(QStringLiteral("viewShown")), 1);
        QVERIFY(scene.window->hasMouseTracking() && scene.window->acceptDrops());
        QCOMPARE(scene.window->focusWidget(), scene.window.data());
        QTRY_COMPARE(scene.countOf("viewDidAppear"), 1);
        scene.view->hide();
        scene.calls();
        scene.view->show();
        QTRY_COMPARE(scene.countOf("viewDidAppear"), 1);
        QCOMPARE(scene.countOf("viewDidLoad"), 0);
    }

    void hideTakesFocusTrackingAndDropsAway()
    {
        const Scene scene;
        scene.view->show();
        scene.calls();
        scene.view->hide();
        QCOMPARE(scene.calls().mid(0, 2),
                 QStringList({QStringLiteral("hideEvent"), QStringLiteral("viewWillDisappear")}));
        QVERIFY(!scene.window->hasMouseTracking() && !scene.window->acceptDrops());
        QVERIFY(!scene.window->focusWidget());
    }

    void controllerCanRefuseTheClose()
    {
        const Scene scene;
        scene.view->show();
        scene.calls();
        scene.controller->agreesToClose = false;
        QVERIFY(!scene.view->close());
        QCOMPARE(scene.calls().mid(0, 2),
                 QStringList({QStringLiteral("closeEvent"), QStringLiteral("viewWillClose")}));
        QVERIFY(scene.view->isVisible());
        QCloseEvent event;
        QVERIFY(scene.view->eventFilter(scene.window, &event));
        QVERIFY(!event.isAccepted());
        scene.controller->agreesToClose = true;
        QVERIFY(!scene.view->eventFilter(scene.window, &event) || event.isAccepted());
        QVERIFY(scene.view->close());
        QTRY_VERIFY(!scene.window);
        QVERIFY(!scene.controller);
    }

    void viewCanRefuseTheCloseAndThenTheControllerIsNotAsked()
    {
        const Scene scene;
        scene.view->refusesClose = true;
        QCloseEvent event;
        QVERIFY(scene.view->eventFilter(scene.window, &event));
        QVERIFY(!event.isAccepted());
        QCOMPARE(scene.calls(), QStringList(QStringLiteral("closeEvent")));
    }

    void viewWithoutControllerLivesALifeToo()
    {
        const QPointer<BaseView> view = makeView();
        view->show();
        QTest::mouseDClick(view->getQtWidget(), Qt::LeftButton);
        QTest::keyClick(view->getQtWidget(), Qt::Key_A);
        view->hide();
        QVERIFY(view->close());
        QTRY_VERIFY(!view);
    }

    void minimisedApplicationHidesItsViews()
    {
        const Scene scene;
        scene.view->show();
        minimize(scene.view);
        QVERIFY(!scene.view->isVisible());
        scene.view->appWindowStateChanged(minimized(), minimized() | Qt::WindowMaximized);
        QVERIFY(!scene.view->isVisible());
        restore(scene.view);
        QVERIFY(scene.view->isVisible());
        scene.view->appWindowStateChanged(Qt::WindowNoState, Qt::WindowMaximized);
        QVERIFY(scene.view->isVisible());
    }

    void viewHiddenBeforehandStaysHidden()
    {
        const Scene scene;
        scene.view->show();
        scene.view->hide();
        minimize(scene.view);
        restore(scene.view);
        QVERIFY(!scene.view->isVisible());
        // A show while the application is minimised makes the view come back with it.
        minimize(scene.view);
        scene.view->show();
        scene.view->hide();
        restore(scene.view);
        QVERIFY(scene.view->isVisible());
    }

    void viewsInViewsComeBackWithThem_data()
    {
        QTest::addColumn<bool>("innerFirst");
        QTest::newRow("outer hears first") << false;
        QTest::newRow("inner hears first") << true;
    }

    void viewsInViewsComeBackWithThem()
    {
        QFETCH(bool, innerFirst);
        const Scene outer;
        BaseView *const shown = makeView(outer.window);
        BaseView *const hidden = makeView(outer.window);
        hidden->hide();
        outer.view->show();
        QVector<BaseView *> views {outer.view, shown, hidden};
        if (innerFirst)
            views = {shown, hidden, outer.view};
        for (BaseView *const view : views)
            minimize(view);
        QVERIFY(!outer.view->isVisible() && !shown->isVisible());
        for (BaseView *const view : views)
            restore(view);
        QVERIFY(outer.view->isVisible() && shown->isVisible() && !hidden->isVisible());
    }

    void viewHearsOfTheMainWindowUntilItDies()
    {
        QWidget window;
        ApplicationService::GetInstance().setMainWindow(&window);
        Scene scene;
        scene.view->show();
        window.setWindowState(Qt::WindowMinimized);
        QVERIFY(!scene.view->isVisible());
        window.setWindowState(Qt::WindowNoState);
        QVERIFY(scene.view->isVisible());
        delete scene.window;
        window.setWindowState(Qt::WindowMinimized);
        ApplicationService::GetInstance().setMainWindow(nullptr);
    }

    void widgetMayDieInItsInput_data()
    {
        QTest::addColumn<QString>("call");
        for (const char *const call :
             {"mousePress", "mouseMove", "mouseRelease", "mouseDoubleClick", "mouseWheel",
              "mouseEnter", "mouseLeave", "keyPress", "keyRelease", "mouseDragEnter",
              "mouseDragMove", "mouseDragLeave", "mouseDrop", "viewDidAppear", "viewWillClose"})
            QTest::newRow(call) << QString::fromLatin1(call);
    }

    void widgetMayDieInItsInput()
    {
        QFETCH(QString, call);
        Scene scene;
        bool heldForItsCall = false;
        scene.controller->onCall[call] = [&] {
            delete scene.window.data();
            heldForItsCall = scene.controller;
        };
        provoke(scene.window);
        QVERIFY(heldForItsCall);
        QVERIFY(!scene.window && !scene.view && !scene.controller);
    }

    void viewMayBeDeletedAloneInAnyEvent_data() { viewMayCloseInAnyEvent_data(); }

    void viewMayBeDeletedAloneInAnyEvent()
    {
        QFETCH(QString, call);
        const Scene scene;
        bool heldForItsCall = false;
        scene.controller->onCall[call] = [&] {
            delete scene.view.data();
            heldForItsCall = scene.controller;
        };
        provoke(scene.window);
        QVERIFY(heldForItsCall);
        QVERIFY(!scene.view && !scene.controller);
    }

    void viewMayCloseInAnyEvent_data()
    {
        widgetMayDieInItsInput_data();
        for (const char *const call :
             {"viewDidLoad", "viewWillAppear", "viewWillDisappear", "viewDidResize", "viewDidMove"})
            QTest::newRow(call) << QString::fromLatin1(call);
    }

    void viewMayCloseInAnyEvent()
    {
        QFETCH(QString, call);
        Scene scene;
        scene.controller->onCall[call] = [&] {
            scene.controller->onCall.clear();
            scene.view->close();
        };
        provoke(scene.window);
        QTRY_VERIFY(!scene.window);
        QVERIFY(!scene.view && !scene.controller);
    }

    void controllerMayLeaveInAnyEvent_data() { viewMayCloseInAnyEvent_data(); }

    void controllerMayLeaveInAnyEvent()
    {
        QFETCH(QString, call);
        Scene scene;
        scene.controller->onCall[call] = [&] { scene.view->setViewController(nullptr); };
        provoke(scene.window);
        QTRY_VERIFY(!scene.controller);
    }

    void controllerMayMoveAwayInAnyEvent_data() { viewMayCloseInAnyEvent_data(); }

    void controllerMayMoveAwayInAnyEvent()
    {
        QFETCH(QString, call);
        Scene scene;
        const QPointer<BaseView> later = makeView();
        scene.controller->onCall[call] = [&] {
            const auto onCall = std::exchange(scene.controller->onCall, {});
            later->setViewController(scene.controller);
        };
        provoke(scene.window);
        QTRY_COMPARE(later->getViewController(), scene.controller.data());
        delete later->getQtWidget();
        QVERIFY(!scene.controller);
    }

    void eventOfADeadWidgetEndsWithIt()
    {
        Scene scene;
        scene.controller->onCall[QStringLiteral("mousePress")] = [&] {
            delete scene.window.data();
        };
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(), QPointF(), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QVERIFY(scene.view->eventFilter(scene.window, &event));
        QVERIFY(event.isAccepted());
    }

    void controllerThatLeavesWhileItLoadsDoesNotAppear()
    {
        const Scene scene;
        const auto shared = scene.controller->shared_from_this();
        scene.controller->onCall[QStringLiteral("viewDidLoad")] = [&] {
            scene.view->setViewController(nullptr);
        };
        scene.view->show();
        QCOMPARE(scene.countOf("viewWillAppear"), 0);
        const QPointer<RecordingController> later = new RecordingController(scene.view);
        later->onCall[QStringLiteral("viewDidLoad")] = [&] { delete scene.view.data(); };
        const auto kept = later->shared_from_this();
        scene.window->hide();
        scene.window->show();
        QVERIFY(!later->log.events().contains(QStringLiteral("viewWillAppear")));
    }

    void viewClosedDuringADragEndsOrderly()
    {
        Scene scene;
        scene.view->show();
        scene.controller->onCall[QStringLiteral("mouseMove")] = [&] { scene.view->close(); };
        QTest::mousePress(scene.window, Qt::LeftButton);
        QMouseEvent move(QEvent::MouseMove, QPointF(9, 9), QPointF(9, 9), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.window, &move);
        QTest::mouseRelease(scene.window, Qt::LeftButton);
        QTRY_VERIFY(!scene.window);
        QVERIFY(!scene.controller);
    }

    void exceptionOfAControllerEndsInAWarning()
    {
        const Scene scene;
        scene.controller->onCall[QStringLiteral("mousePress")] = [] {
            throw std::runtime_error("broken");
        };
        expectMessage(QStringLiteral("BaseView: an exception was thrown in the event of a view"));
        QVERIFY(!scene.send(QEvent::MouseButtonPress, Qt::LeftButton));
    }

    void exceptionAfterTheWidgetHasGoneEndsInAWarningToo()
    {
        Scene scene;
        scene.controller->onCall[QStringLiteral("mousePress")] = [&] {
            delete scene.window.data();
            throw std::runtime_error("broken");
        };
        expectMessage(QStringLiteral("BaseView: an exception was thrown in the event of a view"));
        QTest::mousePress(scene.window, Qt::LeftButton);
        QVERIFY(!scene.view);
    }

private:
    static void touchEverything(BaseView &view)
    {
        view.adjustSize();
        view.clearFocus();
        view.hide();
        view.raise();
        view.show();
        view.update();
        view.unsetCursor();
        view.setFocus();
        view.setFocusPolicy(Qt::WheelFocus);
        view.resize({4, 5});
        view.setAcceptDrops(true);
        view.setAttribute(Qt::WA_NoSystemBackground);
        view.setAutoFillBackground(true);
        view.setCursor(Qt::CrossCursor);
        view.setGeometry({1, 2, 3, 4});
        view.setMouseTracking(true);
        view.setSizePolicy(QSizePolicy());
        view.setParentView(nullptr);
        view.setDeleteOnCloseAttribute(true);
        minimize(&view);
        restore(&view);
    }

    static void sendInput(QWidget *widget, QEvent::Type type)
    {
        const std::unique_ptr<QEvent> event = makeInput(type);
        // Without a drag going on the application would not deliver these.
        if (dynamic_cast<QDropEvent *>(event.get()) || type == QEvent::DragLeave) {
            BaseView *const view = BaseView::getBaseViewOfQtWidget(widget);
            if (!view || !view->eventFilter(widget, event.get()))
                static_cast<QObject *>(widget)->event(event.get());
        } else {
            QCoreApplication::sendEvent(widget, event.get());
        }
    }

    static std::unique_ptr<QEvent> makeInput(QEvent::Type type)
    {
        static const QMimeData data;
        const QPointF at(5, 5);
        const auto none = Qt::NoModifier;
        switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return std::make_unique<QKeyEvent>(type, Qt::Key_A, none);
        case QEvent::Wheel:
            return std::make_unique<QWheelEvent>(at, at, QPoint(), QPoint(0, 120), Qt::NoButton,
                                                 none, Qt::NoScrollPhase, false);
        case QEvent::DragEnter:
            return std::make_unique<QDragEnterEvent>(at.toPoint(), Qt::CopyAction, &data,
                                                     Qt::LeftButton, none);
        case QEvent::DragMove:
            return std::make_unique<QDragMoveEvent>(at.toPoint(), Qt::CopyAction, &data,
                                                    Qt::LeftButton, none);
        case QEvent::Drop:
            return std::make_unique<QDropEvent>(at, Qt::CopyAction, &data, Qt::LeftButton, none);
        case QEvent::DragLeave:
            return std::make_unique<QDragLeaveEvent>();
        case QEvent::Enter:
        case QEvent::Leave:
            return std::make_unique<QEvent>(type);
        default:
            return std::make_unique<QMouseEvent>(type, at, at, at, Qt::LeftButton, Qt::LeftButton,
                                                 none);
        }
    }

    /// Takes a view's widget through everything that it can meet, as long as it lives.
    static void provoke(const QPointer<QWidget> &widget)
    {
        const auto step = [&widget](const auto &what) {
            if (widget)
                what();
        };
        step([&] { widget->show(); });
        QCoreApplication::processEvents();
        step([&] { widget->setGeometry(20, 30, 210, 110); });
        for (const QEvent::Type type :
             {QEvent::Enter, QEvent::DragEnter, QEvent::DragMove, QEvent::DragLeave,
              QEvent::DragEnter, QEvent::Drop, QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
              QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease, QEvent::MouseMove,
              QEvent::Wheel, QEvent::KeyPress, QEvent::KeyRelease, QEvent::Leave})
            step([&] { sendInput(widget, type); });
        step([&] { widget->hide(); });
        step([&] { widget->close(); });
    }
};

LUMO_TEST_MAIN(TestBaseView)
#include "tst_baseview.moc"
