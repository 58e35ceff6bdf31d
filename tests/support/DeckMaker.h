#pragma once
// Decks out of chance, for tests that look for what nobody thought of.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// Numbers by chance that are the same on every platform.
class CChance {
  public:
    explicit CChance(std::uint64_t nSeed) : m_nState(nSeed) {}
    std::uint64_t Next();
    /// From 0 to nEnd - 1; 0 if nEnd is 0.
    std::size_t Below(std::size_t nEnd) { return nEnd == 0 ? 0 : static_cast<std::size_t>(Next() % nEnd); }
    /// True once in nTimes.
    bool Once(std::size_t nTimes) { return Below(nTimes) == 0; }
    const char* Of(std::initializer_list<const char*> aTexts) { return aTexts.begin()[Below(aTexts.size())]; }

  private:
    std::uint64_t m_nState;
};

/// How the maker lays out a card.
enum E_LAYOUT { LAYOUT_SMALL, LAYOUT_LARGE, LAYOUT_FREE };

/// The fields of a card, its keyword first, and a letter for the kind of each.
struct T_MADECARD_D {
    std::vector<std::string> aFIELDS;
    std::string sKINDS;
};

/// Makes cards and decks of every keyword that is converted, in all formats, mostly sound and now and then nasty, and
/// spoils decks that exist.
class CDeckMaker {
  public:
    explicit CDeckMaker(std::uint64_t nSeed) : m_chance(nSeed) {}

    /// A whole deck.
    std::string Deck();

    /// The lines of nCards cards.
    std::string Cards(std::size_t nCards);

    /// The fields of a card of any kind.
    T_MADECARD_D MakeCard();

    /// A field of a kind. In a deck that stays sound, another of its kind may take its place.
    std::string Field(char cKind);

    /// A card of any kind with its lines, in any format.
    std::string Card();

    /// A card of these fields, its keyword first.
    std::string Card(const std::vector<std::string>& aFields, E_LAYOUT eLayout);

    /// Changes rDeck in one place as a person, an editor or a broken disk may do.
    void Spoil(std::string& rDeck);

    /// Fills each small field line to its 72 columns, so that nothing can stand behind its end.
    void FillLines() { m_bFilled = true; }

    /// Gives fields that a sane deck has, alone.
    void StaySound() { m_bSound = true; }

  private:
    std::string Real();
    std::string Nasty();

    CChance m_chance;
    bool m_bFilled = false;
    bool m_bSound = false;
    bool m_bWild = false; // whether reals may be of any size, infinite too
};
