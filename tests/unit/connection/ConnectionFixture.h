#pragma once

#include "CMyDatabase.h"
#include "connection/ProcessState.h"
#include "fake_client/FakeClientFixture.h"
#include "harness/MessageRecorder.h"

#include <string>
#include <vector>

namespace connection_test {

inline std::string Bytes(const UtCString& text)
{
    return std::string(text.View());
}

/// Settings of a server that the scripted client accepts.
inline CMyServer ValidServer()
{
    CMyServer server;
    server.SetHost("db.example");
    server.SetPort(3307);
    server.SetUser("Tester");
    server.SetPassword("secret");
    server.SetCharset("utf8mb4");
    return server;
}

inline fake::Reply NoTables()
{
    return fake::Reply::Rows({"Tables_in_shop"}, {});
}

/// Fixture for connections on the scripted client: a database without tables, message boxes recorded, and the limit on
/// failed connects as at the start of a process.
class ConnectionFixture : public fake::ClientFixture
{
protected:
    ConnectionFixture() : m_savedLimit(connection::ProcessConnectLimit())
    {
        connection::ProcessConnectLimit() = {};
        m_client.On("SHOW TABLES", NoTables());
    }
    ~ConnectionFixture() override { connection::ProcessConnectLimit() = m_savedLimit; }

    harness::MessageRecorder m_messages;

private:
    connection::ConnectLimit m_savedLimit;
};

/// As above, with a connection that is open and whose opening is not in the client's records any more.
class OpenConnectionFixture : public ConnectionFixture
{
protected:
    OpenConnectionFixture() : m_database(ValidServer(), "shop")
    {
        EXPECT_TRUE(m_database.Open(false, ""));
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        m_database.Close();
        ConnectionFixture::TearDown();
    }

    CMyDatabase m_database;
};

/// A user interface of a host that fails at every message while it lives.
class ThrowingInterface final : public MyDbUserInterface
{
public:
    ThrowingInterface() : m_previous(MyDbSetUserInterface(this)) {}
    ThrowingInterface(const ThrowingInterface&) = delete;
    ThrowingInterface& operator=(const ThrowingInterface&) = delete;
    ~ThrowingInterface() override { MyDbSetUserInterface(m_previous); }
    int ShowMessage(const UtCString&, unsigned int) override { throw 1; }
    void BeginWait() override {}
    void EndWait() override {}

private:
    MyDbUserInterface* m_previous;
};

} // namespace connection_test
