#include "support/Deck.h"

#include "driver/ConvertNastranApp.h"
#include "messages/ZdtMsgMgr.h"
#include "support/NoDialogs.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>

namespace {

const CConvertNastranApp g_app; // the real message texts

/// Keeps what a person would see.
class CSilentDialogs : public CNoDialogs {
  public:
    explicit CSilentDialogs(T_RUN_D& rRun) : m_rRun(rRun) {}
    void ShowFileError(const CFileException& rError) override { m_rRun.sFILEERROR = rError.GetText(); }
    void ShowMessages(const std::vector<std::string>& aLines) override { m_rRun.aSHOWN = aLines; }

  private:
    T_RUN_D& m_rRun;
};

constexpr std::size_t BANNER_LINES = 10;

} // namespace

CTempFolder::CTempFolder() {
    std::random_device random;
    do {
        m_path = std::filesystem::temp_directory_path() / ("nas2zdt-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(m_path)); // throws if it isn't for the name
}

CTempFolder::~CTempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string CTempFolder::Path(const std::string& sName) const {
    const std::u8string sPath = (m_path / PathOf(sName)).u8string();
    return {sPath.begin(), sPath.end()};
}

std::filesystem::path PathOf(const std::string& sPath) {
    return std::u8string(sPath.begin(), sPath.end());
}

void WriteText(const std::string& sPath, std::string_view sText) {
    std::ofstream file(PathOf(sPath), std::ios::binary);
    file.write(sText.data(), static_cast<std::streamsize>(sText.size()));
    if (!file) std::abort();
}

std::string ReadText(const std::string& sPath) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(PathOf(sPath), ignored)) return "<no file>"; // a device may have no end
    std::ifstream file(PathOf(sPath), std::ios::binary);
    if (!file) return "<no file>";
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> ListFolder(const std::string& sFolder) {
    std::vector<std::string> aNames;
    for (const auto& rEntry : std::filesystem::directory_iterator(PathOf(sFolder))) {
        aNames.push_back(rEntry.path().filename().string());
    }
    std::sort(aNames.begin(), aNames.end());
    return aNames;
}

std::string Repeat(const std::string& sText, int nTimes) {
    std::string sAll;
    for (; nTimes > 0; --nTimes) sAll += sText;
    return sAll;
}

std::string Without(std::string sText, const std::string& sPart) {
    for (std::size_t i = sText.find(sPart); i != std::string::npos; i = sText.find(sPart, i)) {
        sText.erase(i, sPart.size());
    }
    return sText;
}

T_RUN_D RunFile(const std::string& sPath, const T_LIMITS_D& rLimits) {
    T_RUN_D result;
    CSilentDialogs dialogs(result);
    CConvertNastran run(dialogs);
    result.iRESULT = run.Convert(sPath, {.limits = rLimits});
    result.failure = run.GetFailure();
    result.sZDT = ReadText(CConvertNastran::TargetPath(sPath));
    const std::vector<std::string>& rLog = run.GetMsgMgr().GetMessages();
    const std::string sSummary = "================================== [ Conversion Summary ] ===============";
    auto pEnd = std::find_if(rLog.begin(), rLog.end(), [&](const auto& rLine) { return rLine.starts_with(sSummary); });
    if (pEnd != rLog.end()) --pEnd; // the empty line before the summary is its own
    const auto nBanner = std::min<std::ptrdiff_t>(BANNER_LINES, pEnd - rLog.begin());
    result.aLOG.assign(rLog.begin() + nBanner, pEnd);
    return result;
}

T_RUN_D RunDeck(std::string_view sDeck, const T_LIMITS_D& rLimits) {
    const CTempFolder folder;
    const std::string sPath = folder.Path("deck.dat");
    WriteText(sPath, sDeck);
    return RunFile(sPath, rLimits);
}

namespace {
std::string BulkDeck(std::string_view sCards) {
    return "BEGIN BULK\n" + std::string(sCards) + "ENDDATA\n";
}
} // namespace

T_RUN_D RunBulk(std::string_view sCards, const T_LIMITS_D& rLimits) {
    return RunDeck(BulkDeck(sCards), rLimits);
}

CStoredRun::CStoredRun(std::string_view sCards)
    : m_pDialogs(std::make_unique<CSilentDialogs>(m_result)), m_pRun(std::make_unique<CConvertNastran>(*m_pDialogs)) {
    const CTempFolder folder;
    const std::string sPath = folder.Path("deck.dat");
    WriteText(sPath, BulkDeck(sCards));
    m_pRun->Convert(sPath);
}

CStoredRun::~CStoredRun() = default;

std::string ConvertBulk(std::string_view sCards) {
    return RunBulk(sCards).sZDT;
}

std::string Sections(const std::string& sZdt, std::string_view sKeyword) {
    std::string sFound;
    const std::string sLine = "\n" + std::string(sKeyword);
    const std::string sText = "\n" + sZdt;
    for (std::size_t i = sText.find(sLine); i != std::string::npos; i = sText.find(sLine, i + 1)) {
        const std::size_t iEnd = sText.find("\n\n", i);
        sFound += sText.substr(i + 1, iEnd == std::string::npos ? iEnd : iEnd + 1 - i);
    }
    return sFound;
}

std::string WithoutComments(const std::string& sZdt) {
    std::string sText = "\n" + sZdt;
    for (std::size_t i = sText.find("\n;"); i != std::string::npos; i = sText.find("\n;", i)) {
        sText.erase(i, sText.find('\n', i + 1) - i);
    }
    return sText.substr(1);
}
