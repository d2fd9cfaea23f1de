// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/runbenchmarks.h"

#include "support/worker.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

namespace Lumo::Bench {

int runBenchmarks(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    // The C and C++ libraries lock and count references without atomic operations until the process
    // starts its first thread, so it matters whether there is one.
    const bool threads = std::getenv("LUMO_BENCH_THREADS");
    const auto secondThread = threads ? std::make_unique<Worker>() : nullptr;
    const bool foundAny = benchmark::RunSpecifiedBenchmarks() > 0;
    benchmark::Shutdown();
    return foundAny ? 0 : 1;
}

} // namespace Lumo::Bench
