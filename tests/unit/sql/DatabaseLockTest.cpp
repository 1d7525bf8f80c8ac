#include "sql/DatabaseLock.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr eUtEncodingType singleByte = UT_ENCODING_DEFAULT;

TEST(DatabaseLock, IsNamedLikeTheDatabaseWithAnEnding)
{
    EXPECT_EQ(sql::GetLock("kalk", 5, singleByte).View(), "SELECT GET_LOCK('kalk_lock', 5);");
    EXPECT_EQ(sql::ReleaseLock("kalk", singleByte).View(), "SELECT RELEASE_LOCK('kalk_lock');");
    EXPECT_EQ(sql::IsFreeLock("kalk", singleByte).View(), "SELECT IS_FREE_LOCK('kalk_lock');");
}

TEST(DatabaseLock, WritesTheTimeInDecimal)
{
    EXPECT_EQ(sql::GetLock("k", 0, singleByte).View(), "SELECT GET_LOCK('k_lock', 0);");
    EXPECT_EQ(sql::GetLock("k", std::numeric_limits<int>::max(), singleByte).View(),
              "SELECT GET_LOCK('k_lock', 2147483647);");
}

TEST(DatabaseLock, Kept_K110_WritesANegativeTimeAsItIs)
{
    EXPECT_EQ(sql::GetLock("k", -1, singleByte).View(), "SELECT GET_LOCK('k_lock', -1);");
    EXPECT_EQ(sql::GetLock("k", std::numeric_limits<int>::min(), singleByte).View(),
              "SELECT GET_LOCK('k_lock', -2147483648);");
}

TEST(DatabaseLock, Kept_K111_DoesNotEscapeTheName)
{
    EXPECT_EQ(sql::GetLock("a'b\\`%s", 0, singleByte).View(), "SELECT GET_LOCK('a'b\\`%s_lock', 0);");
    EXPECT_EQ(sql::ReleaseLock("a'b\\`%s", singleByte).View(), "SELECT RELEASE_LOCK('a'b\\`%s_lock');");
    EXPECT_EQ(sql::IsFreeLock("a'b\\`%s", singleByte).View(), "SELECT IS_FREE_LOCK('a'b\\`%s_lock');");
}

TEST(DatabaseLock, Kept_K116_HasAnEmptyNameToo)
{
    EXPECT_EQ(sql::GetLock("", 0, singleByte).View(), "SELECT GET_LOCK('_lock', 0);");
}

TEST(DatabaseLock, IsInTheEncodingOfTheConnection)
{
    const UtCString name("k\xFC"
                         "che");
    for (const UtCString& statement :
         {sql::GetLock(name, 1, UT_ENCODING_UTF8), sql::ReleaseLock(name, UT_ENCODING_UTF8),
          sql::IsFreeLock(name, UT_ENCODING_UTF8)}) {
        EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
        EXPECT_NE(statement.View().find("'k\xC3\xBC"
                                        "che_lock'"),
                  std::string_view::npos)
            << statement.View();
    }
}

TEST(DatabaseLock, TakesANameInUtf16)
{
    const UtCString name(UtCString("kalk"), UT_ENCODING_UTF16_LE);
    EXPECT_EQ(sql::IsFreeLock(name, singleByte).View(), "SELECT IS_FREE_LOCK('kalk_lock');");
}

} // namespace
