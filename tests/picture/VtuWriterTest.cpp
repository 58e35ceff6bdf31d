#include "nas2zdt/picture/Picture.h"
#include "picture/Model.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

TEST(VtuWriter, PartsWithAllTheirNodes) {
    const CTempFolder folder;
    const CStoredRun run(MODEL_CARDS);
    EXPECT_EQ(WriteVtu(run.GetDataPool(), folder.Path("model.vtu")).nPARTS, 2u); // a plate and a leg of the rigid link
    const std::string sVtu = ReadText(folder.Path("model.vtu"));
    EXPECT_NE(sVtu.find("<Piece NumberOfPoints=\"24\" NumberOfCells=\"16\">"), std::string::npos);
}

TEST(VtuWriter, ArraysAreALengthAndValuesInBase64) {
    const CTempFolder folder;
    CDataPool pool;
    pool.SetNODS(1, {});
    pool.SetNODS(2, {});
    pool.CNRD[300] = {2, 1, 7, 0.0, 0.0, 0.0, 0.0};
    EXPECT_EQ(WriteVtu(pool, folder.Path("rod.vtu")).nPARTS, 0u);
    const std::string sVtu = ReadText(folder.Path("rod.vtu"));
    const auto Array = [&](const std::string& sName) {
        const std::size_t iLine = sVtu.find('\n', sVtu.find("Name=\"" + sName + "\"")) + 1;
        return sVtu.substr(iLine, sVtu.find('\n', iLine) - iLine);
    };
    // eight bytes of length, lowest first, then the values: 3 | 1, 0 | 2 | 300 | 1 | 7
    EXPECT_EQ(Array("types"), "AQAAAAAAAAAD");
    EXPECT_EQ(Array("connectivity"), "CAAAAAAAAAABAAAAAAAAAA==");
    EXPECT_EQ(Array("offsets"), "CAAAAAAAAAACAAAAAAAAAA==");
    EXPECT_EQ(Array("ElementId"), "BAAAAAAAAAAsAQAA");
    EXPECT_EQ(Array("PropertyId"), "BAAAAAAAAAABAAAA");
    EXPECT_EQ(Array("MaterialId"), "BAAAAAAAAAAHAAAA");
}

} // namespace
