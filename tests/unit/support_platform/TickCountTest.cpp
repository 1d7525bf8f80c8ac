#include "platform/TickCount.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

TEST(TickCount, CountsMilliseconds)
{
    const uint32_t before = platform::TickCount();
    const timespec pause{0, 30'000'000};
    nanosleep(&pause, nullptr);
    const uint32_t elapsed = platform::TickCount() - before;
    EXPECT_GE(elapsed, 29u);
    EXPECT_LT(elapsed, 20'000u);
}

} // namespace
