// Lines and fields: what a deck's every line and field goes through.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "reader/FieldParser.h"
#include "reader/NastranStrParser.h"

#include "deckgen/Random.h"

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

/// A line with the room behind it that NormalizeLine asks for.
std::string WithSlack(std::string sLine) {
    return sLine.append(CNastranStrParser::SLACK, '\0');
}

constexpr const char* SMALL_LINE = "GRID    1234567         249.753 1249.753    0.037       3  123456";
constexpr const char* LARGE_LINE = "GRID*   1234567                         249.7531234     1249.7531234";
constexpr const char* FREE_LINE = "GRID,1234567,,249.753,1249.753,0.037,3,123456";

void NormalizeLine(benchmark::State& rState, const char* pLine) {
    const std::size_t nText = std::string_view(pLine).size();
    const std::string sLine = WithSlack(pLine);
    T_LINE_D line;
    for (auto _ : rState) {
        benchmark::DoNotOptimize(CNastranStrParser::NormalizeLine({sLine.data(), nText}, line));
        benchmark::ClobberMemory();
    }
    rState.SetBytesProcessed(static_cast<std::int64_t>(rState.iterations()) * static_cast<std::int64_t>(nText + 1));
}
BENCHMARK_CAPTURE(NormalizeLine, Small, SMALL_LINE);
BENCHMARK_CAPTURE(NormalizeLine, Large, LARGE_LINE);
BENCHMARK_CAPTURE(NormalizeLine, Free, FREE_LINE);
BENCHMARK_CAPTURE(NormalizeLine, Comment, "$ this line says nothing to the converter, whatever it says");

/// The nine columns of a small field line.
void CutSmall(benchmark::State& rState) {
    const std::string sLine = WithSlack(SMALL_LINE);
    T_LINE_D line;
    CNastranStrParser::NormalizeLine({sLine.data(), std::string_view(SMALL_LINE).size()}, line);
    for (auto _ : rState) {
        for (char* pField = line.aTEXT; pField < line.aTEXT + 72; pField += 8) {
            benchmark::DoNotOptimize(CNastranStrParser::RemoveBlanksOf8(pField, [] {}));
        }
    }
}
BENCHMARK(CutSmall);

/// Five columns of a large field line: the general road for blanks.
void CutLarge(benchmark::State& rState) {
    const std::string sLine = WithSlack(LARGE_LINE);
    T_LINE_D line;
    for (auto _ : rState) {
        // cutting moves characters in place, so the line is made anew
        CNastranStrParser::NormalizeLine({sLine.data(), std::string_view(LARGE_LINE).size()}, line);
        benchmark::DoNotOptimize(CNastranStrParser::RemoveBlanks(line.aTEXT, line.aTEXT + 8));
        for (char* pField = line.aTEXT + 8; pField < line.aTEXT + 72; pField += 16) {
            benchmark::DoNotOptimize(CNastranStrParser::RemoveBlanks(pField, pField + 16));
        }
    }
}
BENCHMARK(CutLarge);

void CutFree(benchmark::State& rState) {
    const std::string sLine = WithSlack(FREE_LINE);
    T_LINE_D line;
    std::vector<std::string_view> aFields;
    for (auto _ : rState) {
        aFields.clear();
        CNastranStrParser::NormalizeLine({sLine.data(), std::string_view(FREE_LINE).size()}, line);
        CNastranStrParser::SplitFreeFields(line, aFields);
        benchmark::DoNotOptimize(aFields.data());
    }
}
BENCHMARK(CutFree);

constexpr std::uint64_t MANY = 4096; // different fields, so that branches can't be learned by heart

/// Real fields of nDigits digits, every eighth with an exponent as NASTRAN writes it.
std::vector<std::string> RealFields(int nDigits) {
    std::vector<std::string> aFields;
    for (std::uint64_t i = 0; i < MANY; ++i) {
        std::string sField = std::to_string(RandomAt(1, i)).substr(0, static_cast<std::size_t>(nDigits));
        sField.insert(1 + i % 3, ".");
        if (i % 8 == 7) sField.replace(sField.size() - 2, 2, i % 16 == 7 ? "+3" : "-4");
        if (i % 5 == 4) sField.insert(0, "-");
        aFields.push_back(std::move(sField));
    }
    return aFields;
}

void TextToReal(benchmark::State& rState) {
    const std::vector<std::string> aFields = RealFields(static_cast<int>(rState.range(0)));
    std::size_t i = 0;
    for (auto _ : rState) benchmark::DoNotOptimize(::TextToReal(aFields[i++ % MANY]));
}
BENCHMARK(TextToReal)->ArgName("digits")->Arg(4)->Arg(6)->Arg(13)->Arg(17);

/// What the C library takes for the same without exponents of NASTRAN.
void Strtod(benchmark::State& rState) {
    const std::vector<std::string> aFields = RealFields(static_cast<int>(rState.range(0)));
    std::size_t i = 0;
    for (auto _ : rState) benchmark::DoNotOptimize(std::strtod(aFields[i++ % MANY].c_str(), nullptr));
}
BENCHMARK(Strtod)->ArgName("digits")->Arg(6)->Arg(13);

void TextToInt(benchmark::State& rState) {
    std::vector<std::string> aFields;
    for (std::uint64_t i = 0; i < MANY; ++i) aFields.push_back(std::to_string(RandomAt(2, i) % 10'000'000));
    std::size_t i = 0;
    for (auto _ : rState) benchmark::DoNotOptimize(::TextToInt(aFields[i++ % MANY]));
}
BENCHMARK(TextToInt);

void KeywordToId(benchmark::State& rState) {
    constexpr std::array<std::string_view, 8> NAMES = {"GRID", "CQUAD4", "CBAR", "FORCE",
                                                       "SPC1", "PLOAD4", "TEMP", "NOTHING"};
    std::size_t i = 0;
    std::int32_t iId = 0;
    for (auto _ : rState) benchmark::DoNotOptimize(CConvertNastran::KeywordToId(NAMES[i++ % NAMES.size()], iId));
}
BENCHMARK(KeywordToId);

} // namespace
