// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <cstdio>
#include <limits>

// Adds past the largest int.
int main(int argc, char **)
{
    std::printf("%d\n", std::numeric_limits<int>::max() + argc);
    return 0;
}
