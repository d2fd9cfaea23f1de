// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <string_view>
#include <system_error>

namespace Orrin::Core::Internal {

/// A JSON trace on disk with a bounded buffer in front. The file is a complete JSON document after
/// each write: the closing brackets are written behind the events every time and overwritten by the
/// next ones, so neither a crash nor a full disk leaves a trace that no viewer opens. Only whole
/// events go to the disk. Not thread safe.
class TraceFile
{
public:
    /// The longest event that append() takes, in bytes.
    static constexpr std::size_t maxEventSize = std::size_t {60} * 1024;

    /// Creates or overwrites @p path, a regular file, with a trace that holds @p firstEvent. Memory
    /// is taken here only; no other operation allocates.
    bool open(const std::filesystem::path &path, std::string_view firstEvent);

    /// Adds one event, given in pieces. Ignored unless the file is open.
    void append(std::initializer_list<std::string_view> event);

    /// Writes what is buffered; false once anything could not be written.
    bool flush();

    /// Flushes and closes; false once anything could not be written.
    bool close();

    bool isOpen() const { return m_stream.is_open(); }

    /// Why the file could not be opened or written.
    std::error_code error() const { return m_error; }

private:
    void rememberError();
    void writeBuffer();
    void endBehindLastWrite();

    std::filesystem::path m_path;
    std::ofstream m_stream;
    std::string m_buffer;
    std::streamoff m_eventsEnd = 0; // where the closing brackets stand
    std::error_code m_error;
};

} // namespace Orrin::Core::Internal
