#include "text/CaseMapping.h"

#include "text/CaseTable.h"

#include <algorithm>
#include <iterator>

namespace text {

namespace {

template <size_t size> uint32_t Map(const CaseRange (&ranges)[size], uint32_t character) noexcept
{
    const CaseRange* const range =
        std::lower_bound(std::begin(ranges), std::end(ranges), character,
                         [](const CaseRange& candidate, uint32_t value) { return candidate.last < value; });
    if (range == std::end(ranges) || character < range->first || (character - range->first) % range->stride != 0)
        return character;
    return static_cast<uint32_t>(static_cast<int32_t>(character) + range->delta);
}

} // namespace

uint32_t ToUpper(uint32_t character) noexcept
{
    if (character < 0x80)
        return character >= 'a' && character <= 'z' ? character - 0x20 : character;
    return Map(upperRanges, character);
}

uint32_t ToLower(uint32_t character) noexcept
{
    if (character < 0x80)
        return character >= 'A' && character <= 'Z' ? character + 0x20 : character;
    return Map(lowerRanges, character);
}

} // namespace text
