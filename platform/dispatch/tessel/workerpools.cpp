// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tessel/workerpools_p.h"

#include "tessel/handover_p.h"

#include <QRunnable>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <utility>

#ifdef __linux__
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace Tessel {
namespace {

thread_local EQualityOfService currentQuality = EQualityOfService::Main;

// Some threads more than cores, so that a few pieces of work that block leave the others running.
int threadsPerPool()
{
    return std::max(4, QThread::idealThreadCount());
}

// Qt's thread priorities do nothing under the default scheduler of Linux, niceness per thread does.
void lowerThreadPriority(EQualityOfService qos)
{
#ifdef __linux__
    const int nice = qos == EQualityOfService::Utility ? 5
        : qos == EQualityOfService::Background         ? 10
                                                       : 0;
    if (nice > 0)
        setpriority(PRIO_PROCESS, static_cast<id_t>(syscall(SYS_gettid)), nice);
#else
    if (qos == EQualityOfService::Utility)
        QThread::currentThread()->setPriority(QThread::LowPriority);
    else if (qos == EQualityOfService::Background)
        QThread::currentThread()->setPriority(QThread::LowestPriority);
#endif
}

void adoptQuality(EQualityOfService qos)
{
    if (currentQuality == qos)
        return;
    currentQuality = qos;
    lowerThreadPriority(qos);
}

// Stands for all work that has been done.
char doneWork;

class Job : public QRunnable
{
public:
    Job(Work &&work, EQualityOfService qos)
        : m_work(std::move(work))
        , m_qos(qos)
    {
        letGo(this);
    }

    ~Job() override { takeOver(this); }

    // An exception that leaves the work has nobody to reach: it ends the process here.
    void run() noexcept override
    {
        takeOver(this);
        adoptQuality(m_qos);
        m_work();
        m_work = nullptr;
        letGo(&doneWork);
    }

private:
    Work m_work;
    EQualityOfService m_qos;
};

std::size_t indexOf(EQualityOfService qos)
{
    return static_cast<std::size_t>(qos) - 1;
}

} // namespace

WorkerPools::WorkerPools() = default;
WorkerPools::~WorkerPools() = default;

void WorkerPools::open()
{
    // Made here and not when first needed: making one is not safe against a failed allocation.
    std::array<std::unique_ptr<QThreadPool>, count> pools;
    for (auto &pool : pools) {
        pool = std::make_unique<QThreadPool>();
        pool->setMaxThreadCount(threadsPerPool());
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_pools.swap(pools);
    m_open = true;
}

void WorkerPools::refuse()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_open = false;
}

void WorkerPools::close()
{
    std::array<std::unique_ptr<QThreadPool>, count> pools;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_open = false;
        pools.swap(m_pools);
    }
    for (const auto &pool : pools) {
        if (pool)
            pool->clear();
    }
    // A pool waits for its running work when it ends.
    for (auto &pool : pools)
        pool.reset();
    takeOver(&doneWork);
}

bool WorkerPools::post(Work &&work, EQualityOfService qos)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_open)
        return false;
    auto job = std::make_unique<Job>(std::move(work), qos);
    m_pools[indexOf(qos)]->start(job.get());
    static_cast<void>(job.release()); // the pool deletes it after its run
    return true;
}

bool WorkerPools::isOnThreadOf(EQualityOfService qos)
{
    return currentQuality == qos;
}

} // namespace Tessel
