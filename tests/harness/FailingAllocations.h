#pragma once

#include <cstdlib>
#include <new>

// "What if memory runs out here?", asked for every allocation of some work.
//
// This header replaces the program's operator new, so exactly one source of a program may include it. Work that runs
// the scripted client is no use: the script allocates too, and would fail in the real client's place. The real one
// takes its memory elsewhere.
namespace harness {

struct AllocationFailure
{
    static inline long allocationsLeft = -1; ///< before the one that fails; -1: none fails
    static inline bool failsForGood = false;
    static inline bool hasHappened = false;

    static bool IsDue() noexcept
    {
        if (allocationsLeft < 0 || allocationsLeft-- > 0)
            return false;
        hasHappened = true;
        allocationsLeft = failsForGood ? 0 : -1;
        return true;
    }
};

/// Runs the work again and again, the n-th time with its n-th allocation failing (for good: and all later ones), until
/// a run needs no more. Returns how many allocations have failed so. The work must not use expectations: they allocate.
template <typename Work> long ForEachAllocation(bool failsForGood, Work&& work)
{
    AllocationFailure::failsForGood = failsForGood;
    for (long allocation = 0;; ++allocation) {
        AllocationFailure::hasHappened = false;
        AllocationFailure::allocationsLeft = allocation;
        work();
        AllocationFailure::allocationsLeft = -1;
        if (!AllocationFailure::hasHappened)
            return allocation;
    }
}

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
