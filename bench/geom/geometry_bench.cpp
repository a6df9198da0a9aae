// Small geometry operations beside Eigen, glm and Imath.
#include "geom/geometry_peers.h"
#include "nexo/geom/Extents.h"
#include "nexo/geom/Matrix4d.h"
#include "nexo/geom/Plane3d.h"
#include "ratio_report.h"

#include <random>

using namespace nexo::bench;

namespace {

// Few enough to stay in the first-level cache.
constexpr int kSmallBatch = 256;
// Too many for the processor to learn which way each operation's branches go.
constexpr int kLargeBatch = 8192;

Operands Random(int count, int perOperation, double low, double high) {
    std::mt19937 engine(static_cast<unsigned>(perOperation));
    std::uniform_real_distribution<double> distribution(low, high);
    Operands operands{count, perOperation, {}};
    for (int i = 0; i < perOperation * count; ++i) operands.numbers.push_back(distribution(engine));
    return operands;
}

// Boxes of about unit size, lines through the space around them that meet two of three.
Operands BoxesAndLines() {
    Operands operands = Random(kLargeBatch, 12, 0.0, 1.0);
    for (int i = 0; i < operands.count; ++i) {
        double* n = operands.numbers.data() + i * 12;
        for (int axis = 0; axis < 3; ++axis) {
            const double aim = 2.0 * n[9 + axis] - 1.0;
            n[axis] = -0.5 - 0.5 * n[axis];
            n[3 + axis] = 0.5 + 0.5 * n[3 + axis];
            n[6 + axis] = 10.0 * n[6 + axis] - 5.0;
            n[9 + axis] = aim - n[6 + axis];
        }
    }
    return operands;
}

moxBaseVector3d Vector(const double* n) {
    return {n[0], n[1], n[2]};
}
moxBasePoint3d Point(const double* n) {
    return {n[0], n[1], n[2]};
}

void Write(const moxBaseVector3d& v, double* out) {
    for (unsigned i = 0; i < 3; ++i) out[i] = v[i];
}

struct System {
    moxBaseMatrix3d m;
    moxBaseVector3d b;
};

Task Solve(const Operands& operands) {
    return OverBatch<System>(
        operands, 3,
        [](const double* n) {
            return System{{n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8]}, Vector(n + 9)};
        },
        [](const System& s, double* out) { Write(s.m.solveLGS(s.b), out); });
}

struct Factors {
    moxBaseMatrix4d a;
    moxBaseMatrix4d b;
};

moxBaseMatrix4d Matrix(const double* n) {
    return {n[0], n[1], n[2],  n[3],  n[4],  n[5],  n[6],  n[7],
            n[8], n[9], n[10], n[11], n[12], n[13], n[14], n[15]};
}

Task Product(const Operands& operands) {
    return OverBatch<Factors>(
        operands, 16,
        [](const double* n) {
            return Factors{Matrix(n), Matrix(n + 16)};
        },
        [](const Factors& f, double* out) { new (out) moxBaseMatrix4d(f.a * f.b); });
}

struct Turn {
    moxBaseVector3d v;
    moxBaseVector3d axis;
    double angle;
};

Task Rotate(const Operands& operands) {
    return OverBatch<Turn>(
        operands, 3,
        [](const double* n) {
            return Turn{Vector(n), Vector(n + 3), n[6]};
        },
        [](const Turn& t, double* out) { Write(moxBaseVector3d::getRotated(t.v, t.axis, t.angle), out); });
}

struct PlaneLine {
    moxBasePoint3d p0, p1, p2;
    moxBaseLine3d line;
};

Task LinePlane(const Operands& operands) {
    return OverBatch<PlaneLine>(
        operands, 3,
        [](const double* n) {
            return PlaneLine{Point(n), Point(n + 3), Point(n + 6), {Point(n + 9), Vector(n + 12)}};
        },
        [](const PlaneLine& o, double* out) {
            moxBasePoint3d hit;
            moxBasePlane3d(o.p0, o.p1, o.p2).getIntersection(o.line, hit);
            Write(hit.asVector(), out);
        });
}

struct BoxLine {
    moxBaseExtents box;
    moxBaseLine3d line;
};

Task LineBox(const Operands& operands) {
    return OverBatch<BoxLine>(
        operands, 6,
        [](const double* n) {
            return BoxLine{{Point(n), Point(n + 3)}, {Point(n + 6), Vector(n + 9)}};
        },
        [](const BoxLine& o, double* out) {
            moxBasePoint3d first;
            moxBasePoint3d second;
            o.box.getIntersections(o.line, first, second);
            Write(first.asVector(), out);
            Write(second.asVector(), out + 3);
        });
}

void Register(const char* name, const Operands& operands, Task task) {
    benchmark::RegisterBenchmark(name,
                                 [count = operands.count, task = std::move(task)](benchmark::State& state) {
                                     std::vector<double> results(static_cast<std::size_t>(count) * 16);
                                     for (auto _ : state) {
                                         task(results.data());
                                         benchmark::ClobberMemory();
                                     }
                                     state.SetItemsProcessed(state.iterations() * count);
                                 });
}

}  // namespace

int main(int argc, char** argv) {
    const Operands systems = Random(kSmallBatch, 12, -1.0, 1.0);
    Register("solve 3x3/nexo", systems, Solve(systems));
    Register("solve 3x3/glm", systems, SolveGlm(systems));
    Register("solve 3x3/Eigen", systems, SolveEigen(systems));
    const Operands factors = Random(kSmallBatch, 32, -1.0, 1.0);
    Register("product 4x4/nexo", factors, Product(factors));
    Register("product 4x4/Eigen", factors, ProductEigen(factors));
    Register("product 4x4/Imath", factors, ProductImath(factors));
    Register("product 4x4/glm", factors, ProductGlm(factors));
    const Operands turns = Random(kSmallBatch, 7, -3.0, 3.0);
    Register("rotate/nexo", turns, Rotate(turns));
    Register("rotate/Eigen", turns, RotateEigen(turns));
    Register("rotate/glm", turns, RotateGlm(turns));
    const Operands planes = Random(kSmallBatch, 15, -1.0, 1.0);
    Register("line-plane/nexo", planes, LinePlane(planes));
    Register("line-plane/Eigen", planes, LinePlaneEigen(planes));
    const Operands boxes = BoxesAndLines();
    Register("line-box/nexo", boxes, LineBox(boxes));
    Register("line-box/Imath", boxes, LineBoxImath(boxes));
    return RunAndCompare(argc, argv,
                         {{"solve 3x3/nexo", "solve 3x3/glm", 1.3},
                          {"solve 3x3/nexo", "solve 3x3/Eigen", 1.3},
                          {"product 4x4/nexo", "product 4x4/Eigen", 1.2},
                          {"product 4x4/nexo", "product 4x4/Imath", 1.2},
                          {"rotate/nexo", "rotate/Eigen", 0.95},
                          {"rotate/nexo", "rotate/glm", 0.95},
                          {"line-plane/nexo", "line-plane/Eigen", 0.7},
                          {"line-box/nexo", "line-box/Imath", 0.65}});
}
