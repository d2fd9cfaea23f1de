// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <cstdio>
#include <cstdlib>

// Allocates and drops the only pointer.
int main()
{
    int *volatile lost = new int(1);
    std::printf("%d\n", *lost);
    lost = nullptr;
    return EXIT_SUCCESS;
}
