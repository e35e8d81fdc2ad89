// The control's properties by name, for hosts that know them only at run time.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

class Control;

enum class ValueType { kInteger, kBoolean, kSingle, kDouble, kString };

// One row of the property table. `let` converts the value to the property's type first and throws
// as the conversions of values.h do.
struct Property {
  std::string_view name;
  std::uint32_t dispatch_id;
  ValueType type;
  Variant (*get)(const Control&);
  void (*let)(Control&, const Variant&);
};

// All properties, in interface order.
std::span<const Property> properties();

// By name, in any letter case; nullptr when there is none.
const Property* find_property(std::string_view name);

}  // namespace kurv
