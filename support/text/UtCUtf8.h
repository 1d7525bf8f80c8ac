#pragma once

#include "MyDbExport.h"

/// Services for UTF-8 texts.
class MYDB_EXPORT UtCUtf8
{
public:
    /// The text behind a UTF-8 byte-order mark, or the text itself when it has none. Null gives null.
    static const char* SkipBOM(const char* text) noexcept;
};
