// SHA-256 by libcrypto.

#include "nas2zdt/report/Sha256.h"

#include <openssl/evp.h>

#include <array>

struct CSha256::T_STATE_D {
    struct T_FREE_D {
        void operator()(EVP_MD_CTX* pContext) const { EVP_MD_CTX_free(pContext); }
    };
    std::unique_ptr<EVP_MD_CTX, T_FREE_D> pCONTEXT{EVP_MD_CTX_new()};
    bool bGOOD = pCONTEXT && EVP_DigestInit_ex(pCONTEXT.get(), EVP_sha256(), nullptr) == 1;
};

CSha256::CSha256() : m_pState(std::make_unique<T_STATE_D>()) {}
CSha256::~CSha256() = default;

void CSha256::Add(std::string_view sBytes) {
    T_STATE_D& r = *m_pState;
    r.bGOOD = r.bGOOD && EVP_DigestUpdate(r.pCONTEXT.get(), sBytes.data(), sBytes.size()) == 1;
}

std::string CSha256::Finish() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> aHash;
    unsigned nHash = 0;
    if (!m_pState->bGOOD || EVP_DigestFinal_ex(m_pState->pCONTEXT.get(), aHash.data(), &nHash) != 1) return {};
    return HexText({reinterpret_cast<const char*>(aHash.data()), nHash}); // bytes of any kind
}
