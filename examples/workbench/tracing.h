// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "waypoints.h"

#include <orrin_mesh_kernel/TraceWriter>

#include <QString>

namespace Workbench {

/// Writes the runs of all commands to a file, as long as it lives.
class Tracing
{
public:
    explicit Tracing(const QString &file);
    ~Tracing();

    /// A sentence that says why the file can't be written; empty when it can.
    QString errorText() const;

    /// Brings everything up to now into the file.
    void flush();

    Tracing(const Tracing &) = delete;
    Tracing &operator=(const Tracing &) = delete;

private:
    const QString m_file;
    Orrin::Core::TraceWriter m_writer;
    const WaypointListener m_listener;
};

} // namespace Workbench
