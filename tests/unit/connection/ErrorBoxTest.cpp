#include "connection/ErrorBox.h"

#include "harness/MessageRecorder.h"

#include <gtest/gtest.h>

namespace {

TEST(ShowStatementError, NamesTheServersAccountWhereThereIsOne)
{
    const harness::MessageRecorder messages;
    connection::ShowStatementError("1062: Duplicate entry", "Records: 2 in 0.100 Sec", "INSERT");
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(messages.Messages()[0].text,
              "Error in ExecuteQuery\n\n    Error: 1062: Duplicate entry\n\n    Info: Records: 2 in 0.100 Sec\n"
              "    Query:\n\nINSERT\n\n");
    EXPECT_EQ(messages.Messages()[0].type, 16U);
}

TEST(ShowStatementError, LeavesTheLineOutWhereThereIsNone)
{
    const harness::MessageRecorder messages;
    connection::ShowStatementError("1062: Duplicate entry", "", "INSERT");
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(messages.Messages()[0].text,
              "Error in ExecuteQuery\n\n    Error: 1062: Duplicate entry\n\n    Query:\n\nINSERT\n\n");
}

} // namespace
