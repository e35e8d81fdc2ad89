// The control's values as JSON, in both directions.
//
// Lists stand for arrays and count from 1. A Boolean is true, false or a number with its sixteen
// bits; null in an array of numbers is a missing value; "Inf" and "-Inf" are infinite numbers.
#pragma once

#include <KurvGraph/automation.h>

#include <QJsonValue>

namespace kurv::app {

// The JSON value as a member wants it. Throws Fault with kTypeMismatch for null in place of a value
// and for lists of the wrong shape, kOverflow for a Boolean's number beyond 16 bits.
Variant from_json(const QJsonValue& json, ValueType wanted);

// The size of a font, points. A font that can be drawn and saved has one above 0 and within 16
// bits: throws Fault with kInvalidProcedureCall for NaN and what is not above 0, kOverflow for what
// is above 32767, and what to_single() throws.
Single font_size_from(const Variant& value);

// A single value; arrays do not come back from any member.
QJsonValue to_json(const Variant& value);
QJsonValue to_json(Double number);

}  // namespace kurv::app
