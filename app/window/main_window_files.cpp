// Opening, saving and exporting files in the main window.
#include <KurvGraph/file_fault.h>
#include <KurvGraph/screen_fit.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QUrl>
#include <filesystem>
#include <new>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/csv_text.h"
#include "app/graph/picture_file.h"
#include "app/window/import_dialog.h"
#include "app/window/main_menu.h"
#include "app/window/main_window.h"
#include "app/window/picture_dialog.h"
#include "app/window/recent_files.h"
#include "app/window/window_message.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

// QUrl::toLocalFile() changes names that are not UTF-8.
std::vector<std::string> files_in(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls()) {
    if (!url.isLocalFile()) continue;
    const std::string path =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path, ignored)) paths.push_back(path);
  }
  return paths;
}

void quit_when_all_agree() {
  std::vector<QPointer<MainWindow>> windows;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (auto* const window = dynamic_cast<MainWindow*>(widget)) windows.emplace_back(window);
  }
  for (const QPointer<MainWindow>& window : windows) {
    if (window && !window->close()) return;
  }
}

}  // namespace

void MainWindow::make_menu() {
  MenuCommands commands;
  commands.new_window = [this] { new_window(); };
  commands.open = [this] { choose_files(); };
  commands.open_recent = [this](const std::string& path) { open_recent(path); };
  commands.recent = [] { return RecentFiles().paths(); };
  commands.clear_recent = [] { RecentFiles().clear(); };
  commands.save = [this] { save(); };
  commands.export_picture = [this] { export_picture(); };
  commands.close = [this] { close(); };
  commands.quit = [] { quit_when_all_agree(); };
  commands.run_command = [this](const char* word) { run_command(word); };
  commands.show_toolbar = [this](bool on) {
    m_has_toolbar = on;
    m_graph->setProperty("toolbar_visible", on);
  };
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

// Runs a command that the graph may fail at, and shows its warnings and errors in boxes.
void MainWindow::run_guarded(const std::function<void()>& work) {
  const QPointer<MainWindow> alive(this);
  std::optional<Fault> failure;
  std::string file;
  try {
    work();
  } catch (const FileFault& fault) {
    failure = fault;
    file = fault.path();
  } catch (const Fault& fault) {
    failure = fault;
  }
  if (!alive) return;
  update_actions();
  show_warnings();
  if (!alive || !failure) return;
  show_error(failed_label(file, m_path) + ": " + failure->what() + '.');
}

void MainWindow::run_command(const char* word) {
  run_guarded([this, word] { m_graph->ChartOptions(word); });
}

// -- Opening --------------------------------------------------------------------------------------

void MainWindow::new_window() {
  (new MainWindow(m_locale, m_report))->show();
}

void MainWindow::choose_files() {
  const QPointer<QFileDialog> dialog(new QFileDialog(this, "Open"));
  fit_to_screen(*dialog);
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

// A new window appears with the graph in it, so whatever is asked or said before that is over this
// one. A graph that has unsaved changes when all has been asked is not replaced.
bool MainWindow::open_in(Target target, const std::string& path) {
  const QPointer<MainWindow> alive(this);
  QString failure;
  try {
    GraphChoice choice;
    choice.locale = m_locale;
    std::optional<GraphSource> source = GraphSource{path, std::nullopt};
    if (!is_graph_file(path)) source = ask_about_table(path, read_table_bytes(path), choice);
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
    failure = file_label(path) + " cannot be drawn: " + fault.what() + '.';
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
  if (dialog->exec() == QDialog::Accepted && dialog) {
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

// -- Saving ---------------------------------------------------------------------------------------

// False where the graph has unsaved changes still, because the user cancelled or writing failed.
bool MainWindow::save() {
  const QPointer<MainWindow> alive(this);
  if (m_graph->GraphSaved() && !is_saved()) {
    // The graph counts only changes that were drawn, so its "save" would write nothing.
    run_guarded([this] { m_graph->save_to(m_graph->FileName()); });
  } else {
    run_command("save");
  }
  if (!alive) return false;
  update_modified();
  return !isWindowModified();
}

void MainWindow::export_picture() {
  const QPointer<MainWindow> alive(this);
  const std::optional<std::string> path = ask_for_picture(this, m_path);
  if (!path || !alive) return;
  try {
    app::export_picture(*m_graph, *path);
    statusBar()->showMessage("Written: " + QFile::decodeName(on_one_line(*path).c_str()));
  } catch (const UserError& error) {
    show_error(sentence(error.what(), *path));
  } catch (const std::bad_alloc&) {
    show_error("There is not enough memory for this picture.");
  }
}

bool MainWindow::confirm_close() {
  if (is_saved()) return true;
  const QPointer<QMessageBox> box(new QMessageBox(this));
  box->setIcon(QMessageBox::Warning);
  box->setWindowTitle("kurv");
  box->setTextFormat(Qt::PlainText);
  box->setText("The graph " + file_label(m_path) + " has changes that are not saved.");
  box->setInformativeText("Do you want to save them before it is closed?");
  QPushButton* const save_button = box->addButton("&Save", QMessageBox::AcceptRole);
  QPushButton* const lose = box->addButton("&Don't Save", QMessageBox::DestructiveRole);
  box->setEscapeButton(box->addButton("&Cancel", QMessageBox::RejectRole));
  box->setDefaultButton(save_button);
  fit_text_to_screen(*box);
  fit_to_screen(*box);
  box->exec();
  if (!box) return false;
  const auto* const answer = box->clickedButton();
  const bool wants_save = answer == save_button;
  const bool wants_none = answer == lose;
  delete box;
  return wants_none || (wants_save && save());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  const QPointer<MainWindow> alive(this);
  const bool may_go = confirm_close();
  event->setAccepted(may_go);
  // The graph would ask again.
  if (may_go && alive) m_graph->set_QueryForSave(false);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!files_in(*event->mimeData()).empty()) event->acceptProposedAction();
}

// The program that the files are dragged from waits until this returns, and opening shows dialogs.
void MainWindow::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = files_in(*event->mimeData());
  if (paths.empty()) return;
  event->acceptProposedAction();
  QMetaObject::invokeMethod(
      this, [this, paths] { open_all(paths); }, Qt::QueuedConnection);
}

}  // namespace kurv::app
