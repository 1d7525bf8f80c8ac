#pragma once

#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "CMyServer.h"
#include "Settings.h"
#include "harness/GeneralLog.h"
#include "harness/PrivateServer.h"
#include "metadata/FieldCache.h"

#include <gtest/gtest.h>

#include <string>

namespace server_test {

class OpenRecordSet : public CMyRecordSet
{
public:
    using CMyRecordSet::CMyRecordSet;
    using CMyRecordSet::GetDB;
    using CMyRecordSet::GetTableFieldPtr;
    using CMyRecordSet::SetSQLCommand;
};

/// A database of its own on the real server, and a connection to it.
class RecordSetFixture : public testing::Test
{
protected:
    RecordSetFixture() { EXPECT_TRUE(m_database.Open(false, "")) << m_database.GetErrorMessage().string(); }
    ~RecordSetFixture() override { CFieldCache::Instance().RemoveAll(); }

    static CMyServer Server(const char* charset = "")
    {
        const harness::ServerAccess& access = harness::PrivateServer::Get().Tester();
        return server_test::SettingsOf(access, charset);
    }

    void Run(const std::string& sql) { m_temporary.Sql().Run(sql); }

    /// A table "orders" with the columns ID and NAME and the rows 1 to `count`.
    void MakeOrders(int count)
    {
        Run("CREATE TABLE orders (ID INT PRIMARY KEY, NAME VARCHAR(40))");
        Run("SET SESSION max_recursive_iterations = 10000000");
        Run("INSERT INTO orders SELECT n, CONCAT('order ', n) FROM (WITH RECURSIVE t (n) AS (SELECT 1 UNION ALL SELECT"
            " n + 1 FROM t WHERE n < " +
            std::to_string(count) + ") SELECT n FROM t) numbers");
    }

    /// The connections to the database of this test, its own connection for set-up not counted.
    long Connections()
    {
        return std::stol(*m_temporary.Sql().Text("SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE DB = '" +
                                                 m_temporary.Name() + "'")) -
               1;
    }

    static std::string Bytes(const UtCString& text) { return std::string(text.View()); }

    harness::TemporaryDatabase m_temporary;
    CMyDatabase m_database{Server(), m_temporary.Name().c_str()};
};

} // namespace server_test
