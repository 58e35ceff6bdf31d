// The keyed table, at the sizes and with the ids of decks.

#include "store/Map.h"
#include "store/GridRecords.h"

#include "deckgen/IdOrder.h"
#include "deckgen/Random.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

constexpr std::uint32_t BUCKETS = 1'000'001; // as the tables of grids and elements have

std::vector<std::int32_t> Ids(const benchmark::State& rState) {
    const auto nIds = static_cast<std::uint64_t>(rState.range(0));
    const CIdOrder order(static_cast<E_ID_ORDER>(rState.range(1)), nIds, 1);
    std::vector<std::int32_t> aIds;
    for (std::uint64_t i = 0; i < nIds; ++i) aIds.push_back(static_cast<std::int32_t>(order.At(i)));
    return aIds;
}

void Fill(CMap<T_NODS_D>& rMap, const std::vector<std::int32_t>& aIds) {
    for (const std::int32_t iId : aIds) rMap.SetAt(iId, T_NODS_D());
}

void SetRecords(benchmark::State& rState) {
    rState.SetItemsProcessed(static_cast<std::int64_t>(rState.iterations()) * rState.range(0));
}

/// Items are records.
void MapInsert(benchmark::State& rState) {
    const std::vector<std::int32_t> aIds = Ids(rState);
    std::int64_t nInserted = 0;
    for (auto _ : rState) {
        auto pMap = std::make_unique<CMap<T_NODS_D>>(BUCKETS);
        Fill(*pMap, aIds);
        benchmark::DoNotOptimize(pMap.get());
        nInserted += rState.range(0);
        rState.PauseTiming();
        pMap.reset();
        rState.ResumeTiming();
    }
    rState.SetItemsProcessed(nInserted);
}

/// One lookup an item, each of a record far from the last.
void MapFind(benchmark::State& rState) {
    const std::vector<std::int32_t> aIds = Ids(rState);
    CMap<T_NODS_D> map(BUCKETS);
    Fill(map, aIds);
    std::uint64_t i = 0;
    for (auto _ : rState) benchmark::DoNotOptimize(map.Find(aIds[Mix(i++) % aIds.size()]));
    rState.SetItemsProcessed(static_cast<std::int64_t>(rState.iterations()));
}

/// The same along the order of insertion, as most references of a deck go.
void MapFindNear(benchmark::State& rState) {
    const std::vector<std::int32_t> aIds = Ids(rState);
    CMap<T_NODS_D> map(BUCKETS);
    Fill(map, aIds);
    std::size_t i = 0;
    for (auto _ : rState) benchmark::DoNotOptimize(map.Find(aIds[i++ % aIds.size()]));
    rState.SetItemsProcessed(static_cast<std::int64_t>(rState.iterations()));
}

/// Reads all records in the order of walk, which makes a range of a map. Items are records.
template <class WALK>
void Read(benchmark::State& rState, WALK walk) {
    const std::vector<std::int32_t> aIds = Ids(rState);
    CMap<T_NODS_D> map(BUCKETS);
    Fill(map, aIds);
    for (auto _ : rState) {
        double dSum = 0.0;
        for (const auto& [iId, rNode] : walk(map)) dSum += rNode.dGX + iId;
        benchmark::DoNotOptimize(dSum);
    }
    SetRecords(rState);
}

void MapWalk(benchmark::State& rState) {
    Read(rState, [](CMap<T_NODS_D>& rMap) { return rMap.Walk(); });
}

void MapSorted(benchmark::State& rState) {
    Read(rState, [](const CMap<T_NODS_D>& rMap) { return rMap.Sorted(); });
}

/// Records by order of ids, as numbered in E_ID_ORDER.
void Sizes(benchmark::internal::Benchmark* pBenchmark) {
    pBenchmark->ArgNames({"records", "order"});
    pBenchmark->ArgsProduct({{10'000, 1'000'000}, {ORDER_ASCENDING, ORDER_SHUFFLED, ORDER_SPARSE, ORDER_SCATTERED}});
}
BENCHMARK(MapInsert)->Apply(Sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(MapFind)->Apply(Sizes);
BENCHMARK(MapFindNear)->Apply(Sizes);
BENCHMARK(MapWalk)->Apply(Sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(MapSorted)->Apply(Sizes)->Unit(benchmark::kMicrosecond);

} // namespace
