// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "orrin_mesh_kernel/kernel.h"
#include "orrin_mesh_kernel/meshkernelexport.h"

#include <filesystem>
#include <memory>
#include <string>

namespace Orrin::Core {

namespace Internal {
class TraceSession;
}

/// Writes the waypoints of a kernel to a file in the JSON trace event format, which Perfetto
/// (ui.perfetto.dev) and chrome://tracing open.
///
/// @code
/// TraceWriter trace("run.json");
/// if (!trace.isOpen())
///     std::cerr << trace.errorText() << '\n';
/// kernel.setWaypointSink(trace.sink());
/// @endcode
///
/// The waypoints `CMD BEGIN <class>(<checked>)` and `CMD END   <class>(<checked>)` become one slice
/// per command run, named by the class and with `checked` as its argument. Runs may nest and
/// overlap and end on another thread than they began on, so a slice stands on a track of its own
/// instead of its thread's. The text does not tell two runs of one class apart: an end closes the
/// latest begin of the same class and value that is open, so a begin without an end, as of a
/// command that threw, leaves later runs right. A run that is open when the trace is closed ends
/// there with the argument `unfinished`; so does the oldest one when more than 1024 are open.
///
/// Every other text, also an end without a begin, becomes an instant event on its thread. Texts
/// beyond 4096 characters are cut. Times count from the making of the writer.
///
/// Events are gathered in 64 KiB and written when these are full, by flush() and by close(). The
/// file is a complete JSON document after every write, so a crash costs the events of the last 64
/// KiB at most. A writer that is still open when the process ends by exit() or by leaving main() is
/// closed then.
///
/// All operations may be called from any thread. \sa Kernel::setWaypointSink()
class ORRIN_MESH_KERNEL_EXPORT TraceWriter
{
public:
    /// Creates the file. isOpen() and errorText() tell the outcome; a writer that failed can be
    /// used and writes nothing.
    /// @param file a regular file; one that exists is overwritten, its folder has to exist
    /// @param processName what the viewers call the process; the program's name when empty
    explicit TraceWriter(const std::filesystem::path &file, const std::wstring &processName = {});

    /// Closes the trace. Sinks that are left do nothing from then on.
    ~TraceWriter();

    /// The sink to hand to Kernel::setWaypointSink(). It shares the trace with the writer and may
    /// be kept longer; it never throws, and whatever happens to the file stays away from its
    /// caller.
    Kernel::WaypointSink sink() const;

    /// Whether waypoints are being written: false when the file could not be opened, after close()
    /// and once a write failed, as on a full disk. What was written before then stays a valid
    /// trace.
    bool isOpen() const;

    /// Why not all waypoints are in the file, for a log; empty while nothing went wrong.
    std::string errorText() const;

    /// Writes all waypoints so far to the file. Runs that are open stay open in it.
    /// @return whether everything up to now is in the file
    bool flush();

    /// Ends the runs that are open and closes the file; a second call changes nothing.
    /// @return whether everything is in the file
    bool close();

    TraceWriter(const TraceWriter &) = delete;
    TraceWriter &operator=(const TraceWriter &) = delete;

private:
    const std::shared_ptr<Internal::TraceSession> d;
};

} // namespace Orrin::Core
