#pragma once

#include "platform/Guid.h"

#include <string>

/// The characters of a GUID as a text.
inline std::string GuidText(const _GUID& guid)
{
    const auto characters = platform::GuidCharacters(guid);
    return std::string(characters.data(), characters.size());
}
