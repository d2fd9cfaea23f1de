// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

class QAbstractEventDispatcher;
class QObject;
class QThread;

namespace Tessel {

using Work = std::function<void()>;

/// The queue of the main thread. Posting threads meet the main thread in one vector under a mutex,
/// and one posted event wakes the main thread for all that the vector holds.
class MainQueue
{
public:
    MainQueue();
    ~MainQueue();

    /// Starts to accept work for @p thread.
    void open(QThread *thread);

    /// Refuses work from now on and destroys what waits. Work that other threads go on posting is
    /// kept until bury(). Main thread.
    void close();

    /// Destroys the work that came after close(), so that what it holds dies on the main thread too.
    void bury();

    /// Appends @p work, which is not empty. Any thread.
    /// @return false when the queue is closed
    bool post(Work &&work);

    /// Whether the calling thread is the main thread of an open queue.
    bool isOnMainThread() const;

private:
    class Receiver;

    void runPass();
    void beginPass();
    void watchEventLoop();
    void onEventLoopTurn();
    void armForRest();
    QObject *prepareToArm();
    void arm(QObject *receiver) noexcept;
    void armAtTheNextTurn();
    bool hasRest() const { return m_next < m_batch.size(); }

    mutable std::mutex m_mutex;
    // Guarded by the mutex:
    std::vector<Work> m_incoming;
    std::unique_ptr<Receiver> m_receiver;
    QThread *m_thread = nullptr;
    bool m_armed = false;
    std::vector<Work> m_refused;
    bool m_keepsRefused = false;

    // How many threads are about to post the wake-up event; the receiver outlives them.
    std::atomic<int> m_arming {0};
    std::atomic<bool> m_armingFailed {false};
    std::atomic<QAbstractEventDispatcher *> m_dispatcher {nullptr};

    // Touched on the main thread only:
    std::vector<Work> m_batch;
    std::size_t m_next = 0;
};

} // namespace Tessel
