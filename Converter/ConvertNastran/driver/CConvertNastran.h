#pragma once
// The one object of a run: it owns the store and the log; reader, card handlers and section writers are its members.

#include "cards/IdRange.h"
#include "driver/Limits.h"
#include "driver/RunError.h"
#include "messages/ZdtMsgMgr.h"
#include "platform/File.h"
#include "reader/Card.h"
#include "reader/DeckObserver.h"
#include "reader/FieldParser.h"
#include "reader/LineReader.h"
#include "store/DataPool.h"
#include "writer/Format.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class CDialogs;
class COutput;
struct T_KEYW_D;
struct T_LOADCASE_ROW;
struct T_SHAPESECTION_ROW;
struct T_TAPEREDSECTION_ROW;

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
    int Convert(const std::string& sPath);

    /// Before a run: tells pObserver what becomes of each group of lines. It must outlive the run; null for none.
    void SetObserver(CDeckObserver* pObserver) { m_pObserver = pObserver; }

    /// Before a run: the model goes to pOutput instead of a file beside the deck. It must outlive the run; null for
    /// none.
    void SetOutput(COutput* pOutput) { m_pOutput = pOutput; }

    /// Before a run: the name that the log gives to the deck, instead of its path.
    void SetDeckName(std::string sName) { m_sDeckName = std::move(sName); }

    /// Before a run: other limits than the usual ones.
    void SetLimits(const T_LIMITS_D& rLimits) { m_limits = rLimits; }

    /// Why the last run failed.
    const T_FAIL_D& GetFailure() const { return m_failure; }

    /// The model, as far as the run got.
    const CDataPool& GetDataPool() const { return *m_pDataPool; }

    const CZdtMsgMgr& GetMsgMgr() const { return *m_pMsgMgr; }

    /// Path of the target file: the path up to its last ".", wherever that stands, and ".zdt".
    static std::string TargetPath(const std::string& sPath);

    /// The field as an integer: the default if it is empty, else atoi of it.
    static std::int32_t FieldToInt(std::string_view sField, std::int32_t iDefault) {
        return sField.empty() ? iDefault : TextToInt(sField);
    }

    /// The field as a real: the default if it is empty, else its value with the exponent forms of the card format.
    static double FieldToReal(std::string_view sField, double dDefault) {
        return sField.empty() ? dDefault : TextToReal(sField);
    }

    /// The field as a text: the default if it is empty.
    static std::string_view FieldToText(std::string_view sField, std::string_view sDefault = {}) {
        return sField.empty() ? sDefault : sField;
    }

    /// Id of a keyword that is written exactly so. Returns 1, or 0 if there is none.
    static int KeywordToId(std::string_view sKeyword, std::int32_t& rId);

    /// The lines of a card for a message: "(Line:%d)", or "(Line:%d~%d)" with more than one number. An observer names
    /// the lines in its own way.
    static std::string LineInfoText(const std::vector<std::int32_t>& aLines, const CDeckObserver* pObserver = nullptr);

    /// The one way to the output file, see writer/Format.h.
    template <class... ARGS>
    static int WriteLine(CFile& rFile, T_FORMAT_D<std::type_identity_t<ARGS>...> format, const ARGS&... args) {
        return ::WriteLine(rFile, format, args...);
    }

  private:
    friend struct T_KEYW_D;

    // driver/Convert.cpp
    void KeepFailure() noexcept;
    void RunConversion(const std::string& sPath);
    void ReadDeck();
    void TestIncludeCycle();
    void LogBanner(const std::string& sPath);
    template <class... ARGS>
    int LogMessage(std::string_view sFormat, const ARGS&... args) {
        m_pMsgMgr->AddMessageF(sFormat, {CTextArg(args)...});
        return 0;
    }

    // driver/Summary.cpp
    void WriteSummary();

    // reader/DeckReader.cpp
    int ReadDeckFile();
    int ReadCardGroup();
    int PeekNextLine();
    int SwitchSection(std::string_view sText);
    T_LINE_D* FetchLine(std::int32_t nLongest);
    void TestLength(std::size_t nText, std::int32_t nLongest, std::int32_t iLine) const;

    // reader/DeckObserver.cpp
    void TakeObservedGroup();
    void TellLoss(E_LOSS eLoss);
    void TellAssembled(E_LOSS eLoss);
    void TellDeletedFields(std::int32_t iLine);
    std::string LineText(std::int32_t iLine) const;

    // reader/CardAssembly.cpp
    int AssembleCard();
    int SplitLine(T_LINE_D& rLine, std::string_view& rFirst);
    int SplitSmallLine(T_LINE_D& rLine, std::string_view& rFirst);
    int SplitLargeLine(T_LINE_D& rLine);
    int SplitFreeLine(T_LINE_D& rLine);

    // reader/Dispatch.cpp
    int DispatchCard(const T_DATA_D& rCard);
    void ReportCard(const T_DATA_D& rCard);
    void TakeInclude(const T_DATA_D& rCard);

    // The card handlers. Each stores what its card says, logs nothing and returns 1.

    // cards/GridCard.cpp
    int ParseGRID(const T_DATA_D& rCard);

    // cards/CoordinateSystemCards.cpp
    int ParseCORD1R(const T_DATA_D& rCard);
    int ParseCORD1C(const T_DATA_D& rCard);
    int ParseCORD1S(const T_DATA_D& rCard);
    int ParseCORD2R(const T_DATA_D& rCard);
    int ParseCORD2C(const T_DATA_D& rCard);
    int ParseCORD2S(const T_DATA_D& rCard);

    // cards/LineElementCards.cpp
    int ParseCBAR(const T_DATA_D& rCard);
    int ParseCBEAM(const T_DATA_D& rCard);
    int ParseCBEND(const T_DATA_D& rCard);
    int ParseCROD(const T_DATA_D& rCard);
    int ParseCTUBE(const T_DATA_D& rCard);
    int ParseCONROD(const T_DATA_D& rCard);

    // cards/ShellElementCards.cpp
    int ParseCTRIA3(const T_DATA_D& rCard);
    int ParseCTRIA6(const T_DATA_D& rCard);
    int ParseCTRIAR(const T_DATA_D& rCard);
    int ParseCQUAD4(const T_DATA_D& rCard);
    int ParseCQUAD8(const T_DATA_D& rCard);
    int ParseCQUADR(const T_DATA_D& rCard);
    int ParseCSHEAR(const T_DATA_D& rCard);

    // cards/SolidElementCards.cpp
    int ParseCTETRA(const T_DATA_D& rCard);
    int ParseCPENTA(const T_DATA_D& rCard);
    int ParseCHEXA(const T_DATA_D& rCard);

    // cards/LinkCards.cpp
    int ParseCELAS1(const T_DATA_D& rCard);
    int ParseCELAS2(const T_DATA_D& rCard);
    int ParseCBUSH(const T_DATA_D& rCard);
    int ParseCGAP(const T_DATA_D& rCard);

    // cards/MassAndRigidCards.cpp
    int ParseCONM2(const T_DATA_D& rCard);
    int ParseRBE2(const T_DATA_D& rCard);

    // cards/BeamPropertyCards.cpp
    int ParsePBAR(const T_DATA_D& rCard);
    int ParsePBARL(const T_DATA_D& rCard);
    int ParsePBEAM(const T_DATA_D& rCard);
    int ParsePBEND(const T_DATA_D& rCard);
    int ParsePROD(const T_DATA_D& rCard);
    int ParsePTUBE(const T_DATA_D& rCard);

    // cards/PlatePropertyCards.cpp
    int ParsePSHELL(const T_DATA_D& rCard);
    int ParsePCOMP(const T_DATA_D& rCard);
    int ParsePSHEAR(const T_DATA_D& rCard);
    int ParsePSOLID(const T_DATA_D& rCard);

    // cards/SpringPropertyCards.cpp
    int ParsePELAS(const T_DATA_D& rCard);
    int ParsePBUSH(const T_DATA_D& rCard);
    int ParsePGAP(const T_DATA_D& rCard);

    // cards/MaterialCards.cpp
    int ParseMAT1(const T_DATA_D& rCard);
    int ParseMAT4(const T_DATA_D& rCard);
    int ParseMAT8(const T_DATA_D& rCard);

    // cards/NodalLoadCards.cpp
    int AddNodalLoad(const T_DATA_D& rCard, E_LOAD_KIND eKind, E_LOAD_FORM eForm);
    int ParseFORCE(const T_DATA_D& rCard);
    int ParseFORCE1(const T_DATA_D& rCard);
    int ParseFORCE2(const T_DATA_D& rCard);
    int ParseMOMENT(const T_DATA_D& rCard);
    int ParseMOMENT1(const T_DATA_D& rCard);
    int ParseMOMENT2(const T_DATA_D& rCard);
    int ParseGRAV(const T_DATA_D& rCard);
    int ParseLOAD(const T_DATA_D& rCard);

    // cards/LoadSets.cpp
    T_LOAD_D& EnsureLoadSet(std::int32_t iSID);

    // cards/IdRange.cpp
    T_RANGE_D TakeRange(const T_DATA_D& rCard, std::int32_t iBefore, std::int32_t iLast);

    // cards/ElementLoadCards.cpp
    int ParsePLOAD1(const T_DATA_D& rCard);
    int ParsePLOAD2(const T_DATA_D& rCard);
    int ParsePLOAD4(const T_DATA_D& rCard);

    // cards/TemperatureCards.cpp
    int ParseTEMP(const T_DATA_D& rCard);
    int ParseTEMPD(const T_DATA_D& rCard);
    int ParseTEMPP1(const T_DATA_D& rCard);
    int ParseTEMPRB(const T_DATA_D& rCard);

    // cards/ConstraintCards.cpp
    int ParseSPC(const T_DATA_D& rCard);
    int ParseSPC1(const T_DATA_D& rCard);
    int ParseMPC(const T_DATA_D& rCard);

    // cards/EnforcedDisplacementCard.cpp
    int ParseSPCD(const T_DATA_D& rCard);

    // cards/EigenvalueCards.cpp
    int ParseEIGB(const T_DATA_D& rCard);
    int ParseEIGRL(const T_DATA_D& rCard);

    // The section writers. Each returns 1 and throws CFileException; a section without records writes nothing unless
    // its writer says otherwise.

    // writer/ZdtFile.cpp
    int WriteZdtFile(const std::string& sPath);
    CFile& OpenTarget(CFile& rFile, const std::string& sPath);
    int WriteModel(CFile& rFile);
    int WriteFileVersion(CFile& rFile);

    // writer/LeftMessages.cpp: what the file doesn't say goes to the observer and, as far as the log tells it, there
    void TellLeft(const T_LEFT_D& rLeft);
    int LogLeft(const T_LEFT_D& rLeft);
    int LogShape(std::int32_t iPID, std::int32_t iShape);

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
    template <class SPRING>
    int WriteElasticLinks(CFile& rFile, const CMap<SPRING>& rSprings);
    int WriteCelas1Links(CFile& rFile);
    int WriteCelas2Links(CFile& rFile);
    int WriteBushGapProperties(CFile& rFile);
    int WriteBushGapLinks(CFile& rFile);
    int WriteScalarProperties(CFile& rFile);
    int WriteScalarLinks(CFile& rFile);

    // writer/LoadCases.cpp
    int WriteStaticLoadCases(CFile& rFile);
    int WriteLoadCombinations(CFile& rFile);
    int WriteEigenControl(CFile& rFile);

    // writer/LoadSections.cpp: the sections of one load case
    int WriteNodalForces(CFile& rFile, const T_LOAD_D& rSet);
    int WriteNodalMoments(CFile& rFile, const T_LOAD_D& rSet);
    int WriteBeamLoads(CFile& rFile, const T_LOAD_D& rSet);
    int WritePressureLoads(CFile& rFile, const T_LOAD_D& rSet);
    int WriteNodalTemperatures(CFile& rFile, const T_LOADCASE_ROW& rCase);
    int WriteElementTemperatures(CFile& rFile, const T_LOAD_D& rSet);
    int WriteTemperatureGradients(CFile& rFile, const T_LOAD_D& rSet);
    int WriteSpecifiedDisplacements(CFile& rFile, const T_LOAD_D& rSet);

    /// A deck that a run read or has yet to read.
    struct T_DECK_D {
        std::string sPATH;
        std::size_t iORIGIN = 0; // the deck that includes it; the main deck is its own
        T_FILEID_D id;           // once it was opened
    };

    CDialogs& m_rDialogs;
    std::unique_ptr<CDataPool> m_pDataPool;
    std::unique_ptr<CZdtMsgMgr> m_pMsgMgr;
    T_FAIL_D m_failure;
    T_LIMITS_D m_limits;
    std::int64_t m_nRanged = 0;    // entries made by ranges
    std::int64_t m_nBytesRead = 0; // of all decks
    CDeckObserver* m_pObserver = nullptr;
    COutput* m_pOutput = nullptr;
    std::string m_sDeckName;        // empty for its path
    std::uint64_t m_nBytesTold = 0; // to the observer

    std::vector<T_DECK_D> m_aIncludeFiles; // the main deck, then those of INCLUDE cards in the order met
    std::size_t m_iCurDeck = 0;            // the one being read
    std::set<T_FILEID_D> m_setIncluding;   // decks that include others
    std::set<T_FILEID_D> m_setTested;      // those whose road was walked for the cards of m_iTestedOrigin
    std::size_t m_iTestedOrigin = 0;
    CLineReader m_reader;
    std::int32_t m_iSection = 0;   // 0 before CEND, 1 case control, 2 bulk data
    std::int32_t m_iLineNo = 0;    // lines read of the current deck
    std::int64_t m_nFileLines = 0; // lines that count; a Ctrl-Z ends them
    std::vector<std::unique_ptr<T_LINE_D>>
        m_aLines;                            // lines of the card in hand, then the one looked ahead to; never shrinks
    std::size_t m_nLines = 0;                // of the card in hand
    bool m_bPeeked = false;                  // whether m_aLines[m_nLines] is the next line
    std::vector<std::string_view> m_aPieces; // of one line
    T_DATA_D m_card;                         // the assembled card
    T_FIELDUSE_D m_fieldUse;                 // of its fields, for the observer

    std::int32_t m_iCurLoadSet = 0;    // set of the last load card
    T_LOAD_D* m_pCurLoadSet = nullptr; // its record
    std::int32_t m_nPSHELL = 0;        // PSHELL cards read
};
