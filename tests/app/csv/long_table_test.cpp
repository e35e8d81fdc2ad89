// Tables with more rows than a graph can hold.
#include <KurvGraph/limits.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "app/csv/csv_reader.h"
#include "app/csv/table_data.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kRows = 50'000;

std::vector<int> rows_in_order() {
  std::vector<int> rows(kRows);
  std::iota(rows.begin(), rows.end(), 0);
  return rows;
}

// The library need not shuffle in the same way everywhere.
std::vector<int> shuffled_rows() {
  std::vector<int> rows = rows_in_order();
  std::mt19937 bits(1);
  for (std::size_t i = rows.size() - 1; i > 0; --i) std::swap(rows[i], rows[bits() % (i + 1)]);
  return rows;
}

// A sine with 20 spikes, each beyond its neighbours but not beyond the curve.
double value_of(int row) {
  return std::sin(row * 1e-3) + (row % 2500 == 1200 ? 0.4 : 0);
}

std::string text_of(const std::vector<int>& rows) {
  std::string text = "x,y\n";
  for (const int row : rows) {
    text += std::to_string(row) + ',' + std::to_string(value_of(row)) + '\n';
  }
  return text;
}

TableData sorted_data_of(const std::string& text) {
  Selection selection;
  selection.sort = true;
  return make_table_data(parse_csv(text, "data.csv"), selection, "data.csv");
}

int count_spikes(const TableData& data) {
  int spikes = 0;
  for (int i = 1; i <= data.values.upper_point(); ++i) {
    spikes += std::fmod(data.values(1, i), 2500) == 1200;
  }
  return spikes;
}

TEST(LongTable, IsThinnedOutInTheOrderOfXWhereItIsSorted) {
  const TableData shuffled = sorted_data_of(text_of(shuffled_rows()));
  const TableData ordered = sorted_data_of(text_of(rows_in_order()));
  EXPECT_EQ(count_spikes(shuffled), 20);
  EXPECT_TRUE(shuffled.values == ordered.values);
  EXPECT_EQ(shuffled.warnings, ordered.warnings);
  EXPECT_THAT(shuffled.warnings, ElementsAre(HasSubstr("rows that keep the peaks of all curves")));
}

TEST(LongTable, ThatIsSortedLeavesOutRowsWithoutX) {
  std::string text = text_of(shuffled_rows());
  for (int i = 0; i < 100; ++i) text += ",5\n1,\n";
  const TableData data = sorted_data_of(text);
  EXPECT_EQ(data.values.upper_point(), kMaxPoints);
  EXPECT_EQ(count_spikes(data), 20);
  for (int i = 1; i <= data.values.upper_point(); ++i) {
    ASSERT_FALSE(std::isnan(data.values(1, i))) << i;
    ASSERT_LE(data.values(1, std::max(1, i - 1)), data.values(1, i)) << i;
  }
}

TEST(LongTable, ThatIsNotSortedKeepsTheOrderOfItsRows) {
  const std::vector<int> rows = shuffled_rows();
  const TableData data = make_table_data(parse_csv(text_of(rows), "data.csv"), {}, "data.csv");
  std::size_t at = 0;
  for (int i = 1; i <= data.values.upper_point(); ++i) {
    while (at < rows.size() && rows[at] != data.values(1, i)) ++at;
  }
  EXPECT_LT(at, rows.size());
  EXPECT_TRUE(has_unsorted_x(data));
}

// Markers have no lines between them that would fill a hole.
TEST(LongTable, HasAPointInEachPixelColumnWhereAllRowsHave) {
  for (const auto& curve : {+[](int) { return 1.0; }, +[](int row) { return std::sin(row * 1e-3); },
                            +[](int row) { return row % 2500 == 1200 ? 1.0 : 0; }}) {
    std::string text = "x,y\n";
    for (int row = 0; row < 3 * kRows; ++row) {
      text += std::to_string(row) + ',' + std::to_string(curve(row)) + '\n';
    }
    const TableData data = make_table_data(parse_csv(text, "data.csv"), {}, "data.csv");
    double widest = 0;
    for (int i = 2; i <= data.values.upper_point(); ++i) {
      widest = std::max(widest, data.values(1, i) - data.values(1, i - 1));
    }
    EXPECT_LE(widest, 3.0 * kRows / 2048);
  }
}

}  // namespace
}  // namespace kurv::app
