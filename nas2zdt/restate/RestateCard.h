#pragma once
// A card in the hands of a rule.

#include "nas2zdt/restate/CardFields.h"
#include "nas2zdt/restate/CardWriter.h"

#include <initializer_list>
#include <map>
#include <string>
#include <vector>

/// A rule reads the fields of a card, changes some, or writes other cards in its place. A card to which nothing is done
/// goes through as it stands.
class CRestateCard : public CCardFields {
  public:
    /// Changes a field of the card, which is then written anew.
    void Set(std::size_t i, CFieldValue value) { m_mapChanged.insert_or_assign(i, std::move(value)); }
    void SetKeyword(std::string_view sKeyword) { m_sNewKeyword = sKeyword; }

    /// Leaves the card out.
    void Drop() { m_bDropped = true; }

    /// Writes a card in its place, which is left out.
    void Write(std::string_view sKeyword, std::vector<CFieldValue> aFields) {
        m_bDropped = true;
        m_aWritten.push_back({std::string(sKeyword), std::move(aFields)});
    }

    /// Tells that a rule did something to the card.
    void Tell(const T_RULE_D& rRule, std::string_view sDetail = {}) {
        m_aTold.push_back({&rRule, std::string(sDetail)});
    }

  private:
    friend class CRestate;

    void Clear();
    bool IsChanged() const { return m_bDropped || !m_sNewKeyword.empty() || !m_mapChanged.empty(); }
    void Finish(CCardWriter& rWriter) const;

    struct T_WRITTEN_D {
        std::string sKEYWORD;
        std::vector<CFieldValue> aFIELDS;
    };
    struct T_SAID_D {
        const T_RULE_D* pRULE;
        std::string sDETAIL;
    };
    bool m_bDropped = false;
    std::string m_sNewKeyword;
    std::map<std::size_t, CFieldValue> m_mapChanged;
    std::vector<T_WRITTEN_D> m_aWritten;
    std::vector<T_SAID_D> m_aTold;
};
