// What property_list.h states of each property: its initial value and its range.
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

const Font kSurfaceFont{"Some Face", 11.5F, true, true};

// A control as a host makes and shows it.
struct NewControl {
  NewControl() {
    surface.set_font(kSurfaceFont);
    control.emplace(container, shell, surface);
    control->first_placement();
    control->show();
  }

  test::PlainContainer container;
  test::ScriptedShell shell;
  RecordingSurface surface{12000, 9000};
  std::optional<Control> control;
};

// The stated value of a property that is not random, as text.
String stated(const Member& property) {
  const std::string_view text = property.initially;
  if (text == "empty") return {};
  if (text.starts_with('`')) return String(text.substr(1, text.size() - 2));
  if (text == "the surface's + 3") return number_to_text(kSurfaceFont.FontSize + 3);
  if (text != "the surface's") return String(text);
  if (property.type == ValueType::kSingle) return number_to_text(kSurfaceFont.FontSize);
  if (property.type == ValueType::kString) return kSurfaceFont.FontName;
  return property.name.ends_with("Bold") ? boolean_to_text(kSurfaceFont.FontBold)
                                         : boolean_to_text(kSurfaceFont.FontItalic);
}

TEST(PropertyTable, ANewControlHasTheStatedValues) {
  const NewControl host;
  for (const Member& property : properties()) {
    ASSERT_FALSE(property.initially.empty()) << property.name;
    if (property.initially == "random") continue;
    EXPECT_EQ(to_string(property.get(*host.control)), stated(property)) << property.name;
  }
}

TEST(PropertyTable, OnlyTheLimitsOfYAreRandom) {
  const NewControl host;
  for (const Member& property : properties()) {
    const bool is_y_limit = property.name == "ymin" || property.name == "ymax";
    EXPECT_EQ(property.initially == "random", is_y_limit) << property.name;
  }
  EXPECT_LE(host.control->ymin(), host.control->ymax());
}

TEST(PropertyTable, DataSetWhatTheTableSaysThatTheySet) {
  NewControl host;
  Control& control = *host.control;
  control.set_NumTicks(0);
  std::vector<String> before;
  for (const Member& property : properties()) before.push_back(to_string(property.get(control)));
  control.scatter_graph(test::columns({{3e7, 9e7}}), test::points({1e-6, 4e-6}), 2, 1, "T", "x",
                        test::names({"y"}), 0, {});
  std::vector<std::string_view> changed;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const Member& property = properties()[i];
    if (to_string(property.get(control)) != before[i]) changed.push_back(property.name);
  }
  EXPECT_EQ(changed, (std::vector<std::string_view>{"ymin", "ymax", "xmax", "xmin", "NumTicks",
                                                    "Connected", "DrawMarkers", "AxisLabelFormatX",
                                                    "AxisLabelFormatY", "Title"}));
}

FaultKind fault_of_setting(Control& control, const Member& property, const Variant& value) {
  try {
    property.set(control, value);
  } catch (const Fault& fault) {
    return fault.kind();
  }
  return FaultKind{};
}

TEST(PropertyTable, EndsOfARangeAreTaken) {
  NewControl host;
  for (const Member& property : properties()) {
    if (property.range.lowest == property.range.highest) continue;
    for (const Double end : {property.range.lowest, property.range.highest}) {
      property.set(*host.control, end);
      EXPECT_EQ(to_double(property.get(*host.control)), end) << property.name;
    }
  }
}

TEST(PropertyTable, IntegersOutsideARangeAreIgnoredOrOverflow) {
  NewControl host;
  for (const Member& property : properties()) {
    if (property.type != ValueType::kInteger) continue;
    const auto [lowest, highest] = property.range;
    const bool is_type_itself = highest == std::numeric_limits<Integer>::max();
    for (const Double outside : {lowest - 1, highest + 1}) {
      property.set(*host.control, 7.0);
      EXPECT_EQ(fault_of_setting(*host.control, property, outside),
                is_type_itself ? FaultKind::kOverflow : FaultKind{})
          << property.name;
      EXPECT_EQ(to_double(property.get(*host.control)), 7) << property.name;
    }
  }
}

TEST(PropertyTable, ASingleIsFiniteOrNaNAndADoubleIsAnyNumber) {
  constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
  constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
  NewControl host;
  for (const Member& property : properties()) {
    const bool is_single = property.type == ValueType::kSingle;
    if (!is_single && property.type != ValueType::kDouble) continue;
    EXPECT_EQ(fault_of_setting(*host.control, property, kInfinity),
              is_single ? FaultKind::kOverflow : FaultKind{})
        << property.name;
    property.set(*host.control, kNaN);
    EXPECT_TRUE(std::isnan(to_double(property.get(*host.control)))) << property.name;
  }
}

// Late-bound and by their own setters; the pipe and the command line refuse them.
TEST(PropertyTable, SizesOfFontsThatCannotBeDrawnOrSavedAreStored) {
  NewControl host;
  Control& control = *host.control;
  for (const Single size : {0.0F, -1.0F, 40000.0F}) {
    for (const char* name : {"FontSize", "TitleFontSize", "SubTitleFontSize"}) {
      set_property(control, name, Double(size));
      EXPECT_EQ(to_single(get_property(control, name)), size) << name;
    }
    control.set_FontSize(size);
    EXPECT_EQ(control.FontSize(), size);
  }
  control.set_FontSize(std::numeric_limits<Single>::quiet_NaN());
  EXPECT_TRUE(std::isnan(control.FontSize()));
}

TEST(PropertyTable, AMarkerSizeIsIgnoredOutsideItsRangeAndOverflowsBeyondSixteenBits) {
  NewControl host;
  const Member& property = *find_property("MarkerSize");
  for (const Double ignored : {-32768.0, 0.0, 1.0, 501.0, 32767.0}) {
    EXPECT_EQ(fault_of_setting(*host.control, property, ignored), FaultKind{}) << ignored;
  }
  for (const Double beyond : {-40000.0, 32768.0, 40000.0}) {
    EXPECT_EQ(fault_of_setting(*host.control, property, beyond), FaultKind::kOverflow) << beyond;
  }
  EXPECT_EQ(host.control->MarkerSize(), 40);
}

TEST(PropertyTable, TextsAndFlagsTakeAnyValue) {
  NewControl host;
  for (const Member& property : properties()) {
    std::vector<Variant> values;
    if (property.type == ValueType::kString) values = {String(), String("\r\n,\"Ω\0", 7)};
    if (property.type == ValueType::kBoolean) values = {Boolean(true), Boolean(false)};
    for (const Variant& value : values) {
      property.set(*host.control, value);
      EXPECT_TRUE(property.get(*host.control) == value) << property.name;
    }
  }
}

TEST(PropertyTable, OnlyNumbersHaveAUnitAndARange) {
  for (const Member& property : properties()) {
    const bool is_number =
        property.type != ValueType::kString && property.type != ValueType::kBoolean;
    EXPECT_EQ(property.range.lowest < property.range.highest, is_number) << property.name;
    EXPECT_TRUE(is_number || property.unit.empty()) << property.name;
  }
}

TEST(PropertyTable, NoTicksAndEqualLimitsFailInARedrawAlone) {
  const auto fault_of_redraw = [](const char* name, Double value) {
    test::TestHost host;
    host.load({0, 10}, {0, 10});
    set_property(host.control, name, value);
    return test::fault_of([&] { host.control.build_the_graph(); });
  };
  const int division = Fault(FaultKind::kDivisionByZero).number();
  EXPECT_EQ(fault_of_redraw("NumTicks", 0), division);
  EXPECT_EQ(fault_of_redraw("xmin", 10), division);
  EXPECT_EQ(fault_of_redraw("ymax", 0), division);
}

}  // namespace
}  // namespace kurv
