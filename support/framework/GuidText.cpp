#include "framework/GuidText.h"

#include <algorithm>
#include <string>

namespace framework {
namespace {

std::string_view TrimLeft(std::string_view text, char character)
{
    return text.substr(std::min(text.find_first_not_of(character), text.size()));
}

std::string_view TrimRight(std::string_view text, char character)
{
    return text.substr(0, text.find_last_not_of(character) + 1);
}

std::string LowerWithoutBlanks(std::string_view text)
{
    std::string result;
    for (const char character : text)
        if (character != ' ')
            result += character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    return result;
}

_GUID Parse(std::string_view text)
{
    const std::string plain = LowerWithoutBlanks(text);
    std::string_view rest = TrimRight(TrimLeft(plain, '{'), '}');
    if (rest.starts_with("guid") || rest.starts_with("uuid"))
        rest = TrimLeft(rest.substr(4), '{');
    _GUID guid{};
    platform::GuidFromText(rest, guid);
    return guid;
}

} // namespace

_GUID GuidFromLooseText(const UtCString& text) noexcept
try {
    if (text::IsUtf16(text.GetEncodingType()))
        return Parse(UtCString(text, UT_ENCODING_DEFAULT).View());
    return Parse(text.View());
} catch (...) {
    return {};
}

} // namespace framework
