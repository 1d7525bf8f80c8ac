#include "CMyDatabase.h"

#include "fake_client/FakeClientFixture.h"
#include "framework/CWnd.h"
#include "harness/FailurePoints.h"
#include "harness/MessageRecorder.h"
#include "harness/TemporaryFolder.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

using fake::Call;
using fake::Reply;

CMyServer Server(const char* charset = "")
{
    CMyServer server;
    server.SetHost("db.example");
    server.SetPort(3306);
    server.SetCharset(charset);
    return server;
}

std::string ContentOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return stream ? std::string(std::istreambuf_iterator<char>(stream), {}) : "no file";
}

/// A progress bar that writes down what it is told.
class RecordedBar final : public CProgressCtrl
{
public:
    explicit RecordedBar(int upper) { SetRange32(0, upper); }
    intptr_t SendMessage(unsigned int message, uintptr_t wParam, intptr_t lParam) override
    {
        steps.push_back(std::to_string(message) + ":" + std::to_string(wParam) + ":" + std::to_string(lParam));
        return 0;
    }
    std::vector<std::string> steps;
};

class DumpTable : public fake::ClientFixture
{
protected:
    DumpTable()
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
        m_client.On("SELECT * FROM t", Reply::Rows(fake::TextFields({"A", "B"}), rows));
        EXPECT_EQ(Dump(), static_cast<long>(rows.size()));
        return ContentOf(m_file);
    }
    void ScriptRows(size_t count)
    {
        m_client.On("SELECT * FROM t", Reply::Rows({"A"}, std::vector<fake::Row>(count, fake::Row{"x"})));
    }
    UtCString FileName() const { return UtCString(m_file.string(), UT_ENCODING_UTF8); }

    harness::TemporaryFolder m_folder;
    std::filesystem::path m_file = m_folder.Path() / "dump.txt";
    CMyDatabase m_database{Server(), "shop"};
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

TEST_F(DumpTable, TakesATimeAsADuration)
{
    ScriptRows(1);
    Dump();
    EXPECT_LT(m_database.GetQueryTime(), 60000U);
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
        intptr_t SendMessage(unsigned int, uintptr_t, intptr_t) override
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
        intptr_t SendMessage(unsigned int, uintptr_t, intptr_t) override { throw std::runtime_error("broken"); }
    } bar;
    ScriptRows(150);
    EXPECT_EQ(Dump("t", "", &bar), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 2008U);
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", false, nullptr, false), 0);
}

// Failures

TEST_F(DumpTable, SendsNothingWithoutAFile)
{
    const harness::MessageRecorder messages;
    for (const std::string& path : {std::string(), m_folder.Path().string(), (m_folder.Path() / "no" / "f").string()}) {
        EXPECT_EQ(m_database.DumpTable(UtCString(path, UT_ENCODING_UTF8), "t", false, "", "", "", "", nullptr), -1);
    }
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_TRUE(messages.Messages().empty());
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
}

TEST_F(DumpTable, RefusesAFileThatAnotherDumpIsWriting)
{
    class Rival final : public CProgressCtrl
    {
    public:
        Rival(const UtCString& file, CMyDatabase& database) : m_file(file), m_database(database) {}
        intptr_t SendMessage(unsigned int, uintptr_t, intptr_t) override
        {
            result = m_database.DumpTable(m_file, "u", false, "", "", "", "", nullptr);
            return 0;
        }
        long result = 0;

    private:
        const UtCString m_file;
        CMyDatabase& m_database;
    };
    CMyDatabase other(Server(), "shop");
    Rival rival(FileName(), other);
    ScriptRows(100);
    EXPECT_EQ(Dump("t", "", &rival), 100);
    EXPECT_EQ(rival.result, -1);
    EXPECT_EQ(ContentOf(m_file).size(), 500U);
}

TEST_F(DumpTable, OpensAClosedConnection)
{
    m_database.Close();
    ScriptRows(1);
    EXPECT_EQ(Dump(), 1);
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(DumpTable, FailsWithoutAConnectionAndTellsWhy)
{
    m_database.Close();
    m_client.FailAlways(Call::Connect, 2002);
    EXPECT_EQ(Dump(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 2002U);
}

TEST_F(DumpTable, LeavesAnEmptyFileWhenTheStatementFails)
{
    const harness::MessageRecorder messages;
    std::ofstream(m_file) << "old";
    m_client.On("SELECT * FROM t", Reply::Error(1146, "Table 'shop.t' doesn't exist"));
    EXPECT_EQ(Dump(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1146U);
    EXPECT_EQ(m_database.GetErrorMessage(), "1146: Table 'shop.t' doesn't exist");
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
    EXPECT_EQ(ContentOf(m_file), "");
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(DumpTable, DoesNotSendAStatementAgain)
{
    m_client.FailNext(Call::Query, 2013);
    EXPECT_EQ(Dump(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 2013U);
    EXPECT_EQ(m_client.CountOf("mysql_real_query"), 1U);
}

TEST_F(DumpTable, FailsWhenTheRowsCannotBeTaken)
{
    m_client.On("SELECT * FROM t", [] {
        Reply reply = Reply::ErrorAtResult(1317);
        reply.fields = fake::TextFields({"A"});
        return reply;
    }());
    EXPECT_EQ(Dump(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1317U);
}

TEST_F(DumpTable, FailsWithoutAnErrorForAStatementWithoutRows)
{
    m_client.On("UPDATE t SET a = 1", Reply::Ok(3));
    EXPECT_EQ(Dump("t", "UPDATE t SET a = 1"), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
}

TEST_F(DumpTable, TellsALostConnectionFromTheEndOfTheRows)
{
    RecordedBar bar(100);
    m_client.On("SELECT * FROM t", Reply::Rows({"A"}, {{"1"}, {"2"}, {"3"}}).CutAfter(2));
    EXPECT_EQ(Dump("t", "", &bar), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 2013U);
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
    EXPECT_TRUE(bar.steps.empty());
}

TEST_F(DumpTable, ShowsThatTheDiskIsFull)
{
    harness::MessageRecorder messages;
    ScriptRows(3);
    EXPECT_EQ(m_database.DumpTable("/dev/full", "t", false, "", "", "", "", nullptr), -1);
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(messages.Messages()[0].text,
              "Es konnten nicht alle Daten in die Datei /dev/full auf dem Server db.example geschrieben werden.\n"
              "Stellen Sie sicher, dass auf dem Server db.example die neusten Servicepacks installiert sind.");
    EXPECT_EQ(messages.Messages()[0].type, 16U);
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", false, nullptr, false), 0);
}

TEST_F(DumpTable, ShowsAFullDiskInTheMiddleOfTheRows)
{
    const harness::MessageRecorder messages;
    m_client.On("SELECT * FROM t", Reply::Rows({"A"}, std::vector<fake::Row>(10, fake::Row{std::string(90000, 'x')})));
    EXPECT_EQ(m_database.DumpTable("/dev/full", "t", false, "", "", "", "", nullptr), -1);
    EXPECT_EQ(messages.Messages().size(), 1U);
    EXPECT_LT(m_client.CountOf("mysql_fetch_row"), 10U);
}

TEST_F(DumpTable, WritesTheNameOfTheFileIntoTheMessageInTheSingleByteEncoding)
{
    harness::MessageRecorder messages;
    m_database.GetServer().SetCharset("utf8mb4");
    const std::filesystem::path link = m_folder.Path() / "Gr\xC3\xB6\xC3\x9F"
                                                         "e";
    std::filesystem::create_symlink("/dev/full", link);
    ScriptRows(1);
    m_database.DumpTable(UtCString(link.string(), UT_ENCODING_UTF8), "t", false, "", "", "", "", nullptr);
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_NE(messages.Messages()[0].text.find("/Gr\xF6\xDF"
                                               "e auf dem Server"),
              std::string::npos);
}

TEST_F(DumpTable, StillHoldsTheRowsWhileItShowsTheFailure)
{
    class LateBox final : public MyDbUserInterface
    {
    public:
        LateBox() : m_previous(MyDbSetUserInterface(this)) {}
        ~LateBox() override { MyDbSetUserInterface(m_previous); }
        int ShowMessage(const UtCString&, unsigned int) override
        {
            resultsClosed = fake::Client::Get().ResultsClosed();
            return MYDB_ANSWER_OK;
        }
        void BeginWait() override {}
        void EndWait() override {}
        size_t resultsClosed = 0;

    private:
        MyDbUserInterface* m_previous;
    } box;
    ScriptRows(1);
    m_database.DumpTable("/dev/full", "t", false, "", "", "", "", nullptr);
    EXPECT_EQ(box.resultsClosed + 1, m_client.ResultsClosed());
}

TEST(DumpTableFailures, EachFailingCallGivesItsResultAndLeavesTheConnectionUsable)
{
    harness::TemporaryFolder folder;
    const UtCString file((folder.Path() / "f").string(), UT_ENCODING_UTF8);
    const size_t points = harness::ForEachFailurePoint(
        [] {
            fake::Client::Get().On("SELECT * FROM t", Reply::Rows({"A"}, {{"1"}, {"o'x"}}));
        },
        [&](harness::FailureRun& run) {
            CMyDatabase database(Server(), "");
            const long rows = database.DumpTable(file, "t", true, "", "", "\"", "", nullptr);
            run.EndOfWork();
            EXPECT_EQ(rows, run.Failed() ? -1 : 2);
            const bool isRecorded = run.Failed() && !run.Failed(Call::Init);
            EXPECT_EQ(database.GetErrorCode(), isRecorded ? run.ErrorNumber() : 0U);
            EXPECT_EQ(database.DumpTable(file, "t", true, "", "", "\"", "", nullptr), 2);
            EXPECT_EQ(ContentOf((folder.Path() / "f")), "\"A\"\r\n\"1\"\r\n\"o\\'x\"\r\n");
        });
    EXPECT_EQ(points, 7U); // handle, connect, statement, result, two rows and their end
}

} // namespace
