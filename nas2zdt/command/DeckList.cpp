// Looks for decks in folders and lists.

#include "nas2zdt/command/DeckList.h"

#include "nas2zdt/text/TextReader.h"
#include "nas2zdt/text/Words.h"
#include "platform/Console.h"
#include "platform/File.h"
#include "platform/Paths.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

std::string UpperText(std::string sText) {
    std::transform(sText.begin(), sText.end(), sText.begin(), &ToUpper);
    return sText;
}

/// A name with forward slashes, as lists and other systems have it.
std::string SlashedText(const std::filesystem::path& rPath) {
    const std::u8string sPath = rPath.generic_u8string();
    return {sPath.begin(), sPath.end()};
}

/// Collects the decks of the arguments.
class CDeckFinder {
  public:
    explicit CDeckFinder(const T_OPTIONS_D& rOptions) : m_bRecursive(rOptions.bRECURSIVE) {
        for (const std::string& sExtension : rOptions.aEXTENSIONS) m_extensions.insert(UpperText(sExtension));
    }

    /// A deck, a folder or a pattern.
    int Add(const std::string& sPath) {
        std::error_code error;
        if (m_bRecursive && std::filesystem::is_directory(ToPath(sPath), error)) return AddFolder(sPath);
        if (ShellExpands()) {
            m_aDecks.push_back(sPath);
        } else {
            for (std::string& sMatch : FindMatches(sPath)) m_aDecks.push_back(std::move(sMatch));
        }
        return 1;
    }

    /// A file of paths, or "-" for standard input.
    int AddList(const std::string& sList) {
        if (sList == "-") {
            for (std::string sLine; std::getline(std::cin, sLine);) {
                if (!AddLine(sLine)) return 0;
            }
            return 1;
        }
        CTextReader file;
        std::string sCause;
        if (!file.Open(sList, sCause)) return Fail(sList, sCause);
        for (std::string_view sLine; file.Read(sLine);) {
            if (!AddLine(sLine)) return 0;
        }
        return file.HasFailed() ? Fail(sList, "can't be read to its end") : 1;
    }

    std::vector<std::string> Take() { return std::move(m_aDecks); }
    const std::string& GetFailure() const { return m_sFailure; }

  private:
    int Fail(const std::string& sPath, const std::string& sCause) {
        m_sFailure = sPath + ": " + sCause;
        return 0;
    }

    /// A line of a list. An editor may have put a mark in front of the first.
    int AddLine(std::string_view sLine) {
        constexpr std::string_view MARK = "\xEF\xBB\xBF";
        if (sLine.starts_with(MARK)) sLine.remove_prefix(MARK.size());
        while (sLine.ends_with('\n') || sLine.ends_with('\r')) sLine.remove_suffix(1);
        const bool bPath = sLine.find_first_not_of(" \t") != std::string_view::npos && !sLine.starts_with('#');
        return bPath ? Add(std::string(sLine)) : 1;
    }

    bool IsDeckName(const std::filesystem::path& rPath) const {
        return m_extensions.contains(UpperText(ToText(rPath.extension())));
    }

    /// All decks beneath a folder. Links to other folders aren't followed, and none is looked into twice: there are
    /// more ways for one to lie in itself.
    int AddFolder(const std::string& sFolder) {
        std::vector<std::filesystem::path> aOpen = {ToPath(sFolder)};
        std::vector<std::string> aFound;
        while (!aOpen.empty()) {
            const std::filesystem::path folder = std::move(aOpen.back());
            aOpen.pop_back();
            if (!m_folders.insert(FindTarget(ToText(folder / "deck")).folder).second) continue;
            std::error_code error;
            std::filesystem::directory_iterator entries(folder, error);
            while (!error && entries != std::filesystem::directory_iterator()) {
                Look(*entries, aOpen, aFound);
                entries.increment(error);
            }
            if (error) return Fail(ToText(folder), error.message());
        }
        std::sort(aFound.begin(), aFound.end());
        std::move(aFound.begin(), aFound.end(), std::back_inserter(m_aDecks));
        return 1;
    }

    /// Names with a "." in front are of other programs, and of results that are being written.
    void Look(const std::filesystem::directory_entry& rEntry, std::vector<std::filesystem::path>& rFolders,
              std::vector<std::string>& rFound) const {
        std::error_code error;
        if (ToText(rEntry.path().filename()).starts_with('.')) return;
        if (rEntry.is_directory(error)) {
            if (!rEntry.is_symlink(error)) rFolders.push_back(rEntry.path());
        } else if (IsDeckName(rEntry.path()) && rEntry.is_regular_file(error)) {
            rFound.push_back(SlashedText(rEntry.path()));
        }
    }

    const bool m_bRecursive;
    std::set<std::string> m_extensions; // in upper case
    std::set<T_FILEID_D> m_folders;     // looked into
    std::vector<std::string> m_aDecks;
    std::string m_sFailure;
};

/// Whether a name is one that a pattern stands for, both in one case. Each "*" is widened only as far as the next one
/// needs, so the time is at most the product of both lengths.
bool Matches(std::string_view sName, std::string_view sPattern) {
    std::size_t iName = 0, iPattern = 0;
    std::size_t iStar = std::string_view::npos, iBehind = 0; // the last star, and the name behind what it stands for
    while (iName < sName.size()) {
        if (iPattern < sPattern.size() && sPattern[iPattern] == '*') {
            iStar = iPattern++;
            iBehind = iName;
        } else if (iPattern < sPattern.size() && (sPattern[iPattern] == '?' || sPattern[iPattern] == sName[iName])) {
            ++iName;
            ++iPattern;
        } else if (iStar != std::string_view::npos) {
            iPattern = iStar + 1;
            iName = ++iBehind;
        } else {
            return false;
        }
    }
    return sPattern.find_first_not_of('*', iPattern) == std::string_view::npos;
}

} // namespace

int ListDecks(T_OPTIONS_D& rOptions, std::string& rWhy) {
    CDeckFinder finder(rOptions);
    for (std::size_t i = 0; i < rOptions.aDECKS.size(); ++i) {
        const std::string& sDeck = rOptions.aDECKS[i];
        const bool bList = i < rOptions.iPLAIN && sDeck.size() > 1 && sDeck.starts_with('@');
        rOptions.bLISTED = rOptions.bLISTED || bList;
        if (bList ? finder.AddList(sDeck.substr(1)) : finder.Add(sDeck)) continue;
        rWhy = finder.GetFailure();
        return 0;
    }
    rOptions.bLISTED = rOptions.bLISTED || rOptions.bRECURSIVE;
    rOptions.aDECKS = finder.Take();
    if (!rOptions.aDECKS.empty()) return 1;
    rWhy = "no decks found";
    return 0;
}

std::vector<std::string> FindMatches(const std::string& sPattern) {
    const std::filesystem::path pattern = ToPath(sPattern);
    const std::string sName = UpperText(ToText(pattern.filename()));
    if (sName.find_first_of("*?") == std::string::npos) return {sPattern};
    const std::filesystem::path folder = pattern.parent_path();
    std::vector<std::string> aMatches;
    std::error_code error;
    std::filesystem::directory_iterator entries(folder.empty() ? std::filesystem::path(".") : folder, error);
    while (!error && entries != std::filesystem::directory_iterator()) {
        const std::filesystem::path name = entries->path().filename();
        const std::string sUpper = UpperText(ToText(name));
        const bool bHidden = sUpper.starts_with('.') && !sName.starts_with('.');
        if (!bHidden && Matches(sUpper, sName)) aMatches.push_back(ToText(folder / name));
        entries.increment(error);
    }
    std::sort(aMatches.begin(), aMatches.end());
    return aMatches.empty() ? std::vector{sPattern} : aMatches;
}
