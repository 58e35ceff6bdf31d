// Numbers on their way out, beside what the C library takes for the same text.

#include "writer/Numbers.h"

#include "deckgen/Random.h"

#include <benchmark/benchmark.h>

#include <array>
#include <bit>
#include <cstdio>
#include <vector>

namespace {

constexpr std::uint64_t MANY = 4096; // different values, so that branches can't be learned by heart

/// Kinds of values that decks hold.
enum E_VALUES : int {
    VALUES_WHOLE,       // 0 to 999
    VALUES_COORDINATES, // 249.753
    VALUES_LONG,        // 16 digits: what frames make of coordinates
    VALUES_ANY,         // any exponent
};

std::vector<double> Values(int iValues) {
    std::vector<double> aValues;
    for (std::uint64_t i = 0; i < MANY; ++i) {
        const std::uint64_t n = RandomAt(3, i);
        switch (iValues) {
        case VALUES_WHOLE:
            aValues.push_back(static_cast<double>(n % 1000));
            break;
        case VALUES_COORDINATES:
            aValues.push_back(static_cast<double>(n % 10'000'000) / 1000.0);
            break;
        case VALUES_LONG:
            aValues.push_back(static_cast<double>(n >> 11) / 9007199254740992.0 * 1000.0);
            break;
        default: // exponents 1 to 2046: neither zero nor infinite
            aValues.push_back(std::bit_cast<double>((n & 0x800FFFFFFFFFFFFF) | ((1 + n % 2045) << 52)));
            break;
        }
    }
    return aValues;
}

void PutReal(benchmark::State& rState) {
    const std::vector<double> aValues = Values(static_cast<int>(rState.range(0)));
    std::array<char, 32> aText{};
    std::size_t i = 0;
    for (auto _ : rState) {
        benchmark::DoNotOptimize(::PutReal(aText.data(), aValues[i++ % MANY]));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(PutReal)->ArgName("values")->DenseRange(VALUES_WHOLE, VALUES_ANY);

void PutRealBySnprintf(benchmark::State& rState) {
    const std::vector<double> aValues = Values(static_cast<int>(rState.range(0)));
    std::array<char, 32> aText{};
    std::size_t i = 0;
    for (auto _ : rState) {
        benchmark::DoNotOptimize(std::snprintf(aText.data(), aText.size(), "%g", aValues[i++ % MANY]));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(PutRealBySnprintf)->ArgName("values")->DenseRange(VALUES_WHOLE, VALUES_ANY);

void PutInt(benchmark::State& rState) {
    std::vector<std::int32_t> aValues;
    for (std::uint64_t i = 0; i < MANY; ++i) aValues.push_back(static_cast<std::int32_t>(RandomAt(4, i) % 10'000'000));
    std::array<char, 32> aText{};
    std::size_t i = 0;
    for (auto _ : rState) {
        benchmark::DoNotOptimize(::PutInt(aText.data(), aValues[i++ % MANY]));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(PutInt);

} // namespace
