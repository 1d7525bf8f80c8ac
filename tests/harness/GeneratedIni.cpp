#include "harness/GeneratedIni.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <vector>

namespace harness {

namespace {

std::size_t Below(IniRandom& random, std::size_t limit)
{
    return random() % limit;
}

} // namespace

std::string RandomCase(IniRandom& random, std::string name)
{
    for (char& character : name)
        if (Below(random, 2) == 0)
            character = static_cast<char>(character >= 'a' && character <= 'z'   ? character - 'a' + 'A'
                                          : character >= 'A' && character <= 'Z' ? character - 'A' + 'a'
                                                                                 : character);
    return name;
}

namespace {

// The pieces are made one after the other, which the operands of "+" are not for sure.
std::string Joined(std::initializer_list<std::string> pieces)
{
    std::string text;
    for (const std::string& piece : pieces)
        text += piece;
    return text;
}

struct Entry
{
    std::string key;
    std::string value;
};

std::string RandomWord(IniRandom& random, std::size_t longest)
{
    static const std::string letters = "abcdefghijklmnopqrstuvwxyzABCXYZ0123456789=;[]:\\/.-_%\xE4\xFC\xDF\x80";
    std::string word = "w"; // never a digit alone, a quote or the start of a comment
    for (std::size_t length = Below(random, longest); length > 0; --length)
        word += letters[Below(random, letters.size())];
    return word;
}

std::string RandomBlanks(IniRandom& random)
{
    static const char* const blanks[] = {"", "", "", " ", "\t", "  \t "};
    return blanks[Below(random, 6)];
}

std::string RandomLineEnd(IniRandom& random)
{
    return Below(random, 2) == 0 ? "\n" : "\r\n";
}

std::string Quoted(IniRandom& random, const std::string& value)
{
    static const char* const quotes[] = {"", "", "\"", "'"};
    const std::string quote = quotes[Below(random, 4)];
    return quote + value + quote;
}

std::string EntryLine(IniRandom& random, const Entry& entry)
{
    return Joined({RandomBlanks(random), RandomCase(random, entry.key), RandomBlanks(random), "=", RandomBlanks(random),
                   Quoted(random, entry.value), RandomBlanks(random), RandomLineEnd(random)});
}

std::string HeaderLine(IniRandom& random, const std::string& name)
{
    return Joined({RandomBlanks(random), "[", RandomBlanks(random), RandomCase(random, name), RandomBlanks(random), "]",
                   RandomBlanks(random), RandomLineEnd(random)});
}

/// A line that changes nothing, wherever it stands.
std::string NoiseLine(IniRandom& random)
{
    static const char* const lines[] = {"",        ";Port=1",       "  ; Server=wrong",  "Ports",
                                        "=Port=1", "[SQL-Server",   "\"Port\"=1",        "Port2=1",
                                        "#Port=1", "XServer=wrong", "\xEF\xBB\xBFPort=1"};
    return Joined({lines[Below(random, 11)], RandomLineEnd(random)});
}

std::vector<Entry> EntriesOf(const IniSettings& expected)
{
    return {{"Server", expected.host},
            {"User", expected.user},
            {"ServerDir", expected.programDirectory},
            {"Port", std::to_string(expected.port)}};
}

unsigned long RandomPort(IniRandom& random)
{
    return static_cast<unsigned long>(1 + Below(random, 65535));
}

IniSettings RandomExpected(IniRandom& random)
{
    return {RandomWord(random, 40), RandomWord(random, 40), RandomWord(random, 200), RandomPort(random)};
}

std::string SectionOf(IniRandom& random, const IniSettings& expected)
{
    std::vector<Entry> entries = EntriesOf(expected);
    std::shuffle(entries.begin(), entries.end(), random);
    std::string bytes = HeaderLine(random, "SQL-Server");
    for (const Entry& entry : entries)
        bytes += Joined({NoiseLine(random), EntryLine(random, entry)});
    return bytes;
}

std::string ForeignSection(IniRandom& random)
{
    std::string bytes = HeaderLine(random, "Other" + RandomWord(random, 5).substr(0, 1));
    for (const Entry& entry : EntriesOf(RandomExpected(random)))
        bytes += EntryLine(random, entry);
    return bytes;
}

/// Cut anywhere: what stands in front of the cut counts.
GeneratedIni Truncated(IniRandom& random)
{
    const IniSettings whole = RandomExpected(random);
    std::string bytes = "[SQL-Server]\r\n";
    const std::size_t cut = Below(random, 320);
    const auto add = [&bytes, cut](const std::string& key, const std::string& value, const std::string& fallback) {
        bytes += key + "=";
        const std::size_t start = bytes.size();
        bytes += value + "\r\n";
        return start <= cut ? value.substr(0, cut - start) : fallback;
    };
    IniSettings expected;
    const std::string port = add("Port", "54321", "");
    expected.host = add("Server", whole.host, "localhost");
    expected.user = add("User", whole.user, "vela_root");
    expected.programDirectory = add("ServerDir", whole.programDirectory, "");
    for (const char digit : port)
        expected.port = 10 * expected.port + static_cast<unsigned long>(digit - '0');
    return {bytes.substr(0, cut), expected};
}

std::string RandomBytes(IniRandom& random, std::size_t count)
{
    std::string bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

GeneratedIni Binary(IniRandom& random)
{
    std::string bytes = RandomBytes(random, Below(random, 3000));
    std::replace(bytes.begin(), bytes.end(), '[', 'x');
    return {bytes, {}};
}

GeneratedIni BinaryInFront(IniRandom& random)
{
    const IniSettings expected = RandomExpected(random);
    return {Joined({"x", RandomBytes(random, Below(random, 3000)), "\n", SectionOf(random, expected)}), expected};
}

GeneratedIni LongLine(IniRandom& random)
{
    const IniSettings expected = RandomExpected(random);
    const char letter = static_cast<char>('a' + Below(random, 26));
    const std::string filler(1 + Below(random, 200000), letter);
    static const char* const starts[] = {";", "x", "x=", "[", "Port", " ", "[x]"};
    return {Joined({starts[Below(random, 7)], filler, "\n", SectionOf(random, expected), filler}), expected};
}

GeneratedIni LongValue(IniRandom& random)
{
    IniSettings expected = RandomExpected(random);
    expected.host = std::string(256 + Below(random, 100000), 'h');
    const std::string bytes = SectionOf(random, expected);
    expected.host.resize(255);
    return {bytes, expected};
}

GeneratedIni ManySections(IniRandom& random)
{
    const IniSettings expected = RandomExpected(random);
    std::string bytes;
    for (std::size_t count = Below(random, 2000); count > 0; --count)
        bytes += "[Section" + std::to_string(count) + "]\nPort=" + std::to_string(count) + "\n";
    return {bytes + SectionOf(random, expected) + bytes, expected};
}

GeneratedIni Duplicates(IniRandom& random)
{
    const IniSettings expected = RandomExpected(random);
    std::string bytes = SectionOf(random, expected);
    for (const Entry& entry : EntriesOf(RandomExpected(random)))
        bytes += EntryLine(random, entry);
    return {bytes + SectionOf(random, RandomExpected(random)), expected};
}

GeneratedIni MissingSection(IniRandom& random)
{
    static const char* const headers[] = {"", "[SQL Server]\n", "[\"SQL-Server\"]\n", "[SQL-Server2]\n",
                                          ";[SQL-Server]\n"};
    std::string bytes = headers[Below(random, 5)];
    for (const Entry& entry : EntriesOf(RandomExpected(random)))
        bytes += EntryLine(random, entry);
    return {bytes, {}};
}

GeneratedIni Utf8Mark(IniRandom& random)
{
    const IniSettings expected = RandomExpected(random);
    if (Below(random, 2) == 0)
        return {"\xEF\xBB\xBF" + SectionOf(random, expected), {}};
    return {Joined({"\xEF\xBB\xBF", RandomLineEnd(random), SectionOf(random, expected)}), expected};
}

std::string Utf16(const std::string& ascii, bool lowByteFirst)
{
    std::string bytes = lowByteFirst ? "\xFF\xFE" : "\xFE\xFF";
    for (const char character : ascii)
        bytes += lowByteFirst ? std::string{character, '\0'} : std::string{'\0', character};
    return bytes;
}

GeneratedIni Utf16LowByteFirst(IniRandom& random)
{
    const IniSettings expected{"db" + std::to_string(random()), "kim", "C:\\sql", RandomPort(random)};
    std::string bytes = "[SQL-Server]\r\n";
    for (const Entry& entry : EntriesOf(expected))
        bytes += EntryLine(random, entry);
    return {Utf16(bytes, true), expected};
}

GeneratedIni Utf16HighByteFirst(IniRandom& random)
{
    return {Utf16("[SQL-Server]\r\nPort=" + std::to_string(random()) + "\r\n", false), {}};
}

/// What stands behind the "=", and the value that it is.
struct QuotedValue
{
    const char* written;
    const char* value;
};

const QuotedValue& RandomQuotedValue(IniRandom& random)
{
    static const QuotedValue values[] = {
        {"\"db\"", "db"},
        {"'db'", "db"},
        {"\"\"db\"\"", "\"db\""},
        {"'\"db\"'", "\"db\""},
        {"\"db'", "\"db'"},
        {"'db\"", "'db\""},
        {"\"db", "\"db"},
        {"db\"", "db\""},
        {"O'Brien", "O'Brien"},
        {"\"a\" b", "\"a\" b"},
        {"\" db \"", " db "},
        {"'\tdb'", "\tdb"},
        {"\"", "\""},
        {"'", "'"},
        {"\"\"", ""},
        {"' '", " "},
        {"\"a\"b\"", "a\"b"},
        {"a\"b", "a\"b"},
        {"`db`", "`db`"},
        {"\"db\";x", "\"db\";x"},
        {"\"it's; 'q'\"", "it's; 'q'"},
    };
    return values[Below(random, std::size(values))];
}

GeneratedIni QuotesInValues(IniRandom& random)
{
    const QuotedValue& host = RandomQuotedValue(random);
    const QuotedValue& user = RandomQuotedValue(random);
    const QuotedValue& programs = RandomQuotedValue(random);
    const unsigned long port = RandomPort(random);
    return {HeaderLine(random, "SQL-Server") + "Server= " + host.written + " \r\nUser=" + user.written +
                "\nServerDir=\t" + programs.written + "\r\nPort=\"" + std::to_string(port) + "\"",
            {host.value, user.value, programs.value, port}};
}

/// Names in quotes are other names, and a quoted header is no header.
GeneratedIni QuotesInNames(IniRandom& random)
{
    const IniSettings expected = RandomExpected(random);
    std::string bytes = "[\"SQL-Server\"]\nPort=1\n'[SQL-Server]'\nPort=2\n['SQL-Server']\nPort=3\n";
    bytes += HeaderLine(random, "SQL-Server");
    for (const Entry& entry : EntriesOf(expected)) {
        for (const char* const quote : {"\"", "'", "`"})
            bytes += quote + entry.key + quote + "=1\n";
        bytes += EntryLine(random, entry);
    }
    return {bytes, expected};
}

} // namespace

GeneratedIni WellFormedIni(IniRandom& random)
{
    const IniSettings expected = RandomExpected(random);
    return {Joined({RandomLineEnd(random), NoiseLine(random), ForeignSection(random), SectionOf(random, expected),
                    ForeignSection(random)}),
            expected};
}

namespace {

const IniKind kinds[] = {
    {"WellFormed", WellFormedIni, 500},
    {"Truncated", Truncated, 500},
    {"Binary", Binary, 200},
    {"BinaryInFront", BinaryInFront, 200},
    {"LongLine", LongLine, 60},
    {"LongValue", LongValue, 60},
    {"ManySections", ManySections, 60},
    {"Duplicates", Duplicates, 300},
    {"MissingSection", MissingSection, 150},
    {"Utf16LowByteFirst", Utf16LowByteFirst, 100},
    {"QuotesInValues", QuotesInValues, 200},
    {"QuotesInNames", QuotesInNames, 100},
};

const IniKind kindsWithForeignMarks[] = {
    {"Utf8Mark", Utf8Mark, 100},
    {"Utf16HighByteFirst", Utf16HighByteFirst, 50},
};

} // namespace

std::span<const IniKind> IniKinds()
{
    return kinds;
}

std::span<const IniKind> IniKindsWithForeignMarks()
{
    return kindsWithForeignMarks;
}

} // namespace harness
