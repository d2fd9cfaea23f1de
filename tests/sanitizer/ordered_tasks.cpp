// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <tbb/parallel_for.h>

#include <cstdio>
#include <numeric>
#include <vector>

// Tasks write cells of their own, and the caller reads them after all tasks are done.
int main()
{
    std::vector<int> cells(10000);
    int sum = 0;
    for (int round = 0; round < 20; ++round) {
        tbb::parallel_for(std::size_t(0), cells.size(), [&](std::size_t i) { cells[i] = round; });
        sum += std::accumulate(cells.begin(), cells.end(), 0);
    }
    std::printf("%d\n", sum);
    return sum == 1900000 ? 0 : 1;
}
