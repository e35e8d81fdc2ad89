// Errors of a program that was started where nobody reads its standard error.
#pragma once

#include <QStringList>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

namespace kurv::app {

// Collects errors and shows them in one message box.
class ErrorBox {
 public:
  // Without `is_needed` there is never a box. The sentences begin with a capital letter in it,
  // unless they begin with one of the arguments of the program, such as a file.
  ErrorBox(bool is_needed, std::vector<std::string> arguments)
      : m_is_needed(is_needed), m_arguments(std::move(arguments)) {}

  // Whether nobody reads standard error, as where a file manager has started the program.
  bool is_needed() const { return m_is_needed; }

  void add(const std::string& sentence);
  // Shows what was added, until the user answers, and forgets it. Needs a QApplication.
  void show(QWidget* window);
  // The same without one, before the program ends with this status. Where there is no screen, it
  // ends here.
  void show_before_end(int exit_status);

 private:
  bool m_is_needed;
  std::vector<std::string> m_arguments;
  QStringList m_sentences;
};

}  // namespace kurv::app
