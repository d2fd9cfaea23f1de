// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/failingnew.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_app_service/ApplicationService>
#include <lumo_app_service/ApplicationStateProtocol>
#include <lumo_app_service/CloudServiceProtocol>
#include <lumo_app_service/IAppManager>
#include <lumo_app_service/ShutdownProtocol>
#include <orrin_mesh_kernel/Kernel>

#include <QMoveEvent>
#include <QSignalSpy>
#include <QWidget>

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Vela::Services;
using Orrin::Core::Kernel;

namespace {

static_assert(std::has_virtual_destructor_v<IAppManager> && std::is_abstract_v<IAppManager>);
static_assert(!std::is_copy_constructible_v<ApplicationService>);
static_assert(!std::is_destructible_v<ApplicationService>);

ApplicationService &service()
{
    return ApplicationService::GetInstance();
}

/// Writes what it hears to a log, then does what the test asks for.
class StateRecorder : public ApplicationStateProtocol
{
public:
    StateRecorder(QString name, QStringList &log)
        : m_name(std::move(name))
        , m_log(log)
    { }

    void appMoved(const QPoint &position) override
    {
        note(QStringLiteral("moved %1,%2").arg(position.x()).arg(position.y()));
    }
    void appResized(const QSize &size) override
    {
        note(QStringLiteral("resized %1x%2").arg(size.width()).arg(size.height()));
    }
    void appWindowStateChanged(const Qt::WindowStates &oldState,
                               const Qt::WindowStates &newState) override
    {
        note(QStringLiteral("state %1 to %2").arg(int(oldState)).arg(int(newState)));
    }

    std::function<void()> inCall;

private:
    void note(const QString &what)
    {
        m_log << m_name + QLatin1Char(' ') + what;
        // A copy, since the recorder may end inside.
        if (const auto work = inCall)
            work();
    }

    const QString m_name;
    QStringList &m_log;
};

class StateRecorderObject : public QObject, public StateRecorder
{
public:
    using StateRecorder::StateRecorder;
};

class ShutdownRecorder : public ShutdownProtocol
{
public:
    ShutdownRecorder(QString name, QStringList &log, bool answer = true)
        : m_name(std::move(name))
        , m_log(log)
        , m_answer(answer)
    { }

    bool canShutdown() override
    {
        m_log << m_name;
        if (const auto work = inCall)
            work();
        return m_answer;
    }

    std::function<void()> inCall;

private:
    const QString m_name;
    QStringList &m_log;
    const bool m_answer;
};

class ShutdownRecorderObject : public QObject, public ShutdownRecorder
{
public:
    using ShutdownRecorder::ShutdownRecorder;
};

class AppManager : public IAppManager
{
public:
    QList<Vela::UiBase::CommandBase *> commands(Vela::UiBase::CmdsViewController *) override
    {
        return {};
    }
};

/// Adds delegates for as long as a test runs.
class Added
{
public:
    explicit Added(std::vector<ApplicationStateProtocol *> delegates)
        : m_delegates(std::move(delegates))
    {
        for (auto *delegate : m_delegates)
            service().addAppStateDelegate(delegate);
    }
    ~Added()
    {
        for (auto *delegate : m_delegates)
            service().removeAppStateDelegate(delegate);
    }
    Added(const Added &) = delete;
    Added &operator=(const Added &) = delete;

private:
    std::vector<ApplicationStateProtocol *> m_delegates;
};

class AddedShutdown
{
public:
    explicit AddedShutdown(std::vector<ShutdownProtocol *> delegates)
        : m_delegates(std::move(delegates))
    {
        for (auto *delegate : m_delegates)
            service().addShutdownDelegate(delegate);
    }
    ~AddedShutdown()
    {
        for (auto *delegate : m_delegates)
            service().removeShutdownDelegate(delegate);
    }
    AddedShutdown(const AddedShutdown &) = delete;
    AddedShutdown &operator=(const AddedShutdown &) = delete;

private:
    std::vector<ShutdownProtocol *> m_delegates;
};

void sendMove(QWidget &window, const QPoint &position = {1, 2})
{
    QMoveEvent event(position, {});
    QCoreApplication::sendEvent(&window, &event);
}

} // namespace

class TestApplicationService : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void thereIsOneInstance();
    void protocolsDoNothingByDefault();
    void appManagerIsNullUntilSet();

    void kernelIsThereFromTheStart();
    void kernelOfTheHostTakesThePlace();
    void nullKernelPutsThePlainOneBackWithItsSink();
    void replacedKernelStaysValid();
    void kernelMayBeReplacedInsideAWaypoint();
    void threadsMayUseTheKernelWhileItIsReplaced();

    void workspaceSwitchingIsAnnouncedOnChangeOnly();
    void workspaceSwitchingMayBeChangedInsideTheSignal();

    void movesResizesAndStatesReachTheDelegates();
    void delegatesAreCalledInOrderOfAdding();
    void nullAndUnknownDelegatesAreIgnored();
    void delegateAddedTwiceIsCalledTwiceAndRemovedAtOnce();
    void delegateMayRemoveItself();
    void delegateMayRemoveOthers();
    void delegateAddedInsideACallHearsOfTheNextEvent();
    void delegateThatIsAddedAgainInsideItsCallIsNotCalledTwice();
    void delegateMayEndItself();
    void delegateMayEndALaterOne();
    void deadDelegateIsSkippedAndItsPlaceMayBeTaken();
    void deadDelegatesDoNotPileUp();
    void delegateMayCauseFurtherEvents();
    void exceptionOfADelegateKeepsTheOthersCalled();

    void onlyTheMainWindowIsWatched();
    void newMainWindowTakesThePlace();
    void sameMainWindowAgainIsWatchedOnce();
    void mainWindowMayDie();
    void mainWindowMayBeReplacedInsideACall();
    void mainWindowMayDieInsideACall();
    void mainWindowStillGetsItsEvents();

    void shutdownIsGrantedWithoutDelegates();
    void shutdownAsksAllInOrder();
    void shutdownStopsAtTheFirstRefusal();
    void shutdownSkipsDeadDelegates();
    void shutdownDelegatesMayChangeInsideACall();
    void shutdownDelegateAddedTwiceIsAskedTwiceAndRemovedAtOnce();
    void shutdownRequestInsideARequestIsRefused();
    void exceptionOfAShutdownDelegateReachesTheCaller();
};

void TestApplicationService::cleanup()
{
    service().setMainWindow(nullptr);
    service().setAppManager(nullptr);
    service().setKernel(nullptr);
    service().kernel().setWaypointSink({});
    service().EnableWorkspaceSwitching(true);
    TestCase::cleanup();
}

void TestApplicationService::thereIsOneInstance()
{
    QCOMPARE(&service(), &ApplicationService::GetInstance());
    QVERIFY(service().isWorkspaceSwitchingEnabled());
}

void TestApplicationService::protocolsDoNothingByDefault()
{
    ApplicationStateProtocol state;
    state.appMoved({});
    state.appResized({});
    state.appWindowStateChanged({}, {});
    CloudServiceProtocol cloud;
    cloud.onUserLogIn();
    cloud.onUserLogOut();
    cloud.onUserLogInFailed();
    QVERIFY(ShutdownProtocol().canShutdown());
    AppManager manager;
    manager.Initialize();
    QVERIFY(manager.applicationName().isEmpty());
    manager.Terminate();
}

void TestApplicationService::appManagerIsNullUntilSet()
{
    QVERIFY(!service().GetAppManager());
    AppManager manager;
    service().setAppManager(&manager);
    QCOMPARE(service().GetAppManager(), &manager);
    service().setAppManager(nullptr);
    QVERIFY(!service().GetAppManager());
}

void TestApplicationService::kernelIsThereFromTheStart()
{
    const ApplicationService &reader = service();
    QCOMPARE(&reader.Kernel(), &service().kernel());
    QCOMPARE(reader.Kernel().ProfilerWaypoint(L"a"), Orrin::Core::eRcmSuccess);
}

void TestApplicationService::kernelOfTheHostTakesThePlace()
{
    std::wstring text;
    const auto kernel = std::make_shared<Kernel>();
    kernel->setWaypointSink([&text](const std::wstring &waypoint) { text = waypoint; });
    service().setKernel(kernel);
    QCOMPARE(&service().kernel(), kernel.get());
    QCOMPARE(&service().Kernel(), kernel.get());
    service().Kernel().ProfilerWaypoint(L"a");
    QVERIFY(text == L"a");
}

void TestApplicationService::nullKernelPutsThePlainOneBackWithItsSink()
{
    int calls = 0;
    Kernel *const plain = &service().kernel();
    plain->setWaypointSink([&calls](const std::wstring &) { ++calls; });
    service().setKernel(std::make_shared<Kernel>());
    QVERIFY(&service().kernel() != plain);
    service().setKernel(nullptr);
    QCOMPARE(&service().kernel(), plain);
    service().Kernel().ProfilerWaypoint(L"a");
    QCOMPARE(calls, 1);
}

void TestApplicationService::replacedKernelStaysValid()
{
    auto kernel = std::make_shared<Kernel>();
    const std::weak_ptr<Kernel> watch = kernel;
    service().setKernel(kernel);
    const long useCount = kernel.use_count();
    service().setKernel(kernel);
    QCOMPARE(kernel.use_count(), useCount);
    kernel.reset();
    const Kernel &reference = service().Kernel();
    service().setKernel(std::make_shared<Kernel>());
    service().setKernel(nullptr);
    QVERIFY(!watch.expired());
    QCOMPARE(reference.ProfilerWaypoint(L"a"), Orrin::Core::eRcmSuccess);
}

void TestApplicationService::kernelMayBeReplacedInsideAWaypoint()
{
    auto kernel = std::make_shared<Kernel>();
    kernel->setWaypointSink([](const std::wstring &) { service().setKernel(nullptr); });
    service().setKernel(std::move(kernel));
    const Kernel *const before = &service().Kernel();
    QCOMPARE(service().Kernel().ProfilerWaypoint(L"a"), Orrin::Core::eRcmSuccess);
    QVERIFY(&service().Kernel() != before);
}

void TestApplicationService::threadsMayUseTheKernelWhileItIsReplaced()
{
    std::atomic<bool> isDone {false};
    std::atomic<int> failures {0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            while (!isDone) {
                if (service().Kernel().ProfilerWaypoint(L"a") != Orrin::Core::eRcmSuccess)
                    ++failures;
            }
        });
    }
    for (int i = 0; i < 200; ++i) {
        service().setKernel(std::make_shared<Kernel>());
        service().setKernel(nullptr);
    }
    isDone = true;
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(failures, 0);
}

void TestApplicationService::workspaceSwitchingIsAnnouncedOnChangeOnly()
{
    QSignalSpy spy(&service(), &ApplicationService::workspaceSwitchingEnabledChanged);
    service().EnableWorkspaceSwitching(true);
    QCOMPARE(spy.count(), 0);
    service().EnableWorkspaceSwitching(false);
    service().EnableWorkspaceSwitching(false);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), false);
    QVERIFY(!service().isWorkspaceSwitchingEnabled());
    service().EnableWorkspaceSwitching(true);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toBool(), true);
    QVERIFY(service().isWorkspaceSwitchingEnabled());
}

void TestApplicationService::workspaceSwitchingMayBeChangedInsideTheSignal()
{
    QList<bool> values;
    QObject context;
    connect(&service(), &ApplicationService::workspaceSwitchingEnabledChanged, &context,
            [&values](bool enabled) {
                values << enabled;
                QCOMPARE(service().isWorkspaceSwitchingEnabled(), enabled);
                service().EnableWorkspaceSwitching(true);
            });
    service().EnableWorkspaceSwitching(false);
    QCOMPARE(values, (QList<bool> {false, true}));
    QVERIFY(service().isWorkspaceSwitchingEnabled());
}

void TestApplicationService::movesResizesAndStatesReachTheDelegates()
{
    QStringList log;
    StateRecorder recorder(QStringLiteral("a"), log);
    const Added added({&recorder});
    QWidget window;
    window.setGeometry(10, 20, 300, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    service().setMainWindow(&window);
    QVERIFY(log.isEmpty());

    window.move(30, 40);
    QCOMPARE(log, QStringList {QStringLiteral("a moved 30,40")});
    log.clear();
    window.resize(310, 210);
    QCOMPARE(log, QStringList {QStringLiteral("a resized 310x210")});
    log.clear();
    window.setWindowState(Qt::WindowMinimized);
    const QString minimised = QStringLiteral("a state 0 to %1").arg(int(Qt::WindowMinimized));
    QVERIFY(log.contains(minimised));
}

void TestApplicationService::delegatesAreCalledInOrderOfAdding()
{
    QStringList log;
    StateRecorder first(QStringLiteral("first"), log);
    StateRecorderObject second(QStringLiteral("second"), log);
    StateRecorder third(QStringLiteral("third"), log);
    const Added added({&first, &second, &third});
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(log,
             (QStringList {QStringLiteral("first moved 1,2"), QStringLiteral("second moved 1,2"),
                           QStringLiteral("third moved 1,2")}));
}

void TestApplicationService::nullAndUnknownDelegatesAreIgnored()
{
    QStringList log;
    StateRecorder recorder(QStringLiteral("a"), log);
    StateRecorder unknown(QStringLiteral("b"), log);
    const Added added({nullptr, &recorder});
    service().removeAppStateDelegate(&unknown);
    service().removeAppStateDelegate(nullptr);
    const AddedShutdown addedShutdown({nullptr});
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(log.size(), 1);
    QVERIFY(service().requestShutdown());
}

void TestApplicationService::delegateAddedTwiceIsCalledTwiceAndRemovedAtOnce()
{
    QStringList log;
    StateRecorder recorder(QStringLiteral("a"), log);
    const Added added({&recorder, &recorder});
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(log.size(), 2);
    service().removeAppStateDelegate(&recorder);
    sendMove(window);
    QCOMPARE(log.size(), 2);
}

void TestApplicationService::delegateMayRemoveItself()
{
    QStringList log;
    StateRecorder first(QStringLiteral("first"), log);
    StateRecorder second(QStringLiteral("second"), log);
    const Added added({&first, &first, &second});
    first.inCall = [&] { service().removeAppStateDelegate(&first); };
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    sendMove(window);
    QCOMPARE(log,
             (QStringList {QStringLiteral("first moved 1,2"), QStringLiteral("second moved 1,2"),
                           QStringLiteral("second moved 1,2")}));
}

void TestApplicationService::delegateMayRemoveOthers()
{
    QStringList log;
    StateRecorder first(QStringLiteral("first"), log);
    StateRecorder second(QStringLiteral("second"), log);
    StateRecorder third(QStringLiteral("third"), log);
    StateRecorder fourth(QStringLiteral("fourth"), log);
    const Added added({&first, &second, &third, &fourth});
    second.inCall = [&] {
        service().removeAppStateDelegate(&first);
        service().removeAppStateDelegate(&third);
    };
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(log,
             (QStringList {QStringLiteral("first moved 1,2"), QStringLiteral("second moved 1,2"),
                           QStringLiteral("fourth moved 1,2")}));
}

void TestApplicationService::delegateAddedInsideACallHearsOfTheNextEvent()
{
    QStringList log;
    StateRecorder first(QStringLiteral("first"), log);
    std::vector<std::unique_ptr<StateRecorder>> later;
    for (int i = 0; i < 50; ++i)
        later.push_back(std::make_unique<StateRecorder>(QStringLiteral("later"), log));
    const Added added({&first});
    first.inCall = [&] {
        for (const auto &recorder : later)
            service().addAppStateDelegate(recorder.get());
        first.inCall = {};
    };
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(log.size(), 1);
    sendMove(window);
    QCOMPARE(log.size(), 52);
    for (const auto &recorder : later)
        service().removeAppStateDelegate(recorder.get());
}

void TestApplicationService::delegateThatIsAddedAgainInsideItsCallIsNotCalledTwice()
{
    QStringList log;
    StateRecorder recorder(QStringLiteral("a"), log);
    const Added added({&recorder});
    recorder.inCall = [&] {
        QVERIFY(log.size() < 10);
        service().removeAppStateDelegate(&recorder);
        service().addAppStateDelegate(&recorder);
    };
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(log.size(), 1);
    sendMove(window);
    QCOMPARE(log.size(), 2);
}

void TestApplicationService::delegateMayEndItself()
{
    QStringList log;
    auto first = std::make_unique<StateRecorderObject>(QStringLiteral("first"), log);
    StateRecorder second(QStringLiteral("second"), log);
    service().addAppStateDelegate(first.get());
    const Added added({&second});
    first->inCall = [&] { first.reset(); };
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    sendMove(window);
    QCOMPARE(log,
             (QStringList {QStringLiteral("first moved 1,2"), QStringLiteral("second moved 1,2"),
                           QStringLiteral("second moved 1,2")}));
}

void TestApplicationService::delegateMayEndALaterOne()
{
    QStringList log;
    StateRecorder first(QStringLiteral("first"), log);
    auto second = std::make_unique<StateRecorderObject>(QStringLiteral("second"), log);
    auto third = std::make_unique<StateRecorder>(QStringLiteral("third"), log);
    const Added added({&first});
    service().addAppStateDelegate(second.get());
    service().addAppStateDelegate(third.get());
    first.inCall = [&] {
        second.reset();
        service().removeAppStateDelegate(third.get());
        third.reset();
    };
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(log, QStringList {QStringLiteral("first moved 1,2")});
}

void TestApplicationService::deadDelegateIsSkippedAndItsPlaceMayBeTaken()
{
    QStringList log;
    alignas(StateRecorderObject) unsigned char place[sizeof(StateRecorderObject)];
    auto *const dead = new (place) StateRecorderObject(QStringLiteral("dead"), log);
    service().addAppStateDelegate(dead);
    dead->~StateRecorderObject();
    QWidget window;
    service().setMainWindow(&window);
    sendMove(window);
    QVERIFY(log.isEmpty());

    auto *const heir = new (place) StateRecorderObject(QStringLiteral("heir"), log);
    sendMove(window);
    QVERIFY(log.isEmpty());
    service().addAppStateDelegate(heir);
    sendMove(window);
    QCOMPARE(log, QStringList {QStringLiteral("heir moved 1,2")});
    heir->~StateRecorderObject();
}

void TestApplicationService::deadDelegatesDoNotPileUp()
{
    constexpr std::size_t count = 10000;
    constexpr std::size_t guardSize = 2 * sizeof(void *);
    QStringList log;
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < count; ++i) {
        StateRecorderObject recorder(QStringLiteral("a"), log);
        const Lumo::Test::NewCounter counter;
        service().addAppStateDelegate(&recorder);
        bytes += counter.bytes();
    }
    QVERIFY2(bytes < count * guardSize + 1000, qPrintable(QString::number(bytes)));
}

void TestApplicationService::delegateMayCauseFurtherEvents()
{
    QStringList log;
    StateRecorder first(QStringLiteral("first"), log);
    StateRecorder second(QStringLiteral("second"), log);
    const Added added({&first, &second});
    QWidget window;
    first.inCall = [&] {
        first.inCall = {};
        sendMove(window, {5, 6});
    };
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(
        log,
        (QStringList {QStringLiteral("first moved 1,2"), QStringLiteral("first moved 5,6"),
                      QStringLiteral("second moved 5,6"), QStringLiteral("second moved 1,2")}));
}

void TestApplicationService::exceptionOfADelegateKeepsTheOthersCalled()
{
    QStringList log;
    StateRecorder first(QStringLiteral("first"), log);
    StateRecorder second(QStringLiteral("second"), log);
    const Added added({&first, &second});
    first.inCall = [] { throw std::runtime_error("delegate"); };
    QWidget window;
    service().setMainWindow(&window);
    expectMessage(QStringLiteral("ApplicationService: a state delegate threw an exception"));
    sendMove(window);
    QCOMPARE(log.size(), 2);
}

void TestApplicationService::onlyTheMainWindowIsWatched()
{
    QStringList log;
    StateRecorder recorder(QStringLiteral("a"), log);
    const Added added({&recorder});
    QWidget window;
    QWidget other;
    QWidget child(&window);
    sendMove(window);
    service().setMainWindow(&window);
    sendMove(other);
    sendMove(child);
    QEvent event(QEvent::ActivationChange);
    QCoreApplication::sendEvent(&window, &event);
    QVERIFY(log.isEmpty());
}

void TestApplicationService::newMainWindowTakesThePlace()
{
    QStringList log;
    StateRecorder recorder(QStringLiteral("a"), log);
    const Added added({&recorder});
    QWidget first;
    QWidget second;
    service().setMainWindow(&first);
    service().setMainWindow(&second);
    sendMove(first);
    QVERIFY(log.isEmpty());
    sendMove(second);
    QCOMPARE(log.size(), 1);
    service().setMainWindow(nullptr);
    sendMove(second);
    QCOMPARE(log.size(), 1);
}

void TestApplicationService::sameMainWindowAgainIsWatchedOnce()
{
    QStringList log;
    StateRecorder recorder(QStringLiteral("a"), log);
    const Added added({&recorder});
    QWidget window;
    service().setMainWindow(&window);
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(log.size(), 1);
}

void TestApplicationService::mainWindowMayDie()
{
    QStringList log;
    StateRecorder recorder(QStringLiteral("a"), log);
    const Added added({&recorder});
    auto window = std::make_unique<QWidget>();
    service().setMainWindow(window.get());
    window.reset();
    QWidget next;
    service().setMainWindow(&next);
    sendMove(next);
    QCOMPARE(log.size(), 1);
}

void TestApplicationService::mainWindowMayBeReplacedInsideACall()
{
    QStringList log;
    StateRecorder first(QStringLiteral("first"), log);
    StateRecorder second(QStringLiteral("second"), log);
    const Added added({&first, &second});
    QWidget window;
    QWidget next;
    first.inCall = [&] { service().setMainWindow(&next); };
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(log.size(), 2);
    sendMove(window);
    QCOMPARE(log.size(), 2);
    sendMove(next);
    QCOMPARE(log.size(), 4);
}

void TestApplicationService::mainWindowMayDieInsideACall()
{
    QStringList log;
    StateRecorder first(QStringLiteral("first"), log);
    StateRecorder second(QStringLiteral("second"), log);
    const Added added({&first, &second});
    auto window = std::make_unique<QWidget>();
    first.inCall = [&] { window.reset(); };
    service().setMainWindow(window.get());
    sendMove(*window);
    QVERIFY(!window);
    QCOMPARE(log.size(), 2);
}

void TestApplicationService::mainWindowStillGetsItsEvents()
{
    class Window : public QWidget
    {
    public:
        int moves = 0;

    protected:
        void moveEvent(QMoveEvent *) override { ++moves; }
    };
    Window window;
    service().setMainWindow(&window);
    sendMove(window);
    QCOMPARE(window.moves, 1);
}

void TestApplicationService::shutdownIsGrantedWithoutDelegates()
{
    QVERIFY(service().requestShutdown());
}

void TestApplicationService::shutdownAsksAllInOrder()
{
    QStringList log;
    ShutdownRecorder first(QStringLiteral("first"), log);
    ShutdownRecorder second(QStringLiteral("second"), log);
    const AddedShutdown added({&first, &second});
    QVERIFY(service().requestShutdown());
    QCOMPARE(log, (QStringList {QStringLiteral("first"), QStringLiteral("second")}));
}

void TestApplicationService::shutdownStopsAtTheFirstRefusal()
{
    QStringList log;
    ShutdownRecorder first(QStringLiteral("first"), log);
    ShutdownRecorder second(QStringLiteral("second"), log, false);
    ShutdownRecorder third(QStringLiteral("third"), log);
    const AddedShutdown added({&first, &second, &third});
    QVERIFY(!service().requestShutdown());
    QCOMPARE(log, (QStringList {QStringLiteral("first"), QStringLiteral("second")}));
    service().removeShutdownDelegate(&second);
    QVERIFY(service().requestShutdown());
}

void TestApplicationService::shutdownSkipsDeadDelegates()
{
    QStringList log;
    ShutdownRecorder second(QStringLiteral("second"), log);
    {
        ShutdownRecorderObject first(QStringLiteral("first"), log, false);
        service().addShutdownDelegate(&first);
    }
    const AddedShutdown added({&second});
    QVERIFY(service().requestShutdown());
    QCOMPARE(log, QStringList {QStringLiteral("second")});
}

void TestApplicationService::shutdownDelegatesMayChangeInsideACall()
{
    QStringList log;
    ShutdownRecorder first(QStringLiteral("first"), log);
    ShutdownRecorder second(QStringLiteral("second"), log, false);
    ShutdownRecorder third(QStringLiteral("third"), log, false);
    const AddedShutdown added({&first, &second});
    first.inCall = [&] {
        service().removeShutdownDelegate(&first);
        service().removeShutdownDelegate(&second);
        service().addShutdownDelegate(&third);
    };
    QVERIFY(service().requestShutdown());
    QCOMPARE(log, QStringList {QStringLiteral("first")});
    QVERIFY(!service().requestShutdown());
    QCOMPARE(log, (QStringList {QStringLiteral("first"), QStringLiteral("third")}));
    service().removeShutdownDelegate(&third);
}

void TestApplicationService::shutdownDelegateAddedTwiceIsAskedTwiceAndRemovedAtOnce()
{
    QStringList log;
    ShutdownRecorder recorder(QStringLiteral("a"), log);
    const AddedShutdown added({&recorder, &recorder});
    QVERIFY(service().requestShutdown());
    QCOMPARE(log.size(), 2);
    service().removeShutdownDelegate(&recorder);
    QVERIFY(service().requestShutdown());
    QCOMPARE(log.size(), 2);
}

void TestApplicationService::shutdownRequestInsideARequestIsRefused()
{
    QStringList log;
    bool isInnerGranted = true;
    ShutdownRecorder recorder(QStringLiteral("a"), log);
    const AddedShutdown added({&recorder});
    recorder.inCall = [&] {
        if (log.size() < 3)
            isInnerGranted = service().requestShutdown();
    };
    QVERIFY(service().requestShutdown());
    QVERIFY(!isInnerGranted);
    QCOMPARE(log.size(), 1);
}

void TestApplicationService::exceptionOfAShutdownDelegateReachesTheCaller()
{
    QStringList log;
    ShutdownRecorder recorder(QStringLiteral("a"), log);
    const AddedShutdown added({&recorder});
    recorder.inCall = [] { throw std::runtime_error("delegate"); };
    QVERIFY_EXCEPTION_THROWN(service().requestShutdown(), std::runtime_error);
    recorder.inCall = {};
    QVERIFY(service().requestShutdown());
}

LUMO_TEST_MAIN(TestApplicationService)
#include "tst_applicationservice.moc"
