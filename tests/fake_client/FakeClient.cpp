#include "fake_client/FakeClient.h"

#include "fake_client/FakeState.h"

#include <utility>

namespace fake {
namespace {

Client::Predicate Exactly(const std::string& statement)
{
    return [statement](const std::string& sent) { return sent == statement; };
}

Client::Predicate StartingWith(const std::string& prefix)
{
    return [prefix](const std::string& sent) { return sent.starts_with(prefix); };
}

} // namespace

const char* Name(Call call)
{
    switch (call) {
    case Call::Init:
        return "mysql_init";
    case Call::Connect:
        return "mysql_real_connect";
    case Call::Ping:
        return "mysql_ping";
    case Call::Query:
        return "mysql_real_query";
    case Call::StoreResult:
        return "mysql_store_result";
    case Call::UseResult:
        return "mysql_use_result";
    case Call::FetchRow:
        return "mysql_fetch_row";
    case Call::ListFields:
        return "mysql_list_fields";
    case Call::Stat:
        return "mysql_stat";
    }
    return "";
}

Client& Client::Get()
{
    // Never destroyed: objects with static storage may close their handles after the end of main.
    static Client& client = *new Client;
    return client;
}

Client::Client() : m_state(std::make_unique<State>()) {}
Client::~Client() = default;

void Client::Reset()
{
    m_state = std::make_unique<State>();
}

void Client::On(const std::string& statement, Reply reply)
{
    OnMatch(Exactly(statement), std::move(reply));
}

void Client::OnPrefix(const std::string& prefix, Reply reply)
{
    OnMatch(StartingWith(prefix), std::move(reply));
}

void Client::OnMatch(Predicate matches, Reply reply)
{
    m_state->stickyRules.push_back({std::move(matches), std::move(reply)});
}

void Client::Once(const std::string& statement, Reply reply)
{
    OnceMatch(Exactly(statement), std::move(reply));
}

void Client::OncePrefix(const std::string& prefix, Reply reply)
{
    OnceMatch(StartingWith(prefix), std::move(reply));
}

void Client::OnceMatch(Predicate matches, Reply reply)
{
    m_state->onceRules.push_back({std::move(matches), std::move(reply)});
}

void Client::Enqueue(Reply reply)
{
    m_state->queue.push_back(std::move(reply));
}

void Client::SetDefaultReply(Reply reply)
{
    m_state->defaultReply = std::move(reply);
}

void Client::SetStatementObserver(std::function<void(const std::string&)> observer)
{
    m_state->observer = std::move(observer);
}

void Client::OnListFields(const std::string& table, std::vector<Field> fields)
{
    m_state->listingErrors.erase(table);
    m_state->listings[table] = std::move(fields);
}

void Client::OnListFieldsError(const std::string& table, unsigned int code, std::string text)
{
    m_state->listings.erase(table);
    m_state->listingErrors[table] = {code, std::move(text)};
}

void Client::SetStat(std::string text)
{
    m_state->stat = std::move(text);
}

void Client::SetServerInfo(std::string text)
{
    m_state->serverInfo = std::move(text);
}

void Client::SetClientInfo(std::string text)
{
    m_state->clientInfo = std::move(text);
}

void Client::SetHostInfo(std::string text)
{
    m_state->hostInfo = std::move(text);
}

void Client::SetNextThreadId(unsigned long threadId)
{
    m_state->nextThreadId = threadId;
}

void Client::SetNoBackslashEscapes(bool on)
{
    m_state->noBackslashEscapes = on;
}

void Client::FailNext(Call call, unsigned int code, std::string text, size_t times)
{
    if (times != 0) {
        m_state->failOrders[call].push_back({{code, std::move(text)}, times});
    }
}

void Client::FailAlways(Call call, unsigned int code, std::string text)
{
    m_state->failAlways[call] = {code, std::move(text)};
}

void Client::Succeed(Call call)
{
    m_state->failOrders.erase(call);
    m_state->failAlways.erase(call);
}

void Client::SetQueryFailureResult(int result)
{
    m_state->queryFailureResult = result;
}

void Client::FailCall(size_t number, unsigned int code, std::string text)
{
    m_state->counting = true;
    m_state->failLaterCalls = false;
    m_state->failNumber = number;
    m_state->failCall = {code, std::move(text)};
    m_state->countedCalls = 0;
    m_state->failedCalls.clear();
}

void Client::FailFromCall(size_t number, unsigned int code, std::string text)
{
    FailCall(number, code, std::move(text));
    m_state->failLaterCalls = true;
}

void Client::StopFailing()
{
    m_state->counting = false;
}

size_t Client::CountedCalls() const
{
    return m_state->countedCalls;
}

const std::vector<FailedCall>& Client::FailedCalls() const
{
    return m_state->failedCalls;
}

void Client::SetCallLimit(size_t limit)
{
    m_state->callLimit = limit;
}

void Client::LoseConnection()
{
    for (auto& [handle, entry] : m_state->handles) {
        entry.second.lost = entry.second.connected;
    }
}

const std::vector<CallRecord>& Client::Calls() const
{
    return m_state->calls;
}

std::vector<std::string> Client::CallNames() const
{
    std::vector<std::string> names;
    for (const CallRecord& call : m_state->calls) {
        names.push_back(call.function);
    }
    return names;
}

size_t Client::CountOf(const std::string& function) const
{
    size_t count = 0;
    for (const CallRecord& call : m_state->calls) {
        count += call.function == function ? 1 : 0;
    }
    return count;
}

std::vector<std::string> Client::Statements() const
{
    std::vector<std::string> statements;
    for (const CallRecord& call : m_state->calls) {
        if (call.function == Name(Call::Query)) {
            statements.push_back(call.arguments);
        }
    }
    return statements;
}

const std::vector<ConnectRecord>& Client::Connects() const
{
    return m_state->connects;
}

const std::vector<OptionRecord>& Client::Options() const
{
    return m_state->options;
}

void Client::ForgetCalls()
{
    m_state->calls.clear();
    m_state->connects.clear();
    m_state->options.clear();
}

size_t Client::HandlesOpened() const
{
    return m_state->handlesOpened;
}

size_t Client::HandlesClosed() const
{
    return m_state->handlesClosed;
}

size_t Client::ResultsOpened() const
{
    return m_state->resultsOpened;
}

size_t Client::ResultsClosed() const
{
    return m_state->resultsClosed;
}

std::string Client::Leaks() const
{
    const size_t handles = HandlesOpened() - HandlesClosed();
    const size_t results = ResultsOpened() - ResultsClosed();
    if (handles == 0 && results == 0) {
        return {};
    }
    return std::to_string(handles) + " handle(s) and " + std::to_string(results) + " result(s) not closed";
}

} // namespace fake
