// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <orrin_mesh_kernel/Kernel>

#include <memory>

namespace Workbench {

/// Hears every waypoint as long as it lives. The kernel knows one sink, which all listeners share.
/// Made and destroyed on the main thread.
class WaypointListener
{
public:
    using Sink = Orrin::Core::Kernel::WaypointSink;

    /// @param sink called on any thread; a call that has begun may still end after the listener's
    explicit WaypointListener(Sink sink);
    ~WaypointListener();

    WaypointListener(const WaypointListener &) = delete;
    WaypointListener &operator=(const WaypointListener &) = delete;

private:
    const std::shared_ptr<const Sink> m_sink;
};

} // namespace Workbench
