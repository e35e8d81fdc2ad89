// A user at the windows: waits for something to be there, then presses keys.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "qt/widget/font_dialog.h"

namespace kurv::test {

// A timer drives it, because prompts run event loops of their own. What is given to do is arguments
// of xdotool.
class User {
 public:
  User() {
    QObject::connect(&m_timer, &QTimer::timeout, [this] { step(); });
    m_timer.start(50);
    m_clock.start();
  }

  User& does(const QStringList& keys) {
    return after([] { return true; }, keys);
  }
  User& in_menu(const QStringList& keys) {
    return after([] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }, keys);
  }
  template <class Dialog>
  User& in(const QStringList& keys) {
    return after(
        [this] {
          auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
          if (!dialog || !dialog->isActiveWindow() || !QApplication::focusWidget()) return false;
          // The keys for the one before may still be on their way to it.
          if (dialog->property("answered").toBool()) return false;
          dialog->setProperty("answered", true);
          note(dialog);
          return true;
        },
        keys);
  }

  // In a window of the graph's own.
  User& in_window(const char* name, const QStringList& keys) {
    return after(
        [name] {
          const QWidget* const window = QApplication::activeWindow();
          return window && window->objectName() == QLatin1String(name) &&
                 QApplication::focusWidget();
        },
        keys);
  }
  // At a place of the screen that is asked for when it is time.
  User& clicks(std::function<QPoint()> place) {
    m_steps.push_back({[] { return true; },
                       [place = std::move(place)] {
                         const QPoint at = place();
                         return QStringList{"mousemove", QString::number(at.x()),
                                            QString::number(at.y()), "click", "1"};
                       }});
    return *this;
  }
  // Goes on when this has come true.
  User& sees(std::function<bool()> condition) { return after(std::move(condition), {}); }

  // Also waits for the tool: a key that it has pressed and not released would stay down.
  bool is_done() {
    return QTest::qWaitFor(
               [this] {
                 return m_next == m_steps.size() && m_tool.state() == QProcess::NotRunning &&
                        !QApplication::activeModalWidget();
               },
               20000) &&
           !m_gave_up;
  }

  std::vector<std::string> shown;  // the texts of prompts and boxes

 private:
  struct Step {
    std::function<bool()> is_time;
    std::function<QStringList()> tool;  // what it does, which may be nothing
  };

  User& after(std::function<bool()> is_time, const QStringList& keys) {
    m_steps.push_back({std::move(is_time), [keys] { return keys; }});
    return *this;
  }
  void note(const QInputDialog* prompt) { shown.push_back(prompt->labelText().toStdString()); }
  void note(const QMessageBox* box) { shown.push_back(box->text().toStdString()); }
  void note(const FontDialog* dialog) { shown.push_back(dialog->windowTitle().toStdString()); }
  // One thing at a time: the next one waits until the tool has pressed all keys.
  void step() {
    if (m_tool.state() != QProcess::NotRunning) return;
    if (m_clock.hasExpired(15000)) return give_up();
    if (m_next == m_steps.size() || !m_steps[m_next].is_time()) return;
    const QStringList keys = m_steps[m_next++].tool();
    if (!keys.isEmpty()) m_tool.start("xdotool", keys);
    m_clock.restart();
  }
  // What is still open would keep the test waiting for ever.
  void give_up() {
    m_gave_up = true;
    if (m_next < m_steps.size()) ADD_FAILURE() << "waited in vain for step " << m_next + 1;
    m_next = m_steps.size();
    if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
    if (QWidget* const modal = QApplication::activeModalWidget()) modal->close();
  }

  QTimer m_timer;
  QProcess m_tool;
  std::vector<Step> m_steps;
  std::size_t m_next = 0;
  QElapsedTimer m_clock;
  bool m_gave_up = false;
};

// Over what stands in a field, and Return.
inline QStringList type(const QString& text) {
  return {"key", "ctrl+a", "type", "--delay", "20", "--args", "1", text, "key", "Return"};
}

}  // namespace kurv::test
