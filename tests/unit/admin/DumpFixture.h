#pragma once

#include "CMyDatabase.h"

#include "fake_client/FakeClientFixture.h"
#include "framework/CWnd.h"
#include "harness/TemporaryFolder.h"

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

inline CMyServer DumpServer(const char* charset = "")
{
    CMyServer server;
    server.SetHost("db.example");
    server.SetPort(3306);
    server.SetCharset(charset);
    return server;
}

inline std::string ContentOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return stream ? std::string(std::istreambuf_iterator<char>(stream), {}) : "no file";
}

/// A progress bar that writes down what it is told.
class RecordedBar final : public CProgressCtrl
{
public:
    explicit RecordedBar(int upper, int lower = 0) { SetRange32(lower, upper); }
    intptr_t WindowProc(unsigned int message, uintptr_t wParam, intptr_t lParam) override
    {
        steps.push_back(std::to_string(message) + ":" + std::to_string(wParam) + ":" + std::to_string(lParam));
        return 0;
    }
    std::vector<std::string> steps;
};

/// An open connection on the scripted client and a folder for dumps.
class DumpFixture : public fake::ClientFixture
{
protected:
    DumpFixture()
    {
        EXPECT_TRUE(m_database.Open(false, ""));
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        m_database.Close();
        fake::ClientFixture::TearDown();
    }

    /// As a copy dumps: comma, quotes, CR LF.
    long Dump(const char* table = "t", const char* statement = "", CProgressCtrl* bar = nullptr)
    {
        return m_database.DumpTable(FileName(), table, false, statement, ",", "\"", "\r\n", bar);
    }
    std::string Dumped(const std::vector<fake::Row>& rows)
    {
        m_client.On("SELECT * FROM t", fake::Reply::Rows(fake::TextFields({"A", "B"}), rows));
        EXPECT_EQ(Dump(), static_cast<long>(rows.size()));
        return ContentOf(m_file);
    }
    void ScriptRows(size_t count)
    {
        m_client.On("SELECT * FROM t", fake::Reply::Rows({"A"}, std::vector<fake::Row>(count, fake::Row{"x"})));
    }
    UtCString FileName() const { return UtCString(m_file.string(), UT_ENCODING_UTF8); }

    harness::TemporaryFolder m_folder;
    std::filesystem::path m_file = m_folder.Path() / "dump.txt";
    CMyDatabase m_database{DumpServer(), "shop"};
};
