#pragma once
// Runs decks given as text and hands back what came of them.

#include "driver/CConvertNastran.h"
#include "store/DataPool.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// A folder of its own that goes with the object.
class CTempFolder {
  public:
    CTempFolder();
    ~CTempFolder();
    CTempFolder(const CTempFolder&) = delete;
    CTempFolder& operator=(const CTempFolder&) = delete;
    std::string Path(const std::string& sName) const;

  private:
    std::filesystem::path m_path;
};

/// A path given in UTF-8, as all paths of the converter are.
std::filesystem::path PathOf(const std::string& sPath);

void WriteText(const std::string& sPath, std::string_view sText);

/// The file's bytes; a text that no output equals if it isn't there.
std::string ReadText(const std::string& sPath);

/// The names in a folder, in order.
std::vector<std::string> ListFolder(const std::string& sFolder);

/// The text nTimes, one behind the other.
std::string Repeat(const std::string& sText, int nTimes);

/// The text without sPart, wherever that stands.
std::string Without(std::string sText, const std::string& sPart);

/// What a run left behind.
struct T_RUN_D {
    int iRESULT = 0;
    T_FAIL_D failure;
    std::string sZDT;                // the target file
    std::vector<std::string> aLOG;   // what was logged after the banner and before the summary
    std::vector<std::string> aSHOWN; // the whole list as it was shown; empty if it wasn't
    std::string sFILEERROR;          // the text of the file error box; empty if there was none
};

/// Runs the deck at sPath.
T_RUN_D RunFile(const std::string& sPath, const T_LIMITS_D& rLimits = {});

/// Runs sDeck, a whole deck, in a folder of its own.
T_RUN_D RunDeck(std::string_view sDeck, const T_LIMITS_D& rLimits = {});

/// The same with sCards as the bulk section.
T_RUN_D RunBulk(std::string_view sCards, const T_LIMITS_D& rLimits = {});

/// A run over a bulk section that stays, for a look at the model that it made.
class CStoredRun {
  public:
    explicit CStoredRun(std::string_view sCards);
    ~CStoredRun();
    const CDataPool& GetDataPool() const { return m_pRun->GetDataPool(); }

  private:
    T_RUN_D m_result;
    std::unique_ptr<CDialogs> m_pDialogs;
    std::unique_ptr<CConvertNastran> m_pRun;
};

/// The target file of a bulk section.
std::string ConvertBulk(std::string_view sCards);

/// All blocks of the target file that begin with sKeyword, each through the empty line that ends it.
std::string Sections(const std::string& sZdt, std::string_view sKeyword);

/// The text without lines that are comments, which the examples have.
std::string WithoutComments(const std::string& sZdt);
