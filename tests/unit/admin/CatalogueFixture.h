#pragma once

#include "CMyDatabase.h"

#include "fake_client/FakeClientFixture.h"
#include "harness/MessageRecorder.h"
#include "metadata/FieldCache.h"

#include <string>
#include <vector>

/// A connection to the database "shop" on the scripted client; its opening is not in the records.
class CatalogueFixture : public fake::ClientFixture
{
protected:
    using Statements = std::vector<std::string>;

    CatalogueFixture()
    {
        EXPECT_TRUE(m_database.Open(false, ""));
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        m_database.Close();
        ClientFixture::TearDown();
        CFieldCache::Instance().RemoveAll();
    }

    static CMyServer Settings(const char* user = "kim")
    {
        CMyServer server;
        server.SetHost("db.example");
        server.SetPort(3307);
        server.SetUser(user);
        server.SetPassword("pw");
        server.SetCharset("utf8mb4");
        return server;
    }
    static fake::Reply Tables(std::vector<fake::Row> names)
    {
        return fake::Reply::Rows({"Tables_in_shop"}, std::move(names));
    }
    static std::string Bytes(const UtCString& text) { return std::string(text.View()); }

    harness::MessageRecorder m_messages;
    CMyDatabase m_database{Settings(), "shop"};
};
