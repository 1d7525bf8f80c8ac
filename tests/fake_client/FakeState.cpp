#include "fake_client/FakeState.h"

#include "fake_client/FakeErrors.h"

#include <algorithm>

namespace fake {
namespace {

// Enough to catch a late use, without growing in a program that opens a million results.
constexpr size_t RETIRED_ENTRIES_KEPT = 4096;

template <class Table> void ForgetOldest(Table& table, std::deque<typename Table::key_type>& retired)
{
    if (retired.size() > RETIRED_ENTRIES_KEPT) {
        table.erase(retired.front());
        retired.pop_front();
    }
}

} // namespace

State& State::Get()
{
    return *Client::Get().m_state;
}

Reply State::Answer(const std::string& statement)
{
    const auto matches = [&](const Rule& rule) { return rule.matches(statement); };
    if (const auto once = std::find_if(onceRules.begin(), onceRules.end(), matches); once != onceRules.end()) {
        Reply reply = std::move(once->reply);
        onceRules.erase(once);
        return reply;
    }
    const auto sticky = std::find_if(stickyRules.rbegin(), stickyRules.rend(), matches);
    if (sticky != stickyRules.rend()) {
        return sticky->reply;
    }
    if (!queue.empty()) {
        Reply reply = std::move(queue.front());
        queue.pop_front();
        return reply;
    }
    return defaultReply;
}

std::optional<Failure> State::NextFailure(Call call, const std::string& arguments)
{
    if (std::optional<Failure> failure = CountedFailure(call, arguments)) {
        return failure;
    }
    return OrderedFailure(call);
}

std::optional<Failure> State::CountedFailure(Call call, const std::string& arguments)
{
    if (!counting) {
        return std::nullopt;
    }
    ++countedCalls;
    if (callLimit != 0 && countedCalls > callLimit) {
        ReportMisuse("more than " + std::to_string(callLimit) + " client calls, last " + Name(call) + " " + arguments);
    }
    const bool fails = failNumber != 0 && (countedCalls == failNumber || (failLaterCalls && countedCalls > failNumber));
    if (!fails) {
        return std::nullopt;
    }
    failedCalls.push_back({call, arguments});
    return failCall;
}

std::optional<Failure> State::OrderedFailure(Call call)
{
    std::deque<FailOrder>& orders = failOrders[call];
    if (!orders.empty()) {
        const Failure failure = orders.front().failure;
        if (--orders.front().times == 0) {
            orders.pop_front();
        }
        return failure;
    }
    const auto always = failAlways.find(call);
    return always == failAlways.end() ? std::nullopt : std::optional(always->second);
}

void State::Record(const char* function, const MYSQL* handle, std::string arguments)
{
    calls.push_back({function, std::move(arguments), handle});
}

HandleState& State::Handle(const char* function, const MYSQL* handle)
{
    const auto found = handles.find(handle);
    if (found == handles.end()) {
        ReportMisuse(std::string(function) + (handle == nullptr ? " with a null handle" : " with an unknown handle"));
    }
    if (found->second.second.closed) {
        ReportMisuse(std::string(function) + " with a closed handle");
    }
    return found->second.second;
}

ResultState& State::Result(const char* function, const MYSQL_RES* result)
{
    const auto found = results.find(result);
    if (found == results.end()) {
        ReportMisuse(std::string(function) + (result == nullptr ? " with a null result" : " with an unknown result"));
    }
    if (found->second.second.freed) {
        ReportMisuse(std::string(function) + " with a freed result");
    }
    if (found->second.second.orphaned) {
        ReportMisuse(std::string(function) + " with a streamed result whose handle was closed");
    }
    return found->second.second;
}

void State::Retire(const MYSQL* handle)
{
    handles[handle].second = HandleState{.closed = true};
    closedHandles.push_back(handle);
    ForgetOldest(handles, closedHandles);
}

void State::Retire(const MYSQL_RES* result)
{
    results[result].second = ResultState{.freed = true};
    freedResults.push_back(result);
    ForgetOldest(results, freedResults);
}

} // namespace fake
