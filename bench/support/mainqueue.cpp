// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/mainqueue.h"

#include <tessel/dispatch.h>

#include <utility>

namespace Lumo::Bench {

void drainMainQueue()
{
    bool reached = false;
    Tessel::dispatchAsync([&reached] { reached = true; }, Tessel::EQualityOfService::Main);
    processEventsUntil([&reached] { return reached; });
}

void BareQueue::post(std::function<void()> work)
{
    bool wasEmpty = false;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        wasEmpty = m_posted.empty();
        m_posted.push_back(std::move(work));
    }
    if (wasEmpty)
        m_filled.notify_one();
}

void BareQueue::run()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_running.swap(m_posted);
    }
    for (const std::function<void()> &work : m_running)
        work();
    m_running.clear();
}

void BareQueue::waitAndRun()
{
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_filled.wait(lock, [this] { return !m_posted.empty(); });
    }
    run();
}

} // namespace Lumo::Bench
