// Mapping a column gives the same as mapping its values one by one, to the last bit.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "render/mapping.h"

namespace kurv {
namespace {

constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
constexpr Double kLargestSingle = std::numeric_limits<Single>::max();
constexpr PlotRect kPlot{.PlotTop = 480, .PlotLeft = 800, .PlotWidth = 11201, .PlotHeight = 8479};

GraphDocument document_of(Double xmin, Double xmax, Double ymin, Double ymax) {
  GraphDocument document;
  document.xmin = xmin;
  document.xmax = xmax;
  document.ymin = ymin;
  document.ymax = ymax;
  return document;
}

struct Mapped {
  explicit Mapped(std::size_t count) : at(count), inside(count) {}

  std::vector<Single> at;
  std::vector<std::uint8_t> inside;
};

// NaNs are equal here, whatever their bits.
bool are_same(Single a, Single b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

void expect_like_single_values(const Mapping& mapping, const std::vector<Double>& values) {
  Mapped x(values.size()), y(values.size());
  mapping.map_x(values, x.at, x.inside);
  mapping.map_y(values, y.at, y.inside);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Double value = values[i];
    ASSERT_TRUE(are_same(x.at[i], to_single(mapping.SurfX(value)))) << value;
    ASSERT_TRUE(are_same(y.at[i], to_single(mapping.SurfY(value)))) << value;
    const Double normal_x = mapping.NormX(value), normal_y = mapping.NormY(value);
    ASSERT_EQ(x.inside[i], 0 <= normal_x && normal_x <= 1 ? 1 : 0) << value;
    ASSERT_EQ(y.inside[i], 0 <= normal_y && normal_y <= 1 ? 1 : 0) << value;
    // Both together decide whether a point is inside.
    ASSERT_EQ((x.inside[i] & y.inside[i]) != 0, mapping.InPlot({value, value})) << value;
  }
}

void expect_inside_like_single_values(const Mapping& mapping, const std::vector<Double>& values) {
  std::vector<Double> x(values.size()), y(values.size());
  mapping.map_x_inside(values, x);
  mapping.map_y_inside(values, y);
  const auto are_same_inside = [](Double column, Double value, bool is_inside) {
    if (!is_inside) return std::isnan(column);
    return std::bit_cast<std::uint64_t>(column) == std::bit_cast<std::uint64_t>(value);
  };
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Double value = values[i];
    const Double normal_x = mapping.NormX(value), normal_y = mapping.NormY(value);
    ASSERT_TRUE(are_same_inside(x[i], mapping.SurfX(value), 0 <= normal_x && normal_x <= 1))
        << value;
    ASSERT_TRUE(are_same_inside(y[i], mapping.SurfY(value), 0 <= normal_y && normal_y <= 1))
        << value;
    ASSERT_EQ(!std::isnan(x[i]) && !std::isnan(y[i]), mapping.InPlot({value, value})) << value;
  }
}

std::vector<Double> any_bits(int count) {
  std::mt19937_64 generator(5);
  std::vector<Double> values;
  for (int i = 0; i < count; ++i) values.push_back(std::bit_cast<Double>(generator()));
  return values;
}

std::vector<Double> ordinary(int count) {
  std::mt19937 generator(6);
  std::uniform_real_distribution<Double> anywhere(-40, 60);
  std::vector<Double> values;
  for (int i = 0; i < count; ++i) values.push_back(anywhere(generator));
  return values;
}

const std::vector<Double> kSpecialValues = {
    0, -0.0, -10, 30, 2, 4, 1e300, kNaN, 1e-310, kInfinity, 5.5, -1e300, 1e306, -kInfinity};

TEST(MappingColumns, AreTheirValuesOneByOne) {
  for (const GraphDocument& document :
       {document_of(-10, 30, 2, 4), document_of(30, -10, 1e-300, 2e-300),
        document_of(-1e308, 1e308, -1e-5, 1e-5), document_of(kNaN, 3, 0, kInfinity)}) {
    const Mapping mapping(document, kPlot);
    expect_like_single_values(mapping, ordinary(4099));
    expect_like_single_values(mapping, any_bits(4099));
    expect_like_single_values(mapping, kSpecialValues);
    expect_inside_like_single_values(mapping, ordinary(4099));
    expect_inside_like_single_values(mapping, any_bits(4099));
    expect_inside_like_single_values(mapping, kSpecialValues);
  }
}

TEST(MappingColumns, AreTheirValuesWhereSinglesEnd) {
  // Values are mapped to themselves.
  const Mapping mapping(document_of(0, 1000, 0, 1000), {0, 0, 1000, 1000});
  std::vector<Double> values;
  for (const Double factor : {1.0, 1 + 1e-9, 1 + 2.9e-8, 1 + 3.1e-8, 1.0001, 1 - 1e-9, 0.9999}) {
    values.push_back(kLargestSingle * factor);
    values.push_back(-kLargestSingle * factor);
  }
  expect_like_single_values(mapping, values);
}

TEST(MappingColumns, SpecialValuesDoNotChangeTheOthers) {
  const Mapping mapping(document_of(-10, 30, 2, 4), kPlot);
  std::vector<Double> values = ordinary(100);
  Mapped before(100), after(100);
  mapping.map_x(values, before.at, before.inside);
  values[50] = kNaN;
  mapping.map_x(values, after.at, after.inside);
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i == 50) continue;
    EXPECT_TRUE(are_same(before.at[i], after.at[i]));
    EXPECT_EQ(before.inside[i], after.inside[i]);
  }
  EXPECT_TRUE(std::isnan(after.at[50]));
  EXPECT_EQ(after.inside[50], 0);
}

TEST(MappingColumns, RangeWithoutWidthIsTheFaultOfASingleValue) {
  const std::vector<Double> values = {3};
  Mapped mapped(1);
  const Mapping level(document_of(0, 1, 3, 3), kPlot);
  EXPECT_NO_THROW(level.map_x(values, mapped.at, mapped.inside));
  try {
    level.map_y(values, mapped.at, mapped.inside);
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind(), FaultKind::kDivisionByZero);
  }
  const Mapping upright(document_of(3, 3, 0, 1), kPlot);
  EXPECT_NO_THROW(upright.map_y(values, mapped.at, mapped.inside));
  EXPECT_THROW(upright.map_x(values, mapped.at, mapped.inside), Fault);
  std::vector<Double> inside(1);
  EXPECT_NO_THROW(level.map_x_inside(values, inside));
  EXPECT_THROW(level.map_y_inside(values, inside), Fault);
  EXPECT_NO_THROW(upright.map_y_inside(values, inside));
  EXPECT_THROW(upright.map_x_inside(values, inside), Fault);
}

}  // namespace
}  // namespace kurv
