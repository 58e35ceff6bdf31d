// A conversion as one page for any browser.

#include "nas2zdt/report/Report.h"

#include "nas2zdt/check/CheckOutput.h"
#include "nas2zdt/picture/Scene.h"
#include "nas2zdt/report/Block.h"
#include "nas2zdt/report/DeckText.h"
#include "nas2zdt/report/LoadBlocks.h"
#include "nas2zdt/report/ModelBlocks.h"
#include "nas2zdt/report/ModelJson.h"
#include "nas2zdt/report/Page.h"
#include "nas2zdt/text/Json.h"
#include "platform/WholeFile.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace {

constexpr std::array<const char*, PART_KINDS> KIND_NAMES = {
    "truss",        "beam",         "plane stress",     "plate", "solid", "rigid link",
    "elastic link", "general link", "spring to ground", "mass"};

std::string TextArray(const std::vector<std::string>& rTexts) {
    return JsonArray(rTexts, [](const std::string& sText) { return JsonText(sText); });
}

/// The files of a run by number: those that it read, then what only the check or restating knows.
class CFiles {
  public:
    std::size_t Find(const std::string& sName) {
        const auto [pFound, bNew] = m_mapFiles.emplace(sName, m_aNames.size());
        if (bNew) m_aNames.push_back(sName);
        return pFound->second;
    }
    const std::vector<std::string>& GetNames() const { return m_aNames; }

  private:
    std::vector<std::string> m_aNames;
    std::map<std::string, std::size_t> m_mapFiles;
};

/// Writes the data of a page.
class CPageData {
  public:
    CPageData(CFile& rFile, const T_REPORT_D& rReport, const CDataPool& rPool)
        : m_rFile(rFile), m_rReport(rReport), m_rPool(rPool) {}

    void Write() {
        std::string sJson = "{" + JsonMember("version", std::uint64_t(1)) + "," + Head() + "," + Model() + "," +
                            Losses() + "," + Restated() + ",";
        TakeFindings();
        sJson += CDeckText(m_files.GetNames(), std::exchange(m_wanted, {})).Write(m_rFile) + "," + Result() + "}";
        CBlock block(m_rFile, "report", "json");
        block.Write(sJson);
        block.Finish();
    }

  private:
    std::string Head() {
        for (const std::string& sDeck : m_rReport.notes.GetDecks()) m_files.Find(sDeck);
        for (const std::string& sFile : m_rReport.aSOURCES) m_files.Find(sFile);
        return JsonMember("program", JsonText("nas2zdt " NAS2ZDT_VERSION)) + "," +
               JsonMember("date", JsonText(m_rReport.sDATE)) + "," +
               JsonMember("arguments", TextArray(m_rReport.aARGUMENTS)) + "," +
               JsonMember("warnings", TextArray(m_rReport.aWARNINGS)) + "," +
               JsonMember("control", TextArray(m_rReport.notes.GetControl())) + "," +
               JsonMember("controlLines", m_rReport.notes.CountControl()) + "," +
               JsonMember("target", FileJson(m_rReport.result.sTARGET));
    }

    std::string Model() {
        T_SCEN_D scene = CollectParts(m_rPool);
        CollectSupports(m_rPool, scene);
        const T_VECTOR centre = FindCentre(scene);
        WriteModelBlocks(m_rFile, m_rPool, scene, centre);
        std::string sMissing;
        for (std::size_t i = 0; i < PART_KINDS; ++i) {
            sMissing += (i > 0 ? "," : "") + std::to_string(scene.aCOUNTS[i].nWITHOUTNODES);
        }
        return JsonMember("kinds", JsonArray(KIND_NAMES, [](const char* sKind) { return JsonText(sKind); })) + "," +
               JsonMember("withoutNodes", "[" + sMissing + "]") + "," +
               JsonMember("centre", JsonArray(centre, &JsonNumber)) + "," + Loads() + "," +
               JsonMember("properties", PropertiesJson(m_rPool)) + "," +
               JsonMember("materials", MaterialsJson(m_rPool)) + "," +
               JsonMember("combinations", CombinationsJson(m_rPool));
    }

    std::string Loads() {
        const T_LOADTABLE_D table = CollectLoadRows(m_rPool);
        WriteLoadBlocks(m_rFile, table);
        const auto rows = [](const T_CASEROWS_D& r) {
            return "{" + JsonMember("id", std::to_string(r.iSID)) + "," + JsonMember("first", r.iFIRST) + "," +
                   JsonMember("count", r.nROWS) + "}";
        };
        return JsonMember("cases", JsonArray(table.aCASES, rows)) + "," +
               JsonMember("loadTypes", JsonArray(LOADROW_NAMES, [](const char* s) { return JsonText(s); })) + "," +
               JsonMember("loadWords", TextArray(table.aWORDS)) + "," + JsonMember("loadsLeftOut", table.nLEFTOUT);
    }

    /// For each loss of the account that has any: its ids, places in the block "loss-id", and its places, in
    /// "loss-place": file, first and last line of each.
    std::string Losses() {
        const CRunNotes::IDS left = m_rReport.notes.GetLeft();
        std::vector<std::int32_t> aIds, aPlaces;
        std::string sText;
        for (const T_WORD_D* pWord : m_rReport.account.GetWords()) {
            for (const T_NOTE_D& rNote : pWord->aNOTES) {
                const std::size_t iFirstId = aIds.size(), iFirstPlace = aPlaces.size();
                const auto pIds = left.find({pWord->sNAME, NoteKind(rNote)});
                if (pIds != left.end()) aIds.insert(aIds.end(), pIds->second.begin(), pIds->second.end());
                std::size_t nWanted = T_NOTE_D::MOST_PLACES; // of each loss, or one could take all room
                for (const T_PLACE_D& rPlace : rNote.aPLACES) AddPlace(rPlace, nWanted > 0 && nWanted-- > 0, aPlaces);
                sText += (sText.empty() ? "{" : ",{") + JsonMember("keyword", JsonText(pWord->sNAME)) + "," +
                         JsonMember("kind", JsonText(NoteKind(rNote))) + "," +
                         JsonMember("text", JsonText(NoteText(rNote))) + "," + JsonMember("firstId", iFirstId) + "," +
                         JsonMember("ids", aIds.size() - iFirstId) + "," + JsonMember("firstPlace", iFirstPlace / 3) +
                         "," + JsonMember("places", (aPlaces.size() - iFirstPlace) / 3) + "}";
            }
        }
        const auto same = [](std::int32_t i) { return i; };
        WriteWords<std::int32_t>(m_rFile, "loss-id", aIds, same);
        WriteWords<std::int32_t>(m_rFile, "loss-place", aPlaces, same);
        return "\"losses\":[" + sText + "]";
    }

    void AddPlace(const T_PLACE_D& rPlace, bool bWanted, std::vector<std::int32_t>& rPlaces) {
        if (rPlace.iFIRST == 0) return; // the deck as a whole
        const T_ORIGIN_D origin = m_rReport.account.GetOrigin(rPlace);
        const auto iLast = static_cast<std::int64_t>(origin.iLINE) + (rPlace.iLAST - rPlace.iFIRST);
        const std::size_t iFile = m_files.Find(origin.sFILE);
        if (bWanted) Want({iFile, origin.iLINE, iLast});
        rPlaces.insert(rPlaces.end(),
                       {static_cast<std::int32_t>(iFile), origin.iLINE, static_cast<std::int32_t>(iLast)});
    }

    std::string Restated() {
        const auto place = [&](const T_ORIGINLINE_D& rPlace) {
            const std::size_t iFile = m_files.Find(m_rReport.aSOURCES[rPlace.iFILE]);
            if (rPlace.iLINE > 0) Want({iFile, rPlace.iLINE, rPlace.iLINE});
            return "[" + std::to_string(iFile) + "," + std::to_string(rPlace.iLINE) + "]";
        };
        const auto told = [&](const T_TOLD_D& r) {
            return "{" + JsonMember("rule", JsonText(r.pRULE->sNAME)) + "," +
                   JsonMember("class", JsonText(ClassName(r.pRULE->eCLASS))) + "," +
                   JsonMember("keyword", JsonText(r.sKEYWORD)) + "," + JsonMember("takes", JsonText(r.pRULE->sTAKES)) +
                   "," + JsonMember("gives", JsonText(r.pRULE->sGIVES)) + "," +
                   JsonMember("detail", JsonText(r.sDETAIL)) + "," + JsonMember("count", r.nCOUNT) + "," +
                   JsonMember("places", JsonArray(r.aPLACES, place)) + "}";
        };
        return JsonMember("restated", JsonArray(m_rReport.aRESTATED, told));
    }

    void TakeFindings() {
        if (!m_rReport.pCHECK) return;
        const T_CHECK_D& rCheck = *m_rReport.pCHECK;
        for (const std::string& sFile : rCheck.aFILES) m_files.Find(sFile);
        for (const T_FINDING_D& rFinding : rCheck.findings.GetAll()) {
            for (const T_PLACED_D& rPlace : rFinding.aPLACES) {
                if (rPlace.origin.iLINE == 0) continue;
                const std::int32_t iLine = rPlace.origin.iLINE;
                Want({m_files.Find(rCheck.aFILES[rPlace.origin.iFILE]), iLine, iLine});
            }
        }
    }

    /// Lines that the page should hold.
    void Want(const T_LINES_D& rLines) {
        if (m_wanted.size() < CDeckText::MOST_LINES) m_wanted.insert(rLines);
    }

    std::string Result() const {
        const std::string sCheck = m_rReport.pCHECK ? CheckJson(*m_rReport.pCHECK) : "null";
        return JsonMember("result", ResultJson(m_rReport.result, &m_rReport.account, sCheck));
    }

    CFile& m_rFile;
    const T_REPORT_D& m_rReport;
    const CDataPool& m_rPool;
    CFiles m_files;
    std::set<T_LINES_D> m_wanted;
};

} // namespace

std::string ReportDate() {
    using namespace std::chrono;
    sys_seconds time = floor<seconds>(system_clock::now());
    if (const char* sEpoch = std::getenv("SOURCE_DATE_EPOCH")) {
        const std::string_view sSeconds = sEpoch;
        constexpr std::int64_t MOST = 253402300799; // the end of year 9999
        std::int64_t nSeconds = 0;
        const auto [pRead, error] = std::from_chars(sSeconds.data(), sSeconds.data() + sSeconds.size(), nSeconds);
        if (error == std::errc() && nSeconds >= 0 && nSeconds <= MOST) time = sys_seconds(seconds(nSeconds));
    }
    const sys_days day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    std::array<char, 64> aText;
    std::snprintf(aText.data(), aText.size(), "%04d-%02u-%02u %02d:%02d:%02d UTC", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return aText.data();
}

void WriteReport(const T_REPORT_D& rReport, const CDataPool& rPool, const std::string& sPath, const T_INPUTS& rInputs) {
    const T_PAGE_D& rPage = *GetReportPage();
    CWholeFile file(sPath, rInputs);
    file.GetFile().Write(rPage.sHEAD);
    CPageData(file.GetFile(), rReport, rPool).Write();
    file.GetFile().Write(rPage.sTAIL);
    file.Finish();
}
