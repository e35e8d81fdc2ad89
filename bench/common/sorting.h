// The size of the sorting workload, and a hash by which results are compared.
#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

namespace bench {

// The largest graph: x and kMaxCurves curves of kMaxPoints. Repeated here, because the programs
// that measure other libraries do not see KurvGraph's headers; bench/ours checks them.
inline constexpr int kSortedColumns = 150;
inline constexpr int kSortedPoints = 32767;

// FNV-1a by whole values. Columns that are not in the same order practically never have the same
// hash.
inline std::uint64_t fingerprint(const double* values, std::size_t count) {
  std::uint64_t result = 14695981039346656037U;
  for (std::size_t i = 0; i < count; ++i) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, values + i, sizeof bits);
    result = (result ^ bits) * 1099511628211U;
  }
  return result;
}
inline std::uint64_t fingerprint(const std::vector<double>& values) {
  return fingerprint(values.data(), values.size());
}

}  // namespace bench
