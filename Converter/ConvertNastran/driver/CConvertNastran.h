#pragma once
// The one object of a run: it owns the store and the log; reader, card handlers and section writers are its members.

#include "messages/FormatText.h"
#include "messages/RunError.h"
#include "platform/File.h"
#include "reader/Card.h"
#include "reader/DeckList.h"
#include "reader/FieldParser.h"
#include "reader/LineGroup.h"
#include "reader/LineReader.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

class CDataPool;
class CDeckObserver;
class CDialogs;
class CKeywordMap;
class CZdtMsgMgr;
enum E_GROUP : std::int32_t;
enum E_LOSS : std::int32_t;
struct T_KEYWORD_D;
struct T_LEFT_D;
enum E_LOAD_KIND : std::int8_t;
struct T_LOAD_D;
struct T_MBLD_D;
struct T_NTLD_D;
struct T_QUIET_D;
struct T_LOADCASE_ROW;
struct T_SHAPESECTION_ROW;
struct T_TAPEREDSECTION_ROW;
template <class... ARGS>
class T_FORMAT_D;
template <class RECORD>
class CMap;

/// Where a run's model goes, for a host that doesn't want it beside the deck.
class COutput {
  public:
    virtual ~COutput() = default;

    /// The model is complete. Gives the file that it is written to, which is closed at the end. rDecks are those that
    /// the run read. A CFileException counts as a target file that can't be created.
    virtual CFile& Open(const T_INPUTS& rDecks) = 0;
};

/// What a host may ask of a run. All that is pointed to must outlive the run.
struct T_CONVERT_D {
    CDeckObserver* pOBSERVER = nullptr; // is told what becomes of each group of lines
    COutput* pOUTPUT = nullptr;         // takes the model, instead of a file beside the deck
    std::string sDECKNAME = {};         // what the log calls the deck, instead of its path
    T_LIMITS_D limits = {};
    std::size_t nTHREADS = 0; // that may work at a time; 0 for what ChooseThreads says
};

/// Converts one deck; made anew for each run.
class CConvertNastran {
  public:
    /// rDialogs shows the log and a failing output file; it must outlive this object.
    explicit CConvertNastran(CDialogs& rDialogs);
    virtual ~CConvertNastran();
    CConvertNastran(const CConvertNastran&) = delete;
    CConvertNastran& operator=(const CConvertNastran&) = delete;

    /// Reads the deck sPath and all that it includes, resolves the model, writes the target file beside the deck and
    /// shows the log. Returns 1, or 0 for a failed run, whose reason is in GetFailure. An output file that fails is
    /// told through the dialogs and counts as success. Doesn't throw.
    int Convert(const std::string& sPath, const T_CONVERT_D& rOptions = {});

    /// Why the last run failed.
    const T_FAIL_D& GetFailure() const { return m_failure; }

    /// The model, as far as the run got.
    const CDataPool& GetDataPool() const { return *m_pDataPool; }

    const CZdtMsgMgr& GetMsgMgr() const { return *m_pMsgMgr; }

    /// Path of the target file: the path up to its last ".", even one in the name of a folder, and ".zdt".
    static std::string TargetPath(const std::string& sPath);

    /// The values of a field, see reader/FieldParser.h.
    static std::int32_t FieldToInt(std::string_view sField, std::int32_t iDefault) {
        return ::FieldToInt(sField, iDefault);
    }
    static double FieldToReal(std::string_view sField, double dDefault) { return ::FieldToReal(sField, dDefault); }
    static std::string_view FieldToText(std::string_view sField, std::string_view sDefault = {}) {
        return ::FieldToText(sField, sDefault);
    }

    /// Id of a keyword that is written exactly so. Returns 1, or 0 if there is none.
    static int KeywordToId(std::string_view sKeyword, std::int32_t& rId);

    /// The one way to the output file, see writer/Format.h.
    template <class... ARGS>
    static int WriteLine(CTextSink& rSink, T_FORMAT_D<std::type_identity_t<ARGS>...> format, const ARGS&... args) {
        FormatTo(rSink, format, args...);
        return 1;
    }

  private:
    friend struct T_KEYWORD_D;
    static const CKeywordMap m_mapKeywords;

    // driver/Convert.cpp
    void ReadDecks(const std::string& sPath);
    int LogMessage(std::string_view sFormat, TEXT_ARGS aArgs = {});

    // driver/Summary.cpp
    void WriteSummary();
    std::size_t CountElements(std::int32_t iType, std::int32_t iSubtype) const;
    std::size_t CountProperties(std::int32_t iPropType) const;
    std::size_t CountLoads(std::int32_t iKind) const;

    // reader/DeckReader.cpp
    int ReadDeckFile();
    int ReadCardGroup();
    int PeekNextLine();
    int SwitchSection(std::string_view sText);
    T_LINE_D* FetchLine(std::int32_t nLongest);

    // reader/CardsAhead.cpp
    void ShareDeck();
    void LookAhead(T_CHUNK_D& rChunk);
    void TakeAhead(T_CHUNK_D& rChunk, const T_LINE_D& rLine, std::size_t iBegin, std::size_t iEnd);
    bool PassRun();
    template <class RECORD>
    std::int32_t PassRecords(CMap<RECORD>& rTable, const T_CARDRUN_D& rRun);
    std::int32_t PassEntries(const T_CARDRUN_D& rRun);

    // reader/DeckObserver.cpp
    void TakeObservedGroup(CDeckObserver& rObserver);
    void TakeToldGroup();
    void TellCard();
    void LoseUnknown();
    void LoseGroup(E_LOSS eLoss);
    void TellText();
    void TellJoining(const T_LINE_D& rLine);
    std::string LineText(std::int32_t iLine) const;
    std::string LineInfoText(const std::vector<std::int32_t>& aLines) const;

    // reader/CardAssembly.cpp
    int AssembleCard();
    int AssembleWords(const T_LINE_D& rLine);
    int SplitSmallLine(T_LINE_D& rLine, std::string_view& rFirst);
    int SplitLargeLine(T_LINE_D& rLine);
    int SplitFreeLine(T_LINE_D& rLine);

    // reader/Keywords.cpp
    static consteval CKeywordMap InitKeywordTable();
    int DispatchCard(const T_DATA_D& rCard);

    // The card handlers. Each stores what its card says, logs nothing and returns 1.

    // cards/GridCards.cpp
    int ParseGRID(const T_DATA_D& rCard);
    int ParseCORD1R(const T_DATA_D& rCard);
    int ParseCORD1C(const T_DATA_D& rCard);
    int ParseCORD1S(const T_DATA_D& rCard);
    int ParseCORD2R(const T_DATA_D& rCard);
    int ParseCORD2C(const T_DATA_D& rCard);
    int ParseCORD2S(const T_DATA_D& rCard);
    int ParseSPC(const T_DATA_D& rCard);
    int ParseSPC1(const T_DATA_D& rCard);
    int ParseMPC(const T_DATA_D& rCard);

    // cards/ElementCards.cpp
    int ParseCBAR(const T_DATA_D& rCard);
    int ParseCBEAM(const T_DATA_D& rCard);
    int ParseCBEND(const T_DATA_D& rCard);
    int ParseCROD(const T_DATA_D& rCard);
    int ParseCTUBE(const T_DATA_D& rCard);
    int ParseCONROD(const T_DATA_D& rCard);
    int ParseCTRIA3(const T_DATA_D& rCard);
    int ParseCTRIA6(const T_DATA_D& rCard);
    int ParseCTRIAR(const T_DATA_D& rCard);
    int ParseCQUAD4(const T_DATA_D& rCard);
    int ParseCQUAD8(const T_DATA_D& rCard);
    int ParseCQUADR(const T_DATA_D& rCard);
    int ParseCSHEAR(const T_DATA_D& rCard);
    int ParseCTETRA(const T_DATA_D& rCard);
    int ParseCPENTA(const T_DATA_D& rCard);
    int ParseCHEXA(const T_DATA_D& rCard);
    int ParseCELAS1(const T_DATA_D& rCard);
    int ParseCELAS2(const T_DATA_D& rCard);
    int ParseCBUSH(const T_DATA_D& rCard);
    int ParseCGAP(const T_DATA_D& rCard);
    int ParseCONM2(const T_DATA_D& rCard);
    int ParseRBE2(const T_DATA_D& rCard);

    // cards/PropertyCards.cpp
    int ParsePBAR(const T_DATA_D& rCard);
    int ParsePBARL(const T_DATA_D& rCard);
    int ParsePBEAM(const T_DATA_D& rCard);
    int ParsePBEND(const T_DATA_D& rCard);
    int ParsePROD(const T_DATA_D& rCard);
    int ParsePTUBE(const T_DATA_D& rCard);
    int ParsePSHELL(const T_DATA_D& rCard);
    int ParsePCOMP(const T_DATA_D& rCard);
    int ParsePSHEAR(const T_DATA_D& rCard);
    int ParsePSOLID(const T_DATA_D& rCard);
    int ParsePELAS(const T_DATA_D& rCard);
    int ParsePBUSH(const T_DATA_D& rCard);
    int ParsePGAP(const T_DATA_D& rCard);
    int ParseMAT1(const T_DATA_D& rCard);
    int ParseMAT4(const T_DATA_D& rCard);
    int ParseMAT8(const T_DATA_D& rCard);

    // cards/LoadCards.cpp
    T_LOAD_D& EnsureLoadSet(std::int32_t iSID);
    int AddLoad(std::int32_t iSID, const T_MBLD_D& rEntry);
    int AddTemperature(std::int32_t iSID, const T_NTLD_D& rEntry);
    int ParseFORCE(const T_DATA_D& rCard);
    int ParseFORCE1(const T_DATA_D& rCard);
    int ParseFORCE2(const T_DATA_D& rCard);
    int ParseMOMENT(const T_DATA_D& rCard);
    int ParseMOMENT1(const T_DATA_D& rCard);
    int ParseMOMENT2(const T_DATA_D& rCard);
    int ParseGRAV(const T_DATA_D& rCard);
    int ParseLOAD(const T_DATA_D& rCard);
    int ParsePLOAD1(const T_DATA_D& rCard);
    int ParsePLOAD2(const T_DATA_D& rCard);
    int ParsePLOAD4(const T_DATA_D& rCard);
    int ParseSPCD(const T_DATA_D& rCard);
    int ParseTEMP(const T_DATA_D& rCard);
    int ParseTEMPD(const T_DATA_D& rCard);
    int ParseTEMPP1(const T_DATA_D& rCard);
    int ParseTEMPRB(const T_DATA_D& rCard);
    int ParseEIGB(const T_DATA_D& rCard);
    int ParseEIGRL(const T_DATA_D& rCard);

    // The section writers. Each returns 1 and throws CFileException; a section without records writes nothing unless
    // its writer says otherwise.

    // writer/ZdtFile.cpp
    int WriteZdtFile(const std::string& sPath);
    int WriteModel(CFile& rFile);

    // writer/LeftMessages.cpp: what the file doesn't say goes to the observer and, as far as the log tells it, there
    void TellLeft(const T_LEFT_D& rLeft);

    // writer/ElementSections.cpp
    int WriteNodeSection(CFile& rFile);
    int WriteElementSection(CFile& rFile);
    int WriteConrodSection(CFile& rFile);
    int WriteNodalMassSection(CFile& rFile);

    // writer/PropertySections.cpp
    int WriteMaterialSection(CFile& rFile);
    int WriteSectionAndThickness(CFile& rFile);
    int WriteBarSection(CFile& rFile, const T_SHAPESECTION_ROW& rRow);
    int WriteBeamSection(CFile& rFile, const T_TAPEREDSECTION_ROW& rRow);

    // writer/ConstraintSections.cpp
    int WriteConstraintSection(CFile& rFile);
    int WriteLocalAxisSection(CFile& rFile);
    int WriteRbe2Links(CFile& rFile);
    int WriteMpcLinks(CFile& rFile);

    // writer/LinkSections.cpp: springs, then bushes and gaps, then springs between coincident nodes
    int WriteCelas1Links(CFile& rFile);
    int WriteCelas2Links(CFile& rFile);
    int WriteBushGapProperties(CFile& rFile);
    int WriteBushGapLinks(CFile& rFile);
    int WriteScalarProperties(CFile& rFile);
    int WriteScalarLinks(CFile& rFile);

    // writer/LoadSections.cpp: those of one load case in the order of the file
    int WriteStaticLoadCases(CFile& rFile);
    template <class FORMAT>
    int WriteEntries(CFile& rFile, const T_LOAD_D& rSet, E_LOAD_KIND eKind, std::string_view sHead, FORMAT format);
    int WriteNodalForces(CFile& rFile, const T_LOAD_D& rSet);
    int WriteNodalMoments(CFile& rFile, const T_LOAD_D& rSet);
    int WriteBeamLoads(CFile& rFile, const T_LOAD_D& rSet);
    int WritePressureLoads(CFile& rFile, const T_LOAD_D& rSet);
    int WriteNodalTemperatures(CFile& rFile, const T_LOADCASE_ROW& rCase);
    int WriteElementTemperatures(CFile& rFile, const T_LOAD_D& rSet);
    int WriteTemperatureGradients(CFile& rFile, const T_LOAD_D& rSet);
    int WriteSpecifiedDisplacements(CFile& rFile, const T_LOAD_D& rSet);
    int WriteLoadCombinations(CFile& rFile);
    int WriteEigenControl(CFile& rFile);

    CDialogs& m_rDialogs;
    std::unique_ptr<CDataPool> m_pDataPool;
    std::unique_ptr<CZdtMsgMgr> m_pMsgMgr;
    T_CONVERT_D m_options;
    std::size_t m_nThreads = 1; // that may work at a time
    T_FAIL_D m_failure;

    CDeckList m_aIncludeFiles;            // the main deck, too
    std::int32_t m_iSection = 0;          // 0 before CEND, 1 case control, 2 bulk data
    std::int32_t m_iLineNo = 0;           // lines read of the current deck
    std::int64_t m_nFileLines = 0;        // lines that count; a Ctrl-Z ends them
    CLineGroup m_aLines;                  // of the card in hand
    T_DATA_D m_card;                      // made of them
    T_FIELDUSE_D m_fieldUse;              // of its fields, for the observer
    std::vector<T_RAWLINE_D> m_aRawLines; // of its lines, likewise
    T_QUIET_D* m_pQuiet = nullptr;        // what the observer needn't be told of

    // read cards of a long deck ahead, each those of a chunk
    std::vector<std::unique_ptr<CConvertNastran>> m_aTakers;

    CLineReader m_fp; // of the current deck; its threads work on the takers

    std::int32_t m_iCurLoadSet = 0;    // set of the last load card
    T_LOAD_D* m_pCurLoadSet = nullptr; // its record
    std::int64_t m_nRanged = 0;        // entries made by ranges
    std::int32_t m_nPSHELL = 0;        // PSHELL cards read
};
