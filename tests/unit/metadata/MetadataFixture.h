#pragma once

#include "CMyDatabase.h"
#include "fake_client/FakeClientFixture.h"
#include "metadata/FieldCache.h"

#include <memory>
#include <string>
#include <vector>

namespace metadata_test {

using Traffic = std::vector<std::string>;

inline std::string Text(const UtCString& text)
{
    return std::string(text.View());
}

inline CMyServer Settings(const char* charset = "")
{
    CMyServer server;
    server.SetHost("dbhost");
    server.SetPort(3306);
    server.SetUser("clerk");
    server.SetCharset(charset);
    return server;
}

/// A connection that writes down how Open is called.
class WatchedDatabase : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;

    bool Open(bool interactive, const UtCString& databaseName) override
    {
        opens.push_back(std::string(interactive ? "true" : "false") + ",\"" + Text(databaseName) + "\"");
        return CMyDatabase::Open(interactive, databaseName);
    }

    std::vector<std::string> opens;
};

/// The script of a small shop: the tables ORDERS, ITEMS and PRICES of the database "shop".
inline void ScriptShop()
{
    fake::Client& client = fake::Client::Get();
    client.On("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {}));
    client.OnListFields("ORDERS",
                        {{.name = "id", .type = MYSQL_TYPE_LONG, .flags = PRI_KEY_FLAG | NOT_NULL_FLAG, .length = 11},
                         {.name = "Name", .length = 60, .charsetnr = 33, .def = "Muster"},
                         {.name = "price", .type = MYSQL_TYPE_DOUBLE, .length = 22, .decimals = 31, .charsetnr = 63}});
    client.OnListFields("ITEMS", {{.name = "item", .type = MYSQL_TYPE_SHORT}});
    client.OnListFields("PRICES", {{.name = "price", .type = MYSQL_TYPE_NEWDECIMAL}});
    for (const char* table : {"ORDERS", "ITEMS", "PRICES"})
        client.On(std::string("SHOW TABLE STATUS FROM shop LIKE '") + table + "'",
                  fake::Reply::Rows({"Name", "Engine"}, {{table, "InnoDB"}}));
}

/// Every test starts with an empty cache and the script of the shop.
class MetadataFixture : public fake::ClientFixture
{
protected:
    MetadataFixture()
    {
        CFieldCache::Instance().RemoveAll();
        ScriptShop();
    }
    ~MetadataFixture() override { CFieldCache::Instance().RemoveAll(); }

    /// What went to the server since the last call, in order: "connect", "ping", "close", "list NAME" and statements.
    Traffic TakeTraffic()
    {
        Traffic traffic;
        for (const fake::CallRecord& call : m_client.Calls()) {
            if (call.function == "mysql_real_connect")
                traffic.push_back("connect");
            else if (call.function == "mysql_ping")
                traffic.push_back("ping");
            else if (call.function == "mysql_close")
                traffic.push_back("close");
            else if (call.function == "mysql_list_fields")
                traffic.push_back("list " + call.arguments);
            else if (call.function == "mysql_real_query")
                traffic.push_back(call.arguments);
        }
        m_client.ForgetCalls();
        return traffic;
    }

    /// Opens the connection; what this takes is left out of the traffic.
    void OpenQuietly(CMyDatabase& database)
    {
        ASSERT_TRUE(database.Open(false, ""));
        m_client.ForgetCalls();
    }

    CFieldCache& m_cache = CFieldCache::Instance();
};

} // namespace metadata_test
