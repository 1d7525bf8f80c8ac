#include "CopyFixture.h"

namespace {

using server_test::CopyJob;
using server_test::Texts;

/// What a database holds, and whether its copy is equal to it.
struct Schema
{
    const char* name;
    Texts statements;
};

void PrintTo(const Schema& schema, std::ostream* stream)
{
    *stream << schema.name;
}

class CopySchema : public server_test::CopyFixture, public testing::WithParamInterface<Schema>
{
};

TEST_P(CopySchema, IsEqualAfterTheCopy)
{
    CopyJob job(Access(), m_folder.Path());
    for (const std::string& statement : GetParam().statements)
        job.sql.Run(statement);
    const auto before = job.Checksums("mydb_from");
    ASSERT_FALSE(before.empty());
    ASSERT_TRUE(job.Copy()) << job.target.GetLastSQLCommand().string() << job.target.GetErrorMessage().string();
    EXPECT_EQ(job.Checksums("mydb_to"), before);
    EXPECT_EQ(job.Checksums("mydb_from"), before);
    EXPECT_EQ(job.TemporaryFiles(), Texts());
    EXPECT_TRUE(job.IsUnlocked());
    for (const auto& [table, sum] : before) {
        EXPECT_EQ(job.sql.Rows("SHOW CREATE TABLE mydb_to.`" + table + "`"),
                  job.sql.Rows("SHOW CREATE TABLE mydb_from.`" + table + "`"));
    }
}

const std::string tenRows = " FROM seq_1_to_10";

const Schema schemas[] = {
    {"Integers",
     {"CREATE TABLE t (a TINYINT, b SMALLINT, c MEDIUMINT, d INT, e BIGINT, f TINYINT UNSIGNED, g SMALLINT UNSIGNED,"
      " h MEDIUMINT UNSIGNED, i INT UNSIGNED, j BIGINT UNSIGNED, k BOOL, l INT(8) ZEROFILL)",
      "INSERT INTO t VALUES (-128, -32768, -8388608, -2147483648, -9223372036854775808, 0, 0, 0, 0, 0, 0, 0),"
      " (127, 32767, 8388607, 2147483647, 9223372036854775807, 255, 65535, 16777215, 4294967295, 18446744073709551615,"
      " 1, 42)"}},
    {"Fractions",
     {"CREATE TABLE t (a FLOAT, b DOUBLE, c DECIMAL(65,30), d DECIMAL(10,0), e FLOAT UNSIGNED, f DOUBLE(10,3))",
      "INSERT INTO t VALUES (0.1, 0.1, 12345678901234567890123456789012345.123456789012345678901234567890, -1, 3, 1.5),"
      " (1e38, 1.7976931348623157e308, -0.000000000000000000000000000001, 0, 0, -9999999.999),"
      " (1e-38, 2.2250738585072014e-308, 0, 9999999999, 1, 0)"}},
    {"Bits",
     {"CREATE TABLE t (a BIT(1), b BIT(8), c BIT(64))",
      "INSERT INTO t VALUES (0, 0, 0), (1, 255, 18446744073709551615), (1, 92, 34), (0, 10, 13)"}},
    {"Dates",
     {"CREATE TABLE t (a DATE, b TIME, c DATETIME, d TIMESTAMP NULL, e YEAR, f TIME(6), g DATETIME(6), h TIMESTAMP(3) "
      "NULL)",
      "INSERT INTO t VALUES ('1000-01-01', '-838:59:59', '1000-01-01 00:00:00', '1970-01-02 00:00:01', 1901,"
      " '00:00:00.000001', '9999-12-31 23:59:59.999999', '2038-01-01 00:00:00.999'),"
      " ('2024-02-29', '838:59:59', '2024-02-29 12:34:56', NOW(), 2155, '12:34:56.789', '2024-02-29 00:00:00.5', "
      "NOW())"}},
    {"Texts",
     {"CREATE TABLE t (a CHAR(10), b VARCHAR(500), c TINYTEXT, d TEXT, e MEDIUMTEXT, f LONGTEXT, g ENUM('a','b "
      "c','\xC3\xB6'),"
      " h SET('x','y','z'), i JSON)",
      "INSERT INTO t VALUES ('abc', 'M\xC3\xBCller', 'x', REPEAT('text ', 1000), REPEAT('y', 100000), REPEAT('z', "
      "500000),"
      " '\xC3\xB6', 'x,z', '{\"a\": [1, \"b\"]}'), ('', '', '', '', '', '', 'b c', '', '[]')"}},
    {"Bytes",
     {"CREATE TABLE t (a BINARY(4), b VARBINARY(100), c TINYBLOB, d BLOB, e MEDIUMBLOB, f LONGBLOB, g INET6, h UUID)",
      "INSERT INTO t VALUES (x'00010203', x'ff00fe', x'5c', x'22', x'27', x'1a0a0d', '::1', UUID()),"
      " ('', '', '', '', '', '', 'ffff::', '00000000-0000-0000-0000-000000000000')"}},
    {"Shapes",
     {"CREATE TABLE t (a POINT, b GEOMETRY)",
      "INSERT INTO t VALUES (POINT(1, 2), ST_GeomFromText('POLYGON((0 0, 1 0, 1 1, 0 0))')), (NULL, NULL)"}},
    {"NullEverywhere",
     {"CREATE TABLE t (a INT, b VARCHAR(10), c BLOB, d DATE, e DOUBLE, f ENUM('a'), g BIT(3), h JSON)",
      "INSERT INTO t SELECT NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL" + tenRows}},
    {"EveryByte",
     {"CREATE TABLE t (a INT PRIMARY KEY, b BLOB)", "INSERT INTO t SELECT seq, CHAR(seq) FROM seq_0_to_255",
      "INSERT INTO t SELECT 1000 + seq, CHAR(seq DIV 256, seq MOD 256) FROM seq_0_to_65535"}},
    {"WhatDumpsAreMadeOf",
     {"CREATE TABLE t (a INT, b VARCHAR(100), c VARCHAR(100))",
      "INSERT INTO t VALUES (1, '\\\\N', 'NULL'), (2, '\"', ','), (3, '\",\"', '\\r\\n'), (4, '\\\\', '\\\\\\\\'),"
      " (5, '\\'', '\\n'), (6, '\\t', '\\r'), (7, '', ' '), (8, '\\0', '\\Z'), (9, '\\\\\"', '\"\"'),"
      " (10, '\\\\r\\\\n', '%s')"}},
    {"Utf8mb4",
     {"CREATE TABLE t (a VARCHAR(100), b TEXT)",
      "INSERT INTO t VALUES ('\xF0\x9F\x98\x80', '\xE6\x97\xA5\xE6\x9C\xAC'), ('\xC3\xBC\\\\', '\xE2\x82\xAC\"')"}},
    {"Latin1Columns",
     {"CREATE TABLE t (a VARCHAR(100) CHARACTER SET latin1, b TEXT CHARACTER SET latin1)",
      "INSERT INTO t VALUES ('M\xC3\xBCller', '\xE2\x82\xAC'), ('\xC3\x9F\xC3\xA9', '')"}},
    {"Utf16Columns",
     {"CREATE TABLE t (a VARCHAR(100) CHARACTER SET utf16, b TEXT CHARACTER SET ucs2, c TEXT CHARACTER SET utf32)",
      "INSERT INTO t VALUES ('\xF0\x9F\x98\x80\xC3\xBC', '\xE6\x97\xA5', '\xF0\x9F\x98\x80'), ('\\\\', '\"', ',')"}},
    {"EmptyTables", {"CREATE TABLE t (a INT)", "CREATE TABLE u (a VARCHAR(10) NOT NULL, b BLOB)"}},
    {"AutoIncrement",
     {"CREATE TABLE t (a INT PRIMARY KEY AUTO_INCREMENT, b VARCHAR(10))", "INSERT INTO t (b) VALUES ('x'), ('y')",
      "INSERT INTO t VALUES (1000, 'z'), (-5, 'n')"}},
    {"MyIsam",
     {"CREATE TABLE t (a INT PRIMARY KEY, b TEXT, FULLTEXT(b)) ENGINE=MyISAM",
      "INSERT INTO t SELECT seq, CONCAT('text ', seq)" + tenRows}},
    {"Aria",
     {"CREATE TABLE t (a INT PRIMARY KEY, b TEXT, KEY(b(10))) ENGINE=Aria",
      "INSERT INTO t SELECT seq, CONCAT('text ', seq)" + tenRows}},
    {"InnoDb",
     {"CREATE TABLE t (a INT PRIMARY KEY, b TEXT, UNIQUE(b(10))) ENGINE=InnoDB ROW_FORMAT=COMPRESSED",
      "INSERT INTO t SELECT seq, CONCAT('text ', seq)" + tenRows}},
    {"Memory", {"CREATE TABLE t (a INT) ENGINE=MEMORY", "INSERT INTO t SELECT seq" + tenRows}},
    {"Partitions",
     {"CREATE TABLE t (a INT PRIMARY KEY) PARTITION BY HASH(a) PARTITIONS 4", "INSERT INTO t SELECT seq" + tenRows}},
    {"ForeignKeysInOrder",
     {"CREATE TABLE a (id INT PRIMARY KEY)",
      "CREATE TABLE b (id INT PRIMARY KEY, a INT, FOREIGN KEY (a) REFERENCES a (id))", "INSERT INTO a VALUES (1), (2)",
      "INSERT INTO b VALUES (1, 1), (2, NULL)"}},
    {"DefaultsAndComments",
     {"CREATE TABLE t (a INT NOT NULL DEFAULT 7 COMMENT 'it''s \"so\"', b TIMESTAMP DEFAULT CURRENT_TIMESTAMP ON UPDATE"
      " CURRENT_TIMESTAMP, c VARCHAR(10) DEFAULT '\xC3\xBC', CHECK (a > 0)) COMMENT='\xE2\x82\xAC'",
      "INSERT INTO t (a) VALUES (1), (2)"}},
    {"UmlautsInNames",
     {"CREATE TABLE gr\xC3\xB6\xC3\x9F"
      "e (stra\xC3\x9F"
      "e VARCHAR(10), KEY `\xC3\xBC` (stra\xC3\x9F"
      "e))",
      "INSERT INTO gr\xC3\xB6\xC3\x9F"
      "e VALUES ('x')"}},
    {"NamesInOtherScripts",
     {"CREATE TABLE `\xE6\x97\xA5\xE6\x9C\xAC` (a INT)", "INSERT INTO `\xE6\x97\xA5\xE6\x9C\xAC` VALUES (1)",
      "CREATE TABLE `\xCE\xB3\xCE\xB5\xCE\xB9\xCE\xAC` (a INT)"}},
    {"WideTable",
     [] {
         std::string columns;
         std::string values;
         for (int i = 0; i < 190; ++i) {
             columns += (i ? ", c" : "c") + std::to_string(i) + " VARCHAR(10)";
             values += i ? (i % 3 ? ", 'v'" : ", NULL") : "'v'";
         }
         return Texts{"CREATE TABLE t (" + columns + ")", "INSERT INTO t VALUES (" + values + ")"};
     }()},
    {"ThreeHundredTables",
     [] {
         Texts statements;
         for (int i = 0; i < 300; ++i) {
             const std::string name = "t" + std::to_string(i);
             statements.push_back("CREATE TABLE " + name + " (a INT, b VARCHAR(10)) ENGINE=MyISAM");
             statements.push_back("INSERT INTO " + name + " VALUES (" + std::to_string(i) + ", 'x')");
         }
         return statements;
     }()},
    {"OneRowOf16MiB",
     {"CREATE TABLE t (a INT, b LONGBLOB, c INT)", "INSERT INTO t VALUES (1, REPEAT('x\"\\\\,', 4194304), 2)"}},
    {"GeneratedColumns",
     {"CREATE TABLE t (a INT, b INT AS (a * 2) STORED, c INT AS (a + 1) VIRTUAL)",
      "INSERT INTO t (a) VALUES (1), (2)"}},
    {"Sequence", {"CREATE SEQUENCE s START WITH 5"}},
    {"Compressed", {"CREATE TABLE t (a TEXT COMPRESSED)", "INSERT INTO t VALUES (REPEAT('a', 1000))"}},
    {"FixedChars",
     {"CREATE TABLE t (a CHAR(10) BINARY, b CHAR(5) CHARACTER SET gbk, c VARCHAR(10) CHARACTER SET sjis)",
      "INSERT INTO t VALUES ('x ', '\xE4\xB8\xAD', '\xE8\xA1\xA8\xE8\x83\xBD')"}},
};

INSTANTIATE_TEST_SUITE_P(Schemas, CopySchema, testing::ValuesIn(schemas),
                         [](const auto& schema) { return std::string(schema.param.name); });

class CopyDatabase : public server_test::CopyFixture
{
};

/// The time of day in the name of a dump file as 000000.
Texts WithoutTimes(Texts statements)
{
    for (std::string& statement : statements)
        if (const size_t at = statement.find("_tmp'"); at != std::string::npos)
            statement.replace(at - 6, 6, "000000");
    return statements;
}

TEST_F(CopyDatabase, SendsTheStatementsThatItDocuments)
{
    CopyJob job(Access(), m_folder.Path());
    job.sql.Run("CREATE TABLE a (x int(11) DEFAULT NULL) ENGINE=MyISAM");
    job.sql.Run("CREATE TABLE b (y int(11) DEFAULT NULL) ENGINE=MyISAM");
    ASSERT_TRUE(job.source.Open(false, ""));
    const harness::GeneralLog log(s_server->GeneralLogFile()); // leaves out a semicolon at the end of a statement
    ASSERT_TRUE(job.Copy());
    EXPECT_EQ(log.Statements(job.source.GetThreadID()),
              (Texts{"SHOW TABLES", "FLUSH TABLES `a`, `b`", "LOCK TABLES `a` READ, `b` READ", "SELECT * FROM a",
                     "SELECT * FROM b", "UNLOCK TABLES", "SHOW CREATE TABLE `mydb_from`.`a`",
                     "SHOW CREATE TABLE `mydb_from`.`b`"}));
    const std::string load = "LOAD DATA LOCAL INFILE '" + job.temp.generic_string() + "/";
    const std::string format =
        " FIELDS TERMINATED BY ',' ENCLOSED BY '\"' ESCAPED BY '\\\\' LINES TERMINATED BY '\\r\\n'";
    const std::string options = " ENGINE=MyISAM DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_general_ci";
    EXPECT_EQ(
        WithoutTimes(log.Statements(job.target.GetThreadID())),
        (Texts{"CREATE DATABASE `mydb_to`", "CREATE TABLE `mydb_to`.`a` (\n  `x` int(11) DEFAULT NULL\n)" + options,
               "SET NAMES utf8", load + "a.000000_tmp' INTO TABLE `mydb_to`.`a`" + format, "SET NAMES DEFAULT",
               "CREATE TABLE `mydb_to`.`b` (\n  `y` int(11) DEFAULT NULL\n)" + options, "SET NAMES utf8",
               load + "b.000000_tmp' INTO TABLE `mydb_to`.`b`" + format, "SET NAMES DEFAULT"}));
}

TEST_F(CopyDatabase, CarriesTheFilesBesideTheTables)
{
    CopyJob job(Access(), m_folder.Path());
    job.sql.Run("CREATE TABLE a (x INT)");
    ASSERT_TRUE(job.Copy());
    EXPECT_TRUE(std::filesystem::exists(m_folder.Path() / "two" / "DBS" / "mydb_to" / "notes.txt"));
}

TEST_F(CopyDatabase, WorksWhereTheFolderForTemporaryFilesHasUmlautsInItsName)
{
    CopyJob job(Access(), m_folder.Path() / u8"J\u00F6rg");
    job.sql.Run("CREATE TABLE a (x INT)");
    job.sql.Run("INSERT INTO a VALUES (1), (2)");
    ASSERT_TRUE(job.Copy()) << job.target.GetErrorMessage().string();
    EXPECT_EQ(job.Checksums("mydb_to"), job.Checksums("mydb_from"));
}

TEST_F(CopyDatabase, LeavesTheTargetInTheNewDatabase)
{
    CopyJob job(Access(), m_folder.Path());
    job.sql.Run("CREATE TABLE a (x INT)");
    ASSERT_TRUE(job.Copy());
    EXPECT_EQ(job.target.ExecuteQuery("INSERT INTO a VALUES (1)", false, nullptr, false), 1);
    EXPECT_EQ(job.sql.Column("SELECT x FROM mydb_to.a"), Texts{"1"});
}

TEST_F(CopyDatabase, CopiesToAnotherServer)
{
    const harness::ServerProcess other({"--character-set-server=utf8mb4"});
    CopyJob job(Access(), m_folder.Path());
    job.sql.Run("CREATE TABLE a (x VARCHAR(20))");
    job.sql.Run("INSERT INTO a VALUES ('M\xC3\xBCller'), (NULL)");
    harness::RawConnection there(other.Administrator());
    there.Run("CREATE DATABASE mydb_to");
    CMyDatabase target(CopyJob::Settings(other.Administrator(), m_folder.Path() / "two", "utf8mb4"), "mydb_to");
    ASSERT_TRUE(target.Open(false, ""));
    there.Run("DROP DATABASE mydb_to");
    ASSERT_TRUE(job.source.CopyDatabase(target, nullptr));
    EXPECT_EQ(there.Rows("CHECKSUM TABLE mydb_to.a")[0][1], job.Checksums("mydb_from").at("a"));
    EXPECT_FALSE(job.HasTarget());
}

TEST_F(CopyDatabase, RefusesATargetThatTheSettingsFileKnows)
{
    WithSource({"CREATE TABLE a (x INT)"}, [](CopyJob& job) {
        job.sql.Run("CREATE DATABASE mydb_to");
        EXPECT_FALSE(job.Copy());
        EXPECT_TRUE(job.HasTarget());
        EXPECT_EQ(job.messages.WaitBegins(), 0);
        job.sql.Run("DROP DATABASE mydb_to");
    });
}

} // namespace
