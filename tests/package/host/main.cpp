// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <core/Broadcaster>
#include <lumo_app_service/ApplicationService>
#include <lumo_math/LumoMath>
#include <orrin_mesh_kernel/Kernel>
#include <tessel/dispatch.h>
#include <ui_base/UiBase>

#include <QApplication>
#include <QWidget>

#include <cstdio>
#include <memory>
#include <string>

// Nothing but what a host writes: Q_OBJECT, the id, and the work.
class CountCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    CountCommand()
        : CommandBase(nullptr)
    { }

    bool onExecuteAsync(bool) override
    {
        ++m_runs;
        return true;
    }

    int runs() const { return m_runs; }

private:
    int m_runs = 0;
};

static int failures = 0;

static void expect(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "host: %s failed\n", what);
    ++failures;
}

static void expectPlatform()
{
    expect(LumoMath::equals(1.0, 1.000001, 0.00001), "a tolerant comparison");

    bool ran = false;
    expect(Tessel::dispatchSync([&ran] { ran = true; }, Tessel::EQualityOfService::Main) && ran,
           "a dispatch to the main thread");

    std::wstring waypoint;
    auto &service = Vela::Services::ApplicationService::GetInstance();
    service.kernel().setWaypointSink([&waypoint](const std::wstring &text) { waypoint = text; });
    service.Kernel().ProfilerWaypoint(L"host");
    service.kernel().setWaypointSink({});
    expect(waypoint == L"host", "a waypoint");
}

static void expectCommand()
{
    const auto command = std::make_shared<CountCommand>();
    command->trigger();
    expect(command->runs() == 1, "the run of a command");
    expect(command->commandId() == QStringLiteral("CountCommand"), "the id of a command");
    const std::shared_ptr<Vela::UiBase::CommandBase> same = command->shared_from_this();
    expect(same == command, "sharing a command");
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    expectPlatform();
    expectCommand();
    QWidget window;
    window.show();
    application.processEvents();
    std::printf("host: %d failures\n", failures);
    return failures == 0 ? 0 : 1;
}

#include "main.moc"
