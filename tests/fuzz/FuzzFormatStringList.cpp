#include "text/UtCString.h"
#include "text/UtCStringList.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

// The format and the items, separated by the byte 0x1F, fill as a plain loop over characters fills them, in every
// encoding: items are taken as they are and nothing in them is filled again.

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

std::vector<std::string> Split(const std::string& text)
{
    std::vector<std::string> pieces(1);
    for (const char c : text) {
        if (c == '\x1F')
            pieces.emplace_back();
        else
            pieces.back() += c;
    }
    return pieces;
}

std::string Filled(const std::string& format, const std::vector<std::string>& items)
{
    std::string result;
    size_t next = 0;
    for (size_t at = 0; at < format.size(); ++at) {
        const char following = at + 1 < format.size() ? format[at + 1] : '\0';
        if (format[at] != '%' || (following != 's' && following != '%')) {
            result += format[at];
            continue;
        }
        if (following == '%')
            result += '%';
        else if (next < items.size())
            result += items[next++];
        ++at;
    }
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::vector<std::string> items = Split(std::string(reinterpret_cast<const char*>(data), size));
    const std::string format = items.front().c_str(); // ends at a zero, as a format does
    items.erase(items.begin());
    UtCStringList list;
    UtCStringList wideList;
    for (const std::string& item : items) {
        list.Add(UtCString(item, UT_ENCODING_DEFAULT));
        wideList.Add(UtCString(UtCString(item, UT_ENCODING_DEFAULT), UT_ENCODING_UTF16_BE));
    }
    const UtCString expected(Filled(format, items), UT_ENCODING_DEFAULT);

    UtCString text("before");
    text.FormatStringList(format.c_str(), list);
    Require(text.View() == expected.View());
    text.FormatStringList(format.c_str(), wideList);
    Require(text.View() == expected.View());
    text.FormatStringList(format.c_str(), wideList, UT_ENCODING_UTF16_LE);
    Require(text.View() == UtCString(expected, UT_ENCODING_UTF16_LE).View());
    text = UtCString("before", UT_ENCODING_UTF8);
    text.AppendFormatStringList(format.c_str(), list);
    Require(text.View() == "before" + std::string(UtCString(expected, UT_ENCODING_UTF8).View()));
    return 0;
}
