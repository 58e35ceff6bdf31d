// nas2zdt-deckgen: makes decks to measure with.

#include "deckgen/Plan.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <memory>
#include <system_error>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

constexpr const char* HELP = "usage: nas2zdt-deckgen [OPTION]...\n"
                             "\n"
                             "Writes a deck to standard output. The same options give the same bytes everywhere.\n"
                             "\n"
                             "  --cards N        number of cards, default 10000\n"
                             "  --mix LIST       shares: grids, shells, bars, solids, springs (and masses), frames,\n"
                             "                   loads, supports, sets, duplicates; e.g. grids=50,shells=45,loads=5\n"
                             "  --only CARD      nearly all cards of one kind\n"
                             "  --reference      1 million grids, 1 million plates and bars, 340 thousand loads and\n"
                             "                   supports\n"
                             "  --scale PERCENT  of the reference deck, default 100\n"
                             "  --format FORMAT  small, large, free or mixed, default small\n"
                             "  --ids ORDER      ascending, shuffled, sparse or scattered, default ascending\n"
                             "  --seed N         default 1\n"
                             "  -o FILE          write to FILE\n"
                             "  --list           the kinds of cards\n"
                             "  --help           this text\n";

std::uint64_t ToNumber(const std::string& sText) {
    std::uint64_t n = 0;
    const auto [pEnd, error] = std::from_chars(sText.data(), sText.data() + sText.size(), n);
    if (error != std::errc() || pEnd != sText.data() + sText.size()) throw T_OPTION_ERROR_D{"not a number: " + sText};
    return n;
}

template <class CODE, std::size_t N>
CODE ToCode(const std::string& sText, const char* const (&aNames)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        if (sText == aNames[i]) return static_cast<CODE>(i);
    }
    throw T_OPTION_ERROR_D{"not known: " + sText};
}

constexpr const char* LAYOUTS[] = {"small", "large", "free", "mixed"};
constexpr const char* ORDERS[] = {"ascending", "shuffled", "sparse", "scattered"};

using FILE_POINTER = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

int Run(int nArgs, char** aArgs) {
    T_DECK_OPTIONS_D options;
    std::string sFile;
    for (int i = 1; i < nArgs; ++i) {
        const std::string sOption = aArgs[i];
        if (sOption == "--help") return std::fputs(HELP, stdout) < 0 ? 1 : 0;
        if (sOption == "--list") {
            for (const std::string_view sName : KindNames()) {
                std::printf("%.*s\n", static_cast<int>(sName.size()), sName.data());
            }
            return 0;
        }
        if (sOption == "--reference") {
            options.bReference = true;
            continue;
        }
        if (i + 1 == nArgs) throw T_OPTION_ERROR_D{"unknown option, or one without its value: " + sOption};
        const std::string sValue = aArgs[++i];
        if (sOption == "--cards") {
            options.nCards = ToNumber(sValue);
        } else if (sOption == "--mix") {
            options.sMix = sValue;
        } else if (sOption == "--only") {
            options.sOnly = sValue;
        } else if (sOption == "--scale") {
            options.nScalePercent = ToNumber(sValue);
        } else if (sOption == "--format") {
            options.iLayout = ToCode<E_LAYOUT>(sValue, LAYOUTS);
        } else if (sOption == "--ids") {
            options.iOrder = ToCode<E_ID_ORDER>(sValue, ORDERS);
        } else if (sOption == "--seed") {
            options.nSeed = ToNumber(sValue);
        } else if (sOption == "-o") {
            sFile = sValue;
        } else {
            throw T_OPTION_ERROR_D{"unknown option " + sOption};
        }
    }
    constexpr std::uint64_t MOST = CIdOrder::GREATEST;
    if (options.nCards > MOST || options.nScalePercent > MOST) throw T_OPTION_ERROR_D{"too many cards"};
    MakePlan(options); // wrong options must not cut a file
    if (sFile.empty()) {
#ifdef _WIN32
        _setmode(_fileno(stdout), _O_BINARY);
#endif
        WriteDeck(options, stdout);
        return 0;
    }
    FILE_POINTER pFile(std::fopen(sFile.c_str(), "wb"), &std::fclose);
    if (!pFile) throw std::system_error(errno, std::generic_category(), sFile);
    WriteDeck(options, pFile.get());
    if (std::fclose(pFile.release()) != 0) throw std::system_error(errno, std::generic_category(), sFile);
    return 0;
}

} // namespace

int main(int nArgs, char** aArgs) {
    try {
        return Run(nArgs, aArgs);
    } catch (const T_OPTION_ERROR_D& rError) {
        std::fprintf(stderr, "nas2zdt-deckgen: %s\nTry 'nas2zdt-deckgen --help'.\n", rError.sTEXT.c_str());
        return 2;
    } catch (const std::exception& rError) {
        std::fprintf(stderr, "nas2zdt-deckgen: %s\n", rError.what());
        return 1;
    }
}
