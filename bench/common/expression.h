// The expression by which evaluators are measured.
#pragma once

namespace bench {

inline constexpr const char* kExpression = "x*(sin(x)+2)";
inline constexpr int kEvaluations = 1'000'000;

inline double argument(int i) {
  return i * 1e-5;
}

// Uses the value, so that the compiler cannot remove its computation.
inline void keep(double value) {
  [[maybe_unused]] static volatile double kept;
  kept = value;
}

}  // namespace bench
