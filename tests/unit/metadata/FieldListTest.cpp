#include "metadata/FieldList.h"

#include <gtest/gtest.h>
#include <mysql.h>

#include <string>

namespace {

std::string Text(const UtCString& text)
{
    return std::string(text.View());
}

CMyField Column(const char* name, unsigned flags = 0)
{
    return CMyField(name, MYTYPE_LONG, 3, 11, flags, 0, "", 63);
}

TEST(FieldList, QuotesEveryNameInUpperCaseInTheServersOrder)
{
    CTableCache entry("PRICES");
    entry.AppendField(Column("id"));
    entry.AppendField(Column("Name"));
    entry.AppendField(Column("price"));
    EXPECT_EQ(Text(metadata::FieldList(entry)), "`ID`, `NAME`, `PRICE`");
}

TEST(FieldList, OfOneColumnHasNoSeparator)
{
    CTableCache entry("T");
    entry.AppendField(Column("id"));
    EXPECT_EQ(Text(metadata::FieldList(entry)), "`ID`");
}

TEST(FieldList, KeepsAnEmptyNameInItsPlace)
{
    CTableCache entry("T");
    entry.AppendField(Column(""));
    entry.AppendField(Column("a"));
    EXPECT_EQ(Text(metadata::FieldList(entry)), "``, `A`");
}

TEST(FieldList, OfNoColumnsIsEmpty)
{
    EXPECT_EQ(Text(metadata::FieldList(CTableCache("T"))), "");
}

struct Exclusion
{
    const char* what;
    const char* list;
    const char* exclude;
    const char* rest;
};

constexpr Exclusion exclusions[] = {
    {"nothing", "`ID`, `NAME`, `PRICE`", "", "`ID`, `NAME`, `PRICE`"},
    {"the first", "`ID`, `NAME`, `PRICE`", "ID", "`NAME`, `PRICE`"},
    {"one in the middle", "`ID`, `NAME`, `PRICE`", "NAME", "`ID`, `PRICE`"},
    {"the last", "`ID`, `NAME`, `PRICE`", "PRICE", "`ID`, `NAME`"},
    {"the only one", "`ID`", "ID", ""},
    {"two neighbours", "`A`, `B`, `C`, `D`", "B,C", "`A`, `D`"},
    {"the last two, last first", "`A`, `B`, `C`", "C,B", "`A`"},
    {"the last two, in order", "`A`, `B`, `C`", "B,C", "`A`"},
    {"all", "`A`, `B`, `C`", "A,B,C", ""},
    {"all, in reverse", "`A`, `B`, `C`", "C,B,A", ""},
    {"in lower case", "`ID`, `NAME`", "name", "`ID`"},
    {"a list in mixed case, which stays as it is", "`Id`, `Name`, `Price`", "NAME", "`Id`, `Price`"},
    {"in backticks", "`ID`, `NAME`, `PRICE`", "`NAME`", "`ID`, `PRICE`"},
    {"in backticks, with blanks", "`ID`, `NAME`, `PRICE`", " `id` , `price` ", "`NAME`"},
    {"an unknown name", "`ID`, `NAME`", "NO", "`ID`, `NAME`"},
    {"part of a name", "`ID`, `NAME`, `PRICE`", "NAM", "`ID`, `NAME`, `PRICE`"},
    {"the end of a name", "`ID`, `NAME`, `PRICE`", "ME", "`ID`, `NAME`, `PRICE`"},
    {"one of three names that contain it", "`LASTNAME`, `NAME`, `NAME2`", "NAME", "`LASTNAME`, `NAME2`"},
    {"a name that others contain, first and last", "`NAME2`, `LASTNAME`", "NAME", "`NAME2`, `LASTNAME`"},
    {"the end of a name with a backtick", "`A`B`, `C`", "B", "`A`B`, `C`"},
    {"the beginning of a name with a backtick", "`A`B`, `C`", "A", "`A`B`, `C`"},
    {"the beginning of a name with a comma", "`A,B`, `C`", "A", "`A,B`, `C`"},
    {"the end of the last name, which has a backtick", "`C`, `A`B`", "B", "`C`, `A`B`"},
    {"one with a blank before its comma", "`A` , `B`", "A", "`B`"},
    {"empty names between commas", "`ID`, `NAME`", ",, ,ID,", "`NAME`"},
    {"an empty name, which stays in the list", "``, `A`", ",", "``, `A`"},
    {"only commas", "`ID`, `NAME`", ",", "`ID`, `NAME`"},
    {"one of two equal columns", "`A`, `B`, `A`", "A", "`B`, `A`"},
    {"both of two equal columns, named twice", "`A`, `B`, `A`", "A,A", "`B`"},
    {"a name without backticks in the list", "ID, NAME", "NAME", "ID, NAME"},
    {"a name with a blank", "`MY ID`, `NAME`", "my id", "`NAME`"},
    {"a list without blanks", "`A`,`B`,`C`", "B", "`A`,`C`"},
    {"a list with many blanks", "`A`,   `B`,    `C`", "NO", "`A`, `B`, `C`"},
    {"a list with blanks and commas at its ends", " , `A`, `B`, ", "NO", "`A`, `B`"},
    {"the last, with blanks behind it", "`A`, `B`  ", "B", "`A`"},
    {"the last, with a comma and a blank behind it", "`A`, `B`, ", "B", "`A`"},
    {"the only one, with blanks around it", " `A` ", "A", ""},
    {"from an empty list", "", "A", ""},
    {"an umlaut", "`GR\xD6SSE`, `ID`", "gr\xF6sse", "`ID`"},
    {"percent signs", "`%s`, `ID`", "%s", "`ID`"},
};

TEST(WithoutFields, RemovesEachNameOnceWithItsSeparator)
{
    for (const Exclusion& row : exclusions)
        EXPECT_EQ(Text(metadata::WithoutFields(row.list, row.exclude)), row.rest) << row.what;
}

TEST(WithoutFields, ComparesAcrossEncodings)
{
    const UtCString exclude("gr\xC3\xB6sse", UT_ENCODING_UTF8);
    EXPECT_EQ(Text(metadata::WithoutFields("`A`, `GR\xD6SSE`, `B`", exclude)), "`A`, `B`");
}

TEST(PrimaryKeyFields, Kept_K24_NamesACompositeKeyInReverseColumnOrder)
{
    CTableCache entry("T");
    entry.AppendField(Column("a", PRI_KEY_FLAG | NOT_NULL_FLAG));
    entry.AppendField(Column("x"));
    entry.AppendField(Column("b", PRI_KEY_FLAG));
    EXPECT_EQ(Text(metadata::PrimaryKeyFields(entry)), "b,a");
}

TEST(PrimaryKeyFields, NamesTheOneColumnOfASimpleKeyAsTheServerSpellsIt)
{
    CTableCache entry("T");
    entry.AppendField(Column("Id", PRI_KEY_FLAG));
    entry.AppendField(Column("x", UNIQUE_KEY_FLAG | MULTIPLE_KEY_FLAG));
    EXPECT_EQ(Text(metadata::PrimaryKeyFields(entry)), "Id");
}

TEST(PrimaryKeyFields, IsEmptyWithoutAKey)
{
    CTableCache entry("T");
    EXPECT_EQ(Text(metadata::PrimaryKeyFields(entry)), "");
    entry.AppendField(Column("a", UNIQUE_KEY_FLAG));
    EXPECT_EQ(Text(metadata::PrimaryKeyFields(entry)), "");
}

struct EngineCase
{
    const char* engine;
    unsigned type;
};

constexpr EngineCase engines[] = {
    {"MyISAM", 1},  {"MYISAM", 1},     {"InnoDB", 2},  {"innodb", 2},  {"BDB", 3},
    {"MEMORY", 4},  {"Memory", 4},     {"HEAP", 4},    {"Heap", 4},    {"MERGE", 5},
    {"EXAMPLE", 6}, {"FEDERATED", 7},  {"ARCHIVE", 8}, {"CSV", 9},     {"BLACKHOLE", 10},
    {"Aria", 0},    {"MRG_MyISAM", 0}, {"", 0},        {"InnoDB ", 0}, {"BerkeleyDB", 0},
};

TEST(TableTypeOfEngine, KnowsTheEnginesOfItsTableInAnyLetterCase)
{
    for (const EngineCase& row : engines)
        EXPECT_EQ(static_cast<unsigned>(metadata::TableTypeOfEngine(row.engine)), row.type) << row.engine;
}

} // namespace
