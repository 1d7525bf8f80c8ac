#pragma once

#include "harness/ChildProcess.h"
#include "harness/TemporaryFolder.h"
#include "unit/Environment.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

// glibc never frees the search path that it makes of LOCPATH; the leak sanitizer asks here what to pass over. The name
// is a part of the function's, which differs with and without debug information.
extern "C" [[gnu::used, gnu::visibility("default")]] inline const char* __lsan_default_suppressions()
{
    return "leak:argz_add_sep";
}

/// A locale in ISO 8859-1 that the system's localedef makes, and the user's locale for the life of the object. So a
/// test needs no locale to be installed.
class TestLocale
{
public:
    /// What a locale says about dates, as localedef reads it: with `<U00E4>` for a character outside ASCII. A text
    /// of more than 50 characters would crash localedef.
    struct Dates
    {
        const char* form;
        const char* march;
        const char* shortMarch;
        const char* tuesday;
        const char* shortTuesday;
        const char* am;
        const char* pm;
    };

    explicit TestLocale(const Dates& dates)
    {
        std::ofstream(File("charmap")) << "<code_set_name> ISO-8859-1\n<mb_cur_min> 1\n<mb_cur_max> 1\n"
                                          "<comment_char> %\n<escape_char> /\n"
                                          "CHARMAP\n<U0000>..<U00FE> /x00\nEND CHARMAP\n";
        std::ofstream(File("source")) << Source(dates);
        // Its exit code tells of the categories that are left out, too.
        harness::ChildProcess("localedef",
                              {"--no-archive", "--force", "--quiet", "--charmap=" + File("charmap").string(),
                               "--inputfile=" + File("source").string(), File("test").string()},
                              File("output"))
            .WaitForEnd();
        if (!std::filesystem::exists(File("test") / "LC_TIME"))
            throw std::runtime_error("localedef made no locale");
    }

private:
    std::filesystem::path File(const char* name) const { return m_folder.Path() / name; }

    // A locale that names one pair of letters must name them all.
    static std::string LetterCase()
    {
        std::string upper = "toupper (<U00E4>,<U00C4>)";
        std::string lower = "tolower (<U00C4>,<U00E4>)";
        for (unsigned capital = 'A'; capital <= 'Z'; ++capital) {
            char pair[40];
            std::snprintf(pair, sizeof pair, ";(<U%04X>,<U%04X>)", capital + 32, capital);
            upper += pair;
            std::snprintf(pair, sizeof pair, ";(<U%04X>,<U%04X>)", capital, capital + 32);
            lower += pair;
        }
        return upper + '\n' + lower + '\n';
    }

    static std::string Source(const Dates& dates)
    {
        std::ostringstream source;
        source << "LC_CTYPE\n"
               << LetterCase() << "END LC_CTYPE\nLC_TIME\nday \"sunday\";\"monday\";\"" << dates.tuesday
               << "\";\"wednesday\";\"thursday\";\"friday\";\"saturday\"\nabday \"su\";\"mo\";\"" << dates.shortTuesday
               << "\";\"we\";\"th\";\"fr\";\"sa\"\nmon \"january\";\"february\";\"" << dates.march
               << "\";\"april\";\"may\";\"june\";\"july\";\"august\";\"september\";\"october\";\"november\";"
                  "\"december\"\nabmon \"ja\";\"fe\";\""
               << dates.shortMarch << "\";\"ap\";\"my\";\"jn\";\"jl\";\"au\";\"se\";\"oc\";\"no\";\"de\"\nd_fmt \""
               << dates.form << "\"\nd_t_fmt \"%F %T\"\nt_fmt \"%T\"\nt_fmt_ampm \"\"\nam_pm \"" << dates.am << "\";\""
               << dates.pm << "\"\nEND LC_TIME\n";
        return source.str();
    }

    harness::TemporaryFolder m_folder;
    Environment m_place{"LOCPATH", m_folder.Path().c_str()};
    Environment m_name{"LC_ALL", "test"};
};
