#include "DumpFixture.h"

#include "harness/FailurePoints.h"
#include "harness/MessageRecorder.h"
#include "harness/OpenFile.h"
#include "harness/System.h"

namespace {

using fake::Call;
using fake::Reply;

class DumpFailure : public DumpFixture
{
};

/// Makes the close fail that follows the last step.
class ClosingBar final : public CProgressCtrl
{
public:
    explicit ClosingBar(const std::filesystem::path& file) : m_file(file) {}
    intptr_t WindowProc(unsigned int, uintptr_t, intptr_t) override
    {
        EXPECT_TRUE(harness::CloseDescriptorOf(m_file));
        return 0;
    }

private:
    const std::filesystem::path m_file;
};

TEST_F(DumpFailure, SendsNothingWithoutAFile)
{
    const harness::MessageRecorder messages;
    for (const std::string& path : {std::string(), m_folder.Path().string(), (m_folder.Path() / "no" / "f").string()}) {
        EXPECT_EQ(m_database.DumpTable(UtCString(path, UT_ENCODING_UTF8), "t", false, "", "", "", "", nullptr), -1);
    }
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_TRUE(messages.Messages().empty());
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
}

TEST_F(DumpFailure, RefusesAFileThatAnotherDumpIsWriting)
{
    class Rival final : public CProgressCtrl
    {
    public:
        Rival(const UtCString& file, CMyDatabase& database) : m_file(file), m_database(database) {}
        intptr_t WindowProc(unsigned int, uintptr_t, intptr_t) override
        {
            result = m_database.DumpTable(m_file, "u", false, "", "", "", "", nullptr);
            return 0;
        }
        long result = 0;

    private:
        const UtCString m_file;
        CMyDatabase& m_database;
    };
    CMyDatabase other(DumpServer(), "shop");
    Rival rival(FileName(), other);
    ScriptRows(100);
    EXPECT_EQ(Dump("t", "", &rival), 100);
    EXPECT_EQ(rival.result, -1);
    EXPECT_EQ(ContentOf(m_file).size(), 500U);
}

TEST_F(DumpFailure, OpensAClosedConnection)
{
    m_database.Close();
    ScriptRows(1);
    EXPECT_EQ(Dump(), 1);
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(DumpFailure, FailsWithoutAConnectionAndTellsWhy)
{
    m_database.Close();
    m_client.FailAlways(Call::Connect, 2002);
    EXPECT_EQ(Dump(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 2002U);
}

TEST_F(DumpFailure, LeavesAnEmptyFileWhenTheStatementFails)
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

TEST_F(DumpFailure, DoesNotSendAStatementAgain)
{
    m_client.FailNext(Call::Query, 2013);
    EXPECT_EQ(Dump(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 2013U);
    EXPECT_EQ(m_client.CountOf("mysql_real_query"), 1U);
}

TEST_F(DumpFailure, FailsWhenTheRowsCannotBeTaken)
{
    m_client.On("SELECT * FROM t", [] {
        Reply reply = Reply::ErrorAtResult(1317);
        reply.fields = fake::TextFields({"A"});
        return reply;
    }());
    EXPECT_EQ(Dump(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1317U);
}

TEST_F(DumpFailure, FailsWithoutAnErrorForAStatementWithoutRows)
{
    m_client.On("UPDATE t SET a = 1", Reply::Ok(3));
    EXPECT_EQ(Dump("t", "UPDATE t SET a = 1"), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
}

TEST_F(DumpFailure, TellsALostConnectionFromTheEndOfTheRows)
{
    RecordedBar bar(100);
    m_client.On("SELECT * FROM t", Reply::Rows({"A"}, {{"1"}, {"2"}, {"3"}}).CutAfter(2));
    EXPECT_EQ(Dump("t", "", &bar), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 2013U);
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
    EXPECT_TRUE(bar.steps.empty());
}

TEST_F(DumpFailure, ShowsThatTheDiskIsFull)
{
    harness::MessageRecorder messages;
    ScriptRows(3);
    EXPECT_EQ(m_database.DumpTable(harness::fullFile, "t", false, "", "", "", "", nullptr), -1);
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(messages.Messages()[0].text,
              std::string("Es konnten nicht alle Daten in die Datei ") + harness::fullFile +
                  " auf dem Server db.example geschrieben werden.\n"
                  "Stellen Sie sicher, dass auf dem Server db.example die neusten Servicepacks installiert sind.");
    EXPECT_EQ(messages.Messages()[0].type, 16U);
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", false, nullptr, false), 0);
}

TEST_F(DumpFailure, ShowsAFullDiskInTheMiddleOfTheRows)
{
    const harness::MessageRecorder messages;
    m_client.On("SELECT * FROM t", Reply::Rows({"A"}, std::vector<fake::Row>(10, fake::Row{std::string(90000, 'x')})));
    EXPECT_EQ(m_database.DumpTable(harness::fullFile, "t", false, "", "", "", "", nullptr), -1);
    EXPECT_EQ(messages.Messages().size(), 1U);
    EXPECT_LT(m_client.CountOf("mysql_fetch_row"), 10U);
}

TEST_F(DumpFailure, ShowsAFailureThatTheSystemReportsOnClosing)
{
    ClosingBar bar(m_file);
    harness::MessageRecorder messages;
    ScriptRows(2);
    EXPECT_EQ(Dump("t", "", &bar), -1);
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_TRUE(messages.Messages()[0].text.starts_with("Es konnten nicht alle Daten in die Datei " + m_file.string()));
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_EQ(m_database.GetQueryTime(), 0U);
}

TEST_F(DumpFailure, WritesTheNameOfTheFileIntoTheMessageInTheSingleByteEncoding)
{
    harness::MessageRecorder messages;
    m_database.GetServer().SetCharset("utf8mb4");
    const std::filesystem::path file = m_folder.Path() / u8"Gr\u00F6\u00DFe";
    ClosingBar bar(file);
    ScriptRows(1);
    m_database.DumpTable(UtCString(file.string(), UT_ENCODING_UTF8), "t", false, "", "", "", "", &bar);
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_NE(messages.Messages()[0].text.find("Gr\xF6\xDF"
                                               "e auf dem Server"),
              std::string::npos);
}

TEST_F(DumpFailure, StillHoldsTheRowsWhileItShowsTheFailure)
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
    m_database.DumpTable(harness::fullFile, "t", false, "", "", "", "", nullptr);
    EXPECT_EQ(box.resultsClosed + 1, m_client.ResultsClosed());
}

TEST(DumpFailureOfEachCall, EachFailingCallGivesItsResultAndLeavesTheConnectionUsable)
{
    harness::TemporaryFolder folder;
    const UtCString file((folder.Path() / "f").string(), UT_ENCODING_UTF8);
    const size_t points = harness::ForEachFailurePoint(
        [] {
            fake::Client::Get().On("SELECT * FROM t", Reply::Rows({"A"}, {{"1"}, {"o'x"}}));
        },
        [&](harness::FailureRun& run) {
            CMyDatabase database(DumpServer(), "");
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
