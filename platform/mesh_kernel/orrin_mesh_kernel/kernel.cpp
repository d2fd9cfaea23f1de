// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "orrin_mesh_kernel/kernel.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace Orrin::Core {

class KernelPrivate
{
public:
    using SharedSink = std::shared_ptr<const Kernel::WaypointSink>;

    SharedSink currentSink() const
    {
        const std::lock_guard lock(mutex);
        return sink;
    }

    // The flag and the sink change together under the lock, so that of two replacements at once
    // neither leaves a sink that is switched off.
    SharedSink exchangeSink(SharedSink newSink)
    {
        const std::lock_guard lock(mutex);
        hasSink.store(newSink != nullptr, std::memory_order_relaxed);
        sink.swap(newSink);
        return newSink;
    }

    // Asked before the lock, so that a waypoint costs next to nothing without a sink.
    std::atomic<bool> hasSink {false};

private:
    mutable std::mutex mutex;
    SharedSink sink;
};

Kernel::Kernel()
    : d(std::make_unique<KernelPrivate>())
{ }

Kernel::~Kernel() = default;

ERcmStatus Kernel::ProfilerWaypoint(const wchar_t *text) const
{
    if (!text)
        return eRcmFailure;
    if (!d->hasSink.load(std::memory_order_relaxed))
        return eRcmSuccess;
    try {
        if (const auto sink = d->currentSink())
            (*sink)(text);
        return eRcmSuccess;
    } catch (...) {
        return eRcmFailure;
    }
}

void Kernel::setWaypointSink(WaypointSink sink)
{
    KernelPrivate::SharedSink shared;
    if (sink)
        shared = std::make_shared<const WaypointSink>(std::move(sink));
    // The old sink ends here, outside the lock, because its end may write waypoints itself.
    const auto old = d->exchangeSink(std::move(shared));
}

} // namespace Orrin::Core
