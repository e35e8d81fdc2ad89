#include "model/selection_order.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <numeric>
#include <span>

namespace kurv {

namespace {

// False where there is a NaN, whatever the order of the other values.
bool is_ascending(const Column<const Double>& values, int count) {
  if (count < 1) return true;
  const std::span<const Double> all(&values(1), &values(count) + 1);
  int steps = 1;
  for (std::size_t i = 1; i < all.size(); ++i) steps += all[i - 1] <= all[i] ? 1 : 0;
  return steps == count && !std::isnan(all.front());
}

// Places of the values that are not NaN, ascending.
std::vector<int> comparable_places(const Column<const Double>& values, int count) {
  std::vector<int> places;
  places.reserve(static_cast<std::size_t>(count));
  for (int i = 1; i <= count; ++i) {
    if (!std::isnan(values(i))) places.push_back(i);
  }
  return places;
}

struct Keyed {
  std::uint64_t key;
  int place;
};

// Keys compare as the values do. Zero is the same with either sign.
std::uint64_t key_of(Double value) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(value == 0 ? 0.0 : value);
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// A stable radix sort by key, byte by byte from the least significant one. It has no comparisons,
// whose branches would be mispredicted half of the time.
void sort_stably(std::vector<Keyed>& entries) {
  constexpr std::size_t kBytes = sizeof(std::uint64_t), kValues = 256;
  const auto byte_of = [](const Keyed& entry, std::size_t byte) {
    return static_cast<std::size_t>(entry.key >> (8 * byte)) % kValues;
  };
  std::array<std::array<std::uint32_t, kValues>, kBytes> counts{};
  for (const Keyed& entry : entries) {
    for (std::size_t byte = 0; byte < kBytes; ++byte) ++counts[byte][byte_of(entry, byte)];
  }
  std::vector<Keyed> moved(entries.size());
  for (std::size_t byte = 0; byte < kBytes; ++byte) {
    std::array<std::uint32_t, kValues>& next = counts[byte];
    if (next[byte_of(entries.front(), byte)] == entries.size()) continue;  // the same in all
    std::exclusive_scan(next.begin(), next.end(), next.begin(), std::uint32_t{0});
    for (const Keyed& entry : entries) moved[next[byte_of(entry, byte)]++] = entry;
    entries.swap(moved);
  }
}

// The places of each value, as one min-heap per distinct value, heaps in ascending order of value.
//
// At any time a heap holds the present places of its value. Taking the first smallest value pops
// the top of the first heap. The value that is exchanged with it is at the lowest place of all, so
// it is the top of its own heap, and moving it to the place that became free is a pop and a push
// there.
class PlacesByValue {
 public:
  PlacesByValue(const Column<const Double>& values, const std::vector<int>& places)
      : m_heap_of(static_cast<std::size_t>(values.upper()) + 1) {
    std::vector<Keyed> entries;
    entries.reserve(places.size());
    for (const int place : places) entries.push_back({key_of(values(place)), place});
    sort_stably(entries);
    m_places.reserve(entries.size());
    m_heaps.reserve(entries.size());
    for (const auto& [key, place] : entries) {
      const auto at = m_places.insert(m_places.end(), place);
      if (m_heaps.empty() || key != entries[m_places.size() - 2].key) m_heaps.push_back({at, at});
      ++m_heaps.back().end;  // ascending places already are a min-heap
      m_heap_of[static_cast<std::size_t>(place)] = m_heaps.size() - 1;
    }
  }

  // Removes and returns the first place of the smallest value that is left.
  int take_smallest() {
    while (m_heaps[m_first].begin == m_heaps[m_first].end) ++m_first;
    Heap& heap = m_heaps[m_first];
    std::pop_heap(heap.begin, heap.end, std::greater<>());
    return *--heap.end;
  }

  // The value at `from`, the lowest place of all that are left, moves to `to`.
  void move(int from, int to) {
    const std::size_t index = m_heap_of[static_cast<std::size_t>(from)];
    const Heap& heap = m_heaps[index];
    std::pop_heap(heap.begin, heap.end, std::greater<>());
    *(heap.end - 1) = to;
    std::push_heap(heap.begin, heap.end, std::greater<>());
    m_heap_of[static_cast<std::size_t>(to)] = index;
  }

 private:
  struct Heap {
    std::vector<int>::iterator begin;
    std::vector<int>::iterator end;
  };

  std::vector<int> m_places;
  std::vector<Heap> m_heaps;
  std::vector<std::size_t> m_heap_of;  // by place
  std::size_t m_first = 0;
};

}  // namespace

std::vector<Exchange> selection_sort_exchanges(const Column<const Double>& values, int count) {
  if (is_ascending(values, count)) return {};
  const std::vector<int> places = comparable_places(values, count);
  const auto less = [&](int a, int b) { return values(a) < values(b); };
  if (std::is_sorted(places.begin(), places.end(), less)) return {};

  std::vector<Exchange> exchanges;
  exchanges.reserve(places.size());
  PlacesByValue remaining(values, places);
  for (const int place : places) {
    const int taken = remaining.take_smallest();
    if (taken == place) continue;
    exchanges.push_back({place, taken});
    remaining.move(place, taken);
  }
  return exchanges;
}

}  // namespace kurv
