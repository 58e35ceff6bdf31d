#pragma once
// Looks at the fields of cards, and whether what they refer to is there.

#include "nas2zdt/check/DeckIds.h"
#include "nas2zdt/check/FieldCheck.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Checks one card after the other by the table of cards.
class CCardCheck : public CCardTaker {
  public:
    CCardCheck(const CCheckDeck& rDeck, const CDeckIds& rIds, CFindings& rFindings)
        : m_rDeck(rDeck), m_rIds(rIds), m_rFindings(rFindings) {}

    /// Without bReferences, the fields alone are looked at: what grids, elements and frames refer to is checked by the
    /// tables.
    void SetReferences(bool bReferences) { m_bReferences = bReferences; }

    void TakeCard(const CCardFields& rCard) override;

    /// Tells if there is no iID of the kind.
    void CheckTarget(E_REFERRED eTarget, std::int32_t iID, const T_CARDPLACE_D& rPlace);

  private:
    void CheckKeyword(const CCardFields& rCard);
    bool CheckField(const CCardFields& rCard, std::size_t i, const T_FIELD_D& rField, std::int32_t& rID);
    void CheckFields(const CCardFields& rCard);
    void CheckIdList(const CCardFields& rCard);
    void CheckRange(E_REFERRED eTarget, std::int32_t iFirst, std::int32_t iLast);
    void CheckWeights(const CCardFields& rCard);
    void CheckPressure(const CCardFields& rCard);
    void CheckElement(E_REFERRED eTarget, std::int32_t iEID, const T_CARDPLACE_D& rPlace);
    void CheckProperty(std::int32_t iPID, const T_CARDPLACE_D& rPlace);
    void CheckSet(E_SETKIND eKind, std::int32_t iSet, const T_CARDPLACE_D& rPlace);

    const CCheckDeck& m_rDeck;
    const CDeckIds& m_rIds;
    CFindings& m_rFindings;
    bool m_bReferences = true;
    std::string m_sKeyword; // of m_pFormat
    const T_CARDFORMAT_D* m_pFormat = nullptr;
    T_CARDPLACE_D m_place = {}; // of the card in hand
};
