// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// How long does a process take until its first frame, and how much memory at most? Whole programs are
// run, one with nothing but a window, and others with commands on a tool bar.

#include "support/runbenchmarks.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>

namespace {

struct SUse
{
    bool hasRun = false;
    double seconds = 0; // of processor time
    double peakBytes = 0;
};

double secondsOf(const timeval &time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

SUse useOf(const char *program, int commands)
{
    std::string path = program;
    std::string count = std::to_string(commands);
    const std::array<char *, 3> arguments {path.data(), count.data(), nullptr};
    pid_t process = 0;
    if (posix_spawn(&process, program, nullptr, nullptr, arguments.data(), environ) != 0)
        return {};
    int status = 0;
    rusage usage {};
    if (wait4(process, &status, 0, &usage) != process || status != 0)
        return {};
    return {true, secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) * 1024};
}

void start(benchmark::State &state, const char *program)
{
    double peak = 0;
    for (auto _ : state) {
        const SUse use = useOf(program, static_cast<int>(state.range(0)));
        if (!use.hasRun)
            state.SkipWithError("the program has not run");
        state.SetIterationTime(use.seconds);
        peak += use.peakBytes;
    }
    state.counters["peak"] = peak / static_cast<double>(state.iterations());
}

void startQt(benchmark::State &state)
{
    start(state, START_QT);
}

void startLumo(benchmark::State &state)
{
    start(state, START_LUMO);
}

BENCHMARK(startQt)->Arg(0)->Arg(30)->Arg(300)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(startLumo)->Arg(0)->Arg(30)->Arg(300)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    return Lumo::Bench::runBenchmarks(argc, argv);
}
