// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "orrin_mesh_kernel/tracesession_p.h"

#include "orrin_mesh_kernel/jsontext_p.h"
#include "orrin_mesh_kernel/processinfo_p.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace Orrin::Core::Internal {
namespace {

constexpr std::size_t maxTextLength = 4096;
constexpr std::size_t maxOpenRuns = 1024;
constexpr std::uint64_t noId = 0;        // of an event that stands for itself
constexpr std::size_t longestEscape = 6; // bytes that one unit of text takes at most
static_assert((maxTextLength + 1) * longestEscape + 512 < TraceFile::maxEventSize);

constexpr std::wstring_view beginMark = L"CMD BEGIN ";
constexpr std::wstring_view endMark = L"CMD END   ";
constexpr std::wstring_view trueMark = L"(true)";
constexpr std::wstring_view falseMark = L"(false)";

enum class EWaypoint {
    Begin,
    End,
    Other
};

/// What the text of a waypoint says.
struct Waypoint
{
    EWaypoint kind = EWaypoint::Other;
    std::wstring_view className;
    bool isChecked = false;
};

bool startsWith(std::wstring_view text, std::wstring_view mark)
{
    return text.substr(0, mark.size()) == mark;
}

bool takeSuffix(std::wstring_view &text, std::wstring_view mark)
{
    // The class in front of the mark is not empty.
    if (text.size() <= mark.size() || text.substr(text.size() - mark.size()) != mark)
        return false;
    text.remove_suffix(mark.size());
    return true;
}

Waypoint parse(std::wstring_view text)
{
    const bool isBegin = startsWith(text, beginMark);
    if (!isBegin && !startsWith(text, endMark))
        return {};
    text.remove_prefix(beginMark.size());
    const bool isChecked = takeSuffix(text, trueMark);
    if (!isChecked && !takeSuffix(text, falseMark))
        return {};
    return {isBegin ? EWaypoint::Begin : EWaypoint::End, text, isChecked};
}
static_assert(beginMark.size() == endMark.size());

void appendBounded(std::string &json, std::wstring_view text)
{
    appendJsonText(json, text.substr(0, maxTextLength));
    if (text.size() > maxTextLength)
        appendJsonText(json, L"\u2026");
}

std::string runBody(const Waypoint &waypoint)
{
    std::string body = ",\"cat\":\"command\",\"name\":\"";
    appendBounded(body, waypoint.className);
    body += waypoint.isChecked ? "\",\"args\":{\"checked\":true" : "\",\"args\":{\"checked\":false";
    return body;
}

std::string instantBody(const std::wstring &text)
{
    std::string body = ",\"s\":\"t\",\"cat\":\"waypoint\",\"name\":\"";
    appendBounded(body, text);
    body += '"';
    return body;
}

std::string nameEvent(const char *what, std::uint64_t thread, std::wstring_view name)
{
    std::string event = "{\"ph\":\"M\",\"pid\":" + std::to_string(currentProcessId())
        + ",\"tid\":" + std::to_string(thread) + ",\"name\":\"" + what + "\",\"args\":{\"name\":\"";
    appendBounded(event, name);
    event += "\"}}";
    return event;
}

std::uint64_t nextSerial()
{
    static std::atomic<std::uint64_t> last {0};
    return ++last;
}

// The session that wrote the name of this thread last. A thread that serves two sessions in turn
// writes its name again, which does no harm, and no session has to remember threads.
thread_local std::uint64_t namedForSerial = 0;

} // namespace

TraceSession::TraceSession()
    : m_serial(nextSerial())
{ }

bool TraceSession::open(const std::filesystem::path &path, const std::wstring &processName)
{
    const std::wstring name = processName.empty() ? programName() : processName;
    const std::lock_guard lock(m_mutex);
    const bool isOpen = m_file.open(path, nameEvent("process_name", currentThreadId(), name));
    m_isOpen.store(isOpen, std::memory_order_release);
    return isOpen;
}

void TraceSession::write(const std::wstring &waypoint) noexcept
{
    if (!isOpen())
        return;
    try {
        record(waypoint);
    } catch (...) {
        const std::lock_guard lock(m_mutex);
        m_hasLostEvents = true;
    }
}

bool TraceSession::flush()
{
    const std::lock_guard lock(m_mutex);
    const bool isWritten = m_file.flush();
    m_isOpen.store(m_file.isOpen(), std::memory_order_release);
    return isWritten && !m_hasLostEvents;
}

bool TraceSession::close()
{
    const std::lock_guard lock(m_mutex);
    if (m_file.isOpen())
        m_now = std::max(m_now, Clock::now());
    while (!m_runs.empty())
        endOldestUnfinished();
    const bool isWritten = m_file.close();
    m_isOpen.store(false, std::memory_order_release);
    return isWritten && !m_hasLostEvents;
}

std::error_code TraceSession::error() const
{
    const std::lock_guard lock(m_mutex);
    if (!m_file.error() && m_hasLostEvents)
        return std::make_error_code(std::errc::not_enough_memory);
    return m_file.error();
}

void TraceSession::record(const std::wstring &waypoint)
{
    // The text is prepared before the lock and the time is taken before it too, so that waiting for
    // another thread's write does not show as time of the command.
    const Clock::time_point now = Clock::now();
    const Waypoint parsed = parse(waypoint);
    std::string body = parsed.kind == EWaypoint::Other ? instantBody(waypoint) : runBody(parsed);

    const std::lock_guard lock(m_mutex);
    if (!m_file.isOpen())
        return;
    m_now = std::max(m_now, now);
    nameThread();
    if (parsed.kind == EWaypoint::Begin)
        beginRun(std::move(body));
    else if (parsed.kind == EWaypoint::Other)
        appendEvent("i", noId, body, "}");
    else if (!endRun(body))
        appendEvent("i", noId, instantBody(waypoint), "}");
    m_isOpen.store(m_file.isOpen(), std::memory_order_release);
}

void TraceSession::beginRun(std::string &&body)
{
    if (m_runs.size() >= maxOpenRuns)
        endOldestUnfinished();
    m_runs.push_back({std::move(body), m_lastId + 1});
    appendEvent("b", ++m_lastId, m_runs.back().body, "}}");
}

bool TraceSession::endRun(std::string_view body)
{
    const auto run = std::find_if(m_runs.rbegin(), m_runs.rend(),
                                  [body](const Run &open) { return open.body == body; });
    if (run == m_runs.rend())
        return false;
    appendEvent("e", run->id, body, "}}");
    m_runs.erase(std::next(run).base());
    return true;
}

void TraceSession::endOldestUnfinished()
{
    const Run &run = m_runs.front();
    appendEvent("e", run.id, run.body, ",\"unfinished\":true}}");
    m_runs.erase(m_runs.begin());
}

void TraceSession::nameThread()
{
    if (namedForSerial == m_serial)
        return;
    m_file.append({nameEvent("thread_name", currentThreadId(), currentThreadName())});
    namedForSerial = m_serial;
}

void TraceSession::appendEvent(const char *phase, std::uint64_t id, std::string_view body,
                               std::string_view end)
{
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::nanoseconds>(m_now - m_start).count();
    std::array<char, 192> head {};
    std::snprintf(head.data(), head.size(),
                  "{\"ph\":\"%s\",\"pid\":%llu,\"tid\":%llu,\"ts\":%lld.%03lld", phase,
                  static_cast<unsigned long long>(currentProcessId()),
                  static_cast<unsigned long long>(currentThreadId()),
                  static_cast<long long>(elapsed / 1000), static_cast<long long>(elapsed % 1000));
    std::array<char, 32> idText {};
    if (id != noId)
        std::snprintf(idText.data(), idText.size(), ",\"id\":\"0x%llx\"",
                      static_cast<unsigned long long>(id));
    m_file.append({head.data(), idText.data(), body, end});
}

} // namespace Orrin::Core::Internal
