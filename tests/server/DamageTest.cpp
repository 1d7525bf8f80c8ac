#include "CMyDatabase.h"
#include "CMyTable.h"
#include "Settings.h"
#include "harness/GeneralLog.h"
#include "harness/MessageRecorder.h"
#include "harness/PrivateServer.h"
#include "harness/ServerProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>

// What the checks find in tables that are really damaged, and what a repair leaves of them. The table of
// docs/kept-behaviours.md comes from here.

namespace {

namespace fs = std::filesystem;
using harness::RawConnection;

enum class Harm
{
    None,
    Cut,     ///< the second half of the file is gone
    Emptied, ///< the file has no bytes
    Missing, ///< the file is gone
    Zeroed,  ///< a quarter of the file, from its middle on, is zeros
    Garbled, ///< the first bytes of the file are zeros
    Crash    ///< the server is killed, with rows just written
};

/// What becomes of a table of 1800 rows.
struct Outcome
{
    std::string quickCheck;       ///< what the server says to CHECK TABLE ... FAST QUICK, "type|text" per row
    eTABLE_CHECK tableCheck;      ///< CMyTable::CheckTable
    eDB_CHECK databaseCheck;      ///< CMyDatabase::CheckDatabaseIntegrity
    bool isDescribed;             ///< the description of the database's damage speaks of the table
    unsigned long integrityError; ///< what CheckAndRepairDatabaseIntegrity records; it is false then
    std::string fullCheck;        ///< what the server says to a plain CHECK TABLE
    bool isRepairedByDefinition;  ///< RepairDatabase went on with USE_FRM
    std::string rowsAfter;        ///< how many rows can be read after it, or the error
    eTABLE_CHECK tableCheckAfter;

    bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome)
{
    return stream << "\n  quick check: " << outcome.quickCheck << "\n  table check: " << outcome.tableCheck
                  << ", database check: " << outcome.databaseCheck << (outcome.isDescribed ? ", described" : "")
                  << ", error " << outcome.integrityError << "\n  full check: " << outcome.fullCheck
                  << "\n  repair: " << (outcome.isRepairedByDefinition ? "USE_FRM" : "EXTENDED")
                  << ", rows: " << outcome.rowsAfter << ", table check: " << outcome.tableCheckAfter;
}

struct DamageCase
{
    const char* name;
    const char* engine;
    const char* extension; ///< of the file that is hurt
    Harm harm;
    Outcome outcome;
};

constexpr const char* upToDate = "status|Table is already up to date";
constexpr const char* sound = "status|OK";

const DamageCase damageCases[] = {
    {"MyISAMSound",
     "MyISAM",
     ".MYI",
     Harm::None,
     {upToDate, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, false, 0, sound, false, "1800", TABLE_CHECK_OK}},
    {"MyISAMIndexCut",
     "MyISAM",
     ".MYI",
     Harm::Cut,
     {upToDate, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, true, 0,
      "warning|Table is marked as crashed; error|Size of indexfile is:    26112        Should be: 52224; error|Corrupt",
      false, "1800", TABLE_CHECK_OK}},
    {"MyISAMIndexEmptied",
     "MyISAM",
     ".MYI",
     Harm::Emptied,
     {"Error|Incorrect file format 't'; error|Corrupt", TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, true, 0,
      "Error|Incorrect file format 't'; error|Corrupt", true, "1800", TABLE_CHECK_OK}},
    {"MyISAMIndexMissing",
     "MyISAM",
     ".MYI",
     Harm::Missing,
     {"Error|Can't find file: './d/t.MYI' (errno: 2 \"No such file or directory\"); status|Operation failed",
      TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, true, 0,
      "Error|Can't find file: './d/t.MYI' (errno: 2 \"No such file or directory\"); status|Operation failed", true,
      "1800", TABLE_CHECK_OK}},
    {"MyISAMDataCut",
     "MyISAM",
     ".MYD",
     Harm::Cut,
     {upToDate, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, true, 0,
      "warning|Table is marked as crashed; error|Size of datafile is:     49320         Should be: 98640; "
      "error|Corrupt",
      false, "900", TABLE_CHECK_OK}},
    {"MyISAMDataZeroed",
     "MyISAM",
     ".MYD",
     Harm::Zeroed,
     {upToDate, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, false, 0,
      "error|Wrong bytesec: 0-0-0 at linkstart: 49320; error|Corrupt", false, "1348", TABLE_CHECK_OK}},
    {"MyISAMDataMissing",
     "MyISAM",
     ".MYD",
     Harm::Missing,
     {"Error|File './d/t.MYD' not found (Errcode: 2 \"No such file or directory\"); error|Corrupt", TABLE_CHECK_DEFECT,
      DB_CHECK_DEFECT, true, 1017,
      "Error|File './d/t.MYD' not found (Errcode: 2 \"No such file or directory\"); error|Corrupt", true, "error 29",
      TABLE_CHECK_DEFECT}},
    {"MyISAMDefinitionGarbled",
     "MyISAM",
     ".frm",
     Harm::Garbled,
     {"Error|Incorrect information in file: './d/t.frm'; error|Corrupt", TABLE_CHECK_DEFECT, DB_CHECK_DEFECT, true,
      1017, "Error|Incorrect information in file: './d/t.frm'; error|Corrupt", true, "error 1033", TABLE_CHECK_DEFECT}},
    {"MyISAMDefinitionMissing",
     "MyISAM",
     ".frm",
     Harm::Missing,
     {"Error|Table 'd.t' doesn't exist; status|Operation failed", TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, false, 0,
      "Error|Table 'd.t' doesn't exist; status|Operation failed", false, "error 1146", TABLE_CHECK_REPAIRABLE}},
    {"MyISAMCrash",
     "MyISAM",
     "",
     Harm::Crash,
     {"warning|1 client is using or hasn't closed the table properly; status|OK", TABLE_CHECK_OK, DB_CHECK_REPAIRABLE,
      false, 0, sound, false, "1620", TABLE_CHECK_OK}},
    {"AriaSound",
     "Aria",
     ".MAI",
     Harm::None,
     {upToDate, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, false, 0, sound, false, "1800", TABLE_CHECK_OK}},
    {"AriaIndexCut",
     "Aria",
     ".MAI",
     Harm::Cut,
     {upToDate, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, true, 0,
      "warning|Table is marked as crashed; error|Can't read indexpage from page: 6, error: 175; Error|Got error '175 "
      "\"File too short; Expected more data in file\"' for './d/t.MAI'; error|Corrupt",
      false, "1800", TABLE_CHECK_OK}},
    {"AriaIndexEmptied",
     "Aria",
     ".MAI",
     Harm::Emptied,
     {"Error|Incorrect file format 't'; error|Corrupt", TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, true, 0,
      "Error|Incorrect file format 't'; error|Corrupt", true, "1800", TABLE_CHECK_OK}},
    {"AriaIndexMissing",
     "Aria",
     ".MAI",
     Harm::Missing,
     {"Error|Can't find file: './d/t.MAI' (errno: 2 \"No such file or directory\"); status|Operation failed",
      TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, true, 0,
      "Error|Can't find file: './d/t.MAI' (errno: 2 \"No such file or directory\"); status|Operation failed", true,
      "1800", TABLE_CHECK_OK}},
    {"AriaDataCut",
     "Aria",
     ".MAD",
     Harm::Cut,
     {upToDate, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, true, 0,
      "warning|Table is marked as crashed; error|Bitmap at page 0 has pages reserved outside of data file length; "
      "error|Corrupt",
      false, "918", TABLE_CHECK_OK}},
    {"AriaDataZeroed",
     "Aria",
     ".MAD",
     Harm::Zeroed,
     {upToDate, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, false, 0,
      "error|Page         8:  Got error: 176 when reading datafile; error|Corrupt", false, "1328", TABLE_CHECK_OK}},
    {"AriaDataMissing",
     "Aria",
     ".MAD",
     Harm::Missing,
     {"Error|File './d/t.MAD' not found (Errcode: 2 \"No such file or directory\"); error|Corrupt",
      TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, true, 0,
      "Error|File './d/t.MAD' not found (Errcode: 2 \"No such file or directory\"); error|Corrupt", true, "error 29",
      TABLE_CHECK_REPAIRABLE}},
    {"AriaDefinitionGarbled",
     "Aria",
     ".frm",
     Harm::Garbled,
     {"Error|Incorrect information in file: './d/t.frm'; error|Corrupt", TABLE_CHECK_DEFECT, DB_CHECK_DEFECT, true,
      1017, "Error|Incorrect information in file: './d/t.frm'; error|Corrupt", true, "error 1033", TABLE_CHECK_DEFECT}},
    {"AriaDefinitionMissing",
     "Aria",
     ".frm",
     Harm::Missing,
     {"Error|Table 'd.t' doesn't exist; status|Operation failed", TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, false, 0,
      "Error|Table 'd.t' doesn't exist; status|Operation failed", false, "error 1146", TABLE_CHECK_REPAIRABLE}},
    {"AriaCrash",
     "Aria",
     "",
     Harm::Crash,
     {upToDate, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, false, 0, sound, false, "1620", TABLE_CHECK_OK}},
    {"InnoDBSound",
     "InnoDB",
     ".ibd",
     Harm::None,
     {sound, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, false, 0, sound, false, "1800", TABLE_CHECK_OK}},
    {"InnoDBCrash",
     "InnoDB",
     "",
     Harm::Crash,
     {sound, TABLE_CHECK_OK, DB_CHECK_REPAIRABLE, false, 0, sound, false, "1620", TABLE_CHECK_OK}},
    {"InnoDBDataCut",
     "InnoDB",
     ".ibd",
     Harm::Cut,
     {"Warning|InnoDB: The B-tree of index PRIMARY is corrupted.; Warning|InnoDB: Index k is marked as corrupted; "
      "error|Corrupt",
      TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, true, 0,
      "Warning|InnoDB: Index PRIMARY is marked as corrupted; Warning|InnoDB: Index k is marked as corrupted; "
      "error|Corrupt",
      false, "error 1030", TABLE_CHECK_REPAIRABLE}},
    {"InnoDBDataEmptied",
     "InnoDB",
     ".ibd",
     Harm::Emptied,
     {"Error|Table `d`.`t` is corrupted. Please drop the table and recreate.; error|Corrupt", TABLE_CHECK_REPAIRABLE,
      DB_CHECK_REPAIRABLE, true, 0,
      "Error|Table `d`.`t` is corrupted. Please drop the table and recreate.; error|Corrupt", true, "error 1877",
      TABLE_CHECK_REPAIRABLE}},
    {"InnoDBDataZeroed",
     "InnoDB",
     ".ibd",
     Harm::Zeroed,
     {"Warning|InnoDB: The B-tree of index PRIMARY is corrupted.; Warning|InnoDB: Index k is marked as corrupted; "
      "error|Corrupt",
      TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, true, 0,
      "Warning|InnoDB: Index PRIMARY is marked as corrupted; Warning|InnoDB: Index k is marked as corrupted; "
      "error|Corrupt",
      false, "error 1030", TABLE_CHECK_REPAIRABLE}},
    {"InnoDBDataMissing",
     "InnoDB",
     ".ibd",
     Harm::Missing,
     {"Warning|Tablespace is missing for table 'd/t'; Error|Got error 194 \"Tablespace is missing for a table\" from "
      "storage engine InnoDB; error|Corrupt",
      TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, true, 0,
      "Warning|Tablespace is missing for table 'd/t'; Error|Got error 194 \"Tablespace is missing for a table\" from "
      "storage engine InnoDB; error|Corrupt",
      true, "error 1030", TABLE_CHECK_REPAIRABLE}},
    {"InnoDBDefinitionGarbled",
     "InnoDB",
     ".frm",
     Harm::Garbled,
     {"Error|Incorrect information in file: './d/t.frm'; error|Corrupt", TABLE_CHECK_DEFECT, DB_CHECK_DEFECT, true,
      1017, "Error|Incorrect information in file: './d/t.frm'; error|Corrupt", true, "error 1033", TABLE_CHECK_DEFECT}},
    {"InnoDBDefinitionMissing",
     "InnoDB",
     ".frm",
     Harm::Missing,
     {"Error|Table 'd.t' doesn't exist; status|Operation failed", TABLE_CHECK_REPAIRABLE, DB_CHECK_REPAIRABLE, false, 0,
      "Error|Table 'd.t' doesn't exist; status|Operation failed", false, "error 1146", TABLE_CHECK_REPAIRABLE}},
};

void Hurt(const fs::path& file, Harm harm)
{
    const auto size = fs::file_size(file);
    if (harm == Harm::Missing) {
        fs::remove(file);
    } else if (harm == Harm::Cut || harm == Harm::Emptied) {
        fs::resize_file(file, harm == Harm::Cut ? size / 2 : 0);
    } else if (harm != Harm::None) {
        std::fstream bytes(file, std::ios::in | std::ios::out | std::ios::binary);
        bytes.seekp(harm == Harm::Zeroed ? static_cast<std::streamoff>(size / 2) : 0);
        bytes << std::string(harm == Harm::Zeroed ? size / 4 : 64, '\0');
    }
}

/// A database with the table "t", which is hurt, and the table "u", which is not.
class Damage : public testing::TestWithParam<DamageCase>
{
protected:
    static void SetUpTestSuite() { s_server = std::make_unique<harness::ServerProcess>(); }
    static void TearDownTestSuite() { s_server.reset(); }

    static CMyServer Settings()
    {
        const harness::ServerAccess& access = s_server->Administrator();
        return server_test::SettingsOf(access, "utf8mb4");
    }

    Damage() { RawConnection(s_server->Administrator()).Run("CREATE DATABASE " + m_name); }
    ~Damage() override { RawConnection(s_server->Administrator()).ErrorOf("DROP DATABASE " + m_name); }

    void MakeTables()
    {
        RawConnection sql(s_server->Administrator(), m_name);
        sql.Run("CREATE TABLE t (id INT AUTO_INCREMENT PRIMARY KEY, k INT, v VARCHAR(60), KEY (k)) ENGINE=" +
                std::string(GetParam().engine));
        sql.Run("INSERT INTO t (k, v) SELECT n * 7 % 1000, REPEAT(CHAR(97 + n % 26), 20 + n % 40) FROM (WITH RECURSIVE "
                "s (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM s WHERE n < 900) SELECT n FROM s) numbers");
        sql.Run("INSERT INTO t (k, v) SELECT k, v FROM t");
        sql.Run("CREATE TABLE u (id INT AUTO_INCREMENT PRIMARY KEY) ENGINE=MyISAM");
        sql.Run("INSERT INTO u VALUES (1), (2), (3), (4), (100)");
        sql.Run("DELETE FROM u WHERE id = 100");
        sql.Run("FLUSH TABLES");
    }

    void Harm()
    {
        if (GetParam().harm == Harm::Crash) {
            RawConnection(s_server->Administrator(), m_name).Run("DELETE FROM t WHERE id % 10 = 0");
            s_server->Kill();
            s_server->Start();
            return;
        }
        const bool isKeptOpen = std::string(GetParam().engine) == "InnoDB";
        if (isKeptOpen)
            s_server->Stop();
        Hurt(s_server->DataFolder() / m_name / (std::string("t") + GetParam().extension), GetParam().harm);
        s_server->Start();
    }

    std::string Replaced(std::string text) const
    {
        for (size_t at = text.find(m_name); at != std::string::npos; at = text.find(m_name))
            text.replace(at, m_name.size(), "d");
        return text;
    }

    std::string Answer(const std::string& statement) const
    {
        RawConnection sql(s_server->Administrator(), m_name);
        std::string answer;
        for (const RawConnection::Row& row : sql.Rows(statement))
            answer += (answer.empty() ? "" : "; ") + row[2].value_or("NULL") + "|" + row[3].value_or("NULL");
        return Replaced(answer);
    }

    std::string ReadableRows() const
    {
        RawConnection sql(s_server->Administrator(), m_name);
        const char* const statement = "SELECT COUNT(v) FROM t IGNORE INDEX (PRIMARY, k)";
        const unsigned int error = sql.ErrorOf(statement);
        return error == 0 ? sql.Text(statement).value() : "error " + std::to_string(error);
    }

    std::string NextNumberOfTheOtherTable() const
    {
        RawConnection sql(s_server->Administrator(), m_name);
        sql.Run("INSERT INTO u VALUES (NULL)");
        return sql.Text("SELECT LAST_INSERT_ID()").value();
    }

    static std::unique_ptr<harness::ServerProcess> s_server;
    static int s_number;

    const std::string m_name = "mydb_damage_" + std::to_string(++s_number);
};

std::unique_ptr<harness::ServerProcess> Damage::s_server;
int Damage::s_number = 0;

TEST_P(Damage, IsFoundAndRepairedAsFarAsItGoes)
{
    MakeTables();
    Harm();
    Outcome outcome;
    outcome.quickCheck = Answer("CHECK TABLE t FAST QUICK");

    const harness::MessageRecorder messages;
    CMyDatabase database(Settings(), m_name.c_str());
    ASSERT_TRUE(database.Open(false, ""));
    outcome.tableCheck = CMyTable(&database, "t").CheckTable(nullptr);
    UtCString description;
    outcome.databaseCheck = database.CheckDatabaseIntegrity("", &description);
    outcome.isDescribed = description.Contains((m_name + ".t:").c_str());
    EXPECT_TRUE(description.Contains((m_name + ".fast:").c_str())) << description.string();
    const bool isIntegral = database.CheckAndRepairDatabaseIntegrity(false);
    outcome.integrityError = database.GetErrorCode();
    EXPECT_EQ(isIntegral, outcome.integrityError == 0);
    outcome.fullCheck = Answer("CHECK TABLE t");

    const harness::GeneralLog log(s_server->GeneralLogFile());
    EXPECT_FALSE(database.RepairDatabase(false, false)) << "there is no table FAST";
    const std::vector<std::string> sent = log.Statements(database.GetThreadID());
    outcome.isRepairedByDefinition =
        std::any_of(sent.begin(), sent.end(), [](const auto& text) { return text.ends_with("USE_FRM"); });
    outcome.rowsAfter = ReadableRows();
    outcome.tableCheckAfter = CMyTable(&database, "t").CheckTable(nullptr);
    EXPECT_TRUE(messages.Messages().empty());

    EXPECT_EQ(outcome, GetParam().outcome);
    EXPECT_EQ(NextNumberOfTheOtherTable(), outcome.isRepairedByDefinition ? "5" : "101");
}

INSTANTIATE_TEST_SUITE_P(Tables, Damage, testing::ValuesIn(damageCases),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
