#include "differential/Sections.h"

#include "text/UtCStringList.h"

#include <bit>

namespace differential {
namespace {

constexpr std::string_view plain = "ab cd,;%\\'\"{}0123456789\n";
constexpr std::string_view anyBytes = "ab%s\xE4\xFC\xC3\xA4\x80\x81\xFE\xFF\xD8\x01";

std::string RandomListFormat(Random& random)
{
    constexpr const char* directives[] = {"%s", "%s", "%s", "%%", "%lu", "%", "%d", "%S", "%%s", "%5s"};
    std::string format;
    for (size_t count = Below(random, 8); count > 0; --count) {
        format += RandomText(random, 6, Below(random, 2) == 0 ? plain : anyBytes);
        format += OneOf(random, directives);
    }
    return format;
}

UtCStringList RandomList(Random& random)
{
    UtCStringList list;
    for (size_t count = Below(random, 8); count > 0; --count)
        list.Add(UtCString{RandomText(random, 30, anyBytes), OneOf(random, encodings)});
    return list;
}

/// A directive without its conversion: flags, width and precision.
std::string RandomDirective(Random& random)
{
    constexpr const char* lengths[] = {"", "", "1", "7", "20", "320"};
    std::string format = RandomText(random, 4, plain.substr(0, 5));
    format += '%' + RandomText(random, 3, "-+ #0");
    format += OneOf(random, lengths);
    if (Below(random, 2) == 0) {
        format += '.';
        format += OneOf(random, lengths);
    }
    return format;
}

// What the compiler would check is made at random here.
template <typename Argument>
void WriteFormat(Report& report, const UtCString& start, const std::string& format, Argument argument)
{
    UtCString text = start;
    text.Format(format.c_str(), argument);
    UtCString appended = start;
    appended.AppendFormat(format.c_str(), argument);
    report.Line(format, text, appended);
}

std::string Ended(std::string directive, const char* conversion)
{
    return directive + conversion + "|%%|";
}

void WriteIntegers(Report& report, Random& random, const UtCString& start)
{
    constexpr const char* conversions[] = {"d", "i", "u", "x", "X", "o", "hd", "hu", "hhd", "hhx", "c"};
    constexpr const char* wide[] = {"lld", "llu", "llx", "llo", "zu", "zd", "jd", "ju", "td"};
    const auto number = static_cast<int64_t>(random()) >> Below(random, 64);
    WriteFormat(report, start, Ended(RandomDirective(random), OneOf(random, conversions)), static_cast<int>(number));
    WriteFormat(report, start, Ended(RandomDirective(random), OneOf(random, wide)), static_cast<long long>(number));
    WriteFormat(report, start, Ended(RandomDirective(random), "ld"), static_cast<long>(static_cast<int>(number)));
    WriteFormat(report, start, Ended(RandomDirective(random), "lu"),
                static_cast<unsigned long>(static_cast<unsigned>(number)));
}

void WriteReals(Report& report, Random& random, const UtCString& start)
{
    constexpr const char* conversions[] = {"f", "F", "e", "E", "g", "G", "a", "A"};
    const double number = std::bit_cast<double>(random());
    const double rounded = static_cast<double>(Between(random, -1000000, 1000000)) / 64;
    for (const double value : {number, rounded}) {
        const std::string directive = RandomDirective(random);
        const std::string conversion = OneOf(random, conversions);
        WriteFormat(report, start, Ended(directive, conversion.c_str()), value);
        WriteFormat(report, start, Ended(directive, ("L" + conversion).c_str()), static_cast<long double>(value));
    }
}

void WriteTexts(Report& report, Random& random, const UtCString& start)
{
    const std::string text = RandomText(random, 20, anyBytes);
    WriteFormat(report, start, Ended(RandomDirective(random), "s"), text.c_str());
    std::wstring wide;
    for (const char byte : text)
        wide += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    WriteFormat(report, start, Ended(RandomDirective(random), "ls"), wide.c_str());
    WriteFormat(report, start, Ended(RandomDirective(random), "lc"), Between(random, 1, 0xFFFF));
}

} // namespace

void WriteFormats(Report& report, const std::filesystem::path&)
{
    Random random(37);
    for (int block = 0; block < 50; ++block) {
        for (int index = 0; index < 200; ++index) {
            const UtCString start{RandomText(random, 5, plain), OneOf(random, encodings)};
            WriteIntegers(report, random, start);
            WriteReals(report, random, start);
            WriteTexts(report, random, start);
        }
        report.EndBlock(std::to_string(block));
    }
}

void WriteLists(Report& report, const std::filesystem::path&)
{
    Random random(38);
    for (int block = 0; block < 50; ++block) {
        for (int index = 0; index < 1000; ++index) {
            const std::string format = RandomListFormat(random);
            const UtCStringList list = RandomList(random);
            const eUtEncodingType encoding = OneOf(random, encodings);
            UtCString text{RandomText(random, 5, plain), OneOf(random, encodings)};
            UtCString appended = text;
            text.FormatStringList(format.c_str(), list, encoding);
            appended.AppendFormatStringList(format.c_str(), list, encoding);
            report.Line(format, text, appended);
        }
        report.EndBlock(std::to_string(block));
    }
}

} // namespace differential
