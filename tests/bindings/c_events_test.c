// Events, and what a listener may do.
#include "tests/bindings/check.h"

typedef struct {
  int mouse;
  int messages;
  int redraws;
  float x;
  char text[200];
  kurv_graph graph;
} seen;

static void listen(kurv_graph graph, const kurv_event* event, void* user) {
  seen* const all = user;
  CHECK(event->size == sizeof *event);
  all->graph = graph;
  if (event->id == KURV_MOUSE_UP) {
    CHECK(strcmp(event->name, "MouseUp") == 0 && event->count == 4);
    CHECK(event->arguments[0].type == KURV_INTEGER && event->arguments[3].type == KURV_SINGLE);
    all->mouse += event->arguments[0].as.integer;
    all->x = event->arguments[2].as.single;
  } else if (event->id == KURV_MESSAGE) {
    CHECK(event->count == 3);
    ++all->messages;
    snprintf(all->text, sizeof all->text, "%s", event->arguments[0].as.text.bytes);
  } else {
    CHECK(event->id == KURV_REDRAWN && event->count == 0);
    ++all->redraws;
  }
}

static void events_reach_their_own_listener(void) {
  const kurv_graph graph = new_graph();
  const kurv_graph other = new_graph();
  seen own = {0};
  seen others = {0};
  kurv_value point[9];
  CHECK_OK(kurv_listen(graph, listen, &own));
  CHECK_OK(kurv_listen(other, listen, &others));
  CHECK_OK(load_squares(graph));
  CHECK(own.redraws == 1 && own.graph == graph && others.redraws == 0);
  CHECK_OK(kurv_press_mouse(graph, 2, 0, 2000, 1500));
  CHECK_OK(kurv_release_mouse(graph, 2, 1, 2100, 1500));
  CHECK(own.mouse == 2 && own.x == 2100 && others.mouse == 0);
  point[0] = kurv_matrix(NULL, 0, 0);
  point[1] = kurv_doubles(NULL, 0);
  point[2] = point[3] = point[7] = kurv_integer(0);
  point[4] = point[5] = kurv_string("");
  point[6] = point[8] = kurv_strings(NULL, 0);
  CHECK_OK(kurv_call(graph, "scatter_graph", point, 9));
  CHECK(own.messages == 1 && strstr(own.text, "cannot be plotted") != NULL);
  CHECK_OK(kurv_listen(graph, NULL, NULL));
  CHECK_OK(kurv_release_mouse(graph, 1, 0, 2100, 1500));
  CHECK(own.mouse == 2);
  CHECK_OK(kurv_destroy(graph));
  CHECK_OK(kurv_destroy(other));
}

static void destroy_at_once(kurv_graph graph, const kurv_event* event, void* user) {
  kurv_value title;
  if (event->id != KURV_MOUSE_UP) return;
  ++*(int*)user;
  CHECK_OK(kurv_destroy(graph));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_get(graph, "Title", &title));
}

static void a_listener_may_destroy_the_graph(void) {
  const kurv_graph graph = new_graph();
  const size_t living = kurv_living();
  int calls = 0;
  CHECK_OK(load_squares(graph));
  CHECK_OK(kurv_listen(graph, destroy_at_once, &calls));
  CHECK_OK(kurv_press_mouse(graph, 1, 0, 2000, 1500));
  CHECK_OK(kurv_release_mouse(graph, 1, 0, 2000, 1500));
  CHECK(calls == 1 && kurv_living() == living - 1);
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_release_mouse(graph, 1, 0, 2000, 1500));
}

static void an_unsaved_graph_ends_without_a_question(void) {
  const kurv_graph graph = new_graph();
  seen own = {0};
  const kurv_value yes = kurv_boolean(1);
  CHECK_OK(load_squares(graph));
  CHECK_OK(kurv_let(graph, "QueryForSave", &yes));
  CHECK_OK(kurv_listen(graph, listen, &own));
  CHECK_OK(kurv_destroy(graph));
  CHECK(own.messages == 0);
}

void test_events(void) {
  events_reach_their_own_listener();
  a_listener_may_destroy_the_graph();
  an_unsaved_graph_ends_without_a_question();
}
