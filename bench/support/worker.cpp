// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/worker.h"

#include <utility>

namespace Lumo::Bench {

Worker::Worker()
    : m_thread([this] { loop(); })
{ }

Worker::~Worker()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void Worker::start(std::function<void()> work)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_work = std::move(work);
    }
    m_changed.notify_all();
}

void Worker::wait()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_work; });
}

void Worker::loop()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_work || m_ending; });
        if (!m_work)
            return;
        lock.unlock();
        m_work();
        lock.lock();
        m_work = nullptr;
        m_changed.notify_all();
    }
}

} // namespace Lumo::Bench
