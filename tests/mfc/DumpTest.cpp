#include "mfc/OnServer.h"

#include "files/UtFile.h"

#include <vector>

namespace {

/// Notes each step, as a host does that shows more than the bar.
class NotingBar : public CProgressCtrl
{
public:
    std::vector<int> m_steps;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        EXPECT_EQ(message, 1027U);
        m_steps.push_back(static_cast<int>(wParam));
        return CProgressCtrl::WindowProc(message, wParam, lParam);
    }
};

class ADump : public OnServer
{
protected:
    ~ADump() override { DeleteFileW(Wide(m_file).c_str()); }

    long Dump(const char* sql, CProgressCtrl* bar = nullptr)
    {
        return m_database.DumpTable(m_file, UtCString("T"), false, UtCString(sql), UtCString(";"), UtCString(""),
                                    UtCString("\n"), bar);
    }
    void Name(const char* utf8)
    {
        m_file = UtCString(UtGetTempDir(), UT_ENCODING_UTF8) + UtCString(utf8, UT_ENCODING_UTF8);
    }

    void ExpectABoxAboutTheFile()
    {
        EXPECT_EQ(Dump("SELECT ID FROM T"), -1);
        EXPECT_EQ(Notes().messageType, 16U);
        EXPECT_EQ(Notes().messageText.find(L"Es konnten nicht alle Daten in die Datei " + Wide(m_file)), 0U);
        EXPECT_TRUE(DeleteFileW(Wide(m_file).c_str())) << "closed";
    }

    UtCString m_file = UtGetTempDir() + UtCString("mydb_mfc.txt");
};

std::string Content(const UtCString& file)
{
    HANDLE const handle =
        CreateFileW(Wide(file).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    char bytes[100];
    DWORD size = 0;
    if (handle == INVALID_HANDLE_VALUE || !ReadFile(handle, bytes, sizeof bytes, &size, nullptr))
        size = 0;
    CloseHandle(handle);
    return std::string(bytes, size);
}

void Write(const UtCString& file, const char* text)
{
    HANDLE const handle =
        CreateFileW(Wide(file).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD size = 0;
    EXPECT_TRUE(WriteFile(handle, text, static_cast<DWORD>(std::strlen(text)), &size, nullptr));
    CloseHandle(handle);
}

TEST_F(ADump, MovesTheFrameworksBarInSteps)
{
    NotingBar bar;
    bar.SetRange32(0, 24000);
    EXPECT_EQ(Dump("SELECT ID FROM T ORDER BY ID", &bar), 500);
    EXPECT_EQ(bar.m_steps, (std::vector<int>{240, 240, 20}));
    EXPECT_EQ(bar.GetPos(), 500);
}

TEST_F(ADump, IsRefusedInAFolderThatIsNotThere)
{
    m_file = UtCString("no\\such\\folder");
    EXPECT_EQ(Dump("SELECT 1"), -1);
    EXPECT_EQ(Notes().messageText, L"");
}

// In the host's character set, which lacks the letter, the nearest one would take its place: another file.
TEST_F(ADump, WritesTheFileOfAnyName)
{
    Name("mydb_mfc_O.txt");
    const UtCString nearest = m_file;
    Write(nearest, "precious");
    for (const char* const name : {"mydb_mfc_\xCE\xA9.txt", "mydb_mfc_\xC3\xBC.txt", "mydb_mfc_\xF0\x9F\x90\xAC.txt"}) {
        Name(name);
        EXPECT_EQ(Dump("SELECT ID FROM T WHERE ID<3 ORDER BY ID"), 3) << name;
        EXPECT_EQ(Content(m_file), "0\n1\n2\n") << name;
        EXPECT_TRUE(DeleteFileW(Wide(m_file).c_str())) << name;
    }
    EXPECT_EQ(Content(nearest), "precious");
    m_file = nearest;
}

TEST_F(ADump, LeavesNoFileOpen)
{
    for (const char* const sql : {"SELECT ID FROM T", "SELECT no_such_column FROM T", "DO 1"}) {
        Dump(sql);
        EXPECT_TRUE(DeleteFileW(Wide(m_file).c_str())) << sql;
    }
}

TEST_F(ADump, TellsWithABoxThatTheFrameworkCouldNotWrite)
{
    Notes().writesFail = true;
    ExpectABoxAboutTheFile();
}

TEST_F(ADump, TellsWithABoxThatTheFrameworkCouldNotClose)
{
    Notes().closesFail = true;
    ExpectABoxAboutTheFile();
}

// The framework's file would close itself in its destructor, out of which no exception comes alive.
TEST_F(ADump, EndsAFileThatCannotBeClosedAfterAStatementThatFails)
{
    Notes().closesFail = true;
    EXPECT_EQ(Dump("SELECT no_such_column FROM T"), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1054U);
    EXPECT_EQ(Notes().messageText, L"");
    EXPECT_TRUE(DeleteFileW(Wide(m_file).c_str())) << "closed";
}

} // namespace
