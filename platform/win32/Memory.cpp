// Memory for large tables on Windows: pages come from the system as they are touched, large ones would need a privilege.

#include "platform/Memory.h"

#include <new>

namespace {
constexpr std::align_val_t CACHE_LINE{64};
}

void* AllocateBlock(std::size_t nSize, bool) {
    return ::operator new(nSize, CACHE_LINE);
}

void FreeBlock(void* pBlock) {
    ::operator delete(pBlock, CACHE_LINE);
}
