// docs/automation.md and the tables of properties in the headers of the control and the widget are
// made from the member table: UPDATE_GOLDENS=1 writes them anew.
#include <KurvGraph/automation.h>
#include <KurvGraph/number_text.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>

#include "tests/support/golden.h"

namespace kurv {
namespace {

std::string identifier(std::uint32_t id) {
  std::string digits = "0x";
  for (int shift = 28; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[(id >> shift) & 15];
  return digits;
}

std::string code(std::string_view text) {
  return '`' + std::string(text) + '`';
}

std::string parameter_list(std::span<const Parameter> parameters) {
  std::string list;
  for (const Parameter& parameter : parameters) {
    if (!list.empty()) list += ", ";
    if (parameter.optional) list += "optional ";
    list += code(parameter.name) + ' ' + std::string(type_name(parameter.type));
  }
  return list.empty() ? "none" : list;
}

std::string text_of(const ValueRange& range) {
  return number_to_text(range.lowest) + ".." + number_to_text(range.highest);
}

// What the setter takes.
std::string range_text(const Member& property) {
  switch (property.type) {
    case ValueType::kInteger:
      return text_of(property.range);
    case ValueType::kSingle:
      return "finite, NaN";
    case ValueType::kBoolean:
      return "True, False";
    default:
      return "any";
  }
}

// "Radius of the circular markers, twips; 2..500". An Integer that takes them all has no range.
std::string meaning(const Member& property) {
  std::string text(property.summary.substr(0, property.summary.size() - 1));
  if (!property.unit.empty()) text += ", " + std::string(property.unit);
  const bool takes_all = property.range.highest == std::numeric_limits<Integer>::max();
  if (property.type == ValueType::kInteger && !takes_all) text += "; " + text_of(property.range);
  return text;
}

std::string padded(std::string_view text, std::size_t width) {
  std::string result(text);
  result.resize(std::max(width, result.size() + 1), ' ');
  return result;
}

std::string table_row(std::string_view name, std::string_view type, std::string_view initially,
                      std::string_view meaning) {
  return "//   " + padded(name, 20) + padded(type, 9) + padded(initially, 19) +
         std::string(meaning) + '\n';
}

std::string_view toolkit_type_name(ValueType type) {
  if (type == ValueType::kInteger) return "int";
  if (type == ValueType::kBoolean) return "bool";
  if (type == ValueType::kString) return "QString";
  return "double";
}

std::string header_table(std::string_view (*name_of_type)(ValueType), const char* indent) {
  std::string table = indent + table_row("Property", "Type", "Initially", "Meaning");
  for (const Member& property : properties()) {
    table += indent + table_row(property.name, name_of_type(property.type), property.initially,
                                meaning(property));
  }
  return table;
}

// Compares the table of properties that a header holds.
void expect_table(const std::string& path, const std::string& table) {
  std::ifstream file(KURV_SOURCE_DIR "/" + path, std::ios::binary);
  std::string header{std::istreambuf_iterator<char>(file), {}};
  const std::size_t first = header.find("//   Property ");
  const std::size_t last = header.find("//\n", first);
  ASSERT_NE(last, std::string::npos) << path;
  const auto line_at = [&](std::size_t place) { return header.rfind('\n', place) + 1; };
  const std::size_t begin = line_at(first);
  header.replace(begin, line_at(last) - begin, table);
  test::expect_page(path, header);
}

std::string page() {
  std::string text =
      "# The automation interface\n\n"
      "Every member is reached by its name, in any letter case, or by its dispatch identifier: "
      "from\n"
      "C++ through `<KurvGraph/automation.h>`, from other languages through `kurv host` "
      "([host.md](host.md)).\nIn C++, `get_property()`, `set_property()` and `call_method()` take "
      "a "
      "`Control` or a widget, and both\nhave `add_listener()` for the event. The widget also has "
      "the "
      "same members as its properties, invokable\nmethods and signal. This page is made from the "
      "member table.\n\n"
      "Integers have 16 bits; a Boolean has 16 bits, of which True has all set; arrays count from "
      "1;\ntexts are UTF-8. No property redraws: call `build_the_graph` after changing what the "
      "picture shows.\n\n"
      "## Methods\n\n| Method | Identifier | Parameters | Does |\n|---|---|---|---|\n";
  for (const Member& member : members()) {
    if (member.kind != MemberKind::kMethod) continue;
    text += "| " + code(member.name) + " | " + identifier(member.dispatch_id) + " | " +
            parameter_list(member.parameters) + " | " + std::string(member.summary) + " |\n";
  }
  text +=
      "\n## Properties\n\n"
      "*Initially* is what a new control has. It has demonstration data, which are never drawn. "
      "The "
      "data that a host\n"
      "loads replace them and set the limits, `Title`, `Connected` and `DrawMarkers`, a label "
      "format "
      "that does not\n"
      "suit them, and `NumTicks` where it is 0. Fonts are those of the surface when the control is "
      "made; a widget and\n"
      "`kurv host` have Liberation Sans with 8 points.\n\n"
      "A setter takes every value in its *range*; for a Double NaN and infinities are among them. "
      "An Integer\n"
      "beyond 16 bits and the size of a font beyond a Single are overflows (error 6); a "
      "`MarkerSize` "
      "outside of its range\n"
      "and within 16 bits is ignored. Not every value can be drawn: a redraw divides by zero where "
      "`NumTicks` is 0 or\n"
      "the two limits of an axis are equal. Nor does every graph load that was saved: `kurv host` "
      "takes a font size\n"
      "above 0 and at most 32767 only, and so does `--set`, which also takes only finite "
      "limits.\n\n"
      "| Property | Identifier | Type | Initially | Range | Unit | Meaning |\n"
      "|---|---|---|---|---|---|---|\n";
  for (const Member& member : properties()) {
    text += "| " + code(member.name) + " | " + identifier(member.dispatch_id) + " | " +
            std::string(type_name(member.type)) + " | " + std::string(member.initially) + " | " +
            range_text(member) + " | " + std::string(member.unit) + " | " +
            std::string(member.summary) + " |\n";
  }
  text += "\n## Events\n\n| Event | Identifier | Parameters | Raised when |\n|---|---|---|---|\n";
  for (const Event& event : events()) {
    text += "| " + code(event.name) + " | " + identifier(event.dispatch_id) + " | " +
            parameter_list(event.parameters) + " | " + std::string(event.summary) + " |\n";
  }
  return text;
}

TEST(ReferencePage, IsMadeFromTheMemberTable) {
  test::expect_page("docs/automation.md", page());
}

TEST(ReferencePage, HeadersListThePropertiesWithInitialValuesAndUnits) {
  expect_table("include/KurvGraph/control.h", header_table(type_name, "  "));
  expect_table("include/KurvGraph/kurv_graph_properties.h", header_table(toolkit_type_name, ""));
}

TEST(ReferencePage, RowsOfTheTableFitIntoALine) {
  for (const Member& property : properties()) {
    EXPECT_LE(table_row(property.name, "", property.initially, meaning(property)).size(), 101U)
        << property.name;
  }
}

TEST(ReferencePage, EveryMemberSaysWhatItIsFor) {
  for (const Member& member : members()) {
    EXPECT_TRUE(member.summary.ends_with('.')) << member.name;
  }
}

}  // namespace
}  // namespace kurv
