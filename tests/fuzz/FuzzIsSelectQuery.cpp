#include "sql/StatementKind.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <string_view>

// Compares the judgement made on the bytes with the same rules followed step by step on a converted copy.
// Input: one byte that picks the encoding, then the statement.

namespace {

bool StartsWithOneOf(const UtCString& text, std::initializer_list<const char*> keywords)
{
    for (const char* keyword : keywords) {
        if (text.StartsWith(keyword, false))
            return true;
    }
    return false;
}

bool IsSelectQueryStepByStep(const UtCString& sql)
{
    if (sql.GetLength() < 10)
        return false;
    UtCString copy(sql, UT_ENCODING_UTF16_LE);
    copy = copy.replace("\r", " ").replace("\n", " ");
    const UtCString upper = copy.toUpper();
    if (copy.StartsWith("SELECT ", false))
        return !upper.Contains(" INTO OUTFILE ") && !upper.Contains(" INTO DUMPFILE ");
    if (StartsWithOneOf(copy, {"SHOW ", "CHECK ", "REPAIR ", "OPTIMIZE ", "EXPLAIN "}))
        return true;
    if (copy.StartsWith("HANDLER ", false) && upper.Contains(" READ "))
        return true;
    return upper.Contains(" UNION ");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    constexpr std::array<eUtEncodingType, 5> encodings = {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE,
                                                          UT_ENCODING_UTF16_BE, UT_ENCODING_UTF32};
    if (size == 0)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const UtCString sql(bytes, encodings[data[0] % encodings.size()]);
    if (sql::IsSelectQuery(sql) != IsSelectQueryStepByStep(sql))
        std::abort();
    return 0;
}
