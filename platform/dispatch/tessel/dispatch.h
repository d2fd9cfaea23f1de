// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tessel/dispatchexport.h"

#include <functional>

/// Work queues by quality of service: the only way by which the threads of the library meet.
///
/// The queues live as long as a QCoreApplication does. Before one is made, from the moment it
/// begins to end, and for empty work or an unknown quality of service, nothing runs and the
/// operations answer false. When the application ends, work that waits is dropped, its closure
/// destroyed, and background work that runs is waited for, so that nothing runs after the
/// application. A later application opens the queues again.
///
/// All operations may be called from any thread.
namespace Tessel {

/// Where a piece of work runs, from the most to the least urgent.
enum class EQualityOfService : int {
    Main = 0,            ///< the main thread, the one of the QCoreApplication
    UserInteractive = 1, ///< background: the user waits for the next frame
    UserInitiated = 2,   ///< background: the user started it and waits for it
    Utility = 3,         ///< background: the user may watch its progress
    Background = 4,      ///< background: the user does not know of it
};

/// Posts @p work and returns at once.
///
/// With EQualityOfService::Main the work runs later on the main thread, never inside the call, in
/// the order of posting, whichever threads post. A burst of posts costs one wake-up of the event
/// loop. Work that is posted while a burst runs waits until control was back in the event loop, and
/// a long burst gives control back every few milliseconds, so that input and painting go on. An
/// event loop that a piece of work opens goes on with the queue in order.
///
/// With any other quality of service the work runs on a background thread. Each quality has threads
/// of its own: work that blocks holds up its own quality at most.
///
/// An exception that leaves the work ends the process.
/// @return whether the work was accepted
/// @throw std::bad_alloc when memory runs out; nothing was posted then
TESSEL_DISPATCH_EXPORT bool dispatchAsync(const std::function<void()> &work, EQualityOfService qos);

/// The same for work that the caller gives away, which saves a copy of it.
TESSEL_DISPATCH_EXPORT bool dispatchAsync(std::function<void()> &&work, EQualityOfService qos);

/// Runs @p work at the given quality of service and returns when it is done.
///
/// With EQualityOfService::Main on the main thread itself, and with a background quality on a
/// thread that runs work of that same quality, the work runs inside the call, ahead of what waits
/// in the queue. On other threads it waits its turn behind what was posted before. The main thread
/// does not serve its queue while it waits for a background quality, so work that it waits for must
/// not call dispatchSync with EQualityOfService::Main.
///
/// An exception that leaves the work is thrown to the caller.
/// @return true when the work ran; false when it was refused, or dropped because the application
///         ended while the caller waited
/// @throw std::bad_alloc when memory runs out before the work was posted
TESSEL_DISPATCH_EXPORT bool dispatchSync(const std::function<void()> &work, EQualityOfService qos);

} // namespace Tessel
