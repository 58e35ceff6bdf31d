#pragma once
// The names that the format gives to the fields of a card.

#include "reader/Card.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The name of a field.
struct T_NAME_D {
    std::string_view sNAME = "-"; // "-" for a field that has none
    std::size_t nNUMBER = 0;      // in a list, the number behind it
    std::size_t nENTRY = 0;       // in a list, which entry it belongs to, from 1; 0 outside

    std::string Text() const {
        return nNUMBER == 0 ? std::string(sNAME) : std::string(sNAME) + std::to_string(nNUMBER);
    }
};

/// Names as tables have them: between blanks.
std::vector<std::string_view> SplitNames(std::string_view sNames);

/// Names the fields of the cards of one keyword.
class CFieldNames {
  public:
    /// A keyword that isn't converted has no names.
    explicit CFieldNames(std::string_view sKeyword);

    /// The first names of the card, which stand in these places whatever it holds.
    const std::vector<std::string_view>& GetFixed() const { return m_aFields; }

    /// Calls take with the place and the T_NAME_D of each field of the card, in order.
    template <class TAKE>
    void Walk(const T_DATA_D& rCard, TAKE take) const {
        const std::size_t nFields = rCard.aFIELDS.size();
        std::size_t i = 0;
        for (; i < std::min(nFields, m_aFields.size()); ++i) take(i, T_NAME_D{m_aFields[i]});
        while (i < nFields) {
            const T_SECTION_D* pSection = FindSection(rCard.aFIELDS[i]);
            if (!pSection && (m_aSections.empty() || !m_aLast.empty())) break;
            if (!pSection) take(i++, T_NAME_D{}); // steps over what isn't the word of a section
            for (std::size_t k = 0; pSection && k < pSection->aNAMES.size() && i < nFields; ++k) {
                take(i++, T_NAME_D{pSection->aNAMES[k]});
            }
        }
        for (std::size_t k = 0; k < m_aLast.size() && i < nFields; ++k) take(i++, T_NAME_D{m_aLast[k]});
        for (std::size_t nEntry = 1; i < nFields; ++nEntry) {
            if (m_aList.empty()) take(i++, T_NAME_D{});
            for (std::size_t k = 0; k < m_aList.size() && i < nFields; ++k) take(i++, m_aList[k].Name(nEntry));
        }
    }

  private:
    struct T_SECTION_D {
        std::vector<std::string_view> aWORDS, aNAMES;
    };
    struct T_LISTED_D {
        std::string_view sNAME;
        std::size_t nFIRST = 0; // number in the first entry, 0 for none
        std::size_t nSTEP = 0;  // to the next one

        T_NAME_D Name(std::size_t nEntry) const { return {sNAME, nFIRST + nSTEP * (nEntry - 1), nEntry}; }
    };
    const T_SECTION_D* FindSection(std::string_view sWord) const;
    void SetList(std::string_view sList);

    std::vector<std::string_view> m_aFields;
    std::vector<T_SECTION_D> m_aSections;
    std::vector<std::string_view> m_aLast;
    std::vector<T_LISTED_D> m_aList;
};
