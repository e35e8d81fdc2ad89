// Calls: arrays, omitted arguments, arguments that are passed by reference, and wrong ones.
#include <math.h>

#include "tests/bindings/check.h"

static const double kX[] = {1, 2, 3};
// Two curves, point by point.
static const double kPoints[] = {1, 10, 2, 20, 3, 30};
static const kurv_text kNames[] = {{"up", 2}, {"down", KURV_TERMINATED}};
static const kurv_text kFunctions[] = {{"x^2", KURV_TERMINATED}};

static void fill(kurv_value* arguments) {
  arguments[0] = kurv_matrix(kPoints, 2, 3);
  arguments[0].as.matrix.column_stride = 1;
  arguments[0].as.matrix.point_stride = 2;
  arguments[1] = kurv_doubles(kX, 3);
  arguments[2] = kurv_integer(3);
  arguments[3] = kurv_integer(2);
  arguments[4] = kurv_string("Two curves");
  arguments[5] = kurv_string("x");
  arguments[6] = kurv_strings(kNames, 2);
  arguments[7] = kurv_integer(1);
  arguments[8] = kurv_strings(kFunctions, 1);
  arguments[9] = kurv_boolean(1);
  arguments[10] = kurv_boolean(0);
}

static double number(kurv_graph graph, const char* name) {
  kurv_value value = kurv_missing();
  CHECK_OK(kurv_get(graph, name, &value));
  return value.type == KURV_BOOLEAN ? value.as.boolean : value.as.number;
}

static void optional_arguments_may_be_omitted(kurv_graph graph) {
  kurv_value arguments[11];
  fill(arguments);
  CHECK_OK(kurv_call(graph, "scatter_graph", arguments, 11));
  CHECK(number(graph, "Connected") == -1 && number(graph, "DrawMarkers") == 0);
  CHECK(number(graph, "xmin") == 1 && number(graph, "xmax") == 3 && number(graph, "ymax") == 30);
  CHECK_OK(kurv_call(graph, "scatter_graph", arguments, 9));
  CHECK(number(graph, "Connected") == 0);
  arguments[9] = kurv_missing();
  arguments[10] = kurv_boolean(1);
  CHECK_OK(kurv_call_by_id(graph, 0x600300D7, arguments, 11));
  CHECK(number(graph, "Connected") == 0 && number(graph, "DrawMarkers") == -1);
  CHECK_CALL(KURV_ARGUMENT_MISSING, kurv_call(graph, "scatter_graph", arguments, 8));
  CHECK_CALL(KURV_TOO_MANY_ARGUMENTS, kurv_call(graph, "init", arguments, 1));
  CHECK_CALL(KURV_TOO_MANY_ARGUMENTS, kurv_call(graph, "init", arguments, SIZE_MAX));
  CHECK_CALL(KURV_INVALID_CALL, kurv_call(graph, "file_load", NULL, 1));
  CHECK_CALL(KURV_INVALID_CALL, kurv_call(graph, NULL, NULL, 0));
}

// No method of this version writes to its arguments.
static void arguments_come_back(kurv_graph graph) {
  kurv_value arguments[11];
  int i;
  fill(arguments);
  CHECK_OK(kurv_call(graph, "scatter_graph", arguments, 11));
  for (i = 0; i < 11; ++i) CHECK(arguments[i].owner == NULL);
  CHECK(arguments[0].as.matrix.data == kPoints && arguments[1].as.doubles.data == kX);
}

static void one_matrix_with_flags(kurv_graph graph) {
  static const double xy[] = {1, 2, 3, 5, 6, 7, 50, 60, 70};
  static const int16_t flags[] = {-1, 0};
  const kurv_text names[] = {{"x", 1}, {"shown", 5}, {"hidden", 6}};
  kurv_value arguments[8];
  arguments[0] = kurv_string("T");
  arguments[1] = kurv_matrix(xy, 3, 3);
  arguments[2] = kurv_strings(names, 3);
  arguments[3] = kurv_double(3);
  arguments[4] = kurv_string("2");
  arguments[5] = kurv_booleans(flags, 2);
  arguments[6] = kurv_integer(0);
  arguments[7] = kurv_strings(NULL, 0);
  CHECK_OK(kurv_call(graph, "scatter_graph2", arguments, 8));
  CHECK(number(graph, "ymax") < 50);  // hidden curves do not count
  arguments[5].as.booleans.count = 1;
  CHECK_CALL(KURV_OUT_OF_RANGE, kurv_call(graph, "scatter_graph2", arguments, 8));
}

static int32_t call_with(kurv_graph graph, int index, kurv_value value) {
  kurv_value arguments[11];
  fill(arguments);
  arguments[index] = value;
  return kurv_call(graph, "scatter_graph", arguments, 11);
}

static void wrong_arguments(kurv_graph graph) {
  kurv_value value = kurv_matrix(kPoints, SIZE_MAX, SIZE_MAX);
  CHECK_CALL(KURV_OVERFLOW, call_with(graph, 0, value));
  CHECK_CALL(KURV_INVALID_CALL, call_with(graph, 0, kurv_matrix(NULL, 2, 3)));
  CHECK_CALL(KURV_OUT_OF_RANGE, call_with(graph, 0, kurv_matrix(NULL, 0, 0)));
  CHECK_CALL(KURV_TYPE_MISMATCH, call_with(graph, 0, kurv_doubles(kX, 3)));
  CHECK_CALL(KURV_TYPE_MISMATCH, call_with(graph, 0, kurv_missing()));
  CHECK_CALL(KURV_OUT_OF_RANGE, call_with(graph, 1, kurv_doubles(kX, 2)));
  CHECK_CALL(KURV_OVERFLOW, call_with(graph, 1, kurv_doubles(kX, SIZE_MAX)));
  CHECK_CALL(KURV_INVALID_CALL, call_with(graph, 1, kurv_doubles(NULL, 3)));
  value = kurv_doubles(kX, 3);
  value.lower = INT32_MAX;
  CHECK_CALL(KURV_OVERFLOW, call_with(graph, 1, value));
  value.lower = INT32_MIN;
  CHECK_CALL(KURV_OUT_OF_RANGE, call_with(graph, 1, value));
  CHECK_CALL(KURV_OVERFLOW, call_with(graph, 2, kurv_double(40000)));
  CHECK_CALL(KURV_OVERFLOW, call_with(graph, 2, kurv_double(NAN)));
  CHECK_CALL(KURV_OUT_OF_RANGE, call_with(graph, 3, kurv_integer(150)));
  CHECK_CALL(KURV_OUT_OF_RANGE, call_with(graph, 6, kurv_strings(kNames, 1)));
  CHECK_CALL(KURV_INVALID_CALL, call_with(graph, 6, kurv_strings(NULL, 2)));
  CHECK_CALL(KURV_OVERFLOW, call_with(graph, 6, kurv_strings(kNames, SIZE_MAX)));
  CHECK_CALL(KURV_TYPE_MISMATCH, call_with(graph, 6, kurv_booleans(NULL, 0)));
}

static void missing_values_are_nan(kurv_graph graph) {
  static const double y[] = {1, NAN, 3};
  kurv_value arguments[11];
  fill(arguments);
  arguments[0] = kurv_matrix(y, 1, 3);
  arguments[3] = kurv_integer(1);
  CHECK_OK(kurv_call(graph, "scatter_graph", arguments, 11));
  CHECK(arguments[0].as.matrix.data == y);
  CHECK(number(graph, "ymax") == 3);
}

static void curves_from_expressions(kurv_graph graph) {
  kurv_value arguments[11];
  fill(arguments);
  CHECK_OK(kurv_call(graph, "scatter_graph", arguments, 11));
  CHECK_OK(kurv_add_function(graph, "sin(x)"));
  CHECK_CALL(KURV_INVALID_CALL, kurv_add_function(graph, "sin("));
  CHECK(detail_has("."));
  CHECK_OK(kurv_derive(graph, "sum", "up+down"));
  CHECK_CALL(KURV_INVALID_CALL, kurv_derive(graph, "sum2", "up+nothing"));
  CHECK_CALL(KURV_INVALID_CALL, kurv_derive(graph, NULL, "up"));
  CHECK(number(graph, "ymax") == 40);
}

// Of graphs that show 10, 20, 30 and 40, 30, 20 over 1, 2, 3.
static void points_that_come_later(kurv_graph graph) {
  static const double later[] = {4, 50, 10}; /* x, up, down */
  static const double others[] = {1, 2, 7, 8, 9, 5};
  static const kurv_text names[] = {
      {"time", KURV_TERMINATED}, {"first", KURV_TERMINATED}, {"second", KURV_TERMINATED}};
  const kurv_value added = kurv_matrix(later, 3, 1);
  const kurv_value narrow = kurv_matrix(later, 2, 1);
  const kurv_value replaced = kurv_matrix(others, 3, 2);
  const kurv_value new_names = kurv_strings(names, 3);
  const kurv_value few_names = kurv_strings(names, 1);
  const kurv_value text = kurv_string("4");
  kurv_value arguments[11];
  fill(arguments);
  CHECK_OK(kurv_call(graph, "scatter_graph", arguments, 11));
  CHECK_OK(kurv_append_points(graph, &added));
  CHECK(number(graph, "ymax") == 50);
  CHECK(number(graph, "xmax") == 4);
  CHECK_CALL(KURV_OUT_OF_RANGE, kurv_append_points(graph, &narrow));
  CHECK_CALL(KURV_TYPE_MISMATCH, kurv_append_points(graph, &text));
  CHECK_CALL(KURV_INVALID_CALL, kurv_append_points(graph, NULL));
  CHECK_OK(kurv_replace_points(graph, &replaced, &new_names));
  CHECK(number(graph, "ymax") == 9);
  CHECK(number(graph, "xmax") == 2);
  CHECK_OK(kurv_derive(graph, "difference", "first-second"));
  CHECK_CALL(KURV_TYPE_MISMATCH, kurv_replace_points(graph, &replaced, &text));
  CHECK_CALL(KURV_OUT_OF_RANGE, kurv_replace_points(graph, &replaced, &few_names));
}

void test_arguments(void) {
  const kurv_graph graph = new_graph();
  optional_arguments_may_be_omitted(graph);
  arguments_come_back(graph);
  one_matrix_with_flags(graph);
  wrong_arguments(graph);
  missing_values_are_nan(graph);
  curves_from_expressions(graph);
  points_that_come_later(graph);
  CHECK_OK(kurv_destroy(graph));
}
