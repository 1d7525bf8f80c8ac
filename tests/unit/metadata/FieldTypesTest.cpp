#include "metadata/FieldTypes.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>

namespace {

std::string Text(const UtCString& text)
{
    return std::string(text.View());
}

MYSQL_FIELD FieldOf(unsigned type, unsigned flags = 0)
{
    MYSQL_FIELD field{};
    field.type = static_cast<enum_field_types>(type);
    field.flags = flags;
    return field;
}

// ---------------------------------------------------------------------------------------------------------------
// Classification

struct Classification
{
    const char* name;
    unsigned code;
    unsigned usual;      ///< without both of BLOB_FLAG (16) and BINARY_FLAG (128)
    unsigned binaryBlob; ///< with both
};

constexpr Classification classifications[] = {
    {"TINY", 1, 3, 3},
    {"SHORT", 2, 3, 3},
    {"LONG", 3, 4, 4},
    {"FLOAT", 4, 21, 21},
    {"DOUBLE", 5, 7, 7},
    {"TIMESTAMP", 7, 23, 23},
    {"LONGLONG", 8, 16, 16},
    {"INT24", 9, 16, 16},
    {"DATE", 10, 23, 23},
    {"TIME", 11, 23, 23},
    {"DATETIME", 12, 23, 23},
    {"TINY_BLOB", 249, 12, 11},
    {"MEDIUM_BLOB", 250, 12, 11},
    {"LONG_BLOB", 251, 12, 11},
    {"BLOB", 252, 12, 11},
    {"VAR_STRING", 253, 10, 10},
    {"STRING", 254, 10, 10},
};

TEST(ClassifyField, KnowsEveryTypeInItsTable)
{
    for (const Classification& row : classifications) {
        EXPECT_EQ(static_cast<unsigned>(metadata::ClassifyField(FieldOf(row.code))), row.usual) << row.name;
        EXPECT_EQ(static_cast<unsigned>(metadata::ClassifyField(FieldOf(row.code, 0x90))), row.binaryBlob) << row.name;
    }
}

TEST(ClassifyField, LeavesEveryOtherCodeUnclassified)
{
    std::map<unsigned, bool> known;
    for (const Classification& row : classifications)
        known[row.code] = true;
    for (unsigned code = 0; code < 256; ++code) {
        if (!known[code]) {
            EXPECT_EQ(metadata::ClassifyField(FieldOf(code)), MYTYPE_UNKNOWN) << code;
            EXPECT_EQ(metadata::ClassifyField(FieldOf(code, 0xFFFFFFFF)), MYTYPE_UNKNOWN) << code;
        }
    }
}

TEST(ClassifyField, LooksAtTheTwoBlobFlagsAndAtNoOther)
{
    for (const Classification& row : classifications) {
        for (unsigned flags = 0; flags < 0x10000; ++flags) {
            const bool bothFlags = (flags & 16) != 0 && (flags & 128) != 0;
            const unsigned expected = bothFlags ? row.binaryBlob : row.usual;
            ASSERT_EQ(static_cast<unsigned>(metadata::ClassifyField(FieldOf(row.code, flags))), expected)
                << row.name << " with flags " << flags;
        }
    }
}

TEST(ClassifyField, LeavesDecimalsYearsBitsEnumerationsAndGeometriesUnclassified)
{
    for (const enum_field_types type :
         {MYSQL_TYPE_DECIMAL, MYSQL_TYPE_NEWDECIMAL, MYSQL_TYPE_NULL, MYSQL_TYPE_YEAR, MYSQL_TYPE_NEWDATE,
          MYSQL_TYPE_VARCHAR, MYSQL_TYPE_BIT, MYSQL_TYPE_ENUM, MYSQL_TYPE_SET, MYSQL_TYPE_GEOMETRY, MYSQL_TYPE_JSON})
        EXPECT_EQ(metadata::ClassifyField(FieldOf(type)), MYTYPE_UNKNOWN) << type;
}

TEST(ClassifyField, TellsABooleanColumnFromNoOtherSmallInteger)
{
    MYSQL_FIELD field = FieldOf(MYSQL_TYPE_TINY, NUM_FLAG);
    field.length = 1;
    EXPECT_EQ(metadata::ClassifyField(field), MYTYPE_SHORT);
}

TEST(ClassifyField, DoesNotConsultTheCharacterSet)
{
    MYSQL_FIELD blob = FieldOf(MYSQL_TYPE_BLOB, BLOB_FLAG);
    blob.charsetnr = 63;
    EXPECT_EQ(metadata::ClassifyField(blob), MYTYPE_MEMO);
    MYSQL_FIELD binary = FieldOf(MYSQL_TYPE_STRING, BINARY_FLAG);
    binary.charsetnr = 63;
    EXPECT_EQ(metadata::ClassifyField(binary), MYTYPE_TEXT);
}

TEST(ClassifyField, Kept_K20_TakesMediumIntForA64BitInteger)
{
    EXPECT_EQ(metadata::ClassifyField(FieldOf(MYSQL_TYPE_INT24)), MYTYPE_INT64);
}

TEST(MyTypes, CarriesTheValuesThatCrossTheInterface)
{
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_UNKNOWN), 0U);
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_SHORT), 3U);
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_LONG), 4U);
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_DOUBLE), 7U);
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_TEXT), 10U);
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_BLOB), 11U);
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_MEMO), 12U);
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_INT64), 16U);
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_FLOAT), 21U);
    EXPECT_EQ(static_cast<unsigned>(MYTYPE_DATETIME), 23U);
    EXPECT_EQ(sizeof(MYTYPES), 4U);
}

// ---------------------------------------------------------------------------------------------------------------
// Type names

struct TypeName
{
    unsigned code;
    const char* name; ///< of a column of length 60
};

constexpr TypeName typeNames[] = {
    {0, "decimal"},   {1, "byte"},      {2, "short"},    {3, "long"},          {4, "float"},        {5, "double"},
    {6, "null"},      {7, "timestamp"}, {8, "int64"},    {9, "int24"},         {10, "date"},        {11, "time"},
    {12, "datetime"}, {13, "year"},     {14, "newdate"}, {247, "enum"},        {248, "set"},        {249, "memo"},
    {250, "memo"},    {251, "blob"},    {252, "blob"},   {253, "varchar[60]"}, {254, "string[60]"}, {255, "geometry"},
};

TEST(FieldTypeName, NamesEveryTypeInItsTable)
{
    for (const TypeName& row : typeNames)
        EXPECT_EQ(Text(metadata::FieldTypeName(row.code, 60)), row.name) << row.code;
}

TEST(FieldTypeName, CallsEveryOtherCodeUnbekannt)
{
    std::map<unsigned, bool> named;
    for (const TypeName& row : typeNames)
        named[row.code] = true;
    for (unsigned code = 0; code < 300; ++code)
        if (!named[code]) {
            EXPECT_EQ(Text(metadata::FieldTypeName(code, 60)), "unbekannt") << code;
        }
    EXPECT_EQ(Text(metadata::FieldTypeName(std::numeric_limits<unsigned>::max(), 60)), "unbekannt");
}

TEST(FieldTypeName, GivesTheWidthInBytesForTheStringTypesOnly)
{
    EXPECT_EQ(Text(metadata::FieldTypeName(254, 30)), "string[30]");
    EXPECT_EQ(Text(metadata::FieldTypeName(253, 40)), "varchar[40]");
    EXPECT_EQ(Text(metadata::FieldTypeName(253, 0)), "varchar[0]");
    EXPECT_EQ(Text(metadata::FieldTypeName(3, 11)), "long");
}

TEST(FieldTypeName, WritesTheWidthUnsigned)
{
    EXPECT_EQ(Text(metadata::FieldTypeName(253, 2147483648UL)), "varchar[2147483648]");
    EXPECT_EQ(Text(metadata::FieldTypeName(254, 4294967295UL)), "string[4294967295]");
}

TEST(FieldTypeName, IsASingleByteText)
{
    for (unsigned code = 0; code < 256; ++code)
        EXPECT_EQ(metadata::FieldTypeName(code, 5).GetEncodingType(), UT_ENCODING_DEFAULT) << code;
}

TEST(FieldTypeName, Kept_K26_FollowsTheSizeClassAndNotTheClassification)
{
    EXPECT_EQ(metadata::ClassifyField(FieldOf(MYSQL_TYPE_LONG_BLOB, BLOB_FLAG | BINARY_FLAG)), MYTYPE_BLOB);
    EXPECT_EQ(Text(metadata::FieldTypeName(MYSQL_TYPE_LONG_BLOB, 0)), "blob");
    EXPECT_EQ(metadata::ClassifyField(FieldOf(MYSQL_TYPE_TINY_BLOB, BLOB_FLAG | BINARY_FLAG)), MYTYPE_BLOB);
    EXPECT_EQ(Text(metadata::FieldTypeName(MYSQL_TYPE_TINY_BLOB, 0)), "memo");
    EXPECT_EQ(metadata::ClassifyField(FieldOf(MYSQL_TYPE_BLOB, BLOB_FLAG)), MYTYPE_MEMO);
    EXPECT_EQ(Text(metadata::FieldTypeName(MYSQL_TYPE_BLOB, 0)), "blob");
}

TEST(FieldTypeName, NamesADecimalOnlyUnderItsOldCode)
{
    EXPECT_EQ(Text(metadata::FieldTypeName(MYSQL_TYPE_NEWDECIMAL, 12)), "unbekannt");
    EXPECT_EQ(Text(metadata::FieldTypeName(MYSQL_TYPE_DECIMAL, 12)), "decimal");
}

// ---------------------------------------------------------------------------------------------------------------
// Encodings of character sets

struct CharsetRange
{
    unsigned first;
    unsigned last;
    int encoding;
};

constexpr CharsetRange charsets[] = {
    {0, 32, 256},      {33, 33, 65001},   {34, 34, 256},     {35, 35, 1201},    {36, 44, 256},     {45, 46, 65001},
    {47, 53, 256},     {54, 55, 1201},    {56, 56, 1200},    {57, 59, 256},     {60, 61, 65535},   {62, 62, 1200},
    {63, 75, 256},     {76, 76, 65001},   {77, 82, 256},     {83, 83, 65001},   {84, 89, 256},     {90, 90, 1201},
    {91, 100, 256},    {101, 124, 1201},  {125, 127, 256},   {128, 151, 1201},  {152, 158, 256},   {159, 159, 1201},
    {160, 183, 65535}, {184, 191, 256},   {192, 215, 65001}, {216, 222, 256},   {223, 223, 65001}, {224, 247, 65001},
    {248, 254, 256},   {255, 271, 65001}, {272, 272, 256},   {273, 275, 65001}, {276, 276, 256},   {277, 294, 65001},
    {295, 295, 256},   {296, 298, 65001}, {299, 299, 256},   {300, 300, 65001}, {301, 302, 256},   {303, 309, 65001},
    {310, 400, 256},
};

TEST(EncodingOfCharset, IsThatOfTheTableForEveryNumberUpTo400)
{
    unsigned nr = 0;
    for (const CharsetRange& range : charsets) {
        ASSERT_EQ(range.first, nr) << "the table has a gap";
        for (; nr <= range.last; ++nr)
            EXPECT_EQ(static_cast<int>(metadata::EncodingOfCharset(nr)), range.encoding) << nr;
    }
    EXPECT_EQ(nr, 401U);
}

TEST(EncodingOfCharset, TakesTheBinarySetForTheSingleByteEncoding)
{
    EXPECT_EQ(metadata::EncodingOfCharset(63), UT_ENCODING_DEFAULT);
}

TEST(EncodingOfCharset, Kept_K29_TakesNumbersBeyondItsTableForTheSingleByteEncoding)
{
    EXPECT_EQ(metadata::EncodingOfCharset(401), UT_ENCODING_DEFAULT);
    EXPECT_EQ(metadata::EncodingOfCharset(576), UT_ENCODING_DEFAULT) << "utf8mb3_croatian_ci of MariaDB";
    EXPECT_EQ(metadata::EncodingOfCharset(608), UT_ENCODING_DEFAULT) << "utf8mb4_croatian_ci of MariaDB";
    EXPECT_EQ(metadata::EncodingOfCharset(2304), UT_ENCODING_DEFAULT) << "utf8mb4_uca1400_ai_ci of MariaDB";
    EXPECT_EQ(metadata::EncodingOfCharset(std::numeric_limits<unsigned>::max()), UT_ENCODING_DEFAULT);
}

// ---------------------------------------------------------------------------------------------------------------
// Descriptors

char* Mutable(const char* text)
{
    return const_cast<char*>(text);
}

TEST(DescribeField, TakesOverEveryMemberOfTheClientsDescription)
{
    MYSQL_FIELD field = FieldOf(MYSQL_TYPE_VAR_STRING, NOT_NULL_FLAG | PRI_KEY_FLAG);
    field.name = Mutable("alias");
    field.org_name = Mutable("Name");
    field.def = Mutable("Muster");
    field.length = 60;
    field.decimals = 31;
    field.charsetnr = 33;
    const CMyField described = metadata::DescribeField(field);
    EXPECT_EQ(Text(described.GetName()), "Name");
    EXPECT_EQ(described.GetFieldType(), MYTYPE_TEXT);
    EXPECT_EQ(described.GetMySQLType(), 253U);
    EXPECT_EQ(described.GetLength(), 60U);
    EXPECT_EQ(described.GetFlags(), 3U);
    EXPECT_EQ(described.GetDecimals(), 31U);
    EXPECT_EQ(Text(described.GetDefault()), "Muster");
    EXPECT_EQ(described.GetCharsetNr(), 33U);
}

TEST(DescribeField, UsesTheAliasWhereTheColumnHasNoNameOfItsOwn)
{
    MYSQL_FIELD field = FieldOf(MYSQL_TYPE_LONG);
    field.name = Mutable("alias");
    field.org_name = nullptr;
    EXPECT_EQ(Text(metadata::DescribeField(field).GetName()), "alias");
    field.org_name = Mutable("");
    EXPECT_EQ(Text(metadata::DescribeField(field).GetName()), "alias");
}

TEST(DescribeField, GivesAnEmptyTextForAMissingDefaultOrName)
{
    const CMyField described = metadata::DescribeField(FieldOf(MYSQL_TYPE_LONG));
    EXPECT_TRUE(described.GetDefault().IsEmpty());
    EXPECT_TRUE(described.GetName().IsEmpty());
}

TEST(DescribeField, KeepsFlagsAndTypeUnchanged)
{
    const CMyField described = metadata::DescribeField(FieldOf(255, 0xFFFFFFFF));
    EXPECT_EQ(described.GetMySQLType(), 255U);
    EXPECT_EQ(described.GetFlags(), 0xFFFFFFFFU);
}

TEST(DescribeField, KeepsLengthsUpTo32Bits)
{
    MYSQL_FIELD field = FieldOf(MYSQL_TYPE_LONG_BLOB);
    field.length = 4294967295UL;
    EXPECT_EQ(metadata::DescribeField(field).GetLength(), 4294967295U);
}

TEST(DescribeField, CutsALengthBeyond32BitsToTheLargest)
{
    constexpr bool is64Bits = sizeof(unsigned long) > 4;
    MYSQL_FIELD field = FieldOf(MYSQL_TYPE_LONG_BLOB);
    field.length = std::numeric_limits<unsigned long>::max() / 2 + 1;
    EXPECT_EQ(metadata::DescribeField(field).GetLength(), is64Bits ? 4294967295U : 2147483648U);
}

TEST(DescribeField, Kept_K28_TagsTheServersBytesAsSingleByteText)
{
    MYSQL_FIELD field = FieldOf(MYSQL_TYPE_LONG);
    field.org_name = Mutable("gr\xC3\xB6\xC3\x9F"
                             "e");
    field.def = Mutable("\xC3\xA4");
    const CMyField described = metadata::DescribeField(field);
    EXPECT_EQ(described.GetName().GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(Text(described.GetName()), "gr\xC3\xB6\xC3\x9F"
                                         "e");
    EXPECT_EQ(described.GetDefault().GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(Text(described.GetDefault()), "\xC3\xA4");
}

TEST(MyField, IsEmptyWhenBuiltFromNothing)
{
    const CMyField field;
    EXPECT_TRUE(field.GetName().IsEmpty());
    EXPECT_TRUE(field.GetDefault().IsEmpty());
    EXPECT_EQ(field.GetFieldType(), MYTYPE_UNKNOWN);
    EXPECT_EQ(field.GetMySQLType(), 0U);
    EXPECT_EQ(field.GetLength(), 0U);
    EXPECT_EQ(field.GetFlags(), 0U);
    EXPECT_EQ(field.GetDecimals(), 0U);
    EXPECT_EQ(field.GetCharsetNr(), 0U);
}

} // namespace
