#pragma once

#include "fake_client/FakeClient.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

// "What if each client call fails once?", asked for a whole scenario.
//
//     harness::ForEachFailurePoint(
//         [] { fake::Client::Get().On("SELECT * FROM t", fake::Reply::Rows({"A"}, {{"1"}})); },
//         [](harness::FailureRun& run) {
//             CMyDatabase database(server, "d");
//             const long rows = ... the work whose calls fail one by one ...
//             run.EndOfWork();
//             if (run.Failed(fake::Call::Query) && !run.IsLostConnection()) {
//                 EXPECT_EQ(rows, -1);
//                 EXPECT_EQ(database.GetErrorCode(), run.ErrorNumber());
//             }
//             EXPECT_TRUE(... the object works again ...);
//         });
//
// The scenario runs once without a failure, to count the calls, and then once for each call and each error number.
// Every run starts with a reset fake client and the set-up; after every run, when the scenario's objects are gone,
// handles and results must all be closed. The trace of a failed expectation names the call that failed.
namespace harness {

/// How the failures of one ForEachFailurePoint look.
struct FailurePlan
{
    /// Server gone, connection lost, an unknown error, no connection, out of memory.
    std::vector<unsigned int> errorNumbers = {2006, 2013, 1105, 2002, 2008};
    /// True: from the failing call on every call fails until EndOfWork, as with a server that is down.
    bool persistent = false;
};

/// One run of the scenario, as the scenario sees it.
class FailureRun
{
public:
    FailureRun(size_t failingCall, unsigned int errorNumber) : m_failingCall(failingCall), m_errorNumber(errorNumber) {}

    /// From here on no call fails and none is counted: for the check that the objects can be used again.
    void EndOfWork() { fake::Client::Get().StopFailing(); }

    /// The number, from 1, of the call that fails in this run; 0 in the first run, in which none fails.
    size_t FailingCall() const { return m_failingCall; }
    unsigned int ErrorNumber() const { return m_errorNumber; }
    /// True when the error number is one after which a lost connection is opened again.
    bool IsLostConnection() const { return m_errorNumber == 2001 || m_errorNumber == 2006 || m_errorNumber == 2013; }
    /// True once the failure has happened.
    bool Failed() const { return !fake::Client::Get().FailedCalls().empty(); }
    /// True when the (first) call that failed is of this kind.
    bool Failed(fake::Call call) const { return Failed() && First().call == call; }
    /// As Failed(call), for one statement or table: the arguments of the failed call start with the text.
    bool Failed(fake::Call call, const std::string& argumentsStart) const
    {
        return Failed(call) && First().arguments.starts_with(argumentsStart);
    }

private:
    static const fake::FailedCall& First() { return fake::Client::Get().FailedCalls().front(); }

    size_t m_failingCall;
    unsigned int m_errorNumber;
};

using FailureSetUp = std::function<void()>;
using FailureScenario = std::function<void(FailureRun& run)>;

/// One run; the number of fallible calls that it made before EndOfWork.
inline size_t RunWithFailure(const FailureSetUp& setUp, const FailureScenario& scenario, size_t failingCall,
                             unsigned int errorNumber, bool persistent, size_t callLimit)
{
    fake::Client& client = fake::Client::Get();
    client.Reset();
    setUp();
    client.SetCallLimit(callLimit);
    if (persistent) {
        client.FailFromCall(failingCall, errorNumber);
    } else {
        client.FailCall(failingCall, errorNumber);
    }
    FailureRun run(failingCall, errorNumber);
    scenario(run);
    const size_t calls = client.CountedCalls();
    EXPECT_EQ(client.Leaks(), "");
    if (failingCall != 0) {
        EXPECT_TRUE(run.Failed()) << "the scenario makes different calls from run to run";
    }
    return calls;
}

/// Runs the scenario without a failure and then with each of its client calls failing; see above. Returns the number of
/// failure points, so that a test can check that there are as many as it thinks.
inline size_t ForEachFailurePoint(const FailureSetUp& setUp, const FailureScenario& scenario,
                                  const FailurePlan& plan = {})
{
    const size_t calls = RunWithFailure(setUp, scenario, 0, 0, false, 0);
    EXPECT_GT(calls, 0U) << "the scenario makes no client call that can fail";
    const size_t callLimit = calls * 20 + 200; // many retries are odd, endless ones are a bug
    for (size_t failingCall = 1; failingCall <= calls; ++failingCall) {
        for (const unsigned int errorNumber : plan.errorNumbers) {
            SCOPED_TRACE("client call " + std::to_string(failingCall) + " of " + std::to_string(calls) +
                         " fails with " + std::to_string(errorNumber));
            RunWithFailure(setUp, scenario, failingCall, errorNumber, plan.persistent, callLimit);
        }
    }
    fake::Client::Get().Reset();
    return calls;
}

inline size_t ForEachFailurePoint(const FailureScenario& scenario, const FailurePlan& plan = {})
{
    return ForEachFailurePoint([] {}, scenario, plan);
}

} // namespace harness
