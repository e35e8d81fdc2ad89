#include <KurvGraph/automation.h>
#include <gtest/gtest.h>

#include <set>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

TEST(Automation, PropertiesStandInInterfaceOrderWithTheirIdentifiers) {
  const auto table = properties();
  ASSERT_EQ(table.size(), 35U);
  EXPECT_EQ(table.front().name, "ymin");
  EXPECT_EQ(table.front().dispatch_id, 0x680300CDU);
  EXPECT_EQ(table.back().name, "SubTitle");
  EXPECT_EQ(table.back().dispatch_id, 0x680300A6U);
  std::set<std::uint32_t> ids;
  for (const Property& row : table) ids.insert(row.dispatch_id);
  EXPECT_EQ(ids.size(), table.size());
}

TEST(Automation, EveryPropertyReadsBackWhatWasSet) {
  test::TestHost host;
  for (const Property& row : properties()) {
    SCOPED_TRACE(std::string(row.name));
    Variant value;
    switch (row.type) {
      case ValueType::kInteger:
        value = Integer{17};
        break;
      case ValueType::kBoolean:
        value = Boolean::from_bits(5);
        break;
      case ValueType::kSingle:
        value = Single{8.25F};
        break;
      case ValueType::kDouble:
        value = -1.0 / 3;
        break;
      case ValueType::kString:
        value = String("Ω text");
        break;
    }
    row.let(host.control, value);
    EXPECT_TRUE(row.get(host.control) == value);
  }
  EXPECT_EQ(host.surface.log(), "") << "no property redraws";
}

TEST(Automation, NamesAreFoundInAnyLetterCase) {
  ASSERT_NE(find_property("right_MARGINE"), nullptr);
  EXPECT_EQ(find_property("right_MARGINE")->name, "Right_margine");
  EXPECT_EQ(find_property("Right_margin"), nullptr);
  EXPECT_EQ(find_property(""), nullptr);
}

TEST(Automation, TextIsConvertedToThePropertysType) {
  test::TestHost host;
  find_property("NumTicks")->let(host.control, String(" 7 "));
  EXPECT_EQ(host.control.NumTicks(), 7);
  find_property("X_grid")->let(host.control, String("true"));
  EXPECT_TRUE(host.control.X_grid().is_exactly_true());
  find_property("xmin")->let(host.control, String("-1.5e3"));
  EXPECT_EQ(host.control.xmin(), -1500);
}

TEST(Automation, WhatDoesNotConvertIsATypedErrorAndChangesNothing) {
  test::TestHost host;
  const auto kind_of = [&](std::string_view name, const Variant& value) {
    try {
      find_property(name)->let(host.control, value);
    } catch (const Fault& fault) {
      return fault.kind();
    }
    return FaultKind{};
  };
  EXPECT_EQ(kind_of("NumTicks", String("many")), FaultKind::kTypeMismatch);
  EXPECT_EQ(kind_of("NumTicks", 40000.0), FaultKind::kOverflow);
  EXPECT_EQ(host.control.NumTicks(), 10);
}

}  // namespace
}  // namespace kurv
