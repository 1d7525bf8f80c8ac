#include "metadata/FieldTypes.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace metadata {
namespace {

struct CharsetRange
{
    unsigned first;
    unsigned last; ///< inclusive
    eUtEncodingType encoding;
};

// Ascending and disjoint, so that a binary search decides.
// KEPT K-29: numbers behind the last range, as MariaDB gives them to some UTF-8 collations, count as single-byte.
constexpr CharsetRange charsetRanges[] = {
    {33, 33, UT_ENCODING_UTF8},       {35, 35, UT_ENCODING_UTF16_BE},   {45, 46, UT_ENCODING_UTF8},
    {54, 55, UT_ENCODING_UTF16_BE},   {56, 56, UT_ENCODING_UTF16_LE},   {60, 61, UT_ENCODING_UTF32},
    {62, 62, UT_ENCODING_UTF16_LE},   {76, 76, UT_ENCODING_UTF8},       {83, 83, UT_ENCODING_UTF8},
    {90, 90, UT_ENCODING_UTF16_BE},   {101, 124, UT_ENCODING_UTF16_BE}, {128, 151, UT_ENCODING_UTF16_BE},
    {159, 159, UT_ENCODING_UTF16_BE}, {160, 183, UT_ENCODING_UTF32},    {192, 215, UT_ENCODING_UTF8},
    {223, 247, UT_ENCODING_UTF8},     {255, 271, UT_ENCODING_UTF8},     {273, 275, UT_ENCODING_UTF8},
    {277, 294, UT_ENCODING_UTF8},     {296, 298, UT_ENCODING_UTF8},     {300, 300, UT_ENCODING_UTF8},
    {303, 309, UT_ENCODING_UTF8},
};

constexpr bool AscendingAndDisjoint()
{
    unsigned next = 0;
    for (const CharsetRange& range : charsetRanges) {
        if (range.first < next || range.last < range.first)
            return false;
        next = range.last + 1;
    }
    return true;
}
static_assert(AscendingAndDisjoint());

constexpr const char* firstTypeNames[] = {"decimal", "byte", "short",     "long",  "float",
                                          "double",  "null", "timestamp", "int64", "int24",
                                          "date",    "time", "datetime",  "year",  "newdate"};
// KEPT K-26: the two smaller blob codes are "memo" and the two larger "blob", whatever the flags say.
constexpr unsigned firstNamedHighType = MYSQL_TYPE_ENUM;
constexpr const char* highTypeNames[] = {"enum", "set",     "memo",   "memo",    "blob",
                                         "blob", "varchar", "string", "geometry"};

const char* NameOfCode(unsigned type) noexcept
{
    if (type < std::size(firstTypeNames))
        return firstTypeNames[type];
    if (type >= firstNamedHighType && type - firstNamedHighType < std::size(highTypeNames))
        return highTypeNames[type - firstNamedHighType];
    return "unbekannt";
}

uint32_t To32Bits(unsigned long length) noexcept
{
    return static_cast<uint32_t>(std::min<unsigned long>(length, UINT32_MAX));
}

} // namespace

UtCString NameInTable(const MYSQL_FIELD& field)
{
    const bool hasOwnName = field.org_name && *field.org_name;
    // KEPT K-28: the names are tagged single-byte although the client delivers them in UTF-8.
    return UtCString(hasOwnName ? field.org_name : field.name);
}

CMyField DescribeField(const MYSQL_FIELD& field)
{
    return CMyField(NameInTable(field), ClassifyField(field), field.type, To32Bits(field.length), field.flags,
                    field.decimals, UtCString(field.def), field.charsetnr);
}

UtCString FieldTypeName(unsigned type, unsigned long length)
{
    UtCString name(NameOfCode(type));
    if (type == MYSQL_TYPE_VAR_STRING || type == MYSQL_TYPE_STRING)
        name += UtCString("[") + UtCString(length) + "]";
    return name;
}

eUtEncodingType EncodingOfCharset(unsigned int nr) noexcept
{
    const auto* range = std::lower_bound(std::begin(charsetRanges), std::end(charsetRanges), nr,
                                         [](const CharsetRange& r, unsigned value) { return r.last < value; });
    if (range == std::end(charsetRanges) || nr < range->first)
        return UT_ENCODING_DEFAULT;
    return range->encoding;
}

} // namespace metadata
