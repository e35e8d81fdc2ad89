// The getters and setters of property_list.h, over the fields of the document.
#include <cmath>
#include <type_traits>

#include <KurvGraph/control.h>
#include <KurvGraph/fault.h>
#include <KurvGraph/limits.h>

#include "control/control_state.h"

namespace kurv {

namespace {

template <class Value, class Field>
Value read(const Field& field) {
  if constexpr (std::is_same_v<Value, Field>) {
    return field;
  } else {
    return to_integer(field);
  }
}

template <PropertyRule rule, class Value, class Field>
void store(GraphDocument& document, Field GraphDocument::*field, const Value& value) {
  // An infinite Single is a number that has overflowed on its way here.
  if constexpr (std::is_same_v<Value, Single>) {
    if (std::isinf(value)) throw Fault(FaultKind::kOverflow);
  }
  if constexpr (rule == PropertyRule::kStored) {
    document.*field = value;
  } else {
    static_assert(rule == PropertyRule::kMarkerRange);
    if (value >= kMinMarkerSize && value <= kMaxMarkerSize) set_marker_size(document, value);
  }
}

// A format that is set is the user's, also where it is the one that round limits or a zoom have
// chosen.
template <class Field>
void keep_format(ControlState& state, Field GraphDocument::*field) {
  if constexpr (std::is_same_v<Field, String>) {
    if (field == &GraphDocument::AxisLabelFormatX) {
      state.document.round_limits.x_format.clear();
      state.zoom.x_format = {};
    }
    if (field == &GraphDocument::AxisLabelFormatY) {
      state.document.round_limits.y_format.clear();
      state.zoom.y_format = {};
    }
  }
}

}  // namespace

#define KURV_DEFINE(name, dispatch_id, Type, rule, ...)                        \
  Type Control::name() const {                                                 \
    return read<Type>(m_state->document.name);                                 \
  }                                                                            \
  void Control::set_##name(PropertyArgument<Type> value) {                     \
    store<PropertyRule::rule>(m_state->document, &GraphDocument::name, value); \
    keep_format(*m_state, &GraphDocument::name);                               \
  }
KURV_PROPERTIES(KURV_DEFINE)
#undef KURV_DEFINE

}  // namespace kurv
