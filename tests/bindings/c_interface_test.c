// The C interface of a graph without a window, from C.
#include "tests/bindings/check.h"

int failures = 0;

kurv_graph new_graph(void) {
  kurv_graph graph = NULL;
  CHECK_OK(kurv_create_pixels(360, 240, 1, &graph));
  return graph;
}

int32_t load_squares(kurv_graph graph) {
  static const double x[] = {1, 2, 3, 4};
  static const double y[] = {1, 4, 9, 16};
  const kurv_text names[] = {{"y", KURV_TERMINATED}};
  kurv_value arguments[9];
  arguments[0] = kurv_matrix(y, 1, 4);
  arguments[1] = kurv_doubles(x, 4);
  arguments[2] = kurv_integer(4);
  arguments[3] = kurv_integer(1);
  arguments[4] = kurv_string("Squares");
  arguments[5] = kurv_string("x");
  arguments[6] = kurv_strings(names, 1);
  arguments[7] = kurv_integer(0);
  arguments[8] = kurv_strings(NULL, 0);
  return kurv_call(graph, "scatter_graph", arguments, 9);
}

int detail_has(const char* words) {
  kurv_error error;
  error.size = sizeof error;
  CHECK_OK(kurv_last_error(&error));
  return strstr(error.detail.bytes, words) != NULL;
}

int main(void) {
  test_life();
  test_members();
  test_arguments();
  test_pictures();
  test_events();
  if (failures > 0) fprintf(stderr, "%d failures\n", failures);
  return failures > 0;
}
