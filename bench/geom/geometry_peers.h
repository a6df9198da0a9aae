#ifndef NEXO_BENCH_GEOM_GEOMETRY_PEERS_H
#define NEXO_BENCH_GEOM_GEOMETRY_PEERS_H

// The tasks of geometry_bench.cpp as other libraries do them. Every task repeats one operation over
// different operands and writes its results one behind the other.

#include <functional>
#include <vector>

namespace nexo::bench {

using Task = std::function<void(double* results)>;

/// What the operands are made of: `perOperation` numbers for each of `count` operations.
struct Operands {
    int count;
    int perOperation;
    std::vector<double> numbers;

    const double* operator[](int i) const { return numbers.data() + i * perOperation; }
};

/// A task over operands of type T, each made once by `make` from its numbers; `run` writes `width` results.
template <class T, class Make, class Run>
Task OverBatch(const Operands& operands, int width, Make make, Run run) {
    std::vector<T> batch;
    for (int i = 0; i < operands.count; ++i) batch.push_back(make(operands[i]));
    return [batch = std::move(batch), width, run](double* results) {
        for (const T& operand : batch) {
            run(operand, results);
            results += width;
        }
    };
}

/// Nine numbers of a matrix, row by row, and a right side.
Task SolveGlm(const Operands& operands);
Task SolveEigen(const Operands& operands);
/// Two matrices of sixteen numbers, row by row.
Task ProductEigen(const Operands& operands);
Task ProductImath(const Operands& operands);
Task ProductGlm(const Operands& operands);
/// A vector, an axis, an angle.
Task RotateEigen(const Operands& operands);
Task RotateGlm(const Operands& operands);
/// Three points of a plane, a point and a direction of a line.
Task LinePlaneEigen(const Operands& operands);
/// Two corners of a box, a point and a direction of a line.
Task LineBoxImath(const Operands& operands);

}  // namespace nexo::bench

#endif
