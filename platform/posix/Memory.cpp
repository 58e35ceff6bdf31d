// Pages of memory.

#include "platform/Memory.h"

#include <cerrno>
#include <memory>

#include <sys/mman.h>
#include <unistd.h>

void TakePages(void* pBegin, std::size_t nSize) noexcept {
#ifdef MADV_POPULATE_WRITE
    const auto nPage = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const int iError = errno;
    if (std::align(nPage, nPage, pBegin, nSize)) madvise(pBegin, nSize / nPage * nPage, MADV_POPULATE_WRITE);
    errno = iError; // an older kernel doesn't know the request
#else
    (void)pBegin;
    (void)nSize;
#endif
}
