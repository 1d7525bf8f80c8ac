#pragma once

#include "text/UtEncoding.h"

#include <cstddef>
#include <string_view>

/// Searching in texts, by characters: never from the middle of one, and whatever the encodings of the two texts.
namespace text {

inline constexpr size_t notFound = std::string_view::npos;

/// A text with its encoding, not owned.
struct Tagged
{
    std::string_view bytes;
    eUtEncodingType encoding;
};

/// Where a text was found, in byte offsets of the text that was searched.
struct Match
{
    size_t begin = notFound;
    size_t end = notFound;
    bool IsFound() const noexcept { return begin != notFound; }
};

enum class LetterCase
{
    Exact,
    Ignored
};

/// The first occurrence of `needle` at or behind the byte offset `from` (a character's start).
Match Find(Tagged text, size_t from, Tagged needle, LetterCase letterCase) noexcept;

/// How many bytes of `text` its beginning that equals `prefix` takes; notFound when it does not begin with it.
size_t PrefixSize(Tagged text, Tagged prefix, LetterCase letterCase) noexcept;

/// The byte offset of the first character at or behind `from` that is one of `set`.
size_t FindOneOf(Tagged text, size_t from, Tagged set) noexcept;

/// The byte offset behind the leading characters that are in `set`, and the one where the trailing such characters
/// begin.
size_t LeadingEnd(Tagged text, Tagged set) noexcept;
size_t TrailingBegin(Tagged text, Tagged set) noexcept;

} // namespace text
