// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <vector>

namespace Lumo::Test {

/// Whether virtual operations, given as pointers to members of one class or of its first bases, stand
/// in their table in this order. Hosts that were built earlier call them by their place in it.
template<typename... Operations>
bool standInThisOrder(Operations... operations)
{
    // The C++ ABI of GCC and Clang writes the place into the first word of such a pointer.
    const auto place = [](const auto &operation) {
        std::ptrdiff_t word = 0;
        static_assert(sizeof operation >= sizeof word);
        std::memcpy(&word, &operation, sizeof word);
        return word;
    };
    const std::vector<std::ptrdiff_t> places {place(operations)...};
    return std::is_sorted(places.begin(), places.end(), std::less_equal<>());
}

} // namespace Lumo::Test
