#pragma once

#include "mfc/Framework.h"

#include <cstdlib>

/// With the folder of its files, which a copy of a database needs.
inline CMyServer LocalServer()
{
    CMyServer server = HostServer();
    const char* const folder = std::getenv("MYDB_DATA_DIR");
    server.SetDataDir(UtCString(folder ? folder : ""));
    return server;
}

/// A database with a table of 500 rows.
class OnServer : public WithFramework
{
protected:
    OnServer()
    {
        Run("DROP DATABASE IF EXISTS vela_mfc");
        Run("CREATE DATABASE vela_mfc");
        EXPECT_TRUE(m_database.Open(false, UtCString("vela_mfc")));
        Run("CREATE TABLE T (ID INT PRIMARY KEY, B BLOB, G CHAR(38)) ENGINE=MyISAM");
        std::string rows = "INSERT INTO T VALUES (0, 'bytes', ''), (1, NULL, '')";
        for (int id = 2; id < 500; ++id)
            rows += ",(" + std::to_string(id) + ",'x','')";
        Run(rows);
    }
    ~OnServer() override { Run("DROP DATABASE vela_mfc"); }

    void Run(const std::string& sql)
    {
        EXPECT_GE(m_administrator.ExecuteQuery(UtCString(sql.c_str()), false, nullptr, false), 0) << sql;
        if (sql.starts_with("CREATE DATABASE"))
            m_administrator.Open(false, UtCString("vela_mfc"));
    }

    CMyDatabase m_administrator{HostServer(), UtCString("information_schema")};
    CMyDatabase m_database{LocalServer(), UtCString("vela_mfc")};
};
