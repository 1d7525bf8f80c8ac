#include "RecordSetFixture.h"

#include <climits>
#include <functional>

// Every public member on every state with bad arguments: nothing crashes, and the object can be used again.

namespace {

using fake::Reply;
using recordset_test::CountedRows;
using recordset_test::OpenRecordSet;
using recordset_test::Server;

const UtCString badTexts[] = {
    UtCString(),
    UtCString("A"),
    UtCString("`"),
    UtCString("a`b'c\"d\\"),
    UtCString("%s%s%n"),
    UtCString(std::string_view("A\0B", 3), UT_ENCODING_DEFAULT),
    UtCString(std::string_view("\0", 1), UT_ENCODING_UTF8),
    UtCString(std::string_view("\xFF\xFE\xC3", 3), UT_ENCODING_UTF8),
    UtCString(std::string_view("A\0B", 3), UT_ENCODING_UTF16_LE),
    UtCString(std::string_view("\xD8\0", 2), UT_ENCODING_UTF16_BE),
    UtCString(std::string_view("A\0\0\0", 4), UT_ENCODING_UTF32),
    UtCString(std::string_view(std::string(70000, 'x')), UT_ENCODING_UTF8),
};

const unsigned long badPositions[] = {0, 1, 2, 3, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, ULONG_MAX};
const long badRows[] = {0, 1, 2, 3, -1, INT_MAX, INT_MIN, LONG_MAX, LONG_MIN};

void ReadByPosition(const OpenRecordSet& records, unsigned long no)
{
    unsigned int nr = 0;
    CByteArray bytes;
    records.GetFieldName(no);
    records.GetFieldCharsetNr(no, nr);
    records.GetFieldType(no);
    records.GetFieldTypeString(no);
    records.GetFieldValue(no);
    for (eUtEncodingType encoding : {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE, UT_ENCODING_UTF32}) {
        UtCString text(encoding);
        EXPECT_TRUE(records.GetFieldText(no, text));
    }
    records.GetFieldTextInternal(no);
    records.GetFieldLong(no);
    records.GetFieldDWord(no);
    records.GetFieldShort(no);
    records.GetFieldWord(no);
    records.GetFieldByte(no);
    records.GetFieldBool(no);
    records.GetFieldInt64(no);
    records.GetFieldDouble(no);
    records.GetFieldFloat(no);
    records.GetFieldDate(no);
    records.GetFieldGUID(no);
    records.IsFieldNull(no);
    records.IsFieldEmpty(no);
    EXPECT_EQ(records.GetFieldBlob(no, bytes), !records.IsEOF() && no < records.GetFieldCount());
    records.GetFieldDataPtr(no);
    records.GetFieldDataLen(no);
    records.GetTableFieldPtr(static_cast<long>(no));
}

void ReadByName(const OpenRecordSet& records, const UtCString& name)
{
    unsigned long no = 99;
    unsigned int nr = 0;
    CByteArray bytes;
    UtCString text;
    const bool found = records.GetFieldNo(name, no);
    EXPECT_EQ(records.GetFieldText(name, text), found);
    records.GetFieldCharsetNr(name, nr);
    records.GetFieldSize(name);
    records.GetFieldType(name);
    records.GetFieldTypeString(name);
    records.GetField(name);
    records.GetFieldValue(name);
    records.GetFieldLong(name);
    records.GetFieldDWord(name);
    records.GetFieldShort(name);
    records.GetFieldWord(name);
    records.GetFieldByte(name);
    records.GetFieldBool(name);
    records.GetFieldInt64(name);
    records.GetFieldDouble(name);
    records.GetFieldFloat(name);
    records.GetFieldDate(name);
    records.GetFieldGUID(name);
    records.IsFieldNull(name);
    records.IsFieldEmpty(name);
    EXPECT_EQ(records.GetFieldBlob(name, bytes), found && !records.IsEOF());
    records.GetFieldDataPtr(name);
    records.GetFieldDataLen(name);
    records.GetTableFieldPtr(name);
    records.GetTableFieldType(name);
}

void ReadState(const OpenRecordSet& records)
{
    records.GetModifyState();
    records.GetDatabase();
    records.GetDatabaseName();
    records.GetTableName();
    records.IsValid();
    records.IsValidTable();
    records.GetCloseConnectionOnExit();
    records.IsOpen();
    records.GetLastSQLCommand();
    records.GetQueryTime();
    records.GetAffectedRows();
    records.GetQueryInfo();
    records.GetErrorMessage();
    records.GetFieldCount();
    records.GetDB();
    records.GetEncodingType();
    records.LoadFieldHash();
}

void ReadEverything(const OpenRecordSet& records)
{
    ReadState(records);
    for (const unsigned long no : badPositions)
        ReadByPosition(records, no);
    for (const UtCString& name : badTexts)
        ReadByName(records, name);
}

struct State
{
    const char* name;
    std::function<void(OpenRecordSet&)> enter;
};

class RecordSetStates : public recordset_test::RecordSetFixture
{
protected:
    RecordSetStates()
    {
        m_client.On("SELECT rows", CountedRows(3, 2));
        m_client.On("SELECT many", CountedRows(20, 5));
        m_client.On("SELECT none", CountedRows(0, 5));
        m_client.On("SELECT cut", CountedRows(5, 2).CutAfter(1));
        m_client.On("SELECT wrong", Reply::Error(1064));
        m_client.OnListFields("ORDERS", fake::TextFields({"A", "B"}));
    }

    std::vector<State> States()
    {
        const auto bind = [this](OpenRecordSet& records) { records.SetDatabase(&m_database, "orders"); };
        const auto select = [bind](const char* sql) {
            return [=](OpenRecordSet& records) {
                bind(records);
                records.Select(sql, false, true);
            };
        };
        const auto stream = [bind](const char* sql) {
            return [=](OpenRecordSet& records) {
                bind(records);
                records.SelectLargeResult(sql);
            };
        };
        return {{"unbound", [](OpenRecordSet&) {}},
                {"unbound with a table", [](OpenRecordSet& records) { records.SetTableName("orders"); }},
                {"bound", bind},
                {"bound and closed",
                 [=, this](OpenRecordSet& records) {
                     bind(records);
                     m_database.Close();
                 }},
                {"on a stored row", select("SELECT rows")},
                {"on a row of a large result", select("SELECT many")},
                {"on a row reached by MoveTo",
                 [=](OpenRecordSet& records) {
                     select("SELECT many")(records);
                     records.MoveTo(7);
                 }},
                {"at the end of a stored result",
                 [=](OpenRecordSet& records) {
                     select("SELECT rows")(records);
                     records.MoveTo(99);
                 }},
                {"on an empty result", select("SELECT none")},
                {"stored, connection closed",
                 [=, this](OpenRecordSet& records) {
                     select("SELECT rows")(records);
                     m_database.Close();
                 }},
                {"after a failed select", select("SELECT wrong")},
                {"after a statement without result", select("UPDATE t SET a = 1")},
                {"closed again",
                 [=](OpenRecordSet& records) {
                     select("SELECT rows")(records);
                     records.Close();
                 }},
                {"streaming", stream("SELECT rows")},
                {"at the end of a stream",
                 [=](OpenRecordSet& records) {
                     stream("SELECT rows")(records);
                     while (records.MoveNext())
                         continue;
                 }},
                {"on an empty stream", stream("SELECT none")},
                {"after a stream broke off",
                 [=](OpenRecordSet& records) {
                     stream("SELECT cut")(records);
                     records.MoveNext();
                 }},
                {"streaming, connections lost",
                 [=, this](OpenRecordSet& records) {
                     stream("SELECT rows")(records);
                     m_client.LoseConnection();
                 }},
                {"after a failed stream", stream("SELECT wrong")},
                {"with pending changes", [=](OpenRecordSet& records) {
                     select("SELECT rows")(records);
                     records.Set("A", "5");
                     records.SaveFieldValue("B", "null", nullptr, 0);
                 }}};
    }

    /// Enters each state on a fresh record set, does `what`, and checks that the record set can be used again.
    void InEveryState(const std::function<void(OpenRecordSet&)>& what)
    {
        for (const State& state : States()) {
            SCOPED_TRACE(state.name);
            m_database.Open(false, "");
            OpenRecordSet records;
            state.enter(records);
            what(records);
            EXPECT_TRUE(records.SetDatabase(&m_database, "orders"));
            EXPECT_EQ(records.Select("SELECT rows", false, true), 3);
            EXPECT_TRUE(records.MoveTo(2));
            EXPECT_EQ(records.GetFieldLong("A"), 2);
        }
    }
};

TEST_F(RecordSetStates, AllowEveryReadingMember)
{
    InEveryState([](OpenRecordSet& records) { ReadEverything(records); });
}

TEST_F(RecordSetStates, AllowEveryMove)
{
    InEveryState([](OpenRecordSet& records) {
        for (const long row : badRows) {
            records.MoveTo(row);
            EXPECT_LE(records.GetCurrentRow(), 20);
            records.MoveNext();
            records.MoveFirst();
            EXPECT_EQ(records.MoveNext(), !records.IsEOF());
        }
        EXPECT_EQ(records.MoveFirst(), !records.IsEOF());
        records.ClearFieldCache();
        EXPECT_FALSE(records.ModifyEnd());
        EXPECT_FALSE(records.AppendEnd());
    });
}

TEST_F(RecordSetStates, AllowEverySelect)
{
    for (const UtCString& text : badTexts) {
        InEveryState([&](OpenRecordSet& records) {
            EXPECT_EQ(records.Select(text), -1);
            EXPECT_FALSE(records.IsOpen());
        });
        InEveryState([&](OpenRecordSet& records) { EXPECT_EQ(records.Select(text, false, true), -1); });
        InEveryState([&](OpenRecordSet& records) { EXPECT_FALSE(records.SelectLargeResult(text)); });
        InEveryState([&](OpenRecordSet& records) { EXPECT_EQ(records.SetSQLCommand(text, false, false), -1); });
    }
}

TEST_F(RecordSetStates, AllowEveryBinding)
{
    InEveryState([](OpenRecordSet& records) {
        for (const UtCString& name : badTexts) {
            records.SetTableName(name);
            UtCString text;
            records.GetFieldText(0, text);
            records.IsValidTable();
        }
        records.SetCloseConnectionOnExit(true);
        records.SetCloseConnectionOnExit(false);
        EXPECT_FALSE(records.SetDatabase(nullptr, badTexts[3]));
        ReadEverything(records);
    });
    InEveryState([](OpenRecordSet& records) { EXPECT_TRUE(records.Close()); });
    InEveryState([](OpenRecordSet& records) { records.InitMembers(); });
    InEveryState([](OpenRecordSet& records) { records.FreeRecordSet(); });
}

TEST_F(RecordSetStates, AllowEveryChange)
{
    InEveryState([](OpenRecordSet& records) {
        for (const UtCString& text : badTexts) {
            records.SaveFieldValue(text, text, text.View().data(), static_cast<unsigned long>(text.GetByteLength()));
            records.SaveFieldValue(text, text, nullptr, ULONG_MAX);
        }
        ReadEverything(records);
    });
}

TEST_F(RecordSetStates, String2CDateTimeTakesAnything)
{
    OpenRecordSet records;
    for (const UtCString& text : badTexts) {
        CDateTime date;
        records.String2CDateTime(text, date);
        EXPECT_FALSE(date.IsValid());
    }
}

} // namespace
