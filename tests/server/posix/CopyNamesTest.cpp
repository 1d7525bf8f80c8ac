#include "server/CopyFixture.h"

namespace {

using server_test::CopyJob;
using server_test::Texts;

class CopyNames : public server_test::CopyFixture
{
};

// The names become those of files. On Windows such a copy fails, and is undone, under Wine.
TEST_F(CopyNames, OnPosixMayHaveUmlautsWhichFailsUnderWine)
{
    CopyJob job(Access(), m_folder.Path());
    const Texts statements = {"CREATE TABLE gr\xC3\xB6\xC3\x9F"
                              "e (stra\xC3\x9F"
                              "e VARCHAR(10), KEY `\xC3\xBC` (stra\xC3\x9F"
                              "e))",
                              "INSERT INTO gr\xC3\xB6\xC3\x9F"
                              "e VALUES ('x')"};
    for (const std::string& statement : statements)
        job.sql.Run(statement);
    const auto before = job.Checksums("mydb_from");
    ASSERT_FALSE(before.empty());
    ASSERT_TRUE(job.Copy()) << job.target.GetErrorMessage().string();
    EXPECT_EQ(job.Checksums("mydb_to"), before);
    EXPECT_EQ(job.TemporaryFiles(), Texts());
}

} // namespace
