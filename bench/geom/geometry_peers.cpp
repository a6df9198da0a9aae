#include "geom/geometry_peers.h"

#define GLM_ENABLE_EXPERIMENTAL
#include <Imath/ImathBoxAlgo.h>
#include <Imath/ImathMatrix.h>

#include <Eigen/Dense>
#include <glm/glm.hpp>
#include <glm/gtc/matrix_inverse.hpp>
#include <glm/gtx/rotate_vector.hpp>

namespace nexo::bench {
namespace {

using Eigen::Vector3d;
using RowMatrix3d = Eigen::Matrix<double, 3, 3, Eigen::RowMajor>;
using RowMatrix4d = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;

Vector3d EigenVector(const double* n) {
    return {n[0], n[1], n[2]};
}
glm::dvec3 GlmVector(const double* n) {
    return {n[0], n[1], n[2]};
}
Imath::V3d ImathVector(const double* n) {
    return {n[0], n[1], n[2]};
}

struct GlmSystem {
    glm::dmat3 m;
    glm::dvec3 b;
};

struct EigenSystem {
    Eigen::Matrix3d m;
    Vector3d b;
};

template <class Matrix>
struct Factors {
    Matrix a;
    Matrix b;
};

template <class Vector>
struct Turn {
    Vector v;
    Vector axis;
    double angle;
};

struct EigenPlaneLine {
    Vector3d p0, p1, p2, origin, dir;
};

struct ImathBoxLine {
    Imath::Box3d box;
    Imath::Line3d line;
};

glm::dmat4 GlmMatrix(const double* n) {
    return glm::transpose(glm::dmat4(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11],
                                     n[12], n[13], n[14], n[15]));
}

Imath::M44d ImathMatrix(const double* n) {
    return {n[0], n[1], n[2],  n[3],  n[4],  n[5],  n[6],  n[7],
            n[8], n[9], n[10], n[11], n[12], n[13], n[14], n[15]};
}

}  // namespace

Task SolveGlm(const Operands& operands) {
    return OverBatch<GlmSystem>(
        operands, 3,
        [](const double* n) {
            return GlmSystem{glm::transpose(glm::dmat3(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8])),
                             GlmVector(n + 9)};
        },
        [](const GlmSystem& s, double* out) {
            const glm::dvec3 x = glm::inverse(s.m) * s.b;
            out[0] = x.x;
            out[1] = x.y;
            out[2] = x.z;
        });
}

Task SolveEigen(const Operands& operands) {
    return OverBatch<EigenSystem>(
        operands, 3,
        [](const double* n) {
            return EigenSystem{Eigen::Map<const RowMatrix3d>(n), EigenVector(n + 9)};
        },
        [](const EigenSystem& s, double* out) { Eigen::Map<Vector3d>(out).noalias() = s.m.inverse() * s.b; });
}

Task ProductEigen(const Operands& operands) {
    return OverBatch<Factors<RowMatrix4d>>(
        operands, 16,
        [](const double* n) {
            return Factors<RowMatrix4d>{Eigen::Map<const RowMatrix4d>(n),
                                        Eigen::Map<const RowMatrix4d>(n + 16)};
        },
        [](const auto& f, double* out) { Eigen::Map<RowMatrix4d>(out).noalias() = f.a * f.b; });
}

Task ProductImath(const Operands& operands) {
    return OverBatch<Factors<Imath::M44d>>(
        operands, 16,
        [](const double* n) {
            return Factors<Imath::M44d>{ImathMatrix(n), ImathMatrix(n + 16)};
        },
        [](const auto& f, double* out) { *reinterpret_cast<Imath::M44d*>(out) = f.a * f.b; });
}

Task ProductGlm(const Operands& operands) {
    return OverBatch<Factors<glm::dmat4>>(
        operands, 16,
        [](const double* n) {
            return Factors<glm::dmat4>{GlmMatrix(n), GlmMatrix(n + 16)};
        },
        [](const auto& f, double* out) { *reinterpret_cast<glm::dmat4*>(out) = f.a * f.b; });
}

Task RotateEigen(const Operands& operands) {
    return OverBatch<Turn<Vector3d>>(
        operands, 3,
        [](const double* n) {
            return Turn<Vector3d>{EigenVector(n), EigenVector(n + 3), n[6]};
        },
        [](const auto& t, double* out) {
            Eigen::Map<Vector3d> result(out);
            result = Eigen::AngleAxisd(t.angle, t.axis.normalized()).toRotationMatrix() * t.v;
        });
}

Task RotateGlm(const Operands& operands) {
    return OverBatch<Turn<glm::dvec3>>(
        operands, 3,
        [](const double* n) {
            return Turn<glm::dvec3>{GlmVector(n), GlmVector(n + 3), n[6]};
        },
        [](const auto& t, double* out) {
            const glm::dvec3 turned = glm::rotate(t.v, t.angle, t.axis);
            out[0] = turned.x;
            out[1] = turned.y;
            out[2] = turned.z;
        });
}

Task LinePlaneEigen(const Operands& operands) {
    return OverBatch<EigenPlaneLine>(
        operands, 3,
        [](const double* n) {
            return EigenPlaneLine{EigenVector(n), EigenVector(n + 3), EigenVector(n + 6), EigenVector(n + 9),
                                  EigenVector(n + 12)};
        },
        [](const EigenPlaneLine& o, double* out) {
            const auto plane = Eigen::Hyperplane<double, 3>::Through(o.p0, o.p1, o.p2);
            const Eigen::ParametrizedLine<double, 3> line(o.origin, o.dir);
            Eigen::Map<Vector3d> result(out);
            result = line.intersectionPoint(plane);
        });
}

Task LineBoxImath(const Operands& operands) {
    return OverBatch<ImathBoxLine>(
        operands, 6,
        [](const double* n) {
            ImathBoxLine o{{ImathVector(n), ImathVector(n + 3)}, {}};
            o.line.pos = ImathVector(n + 6);
            o.line.dir = ImathVector(n + 9);
            return o;
        },
        [](const ImathBoxLine& o, double* out) {
            Imath::V3d enter(0.0);
            Imath::V3d exit(0.0);
            Imath::findEntryAndExitPoints(o.line, o.box, enter, exit);
            for (int i = 0; i < 3; ++i) {
                out[i] = enter[i];
                out[i + 3] = exit[i];
            }
        });
}

}  // namespace nexo::bench
