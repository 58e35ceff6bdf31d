#include "faults/Faults.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace {

CFault* g_pFault = nullptr;

constexpr long NEVER = std::numeric_limits<long>::max();
std::atomic<long> g_nUntilRefusal = NEVER;
std::atomic<bool> g_bOnwards = false;
std::atomic<long> g_nLive = 0;

void* Allocate(std::size_t nSize, std::size_t nAlign) {
    if (g_nUntilRefusal != NEVER && (--g_nUntilRefusal == 0 || (g_bOnwards && g_nUntilRefusal < 0))) {
        throw std::bad_alloc();
    }
    void* p = std::aligned_alloc(nAlign, (nSize / nAlign + 1) * nAlign);
    if (!p) throw std::bad_alloc();
    ++g_nLive;
    return p;
}

void Release(void* p) {
    if (p) --g_nLive;
    std::free(p);
}

bool Fails(E_CALL eCall) {
    const int iError = CFault::Meet(eCall);
    if (iError > 0) errno = iError;
    return iError > 0;
}

} // namespace

CFault::CFault(E_CALL eCall, int nTh, int iError, void (*pfnBefore)())
    : m_eCall(eCall), m_nTh(nTh), m_iError(iError), m_pfnBefore(pfnBefore) {
    g_pFault = this;
}

CFault::~CFault() {
    g_pFault = nullptr;
}

int CFault::Meet(E_CALL eCall) {
    CFault* const pFault = g_pFault;
    if (!pFault || pFault->m_eCall != eCall || ++pFault->m_nCalls != pFault->m_nTh) return NO_ERROR;
    if (pFault->m_pfnBefore) pFault->m_pfnBefore();
    return pFault->m_iError;
}

CRefusal::CRefusal(long nTh, bool bOnwards) {
    g_bOnwards = bOnwards;
    g_nUntilRefusal = nTh;
}

CRefusal::~CRefusal() {
    g_nUntilRefusal = NEVER;
}

bool CRefusal::IsMet() const {
    return g_nUntilRefusal <= 0;
}

long LivePieces() {
    return g_nLive;
}

// ---- memory: the other forms of new and delete come down to these, unless a sanitizer has its own

void* operator new(std::size_t nSize) {
    return Allocate(nSize, alignof(std::max_align_t));
}
void* operator new(std::size_t nSize, std::align_val_t align) {
    return Allocate(nSize, static_cast<std::size_t>(align));
}
void* operator new(std::size_t nSize, const std::nothrow_t&) noexcept {
    try {
        return Allocate(nSize, alignof(std::max_align_t));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* p) noexcept {
    Release(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
    Release(p);
}
void operator delete(void* p, std::size_t) noexcept {
    Release(p);
}
void operator delete(void* p, std::align_val_t) noexcept {
    Release(p);
}
void operator delete(void* p, std::size_t, std::align_val_t) noexcept {
    Release(p);
}

// ---- the system: the linker sends the calls of NAME to __wrap_NAME, and those of __real_NAME to the system

extern "C" {
int __real_open(const char*, int, ...);
DIR* __real_opendir(const char*);
int __real_fstat(int, struct stat*);
int __real_ftruncate(int, off_t);
ssize_t __real_read(int, void*, std::size_t);
ssize_t __real_write(int, const void*, std::size_t);
int __real_close(int);

int __wrap_open(const char* sPath, int iFlags, ...) {
    va_list args;
    va_start(args, iFlags);
    const mode_t mode = (iFlags & O_CREAT) != 0 ? va_arg(args, mode_t) : 0;
    va_end(args);
    return Fails(CALL_OPEN) ? -1 : __real_open(sPath, iFlags, mode);
}
DIR* __wrap_opendir(const char* sPath) {
    return Fails(CALL_OPENDIR) ? nullptr : __real_opendir(sPath);
}
int __wrap_fstat(int iFile, struct stat* pStatus) {
    return Fails(CALL_FSTAT) ? -1 : __real_fstat(iFile, pStatus);
}
int __wrap_ftruncate(int iFile, off_t nSize) {
    return Fails(CALL_FTRUNCATE) ? -1 : __real_ftruncate(iFile, nSize);
}
ssize_t __wrap_read(int iFile, void* pData, std::size_t nSize) {
    return Fails(CALL_READ) ? -1 : __real_read(iFile, pData, nSize);
}
ssize_t __wrap_write(int iFile, const void* pData, std::size_t nSize) {
    const int iError = CFault::Meet(CALL_WRITE);
    if (iError > 0) errno = iError;
    return iError > 0 ? -1 : __real_write(iFile, pData, iError == SHORT_WRITE ? nSize / 2 : nSize);
}
int __wrap_close(int iFile) { // the file is closed whatever the call reports
    const int iResult = __real_close(iFile);
    return Fails(CALL_CLOSE) ? -1 : iResult;
}
}
