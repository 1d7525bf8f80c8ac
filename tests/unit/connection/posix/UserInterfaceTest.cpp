#include "connection/UserInterface.h"

#include <gtest/gtest.h>

namespace {

int Answer(unsigned int type)
{
    testing::internal::CaptureStderr();
    const int answer = connection::UserInterface().ShowMessage("text", type);
    testing::internal::GetCapturedStderr();
    return answer;
}

TEST(DefaultUserInterfaceWithoutMessageBoxes, WritesTheTextToStandardError)
{
    testing::internal::CaptureStderr();
    connection::UserInterface().ShowMessage("first line\nsecond line", MYDB_MESSAGE_ERROR);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "first line\nsecond line\n");
}

TEST(DefaultUserInterfaceWithoutMessageBoxes, AnswersOkToAMessage)
{
    EXPECT_EQ(Answer(MYDB_MESSAGE_ERROR), MYDB_ANSWER_OK);
    EXPECT_EQ(Answer(MYDB_MESSAGE_INFORMATION), MYDB_ANSWER_OK);
    EXPECT_EQ(Answer(0), MYDB_ANSWER_OK);
}

TEST(DefaultUserInterfaceWithoutMessageBoxes, AnswersNoToAQuestion)
{
    EXPECT_EQ(Answer(MYDB_MESSAGE_QUESTION_YESNO), MYDB_ANSWER_NO);
    EXPECT_EQ(Answer(4), MYDB_ANSWER_NO);
}

} // namespace
