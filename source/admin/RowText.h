#pragma once

#include "text/UtCString.h"

class CMyRecordSet;

namespace admin {

/// A column of the current row as a text in the encoding of the connection; empty for NULL and for a column that the
/// result does not have. Throws std::bad_alloc rather than give an empty text for want of memory.
UtCString RowText(const CMyRecordSet& rows, unsigned long column);
UtCString RowText(const CMyRecordSet& rows, const UtCString& column);

} // namespace admin
