#include "server/CopyFixture.h"

#include <csignal>

#include <sys/resource.h>
#include <unistd.h>

namespace {

using server_test::CopyJob;
using server_test::twoLargeTables;

class CopyFaultsWhereAProcessCanLimitItsFiles : public server_test::CopyFixture
{
};
class CopyFaultsWhereAProcessCanChangeItsUser : public server_test::CopyFixture
{
};

TEST_F(CopyFaultsWhereAProcessCanLimitItsFiles, UndoesTheCopyWhenTheDiskIsFull)
{
    WithSource(twoLargeTables, [](CopyJob& job) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {5000000, 5000000}; // within the first table
        setrlimit(RLIMIT_FSIZE, &limit);
        server_test::ExpectFailedCopy(job);
        ASSERT_EQ(job.messages.Messages().size(), 1U);
        EXPECT_TRUE(job.messages.Messages()[0].text.starts_with("Es konnten nicht alle Daten in die Datei \\temp\\a."));
        EXPECT_TRUE(job.messages.Cleanups().empty());
    });
}

TEST_F(CopyFaultsWhereAProcessCanLimitItsFiles, UndoesTheCopyWhenTheDiskIsFullInALaterTable)
{
    WithSource(twoLargeTables, [](CopyJob& job) {
        job.sql.Run("DELETE FROM a WHERE id > 10");
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {5000000, 5000000};
        setrlimit(RLIMIT_FSIZE, &limit);
        server_test::ExpectFailedCopy(job);
        EXPECT_EQ(job.messages.Messages().size(), 1U);
        EXPECT_EQ(job.messages.Cleanups(), std::vector<unsigned long>{0});
    });
}

TEST_F(CopyFaultsWhereAProcessCanChangeItsUser, UndoesTheCopyWhenTheFolderForTemporaryFilesCannotBeWritten)
{
    WithSource(twoLargeTables, [](CopyJob& job) {
        constexpr auto readable = static_cast<std::filesystem::perms>(0555);
        for (const char* const folder : {".", "temp", "one"})
            std::filesystem::permissions(folder, readable);
        constexpr uid_t nobody = 65534;
        EXPECT_TRUE(::geteuid() != 0 || ::seteuid(nobody) == 0);
        server_test::ExpectFailedCopy(job);
        EXPECT_TRUE(job.messages.Messages().empty());
    });
}

} // namespace
