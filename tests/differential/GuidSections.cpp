#include "differential/Sections.h"

#include "framework/GuidText.h"
#include "harness/GuidText.h"
#include "sql/KeyValue.h"

namespace differential {
namespace {

constexpr std::string_view digits = "0123456789abcdefABCDEF";

char OneCharacter(Random& random, std::string_view set)
{
    return set[Below(random, set.size())];
}

std::string StandardForm(Random& random)
{
    std::string text;
    for (const int group : {8, 4, 4, 4, 12}) {
        text += text.empty() ? "" : "-";
        for (int count = group; count > 0; --count)
            text += OneCharacter(random, digits);
    }
    return text;
}

/// With what people and programs write around it.
std::string Decorated(Random& random, const std::string& text)
{
    constexpr const char* starts[] = {"", "", "{", "guid", "UUID{", "{{", " ", "{guid {", "Guid:", "\t", "GUID  "};
    constexpr const char* ends[] = {"", "", "}", "}}", " ", "} ", "\t", ";"};
    std::string whole = OneOf(random, starts);
    whole += text;
    whole += OneOf(random, ends);
    return whole;
}

std::string Mangled(Random& random, std::string text)
{
    constexpr std::string_view others("0aF-- {}gGxX:\t\0\x80\xFF\n+", 19);
    const size_t position = Below(random, text.size());
    switch (Below(random, 4)) {
    case 0:
        return text.erase(position, 1 + Below(random, 3));
    case 1:
        return text.insert(position, 1, OneCharacter(random, others));
    case 2:
        text[position] = OneCharacter(random, others);
        return text;
    default:
        return text.substr(0, position);
    }
}

void WriteGuid(Report& report, const UtCString& text)
{
    const _GUID loose = framework::GuidFromLooseText(text);
    _GUID strict{};
    const bool isStrict = platform::GuidFromText(text.View(), strict);
    report.Line(text, GuidText(loose), isStrict, GuidText(strict), sql::KeyValue(loose));
}

} // namespace

void WriteGuids(Report& report, const std::filesystem::path&)
{
    Random random(128);
    for (int block = 0; block < 20; ++block) {
        for (int index = 0; index < 1000; ++index) {
            std::string text = StandardForm(random);
            if (Below(random, 2) == 0)
                text = Decorated(random, text);
            if (Below(random, 2) == 0)
                text = Mangled(random, text);
            const UtCString ansi(text, UT_ENCODING_DEFAULT);
            WriteGuid(report, UtCString(ansi, OneOf(random, encodings)));
        }
        report.EndBlock(std::to_string(block));
    }
}

} // namespace differential
