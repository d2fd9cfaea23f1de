// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <cstdio>
#include <thread>

// Two threads count without a lock.
int main()
{
    int count = 0;
    const auto add = [&count] {
        for (int i = 0; i < 1000; ++i)
            ++count;
    };
    std::thread other(add);
    add();
    other.join();
    std::printf("%d\n", count);
    return 0;
}
