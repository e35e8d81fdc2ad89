#include "model/vzeroupper.h"

namespace kurv {

// A build for AVX needs no call: the compiler emits vzeroupper after its own AVX code, and there
// are no SSE instructions that could suffer the penalty.
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__)) && !defined(__AVX__)

namespace {

__attribute__((target("avx"))) void execute() {
  __builtin_ia32_vzeroupper();
}

}  // namespace

void issue_vzeroupper() {
  // Reads a flag that was filled in by one CPUID when the program started.
  if (__builtin_cpu_supports("avx")) execute();
}

#else

void issue_vzeroupper() {}

#endif

}  // namespace kurv
