// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does it cost another library to place a popup beside its reference? The scenes are those of
// bench_popup.cpp, the output is that of Google Benchmark.

import { arrow, computePosition, flip, offset, shift } from '@floating-ui/core';

const padding = 30;

/// A platform whose elements are rectangles already: only the solving is measured.
function platformFor(area) {
    const dimensions = ({ width, height }) => ({ width, height });
    return {
        getElementRects: ({ reference, floating }) => ({ reference, floating }),
        getClippingRect: () => area,
        getDimensions: dimensions,
    };
}

function scene(x, y, middleware) {
    const reference = { x, y, width: 60, height: 40 };
    const floating = { x: 0, y: 0, width: 213, height: 117 };
    const platform = platformFor({ x: 0, y: 0, width: 800, height: 600 });
    return () => computePosition(reference, floating, { placement: 'top', platform, middleware });
}

const tip = { width: 20, height: 10 };
const benchmarks = {
    // There is no room above, so it goes below.
    solvePlainFloatingUi: scene(300, 50, [offset(10), flip({ padding })]),
    // It would leave the window on the right, so it is shifted and its arrow with it.
    solveArrowFloatingUi: scene(700, 300, [
        offset(10),
        flip({ padding }),
        shift({ padding }),
        arrow({ element: tip, padding: 5 }),
    ]),
};

async function run(solve, times) {
    let sum = 0;
    for (let i = 0; i < times; ++i)
        sum += (await solve()).x;
    return sum;
}

/// Nanoseconds of processor time and of the wall for one call.
async function measure(solve, seconds) {
    await run(solve, 50_000); // until the compiler is done with it
    let calls = 0;
    const wall = process.hrtime.bigint();
    const processor = process.cpuUsage();
    do {
        await run(solve, 1000);
        calls += 1000;
    } while (Number(process.hrtime.bigint() - wall) < seconds * 1e9);
    const used = process.cpuUsage(processor);
    return {
        iterations: calls,
        real_time: Number(process.hrtime.bigint() - wall) / calls,
        cpu_time: ((used.user + used.system) * 1000) / calls,
        time_unit: 'ns',
    };
}

function argument(name, otherwise) {
    const prefix = `--benchmark_${name}=`;
    const given = process.argv.find((text) => text.startsWith(prefix));
    return given ? given.slice(prefix.length) : otherwise;
}

const filter = new RegExp(argument('filter', '.'));
const seconds = parseFloat(argument('min_time', '0.5'));
const results = [];
for (const [name, solve] of Object.entries(benchmarks).filter(([name]) => filter.test(name)))
    results.push({ name, ...(await measure(solve, seconds)) });
console.log(JSON.stringify({ benchmarks: results }, null, 2));
