#include "DumpFixture.h"

#include "platform/TickCount.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace {

using fake::Reply;

class DumpTable : public DumpFixture
{
};

// The file

TEST_F(DumpTable, WritesALinePerRow)
{
    EXPECT_EQ(Dumped({{"1", "Maier"}, {"2", "Huber"}}), "\"1\",\"Maier\"\r\n\"2\",\"Huber\"\r\n");
}

TEST_F(DumpTable, WritesNullAsBackslashNAndAnEmptyTextAsTwoEnclosures)
{
    EXPECT_EQ(Dumped({{std::nullopt, ""}, {"", std::nullopt}}), "\\N,\"\"\r\n\"\",\\N\r\n");
}

TEST_F(DumpTable, EscapesWhatTheClientEscapes)
{
    EXPECT_EQ(Dumped({{std::string("\0\n\r\\\"'\x1A", 7), "\t,;%"}}), "\"\\0\\n\\r\\\\\\\"\\'\\Z\",\"\t,;%\"\r\n");
}

TEST_F(DumpTable, LeavesTheEscapeOfEverythingElseToTheClient)
{
    m_client.SetNoBackslashEscapes(true);
    EXPECT_EQ(Dumped({{"o'\"\\", "plain"}}), "\"o''\"\\\",\"plain\"\r\n");
    EXPECT_EQ(m_client.CountOf("mysql_real_escape_string"), 1U);
}

TEST_F(DumpTable, PassesEveryByteThroughTheClientsEscapeThatItCouldChange)
{
    for (int byte = 0; byte < 256; ++byte) {
        m_client.ForgetCalls();
        Dumped({{std::string(20, 'x'), std::string(13, 'y') + static_cast<char>(byte)}});
        const bool isPlain = byte >= 0x20 && byte < 0x80 && byte != '"' && byte != '\'' && byte != '\\';
        EXPECT_EQ(m_client.CountOf("mysql_real_escape_string"), isPlain ? 0U : 1U) << byte;
    }
}

TEST_F(DumpTable, KeepsTheBytesOfTheServer)
{
    EXPECT_EQ(Dumped({{"M\xC3\xBCller", "\xFC\xFF"}}), "\"M\xC3\xBCller\",\"\xFC\xFF\"\r\n");
}

TEST_F(DumpTable, WritesAHeaderOfUnescapedNames)
{
    m_client.On("SELECT * FROM t", Reply::Rows(fake::TextFields({"ID", "a\"b"}), {{"1", "2"}}));
    EXPECT_EQ(m_database.DumpTable(FileName(), "t", true, "", ";", "'", "\n", nullptr), 1);
    EXPECT_EQ(ContentOf(m_file), "'ID';'a\"b'\n'1';'2'\n");
}

TEST_F(DumpTable, OfAnEmptyTableWritesOnlyTheHeader)
{
    m_client.On("SELECT * FROM t", Reply::Rows({"ID", "NAME"}, {}));
    EXPECT_EQ(m_database.DumpTable(FileName(), "t", true, "", ",", "\"", "\r\n", nullptr), 0);
    EXPECT_EQ(ContentOf(m_file), "\"ID\",\"NAME\"\r\n");
    EXPECT_EQ(m_database.DumpTable(FileName(), "t", false, "", ",", "\"", "\r\n", nullptr), 0);
    EXPECT_EQ(ContentOf(m_file), "");
}

TEST_F(DumpTable, SeparatesByCommaAndEndsLinesByCrLfUnlessToldOtherwise)
{
    m_client.On("SELECT * FROM t", Reply::Rows({"A", "B"}, {{"1", "2"}}));
    EXPECT_EQ(m_database.DumpTable(FileName(), "t", false, "", "", "", "", nullptr), 1);
    EXPECT_EQ(ContentOf(m_file), "1,2\r\n");
}

TEST_F(DumpTable, TakesSeparatorsOfAnyLength)
{
    m_client.On("SELECT * FROM t", Reply::Rows({"A", "B"}, {{"1", std::nullopt}, {"2", "3"}}));
    const std::string separator(40, '-');
    const std::string enclosure(17, '*');
    const std::string lineEnd = std::string(100, '=') + "\n";
    EXPECT_EQ(m_database.DumpTable(FileName(), "t", false, "", UtCString(separator, UT_ENCODING_DEFAULT),
                                   UtCString(enclosure, UT_ENCODING_DEFAULT), UtCString(lineEnd, UT_ENCODING_DEFAULT),
                                   nullptr),
              2);
    EXPECT_EQ(ContentOf(m_file), enclosure + "1" + enclosure + separator + "\\N" + lineEnd + enclosure + "2" +
                                     enclosure + separator + enclosure + "3" + enclosure + lineEnd);
}

TEST_F(DumpTable, WritesTheSeparatorsInTheEncodingOfTheSettings)
{
    m_database.GetServer().SetCharset("utf8mb4");
    m_client.On("SELECT * FROM t", Reply::Rows({"A", "B"}, {{"1", "2"}}));
    EXPECT_EQ(m_database.DumpTable(FileName(), "t", false, "", "\xA7", "", "\n", nullptr), 1);
    EXPECT_EQ(ContentOf(m_file), "1\xC2\xA7"
                                 "2\n");
}

TEST_F(DumpTable, WritesManyRowsInOrder)
{
    std::vector<fake::Row> rows;
    std::string expected;
    for (int i = 0; i < 20000; ++i) {
        const std::string text = std::to_string(i);
        rows.push_back({text, text + "'s"});
        expected += "\"" + text + "\",\"" + text + "\\'s\"\r\n";
    }
    EXPECT_EQ(Dumped(rows), expected);
}

TEST_F(DumpTable, WritesValuesLargerThanItsMemory)
{
    const std::string plain(500000, 'x');
    const std::string quotes(300000, '\'');
    std::string escaped;
    for (size_t i = 0; i < quotes.size(); ++i)
        escaped += "\\'";
    EXPECT_EQ(Dumped({{quotes, "1"}, {"2", plain}, {"3", "4"}}),
              "\"" + escaped + "\",\"1\"\r\n\"2\",\"" + plain + "\"\r\n\"3\",\"4\"\r\n");
}

TEST_F(DumpTable, WritesValuesOfEverySizeThatJustFitsIntoItsMemory)
{
    std::vector<fake::Row> rows;
    std::string expected;
    for (size_t size = 65450; size < 65550; ++size) {
        rows.push_back({std::string(size, 'x'), std::string(1, '\'')});
        expected += "\"" + std::string(size, 'x') + "\",\"\\'\"\r\n";
    }
    for (size_t size = 130950; size < 131100; ++size) {
        rows.push_back({std::nullopt, std::string(size, 'y')});
        expected += "\\N,\"" + std::string(size, 'y') + "\"\r\n";
    }
    EXPECT_TRUE(Dumped(rows) == expected);
}

TEST_F(DumpTable, EmptiesAFileThatIsThere)
{
    std::ofstream(m_file) << std::string(1000, 'z');
    EXPECT_EQ(Dumped({{"1", "2"}}), "\"1\",\"2\"\r\n");
}

TEST_F(DumpTable, TakesAWindowsPath)
{
    ScriptRows(1);
    std::string path = m_file.string();
    std::replace(path.begin(), path.end(), '/', '\\');
    EXPECT_EQ(m_database.DumpTable(UtCString(path, UT_ENCODING_UTF8), "t", false, "", "", "", "\n", nullptr), 1);
    EXPECT_EQ(ContentOf(m_file), "x\n");
}

// The statement

TEST_F(DumpTable, SendsOneStatementAndStreams)
{
    ScriptRows(3);
    EXPECT_EQ(Dump(), 3);
    EXPECT_EQ(m_client.Statements(), std::vector<std::string>{"SELECT * FROM t"});
    EXPECT_EQ(m_client.CountOf("mysql_use_result"), 1U);
    EXPECT_EQ(m_client.CountOf("mysql_store_result"), 0U);
}

TEST_F(DumpTable, Kept_K150_DoesNotQuoteTheTableName)
{
    Dump("my order");
    EXPECT_EQ(m_client.Statements().back(), "SELECT * FROM my order");
}

TEST_F(DumpTable, SendsTheGivenStatementInPlaceOfTheTable)
{
    m_client.On("SELECT 1 ", Reply::Rows({"1"}, {{"1"}}));
    EXPECT_EQ(Dump("t", "SELECT 1 "), 1);
    EXPECT_EQ(m_client.Statements().back(), "SELECT 1 ");
}

TEST_F(DumpTable, SendsTheStatementInItsOwnEncodingWithoutTheByteOrderMark)
{
    const UtCString utf8("\xEF\xBB\xBFSELECT '\xC3\xBC'", UT_ENCODING_UTF8);
    m_database.DumpTable(FileName(), "t", false, utf8, "", "", "", nullptr);
    EXPECT_EQ(m_client.Statements().back(), "SELECT '\xC3\xBC'");
    const UtCString singleByte("\xEF\xBB\xBFSELECT '\xFC'");
    m_database.DumpTable(FileName(), "t", false, singleByte, "", "", "", nullptr);
    EXPECT_EQ(m_client.Statements().back(), "\xEF\xBB\xBFSELECT '\xFC'");
}

TEST_F(DumpTable, EndsTheStatementAtAZeroByte)
{
    const UtCString statement(std::string_view("SELECT 1\0;", 10), UT_ENCODING_DEFAULT);
    m_database.DumpTable(FileName(), "t", false, statement, "", "", "", nullptr);
    EXPECT_EQ(m_client.Statements().back(), "SELECT 1");
}

TEST_F(DumpTable, LeavesTheLastStatementAsItWas)
{
    m_database.ExecuteQuery("DO 1", false, nullptr, false);
    ScriptRows(1);
    Dump();
    EXPECT_EQ(m_database.GetLastSQLCommand(), "DO 1");
}

TEST_F(DumpTable, TakesTheLastStatementAgain)
{
    m_client.On("SELECT 1", Reply::Rows({"1"}, {{"1"}}));
    m_database.ExecuteQuery("SELECT 1", false, nullptr, false);
    m_database.Close();
    EXPECT_EQ(m_database.DumpTable(FileName(), "t", false, m_database.GetLastSQLCommand(), "", "", "", nullptr), 1);
}

TEST_F(DumpTable, LeavesTheConnectionUsable)
{
    ScriptRows(2);
    Dump();
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", false, nullptr, false), 0);
}

TEST_F(DumpTable, ClearsTheErrorOfTheStatementBefore)
{
    m_client.On("NONSENSE", Reply::Error(1064));
    m_database.ExecuteQuery("NONSENSE", false, nullptr, false);
    ScriptRows(1);
    EXPECT_EQ(Dump(), 1);
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_EQ(m_database.GetErrorMessage(), "Kein Fehler!");
}

TEST_F(DumpTable, LeavesTheAffectedRowsAsTheyWere)
{
    m_client.On("UPDATE t SET a = 1", Reply::Ok(3));
    m_database.ExecuteQuery("UPDATE t SET a = 1", false, nullptr, false);
    ScriptRows(1);
    Dump();
    EXPECT_EQ(m_database.GetAffectedRows(), 3);
}

/// A progress bar that takes its time and reads the query time meanwhile.
class SlowBar final : public CProgressCtrl
{
public:
    explicit SlowBar(const CMyDatabase& database) : m_database(database) {}
    intptr_t WindowProc(unsigned int, uintptr_t, intptr_t) override
    {
        queryTimes.push_back(static_cast<uint32_t>(m_database.GetQueryTime()));
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        return 0;
    }
    std::vector<uint32_t> queryTimes;

private:
    const CMyDatabase& m_database;
};

TEST_F(DumpTable, MeasuresTheTimeFromTheStatementToBehindTheLastStep)
{
    SlowBar bar(m_database);
    m_client.SetStatementObserver(
        [](const std::string&) { std::this_thread::sleep_for(std::chrono::milliseconds(30)); });
    ScriptRows(1);
    Dump("t", "", &bar);
    EXPECT_GE(m_database.GetQueryTime(), 50U);
    EXPECT_LT(m_database.GetQueryTime(), 10000U);
}

TEST_F(DumpTable, HasTheTimeOfItsStartAsTheQueryTimeUntilTheLastStep)
{
    SlowBar bar(m_database);
    ScriptRows(150);
    const uint32_t before = platform::TickCount();
    Dump("t", "", &bar);
    const uint32_t span = platform::TickCount() - before;
    ASSERT_EQ(bar.queryTimes.size(), 2U);
    EXPECT_LE(bar.queryTimes[0] - before, span);
    EXPECT_EQ(bar.queryTimes[1], bar.queryTimes[0]);
}

// Progress

TEST_F(DumpTable, TellsTheBarOfEveryHundredthOfItsRange)
{
    RecordedBar bar(50000);
    ScriptRows(1200);
    EXPECT_EQ(Dump("t", "", &bar), 1200);
    EXPECT_EQ(bar.steps, (std::vector<std::string>{"1027:500:0", "1027:500:0", "1027:200:0"}));
}

TEST_F(DumpTable, TellsTheBarAtLeastEveryHundredRows)
{
    for (const int upper : {9999, 100, 0, -5, 10099}) {
        RecordedBar bar(upper);
        ScriptRows(250);
        EXPECT_EQ(Dump("t", "", &bar), 250);
        EXPECT_EQ(bar.steps, (std::vector<std::string>{"1027:100:0", "1027:100:0", "1027:50:0"})) << upper;
    }
}

TEST_F(DumpTable, TakesTheStepFromTheUpperBoundAlone)
{
    RecordedBar bar(20000, 15000);
    ScriptRows(250);
    Dump("t", "", &bar);
    EXPECT_EQ(bar.steps, (std::vector<std::string>{"1027:200:0", "1027:50:0"}));
}

TEST_F(DumpTable, TakesTheFirstStepAboveAHundredFromTheRange)
{
    RecordedBar bar(10100);
    ScriptRows(101);
    Dump("t", "", &bar);
    EXPECT_EQ(bar.steps, (std::vector<std::string>{"1027:101:0", "1027:0:0"}));
}

TEST_F(DumpTable, TellsTheBarOfNoRowsAtTheEnd)
{
    RecordedBar bar(50000);
    ScriptRows(0);
    EXPECT_EQ(Dump("t", "", &bar), 0);
    EXPECT_EQ(bar.steps, std::vector<std::string>{"1027:0:0"});
}

TEST_F(DumpTable, HasFreedTheRowsWhenItTellsOfTheLastOnes)
{
    class LateBar final : public CProgressCtrl
    {
    public:
        intptr_t WindowProc(unsigned int, uintptr_t, intptr_t) override
        {
            resultsClosed = fake::Client::Get().ResultsClosed();
            return 0;
        }
        size_t resultsClosed = 0;
    } bar;
    ScriptRows(1);
    const size_t before = m_client.ResultsOpened();
    Dump("t", "", &bar);
    EXPECT_EQ(bar.resultsClosed, before + 1);
}

TEST_F(DumpTable, FailsWhenTheBarThrows)
{
    class BrokenBar final : public CProgressCtrl
    {
        intptr_t WindowProc(unsigned int, uintptr_t, intptr_t) override { throw std::runtime_error("broken"); }
    } bar;
    ScriptRows(150);
    EXPECT_EQ(Dump("t", "", &bar), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 2008U);
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", false, nullptr, false), 0);
}

} // namespace
