#pragma once

#include "harness/AllocationFailure.h"

#include <cstdlib>
#include <new>

// Replaces the program's operator new, so exactly one source of a program may include this; the others include
// harness/AllocationFailure.h.
namespace harness {

inline void* AllocateOrFail(size_t size) noexcept
{
    return AllocationFailure::IsDue() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

} // namespace harness

// Not inlined: an optimizer that sees free() behind a new expression takes it for a mistake.
[[gnu::noinline]] void* operator new(size_t size)
{
    if (void* const memory = harness::AllocateOrFail(size))
        return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void* operator new(size_t size, const std::nothrow_t&) noexcept
{
    return harness::AllocateOrFail(size);
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}
