// Opening files and text, and exporting pictures, in the main window.
#include <KurvGraph/file_fault.h>
#include <KurvGraph/screen_fit.h>
#include <KurvGraph/wheel_guard.h>

#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <filesystem>
#include <new>

#include "app/base/fault_words.h"
#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/csv_text.h"
#include "app/graph/picture_file.h"
#include "app/window/export_dialog.h"
#include "app/window/import_dialog.h"
#include "app/window/kept_places.h"
#include "app/window/main_menu.h"
#include "app/window/main_window.h"
#include "app/window/picture_dialog.h"
#include "app/window/recent_files.h"
#include "app/window/transferred_table.h"
#include "app/window/window_message.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

// What messages and the import window call a table that was pasted or dropped.
constexpr const char* kClipboard = "clipboard";

void quit_when_all_agree() {
  for (const QPointer<MainWindow>& window : MainWindow::all()) {
    if (window && !window->close()) return;
  }
}

}  // namespace

std::vector<QPointer<MainWindow>> MainWindow::all() {
  std::vector<QPointer<MainWindow>> windows;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (auto* const window = dynamic_cast<MainWindow*>(widget)) windows.emplace_back(window);
  }
  return windows;
}

void MainWindow::make_menu() {
  MenuCommands commands;
  commands.new_window = [this] { new_window(); };
  commands.open = [this] { choose_files(); };
  commands.open_recent = [this](const std::string& path) { open_recent(path); };
  commands.recent = [] { return RecentFiles().paths(); };
  commands.clear_recent = [] { RecentFiles().clear(); };
  commands.save = [this] { save(); };
  commands.save_as = [this] { save_as(); };
  commands.undo = &m_undo;
  commands.copy = [this] { copy_picture(); };
  commands.paste = [this] { paste(); };
  commands.export_picture = [this] { export_picture(); };
  commands.close = [this] { close(); };
  commands.quit = [] { quit_when_all_agree(); };
  commands.run_command = [this](const char* word) { run_command(word); };
  commands.show_toolbar = [this](bool on) {
    m_has_toolbar = on;
    m_graph->setProperty("toolbar_visible", on);
  };
  commands.set_round_limits = [this](bool on) {
    run_guarded([this, on] {
      m_graph->make_step("Round Limits", [this, on] {
        m_graph->set_round_limits(on);
        m_graph->update_limits();
      });
    });
  };
  commands.show_all = [this] { run_guarded([this] { m_graph->show_all(); }); };
  commands.getting_started = [this] {
    show_message(this, QMessageBox::Information, "Getting Started", getting_started());
  };
  commands.about = [this] {
    show_message(this, QMessageBox::Information, "About kurv", about_kurv());
  };
  m_menu = std::make_unique<MainMenu>(*this, std::move(commands));
}

void MainWindow::show_error(const QString& text) {
  show_message(this, QMessageBox::Critical, "kurv", text);
}

// Runs a command that the graph may fail at, and shows its errors in boxes. Returns whether it has
// succeeded.
bool MainWindow::run_guarded(const std::function<void()>& work) {
  const QPointer<MainWindow> alive(this);
  std::optional<FaultKind> failure;
  std::string file;
  try {
    work();
  } catch (const FileFault& fault) {
    failure = fault.kind();
    file = fault.path();
  } catch (const Fault& fault) {
    failure = fault.kind();
  }
  if (alive) update_actions();
  if (alive && failure) show_error(run_time_error(*failure, file, m_path));
  return !failure;
}

bool MainWindow::run_command(const char* word) {
  return run_guarded([this, word] { m_graph->ChartOptions(word); });
}

// The clipboard is empty where there was no picture to copy.
void MainWindow::copy_picture() {
  const QPointer<MainWindow> alive(this);
  if (!run_command("copy") || !alive) return;
  const QMimeData* const mime = QGuiApplication::clipboard()->mimeData();
  if (mime && mime->hasImage()) show_note("Copied");
}

// -- Opening --------------------------------------------------------------------------------------

void MainWindow::new_window() {
  (new MainWindow(m_locale, m_report))->show();
}

void MainWindow::choose_files() {
  const QPointer<QFileDialog> dialog(new QFileDialog(this, "Open"));
  fit_to_screen(*dialog);
  guard_wheel(*dialog);
  dialog->setFileMode(QFileDialog::ExistingFiles);
  dialog->setNameFilters({"Tables and graphs (*.csv *.tsv *.txt *.ods *.xlsx *.json *.jsonl *.gdf)",
                          "Tables (*.csv *.tsv *.txt *.ods *.xlsx *.json *.jsonl)",
                          "Graph files (*.gdf)", "All files (*)"});
  if (!m_path.empty()) {
    const std::string folder = std::filesystem::path(m_path).parent_path().string();
    dialog->setDirectory(QFile::decodeName(folder.c_str()));
  }
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (!dialog) return;
  std::vector<std::string> paths;
  for (const QString& file : dialog->selectedFiles()) {
    paths.push_back(QFile::encodeName(file).toStdString());
  }
  delete dialog;
  if (accepted) open_all(paths);
}

void MainWindow::open_all(const std::vector<std::string>& paths) {
  const QPointer<MainWindow> alive(this);
  Target target = Target::kThisWindow;
  for (const std::string& path : paths) {
    if (open_in(target, path)) target = Target::kNewWindow;
    if (!alive) return;
  }
}

bool MainWindow::open(const std::string& path) {
  return open_in(Target::kThisWindow, path);
}

bool MainWindow::open_in(Target target, const std::string& path) {
  return show_source(target, path, [&](GraphChoice& choice) -> std::optional<GraphSource> {
    if (is_graph_file(path)) return GraphSource{path, std::nullopt};
    return ask_about_table(path, read_table_bytes(path), choice);
  });
}

// A new window appears with the graph in it, so whatever is asked or said before that is over this
// one. A graph that has unsaved changes when all has been asked is not replaced.
bool MainWindow::show_source(Target target, const std::string& path, const Source& read) {
  const QPointer<MainWindow> alive(this);
  QString failure;
  try {
    GraphChoice choice;
    choice.locale = m_locale;
    const std::optional<GraphSource> source = read(choice);
    if (!source || !alive) return false;
    if (target == Target::kThisWindow && is_saved() && !m_is_following) {
      show_graph(choice, *source);
    } else {
      show_in_new_window(choice, *source);
    }
    return true;
  } catch (const UserError& error) {
    failure = sentence(error.what(), path);
  } catch (const Fault& fault) {
    failure = file_label(path) + QString::fromStdString(fault_clause(Attempt::kDraw, fault.kind()));
  } catch (const std::bad_alloc&) {
    failure = "There is not enough memory for " + file_label(path) + '.';
  }
  if (alive) show_error(failure);
  return false;
}

// The graph is laid out in a window that is not on the screen yet, because messages come before it
// is complete. A window that shows nothing is closed again.
void MainWindow::show_in_new_window(const GraphChoice& choice, const GraphSource& source) const {
  const QPointer<MainWindow> window(new MainWindow(m_locale, m_report));
  window->setAttribute(Qt::WA_DontShowOnScreen);
  try {
    window->show_graph(choice, source);
  } catch (...) {
    if (window) window->close();
    throw;
  }
  if (!window) return;
  window->hide();
  window->setAttribute(Qt::WA_DontShowOnScreen, false);
  window->show();
}

std::optional<GraphSource> MainWindow::ask_about_table(const std::string& path, std::string bytes,
                                                       GraphChoice& choice) {
  const QPointer<ImportDialog> dialog(new ImportDialog(path, std::move(bytes), this));
  std::optional<GraphSource> source;
  place_import(*dialog, *m_graph);
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (dialog) keep_import_place(*dialog);
  if (accepted && dialog) {
    choice = dialog->choice();
    choice.locale = m_locale;
    source = dialog->take_source();
  }
  delete dialog;
  return source;
}

void MainWindow::open_recent(const std::string& path) {
  std::error_code ignored;
  if (std::filesystem::exists(path, ignored)) {
    open(path);
    return;
  }
  RecentFiles().remove(path);
  show_error(QFile::decodeName(on_one_line(path).c_str()) +
             " is not there any more, so the list of recent files forgets it.");
}

// -- Pictures -------------------------------------------------------------------------------------

void MainWindow::export_picture() {
  const QPointer<MainWindow> alive(this);
  std::optional<ExportChoice> choice = ask_for_export(*m_graph, this);
  if (!choice || !alive) return;
  const std::optional<std::string> path = ask_for_picture(this, m_path, choice->format);
  if (!path || !alive) return;
  // The name may be that of another format.
  choice->format = picture_format(*path).value_or(choice->format);
  if (const std::optional<QString> refusal = export_refusal(*choice)) return show_error(*refusal);
  try {
    if (choice->size) {
      app::export_picture(*m_graph, *path, export_pixels(*choice), dots_per_inch(*choice));
    } else {
      app::export_picture(*m_graph, *path);
    }
    show_file_note("Written", *path);
  } catch (const UserError& error) {
    show_error(sentence(error.what(), *path));
  } catch (const std::bad_alloc&) {
    show_error("There is not enough memory for this picture.");
  }
}

// -- Clipboard and drag and drop ------------------------------------------------------------------

void MainWindow::paste() {
  if (const QMimeData* const mime = QGuiApplication::clipboard()->mimeData()) {
    open_transferred(*mime);
  }
}

void MainWindow::open_transferred(const QMimeData& mime) {
  const std::vector<std::string> paths = files_in(mime);
  if (!paths.empty()) return open_all(paths);
  open_text(has_table_text(mime) ? table_text(mime) : std::string());
}

void MainWindow::open_text(const std::string& text) {
  show_source(Target::kThisWindow, kClipboard,
              [&](GraphChoice& choice) -> std::optional<GraphSource> {
                if (!holds_numbers(text)) {
                  throw UserError(
                      "no table was found in this text. A table has at least two rows, and a "
                      "column of numbers.");
                }
                std::optional<GraphSource> source = ask_about_table(kClipboard, text, choice);
                // So it is untitled, and a save asks for a name.
                if (source) source->path.clear();
                return source;
              });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QMimeData& mime = *event->mimeData();
  if (files_in(mime).empty() && !has_table_text(mime)) return;
  // A program that moved its text here would delete it there.
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

// The program that is dragged from waits until this returns, and opening shows dialogs.
void MainWindow::dropEvent(QDropEvent* event) {
  const QMimeData& mime = *event->mimeData();
  const std::vector<std::string> paths = files_in(mime);
  if (paths.empty() && !has_table_text(mime)) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  const std::string text = paths.empty() ? table_text(mime) : std::string();
  QMetaObject::invokeMethod(
      this, [this, paths, text] { paths.empty() ? open_text(text) : open_all(paths); },
      Qt::QueuedConnection);
}

}  // namespace kurv::app
