// Saving the graph in the main window, also before it is closed.
#include <KurvGraph/screen_fit.h>

#include <QCloseEvent>
#include <QMessageBox>
#include <QPushButton>

#include "app/graph/comma_warnings.h"
#include "app/window/main_window.h"
#include "app/window/save_question.h"
#include "app/window/window_texts.h"

namespace kurv::app {

// False where the graph has unsaved changes still, because the user cancelled or writing failed.
bool MainWindow::save() {
  const QPointer<MainWindow> alive(this);
  const bool writes = !m_graph->GraphSaved() || !is_saved();
  if (writes && !confirm_commas()) return false;
  note_saved([this] {
    if (m_graph->GraphSaved() && !is_saved()) {
      // The graph counts only changes that were drawn, so its "save" would write nothing.
      run_guarded([this] { m_graph->save_to(m_graph->FileName()); });
    } else {
      run_command("save");
    }
  });
  if (!alive) return false;
  update_modified();
  return !isWindowModified();
}

// Another file asks again.
void MainWindow::save_as() {
  m_accepted_changes.clear();
  if (confirm_commas()) note_saved([this] { run_command("saveas"); });
}

// Says so where the work has written the graph; the user may have cancelled.
void MainWindow::note_saved(const std::function<void()>& work) {
  const QPointer<MainWindow> alive(this);
  const unsigned before = m_times_filed;
  work();
  if (alive && m_times_filed != before) show_file_note("Saved", m_path);
}

// Whether to write a graph file although it does not keep all of the graph. Asks once for the same
// names and the same file.
bool MainWindow::confirm_commas() {
  const std::vector<CommaChange> changes = m_graph->comma_changes();
  const std::vector<std::string> consequences = comma_consequences(changes);
  if (consequences == m_accepted_changes) return true;
  const QPointer<MainWindow> alive(this);
  if (!consequences.empty() && !ask_to_save_anyway(this, consequences)) return false;
  if (!alive) return false;
  m_accepted_changes = consequences;
  for (const std::string& warning : comma_warnings(changes)) m_report("warning: " + warning);
  return true;
}

bool MainWindow::confirm_close() {
  if (is_saved()) return true;
  const QPointer<QMessageBox> box(new QMessageBox(this));
  box->setIcon(QMessageBox::Warning);
  box->setWindowTitle("kurv");
  box->setTextFormat(Qt::PlainText);
  box->setText(m_path.empty()
                   ? QString("The graph is not saved.")
                   : "The graph " + file_label(m_path) + " has changes that are not saved.");
  box->setInformativeText(m_path.empty() ? "Do you want to save it before it is closed?"
                                         : "Do you want to save them before it is closed?");
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

}  // namespace kurv::app
