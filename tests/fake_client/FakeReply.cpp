#include "fake_client/FakeReply.h"

#include "fake_client/FakeErrors.h"

#include <utility>

namespace fake {

std::vector<Field> TextFields(const std::vector<std::string>& names)
{
    std::vector<Field> fields;
    for (const std::string& name : names) {
        fields.push_back(Field{.name = name});
    }
    return fields;
}

Reply Reply::Ok(unsigned long long affectedRows, unsigned long long insertId, std::string info)
{
    Reply reply;
    reply.affectedRows = affectedRows;
    reply.insertId = insertId;
    reply.info = std::move(info);
    return reply;
}

Reply Reply::Rows(std::vector<Field> fields, std::vector<Row> rows)
{
    for (const Row& row : rows) {
        if (row.size() != fields.size()) {
            ReportMisuse("a scripted row does not have as many values as there are fields");
        }
    }
    Reply reply;
    reply.fields = std::move(fields);
    reply.rows = std::move(rows);
    return reply;
}

Reply Reply::Rows(std::initializer_list<std::string> names, std::vector<Row> rows)
{
    return Rows(TextFields(names), std::move(rows));
}

Reply Reply::Error(unsigned int code, std::string text)
{
    Reply reply;
    reply.queryErrorCode = code;
    reply.errorText = std::move(text);
    return reply;
}

Reply Reply::ErrorAtResult(unsigned int code, std::string text)
{
    Reply reply = Rows({"fake"}, {});
    reply.resultErrorCode = code;
    reply.errorText = std::move(text);
    return reply;
}

Reply Reply::CutAfter(size_t rowCount, unsigned int code, std::string text) const
{
    Reply reply = *this;
    reply.rowErrorAfter = rowCount;
    reply.rowErrorCode = code;
    reply.errorText = std::move(text);
    return reply;
}

} // namespace fake
