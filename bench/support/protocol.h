// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace Lumo::Bench {

/// What the notifications carry in each of the compared ways: a pointer and a flag, as the
/// notifications of commands do.
struct Subject
{ };

/// The protocol of the measured broadcasts.
class SubjectProtocol
{
public:
    virtual ~SubjectProtocol() = default;
    virtual void changed(Subject *, bool) { }
};

/// Does the least that proves the call: counts.
class CountingObserver : public SubjectProtocol
{
public:
    void changed(Subject *, bool on) override { m_heard += on ? 1 : 2; }
    std::int64_t heard() const { return m_heard; }

private:
    std::int64_t m_heard = 0;
};

using CountingObservers = std::vector<std::shared_ptr<CountingObserver>>;

inline CountingObservers makeObservers(std::int64_t count)
{
    CountingObservers observers;
    for (std::int64_t i = 0; i < count; ++i)
        observers.push_back(std::make_shared<CountingObserver>());
    return observers;
}

} // namespace Lumo::Bench
