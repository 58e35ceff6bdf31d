#pragma once
// Memory as the system gives it out.

#include <cstddef>

/// Asks for all pages of a piece of memory that is about to be filled. The system gives out many at once for less than
/// one by one as they are touched. Where it can't, nothing happens.
void TakePages(void* pBegin, std::size_t nSize) noexcept;
