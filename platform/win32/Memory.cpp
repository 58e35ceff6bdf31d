// Pages of memory.

#include "platform/Memory.h"

void TakePages(void*, std::size_t) noexcept {} // Windows gives out pages as they are touched
