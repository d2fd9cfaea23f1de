// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

// The interface that a dispatch library of the host's own has to offer, and one count beside it.
namespace Tessel {

enum class EQualityOfService : int {
    Main = 0,
    UserInteractive = 1,
    UserInitiated = 2,
    Utility = 3,
    Background = 4,
};

bool dispatchAsync(const std::function<void()> &work, EQualityOfService qos);
bool dispatchAsync(std::function<void()> &&work, EQualityOfService qos);
bool dispatchSync(const std::function<void()> &work, EQualityOfService qos);

} // namespace Tessel

int ownDispatchCalls();
