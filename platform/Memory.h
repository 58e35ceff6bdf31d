#pragma once
// Pages of memory.

#include <cstddef>

/// Asks for all pages of memory that is about to be filled: at once they cost less than one by one as they are touched.
/// Where the system can't, nothing happens.
void TakePages(void* pBegin, std::size_t nSize) noexcept;
