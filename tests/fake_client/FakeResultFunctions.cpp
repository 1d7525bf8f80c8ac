#include "fake_client/FakeErrors.h"
#include "fake_client/FakeHandle.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

// The C functions that make, read and free results.

namespace fake {
namespace {

// A longer name makes the real client send bytes from behind its buffer.
constexpr size_t LONGEST_TABLE_NAME = 126;

char* Keep(ResultState& result, const std::string& text)
{
    result.texts.push_back(text);
    return result.texts.back().data();
}

MYSQL_FIELD ToClientField(ResultState& result, const Field& field, bool listing)
{
    MYSQL_FIELD to{};
    const std::string& originalName = field.orgName ? *field.orgName : field.name;
    to.name = Keep(result, field.name);
    to.name_length = static_cast<unsigned int>(field.name.size());
    to.org_name = Keep(result, originalName);
    to.org_name_length = static_cast<unsigned int>(originalName.size());
    to.table = Keep(result, field.table);
    to.table_length = static_cast<unsigned int>(field.table.size());
    to.org_table = to.table;
    to.org_table_length = to.table_length;
    to.db = Keep(result, field.db);
    to.db_length = static_cast<unsigned int>(field.db.size());
    to.catalog = Keep(result, "def");
    to.catalog_length = 3;
    to.def = listing && field.def ? Keep(result, *field.def) : nullptr;
    to.length = field.length;
    to.flags = field.flags;
    to.decimals = field.decimals;
    to.charsetnr = field.charsetnr;
    to.type = field.type;
    return to;
}

RowMemory ToRowMemory(const Row& row)
{
    RowMemory memory;
    for (const Value& value : row) {
        memory.lengths.push_back(static_cast<unsigned long>(value ? value->size() : 0));
        if (value) {
            memory.bytes.insert(memory.bytes.end(), value->c_str(), value->c_str() + value->size() + 1);
        }
    }
    memory.bytes.push_back('\0');
    char* to = memory.bytes.data();
    for (const Value& value : row) {
        memory.pointers.push_back(value ? to : nullptr);
        to += value ? value->size() + 1 : 0;
    }
    memory.pointers.push_back(to);
    return memory;
}

MYSQL_RES* AddResult(ResultState result, const std::vector<Field>& fields, bool listing)
{
    State& state = State::Get();
    auto created = std::make_unique<MYSQL_RES>();
    MYSQL_RES* const address = created.get();
    for (const Field& field : fields) {
        result.fields.push_back(ToClientField(result, field, listing));
    }
    address->field_count = static_cast<unsigned int>(result.fields.size());
    address->row_count = result.rows.size();
    ++state.resultsOpened;
    ResultState& kept = (state.results[address] = {std::move(created), std::move(result)}).second;
    address->fields = kept.fields.data();
    return address;
}

/// Takes the rows of the handle's last statement, once; nullopt: there are none, or taking them failed.
std::optional<Reply> TakePendingRows(MYSQL* handle, HandleState& connection, Call call)
{
    const Reply reply = std::exchange(connection.reply, Reply());
    if (reply.fields.empty()) {
        return std::nullopt;
    }
    handle->status = MYSQL_STATUS_READY;
    if (connection.lost) {
        SetError(handle, 2013);
        return std::nullopt;
    }
    if (const std::optional<Failure> failure = State::Get().NextFailure(call, {})) {
        SetError(handle, failure->code, failure->text);
        return std::nullopt;
    }
    if (reply.resultErrorCode != 0) {
        SetError(handle, reply.resultErrorCode, reply.errorText);
        return std::nullopt;
    }
    return reply;
}

void EndStream(ResultState& result)
{
    HandleState& connection = State::Get().Handle("the end of a stream", result.handle);
    connection.stream = nullptr;
    result.handle->status = MYSQL_STATUS_READY;
    result.ended = true;
    result.current = nullptr;
}

MYSQL_ROW CutStream(ResultState& result, unsigned int code, const std::string& text)
{
    SetError(result.handle, code, text);
    EndStream(result);
    return nullptr;
}

/// Old bytes are overwritten before they are given back, so that a stale row pointer is noticed.
void DropStreamedRow(ResultState& result)
{
    for (RowMemory& row : result.rows) {
        std::fill(row.bytes.begin(), row.bytes.end(), '\xDD');
    }
    result.rows.clear();
    result.current = nullptr;
}

MYSQL_ROW NextStreamedRow(MYSQL_RES* address, ResultState& result)
{
    if (result.ended) {
        return nullptr;
    }
    DropStreamedRow(result);
    if (State::Get().Handle("mysql_fetch_row", result.handle).lost) {
        return CutStream(result, 2013, {});
    }
    if (const std::optional<Failure> failure = State::Get().NextFailure(Call::FetchRow, {})) {
        return CutStream(result, failure->code, failure->text);
    }
    const Reply& reply = result.reply;
    if (reply.rowErrorCode != 0 && result.position >= reply.rowErrorAfter) {
        return CutStream(result, reply.rowErrorCode, reply.errorText);
    }
    if (result.position >= reply.rows.size()) {
        EndStream(result);
        return nullptr;
    }
    result.rows.push_back(ToRowMemory(reply.rows[result.position++]));
    result.current = &result.rows.back();
    address->row_count = result.position;
    return result.current->pointers.data();
}

MYSQL_ROW NextStoredRow(ResultState& result)
{
    if (result.position >= result.rows.size()) {
        result.current = nullptr;
        return nullptr;
    }
    result.current = &result.rows[result.position++];
    return result.current->pointers.data();
}

MYSQL_RES* ListingFailure(MYSQL* handle, unsigned int code, const std::string& text)
{
    SetError(handle, code, text);
    return nullptr;
}

} // namespace
} // namespace fake

using fake::Call;
using fake::State;

extern "C" {

MYSQL_RES* STDCALL mysql_store_result(MYSQL* handle)
{
    State& state = State::Get();
    fake::HandleState& connection = state.Handle("mysql_store_result", handle);
    state.Record("mysql_store_result", handle);
    const std::optional<fake::Reply> reply = fake::TakePendingRows(handle, connection, Call::StoreResult);
    if (!reply) {
        return nullptr;
    }
    if (reply->rowErrorCode != 0) {
        fake::SetError(handle, reply->rowErrorCode, reply->errorText);
        return nullptr;
    }
    fake::ResultState result;
    std::transform(reply->rows.begin(), reply->rows.end(), std::back_inserter(result.rows), fake::ToRowMemory);
    handle->affected_rows = result.rows.size();
    return fake::AddResult(std::move(result), reply->fields, false);
}

MYSQL_RES* STDCALL mysql_use_result(MYSQL* handle)
{
    State& state = State::Get();
    fake::HandleState& connection = state.Handle("mysql_use_result", handle);
    state.Record("mysql_use_result", handle);
    const std::optional<fake::Reply> reply = fake::TakePendingRows(handle, connection, Call::UseResult);
    if (!reply) {
        return nullptr;
    }
    handle->status = MYSQL_STATUS_USE_RESULT;
    fake::ResultState result;
    result.streamed = true;
    result.handle = handle;
    result.reply = *reply;
    connection.stream = fake::AddResult(std::move(result), reply->fields, false);
    return connection.stream;
}

MYSQL_RES* STDCALL mysql_list_fields(MYSQL* handle, const char* table, const char* wild)
{
    State& state = State::Get();
    fake::HandleState& connection = state.Handle("mysql_list_fields", handle);
    if (table == nullptr || std::strlen(table) > fake::LONGEST_TABLE_NAME) {
        fake::ReportMisuse("mysql_list_fields with a null name or one of more than 126 bytes");
    }
    const std::string name = table;
    state.Record("mysql_list_fields", handle, name + (wild == nullptr ? "" : std::string(" ") + wild));
    if (!fake::BeginCommand(handle, connection, Call::ListFields, name)) {
        return nullptr;
    }
    connection.reply = {};
    if (!connection.hasDatabase) {
        return fake::ListingFailure(handle, 1046, "No database selected");
    }
    if (const auto error = state.listingErrors.find(name); error != state.listingErrors.end()) {
        return fake::ListingFailure(handle, error->second.code, error->second.text);
    }
    const auto listing = state.listings.find(name);
    if (listing == state.listings.end()) {
        return fake::ListingFailure(handle, 1146, "Table 'fake." + name + "' doesn't exist");
    }
    return fake::AddResult({}, listing->second, true);
}

MYSQL_ROW STDCALL mysql_fetch_row(MYSQL_RES* address)
{
    fake::ResultState& result = State::Get().Result("mysql_fetch_row", address);
    State::Get().Record("mysql_fetch_row", result.handle);
    return result.streamed ? fake::NextStreamedRow(address, result) : fake::NextStoredRow(result);
}

unsigned long* STDCALL mysql_fetch_lengths(MYSQL_RES* address)
{
    fake::ResultState& result = State::Get().Result("mysql_fetch_lengths", address);
    State::Get().Record("mysql_fetch_lengths", nullptr);
    return result.current == nullptr ? nullptr : result.current->lengths.data();
}

MYSQL_FIELD* STDCALL mysql_fetch_fields(MYSQL_RES* address)
{
    fake::ResultState& result = State::Get().Result("mysql_fetch_fields", address);
    State::Get().Record("mysql_fetch_fields", nullptr);
    return result.fields.data();
}

unsigned int STDCALL mysql_num_fields(MYSQL_RES* address)
{
    State::Get().Result("mysql_num_fields", address);
    State::Get().Record("mysql_num_fields", nullptr);
    return address->field_count;
}

my_ulonglong STDCALL mysql_num_rows(MYSQL_RES* address)
{
    State::Get().Result("mysql_num_rows", address);
    State::Get().Record("mysql_num_rows", nullptr);
    return address->row_count;
}

void STDCALL mysql_data_seek(MYSQL_RES* address, unsigned long long offset)
{
    fake::ResultState& result = State::Get().Result("mysql_data_seek", address);
    State::Get().Record("mysql_data_seek", nullptr, std::to_string(offset));
    if (result.streamed) {
        fake::ReportMisuse("mysql_data_seek on a streamed result");
    }
    result.position = static_cast<size_t>(offset);
    result.current = nullptr;
}

void STDCALL mysql_free_result(MYSQL_RES* address)
{
    State& state = State::Get();
    if (address == nullptr) {
        return;
    }
    fake::ResultState& result = state.Result("mysql_free_result", address);
    state.Record("mysql_free_result", result.handle);
    if (result.streamed && !result.ended) {
        fake::EndStream(result);
    }
    ++state.resultsClosed;
    state.Retire(address);
}

} // extern "C"
