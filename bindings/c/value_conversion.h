// Values of the C interface as values of the control, and back.
#pragma once

#include <KurvGraph/automation.h>
#include <KurvGraph/kurvgraph_c_values.h>

#include <cstdint>
#include <string_view>

namespace kurv::c {

std::int32_t type_number(ValueType type);

// Throws CallError for a null pointer, and kTypeMismatch, kOverflow or kSubscriptOutOfRange for
// values that are none.
std::string_view text_view(const kurv_text& text);
Variant to_variant(const kurv_value& value);

// A value in memory of its own, for kurv_value_clear().
kurv_value owned_value(const Variant& value);

// After a call: replaces the argument where the callee has changed it. `passed` is what the
// argument was converted to.
void return_argument(const Variant& after, const Variant& passed, kurv_value& argument);

}  // namespace kurv::c
