// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstring>

namespace Lumo::Test {

/// The place of a virtual operation in its class's table, in bytes from the first one. Programs
/// that were built against an earlier version call by these places, so their order must not change.
/// Reads what the C++ ABI shared by g++ and clang++ keeps in a pointer to a member.
template<typename Operation>
std::size_t virtualSlot(Operation operation)
{
    std::size_t place = 0;
    static_assert(sizeof(operation) == 2 * sizeof(place));
    std::memcpy(&place, &operation, sizeof(place));
    return place - 1;
}

/// Whether the operation has a place in the table at all. Functions have even addresses, and the
/// same ABI marks a place by an odd number.
template<typename Operation>
bool isVirtual(Operation operation)
{
    return virtualSlot(operation) % 2 == 0;
}

/// Whether the operations stand in the table in the order given, with nothing between them.
template<typename... Operations>
bool areInFollowingSlots(Operations... operations)
{
    std::size_t expected = 0;
    bool isFirst = true;
    const auto follows = [&](std::size_t slot) {
        const bool asExpected = isFirst || slot == expected;
        isFirst = false;
        expected = slot + sizeof(void *);
        return asExpected;
    };
    return (follows(virtualSlot(operations)) && ...);
}

} // namespace Lumo::Test
