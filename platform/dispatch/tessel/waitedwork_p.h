// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

namespace Tessel {

/// Hands a closure that runs @p work to @p post and waits until the closure has run or was
/// destroyed without running. An exception out of the work is thrown to the caller.
/// @return whether the work ran
bool runAndWait(const std::function<void()> &work,
                const std::function<bool(std::function<void()> &&)> &post);

} // namespace Tessel
