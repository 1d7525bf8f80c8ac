#include "unit/admin/CopyFixture.h"

namespace {

using fake::Reply;

class CopyDatabaseOfWindows : public CopyFixture
{
protected:
    /// Nothing was locked, nothing sent to the target, nothing waited for.
    void ExpectRefusal(const char* name) const
    {
        for (const std::string& statement : m_client.Statements())
            EXPECT_EQ(statement, "SHOW TABLES") << name;
        EXPECT_EQ(m_messages.WaitBegins(), 0) << name;
        EXPECT_EQ(TemporaryFiles(), Texts()) << name;
    }
};

// A dump into "nul.143005_tmp" succeeds on Windows and is lost.
TEST_F(CopyDatabaseOfWindows, RefusesTablesWhoseNameNoFileCanHaveBeforeItLocks)
{
    for (const char* name :
         {"nul", "CON", "aux", "prn ", "com1", "lpt9", "nul.x", "a?b", "a*b", "a<b", "a\"b", "a|b"}) {
        m_client.On("SHOW TABLES", Reply::Rows({"Tables"}, {{"kunden"}, {name}}));
        EXPECT_FALSE(Copy()) << name;
        ExpectRefusal(name);
    }
}

TEST_F(CopyDatabaseOfWindows, RefusesDatabasesWhoseNameNoFolderCanHave)
{
    for (const char* name : {"nul", "Con", "com1", "aux.x", "a?b"}) {
        CMyDatabase target(Server("two.example"), name);
        EXPECT_TRUE(target.Open(false, ""));
        EXPECT_FALSE(m_source.CopyDatabase(target, nullptr)) << name;
        CMyDatabase source(Server("one.example"), name);
        EXPECT_FALSE(source.CopyDatabase(m_target, nullptr)) << name;
        ExpectRefusal(name);
    }
}

} // namespace
