#pragma once

#include "CMyDatabase.h"

#include "connection/DatabaseAccess.h"
#include "fake_client/FakeClientFixture.h"
#include "harness/MessageRecorder.h"
#include "harness/TemporaryFolder.h"
#include "metadata/FieldCache.h"
#include "unit/Environment.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// Two open connections on the scripted client, from "shop" to "shop2", with the tables kunden and "order list" in the
/// source. Temporary files and data directories are in a folder of the test.
class CopyFixture : public fake::ClientFixture
{
protected:
    using Texts = std::vector<std::string>;

    CopyFixture()
    {
        std::filesystem::create_directories(Temp());
        std::filesystem::create_directories(SourceFolder());
        std::ofstream(SourceFolder() / "notes.txt") << "beside the tables";
        Script();
        EXPECT_TRUE(m_source.Open(false, ""));
        EXPECT_TRUE(m_target.Open(false, ""));
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        m_source.Close();
        m_target.Close();
        ClientFixture::TearDown();
        CFieldCache::Instance().RemoveAll();
    }

    static void Script()
    {
        using fake::Reply;
        fake::Client& client = fake::Client::Get();
        client.On("SHOW TABLES", Reply::Rows({"Tables"}, {{"kunden"}, {"order list"}}));
        client.On("SELECT * FROM kunden", Reply::Rows({"ID", "NAME"}, {{"1", "o'x"}, {"2", std::nullopt}}));
        client.On("SELECT * FROM order list", Reply::Rows({"ID"}, {}));
        client.On("SHOW CREATE TABLE `shop`.`kunden`",
                  Reply::Rows({"Table", "Create Table"}, {{"kunden", "CREATE TABLE `kunden` (\n  `ID` int\n)"}}));
        client.On("SHOW CREATE TABLE `shop`.`order list`",
                  Reply::Rows({"Table", "Create Table"}, {{"order list", "CREATE TABLE `order list` (`ID` int)"}}));
    }

    CMyServer Server(const char* host) const
    {
        CMyServer server;
        server.SetHost(host);
        server.SetPort(3306);
        server.SetCharset("utf8mb4");
        server.SetDataDir(UtCString((m_folder.Path() / host).string(), UT_ENCODING_UTF8).replace("/", "\\"));
        return server;
    }
    std::filesystem::path Temp() const { return m_folder.Path() / "temp"; }
    std::filesystem::path SourceFolder() const { return m_folder.Path() / "one.example" / "DBS" / "shop"; }
    std::filesystem::path TargetFolder() const { return m_folder.Path() / "two.example" / "DBS" / "shop2"; }

    bool Copy() { return m_source.CopyDatabase(m_target, nullptr); }

    /// What was sent, with the connection in front, without what an Open asks and with the time of day as 000000.
    Texts Sent() const
    {
        Texts sent;
        for (const fake::CallRecord& call : m_client.Calls()) {
            if (call.function != "mysql_real_query" || call.arguments == "SHOW TABLES")
                continue;
            sent.push_back((call.handle == m_sourceHandle ? "source: " : "target: ") + WithoutTime(call.arguments));
        }
        return sent;
    }
    static std::string WithoutTime(std::string text)
    {
        if (const size_t at = text.find("_tmp"); at != std::string::npos && at > 6)
            text.replace(at - 6, 6, "000000");
        return text;
    }
    Texts TemporaryFiles() const { return NamesIn(Temp()); }
    static Texts NamesIn(const std::filesystem::path& folder)
    {
        Texts names;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            names.push_back(WithoutTime(entry.path().filename().string()));
        std::sort(names.begin(), names.end());
        return names;
    }
    static std::string ContentOf(const std::filesystem::path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return stream ? std::string(std::istreambuf_iterator<char>(stream), {}) : "no file";
    }

    harness::TemporaryFolder m_folder;
    Environment m_temp{harness::temporaryFolderVariable, Temp().string().c_str()};
    harness::MessageRecorder m_messages;
    CMyDatabase m_source{Server("one.example"), "shop"};
    CMyDatabase m_target{Server("two.example"), "shop2"};
    const MYSQL* m_sourceHandle = nullptr;
};
