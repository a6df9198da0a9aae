// The containers beside those of the standard library and Abseil's hash map.
#include <absl/container/flat_hash_map.h>
#include <benchmark/benchmark.h>

#include <list>
#include <string>
#include <unordered_map>
#include <vector>

#include "nexo/base/Containers.h"
#include "nexo/base/Time.h"

namespace {

constexpr int kElements = 10000;

std::vector<CString> Keys() {
    std::vector<CString> keys;
    for (int i = 0; i < kElements; ++i) {
        CString key;
        key.Format(L"Heating@Text number %d", i * 7919 % kElements);
        keys.push_back(key);
    }
    return keys;
}

void CountElements(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * kElements);
}

void AppendInts_CArray(benchmark::State& state) {
    for (auto _ : state) {
        CArray<int> array;
        for (int i = 0; i < kElements; ++i) array.Add(i);
        benchmark::DoNotOptimize(array.GetData());
    }
    CountElements(state);
}
BENCHMARK(AppendInts_CArray);

void AppendInts_vector(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<int> array;
        for (int i = 0; i < kElements; ++i) array.push_back(i);
        benchmark::DoNotOptimize(array.data());
    }
    CountElements(state);
}
BENCHMARK(AppendInts_vector);

void SumInts_CArray(benchmark::State& state) {
    CArray<int> array;
    array.SetSize(kElements);
    for (auto _ : state) {
        int sum = 0;
        for (int i = 0; i < array.GetSize(); ++i) sum += array[i];
        benchmark::DoNotOptimize(sum);
    }
    CountElements(state);
}
BENCHMARK(SumInts_CArray);

void SumInts_vector_at(benchmark::State& state) {
    std::vector<int> array(kElements);
    for (auto _ : state) {
        int sum = 0;
        for (std::size_t i = 0; i < array.size(); ++i) sum += array.at(i);
        benchmark::DoNotOptimize(sum);
    }
    CountElements(state);
}
BENCHMARK(SumInts_vector_at);

void AppendTexts_CStringArray(benchmark::State& state) {
    const auto keys = Keys();
    for (auto _ : state) {
        CStringArray array;
        for (const CString& key : keys) array.Add(key);
        benchmark::DoNotOptimize(array.GetData());
    }
    CountElements(state);
}
BENCHMARK(AppendTexts_CStringArray);

void AppendTexts_vector(benchmark::State& state) {
    const auto keys = Keys();
    for (auto _ : state) {
        std::vector<CString> array;
        for (const CString& key : keys) array.push_back(key);
        benchmark::DoNotOptimize(array.data());
    }
    CountElements(state);
}
BENCHMARK(AppendTexts_vector);

void FillAndDestroy_CList(benchmark::State& state) {
    for (auto _ : state) {
        CList<int> list;
        for (int i = 0; i < kElements; ++i) list.AddTail(i);
        benchmark::DoNotOptimize(list.GetHead());
    }
    CountElements(state);
}
BENCHMARK(FillAndDestroy_CList);

void FillAndDestroy_list(benchmark::State& state) {
    for (auto _ : state) {
        std::list<int> list;
        for (int i = 0; i < kElements; ++i) list.push_back(i);
        benchmark::DoNotOptimize(list.front());
    }
    CountElements(state);
}
BENCHMARK(FillAndDestroy_list);

void FillMap_CMapStringToString(benchmark::State& state) {
    const auto keys = Keys();
    for (auto _ : state) {
        CMapStringToString map;
        for (const CString& key : keys) map.SetAt(key, key);
        benchmark::DoNotOptimize(map.GetCount());
    }
    CountElements(state);
}
BENCHMARK(FillMap_CMapStringToString);

void FillMap_unordered_map(benchmark::State& state) {
    const auto keys = Keys();
    for (auto _ : state) {
        std::unordered_map<CString, CString> map;
        for (const CString& key : keys) map[key] = key;
        benchmark::DoNotOptimize(map.size());
    }
    CountElements(state);
}
BENCHMARK(FillMap_unordered_map);

void FindInMap_CMapStringToString(benchmark::State& state) {
    const auto keys = Keys();
    CMapStringToString map;
    for (const CString& key : keys) map.SetAt(key, key);
    CString value;
    for (auto _ : state)
        for (const CString& key : keys) benchmark::DoNotOptimize(map.Lookup(key, value));
    CountElements(state);
}
BENCHMARK(FindInMap_CMapStringToString);

void FindInMap_unordered_map(benchmark::State& state) {
    std::vector<std::wstring> keys;
    for (const CString& key : Keys()) keys.emplace_back(key.View());
    std::unordered_map<std::wstring, CString> map;
    for (const auto& key : keys) map[key] = CString(key.c_str());
    CString value;
    for (auto _ : state)
        for (const auto& key : keys) {
            const auto found = map.find(key);
            benchmark::DoNotOptimize(value = found->second);
        }
    CountElements(state);
}
BENCHMARK(FindInMap_unordered_map);

void FindInMap_flat_hash_map(benchmark::State& state) {
    std::vector<std::wstring> keys;
    for (const CString& key : Keys()) keys.emplace_back(key.View());
    absl::flat_hash_map<std::wstring, CString> map;
    for (const auto& key : keys) map[key] = CString(key.c_str());
    CString value;
    for (auto _ : state)
        for (const auto& key : keys) {
            const auto found = map.find(key);
            benchmark::DoNotOptimize(value = found->second);
        }
    CountElements(state);
}
BENCHMARK(FindInMap_flat_hash_map);

void FormatTime_CTime(benchmark::State& state) {
    const CTime time(1700000000);
    for (auto _ : state) benchmark::DoNotOptimize(time.Format(L"%d.%m.%Y %H:%M:%S"));
}
BENCHMARK(FormatTime_CTime);

void FormatTime_wcsftime(benchmark::State& state) {
    for (auto _ : state) {
        const time_t time = 1700000000;
        tm parts;
        wchar_t text[64];
        tzset();
        localtime_r(&time, &parts);
        wcsftime(text, 64, L"%d.%m.%Y %H:%M:%S", &parts);
        benchmark::DoNotOptimize(CString(text));
    }
}
BENCHMARK(FormatTime_wcsftime);

}  // namespace

BENCHMARK_MAIN();
