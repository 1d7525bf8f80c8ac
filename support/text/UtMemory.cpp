#include "text/UtMemory.h"

#include <new>

void* UtAllocMemoryBlock(size_t size) noexcept
{
    return ::operator new(size, std::nothrow);
}

void UtFreeMemory(void* block) noexcept
{
    ::operator delete(block);
}
