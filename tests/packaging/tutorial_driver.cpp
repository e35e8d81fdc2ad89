// A user of the tutorial's programs: linked into them, it triggers their menu entries, clicks on
// the plot and answers the dialogs, where the environment asks for it. The exit status is the
// number of failures.
#include <KurvGraph/KurvGraph.h>

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

namespace {

int failures = 0;

void expect(bool condition, const char* what) {
  if (condition) return;
  qCritical("failed: %s", what);
  ++failures;
}

QMainWindow& window() {
  for (QWidget* const top : QApplication::topLevelWidgets()) {
    if (auto* const found = qobject_cast<QMainWindow*>(top)) return *found;
  }
  qFatal("there is no window");
}

kurv::KurvGraph& graph() {
  return *window().findChild<kurv::KurvGraph*>();
}

QAction& entry(const QString& text) {
  for (QAction* const menu : window().menuBar()->actions()) {
    for (QAction* const action : menu->menu()->actions()) {
      if (action->text() == text) return *action;
    }
  }
  qFatal("there is no entry %s", qPrintable(text));
}

// Triggers the entry, and hands the dialog that it opens to `answer`, again and again until that
// returns true.
template <class Dialog, class Answer>
void answer_entry(const QString& text, Answer answer) {
  bool is_answered = false;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (!is_answered && dialog) is_answered = answer(*dialog);
  });
  poll.start(20);
  entry(text).trigger();
  expect(is_answered, qPrintable(text));
}

// A file dialog reads its folder first, which may overwrite a name that is typed too early.
void choose_file(const QString& text, const QString& name) {
  const QString path = QDir::current().filePath(name);
  answer_entry<QFileDialog>(text, [&path](QFileDialog& dialog) {
    auto* const field = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (field->text() != path || dialog.selectedFiles().value(0) != path) {
      field->setText(path);
      return false;
    }
    QTimer::singleShot(0, &dialog, [&dialog] { QTest::keyClick(&dialog, Qt::Key_Return); });
    return true;
  });
}

QByteArray content(const QString& name) {
  QFile file(name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void click_on_the_plot() {
  QWidget* const plot = graph().findChild<QWidget*>("PicGraph");
  const QPoint at = graph().pixel_of(2, 8).value().toPoint();
  QCursor::setPos(graph().mapToGlobal(at));
  QTest::mouseClick(plot, Qt::LeftButton, {}, plot->mapFrom(&graph(), at));
  const QStringList parts = window().statusBar()->findChild<QLabel*>()->text().split(" = ");
  expect(parts.size() == 3, "the position is in the status bar");
  expect(std::abs(parts.value(1).section(',', 0, 0).toDouble() - 2) < 0.1, "the click is at x = 2");
  expect(std::abs(parts.value(2).toDouble() - 8) < 0.1, "the click is at y = 8");
}

void use_the_menu() {
  expect(graph().X_grid() && graph().Y_grid(), "the grid is on");
  entry("&Grid").toggle();
  expect(!graph().X_grid() && !graph().Y_grid(), "the grid is off");
  answer_entry<QInputDialog>("&Add Function\u2026", [](QInputDialog& dialog) {
    dialog.setTextValue("2*x");
    dialog.accept();
    return true;
  });
  expect(graph().functions() == std::vector<QString>{"2*x"}, "the function is drawn");
  answer_entry<QInputDialog>("&Add Function\u2026", [](QInputDialog& dialog) {
    dialog.setTextValue("2*");
    QTimer::singleShot(100, [] { QApplication::activeModalWidget()->close(); });
    dialog.accept();
    return true;
  });
  expect(graph().functions().size() == 1, "an expression with a mistake is not drawn");
  answer_entry<QDialog>("&Curves\u2026", [](QDialog& dialog) { return dialog.close(); });
}

void use_files() {
  choose_file("&Save", "squares.gdf");
  expect(content("squares.gdf").startsWith("QXPLOT/V500//"), "the graph is saved");
  expect(window().windowTitle().endsWith(u"squares.gdf \u2013 Plotter"),
         "the title names the file");
  graph().plot({.title = "Other", .x = {0, 1}, .y = {{"z", {0, 1}}}});
  choose_file("&Open\u2026", "squares.gdf");
  expect(graph().Title() == "Squares", "the graph is loaded");
  for (const auto& [name, begin] :
       {std::pair("a.svg", "<?xml"), std::pair("a.pdf", "%PDF"), std::pair("a.png", "\x89PNG")}) {
    choose_file("&Export Picture\u2026", name);
    expect(content(name).startsWith(begin), name);
  }
}

void use_program() {
  const QString step = qEnvironmentVariable("PLOTTER_STEP");
  if (step == "signal") click_on_the_plot();
  if (step == "menu") use_the_menu();
  if (step == "files") use_files();
  QApplication::exit(failures);
}

void start() {
  if (!qEnvironmentVariableIsSet("PLOTTER_STEP")) return;
  QTimer::singleShot(200, use_program);
  QTimer::singleShot(30000, [] {
    const QWidget* const dialog = QApplication::activeModalWidget();
    qFatal("the program waits for %s", dialog ? dialog->metaObject()->className() : "nothing");
  });
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(start)
