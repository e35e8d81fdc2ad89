// Live data: two signals at 30 redraws a second, of which the last ten seconds are shown. What the
// user sets meanwhile, such as fonts, hidden curves and limits, stays.
//
//   kurv_live                    until the window is closed
//   kurv_live SECONDS            that long; prints how often it was drawn
//   kurv_live SECONDS PICTURE    saves a picture of what it shows then, without waiting for it
#include <KurvGraph/KurvGraph.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <cmath>
#include <iostream>
#include <utility>
#include <vector>

namespace {

constexpr int kRedrawsPerSecond = 30;
constexpr std::size_t kWindow = 10 * kRedrawsPerSecond;  // points that are shown

// The newest points, the oldest first.
struct Window {
  std::vector<double> time;
  std::vector<double> swing;
  std::vector<double> decay;

  void add(double now) {
    if (time.size() == kWindow) {
      for (auto* const column : {&time, &swing, &decay}) column->erase(column->begin());
    }
    time.push_back(now);
    swing.push_back(std::sin(2 * now));
    decay.push_back(std::sin(9 * now) * std::exp(-std::fmod(now, 5)));
  }
  // All points from this one on, counted from 0, as the graph takes them: x first.
  kurv::Matrix<kurv::Double> points_from(std::size_t first) const {
    kurv::Matrix<kurv::Double> points(1, 3, 1, static_cast<int>(time.size() - first));
    int number = 0;
    for (const auto* const column : {&time, &swing, &decay}) {
      const auto begin = column->begin() + static_cast<std::ptrdiff_t>(first);
      points.set_column(++number, {begin, column->end()});
    }
    return points;
  }
};

// Adds a point. The window of a full graph moves on by putting all of its points in place of the
// old ones.
void add_point(kurv::KurvGraph& graph, Window& window, double now) {
  const bool is_full = window.time.size() == kWindow;
  window.add(now);
  if (is_full) {
    graph.replace_points(window.points_from(0), {1, {"seconds", "swing", "decay"}});
  } else {
    graph.append_points(window.points_from(window.time.size() - 1));
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  kurv::KurvGraph graph;
  Window window;
  // Two points to begin with, because one point has no limits to draw between.
  for (const double before : {-2.0, -1.0}) window.add(before / kRedrawsPerSecond);
  graph.plot({.title = "Live",
              .x_name = "seconds",
              .x = window.time,
              .y = {{"swing", window.swing}, {"decay", window.decay}}});
  const double seconds = argc > 1 ? QByteArray(argv[1]).toDouble() : 0;
  if (argc > 2) {
    const int points = int(seconds * kRedrawsPerSecond);
    for (int i = 0; i <= points; ++i) add_point(graph, window, double(i) / kRedrawsPerSecond);
    return graph.grab().save(argv[2]) ? 0 : 1;
  }
  int redraws = 0;
  QObject::connect(&graph, &kurv::KurvGraph::redrawn, [&] { ++redraws; });

  QElapsedTimer clock;
  clock.start();
  QTimer timer;
  timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer, &QTimer::timeout, [&] {
    // A fault must not reach the event loop. There is one when the user has opened another graph,
    // with other columns; that one is left as it is.
    try {
      add_point(graph, window, double(clock.elapsed()) / 1000);
    } catch (const kurv::Fault& fault) {
      std::cerr << "no more live data: " << fault.what() << '\n';
      timer.stop();
    }
  });
  timer.start(1000 / kRedrawsPerSecond);

  if (argc > 1) QTimer::singleShot(int(1000 * seconds), &application, &QApplication::quit);
  graph.show();
  const int status = QApplication::exec();
  if (argc > 1) std::cout << redraws << " redraws\n";
  return status;
}
