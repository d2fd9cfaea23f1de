// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <dlfcn.h>

#include <cstdio>

// Loads and unloads the library of the first argument, every symbol bound at once.
int main(int argc, char *argv[])
{
    if (argc != 2)
        return 2;
    void *library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    return dlclose(library);
}
