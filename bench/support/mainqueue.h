// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <vector>

namespace Lumo::Bench {

/// Turns the event loop until @p done answers true.
template<typename Done>
void processEventsUntil(Done done)
{
    while (!done())
        QCoreApplication::processEvents();
}

/// Turns the event loop until everything posted to the main queue before has run.
void drainMainQueue();

/// The cheapest queue that several threads may post to: one lock, one vector, swapped out whole.
/// It stands for the limit of what a main queue can cost; it knows no event loop.
class BareQueue
{
public:
    void post(std::function<void()> work);

    /// Runs what was posted, in order, on the calling thread.
    void run();

    /// Sleeps until something is posted, then runs it.
    void waitAndRun();

private:
    std::mutex m_mutex;
    std::condition_variable m_filled;
    std::vector<std::function<void()>> m_posted;
    std::vector<std::function<void()>> m_running;
};

} // namespace Lumo::Bench
