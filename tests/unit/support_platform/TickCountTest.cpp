#include "platform/TickCount.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace {

TEST(TickCount, CountsMilliseconds)
{
    const uint32_t before = platform::TickCount();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    const uint32_t elapsed = platform::TickCount() - before;
    EXPECT_GE(elapsed, 29u) << "the clock of some systems steps by 16 ms";
    EXPECT_LT(elapsed, 20'000u);
}

} // namespace
