/// @file
/// Arrays that carry their own bounds and check every index.
///
/// Columns, points, curves and slots count from 1 in this system, so an array has a lower bound,
/// and no caller subtracts 1 from an index. An index outside the bounds throws
/// kSubscriptOutOfRange. A bound that would give fewer than zero elements throws the same; zero
/// elements are allowed.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include <KurvGraph/fault.h>

namespace kurv {

/// @cond
namespace detail {

inline std::size_t extent(int lower, int upper) {
  const long long count = static_cast<long long>(upper) - lower + 1;
  if (count < 0) throw Fault(FaultKind::kSubscriptOutOfRange);
  return static_cast<std::size_t>(count);
}

inline std::size_t offset(int index, int lower, int upper) {
  if (index < lower || index > upper) throw Fault(FaultKind::kSubscriptOutOfRange);
  return static_cast<std::size_t>(static_cast<long long>(index) - lower);
}

// An integer of which every value fits an int. A list in braces is none.
template <class T>
concept Bound = std::integral<T> && requires(T value) {
  int{value};
};

}  // namespace detail
/// @endcond

/// A one-dimensional array lower..upper; 0..-1, that is empty, by default.
template <class T>
class List {
 public:
  /// An empty array, 0..-1.
  List() = default;
  /// An array lower..upper of value-initialised elements.
  template <detail::Bound Upper>
  List(int lower, Upper upper) : m_elements(detail::extent(lower, upper)), m_lower(lower) {}
  /// An array of these elements, counted from `lower`. Elements in braces too: {1, {5}} has one
  /// element, while {1, 5} has five.
  List(int lower, std::vector<T> elements) : m_elements(std::move(elements)), m_lower(lower) {}

  /// The index of the first element.
  int lower() const { return m_lower; }
  /// The index of the last element; lower() - 1 where there is none.
  int upper() const { return m_lower + static_cast<int>(m_elements.size()) - 1; }

  /// The element with that index. Throws kSubscriptOutOfRange outside of the bounds.
  T& operator()(int index) { return m_elements[detail::offset(index, m_lower, upper())]; }
  /// The element with that index. Throws kSubscriptOutOfRange outside of the bounds.
  const T& operator()(int index) const {
    return m_elements[detail::offset(index, m_lower, upper())];
  }

  /// Moves the upper bound; elements that fit keep their values, new ones are value-initialised.
  void resize_keeping(int upper) { m_elements.resize(detail::extent(m_lower, upper)); }

  /// Whether both have the same bounds and equal elements.
  friend bool operator==(const List&, const List&) = default;

 private:
  std::vector<T> m_elements;
  int m_lower = 0;
};

/// One column of a Matrix: a view that is checked like an array and valid as long as the matrix is
/// neither assigned nor copied nor destroyed.
template <class T>
class Column {
 public:
  /// A view of the elements from `first` on, with the indices lower..upper.
  Column(T* first, int lower, int upper) : m_first(first), m_lower(lower), m_upper(upper) {}

  /// The index of the first point.
  int lower() const { return m_lower; }
  /// The index of the last point.
  int upper() const { return m_upper; }
  /// The value of that point. Throws kSubscriptOutOfRange outside of the bounds.
  T& operator()(int index) const { return m_first[detail::offset(index, m_lower, m_upper)]; }
  /// The same column as one that cannot be written to.
  operator Column<const T>() const { return {m_first, m_lower, m_upper}; }

 private:
  T* m_first;
  int m_lower;
  int m_upper;
};

/// A two-dimensional array, element (column, point). A column is contiguous in memory, and is
/// allocated at its first access: a matrix of 151 columns takes the memory of its used columns.
/// Copies share each column until one of them accesses it as a mutable one (copy on write).
template <class T>
class Matrix {
 public:
  /// A matrix without columns and points.
  Matrix() = default;
  /// A matrix of value-initialised elements with these bounds.
  Matrix(int lower_column, int upper_column, int lower_point, int upper_point)
      : m_columns(detail::extent(lower_column, upper_column)),
        m_lower_column(lower_column),
        m_lower_point(lower_point),
        m_length(detail::extent(lower_point, upper_point)) {}

  /// The index of the first column.
  int lower_column() const { return m_lower_column; }
  /// The index of the last column; lower_column() - 1 where there is none.
  int upper_column() const { return m_lower_column + static_cast<int>(m_columns.size()) - 1; }
  /// The index of the first point of each column.
  int lower_point() const { return m_lower_point; }
  /// The index of the last point; lower_point() - 1 where there is none.
  int upper_point() const { return m_lower_point + static_cast<int>(m_length) - 1; }

  /// The element at that column and point. Throws kSubscriptOutOfRange outside of the bounds.
  T& operator()(int column, int point) { return this->column(column)(point); }
  /// The element at that column and point. Throws kSubscriptOutOfRange outside of the bounds.
  const T& operator()(int column, int point) const { return this->column(column)(point); }

  /// A column that can be written to. A loop over points takes it once, because each call checks
  /// for sharing.
  Column<T> column(int index) {
    std::shared_ptr<Values>& values = allocated(index);
    if (values.use_count() > 1) values = std::make_shared<Values>(*values);
    return {values->data(), m_lower_point, upper_point()};
  }
  /// A column to read from.
  Column<const T> column(int index) const {
    return {allocated(index)->data(), m_lower_point, upper_point()};
  }

  /// Copies points 1 and later of a column of another matrix. The two share no memory, so a view of
  /// the other one, whenever it was taken, never reaches this one.
  void copy_column(int index, const Matrix& source, int from) {
    const Column<const T> values = source.column(from);
    const Column<T> own = column(index);
    for (int i = std::max(1, lower_point()); i <= upper_point(); ++i) own(i) = values(i);
  }

  /// Shares a column with another matrix whose points have the same bounds, as copies do: nothing
  /// is copied until one of the two accesses it as a mutable one. Views of the other one that were
  /// taken before may no longer be written through.
  void share_column(int index, const Matrix& source, int from) {
    if (source.m_lower_point != m_lower_point || source.m_length != m_length) {
      throw Fault(FaultKind::kSubscriptOutOfRange);
    }
    const std::shared_ptr<Values>& values = source.allocated(from);
    m_columns[detail::offset(index, m_lower_column, upper_column())] = values;
  }

  /// Moves these values, one for each point, into the column.
  void set_column(int index, std::vector<T> values) {
    if (values.size() != m_length) throw Fault(FaultKind::kSubscriptOutOfRange);
    m_columns[detail::offset(index, m_lower_column, upper_column())] =
        std::make_shared<Values>(std::move(values));
  }

  /// Whether both have the same bounds and equal elements.
  friend bool operator==(const Matrix& left, const Matrix& right) {
    if (left.m_lower_column != right.m_lower_column || left.m_length != right.m_length ||
        left.m_lower_point != right.m_lower_point ||
        left.m_columns.size() != right.m_columns.size()) {
      return false;
    }
    for (int index = left.lower_column(); index <= left.upper_column(); ++index) {
      const std::shared_ptr<Values>& mine = left.allocated(index);
      const std::shared_ptr<Values>& others = right.allocated(index);
      if (mine != others && *mine != *others) return false;
    }
    return true;
  }

 private:
  using Values = std::vector<T>;

  std::shared_ptr<Values>& allocated(int index) const {
    std::shared_ptr<Values>& values =
        m_columns[detail::offset(index, m_lower_column, upper_column())];
    if (!values) values = std::make_shared<Values>(m_length);
    return values;
  }

  mutable std::vector<std::shared_ptr<Values>> m_columns;  // null until the first access
  int m_lower_column = 0;
  int m_lower_point = 0;
  std::size_t m_length = 0;
};

}  // namespace kurv
