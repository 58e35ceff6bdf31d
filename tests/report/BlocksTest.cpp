// The data of a page against arrays worked out by hand.

#include "nas2zdt/picture/Scene.h"
#include "nas2zdt/report/Block.h"
#include "nas2zdt/report/DeckText.h"
#include "nas2zdt/report/LoadBlocks.h"
#include "nas2zdt/report/ModelBlocks.h"
#include "nas2zdt/report/ModelJson.h"
#include "nas2zdt/report/Report.h"
#include "support/Deck.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <map>

namespace {

std::string FromBase64(const std::string& sText) {
    const std::string sDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string sBytes;
    std::uint32_t nBits = 0;
    int nHeld = 0;
    for (const char c : sText.substr(0, sText.find('='))) {
        nBits = nBits << 6 | static_cast<std::uint32_t>(sDigits.find(c));
        nHeld += 6;
        if (nHeld < 8) continue;
        nHeld -= 8;
        sBytes += static_cast<char>(nBits >> nHeld & 255);
    }
    return sBytes;
}

std::string Inflate(const std::string& sDeflated) {
    std::string sBytes(1 << 22, '\0');
    auto nBytes = static_cast<uLongf>(sBytes.size());
    const int iResult = uncompress(reinterpret_cast<Bytef*>(sBytes.data()), &nBytes,
                                   reinterpret_cast<const Bytef*>(sDeflated.data()), sDeflated.size());
    EXPECT_EQ(iResult, Z_OK);
    sBytes.resize(nBytes);
    return sBytes;
}

/// The bytes of the blocks that write puts into a file, by "id type".
std::map<std::string, std::string> Blocks(const std::function<void(CFile&)>& write) {
    const CTempFolder folder;
    CFile file;
    file.Create(folder.Path("page"));
    write(file);
    file.Close();
    const std::string sText = ReadText(folder.Path("page"));
    std::map<std::string, std::string> blocks;
    const auto Between = [&](std::size_t& rAt, const std::string& sBefore, char cEnd) {
        rAt = sText.find(sBefore, rAt) + sBefore.size();
        return sText.substr(rAt, sText.find(cEnd, rAt) - rAt);
    };
    for (std::size_t iAt = 0; sText.find(" id=\"", iAt) != std::string::npos;) {
        const std::string sId = Between(iAt, " id=\"", '"');
        const std::string sType = Between(iAt, " data-type=\"", '"');
        const std::string sCoding = Between(iAt, " data-compression=\"", '"');
        const std::string sBytes = FromBase64(Between(iAt, ">", '<'));
        blocks[sId + " " + sType] = sCoding == "deflate" ? Inflate(sBytes) : sBytes;
    }
    return blocks;
}

/// The words of a block, by undoing the planes and differences one value at a time.
template <class VALUE>
std::vector<VALUE> Words(const std::string& sBytes) {
    std::vector<VALUE> aWords;
    std::uint32_t nLast = 0;
    for (std::size_t iFirst = 0; iFirst < sBytes.size(); iFirst += 4 * CWordBlock::CHUNK) {
        const std::size_t nCount = std::min(CWordBlock::CHUNK, (sBytes.size() - iFirst) / 4);
        for (std::size_t i = 0; i < nCount; ++i) {
            std::uint32_t nDifference = 0;
            for (std::size_t iByte = 4; iByte-- > 0;) {
                nDifference = nDifference << 8 | static_cast<std::uint8_t>(sBytes[iFirst + iByte * nCount + i]);
            }
            aWords.push_back(std::bit_cast<VALUE>(nLast += nDifference));
        }
    }
    return aWords;
}

std::vector<int> Bytes(const std::string& sBytes) {
    return {sBytes.begin(), sBytes.end()};
}

constexpr const char* MODEL = "GRID,1,,10.,0.,0.,,456\n"
                              "GRID,2,,12.,0.,0.\n"
                              "GRID,3,,12.,4.,0.\n"
                              "GRID,4,,10.,4.,6.\n"
                              "CTRIA3,7,5,1,2,3\n"
                              "CBAR,8,6,1,2,0.,1.,0.\n"
                              "CROD,9,6,2,3\n"
                              "CONM2,20,4,,2.5\n"
                              "PSHELL,5,3,.25,3\n"
                              "PBARL,6,3,,ROD,,,,\n"
                              ",.5\n"
                              "MAT1,3,7.e10,,.25\n"
                              "SPC1,1,13,2,4\n"
                              "FORCE,1,3,,2.,0.,-1.,0.\n"
                              "GRAV,1,,9.5,0.,0.,-1.\n"
                              "SPCD,1,2,1,.5\n"
                              "PLOAD4,4,7,2.,,,,,,+\n"
                              "+,,0.,0.,-1.\n"
                              "LOAD,9,1.,2.,1,.5,4\n";

} // namespace

TEST(ReportBlocks, DifferencesAcrossChunks) {
    std::vector<std::int32_t> aValues;
    for (std::size_t i = 0; i < CWordBlock::CHUNK + 3; ++i) {
        aValues.push_back(i % 2 == 0 ? static_cast<std::int32_t>(i * 70001) : -2147483647);
    }
    const auto blocks = Blocks(
        [&](CFile& rFile) { WriteWords<std::int32_t>(rFile, "values", aValues, [](std::int32_t i) { return i; }); });
    EXPECT_EQ(Words<std::int32_t>(blocks.at("values i32")), aValues);
}

TEST(ReportBlocks, Planes) { // 1, 258, 256: the differences 1, 257, -2, first their lowest bytes
    const auto blocks = Blocks([](CFile& rFile) {
        WriteWords<std::int32_t>(rFile, "values", std::vector{1, 258, 256}, [](int i) { return i; });
    });
    EXPECT_EQ(blocks.at("values i32"), std::string("\1\1\xFE\0\1\xFF\0\0\xFF\0\0\xFF", 12));
}

TEST(ReportBlocks, WholeModel) {
    const CStoredRun run(MODEL);
    const CDataPool& rPool = run.GetDataPool();
    T_SCEN_D scene = CollectParts(rPool);
    CollectSupports(rPool, scene);
    const T_VECTOR centre = FindCentre(scene);
    EXPECT_EQ(centre, (T_VECTOR{11.0, 2.0, 3.0}));
    const auto blocks = Blocks([&](CFile& rFile) {
        WriteModelBlocks(rFile, rPool, scene, centre);
        WriteLoadBlocks(rFile, CollectLoadRows(rPool));
    });
    using INTS = std::vector<std::int32_t>;
    using PLACES = std::vector<std::uint32_t>;
    using FLOATS = std::vector<float>;
    const auto Ints = [&](const char* sName) { return Words<std::int32_t>(blocks.at(std::string(sName) + " i32")); };
    const auto Places = [&](const char* sName) { return Words<std::uint32_t>(blocks.at(std::string(sName) + " u32")); };
    const auto Floats = [&](const char* sName) { return Words<float>(blocks.at(std::string(sName) + " f32")); };
    const auto Small = [&](const char* sName) { return Bytes(blocks.at(std::string(sName) + " u8")); };
    EXPECT_EQ(Ints("node-id"), (INTS{1, 2, 3, 4}));
    EXPECT_EQ(Floats("node-x"), (FLOATS{-1, 1, 1, -1}));
    EXPECT_EQ(Floats("node-y"), (FLOATS{-2, -2, 2, 2}));
    EXPECT_EQ(Floats("node-z"), (FLOATS{-3, -3, -3, 3}));
    EXPECT_EQ(Small("node-held"), (std::vector<int>{0b111000, 0b000101, 0, 0b000101}));
    EXPECT_EQ(Small("part-kind"), (std::vector<int>{KIND_PLATE, KIND_BEAM, KIND_TRUSS, KIND_MASS}));
    EXPECT_EQ(Small("part-cell"), (std::vector<int>{CELL_TRIA, CELL_LINE, CELL_LINE, CELL_POINT}));
    EXPECT_EQ(Ints("part-id"), (INTS{7, 8, 9, 20}));
    EXPECT_EQ(Ints("part-property"), (INTS{5, 6, 6, 0}));
    EXPECT_EQ(Ints("part-material"), (INTS{3, 3, 3, 0}));
    EXPECT_EQ(Places("corner-0"), (PLACES{0, 0, 1, 3}));
    EXPECT_EQ(Places("corner-1"), (PLACES{1, 1, 2}));
    EXPECT_EQ(Places("corner-2"), (PLACES{2}));
    EXPECT_EQ(Places("corner-3"), PLACES());
    EXPECT_EQ(Floats("beam-x"), (FLOATS{-1})); // a quarter turn from the vector: 10, 0, 1
    EXPECT_EQ(Floats("beam-y"), (FLOATS{-2}));
    EXPECT_EQ(Floats("beam-z"), (FLOATS{-2}));

    EXPECT_EQ(Small("load-type"), (std::vector<int>{LOADROW_GRAVITY, LOADROW_FORCE, LOADROW_DISPLACEMENT,
                                                    LOADROW_PRESSURE, LOADROW_DIRECTION}));
    EXPECT_EQ(Ints("load-id"), (INTS{0, 3, 2, 7, 7}));
    EXPECT_EQ(Floats("load-0"), (FLOATS{0, 0, 0.5, 2, 0}));
    EXPECT_EQ(Floats("load-1"), (FLOATS{0, -2, 0, 2, 0}));
    EXPECT_EQ(Floats("load-2"), (FLOATS{-9.5, 0, 0, 2, -1}));
    EXPECT_EQ(Floats("load-3"), (FLOATS{0, 0, 0, 2, 0}));
}

TEST(ReportBlocks, CasesAndTheirMost) {
    const CStoredRun run(MODEL);
    const T_LOADTABLE_D table = CollectLoadRows(run.GetDataPool(), 4);
    ASSERT_EQ(table.aCASES.size(), 2u); // in the order of the file
    EXPECT_EQ(table.aCASES[0].iSID, 1);
    EXPECT_EQ(table.aCASES[0].nROWS, 3u);
    EXPECT_EQ(table.aCASES[1].iFIRST, 3u);
    EXPECT_EQ(table.aCASES[1].nROWS, 1u);
    EXPECT_EQ(table.nLEFTOUT, 1u);
}

TEST(ReportBlocks, PlacesThatAreNone) {
    EXPECT_TRUE(std::isnan(PagePlace(1e300, 0.0)));
    EXPECT_TRUE(std::isnan(PagePlace(std::nan(""), 0.0)));
    EXPECT_EQ(PagePlace(5.5, 4.0), 1.5f);
}

TEST(ReportJson, PropertiesMaterialsCombinations) {
    const CStoredRun run(MODEL);
    const CDataPool& rPool = run.GetDataPool();
    EXPECT_EQ(PropertiesJson(rPool), R"([{"id":6,"form":"shape","shape":"round","dimensions":[1]},)"
                                     R"({"id":5,"form":"plate","thickness":0.25}])");
    EXPECT_EQ(MaterialsJson(rPool), R"([{"id":3,"kind":"isotropic","E":70000000000,"nu":0.25,"alpha":0}])");
    EXPECT_EQ(CombinationsJson(rPool), R"([{"id":9,"shares":[[1,2],[4,0.5]]}])");
}

/// Two files of 3 and 2 lines, the second without a line feed at its end, and one that isn't there.
TEST(ReportDeckText, WholeOrWantedLines) {
    const CTempFolder folder;
    const std::vector<std::string> aNames = {folder.Path("a"), folder.Path("none"), folder.Path("b")};
    WriteText(aNames[0], "  one\ntwo  \r\nthree\n");
    WriteText(aNames[2], "four\nfive");
    const std::set<T_LINES_D> wanted = {{0, 1, 2}, {0, 2, 2}, {0, 7, 7}, {2, 2, 9}};
    const auto Write = [&](std::uint64_t nMost, std::string& rJson) {
        return Blocks([&](CFile& rFile) { rJson = CDeckText(aNames, wanted, nMost).Write(rFile); });
    };
    std::string sJson;
    const auto whole = Write(28, sJson); // 19 + 9 bytes
    EXPECT_EQ(whole.at("decks u8"), "  one\ntwo  \r\nthree\nfour\nfive");
    EXPECT_NE(sJson.find(R"("bytes":19,"lines":3,)"), std::string::npos) << sJson;
    EXPECT_NE(sJson.find(R"("from":0})"), std::string::npos) << sJson;
    EXPECT_NE(sJson.find(R"("bytes":null,"lines":0,"sha256":"","from":)"), std::string::npos) << sJson;
    EXPECT_NE(sJson.find(R"("bytes":9,"lines":2,)"), std::string::npos) << sJson;
    EXPECT_NE(sJson.find(R"("from":19})"), std::string::npos) << sJson;
    EXPECT_TRUE(sJson.ends_with(R"("lines":[])")) << sJson;

    EXPECT_TRUE(Write(27, sJson).empty());
    EXPECT_TRUE(sJson.ends_with(R"("lines":[{"file":0,"first":1,"text":["  one","two"]},)"
                                R"({"file":2,"first":2,"text":["five"]}])"))
        << sJson;
}

TEST(ReportDeckText, Hash) { // FIPS 180-2, appendix B.1
    const CTempFolder folder;
    WriteText(folder.Path("abc"), "abc");
    const std::string sJson = FileJson(folder.Path("abc"));
    const bool bKnown = sJson.find(R"("sha256":"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"})") !=
                        std::string::npos;
    EXPECT_TRUE(bKnown || sJson.ends_with(R"("sha256":""})")) << sJson;
}

TEST(ReportDate, OfTheEpochThatIsSet) {
    setenv("SOURCE_DATE_EPOCH", "951827696", 1);
    EXPECT_EQ(ReportDate(), "2000-02-29 12:34:56 UTC");
    unsetenv("SOURCE_DATE_EPOCH");
}
