// Cairo: one stroked path per curve.
#include <cairo.h>

#include "bench/common/data.h"
#include "bench/common/shapes.h"
#include "bench/common/subject.h"

namespace {

void clear(cairo_t* cairo) {
  cairo_set_source_rgb(cairo, 1, 1, 1);
  cairo_paint(cairo);
}

void set_pen(cairo_t* cairo, std::uint32_t colour, double width) {
  cairo_set_source_rgb(cairo, (colour >> 16) / 255.0, ((colour >> 8) & 255) / 255.0,
                       (colour & 255) / 255.0);
  cairo_set_line_width(cairo, width);
  cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
}

void measure(const bench::Drawing& drawing, cairo_t* cairo) {
  const bench::Table data = bench::table(drawing.kind, drawing.curves, drawing.points);
  const bench::Scale scale(data);
  bench::serve([&] {
    clear(cairo);
    for (int k = 1; k <= drawing.curves; ++k) {
      set_pen(cairo, bench::colour_of(k), drawing.width);
      const std::vector<double>& y = data.y[static_cast<std::size_t>(k - 1)];
      for (std::size_t i = 0; i < data.x.size(); ++i) {
        cairo_line_to(cairo, scale.x(data.x[i]), scale.y(y[i]));
      }
      cairo_stroke(cairo);
    }
  });
}

void draw_shape(const bench::Arguments& arguments) {
  const bench::Shape shape = bench::shape_of(arguments.at(2));
  cairo_surface_t* const surface =
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, shape.width, shape.height);
  cairo_t* const cairo = cairo_create(surface);
  clear(cairo);
  set_pen(cairo, 0, std::stod(arguments.at(3)));
  for (const bench::ShapePoint& point : shape.points) cairo_line_to(cairo, point.x, point.y);
  cairo_stroke(cairo);
  cairo_surface_flush(surface);
  bench::write_coverage(
      arguments.at(4),
      bench::coverage_of(cairo_image_surface_get_data(surface),
                         static_cast<std::size_t>(cairo_image_surface_get_stride(surface)),
                         shape.width, shape.height));
  cairo_destroy(cairo);
  cairo_surface_destroy(surface);
}

void run(const bench::Arguments& arguments) {
  if (arguments.at(1) == "shape") return draw_shape(arguments);
  cairo_surface_t* const surface =
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, bench::kWidth, bench::kHeight);
  cairo_t* const cairo = cairo_create(surface);
  measure(bench::drawing_of(arguments), cairo);
  cairo_destroy(cairo);
  cairo_surface_destroy(surface);
}

}  // namespace

int main(int argc, char** argv) {
  return bench::subject_main(argc, argv, run);
}
