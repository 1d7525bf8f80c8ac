#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A text that is read in the user's locale.
struct LocaleCase
{
    const char* name;
    const char* locale;   ///< "de_DE", "en_US"; empty in both
    const char* text;     ///< in UTF-8
    const char* expected; ///< as `Shown` writes it, without the status; null when the text is refused
    unsigned long flags = 0;
};

/// The locale that the program runs in, "de_DE" or "en_US".
std::string LocaleOfUser();

/// Those of the user's locale.
std::vector<LocaleCase> CasesOfUser(const std::vector<LocaleCase>& cases);

/// Reads the text with `CDateTime::ParseDate` and, with flags 0, from a VARIANT.
class LocaleDates : public testing::TestWithParam<LocaleCase>
{
};

inline std::string NameOfCase(const testing::TestParamInfo<LocaleCase>& info)
{
    return info.param.name;
}
