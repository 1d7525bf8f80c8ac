// Every text form that a CDateTime reads. The first byte chooses encoding and flags, the rest is the text.
#include "CDateTime.h"

#include <cstdlib>

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// What holds for every value that was read from a text.
void RequireConsistent(const CDateTime& date)
{
    const bool isValid = date.GetStatus() == CDateTime::valid;
    Require(isValid || date.GetValue() == 0);
    Require(isValid == (date.GetYear() >= 100 && date.GetYear() <= 9999));
    if (!isValid)
        return;
    const CDateTime rebuilt(date.GetYear(), date.GetMonth(), date.GetDay(), date.GetHour(), date.GetMinute(),
                            date.GetSecond());
    Require(rebuilt.GetValue() == date.GetValue());
}

void RequireServerFormReadsBack(const CDateTime& date)
{
    CDateTime again;
    Require(date.IsNull() || (again.ConvertDate(date.GetDate(9)) && again.GetValue() == date.GetValue()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    if (size == 0)
        return 0;
    constexpr eUtEncodingType encodings[] = {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE,
                                             UT_ENCODING_UTF16_BE};
    constexpr unsigned long flags[] = {0, 1, 2, 0x80000000};
    const UtCString text(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1), encodings[data[0] & 3]);

    CDateTime german;
    const bool isGerman = german.SetDate(text);
    Require(isGerman == (german.GetStatus() != CDateTime::null));
    RequireConsistent(german);
    RequireServerFormReadsBack(german);

    CDateTime compact;
    const bool isCompact = compact.ConvertDate(text);
    Require(isCompact == (compact.GetStatus() == CDateTime::valid));
    RequireConsistent(compact);
    RequireServerFormReadsBack(compact);

    const CDateTime parsed = CDateTime::ParseDate(text, flags[(data[0] >> 2) & 3]);
    Require(parsed.GetStatus() != CDateTime::invalid);
    RequireConsistent(parsed);
    RequireServerFormReadsBack(parsed);
    return 0;
}
