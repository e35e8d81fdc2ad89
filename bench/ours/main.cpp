// The control as the subject of comparisons.
//
//   bench_ours redraw KIND CURVES POINTS WIDTH [moving]    lines
//   bench_ours markers KIND CURVES POINTS 1
//   bench_ours growth                             prints curves, points, milliseconds
//   bench_ours sort KIND [shared], load FILE, save FILE CURVES POINTS, evaluate, run_program
//   bench_ours write FILE KIND CURVES POINTS
//   bench_ours METHOD shape NAME WIDTH FILE
//   bench_ours qt ...                             the same in a program that has Qt in any case
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
#include "expr/evaluator.h"
#include "expr/parser.h"
#include "model/data_set.h"
#include "model/vzeroupper.h"

namespace {

using bench::ControlFixture;
using bench::Words;

void redraw(const Words& words) {
  const bench::Drawing drawing = bench::drawing_of(words);
  const bool markers = drawing.method == "markers";
  ControlFixture ours;
  ours.control.set_CurvesWidth(static_cast<kurv::Integer>(drawing.width));
  const bench::Table data = bench::table(drawing.kind, drawing.curves, drawing.points);
  ours.load(data, !markers, markers);
  const bench::Range x = bench::Scale(data).x_range();
  bench::MovingEnd end(x.low, x.high);
  bench::serve([&] {
    if (drawing.is_moving) ours.control.set_xmax(end.next());
    ours.redraw();
  });
}

double least_milliseconds(const bench::Work& work) {
  double least = bench::milliseconds_of(work);
  for (int i = 0; i < 6; ++i) least = std::min(least, bench::milliseconds_of(work));
  return least;
}

void growth() {
  for (const int curves : {1, 10, 50, 149}) {
    for (const int points : {1000, 2000, 4000, 8000, 16000, 32767}) {
      ControlFixture ours;
      ours.load(bench::table("noise", curves, points));
      std::cout << curves << ' ' << points << ' ' << least_milliseconds([&] { ours.redraw(); })
                << std::endl;
    }
  }
}

// Into the memory that is there, as the peer does: new memory costs what the system asks for it.
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

void sort(const Words& words) {
  const bench::Table data =
      bench::table(words.at(1), bench::kSortedColumns - 1, bench::kSortedPoints);
  const bool stays_as_it_is = std::is_sorted(data.x.begin(), data.x.end());
  kurv::GraphDocument document;
  document.NumData = bench::kSortedPoints;
  document.NumY = bench::kSortedColumns - 1;
  document.xyArr = bench::matrix_of(data);
  // As in a control, whose points before the sort and after it share what they can.
  const bool is_shared = words.size() > 2 && words[2] == "shared";
  const kurv::Matrix<kurv::Double> given = document.xyArr;
  if (!is_shared && !stays_as_it_is) write_over(document.xyArr, data);
  const auto sort = [&] { kurv::Sort_xy(document, *kurv::library_services().swap); };
  if (stays_as_it_is) {
    bench::serve(sort);
  } else if (is_shared) {
    bench::serve([&] { document.xyArr = given; }, sort);
  } else {
    bench::serve([&] { write_over(document.xyArr, data); }, sort);
  }
  const auto column = std::as_const(document.xyArr).column(2);
  std::cout << bench::fingerprint(&column(1), bench::kSortedPoints) << std::endl;
}

void load(const Words& words) {
  ControlFixture ours;
  bench::serve([&] { ours.control.file_load(words.at(1)); });
  if (!ours.shell.messages.empty()) throw std::runtime_error("the graph was refused");
}

void save_as(ControlFixture& ours, const std::string& path) {
  ours.shell.files.push_back({path, 1});
  ours.control.ChartOptions("saveas");
}

// Written over each time, as by a user who saves now and then.
void save(const Words& words) {
  ControlFixture ours;
  ours.load(bench::table("waves", std::stoi(words.at(2)), std::stoi(words.at(3))));
  save_as(ours, words.at(1));
  bench::serve([&] {
    ours.document().GraphSaved = false;
    ours.control.Save_graph();
  });
}

void write(const Words& words) {
  ControlFixture ours;
  ours.load(bench::table(words.at(2), std::stoi(words.at(3)), std::stoi(words.at(4))));
  save_as(ours, words.at(1));
  if (!std::filesystem::exists(words.at(1))) throw std::runtime_error("nothing was written");
}

// As a host does: everything anew for each value.
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
    kurv::clear_upper_registers();  // as the evaluator does
    for (int i = 0; i < bench::kEvaluations; ++i) {
      x = bench::argument(i);
      sum += program.run(operands.data());
    }
  });
  bench::keep(sum);
}

// As one polyline, or segment by segment as everything is drawn that is none.
void draw_shape(const Words& words) {
  const bench::Shape shape = bench::shape_of(words.at(2));
  kurv::Picture picture(QSize(shape.width, shape.height));
  const auto twips = static_cast<float>(picture.twips_per_device_pixel());
  std::vector<float> x, y;
  for (const bench::ShapePoint& point : shape.points) {
    x.push_back(point.x * twips);
    y.push_back(point.y * twips);
  }
  const std::vector<std::uint8_t> drawn(x.size(), 1);
  picture.DrawWidth(static_cast<kurv::Integer>(std::stoi(words.at(3))));
  if (words.at(0) == "polyline") {
    picture.Polyline({x, y, drawn}, 0);
  } else {
    picture.PlotSurface::Polyline({x, y, drawn}, 0);
  }
  const QImage image = picture.image();
  bench::write_coverage(
      words.at(4),
      bench::coverage_of(image.constBits(), static_cast<std::size_t>(image.bytesPerLine()),
                         shape.width, shape.height));
}

void run(const Words& all_words) {
  const bool says_qt = all_words.at(0) == "qt";
  const Words words(all_words.begin() + (says_qt ? 1 : 0), all_words.end());
  const std::string& what = words.at(0);
  if (words.size() > 1 && words[1] == "shape") return draw_shape(words);
  if (what == "redraw" || what == "markers") return redraw(words);
  if (what == "growth") return growth();
  if (what == "sort") return sort(words);
  if (what == "load") return load(words);
  if (what == "save") return save(words);
  if (what == "write") return write(words);
  if (what == "evaluate") return evaluate();
  if (what == "run_program") return run_program();
  throw std::invalid_argument("no such work");
}

// What needs no picture is measured in a program that does not start Qt, as its peers are.
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
