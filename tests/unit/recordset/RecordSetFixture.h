#pragma once

#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "CMyServer.h"
#include "fake_client/FakeClientFixture.h"
#include "metadata/FieldCache.h"

#include <string>
#include <vector>

namespace recordset_test {

/// A record set whose protected members can be called, as a derived class of a host would call them.
class OpenRecordSet : public CMyRecordSet
{
public:
    using CMyRecordSet::ClearFieldCache;
    using CMyRecordSet::CMyRecordSet;
    using CMyRecordSet::FreeRecordSet;
    using CMyRecordSet::GetDB;
    using CMyRecordSet::GetEncodingType;
    using CMyRecordSet::GetFieldTextInternal;
    using CMyRecordSet::GetTableFieldPtr;
    using CMyRecordSet::GetTableFieldType;
    using CMyRecordSet::InitMembers;
    using CMyRecordSet::IsFieldHashLoaded;
    using CMyRecordSet::LoadFieldHash;
    using CMyRecordSet::SaveFieldValue;
    using CMyRecordSet::SetSQLCommand;
    using CMyRecordSet::String2CDateTime;

    /// A pending change whose statement text does not matter.
    void Set(const char* column, std::string_view value)
    {
        SaveFieldValue(column, "'x'", value.data(), static_cast<unsigned long>(value.size()));
    }
};

inline CMyServer Server(const char* charset = "")
{
    CMyServer server;
    server.SetHost("127.0.0.1");
    server.SetPort(3306);
    server.SetUser("tester");
    server.SetCharset(charset);
    return server;
}

/// A column that holds numbers; the server gives such columns the binary charset.
inline fake::Field NumberField(const std::string& name, enum_field_types type = MYSQL_TYPE_LONG)
{
    return {.name = name, .type = type, .flags = NUM_FLAG | BINARY_FLAG, .length = 11, .charsetnr = 63};
}

inline fake::Field TextField(const std::string& name, unsigned int charsetnr = 45)
{
    return {.name = name, .type = MYSQL_TYPE_VAR_STRING, .length = 80, .charsetnr = charsetnr};
}

/// `count` rows of one column A with the texts "0", "1", ...
inline fake::Reply CountedRows(size_t count, size_t columns = 1)
{
    static const char* const names[] = {"A", "B", "C", "D", "E", "F"};
    std::vector<fake::Field> fields;
    for (size_t column = 0; column < columns; ++column)
        fields.push_back(TextField(names[column]));
    std::vector<fake::Row> rows;
    for (size_t row = 0; row < count; ++row)
        rows.emplace_back(columns, std::to_string(row));
    return fake::Reply::Rows(fields, rows);
}

/// The bytes of a text, for comparisons that show them.
inline std::string Bytes(const UtCString& text)
{
    return std::string(text.View());
}

/// An open connection to the database "shop" of the scripted client, with an empty table cache.
class RecordSetFixture : public fake::ClientFixture
{
protected:
    RecordSetFixture()
    {
        CFieldCache::Instance().RemoveAll();
        EXPECT_TRUE(m_database.Open(false, ""));
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        m_database.Close();
        fake::ClientFixture::TearDown();
    }

    std::string LastStatement() const
    {
        const std::vector<std::string> statements = m_client.Statements();
        return statements.empty() ? "" : statements.back();
    }

    CMyDatabase m_database{Server(), "shop"};
};

} // namespace recordset_test
