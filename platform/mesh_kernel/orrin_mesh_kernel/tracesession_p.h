// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "orrin_mesh_kernel/tracefile_p.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace Orrin::Core::Internal {

/// One trace from its opening to its closing: what a TraceWriter shares with its sinks. All
/// operations may be called from any thread.
class TraceSession
{
public:
    TraceSession();

    bool open(const std::filesystem::path &path, const std::wstring &processName);
    void write(const std::wstring &waypoint) noexcept;
    bool flush();
    bool close();

    bool isOpen() const { return m_isOpen.load(std::memory_order_acquire); }
    std::error_code error() const;

    TraceSession(const TraceSession &) = delete;
    TraceSession &operator=(const TraceSession &) = delete;

private:
    using Clock = std::chrono::steady_clock;

    /// A command run that has begun and not ended.
    struct Run
    {
        std::string body; // name and arguments of its events, without the closing brackets
        std::uint64_t id;
    };

    void record(const std::wstring &waypoint);
    void beginRun(std::string &&body);
    bool endRun(std::string_view body);
    void endOldestUnfinished();
    void nameThread();

    void appendEvent(const char *phase, std::uint64_t id, std::string_view body,
                     std::string_view end);

    const std::uint64_t m_serial;
    const Clock::time_point m_start = Clock::now();
    std::atomic<bool> m_isOpen {false};

    mutable std::mutex m_mutex; // guards what follows
    TraceFile m_file;
    std::vector<Run> m_runs; // in the order of their beginning
    std::uint64_t m_lastId = 0;
    Clock::time_point m_now = m_start; // of the event being written; never goes back
    bool m_hasLostEvents = false;
};

} // namespace Orrin::Core::Internal
