// The main window: a graph, and everything that a desktop program does with its file.
#pragma once

#include <KurvGraph/KurvGraph.h>

#include <QMainWindow>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/graph/graph_intake.h"
#include "app/window/saved_state.h"

class QLabel;
class QStackedLayout;

namespace kurv::app {

class MainMenu;

using Say = std::function<void(const std::string&)>;

// Belongs to nobody and deletes itself when it is closed. It begins empty, with a hint. Its state
// of saving is that of the content: what was drawn from a table and not touched since has nothing
// to lose, and a change that is taken back is none.
class MainWindow final : public QMainWindow {
 public:
  // `say` gets the warnings that also a terminal should show. The locale of the files is the one of
  // the command line.
  MainWindow(std::optional<QLocale> locale, Say say);
  ~MainWindow() override;

  // The graph that is shown. Another file brings another one.
  KurvGraph& graph() const { return *m_graph; }

  // Shows the window, and in it a source that was loaded before. Throws UserError and Fault when it
  // cannot be drawn; the window then shows what it showed before.
  void put(const GraphChoice& choice, const GraphSource& source);
  // Opens a file as the user asks for it: here, unless something here would be lost, else in a
  // window of its own. Asks which columns of a table to draw, and shows what goes wrong.
  // Returns whether the file has come up in a window.
  bool open(const std::string& path);
  // The same for several, each in a window of its own.
  void open_all(const std::vector<std::string>& paths);

  // By the content as it is now.
  bool is_saved() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void make_menu();
  KurvGraph* new_graph();
  void adopt(KurvGraph* graph, const QByteArray& saved, const std::string& path);
  void listen(KurvGraph* graph);
  void fit_to_graph();
  void fit_to_plot(QSize size);

  bool has_data() const;
  void look();
  void judge_soon();
  void judge();
  void graph_changed();
  void graph_filed();
  void tell_warnings();

  void attempt(const std::function<void()>& work);
  void send(const char* word);
  void new_window();
  void choose_files();
  bool open_elsewhere(const std::string& path);
  bool open_here(const std::string& path);
  std::optional<GraphSource> ask_about_table(const std::string& path, GraphChoice& choice);
  void open_recent(const std::string& path);
  bool save();
  bool may_lose_graph();
  void export_picture();
  void tell(const QString& text);

  std::optional<QLocale> m_locale;
  Say m_say;
  std::unique_ptr<MainMenu> m_menu;
  QStackedLayout* m_layout;
  QLabel* m_hint;
  QPointer<KurvGraph> m_graph;
  SavedState m_saved;
  QTimer m_judgement;
  std::string m_path;  // what the graph was made from, or saved to since
  std::vector<std::string> m_warnings;
  QSet<QString> m_warned;  // functions
  bool m_telling = false;
  bool m_has_toolbar = true;
};

}  // namespace kurv::app
