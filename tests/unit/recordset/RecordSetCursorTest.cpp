#include "RecordSetFixture.h"

namespace {

using fake::Reply;
using recordset_test::CountedRows;
using recordset_test::OpenRecordSet;

class RecordSetCursor : public recordset_test::RecordSetFixture
{
protected:
    /// Opens `records` on a stored result of the rows 0, 1, ...
    void Store(size_t rows, size_t columns = 1)
    {
        m_client.OnPrefix("SELECT", CountedRows(rows, columns));
        ASSERT_EQ(records.Select(""), static_cast<long>(rows));
        m_client.ForgetCalls();
    }

    OpenRecordSet records{m_database, "orders"};

    void TearDown() override
    {
        records.Close();
        RecordSetFixture::TearDown();
    }
};

TEST_F(RecordSetCursor, MovesAreFalseWithoutAResult)
{
    EXPECT_FALSE(records.MoveFirst());
    EXPECT_FALSE(records.MoveNext());
    EXPECT_FALSE(records.MoveTo(0));
    EXPECT_EQ(records.GetCurrentRow(), -1);
    EXPECT_TRUE(records.IsEOF());
}

TEST_F(RecordSetCursor, MoveNextWalksThroughAllRows)
{
    Store(3);
    EXPECT_EQ(records.GetFieldLong(0), 0);
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong(0), 1);
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong(0), 2);
    EXPECT_FALSE(records.MoveNext());
    EXPECT_TRUE(records.IsEOF());
    EXPECT_FALSE(records.MoveNext());
}

TEST_F(RecordSetCursor, MoveFirstGoesBackFromAnywhere)
{
    Store(3);
    while (records.MoveNext())
        continue;
    EXPECT_TRUE(records.MoveFirst());
    EXPECT_EQ(records.GetFieldLong(0), 0);
    EXPECT_TRUE(records.MoveTo(2));
    EXPECT_TRUE(records.MoveFirst());
    EXPECT_EQ(records.GetFieldLong(0), 0);
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong(0), 1);
}

TEST_F(RecordSetCursor, MoveFirstIsFalseOnAnEmptyResult)
{
    Store(0);
    EXPECT_FALSE(records.MoveFirst());
    EXPECT_TRUE(records.IsEOF());
}

TEST_F(RecordSetCursor, MoveToMakesAnyRowCurrent)
{
    Store(3);
    for (long row : {2L, 0L, 1L, 1L}) {
        EXPECT_TRUE(records.MoveTo(row));
        EXPECT_EQ(records.GetFieldLong(0), row);
        EXPECT_EQ(records.GetCurrentRow(), row);
    }
}

TEST_F(RecordSetCursor, MoveToIsFalseOutsideTheResultAndLeavesTheCursorAtEndOfFile)
{
    Store(3);
    for (long row : {3L, -1L, 2147483647L, -2147483647L - 1L}) {
        ASSERT_TRUE(records.MoveTo(1));
        EXPECT_FALSE(records.MoveTo(row)) << row;
        EXPECT_TRUE(records.IsEOF()) << row;
        EXPECT_EQ(records.GetCurrentRow(), -1) << row;
    }
}

TEST_F(RecordSetCursor, AFirstMoveToOutsideTheResultLeavesTheCursorAtEndOfFile)
{
    Store(3);
    EXPECT_FALSE(records.MoveTo(3));
    EXPECT_TRUE(records.IsEOF());
    EXPECT_EQ(records.GetFieldDataPtr(0), nullptr);
}

TEST_F(RecordSetCursor, MoveToIsFalseOnAnEmptyResult)
{
    Store(0);
    EXPECT_FALSE(records.MoveTo(0));
    EXPECT_TRUE(records.IsEOF());
}

TEST_F(RecordSetCursor, MoveNextAfterMoveToTheLastRowIsFalse)
{
    Store(3);
    EXPECT_TRUE(records.MoveTo(2));
    EXPECT_FALSE(records.MoveNext());
    EXPECT_TRUE(records.IsEOF());
}

TEST_F(RecordSetCursor, MoveNextAfterMoveToLandsOnTheRowBehind)
{
    Store(4);
    EXPECT_TRUE(records.MoveTo(1));
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong(0), 2);
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong(0), 3);
    EXPECT_FALSE(records.MoveNext());
}

TEST_F(RecordSetCursor, Kept_K47_MoveNextAfterAFailedMoveToGoesOnWhereTheClientStoppedReading)
{
    Store(4);
    ASSERT_FALSE(records.MoveTo(99)); // the client has read the whole result
    EXPECT_FALSE(records.MoveNext());
    ASSERT_TRUE(records.MoveTo(0));
    ASSERT_TRUE(records.MoveNext()); // row 1
    ASSERT_FALSE(records.MoveTo(99));
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong(0), 2);
}

TEST_F(RecordSetCursor, MoveToFetchesTheResultOnceAndIsThenConstant)
{
    Store(5);
    ASSERT_TRUE(records.MoveTo(4));
    EXPECT_EQ(m_client.CountOf("mysql_data_seek"), 1U);
    EXPECT_EQ(m_client.CountOf("mysql_fetch_row"), 5U);
    m_client.ForgetCalls();
    for (long row : {0L, 3L, 1L})
        ASSERT_TRUE(records.MoveTo(row));
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(RecordSetCursor, TheRowIndexIsBuiltAnewForEachResult)
{
    Store(2);
    ASSERT_TRUE(records.MoveTo(1));
    Store(4);
    EXPECT_TRUE(records.MoveTo(3));
    EXPECT_EQ(records.GetFieldLong(0), 3);
}

TEST_F(RecordSetCursor, ValuesOfARowReachedByMoveToHaveTheirLength)
{
    const std::string withZero("a\0bc", 4);
    m_client.OnPrefix("SELECT", Reply::Rows({"A", "B"}, {{"x", "yy"}, {withZero, std::nullopt}, {"", "z"}}));
    ASSERT_EQ(records.Select(""), 3);
    UtCString text;
    ASSERT_TRUE(records.MoveTo(1));
    EXPECT_EQ(records.GetFieldDataLen(0), 4U);
    EXPECT_EQ(records.GetFieldDataLen(1), 0U);
    records.GetFieldText(0, text);
    EXPECT_EQ(text.View(), withZero);
    ASSERT_TRUE(records.MoveTo(0));
    EXPECT_EQ(records.GetFieldDataLen(1), 2U);
    ASSERT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldDataLen(0), 4U);
    ASSERT_TRUE(records.MoveTo(2));
    EXPECT_EQ(records.GetFieldDataLen(0), 0U);
    EXPECT_FALSE(records.IsFieldNull(0));
}

// ---- GetCurrentRow --------------------------------------------------------------------------------------------------

TEST_F(RecordSetCursor, TheCurrentRowIsKnownAfterMoveToAndNothingMoves)
{
    Store(3);
    ASSERT_TRUE(records.MoveTo(2));
    m_client.ForgetCalls();
    EXPECT_EQ(records.GetCurrentRow(), 2);
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_EQ(records.GetFieldLong(0), 2);
}

TEST_F(RecordSetCursor, Kept_K32_SearchingForTheCurrentRowLeavesTheCursorOnTheFirstRow)
{
    Store(3);
    ASSERT_TRUE(records.MoveFirst());
    ASSERT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetCurrentRow(), 1);
    EXPECT_EQ(records.GetFieldLong(0), 0);
    EXPECT_EQ(records.GetCurrentRow(), 0);
}

TEST_F(RecordSetCursor, TheCurrentRowAfterASelectIsTheFirst)
{
    Store(3);
    EXPECT_EQ(records.GetCurrentRow(), 0);
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong(0), 1);
}

TEST_F(RecordSetCursor, TheCurrentRowAtEndOfFileIsMinusOneAndNothingMoves)
{
    Store(3);
    while (records.MoveNext())
        continue;
    EXPECT_EQ(records.GetCurrentRow(), -1);
    EXPECT_TRUE(records.IsEOF());
}

// ---- Pending changes go with every move -----------------------------------------------------------------------------

TEST_F(RecordSetCursor, EveryMoveDiscardsPendingChanges)
{
    Store(3);
    const std::pair<const char*, std::function<void()>> moves[] = {
        {"MoveFirst", [&] { records.MoveFirst(); }},
        {"MoveNext", [&] { records.MoveNext(); }},
        {"MoveTo", [&] { records.MoveTo(0); }},
        {"a MoveTo that fails", [&] { records.MoveTo(99); }},
        {"GetCurrentRow", [&] { records.GetCurrentRow(); }},
        {"Select", [&] { records.Select(""); }},
    };
    for (const auto& [name, move] : moves) {
        ASSERT_TRUE(records.MoveFirst());
        records.Set("A", "77");
        ASSERT_EQ(records.GetFieldLong(0), 77) << name;
        move();
        EXPECT_NE(records.GetFieldLong(0), 77) << name;
    }
}

TEST_F(RecordSetCursor, CloseDiscardsPendingChanges)
{
    Store(1);
    records.Set("A", "77");
    records.Close();
    Store(1);
    EXPECT_EQ(records.GetFieldLong(0), 0);
}

TEST_F(RecordSetCursor, ClearFieldCacheDiscardsPendingChanges)
{
    Store(1);
    records.Set("A", "77");
    records.ClearFieldCache();
    EXPECT_EQ(records.GetFieldLong(0), 0);
}

} // namespace
