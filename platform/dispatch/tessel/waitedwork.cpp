// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tessel/waitedwork_p.h"

#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>

namespace Tessel {
namespace {

/// What the waiting thread and the closure share.
class Completion
{
public:
    void finish(bool ran, std::exception_ptr error)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_over = true;
        m_ran = ran;
        m_error = std::move(error);
        m_changed.notify_one();
    }

    bool wait()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [this] { return m_over; });
        if (m_error)
            std::rethrow_exception(std::exchange(m_error, nullptr));
        return m_ran;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_over = false;
    bool m_ran = false;
    std::exception_ptr m_error;
};

/// Runs the work once; destroyed without having run, it releases the waiting thread too.
class WaitedWork
{
public:
    WaitedWork(const std::function<void()> &work, std::shared_ptr<Completion> completion)
        : m_work(work)
        , m_completion(std::move(completion))
    { }

    ~WaitedWork()
    {
        if (m_completion)
            m_completion->finish(false, nullptr);
    }

    void run()
    {
        std::exception_ptr error;
        try {
            m_work();
        } catch (...) {
            error = std::current_exception();
        }
        // Outside of the handler, so that the last reference to the exception is the waiter's.
        std::exchange(m_completion, nullptr)->finish(true, std::move(error));
    }

    WaitedWork(const WaitedWork &) = delete;
    WaitedWork &operator=(const WaitedWork &) = delete;

private:
    const std::function<void()> &m_work; // outlives this object: its owner is the one who waits
    std::shared_ptr<Completion> m_completion;
};

} // namespace

bool runAndWait(const std::function<void()> &work,
                const std::function<bool(std::function<void()> &&)> &post)
{
    const auto completion = std::make_shared<Completion>();
    auto waited = std::make_shared<WaitedWork>(work, completion);
    if (!post([waited = std::move(waited)] { waited->run(); }))
        return false;
    return completion->wait();
}

} // namespace Tessel
