// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/BaseView>
#include <ui_base/CommandApp>
#include <ui_base/IApp>
#include <ui_base/IVCApp>
#include <ui_base/TabbedApp>
#include <ui_base/VCCommandApp>

#include "recordingcontroller.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QPointer>
#include <QWidget>

#include <type_traits>

using Lumo::Test::RecordingController;
using Orrin::Core::ERcmStatus;
using Orrin::Core::IService;
using Vela::UiBase::BaseView;
using Vela::UiBase::BaseViewController;
using Vela::UiBase::CmdsViewController;
using Vela::UiBase::CommandApp;
using Vela::UiBase::CommandBase;
using Vela::UiBase::IApp;
using Vela::UiBase::IVCApp;
using Vela::UiBase::TabbedApp;
using Vela::UiBase::VCCommandApp;

static_assert(std::is_base_of_v<IService, IApp> && std::is_base_of_v<IApp, IVCApp>);
static_assert(std::is_base_of_v<IVCApp, TabbedApp> && std::is_base_of_v<IApp, CommandApp>);
static_assert(std::is_base_of_v<CommandApp, VCCommandApp>);
static_assert(std::has_virtual_destructor_v<IApp> && std::is_abstract_v<IApp>);
static_assert(std::is_abstract_v<IVCApp> && std::is_abstract_v<CommandApp>);
static_assert(std::is_abstract_v<TabbedApp> && std::is_abstract_v<VCCommandApp>);

namespace {

class Tab : public TabbedApp
{
public:
    explicit Tab(BaseViewController *controller = nullptr) { m_viewController = controller; }

    ERcmStatus Initialize() override { return Orrin::Core::eRcmSuccess; }
    void Terminate() override { }
    QString Name() const override { return QStringLiteral("tab"); }
};

class Viewer : public IVCApp
{
public:
    ERcmStatus Initialize() override { return Orrin::Core::eRcmSuccess; }
    void Terminate() override { }
    QString Name() const override { return QStringLiteral("viewer"); }
    BaseViewController *getVC() const override { return nullptr; }
};

class Tools : public VCCommandApp
{
public:
    using VCCommandApp::Initialize;
    using VCCommandApp::Terminate;

    QString Name() const override { return QStringLiteral("tools"); }
    QList<CommandBase *> CreateCommands(CmdsViewController *) override { return {}; }
    CmdsViewController *getCommandsVC() const override { return nullptr; }
};

static_assert(std::is_copy_constructible_v<Viewer> && !std::is_copy_constructible_v<Tab>);

} // namespace

class TestApplicationFrames : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tabHasItsDefaults()
    {
        Tab tab;
        QCOMPARE(tab.getVC(), nullptr);
        QVERIFY(tab.Init());
        QVERIFY(!tab.Update());
        tab.Reset();
    }

    void commandsNeedNoPreparation()
    {
        Tools tools;
        QCOMPARE(int(tools.Initialize()), 0);
        tools.Terminate();
    }

    void hostEndsAModuleThroughItsService()
    {
        const QPointer<RecordingController> controller = new RecordingController;
        std::unique_ptr<IService> service = std::make_unique<Tab>(controller);
        service.reset();
        QVERIFY(!controller);
        const Viewer viewer;
        const Viewer copy(viewer);
        QCOMPARE(copy.Name(), QStringLiteral("viewer"));
    }

    void tabEndsItsControllerThroughTheView()
    {
        const QPointer<RecordingController> controller = new RecordingController;
        const QPointer<QWidget> widget = controller->getQtWidget();
        const Lumo::Test::EventLog log = controller->log;
        controller->show();
        controller->agreesToClose = false;
        {
            const Tab tab(controller);
            QCOMPARE(tab.getVC(), controller.data());
        }
        QVERIFY(!controller && !widget);
        QVERIFY(log.events().contains(QStringLiteral("viewWillClose")));
    }

    void tabDeletesAControllerWithoutAView()
    {
        const QPointer<RecordingController> controller = new RecordingController(nullptr);
        {
            const Tab tab(controller);
        }
        QVERIFY(!controller);
    }

    void tabLeavesASharedControllerToItsOwners()
    {
        const auto viewless = std::make_shared<RecordingController>(nullptr);
        {
            const Tab tab(viewless.get());
        }
        QCOMPARE(viewless.use_count(), 1L);
        const auto shared = std::make_shared<RecordingController>(nullptr);
        shared->setView(new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags()));
        {
            const Tab tab(shared.get());
        }
        QCOMPARE(shared.use_count(), 1L);
        QCOMPARE(shared->getView(), nullptr);
    }

    void tabForgetsAControllerThatTheUserClosed()
    {
        auto *const controller = new RecordingController;
        const Tab tab(controller);
        controller->close();
        QTRY_VERIFY(!tab.getVC());
    }

    void tabMayEndInTheEndOfItsController()
    {
        struct Ending : RecordingController
        {
            using RecordingController::RecordingController;
            ~Ending() override { tab.reset(); }
            std::unique_ptr<Tab> tab;
        };
        const QPointer<Ending> withView = new Ending;
        withView->tab = std::make_unique<Tab>(withView);
        delete withView->getQtWidget();
        QVERIFY(!withView);

        auto viewless = std::make_shared<Ending>(nullptr);
        const QPointer<Ending> guard = viewless.get();
        viewless->tab = std::make_unique<Tab>(viewless.get());
        viewless.reset();
        QVERIFY(!guard);
    }

    void tabMayEndInTheCloseOfItsView()
    {
        auto *const controller = new RecordingController;
        auto tab = std::make_unique<Tab>(controller);
        controller->onCall[QStringLiteral("viewWillClose")] = [&] {
            controller->onCall.clear();
            tab.reset();
        };
        controller->close();
        QVERIFY(!tab);
    }
};

LUMO_TEST_MAIN(TestApplicationFrames)
#include "tst_applicationframes.moc"
