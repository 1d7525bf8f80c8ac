#include "text/CodePoints.h"
#include "text/TextSearch.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr size_t longest = 40; ///< several of the words that are looked at together

TEST(IsAscii, IsTrueForTextsOfEveryLength)
{
    for (size_t size = 0; size <= longest; ++size)
        EXPECT_TRUE(text::IsAscii(std::string(size, '\x7F'))) << size;
}

TEST(IsAscii, SeesOneOtherByteAtEveryPlace)
{
    for (size_t size = 1; size <= longest; ++size) {
        for (size_t place = 0; place < size; ++place) {
            std::string bytes(size, 'a');
            bytes[place] = '\x80';
            EXPECT_FALSE(text::IsAscii(bytes)) << size << " " << place;
        }
    }
}

TEST(IsAscii, LooksAtNoByteOutsideOfTheText)
{
    for (size_t size = 0; size <= longest; ++size) {
        const std::string bytes = "\xFF" + std::string(size, 'a') + "\xFF";
        EXPECT_TRUE(text::IsAscii(std::string_view(bytes).substr(1, size))) << size;
    }
}

TEST(FindOneOf, FindsEachMemberOfASetInBytes)
{
    constexpr std::string_view set("\0\t\n'AZ\\az\x7F", 10);
    for (const eUtEncodingType encoding : {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF32}) {
        for (unsigned byte = 0; byte < 256; ++byte) {
            const std::string bytes = std::string("..") + static_cast<char>(byte);
            const bool isMember = set.find(static_cast<char>(byte)) != std::string_view::npos;
            EXPECT_EQ(text::FindOneOf({bytes, encoding}, 0, {set, UT_ENCODING_DEFAULT}), isMember ? 2 : text::notFound)
                << byte;
        }
    }
}

TEST(FindOneOf, StartsWhereItIsTold)
{
    EXPECT_EQ(text::FindOneOf({"a1b2", UT_ENCODING_UTF8}, 2, {"0123", UT_ENCODING_DEFAULT}), 3u);
    EXPECT_EQ(text::FindOneOf({"a1b2", UT_ENCODING_UTF8}, 4, {"0123", UT_ENCODING_DEFAULT}), text::notFound);
}

} // namespace
