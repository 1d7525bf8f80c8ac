#include "CMyDatabase.h"
#include "CMyTable.h"
#include "Settings.h"
#include "harness/PrivateServer.h"
#include "metadata/FieldCache.h"
#include "metadata/FieldTypes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

CMyServer TesterSettings()
{
    const harness::ServerAccess& access = harness::PrivateServer::Get().Tester();
    return server_test::SettingsOf(access, "");
}

std::string Text(const UtCString& text)
{
    return std::string(text.View());
}

/// A database of its own with a connection of the library to it.
class MetadataTypes : public testing::Test
{
protected:
    MetadataTypes() : m_database(TesterSettings(), m_temporary.Name().c_str()) {}

    void SetUp() override { CFieldCache::Instance().RemoveAll(); }

    CMyTable Create(const std::string& columns)
    {
        m_temporary.Sql().Run("CREATE TABLE t (" + columns + ")");
        return CMyTable(&m_database, "t");
    }

    harness::TemporaryDatabase m_temporary;
    CMyDatabase m_database;
};

struct ColumnCase
{
    const char* declaration;
    unsigned type;
    const char* typeName;
    long size;
};

// On a connection that speaks utf8mb4, the client's default: four bytes to a letter, whatever the column's own set.
constexpr ColumnCase columnCases[] = {
    {"TINYINT", 3, "byte", 4},
    {"TINYINT(1)", 3, "byte", 1},
    {"TINYINT UNSIGNED", 3, "byte", 3},
    {"BOOLEAN", 3, "byte", 1},
    {"SMALLINT", 3, "short", 6},
    {"MEDIUMINT", 16, "int24", 9},
    {"INT", 4, "long", 11},
    {"INT UNSIGNED", 4, "long", 10},
    {"BIGINT", 16, "int64", 20},
    {"FLOAT", 21, "float", 12},
    {"DOUBLE", 7, "double", 22},
    {"DECIMAL(10,2)", 0, "unbekannt", 12},
    {"DATE", 23, "date", 10},
    {"TIME", 23, "time", 10},
    {"DATETIME", 23, "datetime", 19},
    {"TIMESTAMP", 23, "timestamp", 19},
    {"YEAR", 0, "year", 4},
    {"BIT(3)", 0, "unbekannt", 3},
    {"CHAR(10)", 10, "string[40]", 40},
    {"CHAR(10) CHARACTER SET latin1", 10, "string[40]", 40},
    {"VARCHAR(20)", 10, "varchar[80]", 80},
    {"VARCHAR(20) CHARACTER SET ucs2", 10, "varchar[80]", 80},
    {"BINARY(3)", 10, "string[3]", 3},
    {"VARBINARY(4)", 10, "varchar[4]", 4},
    {"TINYBLOB", 11, "blob", 255},
    {"BLOB", 11, "blob", 65535},
    {"MEDIUMBLOB", 11, "blob", 16777215},
    {"LONGBLOB", 11, "blob", -1},
    {"TINYTEXT", 12, "blob", 1020},
    {"TEXT", 12, "blob", 262140},
    {"MEDIUMTEXT", 12, "blob", 67108860},
    {"LONGTEXT", 12, "blob", -1},
    {"TEXT COLLATE utf8mb4_bin", 11, "blob", 262140},
    {"ENUM('a','b')", 10, "string[4]", 4},
    {"SET('a','b')", 10, "string[12]", 12},
    {"GEOMETRY", 0, "geometry", -1},
};

TEST_F(MetadataTypes, EveryColumnTypeIsClassifiedAndNamed)
{
    std::string columns;
    for (size_t i = 0; i < std::size(columnCases); ++i)
        columns += (i ? ", c" : "c") + std::to_string(i) + " " + columnCases[i].declaration;
    const CMyTable table = Create(columns);
    ASSERT_EQ(table.GetFieldCount(), static_cast<long>(std::size(columnCases)));
    for (size_t i = 0; i < std::size(columnCases); ++i) {
        const UtCString name(("C" + std::to_string(i)).c_str());
        const ColumnCase& row = columnCases[i];
        EXPECT_EQ(static_cast<unsigned>(table.GetFieldType(name)), row.type) << row.declaration;
        EXPECT_EQ(Text(table.GetFieldTypeString(name)), row.typeName) << row.declaration;
        EXPECT_EQ(table.GetFieldSize(name), row.size) << row.declaration;
    }
}

TEST_F(MetadataTypes, AViewTellsTheBlobSizesApart)
{
    m_temporary.Sql().Run("CREATE TABLE b (c1 TINYBLOB, c2 BLOB, c3 MEDIUMBLOB, c4 LONGBLOB)");
    m_temporary.Sql().Run("CREATE VIEW v AS SELECT * FROM b");
    const CMyTable view(&m_database, "v");
    EXPECT_EQ(Text(view.GetFieldTypeString("c1")), "memo");
    EXPECT_EQ(Text(view.GetFieldTypeString("c2")), "blob");
    EXPECT_EQ(Text(view.GetFieldTypeString("c3")), "memo");
    EXPECT_EQ(Text(view.GetFieldTypeString("c4")), "blob");
    for (const char* name : {"c1", "c2", "c3", "c4"})
        EXPECT_EQ(view.GetFieldType(name), MYTYPE_BLOB) << name;
}

TEST_F(MetadataTypes, DescribesFlagsDefaultsAndDecimals)
{
    const CMyTable table = Create("id INT PRIMARY KEY AUTO_INCREMENT, Name VARCHAR(20) NOT NULL DEFAULT 'x''y', "
                                  "price DECIMAL(10,2) DEFAULT 1.5, note TEXT, when_done DATETIME DEFAULT NULL, "
                                  "k INT UNIQUE");
    EXPECT_EQ(table.GetField(0UL)->GetFlags() & 0x203U, 0x203U) << "NOT_NULL, PRI_KEY, AUTO_INCREMENT";
    EXPECT_EQ(Text(table.GetFieldName(1)), "Name");
    EXPECT_EQ(Text(table.GetField(1UL)->GetDefault()), "x'y");
    EXPECT_EQ(Text(table.GetField(2UL)->GetDefault()), "1.50");
    EXPECT_EQ(table.GetField(2UL)->GetDecimals(), 2U);
    EXPECT_EQ(table.GetField(2UL)->GetMySQLType(), 246U);
    EXPECT_EQ(Text(table.GetField(3UL)->GetDefault()), "");
    EXPECT_EQ(Text(table.GetField(4UL)->GetDefault()), "");
    EXPECT_EQ(table.GetField(5UL)->GetFlags() & 2U, 0U) << "a unique key is no primary key";
}

TEST_F(MetadataTypes, GivesTheCharacterSetOfTheConnectionForTextsAndBinaryForTheRest)
{
    const CMyTable table =
        Create("t1 VARCHAR(3) CHARACTER SET latin1, t2 VARCHAR(3) CHARACTER SET utf32, b BLOB, n INT");
    unsigned int nr = 0;
    for (const char* name : {"t1", "t2"}) {
        EXPECT_TRUE(table.GetFieldCharsetNr(name, nr));
        EXPECT_EQ(metadata::EncodingOfCharset(nr), UT_ENCODING_UTF8) << name;
    }
    for (const char* name : {"b", "n"}) {
        EXPECT_TRUE(table.GetFieldCharsetNr(name, nr));
        EXPECT_EQ(nr, 63U) << name;
    }
}

struct CharsetCase
{
    const char* charset;
    int encoding;
};

constexpr CharsetCase charsetCases[] = {
    {"utf8mb4", 65001}, {"utf8mb3", 65001}, {"utf16", 1201}, {"ucs2", 1201},  {"utf16le", 1200},
    {"utf32", 65535},   {"latin1", 256},    {"cp1250", 256}, {"binary", 256}, {"cp850", 256},
};

TEST_F(MetadataTypes, KnowsTheEncodingOfEveryClassicCollationOfTheServer)
{
    for (const CharsetCase& row : charsetCases) {
        const auto collations = m_temporary.Sql().Rows(
            std::string("SELECT ID, COLLATION_NAME FROM information_schema.COLLATIONS WHERE ID < 310 AND "
                        "CHARACTER_SET_NAME = '") +
            row.charset + "'");
        EXPECT_FALSE(collations.empty()) << row.charset;
        for (const auto& collation : collations)
            EXPECT_EQ(static_cast<int>(metadata::EncodingOfCharset(static_cast<unsigned>(std::stoul(*collation[0])))),
                      row.encoding)
                << *collation[1];
    }
}

TEST_F(MetadataTypes, Kept_K29_TakesANewCollationForSingleByteWhereTheServerReportsIt)
{
    m_temporary.Sql().Run("CREATE TABLE t (a VARCHAR(3) COLLATE utf8mb4_croatian_ci, b VARCHAR(3) COLLATE "
                          "utf8mb4_unicode_ci)");
    ASSERT_EQ(m_database.ExecuteQuery("SET character_set_results=NULL", false, nullptr, false), 0);
    const CMyTable table(&m_database, "t");
    unsigned int nr = 0;
    EXPECT_TRUE(table.GetFieldCharsetNr("a", nr));
    EXPECT_GE(nr, 576U);
    EXPECT_EQ(metadata::EncodingOfCharset(nr), UT_ENCODING_DEFAULT);
    EXPECT_TRUE(table.GetFieldCharsetNr("b", nr));
    EXPECT_EQ(nr, 224U);
}

} // namespace
