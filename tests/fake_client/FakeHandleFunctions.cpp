#include "fake_client/FakeErrors.h"
#include "fake_client/FakeHandle.h"

#include <cstring>

// The C functions that work on a handle.

namespace fake {
namespace {

std::optional<std::string> Text(const char* text)
{
    return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

std::string Rendered(const std::optional<std::string>& text)
{
    return text ? *text : "NULL";
}

std::string Rendered(const ConnectRecord& connect)
{
    return "host=" + Rendered(connect.host) + " user=" + Rendered(connect.user) +
           " password=" + Rendered(connect.password) + " database=" + Rendered(connect.database) +
           " port=" + std::to_string(connect.port) + " socket=" + Rendered(connect.socket) +
           " flags=" + std::to_string(connect.flags);
}

void Establish(MYSQL* handle, HandleState& state, bool hasDatabase)
{
    state.connected = true;
    state.lost = false;
    state.hasDatabase = hasDatabase;
    handle->thread_id = State::Get().nextThreadId++;
    handle->server_status = SERVER_STATUS_AUTOCOMMIT;
}

OptionRecord OptionOf(mysql_option option, const void* argument)
{
    if (argument == nullptr) {
        return {option, 0, {}};
    }
    switch (option) {
    case MYSQL_OPT_RECONNECT:
    case MYSQL_SECURE_AUTH:
    case MYSQL_REPORT_DATA_TRUNCATION:
    case MYSQL_OPT_SSL_VERIFY_SERVER_CERT:
    case MYSQL_OPT_SSL_ENFORCE:
        return {option, *static_cast<const my_bool*>(argument), {}};
    case MYSQL_OPT_CONNECT_TIMEOUT:
    case MYSQL_OPT_READ_TIMEOUT:
    case MYSQL_OPT_WRITE_TIMEOUT:
    case MYSQL_OPT_LOCAL_INFILE:
    case MYSQL_OPT_PROTOCOL:
        return {option, static_cast<long>(*static_cast<const unsigned int*>(argument)), {}};
    case MYSQL_SET_CHARSET_NAME:
    case MYSQL_INIT_COMMAND:
    case MYSQL_PLUGIN_DIR:
        return {option, 0, static_cast<const char*>(argument)};
    default:
        return {option, 0, {}};
    }
}

/// What a failing mysql_real_query leaves.
int FailQuery(MYSQL* handle, unsigned int code, const std::string& text)
{
    SetError(handle, code, text);
    handle->insert_id = 0;
    return State::Get().queryFailureResult;
}

int RunStatement(MYSQL* handle, HandleState& state, const std::string& statement)
{
    State& script = State::Get();
    if (script.observer) {
        script.observer(statement);
    }
    Reply reply = script.Answer(statement);
    if (reply.queryErrorCode != 0) {
        return FailQuery(handle, reply.queryErrorCode, reply.errorText);
    }
    handle->field_count = static_cast<unsigned int>(reply.fields.size());
    if (reply.fields.empty()) {
        handle->affected_rows = reply.affectedRows;
        handle->insert_id = reply.insertId;
        state.info = reply.info;
        state.hasDatabase = state.hasDatabase || statement.starts_with("USE ");
    } else {
        handle->status = MYSQL_STATUS_GET_RESULT;
    }
    state.reply = std::move(reply);
    return 0;
}

char EscapeLetter(char character)
{
    switch (character) {
    case '\0':
        return '0';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\x1A':
        return 'Z';
    case '\\':
    case '\'':
    case '"':
        return character;
    default:
        return 0;
    }
}

std::string Escaped(const std::string& text, bool noBackslashEscapes)
{
    std::string escaped;
    for (const char character : text) {
        if (noBackslashEscapes) {
            escaped.append(character == '\'' ? 2 : 1, character);
        } else if (const char letter = EscapeLetter(character); letter != 0) {
            escaped += {'\\', letter};
        } else {
            escaped += character;
        }
    }
    return escaped;
}

} // namespace

void SetError(MYSQL* handle, unsigned int code, const std::string& text)
{
    const std::string message = text.empty() && code != 0 ? ErrorText(code) : text;
    handle->net.last_errno = code;
    std::strncpy(handle->net.last_error, message.c_str(), MYSQL_ERRMSG_SIZE - 1);
    handle->net.last_error[MYSQL_ERRMSG_SIZE - 1] = '\0';
}

bool BeginCommand(MYSQL* handle, HandleState& state, Call call, const std::string& arguments)
{
    handle->affected_rows = MYSQL_COUNT_ERROR;
    state.info.clear();
    if (handle->status != MYSQL_STATUS_READY) {
        SetError(handle, 2014);
        return false;
    }
    SetError(handle, 0);
    if (!state.connected || state.lost) {
        SetError(handle, 2006);
        return false;
    }
    if (const std::optional<Failure> failure = State::Get().NextFailure(call, arguments)) {
        SetError(handle, failure->code, failure->text);
        return false;
    }
    return true;
}

} // namespace fake

using fake::Call;
using fake::State;

extern "C" {

MYSQL* STDCALL mysql_init(MYSQL* handle)
{
    State& state = State::Get();
    if (handle != nullptr) {
        fake::ReportMisuse("mysql_init with memory of the caller is not imitated");
    }
    state.Record("mysql_init", nullptr);
    if (state.NextFailure(Call::Init, {})) {
        return nullptr;
    }
    auto created = std::make_unique<MYSQL>();
    MYSQL* const address = created.get();
    state.handles[address] = {std::move(created), fake::HandleState{}};
    ++state.handlesOpened;
    return address;
}

int STDCALL mysql_options(MYSQL* handle, mysql_option option, const void* argument)
{
    State& state = State::Get();
    state.Handle("mysql_options", handle);
    const fake::OptionRecord record = fake::OptionOf(option, argument);
    state.Record("mysql_options", handle, std::to_string(option) + "=" + std::to_string(record.value) + record.text);
    if (option == MYSQL_OPT_RECONNECT) {
        handle->options.reconnect = static_cast<my_bool>(record.value);
    }
    state.options.push_back(record);
    return 0;
}

// Not recorded: it sends nothing. A test finds the functions in the handle.
void STDCALL mysql_set_local_infile_handler(MYSQL* handle, int (*open)(void**, const char*, void*),
                                            int (*read)(void*, char*, unsigned int), void (*close)(void*),
                                            int (*error)(void*, char*, unsigned int), void* userData)
{
    State::Get().Handle("mysql_set_local_infile_handler", handle);
    handle->options.local_infile_init = open;
    handle->options.local_infile_read = read;
    handle->options.local_infile_end = close;
    handle->options.local_infile_error = error;
    handle->options.local_infile_userdata = userData;
}

MYSQL* STDCALL mysql_real_connect(MYSQL* handle, const char* host, const char* user, const char* password,
                                  const char* database, unsigned int port, const char* socket, unsigned long flags)
{
    State& state = State::Get();
    fake::HandleState& connection = state.Handle("mysql_real_connect", handle);
    const fake::ConnectRecord connect{fake::Text(host),
                                      fake::Text(user),
                                      fake::Text(password),
                                      fake::Text(database),
                                      port,
                                      fake::Text(socket),
                                      flags};
    state.Record("mysql_real_connect", handle, fake::Rendered(connect));
    state.connects.push_back(connect);
    if (connection.connected && !connection.lost) {
        fake::SetError(handle, 2058, "Can't connect twice. Already connected");
        return nullptr;
    }
    fake::SetError(handle, 0);
    if (const auto failure = state.NextFailure(Call::Connect, fake::Rendered(connect))) {
        fake::SetError(handle, failure->code, failure->text);
        return nullptr;
    }
    fake::Establish(handle, connection, connect.database.value_or("") != "");
    return handle;
}

void STDCALL mysql_close(MYSQL* handle)
{
    State& state = State::Get();
    if (handle == nullptr) {
        return;
    }
    fake::HandleState& connection = state.Handle("mysql_close", handle);
    state.Record("mysql_close", handle);
    if (connection.stream != nullptr) {
        state.results[connection.stream].second.orphaned = true;
    }
    ++state.handlesClosed;
    state.Retire(handle);
}

int STDCALL mysql_ping(MYSQL* handle)
{
    State& state = State::Get();
    fake::HandleState& connection = state.Handle("mysql_ping", handle);
    state.Record("mysql_ping", handle);
    return fake::BeginCommand(handle, connection, Call::Ping, {}) ? 0 : 1;
}

int STDCALL mysql_real_query(MYSQL* handle, const char* statement, unsigned long length)
{
    State& state = State::Get();
    fake::HandleState& connection = state.Handle("mysql_real_query", handle);
    if (statement == nullptr) {
        fake::ReportMisuse("mysql_real_query with a null statement");
    }
    const std::string text(statement, length);
    state.Record("mysql_real_query", handle, text);
    connection.reply = {}; // rows that were not fetched are out of reach, although they still block the handle
    if (!fake::BeginCommand(handle, connection, Call::Query, text)) {
        return state.queryFailureResult;
    }
    return fake::RunStatement(handle, connection, text);
}

my_ulonglong STDCALL mysql_affected_rows(MYSQL* handle)
{
    State::Get().Handle("mysql_affected_rows", handle);
    State::Get().Record("mysql_affected_rows", handle);
    return handle->affected_rows;
}

my_ulonglong STDCALL mysql_insert_id(MYSQL* handle)
{
    State::Get().Handle("mysql_insert_id", handle);
    State::Get().Record("mysql_insert_id", handle);
    return handle->insert_id;
}

unsigned int STDCALL mysql_errno(MYSQL* handle)
{
    State::Get().Handle("mysql_errno", handle);
    State::Get().Record("mysql_errno", handle);
    return handle->net.last_errno;
}

const char* STDCALL mysql_error(MYSQL* handle)
{
    State::Get().Handle("mysql_error", handle);
    State::Get().Record("mysql_error", handle);
    return handle->net.last_error;
}

const char* STDCALL mysql_info(MYSQL* handle)
{
    const fake::HandleState& connection = State::Get().Handle("mysql_info", handle);
    State::Get().Record("mysql_info", handle);
    return connection.info.empty() ? nullptr : connection.info.c_str();
}

unsigned long STDCALL mysql_thread_id(MYSQL* handle)
{
    State::Get().Handle("mysql_thread_id", handle);
    State::Get().Record("mysql_thread_id", handle);
    return handle->thread_id;
}

unsigned long STDCALL mysql_real_escape_string(MYSQL* handle, char* to, const char* from, unsigned long length)
{
    State& state = State::Get();
    state.Handle("mysql_real_escape_string", handle);
    const std::string text(from, length);
    state.Record("mysql_real_escape_string", handle, text);
    const std::string escaped = fake::Escaped(text, state.noBackslashEscapes);
    std::memcpy(to, escaped.c_str(), escaped.size() + 1);
    return static_cast<unsigned long>(escaped.size());
}

char* STDCALL mysql_stat(MYSQL* handle)
{
    State& state = State::Get();
    fake::HandleState& connection = state.Handle("mysql_stat", handle);
    state.Record("mysql_stat", handle);
    return fake::BeginCommand(handle, connection, Call::Stat, {}) ? state.stat.data() : handle->net.last_error;
}

char* STDCALL mysql_get_server_info(MYSQL* handle)
{
    State& state = State::Get();
    const fake::HandleState& connection = state.Handle("mysql_get_server_info", handle);
    state.Record("mysql_get_server_info", handle);
    return connection.connected ? state.serverInfo.data() : nullptr;
}

char* STDCALL mysql_get_host_info(MYSQL* handle)
{
    State& state = State::Get();
    const fake::HandleState& connection = state.Handle("mysql_get_host_info", handle);
    state.Record("mysql_get_host_info", handle);
    return connection.connected ? state.hostInfo.data() : nullptr;
}

const char* STDCALL mysql_get_client_info(void)
{
    State::Get().Record("mysql_get_client_info", nullptr);
    return State::Get().clientInfo.c_str();
}

} // extern "C"
