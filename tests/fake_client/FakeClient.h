#pragma once

#include "fake_client/FakeReply.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

// A stand-in for the MySQL client library, chosen at link time: a program that links this archive in place of the real
// client gets the same C functions, answered from a script, without a server and without a network.
//
//     fake::Client& client = fake::Client::Get();
//     client.Reset();
//     client.On("SELECT 1", fake::Reply::Rows({"1"}, {{"1"}}));
//     ... code under test ...
//     EXPECT_EQ(client.Statements().back(), "SELECT 1");
//     EXPECT_EQ(client.Leaks(), "");
//
// It keeps the client's rules: the error of a handle is cleared by the next command, a statement without rows gives a
// null result with error 0, affected rows are all ones from the start of a statement until its success is known, a
// command on a handle with unread rows fails with 2014, a row of a streamed result is gone with the next one. What
// would be undefined with the real client ends the program with a message on standard error: a null, unknown or closed
// handle, a freed result, a streamed result used after its handle was closed, a handle or result closed twice.
// (A null handle for mysql_close and a null result for mysql_free_result are allowed, as there.)
//
// One thread at a time. The handles are real, zero-initialised MYSQL structures whose members thread_id, server_status,
// status, field_count, affected_rows, insert_id, options.reconnect and net.last_errno hold what the real client keeps.
namespace fake {

/// The client calls that can fail, in the sense of FailCall.
enum class Call
{
    Init,        ///< mysql_init: null
    Connect,     ///< mysql_real_connect: null, error on the handle
    Ping,        ///< mysql_ping: 1, error on the handle
    Query,       ///< mysql_real_query: 1, error on the handle, affected rows all ones
    StoreResult, ///< mysql_store_result of a statement with rows: null, error on the handle
    UseResult,   ///< mysql_use_result of a statement with rows: null, error on the handle
    FetchRow,    ///< mysql_fetch_row of a streamed result: null row, error on the handle, the stream has ended
    ListFields,  ///< mysql_list_fields: null, error on the handle
    Stat         ///< mysql_stat: the error text, error on the handle
};

/// The C function's name, for example "mysql_real_query".
const char* Name(Call call);

/// One call as the code under test made it.
struct CallRecord
{
    std::string function;  ///< for example "mysql_real_query"
    std::string arguments; ///< rendered without the handle; for mysql_real_query exactly the statement's bytes
    const MYSQL* handle;   ///< null for calls on a result
};

/// The arguments of one mysql_real_connect; nullopt where a null pointer was passed.
struct ConnectRecord
{
    std::optional<std::string> host;
    std::optional<std::string> user;
    std::optional<std::string> password;
    std::optional<std::string> database;
    unsigned int port;
    std::optional<std::string> socket;
    unsigned long flags;
};

/// One mysql_options. `value` is the number or the flag for the options that take one, `text` the
/// text for those that take one.
struct OptionRecord
{
    mysql_option option;
    long value;
    std::string text;
};

/// The fallible call that FailCall made fail.
struct FailedCall
{
    Call call;
    std::string arguments;
};

/// The process-wide script and record of the fake.
class Client
{
public:
    static Client& Get();

    /// Forgets the script, the records, the counters and every failure; handles and results that are still open are
    /// unknown afterwards.
    void Reset();

    // --- Script: statements. A statement is answered by the first of these that has an answer:
    //     the oldest unused Once rule that matches, the newest On rule that matches, the queue, the default reply
    //     (Ok()).
    using Predicate = std::function<bool(const std::string& statement)>;
    void On(const std::string& statement, Reply reply);    ///< every statement of exactly these bytes
    void OnPrefix(const std::string& prefix, Reply reply); ///< every statement that starts with these bytes
    void OnMatch(Predicate matches, Reply reply);          ///< every statement that the predicate accepts
    void Once(const std::string& statement, Reply reply);  ///< the next statement of exactly these bytes
    void OncePrefix(const std::string& prefix, Reply reply);
    void OnceMatch(Predicate matches, Reply reply);
    void Enqueue(Reply reply); ///< answers the next statement that no rule answers; used in order, once each
    void SetDefaultReply(Reply reply);
    /// Called with every statement before its answer is chosen, so a test can change the script between two statements.
    void SetStatementObserver(std::function<void(const std::string& statement)> observer);

    // --- Script: field listings. The table name is compared as bytes; an unlisted one fails with 1146.
    void OnListFields(const std::string& table, std::vector<Field> fields);
    void OnListFieldsError(const std::string& table, unsigned int code,
                           std::string text = {}); ///< 0: null without error

    // --- Script: texts and modes
    void SetStat(std::string text);
    void SetServerInfo(std::string text);
    void SetClientInfo(std::string text);
    void SetHostInfo(std::string text);
    void SetNextThreadId(unsigned long threadId); ///< of the next connection; later ones count up
    /// The server's NO_BACKSLASH_ESCAPES mode for connections made from now on and those that exist: only ' is doubled.
    void SetNoBackslashEscapes(bool on);

    // --- Failures. An empty text becomes the client's own text for the number.
    /// Fails the next `times` calls of this kind, one after the other; several orders for a kind are used in order.
    void FailNext(Call call, unsigned int code, std::string text = {}, size_t times = 1);
    /// Fails every call of this kind until Succeed(call) (a server that is down: FailAlways(Call::Connect, 2002)).
    void FailAlways(Call call, unsigned int code, std::string text = {});
    void Succeed(Call call); ///< drops the FailNext and FailAlways orders of this kind
    /// What a failing mysql_real_query returns from now on, 1 at first. The real client gives 1 or -1, but any number
    /// other than 0 is allowed.
    void SetQueryFailureResult(int result);
    /// Numbers the fallible calls from 1, starting now, and fails the n-th only. 0 counts without failing any.
    void FailCall(size_t number, unsigned int code = 0, std::string text = {});
    /// As FailCall, but every later call fails as well.
    void FailFromCall(size_t number, unsigned int code, std::string text = {});
    void StopFailing(); ///< drops FailCall and FailFromCall and stops the counting; the counter keeps its value
    size_t CountedCalls() const;                        ///< fallible calls since FailCall
    const std::vector<FailedCall>& FailedCalls() const; ///< what FailCall or FailFromCall made fail, in order
    /// Ends the program with a message when more than this many fallible calls are counted: an endless retry.
    void SetCallLimit(size_t limit);
    /// Every connection of now is gone: the next command of its handle, and all later ones, fail with 2006, a stream
    /// that is being read with 2013. New connections work. (The automatic reconnect is not imitated.)
    void LoseConnection();

    // --- Records
    const std::vector<CallRecord>& Calls() const;
    std::vector<std::string> CallNames() const; ///< the function of each call, in order
    size_t CountOf(const std::string& function) const;
    std::vector<std::string> Statements() const; ///< the bytes of each mysql_real_query, in order
    const std::vector<ConnectRecord>& Connects() const;
    const std::vector<OptionRecord>& Options() const;
    void ForgetCalls(); ///< empties the records above; script, handles and counters stay

    size_t HandlesOpened() const;
    size_t HandlesClosed() const;
    size_t ResultsOpened() const; ///< results of mysql_store_result, mysql_use_result and mysql_list_fields
    size_t ResultsClosed() const;
    std::string Leaks() const; ///< "" when everything opened was closed, otherwise one line that says what is missing

private:
    friend struct State;
    Client();
    ~Client();
    std::unique_ptr<struct State> m_state;
};

} // namespace fake
