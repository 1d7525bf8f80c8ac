#include "harness/FailurePoints.h"

#include <gtest/gtest-spi.h>

#include <set>
#include <string>
#include <utility>

namespace {

using fake::Call;
using harness::FailureRun;
using harness::ForEachFailurePoint;

/// Connects, runs one statement and closes: three calls that can fail. True when all went well.
bool ConnectAndRun()
{
    MYSQL* handle = mysql_init(nullptr);
    if (handle == nullptr) {
        return false;
    }
    const bool done = mysql_real_connect(handle, "h", "u", "p", "d", 1, nullptr, 0) != nullptr &&
                      mysql_real_query(handle, "DO 1", 4) == 0;
    mysql_close(handle);
    return done;
}

TEST(ForEachFailurePoint, RunsOnceWithoutAFailureAndOnceForEachCallAndError)
{
    std::set<std::pair<size_t, unsigned int>> runs;
    const size_t points = ForEachFailurePoint([&](FailureRun& run) {
        runs.emplace(run.FailingCall(), run.ErrorNumber());
        EXPECT_EQ(ConnectAndRun(), run.FailingCall() == 0);
    });
    EXPECT_EQ(points, 3U);
    std::set<std::pair<size_t, unsigned int>> expected = {{0, 0}};
    for (const size_t call : {1U, 2U, 3U}) {
        for (const unsigned int error : {2006U, 2013U, 1105U, 2002U, 2008U}) {
            expected.emplace(call, error);
        }
    }
    EXPECT_EQ(runs, expected);
}

TEST(ForEachFailurePoint, TellsWhichCallFailed)
{
    ForEachFailurePoint([](FailureRun& run) {
        EXPECT_FALSE(run.Failed());
        ConnectAndRun();
        EXPECT_EQ(run.Failed(), run.FailingCall() != 0);
        EXPECT_EQ(run.Failed(Call::Init), run.FailingCall() == 1);
        EXPECT_EQ(run.Failed(Call::Connect), run.FailingCall() == 2);
        EXPECT_EQ(run.Failed(Call::Query, "DO "), run.FailingCall() == 3);
        EXPECT_FALSE(run.Failed(Call::Query, "SELECT "));
    });
}

TEST(ForEachFailurePoint, KnowsTheNumbersOfALostConnection)
{
    EXPECT_TRUE(FailureRun(1, 2001).IsLostConnection());
    EXPECT_TRUE(FailureRun(1, 2006).IsLostConnection());
    EXPECT_TRUE(FailureRun(1, 2013).IsLostConnection());
    EXPECT_FALSE(FailureRun(1, 2002).IsLostConnection());
}

TEST(ForEachFailurePoint, LetsEverythingSucceedAfterTheWork)
{
    const size_t points = ForEachFailurePoint(
        [](FailureRun& run) {
            ConnectAndRun();
            run.EndOfWork();
            EXPECT_TRUE(ConnectAndRun());
        },
        {.persistent = true});
    EXPECT_EQ(points, 3U);
}

TEST(ForEachFailurePoint, KeepsFailingWhenTheServerIsDown)
{
    ForEachFailurePoint(
        [](FailureRun& run) {
            ConnectAndRun();
            EXPECT_EQ(ConnectAndRun(), run.FailingCall() == 0);
        },
        {.errorNumbers = {2002}, .persistent = true});
}

TEST(ForEachFailurePoint, SetsUpEveryRunOnAResetClient)
{
    fake::Client::Get().On("DO 1", fake::Reply::Error(1)); // of a test before
    size_t setUps = 0;
    ForEachFailurePoint([&] { ++setUps; }, [](FailureRun& run) { EXPECT_EQ(ConnectAndRun(), run.FailingCall() == 0); },
                        {.errorNumbers = {1105}});
    EXPECT_EQ(setUps, 4U);
}

void LeakWhenTheConnectFails(FailureRun& run)
{
    MYSQL* handle = mysql_init(nullptr);
    if (handle != nullptr) {
        mysql_real_connect(handle, "h", "u", "p", "d", 1, nullptr, 0);
    }
    if (!run.Failed(Call::Connect)) {
        mysql_close(handle);
    }
}

TEST(ForEachFailurePoint, ReportsAHandleThatIsLeftOpen)
{
    EXPECT_NONFATAL_FAILURE(ForEachFailurePoint(LeakWhenTheConnectFails, {.errorNumbers = {2002}}),
                            "1 handle(s) and 0 result(s) not closed");
}

void ConnectInTheFirstRunOnly(FailureRun& run)
{
    MYSQL* handle = mysql_init(nullptr);
    if (run.FailingCall() == 0) {
        mysql_real_connect(handle, "h", "u", "p", "d", 1, nullptr, 0);
    }
    mysql_close(handle);
}

TEST(ForEachFailurePoint, ReportsAScenarioThatDoesNotReachItsFailure)
{
    EXPECT_NONFATAL_FAILURE(ForEachFailurePoint(ConnectInTheFirstRunOnly, {.errorNumbers = {2002}}),
                            "different calls from run to run");
}

void DoNothing(FailureRun&) {}

TEST(ForEachFailurePoint, ReportsAScenarioWithoutCalls)
{
    EXPECT_NONFATAL_FAILURE(ForEachFailurePoint(DoNothing), "no client call that can fail");
}

void RetryWithoutEnd(FailureRun&)
{
    MYSQL* handle = mysql_init(nullptr);
    while (handle == nullptr) {
        handle = mysql_init(nullptr);
    }
    mysql_close(handle);
}

TEST(ForEachFailurePointDeathTest, StopsAnEndlessRetry)
{
    EXPECT_DEATH(ForEachFailurePoint(RetryWithoutEnd, {.persistent = true}), "more than 220 client calls");
}

} // namespace
