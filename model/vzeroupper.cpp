#include "model/vzeroupper.h"

namespace kurv {

// A build for wide registers clears them wherever it has used them, and where it uses them
// throughout there is no older instruction that could wait.
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__)) && !defined(__AVX__)

namespace {

__attribute__((target("avx"))) void clear() {
  __builtin_ia32_vzeroupper();
}

}  // namespace

void clear_upper_registers() {
  // Asked of the processor once, when the program starts; this only looks at the answer.
  if (__builtin_cpu_supports("avx")) clear();
}

#else

void clear_upper_registers() {}

#endif

}  // namespace kurv
