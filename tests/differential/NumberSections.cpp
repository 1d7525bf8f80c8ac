#include "differential/Sections.h"

#include "platform/NumberFormat.h"
#include "sql/KeyValue.h"
#include "sql/ValueText.h"

#include <bit>
#include <cmath>

namespace differential {
namespace {

std::string RandomDigits(Random& random)
{
    constexpr size_t longest[] = {3, 8, 20, 60, 400};
    std::string text(Below(random, 4) == 0 ? Below(random, 6) : 0, '0');
    text += RandomText(random, OneOf(random, longest), "0123456789");
    if (Below(random, 2) == 0)
        text += '.' + RandomText(random, 12, Below(random, 2) == 0 ? "0123456789" : "99945");
    return text;
}

void Damage(Random& random, std::string& text)
{
    constexpr std::string_view others("-+.,' \tex'\0\xB2\xFF", 13);
    const size_t position = Below(random, text.size() + 1);
    text.insert(position, 1, others[Below(random, others.size())]);
}

std::string RandomReal(Random& random)
{
    constexpr const char* blanks[] = {"", "", "", " ", "\t", "  "};
    constexpr const char* signs[] = {"", "", "", "-", "+", "--"};
    std::string text = OneOf(random, blanks);
    text += OneOf(random, signs);
    text += RandomDigits(random);
    if (Below(random, 3) == 0) {
        text += Below(random, 2) == 0 ? 'e' : 'E';
        text += OneOf(random, signs);
        text += std::to_string(Below(random, 400));
    }
    if (Below(random, 16) == 0)
        Damage(random, text);
    text += OneOf(random, blanks);
    return text;
}

template <typename Number> void WriteConversion(Report& report, const UtCString& text, Number untouched)
{
    Number number = untouched;
    const bool isConverted = text.Convert(number);
    report.Line(isConverted, number);
}

void WriteConversions(Report& report, const UtCString& text)
{
    report.Line(text, text.IsNumber());
    WriteConversion<int>(report, text, 4711);
    WriteConversion<long>(report, text, 4711);
    WriteConversion<unsigned long>(report, text, 4711);
    WriteConversion<__int64>(report, text, 4711);
    WriteConversion<float>(report, text, 4711.0F);
    WriteConversion<double>(report, text, 4711.0);
}

double RandomDouble(Random& random)
{
    switch (Below(random, 4)) {
    case 0: // any bits: also infinite and no number
        return std::bit_cast<double>(random());
    case 1: // few decimals
        return Between(random, -100000000, 100000000) / 10000.0;
    default: {
        const double number = static_cast<double>(static_cast<int64_t>(random()));
        return std::ldexp(number, Between(random, -120, 40));
    }
    }
}

void WriteTextsOf(Report& report, Random& random)
{
    const double number = RandomDouble(random);
    const eUtEncodingType encoding = OneOf(random, encodings);
    const int width = Between(random, -2, 102);
    report.Line(number, UtCString(number, encoding), width, UtCString(number, width, encoding),
                UtCString(number, 2, encoding), sql::KeyValue(number), sql::DoubleText(number),
                sql::FloatText(static_cast<float>(number), encoding));
    const auto bits = static_cast<int64_t>(random()) >> Below(random, 64);
    report.Line(UtCString(static_cast<short>(bits), encoding), UtCString(static_cast<int>(bits), encoding),
                UtCString(static_cast<unsigned int>(bits), encoding),
                UtCString(static_cast<long>(static_cast<int32_t>(bits)), encoding),
                UtCString(static_cast<unsigned long>(static_cast<int32_t>(bits)), encoding),
                UtCString(static_cast<__int64>(bits), encoding),
                UtCString(static_cast<unsigned __int64>(bits), encoding));
}

} // namespace

void WriteNumberFormats(Report& report, const std::filesystem::path&)
{
    Random random(1000);
    for (int block = 0; block < 100; ++block) {
        for (int index = 0; index < 1000; ++index) {
            std::string number = RandomDigits(random);
            if (Below(random, 8) == 0)
                Damage(random, number);
            report.Line(number, platform::FormatNumber(number));
        }
        report.EndBlock(std::to_string(block));
    }
}

void WriteNumbers(Report& report, const std::filesystem::path&)
{
    Random random(64);
    for (int block = 0; block < 100; ++block) {
        for (int index = 0; index < 1000; ++index) {
            const UtCString text(RandomReal(random), UT_ENCODING_DEFAULT);
            WriteConversions(report, UtCString(text, OneOf(random, encodings)));
            WriteTextsOf(report, random);
        }
        report.EndBlock(std::to_string(block));
    }
}

} // namespace differential
