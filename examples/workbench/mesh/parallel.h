// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/cancellation.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

namespace Workbench {

/// Calls @p body with every index from 0 to @p count - 1, on all cores, in no particular order.
/// Returns when all calls are done, or early when @p cancellation is thrown; then some are left
/// out.
template<typename Body>
void forEachIndex(int count, const Cancellation &cancellation, const Body &body)
{
    const auto walk = [&body](const tbb::blocked_range<int> &range) {
        for (int index = range.begin(); index != range.end(); ++index)
            body(index);
    };
    // Pieces of this size keep a core busy for some microseconds and still end soon when cancelled.
    constexpr int grain = 1024;
    tbb::parallel_for(tbb::blocked_range<int>(0, count, grain), walk, cancellation.context());
}

} // namespace Workbench
