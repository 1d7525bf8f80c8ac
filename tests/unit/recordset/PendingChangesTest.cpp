#include "recordset/PendingChanges.h"
#include "RecordSetFixture.h"

namespace {

using fake::Field;
using fake::Reply;
using recordset::PendingChange;
using recordset::PendingChanges;
using recordset_test::Bytes;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::TextField;

// ---- The list -------------------------------------------------------------------------------------------------------

TEST(PendingChanges, FindsAChangeByItsExactName)
{
    PendingChanges changes;
    changes.Add("A", "1", "one", 3);
    changes.Add("B", "2", "two", 3);
    ASSERT_NE(changes.Find("B"), nullptr);
    EXPECT_EQ(changes.Find("B")->SqlValue(), "2");
    EXPECT_EQ(changes.Find("b"), nullptr);
    EXPECT_EQ(changes.Find("C"), nullptr);
}

TEST(PendingChanges, FindsTheFirstChangeOfANameInAnyLetterCase)
{
    PendingChanges changes;
    changes.Add("A", "1", "one", 3);
    changes.Add("a", "2", "two", 3);
    ASSERT_NE(changes.FindNoCase("a"), nullptr);
    EXPECT_EQ(changes.FindNoCase("a")->SqlValue(), "1");
    EXPECT_EQ(changes.FindNoCase("b"), nullptr);
}

TEST(PendingChange, KeepsAZeroTerminatedCopyOfTheBytes)
{
    char bytes[] = {'a', '\0', 'b'};
    PendingChange change("A", "'x'", bytes, sizeof bytes);
    bytes[0] = 'z';
    EXPECT_EQ(change.Size(), 3U);
    EXPECT_EQ(std::string(change.Data(), 4), std::string("a\0b\0", 4));
}

TEST(PendingChange, TellsNullFromEmpty)
{
    PendingChange null("A", "null", nullptr, 0);
    EXPECT_EQ(null.Data(), nullptr);
    EXPECT_EQ(null.Size(), 0U);
    PendingChange empty("A", "''", "", 0);
    EXPECT_STREQ(empty.Data(), "");
    EXPECT_EQ(empty.Size(), 0U);
    PendingChange nullWithLength("A", "null", nullptr, 7);
    EXPECT_EQ(nullWithLength.Data(), nullptr);
    EXPECT_EQ(nullWithLength.Size(), 0U);
}

TEST(PendingChange, IsReplacedInPlace)
{
    PendingChange change("A", "'x'", "long", 4);
    change.Replace("'y'", "b", 1);
    EXPECT_EQ(change.Column(), "A");
    EXPECT_EQ(change.SqlValue(), "'y'");
    EXPECT_STREQ(change.Data(), "b");
    change.Replace("null", nullptr, 0);
    EXPECT_EQ(change.Data(), nullptr);
    change.Replace("'c'", "c", 1);
    EXPECT_STREQ(change.Data(), "c");
}

/// The pending changes of a record set: their statement texts have no reader outside the class yet.
template <auto member> struct PendingChangesOf
{
    friend std::unique_ptr<PendingChanges>& ChangesOf(CMyRecordSet& records) { return records.*member; }
};
template struct PendingChangesOf<&CMyRecordSet::m_pendingChanges>;
std::unique_ptr<PendingChanges>& ChangesOf(CMyRecordSet& records);

// ---- Seen through the accessors -------------------------------------------------------------------------------------

class RecordSetChanges : public recordset_test::RecordSetFixture
{
protected:
    void Store(const std::vector<Field>& fields, const fake::Row& row)
    {
        m_client.OnPrefix("SELECT", Reply::Rows(fields, {row}));
        ASSERT_EQ(records.Select("SELECT * FROM t"), 1);
    }
    void TearDown() override
    {
        records.Close();
        RecordSetFixture::TearDown();
    }
    OpenRecordSet records{m_database, ""};
};

TEST_F(RecordSetChanges, AreSeenByTheTypedAccessors)
{
    Store({TextField("A"), TextField("B")}, {"1", "x"});
    records.Set("A", "42");
    EXPECT_EQ(records.GetFieldLong(0), 42);
    EXPECT_EQ(records.GetFieldDWord(0), 42U);
    EXPECT_EQ(records.GetFieldShort("A"), 42);
    EXPECT_EQ(records.GetFieldWord("A"), 42);
    EXPECT_EQ(records.GetFieldByte("A"), 42);
    EXPECT_TRUE(records.GetFieldBool("A"));
    EXPECT_EQ(records.GetFieldInt64("A"), 42);
    EXPECT_EQ(records.GetFieldDouble("A"), 42.0);
    EXPECT_EQ(records.GetFieldFloat("A"), 42.0F);
    EXPECT_STREQ(records.GetFieldValue("A"), "42");
    UtCString text;
    EXPECT_TRUE(records.GetFieldText("A", text));
    EXPECT_EQ(text, "42");
    records.GetFieldText("B", text);
    EXPECT_EQ(text, "x");
    records.Set("A", "2023-05-07");
    EXPECT_EQ(records.GetFieldDate("A").GetDay(), 7);
    records.Set("A", "{6B29FC40-CA47-1067-B31D-00DD010662DA}");
    EXPECT_EQ(records.GetFieldGUID("A").Data1, 0x6B29FC40U);
}

TEST_F(RecordSetChanges, Kept_K44_AreNotSeenByTheRawAccessors)
{
    Store({TextField("A")}, {"old"});
    records.Set("A", "brand new");
    EXPECT_STREQ(static_cast<const char*>(records.GetFieldDataPtr(0)), "old");
    EXPECT_EQ(records.GetFieldDataLen(0), 3U);
    CByteArray bytes;
    EXPECT_TRUE(records.GetFieldBlob("A", bytes));
    EXPECT_EQ(bytes.GetSize(), 3);
}

TEST_F(RecordSetChanges, AreFoundWhateverTheLetterCaseOfTheResultsColumn)
{
    Store({TextField("name"), TextField("Name")}, {"1", "2"});
    records.Set("NAME", "3");
    EXPECT_EQ(records.GetFieldLong(0), 3);
    EXPECT_EQ(records.GetFieldLong(1), 3);
}

TEST_F(RecordSetChanges, Kept_K35_AreHiddenByANullInTheRow)
{
    Store({TextField("A")}, {std::nullopt});
    records.Set("A", "42");
    EXPECT_EQ(records.GetFieldValue(0), nullptr);
    EXPECT_TRUE(records.IsFieldNull("A"));
    EXPECT_EQ(records.GetFieldLong("A"), 0);
}

TEST_F(RecordSetChanges, AreNotSeenWithoutARow)
{
    Store({TextField("A")}, {"1"});
    ASSERT_FALSE(records.MoveNext());
    records.Set("A", "42");
    EXPECT_EQ(records.GetFieldValue(0), nullptr);
    EXPECT_EQ(records.GetFieldLong("A"), 0);
}

TEST_F(RecordSetChanges, ToNullReadAsNullAndToEmptyAsEmpty)
{
    Store({TextField("A"), TextField("B")}, {"1", "2"});
    records.SaveFieldValue("A", "null", nullptr, 0);
    records.SaveFieldValue("B", "''", "", 0);
    EXPECT_TRUE(records.IsFieldNull(0));
    EXPECT_TRUE(records.IsFieldEmpty(0));
    EXPECT_FALSE(records.IsFieldNull(1));
    EXPECT_TRUE(records.IsFieldEmpty(1));
}

TEST_F(RecordSetChanges, KeepTheirZeroBytes)
{
    Store({TextField("A")}, {"1"});
    const std::string value("a\0b", 3);
    records.SaveFieldValue("A", "'x'", value.data(), 3);
    UtCString text;
    records.GetFieldText(0, text);
    EXPECT_EQ(text.View(), value);
}

TEST_F(RecordSetChanges, TheLastOfSeveralToOneColumnWins)
{
    Store({TextField("A"), TextField("B")}, {"1", "2"});
    records.Set("A", "10");
    records.Set("B", "20");
    records.Set("A", "a longer text than before");
    records.Set("A", "30");
    EXPECT_EQ(records.GetFieldLong(0), 30);
    EXPECT_EQ(records.GetFieldLong(1), 20);
}

TEST_F(RecordSetChanges, TextsAreConvertedAsThoseOfTheRow)
{
    Store({TextField("A", 45)}, {"x"});
    records.Set("A", "\xC3\xBC");
    UtCString text;
    records.GetFieldText(0, text);
    EXPECT_EQ(text.View(), "\xFC");
}

TEST_F(RecordSetChanges, KeepTheirStatementTextAsItIsGivenFirst)
{
    Store({TextField("a", 8)}, {"x"});
    records.SaveFieldValue("A", UtCString("'\xC3\xBC'", UT_ENCODING_UTF8), "x", 1);
    EXPECT_EQ(Bytes(ChangesOf(records)->Find("A")->SqlValue()), "'\xC3\xBC'");
}

TEST_F(RecordSetChanges, AreOneForEachSpellingOfAColumn)
{
    records.SaveFieldValue("A", "1", "x", 1);
    records.SaveFieldValue("a", "2", "y", 1);
    records.SaveFieldValue("A", "3", "z", 1);
    EXPECT_EQ(ChangesOf(records)->Find("A")->SqlValue(), "3");
    ASSERT_NE(ChangesOf(records)->Find("a"), nullptr);
    EXPECT_EQ(ChangesOf(records)->Find("a")->SqlValue(), "2");
}

TEST_F(RecordSetChanges, LeaveAStatementTextThatTheColumnCannotHold)
{
    Store({TextField("A", 8)}, {"x"});
    for (const char* sqlValue : {"'\xD0\x96'", "'\xFF'"}) {
        records.SaveFieldValue("A", "''", "x", 1);
        records.SaveFieldValue("A", UtCString(sqlValue, UT_ENCODING_UTF8), "x", 1);
        EXPECT_EQ(Bytes(ChangesOf(records)->Find("A")->SqlValue()), sqlValue);
        EXPECT_EQ(ChangesOf(records)->Find("A")->SqlValue().GetEncodingType(), UT_ENCODING_UTF8);
    }
}

TEST_F(RecordSetChanges, ConvertAStatementTextThatReplacesAnotherToTheEncodingOfATextColumn)
{
    Store({TextField("a", 8), NumberField("N"), TextField("U", 60)}, {"x", "1", "x"});
    const UtCString sqlValue("'\xC3\xBC'", UT_ENCODING_UTF8);
    for (const char* column : {"A", "N", "U", "NOT_IN_THE_RESULT"}) {
        records.SaveFieldValue(column, "''", "x", 1);
        records.SaveFieldValue(column, sqlValue, "x", 1);
    }
    EXPECT_EQ(Bytes(ChangesOf(records)->Find("A")->SqlValue()), "'\xFC'");
    EXPECT_EQ(ChangesOf(records)->Find("A")->SqlValue().GetEncodingType(), UT_ENCODING_DEFAULT);
    for (const char* column : {"N", "U", "NOT_IN_THE_RESULT"}) {
        EXPECT_EQ(Bytes(ChangesOf(records)->Find(column)->SqlValue()), "'\xC3\xBC'") << column;
        EXPECT_EQ(ChangesOf(records)->Find(column)->SqlValue().GetEncodingType(), UT_ENCODING_UTF8) << column;
    }
}

TEST_F(RecordSetChanges, GoWhenTheRecordSetIsClosed)
{
    records.Set("A", "1");
    ASSERT_NE(ChangesOf(records), nullptr);
    records.Close();
    EXPECT_EQ(ChangesOf(records), nullptr);
}

TEST_F(RecordSetChanges, CanBeSetWithoutAResultOrAConnection)
{
    OpenRecordSet unbound;
    unbound.Set("A", "1");
    unbound.Set("A", "2");
    EXPECT_EQ(unbound.GetFieldValue("A"), nullptr);
}

// ---- The edit bracket -----------------------------------------------------------------------------------------------

TEST_F(RecordSetChanges, EndingABracketThatIsNotOpenIsFalse)
{
    CMyRecordSet unbound;
    EXPECT_FALSE(unbound.ModifyEnd());
    EXPECT_EQ(unbound.GetModifyState(), MODIFY_NONE);
    EXPECT_FALSE(unbound.AppendEnd());
    EXPECT_EQ(unbound.GetModifyState(), MODIFY_NONE);
    Store({TextField("A")}, {"1"});
    records.Set("A", "2");
    m_client.ForgetCalls();
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_TRUE(m_client.Statements().empty());
    EXPECT_EQ(records.GetFieldLong(0), 2);
}

} // namespace
