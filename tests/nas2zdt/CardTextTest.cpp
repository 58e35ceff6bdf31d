// Cards cut into fields as NASTRAN does: chosen lines, and random fields in every form.

#include "nas2zdt/restate/CardText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

std::vector<std::string_view> Views(const std::vector<std::string>& aLines) {
    return {aLines.begin(), aLines.end()};
}

/// "GRID|1||0.|+A" and so on: field 1, the fields up to the last that isn't blank, the mark, for each line.
std::string Describe(const CCardText& rText) {
    std::string sText;
    for (const T_CARDLINE_D& rLine : rText.GetLines()) {
        sText += rLine.sFIRST;
        std::size_t nFields = rLine.GetFieldCount();
        while (nFields > 0 && rLine.aFIELDS[nFields - 1].empty()) --nFields;
        for (std::size_t i = 0; i < nFields; ++i) sText += "|" + std::string(rLine.aFIELDS[i]);
        sText += "|" + std::string(rLine.sMARK) + "\n";
    }
    return sText;
}

TEST(CardText, CutsLines) {
    const struct {
        std::vector<std::string> aLINES;
        const char* sTEXT;
    } aCases[] = {
        {{"GRID    1               0.      1.5     2.\r"}, "GRID|1||0.|1.5|2.|\n"},
        {{"GRID    1       2       3       4       5       6       7       8       +A      9"},
         "GRID|1|2|3|4|5|6|7|8|+A\n"},
        {{"GRID\t1\t0.\t 1.", "\t2."}, "GRID|1|0.|1.|\n|2.|\n"},
        {{"GRID1234\t1"}, "GRID1234||1|\n"}, // a tab behind a full field leaves one blank
        {{"SPC1    1       2$      3"}, "SPC1|1|2|\n"},
        {{"FORCE 1 3"}, "FORCE 1|3|\n"},
        {{"GRID*   1                               0.", "*                       1."}, "GRID*|1||0.|\n*||1.|\n"},
        {{"GRID*                  1               2               3               4*A", "*A      5"},
         "GRID*|1|2|3|4|*A\n*A|5|\n"},
        {{"GRID, 1 ,\t,0.", "  ,5"}, "GRID|1||0.|\n|5|\n"},
        {{"CHEXA,1,2,3,4,5,6,7,8,,9"}, "CHEXA|1|2|3|4|5|6|7|8|\n"},
        {{"CHEXA,1,2,3,4,5,6,7,8,+A,9"}, "CHEXA|1|2|3|4|5|6|7|8|+A\n"},
        {{"GRID*,1,,2.,3.,*A,9", "*A,5"}, "GRID*|1||2.|3.|*A\n*A|5|\n"},
        {{"GRID,1,,1.,+A"}, "GRID|1||1.|+A\n"},
        {{"GRID,1,,1.,+5."}, "GRID|1||1.|+5.|\n"}, // a number
        {{"GRID,1,,1.,+5", "+5,2."}, "GRID|1||1.|+5\n+5|2.|\n"},
        {{"=,*(1),=,*(1.),=="}, "=|*(1)|=|*(1.)|==|\n"},
        {{"*(1)    =       2."}, "*(1)|=|2.|\n"},
        {{"LONGWORD  ,1"}, "LONGWORD|,1|\n"}, // the comma comes too late
    };
    for (const auto& rCase : aCases) {
        CCardText text;
        text.Read(Views(rCase.aLINES));
        EXPECT_EQ(Describe(text), rCase.sTEXT) << rCase.aLINES[0];
    }
}

enum E_FORM { SMALL, LARGE, FREE, LARGE_FREE, FORMS };

/// A line of four or eight fields with its mark; free field ends where nothing follows, if it may.
std::string WriteLine(E_FORM eForm, std::string sFirst, std::span<const std::string> aFields, std::string sMark,
                      std::mt19937& rRandom) {
    std::string sLine;
    if (eForm == SMALL || eForm == LARGE) {
        const std::size_t nWidth = eForm == SMALL ? 8 : 16;
        sFirst.resize(8, ' ');
        for (const std::string& sField : aFields) {
            const std::size_t nBefore = rRandom() % (nWidth - sField.size() + 1);
            sLine += std::string(nBefore, ' ') + sField + std::string(nWidth - nBefore - sField.size(), ' ');
        }
        sLine = sFirst + sLine + sMark;
        if (sMark.empty()) sLine.resize(sLine.find_last_not_of(' ') + 1);
        return sLine +
               (rRandom() % 4 == 0 ? std::string(80 - std::min<std::size_t>(80, sLine.size()), ' ') + "any" : "");
    }
    sLine = sFirst;
    for (const std::string& sField : aFields) sLine += (rRandom() % 3 == 0 ? " , " : ",") + sField;
    if (!sMark.empty()) return sLine + "," + sMark;
    if (rRandom() % 2 == 0) sLine.resize(sLine.find_last_not_of(", ") + 1);
    if (sLine.find(',') > 9) sLine += ","; // one is what makes it free field
    return sLine + (rRandom() % 4 == 0 ? " $ a, comment" : "");
}

TEST(CardText, ReadsWhatIsWrittenInAnyForm) {
    std::mt19937 random(20231121);
    for (int iCard = 0; iCard < 4000; ++iCard) {
        const std::size_t nLines = 1 + random() % 4;
        std::vector<std::string> aFields, aLines;
        std::string sMark;
        for (std::size_t iLine = 0; iLine < nLines; ++iLine) {
            const auto eForm = static_cast<E_FORM>(random() % FORMS);
            const bool bLarge = eForm == LARGE || eForm == LARGE_FREE;
            const std::size_t nFields = bLarge ? 4 : 8;
            for (std::size_t i = 0; i < nFields; ++i) {
                std::string sField(random() % (bLarge ? 16 : 8), '0');
                for (char& c : sField) c = "0123456789.-ETHRU"[random() % 17];
                aFields.push_back(sField);
            }
            std::string sFirst = iLine == 0 ? "CBAR" : sMark;
            if (bLarge) sFirst = iLine == 0 ? "CBAR*" : "*" + std::string(BareMark(sMark));
            if (!bLarge && sFirst.starts_with('*')) sFirst[0] = '+';
            sMark = iLine + 1 == nLines || random() % 2 == 0 ? "" : "+M" + std::to_string(iLine);
            aLines.push_back(WriteLine(eForm, sFirst, std::span(aFields).last(nFields), sMark, random));
        }
        CCardText text;
        text.Read(Views(aLines));
        std::string sCard;
        for (const std::string& sLine : aLines) sCard += sLine + "\n";
        ASSERT_EQ(text.GetKeyword(), "CBAR") << sCard;
        ASSERT_EQ(std::vector<std::string>(text.GetFields().begin(), text.GetFields().end()), aFields) << sCard;
    }
}

} // namespace
