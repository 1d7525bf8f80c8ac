#include "client/ErrorText.h"

#include "client/Handle.h"
#include "client/Result.h"
#include "fake_client/FakeClientFixture.h"

#include <string>

namespace {

using ErrorText = fake::ClientFixture;
using ErrorNumber = fake::ClientFixture;
using Owners = fake::ClientFixture;

std::string Bytes(const UtCString& text)
{
    return std::string(text.View());
}

client::Handle ConnectedHandle()
{
    client::Handle handle = client::NewHandle();
    EXPECT_NE(mysql_real_connect(handle.get(), "h", "u", "p", "d", 1, nullptr, 0), nullptr);
    return handle;
}

TEST_F(ErrorText, SaysThatThereIsNoConnectionWithoutAHandle)
{
    EXPECT_EQ(Bytes(client::ErrorText(nullptr)), "Keine Verbindung zum Server!");
}

TEST_F(ErrorText, SaysThatThereIsNoErrorAfterASuccess)
{
    const client::Handle handle = ConnectedHandle();
    EXPECT_EQ(Bytes(client::ErrorText(handle.get())), "Kein Fehler!");
}

TEST_F(ErrorText, GivesNumberAndTextAfterAFailure)
{
    const client::Handle handle = ConnectedHandle();
    m_client.FailNext(fake::Call::Query, 2006, "Server has gone away");
    mysql_real_query(handle.get(), "DO 1", 4);
    EXPECT_EQ(Bytes(client::ErrorText(handle.get())), "2006: Server has gone away");
}

TEST_F(ErrorText, TagsTheClientsTextAsUtf8)
{
    const client::Handle handle = ConnectedHandle();
    m_client.FailNext(fake::Call::Query, 1146,
                      "Table 'stra\xC3\x9F"
                      "e' doesn't exist");
    mysql_real_query(handle.get(), "DO 1", 4);
    const UtCString text = client::ErrorText(handle.get());
    EXPECT_EQ(Bytes(text), "1146: Table 'stra\xC3\x9F"
                           "e' doesn't exist");
    EXPECT_EQ(text.GetEncodingType(), UT_ENCODING_UTF8);
}

TEST_F(ErrorNumber, IsZeroWithoutAHandle)
{
    EXPECT_EQ(client::ErrorNumber(nullptr), 0UL);
}

TEST_F(ErrorNumber, IsThatOfTheLastCall)
{
    const client::Handle handle = ConnectedHandle();
    EXPECT_EQ(client::ErrorNumber(handle.get()), 0UL);
    m_client.FailNext(fake::Call::Query, 1064);
    mysql_real_query(handle.get(), "X", 1);
    EXPECT_EQ(client::ErrorNumber(handle.get()), 1064UL);
    mysql_real_query(handle.get(), "DO 1", 4);
    EXPECT_EQ(client::ErrorNumber(handle.get()), 0UL);
}

TEST(IsConnectionLost, HoldsForThreeNumbersOnly)
{
    for (const unsigned long number : {2001UL, 2006UL, 2013UL}) {
        EXPECT_TRUE(client::IsConnectionLost(number)) << number;
    }
    for (const unsigned long number :
         {0UL, 1UL, 1053UL, 1927UL, 2000UL, 2002UL, 2003UL, 2005UL, 2007UL, 2012UL, 2014UL, 2055UL, 4294967295UL}) {
        EXPECT_FALSE(client::IsConnectionLost(number)) << number;
    }
}

TEST_F(Owners, SwitchTheReconnectOnAndChangeNothingElse)
{
    const client::Handle handle = client::NewHandle();
    ASSERT_EQ(m_client.Options().size(), 1U);
    EXPECT_EQ(m_client.Options()[0].option, MYSQL_OPT_RECONNECT);
    EXPECT_EQ(m_client.Options()[0].value, 1);
}

TEST_F(Owners, CloseAHandleAndFreeAResult)
{
    {
        const client::Handle handle = ConnectedHandle();
        m_client.On("SELECT 1", fake::Reply::Rows({"1"}, {{"1"}}));
        mysql_real_query(handle.get(), "SELECT 1", 8);
        const client::Result result(mysql_store_result(handle.get()));
        EXPECT_NE(result, nullptr);
    }
    EXPECT_EQ(m_client.CallNames().back(), "mysql_close");
    EXPECT_EQ(m_client.CountOf("mysql_free_result"), 1U);
}

TEST_F(Owners, AreEmptyWhenTheClientHasNoMemory)
{
    m_client.FailNext(fake::Call::Init, 2008);
    EXPECT_EQ(client::NewHandle(), nullptr);
    EXPECT_EQ(m_client.CallNames(), std::vector<std::string>{"mysql_init"});
}

} // namespace
