#pragma once

#include "RecordSetFixture.h"

#include <string>
#include <vector>

namespace recordset_test {

/// As OpenRecordSet, with the protected members of the edit bracket.
class EditedRecordSet : public OpenRecordSet
{
public:
    using CMyRecordSet::CreateSetClause;
    using CMyRecordSet::SetFieldBuffer;
    using CMyRecordSet::SetFieldValue;
    using CMyRecordSet::SetUserAndTimeStamp;
    using OpenRecordSet::OpenRecordSet;
};

inline fake::Field KeyField(const std::string& name)
{
    return {.name = name,
            .type = MYSQL_TYPE_LONG,
            .flags = NUM_FLAG | BINARY_FLAG | PRI_KEY_FLAG | NOT_NULL_FLAG,
            .length = 11,
            .charsetnr = 63};
}

inline fake::Field NotNullField(const std::string& name)
{
    return {.name = name, .type = MYSQL_TYPE_VAR_STRING, .flags = NOT_NULL_FLAG, .length = 80, .charsetnr = 45};
}

inline fake::Field DateField(const std::string& name)
{
    return {.name = name, .type = MYSQL_TYPE_DATETIME, .flags = BINARY_FLAG, .length = 19, .charsetnr = 63};
}

/// A record set on the table "t" (ID, NAME, MUST not null) without stamp columns, over a UTF-8 connection.
class EditFixture : public fake::ClientFixture
{
protected:
    explicit EditFixture(const char* charset = "utf8mb4") : m_database(Server(charset), "shop")
    {
        CFieldCache::Instance().RemoveAll();
        m_client.OnListFields("T", {KeyField("ID"), TextField("NAME"), NotNullField("MUST")});
        m_client.OnPrefix("INSERT", fake::Reply::Ok(1));
        m_client.OnPrefix("UPDATE", fake::Reply::Ok(1, 0, "Rows matched: 1  Changed: 1  Warnings: 0"));
        m_client.OnPrefix("DELETE", fake::Reply::Ok(1));
        EXPECT_TRUE(m_database.Open(false, ""));
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        records.Close();
        m_database.Close();
        CFieldCache::Instance().RemoveAll();
        fake::ClientFixture::TearDown();
    }

    /// The statements that change rows.
    std::vector<std::string> Changes() const
    {
        std::vector<std::string> changes;
        for (const std::string& statement : m_client.Statements())
            if (statement.starts_with("INSERT") || statement.starts_with("UPDATE") || statement.starts_with("DELETE"))
                changes.push_back(statement);
        return changes;
    }

    std::string SetClause()
    {
        UtCString clause(UT_ENCODING_UTF8);
        records.CreateSetClause(clause);
        return Bytes(clause);
    }

    CMyDatabase m_database;
    EditedRecordSet records{m_database, "t"};
};

} // namespace recordset_test
