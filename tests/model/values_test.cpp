#include <KurvGraph/fault.h>
#include <KurvGraph/values.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace kurv {
namespace {

constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
constexpr Single kSingleInf = std::numeric_limits<Single>::infinity();
constexpr Single kSingleMax = std::numeric_limits<Single>::max();

template <class Action>
std::optional<FaultKind> fault_of(Action action) {
  try {
    static_cast<void>(action());
  } catch (const Fault& fault) {
    return fault.kind();
  }
  return std::nullopt;
}

TEST(Boolean, TrueHasAllBitsSet) {
  EXPECT_EQ(Boolean(true).bits(), -1);
  EXPECT_EQ(Boolean(false).bits(), 0);
  EXPECT_EQ(Boolean().bits(), 0);
}

TEST(Boolean, NonZeroAndExactlyTrueAreDifferentQuestions) {
  const Boolean other = Boolean::from_bits(2);
  EXPECT_TRUE(static_cast<bool>(other));
  EXPECT_FALSE(other.is_exactly_true());
  EXPECT_TRUE(Boolean(true).is_exactly_true());
  EXPECT_NE(other, Boolean(true));
}

TEST(ToInteger, RoundsTiesToEven) {
  const struct {
    Double value;
    Integer rounded;
  } kTable[] = {
      {0, 0},
      {-0.0, 0},
      {0.5, 0},
      {1.5, 2},
      {2.5, 2},
      {-0.5, 0},
      {-1.5, -2},
      {-2.5, -2},
      {0.49999, 0},
      {0.50001, 1},
      {1234.4, 1234},
      {32767, 32767},
      {32767.4999, 32767},
      {-32768, -32768},
      {-32768.5, -32768},
      {5e-324, 0},
      {0.49999999999999994, 0},
  };
  for (const auto& row : kTable) EXPECT_EQ(to_integer(row.value), row.rounded) << row.value;
}

TEST(ToInteger, OverflowsWhereNoIntegerIsNearest) {
  for (const Double value : {32767.5, 32768.0, -32768.500001, -32769.0, 65536.0, 4294967296.0,
                             1.8e19, 1e300, -1e300, kInf, -kInf, kNaN}) {
    EXPECT_EQ(fault_of([&] { return to_integer(value); }), FaultKind::kOverflow) << value;
  }
}

TEST(Divide, OnlyAZeroDivisorIsRefused) {
  EXPECT_EQ(divide(1, 4), 0.25);
  EXPECT_EQ(divide(0, -3), 0);
  EXPECT_EQ(divide(1e300, 1e-300), kInf);
  EXPECT_TRUE(std::isnan(divide(1, kNaN)));
  for (const Double dividend : {1.0, 0.0, -1.0, kInf, kNaN}) {
    EXPECT_EQ(fault_of([&] { return divide(dividend, 0.0); }), FaultKind::kDivisionByZero);
    EXPECT_EQ(fault_of([&] { return divide(dividend, -0.0); }), FaultKind::kDivisionByZero);
  }
}

TEST(ToSingle, RoundsToTheNearestAndBeyondTheLargestToInfinity) {
  const struct {
    Double value;
    Single narrow;
  } kTable[] = {
      {0.1, 0.1F},
      {16777217, 16777216.0F},
      {kSingleMax, kSingleMax},
      {std::nextafter(0x1.ffffffp127, 0.0), kSingleMax},
      {0x1.ffffffp127, kSingleInf},
      {3.5e38, kSingleInf},
      {1e300, kSingleInf},
      {kInf, kSingleInf},
      {1e-300, 0.0F},
  };
  for (const auto& row : kTable) {
    EXPECT_EQ(to_single(row.value), row.narrow) << row.value;
    EXPECT_EQ(to_single(-row.value), -row.narrow) << -row.value;
  }
  EXPECT_TRUE(std::isnan(to_single(kNaN)));
}

TEST(Variant, EveryAlternativeIsANumber) {
  const struct {
    Variant value;
    Double number;
  } kTable[] = {
      {{}, 0},           {Boolean(true), -1}, {Boolean(false), 0}, {Boolean::from_bits(2), 2},
      {Integer{-7}, -7}, {0.5F, 0.5},         {2.25, 2.25},        {String(" -1e2 "), -100},
  };
  for (const auto& row : kTable) {
    SCOPED_TRACE(row.number);
    EXPECT_EQ(to_double(row.value), row.number);
    EXPECT_EQ(to_single(row.value), static_cast<Single>(row.number));
    EXPECT_EQ(to_integer(row.value), std::nearbyint(row.number));
  }
}

TEST(Variant, TextThatIsNoNumberIsATypeMismatch) {
  for (const char* text : {"", " ", "abc", "1,5", "True", "0x1"}) {
    SCOPED_TRACE(text);
    const Variant value = String(text);
    EXPECT_EQ(fault_of([&] { return to_integer(value); }), FaultKind::kTypeMismatch);
    EXPECT_EQ(fault_of([&] { return to_single(value); }), FaultKind::kTypeMismatch);
    EXPECT_EQ(fault_of([&] { return to_double(value); }), FaultKind::kTypeMismatch);
  }
  for (const char* text : {"", " ", "yes", "Tru", "Truee", "T rue"}) {
    SCOPED_TRACE(text);
    const Variant value = String(text);
    EXPECT_EQ(fault_of([&] { return to_boolean(value); }), FaultKind::kTypeMismatch);
  }
}

TEST(Variant, ANumberThatDoesNotFitOverflows) {
  for (const Variant& value :
       {Variant(32768.0), Variant(40000.0F), Variant(String("-40000")), Variant(kNaN)}) {
    EXPECT_EQ(fault_of([&] { return to_integer(value); }), FaultKind::kOverflow);
  }
  for (const Variant& value : {Variant(1e39), Variant(-1e300), Variant(String("1e39")),
                               Variant(kInf), Variant(-kSingleInf), Variant(String("-Inf"))}) {
    EXPECT_EQ(fault_of([&] { return to_single(value); }), FaultKind::kOverflow);
  }
}

TEST(Variant, NaNFitsIntoASingle) {
  EXPECT_TRUE(std::isnan(to_single(Variant(kNaN))));
}

TEST(Variant, EveryAlternativeIsAText) {
  const struct {
    Variant value;
    const char* text;
  } kTable[] = {
      {{}, ""},
      {Boolean(true), "True"},
      {Boolean(false), "False"},
      {Boolean::from_bits(2), "True"},
      {Integer{-32768}, "-32768"},
      {0.1F, "0.1"},
      {0.1, "0.1"},
      {1.5e20, "1.5E+20"},
      {-0.0, "0"},
      {kNaN, "NaN"},
      {String(" as it is "), " as it is "},
  };
  for (const auto& row : kTable) EXPECT_EQ(to_string(row.value), row.text);
}

TEST(Variant, EveryAlternativeIsABoolean) {
  const struct {
    Variant value;
    Boolean truth;
  } kTable[] = {
      {{}, false},
      {Boolean(true), true},
      {Integer{0}, false},
      {Integer{2}, true},
      {0.0F, false},
      {-0.0, false},
      {0.25, true},
      {5e-324, true},
      {kNaN, true},
      {kInf, true},
      {String("True"), true},
      {String(" tRUE\t"), true},
      {String("FALSE"), false},
      {String("0"), false},
      {String("-1"), true},
      {String("0.5"), true},
      {String("nan"), true},
  };
  for (const auto& row : kTable) {
    SCOPED_TRACE(to_string(row.value));
    EXPECT_EQ(to_boolean(row.value), row.truth);
  }
}

TEST(Variant, ABooleanKeepsItsBits) {
  EXPECT_EQ(to_boolean(Variant(Boolean::from_bits(2))).bits(), 2);
  EXPECT_EQ(to_boolean(Variant(Integer{2})).bits(), -1);
}

}  // namespace
}  // namespace kurv
