#include "core/selection_order.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace kurv {

namespace {

// Places of the values that are not NaN, ascending.
std::vector<int> comparable_places(const Column<const Double>& values, int count) {
  std::vector<int> places;
  places.reserve(static_cast<std::size_t>(count));
  for (int i = 1; i <= count; ++i) {
    if (!std::isnan(values(i))) places.push_back(i);
  }
  return places;
}

// The places of each value, as one min-heap per distinct value, heaps in ascending order of value.
//
// At any time a heap holds the places where its value stands now. Taking the first smallest value
// is popping the top of the first heap. The value that has to make room stands at the foremost
// place of all, so it is the top of its own heap, and giving it the place that became free is a pop
// and a push there.
class PlacesByValue {
 public:
  PlacesByValue(const Column<const Double>& values, const std::vector<int>& places)
      : m_places(places), m_heap_of(static_cast<std::size_t>(values.upper()) + 1) {
    std::stable_sort(m_places.begin(), m_places.end(),
                     [&](int a, int b) { return values(a) < values(b); });
    for (std::size_t k = 0; k < m_places.size(); ++k) {
      const int place = m_places[k];
      if (k == 0 || values(m_places[k - 1]) < values(place)) {
        m_heaps.push_back({m_places.begin() + static_cast<std::ptrdiff_t>(k),
                           m_places.begin() + static_cast<std::ptrdiff_t>(k)});
      }
      ++m_heaps.back().end;  // ascending places are a min-heap as they stand
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

  // The value at `from`, the foremost place of all that are left, moves to `to`.
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
  const std::vector<int> places = comparable_places(values, count);
  const auto less = [&](int a, int b) { return values(a) < values(b); };
  if (std::is_sorted(places.begin(), places.end(), less)) return {};

  std::vector<Exchange> exchanges;
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
