// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tessel/dispatch.h"

#include "tessel/mainqueue_p.h"
#include "tessel/waitedwork_p.h"
#include "tessel/workerpools_p.h"

#include <QCoreApplication>

#include <utility>

namespace Tessel {
namespace {

struct Queues
{
    MainQueue main;
    WorkerPools workers;
};

// Never destroyed: objects with static storage may still dispatch when the process ends, and have
// to find closed queues then.
Queues &queues()
{
    static Queues &instance = *new Queues;
    return instance;
}

void closeQueues()
{
    // The main queue first: background work that waits for the main thread is released by it. What
    // dies with it must not find the workers still open.
    queues().workers.refuse();
    queues().main.close();
    queues().workers.close();
    queues().main.bury();
}

void openQueues()
{
    queues().main.open(QCoreApplication::instance()->thread());
    queues().workers.open();
    qAddPostRoutine(closeQueues);
}

bool isBackground(EQualityOfService qos)
{
    return qos >= EQualityOfService::UserInteractive && qos <= EQualityOfService::Background;
}

bool runsInline(EQualityOfService qos)
{
    return qos == EQualityOfService::Main ? queues().main.isOnMainThread()
                                          : WorkerPools::isOnThreadOf(qos);
}

} // namespace

bool dispatchAsync(const std::function<void()> &work, EQualityOfService qos)
{
    return dispatchAsync(std::function<void()>(work), qos);
}

bool dispatchAsync(std::function<void()> &&work, EQualityOfService qos)
{
    if (!work)
        return false;
    if (qos == EQualityOfService::Main)
        return queues().main.post(std::move(work));
    return isBackground(qos) && queues().workers.post(std::move(work), qos);
}

bool dispatchSync(const std::function<void()> &work, EQualityOfService qos)
{
    if (!work || (qos != EQualityOfService::Main && !isBackground(qos)))
        return false;
    if (runsInline(qos)) {
        work();
        return true;
    }
    return runAndWait(work, [qos](Work &&waited) { return dispatchAsync(std::move(waited), qos); });
}

} // namespace Tessel

static void openDispatchQueues()
{
    Tessel::openQueues();
}
Q_COREAPP_STARTUP_FUNCTION(openDispatchQueues)
