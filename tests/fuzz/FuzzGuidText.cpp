// GUID texts, strict and loose.
#include "framework/GuidText.h"
#include "harness/GuidText.h"

#include <cstdlib>

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

std::string Lower(std::string_view text)
{
    std::string lower(text);
    for (char& character : lower)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character + 32);
    return lower;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const _GUID loose = framework::GuidFromLooseText(UtCString(text, UT_ENCODING_DEFAULT));
    Require(framework::GuidFromLooseText(UtCString("{" + GuidText(loose) + "}", UT_ENCODING_DEFAULT)) == loose);

    constexpr _GUID untouched = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
    _GUID strict = untouched;
    if (platform::GuidFromText(text, strict))
        Require(GuidText(strict) == Lower(text) && loose == strict);
    else
        Require(strict == untouched);

    const std::string_view bytes = text;
    for (const eUtEncodingType encoding : {UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE})
        framework::GuidFromLooseText(UtCString(bytes, encoding));
    return 0;
}
