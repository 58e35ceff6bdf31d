// SHA-256 by Windows.

#include "nas2zdt/report/Sha256.h"

#include <windows.h>

#include <bcrypt.h>

#include <algorithm>
#include <array>
#include <cstddef>

struct CSha256::T_STATE_D {
    BCRYPT_ALG_HANDLE pALGORITHM = nullptr;
    BCRYPT_HASH_HANDLE pHASH = nullptr;
    bool bGOOD = BCryptOpenAlgorithmProvider(&pALGORITHM, BCRYPT_SHA256_ALGORITHM, nullptr, 0) >= 0 &&
                 BCryptCreateHash(pALGORITHM, &pHASH, nullptr, 0, nullptr, 0, 0) >= 0;
    ~T_STATE_D() {
        if (pHASH) BCryptDestroyHash(pHASH);
        if (pALGORITHM) BCryptCloseAlgorithmProvider(pALGORITHM, 0);
    }
};

CSha256::CSha256() : m_pState(std::make_unique<T_STATE_D>()) {}
CSha256::~CSha256() = default;

void CSha256::Add(std::string_view sBytes) {
    constexpr std::size_t MOST = std::size_t{1} << 30; // at a time, which the system counts in 32 bits
    while (m_pState->bGOOD && !sBytes.empty()) {
        std::string sNow(sBytes.substr(0, MOST)); // the system wants bytes that it could change
        m_pState->bGOOD = BCryptHashData(m_pState->pHASH, reinterpret_cast<PUCHAR>(sNow.data()),
                                         static_cast<ULONG>(sNow.size()), 0) >= 0;
        sBytes.remove_prefix(sNow.size());
    }
}

std::string CSha256::Finish() {
    std::string sHash(32, '\0');
    const bool bDone = m_pState->bGOOD && BCryptFinishHash(m_pState->pHASH, reinterpret_cast<PUCHAR>(sHash.data()),
                                                           static_cast<ULONG>(sHash.size()), 0) >= 0;
    return bDone ? HexText(sHash) : std::string();
}
