// A graph in the main window that grows while a program goes on writing its table.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/base/followed_input.h"
#include "app/csv/growing_table.h"
#include "app/graph/graph_choice.h"
#include "app/window/main_window.h"

namespace kurv::app {

// Reads as long as the window exists. Draws at most thirty times a second, and at most a third of
// the time.
class Follower final : public QObject {
 public:
  // Opens the input; throws UserError where that fails. Belongs to the window, which must not show
  // a graph yet. `report` gets warnings and errors.
  Follower(MainWindow& window, const GraphChoice& choice, const std::string& path, Report report);

  // Shows the window and begins to read.
  void start();
  // False where something that came could not be read or drawn.
  bool has_failed() const { return m_has_failed; }
  // Called when has_failed() becomes true.
  std::function<void()> failed;

 private:
  void read();
  bool take(FollowedInput::Event event, const std::string& bytes);
  void schedule_drawing();
  void draw();
  void show_news(GrowingTable::News news);
  void replace_columns(const TableData& data);
  void show_hint();
  void warn(const std::string& warning);
  void report_once(const std::string& warning);
  void show_warnings();
  void warn_of_dropped_rows();
  void say(const QString& text);
  void stop_reading();
  void end();
  void fail(const std::string& sentence);

  MainWindow& m_window;
  GraphChoice m_choice;
  std::string m_path;
  std::string m_name;
  Report m_report;
  std::unique_ptr<FollowedInput> m_input;
  GrowingTable m_table;
  QSocketNotifier* m_notifier = nullptr;
  QTimer m_reading;
  QTimer m_drawing;
  QElapsedTimer m_since_drawing;
  qint64 m_pause;     // ms
  int m_columns = 0;  // 0 before the first picture
  std::vector<std::string> m_warnings;
  std::vector<std::string> m_warnings_so_far;  // until it is decided how the table is written
  std::vector<std::string> m_reported;
  std::vector<std::string> m_shown;  // in the bar, unless the user has closed it
  bool m_has_failed = false;
};

}  // namespace kurv::app
