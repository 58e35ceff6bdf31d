// Both sides of the talk with a process that converts decks.

#include "nas2zdt/command/DeckWorker.h"

#include "nas2zdt/command/Packet.h"
#include "nas2zdt/command/Terminal.h"

#include <array>
#include <cstdint>
#include <iostream>
#include <new>
#include <stdexcept>
#include <streambuf>
#include <utility>
#include <vector>

namespace {

/// The other side doesn't take any more.
class CNobodyListens : public std::runtime_error {
  public:
    CNobodyListens() : std::runtime_error("nobody takes the results") {}
};

void SendOrThrow(const CPacket& rPacket, CPipe& rPipe) {
    if (!rPacket.Send(rPipe)) throw CNobodyListens();
}

/// Hands on what is printed, many small texts in one packet.
class CTexts {
  public:
    explicit CTexts(CPipe& rPipe) : m_rPipe(rPipe) {}

    void Add(E_PACKET eKind, std::string_view sText) {
        constexpr std::size_t MOST = std::size_t{1} << 16;
        if (eKind != m_eKind || m_sText.size() > MOST) Send();
        m_eKind = eKind;
        m_sText += sText;
    }

    void Send() {
        if (m_sText.empty()) return;
        CPacket packet(m_eKind);
        packet.Add(std::string_view(m_sText));
        m_sText.clear();
        SendOrThrow(packet, m_rPipe);
    }

  private:
    CPipe& m_rPipe;
    E_PACKET m_eKind = PACKET_OUTPUT;
    std::string m_sText;
};

/// While it lives, what a standard stream prints goes to the texts.
class CStreamTaken : private std::streambuf {
  public:
    CStreamTaken(std::ostream& rStream, E_PACKET eKind, CTexts& rTexts)
        : m_rStream(rStream), m_eKind(eKind), m_rTexts(rTexts), m_pBefore(rStream.rdbuf(this)) {}
    ~CStreamTaken() override { m_rStream.rdbuf(m_pBefore); }
    CStreamTaken(const CStreamTaken&) = delete;
    CStreamTaken& operator=(const CStreamTaken&) = delete;

  private:
    int_type overflow(int_type iCharacter) override {
        const char c = traits_type::to_char_type(iCharacter);
        if (!traits_type::eq_int_type(iCharacter, traits_type::eof())) xsputn(&c, 1);
        return traits_type::not_eof(iCharacter);
    }
    std::streamsize xsputn(const char* pText, std::streamsize nSize) override {
        m_rTexts.Add(m_eKind, {pText, static_cast<std::size_t>(nSize)});
        return nSize;
    }

    std::ostream& m_rStream;
    const E_PACKET m_eKind;
    CTexts& m_rTexts;
    std::streambuf* const m_pBefore;
};

/// Asks the other side what may not be replaced.
class CAskingGuard : public CReplaceGuard {
  public:
    CAskingGuard(CPipe& rInput, CPipe& rOutput, CTexts& rTexts)
        : m_rInput(rInput), m_rOutput(rOutput), m_rTexts(rTexts) {}

    void BeforeReplacing(const std::vector<std::string>& aPaths, bool bLate, T_INPUTS& rInputs) override {
        m_rTexts.Send();
        if (bLate) Ask(true, {}, rInputs); // the decks before may write some of the paths until it is answered
        T_INPUTS there;                    // what the paths would replace
        for (const std::string& sPath : aPaths) {
            const T_TARGET_D target = FindTarget(sPath);
            if (target.eTARGET == TARGET_FILE) there.emplace(target.id, std::string());
        }
        Ask(false, there, rInputs);
    }

  private:
    void Ask(bool bLate, const T_INPUTS& rThere, T_INPUTS& rInputs) {
        CPacket asked(PACKET_READ), answer;
        asked.Add(rInputs);
        asked.Add(std::uint64_t{bLate});
        asked.Add(rThere);
        SendOrThrow(asked, m_rOutput);
        if (!answer.Receive(m_rInput)) throw CNobodyListens();
        rInputs.merge(answer.TakeInputs());
    }

    CPipe& m_rInput;
    CPipe& m_rOutput;
    CTexts& m_rTexts;
};

constexpr std::array JOB_TEXTS = {&T_JOB_D::sDECK, &T_JOB_D::sTARGET, &T_JOB_D::sREFUSED, &T_JOB_D::sVIEW,
                                  &T_JOB_D::sVTU};
constexpr std::array OUTCOME_FLAGS = {&T_OUTCOME_D::bFAILED, &T_OUTCOME_D::bLOSS, &T_OUTCOME_D::bUNSOUND,
                                      &T_OUTCOME_D::bLOSSY};

void ReadWorkerOptions(CPipe& rInput, T_OPTIONS_D& rOptions) {
    CPacket packet;
    std::string sWhy;
    if (!packet.Receive(rInput) || !ReadOptions(packet.TakeTexts(), rOptions, sWhy)) throw CNobodyListens();
    rOptions.bLISTED = true;
    rOptions.nTHREADS = static_cast<std::size_t>(packet.TakeNumber());
    const bool bOutput = packet.TakeNumber() != 0;
    const bool bErrors = packet.TakeNumber() != 0;
    PrintForAnother(bOutput, bErrors);
}

void ConvertFor(CPipe& rInput, CPipe& rOutput) {
    T_OPTIONS_D options;
    ReadWorkerOptions(rInput, options);
    CTexts texts(rOutput);
    const CStreamTaken output(std::cout, PACKET_OUTPUT, texts), errors(std::cerr, PACKET_ERRORS, texts);
    CAskingGuard guard(rInput, rOutput, texts);
    for (CPacket packet; packet.Receive(rInput);) {
        T_JOB_D job;
        for (const auto pText : JOB_TEXTS) job.*pText = packet.TakeText();
        T_INPUTS inputs;
        const T_OUTCOME_D outcome = ConvertDeck(options, job, inputs, &guard);
        if (!std::cout || !std::cerr) throw std::bad_alloc(); // streams keep exceptions to themselves
        texts.Send();
        CPacket end(PACKET_END);
        end.Add(inputs);
        for (const auto pFlag : OUTCOME_FLAGS) end.Add(std::uint64_t{outcome.*pFlag});
        end.Add(outcome.aLOG);
        end.Add(std::string_view(outcome.sNOTE));
        SendOrThrow(end, rOutput);
    }
}

} // namespace

int RunDeckWorker() {
    CPipe input = CPipe::TakeInput(), output = CPipe::TakeOutput();
    try {
        ConvertFor(input, output);
        return 0;
    } catch (const CNobodyListens&) {
        return 1;
    }
}

int CDeckWorker::Begin(std::string& rWhy) {
    if (m_process.IsStarted()) return 1;
    if (!m_process.Start(WORKER_ARGUMENT, rWhy)) {
        rWhy.insert(0, "no process can be started for it: ");
        return 0;
    }
    CPacket options(PACKET_OPTIONS);
    options.Add(m_rOptions.aARGUMENTS);
    options.Add(std::uint64_t{m_nThreads});
    options.Add(std::uint64_t{HasColours(stdout)});
    options.Add(std::uint64_t{HasColours(stderr)});
    options.Send(m_process.GetInput()); // a process that is gone is noticed below
    return 1;
}

int CDeckWorker::Convert(std::size_t iDeck, const T_JOB_D& rJob, T_OUTCOME_D& rOutcome, std::string& rWhy) {
    if (!Begin(rWhy)) return 0;
    CPacket job(PACKET_JOB);
    for (const auto pText : JOB_TEXTS) job.Add(std::string_view(rJob.*pText));
    job.Send(m_process.GetInput());
    for (CPacket packet; packet.Receive(m_process.GetOutput());) {
        switch (packet.GetKind()) {
        case PACKET_OUTPUT:
            m_rOutput.Put(iDeck, STREAM_OUTPUT, packet.TakeText());
            break;
        case PACKET_ERRORS:
            m_rOutput.Put(iDeck, STREAM_ERRORS, packet.TakeText());
            break;
        case PACKET_READ: {
            m_rFiles.Add(iDeck, packet.TakeInputs());
            m_rFiles.End(iDeck);
            if (packet.TakeNumber() != 0) m_rOutput.WaitForTurn(iDeck);
            CPacket answer(PACKET_KEEP);
            answer.Add(m_rFiles.Find(iDeck, packet.TakeInputs()));
            answer.Send(m_process.GetInput());
            break;
        }
        default:
            m_rFiles.Add(iDeck, packet.TakeInputs());
            for (const auto pFlag : OUTCOME_FLAGS) rOutcome.*pFlag = packet.TakeNumber() != 0;
            rOutcome.aLOG = packet.TakeTexts();
            rOutcome.sNOTE = packet.TakeText();
            return 1;
        }
    }
    rWhy = "its process " + m_process.Wait();
    return 0;
}
