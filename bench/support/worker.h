// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace Lumo::Bench {

/// One thread that lives as long as the object and runs one piece of work at a time, so that a
/// measurement pays neither for the start of a thread nor for Qt's adoption of it.
class Worker
{
public:
    Worker();
    ~Worker();

    /// Starts @p work on the thread. The work before it has to be finished.
    void start(std::function<void()> work);

    /// Returns when the started work has ended.
    void wait();

    Worker(const Worker &) = delete;
    Worker &operator=(const Worker &) = delete;

private:
    void loop();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::function<void()> m_work;
    bool m_ending = false;
    std::thread m_thread;
};

} // namespace Lumo::Bench
