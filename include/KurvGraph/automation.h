// The control's interface, late-bound: members by name or dispatch identifier, for hosts that know
// them only at run time.
//
// One table describes the members; late-bound calls, the pipe host and the reference page use it.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <variant>

#include <KurvGraph/values.h>

namespace kurv {

class Control;
class KurvGraph;

enum class ValueType {
  kInteger,
  kBoolean,
  kSingle,
  kDouble,
  kString,
  kVariant,
  kDoubleList,
  kDoubleMatrix,
  kStringList,
  kBooleanList,
};

// As hosts read it, such as "Integer" or "array of Double".
KURV_EXPORT std::string_view type_name(ValueType type);

struct Parameter {
  std::string_view name;
  ValueType type;
  bool optional;
};

enum class MemberKind { kMethod, kProperty };

// The numbers that a property takes, both ends included. A Single and a Double take NaN as well.
// What a setter does with other numbers is said in control.h, above its table of properties.
struct ValueRange {
  Double lowest = 0;
  Double highest = 0;
};

struct Member {
  std::string_view name;
  std::uint32_t dispatch_id;
  std::string_view summary;  // a sentence or two for the reference page
  MemberKind kind;
  std::span<const Parameter> parameters = {};  // of a method
  // Of a property.
  ValueType type = ValueType::kVariant;
  std::string_view initially = {};  // the value of a new control, as property_list.h writes it
  std::string_view unit = {};       // of a number; empty where it has none
  ValueRange range = {};            // of an Integer, a Single or a Double
  // Getter, setter and call; nullptr where the kind has none. They convert as values.h does and
  // check nothing else.
  Variant (*get)(const Control&) = nullptr;
  void (*set)(Control&, const Variant&) = nullptr;
  void (*call)(Control&, std::span<Variant>) = nullptr;
};

struct Event {
  std::string_view name;
  std::uint32_t dispatch_id;
  std::string_view summary;
  std::span<const Parameter> parameters;
};

// In interface order: methods, then properties.
KURV_EXPORT std::span<const Member> members();
// The properties among them.
KURV_EXPORT std::span<const Member> properties();
KURV_EXPORT std::span<const Event> events();

// A member by its name, in any letter case, or by its dispatch identifier.
using MemberKey = std::variant<std::string_view, std::uint32_t>;

// nullptr when there is none.
KURV_EXPORT const Member* find_member(const MemberKey& key);
KURV_EXPORT const Member* find_property(std::string_view name);

// Late-bound calls. They throw kNoSuchMember also for a method that is read or set like a property
// and for a property that is called, kArgumentMissing for too few arguments, kTooManyArguments for
// too many, kTypeMismatch and kOverflow as the conversions of values.h do, and what the member
// itself throws. An optional argument is omitted by an empty value or by a shorter list. Arguments
// are passed by reference: a callee may write to them.
KURV_EXPORT Variant get_property(const Control& control, const MemberKey& key);
KURV_EXPORT void set_property(Control& control, const MemberKey& key, const Variant& value);
KURV_EXPORT void call_method(Control& control, const MemberKey& key, std::span<Variant> arguments);
// The same for a widget, which does what its own members of these names do. Defined in
// KurvGraph::KurvGraph, not in KurvGraph::Core.
KURV_EXPORT Variant get_property(const KurvGraph& graph, const MemberKey& key);
KURV_EXPORT void set_property(KurvGraph& graph, const MemberKey& key, const Variant& value);
KURV_EXPORT void call_method(KurvGraph& graph, const MemberKey& key, std::span<Variant> arguments);
// Throws as call_method() does where a method takes more or fewer arguments.
KURV_EXPORT void check_count(const Member& method, std::size_t count);

// A late-bound listener to the control's events, for add_listener() of a control or a widget; the
// arguments are those of the event's row.
using EventListener = std::function<void(const Event& event, std::span<const Variant> arguments)>;

}  // namespace kurv
