#include "EditFixture.h"

#include "CMyKey.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using server_test::EditedRecordSet;
using Strings = std::vector<std::string>;

/// A query info with "#" for each of the three digits in front of its " Sec".
std::string WithoutMilliseconds(std::string info)
{
    constexpr size_t digits = 3;
    const size_t end = info.rfind(" Sec");
    if (end == std::string::npos || end < digits)
        return info;
    std::replace_if(
        info.end() - static_cast<std::ptrdiff_t>(info.size() - end + digits),
        info.end() - static_cast<std::ptrdiff_t>(info.size() - end),
        [](char character) { return character >= '0' && character <= '9'; }, '#');
    return info;
}

class Edit : public server_test::EditFixture
{
protected:
    void MakeTable()
    {
        Run("CREATE TABLE t (ID INT PRIMARY KEY, NAME VARCHAR(40), AGE INT, BORN DATETIME)");
        Run("INSERT INTO t VALUES (1, 'one', 10, NULL), (2, 'two', 20, NULL), (3, 'three', 30, NULL)");
        CFieldCache::Instance().GetOrLoad(&m_edited, "t");
        m_log.Mark();
    }
    Strings Rows() { return m_temporary.Sql().Column("SELECT CONCAT_WS(',', ID, NAME, AGE, BORN) FROM t ORDER BY ID"); }
};

TEST_F(Edit, SendsTheStatementsThatItDocuments)
{
    MakeTable();
    records.AppendStart();
    records.SetFieldLong("id", 7);
    records.SetFieldText("name", "O'Neil");
    records.SetFieldShort("age", -5);
    records.SetFieldDate("born", CDateTime(2024, 3, 5, 14, 7, 9));
    EXPECT_TRUE(records.AppendEnd()) << Message();
    EXPECT_EQ(records.GetModifyErrorCode(), 1);
    EXPECT_EQ(WithoutMilliseconds(Message()), "Query OK. 1 Record in 0.### Sec");

    records.ModifyStart("ID = 7");
    records.SetFieldNull("NAME");
    records.SetFieldOperation("AGE", "`t`.`AGE` + 1");
    EXPECT_TRUE(records.ModifyEnd()) << Message();
    EXPECT_EQ(records.GetModifyErrorCode(), 1);
    EXPECT_EQ(WithoutMilliseconds(Message()), "Rows matched: 1  Changed: 1  Warnings: 0 in 0.### Sec");

    records.ModifyStart("(AGE > 10)");
    records.SetFieldWord("AGE", 40000);
    EXPECT_TRUE(records.ModifyEnd()) << Message();
    EXPECT_EQ(records.GetModifyErrorCode(), 2);

    records.ModifyStart("ID = 1");
    EXPECT_TRUE(records.DeleteRec());
    EXPECT_TRUE(records.ModifyEnd()) << Message();
    EXPECT_EQ(records.GetModifyErrorCode(), 1);

    EXPECT_EQ(Sent(), (Strings{"INSERT INTO t SET `t`.`ID` = 7, `t`.`NAME` = 'O\\'Neil', `t`.`AGE` = -5, `t`.`BORN` ="
                               " '2024-03-05 14:07:09'",
                               "UPDATE t SET `t`.`NAME` = null, `t`.`AGE` = `t`.`AGE` + 1 WHERE (ID = 7)",
                               "UPDATE t SET `t`.`AGE` = -25536 WHERE (AGE > 10)", "DELETE FROM t WHERE(ID = 1)"}));
    EXPECT_EQ(Rows(), (Strings{"2,two,-25536", "3,three,-25536", "7,-4,2024-03-05 14:07:09"}));
}

TEST_F(Edit, AnUpdateOfWhatIsThereAlreadySucceeds)
{
    MakeTable();
    records.ModifyStart("ID = 1");
    records.SetFieldText("NAME", "one");
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyErrorCode(), 1);
    records.ModifyStart("ID = 99");
    records.SetFieldText("NAME", "one");
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyErrorCode(), 0);
    records.ModifyStart("ID = 99");
    records.DeleteRec();
    EXPECT_FALSE(records.ModifyEnd());
}

TEST_F(Edit, ReportsWhatTheServerRefuses)
{
    MakeTable();
    records.AppendStart();
    records.SetFieldLong("ID", 1);
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(Message(), "1062: Duplicate entry '1' for key 'PRIMARY'");
    EXPECT_EQ(records.GetModifyErrorCode(), 0);
    records.ModifyStart("ID = 1");
    records.SetFieldLong("NOPE", 1);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_TRUE(Message().starts_with("1054: Unknown column 't.NOPE' in ")) << Message();
    records.ModifyStart("NOPE = 1");
    records.DeleteRec();
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_TRUE(Message().starts_with("1054: Unknown column 'NOPE' in ")) << Message();
    EXPECT_EQ(Rows(), (Strings{"1,one,10", "2,two,20", "3,three,30"}));
}

TEST_F(Edit, FillsTheAuditColumns)
{
    Run("CREATE TABLE t (ID INT PRIMARY KEY, ERFASST VARCHAR(20), ERF_TIME DATETIME, MUTATOR VARCHAR(20), MUT_TIME"
        " DATETIME)");
    const std::string user =
        *Text("SELECT SUBSTRING_INDEX('" + harness::PrivateServer::Get().Tester().user + "', '_', 1)");
    records.AppendStart();
    records.SetFieldLong("ID", 1);
    EXPECT_TRUE(records.AppendEnd()) << Message();
    EXPECT_EQ(Text("SELECT CONCAT_WS(',', ERFASST, ABS(TIMESTAMPDIFF(SECOND, ERF_TIME, NOW())) < 60) FROM t WHERE"
                   " MUTATOR IS NULL AND MUT_TIME IS NULL"),
              user + ",1");
    records.ModifyStart("ID = 1");
    EXPECT_TRUE(records.ModifyEnd()) << Message();
    EXPECT_EQ(Text("SELECT CONCAT_WS(',', MUTATOR, ABS(TIMESTAMPDIFF(SECOND, MUT_TIME, NOW())) < 60) FROM t"),
              user + ",1");
}

// ---- The modes of the server ----------------------------------------------------------------------------------------

TEST_F(Edit, AStrictServerRefusesEmptyTextsForDatesAndNumbers)
{
    Run("CREATE TABLE t (ID INT PRIMARY KEY, D DATE NOT NULL, DT DATETIME, TM TIME, I INT NOT NULL, F DOUBLE, Y YEAR,"
        " U INT UNSIGNED)");
    Run("INSERT INTO t VALUES (1, '2024-03-05', NULL, NULL, 5, NULL, NULL, 6)");
    SetMode("STRICT_TRANS_TABLES");
    struct
    {
        const char* column;
        const char* code;
    } const rows[] = {{"D", "1292: "}, {"DT", "1292: "}, {"TM", "1292: "},
                      {"I", "1366: "}, {"F", "1366: "},  {"Y", "1366: "}};
    for (const auto& row : rows) {
        records.ModifyStart("ID = 1");
        records.SetFieldDate(row.column, CDateTime());
        EXPECT_FALSE(records.ModifyEnd()) << row.column;
        EXPECT_EQ(Message().substr(0, 6), row.code) << row.column;
        EXPECT_EQ(records.GetModifyErrorCode(), 0);
    }
    for (const char* column : {"D", "I"}) {
        records.ModifyStart("ID = 1");
        records.SetFieldNull(column);
        EXPECT_FALSE(records.ModifyEnd()) << column;
    }
    records.ModifyStart("ID = 1");
    records.SetFieldDWord("U", 3000000000UL);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(Message().substr(0, 6), "1264: ");
    EXPECT_EQ(Text("SELECT CONCAT_WS(',', ID, D, DT, TM, I, F, Y, U) FROM t"), "1,2024-03-05,5,6");
}

TEST_F(Edit, AServerWithoutAModeStoresZerosForEmptyTexts)
{
    Run("CREATE TABLE t (ID INT PRIMARY KEY, D DATE NOT NULL, DT DATETIME, I INT NOT NULL, U INT UNSIGNED)");
    Run("INSERT INTO t VALUES (1, '2024-03-05', '2024-03-05', 5, 6)");
    SetMode("");
    records.ModifyStart("ID = 1");
    records.SetFieldNull("D");
    records.SetFieldDate("DT", CDateTime());
    records.SetFieldNull("I");
    records.SetFieldDWord("U", 3000000000UL);
    EXPECT_TRUE(records.ModifyEnd()) << Message();
    EXPECT_EQ(Text("SELECT CONCAT_WS(',', D, DT, I, U) FROM t"), "0000-00-00,0000-00-00 00:00:00,0,0");
}

TEST_F(Edit, WhatIsNoNumberIsRefusedInEveryMode)
{
    Run("CREATE TABLE t (ID INT PRIMARY KEY, A DOUBLE, NAN DOUBLE, INF DOUBLE)");
    Run("INSERT INTO t VALUES (1, 5, 6, 7)");
    const double infinity = std::numeric_limits<double>::infinity();
    for (const char* mode : {"STRICT_TRANS_TABLES", "", "ANSI", "TRADITIONAL"}) {
        SetMode(mode);
        for (const double value : {std::nan(""), infinity, -infinity}) {
            records.ModifyStart("ID = 1");
            records.SetFieldDouble("A", value);
            EXPECT_FALSE(records.ModifyEnd()) << value;
            EXPECT_EQ(Message().substr(0, 6), "1064: ");
            records.ModifyStart("ID = 1");
            records.SetFieldFloat("A", static_cast<float>(value));
            records.SetFieldLong("INF", 1);
            EXPECT_FALSE(records.ModifyEnd()) << value;
            records.AppendStart();
            records.SetFieldDouble("A", value);
            EXPECT_FALSE(records.AppendEnd()) << value;
        }
    }
    EXPECT_EQ(Text("SELECT CONCAT_WS(',', ID, A, NAN, INF) FROM t"), "1,5,6,7");
}

// ---- Keys -----------------------------------------------------------------------------------------------------------

TEST_F(Edit, ChangesTheRowsOfAKey)
{
    MakeTable();
    records.ModifyStart(CMyKey("NAME", "two", "=").Add("AGE", 20, ">="));
    records.SetFieldLong("AGE", 21);
    EXPECT_TRUE(records.ModifyEnd()) << Message();
    EXPECT_TRUE(records.ModifyStart(CMyKey("ID", 3, "=")));
    EXPECT_TRUE(records.DeleteRec());
    EXPECT_TRUE(records.ModifyEnd()) << Message();
    EXPECT_EQ(Sent(), (Strings{"UPDATE t SET `t`.`AGE` = 21 WHERE (`t`.`NAME` = 'two') AND (`t`.`AGE` >= 20)",
                               "DELETE FROM t WHERE(`t`.`ID` = 3)"}));
    EXPECT_EQ(Rows(), (Strings{"1,one,10", "2,two,21"}));
}

TEST_F(Edit, WithoutAKeyTheRowsWhoseKeyIsTrueAreChanged)
{
    MakeTable();
    ASSERT_EQ(records.Select("ID = 3"), 1);
    m_log.Mark();
    EXPECT_TRUE(records.ModifyStart());
    records.SetFieldText("NAME", "changed");
    EXPECT_TRUE(records.ModifyEnd()) << Message();
    EXPECT_EQ(Sent(), Strings{"UPDATE t SET `t`.`NAME` = 'changed' WHERE (`t`.`ID` = TRUE)"});
    EXPECT_EQ(Rows(), (Strings{"1,changed,10", "2,two,20", "3,three,30"})); // not the current row
}

TEST_F(Edit, AKeyWithAnUnknownColumnIsRefusedByTheServer)
{
    MakeTable();
    EXPECT_TRUE(records.ModifyStart(CMyKey("NOPE", 3, "=")));
    records.SetFieldLong("AGE", 99);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(Sent(), Strings{"UPDATE t SET `t`.`AGE` = 99 WHERE (CMyKey_CreateClause_Field_Not_Exist_t_NOPE)"});
    EXPECT_TRUE(Message().starts_with("1054: ")) << Message();
    EXPECT_EQ(Rows(), (Strings{"1,one,10", "2,two,20", "3,three,30"}));
}

// ---- Names ----------------------------------------------------------------------------------------------------------

TEST_F(Edit, AColumnNameStaysOneName)
{
    MakeTable();
    for (const char* name : {"a b", "a'b", "a\"b", "a`b", "`", "a` = 1, `t`.`AGE", "AGE` = 0 -- ", "a#b", "a/*b", " ",
                             "a\\", "a.b", "AGE`=1 WHERE 1=1;#", "%s"}) {
        records.ModifyStart("ID = 1");
        records.SetFieldLong(name, 99);
        EXPECT_FALSE(records.ModifyEnd()) << name;
        EXPECT_NE(Message(), "") << name;
        records.AppendStart();
        records.SetFieldLong(name, 99);
        EXPECT_FALSE(records.AppendEnd()) << name;
        EXPECT_NE(Message(), "") << name;
    }
    EXPECT_EQ(Rows(), (Strings{"1,one,10", "2,two,20", "3,three,30"}));
}

TEST_F(Edit, AColumnWithAnUnusualNameIsWritten)
{
    Run("CREATE TABLE t (`A ``B' \" #` INT)");
    records.AppendStart();
    records.SetFieldLong("A `B' \" #", 5);
    EXPECT_TRUE(records.AppendEnd()) << Message();
    EXPECT_EQ(Sent().back(), "INSERT INTO t SET `t`.`A ``B' \" #` = 5");
}

TEST_F(Edit, ATableNameNeverMakesAnotherStatement)
{
    MakeTable();
    for (const char* name : {"my t",
                             "t -- ",
                             "t --",
                             "t #",
                             "t /*",
                             "t/*",
                             "t SET AGE = 1 -- ",
                             "t SET AGE = 1 #",
                             "t USING t",
                             "t, t u",
                             "t USING t JOIN t u ON 1=1",
                             "t PARTITION (p0)",
                             "t SET AGE = '",
                             "'t'",
                             "\"t\"",
                             "a`t",
                             "t` SET AGE = 1 -- ",
                             "t WHERE 1=1 OR",
                             "t u",
                             "t AS u",
                             "order",
                             "(t)",
                             "t;",
                             "t\n--\n",
                             "no_such_table",
                             "IGNORE t",
                             "t SET AGE = 1,",
                             "t SET AGE = 1 WHERE ID = 1 OR ID =",
                             "t FOR PORTION OF x FROM 1 TO 2",
                             "-t",
                             "t-",
                             "t WHERE ID > "}) {
        SCOPED_TRACE(name);
        CFieldCache::Instance().RemoveAll();
        EditedRecordSet named(m_edited, name);
        EXPECT_TRUE(named.AppendStart());
        named.SetFieldLong("AGE", 99);
        EXPECT_FALSE(named.AppendEnd());
        EXPECT_FALSE(named.GetModifyErrorMessage().IsEmpty());
        EXPECT_NE(m_edited.GetErrorCode(), 0U);
        named.ModifyStart("ID = 1");
        named.SetFieldLong("AGE", 99);
        EXPECT_FALSE(named.ModifyEnd());
        EXPECT_FALSE(named.GetModifyErrorMessage().IsEmpty());
        named.ModifyStart("ID = 1");
        named.DeleteRec();
        EXPECT_FALSE(named.ModifyEnd());
        EXPECT_FALSE(named.GetModifyErrorMessage().IsEmpty());
        EXPECT_NE(m_edited.GetErrorCode(), 0U);
    }
    EXPECT_EQ(Rows(), (Strings{"1,one,10", "2,two,20", "3,three,30"}));
}

TEST_F(Edit, AZeroByteNeverCutsAStatement)
{
    MakeTable();
    const UtCString cutTable(std::string_view("t\0x", 3), UT_ENCODING_UTF8);
    const UtCString cutCondition(std::string_view("(ID > 0)\0 AND (ID = 1)", 22), UT_ENCODING_UTF8);
    const UtCString cutColumn(std::string_view("AGE\0", 4), UT_ENCODING_UTF8);
    const UtCString cutValue(std::string_view("5\0", 2), UT_ENCODING_UTF8);
    const std::string message = "1064: The statement holds a zero byte and was not sent";
    records.ModifyStart(cutCondition);
    records.DeleteRec();
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(Message(), message);
    records.ModifyStart(cutCondition);
    records.SetFieldLong("AGE", 5);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(Message(), message);
    records.ModifyStart("ID = 1");
    records.SetFieldOperation("AGE", cutValue);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(Message(), message);
    EXPECT_EQ(m_edited.GetErrorCode(), 1064U);
    records.ModifyStart("ID = 1");
    records.SetFieldLong(cutColumn, 5);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(Message(), message);
    EXPECT_TRUE(Sent().empty());
    records.SetTableName(cutTable);
    records.ModifyStart("ID = 1");
    records.DeleteRec();
    EXPECT_FALSE(records.ModifyEnd());
    records.AppendStart();
    records.SetFieldLong("AGE", 5);
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(Message(), message);
    EXPECT_EQ(Rows(), (Strings{"1,one,10", "2,two,20", "3,three,30"}));
}

// ---- Losing the server ----------------------------------------------------------------------------------------------

TEST_F(Edit, AConnectionKilledWithinTheBracketIsReplacedAndTheStatementSent)
{
    MakeTable();
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    harness::KillConnection(m_edited.GetThreadID());
    records.SetFieldText("NAME", "O'Neil");
    EXPECT_TRUE(records.AppendEnd()) << Message();
    EXPECT_EQ(Text("SELECT NAME FROM t WHERE ID = 7"), "O'Neil");
    records.ModifyStart("ID = 7");
    records.SetFieldText("NAME", "Neil");
    harness::KillConnection(static_cast<unsigned long>(
        std::stoul(*Text("SELECT ID FROM information_schema.PROCESSLIST WHERE DB = DATABASE() AND ID NOT IN"
                         " (CONNECTION_ID(), " +
                         std::to_string(m_database.GetThreadID()) + ")"))));
    EXPECT_TRUE(records.ModifyEnd()) << Message();
    EXPECT_EQ(Text("SELECT NAME FROM t WHERE ID = 7"), "Neil");
}

TEST_F(Edit, AClosedConnectionIsOpenedToEscapeAndToSend)
{
    MakeTable();
    m_edited.Close();
    records.AppendStart();
    EXPECT_TRUE(records.SetFieldText("NAME", "O'Neil"));
    EXPECT_TRUE(m_edited.IsOpen());
    m_edited.Close();
    EXPECT_TRUE(records.SetFieldLong("ID", 7));
    EXPECT_TRUE(records.AppendEnd()) << Message();
    EXPECT_EQ(Text("SELECT NAME FROM t WHERE ID = 7"), "O'Neil");
}

TEST_F(Edit, AServerThatIsGoneIsReported)
{
    MakeTable();
    m_edited.Close();
    m_edited.GetServer().SetPort(1);
    records.AppendStart();
    EXPECT_TRUE(records.SetFieldText("NAME", "Neil"));
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_TRUE(Message().starts_with("2002: ") || Message().starts_with("2003: ")) << Message();
    records.ModifyStart("ID = 1");
    EXPECT_FALSE(records.SetFieldText("NAME", "O'Neil")); // nobody can escape it
    records.SetFieldLong("AGE", 5);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_TRUE(Message().starts_with("2002: ") || Message().starts_with("2003: ")) << Message();
    m_edited.GetServer().SetPort(harness::PrivateServer::Get().Tester().port);
    EXPECT_FALSE(records.ModifyEnd()); // its name is still missing
    EXPECT_EQ(Rows(), (Strings{"1,one,10", "2,two,20", "3,three,30"}));
    records.ModifyStart("ID = 1");
    EXPECT_TRUE(records.SetFieldText("NAME", "O'Neil"));
    EXPECT_TRUE(records.ModifyEnd()) << Message();
}

TEST_F(Edit, WritesWhileAStreamIsRead)
{
    MakeTable();
    ASSERT_TRUE(records.SelectLargeResult("SELECT * FROM t ORDER BY ID"));
    do {
        EXPECT_TRUE(records.ModifyStart(("ID = " + std::string(records.GetFieldValue("ID"))).c_str()));
        EXPECT_TRUE(records.SetFieldText("NAME", "it's new"));
        EXPECT_TRUE(records.ModifyEnd()) << Message();
    } while (records.MoveNext());
    EXPECT_EQ(Rows(), (Strings{"1,it's new,10", "2,it's new,20", "3,it's new,30"}));
}

} // namespace
