#ifndef NEXO_GEOM_LANES_H
#define NEXO_GEOM_LANES_H

// Private to the library.
// Several doubles computed side by side; every lane is rounded like the scalar operation, so results do not
// depend on the processor. NEXO_GEOM_PLAIN selects what other processors
// than x86-64 get; the tests run both.

#if defined(__x86_64__) && !defined(NEXO_GEOM_PLAIN)
#define NEXO_GEOM_X86 1
#include <immintrin.h>
#endif

namespace nexo {

/// Two doubles, in one register on every processor that has such.
using Two = double __attribute__((vector_size(16)));
using TwoBits = long long __attribute__((vector_size(16)));

/// Four doubles, and the answers of their comparisons (0 or all bits), for functions marked NEXO_GEOM_AVX2.
using Four = double __attribute__((vector_size(32)));
using FourBits = long long __attribute__((vector_size(32)));

inline Two Magnitude(Two v) {
    return reinterpret_cast<Two>(reinterpret_cast<TwoBits>(v) & 0x7fffffffffffffff);
}

// Below: NEXO_GEOM_AVX2 marks functions to call only when NEXO_GEOM_HAS_AVX2 is true, NEXO_GEOM_SPREAD puts a
// number in memory into all lanes of a Four there, NEXO_GEOM_LOAD reads four doubles from any address. Less
// compares two lanes (all bits where true), And joins such answers and AnswerBits gives them as bits 0 and 1:
// compilers take a detour for a conjunction that is not written in the processor's own terms.
#if defined(NEXO_GEOM_X86)

#define NEXO_GEOM_AVX2 __attribute__((target("avx2")))
#define NEXO_GEOM_HAS_AVX2 __builtin_cpu_supports("avx2")
#define NEXO_GEOM_SPREAD(number) nexo::Four(_mm256_broadcast_sd(&(number)))
#define NEXO_GEOM_LOAD(numbers) nexo::Four(_mm256_loadu_pd(numbers))

inline Two Less(Two a, Two b) {
    return _mm_cmplt_pd(a, b);
}
inline Two And(Two a, Two b) {
    return _mm_and_pd(a, b);
}
inline unsigned AnswerBits(Two answers) {
    return static_cast<unsigned>(_mm_movemask_pd(answers));
}

#else

#define NEXO_GEOM_AVX2
#define NEXO_GEOM_HAS_AVX2 false
// clang-format off
#define NEXO_GEOM_SPREAD(number) nexo::Four{number, number, number, number}
#define NEXO_GEOM_LOAD(numbers) nexo::Four{(numbers)[0], (numbers)[1], (numbers)[2], (numbers)[3]}
// clang-format on

inline Two Less(Two a, Two b) {
    return reinterpret_cast<Two>(a < b);
}
inline Two And(Two a, Two b) {
    return reinterpret_cast<Two>(reinterpret_cast<TwoBits>(a) & reinterpret_cast<TwoBits>(b));
}
inline unsigned AnswerBits(Two answers) {
    const TwoBits bits = reinterpret_cast<TwoBits>(answers);
    return static_cast<unsigned>((bits[0] & 1) | (bits[1] & 2));
}

#endif

}  // namespace nexo

#endif
