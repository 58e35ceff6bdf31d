#pragma once
// Walks through a deck and its includes as NASTRAN does.

#include "messages/RunError.h"
#include "nas2zdt/flatten/LineMap.h"
#include "nas2zdt/text/LinesAhead.h"
#include "platform/File.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class CIncludeStatement;
class CTextReader;

/// A line of one of the decks.
struct T_JOINLINE_D {
    std::string_view sTEXT; // with its line feed, which only the last line of a deck may lack; what is behind it may be
                            // read as of CTextReader
    std::size_t iFILE = 0;  // from 0, in the order in which decks are opened
    std::int32_t iLINE = 0; // from 1
    bool bBULK = false;     // whether it is in the bulk section
};

/// Takes the lines of a deck that is being joined, in order.
class CJoinSink {
  public:
    virtual ~CJoinSink() = default;

    virtual void OnFile(const std::string& sPath) = 0;
    virtual void OnLine(const T_JOINLINE_D& rLine) = 0;

    /// What looks at the lines of a deck that is opened, null for nothing.
    virtual std::unique_ptr<CLinesAhead> MakeAhead() { return nullptr; }

    /// A run of rAhead in the bulk section. rFirst is its first line, with the text of all. False if its lines are to
    /// come one by one.
    virtual bool OnRun(const T_JOINLINE_D& rFirst, const T_LINERUN_D& rRun, CLinesAhead& rAhead) {
        static_cast<void>(rFirst);
        static_cast<void>(rRun);
        static_cast<void>(rAhead);
        return false;
    }

    /// The bulk section begins or ends without a line that says so. rLine is the next line of its deck, without text.
    virtual void OnSwitch(const T_JOINLINE_D& rLine) = 0;

    /// A deck that is included can't be opened.
    virtual void OnMissing(const std::string& sName, const T_JOINLINE_D& rLine) = 0;

    /// Cards stand behind the ENDDATA of a deck: nLines lines begin with a keyword, the first of them is rFirst.
    virtual void OnBehindEnd(const T_JOINLINE_D& rFirst, std::size_t nLines) {
        static_cast<void>(rFirst);
        static_cast<void>(nLines);
    }
};

/// How a deck and its includes are read.
struct T_JOINRULES_D {
    std::int64_t nDECKS = T_LIMITS_D().nDECKS; // most decks that are opened; one that is included twice counts twice
    std::map<std::string, std::string> mapFOLDERS; // of logical names, which are in upper case
    bool bFORGIVING = false; // BEGIN BULK may be written in any way or lack, nothing but ENDDATA ends the bulk section,
                             // an INCLUDE may lead nowhere
    std::string sNAME = {};  // of the main deck, and where it would lie; empty for its path
    std::function<void()> fnPOLL = {}; // called once in a while; what it throws ends the joining

    const std::string& NameOf(const std::string& sDeck) const { return sNAME.empty() ? sDeck : sNAME; }
};

/// Includes are replaced by the decks that they name, at any depth. Names are looked for from the folder of the deck
/// that has them, from that of the main deck and from the current one; "NAME:path" from the folder of a logical name or
/// of an environment variable. ENDDATA in an included deck ends that deck only. Bulk data that is included before the
/// bulk section is put between switches.
class CDeckJoin {
  public:
    CDeckJoin(CJoinSink& rSink, const T_JOINRULES_D& rRules);
    ~CDeckJoin();

    /// Throws CDeckError if the deck can't be joined.
    void Run(const std::string& sDeck);

    /// The decks read so far.
    const T_INPUTS& GetInputs() const { return m_inputs; }

    /// Deck and line that are in hand.
    T_ORIGIN_D Place() const;

  private:
    struct T_LEVEL_D;

    void Enter(const std::string& sPath, std::unique_ptr<CTextReader> pReader, bool bEnclosed);
    void Leave();
    void PassRest();
    void Step();
    bool TakeRun();
    void TakeLine(std::string_view sLine);
    void Include(CIncludeStatement& rStatement);
    std::unique_ptr<CTextReader> Find(const std::string& sName, std::string& rPath, std::string& rCause);
    std::vector<std::string> GetCandidates(const std::string& sName) const;
    void CountDeck();
    void Switch(bool bBulk);
    T_JOINLINE_D Line(std::string_view sText) const;

    CJoinSink& m_rSink;
    const T_JOINRULES_D& m_rRules;
    T_INPUTS m_inputs;
    std::vector<T_LEVEL_D> m_aLevels; // the main deck first; no recursion, since includes may nest deeply
    std::size_t m_nFiles = 0;
    std::int64_t m_nDecks = 0;    // opened
    std::int64_t m_nUnpolled = 0; // lines since the last poll
    bool m_bBulk = false;         // whether the joined text is in the bulk section
};
