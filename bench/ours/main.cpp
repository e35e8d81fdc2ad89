// The control as the subject of comparisons.
//
//   bench_ours redraw KIND CURVES POINTS WIDTH [moving]    lines
//   bench_ours markers KIND CURVES POINTS 1
//   bench_ours undo KIND CURVES POINTS            a cell that was edited, back and forth
//   bench_ours nearest KIND CURVES POINTS         the point under the pointer
//   bench_ours zoom KIND CURVES POINTS WIDTH      a step of the wheel, in and out in turn
//   bench_ours growth                             prints curves, points, milliseconds
//   bench_ours sort KIND [shared], load FILE, save FILE CURVES POINTS, evaluate, run_program
//   bench_ours write FILE KIND CURVES POINTS
//   bench_ours METHOD shape NAME WIDTH FILE
//   bench_ours qt ...                             the same in a program that has Qt in any case
#include <KurvGraph/limits.h>

#include <QGuiApplication>
#include <algorithm>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <utility>

#include "bench/common/expression.h"
#include "bench/common/shapes.h"
#include "bench/common/sorting.h"
#include "bench/common/subject.h"
#include "bench/ours/control_fixture.h"
#include "control/point_finder.h"
#include "control/table_edits.h"
#include "control/zoom.h"
#include "expr/evaluator.h"
#include "expr/parser.h"
#include "model/data_set.h"
#include "model/vzeroupper.h"

namespace {

static_assert(bench::kSortedColumns == kurv::kMaxCurves + 1);
static_assert(bench::kSortedPoints == kurv::kMaxPoints);
static_assert(bench::kLargePoints == kurv::kMaxPoints);

using bench::Arguments;
using bench::ControlFixture;

void redraw(const Arguments& arguments) {
  const bench::Drawing drawing = bench::drawing_of(arguments);
  const bool markers = drawing.method == "markers";
  ControlFixture fixture;
  fixture.control.set_CurvesWidth(static_cast<kurv::Integer>(drawing.width));
  const bench::Table data = bench::table(drawing.kind, drawing.curves, drawing.points);
  fixture.load(data, !markers, markers);
  const bench::Range x = bench::Scale(data).x_range();
  bench::MovingEnd end(x.low, x.high);
  bench::serve([&] {
    if (drawing.is_moving) fixture.control.set_xmax(end.next());
    fixture.redraw();
  });
}

void undo(const Arguments& arguments) {
  ControlFixture fixture;
  fixture.load(
      bench::table(arguments.at(1), std::stoi(arguments.at(2)), std::stoi(arguments.at(3))));
  fixture.control.set_undo_enabled(true);
  apply_table_edits(fixture.control.state(), {{kurv::kMaxPoints / 2, 2, 0.5}});
  bench::serve([&] {
    if (!fixture.control.undo()) fixture.control.redo();
    static_cast<void>(fixture.picture.image());
  });
}

void zoom(const Arguments& arguments) {
  const bench::Drawing drawing = bench::drawing_of(arguments);
  ControlFixture fixture;
  fixture.load(bench::table(drawing.kind, drawing.curves, drawing.points));
  fixture.control.set_undo_enabled(true);
  bool is_in = false;
  bench::serve([&] {
    is_in = !is_in;
    const double factor = is_in ? 0.8 : 1.25;
    kurv::ControlState& state = fixture.control.state();
    kurv::zoom_at(state, {7500, 5000}, {factor, factor});
    static_cast<void>(fixture.picture.image());
  });
}

// At another place each time, as a pointer that moves over the plot. The first searches, which
// compute what later ones use, are not counted: they are in the warm-up.
void nearest(const Arguments& arguments) {
  ControlFixture fixture;
  fixture.load(
      bench::table(arguments.at(1), std::stoi(arguments.at(2)), std::stoi(arguments.at(3))));
  const kurv::ControlState& state = fixture.control.state();
  const kurv::PlotRect& plot = state.layout.plot;
  const double reach = 8 * fixture.picture.twips_per_device_pixel();
  kurv::PointFinder finder;
  bench::Random random(2);
  double sum = 0;
  bench::serve([&] {
    const double x = random.between(plot.PlotLeft, plot.PlotLeft + plot.PlotWidth);
    const double y = random.between(plot.PlotTop, plot.PlotTop + plot.PlotHeight);
    if (const auto point = finder.nearest(state, {x, y}, reach)) sum += point->value.y;
  });
  bench::keep(sum);
}

double min_milliseconds(const bench::Work& work) {
  double minimum = bench::milliseconds_of(work);
  for (int i = 0; i < 6; ++i) minimum = std::min(minimum, bench::milliseconds_of(work));
  return minimum;
}

void growth() {
  for (const int curves : {1, 10, 50, kurv::kMaxCurves}) {
    for (const int points : {1000, 2000, 4000, 8000, 16000, kurv::kMaxPoints}) {
      ControlFixture fixture;
      fixture.load(bench::table("noise", curves, points));
      std::cout << curves << ' ' << points << ' ' << min_milliseconds([&] { fixture.redraw(); })
                << std::endl;
    }
  }
}

// Reuses the allocated memory, as the peer does: new memory would add page faults.
void write_over(kurv::Matrix<kurv::Double>& matrix, const bench::Table& data) {
  const auto put = [&](int index, const std::vector<double>& values) {
    const auto column = matrix.column(index);
    std::copy(values.begin(), values.end(), &column(1));
  };
  put(1, data.x);
  for (int k = 1; k < bench::kSortedColumns; ++k) {
    put(k + 1, data.y[static_cast<std::size_t>(k - 1)]);
  }
}

void sort(const Arguments& arguments) {
  const bench::Table data =
      bench::table(arguments.at(1), bench::kSortedColumns - 1, bench::kSortedPoints);
  const bool is_sorted = std::is_sorted(data.x.begin(), data.x.end());
  kurv::GraphDocument document;
  document.NumData = bench::kSortedPoints;
  document.NumY = bench::kSortedColumns - 1;
  document.xyArr = bench::matrix_of(data);
  // As in a control, which shares columns between the points in the host's order and the sorted
  // ones.
  const bool is_shared = arguments.size() > 2 && arguments[2] == "shared";
  const kurv::Matrix<kurv::Double> given = document.xyArr;
  if (!is_shared && !is_sorted) write_over(document.xyArr, data);
  const auto sort = [&] { kurv::Sort_xy(document, *kurv::library_services().swap); };
  if (is_sorted) {
    bench::serve(sort);
  } else if (is_shared) {
    bench::serve([&] { document.xyArr = given; }, sort);
  } else {
    bench::serve([&] { write_over(document.xyArr, data); }, sort);
  }
  const auto column = std::as_const(document.xyArr).column(2);
  std::cout << bench::fingerprint(&column(1), bench::kSortedPoints) << std::endl;
}

void load(const Arguments& arguments) {
  ControlFixture fixture;
  bench::serve([&] { fixture.control.file_load(arguments.at(1)); });
  if (!fixture.shell.messages.empty()) throw std::runtime_error("the graph was refused");
}

void save_as(ControlFixture& fixture, const std::string& path) {
  fixture.shell.files.push_back({path, 1});
  fixture.control.ChartOptions("saveas");
}

// Overwrites the file each time, like a user who saves now and then.
void save(const Arguments& arguments) {
  ControlFixture fixture;
  fixture.load(bench::table("waves", std::stoi(arguments.at(2)), std::stoi(arguments.at(3))));
  save_as(fixture, arguments.at(1));
  bench::serve([&] {
    fixture.document().GraphSaved = false;
    fixture.control.Save_graph();
  });
}

void write(const Arguments& arguments) {
  ControlFixture fixture;
  fixture.load(
      bench::table(arguments.at(2), std::stoi(arguments.at(3)), std::stoi(arguments.at(4))));
  save_as(fixture, arguments.at(1));
  if (!std::filesystem::exists(arguments.at(1))) throw std::runtime_error("nothing was written");
}

// As a host does: sets variable and expression for each value.
void evaluate() {
  const std::unique_ptr<kurv::ExprEvaluator> evaluator = kurv::make_evaluator();
  double sum = 0;
  bench::serve([&] {
    for (int i = 0; i < bench::kEvaluations; ++i) {
      evaluator->SetVariable("x", bench::argument(i));
      evaluator->SetExpression(bench::kExpression);
      const double value = evaluator->Evaluate();
      if (!evaluator->GetEvalError()) sum += value;
    }
  });
  bench::keep(sum);
}

void run_program() {
  kurv::expr::Program program = kurv::expr::compile(bench::kExpression).program;
  double x = 0;
  std::vector<const double*> operands;
  for (const kurv::expr::Operand& operand : program.operands()) {
    operands.push_back(operand.name.empty() ? &operand.number : &x);
  }
  double sum = 0;
  bench::serve([&] {
    kurv::issue_vzeroupper();  // as the evaluator does
    for (int i = 0; i < bench::kEvaluations; ++i) {
      x = bench::argument(i);
      sum += program.run(operands.data());
    }
  });
  bench::keep(sum);
}

// Draws a shape as one polyline, or segment by segment as polylines without monotonic x are drawn.
void draw_shape(const Arguments& arguments) {
  const bench::Shape shape = bench::shape_of(arguments.at(2));
  kurv::Picture picture(QSize(shape.width, shape.height));
  const auto twips = static_cast<float>(picture.twips_per_device_pixel());
  std::vector<float> x, y;
  for (const bench::ShapePoint& point : shape.points) {
    x.push_back(point.x * twips);
    y.push_back(point.y * twips);
  }
  const std::vector<std::uint8_t> drawn(x.size(), 1);
  picture.DrawWidth(static_cast<kurv::Integer>(std::stoi(arguments.at(3))));
  if (arguments.at(0) == "polyline") {
    picture.Polyline({x, y, drawn}, 0);
  } else {
    picture.PlotSurface::Polyline({x, y, drawn}, 0);
  }
  const QImage image = picture.image();
  bench::write_coverage(
      arguments.at(4),
      bench::coverage_of(image.constBits(), static_cast<std::size_t>(image.bytesPerLine()),
                         shape.width, shape.height));
}

void run(const Arguments& all_arguments) {
  const bool has_qt = all_arguments.at(0) == "qt";
  const Arguments arguments(all_arguments.begin() + (has_qt ? 1 : 0), all_arguments.end());
  const std::string& what = arguments.at(0);
  if (arguments.size() > 1 && arguments[1] == "shape") return draw_shape(arguments);
  if (what == "redraw" || what == "markers") return redraw(arguments);
  if (what == "undo") return undo(arguments);
  if (what == "nearest") return nearest(arguments);
  if (what == "zoom") return zoom(arguments);
  if (what == "growth") return growth();
  if (what == "sort") return sort(arguments);
  if (what == "load") return load(arguments);
  if (what == "save") return save(arguments);
  if (what == "write") return write(arguments);
  if (what == "evaluate") return evaluate();
  if (what == "run_program") return run_program();
  throw std::invalid_argument("no such work");
}

// Without a picture, Qt is not started: the peers do not start it either.
bool needs_no_picture(const std::string& what) {
  return what == "sort" || what == "evaluate" || what == "run_program";
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  std::optional<QGuiApplication> application;
  if (argc < 2 || !needs_no_picture(argv[1])) application.emplace(argc, argv);
  return bench::subject_main(argc, argv, run);
}
