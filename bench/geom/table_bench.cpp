// Interpolation tables beside GSL, at random places; viewed grids beside a plain scalar form.
#include <gsl/gsl_interp.h>
#include <gsl/gsl_interp2d.h>

#include <cmath>
#include <memory>
#include <random>

#include "nexo/geom/LinearInterpolation.h"
#include "nexo/geom/LinearInterpolation2D.h"
#include "ratio_report.h"

namespace {

using Numbers = std::vector<double>;

constexpr int kPlaces = 16384;

Numbers Places(const Numbers& grid, unsigned seed) {
    std::mt19937 engine(seed);
    std::uniform_real_distribution<double> distribution(grid.front(), grid.back());
    Numbers places;
    for (int i = 0; i < kPlaces; ++i) places.push_back(distribution(engine));
    return places;
}

// Numbers that rise by between 0.2 and 1.8.
Numbers UnevenGrid(int count) {
    std::mt19937 engine(static_cast<unsigned>(count));
    std::uniform_real_distribution<double> jitter(-0.4, 0.4);
    Numbers grid;
    for (int i = 0; i < count; ++i) grid.push_back(i + jitter(engine));
    return grid;
}

// Numbers that rise by the same factor from 1 to 10^12, crowded at the low end.
Numbers GeometricGrid(int count) {
    Numbers grid;
    for (int i = 0; i < count; ++i) grid.push_back(std::pow(10.0, 12.0 * i / (count - 1)));
    return grid;
}

template <class Evaluate>
void Run(benchmark::State& state, const Evaluate& evaluate) {
    for (auto _ : state) {
        double sum = 0.0;
        for (int i = 0; i < kPlaces; ++i) sum += evaluate(static_cast<std::size_t>(i));
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * kPlaces);
}

std::string Name(const std::string& task, int size, const std::string& who) {
    return task + " " + std::to_string(size) + "/" + who;
}

void RegisterCurve(const std::string& task, const Numbers& xs) {
    const int size = static_cast<int>(xs.size());
    const Numbers places = Places(xs, 1);
    auto table = std::make_shared<CLinearInterpolation>();
    Numbers ys;
    for (double x : xs) {
        ys.push_back(std::sin(x));
        table->Add(x, ys.back());
    }
    benchmark::RegisterBenchmark(Name(task, size, "nexo").c_str(), [=](benchmark::State& state) {
        Run(state, [&](std::size_t i) { return table->GetY(places[i], false); });
    });
    benchmark::RegisterBenchmark(Name(task, size, "GSL").c_str(), [=](benchmark::State& state) {
        const std::unique_ptr<gsl_interp, decltype(&gsl_interp_free)> interpolation(
            gsl_interp_alloc(gsl_interp_linear, xs.size()), gsl_interp_free);
        const std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> accel(
            gsl_interp_accel_alloc(), gsl_interp_accel_free);
        gsl_interp_init(interpolation.get(), xs.data(), ys.data(), xs.size());
        Run(state, [&](std::size_t i) {
            return gsl_interp_eval(interpolation.get(), xs.data(), ys.data(), places[i], accel.get());
        });
    });
}

// The whole of a lookup as a plain loop: check both grids, scan for the cell, interpolate.
double PlainLookup(const double* cells, int rows, int columns, double x, double y) {
    for (int i = 2; i < rows; ++i)
        if (!(cells[i * columns] > cells[(i - 1) * columns])) return HUGE_VAL;
    for (int j = 2; j < columns; ++j)
        if (!(cells[j] > cells[j - 1])) return HUGE_VAL;
    int r = 1;
    while (r < rows - 1 && !(cells[r * columns] >= x)) ++r;
    int c = 1;
    while (c < columns - 1 && !(cells[c] >= y)) ++c;
    r = std::max(r, 2);
    c = std::max(c, 2);
    const double* upper = cells + r * columns;
    const double* lower = upper - columns;
    const double xi = 2.0 * (x - lower[0]) / (upper[0] - lower[0]) - 1.0;
    const double eta = 2.0 * (y - cells[c - 1]) / (cells[c] - cells[c - 1]) - 1.0;
    return 0.25 * (upper[c - 1] * (1 + xi) * (1 - eta) + lower[c - 1] * (1 - xi) * (1 - eta) +
                   upper[c] * (1 + xi) * (1 + eta) + lower[c] * (1 - xi) * (1 + eta));
}

void RegisterSurface(int size) {
    const Numbers grid = UnevenGrid(size);
    const Numbers xs = Places(grid, 1);
    const Numbers ys = Places(grid, 2);
    const int lines = size + 1;
    // The cells of the library's layout, and what GSL wants: z with x running fastest.
    Numbers cells(static_cast<std::size_t>(lines) * static_cast<std::size_t>(lines));
    Numbers z(grid.size() * grid.size());
    for (std::size_t i = 0; i < grid.size(); ++i) {
        cells[i + 1] = cells[(i + 1) * (grid.size() + 1)] = grid[i];
        for (std::size_t j = 0; j < grid.size(); ++j)
            z[j * grid.size() + i] = cells[(i + 1) * (grid.size() + 1) + j + 1] = std::sin(grid[i]) * grid[j];
    }
    const auto data = std::make_shared<Numbers>(std::move(cells));
    const auto view = std::make_shared<CLinearInterpolation2D>(lines, lines, data->data());
    const auto own = std::make_shared<CLinearInterpolation2D>(*view);
    benchmark::RegisterBenchmark(Name("surface", size, "nexo").c_str(), [=](benchmark::State& state) {
        Run(state, [&](std::size_t i) { return own->GetZ(xs[i], ys[i], false); });
    });
    benchmark::RegisterBenchmark(Name("surface", size, "GSL").c_str(), [=](benchmark::State& state) {
        const std::unique_ptr<gsl_interp2d, decltype(&gsl_interp2d_free)> interpolation(
            gsl_interp2d_alloc(gsl_interp2d_bilinear, grid.size(), grid.size()), gsl_interp2d_free);
        const std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> xAccel(
            gsl_interp_accel_alloc(), gsl_interp_accel_free);
        const std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> yAccel(
            gsl_interp_accel_alloc(), gsl_interp_accel_free);
        gsl_interp2d_init(interpolation.get(), grid.data(), grid.data(), z.data(), grid.size(), grid.size());
        Run(state, [&](std::size_t i) {
            return gsl_interp2d_eval(interpolation.get(), grid.data(), grid.data(), z.data(), xs[i], ys[i],
                                     xAccel.get(), yAccel.get());
        });
    });
    benchmark::RegisterBenchmark(Name("viewed surface", size, "nexo").c_str(), [=](benchmark::State& state) {
        Run(state, [&](std::size_t i) { return view->GetZ(xs[i], ys[i], false); });
    });
    benchmark::RegisterBenchmark(Name("viewed surface", size, "plain").c_str(), [=](benchmark::State& state) {
        Run(state, [&](std::size_t i) { return PlainLookup(data->data(), lines, lines, xs[i], ys[i]); });
    });
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<nexo::bench::Comparison> comparisons;
    const auto compare = [&](const std::string& task, int size, const std::string& peer, double goal) {
        comparisons.push_back({Name(task, size, "nexo"), Name(task, size, peer), goal});
    };
    const struct {
        int size;
        double goal;
    } curves[] = {{10, 0.6}, {100, 0.25}, {1000, 0.25}, {10000, 0.12}, {100000, 0.12}};
    for (const auto& curve : curves) {
        RegisterCurve("curve", UnevenGrid(curve.size));
        compare("curve", curve.size, "GSL", curve.goal);
    }
    RegisterCurve("crowded curve", GeometricGrid(1000));
    compare("crowded curve", 1000, "GSL", 1.0);
    const struct {
        int size;
        double goal;
    } surfaces[] = {{10, 0.9}, {100, 0.5}, {1000, 0.5}};
    for (const auto& surface : surfaces) {
        RegisterSurface(surface.size);
        compare("surface", surface.size, "GSL", surface.goal);
        compare("viewed surface", surface.size, "plain", 0.75);
    }
    return nexo::bench::RunAndCompare(argc, argv, comparisons);
}
