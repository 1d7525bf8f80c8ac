#include "harness/LogRecorder.h"
#include "harness/MessageRecorder.h"

#include <gtest/gtest.h>

namespace {

using harness::LogRecorder;
using harness::MessageRecorder;

TEST(MessageRecorder, WritesDownMessagesAndGivesTheAnswersInOrder)
{
    MessageRecorder recorder;
    recorder.Answer(MYDB_ANSWER_YES);
    EXPECT_EQ(recorder.ShowMessage("Reparieren?", MYDB_MESSAGE_QUESTION_YESNO), MYDB_ANSWER_YES);
    EXPECT_EQ(recorder.ShowMessage("Noch einmal?", MYDB_MESSAGE_QUESTION_YESNO), MYDB_ANSWER_NO);
    EXPECT_EQ(recorder.ShowMessage("Fehler", MYDB_MESSAGE_ERROR), MYDB_ANSWER_OK);
    ASSERT_EQ(recorder.Messages().size(), 3U);
    EXPECT_EQ(recorder.Messages()[0].text, "Reparieren?");
    EXPECT_EQ(recorder.Messages()[0].type, 36U);
    EXPECT_EQ(recorder.Messages()[2].type, 16U);
}

TEST(MessageRecorder, CountsTheWaitCursor)
{
    MessageRecorder recorder;
    recorder.BeginWait();
    recorder.BeginWait();
    recorder.EndWait();
    EXPECT_EQ(recorder.WaitBegins(), 2);
    EXPECT_EQ(recorder.WaitEnds(), 1);
}

TEST(MessageRecorder, IsTheUserInterfaceWhileItLives)
{
    MessageRecorder outer;
    {
        MessageRecorder inner;
        EXPECT_EQ(MyDbSetUserInterface(&inner), &inner);
    }
    EXPECT_EQ(MyDbSetUserInterface(&outer), &outer);
}

TEST(LogRecorder, WritesDownWarningsWhileItLives)
{
    LogRecorder outer;
    {
        LogRecorder inner;
        UtAppLogging::LogWarning("file.h", 12, "key", "function");
        ASSERT_EQ(inner.Entries().size(), 1U);
        EXPECT_EQ(inner.Entries()[0].file, "file.h");
        EXPECT_EQ(inner.Entries()[0].line, 12);
        EXPECT_EQ(inner.Entries()[0].key, "key");
        EXPECT_EQ(inner.Entries()[0].function, "function");
    }
    EXPECT_TRUE(outer.Entries().empty());
    UtAppLogging::LogWarning("f", 1, "k", "g");
    EXPECT_EQ(outer.Entries().size(), 1U);
}

} // namespace
