#include "RecordSetFixture.h"

#include "connection/DatabaseAccess.h"
#include "framework/CWnd.h"
#include "harness/MessageRecorder.h"
#include "harness/System.h"
#include "harness/TemporaryFolder.h"

#include <fstream>
#include <iterator>

namespace {

class DumpTable : public server_test::RecordSetFixture
{
protected:
    long Dump(const char* table = "t", const std::string& statement = "", CProgressCtrl* bar = nullptr)
    {
        return m_database.DumpTable(File(), table, false, UtCString(statement, UT_ENCODING_UTF8), ",", "\"", "\r\n",
                                    bar);
    }
    UtCString File() const { return UtCString((m_folder.Path() / "dump").string(), UT_ENCODING_UTF8); }
    std::string Content() const
    {
        std::ifstream stream(m_folder.Path() / "dump", std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }

    /// A table t (ID, DATA BLOB) whose rows hold every pair of bytes within a longer text.
    void MakeEveryPairOfBytes()
    {
        Run("CREATE TABLE t (ID INT PRIMARY KEY, DATA BLOB)");
        Run("INSERT INTO t SELECT seq, CONCAT('plain text ', CHAR(seq DIV 256, seq MOD 256), ' and more')"
            " FROM seq_0_to_65535");
    }
    /// The file as a loop makes it that escapes every value with the client.
    std::string EscapedByTheClient()
    {
        std::string expected;
        for (const harness::RawConnection::Row& row : m_temporary.Sql().Rows("SELECT ID, DATA FROM t ORDER BY ID")) {
            UtCString escaped;
            m_database.MakeEscapeString(row[1]->data(), row[1]->size(), escaped);
            expected += "\"" + *row[0] + "\",\"" + Bytes(escaped) + "\"\r\n";
        }
        return expected;
    }

    harness::TemporaryFolder m_folder;
};

TEST_F(DumpTable, SendsTheStatementThatItDocuments)
{
    MakeOrders(3);
    const harness::GeneralLog log;
    EXPECT_EQ(Dump("orders"), 3);
    EXPECT_EQ(log.Statements(m_database.GetThreadID()), std::vector<std::string>{"SELECT * FROM orders"});
    EXPECT_EQ(Content(), "\"1\",\"order 1\"\r\n\"2\",\"order 2\"\r\n\"3\",\"order 3\"\r\n");
}

TEST_F(DumpTable, FailsOnAReservedWordUnlessItIsQuoted)
{
    Run("CREATE TABLE `order` (ID INT)");
    EXPECT_EQ(Dump("order"), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
    EXPECT_EQ(Dump("`order`"), 0);
}

TEST_F(DumpTable, WritesWhatTheClientsEscapeMakesOfEveryPairOfBytesInEveryCharset)
{
    MakeEveryPairOfBytes();
    const std::pair<const char*, const char*> connections[] = {{"utf8mb4", ""},
                                                               {"utf8mb3", ""},
                                                               {"latin1", ""},
                                                               {"ascii", ""},
                                                               {"swe7", ""},
                                                               {"gbk", ""},
                                                               {"sjis", ""},
                                                               {"cp932", ""},
                                                               {"big5", ""},
                                                               {"euckr", ""},
                                                               {"gb2312", ""},
                                                               {"ujis", ""},
                                                               {"cp1251", ""},
                                                               {"tis620", ""},
                                                               {"utf8mb4", "NO_BACKSLASH_ESCAPES"},
                                                               {"latin1", "NO_BACKSLASH_ESCAPES"},
                                                               {"gbk", "NO_BACKSLASH_ESCAPES"}};
    for (const auto& [charset, mode] : connections) {
        SCOPED_TRACE(std::string(charset) + " " + mode);
        m_database.ExecuteQuery((std::string("SET NAMES ") + charset).c_str(), false, nullptr, false);
        m_database.ExecuteQuery(("SET sql_mode = '" + std::string(mode) + "'").c_str(), false, nullptr, false);
        ASSERT_STREQ(mysql_character_set_name(connection::DatabaseAccess::Handle(m_database)), charset);
        EXPECT_EQ(Dump("t", "SELECT * FROM t ORDER BY ID"), 65536);
        EXPECT_TRUE(Content() == EscapedByTheClient());
    }
}

TEST_F(DumpTable, IsReadBackByLoadData)
{
    MakeEveryPairOfBytes();
    Run("INSERT INTO t VALUES (200000, NULL), (200001, ''), (200002, '\\\\N'), (200003, '\",\"\r\n')");
    ASSERT_EQ(Dump(), 65540);
    Run("CREATE TABLE copy (ID INT PRIMARY KEY, DATA BLOB)");
    Run("LOAD DATA LOCAL INFILE '" + (m_folder.Path() / "dump").generic_string() +
        "' INTO TABLE copy CHARACTER SET binary FIELDS TERMINATED BY ',' ENCLOSED BY '\"' ESCAPED BY '\\\\'"
        " LINES TERMINATED BY '\\r\\n'");
    EXPECT_EQ(m_temporary.Sql().Rows("CHECKSUM TABLE t")[0][1], m_temporary.Sql().Rows("CHECKSUM TABLE copy")[0][1]);
}

TEST_F(DumpTable, TellsABarWhileTheRowsArrive)
{
    MakeOrders(1050);
    CProgressCtrl bar;
    bar.SetRange32(0, 1050);
    EXPECT_EQ(Dump("orders", "", &bar), 1050);
    EXPECT_EQ(bar.GetPos(), 1050);
}

TEST_F(DumpTable, NeedsMemoryForTheLargestRowOnly)
{
    EXPECT_EQ(Dump("t", "SELECT REPEAT('x', 1000) FROM seq_1_to_1000"), 1000);
    const size_t before = harness::PeakMemory();
    EXPECT_EQ(Dump("t", "SELECT REPEAT('x', 1000) FROM seq_1_to_100000"), 100000);
    EXPECT_LT(harness::PeakMemory() - before, 20'000'000U);
}

TEST_F(DumpTable, LeavesAStatementThatGivesNoRowsDone)
{
    MakeOrders(2);
    EXPECT_EQ(Dump("", "UPDATE orders SET NAME = 'x'"), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_EQ(m_temporary.Sql().Text("SELECT COUNT(*) FROM orders WHERE NAME = 'x'"), "2");
}

/// Cuts the connection at the first step that it hears of.
class CuttingBar final : public CProgressCtrl
{
public:
    explicit CuttingBar(unsigned long threadId) : m_threadId(threadId) {}
    intptr_t WindowProc(unsigned int, uintptr_t, intptr_t) override
    {
        if (std::exchange(m_isDue, false))
            harness::KillConnection(m_threadId);
        return 0;
    }

private:
    unsigned long m_threadId;
    bool m_isDue = true;
};

TEST_F(DumpTable, FailsWhenTheConnectionIsLostBeforeTheLastRow)
{
    CuttingBar bar(m_database.GetThreadID());
    EXPECT_EQ(Dump("", "SELECT REPEAT('x', 10000) FROM seq_1_to_100000", &bar), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 2013U);
    MakeOrders(1);
    EXPECT_EQ(Dump("orders"), 1);
}

TEST_F(DumpTable, FailsOnAnErrorBehindTheFirstRows)
{
    Run("CREATE TABLE t (a INT)");
    Run("INSERT INTO t SELECT seq FROM seq_1_to_2000");
    EXPECT_EQ(Dump("", "SELECT IF(a < 1500, a, (SELECT 1 UNION SELECT 2)) FROM t"), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1242U);
    EXPECT_EQ(m_database.GetErrorMessage(), "1242: Subquery returns more than 1 row");
}

TEST_F(DumpTable, ShowsAFullDiskAndGoesOnWorking)
{
    const harness::MessageRecorder messages;
    MakeOrders(5);
    EXPECT_EQ(m_database.DumpTable(harness::fullFile, "orders", false, "", "", "", "", nullptr), -1);
    EXPECT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(Dump("orders"), 5);
}

} // namespace
