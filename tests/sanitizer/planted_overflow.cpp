// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <cstdio>
#include <memory>

// Reads one past the end of a block. The index is no constant, so that the compiler can't see it.
int main(int argc, char **)
{
    const auto block = std::make_unique<int[]>(4);
    std::printf("%d\n", block[static_cast<std::size_t>(argc + 3)]);
    return 0;
}
