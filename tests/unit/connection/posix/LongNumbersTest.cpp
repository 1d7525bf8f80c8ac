#include "unit/connection/ConnectionFixture.h"

namespace {

using connection_test::ValidServer;

// On Windows "long" has 32 bits, and there are no such numbers.
using WhereLongHas64Bits = connection_test::ConnectionFixture;

TEST_F(WhereLongHas64Bits, AConnectionKeepsItsThreadNumberIn32Bits)
{
    m_client.SetNextThreadId(4294967296UL + 5);
    CMyDatabase database(ValidServer(), "shop");
    database.Open(false, "");
    EXPECT_EQ(database.GetThreadID(), 5UL);
}

TEST_F(WhereLongHas64Bits, AServerTakesAPortBeyond32BitsForNone)
{
    CMyServer server = ValidServer();
    server.SetPort(4294967296UL + 3306);
    EXPECT_EQ(server.GetPort(), 0UL);
    EXPECT_FALSE(server.IsValid());
}

} // namespace
