// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tessel/dispatch.h"

#include <array>
#include <memory>
#include <mutex>

class QThreadPool;

namespace Tessel {

using Work = std::function<void()>;

/// One pool of threads per background quality of service, so that no quality can starve another.
class WorkerPools
{
public:
    WorkerPools();
    ~WorkerPools();

    void open();

    /// Refuses work from now on.
    void refuse();

    /// Refuses work, destroys what waits and returns when nothing runs any more.
    void close();

    /// Starts @p work, which is not empty, at the background quality @p qos. Any thread.
    /// @return false when the pools are closed
    bool post(Work &&work, EQualityOfService qos);

    /// Whether the calling thread runs work of @p qos at this moment.
    static bool isOnThreadOf(EQualityOfService qos);

private:
    static constexpr int count = static_cast<int>(EQualityOfService::Background);

    std::mutex m_mutex;
    std::array<std::unique_ptr<QThreadPool>, count> m_pools;
    bool m_open = false;
};

} // namespace Tessel
