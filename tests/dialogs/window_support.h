// A graph in a real window, and the window of its own that a user works in.
#pragma once

#include <gmock/gmock.h>

#include "tests/qt/widget/plot_test.h"
#include "tests/qt/widget/user.h"

namespace kurv::test {

class RealWindow : public testing::Test {
 protected:
  // The window of this name, which this command opens.
  RealWindow(const char* name, const char* word) : m_name(name), m_word(word) {}

  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), "xcb") << "this test needs a real window";
    m_graph.resize(500, 350);
    m_graph.plot(small_graph());
    m_graph.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_graph));
    m_listener.redraws_since();
    // Later, because one of the windows is modal.
    QTimer::singleShot(0, &m_graph, [this] { m_graph.ChartOptions(m_word); });
  }

  QWidget* window() const {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName() == QLatin1String(m_name) && top->isVisible()) return top;
    }
    return nullptr;
  }
  // Null while there is none.
  template <class Widget>
  Widget* find(const char* name) const {
    return window() ? window()->findChild<Widget*>(QLatin1String(name)) : nullptr;
  }
  // Keys for the window.
  static QStringList keys(const QStringList& names) {
    return names.isEmpty() ? names : QStringList{"key", "--delay", "30"} + names;
  }
  GraphDocument& document() { return m_graph.document(); }

  const char* m_name;
  const char* m_word;
  OpenGraph m_graph;
  Listener m_listener{m_graph};
  User m_user;
};

}  // namespace kurv::test
