// Writes a deck by its plan.

#include "deckgen/Plan.h"

namespace {

/// Writes cards in the deck's layout.
class CDeckWriter {
  public:
    CDeckWriter(const T_DECK_OPTIONS_D& rOptions, const CModel& rModel, std::FILE* pFile)
        : m_rOptions(rOptions), m_rModel(rModel), m_text(pFile) {}

    CCardText& Text() { return m_text; }

    void Put(const T_KIND_D& rKind, std::uint64_t n) {
        E_LAYOUT iLayout = m_rOptions.iLayout;
        if (iLayout == LAYOUT_MIXED)
            iLayout = static_cast<E_LAYOUT>(RandomAt(~m_rOptions.nSeed, m_text.GetCards()) % 3);
        m_text.Begin(rKind.sNAME, iLayout);
        rKind.pfnPUT(m_text, m_rModel, n);
        m_text.End();
    }

  private:
    const T_DECK_OPTIONS_D& m_rOptions;
    const CModel& m_rModel;
    CCardText m_text;
};

} // namespace

void WriteDeck(const T_DECK_OPTIONS_D& rOptions, std::FILE* pFile) {
    const T_PLAN_D plan = MakePlan(rOptions);
    std::array<std::uint64_t, GROUPS> aCounts{};
    std::vector<std::uint64_t> aFirst; // place of a block in its group
    for (const T_BLOCK_D& rBlock : plan.aBlocks) {
        std::uint64_t& rCount = aCounts[static_cast<std::size_t>(rBlock.pKind->iGROUP)];
        aFirst.push_back(rCount);
        rCount += rBlock.nCards * static_cast<std::uint64_t>(rBlock.pKind->nIDS);
    }
    CModel model(aCounts, rOptions.iOrder, rOptions.nSeed);
    for (std::size_t i = 0; i < plan.aBlocks.size(); ++i) aFirst[i] += model.First(plan.aBlocks[i].pKind->iGROUP);
    for (std::size_t i = 0; i < GROUPS; ++i) {
        if (CModel::SpaceOf(static_cast<E_GROUP>(i)) == SPACE_ENTRIES) continue;
        if (model.First(static_cast<E_GROUP>(i)) + aCounts[i] > CIdOrder::GREATEST) {
            throw T_OPTION_ERROR_D{"more cards than there are ids of eight digits"};
        }
    }

    CDeckWriter deck(rOptions, model, pFile);
    deck.Text().Line("SOL 101\nCEND\nTITLE = GENERATED\nLOAD = 1\nSPC = 1\nBEGIN BULK");
    const auto putCard = [&](std::size_t iBlock, std::uint64_t iCard) {
        const T_KIND_D& rKind = *plan.aBlocks[iBlock].pKind;
        deck.Put(rKind, aFirst[iBlock] + iCard * static_cast<std::uint64_t>(rKind.nIDS));
    };
    std::vector<std::size_t> aRepeated; // blocks of grids and elements
    for (std::size_t i = 0; i < plan.aBlocks.size(); ++i) {
        for (std::uint64_t iCard = 0; iCard < plan.aBlocks[i].nCards; ++iCard) putCard(i, iCard);
        if (CModel::SpaceOf(plan.aBlocks[i].pKind->iGROUP) <= SPACE_ELEMENTS) aRepeated.push_back(i);
    }
    model.SetRepeating();
    for (std::uint64_t n = 0; n < plan.nDuplicates && !aRepeated.empty(); ++n) {
        const std::size_t iBlock = aRepeated[n % aRepeated.size()];
        putCard(iBlock, model.Pick(n, 40, plan.aBlocks[iBlock].nCards));
    }
    deck.Text().Line("ENDDATA");
    deck.Text().Flush();
}
