// Microbenchmarks of the inner loops. Compare only rows of the same run.
#include <KurvGraph/limits.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>
#include <vector>

#include "bench/common/data.h"
#include "bench/common/expression.h"
#include "expr/evaluator.h"
#include "expr/parser.h"
#include "model/selection_order.h"
#include "raster/coverage.h"
#include "raster/monotone_polylines.h"
#include "raster/narrow_segments.h"
#include "raster/sprite.h"
#include "raster/sprite_batch.h"
#include "raster/strokes.h"

namespace kurv {
namespace {

using raster::Canvas;

class Pixels {
 public:
  Pixels(int width, int height)
      : m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0xFFFFFFFF),
        m_canvas{m_pixels.data(), width, height, width} {}

  const Canvas& canvas() const { return m_canvas; }

 private:
  std::vector<std::uint32_t> m_pixels;
  Canvas m_canvas;
};

struct Line {
  std::vector<float> x;
  std::vector<float> y;
  std::vector<std::uint8_t> drawn;
};

// In pixels.
Line line_of(std::string_view kind, int points) {
  const bench::Table data = bench::table(kind, 1, points);
  const bench::Scale scale(data);
  Line line;
  for (std::size_t i = 0; i < data.x.size(); ++i) {
    line.x.push_back(static_cast<float>(scale.x(data.x[i])));
    line.y.push_back(static_cast<float>(scale.y(data.y.front()[i])));
  }
  line.drawn.assign(line.x.size(), 1);
  return line;
}

// A curve of 32,767 points with ascending x; argument: the pen's width.
void monotone_polylines(benchmark::State& state, std::string_view kind) {
  const Line line = line_of(kind, kMaxPoints);
  const raster::Pen pen{1, static_cast<double>(state.range(0)) / 2};
  const Pixels pixels(bench::kWidth, bench::kHeight);
  raster::MonotonePolylines kernel(bench::kWidth, bench::kHeight);
  for ([[maybe_unused]] auto _ : state) {
    kernel.add(pen, {line.x, line.y, line.drawn});
    kernel.flush(pixels.canvas(), 0xFF000080);
  }
}
BENCHMARK_CAPTURE(monotone_polylines, smooth, "waves")
    ->Unit(benchmark::kMicrosecond)
    ->Arg(1)
    ->Arg(2)
    ->Arg(4);
BENCHMARK_CAPTURE(monotone_polylines, noise, "noise")
    ->Unit(benchmark::kMicrosecond)
    ->Arg(1)
    ->Arg(2)
    ->Arg(4);

// A thousand segments between random points; argument: the pen's width.
void segments(benchmark::State& state) {
  const Line line = line_of("scattered", 1001);
  const raster::Pen pen{1, static_cast<double>(state.range(0)) / 2};
  const Pixels pixels(bench::kWidth, bench::kHeight);
  raster::Coverage mask(bench::kWidth, bench::kHeight);
  raster::NarrowSegments narrow_segments(bench::kWidth, bench::kHeight);
  for ([[maybe_unused]] auto _ : state) {
    for (std::size_t i = 1; i < line.x.size(); ++i) {
      add_segment(mask, narrow_segments, pen, {line.x[i - 1], line.y[i - 1]},
                  {line.x[i], line.y[i]});
    }
    narrow_segments.merge_into(mask);
    mask.flush(pixels.canvas(), 0xFF000080);
  }
}
BENCHMARK(segments)->Unit(benchmark::kMicrosecond)->Arg(1)->Arg(2)->Arg(4);

// Ten thousand segments of one length in pixels, in all directions from random points; arguments:
// the length and the pen's width.
void segments_of_length(benchmark::State& state) {
  const Line line = line_of("scattered", 10000);
  const auto length = static_cast<double>(state.range(0));
  const raster::Pen pen{1, static_cast<double>(state.range(1)) / 2};
  const Pixels pixels(bench::kWidth, bench::kHeight);
  raster::Coverage mask(bench::kWidth, bench::kHeight);
  raster::NarrowSegments narrow_segments(bench::kWidth, bench::kHeight);
  for ([[maybe_unused]] auto _ : state) {
    for (std::size_t i = 0; i < line.x.size(); ++i) {
      const double angle = static_cast<double>(i);
      const raster::Point from{line.x[i], line.y[i]};
      add_segment(mask, narrow_segments, pen, from,
                  {from.x + static_cast<float>(length * std::cos(angle)),
                   from.y + static_cast<float>(length * std::sin(angle))});
    }
    narrow_segments.merge_into(mask);
    mask.flush(pixels.canvas(), 0xFF000080);
  }
}
BENCHMARK(segments_of_length)
    ->Unit(benchmark::kMicrosecond)
    ->ArgsProduct({{5, 10, 30, 100, 300}, {1, 2, 4}});

// A framed square of 9 pixels with soft edges.
raster::Sprite framed_square() {
  constexpr int kSide = 9;
  const Pixels white(kSide, kSide), black(kSide, kSide);
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const int inside = std::min(std::min(x, y), kSide - 1 - std::max(x, y));
      const bool is_soft = inside == 0;
      white.canvas().row(y)[x] = is_soft ? 0xFF8080FF : inside == 1 ? 0xFF0000FF : 0xFFFFFFFF;
      black.canvas().row(y)[x] = is_soft ? 0xFF000080 : inside == 1 ? 0xFF0000FF : 0xFFFFFFFF;
    }
  }
  return {white.canvas(), black.canvas(), kSide / 2, kSide / 2};
}

// A sprite at 32,767 positions.
void sprites(benchmark::State& state) {
  const Line line = line_of("noise", kMaxPoints);
  const std::vector<double> x(line.x.begin(), line.x.end()), y(line.y.begin(), line.y.end());
  const raster::Sprite sprite = framed_square();
  const Pixels pixels(bench::kWidth, bench::kHeight);
  raster::SpriteBatch kernel;
  for ([[maybe_unused]] auto _ : state) {
    kernel.add(x, y, 1, [&sprite](int, int) { return sprite; });
    kernel.flush(pixels.canvas());
  }
}
BENCHMARK(sprites)->Unit(benchmark::kMicrosecond);

// The sorted order of 32,767 points.
void order(benchmark::State& state, std::string_view kind) {
  const std::vector<double> x = bench::table(kind, 1, kMaxPoints).x;
  const Column<const Double> values(x.data(), 1, kMaxPoints);
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(selection_sort_exchanges(values, kMaxPoints).size());
  }
}
BENCHMARK_CAPTURE(order, shuffled, "shuffled")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(order, sorted, "waves")->Unit(benchmark::kMicrosecond);

// One value from the evaluator, as a host computes it.
void evaluator(benchmark::State& state) {
  const std::unique_ptr<ExprEvaluator> tool = make_evaluator();
  int i = 0;
  for ([[maybe_unused]] auto _ : state) {
    tool->SetVariable("x", bench::argument(++i));
    tool->SetExpression(bench::kExpression);
    benchmark::DoNotOptimize(tool->Evaluate());
    benchmark::DoNotOptimize(tool->GetEvalError());
  }
}
BENCHMARK(evaluator);

// One value from the compiled program only.
void program(benchmark::State& state) {
  expr::Program compiled = expr::compile(bench::kExpression).program;
  double x = 0;
  std::vector<const Double*> operands;
  for (const expr::Operand& operand : compiled.operands()) {
    operands.push_back(operand.name.empty() ? &operand.number : &x);
  }
  int i = 0;
  for ([[maybe_unused]] auto _ : state) {
    x = bench::argument(++i);
    benchmark::DoNotOptimize(compiled.run(operands.data()));
  }
}
BENCHMARK(program);

}  // namespace
}  // namespace kurv

BENCHMARK_MAIN();
