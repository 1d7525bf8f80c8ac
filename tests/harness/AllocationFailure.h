#pragma once

// "What if memory runs out here?", asked for every allocation of some work. Works in programs of which one source
// includes harness/FailingAllocations.h, which makes allocations fail.
//
// Work that runs the scripted client is no use: the script allocates too, and would fail in the real client's place.
// The real one takes its memory elsewhere.
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

} // namespace harness
