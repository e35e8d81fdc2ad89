#include "app/window/picture_dialog.h"

#include <KurvGraph/screen_fit.h>
#include <KurvGraph/wheel_guard.h>

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <filesystem>

#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

std::string bytes_of(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

// Done here because Qt takes what follows the last dot for an extension, as in "sales.2020".
QString completed(const QString& path, const QString& filter) {
  if (picture_format(bytes_of(path))) return path;
  return path + filter.section("(*", 1).section(')', 0, 0);
}

void propose(QFileDialog& dialog, const std::string& graph_path) {
  if (graph_path.empty()) return;
  const std::filesystem::path path(graph_path);
  dialog.setDirectory(QFile::decodeName(path.parent_path().c_str()));
  const QString name = QFile::decodeName(path.stem().c_str());
  dialog.selectFile(completed(name, dialog.selectedNameFilter()));
}

bool may_replace(QWidget* window, const QString& path) {
  if (!QFileInfo::exists(path)) return true;
  const QPointer<QMessageBox> box(new QMessageBox(window));
  box->setIcon(QMessageBox::Warning);
  box->setWindowTitle("kurv");
  box->setTextFormat(Qt::PlainText);
  box->setText(file_label(bytes_of(path)) + " already exists.");
  box->setInformativeText("Do you want to replace it?");
  const QPushButton* const replace = box->addButton("&Replace", QMessageBox::AcceptRole);
  QPushButton* const cancel = box->addButton("&Cancel", QMessageBox::RejectRole);
  box->setDefaultButton(cancel);
  box->setEscapeButton(cancel);
  box->exec();
  const bool answer = box && box->clickedButton() == replace;
  delete box;
  return answer;
}

QFileDialog* new_dialog(QWidget* window, const std::string& graph_path, PictureFormat format) {
  auto* const dialog = new QFileDialog(window, "Export Picture");
  fit_to_screen(*dialog);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setOption(QFileDialog::DontConfirmOverwrite);
  dialog->setNameFilters(
      {"PNG picture (*.png)", "SVG drawing (*.svg)", "PDF document (*.pdf)", "Bitmap (*.bmp)"});
  const QString extension = QString::fromStdString(picture_extension(format));
  dialog->selectNameFilter(dialog->nameFilters().filter("(*" + extension + ')').value(0));
  propose(*dialog, graph_path);
  guard_wheel(*dialog);
  return dialog;
}

}  // namespace

// The dialog does not know the completed name, so whether to replace a file is asked after it, and
// the dialog comes again where the user wants to keep that file.
std::optional<std::string> ask_for_picture(QWidget* window, const std::string& graph_path,
                                           PictureFormat format) {
  // The window deletes it, perhaps while it is open.
  const QPointer<QFileDialog> dialog = new_dialog(window, graph_path, format);
  std::optional<std::string> result;
  while (dialog && !result && dialog->exec() == QDialog::Accepted && dialog) {
    const QString chosen = dialog->selectedFiles().value(0);
    if (chosen.isEmpty()) break;
    const QString whole = completed(chosen, dialog->selectedNameFilter());
    if (may_replace(window, whole)) result = bytes_of(whole);
  }
  delete dialog;
  return result;
}

}  // namespace kurv::app
