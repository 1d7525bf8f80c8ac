#include "text/UtCString.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

// Whatever the bytes, in whatever encoding: conversions keep the number of characters, equal texts have equal hashes,
// and texts are cut and found at characters only.

namespace {

constexpr eUtEncodingType encodings[] = {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE,
                                         UT_ENCODING_UTF16_BE, UT_ENCODING_UTF32};

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

void CheckConversion(const UtCString& text, eUtEncodingType encoding)
{
    const UtCString converted(text, encoding);
    const bool isKept = text.GetEncodingType() == UT_ENCODING_UTF32 || encoding == UT_ENCODING_UTF32;
    Require(converted.GetEncodingType() == encoding);
    Require(converted.string()[converted.GetByteLength()] == 0);
    Require(isKept ? converted.View() == text.View() : converted.GetLength() == text.GetLength());
    const bool isEqual = converted == text;
    Require(isEqual == (text == converted));
    Require(!isEqual || converted.Hash() == text.Hash());
    Require(isEqual == (!(text < converted) && !(converted < text)));
    if (isEqual && !isKept)
        Require(UtCString(converted, text.GetEncodingType()).View() == text.View());
    UtCString inPlace(text);
    inPlace.ChangeEncodingType(encoding);
    Require(inPlace.View() == converted.View());
}

void CheckCut(const UtCString& text, int position)
{
    const UtCString left = text.substr(0, position);
    const UtCString right = text.substr(position);
    UtCString joined(left);
    joined.AppendBytes(right.View());
    Require(joined.View() == text.View());
    Require(left.GetLength() + right.GetLength() == text.GetLength());
    const UtCString character = text.substr(position, 1);
    const int found = text.Search(0, character);
    Require(found >= 0 && found <= position);
    Require(character.IsEmpty() || text.substr(found, 1) == character);
    Require(character.IsEmpty() || text.FindOneOf(character) == found);
    Require(text.replace(character, character).View() == text.View());
    Require(right.IsEmpty() || (text.EndsWith(right, true) && text.EndsWith(right, false)));
    Require(text.StartsWith(left, true) && text.StartsWith(left, false));
    UtCString shorter(text);
    shorter.Delete(position);
    Require(character.IsEmpty() || shorter.GetLength() < text.GetLength());
}

void CheckCase(const UtCString& text)
{
    const UtCString upper = text.toUpper();
    Require(upper.toUpper().View() == upper.View());
    Require(upper.GetLength() == text.GetLength());
    Require(upper.EqualNoCase(text) && upper.CompareToNoCase(text) == 0);
    Require(text.toLower().toLower().View() == text.toLower().View());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    UtCString text;
    text.SetMemCopy(data + 2, size - 2, encodings[data[0] % 5]);
    for (const eUtEncodingType encoding : encodings)
        CheckConversion(text, encoding);
    CheckCut(text, data[1] % (text.GetLength() + 1));
    CheckCase(text);
    const UtCString trimmed = text.trim();
    Require(trimmed.GetLength() <= text.GetLength() && trimmed.trim() == trimmed && text.Contains(trimmed));
    return 0;
}
