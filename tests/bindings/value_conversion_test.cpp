// Arguments that a method has changed come back; no method of the control changes one yet.
#include "bindings/c/value_conversion.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using kurv::Boolean;
using kurv::Integer;
using kurv::List;
using kurv::Matrix;
using kurv::String;
using kurv::Variant;

// The argument after a call that has changed `passed` to `after`.
kurv_value returned(const Variant& after, const Variant& passed, kurv_value argument) {
  kurv::c::return_argument(after, passed, argument);
  return argument;
}

TEST(ReturnedArguments, AreThoseOfTheCallerWhereNothingHasChanged) {
  const double numbers[] = {1, std::nan(""), 3};
  for (kurv_value argument : {kurv_doubles(numbers, 3), kurv_matrix(numbers, 3, 1),
                              kurv_double(std::nan("")), kurv_string("text"), kurv_missing()}) {
    const Variant passed = kurv::c::to_variant(argument);
    const Variant same = passed;
    const kurv_value after = returned(same, passed, argument);
    EXPECT_EQ(after.owner, nullptr);
    EXPECT_EQ(after.type, argument.type);
  }
}

TEST(ReturnedArguments, HaveAnotherValueOrAnotherType) {
  EXPECT_EQ(returned(Integer{2}, Integer{1}, kurv_integer(1)).as.integer, 2);
  EXPECT_EQ(returned(Boolean::from_bits(7), Integer{1}, kurv_integer(1)).as.boolean, 7);
  EXPECT_EQ(returned(1.5F, 2.5F, kurv_single(2.5F)).as.single, 1.5F);
  kurv_value text = returned(String("a\0b", 3), String("x"), kurv_string("x"));
  EXPECT_EQ(text.as.text.length, 3);
  EXPECT_EQ(String(text.as.text.bytes, 4), String("a\0b\0", 4));
  kurv_value_clear(&text);
}

TEST(ReturnedArguments, KeepTheBoundsOfArrays) {
  kurv_value list = returned(List<double>{5, {7, 8}}, Variant{}, kurv_missing());
  EXPECT_EQ(list.lower, 5);
  EXPECT_EQ(list.as.doubles.count, 2);
  EXPECT_EQ(list.as.doubles.data[1], 8);
  // Another change of the same argument releases the value before.
  list = returned(List<Boolean>{1, {true, false}}, Variant{}, list);
  EXPECT_EQ(list.type, KURV_BOOLEANS);
  EXPECT_EQ(list.as.booleans.data[0], -1);
  list = returned(List<String>{0, {"one", ""}}, Variant{}, list);
  EXPECT_EQ(list.as.strings.count, 2);
  EXPECT_STREQ(list.as.strings.data[0].bytes, "one");
  EXPECT_STREQ(list.as.strings.data[1].bytes, "");
  kurv_value_clear(&list);
}

TEST(ReturnedArguments, HaveMatricesByColumnAndPoint) {
  const double numbers[] = {1, 2, 3, 4, 5, 6};
  const kurv_value argument = kurv_matrix(numbers, 2, 3);
  const Variant passed = kurv::c::to_variant(argument);
  Variant after = passed;
  std::get<Matrix<double>>(after)(2, 1) = 40;
  kurv_value matrix = returned(after, passed, argument);
  EXPECT_EQ(matrix.as.matrix.columns, 2);
  EXPECT_EQ(matrix.as.matrix.points, 3);
  EXPECT_EQ(matrix.as.matrix.data[matrix.as.matrix.column_stride], 40);
  EXPECT_EQ(numbers[3], 4);  // those of the caller stay
  kurv_value_clear(&matrix);
}

}  // namespace
