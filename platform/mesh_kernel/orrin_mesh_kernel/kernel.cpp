// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "orrin_mesh_kernel/kernel.h"

#include <atomic>
#include <utility>

namespace Orrin::Core {

class KernelPrivate
{
public:
    // Asked before the shared pointer, so that a waypoint costs next to nothing without a sink.
    std::atomic<bool> hasSink {false};
    std::shared_ptr<const Kernel::WaypointSink> sink;
};

Kernel::Kernel()
    : d(std::make_unique<KernelPrivate>())
{
}

Kernel::~Kernel() = default;

ERcmStatus Kernel::ProfilerWaypoint(const wchar_t *text) const
{
    if (!text)
        return eRcmFailure;
    if (!d->hasSink.load(std::memory_order_acquire))
        return eRcmSuccess;
    if (const auto sink = std::atomic_load(&d->sink))
        (*sink)(text);
    return eRcmSuccess;
}

void Kernel::setWaypointSink(WaypointSink sink)
{
    const bool hasSink = static_cast<bool>(sink);
    auto shared = hasSink ? std::make_shared<const WaypointSink>(std::move(sink)) : nullptr;
    std::atomic_store(&d->sink, std::shared_ptr<const WaypointSink>(std::move(shared)));
    d->hasSink.store(hasSink, std::memory_order_release);
}

} // namespace Orrin::Core
