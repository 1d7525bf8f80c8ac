#include "differential/Sections.h"

#include "CMyServer.h"
#include "harness/GeneratedIni.h"
#include "platform/IniFile.h"

namespace differential {
namespace {

std::string Value(const std::string& path, const char* section, const char* key, const char* defaultValue)
{
    const platform::IniValue value = platform::ReadIniValue(path, section, key, defaultValue);
    return {value.text, value.length};
}

std::string Write(const std::filesystem::path& folder, const std::string& name, std::string_view bytes)
{
    const std::filesystem::path path = folder / (name + ".ini");
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path.string();
}

void WriteSettings(Report& report, const std::string& name, const std::string& path)
{
    CMyServer server;
    const bool isLoaded = server.LoadServerINI(path.c_str());
    report.Line(name, isLoaded, server.GetHost(), server.GetUser(), server.GetMySQLProgramDir(), server.GetPort(),
                server.GetAlias(), server.GetPassword(), server.GetCharset(), server.GetDataDir(),
                server.IsConnectAllowed(), server.GetServerINIFileName().View() == path);
    report.Line(name, Value(path, "sql-SERVER", "server", "none"), Value(path, "SQL-Server", "XServer", "none"),
                Value(path, "Other", "Port", ""), Value(path, "SQL-Server", "Port2", " blank"));
}

void WriteKind(Report& report, const harness::IniKind& kind, const std::filesystem::path& folder)
{
    harness::IniRandom random(20240229);
    for (int index = 0; index < kind.count; ++index) {
        const std::string name = kind.name + std::to_string(index);
        WriteSettings(report, name, Write(folder, name, kind.generate(random).bytes));
    }
    report.EndBlock(kind.name);
}

// Each byte where it could mean something: in names, in front of a value, inside and behind it. Left out are those that
// the systems read in different ways: the zero byte, a lone carriage return, Ctrl+Z and a second "]". docs/porting.md
// tells how.
void WriteBytes(Report& report, const std::filesystem::path& folder)
{
    for (int number = 1; number < 256; ++number) {
        if (number == '\r' || number == 0x1A || number == ']')
            continue;
        const std::string byte(1, static_cast<char>(number));
        const std::string name = "byte" + std::to_string(number);
        const std::string path = Write(folder, name,
                                       "[a" + byte + "]\nk=1\n[b]" + byte + "\nk=2\n[c]\n" + byte + "k=3\n[d]\nk" +
                                           byte + "=4\n[e]\nk=" + byte + "5\n[f]\nk=6" + byte + "6\n[g]\nk=7" + byte +
                                           "\n[h]\nk=\"8" + byte + "\"\n" + byte + "[i]\nk=9\n" + byte + "\n[j]\nk=10" +
                                           byte + "\"\n[SQL-Server]\nServer='" + byte + "'\n");
        for (const char* const section : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"})
            report.Line(name, section, Value(path, section, "k", "none"));
        WriteSettings(report, name, path);
    }
    report.EndBlock("bytes");
}

} // namespace

void WriteIniFiles(Report& report, const std::filesystem::path& folder)
{
    for (const harness::IniKind& kind : harness::IniKinds())
        WriteKind(report, kind, folder);
    WriteBytes(report, folder);
}

} // namespace differential
