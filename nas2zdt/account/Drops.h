#pragma once
// What isn't kept, or is kept as something else, of a card that is stored.

#include "cards/FieldNames.h"
#include "nas2zdt/account/Losses.h"
#include "reader/Card.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct T_MEANING_D;

/// Something that a card loses.
struct T_DROPPED_D {
    E_NOTE eNOTE;
    E_LOSS_CLASS eCLASS;
    std::string sTEXT; // names of fields with commas between them; of a list, those of its first entry that is lost
};

/// Ids that a THRU names and nobody walks through. Only those that the deck has are lost, which its end tells.
struct T_THRU_D {
    bool bELEMENTS; // or grids
    std::int32_t iAFTER, iLAST;
};

/// Finds what the cards of a keyword lose: what their handler didn't take, what of the rest no section has, and what
/// the file means otherwise than the card.
class CDrops {
  public:
    explicit CDrops(std::string_view sKeyword);

    /// Appends what rCard loses.
    void Find(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::vector<T_DROPPED_D>& rDropped,
              std::vector<T_THRU_D>& rThrus) const;

    /// Adds a bit for each field that may be lost or mean otherwise unless it is blank, to rValues if it may be zero,
    /// too; all bits if nearly any field may.
    void GetWatched(std::uint32_t& rFilled, std::uint32_t& rValues) const;

  private:
    bool MayLose(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse) const;
    bool IsUnwritten(const T_NAME_D& rName, std::string_view sField) const;
    void FindFields(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::vector<T_DROPPED_D>& rDropped,
                    std::vector<T_THRU_D>& rThrus) const;

    /// A field that is stored and not written.
    struct T_UNWRITTEN_D {
        std::string_view sNAME;
        std::string_view sNEUTRAL; // the value that the file means without it
        std::size_t iFIELD;        // its place, NOWHERE if that differs from card to card
    };
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);

    std::string_view m_sKeyword;
    CFieldNames m_names;
    std::vector<T_UNWRITTEN_D> m_aUnwritten;
    std::vector<const T_MEANING_D*> m_aMeanings;
};
