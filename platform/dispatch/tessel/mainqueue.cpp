// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tessel/mainqueue_p.h"

#include "tessel/handover_p.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <new>
#include <thread>
#include <utility>

#ifdef __linux__
#include <ctime>
#endif

namespace Tessel {
namespace {

constexpr std::chrono::milliseconds passLength {3};

// Asking the clock costs as much as a short piece of work, so it is asked after every few.
constexpr unsigned worksPerLookAtTheClock = 4;

// A burst larger than this gives its memory back when it is done.
constexpr std::size_t keptCapacity = 4096;

std::chrono::nanoseconds coarseNow()
{
#ifdef __linux__
    timespec now {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
#else
    return std::chrono::steady_clock::now().time_since_epoch();
#endif
}

// An exception that leaves posted work has nobody to reach: it ends the process here. The closure dies
// with its run and not with the batch.
void runPosted(Work &&posted) noexcept
{
    const Work work = std::move(posted);
    work();
}

} // namespace

class MainQueue::Receiver : public QObject
{
public:
    explicit Receiver(MainQueue &queue)
        : m_queue(queue)
    { }

    bool event(QEvent *event) override
    {
        takeOver(this);
        if (event->type() != QEvent::User)
            return QObject::event(event);
        m_queue.runPass();
        return true;
    }

private:
    MainQueue &m_queue;
};

MainQueue::MainQueue() = default;
MainQueue::~MainQueue() = default;

void MainQueue::open(QThread *thread)
{
    auto receiver = std::make_unique<Receiver>(*this);
    receiver->moveToThread(thread);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_receiver = std::move(receiver);
        m_thread = thread;
        m_armed = false;
    }
    if (thread == QThread::currentThread())
        watchEventLoop();
}

void MainQueue::close()
{
    std::vector<Work> dropped;
    std::unique_ptr<Receiver> receiver;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        receiver = std::move(m_receiver);
        dropped.swap(m_incoming);
        m_thread = nullptr;
        m_armed = false;
        m_keepsRefused = true;
    }
    // None begins any more, and those that have begun are done within a post of Qt's.
    while (m_arming.load(std::memory_order_acquire) > 0)
        std::this_thread::yield();
    m_dispatcher = nullptr;
    m_armingFailed = false;
    // Closures may do anything when they die, so they die with the queue closed and unlocked.
    std::vector<Work> batch;
    batch.swap(m_batch);
    m_next = 0;
}

void MainQueue::bury()
{
    std::vector<Work> refused; // dies behind the lock
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_keepsRefused = false;
    refused.swap(m_refused);
}

bool MainQueue::post(Work &&work)
{
    QObject *receiver = nullptr;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_receiver) {
            if (m_keepsRefused)
                m_refused.push_back(std::move(work));
            return false;
        }
        m_incoming.push_back(std::move(work));
        receiver = prepareToArm();
    }
    arm(receiver);
    return true;
}

bool MainQueue::isOnMainThread() const
{
    QThread *const current = QThread::currentThread();
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_thread == current;
}

// Under the lock. The event itself is posted behind it, because the main thread that it wakes wants
// the lock at once.
QObject *MainQueue::prepareToArm()
{
    if (m_armed || !m_receiver)
        return nullptr;
    m_armed = true;
    m_arming.fetch_add(1, std::memory_order_relaxed);
    return m_receiver.get();
}

void MainQueue::arm(QObject *receiver) noexcept
{
    if (!receiver)
        return;
    try {
        auto wakeUp = std::make_unique<QEvent>(QEvent::User);
        letGo(receiver);
        QCoreApplication::postEvent(receiver, wakeUp.release());
    } catch (const std::bad_alloc &) {
        armAtTheNextTurn();
    }
    m_arming.fetch_sub(1, std::memory_order_release);
}

// Waking the event loop needs no memory. It tries to arm again at each turn, and goes on turning until
// that works.
void MainQueue::armAtTheNextTurn()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_armed = false;
    }
    m_armingFailed = true;
    if (QAbstractEventDispatcher *const dispatcher = m_dispatcher)
        dispatcher->wakeUp();
}

// A pass runs what was queued at its start, or goes on with the batch of a pass that was cut short.
void MainQueue::runPass()
{
    watchEventLoop();
    const bool goesOn = hasRest();
    beginPass();
    const auto end = coarseNow() + passLength;
    for (unsigned ran = 1; hasRest(); ++ran) {
        runPosted(std::move(m_batch[m_next++]));
        if (ran % worksPerLookAtTheClock == 0 && coarseNow() >= end)
            break;
    }
    if (goesOn || hasRest())
        armForRest();
}

void MainQueue::beginPass()
{
    if (!hasRest()) {
        m_batch.clear();
        m_next = 0;
        if (m_batch.capacity() > keptCapacity)
            m_batch.shrink_to_fit();
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_armed = false;
    if (m_batch.empty())
        m_batch.swap(m_incoming);
}

void MainQueue::armForRest()
{
    QObject *receiver = nullptr;
    m_armingFailed = false;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (hasRest() || !m_incoming.empty())
            receiver = prepareToArm();
    }
    arm(receiver);
}

void MainQueue::watchEventLoop()
{
    QAbstractEventDispatcher *const dispatcher = QAbstractEventDispatcher::instance();
    if (!dispatcher || dispatcher == m_dispatcher)
        return;
    const auto turn = [this] { onEventLoopTurn(); };
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, m_receiver.get(), turn);
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, m_receiver.get(), turn);
    m_dispatcher = dispatcher;
}

// With a rest in the batch this is the turn of a loop that a piece of work opened: the event that
// woke the queue is used up, so the loop needs one of its own to go on with the rest.
void MainQueue::onEventLoopTurn()
{
    if (hasRest() || m_armingFailed)
        armForRest();
}

} // namespace Tessel
