// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/heapcount.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::int64_t> liveBytes {0};

// The size asked for is kept in front of each block, since not every delete tells it.
constexpr std::size_t prefix = alignof(std::max_align_t);

void *allocate(std::size_t size) noexcept
{
    void *const block = std::malloc(size + prefix);
    if (!block)
        return nullptr;
    *static_cast<std::size_t *>(block) = size;
    liveBytes += static_cast<std::int64_t>(size);
    return static_cast<char *>(block) + prefix;
}

void *allocateOrThrow(std::size_t size)
{
    if (void *const memory = allocate(size))
        return memory;
    throw std::bad_alloc();
}

void release(void *memory) noexcept
{
    if (!memory)
        return;
    void *const block = static_cast<char *>(memory) - prefix;
    liveBytes -= static_cast<std::int64_t>(*static_cast<std::size_t *>(block));
    std::free(block);
}

} // namespace

void *operator new(std::size_t size)
{
    return allocateOrThrow(size);
}
void *operator new[](std::size_t size)
{
    return allocateOrThrow(size);
}
void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    return allocate(size);
}
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept
{
    return allocate(size);
}
void operator delete(void *memory) noexcept
{
    release(memory);
}
void operator delete[](void *memory) noexcept
{
    release(memory);
}
void operator delete(void *memory, std::size_t) noexcept
{
    release(memory);
}
void operator delete[](void *memory, std::size_t) noexcept
{
    release(memory);
}
void operator delete(void *memory, const std::nothrow_t &) noexcept
{
    release(memory);
}
void operator delete[](void *memory, const std::nothrow_t &) noexcept
{
    release(memory);
}

namespace Lumo::Bench {

std::int64_t liveHeapBytes()
{
    return liveBytes;
}

} // namespace Lumo::Bench
