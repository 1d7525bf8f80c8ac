#pragma once

#include "differential/Report.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>

namespace differential {

/// The same sequence on every system; the distributions of the standard library are not.
using Random = std::mt19937_64;

/// A number from 0 to limit - 1.
inline size_t Below(Random& random, size_t limit)
{
    return static_cast<size_t>(random() % limit);
}

/// A number from first to last.
inline int Between(Random& random, int first, int last)
{
    return first + static_cast<int>(random() % static_cast<uint64_t>(last - first + 1));
}

/// One of the elements of an array.
template <typename T, size_t size> const T& OneOf(Random& random, const T (&elements)[size])
{
    return elements[Below(random, size)];
}

/// The encodings that are converted.
inline constexpr eUtEncodingType encodings[] = {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE,
                                                UT_ENCODING_UTF16_BE};

/// Up to `longest` bytes out of a set.
std::string RandomText(Random& random, size_t longest, std::string_view set);

// What both systems have to agree on. Each writes a file of its own; `folder` is empty and may be filled.

void WriteDays(Report& report, const std::filesystem::path& folder);
void WriteTimes(Report& report, const std::filesystem::path& folder);
void WriteDateTexts(Report& report, const std::filesystem::path& folder);
void WriteLocalTimes(Report& report, const std::filesystem::path& folder);
void WriteVariants(Report& report, const std::filesystem::path& folder);
void WriteNumberFormats(Report& report, const std::filesystem::path& folder);
void WriteNumbers(Report& report, const std::filesystem::path& folder);
void WriteFormats(Report& report, const std::filesystem::path& folder);
void WriteLists(Report& report, const std::filesystem::path& folder);
void WriteCodePoints(Report& report, const std::filesystem::path& folder);
void WriteMalformedTexts(Report& report, const std::filesystem::path& folder);
void WriteGuids(Report& report, const std::filesystem::path& folder);
void WriteIniFiles(Report& report, const std::filesystem::path& folder);

} // namespace differential
