// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>

namespace Orrin::Core::Internal {

/// The number that the system's tools show for this process.
std::uint64_t currentProcessId();

/// The number that the system's tools show for this thread; it is asked for once per thread.
std::uint64_t currentThreadId();

/// "main" for the thread that entered main(), else the name that the thread was given.
std::wstring currentThreadName();

/// Name of the program's file.
std::wstring programName();

} // namespace Orrin::Core::Internal
