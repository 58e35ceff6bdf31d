#pragma once
// Memory for large tables.

#include <cstddef>

/// Size that a block should have about: large enough for the system's large pages.
constexpr std::size_t LARGE_BLOCK = std::size_t(4) << 20;

/// A block aligned for any record. bFilled tells that it will be filled to its end, so that large pages pay. Throws
/// std::bad_alloc.
void* AllocateBlock(std::size_t nSize, bool bFilled);

void FreeBlock(void* pBlock);
