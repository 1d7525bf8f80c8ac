#include "CopyFixture.h"

namespace {

using fake::Reply;

/// The end of a failed copy.
class CopyCleanup : public CopyFixture
{
};

/// Lets a cleanup run for a number of turns and looks at the folder after each.
class CountingHost final : public MyDbUserInterface
{
public:
    CountingHost(const std::filesystem::path& folder, size_t turns)
        : m_folder(folder), m_turns(turns), m_previous(MyDbSetUserInterface(this))
    {
    }
    ~CountingHost() override { MyDbSetUserInterface(m_previous); }
    int ShowMessage(const UtCString&, unsigned int) override { return MYDB_ANSWER_OK; }
    void BeginWait() override {}
    void EndWait() override {}
    bool ContinueCleanup(unsigned long filesLeft) override
    {
        asked.push_back(filesLeft);
        const auto files = std::filesystem::directory_iterator(m_folder);
        found.push_back(std::distance(begin(files), end(files)));
        return asked.size() < m_turns;
    }
    std::vector<unsigned long> asked;
    std::vector<std::ptrdiff_t> found;

private:
    std::filesystem::path m_folder;
    size_t m_turns;
    MyDbUserInterface* m_previous;
};

TEST_F(CopyCleanup, Kept_K151_DoesNotEndTheCleanupByItself)
{
    CountingHost host(Temp(), 10000);
    m_client.On("CREATE DATABASE `shop2`", Reply::Error(1007));
    EXPECT_FALSE(Copy());
    ASSERT_EQ(host.asked.size(), 10000U);
    EXPECT_EQ(host.asked[0], 1U);
    EXPECT_EQ(std::count(host.asked.begin(), host.asked.end(), 0U), 9999);
    EXPECT_EQ(host.found[0], 1);
    EXPECT_EQ(std::count(host.found.begin(), host.found.end(), 0), 9999);
}

TEST_F(CopyCleanup, EndsTheCleanupAtOnceWhenTheHostSaysNo)
{
    CountingHost host(Temp(), 1);
    m_client.On("CREATE DATABASE `shop2`", Reply::Error(1007));
    EXPECT_FALSE(Copy());
    EXPECT_EQ(host.asked, std::vector<unsigned long>{1});
    EXPECT_EQ(TemporaryFiles(), Texts{"order list.000000_tmp"});
}

TEST_F(CopyCleanup, EndsTheLocksThenRemovesTheTargetThenDeletesTheFiles)
{
    class Witness final : public MyDbUserInterface
    {
    public:
        Witness(Texts& deeds, const std::filesystem::path& folder)
            : m_deeds(deeds), m_folder(folder), m_previous(MyDbSetUserInterface(this))
        {
        }
        ~Witness() override { MyDbSetUserInterface(m_previous); }
        int ShowMessage(const UtCString&, unsigned int) override { return MYDB_ANSWER_OK; }
        void BeginWait() override {}
        void EndWait() override {}
        bool ContinueCleanup(unsigned long filesLeft) override
        {
            m_deeds.push_back(std::filesystem::exists(m_folder) ? "delete" : "delete, target gone");
            return filesLeft > 0;
        }

    private:
        Texts& m_deeds;
        std::filesystem::path m_folder;
        MyDbUserInterface* m_previous;
    };
    Texts deeds;
    const Witness witness(deeds, TargetFolder());
    std::filesystem::create_directories(TargetFolder());
    m_client.On("CREATE DATABASE `shop2`", Reply::Error(1007));
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement.starts_with("UNLOCK"))
            deeds.push_back(std::filesystem::exists(TargetFolder()) ? "unlock" : "unlock, target gone");
    });
    EXPECT_FALSE(Copy());
    EXPECT_EQ(deeds, (Texts{"unlock", "unlock", "delete, target gone", "delete, target gone"}));
}

/// Puts deleted files back after each of five turns and writes down which were gone.
class Restoring final : public MyDbUserInterface
{
public:
    explicit Restoring(const std::filesystem::path& folder) : m_folder(folder), m_previous(MyDbSetUserInterface(this))
    {
    }
    ~Restoring() override { MyDbSetUserInterface(m_previous); }
    int ShowMessage(const UtCString&, unsigned int) override { return MYDB_ANSWER_OK; }
    void BeginWait() override {}
    void EndWait() override {}
    bool ContinueCleanup(unsigned long) override
    {
        if (m_stamp.empty()) // "kunden" is gone already
            m_stamp = std::filesystem::directory_iterator(m_folder)->path().extension().string();
        for (const std::string name : {"kunden", "order list"}) {
            if (!std::filesystem::exists(m_folder / (name + m_stamp)))
                deleted.push_back(name);
            std::ofstream(m_folder / (name + m_stamp)) << "again";
        }
        return deleted.size() < 5;
    }
    std::vector<std::string> deleted;

private:
    std::filesystem::path m_folder;
    std::string m_stamp;
    MyDbUserInterface* m_previous;
};

TEST_F(CopyCleanup, DeletesTheFileNamedLastAgainInEveryTurn)
{
    Restoring host(Temp());
    m_client.OnPrefix("LOAD DATA", Reply::Error(4166)); // that of kunden
    EXPECT_FALSE(Copy());
    EXPECT_EQ(host.deleted, (Texts{"kunden", "order list", "kunden", "kunden", "kunden"}));
}

TEST_F(CopyCleanup, DeletesTheLastOfAllFilesAgainWhenItsTableWasTheLast)
{
    Restoring host(Temp());
    m_client.On("CREATE DATABASE `shop2`", Reply::Error(1007)); // all dumped, none loaded
    EXPECT_FALSE(Copy());
    EXPECT_EQ(host.deleted, (Texts{"kunden", "order list", "order list", "order list", "order list"}));
}

} // namespace
