// Memory for large tables on POSIX systems.

#include "platform/Memory.h"

#include <new>
#include <sys/mman.h>

namespace {
constexpr std::align_val_t LARGE_PAGE{std::size_t(2) << 20};
}

void* AllocateBlock(std::size_t nSize, bool bFilled) {
    void* pBlock = ::operator new(nSize, LARGE_PAGE);
#ifdef MADV_HUGEPAGE
    if (bFilled) ::madvise(pBlock, nSize, MADV_HUGEPAGE); // a refusal costs speed alone
#else
    (void)bFilled;
#endif
    return pBlock;
}

void FreeBlock(void* pBlock) {
    ::operator delete(pBlock, LARGE_PAGE);
}
