/// @file
/// The control's interface, late-bound: members by name or dispatch identifier, for hosts that know
/// them only at run time.
///
/// One table describes the members; late-bound calls, the pipe host and the reference page use it.
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

/// The type of a property or a parameter.
enum class ValueType {
  kInteger,       ///< Integer
  kBoolean,       ///< Boolean
  kSingle,        ///< Single
  kDouble,        ///< Double
  kString,        ///< String
  kVariant,       ///< any of these types
  kDoubleList,    ///< List of Double
  kDoubleMatrix,  ///< Matrix of Double
  kStringList,    ///< List of String
  kBooleanList,   ///< List of Boolean
};

/// The name of a type as hosts read it, such as "Integer" or "array of Double".
KURV_EXPORT std::string_view type_name(ValueType type);

/// A parameter of a method or an event.
struct Parameter {
  std::string_view name;  ///< as in the declaration of the method
  ValueType type;         ///< to which an argument is converted
  bool optional;          ///< whether it may be omitted
};

/// The kinds of members.
enum class MemberKind {
  kMethod,   ///< a method, which is called
  kProperty  ///< a property, which is read and set
};

/// The numbers that a property takes, both ends included. A Single and a Double take NaN as well.
/// What a setter does with other numbers is said in control.h, above its table of properties.
struct ValueRange {
  Double lowest = 0;   ///< the smallest number
  Double highest = 0;  ///< the largest number
};

/// A row of the member table: a method or a property.
struct Member {
  std::string_view name;                       ///< in the letter case of its declaration
  std::uint32_t dispatch_id;                   ///< by which hosts may call it; never changes
  std::string_view summary;                    ///< a sentence or two for the reference page
  MemberKind kind;                             ///< decides which of the following members are used
  std::span<const Parameter> parameters = {};  ///< of a method
  ValueType type = ValueType::kVariant;        ///< of a property
  std::string_view initially = {};  ///< the value of a new control, as property_list.h writes it
  std::string_view unit = {};       ///< of a number; empty where it has none
  ValueRange range = {};            ///< of an Integer, a Single or a Double
  /// The getter of a property; nullptr for a method. The three functions convert as values.h does
  /// and check nothing else.
  Variant (*get)(const Control&) = nullptr;
  /// The setter of a property; nullptr for a method.
  void (*set)(Control&, const Variant&) = nullptr;
  /// The call of a method; nullptr for a property.
  void (*call)(Control&, std::span<Variant>) = nullptr;
};

/// A row of the table of events.
struct Event {
  std::string_view name;                  ///< such as "MouseUp"
  std::uint32_t dispatch_id;              ///< by which hosts may know it; never changes
  std::string_view summary;               ///< when it is raised
  std::span<const Parameter> parameters;  ///< the arguments that a listener gets
};

/// The member table in interface order: methods, then properties.
KURV_EXPORT std::span<const Member> members();
/// The properties of the member table.
KURV_EXPORT std::span<const Member> properties();
/// The events that the control raises.
KURV_EXPORT std::span<const Event> events();

/// A member by its name, in any letter case, or by its dispatch identifier.
using MemberKey = std::variant<std::string_view, std::uint32_t>;

/// The member with that name or identifier; nullptr when there is none.
KURV_EXPORT const Member* find_member(const MemberKey& key);
/// The property with that name, in any letter case; nullptr when there is none.
KURV_EXPORT const Member* find_property(std::string_view name);

/// @name Late-bound calls
/// They throw kNoSuchMember also for a method that is read or set like a property and for a
/// property that is called, kTypeMismatch and kOverflow as the conversions of values.h do, and what
/// the member itself throws. Those for a widget are defined in KurvGraph::KurvGraph, not in
/// KurvGraph::Core.
/// @{

/// The value of a property.
KURV_EXPORT Variant get_property(const Control& control, const MemberKey& key);
/// Sets a property.
KURV_EXPORT void set_property(Control& control, const MemberKey& key, const Variant& value);
/// Calls a method. Throws kArgumentMissing for too few arguments and kTooManyArguments for too
/// many. An optional argument is omitted by an empty value or by a shorter list. Arguments are
/// passed by reference: a callee may write to them.
KURV_EXPORT void call_method(Control& control, const MemberKey& key, std::span<Variant> arguments);
/// The value of a property of a widget.
KURV_EXPORT Variant get_property(const KurvGraph& graph, const MemberKey& key);
/// Sets a property of a widget.
KURV_EXPORT void set_property(KurvGraph& graph, const MemberKey& key, const Variant& value);
/// Calls a method of a widget, which does what its own member of that name does.
KURV_EXPORT void call_method(KurvGraph& graph, const MemberKey& key, std::span<Variant> arguments);
/// Throws as call_method() does where a method takes more or fewer arguments.
KURV_EXPORT void check_count(const Member& method, std::size_t count);

/// @}

/// A late-bound listener to the control's events, for add_listener() of a control or a widget; the
/// arguments are those of the event's row.
using EventListener = std::function<void(const Event& event, std::span<const Variant> arguments)>;

}  // namespace kurv
