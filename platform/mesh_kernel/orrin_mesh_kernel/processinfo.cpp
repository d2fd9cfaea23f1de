// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "orrin_mesh_kernel/processinfo_p.h"

#include <string_view>

#ifdef __linux__
#include <cerrno>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>
#else
#include <atomic>
#endif

namespace Orrin::Core::Internal {

#ifdef __linux__

namespace {

/// Widens a name whose encoding is not known and that may be cut inside a character: what is not
/// ASCII becomes the replacement character.
std::wstring widened(std::string_view name)
{
    std::wstring wide;
    for (const char c : name)
        wide += static_cast<unsigned char>(c) < 0x80 ? static_cast<wchar_t>(c) : L'\uFFFD';
    return wide;
}

} // namespace

std::uint64_t currentProcessId()
{
    return static_cast<std::uint64_t>(::getpid());
}

std::uint64_t currentThreadId()
{
    thread_local const auto id = static_cast<std::uint64_t>(::syscall(SYS_gettid));
    return id;
}

std::wstring currentThreadName()
{
    if (currentThreadId() == currentProcessId())
        return L"main";
    char name[16] = {}; // the size that the system prescribes
    ::prctl(PR_GET_NAME, name, 0, 0, 0);
    return widened(name);
}

std::wstring programName()
{
    return widened(program_invocation_short_name);
}

#else

// Elsewhere threads are numbered in the order in which they are met.
std::uint64_t currentProcessId()
{
    return 1;
}

std::uint64_t currentThreadId()
{
    static std::atomic<std::uint64_t> last {0};
    thread_local const std::uint64_t id = ++last;
    return id;
}

std::wstring currentThreadName()
{
    return L"thread " + std::to_wstring(currentThreadId());
}

std::wstring programName()
{
    return L"application";
}

#endif

} // namespace Orrin::Core::Internal
