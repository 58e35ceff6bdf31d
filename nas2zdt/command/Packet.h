#pragma once
// What the command and its workers say to each other.

#include "platform/File.h"
#include "platform/Process.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

enum E_PACKET : char {
    PACKET_OPTIONS, // to a worker, first: the command line
    PACKET_JOB,     // to a worker: a deck
    PACKET_OUTPUT,  // from it: what the deck prints
    PACKET_ERRORS,  // likewise, on standard error
    PACKET_READ,    // from it: what the deck has read, which one of PACKET_KEEP answers
    PACKET_KEEP,    // to it: what its files may not replace
    PACKET_END,     // from it: how the deck ended
};

/// A kind and values, which are taken in the order in which they were added.
class CPacket {
  public:
    CPacket() = default;
    explicit CPacket(E_PACKET eKind) : m_eKind(eKind) {}

    E_PACKET GetKind() const { return m_eKind; }

    void Add(std::uint64_t nValue);
    void Add(std::string_view sText);
    void Add(const std::vector<std::string>& aTexts);
    void Add(const T_INPUTS& rInputs);

    /// All throw std::length_error if there is no such value.
    std::uint64_t TakeNumber();
    std::string TakeText();
    std::vector<std::string> TakeTexts();
    T_INPUTS TakeInputs();

    /// Returns 0 if nobody takes it any more.
    int Send(CPipe& rPipe) const;

    /// Returns 0 if there is no more, or no whole one.
    int Receive(CPipe& rPipe);

  private:
    E_PACKET m_eKind = PACKET_END;
    std::string m_sBytes;
    std::size_t m_iNext = 0; // of the bytes
};
