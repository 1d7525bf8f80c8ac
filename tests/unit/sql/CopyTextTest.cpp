#include "sql/CopyText.h"

#include <gtest/gtest.h>

namespace {

std::string Bytes(const UtCString& text)
{
    EXPECT_EQ(text.GetEncodingType(), UT_ENCODING_UTF8);
    return std::string(text.View());
}

TEST(DumpFileStamp, HasTwoDigitsEach)
{
    EXPECT_EQ(Bytes(sql::DumpFileStamp(14, 30, 5)), "143005_tmp");
    EXPECT_EQ(Bytes(sql::DumpFileStamp(0, 0, 0)), "000000_tmp");
    EXPECT_EQ(Bytes(sql::DumpFileStamp(23, 59, 59)), "235959_tmp");
    EXPECT_EQ(Bytes(sql::DumpFileStamp(9, 8, 7)), "090807_tmp");
}

TEST(DumpFileName, JoinsFolderTableAndStamp)
{
    EXPECT_EQ(Bytes(sql::DumpFileName("C:\\Temp\\", "kunden", "143005_tmp")), "C:\\Temp\\kunden.143005_tmp");
    EXPECT_EQ(Bytes(sql::DumpFileName("\\tmp\\", "a b'c", "000000_tmp")), "\\tmp\\a b'c.000000_tmp");
    EXPECT_EQ(Bytes(sql::DumpFileName("", "", "")), ".");
}

TEST(DumpFileName, ConvertsIntoOneEncoding)
{
    const UtCString folder("/B\xC3\xBCro/", UT_ENCODING_UTF8);
    EXPECT_EQ(Bytes(sql::DumpFileName(folder, "gr\xF6\xDF", "1_tmp")), "/B\xC3\xBCro/gr\xC3\xB6\xC3\x9F.1_tmp");
}

TEST(FlushForCopy, TakesTheListAsItIs)
{
    EXPECT_EQ(Bytes(sql::FlushForCopy("`a`, `b`")), "FLUSH TABLES `a`, `b`;");
}

TEST(LockForReading, PutsReadBehindEachTable)
{
    EXPECT_EQ(Bytes(sql::LockForReading("`a`")), "LOCK TABLES `a` READ;");
    EXPECT_EQ(Bytes(sql::LockForReading("`a`, `b`, `c d`")), "LOCK TABLES `a` READ, `b` READ, `c d` READ;");
    EXPECT_EQ(Bytes(sql::LockForReading("`a,b`, `c`")), "LOCK TABLES `a,b` READ, `c` READ;");
    EXPECT_EQ(Bytes(sql::LockForReading("")), "");
}

TEST(CreateDatabase, QuotesTheName)
{
    EXPECT_EQ(Bytes(sql::CreateDatabase("my shop")), "CREATE DATABASE `my shop`");
    EXPECT_EQ(Bytes(sql::CreateDatabase("a`b")), "CREATE DATABASE `a`b`");
}

TEST(ShowCreateTable, QuotesBothNames)
{
    EXPECT_EQ(Bytes(sql::ShowCreateTable("shop", "order")), "SHOW CREATE TABLE `shop`.`order`");
}

TEST(CreateTableIn, PutsTheDatabaseInFrontOfTheTable)
{
    EXPECT_EQ(Bytes(sql::CreateTableIn("copy", "CREATE TABLE `t` (\n  `a` int(11)\n) ENGINE=MyISAM")),
              "CREATE TABLE `copy`.`t` (\n  `a` int(11)\n) ENGINE=MyISAM");
}

TEST(CreateTableIn, Kept_K157_ChangesTheWordsWhereverTheyStand)
{
    EXPECT_EQ(Bytes(sql::CreateTableIn("c", "CREATE TABLE `t` (`a` text COMMENT 'CREATE TABLE x')")),
              "CREATE TABLE `c`.`t` (`a` text COMMENT 'CREATE TABLE `c`.x')");
}

TEST(CreateTableIn, LeavesOtherStatementsAsTheyAre)
{
    EXPECT_EQ(Bytes(sql::CreateTableIn("c", "CREATE VIEW `v` AS select 1")), "CREATE VIEW `v` AS select 1");
    EXPECT_EQ(Bytes(sql::CreateTableIn("c", "create table `t` (a int)")), "create table `t` (a int)");
    EXPECT_EQ(Bytes(sql::CreateTableIn("c", "")), "");
}

TEST(LoadDumpFile, NamesTheFileWithSlashes)
{
    EXPECT_EQ(Bytes(sql::LoadDumpFile("C:\\Temp\\kunden.143005_tmp", "copy", "kunden")),
              "LOAD DATA LOCAL INFILE 'C:/Temp/kunden.143005_tmp' INTO TABLE `copy`.`kunden` FIELDS TERMINATED BY ','"
              " ENCLOSED BY '\"' ESCAPED BY '\\\\' LINES TERMINATED BY '\\r\\n';");
}

TEST(LoadDumpFile, EscapesNothing)
{
    EXPECT_EQ(Bytes(sql::LoadDumpFile("\\tmp\\o'x.1_tmp", "c", "o'x")),
              "LOAD DATA LOCAL INFILE '/tmp/o'x.1_tmp' INTO TABLE `c`.`o'x` FIELDS TERMINATED BY ','"
              " ENCLOSED BY '\"' ESCAPED BY '\\\\' LINES TERMINATED BY '\\r\\n';");
    EXPECT_EQ(Bytes(sql::LoadDumpFile("", "c", "t")), "");
}

TEST(CopyStatements, ConvertTheirNames)
{
    const UtCString name = "gr\xFC\xDF";
    EXPECT_EQ(Bytes(sql::CreateDatabase(name)), "CREATE DATABASE `gr\xC3\xBC\xC3\x9F`");
    EXPECT_EQ(Bytes(sql::LockForReading("`\xFC`, `b`")), "LOCK TABLES `\xC3\xBC` READ, `b` READ;");
    EXPECT_EQ(Bytes(sql::CreateTableIn(name, "CREATE TABLE `\xE4`")), "CREATE TABLE `gr\xC3\xBC\xC3\x9F`.`\xC3\xA4`");
}

} // namespace
