#include "nexo/geom/Random.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace {

class UniformInt {
public:
    UniformInt(int min, int max) : m_distribution(std::min(min, max), std::max(min, max)) {}

    template <class Engine>
    int operator()(Engine& engine) {
        return m_distribution(engine);
    }

private:
    std::uniform_int_distribution<int> m_distribution;
};

// Unlike std::uniform_real_distribution right for ranges wider than the largest double, too, and never at the
// upper bound, which rounding could reach.
class UniformReal {
public:
    UniformReal(double min, double max) : m_min(std::min(min, max)), m_max(std::max(min, max)) {}

    template <class Engine>
    double operator()(Engine& engine) {
        const double share = m_unit(engine);
        const double value = m_min * (1.0 - share) + m_max * share;
        return value < m_max ? std::max(value, m_min) : std::nextafter(m_max, m_min);
    }

private:
    double m_min;
    double m_max;
    std::uniform_real_distribution<double> m_unit{0.0, 1.0};
};

template <class T, class Uniform>
void Fill(T* out, int count, Uniform uniform, moxRandom::enRandom source) {
    std::random_device device;
    if (source == moxRandom::eMersenneTwister) {
        std::mt19937 engine(device());
        std::generate_n(out, count, [&] { return uniform(engine); });
    } else {
        std::generate_n(out, count, [&] { return uniform(device); });
    }
}

template <class T, class Uniform>
void FillPlain(T*& out, int count, const Uniform& uniform, moxRandom::enRandom source) {
    if (count <= 0) return;
    if (!out) out = new T[static_cast<std::size_t>(count)];
    Fill(out, count, uniform, source);
}

template <class T, class Uniform>
void FillArray(CArray<T>& out, int count, const Uniform& uniform, moxRandom::enRandom source) {
    out.SetSize(std::max(count, 0));
    Fill(out.GetData(), count, uniform, source);
}

}  // namespace

int moxRandom::generateRndNumber(int min, int max, enRandom source) {
    int number = 0;
    Fill(&number, 1, UniformInt(min, max), source);
    return number;
}

double moxRandom::generateRndNumber(double min, double max, enRandom source) {
    double number = 0.0;
    Fill(&number, 1, UniformReal(min, max), source);
    return number;
}

void moxRandom::generateRndNumbers(int*& out, int count, int min, int max, enRandom source) {
    FillPlain(out, count, UniformInt(min, max), source);
}

void moxRandom::generateRndNumbers(double*& out, int count, double min, double max, enRandom source) {
    FillPlain(out, count, UniformReal(min, max), source);
}

void moxRandom::generateRndNumbers(CArray<int>& out, int count, int min, int max, enRandom source) {
    FillArray(out, count, UniformInt(min, max), source);
}

void moxRandom::generateRndNumbers(CArray<double>& out, int count, double min, double max, enRandom source) {
    FillArray(out, count, UniformReal(min, max), source);
}
