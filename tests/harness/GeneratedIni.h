#pragma once

#include <cstddef>
#include <random>
#include <span>
#include <string>

/// Settings files that nobody wrote by hand. Each is built together with what it must give: the values are put into the
/// file, never read out of it. The same random numbers give the same file on every system.
namespace harness {

using IniRandom = std::mt19937;

/// What a load must give. A member that is not set by a file has its default.
struct IniSettings
{
    std::string host = "localhost";
    std::string user = "vela_root";
    std::string programDirectory = {};
    unsigned long port = 0;
};

struct GeneratedIni
{
    std::string bytes;
    IniSettings expected;
};

/// One way to make files, and how many of them are enough.
struct IniKind
{
    const char* name;
    GeneratedIni (*generate)(IniRandom& random);
    int count;
};

/// What every system reads alike.
std::span<const IniKind> IniKinds();

/// With byte-order marks that an INI reader does not know. Wine's knows them.
std::span<const IniKind> IniKindsWithForeignMarks();

GeneratedIni WellFormedIni(IniRandom& random);

/// The text with the letter case of each ASCII letter changed or not.
std::string RandomCase(IniRandom& random, std::string name);

} // namespace harness
