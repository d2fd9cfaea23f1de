// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/coreexport.h"
#include "core/observerlists.h"

#include <tessel/dispatch.h>

#include <QObject>

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

namespace Tessel {

/// Sends the operations of a protocol, an abstract class of empty virtual operations, to any number
/// of observers. A broadcast may start on any thread; each observer says at its registration on
/// which thread it is to be called:
///
/// - registered by plain pointer: on the main thread; the observer has to be a QObject, which is
///   forgotten when it dies,
/// - registered by shared pointer for the main queue: on the main thread,
/// - registered by shared pointer otherwise: on the thread that broadcasts, within the call.
///
/// No observer is kept alive. Within each kind, observers are called in the order of registration;
/// on the main thread the QObjects come first. An observer that is registered twice is called
/// twice, and one removal takes out all its entries.
///
/// Observers are called with no lock held and may add and remove observers; a change applies to
/// later broadcasts. An observer that was removed during a broadcast can still be called by it
/// unless it has been destroyed. Pointers among the arguments are not guarded: they may be stale
/// when an observer on the main queue sees them.
///
/// All operations may be called from any thread. A class that notifies derives from this one; use a
/// Qt signal where both ends are QObjects of the widget layer.
/// \sa Delegator
template<typename Protocol>
class TESSEL_CORE_VISIBLE Broadcaster
{
public:
    Broadcaster() = default;
    virtual ~Broadcaster() { Broadcaster::removeAllObservers(); }

    /// Adds an observer that is called on the main thread; null is ignored. A QObject without a
    /// parent is accepted, but can't be removed by removeObserver().
    /// @throw std::invalid_argument when @p observer is not a QObject
    virtual void addObserver(Protocol *observer);

    /// Adds an observer that is called on the main thread if @p onMainQueue is true, else on the
    /// thread that broadcasts. Null is ignored.
    virtual void addObserver(const std::shared_ptr<Protocol> &observer, bool onMainQueue);

    /// Removes all entries of an observer that was added by plain pointer; null and unknown ones
    /// are ignored.
    /// @throw std::invalid_argument when @p observer is not a QObject, or is one without a parent
    virtual void removeObserver(Protocol *observer);

    /// Removes all entries of an observer that was added by shared pointer, this one or another
    /// that shares its ownership; null and unknown ones are ignored.
    virtual void removeObserver(const std::shared_ptr<Protocol> &observer);

    /// Removes all observers.
    virtual void removeAllObservers();

    /// Calls @p operation with @p args on every observer: first one closure for all observers of
    /// the main thread is posted to the main queue, then the direct observers are called. The
    /// closure holds copies of the arguments and not this object, which may die before it runs.
    /// Exceptions out of direct observers reach the caller.
    template<typename... Args>
    void broadcast(void (Protocol::*operation)(Args...),
                   typename Internal::Identity<Args>::Type... args);

    /// The form for operations that return a value: waits for the observers of the main thread.
    /// @return one result per living observer: QObjects, main queue, direct
    template<typename Result, typename... Args,
             typename = std::enable_if_t<!std::is_void_v<Result>>>
    std::vector<Result> broadcast(Result (Protocol::*operation)(Args...),
                                  typename Internal::Identity<Args>::Type... args);

    Broadcaster(const Broadcaster &) = delete;
    Broadcaster &operator=(const Broadcaster &) = delete;

protected:
    /// The first entry of the first list that is not empty: QObjects, main queue, direct. Null when
    /// that observer has died or no list has an entry.
    Protocol *firstObserver() const;

private:
    using Lists = Internal::ObserverLists<Protocol>;

    /// Whom a broadcast calls: the observers at its start, or the one direct observer there was.
    struct Audience
    {
        std::shared_ptr<const Lists> lists;
        std::shared_ptr<Protocol> onlyDirect;
    };

    static QObject *requireQObject(Protocol *observer, QObject *object);
    Audience currentAudience();
    std::shared_ptr<const Lists> currentLists();
    void forgetSnapshot();
    void removeNullObservers();
    template<typename List>
    void removeNullObservers(List &list);
    template<typename List>
    void eraseNullObservers(List &list);
    template<typename Call>
    void callDirect(const Lists &lists, const Call &call);

    std::vector<Internal::QObjectObserver<Protocol>> qobjectObservers;
    std::vector<std::weak_ptr<Protocol>> queuedObservers;
    std::vector<std::weak_ptr<Protocol>> directObservers;
    mutable std::mutex observersMutex;
    // What broadcasts share between two changes of the lists; made by the first that needs it.
    std::shared_ptr<const Lists> snapshot;
};

template<typename Protocol>
QObject *Broadcaster<Protocol>::requireQObject(Protocol *observer, QObject *object)
{
    if (object)
        return object;
    throw std::invalid_argument(
        std::string(typeid(*observer).name())
        + " needs to be a QObject with its lifetime managed by its parent!");
}

template<typename Protocol>
void Broadcaster<Protocol>::addObserver(Protocol *observer)
{
    if (!observer)
        return;
    QObject *const object = requireQObject(observer, dynamic_cast<QObject *>(observer));
    const std::lock_guard<std::mutex> lock(observersMutex);
    qobjectObservers.emplace_back(object, observer);
    forgetSnapshot();
}

template<typename Protocol>
void Broadcaster<Protocol>::addObserver(const std::shared_ptr<Protocol> &observer, bool onMainQueue)
{
    if (!observer)
        return;
    const std::lock_guard<std::mutex> lock(observersMutex);
    (onMainQueue ? queuedObservers : directObservers).emplace_back(observer);
    forgetSnapshot();
}

template<typename Protocol>
void Broadcaster<Protocol>::removeObserver(Protocol *observer)
{
    if (!observer)
        return;
    QObject *const object = dynamic_cast<QObject *>(observer);
    requireQObject(observer, object && object->parent() ? object : nullptr);
    const std::lock_guard<std::mutex> lock(observersMutex);
    Internal::eraseIf(qobjectObservers,
                      [object](const auto &entry) { return entry.guards(object); });
    forgetSnapshot();
}

template<typename Protocol>
void Broadcaster<Protocol>::removeObserver(const std::shared_ptr<Protocol> &observer)
{
    if (!observer)
        return;
    // An entry of another owner is not even looked at: it could turn out to be held by nobody else
    // any more, and would end here, with the mutex taken.
    const auto isObserver = [&observer](const auto &entry) {
        const bool isOfOwner = !entry.owner_before(observer) && !observer.owner_before(entry);
        return isOfOwner && entry.lock() == observer;
    };
    const std::lock_guard<std::mutex> lock(observersMutex);
    Internal::eraseIf(directObservers, isObserver);
    Internal::eraseIf(queuedObservers, isObserver);
    forgetSnapshot();
}

template<typename Protocol>
void Broadcaster<Protocol>::removeAllObservers()
{
    const std::lock_guard<std::mutex> lock(observersMutex);
    qobjectObservers.clear();
    queuedObservers.clear();
    directObservers.clear();
    forgetSnapshot();
}

template<typename Protocol>
template<typename List>
void Broadcaster<Protocol>::removeNullObservers(List &list)
{
    const auto hasDied = [](const auto &entry) { return entry.expired(); };
    // Nearly always nobody has died, so a look, which is short, comes before the erasing.
    if (!list.empty() && std::any_of(list.begin(), list.end(), hasDied))
        eraseNullObservers(list);
}

template<typename Protocol>
template<typename List>
void Broadcaster<Protocol>::eraseNullObservers(List &list)
{
    Internal::eraseIf(list, [](const auto &entry) { return entry.expired(); });
    forgetSnapshot();
}

template<typename Protocol>
void Broadcaster<Protocol>::removeNullObservers()
{
    const std::lock_guard<std::mutex> lock(observersMutex);
    removeNullObservers(qobjectObservers);
    removeNullObservers(queuedObservers);
    removeNullObservers(directObservers);
}

// Dead direct observers are swept by the walk that meets them, or when the lists are to be copied.
template<typename Protocol>
auto Broadcaster<Protocol>::currentAudience() -> Audience
{
    const std::lock_guard<std::mutex> lock(observersMutex);
    removeNullObservers(qobjectObservers);
    removeNullObservers(queuedObservers);
    const bool isOneAtMost =
        qobjectObservers.empty() && queuedObservers.empty() && directObservers.size() <= 1;
    if (isOneAtMost || !snapshot)
        removeNullObservers(directObservers);
    if (!isOneAtMost)
        return {currentLists(), nullptr};
    return {nullptr, directObservers.empty() ? nullptr : directObservers.front().lock()};
}

template<typename Protocol>
auto Broadcaster<Protocol>::currentLists() -> std::shared_ptr<const Lists>
{
    if (!snapshot)
        snapshot =
            std::make_shared<const Lists>(qobjectObservers, queuedObservers, directObservers);
    return snapshot;
}

template<typename Protocol>
void Broadcaster<Protocol>::forgetSnapshot()
{
    if (snapshot)
        snapshot->outdate();
    snapshot.reset();
}

// An observer may destroy this broadcaster. The lists, which the caller holds, tell it then.
template<typename Protocol>
template<typename Call>
void Broadcaster<Protocol>::callDirect(const Lists &lists, const Call &call)
{
    bool hasMetDead = false;
    for (const std::weak_ptr<Protocol> &entry : lists.direct()) {
        if (const std::shared_ptr<Protocol> observer = entry.lock())
            call(observer.get());
        else if (!std::exchange(hasMetDead, true) && lists.isCurrent())
            removeNullObservers();
    }
}

template<typename Protocol>
Protocol *Broadcaster<Protocol>::firstObserver() const
{
    std::weak_ptr<Protocol> first;
    {
        const std::lock_guard<std::mutex> lock(observersMutex);
        if (!qobjectObservers.empty())
            return qobjectObservers.front().get();
        const auto &shared = queuedObservers.empty() ? directObservers : queuedObservers;
        if (!shared.empty())
            first = shared.front();
    }
    // With the mutex free, because the observer ends here if all others let go of it meanwhile.
    return first.lock().get();
}

template<typename Protocol>
template<typename... Args>
void Broadcaster<Protocol>::broadcast(void (Protocol::*operation)(Args...),
                                      typename Internal::Identity<Args>::Type... args)
{
    const Audience audience = currentAudience();
    if (audience.lists && audience.lists->hasMainThreadObservers()) {
        dispatchAsync(
            Internal::PostedBroadcast<Protocol, Args...>(audience.lists, operation, args...),
            EQualityOfService::Main);
    } else {
        dispatchAsync([] {}, EQualityOfService::Main);
    }
    const auto call = [&](Protocol *observer) {
        (observer->*operation)(static_cast<Args>(args)...);
    };
    if (audience.lists)
        callDirect(*audience.lists, call);
    else if (audience.onlyDirect)
        call(audience.onlyDirect.get());
}

template<typename Protocol>
template<typename Result, typename... Args, typename>
std::vector<Result> Broadcaster<Protocol>::broadcast(
    Result (Protocol::*operation)(Args...), typename Internal::Identity<Args>::Type... args)
{
    const Audience audience = currentAudience();
    std::vector<Result> results;
    const auto collect = [&](Protocol *observer) {
        results.push_back((observer->*operation)(static_cast<Args>(args)...));
    };
    if (audience.lists && audience.lists->hasMainThreadObservers()) {
        dispatchSync([&] { audience.lists->forEachOnMainThread(collect); },
                     EQualityOfService::Main);
    }
    if (audience.lists)
        callDirect(*audience.lists, collect);
    else if (audience.onlyDirect)
        collect(audience.onlyDirect.get());
    return results;
}

} // namespace Tessel
