// Anti-Grain Geometry: its rasteriser of antialiased outlines, which is meant for such lines, and
// strokes as filled polygons.
#include <agg2/agg_conv_stroke.h>
#include <agg2/agg_path_storage.h>
#include <agg2/agg_pixfmt_rgba.h>
#include <agg2/agg_rasterizer_outline_aa.h>
#include <agg2/agg_rasterizer_scanline_aa.h>
#include <agg2/agg_renderer_outline_aa.h>
#include <agg2/agg_renderer_scanline.h>
#include <agg2/agg_scanline_u.h>

#include "bench/common/data.h"
#include "bench/common/shapes.h"
#include "bench/common/subject.h"

namespace {

using Pixels = agg::pixfmt_bgra32_pre;
using Base = agg::renderer_base<Pixels>;

class Canvas {
 public:
  Canvas(int width, int height)
      : m_bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4),
        m_buffer(m_bytes.data(), static_cast<unsigned>(width), static_cast<unsigned>(height),
                 width * 4),
        m_pixels(m_buffer),
        m_base(m_pixels) {
    clear();
  }

  void clear() { m_base.clear(agg::rgba8(255, 255, 255)); }

  void outline(agg::path_storage& path, agg::rgba8 colour, double width) {
    using Renderer = agg::renderer_outline_aa<Base>;
    agg::line_profile_aa profile;
    profile.width(width);
    Renderer renderer(m_base, profile);
    renderer.color(colour);
    agg::rasterizer_outline_aa<Renderer> rasterizer(renderer);
    rasterizer.line_join(agg::outline_round_join);
    rasterizer.round_cap(true);
    rasterizer.add_path(path);
  }

  void stroke(agg::path_storage& path, agg::rgba8 colour, double width) {
    agg::conv_stroke<agg::path_storage> stroke(path);
    stroke.width(width);
    stroke.line_join(agg::round_join);
    stroke.line_cap(agg::round_cap);
    m_rasterizer.reset();
    m_rasterizer.add_path(stroke);
    agg::render_scanlines_aa_solid(m_rasterizer, m_scanline, m_base, colour);
  }

  const unsigned char* bytes() const { return m_bytes.data(); }

 private:
  std::vector<unsigned char> m_bytes;
  agg::rendering_buffer m_buffer;
  Pixels m_pixels;
  Base m_base;
  agg::rasterizer_scanline_aa<> m_rasterizer;
  agg::scanline_u8 m_scanline;
};

void draw(Canvas& canvas, agg::path_storage& path, agg::rgba8 colour, double width,
          const std::string& method) {
  if (method == "outline") {
    canvas.outline(path, colour, width);
  } else {
    canvas.stroke(path, colour, width);
  }
}

void add(agg::path_storage& path, double x, double y) {
  if (path.total_vertices() == 0) {
    path.move_to(x, y);
  } else {
    path.line_to(x, y);
  }
}

agg::rgba8 colour_of(int curve) {
  const std::uint32_t colour = bench::colour_of(curve);
  return agg::rgba8(colour >> 16, (colour >> 8) & 255, colour & 255);
}

void measure(const bench::Drawing& drawing) {
  const bench::Table data = bench::table(drawing.kind, drawing.curves, drawing.points);
  const bench::Scale scale(data);
  Canvas canvas(bench::kWidth, bench::kHeight);
  bench::serve([&] {
    canvas.clear();
    for (int k = 1; k <= drawing.curves; ++k) {
      agg::path_storage path;
      const std::vector<double>& y = data.y[static_cast<std::size_t>(k - 1)];
      for (std::size_t i = 0; i < data.x.size(); ++i) {
        add(path, scale.x(data.x[i]), scale.y(y[i]));
      }
      draw(canvas, path, colour_of(k), drawing.width, drawing.method);
    }
  });
}

void draw_shape(const bench::Arguments& arguments) {
  const bench::Shape shape = bench::shape_of(arguments.at(2));
  Canvas canvas(shape.width, shape.height);
  agg::path_storage path;
  for (const bench::ShapePoint& point : shape.points) add(path, point.x, point.y);
  draw(canvas, path, agg::rgba8(0, 0, 0), std::stod(arguments.at(3)), arguments.at(0));
  bench::write_coverage(
      arguments.at(4), bench::coverage_of(canvas.bytes(), static_cast<std::size_t>(shape.width) * 4,
                                          shape.width, shape.height));
}

}  // namespace

int main(int argc, char** argv) {
  return bench::subject_main(argc, argv, [](const bench::Arguments& arguments) {
    if (arguments.at(1) == "shape") {
      draw_shape(arguments);
    } else {
      measure(bench::drawing_of(arguments));
    }
  });
}
