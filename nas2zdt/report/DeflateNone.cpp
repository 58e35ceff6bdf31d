// What stands for a compressor where there is none.

#include "nas2zdt/report/Deflate.h"

struct CDeflate::T_STATE_D {};

CDeflate::CDeflate(CByteSink& rSink, E_CONTENT) : m_rSink(rSink) {}
CDeflate::~CDeflate() = default;

void CDeflate::Write(std::span<const std::uint8_t> aBytes) {
    m_rSink.Take(aBytes);
}

void CDeflate::Finish() {}

std::string_view CDeflate::Name() {
    return "none";
}
