// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "orrin_mesh_kernel/meshkernelexport.h"

#include <functional>
#include <memory>
#include <string>

namespace Orrin::Core {

class KernelPrivate;

/// Result of a kernel or service operation.
enum ERcmStatus : int {
    eRcmSuccess = 0, ///< done
    eRcmFailure = 1, ///< not done
};

/// The part of the mesh kernel that the user interface talks to: it takes profiler waypoints, short
/// texts that mark what the application does, and hands them to a sink that the host chooses.
class ORRIN_MESH_KERNEL_EXPORT Kernel
{
public:
    /// Receives the text of each waypoint on the thread that wrote it. It may be called from several
    /// threads at once.
    using WaypointSink = std::function<void(const std::wstring &text)>;

    Kernel();
    virtual ~Kernel();

    /// Hands @p text to the sink. Any thread; never blocks on another waypoint. Without a sink, or
    /// with a null text, nothing happens.
    /// @return eRcmSuccess, or eRcmFailure for a null text
    virtual ERcmStatus ProfilerWaypoint(const wchar_t *text) const;

    /// Replaces the sink; an empty one switches waypoints off. Any thread. A waypoint that is being
    /// written meanwhile may still reach the old sink.
    void setWaypointSink(WaypointSink sink);

    Kernel(const Kernel &) = delete;
    Kernel &operator=(const Kernel &) = delete;

private:
    const std::unique_ptr<KernelPrivate> d;
};

} // namespace Orrin::Core
