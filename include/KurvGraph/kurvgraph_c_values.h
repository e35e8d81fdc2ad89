// Values as the C interface passes them; kurvgraph_c.h says to whom memory belongs.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <KurvGraph/export.h>

#ifdef __cplusplus
extern "C" {
#endif

// A text and its number of bytes.
typedef struct kurv_text {
  const char* bytes;
  size_t length;
} kurv_text;

// As a length: the text ends at its first NUL.
#define KURV_TERMINATED SIZE_MAX

enum {
  KURV_MISSING = 0,  // an omitted argument
  KURV_INTEGER = 1,  // 16 bits
  KURV_BOOLEAN = 2,  // 16 bits: -1 True, 0 False; other numbers count as True but are kept
  KURV_SINGLE = 3,
  KURV_DOUBLE = 4,
  KURV_STRING = 5,
  KURV_DOUBLES = 6,   // an array of numbers
  KURV_MATRIX = 7,    // numbers by column and point
  KURV_STRINGS = 8,   // an array of texts
  KURV_BOOLEANS = 9,  // an array of truth values
  KURV_VARIANT = 10   // of parameters: any type; never the type of a value
};

// 80 bytes on 64-bit machines in every version. A value of zeros is the missing one.
typedef struct kurv_value {
  int32_t type;
  // The lower bounds of an array: of its elements, or of a matrix's columns and points. The control
  // counts from 1.
  int32_t lower;
  int32_t lower_point;
  int32_t reserved;  // zero
  // Null for values of the caller. Of others, the memory that kurv_value_clear() releases.
  void* owner;
  union {
    int16_t integer;
    int16_t boolean;
    float single;
    double number;
    kurv_text text;
    struct {
      const double* data;
      size_t count;
    } doubles;
    // Element (column, point), both counted from 0 here, is
    // data[column * column_stride + point * point_stride].
    struct {
      const double* data;
      size_t columns;
      size_t points;
      ptrdiff_t column_stride;
      ptrdiff_t point_stride;
    } matrix;
    struct {
      const kurv_text* data;
      size_t count;
    } strings;
    struct {
      const int16_t* data;
      size_t count;
    } booleans;
    int64_t space[7];
  } as;
} kurv_value;

// Releases what the library owns of it and makes it the missing value. Null is allowed.
KURV_EXPORT void kurv_value_clear(kurv_value* value);

// Values of the caller. Arrays count from 1; texts end at their first NUL.
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
static inline kurv_value kurv_missing(void) {
  return kurv_value_of(KURV_MISSING);
}
static inline kurv_value kurv_integer(int16_t number) {
  kurv_value value = kurv_value_of(KURV_INTEGER);
  value.as.integer = number;
  return value;
}
static inline kurv_value kurv_boolean(int truth) {
  kurv_value value = kurv_value_of(KURV_BOOLEAN);
  value.as.boolean = truth ? -1 : 0;
  return value;
}
static inline kurv_value kurv_single(float number) {
  kurv_value value = kurv_value_of(KURV_SINGLE);
  value.as.single = number;
  return value;
}
static inline kurv_value kurv_double(double number) {
  kurv_value value = kurv_value_of(KURV_DOUBLE);
  value.as.number = number;
  return value;
}
static inline kurv_value kurv_string(const char* text) {
  kurv_value value = kurv_value_of(KURV_STRING);
  value.as.text.bytes = text;
  value.as.text.length = KURV_TERMINATED;
  return value;
}
static inline kurv_value kurv_doubles(const double* data, size_t count) {
  kurv_value value = kurv_value_of(KURV_DOUBLES);
  value.as.doubles.data = data;
  value.as.doubles.count = count;
  return value;
}
// One column after the other, each with its points.
static inline kurv_value kurv_matrix(const double* data, size_t columns, size_t points) {
  kurv_value value = kurv_value_of(KURV_MATRIX);
  value.as.matrix.data = data;
  value.as.matrix.columns = columns;
  value.as.matrix.points = points;
  value.as.matrix.column_stride = (ptrdiff_t)points;
  value.as.matrix.point_stride = 1;
  return value;
}
static inline kurv_value kurv_strings(const kurv_text* data, size_t count) {
  kurv_value value = kurv_value_of(KURV_STRINGS);
  value.as.strings.data = data;
  value.as.strings.count = count;
  return value;
}
static inline kurv_value kurv_booleans(const int16_t* data, size_t count) {
  kurv_value value = kurv_value_of(KURV_BOOLEANS);
  value.as.booleans.data = data;
  value.as.booleans.count = count;
  return value;
}

#ifdef __cplusplus
}
#endif
