#pragma once
// A deck with its includes as NASTRAN reads it: lines of control, and cards with the places that they came from.

#include "nas2zdt/flatten/DeckJoin.h"
#include "nas2zdt/restate/LineLook.h"
#include "nas2zdt/restate/Rule.h"
#include "nas2zdt/text/LinesAhead.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Keeps texts where they are until the end. A text grows at its end until the next one begins.
class CTextStore {
  public:
    /// Number of bytes behind each text that may be read; they don't matter.
    static constexpr std::size_t SLACK = 16;

    void Begin() { m_nOpen = 0; }
    void Append(std::string_view sText);
    void Append(char c) { Append(std::string_view(&c, 1)); }
    void AppendLine(std::string_view sText); // and a line feed
    std::string_view GetOpen() const { return {m_pEnd - m_nOpen, m_nOpen}; }

    /// Forgets a text if no other one has begun since.
    void Drop(std::string_view sText);

  private:
    char* Extend(std::size_t nText);

    static constexpr std::size_t BLOCK = std::size_t{1} << 20;

    std::vector<std::unique_ptr<char[]>> m_aBlocks;
    char* m_pEnd = nullptr;
    std::size_t m_nRoom = 0;
    std::size_t m_nOpen = 0; // length of the text that grows
};

/// A line of the executive or case control.
struct T_CONTROL_D {
    std::string_view sTEXT; // without its line feed
    T_ORIGINLINE_D origin;
};

/// A card.
struct T_SOURCECARD_D {
    const char* pTEXT = nullptr; // its lines, each with a line feed; no others are between them
    std::uint32_t nTEXT = 0;
    T_ORIGINLINE_D origin;   // of its first line
    std::uint8_t iROW = 0;   // for the use of the rules
    std::uint8_t nNEEDS = 0; // likewise
    bool bPLAIN = true;      // whether the converter cuts it into the same fields
    bool bCOLUMNS = true;    // plain, and all fields are of eight columns

    std::string_view Text() const { return {pTEXT, nTEXT}; }
};

/// Lines that look like cards, behind an ENDDATA.
struct T_BEHINDEND_D {
    T_ORIGINLINE_D first;
    std::size_t nLINES;
};

/// Takes the cards of a deck that is being read, in order.
class CCardSink {
  public:
    virtual ~CCardSink() = default;

    /// Whether the card's text has to stay where it is.
    virtual bool OnCard(const T_SOURCECARD_D& rCard) = 0;

    /// What looks at the lines of a deck ahead, null for nothing.
    virtual std::unique_ptr<CLinesAhead> MakeAhead() { return nullptr; }

    /// Cards of a run of rAhead, as they stand in the deck.
    virtual void OnRun(std::string_view sText, const T_ORIGINLINE_D& rOrigin, const T_LINERUN_D& rRun,
                       CLinesAhead& rAhead) {
        static_cast<void>(sText);
        static_cast<void>(rOrigin);
        static_cast<void>(rRun);
        static_cast<void>(rAhead);
    }
};

/// Reads a deck. Comments and lines of blanks are nothing; continuation lines belong together by their marks, or else
/// by their places; cards that lines of replication stand for are made. Of a deck with parts, one is read.
class CSourceDeck : private CJoinSink {
  public:
    /// iPart is the superelement to be read, 0 for the main model. Replication makes at most nMostMade cards.
    CSourceDeck(CTold& rTold, std::int32_t iPart, std::int64_t nMostMade = T_LIMITS_D().nRANGES)
        : m_rTold(rTold), m_iPart(iPart), m_nMostMade(nMostMade) {}

    /// Cards go to pSink, which may be null: then they are kept, and it is GetCards that has them. Throws
    /// CFileException with the place in a deck if that can't be joined.
    void Read(const std::string& sDeck, const T_JOINRULES_D& rRules, CCardSink* pSink = nullptr);

    const std::vector<T_CONTROL_D>& GetControl() const { return m_aControl; }
    std::vector<T_SOURCECARD_D>& GetCards() { return m_aCards; }
    const std::vector<T_SOURCECARD_D>& GetCards() const { return m_aCards; }
    const std::vector<std::string>& GetFiles() const { return m_aFiles; }
    const T_INPUTS& GetInputs() const { return m_inputs; }

    /// One for each file that has any.
    const std::vector<T_BEHINDEND_D>& GetBehindEnd() const { return m_aBehindEnd; }

    static const std::vector<T_RULE_D> RULES;

  private:
    void OnFile(const std::string& sPath) override { m_aFiles.push_back(sPath); }
    void OnLine(const T_JOINLINE_D& rLine) override;
    std::unique_ptr<CLinesAhead> MakeAhead() override { return m_pSink ? m_pSink->MakeAhead() : nullptr; }
    bool OnRun(const T_JOINLINE_D& rFirst, const T_LINERUN_D& rRun, CLinesAhead& rAhead) override;
    void OnSwitch(const T_JOINLINE_D&) override {}
    void OnMissing(const std::string& sName, const T_JOINLINE_D& rLine) override;
    void OnBehindEnd(const T_JOINLINE_D& rFirst, std::size_t nLines) override {
        m_aBehindEnd.push_back({{static_cast<std::uint32_t>(rFirst.iFILE), rFirst.iLINE}, nLines});
    }

    void TakeControl(std::string_view sText, const T_ORIGINLINE_D& rOrigin);
    bool TakeMarker(std::string_view sText, bool bBulk);
    void TakeBulk(std::string_view sText, const T_ORIGINLINE_D& rOrigin, const T_LINELOOK_D& rLook);
    void BeginCard(std::string_view sText, const T_ORIGINLINE_D& rOrigin, const T_LINELOOK_D& rLook);
    void AddLine(std::string_view sText, const T_LINELOOK_D& rLook);
    void EndCard();
    void GiveCard();
    bool IsWaiting() const { return !m_aWaiting.empty() || !m_aStrays.empty(); }
    void Replicate(std::string_view sText, const T_ORIGINLINE_D& rOrigin);
    void JoinStrays();

    CTold& m_rTold;
    std::int32_t m_iPart;
    std::int64_t m_nMostMade;
    std::int64_t m_nMade = 0;   // cards, by replication
    std::int32_t m_iInPart = 0; // the part that the lines in hand belong to
    CTextStore m_texts;
    std::vector<T_CONTROL_D> m_aControl;
    std::vector<T_SOURCECARD_D> m_aCards; // with a sink, those that it hasn't got yet
    CCardSink* m_pSink = nullptr;
    bool m_bOpen = false;    // whether the last card may go on
    std::string m_sLastMark; // field 10 of the last line, bare
    std::string m_sCommon;   // of replication: the lines that are to be repeated
    std::string m_sGiven;    // the last card that went to the sink, without its line feed
    struct T_STRAY_D {
        std::string_view sTEXT;
        std::size_t iCARD; // the one before it
    };
    std::vector<T_STRAY_D> m_aStrays;                // continuation lines with another mark than the line before them
    std::vector<std::uint32_t> m_aWaiting;           // cards that end in a mark
    std::map<std::string, std::uint64_t> m_mapParts; // cards of parts that aren't read, by keyword
    std::vector<T_BEHINDEND_D> m_aBehindEnd;
    std::vector<std::string> m_aFiles;
    T_INPUTS m_inputs;
};
