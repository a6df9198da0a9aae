// Interpolation tables under any sequence of changes and lookups answer as they are described.
#include <cstdlib>

#include "byte_source.h"
#include "nexo/geom/LinearInterpolation.h"
#include "nexo/geom/LinearInterpolation2D.h"
#include "numbers.h"
#include "table_reference.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckPairs(const CLinearInterpolation& curve, const reference::Curve& wanted) {
    Require(curve.getSize() == static_cast<int>(wanted.pairs.size()));
    for (int i = 0; i < curve.getSize(); ++i) {
        const auto& [x, y] = wanted.pairs[static_cast<std::size_t>(i)];
        Require(IsSame(curve.GetAtXArray(i), x) && IsSame(curve.GetAtYArray(i), y));
    }
}

void SetX(CLinearInterpolation& curve, reference::Curve& wanted, unsigned i, double x) {
    curve.SetAtXArray(static_cast<int>(i), x);
    if (i < wanted.pairs.size())
        wanted.pairs[i].first = x;
    else
        wanted.pairs.emplace_back(x, 0.0);
    wanted.checked = false;
}

void RunCurve(ByteSource& bytes) {
    CLinearInterpolation curve;
    reference::Curve wanted;
    while (!bytes.IsEmpty()) {
        const unsigned operation = bytes.Byte() % 16;
        const double number = bytes.Number();
        if (operation < 6) {
            curve.Add(number, bytes.Number());
            wanted.pairs.emplace_back(number, curve.lastY());
            wanted.checked = false;
        } else if (operation < 12) {
            Require(IsSame(curve.GetY(number, operation % 2), wanted.GetY(number, operation % 2)));
        } else if (operation == 12) {
            SetX(curve, wanted, bytes.Byte() % 32, number);
        } else if (operation == 13) {
            curve.changeXandY();
            for (auto& [x, y] : wanted.pairs) std::swap(x, y);
            wanted.checked = false;
        } else if (operation == 14) {
            curve.sort(number);
            wanted.Sort(number);
        } else {
            const CLinearInterpolation copy(curve);
            curve.reset();
            curve = copy;
            wanted.checked = false;
        }
    }
    CheckPairs(curve, wanted);
}

void RunSurface(ByteSource& bytes) {
    const int rows = static_cast<int>(bytes.Byte() % 8) + 1;
    const int columns = static_cast<int>(bytes.Byte() % 12) + 1;
    std::vector<double> cells(static_cast<std::size_t>(rows * columns));
    for (double& cell : cells) cell = bytes.Number();
    CLinearInterpolation2D view(rows, columns, cells.data());
    CLinearInterpolation2D own(view);
    while (!bytes.IsEmpty()) {
        const unsigned operation = bytes.Byte();
        const double x = bytes.Number();
        const double y = bytes.Number();
        if (operation % 4 == 0) {
            const int row = static_cast<int>(operation / 4 % 9) - 1;
            const int column = static_cast<int>(operation / 32) - 1;
            view.SetAt(row, column, x);
            own.SetAt(row, column, x);
            continue;
        }
        const double wanted =
            reference::GetZ(cells, static_cast<std::size_t>(columns) - 1, x, y, operation % 4 == 1);
        Require(IsSame(view.GetZ(x, y, operation % 4 == 1), wanted));
        Require(IsSame(own.GetZ(x, y, operation % 4 == 1), wanted));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteSource bytes(data, std::min<std::size_t>(size, 4096));
    if (bytes.Byte() % 2)
        RunCurve(bytes);
    else
        RunSurface(bytes);
    return 0;
}
