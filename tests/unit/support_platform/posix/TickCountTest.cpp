#include "platform/TickCount.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

TEST(TickCountOfPosix, IsThatOfTheSystemsSteadyClock)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_MONOTONIC, &time);
        return static_cast<uint32_t>(time.tv_sec * 1000 + time.tv_nsec / 1'000'000);
    };
    for (int count = 0; count < 100; ++count) {
        const uint32_t before = now();
        const uint32_t ticks = platform::TickCount();
        EXPECT_LE(ticks - before, now() - before);
    }
}

} // namespace
