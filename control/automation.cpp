#include <KurvGraph/automation.h>

#include <algorithm>
#include <array>
#include <limits>
#include <type_traits>
#include <utility>

#include <KurvGraph/control.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/text.h>

#include "control/control_state.h"
#include "control/events.h"

namespace kurv {

namespace {

template <class T>
constexpr ValueType type_of() {
  if (std::is_same_v<T, Integer>) return ValueType::kInteger;
  if (std::is_same_v<T, Boolean>) return ValueType::kBoolean;
  if (std::is_same_v<T, std::optional<Boolean>>) return ValueType::kBoolean;
  if (std::is_same_v<T, Single>) return ValueType::kSingle;
  if (std::is_same_v<T, Double>) return ValueType::kDouble;
  if (std::is_same_v<T, Variant>) return ValueType::kVariant;
  if (std::is_same_v<T, List<Double>>) return ValueType::kDoubleList;
  if (std::is_same_v<T, Matrix<Double>>) return ValueType::kDoubleMatrix;
  if (std::is_same_v<T, List<String>>) return ValueType::kStringList;
  if (std::is_same_v<T, List<Boolean>>) return ValueType::kBooleanList;
  return ValueType::kString;
}

// A self-describing value as the argument type of a member function; arrays are passed by
// reference.
template <class T>
decltype(auto) converted(const Variant& value) {
  if constexpr (std::is_same_v<T, Integer>) {
    return to_integer(value);
  } else if constexpr (std::is_same_v<T, Boolean>) {
    return to_boolean(value);
  } else if constexpr (std::is_same_v<T, std::optional<Boolean>>) {
    const bool omitted = std::holds_alternative<std::monostate>(value);
    return omitted ? T() : T(to_boolean(value));
  } else if constexpr (std::is_same_v<T, Single>) {
    return to_single(value);
  } else if constexpr (std::is_same_v<T, Double>) {
    return to_double(value);
  } else if constexpr (std::is_same_v<T, String> || std::is_same_v<T, std::string_view>) {
    return to_string(value);
  } else if constexpr (std::is_same_v<T, Variant>) {
    return (value);
  } else {
    const T* array = std::get_if<T>(&value);
    if (array == nullptr) throw Fault(FaultKind::kTypeMismatch);
    return (*array);
  }
}

// What the row of a method holds, from the types of its member function and its parameter names.
template <auto function, const auto& names, class... Arguments>
struct MethodRow {
  static constexpr std::size_t kCount = sizeof...(Arguments);
  static_assert(names.size() == kCount);

  template <std::size_t... index>
  static constexpr auto rows(std::index_sequence<index...>) {
    return std::array<Parameter, kCount>{Parameter{
        names[index], type_of<Arguments>(), std::is_same_v<Arguments, std::optional<Boolean>>}...};
  }
  static constexpr std::array<Parameter, kCount> kParameters =
      rows(std::make_index_sequence<kCount>());

  // Omitted arguments are empty values.
  template <std::size_t... index>
  static void pass([[maybe_unused]] Control& control, [[maybe_unused]] std::span<Variant> arguments,
                   std::index_sequence<index...>) {
    static const Variant kOmitted;
    (control.*function)(converted<Arguments>(
        index < arguments.size() ? std::as_const(arguments[index]) : kOmitted)...);
  }
  static void call(Control& control, std::span<Variant> arguments) {
    pass(control, arguments, std::make_index_sequence<kCount>());
  }
};

template <auto function, const auto& names, class... Arguments>
constexpr Member method_row(std::string_view name, std::uint32_t dispatch_id,
                            std::string_view summary, void (Control::*)(Arguments...)) {
  using Row = MethodRow<function, names, std::remove_cvref_t<Arguments>...>;
  Member row{name, dispatch_id, summary, MemberKind::kMethod, Row::kParameters};
  row.call = Row::call;
  return row;
}

template <auto function, const auto& names>
constexpr Member method(std::string_view name, std::uint32_t dispatch_id,
                        std::string_view summary) {
  return method_row<function, names>(name, dispatch_id, summary, function);
}

template <class Value>
constexpr ValueRange range_of(PropertyRule rule) {
  using Limits = std::numeric_limits<Value>;
  if (rule == PropertyRule::kMarkerRange) return {kMinMarkerSize, kMaxMarkerSize};
  if constexpr (std::is_same_v<Value, Double>) return {-Limits::infinity(), Limits::infinity()};
  return {Double(Limits::lowest()), Double(Limits::max())};
}

template <auto getter, auto setter>
constexpr Member property(std::string_view name, std::uint32_t dispatch_id, PropertyRule rule,
                          std::string_view initially, std::string_view unit,
                          std::string_view summary) {
  using Value = decltype((std::declval<const Control&>().*getter)());
  Member row{name, dispatch_id, summary, MemberKind::kProperty};
  row.type = type_of<Value>();
  row.initially = initially;
  row.unit = unit;
  if constexpr (std::is_arithmetic_v<Value>) row.range = range_of<Value>(rule);
  row.get = [](const Control& control) -> Variant { return (control.*getter)(); };
  row.set = [](Control& control, const Variant& value) {
    (control.*setter)(converted<Value>(value));
  };
  return row;
}

using Name = std::string_view;
constexpr std::array<Name, 0> kNone{};
constexpr std::array<Name, 11> kScatterGraph{
    "yarr_",   "xarr",        "pNumData_",           "pNumY_",
    "pTitle_", "xVarName_",   "yVarName_",           "pNumYFunc_",
    "y_func_", "pConnected_", "draw_scatter_points_"};
constexpr std::array<Name, 10> kScatterGraph2{
    "pTitle_",    "xyArr_",     "xyVarNames_", "pNumData_",   "pNumY_",
    "y_visible_", "pNumYFunc_", "y_func_",     "pConnected_", "draw_scatter_points_"};
constexpr std::array<Name, 1> kFileLoad{"filename"};
constexpr std::array<Name, 1> kChartOptions{"command"};

// The summaries name this limit.
static_assert(kMaxCurves == 149);

#define KURV_ROW(name, dispatch_id, Type, rule, initially, unit, summary)                \
  property<&Control::name, &Control::set_##name>(#name, dispatch_id, PropertyRule::rule, \
                                                 initially, unit, summary),
constexpr std::array kMembers = {
    method<&Control::init, kNone>("init", 0x600300CF, "Does nothing."),
    method<&Control::build_the_graph, kNone>(
        "build_the_graph", 0x600300D5,
        "Clears and redraws the whole graph; nothing until data have come."),
    method<&Control::scatter_graph, kScatterGraph>(
        "scatter_graph", 0x600300D7,
        "Loads a data set: `yarr_` by curve and point, `xarr` by point, all counted from 1; every "
        "curve is visible. Draws, or shows a message where the data cannot be plotted."),
    method<&Control::file_load, kFileLoad>("file_load", 0x600300DA,
                                           "Loads a graph file and draws it."),
    method<&Control::Save_graph, kNone>("Save_graph", 0x600300DB,
                                        "Writes a graph that is not saved to its file, or asks the "
                                        "user for one where it has none."),
    method<&Control::scatter_graph2, kScatterGraph2>(
        "scatter_graph2", 0x600300DD,
        "The same from one matrix by column and point, of which column 1 is x, with names alike "
        "and a visibility flag for each curve. More than 149 curves are cut to 149."),
    method<&Control::Sort_xy, kNone>(
        "Sort_xy", 0x600300F9,
        "Sorts the plotted data by ascending x, points moving whole. Does not redraw."),
    method<&Control::ChartOptions, kChartOptions>(
        "ChartOptions", 0x600300FD,
        "Runs one command by its word, in small letters: `refresh`, `print`, `copy`, `save`, "
        "`saveas`, `open`, `setup`, `titles`, `curves`, `table`, `undo` or `redo`. Other words do "
        "nothing."),
    method<&Control::Restore_Grf, kNone>(
        "Restore_Grf", 0x60030105,
        "Default marker size and margins, limits from the data, and a redraw."),
    method<&Control::CloseMe, kNone>(
        "CloseMe", 0x6003010D,
        "Unloads the three windows, also where they serve another control by now; the next command "
        "that shows one loads it again."),
    KURV_PROPERTIES(KURV_ROW)};
#undef KURV_ROW
constexpr auto kMethodCount =
    static_cast<std::size_t>(std::count_if(kMembers.begin(), kMembers.end(), [](const Member& row) {
      return row.kind == MemberKind::kMethod;
    }));

constexpr std::array kMouseUp = {
    Parameter{"Button", ValueType::kInteger, false}, Parameter{"Shift", ValueType::kInteger, false},
    Parameter{"x", ValueType::kSingle, false}, Parameter{"Y", ValueType::kSingle, false}};
constexpr std::array kEvents = {
    Event{"MouseUp", 1,
          "A mouse button was released over the plot: 1 left, 2 right, 4 middle; 1 shift, 2 "
          "control, 4 alt, added up; the point on the surface, twips.",
          kMouseUp}};

const Member& required_member(const MemberKey& key, MemberKind kind) {
  const Member* member = find_member(key);
  if (member == nullptr || member->kind != kind) throw Fault(FaultKind::kNoSuchMember);
  return *member;
}

}  // namespace

std::string_view type_name(ValueType type) {
  switch (type) {
    case ValueType::kInteger:
      return "Integer";
    case ValueType::kBoolean:
      return "Boolean";
    case ValueType::kSingle:
      return "Single";
    case ValueType::kDouble:
      return "Double";
    case ValueType::kString:
      return "String";
    case ValueType::kVariant:
      return "Variant";
    case ValueType::kDoubleList:
    case ValueType::kDoubleMatrix:
      return "array of Double";
    case ValueType::kStringList:
      return "array of String";
    case ValueType::kBooleanList:
      return "array of Boolean";
  }
  return "";
}

std::span<const Member> members() {
  return kMembers;
}
std::span<const Member> properties() {
  return members().subspan(kMethodCount);
}
std::span<const Event> events() {
  return kEvents;
}

const Member* find_member(const MemberKey& key) {
  const auto matches = [&](const Member& member) {
    if (const auto* name = std::get_if<std::string_view>(&key))
      return equals_ignoring_case(*name, member.name);
    return member.dispatch_id == std::get<std::uint32_t>(key);
  };
  const auto found = std::find_if(kMembers.begin(), kMembers.end(), matches);
  return found == kMembers.end() ? nullptr : &*found;
}

const Member* find_property(std::string_view name) {
  const Member* member = find_member(name);
  return member != nullptr && member->kind == MemberKind::kProperty ? member : nullptr;
}

Variant get_property(const Control& control, const MemberKey& key) {
  return required_member(key, MemberKind::kProperty).get(control);
}

void set_property(Control& control, const MemberKey& key, const Variant& value) {
  required_member(key, MemberKind::kProperty).set(control, value);
}

void check_count(const Member& method, std::size_t count) {
  const auto required = std::count_if(method.parameters.begin(), method.parameters.end(),
                                      [](const Parameter& row) { return !row.optional; });
  if (count > method.parameters.size()) throw Fault(FaultKind::kTooManyArguments);
  if (count < static_cast<std::size_t>(required)) throw Fault(FaultKind::kArgumentMissing);
}

void call_method(Control& control, const MemberKey& key, std::span<Variant> arguments) {
  const Member& method = required_member(key, MemberKind::kMethod);
  check_count(method, arguments.size());
  method.call(control, arguments);
}

void raise_MouseUp(ControlState& state, Integer Button, Integer Shift, Single x, Single Y) {
  state.container.MouseUp(Button, Shift, x, Y);
  const std::array<Variant, 4> arguments{Button, Shift, x, Y};
  // A listener may add others, which reallocates the list, so a copy is called.
  for (std::size_t i = 0; i < state.listeners.size(); ++i) {
    const EventListener listener = state.listeners[i];
    listener(kEvents.front(), arguments);
  }
}

}  // namespace kurv
