// Compression by zlib.

#include "nas2zdt/report/Deflate.h"

#include <zlib.h>

#include <array>
#include <new>

struct CDeflate::T_STATE_D {
    z_stream stream = {};
    std::array<std::uint8_t, 65536> aOUT;

    void Run(CByteSink& rSink, int iFlush) {
        do {
            stream.next_out = aOUT.data();
            stream.avail_out = static_cast<uInt>(aOUT.size());
            deflate(&stream, iFlush);
            rSink.Take({aOUT.data(), aOUT.size() - stream.avail_out});
        } while (stream.avail_out == 0);
    }
};

CDeflate::CDeflate(CByteSink& rSink, E_CONTENT eContent) : m_rSink(rSink), m_pState(std::make_unique<T_STATE_D>()) {
    // runs alone take two thirds of the time, and less room
    const int iStrategy = eContent == CONTENT_PLANES ? Z_RLE : Z_DEFAULT_STRATEGY;
    constexpr int MOST_MEMORY = 9;
    if (deflateInit2(&m_pState->stream, Z_BEST_SPEED, Z_DEFLATED, MAX_WBITS, MOST_MEMORY, iStrategy) != Z_OK) {
        throw std::bad_alloc();
    }
}

CDeflate::~CDeflate() {
    deflateEnd(&m_pState->stream);
}

void CDeflate::Write(std::span<const std::uint8_t> aBytes) {
    constexpr std::size_t MOST = std::size_t{1} << 30; // at a time, which the library counts in 32 bits
    while (!aBytes.empty()) {
        const auto aNow = aBytes.first(aBytes.size() < MOST ? aBytes.size() : MOST);
        m_pState->stream.next_in = aNow.data();
        m_pState->stream.avail_in = static_cast<uInt>(aNow.size());
        m_pState->Run(m_rSink, Z_NO_FLUSH);
        aBytes = aBytes.subspan(aNow.size());
    }
}

void CDeflate::Finish() {
    m_pState->Run(m_rSink, Z_FINISH);
}

std::string_view CDeflate::Name() {
    return "deflate";
}
