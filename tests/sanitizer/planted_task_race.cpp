// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <tbb/global_control.h>
#include <tbb/parallel_for.h>

#include <atomic>
#include <cstdio>

// Two tasks, which meet so that they are sure to run on two threads, count without a lock.
int main()
{
    // Two threads also on a machine with one processor.
    const tbb::global_control twoThreads(tbb::global_control::max_allowed_parallelism, 2);
    std::atomic<int> met {0};
    int count = 0;
    tbb::parallel_for(0, 2, [&](int) {
        ++met;
        while (met.load() < 2) { }
        for (int i = 0; i < 1000; ++i)
            ++count;
    });
    std::printf("%d\n", count);
    return 0;
}
