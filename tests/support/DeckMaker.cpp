#include "support/DeckMaker.h"

#include <algorithm>
#include <cstdio>

namespace {

/// A card and a letter for each of its fields; what stands behind a "+" may come again and again.
struct T_PATTERN_D {
    const char* sNAME;
    const char* sFIELDS;
};

// g grid, h grid or THRU, e element, t element or THRU, p property or material, c frame, s set, r real, d components,
// f one component, _ blank, the others as in Field
// clang-format off
constexpr T_PATTERN_D PATTERNS[] = {
    {"GRID", "gcrrrcd"},
    {"CORD1R", "cgggcggg"}, {"CORD1C", "cgggcggg"}, {"CORD1S", "cgggcggg"},
    {"CORD2R", "ccrrrrrrrrr"}, {"CORD2C", "ccrrrrrrrrr"}, {"CORD2S", "ccrrrrrrrrr"},
    {"CBAR", "epggrrr"}, {"CBAR", "epggg"}, {"CBEAM", "epggrrr"}, {"CBEND", "epggrrr"}, {"CROD", "epgg"},
    {"CTUBE", "epgg"}, {"CONROD", "eggprrrr"},
    {"CTRIA3", "epgggr"}, {"CTRIA6", "epggggggr"}, {"CTRIAR", "epgggc"}, {"CQUAD4", "epggggr"},
    {"CQUAD8", "epggggggggrrrrr"}, {"CQUADR", "epggggc"}, {"CSHEAR", "epgggg"},
    {"CTETRA", "epgggg+gggggg"}, {"CPENTA", "epgggggg+ggggggggg"}, {"CHEXA", "epgggggggg+gggggggggggg"},
    {"CELAS1", "epgfgf"}, {"CELAS2", "ergfgfrr"}, {"CBUSH", "epggrrr"}, {"CBUSH", "epggg"}, {"CGAP", "epggrrr"},
    {"CONM2", "egcrrrr_rrrrrr"}, {"RBE2", "egd+gggggggggg"},
    {"PBAR", "pprrrr_rrrrrrrrrrr"}, {"PBARL", "pp_S____rrrrrrrrrrr"}, {"PBEAM", "pprrrrrrrrrrrrrrOrrrrrrr+rrrrrrrr"},
    {"PBEND", "pprrrrr"}, {"PROD", "pprrrr"}, {"PTUBE", "pprrr"},
    {"PSHELL", "pprprprr"}, {"PCOMP", "prrr____+prrO"}, {"PSHEAR", "pprr"}, {"PSOLID", "ppcOOO"},
    {"PELAS", "prrrprrr"}, {"PBUSH", "pKrrrrrrKrrrrrr"}, {"PGAP", "prrrrrrrrrr"},
    {"MAT1", "prrrrrrrrrr"}, {"MAT4", "prrrrrr"}, {"MAT8", "prrrrrrrrrrrrrrrrr"},
    {"FORCE", "sgcrrrr"}, {"FORCE1", "sgrgg"}, {"FORCE2", "sgrgggg"}, {"MOMENT", "sgcrrrr"}, {"MOMENT1", "sgrgg"},
    {"MOMENT2", "sgrgggg"}, {"GRAV", "scrrrr"}, {"LOAD", "srrs+rs"},
    {"PLOAD1", "seTLrrrr"}, {"PLOAD2", "sretttttt"}, {"PLOAD4", "serrrrtgcrrr"},
    {"TEMP", "sgrgrgr"}, {"TEMPD", "srsrsrsr"}, {"TEMPP1", "serrrr__tttttttt"}, {"TEMPRB", "serrrrr"},
    {"SPC", "sgdrgdr"}, {"SPC1", "sd+hhhhhhhh"}, {"SPCD", "sgdrgdr"}, {"MPC", "sgfrgfr__gfr"},
    {"EIGB", "sMrriirNgf"}, {"EIGRL", "srriiirN"},
    {"RBE3", "egdr"}, {"SPCADD", "sss"}, {"NOSUCH", "er"}, {"PBEAML", "pprr"}, {"INCLUDE", "I"},
};
// clang-format on
constexpr std::size_t PATTERN_COUNT = sizeof PATTERNS / sizeof PATTERNS[0];

/// A kind of field: a number up to nMOST, and once in nTHRU times a THRU instead, or one of some texts.
struct T_KIND_D {
    char cKIND;
    std::size_t nMOST, nTHRU;
    std::vector<const char*> aTEXTS;
};

std::string Padded(std::string sText, std::size_t nWidth, bool bRight) {
    if (sText.size() >= nWidth) return sText.substr(0, nWidth);
    sText.insert(bRight ? 0 : sText.size(), nWidth - sText.size(), ' ');
    return sText;
}

/// The places where lines begin, and the end.
std::vector<std::size_t> LineStarts(const std::string& sText) {
    std::vector<std::size_t> aStarts = {0};
    for (std::size_t i = 0; i < sText.size(); ++i) {
        if (sText[i] == '\n' && i + 1 < sText.size()) aStarts.push_back(i + 1);
    }
    aStarts.push_back(sText.size());
    return aStarts;
}

} // namespace

std::uint64_t CChance::Next() {
    m_nState += 0x9E3779B97F4A7C15u;
    std::uint64_t n = m_nState;
    n = (n ^ (n >> 30)) * 0xBF58476D1CE4E5B9u;
    n = (n ^ (n >> 27)) * 0x94D049BB133111EBu;
    return n ^ (n >> 31);
}

std::string CDeckMaker::Nasty() {
    static constexpr std::string_view NUL("1\0002", 3);
    if (m_chance.Once(20)) return std::string(NUL);
    // clang-format off
    return m_chance.Of({
        "2147483647", "-2147483648", "2147483648", "-2147483649", "99999999999999999999", "1E400", "-1E400", "1.-400",
        "4.94-324", "1.7E308", "-0.", "-", "+", ".", "+1", "1.0E+3", "1.0D+3", "E", "1E", "1E-", "--1", "1.2.3",
        "0X10", "INF", "NAN", "THRU", "ALPHA", "*", "=", "$", ":", "\t", "\r", "\x1A", "1 2", "\xFF", "%s%n", "1,2",
        "'", "\"NO\"", "0.1000000000000000055511151231257827", "123456789012345678901234567890",
        "00000000000000000000007", "-1", "0"});
    // clang-format on
}

std::string CDeckMaker::Real() {
    if (m_bWild && m_chance.Once(4)) {
        return m_chance.Of({"1.E400", "-1.E400", "1.7E308", "-1.E200", "1.E-200", "5.E-324"});
    }
    char aText[40];
    switch (m_chance.Below(8)) {
    case 0:
        return "";
    case 1:
        return std::to_string(static_cast<int>(m_chance.Below(15)) - 5);
    case 2:
        return m_chance.Of({"1.5-2", "2.5+3", "-1.-1", "3.E2", "1.0E-3", "4.-10"});
    case 3:
        return m_chance.Of({"90.", "45.", "30.", "180.", "-90.", "1.E7"});
    case 4:
    case 5:
        return m_chance.Of({"0.", "1.", "2.", "-1.", ".5", "10.", "3."});
    default:
        std::snprintf(aText, sizeof aText, "%.3f", (static_cast<double>(m_chance.Below(40001)) - 20000) / 1000.0);
        return aText;
    }
}

std::string CDeckMaker::Field(char cKind) {
    if (!m_bSound && m_chance.Once(40)) return Nasty();
    // clang-format off
    static const std::vector<T_KIND_D> KINDS = {
        {'g', 16, 0, {}}, {'h', 16, 9, {}}, {'e', 40, 0, {}}, {'t', 40, 5, {}}, {'p', 12, 0, {}}, {'c', 6, 0, {}},
        {'s', 4, 0, {}}, {'i', 9, 0, {}},
        {'d', 0, 0, {"123456", "123", "1", "3", "246", "0", "", "17"}},
        {'f', 0, 0, {"1", "2", "3", "4", "5", "6", "0", ""}},
        {'S', 0, 0, {"ROD", "TUBE", "HEXA", "I", "CHAN", "T", "Z", "HAT", "BOX", "BAR",
                     "CROSS", "H", "T1", "T2", "I1", "CHAN1", "CHAN2", "BOX1", "HAT1", "L"}},
        {'T', 0, 0, {"FX", "FY", "FZ", "FXE", "FYE", "FZE", "MX", "MY", "MZ", "MXE", "MYE", "MZE", "QQ"}},
        {'L', 0, 0, {"LE", "FR", "LEPR", "FPPR", "FRPR", ""}},
        {'K', 0, 0, {"K", "B", "GE", "RCV", "", "X"}},
        {'M', 0, 0, {"INV", "SINV", ""}},
        {'N', 0, 0, {"MAX", "POINT", "MASS", ""}},
        {'O', 0, 0, {"YES", "NO", "YESA", ""}},
        {'I', 0, 0, {"'A.DAT'", "'B.DAT'", "'b.dat'", "A.DAT"}},
    };
    // clang-format on
    if (cKind == 'r') return Real();
    if (cKind == 'c' && m_chance.Once(2)) return "";
    for (const T_KIND_D& rKind : KINDS) {
        if (rKind.cKIND != cKind) continue;
        if (rKind.nTHRU > 0 && m_chance.Once(rKind.nTHRU)) return "THRU";
        if (rKind.nMOST > 0) return m_chance.Once(12) ? "" : std::to_string(1 + m_chance.Below(rKind.nMOST));
        return rKind.aTEXTS[m_chance.Below(rKind.aTEXTS.size())];
    }
    return "";
}

T_MADECARD_D CDeckMaker::MakeCard() {
    const T_PATTERN_D& rPattern = PATTERNS[m_chance.Below(PATTERN_COUNT - 1)]; // INCLUDE is Spoil's
    T_MADECARD_D card = {{rPattern.sNAME}, " "};
    const char* pAgain = nullptr;
    for (const char* p = rPattern.sFIELDS;; ++p) {
        if (*p == '+') {
            pAgain = p;
            if (m_chance.Once(3)) break;
            continue;
        }
        if (*p == '\0') {
            if (!pAgain || m_chance.Once(3)) break;
            p = pAgain;
            continue;
        }
        if (!m_bSound && m_chance.Once(60)) break; // a short card
        card.aFIELDS.push_back(Field(*p));
        card.sKINDS += *p;
    }
    return card;
}

std::string CDeckMaker::Card() {
    const std::vector<std::string> aFields = MakeCard().aFIELDS;
    return Card(aFields, static_cast<E_LAYOUT>(m_chance.Below(3)));
}

std::string CDeckMaker::Card(const std::vector<std::string>& aFields, E_LAYOUT eLayout) {
    const std::size_t nPerLine = eLayout == LAYOUT_LARGE ? 4 : 8;
    const std::size_t nWidth = eLayout == LAYOUT_LARGE ? 16 : 8;
    std::string sLines;
    std::size_t iField = 1;
    do {
        std::string sLine = aFields[0];
        if (iField > 1) sLine = eLayout == LAYOUT_LARGE ? "*" : m_chance.Of({"+", "+A1", "+"});
        if (iField == 1 && eLayout == LAYOUT_LARGE) sLine += '*';
        if (eLayout == LAYOUT_FREE && iField > 1 && m_chance.Once(2)) sLine.clear();
        if (eLayout != LAYOUT_FREE) sLine = Padded(sLine, 8, false);
        for (std::size_t i = 0; i < nPerLine && iField < aFields.size(); ++i, ++iField) {
            if (eLayout == LAYOUT_FREE) {
                sLine += ',' + aFields[iField];
            } else {
                sLine += Padded(aFields[iField], nWidth, m_chance.Once(2));
            }
        }
        if (eLayout == LAYOUT_FREE && sLine.find(',') == std::string::npos) sLine += ',';
        if (eLayout == LAYOUT_SMALL && m_bFilled) sLine = Padded(sLine, 72, false);
        sLines += sLine + '\n';
    } while (iField < aFields.size());
    return sLines;
}

std::string CDeckMaker::Cards(std::size_t nCards) {
    std::string sText;
    for (; nCards > 0; --nCards) sText += Card();
    return sText;
}

std::string CDeckMaker::Deck() {
    m_bWild = !m_bSound && m_chance.Once(8);
    std::string sText = "SOL 101\nCEND\nTITLE=X\nBEGIN BULK\n";
    for (int iGrid = 1; iGrid <= 16; ++iGrid) { // something for the others to find
        if (m_chance.Once(8)) continue;
        sText += Card({"GRID", std::to_string(iGrid), Field('c'), Real(), Real(), Real(), Field('c'), Field('d')},
                      static_cast<E_LAYOUT>(m_chance.Below(3)));
    }
    sText += Cards(m_chance.Below(80));
    if (!m_bSound) {
        for (std::size_t n = m_chance.Below(4); n > 0; --n) Spoil(sText);
    }
    return sText + "ENDDATA\n";
}

void CDeckMaker::Spoil(std::string& rDeck) {
    const std::vector<std::size_t> aStarts = LineStarts(rDeck);
    const std::size_t iLine = m_chance.Below(aStarts.size() - 1);
    const std::size_t iBegin = aStarts[iLine];
    const std::size_t nLine = aStarts[iLine + 1] - iBegin;
    const std::string sLine = rDeck.substr(iBegin, nLine);
    const auto replaceLine = [&](const std::string& sNew) { rDeck.replace(iBegin, nLine, sNew); };
    const std::size_t nText = sLine.empty() || sLine.back() != '\n' ? nLine : nLine - 1;
    switch (m_chance.Below(14)) {
    case 0: // another field
    case 1:
        if (const std::size_t iComma = sLine.find(','); iComma != std::string::npos) {
            std::vector<std::size_t> aCommas;
            for (std::size_t i = iComma; i < sLine.size(); ++i) {
                if (sLine[i] == ',') aCommas.push_back(i);
            }
            const std::size_t i = aCommas[m_chance.Below(aCommas.size())] + 1;
            const std::size_t iEnd = std::min(sLine.find_first_of(",\n", i), sLine.size());
            rDeck.replace(iBegin + i, iEnd - i, Field("ghetpcsirdfSTLKMNO"[m_chance.Below(18)]));
        } else {
            const std::size_t nWidth = sLine.find('*') == std::string::npos ? 8 : 16;
            const std::size_t iField = 8 + nWidth * m_chance.Below(72 / nWidth);
            const std::string sField =
                Padded(Field("ghetpcsirdfSTLKMNO"[m_chance.Below(18)]), nWidth, m_chance.Once(2));
            std::string sNew = Padded(sLine.substr(0, nText), std::max(nText, iField), false);
            sNew.replace(iField, std::min(nWidth, sNew.size() - iField), sField);
            replaceLine(sNew + "\n");
        }
        break;
    case 2: // another card, or a keyword alone
        rDeck.insert(iBegin,
                     m_chance.Once(8) ? std::string(PATTERNS[m_chance.Below(PATTERN_COUNT)].sNAME) + "\n" : Card());
        break;
    case 3: // a line less, twice or elsewhere
        replaceLine("");
        if (m_chance.Once(2)) break;
        [[fallthrough]];
    case 4:
        rDeck.insert(std::min(aStarts[m_chance.Below(aStarts.size())], rDeck.size()), sLine);
        break;
    case 5: // a line of another kind
        // clang-format off
        rDeck.insert(iBegin, m_chance.Of({
            "\n", "        \n", "\t\n", "\r\n", "$ comment\n", "CEND\n", "BEGIN BULK\n", "BEGIN  BULK\n", "ENDDATA\n",
            " ENDDATA\n", "=(3)\n", "*(1),=\n", "A:B\n", ":\n", "+\n", "*\n", ",\n", "INCLUDE 'A.DAT'\n",
            "INCLUDE,B.DAT\n", "GRID   *\n", "ACEND*\n", "GRID 1 A=B\n", "RBE3,1,2\n"}));
        // clang-format on
        break;
    case 6: // another beginning
        replaceLine(m_chance.Of({"+", "*", " ", ",", "=", "$", "        ", "*       ", "+       "}) +
                    sLine.substr(std::min<std::size_t>(nText, m_chance.Below(9))));
        break;
    case 7: { // another length
        static constexpr std::size_t LENGTHS[] = {8,   10,  16,  24,  71,  72,  73,  80, 158,
                                                  159, 160, 198, 199, 200, 498, 499, 500};
        const std::size_t nLength = LENGTHS[m_chance.Below(m_chance.Once(4) ? std::size(LENGTHS) : 10)];
        std::string sNew = sLine.substr(0, std::min(nText, nLength));
        sNew.append(nLength - sNew.size(), *m_chance.Of({" ", " ", " ", "0", ",", "9"}));
        replaceLine(sNew + "\n");
        break;
    }
    case 8: // an editor's line endings, in the line or everywhere
        if (!m_chance.Once(4)) {
            rDeck.insert(iBegin + nText, "\r");
        } else {
            std::string sNew;
            for (const char c : rDeck) {
                if (c == '\n') sNew += '\r';
                sNew += c;
            }
            rDeck.swap(sNew);
        }
        break;
    case 9: // a byte too much
        rDeck.insert(iBegin + m_chance.Below(nText + 1), 1, static_cast<char>(m_chance.Below(256)));
        break;
    case 10: // other characters
        for (std::size_t n = 1 + m_chance.Below(4); n > 0 && nText > 0; --n) {
            rDeck[iBegin + m_chance.Below(nText)] = "0123456789.+-E*,= \t:$THRUABCDGX"[m_chance.Below(31)];
        }
        break;
    case 11: // nasty text over what is there
        if (const std::string sNasty = Nasty(); nText > 8) {
            rDeck.replace(iBegin + 8 * (m_chance.Below(nText / 8)), sNasty.size(), sNasty);
        }
        break;
    case 12: // small letters
        std::transform(sLine.begin(), sLine.end(), rDeck.begin() + static_cast<std::ptrdiff_t>(iBegin),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        break;
    default: // cut off
        if (m_chance.Once(4)) rDeck.resize(iBegin + m_chance.Below(nLine));
        break;
    }
}
