// Packets go between processes of one machine and program: numbers are as they lie in memory.

#include "nas2zdt/command/Packet.h"

#include <array>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace {

constexpr std::size_t NUMBER_SIZE = sizeof(std::uint64_t);
constexpr std::size_t HEADER_SIZE = NUMBER_SIZE + 1; // length, kind

} // namespace

void CPacket::Add(std::uint64_t nValue) {
    std::array<char, NUMBER_SIZE> aBytes{};
    std::memcpy(aBytes.data(), &nValue, NUMBER_SIZE);
    m_sBytes.append(aBytes.data(), NUMBER_SIZE);
}

void CPacket::Add(std::string_view sText) {
    Add(std::uint64_t{sText.size()});
    m_sBytes.append(sText);
}

void CPacket::Add(const std::vector<std::string>& aTexts) {
    Add(std::uint64_t{aTexts.size()});
    for (const std::string& sText : aTexts) Add(std::string_view(sText));
}

void CPacket::Add(const T_INPUTS& rInputs) {
    Add(std::uint64_t{rInputs.size()});
    for (const auto& [rId, sWhat] : rInputs) {
        Add(rId.nVOLUME);
        Add(rId.nNUMBER);
        Add(std::string_view(sWhat));
    }
}

std::uint64_t CPacket::TakeNumber() {
    if (m_sBytes.size() - m_iNext < NUMBER_SIZE) throw std::length_error("packet");
    std::uint64_t nValue = 0;
    std::memcpy(&nValue, m_sBytes.data() + m_iNext, NUMBER_SIZE);
    m_iNext += NUMBER_SIZE;
    return nValue;
}

std::string CPacket::TakeText() {
    const std::uint64_t nSize = TakeNumber();
    if (m_sBytes.size() - m_iNext < nSize) throw std::length_error("packet");
    const std::size_t iText = std::exchange(m_iNext, m_iNext + static_cast<std::size_t>(nSize));
    return m_sBytes.substr(iText, static_cast<std::size_t>(nSize));
}

std::vector<std::string> CPacket::TakeTexts() {
    std::vector<std::string> aTexts;
    for (std::uint64_t n = TakeNumber(); n > 0; --n) aTexts.push_back(TakeText());
    return aTexts;
}

T_INPUTS CPacket::TakeInputs() {
    T_INPUTS inputs;
    for (std::uint64_t n = TakeNumber(); n > 0; --n) {
        T_FILEID_D id;
        id.nVOLUME = TakeNumber();
        id.nNUMBER = TakeNumber();
        inputs.emplace(id, TakeText());
    }
    return inputs;
}

int CPacket::Send(CPipe& rPipe) const {
    std::string sHeader(HEADER_SIZE, m_eKind);
    const std::uint64_t nSize = m_sBytes.size();
    std::memcpy(sHeader.data(), &nSize, NUMBER_SIZE);
    return rPipe.Write(sHeader + m_sBytes); // in one call, as far as the system does that
}

int CPacket::Receive(CPipe& rPipe) {
    std::array<char, HEADER_SIZE> aHeader{};
    if (rPipe.Read(aHeader.data(), HEADER_SIZE) != HEADER_SIZE) return 0;
    std::uint64_t nSize = 0;
    std::memcpy(&nSize, aHeader.data(), NUMBER_SIZE);
    m_eKind = static_cast<E_PACKET>(aHeader.back());
    m_iNext = 0;
    m_sBytes.resize(static_cast<std::size_t>(nSize));
    return rPipe.Read(m_sBytes.data(), m_sBytes.size()) == nSize ? 1 : 0;
}
