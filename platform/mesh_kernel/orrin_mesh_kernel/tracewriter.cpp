// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "orrin_mesh_kernel/tracewriter.h"

#include "orrin_mesh_kernel/tracesession_p.h"

#include <cstddef>
#include <cstdlib>
#include <mutex>
#include <vector>

namespace Orrin::Core {
namespace {

using Internal::TraceSession;

/// The sessions that exist, so that the end of the process can close those that nobody closed.
class SessionList
{
public:
    void add(const std::shared_ptr<TraceSession> &session)
    {
        const std::lock_guard lock(m_mutex);
        std::size_t kept = 0;
        for (std::size_t i = 0; i < m_sessions.size(); ++i) {
            if (!m_sessions[i].expired())
                m_sessions[kept++].swap(m_sessions[i]);
        }
        m_sessions.resize(kept);
        m_sessions.push_back(session);
    }

    void closeAll()
    {
        const std::lock_guard lock(m_mutex);
        for (const auto &weak : m_sessions) {
            if (const auto session = weak.lock())
                session->close();
        }
    }

private:
    std::mutex m_mutex;
    std::vector<std::weak_ptr<TraceSession>> m_sessions;
};

SessionList &sessionList()
{
    // Never destroyed, because writers in static objects of the program may be made after its end.
    static SessionList &list = *new SessionList;
    return list;
}

void closeAtExit(const std::shared_ptr<TraceSession> &session)
{
    sessionList().add(session);
    static const int registered = std::atexit([] { sessionList().closeAll(); });
    static_cast<void>(registered);
}

} // namespace

TraceWriter::TraceWriter(const std::filesystem::path &file, const std::wstring &processName)
    : d(std::make_shared<TraceSession>())
{
    if (d->open(file, processName))
        closeAtExit(d);
}

TraceWriter::~TraceWriter()
{
    d->close();
}

Kernel::WaypointSink TraceWriter::sink() const
{
    return [session = d](const std::wstring &waypoint) { session->write(waypoint); };
}

bool TraceWriter::isOpen() const
{
    return d->isOpen();
}

std::string TraceWriter::errorText() const
{
    const std::error_code error = d->error();
    return error ? error.message() : std::string();
}

bool TraceWriter::flush()
{
    return d->flush();
}

bool TraceWriter::close()
{
    return d->close();
}

} // namespace Orrin::Core
