#include "CopyFixture.h"

#include "harness/AllocationFailure.h"

// Memory that runs out, at each allocation in turn: a dump or a copy is whole or says that it is not.

namespace {

using server_test::CopyJob;
using server_test::Texts;

class CopyMemory : public server_test::CopyFixture
{
protected:
    static std::string ContentOf(const std::filesystem::path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }
    static constexpr const char* table = "a_table_with_a_name_that_does_not_fit_into_the_text_itself";
    const Texts m_statements = {std::string("CREATE TABLE ") + table + " (ID INT PRIMARY KEY, B BLOB) ENGINE=MyISAM",
                                std::string("INSERT INTO ") + table + " VALUES (1, REPEAT('o''x', 100)), (2, NULL)"};
};

TEST_F(CopyMemory, ADumpIsWholeOrFails)
{
    CopyJob job(Access(), m_folder.Path());
    for (const std::string& statement : m_statements)
        job.sql.Run(statement);
    const std::filesystem::path file = m_folder.Path() / "dump";
    const UtCString name(file.string(), UT_ENCODING_UTF8);
    const auto dump = [&] { return job.source.DumpTable(name, table, true, "", "", "\"", "", nullptr); };
    ASSERT_EQ(dump(), 2);
    const std::string whole = ContentOf(file);
    for (const bool forGood : {false, true}) {
        long broken = 0;
        const long failures = harness::ForEachAllocation(forGood, [&] {
            const long rows = dump();
            harness::AllocationFailure::allocationsLeft = -1;
            const bool isRight = rows == 2 ? ContentOf(file) == whole : rows == -1;
            broken += !isRight;
        });
        EXPECT_GT(failures, 5);
        EXPECT_EQ(broken, 0);
    }
    EXPECT_EQ(dump(), 2);
}

TEST_F(CopyMemory, ACopyIsWholeOrFailsAndLeavesNoLock)
{
    WithSource(m_statements, [](CopyJob& job) {
        const auto sums = job.Checksums("mydb_from");
        long copies = 0;
        const long failures = harness::ForEachAllocation(false, [&] {
            const long left = std::exchange(harness::AllocationFailure::allocationsLeft, -1);
            job.sql.Run("CREATE OR REPLACE DATABASE mydb_to");
            job.target.Open(false, "");
            job.sql.Run("DROP DATABASE mydb_to");
            std::filesystem::remove_all("two");
            harness::AllocationFailure::allocationsLeft = left;
            const bool isCopied = job.Copy();
            harness::AllocationFailure::allocationsLeft = -1;
            EXPECT_TRUE(!isCopied || job.Checksums("mydb_to") == sums);
            EXPECT_TRUE(isCopied || !job.HasTarget());
            EXPECT_TRUE(job.IsUnlocked());
            copies += isCopied;
        });
        EXPECT_GT(failures, 20);
        EXPECT_GT(copies, 0);
    });
}

} // namespace
