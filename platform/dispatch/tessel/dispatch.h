// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tessel/dispatchexport.h"

#include <functional>

/// Work queues by quality of service.
namespace Tessel {

/// Where a piece of work runs, from the most to the least urgent.
enum class EQualityOfService : int {
    Main = 0,            ///< the main thread, the one of the QCoreApplication
    UserInteractive = 1, ///< background: the user waits for the next frame
    UserInitiated = 2,   ///< background: the user started it and waits for it
    Utility = 3,         ///< background: the user may watch its progress
    Background = 4,      ///< background: the user does not know of it
};

bool TESSEL_DISPATCH_EXPORT dispatchAsync(const std::function<void()> &work, EQualityOfService qos);
bool TESSEL_DISPATCH_EXPORT dispatchAsync(std::function<void()> &&work, EQualityOfService qos);
bool TESSEL_DISPATCH_EXPORT dispatchSync(const std::function<void()> &work, EQualityOfService qos);

} // namespace Tessel
