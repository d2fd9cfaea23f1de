// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "orrin_mesh_kernel/tracefile_p.h"

#include <cerrno>

namespace Orrin::Core::Internal {
namespace {

constexpr std::size_t bufferSize = std::size_t {64} * 1024;
constexpr std::string_view head = "{\"displayTimeUnit\":\"ms\",\"traceEvents\":[\n";
constexpr std::string_view separator = ",\n";
constexpr std::string_view tail = "\n]}\n";
static_assert(TraceFile::maxEventSize + separator.size() + tail.size() <= bufferSize);

std::size_t totalSize(std::initializer_list<std::string_view> pieces)
{
    std::size_t size = 0;
    for (const std::string_view piece : pieces)
        size += piece.size();
    return size;
}

} // namespace

bool TraceFile::open(const std::filesystem::path &path, std::string_view firstEvent)
{
    // A relative path would name another file once the process has another working folder.
    std::error_code ignored;
    m_path = std::filesystem::absolute(path, ignored);
    m_buffer.reserve(bufferSize);
    // The stream gets no buffer of its own: after a failed write it would still hold a part of it.
    m_stream.rdbuf()->pubsetbuf(nullptr, 0);
    errno = 0;
    m_stream.open(path, std::ios::binary | std::ios::trunc);
    if (!isOpen()) {
        rememberError();
        return false;
    }
    m_buffer += head;
    m_buffer += firstEvent;
    return flush();
}

void TraceFile::append(std::initializer_list<std::string_view> event)
{
    const std::size_t size = separator.size() + totalSize(event);
    if (m_buffer.size() + size + tail.size() > bufferSize)
        flush();
    if (!isOpen())
        return;
    m_buffer += separator;
    for (const std::string_view piece : event)
        m_buffer += piece;
}

bool TraceFile::flush()
{
    if (isOpen() && !m_buffer.empty())
        writeBuffer();
    return !m_error;
}

bool TraceFile::close()
{
    flush();
    if (!isOpen())
        return !m_error;
    errno = 0;
    m_stream.close();
    if (!m_stream)
        rememberError();
    return !m_error;
}

void TraceFile::rememberError()
{
    if (!m_error)
        m_error.assign(errno ? errno : EIO, std::generic_category());
}

void TraceFile::writeBuffer()
{
    const auto eventsSize = static_cast<std::streamoff>(m_buffer.size());
    m_buffer += tail;
    errno = 0;
    m_stream.seekp(m_eventsEnd);
    m_stream.write(m_buffer.data(), static_cast<std::streamsize>(m_buffer.size()));
    m_buffer.clear();
    if (!m_stream) {
        rememberError();
        endBehindLastWrite();
        return;
    }
    m_eventsEnd += eventsSize;
}

// A write that fails half-way has gone over the brackets: they are put back and the rest is cut
// off.
void TraceFile::endBehindLastWrite()
{
    m_stream.clear();
    m_stream.seekp(m_eventsEnd);
    m_stream.write(tail.data(), static_cast<std::streamsize>(tail.size()));
    m_stream.close();
    std::error_code ignored;
    const auto size = static_cast<std::uintmax_t>(m_eventsEnd) + tail.size();
    std::filesystem::resize_file(m_path, size, ignored);
}

} // namespace Orrin::Core::Internal
