// What the status bar of the main window says: notes for a while, and the lasting message.
#include <QFile>
#include <QStatusBar>
#include <utility>

#include "app/base/message_text.h"
#include "app/window/main_window.h"

namespace kurv::app {

namespace {

constexpr int kNoteDuration = 5000;  // ms

}  // namespace

void MainWindow::make_status_bar() {
  statusBar()->setObjectName("barStatus");
  m_note_timer.setSingleShot(true);
  m_note_timer.setInterval(kNoteDuration);
  connect(&m_note_timer, &QTimer::timeout, this, [this] { end_note(); });
  // The status tip of a menu entry takes the place of the message and leaves the bar empty.
  connect(statusBar(), &QStatusBar::messageChanged, this, [this](const QString& text) {
    const QString& lasting = m_note.isEmpty() ? m_status : m_note;
    if (text.isEmpty() && !lasting.isEmpty()) statusBar()->showMessage(lasting);
  });
}

void MainWindow::show_note(const QString& text) {
  m_note = text;
  m_note_timer.start();
  statusBar()->showMessage(text);
}

void MainWindow::show_file_note(const char* what, const std::string& path) {
  show_note(QString(what) + ": " + QFile::decodeName(on_one_line(path).c_str()));
}

void MainWindow::end_note() {
  m_note_timer.stop();
  const QString ended = std::exchange(m_note, {});
  if (statusBar()->currentMessage() == ended) statusBar()->clearMessage();
}

void MainWindow::show_status(const QString& text) {
  m_status = text;
  if (m_note.isEmpty()) statusBar()->showMessage(text);
}

}  // namespace kurv::app
