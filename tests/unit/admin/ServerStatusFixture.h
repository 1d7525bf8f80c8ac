#pragma once

#include "CMyDatabase.h"

#include "fake_client/FakeClientFixture.h"
#include "harness/FailurePoints.h"

#include <string>

namespace admin_test {

using fake::Call;
using fake::Reply;

inline constexpr char statusLine[] =
    "Uptime: 90061  Threads: 2  Questions: 1234567  Slow queries: 0  Opens: 27  Flush tables: "
    "1  Open tables: 17  Queries per second avg: 0.934";
inline constexpr char formattedStatus[] =
    "Uptime: 1 day 01 hrs 01 min 01 sec\nThreads: 2  Questions: 1'234'567  Slow queries: 0  Opens: 27  Flush tables: "
    "1  Open tables: 17  Queries per second avg: 0.934";

inline CMyServer Server(const char* charset = "")
{
    CMyServer server;
    server.SetHost("db.example");
    server.SetPort(3306);
    server.SetUser("tester");
    server.SetDataDir("C:\\data\\");
    server.SetCharset(charset);
    return server;
}

inline Reply Variable(const char* name, const char* value)
{
    return Reply::Rows({"Variable_name", "Value"}, {{name, value}});
}

inline Reply NoVariable()
{
    return Reply::Rows({"Variable_name", "Value"}, {});
}

inline void ScriptVariable(const std::string& name, const char* value)
{
    fake::Client::Get().On("SHOW VARIABLES LIKE '" + name + "'", Variable(name.c_str(), value));
}

/// The buffers of a connection add up to 3145728 bytes for either generation.
inline void ScriptVariables()
{
    ScriptVariable("key_buffer_size", "8388608");
    ScriptVariable("net_buffer_length", "16384");
    ScriptVariable("myisam_sort_buffer_size", "1048576");
    ScriptVariable("join_buffer_size", "524288");
    ScriptVariable("record_buffer", "1048576");
    ScriptVariable("record_rnd_buffer", "524288");
    ScriptVariable("sort_buffer_size", "1048576");
    ScriptVariable("read_buffer_size", "262144");
    ScriptVariable("read_rnd_buffer_size", "262144");
    ScriptVariable("max_connections", "100");
}

class ServerStatusFixture : public fake::ClientFixture
{
protected:
    ServerStatusFixture()
    {
        m_client.OnPrefix("SHOW STATUS", NoVariable());
        m_client.OnPrefix("SHOW VARIABLES", NoVariable());
        EXPECT_TRUE(m_database.Open(false, ""));
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        m_database.Close();
        fake::ClientFixture::TearDown();
    }

    UtCString Info(unsigned int what) { return m_database.GetInfo(static_cast<DB_INFOS>(what)); }

    CMyDatabase m_database{Server(), "shop"};
};

inline void PrepareServer()
{
    fake::Client& client = fake::Client::Get();
    client.SetStat(statusLine);
    client.SetServerInfo("5.7.44");
    ScriptVariables();
    client.On("SHOW STATUS LIKE 'Uptime'", Variable("Uptime", "90061"));
}

inline void ExpectUsable(CMyDatabase& database)
{
    EXPECT_EQ(database.GetStatusValue("Uptime"), "90061");
    EXPECT_EQ(database.GetVariableValueInt64("max_connections"), 100);
    EXPECT_EQ(database.GetInfo(DB_INFO_SERVER_VERSION), "5.7.44");
}

} // namespace admin_test
