#ifndef NEXO_BENCH_COMPARE_H
#define NEXO_BENCH_COMPARE_H

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace nexo::bench {

/// Measures our ways of doing something beside those of peers and prints the ratios.
///
/// All candidates run in turn, round after round, and the best round of each counts: on a machine with other
/// work the minimum is stable where averages are not, and only figures of one run may be compared.
class Comparison {
public:
    /// `items`: operations that one call of a candidate performs; times are printed for one of them.
    Comparison(std::string title, std::size_t items) : title_(std::move(title)), items_(items) {}

    /// One of our ways; the first one is what the goals are about. The result of `run` is only kept from the
    /// optimiser.
    void Add(std::string name, std::function<std::size_t()> run) {
        candidates_.push_back({std::move(name), std::move(run), 0});
    }

    /// A peer, with the goal for (our time / its time); 0 for a peer that is only looked at.
    void Peer(std::string name, double goal, std::function<std::size_t()> run) {
        candidates_.push_back({std::move(name), std::move(run), goal, true});
    }

    void Print(int rounds = 25) {
        for (int round = 0; round < rounds; ++round) {
            for (Candidate& candidate : candidates_) Measure(candidate);
        }
        std::printf("%s\n", title_.c_str());
        for (const Candidate& candidate : candidates_) PrintRow(candidate);
    }

private:
    struct Candidate {
        std::string name;
        std::function<std::size_t()> run;
        double goal;
        bool peer = false;
        double best = std::numeric_limits<double>::infinity();
    };

    void Measure(Candidate& candidate) const {
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(candidate.run());
        const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
        candidate.best = std::min(candidate.best, time.count() / static_cast<double>(items_));
    }

    void PrintRow(const Candidate& candidate) const {
        std::printf("  %-32s %10.2f ns", candidate.name.c_str(), candidate.best);
        const double ratio = candidates_.front().best / candidate.best;
        if (candidate.peer) std::printf("   ratio %.3f", ratio);
        if (candidate.goal > 0)
            std::printf("   goal %.2f %s", candidate.goal, ratio <= candidate.goal ? "met" : "MISSED");
        std::printf("\n");
    }

    std::string title_;
    std::size_t items_;
    std::vector<Candidate> candidates_;
};

}  // namespace nexo::bench

#endif
