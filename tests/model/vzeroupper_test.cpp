#include "model/vzeroupper.h"

#include <gtest/gtest.h>

#if defined(__GNUC__) && defined(__x86_64__) && !defined(__AVX__)
#include <cpuid.h>
#endif

namespace kurv {
namespace {

#if defined(__GNUC__) && defined(__x86_64__) && !defined(__AVX__)

// Whether the processor has AVX and can report which registers are in use (XGETBV with ECX = 1).
bool can_report_use() {
  constexpr unsigned kExtendedStates = 0xD, kReportsUse = 1U << 2U;
  unsigned a = 0, b = 0, c = 0, d = 0;
  return __builtin_cpu_supports("avx") && __get_cpuid_count(kExtendedStates, 1, &a, &b, &c, &d) &&
         (a & kReportsUse) != 0;
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

void execute_vzeroupper() {
  asm volatile("vzeroupper");
}

TEST(Vzeroupper, LeavesTheUpperHalvesUnused) {
  if (!can_report_use()) GTEST_SKIP() << "this processor does not report it";
  use_upper_halves();
  const bool is_reported = upper_halves_in_use();
  execute_vzeroupper();
  // A processor may always report them as used.
  if (!is_reported || upper_halves_in_use()) GTEST_SKIP() << "this processor does not report it";

  use_upper_halves();
  issue_vzeroupper();
  EXPECT_FALSE(upper_halves_in_use());
}

#endif

// On a processor without AVX the instruction itself would be an illegal one.
TEST(Vzeroupper, MayBeCalledOnEveryProcessor) {
  volatile double third = 1.0 / 3;
  const double before = third * 2;
  issue_vzeroupper();
  EXPECT_EQ(before, third * 2);
}

}  // namespace
}  // namespace kurv
