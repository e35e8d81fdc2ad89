#include "model/vzeroupper.h"

#include <gtest/gtest.h>

#if defined(__GNUC__) && defined(__x86_64__) && !defined(__AVX__)
#include <cpuid.h>
#endif

namespace kurv {
namespace {

#if defined(__GNUC__) && defined(__x86_64__) && !defined(__AVX__)

// Whether the processor can say which registers are in use, and has upper halves at all.
bool can_be_asked() {
  constexpr unsigned kExtendedStates = 0xD, kAsksInUse = 1U << 2U;
  unsigned a = 0, b = 0, c = 0, d = 0;
  return __builtin_cpu_supports("avx") && __get_cpuid_count(kExtendedStates, 1, &a, &b, &c, &d) &&
         (a & kAsksInUse) != 0;
}

bool upper_halves_in_use() {
  constexpr unsigned kUpperHalves = 1U << 2U;
  unsigned low = 0, high = 0;
  asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(1));
  return (low & kUpperHalves) != 0;
}

void use_upper_halves() {
  asm volatile("vcmptrueps %%ymm0, %%ymm0, %%ymm0" : : : "xmm0");
}

void clear_plainly() {
  asm volatile("vzeroupper");
}

TEST(VectorRegisters, TheUpperHalvesAreNotInUseAfterwards) {
  if (!can_be_asked()) GTEST_SKIP() << "this processor does not tell";
  use_upper_halves();
  const bool tells_of_use = upper_halves_in_use();
  clear_plainly();
  // A processor may always call them used.
  if (!tells_of_use || upper_halves_in_use()) GTEST_SKIP() << "this processor does not tell";

  use_upper_halves();
  clear_upper_registers();
  EXPECT_FALSE(upper_halves_in_use());
}

#endif

// On one without wide registers the instruction would end the program.
TEST(VectorRegisters, MayBeClearedOnEveryProcessor) {
  volatile double third = 1.0 / 3;
  const double before = third * 2;
  clear_upper_registers();
  EXPECT_EQ(before, third * 2);
}

}  // namespace
}  // namespace kurv
