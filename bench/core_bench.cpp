// How long the parts of a redraw take. Compare rows of one run with each other.
#include <KurvGraph/picture.h>
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <cmath>
#include <random>

#include "core/data_set.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

Matrix<Double> waves(int curves, int points) {
  Matrix<Double> data(1, curves + 1, 1, points);
  for (int i = 1; i <= points; ++i) {
    data(1, i) = i;
    for (int k = 1; k <= curves; ++k) data(k + 1, i) = std::sin(i * 40.0 / points + k) * k;
  }
  return data;
}

// One whole redraw; arguments: curves, points, markers.
void redraw(benchmark::State& state) {
  const int curves = static_cast<int>(state.range(0));
  const int points = static_cast<int>(state.range(1));
  test::PlainContainer container;
  test::ScriptedShell shell;
  Picture picture(QSize(1000, 700));
  Control control(container, shell, picture);
  control.first_placement();
  control.show();
  control.scatter_graph2(
      "T", waves(curves, points),
      test::names(std::vector<String>(static_cast<std::size_t>(curves) + 1, "c")),
      static_cast<Integer>(points), static_cast<Integer>(curves),
      test::flags(std::vector<Boolean>(static_cast<std::size_t>(curves), true)), 0, {},
      Boolean(true), Boolean(state.range(2) != 0));
  for ([[maybe_unused]] auto _ : state) {
    control.build_the_graph();
    benchmark::DoNotOptimize(picture.image().constBits());
  }
}
BENCHMARK(redraw)
    ->Unit(benchmark::kMillisecond)
    ->ArgNames({"curves", "points", "markers"})
    ->Args({3, 100, 0})
    ->Args({3, 100, 1})
    ->Args({1, 32767, 0})
    ->Args({10, 32767, 0})
    ->Args({10, 32767, 1})
    ->Args({149, 32767, 0});

// Sorting 150 columns of random x; argument: points.
void sort(benchmark::State& state) {
  GraphDocument document;
  document.NumData = static_cast<Integer>(state.range(0));
  document.NumY = 149;
  Matrix<Double> data(0, 150, 0, document.NumData);
  std::mt19937 generator(1);
  for (int i = 1; i <= document.NumData; ++i)
    data(1, i) = std::uniform_real_distribution<>()(generator);
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    document.xyArr = data;
    state.ResumeTiming();
    Sort_xy(document, *library_services().swap);
  }
}
BENCHMARK(sort)->Unit(benchmark::kMillisecond)->Arg(1000)->Arg(32767);

}  // namespace
}  // namespace kurv

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
