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
///
/// All operations may be called from any thread at any time. A host derives from it to bring a
/// kernel of its own. \sa TraceWriter, a ready sink
class ORRIN_MESH_KERNEL_EXPORT Kernel
{
public:
    /// Receives the text of each waypoint, on the thread that wrote it and before
    /// ProfilerWaypoint() returns. It may be called from several threads at once. It may write
    /// waypoints and replace the sink, itself included: a sink lives until its last call is over.
    using WaypointSink = std::function<void(const std::wstring &text)>;

    Kernel();
    virtual ~Kernel();

    /// Hands @p text to the sink. Costs one read of a flag while there is no sink. No lock is held
    /// while the sink runs, so waypoints of several threads don't wait for each other's sink.
    ///
    /// An exception from the sink ends here: who marks what he does must not fail because of it.
    /// @return eRcmSuccess, also without a sink; eRcmFailure for a null text, and when the sink
    ///         threw or memory for the text ran out
    virtual ERcmStatus ProfilerWaypoint(const wchar_t *text) const;

    /// Replaces the sink; an empty one switches waypoints off. A waypoint that another thread is
    /// writing meanwhile may still reach the old sink, even after this call returned.
    ///
    /// Throws std::bad_alloc when memory runs out; the old sink then stays.
    void setWaypointSink(WaypointSink sink);

    Kernel(const Kernel &) = delete;
    Kernel &operator=(const Kernel &) = delete;

private:
    const std::unique_ptr<KernelPrivate> d;
};

} // namespace Orrin::Core
