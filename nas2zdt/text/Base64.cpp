// Bytes as base64.

#include "nas2zdt/text/Base64.h"

#include <algorithm>

void CBase64::AddBytes(std::span<const std::uint8_t> aBytes) {
    while (!aBytes.empty()) {
        const std::size_t nNow = std::min(aBytes.size(), FULL - m_nUsed);
        std::memcpy(m_aBytes.data() + m_nUsed, aBytes.data(), nNow);
        m_nUsed += nNow;
        if (m_nUsed == FULL) Send(FULL);
        aBytes = aBytes.subspan(nNow);
    }
}

/// nBytes is a multiple of three or all bytes.
void CBase64::Send(std::size_t nBytes) {
    constexpr char DIGITS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::array<char, FULL / 3 * 4> aText;
    char* p = aText.data();
    for (std::size_t i = 0; i < nBytes; i += 3) {
        const std::size_t nLeft = nBytes - i;
        const std::uint32_t n =
            m_aBytes[i] * 65536u + (nLeft > 1 ? m_aBytes[i + 1] * 256u : 0) + (nLeft > 2 ? m_aBytes[i + 2] : 0);
        *p++ = DIGITS[n >> 18];
        *p++ = DIGITS[n >> 12 & 63];
        *p++ = nLeft > 1 ? DIGITS[n >> 6 & 63] : '=';
        *p++ = nLeft > 2 ? DIGITS[n & 63] : '=';
    }
    m_rFile.Write({aText.data(), static_cast<std::size_t>(p - aText.data())});
    m_nUsed -= nBytes;
    std::memmove(m_aBytes.data(), m_aBytes.data() + nBytes, m_nUsed);
}
