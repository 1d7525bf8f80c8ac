#include "platform/posix/Terminal.h"

#include "platform/posix/Recode.h"
#include "platform/posix/UserLocale.h"

#include <cstdio>
#include <cstdlib>
#include <langinfo.h>

namespace platform {
namespace {

std::string_view UserLocaleName()
{
    for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* const value = std::getenv(variable); value && *value)
            return value;
    return {};
}

} // namespace

std::string TerminalCodeset()
{
    const UserLocale locale(LC_CTYPE_MASK);
    if (locale.IsInstalled())
        return nl_langinfo_l(CODESET, locale.Handle());
    const std::string_view name = UserLocaleName();
    const size_t dot = name.find('.');
    return dot == std::string_view::npos ? "ASCII" : std::string(name.substr(dot + 1, name.find('@') - dot - 1));
}

std::string EncodeForTerminal(std::string_view utf8, const std::string& codeset)
{
    std::string encoded;
    if (!Recode(utf8, "UTF-8", codeset.c_str(), encoded))
        Recode(utf8, "UTF-8", "ASCII", encoded);
    return encoded;
}

void WriteToTerminal(std::string_view utf8) noexcept
try {
    const std::string line = EncodeForTerminal(utf8, TerminalCodeset()) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
} catch (...) {
    // Without memory for the conversion there is nothing that could be shown.
}

} // namespace platform
