#include "unit/admin/CopyFixture.h"

namespace {

class CopyDatabaseWithSymbolicLinks : public CopyFixture
{
};

TEST_F(CopyDatabaseWithSymbolicLinks, RemovesALinkThatHasTheNameOfATemporaryFileAndNotWhatItNames)
{
    const std::filesystem::path precious = m_folder.Path() / "precious.txt";
    std::ofstream(precious) << "precious";
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (!statement.starts_with("LOCK"))
            return;
        const time_t now = time(nullptr);
        for (time_t start = now - 5; start <= now; ++start) { // the seconds in which the copy may have begun
            tm local{};
            char name[32] = "";
            strftime(name, sizeof name, "kunden.%H%M%S_tmp", localtime_r(&start, &local));
            std::filesystem::create_symlink(precious, Temp() / name);
        }
    });
    EXPECT_TRUE(Copy());
    EXPECT_EQ(ContentOf(precious), "precious");
    EXPECT_EQ(TemporaryFiles().size(), 5U);
}

} // namespace
