#include "files/PlainName.h"

#include "text/TextSearch.h"

#include <algorithm>

namespace files {
namespace {

using namespace std::string_view_literals;
using text::Tagged;

// In the encoding 256. A raised digit makes a port as well.
constexpr std::string_view deviceNames[] = {
    "con",  "prn",  "aux",  "nul",  "conin$", "conout$", "com1",    "com2",    "com3",    "com4",
    "com5", "com6", "com7", "com8", "com9",   "com\xB9", "com\xB2", "com\xB3", "lpt1",    "lpt2",
    "lpt3", "lpt4", "lpt5", "lpt6", "lpt7",   "lpt8",    "lpt9",    "lpt\xB9", "lpt\xB2", "lpt\xB3"};

constexpr std::string_view separators = "\\/:\0"sv;
constexpr std::string_view forbiddenOnWindows = "\"*<>?|\1\2\3\4\5\6\7\10\11\12\13\14\15\16\17"
                                                "\20\21\22\23\24\25\26\27\30\31\32\33\34\35\36\37"sv;

bool HasOneOf(Tagged name, std::string_view set) noexcept
{
    return text::FindOneOf(name, 0, {set, UT_ENCODING_DEFAULT}) != text::notFound;
}

// Whatever stands behind a dot, and whatever blanks in front of it.
bool IsDevice(Tagged name, std::string_view device) noexcept
{
    const size_t size = text::PrefixSize(name, {device, UT_ENCODING_DEFAULT}, text::LetterCase::Ignored);
    if (size == text::notFound)
        return false;
    Tagged rest{name.bytes.substr(size), name.encoding};
    rest.bytes.remove_prefix(text::LeadingEnd(rest, {" ", UT_ENCODING_DEFAULT}));
    return rest.bytes.empty() ||
           text::PrefixSize(rest, {".", UT_ENCODING_DEFAULT}, text::LetterCase::Exact) != text::notFound;
}

bool IsNameOnWindows(Tagged name) noexcept
{
    return !HasOneOf(name, forbiddenOnWindows) &&
           std::none_of(std::begin(deviceNames), std::end(deviceNames),
                        [name](std::string_view device) { return IsDevice(name, device); });
}

} // namespace

bool IsPlainName(const UtCString& name, const platform::PathRules& rules) noexcept
{
    const Tagged text{name.View(), name.GetEncodingType()};
    return !name.IsEmpty() && !HasOneOf(text, separators) &&
           text::TrailingBegin(text, {". ", UT_ENCODING_DEFAULT}) == name.GetByteLength() &&
           (!rules.limitsNames || IsNameOnWindows(text));
}

bool IsPlainName(const UtCString& name) noexcept
{
    return IsPlainName(name, platform::SystemPathRules());
}

} // namespace files
