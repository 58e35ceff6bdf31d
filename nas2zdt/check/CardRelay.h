#pragma once
// Hands the cards of a deck on to a thread that takes them while the deck is read on.

#include "nas2zdt/restate/SourceDeck.h"
#include "platform/Worker.h"

#include <array>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

/// Passes everything on in the same order, in batches. The texts that the target wants to keep stay as long as this
/// object does.
class CCardRelay : public CCardSink {
  public:
    /// If bBeside, rTarget is called on another thread until Finish has returned.
    CCardRelay(CCardSink& rTarget, bool bBeside);
    ~CCardRelay() override;

    bool OnCard(const T_SOURCECARD_D& rCard) override;
    bool OnLine(std::string_view sLine, const T_ORIGINLINE_D& rOrigin) override;

    /// Passes the rest on. Throws what the target threw, as the two above may do.
    void Finish();

  private:
    struct T_ITEM_D {
        T_SOURCECARD_D card; // its text is the batch's
        bool bLINE;          // without a line feed
    };
    struct T_BATCH_D {
        std::unique_ptr<char[]> pTEXT;
        std::size_t nROOM = 0, nTEXT = 0;
        std::vector<T_ITEM_D> aITEMS;
    };

    static constexpr std::size_t BATCHES = 3;

    T_BATCH_D& Open() { return m_aBatches[m_nOpened % BATCHES]; }
    void Put(T_SOURCECARD_D card, bool bLine);
    void HandOver();
    void Work();
    void Give(T_BATCH_D& rBatch);
    void GiveCard(const T_ITEM_D& rItem);

    CCardSink& m_rTarget;
    CTextStore m_texts; // that the target keeps
    std::array<T_BATCH_D, BATCHES> m_aBatches;
    std::size_t m_nOpened = 0; // batches that were handed over; the next one is being filled
    std::size_t m_nTaken = 0;  // of those, batches that the target has taken
    bool m_bEnd = false;       // whether no more will come
    bool m_bFailed = false;    // whether the target threw
    std::mutex m_mutex;        // for the four above
    std::condition_variable m_changed;
    std::optional<CWorker> m_worker;
};
