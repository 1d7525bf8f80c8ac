#include "server/EditFixture.h"

#include "harness/PrivateServer.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// A server that takes statements of up to 1 MiB.
class LargeStatement : public server_test::EditFixture
{
protected:
    LargeStatement()
    {
        harness::RawConnection administrator(harness::PrivateServer::Get().Administrator());
        m_packetLimit = *administrator.Text("SELECT @@GLOBAL.max_allowed_packet");
        administrator.Run("SET GLOBAL max_allowed_packet = 1048576");
        m_edited.Close();
    }
    ~LargeStatement() override
    {
        harness::RawConnection(harness::PrivateServer::Get().Administrator())
            .Run("SET GLOBAL max_allowed_packet = " + m_packetLimit);
    }

    bool Append(const std::string& bytes)
    {
        records.AppendStart();
        EXPECT_TRUE(records.SetFieldBuffer("B", bytes.data(), static_cast<unsigned long>(bytes.size())));
        return records.AppendEnd();
    }

private:
    std::string m_packetLimit;
};

// The server hangs up in the middle of the statement. Under Wine the client is never told, and waits.
TEST_F(LargeStatement, OnPosixIsReportedWhereasTheClientUnderWineWaitsForAServerThatHasHungUp)
{
    Run("CREATE TABLE t (B LONGBLOB)");
    EXPECT_FALSE(Append(std::string(2 * 1024 * 1024, 'x')));
    EXPECT_NE(Message(), "");
    EXPECT_TRUE(Append("small")) << Message(); // and the connection works
    EXPECT_EQ(Text("SELECT COUNT(*) FROM t"), "1");
}

} // namespace
