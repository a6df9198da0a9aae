#ifndef NEXO_TEXT_BASE64AVX2_H
#define NEXO_TEXT_BASE64AVX2_H

#include "nexo/text/Base64Kernels.h"

namespace nexo {

/// The inner loops for processors with AVX2; null elsewhere.
const Base64Kernel* Base64Avx2();

}  // namespace nexo

#endif
