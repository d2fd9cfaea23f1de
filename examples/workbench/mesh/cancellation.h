// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <tbb/task_group.h>

namespace Workbench {

/// A switch that is thrown once, by which one thread asks the work on others to stop. Parallel
/// loops that run in its context() stop by themselves; serial stretches ask isCancelled(). Any
/// thread.
class Cancellation
{
public:
    Cancellation() = default;

    void cancel() { m_context.cancel_group_execution(); }
    bool isCancelled() const { return m_context.is_group_execution_cancelled(); }

    tbb::task_group_context &context() const { return m_context; }

    Cancellation(const Cancellation &) = delete;
    Cancellation &operator=(const Cancellation &) = delete;

private:
    // Isolated: work that is cancelled takes nothing else down that runs on the same pool. TBB does
    // not offer its questions as const.
    mutable tbb::task_group_context m_context {tbb::task_group_context::isolated};
};

} // namespace Workbench
