// Handles, threads, memory, and the library as an automation server.
#define _POSIX_C_SOURCE 200809L
#include <math.h>
#include <pthread.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <unistd.h>

#include "tests/bindings/check.h"

#if defined(__SANITIZE_ADDRESS__)
#define HAS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HAS_SANITIZER 1
#endif
#endif

static void graphs_are_made_within_limits(void) {
  kurv_graph graph = NULL;
  CHECK(kurv_version() == KURV_VERSION);
  CHECK(sizeof(kurv_value) == 80 || sizeof(void*) != 8);
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_pixels(0, 10, 1, &graph));
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_pixels(10, -1, 1, &graph));
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_pixels(32768, 10, 1, &graph));
  CHECK(detail_has("from 1 to 32767"));
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_pixels(10, 10, 0, &graph));
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_pixels(10, 10, NAN, &graph));
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_pixels(10, 10, INFINITY, &graph));
  CHECK(detail_has("up to 16"));
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_pixels(10, 10, 1, NULL));
  CHECK(graph == NULL && kurv_living() == 0);
  CHECK_OK(kurv_create_pixels(1, 1, 1, &graph));
  CHECK_OK(load_squares(graph));
  CHECK(kurv_living() == 1);
  CHECK_OK(kurv_detach(graph));
  CHECK(kurv_living() == 0);
}

static void errors_are_kept(void) {
  kurv_error error;
  memset(&error, 0, sizeof error);
  error.size = sizeof error;
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_pixels(0, 10, 1, NULL));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_destroy(NULL));
  CHECK(kurv_member_count() > 0);  // what succeeds changes nothing
  CHECK_OK(kurv_last_error(&error));
  CHECK(error.number == KURV_INVALID_HANDLE && strcmp(error.text.bytes, "Invalid handle") == 0);
  CHECK(error.text.length == 14 && error.detail.length == 0);
  CHECK_CALL(KURV_INVALID_CALL, kurv_last_error(NULL));
}

static void invalid_handles(kurv_graph graph) {
  kurv_value value = kurv_integer(0);
  kurv_pixels pixels;
  void* widget = NULL;
  char buffer[4];
  pixels.size = sizeof pixels;
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_get(graph, "Title", &value));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_get_by_id(graph, 0x680300A7, &value));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_let(graph, "Title", &value));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_let_by_id(graph, 0x680300A7, &value));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_call(graph, "init", NULL, 0));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_call_by_id(graph, 0x600300CF, NULL, 0));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_add_function(graph, "x"));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_derive(graph, "a", "x"));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_append_points(graph, &value));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_replace_points(graph, &value, &value));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_get_pixels(graph, &pixels));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_copy_pixels(graph, KURV_RGBA8, buffer, sizeof buffer));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_save_png(graph, "/tmp/never.png"));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_save_graph(graph, "/tmp/never.gdf"));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_resize(graph, 10, 10, 1));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_listen(graph, NULL, NULL));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_press_mouse(graph, 1, 0, 0, 0));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_release_mouse(graph, 1, 0, 0, 0));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_get_widget(graph, &widget));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_detach(graph));
  CHECK_CALL(KURV_INVALID_HANDLE, kurv_destroy(graph));
}

static void handles_are_never_given_twice(void) {
  const kurv_graph graph = new_graph();
  void* widget = NULL;
  kurv_graph next;
  CHECK_CALL(KURV_NO_WIDGET, kurv_get_widget(graph, &widget));
  CHECK_OK(kurv_destroy(graph));
  next = new_graph();
  CHECK(next != graph);
  invalid_handles(NULL);
  invalid_handles(graph);
  invalid_handles((kurv_graph)&widget);
  CHECK_OK(kurv_destroy(next));
}

static void* use_elsewhere(void* user) {
  const kurv_graph graph = user;
  kurv_error error;
  kurv_value value;
  int i;
  error.size = sizeof error;
  CHECK_OK(kurv_last_error(&error));
  CHECK(error.number == KURV_OK);  // that of another thread is not here
  CHECK_CALL(KURV_WRONG_THREAD, kurv_get(graph, "Title", &value));
  CHECK_OK(kurv_destroy(graph));
  for (i = 0; i < 20; ++i) {
    const kurv_graph own = new_graph();
    CHECK_OK(load_squares(own));
    CHECK_OK(kurv_destroy(own));
  }
  return NULL;
}

static void a_graph_belongs_to_its_thread(void) {
  pthread_t threads[3];
  int i;
  for (i = 0; i < 3; ++i) CHECK(pthread_create(&threads[i], NULL, use_elsewhere, new_graph()) == 0);
  for (i = 0; i < 3; ++i) CHECK(pthread_join(threads[i], NULL) == 0);
  CHECK(kurv_living() == 0);
}

static long resident_pages(void) {
  long all = 0;
  long resident = 0;
  FILE* const file = fopen("/proc/self/statm", "r");
  if (file == NULL || fscanf(file, "%ld %ld", &all, &resident) != 2) CHECK(0);
  if (file != NULL) fclose(file);
  return resident;
}

static void make_many(int count) {
  int i;
  for (i = 0; i < count; ++i) {
    kurv_graph graph = NULL;
    CHECK_OK(kurv_create_pixels(20, 20, 1, &graph));
    CHECK_OK(kurv_destroy(graph));
  }
}

static void memory_does_not_grow(void) {
  long before;
  make_many(500);
  before = resident_pages();
  make_many(10000);
#ifndef HAS_SANITIZER
  CHECK((resident_pages() - before) * sysconf(_SC_PAGESIZE) < 1 << 20);
#else
  (void)before;
#endif
}

static void no_memory_is_an_error(void) {
#ifndef HAS_SANITIZER
  const kurv_graph graph = new_graph();
  struct rlimit before;
  struct rlimit tight;
  kurv_graph large = NULL;
  kurv_error error;
  error.size = sizeof error;
  CHECK(getrlimit(RLIMIT_AS, &before) == 0);
  tight = before;
  tight.rlim_cur = 1 << 20;
  CHECK(setrlimit(RLIMIT_AS, &tight) == 0);
  CHECK_CALL(KURV_OUT_OF_MEMORY, kurv_create_pixels(7680, 4320, 2, &large));
  CHECK_CALL(KURV_OUT_OF_MEMORY, kurv_resize(graph, 7680, 4320, 2));
  CHECK(setrlimit(RLIMIT_AS, &before) == 0);
  CHECK(large == NULL && kurv_living() == 1);
  CHECK_OK(kurv_last_error(&error));
  CHECK(strcmp(error.text.bytes, "Out of memory") == 0);
  CHECK_OK(kurv_resize(graph, 20, 20, 1));
  CHECK_OK(load_squares(graph));
  CHECK_OK(kurv_destroy(graph));
#endif
}

static void the_library_is_an_automation_server(void) {
  const kurv_class_object* object = NULL;
  kurv_graph graph = NULL;
  CHECK_OK(kurv_DllCanUnloadNow());
  CHECK_OK(kurv_DllGetClassObject("{6f0c52b1-7d0e-4c43-9a5c-0e8b1d3f7a26}", &object));
  CHECK(object != NULL && object->size == sizeof *object && strcmp(object->name, "KurvGraph") == 0);
  CHECK_OK(object->create_instance(20, 20, 1, &graph));
  CHECK_CALL(KURV_IN_USE, kurv_DllCanUnloadNow());
  CHECK_OK(kurv_destroy(graph));
  CHECK_OK(kurv_DllCanUnloadNow());
  CHECK_CALL(KURV_CANNOT_CREATE, kurv_DllGetClassObject("{}", &object));
  CHECK(object == NULL);
  CHECK_CALL(KURV_INVALID_CALL, kurv_DllGetClassObject(NULL, &object));
  CHECK_CALL(KURV_INVALID_CALL, kurv_DllGetClassObject(KURV_CLASS_ID, NULL));
  CHECK_CALL(KURV_CANNOT_CREATE, kurv_create_object(KURV_CLASS_ID, 20, 20, 1, &graph));
  CHECK_OK(kurv_DllRegisterServer());
  CHECK_OK(kurv_DllRegisterServer());
  CHECK_CALL(KURV_IN_USE, kurv_DllCanUnloadNow());
  CHECK_OK(kurv_create_object(KURV_CLASS_ID, 20, 20, 1, &graph));
  CHECK_OK(kurv_destroy(graph));
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_object(KURV_CLASS_ID, 0, 20, 1, &graph));
  CHECK_CALL(KURV_INVALID_CALL, kurv_create_object(NULL, 20, 20, 1, &graph));
  // The evaluator of expressions is no graph.
  CHECK_CALL(KURV_TYPE_MISMATCH,
             kurv_create_object("{D10A8894-FCD7-441D-BE94-39703B7B85E3}", 20, 20, 1, &graph));
  CHECK_OK(kurv_DllUnregisterServer());
  CHECK_OK(kurv_DllUnregisterServer());
  CHECK_OK(kurv_DllCanUnloadNow());
}

void test_life(void) {
  the_library_is_an_automation_server();
  graphs_are_made_within_limits();
  errors_are_kept();
  handles_are_never_given_twice();
  a_graph_belongs_to_its_thread();
  memory_does_not_grow();
  no_memory_is_an_error();
}
