// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/broadcaster.h"

namespace Tessel {

/// A broadcaster that is meant for one observer, its delegate. The delegate is simply the one
/// observer left in the lists: setting one removes all observers there are.
/// \sa Broadcaster
template<typename Protocol>
class TESSEL_CORE_VISIBLE Delegator : public Broadcaster<Protocol>
{
public:
    /// Replaces all observers by @p delegate, which is called as addObserver() tells. Null leaves
    /// none. Calls removeAllObservers() and addObserver().
    virtual void setDelegate(const std::shared_ptr<Protocol> &delegate, bool onMainQueue)
    {
        this->removeAllObservers();
        this->addObserver(delegate, onMainQueue);
    }

    /// Replaces all observers by @p delegate, which has to be a QObject. Null leaves none. Calls
    /// removeAllObservers() and addObserver().
    /// @throw std::invalid_argument when @p delegate is not a QObject; no observer is left then
    virtual void setDelegate(Protocol *delegate)
    {
        this->removeAllObservers();
        this->addObserver(delegate);
    }

    /// The delegate, not kept alive by the pointer; null when there is none or it has died. With
    /// further observers the first QObject, else the first for the main queue, else the first
    /// direct one. Call it on the main thread where the delegate can be a QObject.
    Protocol *getDelegate() const { return this->firstObserver(); }

protected:
    /// Calls @p operation on the delegate.
    /// @return what Broadcaster::broadcast() returns
    template<typename Result, typename... Args>
    auto delegate(Result (Protocol::*operation)(Args...),
                  typename Internal::Identity<Args>::Type... args)
    {
        return this->broadcast(operation, static_cast<Args>(args)...);
    }
};

} // namespace Tessel
