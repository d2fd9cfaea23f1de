// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/failingnew.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

thread_local std::size_t callsUntilFault = never;
thread_local bool faultHappened = false;
thread_local std::size_t newCalls = 0;
thread_local std::size_t newBytes = 0;

void *allocate(std::size_t size)
{
    ++newCalls;
    newBytes += size;
    if (callsUntilFault != never && callsUntilFault-- == 0) {
        callsUntilFault = never;
        faultHappened = true;
        throw std::bad_alloc();
    }
    if (void *memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void *allocateOrNull(std::size_t size) noexcept
{
    try {
        return allocate(size);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

} // namespace

void *operator new(std::size_t size)
{
    return allocate(size);
}
void *operator new[](std::size_t size)
{
    return allocate(size);
}
void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    return allocateOrNull(size);
}
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept
{
    return allocateOrNull(size);
}
void operator delete(void *memory) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory) noexcept
{
    std::free(memory);
}
void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace Lumo::Test {

FailingNew::FailingNew(std::size_t call)
{
    faultHappened = false;
    callsUntilFault = call;
}

FailingNew::~FailingNew()
{
    disarm();
}

bool FailingNew::happened() const
{
    return faultHappened;
}

void FailingNew::disarm()
{
    callsUntilFault = never;
}

NewCounter::NewCounter()
    : m_callsBefore(newCalls)
    , m_bytesBefore(newBytes)
{ }

NewCounter::~NewCounter() = default;

std::size_t NewCounter::calls() const
{
    return newCalls - m_callsBefore;
}

std::size_t NewCounter::bytes() const
{
    return newBytes - m_bytesBefore;
}

} // namespace Lumo::Test
