#pragma once

#include "MyDbExport.h"

#include <cstddef>

/// Allocates a raw block of `size` bytes (a size of 0 gives a block too), aligned for every fundamental type, content
/// undefined. Null when memory ran out. The caller owns the block and frees it with UtFreeMemory.
MYDB_EXPORT void* UtAllocMemoryBlock(size_t size) noexcept;

/// Frees a block that UtAllocMemoryBlock or a text operation (GetAnsiString, GetMemCopy) handed out. Null is allowed.
MYDB_EXPORT void UtFreeMemory(void* block) noexcept;
