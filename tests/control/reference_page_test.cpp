// docs/automation.md is made from the member table: UPDATE_GOLDENS=1 writes it anew.
#include <KurvGraph/automation.h>
#include <gtest/gtest.h>

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
  text += "\n## Properties\n\n| Property | Identifier | Type | Meaning |\n|---|---|---|---|\n";
  for (const Member& member : properties()) {
    text += "| " + code(member.name) + " | " + identifier(member.dispatch_id) + " | " +
            std::string(type_name(member.type)) + " | " + std::string(member.summary) + " |\n";
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

TEST(ReferencePage, EveryMemberSaysWhatItIsFor) {
  for (const Member& member : members()) {
    EXPECT_TRUE(member.summary.ends_with('.')) << member.name;
  }
}

}  // namespace
}  // namespace kurv
