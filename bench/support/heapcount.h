// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace Lumo::Bench {

/// Bytes that the program, its libraries included, asked of operator new and has not given back.
/// A program that links heapcount.cpp replaces operator new; it is no place to take times.
std::int64_t liveHeapBytes();

} // namespace Lumo::Bench
