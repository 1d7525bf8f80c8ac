#include "RecordSetFixture.h"

#include <stdexcept>

namespace {

using fake::Field;
using fake::Reply;
using recordset_test::OpenRecordSet;
using recordset_test::TextField;

class FindRow : public recordset_test::RecordSetFixture
{
protected:
    void Select(const std::vector<fake::Value>& names)
    {
        std::vector<fake::Row> rows;
        for (const fake::Value& name : names)
            rows.push_back({"x", name});
        m_client.On("SELECT * FROM orders", Reply::Rows({TextField("ID"), TextField("NAME")}, rows));
        m_client.OnListFields("ORDERS", {TextField("ID"), TextField("NAME")});
        ASSERT_EQ(m_records.Select(""), static_cast<long>(names.size()));
    }

    long Find(long startRow, bool forward = true) { return m_records.FindRow("NAME", "x", startRow, forward, nullptr); }

    void TearDown() override
    {
        m_records.Close();
        recordset_test::RecordSetFixture::TearDown();
    }

    OpenRecordSet m_records{m_database, "orders"};
};

TEST_F(FindRow, Kept_K100_IgnoresTheValueAndFindsTheFirstEmptyText)
{
    Select({"x", "b", "", "x", ""});
    EXPECT_EQ(m_records.FindRow("NAME", "x", 0, true, nullptr), 2);
    EXPECT_EQ(m_records.FindRow("NAME", "%b%", 0, true, nullptr), 2);
    EXPECT_EQ(m_records.FindRow("NAME", "*", 0, true, nullptr), 2);
}

TEST_F(FindRow, MakesTheRowFoundTheCurrentOne)
{
    Select({"a", "b", "", "d"});
    EXPECT_EQ(Find(0), 2);
    EXPECT_FALSE(m_records.IsEOF());
    EXPECT_EQ(m_records.GetCurrentRow(), 2);
}

TEST_F(FindRow, BeginsAtTheStartRowItself)
{
    Select({"", "b", "", "d"});
    EXPECT_EQ(Find(0), 0);
    EXPECT_EQ(Find(1), 2);
    EXPECT_EQ(Find(2), 2);
    EXPECT_EQ(Find(3), -1);
}

TEST_F(FindRow, WalksUpwardsToTheFirstRow)
{
    Select({"", "b", "", "d"});
    EXPECT_EQ(Find(3, false), 2);
    EXPECT_EQ(Find(1, false), 0);
    EXPECT_EQ(Find(0, false), 0);
}

TEST_F(FindRow, EndsAtEndOfFileWhenNothingIsFound)
{
    Select({"a", "b"});
    EXPECT_EQ(Find(0), -1);
    EXPECT_TRUE(m_records.IsEOF());
    EXPECT_EQ(Find(1, false), -1);
    EXPECT_TRUE(m_records.IsEOF());
}

TEST_F(FindRow, TakesNullForAnEmptyTextAndABlankForNone)
{
    Select({" ", std::nullopt});
    EXPECT_EQ(Find(0), 1);
}

TEST_F(FindRow, OfAnEmptyValueFailsWithoutMoving)
{
    Select({"a", ""});
    EXPECT_EQ(m_records.FindRow("NAME", "", 0, true, nullptr), -1);
    EXPECT_FALSE(m_records.IsEOF());
    EXPECT_EQ(m_records.FindRow("NOPE", "", 0, true, nullptr), -1); // the value is looked at first
}

TEST_F(FindRow, Kept_K101_GivesTheFirstRowsNumberForAnUnknownColumn)
{
    Select({"a", "b"});
    m_records.MoveTo(1);
    EXPECT_EQ(m_records.FindRow("NOPE", "x", 1, true, nullptr), 0);
    EXPECT_EQ(m_records.FindRow("name", "x", 1, true, nullptr), 0); // letter case counts
    EXPECT_EQ(m_records.FindRow("", "x", 1, true, nullptr), 0);
    EXPECT_EQ(m_records.GetCurrentRow(), 1);
    m_records.Close();
    EXPECT_EQ(m_records.FindRow("NAME", "x", 0, true, nullptr), 0);
}

TEST_F(FindRow, FromARowThatDoesNotExistFails)
{
    Select({"", ""});
    for (const long row : {-1L, 2L, 2147483647L, -2147483647L - 1})
        for (const bool forward : {true, false})
            EXPECT_EQ(Find(row, forward), -1) << row;
}

TEST_F(FindRow, InAnEmptyResultFails)
{
    Select({});
    EXPECT_EQ(Find(0), -1);
}

TEST_F(FindRow, OfAStreamFailsAndLeavesItsRow)
{
    m_client.On("SELECT * FROM orders", recordset_test::CountedRows(3));
    ASSERT_TRUE(m_records.SelectLargeResult("SELECT * FROM orders"));
    EXPECT_EQ(m_records.FindRow("A", "x", 0, true, nullptr), -1);
    EXPECT_EQ(m_records.GetFieldLong("A"), 0);
    EXPECT_FALSE(m_records.IsEOF());
}

UtCString EmptyForMeier(const UtCString& text)
{
    return text == "meier" ? UtCString() : text;
}

TEST_F(FindRow, ComparesWhatTheConversionMakesOfTheTextInLowerCase)
{
    Select({"Abel", "", "MEIER", "b"});
    EXPECT_EQ(m_records.FindRow("NAME", "x", 0, true, EmptyForMeier), 1);
    EXPECT_EQ(m_records.FindRow("NAME", "x", 2, true, EmptyForMeier), 2);
}

UtCString NeverEmpty(const UtCString&)
{
    return "x";
}

TEST_F(FindRow, FindsNoEmptyTextThatTheConversionFills)
{
    Select({"", ""});
    EXPECT_EQ(m_records.FindRow("NAME", "x", 0, true, NeverEmpty), -1);
}

eUtEncodingType seenEncoding;
std::string seenBytes;

UtCString Watch(const UtCString& text)
{
    seenEncoding = text.GetEncodingType();
    seenBytes = std::string(text.View());
    return text;
}

TEST_F(FindRow, GivesTheConversionTextsInTheEncodingOfTheConnection)
{
    Select({"\xC3\x84rger"});
    EXPECT_EQ(m_records.FindRow("NAME", "x", 0, true, Watch), -1);
    EXPECT_EQ(seenEncoding, UT_ENCODING_DEFAULT);
    EXPECT_EQ(seenBytes, "\xE4rger");
}

TEST_F(FindRow, GivesTheConversionUtf8OnAConnectionThatSpeaksIt)
{
    CMyDatabase utf8(recordset_test::Server("utf8mb4"), "shop");
    OpenRecordSet records(utf8, "orders");
    m_client.On("SELECT * FROM orders", Reply::Rows({TextField("NAME")}, {{"\xC3\x84rger"}}));
    m_client.OnListFields("ORDERS", {TextField("NAME")});
    ASSERT_EQ(records.Select(""), 1);
    EXPECT_EQ(records.FindRow("NAME", "x", 0, true, Watch), -1);
    EXPECT_EQ(seenEncoding, UT_ENCODING_UTF8);
    EXPECT_EQ(seenBytes, "\xC3\xA4rger");
}

CMyRecordSet* closedRecords;

UtCString CloseRecords(const UtCString&)
{
    closedRecords->Close();
    return "";
}

TEST_F(FindRow, SurvivesAConversionThatClosesTheRecordSet)
{
    Select({"a", "b"});
    closedRecords = &m_records;
    EXPECT_EQ(m_records.FindRow("NAME", "x", 1, false, CloseRecords), -1);
    EXPECT_FALSE(m_records.IsOpen());
}

UtCString Throw(const UtCString&)
{
    throw std::runtime_error("host");
}

TEST_F(FindRow, FailsWhenTheConversionThrows)
{
    Select({"a"});
    EXPECT_EQ(m_records.FindRow("NAME", "x", 0, true, Throw), -1);
}

TEST_F(FindRow, DiscardsPendingChangesAsMovesDo)
{
    Select({"a", ""});
    m_records.Set("NAME", "");
    EXPECT_EQ(Find(0), 1);
    EXPECT_FALSE(m_records.IsRecordModified());
}

} // namespace
