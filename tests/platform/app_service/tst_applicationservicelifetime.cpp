// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <lumo_app_service/ApplicationService>
#include <lumo_app_service/ApplicationStateProtocol>
#include <lumo_app_service/ShutdownProtocol>
#include <orrin_mesh_kernel/Kernel>

#include <gtest/gtest.h>

#include <QApplication>
#include <QCoreApplication>
#include <QFile>
#include <QMoveEvent>
#include <QTemporaryDir>
#include <QWidget>

#include <cstdlib>
#include <thread>

using namespace Vela::Services;

namespace {

int argumentCount = 1;
char programName[] = "tst";
char *arguments[] = {programName, nullptr};

class Refusal : public ShutdownProtocol
{
public:
    bool canShutdown() override { return false; }
};

class MoveCounter : public ApplicationStateProtocol
{
public:
    void appMoved(const QPoint &) override { ++moves; }
    int moves = 0;
};

/// Whether the service does what needs no window.
bool serves()
{
    auto &service = ApplicationService::GetInstance();
    Refusal refusal;
    const bool isGranted = service.requestShutdown();
    service.addShutdownDelegate(&refusal);
    const bool isRefused = !service.requestShutdown();
    service.removeShutdownDelegate(&refusal);
    service.EnableWorkspaceSwitching(false);
    const bool isForbidden = !service.isWorkspaceSwitchingEnabled();
    service.EnableWorkspaceSwitching(true);
    const bool isWritten = service.Kernel().ProfilerWaypoint(L"a") == Orrin::Core::eRcmSuccess;
    return isGranted && isRefused && isForbidden && isWritten;
}

/// Uses the service at its own end.
class LateUser
{
public:
    LateUser() = default;
    ~LateUser()
    {
        if (!serves())
            std::abort();
    }
    LateUser(const LateUser &) = delete;
    LateUser &operator=(const LateUser &) = delete;
};

bool hearsOfMoves(QWidget &window)
{
    auto &service = ApplicationService::GetInstance();
    MoveCounter counter;
    service.addAppStateDelegate(&counter);
    service.setMainWindow(&window);
    QMoveEvent event({1, 2}, {});
    QCoreApplication::sendEvent(&window, &event);
    service.removeAppStateDelegate(&counter);
    return counter.moves == 1;
}

} // namespace

TEST(ApplicationServiceLifetime, servesWithoutAnyApplication)
{
    ASSERT_FALSE(QCoreApplication::instance());
    EXPECT_TRUE(serves());
}

TEST(ApplicationServiceLifetime, servesDuringAndAfterAnApplicationThatCameLater)
{
    const auto *const service = &ApplicationService::GetInstance();
    {
        const QCoreApplication application(argumentCount, arguments);
        EXPECT_TRUE(serves());
    }
    EXPECT_TRUE(serves());
    EXPECT_EQ(service, &ApplicationService::GetInstance());
}

TEST(ApplicationServiceLifetime, watchesWindowsOfOneApplicationAfterTheOther)
{
    // Not every machine that runs tests has the folder that Qt looks for, and asks for loudly.
    const QTemporaryDir runtimeFolder;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeFolder.path()));
    for (int round = 0; round < 2; ++round) {
        const QApplication application(argumentCount, arguments);
        QWidget window;
        EXPECT_TRUE(hearsOfMoves(window));
    }
    EXPECT_TRUE(serves());
    ApplicationService::GetInstance().setMainWindow(nullptr);
}

// Each of the following starts the program anew, so that the service does not exist yet.
class ApplicationServiceDeathTest : public ::testing::Test
{
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(ApplicationServiceDeathTest, survivesTheEndOfTheProcess)
{
    // Made before the service, so that it ends after whatever the service's own end would be.
    const auto useAtTheEnd = [] {
        static const LateUser lateUser;
        std::exit(serves() ? 0 : 1);
    };
    EXPECT_EXIT(useAtTheEnd(), ::testing::ExitedWithCode(0), "");
}

TEST_F(ApplicationServiceDeathTest, watchesTheMainWindowAlsoWhenAThreadAskedFirst)
{
    const auto askInThreadFirst = [] {
        const QApplication application(argumentCount, arguments);
        std::thread([] {
            ApplicationService::GetInstance().Kernel().ProfilerWaypoint(L"a");
        }).join();
        QWidget window;
        std::_Exit(hearsOfMoves(window) ? 0 : 1);
    };
    EXPECT_EXIT(askInThreadFirst(), ::testing::ExitedWithCode(0), "");
}
