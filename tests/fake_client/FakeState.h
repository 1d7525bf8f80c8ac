#pragma once

#include "fake_client/FakeClient.h"

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

// The fake's own bookkeeping, shared by its scripting side and by the C functions.
namespace fake {

struct Failure
{
    unsigned int code = 0;
    std::string text;
};

struct FailOrder
{
    Failure failure;
    size_t times = 0;
};

struct Rule
{
    Client::Predicate matches;
    Reply reply;
};

/// What a handle knows beside the MYSQL structure.
struct HandleState
{
    bool connected = false;
    bool lost = false;
    bool closed = false;
    bool hasDatabase = false;
    Reply reply{};               ///< of the last statement
    MYSQL_RES* stream = nullptr; ///< the streamed result that has not been read to its end
    std::string info{};
};

/// The bytes and pointers of one row, laid out as the client does: values one behind the other, each with a terminating
/// zero, and one pointer more than there are columns, behind the last value.
struct RowMemory
{
    std::vector<char> bytes;
    std::vector<char*> pointers;
    std::vector<unsigned long> lengths;
    bool present = false;
};

struct ResultState
{
    bool freed = false;
    bool streamed = false;
    bool ended = false;      ///< a stream that has been read to its end or cut
    bool orphaned = false;   ///< a stream whose handle was closed before its end
    MYSQL* handle = nullptr; ///< of a stream
    Reply reply{};
    std::vector<MYSQL_FIELD> fields{};
    std::deque<std::string> texts{}; ///< what the fields point to
    std::vector<RowMemory> rows{};   ///< stored: all; streamed: the current one
    size_t position = 0;             ///< index of the next row
    RowMemory* current = nullptr;
};

struct State
{
    static State& Get();

    // Script
    std::deque<Rule> onceRules;
    std::deque<Rule> stickyRules;
    std::deque<Reply> queue;
    Reply defaultReply;
    std::function<void(const std::string&)> observer;
    std::map<std::string, std::vector<Field>> listings;
    std::map<std::string, Failure> listingErrors;
    std::string stat = "Uptime: 169  Threads: 2  Questions: 158  Slow queries: 0  Opens: 27  Open tables: 17  "
                       "Queries per second avg: 0.934";
    std::string serverInfo = "10.11.19-MariaDB";
    std::string clientInfo = "3.3.20";
    std::string hostInfo = "127.0.0.1 via TCP/IP";
    unsigned long nextThreadId = 1;
    bool noBackslashEscapes = false;

    // Failures
    std::map<Call, std::deque<FailOrder>> failOrders;
    std::map<Call, Failure> failAlways;
    bool counting = false;
    bool failLaterCalls = false;
    size_t failNumber = 0;
    Failure failCall;
    size_t countedCalls = 0;
    size_t callLimit = 0;
    int queryFailureResult = 1;
    std::vector<FailedCall> failedCalls;

    // Records
    std::vector<CallRecord> calls;
    std::vector<ConnectRecord> connects;
    std::vector<OptionRecord> options;
    size_t handlesOpened = 0;
    size_t handlesClosed = 0;
    size_t resultsOpened = 0;
    size_t resultsClosed = 0;

    // Side tables. Closed entries keep their address for a while, so that a late use is recognised.
    std::map<const MYSQL*, std::pair<std::unique_ptr<MYSQL>, HandleState>> handles;
    std::map<const MYSQL_RES*, std::pair<std::unique_ptr<MYSQL_RES>, ResultState>> results;
    std::deque<const MYSQL*> closedHandles;
    std::deque<const MYSQL_RES*> freedResults;

    /// The reply for a statement, taken out of the script where it is meant for one use.
    Reply Answer(const std::string& statement);
    /// Counts a fallible call; the failure that is ordered for it, or nullopt.
    std::optional<Failure> NextFailure(Call call, const std::string& arguments);
    void Record(const char* function, const MYSQL* handle, std::string arguments = {});

    HandleState& Handle(const char* function, const MYSQL* handle);
    ResultState& Result(const char* function, const MYSQL_RES* result);
    void Retire(const MYSQL* handle);
    void Retire(const MYSQL_RES* result);

private:
    std::optional<Failure> CountedFailure(Call call, const std::string& arguments);
    std::optional<Failure> OrderedFailure(Call call);
};

} // namespace fake
