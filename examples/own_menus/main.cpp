// A window with menus of its own that drives the graph by command words, and enables its entries by
// the state of the graph. There is no toolbar.
//
//   kurv_own_menus                      until the window is closed
//   kurv_own_menus SECONDS [PICTURE]    with an example, that long; saves a picture of the window
#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/file_fault.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QString>
#include <QTimer>
#include <vector>

namespace {

class MenuWindow : public QMainWindow {
 public:
  MenuWindow();

  kurv::KurvGraph& graph() { return *m_graph; }

 private:
  // What has to be there for an entry to do something.
  enum class Needs { kNothing, kGraph, kUnsavedGraph };
  struct Entry {
    QAction* action;
    Needs needs;
  };

  void make_file_menu();
  void make_graph_menu();
  QAction* add(QMenu* menu, const QString& text, const QString& word, Needs needs,
               const QKeySequence& key = {});
  void run(const QString& word);
  void update_actions();
  void plot_example();

  kurv::KurvGraph* m_graph;
  std::vector<Entry> m_entries;
};

MenuWindow::MenuWindow() : m_graph(new kurv::KurvGraph(this)) {
  m_graph->set_toolbar_visible(false);
  setCentralWidget(m_graph);
  setWindowTitle("A graph with menus of its own");
  make_file_menu();
  make_graph_menu();
  // After calls of this window and after what the user has done. An action's own slot has ended
  // before it is disabled.
  const auto update = [this] { update_actions(); };
  connect(m_graph, &kurv::KurvGraph::redrawn, this, update, Qt::QueuedConnection);
  connect(m_graph, &kurv::KurvGraph::filed, this, update, Qt::QueuedConnection);
  connect(m_graph, &kurv::KurvGraph::changed, this, update, Qt::QueuedConnection);
  update_actions();
}

void MenuWindow::make_file_menu() {
  QMenu* const file = menuBar()->addMenu("&File");
  QAction* const example = file->addAction("&New Example");
  example->setObjectName("example");
  connect(example, &QAction::triggered, this, [this] { plot_example(); });
  add(file, "&Open\u2026", "open", Needs::kNothing, QKeySequence::Open);
  file->addSeparator();
  add(file, "&Save", "save", Needs::kUnsavedGraph, QKeySequence::Save);
  add(file, "Save &As\u2026", "saveas", Needs::kGraph, QKeySequence("Ctrl+Shift+S"));
  add(file, "&Print\u2026", "print", Needs::kGraph, QKeySequence::Print);
  file->addSeparator();
  QAction* const quit = file->addAction("&Quit");
  quit->setObjectName("quit");
  quit->setShortcut(QKeySequence("Ctrl+Q"));
  connect(quit, &QAction::triggered, this, &QWidget::close);
}

void MenuWindow::make_graph_menu() {
  QMenu* const menu = menuBar()->addMenu("&Graph");
  add(menu, "C&opy Picture", "copy", Needs::kGraph, QKeySequence::Copy);
  add(menu, "&Refresh", "refresh", Needs::kGraph, QKeySequence("F5"));
  menu->addSeparator();
  add(menu, "&Curves and Functions\u2026", "curves", Needs::kGraph);
  add(menu, "&Titles and Fonts\u2026", "titles", Needs::kGraph);
  add(menu, "&Axes and Lines\u2026", "setup", Needs::kGraph);
  add(menu, "&Numbers\u2026", "table", Needs::kGraph);
}

QAction* MenuWindow::add(QMenu* menu, const QString& text, const QString& word, Needs needs,
                         const QKeySequence& key) {
  QAction* const action = menu->addAction(text);
  action->setObjectName(word);
  // The graph leaves a key to an action of the window that has it, too.
  action->setShortcut(key);
  // After the event of the menu, because a command may open a dialog.
  connect(
      action, &QAction::triggered, this, [this, word] { run(word); }, Qt::QueuedConnection);
  m_entries.push_back({action, needs});
  return action;
}

// A fault must not reach the event loop.
void MenuWindow::run(const QString& word) {
  try {
    m_graph->ChartOptions(word);
  } catch (const kurv::FileFault& fault) {
    QMessageBox::warning(this, windowTitle(),
                         QFile::decodeName(fault.path().c_str()) + ": " + fault.what());
  } catch (const kurv::Fault& fault) {
    QMessageBox::warning(this, windowTitle(), fault.what());
  }
  update_actions();
}

void MenuWindow::update_actions() {
  const bool has_graph = m_graph->has_graph();
  for (const Entry& entry : m_entries) {
    const bool is_usable = entry.needs == Needs::kNothing ||
                           (has_graph && (entry.needs == Needs::kGraph || !m_graph->GraphSaved()));
    entry.action->setEnabled(is_usable);
  }
}

void MenuWindow::plot_example() {
  m_graph->reset_file();
  m_graph->plot(
      {.title = "Tides",
       .x_name = "hour",
       .x = {0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24},
       .y = {{"harbour", {2.1, 3.6, 4.4, 4.0, 2.7, 1.2, 0.7, 1.5, 3.0, 4.2, 4.5, 3.7, 2.2}},
             {"island", {1.6, 2.6, 3.3, 3.2, 2.3, 1.2, 0.6, 1.0, 2.1, 3.1, 3.4, 3.0, 1.9}}},
       .markers = true});
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  MenuWindow window;
  window.resize(720, 520);
  window.show();
  if (argc > 1) {
    window.findChild<QAction*>("example")->trigger();
    QTimer::singleShot(int(1000 * QByteArray(argv[1]).toDouble()), &application,
                       &QApplication::quit);
  }
  const int status = QApplication::exec();
  if (argc > 2 && !window.grab().save(argv[2])) return 1;
  return status;
}
