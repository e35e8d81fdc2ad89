// A graph in a window of another process:  native_window_host WINDOW
#include <stdlib.h>

#include "tests/bindings/check.h"

int failures = 0;

static void listen(kurv_graph graph, const kurv_event* event, void* user) {
  (void)graph;
  (void)user;
  printf("%s\n", event->name);
  fflush(stdout);
}

int main(int argc, char** argv) {
  static const double numbers[] = {1, 2, 3, 4};
  const kurv_text names[] = {{"y", KURV_TERMINATED}};
  kurv_graph graph = NULL;
  kurv_value data[9];
  int i;
  if (argc != 2) return 2;
  CHECK_CALL(KURV_NO_APPLICATION, kurv_process_events(0));
  CHECK_CALL(KURV_CANNOT_CREATE, kurv_create_in_window(0x7FFFFFF, 300, 200, &graph, NULL));
  CHECK_OK(kurv_create_in_window(strtoul(argv[1], NULL, 10), 300, 200, &graph, NULL));
  CHECK_OK(kurv_listen(graph, listen, NULL));
  data[0] = kurv_matrix(numbers, 1, 4);
  data[1] = kurv_doubles(numbers, 4);
  data[2] = kurv_integer(4);
  data[3] = kurv_integer(1);
  data[4] = kurv_string("Line");
  data[5] = kurv_string("x");
  data[6] = kurv_strings(names, 1);
  data[7] = kurv_integer(0);
  data[8] = kurv_strings(NULL, 0);
  CHECK_OK(kurv_call(graph, "scatter_graph", data, 9));
  // Until the window is closed, but no longer than a minute.
  for (i = 0; failures == 0 && i < 1200; ++i) {
    if (kurv_process_events(50) != KURV_OK || kurv_living() == 0) break;
  }
  return failures > 0;
}
