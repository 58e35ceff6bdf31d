// Pages of memory.

#include "platform/Memory.h"

#include <cerrno>
#include <cstdint>

#include <sys/mman.h>
#include <unistd.h>

void TakePages(void* pBegin, std::size_t nSize) noexcept {
#ifdef MADV_POPULATE_WRITE
    const auto nPage = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const int iError = errno;
    const auto nBegin = reinterpret_cast<std::uintptr_t>(pBegin);
    const std::uintptr_t nFirst = (nBegin + nPage - 1) / nPage * nPage; // whole pages alone
    const std::uintptr_t nEnd = (nBegin + nSize) / nPage * nPage;
    if (nFirst < nEnd) madvise(reinterpret_cast<void*>(nFirst), nEnd - nFirst, MADV_POPULATE_WRITE);
    errno = iError; // an older kernel doesn't know the request
#else
    (void)pBegin;
    (void)nSize;
#endif
}
