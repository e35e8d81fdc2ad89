// Pixels, pictures and graph files.
#define _POSIX_C_SOURCE 200809L
#include <stdlib.h>
#include <unistd.h>

#include "tests/bindings/check.h"

static char folder[] = "/tmp/kurv_c_test_XXXXXX";

static const char* path_of(const char* name) {
  static char path[256];
  snprintf(path, sizeof path, "%s/%s", folder, name);
  return path;
}

static kurv_pixels pixels_of(kurv_graph graph) {
  kurv_pixels pixels;
  pixels.size = sizeof pixels;
  CHECK_OK(kurv_get_pixels(graph, &pixels));
  return pixels;
}

static uint32_t pixel_at(const kurv_pixels* pixels, int x, int y) {
  const char* const row = (const char*)pixels->pixels + y * pixels->stride;
  return ((const uint32_t*)row)[x];
}

static int count_dark(kurv_graph graph) {
  const kurv_pixels pixels = pixels_of(graph);
  int count = 0;
  int x;
  int y;
  for (y = 0; y < pixels.height; ++y) {
    for (x = 0; x < pixels.width; ++x) count += pixel_at(&pixels, x, y) != 0xFFFFFFFFu;
  }
  return count;
}

static void pixels_show_the_graph(void) {
  const kurv_graph graph = new_graph();
  kurv_pixels pixels = pixels_of(graph);
  CHECK(pixels.width == 360 && pixels.height == 240 && pixels.format == KURV_ARGB32);
  CHECK(count_dark(graph) == 0);
  CHECK_OK(load_squares(graph));
  CHECK(count_dark(graph) > 1000);
  CHECK_OK(kurv_resize(graph, 200, 100, 2));
  pixels = pixels_of(graph);
  CHECK(pixels.width == 400 && pixels.height == 200 && count_dark(graph) > 1000);
  CHECK_CALL(KURV_INVALID_CALL, kurv_resize(graph, 0, 100, 1));
  CHECK_CALL(KURV_INVALID_CALL, kurv_resize(graph, 100, 32768, 1));
  CHECK_CALL(KURV_INVALID_CALL, kurv_resize(graph, 100, 100, -1));
  CHECK(pixels_of(graph).width == 400);
  CHECK_CALL(KURV_INVALID_CALL, kurv_get_pixels(graph, NULL));
  CHECK_OK(kurv_destroy(graph));
}

static void pixels_are_copied(void) {
  const kurv_graph graph = new_graph();
  const size_t bytes = 360 * 240 * 4;
  unsigned char* const rgba = malloc(bytes);
  uint32_t* const argb = malloc(bytes);
  size_t i;
  int differences = 0;
  CHECK_OK(load_squares(graph));
  CHECK_OK(kurv_copy_pixels(graph, KURV_RGBA8, rgba, bytes));
  CHECK_OK(kurv_copy_pixels(graph, KURV_ARGB32, argb, bytes));
  for (i = 0; i < bytes / 4; ++i) {
    const unsigned char* const at = rgba + 4 * i;
    const uint32_t colour =
        (uint32_t)at[3] << 24 | (uint32_t)at[0] << 16 | (uint32_t)at[1] << 8 | at[2];
    differences += colour != argb[i];
  }
  CHECK(differences == 0);
  CHECK_CALL(KURV_INVALID_CALL, kurv_copy_pixels(graph, KURV_RGBA8, rgba, bytes - 1));
  CHECK_CALL(KURV_INVALID_CALL, kurv_copy_pixels(graph, 3, rgba, bytes));
  CHECK_CALL(KURV_INVALID_CALL, kurv_copy_pixels(graph, KURV_RGBA8, NULL, bytes));
  free(rgba);
  free(argb);
  CHECK_OK(kurv_destroy(graph));
}

static void pictures_are_saved(void) {
  const kurv_graph graph = new_graph();
  unsigned char begin[8] = {0};
  FILE* file;
  CHECK_OK(load_squares(graph));
  CHECK_OK(kurv_save_png(graph, path_of("squares.png")));
  file = fopen(path_of("squares.png"), "rb");
  CHECK(file != NULL && fread(begin, 1, 8, file) == 8);
  if (file != NULL) fclose(file);
  CHECK(memcmp(begin, "\x89PNG\r\n\x1a\n", 8) == 0);
  unlink(path_of("squares.png"));
  CHECK_CALL(KURV_PATH_NOT_FOUND, kurv_save_png(graph, path_of("nowhere/squares.png")));
  CHECK(detail_has("nowhere/squares.png"));
  CHECK_CALL(KURV_INVALID_CALL, kurv_save_png(graph, NULL));
  CHECK_OK(kurv_destroy(graph));
}

static void graph_files_come_back(void) {
  const kurv_graph graph = new_graph();
  const kurv_graph other = new_graph();
  kurv_value path = kurv_string(path_of("squares.gdf"));
  kurv_value title;
  CHECK_OK(load_squares(graph));
  CHECK_OK(kurv_save_graph(graph, path_of("squares.gdf")));
  CHECK_OK(kurv_call(other, "file_load", &path, 1));
  CHECK_OK(kurv_get(other, "Title", &title));
  CHECK(strcmp(title.as.text.bytes, "Squares") == 0);
  kurv_value_clear(&title);
  CHECK(count_dark(other) > 1000 && pixels_of(other).width == 360);
  unlink(path_of("squares.gdf"));
  CHECK_CALL(KURV_FILE_NOT_FOUND, kurv_call(other, "file_load", &path, 1));
  CHECK(detail_has("squares.gdf"));
  CHECK_CALL(KURV_PATH_NOT_FOUND, kurv_save_graph(graph, path_of("nowhere/squares.gdf")));
  CHECK(detail_has("nowhere/squares.gdf"));
  CHECK_OK(kurv_destroy(graph));
  CHECK_OK(kurv_destroy(other));
}

void test_pictures(void) {
  CHECK(mkdtemp(folder) != NULL);
  pixels_show_the_graph();
  pixels_are_copied();
  pictures_are_saved();
  graph_files_come_back();
  CHECK(rmdir(folder) == 0);
}
