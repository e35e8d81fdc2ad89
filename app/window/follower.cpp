#include "app/window/follower.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/limits.h>

#include <QLocale>
#include <QUndoStack>
#include <algorithm>

#include "app/base/fault_words.h"
#include "app/base/user_error.h"
#include "app/csv/csv_text.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

constexpr qint64 kShortestPause = 34;  // ms between two redraws
constexpr qint64 kPausePerTime = 3;
constexpr int kFileInterval = 200;      // ms between two looks at a file
constexpr qint64 kLongestReading = 20;  // ms until the window gets its turn

QString grouped(std::size_t count) {
  return QLocale::c().toString(static_cast<qulonglong>(count));
}

QString row_count(std::size_t rows) {
  return grouped(rows) + (rows == 1 ? " row" : " rows");
}

}  // namespace

Follower::Follower(MainWindow& window, const GraphChoice& choice, const std::string& path,
                   Report report)
    : QObject(&window),
      m_window(window),
      m_choice(choice),
      m_path(path),
      m_name(name_of_source(path)),
      m_report(std::move(report)),
      m_input(std::make_unique<FollowedInput>(path)),
      m_table(choice.table, m_name),
      m_pause(kShortestPause) {
  m_drawing.setSingleShot(true);
  m_drawing.setTimerType(Qt::PreciseTimer);
  m_reading.setSingleShot(true);
  connect(&m_drawing, &QTimer::timeout, this, [this] { draw(); });
  connect(&m_reading, &QTimer::timeout, this, [this] { read(); });
}

void Follower::start() {
  m_window.begin_following();
  show_hint();
  m_window.show_empty(m_choice.size);
  say("Reading " + file_label(m_name) + ".");
  if (!m_input->is_file()) {
    m_notifier = new QSocketNotifier(m_input->descriptor(), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] { read(); });
  }
  m_reading.start(0);
}

// -- Reading --------------------------------------------------------------------------------------

void Follower::read() {
  QElapsedTimer clock;
  clock.start();
  std::string bytes;
  bool goes_on = true;
  try {
    while (goes_on && clock.elapsed() < kLongestReading)
      goes_on = take(m_input->read(bytes), bytes);
  } catch (const UserError& error) {
    return fail(error.what());
  }
  if (m_input && m_input->is_file()) m_reading.start(goes_on ? 0 : kFileInterval);
}

// Returns whether there may be more.
bool Follower::take(FollowedInput::Event event, const std::string& bytes) {
  using Event = FollowedInput::Event;
  switch (event) {
    case Event::kNothing:
      return false;
    case Event::kBytes:
      m_table.append(bytes);
      schedule_drawing();
      return true;
    case Event::kEnd:
      end();
      return false;
    case Event::kTruncated:
      m_table.begin_anew();
      say(file_label(m_path) + " has become shorter; it is read from its beginning.");
      return true;
    case Event::kReplaced:
      m_table.begin_anew();
      say(file_label(m_path) + " is a new file; it is read from its beginning.");
      return true;
    case Event::kGone:
      say(file_label(m_path) + " is not there any more; the graph goes on when it is back.");
      return false;
  }
  return false;
}

// The notifier may be the caller.
void Follower::stop_reading() {
  if (m_notifier != nullptr) m_notifier->setEnabled(false);
  m_reading.stop();
  m_input.reset();
}

void Follower::end() {
  stop_reading();
  m_table.finish();
  draw();
  if (m_has_failed) return;
  if (m_columns == 0) {
    return fail(m_table.obstacle().empty()
                    ? m_name + " is empty; it needs a row of names and rows of numbers."
                    : m_table.obstacle());
  }
  m_window.end_following();
  const QString name = m_path == kStandardInput ? "Standard input" : file_label(m_path);
  say(name + " has ended after " + row_count(m_table.rows()) + '.');
}

void Follower::fail(const std::string& sentence) {
  stop_reading();
  if (!m_has_failed) draw();
  m_drawing.stop();
  m_has_failed = true;
  m_report(sentence);
  const QString text = app::sentence(sentence, m_path);
  if (m_columns == 0) m_window.set_waiting_hint(text);
  m_window.end_following();
  say(m_columns == 0 ? "Nothing is read any more." : text);
  if (failed) failed();
}

// -- Drawing --------------------------------------------------------------------------------------

void Follower::schedule_drawing() {
  if (m_drawing.isActive()) return;
  const qint64 since = m_since_drawing.isValid() ? m_since_drawing.elapsed() : m_pause;
  m_drawing.start(static_cast<int>(std::max<qint64>(0, m_pause - since)));
}

void Follower::draw() {
  m_drawing.stop();
  m_since_drawing.start();
  try {
    std::optional<GrowingTable::News> news = m_table.take_news();
    if (news) show_news(std::move(*news));
    if (m_columns == 0) show_hint();
  } catch (const UserError& error) {
    m_has_failed = true;
    return fail(error.what());
  } catch (const Fault& fault) {
    m_has_failed = true;
    return fail(m_name + fault_clause(Attempt::kDraw, fault.kind()));
  }
  m_pause = std::max(kShortestPause, kPausePerTime * m_since_drawing.elapsed());
  m_since_drawing.start();
}

void Follower::show_news(GrowingTable::News news) {
  TableData& data = news.data;
  m_warnings_so_far = std::move(news.warnings_so_far);
  for (const std::string& warning : std::exchange(data.warnings, {})) warn(warning);
  const int columns = data.values.upper_column();
  if (data.values.upper_point() < 1) return;
  if (m_columns == 0) {
    m_window.show_graph(m_choice, {m_name, std::move(data)});
    // Those that change with more rows are only in the bar.
    for (const std::string& warning : m_warnings_so_far) report_once(warning);
  } else if (!news.is_all) {
    m_window.graph().append_points(data.values);
  } else {
    m_window.change_unnoticed([&](KurvGraph& graph) {
      graph.set_x_text(date_texts(data));
      if (columns == m_columns) {
        graph.replace_points(data.values, data.names);
      } else {
        replace_columns(data);
      }
    });
  }
  m_columns = columns;
  show_warnings();
  warn_of_dropped_rows();
}

// Other columns than before begin with names of their own and visible; all else stays.
void Follower::replace_columns(const TableData& data) {
  KurvGraph& graph = m_window.graph();
  GraphChoice choice = m_choice;
  choice.title = graph.Title().toStdString();
  choice.subtitle = graph.SubTitle().toStdString();
  choice.lines = graph.Connected();
  choice.markers = graph.DrawMarkers();
  choice.table.selection.sort = graph.SortXY();
  choice.round_limits = graph.round_limits();
  choice.functions.clear();
  for (const QString& function : graph.functions()) {
    choice.functions.push_back(function.toStdString());
  }
  const bool follows = graph.Autoscale();
  const int ticks = graph.NumTicks();
  const QString formats[] = {graph.AxisLabelFormatX(), graph.AxisLabelFormatY()};
  const double limits[] = {graph.xmin(), graph.xmax(), graph.ymin(), graph.ymax()};
  plot_table(choice, m_name, data, graph);
  add_curves(choice, graph);
  if (!follows) {
    if (graph.round_limits()) {
      graph.set_NumTicks(ticks);
      graph.set_AxisLabelFormatX(formats[0]);
      graph.set_AxisLabelFormatY(formats[1]);
    }
    graph.set_xmin(limits[0]);
    graph.set_xmax(limits[1]);
    graph.set_ymin(limits[2]);
    graph.set_ymax(limits[3]);
  }
  graph.build_the_graph();
  // The functions are the user's, but they have not been added just now.
  graph.undo_stack()->clear();
}

// -- Messages -------------------------------------------------------------------------------------

void Follower::show_hint() {
  QString hint = QStringLiteral("Waiting for rows\u2026");
  const std::string& obstacle = m_table.obstacle();
  if (m_table.rows() > 1 && !obstacle.empty()) hint += "\n\n" + sentence(obstacle, m_path);
  m_window.set_waiting_hint(hint);
}

// Once for each, on standard error and in the bar above the plot.
void Follower::warn(const std::string& warning) {
  if (std::find(m_warnings.begin(), m_warnings.end(), warning) != m_warnings.end()) return;
  m_warnings.push_back(warning);
  report_once(warning);
  if (m_columns > 0) show_warnings();
}

void Follower::report_once(const std::string& warning) {
  if (std::find(m_reported.begin(), m_reported.end(), warning) != m_reported.end()) return;
  m_reported.push_back(warning);
  m_report("warning: " + warning);
}

// Not with each row, because the user may have closed the bar.
void Follower::show_warnings() {
  std::vector<std::string> shown = m_warnings_so_far;
  shown.insert(shown.end(), m_warnings.begin(), m_warnings.end());
  if (shown == m_shown) return;
  m_window.show_notices(shown);
  m_shown = std::move(shown);
}

void Follower::warn_of_dropped_rows() {
  const std::size_t every = m_choice.table.selection.every;
  const std::size_t points = (m_table.rows() + every - 1) / every;
  if (points <= std::size_t{kMaxPoints}) return;
  warn("a graph holds " + grouped(kMaxPoints).toStdString() +
       " points; of those that have come, the newest are kept.");
}

void Follower::say(const QString& text) {
  m_window.show_status(text);
}

}  // namespace kurv::app
