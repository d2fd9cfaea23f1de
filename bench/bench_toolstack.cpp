// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does a reset of the tools gain by going over the stacks in parallel? Each of n buttons has
// one active tool, which computes for some 20 us when it is activated. A loop that cycles the same
// tools one after the other is the peer, and the bare computation shared out to the workers is the
// limit.

#include "ui_base/tool/interactivetool.h"
#include "ui_base/tool/toolstack.h"

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <tbb/parallel_for.h>

#include <memory>
#include <vector>

using namespace Lumo::Bench;
using namespace Vela::UiBase;

namespace {

constexpr int burst = 20;
constexpr int warmUps = 200;
// Some 20 us on a processor of 2 to 3 GHz; a fixed amount, so that all sides have the same to do.
constexpr int steps = 15000;

class ComputingTool : public InteractiveTool
{
public:
    ComputingTool()
        : InteractiveTool(nullptr)
    { }

    void activate() override
    {
        InteractiveTool::activate();
        compute();
    }

    void compute()
    {
        std::uint64_t value = m_value;
        for (int i = 0; i < steps; ++i)
            benchmark::DoNotOptimize(value = value * 6364136223846793005u + 1442695040888963407u);
        m_value = value;
        ++m_computed;
    }

    std::int64_t computed() const { return m_computed; }

private:
    std::uint64_t m_value = 1;
    std::int64_t m_computed = 0;
};

using Computing = std::vector<std::shared_ptr<ComputingTool>>;

/// The tools of n buttons and the ways to reset them.
class Way
{
public:
    explicit Way(std::int64_t buttons)
    {
        for (std::int64_t i = 0; i < buttons; ++i) {
            m_tools.push_back(std::make_shared<ComputingTool>());
            m_stack->pushTool(static_cast<EToolActivationButton>(i), m_tools.back());
        }
    }

    std::int64_t computed() const
    {
        std::int64_t sum = 0;
        for (const auto &tool : m_tools)
            sum += tool->computed();
        return sum;
    }

protected:
    Computing m_tools;
    std::shared_ptr<ToolStack> m_stack = std::make_shared<ToolStack>();
};

class LoopWay : public Way
{
public:
    using Way::Way;

    void reset()
    {
        for (const auto &tool : m_tools) {
            tool->deactivate();
            tool->activate();
        }
    }
};

class StackWay : public Way
{
public:
    using Way::Way;

    void reset() { m_stack->resetTools(); }
};

class BareWay : public Way
{
public:
    using Way::Way;

    void reset()
    {
        if (m_tools.size() == 1)
            return m_tools.front()->compute();
        tbb::parallel_for(std::size_t(0), m_tools.size(),
                          [this](std::size_t i) { m_tools[i]->compute(); });
    }
};

/// Times one reset. The notifications leave closures on the main queue; running them counts.
template<typename Way>
void reset(benchmark::State &state)
{
    Way way(state.range(0));
    for (int i = 0; i < warmUps; ++i)
        way.reset();
    drainMainQueue();
    const std::int64_t before = way.computed();
    while (state.KeepRunningBatch(burst)) {
        for (int i = 0; i < burst; ++i)
            way.reset();
        drainMainQueue();
    }
    if (way.computed() - before != state.iterations() * state.range(0))
        state.SkipWithError("a tool was not reset");
}

void counts(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1)->Arg(2)->Arg(4)->UseRealTime();
}

BENCHMARK_TEMPLATE(reset, LoopWay)->Name("resetLoop")->Apply(counts);
BENCHMARK_TEMPLATE(reset, StackWay)->Name("resetStack")->Apply(counts);
BENCHMARK_TEMPLATE(reset, BareWay)->Name("resetBare")->Apply(counts);

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}
