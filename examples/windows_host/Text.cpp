#include "Text.h"

std::wstring Wide(const UtCString& text)
{
    std::wstring wide;
    const UtCString utf16(text, UT_ENCODING_UTF16_LE);
    for (size_t i = 0; i + 1 < utf16.View().size(); i += 2) {
        const auto low = static_cast<unsigned char>(utf16.View()[i]);
        const auto high = static_cast<unsigned char>(utf16.View()[i + 1]);
        wide += static_cast<wchar_t>(high << 8 | low);
    }
    return wide;
}

UtCString Utf8(const std::wstring& text)
{
    return UtCString(text.c_str(), UT_ENCODING_UTF8);
}

std::wstring Grouped(long long number)
{
    std::wstring text = std::to_wstring(number);
    const ptrdiff_t firstDigit = number < 0 ? 1 : 0;
    for (ptrdiff_t place = static_cast<ptrdiff_t>(text.size()) - 3; place > firstDigit; place -= 3)
        text.insert(static_cast<size_t>(place), L".");
    return text;
}
