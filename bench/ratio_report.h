#ifndef NEXO_BENCH_RATIO_REPORT_H
#define NEXO_BENCH_RATIO_REPORT_H

// Prints, after a program's benchmarks, the library's time in parts of a peer's time from the same run.
//
//   int main(int argc, char** argv) {
//       return nexo::bench::RunAndCompare(argc, argv, {{"solve 3x3/nexo", "solve 3x3/glm", 1.3}});
//   }

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace nexo::bench {

/// Two benchmarks by name, and the greatest ratio of their times that is wanted.
struct Comparison {
    std::string ours;
    std::string peer;
    double goal;
};

/// Keeps the smallest CPU time per item (or iteration) of all repetitions of each benchmark.
class MinimumReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override {
        PrintBasicContext(&GetErrorStream(), context);
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
            const auto rate = run.counters.find("items_per_second");
            const double time = rate != run.counters.end() ? 1e9 / rate->second : run.GetAdjustedCPUTime();
            const auto [entry, isNew] = m_minima.try_emplace(run.run_name.function_name, time);
            if (!isNew) entry->second = std::min(entry->second, time);
        }
    }

    void Print(const std::vector<Comparison>& comparisons) const {
        std::printf("%-40s %14s\n", "benchmark", "best ns per item");
        for (const auto& [name, time] : m_minima) std::printf("%-40s %14.2f\n", name.c_str(), time);
        std::printf("\n%-40s %-32s %8s %8s\n", "time of", "in parts of", "ratio", "goal");
        for (const Comparison& c : comparisons) {
            if (!m_minima.count(c.ours) || !m_minima.count(c.peer)) continue;
            const double ratio = m_minima.at(c.ours) / m_minima.at(c.peer);
            std::printf("%-40s %-32s %8.3f %8.2f%s\n", c.ours.c_str(), c.peer.c_str(), ratio, c.goal,
                        ratio > c.goal ? "  missed" : "");
        }
    }

private:
    std::map<std::string, double> m_minima;
};

/// Runs the registered benchmarks, interleaved and repeated unless the command line says otherwise.
inline int RunAndCompare(int argc, char** argv, const std::vector<Comparison>& comparisons) {
    std::vector<std::string> defaults = {argv[0], "--benchmark_repetitions=15", "--benchmark_min_time=0.02",
                                         "--benchmark_enable_random_interleaving=true"};
    defaults.insert(defaults.end(), argv + 1, argv + argc);
    std::vector<char*> arguments;
    for (std::string& argument : defaults) arguments.push_back(argument.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    MinimumReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.Print(comparisons);
    return 0;
}

}  // namespace nexo::bench

#endif
