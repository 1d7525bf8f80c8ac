#include "sql/TableCheck.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using sql::CheckRow;
using sql::Damage;

constexpr eUtEncodingType ansi = UT_ENCODING_DEFAULT;

// ---- Statements -----------------------------------------------------------------------------------------------------

TEST(CheckTable, Kept_K144_ChecksQuicklyWhatWasNotClosed)
{
    EXPECT_EQ(sql::CheckTable("shop", "orders", ansi).View(), "CHECK TABLE `shop`.`orders` FAST QUICK");
    EXPECT_EQ(sql::CheckTable("my-shop", "a %s`b", ansi).View(), "CHECK TABLE `my-shop`.`a %s`b` FAST QUICK");
}

TEST(CheckTables, TakesTheListAsItIs)
{
    EXPECT_EQ(sql::CheckTables("`a`, `b`", ansi).View(), "CHECK TABLE `a`, `b` FAST QUICK");
    EXPECT_EQ(sql::CheckTables("", ansi).View(), "CHECK TABLE  FAST QUICK");
}

TEST(RepairTables, NamesTheOption)
{
    EXPECT_EQ(sql::RepairTables("`a`, `b`", sql::RepairOption::Extended, ansi).View(),
              "REPAIR TABLE `a`, `b` EXTENDED");
    EXPECT_EQ(sql::RepairTables("`a`, `b`", sql::RepairOption::UseFrm, ansi).View(), "REPAIR TABLE `a`, `b` USE_FRM");
}

TEST(CheckTable, IsInTheEncodingAskedFor)
{
    const UtCString zhe("\xD0\xB6", UT_ENCODING_UTF8);
    EXPECT_EQ(sql::CheckTable(zhe, zhe, UT_ENCODING_UTF8).View(), "CHECK TABLE `\xD0\xB6`.`\xD0\xB6` FAST QUICK");
    EXPECT_EQ(sql::CheckTables(zhe, UT_ENCODING_UTF8).View(), "CHECK TABLE \xD0\xB6 FAST QUICK");
    EXPECT_EQ(sql::RepairTables(zhe, sql::RepairOption::Extended, UT_ENCODING_UTF8).View(),
              "REPAIR TABLE \xD0\xB6 EXTENDED");
}

TEST(DatabaseCheck, Kept_K140_LeavesTheCommaBehindTheLastTable)
{
    sql::DatabaseCheck one("shop", ansi);
    one.Add("orders");
    EXPECT_EQ(one.Take().View(), "CHECK TABLE  `shop`.`orders`,  FAST QUICK");
    sql::DatabaseCheck two("shop", ansi);
    two.Add("b");
    two.Add("a b");
    EXPECT_EQ(two.Take().View(), "CHECK TABLE  `shop`.`b`,  `shop`.`a b`,  FAST QUICK");
}

TEST(DatabaseCheck, IsInTheEncodingAskedFor)
{
    sql::DatabaseCheck check("k\xFC", UT_ENCODING_UTF8);
    check.Add("\xE4");
    const UtCString statement = check.Take();
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(statement.View(), "CHECK TABLE  `k\xC3\xBC`.`\xC3\xA4`,  FAST QUICK");
}

TEST(DatabaseCheck, Kept_K148_FillsWithANumber)
{
    sql::DatabaseCheck check("shop", UT_ENCODING_UTF8);
    check.Add("abc");
    EXPECT_EQ(check.Filler().View(), "32") << "all names are as long";
    check.Add("abcde");
    EXPECT_EQ(check.Filler().View(), "32.00");
    check.Add("a");
    EXPECT_EQ(check.Filler().View(), "32.0000");
    check.Add(UtCString("\xC3\xA4\xC3\xA4", UT_ENCODING_UTF8));
    EXPECT_EQ(check.Filler().View(), "32.0000") << "lengths are in characters";
    EXPECT_EQ(check.Filler().GetEncodingType(), UT_ENCODING_UTF8);
}

// ---- Rows of a check ------------------------------------------------------------------------------------------------

struct DamageCase
{
    const char* name;
    const char* type;
    const char* message;
    Damage damage;
};

class DamageOf : public testing::TestWithParam<DamageCase>
{
};

TEST_P(DamageOf, IsJudgedByTypeAndText)
{
    EXPECT_EQ(sql::DamageOf({"shop.orders", GetParam().type, GetParam().message}), GetParam().damage);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DamageOf,
    testing::Values(
        DamageCase{"Status", "status", "OK", Damage::None},
        DamageCase{"StatusOfFailure", "status", "Operation failed", Damage::None},
        DamageCase{"StatusAboutADefinition", "status", "a.frm", Damage::None},
        DamageCase{"Note", "note", "The storage engine for the table doesn't support repair", Damage::None},
        DamageCase{"WarningAboutAMissingDataFile", "warning", "a.MYD not found (", Damage::None},
        DamageCase{"Info", "info", "error", Damage::None}, DamageCase{"NoType", "", "a.frm", Damage::None},
        DamageCase{"TypeWithABlank", "error ", "a.frm", Damage::None},
        DamageCase{"Error", "error", "Corrupt", Damage::Repairable},
        DamageCase{"ErrorInAnotherLetterCase", "Error", "Corrupt", Damage::Repairable},
        DamageCase{"ErrorInUpperCase", "ERROR", "Corrupt", Damage::Repairable},
        DamageCase{"ErrorWithoutText", "error", "", Damage::Repairable},
        DamageCase{"MissingTable", "Error", "Table 'shop.FAST' doesn't exist", Damage::Repairable},
        DamageCase{"MissingIndexFile", "Error", "Can't find file: './c8/d6.MYI' (errno: 2)", Damage::Repairable},
        DamageCase{"IndexFileThatIsNotFound", "Error", "./c8/d6.MYI not found (", Damage::Repairable},
        DamageCase{"MissingDefinition", "Error", "Can't find file: './c8/d7.frm'", Damage::Fatal},
        DamageCase{"DefinitionInUpperCase", "error", "D7.FRM", Damage::Fatal},
        DamageCase{"DefinitionInMixedCase", "ERROR", "d7.fRm is bad", Damage::Fatal},
        DamageCase{"DefinitionWithoutItsDot", "error", "d7frm", Damage::Repairable},
        DamageCase{"MissingDataFile", "Error",
                   "File './c8/d5.MYD' not found (Errcode: 2 \"No such file or directory\")", Damage::Fatal},
        DamageCase{"MissingDataFileInAnotherLetterCase", "error", "d5.myd NOT Found here", Damage::Fatal},
        DamageCase{"NotFoundInFront", "error", "it was not found in d5.MYD", Damage::Fatal},
        DamageCase{"DataFileOnly", "error", "d5.MYD is damaged", Damage::Repairable},
        DamageCase{"NotFoundWithoutABlankBehind", "error", "d5.MYD not found", Damage::Repairable},
        DamageCase{"NotFoundWithoutABlankInFront", "error", "d5.MYD:not found (", Damage::Repairable},
        DamageCase{"NotFoundWithTwoBlanksBetween", "error", "d5.MYD not  found (", Damage::Repairable},
        DamageCase{"NotFoundWithoutADataFile", "error", "it is not found (", Damage::Repairable},
        DamageCase{"AriaDataFile", "Error", "File 'd5.MAD' not found (", Damage::Repairable}),
    [](const auto& tested) { return tested.param.name; });

TEST(DamageOf, ReadsTextsOfEveryEncoding)
{
    const UtCString wide(std::string_view("a\0.\0f\0r\0m\0", 10), UT_ENCODING_UTF16_LE);
    EXPECT_EQ(sql::DamageOf({"", UtCString("error", UT_ENCODING_UTF8), wide}), Damage::Fatal);
}

TEST(DamageOf, GrowsWithTheHarm)
{
    EXPECT_LT(Damage::None, Damage::Repairable);
    EXPECT_LT(Damage::Repairable, Damage::Fatal);
}

// ---- Rows of a repair -----------------------------------------------------------------------------------------------

TEST(IsFailedRepair, ByAnErrorOrAStatusThatIsNotOk)
{
    EXPECT_TRUE(sql::IsFailedRepair("error", "Corrupt"));
    EXPECT_TRUE(sql::IsFailedRepair("error", "OK"));
    EXPECT_TRUE(sql::IsFailedRepair("status", "Operation failed"));
    EXPECT_TRUE(sql::IsFailedRepair("status", ""));
    EXPECT_TRUE(sql::IsFailedRepair("status", "OK "));
    EXPECT_FALSE(sql::IsFailedRepair("status", "OK"));
    EXPECT_FALSE(sql::IsFailedRepair("status", "ok"));
    EXPECT_FALSE(sql::IsFailedRepair("status", "Ok"));
    EXPECT_FALSE(sql::IsFailedRepair("note", "The storage engine for the table doesn't support repair"));
    EXPECT_FALSE(sql::IsFailedRepair("", ""));
}

TEST(IsFailedRepair, Kept_K143_NotByAWarningAboutDroppedRows)
{
    EXPECT_FALSE(sql::IsFailedRepair("warning", "Number of rows changed from 400 to 211"));
}

TEST(IsFailedRepair, Kept_K147_NotByTypesInAnotherLetterCase)
{
    EXPECT_FALSE(sql::IsFailedRepair("Error", "Table 'shop.orders' doesn't exist"));
    EXPECT_FALSE(sql::IsFailedRepair("Status", "Operation failed"));
}

TEST(AddCheckedTable, Kept_K141_AddsNoTableToAnEmptyList)
{
    UtCString list;
    sql::AddCheckedTable({"shop.orders", "status", "OK"}, list);
    sql::AddCheckedTable({"shop.orders", "error", "Corrupt"}, list);
    EXPECT_EQ(list.View(), "");
}

TEST(AddCheckedTable, AddsATableThatIsTheList)
{
    UtCString list("Shop.Orders");
    sql::AddCheckedTable({"shop.orders", "error", "Corrupt"}, list);
    EXPECT_EQ(list.View(), "Shop.Orders") << "an error is skipped";
    sql::AddCheckedTable({"shop.orders", "status", "OK"}, list);
    EXPECT_EQ(list.View(), "Shop.Ordersshop.orders, ");
    UtCString empty;
    sql::AddCheckedTable({"", "status", "OK"}, empty);
    EXPECT_EQ(empty.View(), ", ");
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

TEST(AppendTableError, WritesALineForEachRow)
{
    UtCString text;
    sql::AppendTableError({"shop.a", "error", "Corrupt"}, text);
    EXPECT_EQ(text.View(), "shop.a: Corrupt");
    sql::AppendTableError({"shop.%s", "error", "100%"}, text);
    EXPECT_EQ(text.View(), "shop.a: Corrupt\nshop.%s: 100%");
}

TEST(AppendDatabaseError, WritesALineForEachRow)
{
    UtCString text;
    sql::AppendDatabaseError({"shop.a", "error", "Corrupt"}, "32.00", text);
    EXPECT_EQ(text.View(), "      shop.a:32.00 \tCorrupt");
    sql::AppendDatabaseError({"shop.b", "error", "x"}, "32", text);
    EXPECT_EQ(text.View(), "      shop.a:32.00 \tCorrupt\n      shop.b:32 \tx");
}

TEST(AppendTableError, WritesInTheEncodingOfTheDescription)
{
    UtCString text;
    sql::AppendTableError({UtCString("shop.\xC3\xA4", UT_ENCODING_UTF8), "error", "\xFC"}, text);
    EXPECT_EQ(text.View(), "shop.\xE4: \xFC");
    UtCString unicode(UT_ENCODING_UTF8);
    sql::AppendDatabaseError({"\xE4", "error", "\xFC"}, "32", unicode);
    EXPECT_EQ(unicode.View(), "      \xC3\xA4:32 \t\xC3\xBC");
}

TEST(RepairableMessage, AsksInGerman)
{
    const UtCString message = sql::RepairableMessage("kalk", "      kalk.a:32 \tx");
    EXPECT_EQ(message.GetEncodingType(), ansi);
    EXPECT_EQ(message.View(),
              "Die Datenbank kalk ist defekt, kann aber wahrscheinlich repariert werden.\nErstellen Sie zuerst eine "
              "Datensicherung dieser Datenbank bevor Sie die\nReparatur durchf\xFChren.\n\n\nFehlerbeschreibung:\n     "
              " kalk.a:32 \tx\n\n\nM\xF6"
              "chten Sie die Datenbank jetzt reparieren?\n\n");
}

TEST(NotRepairableMessage, SaysSoInGerman)
{
    const UtCString message = sql::NotRepairableMessage("100%s", UtCString("\xC3\xA4", UT_ENCODING_UTF8));
    EXPECT_EQ(message.GetEncodingType(), ansi);
    EXPECT_EQ(message.View(), "Die Datenbank 100%s ist defekt und kann NICHT repariert werden!\nSie m\xFCssen diese "
                              "Datenbank von Ihrer Datensicherung zur\xFC"
                              "ckholen.\n\n\nFehlerbeschreibung:\n\xE4\n\n\n");
}

} // namespace
