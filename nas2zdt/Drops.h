#pragma once
// What isn't kept of a card that is stored.

#include "cards/FieldNames.h"
#include "reader/Card.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What a card loses: names of fields with commas between them; of a list, those of its first entry that is lost.
struct T_DROPPED_D {
    std::string sFIELDS;   // skipped by the handler, or stored and not written
    std::string sPASTREAD; // never reached
    bool bTHRU = false;    // a THRU that isn't understood; it stands for the field behind it, too
};

/// Finds what the cards of a keyword lose: what their handler didn't take, and what of the rest no section has.
class CDrops {
  public:
    explicit CDrops(std::string_view sKeyword);

    T_DROPPED_D Find(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse) const;

  private:
    bool MayLose(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse) const;
    bool IsUnwritten(const T_NAME_D& rName, std::string_view sField) const;

    /// A field that is stored and not written.
    struct T_UNWRITTEN_D {
        std::string_view sNAME;
        double dNEUTRAL;
        std::size_t iFIELD; // its place, NOWHERE if that differs from card to card
    };
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);

    CFieldNames m_names;
    std::vector<T_UNWRITTEN_D> m_aUnwritten;
};
