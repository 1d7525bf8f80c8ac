#include "fake_client/ClientRules.h"

#include "harness/PrivateServer.h"

// The real client and a real server.
namespace client_rules {
namespace {

/// One per test: the table of the rules must be new.
std::string& DatabaseName()
{
    static std::string name;
    return name;
}

class Database : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo& test) override
    {
        if (std::string(test.test_suite_name()) == "ClientRules") {
            m_database = std::make_unique<harness::TemporaryDatabase>();
            m_database->Sql().Run("CREATE TABLE t (id INT NOT NULL AUTO_INCREMENT PRIMARY KEY, "
                                  "b VARCHAR(5) DEFAULT 'zz', c INT)");
            DatabaseName() = m_database->Name();
        }
    }
    void OnTestEnd(const testing::TestInfo&) override { m_database.reset(); }

    std::unique_ptr<harness::TemporaryDatabase> m_database;
};

[[maybe_unused]] const bool g_listening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new Database);
    return true;
}();

MYSQL* Connect(MYSQL* handle, const char* password, const char* database)
{
    const harness::ServerAccess& access = harness::PrivateServer::Get().Tester();
    return mysql_real_connect(handle, access.host.c_str(), access.user.c_str(), password, database, access.port,
                              nullptr, 0);
}

} // namespace

MYSQL* ConnectTo(MYSQL* handle)
{
    return Connect(handle, harness::PrivateServer::Get().Tester().password.c_str(), DatabaseName().c_str());
}

MYSQL* ConnectWithoutDatabase(MYSQL* handle)
{
    return Connect(handle, harness::PrivateServer::Get().Tester().password.c_str(), nullptr);
}

MYSQL* ConnectWithWrongPassword(MYSQL* handle)
{
    return Connect(handle, "wrong", DatabaseName().c_str());
}

void CutConnection(MYSQL* handle)
{
    harness::KillConnection(mysql_thread_id(handle));
}

} // namespace client_rules
