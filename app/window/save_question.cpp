#include "app/window/save_question.h"

#include <KurvGraph/screen_fit.h>

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <algorithm>

#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

constexpr std::size_t kMaxLines = 8;

QString listed(const std::vector<std::string>& changes) {
  // "and 1 more" is no shorter than the line that it hides.
  const std::size_t shown = changes.size() <= kMaxLines + 1 ? changes.size() : kMaxLines;
  QString lines;
  for (std::size_t i = 0; i < shown; ++i) {
    lines += QStringLiteral("\u2022 ") + capitalised(QString::fromStdString(changes[i])) + '\n';
  }
  if (shown < changes.size()) {
    lines += QStringLiteral("\u2022 and %1 more\n").arg(changes.size() - shown);
  }
  return lines;
}

}  // namespace

bool ask_to_save_anyway(QWidget* window, const std::vector<std::string>& changes) {
  const QPointer<QMessageBox> box(new QMessageBox(window));
  box->setObjectName("SaveQuestion");
  box->setIcon(QMessageBox::Warning);
  box->setWindowTitle("kurv");
  box->setTextFormat(Qt::PlainText);
  box->setText("The graph file will not keep all of this graph.");
  box->setInformativeText(
      "A graph file has commas between names, functions and numbers, so it cannot hold commas in "
      "them. When it is opened again:\n\n" +
      listed(changes) +
      "\nNames and functions can be changed first in Graph > Curves and Functions.");
  QPushButton* const save = box->addButton("&Save Anyway", QMessageBox::AcceptRole);
  QPushButton* const cancel = box->addButton("&Cancel", QMessageBox::RejectRole);
  save->setObjectName("cmdSaveAnyway");
  cancel->setObjectName("cmdCancel");
  box->setDefaultButton(cancel);
  box->setEscapeButton(cancel);
  fit_text_to_screen(*box);
  fit_to_screen(*box);
  box->exec();
  const bool answer = box && box->clickedButton() == save;
  delete box;
  return answer;
}

}  // namespace kurv::app
