#include "CMyServer.h"

#include "IniFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include <unistd.h>

// Files that nobody wrote by hand. Each is built together with what it must give: the values are put into the file,
// never read out of it.

namespace {

using Random = std::mt19937;

std::size_t Below(Random& random, std::size_t limit)
{
    return random() % limit;
}

struct Entry
{
    std::string key;
    std::string value;
};

/// What a load must give. A member that is not set by a case has its default.
struct Expected
{
    std::string host = "localhost";
    std::string user = "vela_root";
    std::string programDirectory = {};
    unsigned long port = 0;
};

struct Generated
{
    std::string bytes;
    Expected expected;
};

std::string RandomWord(Random& random, std::size_t longest)
{
    static const std::string letters = "abcdefghijklmnopqrstuvwxyzABCXYZ0123456789=;[]:\\/.-_%\xE4\xFC\xDF\x80";
    std::string word = "w"; // never a digit alone, a quote or the start of a comment
    for (std::size_t length = Below(random, longest); length > 0; --length)
        word += letters[Below(random, letters.size())];
    return word;
}

std::string RandomCase(Random& random, std::string name)
{
    for (char& character : name)
        if (Below(random, 2) == 0)
            character = static_cast<char>(character >= 'a' && character <= 'z'   ? character - 'a' + 'A'
                                          : character >= 'A' && character <= 'Z' ? character - 'A' + 'a'
                                                                                 : character);
    return name;
}

std::string RandomBlanks(Random& random)
{
    static const char* const blanks[] = {"", "", "", " ", "\t", "  \t "};
    return blanks[Below(random, 6)];
}

std::string RandomLineEnd(Random& random)
{
    return Below(random, 2) == 0 ? "\n" : "\r\n";
}

std::string Quoted(Random& random, const std::string& value)
{
    static const char* const quotes[] = {"", "", "\"", "'"};
    const std::string quote = quotes[Below(random, 4)];
    return quote + value + quote;
}

std::string EntryLine(Random& random, const Entry& entry)
{
    return RandomBlanks(random) + RandomCase(random, entry.key) + RandomBlanks(random) + "=" + RandomBlanks(random) +
           Quoted(random, entry.value) + RandomBlanks(random) + RandomLineEnd(random);
}

std::string HeaderLine(Random& random, const std::string& name)
{
    return RandomBlanks(random) + "[" + RandomBlanks(random) + RandomCase(random, name) + RandomBlanks(random) + "]" +
           RandomBlanks(random) + RandomLineEnd(random);
}

/// A line that changes nothing, wherever it stands.
std::string NoiseLine(Random& random)
{
    static const char* const lines[] = {"",        ";Port=1",       "  ; Server=wrong",  "Port",
                                        "=Port=1", "[SQL-Server",   "\"Port\"=1",        "Port2=1",
                                        "#Port=1", "XServer=wrong", "\xEF\xBB\xBFPort=1"};
    return lines[Below(random, 11)] + RandomLineEnd(random);
}

std::vector<Entry> EntriesOf(const Expected& expected)
{
    return {{"Server", expected.host},
            {"User", expected.user},
            {"ServerDir", expected.programDirectory},
            {"Port", std::to_string(expected.port)}};
}

Expected RandomExpected(Random& random)
{
    return {RandomWord(random, 40), RandomWord(random, 40), RandomWord(random, 200), 1 + Below(random, 65535)};
}

std::string SectionOf(Random& random, const Expected& expected)
{
    std::vector<Entry> entries = EntriesOf(expected);
    std::shuffle(entries.begin(), entries.end(), random);
    std::string bytes = HeaderLine(random, "SQL-Server");
    for (const Entry& entry : entries)
        bytes += NoiseLine(random) + EntryLine(random, entry);
    return bytes;
}

std::string ForeignSection(Random& random)
{
    std::string bytes = HeaderLine(random, "Other" + RandomWord(random, 5).substr(0, 1));
    for (const Entry& entry : EntriesOf(RandomExpected(random)))
        bytes += EntryLine(random, entry);
    return bytes;
}

Generated WellFormed(Random& random)
{
    const Expected expected = RandomExpected(random);
    return {NoiseLine(random) + ForeignSection(random) + SectionOf(random, expected) + ForeignSection(random),
            expected};
}

/// Cut anywhere: what stands in front of the cut counts.
Generated Truncated(Random& random)
{
    const Expected whole = RandomExpected(random);
    std::string bytes = "[SQL-Server]\r\n";
    const std::size_t cut = Below(random, 320);
    const auto add = [&bytes, cut](const std::string& key, const std::string& value, const std::string& fallback) {
        bytes += key + "=";
        const std::size_t start = bytes.size();
        bytes += value + "\r\n";
        return start <= cut ? value.substr(0, cut - start) : fallback;
    };
    Expected expected;
    const std::string port = add("Port", "54321", "");
    expected.host = add("Server", whole.host, "localhost");
    expected.user = add("User", whole.user, "vela_root");
    expected.programDirectory = add("ServerDir", whole.programDirectory, "");
    for (const char digit : port)
        expected.port = 10 * expected.port + static_cast<unsigned long>(digit - '0');
    return {bytes.substr(0, cut), expected};
}

std::string RandomBytes(Random& random, std::size_t count)
{
    std::string bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

Generated Binary(Random& random)
{
    std::string bytes = RandomBytes(random, Below(random, 3000));
    std::replace(bytes.begin(), bytes.end(), '[', 'x');
    return {bytes, {}};
}

Generated BinaryInFront(Random& random)
{
    const Expected expected = RandomExpected(random);
    return {"x" + RandomBytes(random, Below(random, 3000)) + "\n" + SectionOf(random, expected), expected};
}

Generated LongLine(Random& random)
{
    const Expected expected = RandomExpected(random);
    const std::string filler(1 + Below(random, 200000), static_cast<char>('a' + Below(random, 26)));
    static const char* const starts[] = {";", "x", "x=", "[", "Port", " ", "[x]"};
    return {starts[Below(random, 7)] + filler + "\n" + SectionOf(random, expected) + filler, expected};
}

Generated LongValue(Random& random)
{
    Expected expected = RandomExpected(random);
    expected.host = std::string(256 + Below(random, 100000), 'h');
    const std::string bytes = SectionOf(random, expected);
    expected.host.resize(255);
    return {bytes, expected};
}

Generated ManySections(Random& random)
{
    const Expected expected = RandomExpected(random);
    std::string bytes;
    for (std::size_t count = Below(random, 2000); count > 0; --count)
        bytes += "[Section" + std::to_string(count) + "]\nPort=" + std::to_string(count) + "\n";
    return {bytes + SectionOf(random, expected) + bytes, expected};
}

Generated Duplicates(Random& random)
{
    const Expected expected = RandomExpected(random);
    std::string bytes = SectionOf(random, expected);
    for (const Entry& entry : EntriesOf(RandomExpected(random)))
        bytes += EntryLine(random, entry);
    return {bytes + SectionOf(random, RandomExpected(random)), expected};
}

Generated MissingSection(Random& random)
{
    static const char* const headers[] = {"", "[SQL Server]\n", "[\"SQL-Server\"]\n", "[SQL-Server2]\n",
                                          ";[SQL-Server]\n"};
    std::string bytes = headers[Below(random, 5)];
    for (const Entry& entry : EntriesOf(RandomExpected(random)))
        bytes += EntryLine(random, entry);
    return {bytes, {}};
}

Generated Utf8Mark(Random& random)
{
    const Expected expected = RandomExpected(random);
    if (Below(random, 2) == 0)
        return {"\xEF\xBB\xBF" + SectionOf(random, expected), {}};
    return {"\xEF\xBB\xBF" + RandomLineEnd(random) + SectionOf(random, expected), expected};
}

std::string Utf16(const std::string& ascii, bool lowByteFirst)
{
    std::string bytes = lowByteFirst ? "\xFF\xFE" : "\xFE\xFF";
    for (const char character : ascii)
        bytes += lowByteFirst ? std::string{character, '\0'} : std::string{'\0', character};
    return bytes;
}

Generated Utf16LowByteFirst(Random& random)
{
    const Expected expected{"db" + std::to_string(random()), "kim", "C:\\sql", 1 + Below(random, 65535)};
    std::string bytes = "[SQL-Server]\r\n";
    for (const Entry& entry : EntriesOf(expected))
        bytes += EntryLine(random, entry);
    return {Utf16(bytes, true), expected};
}

Generated Utf16HighByteFirst(Random& random)
{
    return {Utf16("[SQL-Server]\r\nPort=" + std::to_string(random()) + "\r\n", false), {}};
}

/// What stands behind the "=", and the value that it is.
struct QuotedValue
{
    const char* written;
    const char* value;
};

const QuotedValue& RandomQuotedValue(Random& random)
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

Generated QuotesInValues(Random& random)
{
    const QuotedValue& host = RandomQuotedValue(random);
    const QuotedValue& user = RandomQuotedValue(random);
    const QuotedValue& programs = RandomQuotedValue(random);
    const unsigned long port = 1 + Below(random, 65535);
    return {HeaderLine(random, "SQL-Server") + "Server= " + host.written + " \r\nUser=" + user.written +
                "\nServerDir=\t" + programs.written + "\r\nPort=\"" + std::to_string(port) + "\"",
            {host.value, user.value, programs.value, port}};
}

/// Names in quotes are other names, and a quoted header is no header.
Generated QuotesInNames(Random& random)
{
    const Expected expected = RandomExpected(random);
    std::string bytes = "[\"SQL-Server\"]\nPort=1\n'[SQL-Server]'\nPort=2\n['SQL-Server']\nPort=3\n";
    bytes += HeaderLine(random, "SQL-Server");
    for (const Entry& entry : EntriesOf(expected)) {
        for (const char* const quote : {"\"", "'", "`"})
            bytes += quote + entry.key + quote + "=1\n";
        bytes += EntryLine(random, entry);
    }
    return {bytes, expected};
}

using Generator = Generated (*)(Random&);

struct Kind
{
    const char* name;
    Generator generate;
    int count;
};

const Kind kinds[] = {
    {"WellFormed", WellFormed, 500},
    {"Truncated", Truncated, 500},
    {"Binary", Binary, 200},
    {"BinaryInFront", BinaryInFront, 200},
    {"LongLine", LongLine, 60},
    {"LongValue", LongValue, 60},
    {"ManySections", ManySections, 60},
    {"Duplicates", Duplicates, 300},
    {"MissingSection", MissingSection, 150},
    {"Utf8Mark", Utf8Mark, 100},
    {"Utf16LowByteFirst", Utf16LowByteFirst, 100},
    {"Utf16HighByteFirst", Utf16HighByteFirst, 50},
    {"QuotesInValues", QuotesInValues, 200},
    {"QuotesInNames", QuotesInNames, 100},
};

void ExpectLoaded(const std::string& path, const Expected& expected)
{
    const std::string port = std::to_string(expected.port);
    CMyServer server;
    const bool isValid = !expected.host.empty() && !expected.user.empty() && expected.port != 0;
    EXPECT_EQ(server.LoadServerINI(path.c_str()), isValid);
    EXPECT_EQ(server.GetHost().View(), expected.host);
    EXPECT_EQ(server.GetUser().View(), expected.user);
    EXPECT_EQ(server.GetMySQLProgramDir().View(), expected.programDirectory);
    EXPECT_EQ(server.GetPort(), expected.port);
    EXPECT_EQ(server.GetAlias().View(), expected.host + "::" + port);
    EXPECT_EQ(server.GetServerINIFileName().View(), path);
}

class GeneratedServerIni : public testing::TestWithParam<Kind>
{
};

TEST_P(GeneratedServerIni, GivesItsDefinedResult)
{
    const IniFolder folder;
    Random random(20240229);
    for (int index = 0; index < GetParam().count; ++index) {
        const Generated file = GetParam().generate(random);
        ExpectLoaded(folder.Write(file.bytes), file.expected);
        ASSERT_FALSE(HasFailure()) << "file " << index << ": " << testing::PrintToString(file.bytes.substr(0, 2000));
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, GeneratedServerIni, testing::ValuesIn(kinds),
                         [](const auto& row) { return row.param.name; });

std::string RandomIniName(Random& random)
{
    return "it's \"" + RandomCase(random, "settings") + "\" " + std::to_string(random()) + RandomCase(random, ".ini");
}

TEST(UnusableServerIni, AFolderInPlaceOfTheFileIsNoFile)
{
    const IniFolder folder;
    Random random(20240229);
    for (int index = 0; index < 50; ++index) {
        const std::string path = folder.PathOf(RandomIniName(random));
        std::filesystem::create_directory(path);
        CMyServer server;
        ASSERT_FALSE(server.LoadServerINI(path.c_str())) << path;
        ASSERT_TRUE(server.GetHost().IsEmpty() && server.GetUser().IsEmpty() && server.GetAlias().IsEmpty()) << path;
        ASSERT_TRUE(server.GetServerINIFileName().IsEmpty()) << path;
    }
}

TEST(UnusableServerIni, AFileThatCannotBeReadGivesTheDefaults)
{
    const IniFolder folder;
    Random random(20240229);
    std::vector<std::string> paths;
    for (int index = 0; index < 50; ++index) {
        paths.push_back(folder.Write(WellFormed(random).bytes, RandomIniName(random)));
        std::filesystem::permissions(paths.back(), std::filesystem::perms::none);
    }
    const bool isRoot = geteuid() == 0; // whom the permissions do not stop
    ASSERT_TRUE(!isRoot || seteuid(65534) == 0);
    for (const std::string& path : paths)
        ExpectLoaded(path, {});
    ASSERT_TRUE(!isRoot || seteuid(0) == 0);
}

TEST(HugeServerIni, ALineOfTenMegabytesIsRead)
{
    const IniFolder folder;
    const std::string filler(10'000'000, 'x');
    const Expected expected{"db", "kim", "", 3306};
    const std::string entries = "\n[SQL-Server]\nServer=db\nPort=3306\nUser=kim\n";
    ExpectLoaded(folder.Write(filler + entries), expected);
    ExpectLoaded(folder.Write("[" + filler + "]" + entries), expected);
    ExpectLoaded(folder.Write(entries + "ServerDir=\"" + filler + "\"\n"), {"db", "kim", std::string(255, 'x'), 3306});
}

TEST(HugeServerIni, AHundredThousandSectionsAreRead)
{
    const IniFolder folder;
    std::string bytes;
    for (int index = 0; index < 100'000; ++index)
        bytes += "[Section" + std::to_string(index) + "]\r\nPort=1\r\nServer=wrong\r\n";
    ExpectLoaded(folder.Write(bytes + "[SQL-Server]\r\nServer=db\r\nPort=3306\r\nUser=kim\r\n"),
                 {"db", "kim", "", 3306});
    ExpectLoaded(folder.Write(bytes), {});
}

} // namespace
