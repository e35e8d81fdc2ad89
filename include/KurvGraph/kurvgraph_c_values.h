/// @file
/// Values as the C interface passes them; kurvgraph_c.h says to whom memory belongs.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <KurvGraph/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/// A text and its number of bytes.
typedef struct kurv_text {
  const char* bytes;  ///< UTF-8
  size_t length;      ///< in bytes, or KURV_TERMINATED
} kurv_text;

/// The length of a text of the caller that does not know it: the text ends at its first NUL.
#define KURV_TERMINATED SIZE_MAX

/// The types of values.
enum {
  KURV_MISSING = 0,   ///< an omitted argument
  KURV_INTEGER = 1,   ///< 16 bits
  KURV_BOOLEAN = 2,   ///< 16 bits: -1 True, 0 False; other numbers count as True but are kept
  KURV_SINGLE = 3,    ///< a number of single precision
  KURV_DOUBLE = 4,    ///< a number of double precision
  KURV_STRING = 5,    ///< a text
  KURV_DOUBLES = 6,   ///< an array of numbers
  KURV_MATRIX = 7,    ///< numbers by column and point
  KURV_STRINGS = 8,   ///< an array of texts
  KURV_BOOLEANS = 9,  ///< an array of truth values
  KURV_VARIANT = 10   ///< of parameters: any type; never the type of a value
};

/// 80 bytes on 64-bit machines in every version. A value of zeros is the missing one.
typedef struct kurv_value {
  int32_t type;  ///< KURV_MISSING to KURV_BOOLEANS
  /// The lower bound of an array's elements, or of a matrix's columns. The control counts from 1.
  int32_t lower;
  int32_t lower_point;  ///< the lower bound of a matrix's points
  int32_t reserved;     ///< zero
  /// Null for values of the caller. Of others, the memory that kurv_value_clear() releases.
  void* owner;
  union {
    int16_t integer;  ///< of KURV_INTEGER
    int16_t boolean;  ///< of KURV_BOOLEAN
    float single;     ///< of KURV_SINGLE
    double number;    ///< of KURV_DOUBLE
    kurv_text text;   ///< of KURV_STRING
    struct {
      const double* data;  ///< the first number
      size_t count;        ///< how many there are
    } doubles;             ///< of KURV_DOUBLES
    /// Of KURV_MATRIX. Element (column, point), both counted from 0 here, is
    /// data[column * column_stride + point * point_stride].
    struct {
      const double* data;       ///< element (0, 0)
      size_t columns;           ///< how many there are
      size_t points;            ///< of each column
      ptrdiff_t column_stride;  ///< from a column to the next, in numbers
      ptrdiff_t point_stride;   ///< from a point to the next, in numbers
    } matrix;
    struct {
      const kurv_text* data;  ///< the first text
      size_t count;           ///< how many there are
    } strings;                ///< of KURV_STRINGS
    struct {
      const int16_t* data;  ///< the first truth value, as of KURV_BOOLEAN
      size_t count;         ///< how many there are
    } booleans;             ///< of KURV_BOOLEANS
    int64_t space[7];       ///< keeps the size the same in every version
  } as;                     ///< the content, by the type
} kurv_value;

/// Releases what the library owns of it and makes it the missing value. Null is allowed.
KURV_EXPORT void kurv_value_clear(kurv_value* value);

/// @name Values of the caller
/// Nothing is copied: what they point to has to live until the call.
/// Arrays count from 1; texts end at their first NUL.
/// @{

/// A value of that type without a content.
static inline kurv_value kurv_value_of(int32_t type) {
  kurv_value value;
  int i;
  value.type = type;
  value.lower = 1;
  value.lower_point = 1;
  value.reserved = 0;
  value.owner = NULL;
  for (i = 0; i < 7; ++i) value.as.space[i] = 0;
  return value;
}
/// An omitted argument.
static inline kurv_value kurv_missing(void) {
  return kurv_value_of(KURV_MISSING);
}
/// An Integer.
static inline kurv_value kurv_integer(int16_t number) {
  kurv_value value = kurv_value_of(KURV_INTEGER);
  value.as.integer = number;
  return value;
}
/// A Boolean: False for 0, otherwise True.
static inline kurv_value kurv_boolean(int truth) {
  kurv_value value = kurv_value_of(KURV_BOOLEAN);
  value.as.boolean = truth ? -1 : 0;
  return value;
}
/// A Single.
static inline kurv_value kurv_single(float number) {
  kurv_value value = kurv_value_of(KURV_SINGLE);
  value.as.single = number;
  return value;
}
/// A Double.
static inline kurv_value kurv_double(double number) {
  kurv_value value = kurv_value_of(KURV_DOUBLE);
  value.as.number = number;
  return value;
}
/// A text that ends at its first NUL.
static inline kurv_value kurv_string(const char* text) {
  kurv_value value = kurv_value_of(KURV_STRING);
  value.as.text.bytes = text;
  value.as.text.length = KURV_TERMINATED;
  return value;
}
/// An array of `count` numbers.
static inline kurv_value kurv_doubles(const double* data, size_t count) {
  kurv_value value = kurv_value_of(KURV_DOUBLES);
  value.as.doubles.data = data;
  value.as.doubles.count = count;
  return value;
}
/// A matrix whose numbers are one column after the other, each with its points.
static inline kurv_value kurv_matrix(const double* data, size_t columns, size_t points) {
  kurv_value value = kurv_value_of(KURV_MATRIX);
  value.as.matrix.data = data;
  value.as.matrix.columns = columns;
  value.as.matrix.points = points;
  value.as.matrix.column_stride = (ptrdiff_t)points;
  value.as.matrix.point_stride = 1;
  return value;
}
/// An array of `count` texts.
static inline kurv_value kurv_strings(const kurv_text* data, size_t count) {
  kurv_value value = kurv_value_of(KURV_STRINGS);
  value.as.strings.data = data;
  value.as.strings.count = count;
  return value;
}
/// An array of `count` truth values, -1 for True and 0 for False.
static inline kurv_value kurv_booleans(const int16_t* data, size_t count) {
  kurv_value value = kurv_value_of(KURV_BOOLEANS);
  value.as.booleans.data = data;
  value.as.booleans.count = count;
  return value;
}

/// @}

#ifdef __cplusplus
}
#endif
