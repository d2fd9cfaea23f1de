// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>

#include <algorithm>
#include <atomic>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tessel::Internal {

/// Names a type without taking part in the deduction of template arguments.
template<typename T>
struct Identity
{
    using Type = T;
};

/// Erases the entries of @p list that match, keeping the order of the others.
/// @return whether there was one
template<typename List, typename Predicate>
bool eraseIf(List &list, const Predicate &matches)
{
    const auto last = std::remove_if(list.begin(), list.end(), matches);
    const bool found = last != list.end();
    list.erase(last, list.end());
    return found;
}

/// An observer that is a QObject: guarded by the object, called as the protocol.
///
/// The cast from one to the other is the dear part of a call, so its result is kept together with
/// the type that the object had then. While an object is constructed or destroyed its type is
/// another one, and the cast is made anew.
template<typename Protocol>
class QObjectObserver
{
public:
    QObjectObserver(QObject *object, Protocol *observer)
        : m_object(object)
        , m_observer(observer)
        , m_type(typeOf(object))
    { }

    bool guards(const QObject *object) const { return m_object == object; }
    bool expired() const { return m_object.isNull(); }

    /// The observer, or null when it is gone. The object's thread only.
    Protocol *get() const
    {
        QObject *const object = m_object;
        if (!object)
            return nullptr;
        return typeOf(object) == m_type ? m_observer : dynamic_cast<Protocol *>(object);
    }

private:
    // The address of the virtual table stands at the start of every QObject.
    static const void *typeOf(const QObject *object)
    {
        return *reinterpret_cast<const void *const *>(object);
    }

    QPointer<QObject> m_object;
    Protocol *m_observer;
    const void *m_type;
};

/// The observers of a broadcaster at one moment. The lists never change, so that broadcasts can share
/// them.
template<typename Protocol>
class ObserverLists
{
public:
    ObserverLists(const std::vector<QObjectObserver<Protocol>> &qobjects,
                  const std::vector<std::weak_ptr<Protocol>> &queued,
                  const std::vector<std::weak_ptr<Protocol>> &direct)
        : m_qobjects(qobjects)
        , m_queued(queued)
        , m_direct(direct)
    { }

    bool hasMainThreadObservers() const { return !m_qobjects.empty() || !m_queued.empty(); }

    template<typename Call>
    void forEachOnMainThread(const Call &call) const
    {
        for (const QObjectObserver<Protocol> &entry : m_qobjects) {
            if (Protocol *const observer = entry.get())
                call(observer);
        }
        for (const std::weak_ptr<Protocol> &entry : m_queued) {
            if (const std::shared_ptr<Protocol> observer = entry.lock())
                call(observer.get());
        }
    }

    const std::vector<std::weak_ptr<Protocol>> &direct() const { return m_direct; }

    /// Notes that the broadcaster has other observers by now, or has been destroyed.
    void outdate() const { m_isCurrent.store(false, std::memory_order_relaxed); }
    bool isCurrent() const { return m_isCurrent.load(std::memory_order_relaxed); }

private:
    mutable std::atomic<bool> m_isCurrent {true};
    std::vector<QObjectObserver<Protocol>> m_qobjects;
    std::vector<std::weak_ptr<Protocol>> m_queued;
    std::vector<std::weak_ptr<Protocol>> m_direct;
};

/// The closure that a broadcast posts to the main queue.
template<typename Protocol, typename... Args>
class PostedBroadcast
{
public:
    using Operation = void (Protocol::*)(Args...);

    PostedBroadcast(std::shared_ptr<const ObserverLists<Protocol>> observers, Operation operation,
                    const std::decay_t<Args> &...args)
        : m_observers(std::move(observers))
        , m_operation(operation)
        , m_args(args...)
    { }

    void operator()()
    {
        m_observers->forEachOnMainThread([this](Protocol *observer) {
            std::apply([&](auto &...args) { (observer->*m_operation)(static_cast<Args>(args)...); },
                       m_args);
        });
    }

private:
    std::shared_ptr<const ObserverLists<Protocol>> m_observers;
    Operation m_operation;
    std::tuple<std::decay_t<Args>...> m_args;
};

} // namespace Tessel::Internal
