#include "app/window/error_box.h"

#include <QApplication>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "app/base/message_text.h"
#include "app/window/window_icon.h"
#include "app/window/window_message.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

int g_exit_status = 0;

// Without a display, Qt would abort with a core dump.
void exit_on_fatal_message(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type == QtFatalMsg) std::_Exit(g_exit_status);
}

// On other platforms a box would wait for an answer that cannot come.
bool has_screen() {
  const QString platform = QGuiApplication::platformName();
  return platform != "offscreen" && !platform.startsWith("minimal");
}

}  // namespace

void ErrorBox::add(const std::string& sentence) {
  if (!m_is_needed) return;
  const std::string text = on_one_line(sentence);
  const auto begins_text = [&](const std::string& argument) {
    return !argument.empty() && text.starts_with(argument);
  };
  const bool is_name = std::any_of(m_arguments.begin(), m_arguments.end(), begins_text);
  const QString shown = QString::fromStdString(text);
  m_sentences << (is_name ? shown : capitalised(shown));
}

void ErrorBox::show(QWidget* window) {
  const QStringList sentences = std::exchange(m_sentences, {});
  if (sentences.isEmpty() || !has_screen()) return;
  show_message(window, QMessageBox::Critical, "kurv", sentences.join("\n\n"));
}

void ErrorBox::show_before_end(int exit_status) {
  if (m_sentences.isEmpty()) return;
  g_exit_status = exit_status;
  char name[] = "kurv";
  char* arguments[] = {name, nullptr};
  int count = 1;
  qInstallMessageHandler(exit_on_fatal_message);
  const QApplication application(count, arguments);
  qInstallMessageHandler(nullptr);
  QApplication::setWindowIcon(window_icon());
  show(nullptr);
}

}  // namespace kurv::app
