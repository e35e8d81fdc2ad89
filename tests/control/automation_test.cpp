#include <KurvGraph/automation.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tests/support/golden.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

FaultKind fault_of(const std::function<void()>& call) {
  try {
    call();
  } catch (const Fault& fault) {
    return fault.kind();
  }
  return FaultKind{};
}

std::string hexadecimal(std::uint32_t id) {
  std::string digits;
  for (int shift = 28; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[(id >> shift) & 15];
  return digits;
}

TEST(Automation, TableListsEveryMemberInInterfaceOrder) {
  std::string table;
  for (const Member& member : members()) {
    table += hexadecimal(member.dispatch_id) + ' ' + std::string(member.name);
    if (member.kind == MemberKind::kProperty) table += ' ' + std::string(type_name(member.type));
    for (const Parameter& parameter : member.parameters) {
      table += (parameter.optional ? "\n  [" : "\n  ") + std::string(parameter.name) + ' ' +
               std::string(type_name(parameter.type)) + (parameter.optional ? "]" : "");
    }
    table += '\n';
  }
  for (const Event& event : events()) {
    table += "event " + hexadecimal(event.dispatch_id) + ' ' + std::string(event.name);
    for (const Parameter& parameter : event.parameters) {
      table += "\n  " + std::string(parameter.name) + ' ' + std::string(type_name(parameter.type));
    }
    table += '\n';
  }
  test::expect_golden("automation.txt", table);
}

TEST(Automation, IdentifiersAreDistinct) {
  std::set<std::uint32_t> ids;
  for (const Member& member : members()) ids.insert(member.dispatch_id);
  EXPECT_EQ(ids.size(), 45U);
  EXPECT_EQ(members().size(), 45U);
  EXPECT_EQ(properties().size(), 35U);
  for (const Member& row : properties()) EXPECT_EQ(row.kind, MemberKind::kProperty);
}

TEST(Automation, EveryPropertyReadsBackWhatWasSet) {
  test::TestHost host;
  for (const Member& row : properties()) {
    SCOPED_TRACE(std::string(row.name));
    Variant value = String("Ω text");
    if (row.type == ValueType::kInteger) value = Integer{17};
    if (row.type == ValueType::kBoolean) value = Boolean::from_bits(5);
    if (row.type == ValueType::kSingle) value = Single{8.25F};
    if (row.type == ValueType::kDouble) value = -1.0 / 3;
    set_property(host.control, row.dispatch_id, value);
    EXPECT_TRUE(get_property(host.control, row.name) == value);
  }
  EXPECT_EQ(host.surface.log(), "") << "no property redraws";
}

TEST(Automation, MembersAreFoundInAnyLetterCaseOrByIdentifier) {
  ASSERT_NE(find_member("right_MARGINE"), nullptr);
  EXPECT_EQ(find_member("right_MARGINE")->name, "Right_margine");
  EXPECT_EQ(find_member(0x600300DAU)->name, "file_load");
  EXPECT_EQ(find_member("Right_margin"), nullptr);
  EXPECT_EQ(find_member(""), nullptr);
  EXPECT_EQ(find_member(7U), nullptr);
  EXPECT_EQ(find_property("init"), nullptr);
}

TEST(Automation, ValuesConvertToThePropertysType) {
  test::TestHost host;
  set_property(host.control, "NumTicks", String(" 7 "));
  EXPECT_EQ(host.control.NumTicks(), 7);
  set_property(host.control, "NumTicks", 2.5);
  EXPECT_EQ(host.control.NumTicks(), 2) << "to the even neighbour";
  set_property(host.control, "X_grid", String("true"));
  EXPECT_TRUE(host.control.X_grid().is_exactly_true());
  set_property(host.control, "X_grid", 3.0);
  EXPECT_TRUE(host.control.X_grid().is_exactly_true()) << "a number becomes True";
  set_property(host.control, "X_grid", Boolean::from_bits(3));
  EXPECT_EQ(host.control.X_grid().bits(), 3) << "unless it came as a Boolean";
  set_property(host.control, "xmin", Boolean(true));
  EXPECT_EQ(host.control.xmin(), -1);
  set_property(host.control, "Title", 1.5);
  EXPECT_EQ(host.control.Title(), "1.5");
}

TEST(Automation, WrongNamesKindsTypesAndCountsAreTypedErrors) {
  test::TestHost host;
  Control& control = host.control;
  std::vector<Variant> one{String("save")};
  std::vector<Variant> two{String("save"), String("now")};
  std::vector<Variant> none;
  const auto call = [&](const char* name, std::vector<Variant>& arguments) {
    return fault_of([&] { call_method(control, name, arguments); });
  };
  EXPECT_EQ(call("nothing", none), FaultKind::kNoSuchMember);
  EXPECT_EQ(call("Title", none), FaultKind::kNoSuchMember) << "a property called";
  EXPECT_EQ(fault_of([&] { get_property(control, "init"); }), FaultKind::kNoSuchMember);
  EXPECT_EQ(fault_of([&] { set_property(control, "init", Integer{1}); }), FaultKind::kNoSuchMember);
  EXPECT_EQ(call("ChartOptions", none), FaultKind::kArgumentMissing);
  EXPECT_EQ(call("ChartOptions", two), FaultKind::kTooManyArguments);
  EXPECT_EQ(call("init", one), FaultKind::kTooManyArguments);
  EXPECT_EQ(fault_of([&] { set_property(control, "NumTicks", String("many")); }),
            FaultKind::kTypeMismatch);
  EXPECT_EQ(fault_of([&] { set_property(control, "NumTicks", List<Double>(1, 2)); }),
            FaultKind::kTypeMismatch);
  EXPECT_EQ(fault_of([&] { set_property(control, "NumTicks", 40000.0); }), FaultKind::kOverflow);
  EXPECT_EQ(control.NumTicks(), 10);
}

TEST(Automation, MethodsTakeArraysAndOmitOptionalArguments) {
  test::TestHost host;
  std::vector<Variant> arguments{
      test::columns({{4, 5}}), test::points({1, 2}), Integer{2},    1.0, 7.0, String("x"),
      test::names({"a"}),      Integer{0},           List<String>()};
  call_method(host.control, "SCATTER_graph", arguments);
  EXPECT_EQ(host.control.Title(), "7");
  EXPECT_EQ(host.document().xyArr(2, 2), 5);
  EXPECT_FALSE(host.control.Connected());
  arguments.push_back({});
  arguments.push_back(Boolean(true));
  call_method(host.control, 0x600300D7U, arguments);
  EXPECT_FALSE(host.control.Connected()) << "an empty value omits it";
  EXPECT_TRUE(host.control.DrawMarkers());
  arguments[0] = Double{3};
  EXPECT_EQ(fault_of([&] { call_method(host.control, "scatter_graph", arguments); }),
            FaultKind::kTypeMismatch)
      << "a number is no array";
}

TEST(Automation, CommandsAndCloseMeAreReached) {
  test::TestHost host;
  host.shell.windows.clear();
  std::vector<Variant> word{String("titles")};
  call_method(host.control, "chartoptions", word);
  std::vector<Variant> none;
  call_method(host.control, 0x6003010DU, none);
  EXPECT_EQ(host.shell.windows, (std::vector<std::string>{"frmPropert 1", "unload"}));
}

TEST(Automation, MouseUpReachesTheContainerAndEveryListener) {
  test::TestHost host;
  std::vector<std::string> heard;
  for (const char* name : {"first", "second"}) {
    host.control.add_listener([&heard, name](const Event& event, std::span<const Variant> values) {
      heard.push_back(std::string(name) + ' ' + std::string(event.name) + ' ' +
                      to_string(values[0]) + ' ' + to_string(values[1]) + ' ' +
                      to_string(values[2]) + ' ' + to_string(values[3]));
    });
  }
  host.control.release_mouse(1, 4, 1200.5F, 900);
  EXPECT_EQ(host.container.mouse_ups, 1);
  EXPECT_EQ(heard, (std::vector<std::string>{"first MouseUp 1 4 1200.5 900",
                                             "second MouseUp 1 4 1200.5 900"}));
}

TEST(Automation, ListenerMayAddOthersWhileItRuns) {
  test::TestHost host;
  int heard = 0;
  const std::string long_enough(100, 'x');  // so that the function owns memory
  host.control.add_listener([&, long_enough](const Event&, std::span<const Variant>) {
    for (int i = 0; i < 20; ++i) {
      host.control.add_listener([&](const Event&, std::span<const Variant>) { ++heard; });
    }
    heard += long_enough.size() == 100;
  });
  host.control.release_mouse(1, 0, 0, 0);
  EXPECT_EQ(heard, 1 + 20);
}

}  // namespace
}  // namespace kurv
