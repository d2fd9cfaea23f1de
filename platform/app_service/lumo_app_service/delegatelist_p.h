// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace Vela::Services {

/// Delegates in the order of their adding, none of them owned. A delegate that is a QObject is held
/// by a guarded pointer. Calls may add and remove delegates, end them and walk the list again: who
/// is removed is not called any more, who is added is called from the next walk on. Main thread.
template<typename Protocol>
class DelegateList
{
public:
    void add(Protocol *delegate)
    {
        if (!delegate)
            return;
        eraseIf([](const Entry &entry) { return !entry.isAlive(); });
        auto *const object = dynamic_cast<QObject *>(delegate);
        m_entries.push_back({++m_lastNumber, delegate, object, object != nullptr});
    }

    void remove(Protocol *delegate)
    {
        eraseIf([delegate](const Entry &entry) { return entry.delegate == delegate; });
    }

    /// Calls @p operation on each delegate until one answers false; returns whether none did.
    template<typename Operation>
    bool callWhileTrue(const Operation &operation) const
    {
        const std::uint64_t lastNumber = m_lastNumber;
        std::uint64_t number = 0;
        while (const Entry *entry = aliveEntryBehind(number)) {
            if (entry->number > lastNumber)
                break;
            number = entry->number;
            if (!operation(entry->delegate))
                return false;
        }
        return true;
    }

private:
    struct Entry
    {
        bool isAlive() const { return !isObject || object; }

        std::uint64_t number; // grows along the list; a walk finds its place again by it
        Protocol *delegate;
        QPointer<QObject> object;
        bool isObject;
    };

    template<typename Predicate>
    void eraseIf(const Predicate &predicate)
    {
        m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(), predicate),
                        m_entries.end());
    }

    const Entry *aliveEntryBehind(std::uint64_t number) const
    {
        const auto found =
            std::find_if(m_entries.begin(), m_entries.end(), [number](const Entry &entry) {
                return entry.number > number && entry.isAlive();
            });
        return found == m_entries.end() ? nullptr : &*found;
    }

    std::vector<Entry> m_entries;
    std::uint64_t m_lastNumber = 0;
};

} // namespace Vela::Services
