// The properties over a graph on a recording surface, with real keys.
#pragma once

#include <KurvGraph/fault.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/frm_propert.h"
#include "tests/support/test_host.h"

namespace kurv::test {

// Does something while a box is open.
struct BusyShell final : ScriptedShell {
  Answer message_box(std::string_view text, int flags, std::string_view title) override {
    const Answer answer = ScriptedShell::message_box(text, flags, title);
    if (meanwhile) meanwhile();
    return answer;
  }
  std::optional<Font> choose_font(const Font& preset) override {
    const std::optional<Font> answer = ScriptedShell::choose_font(preset);
    if (meanwhile) meanwhile();
    return answer;
  }

  std::function<void()> meanwhile;
};

// The x limits are those of the data, 1.5 to 3; the y limits are rounded, 2 to 5.
struct PropertClient final : Client {
  PropertClient() {
    graph.first_placement();
    graph.show();
    graph.scatter_graph(columns({{2, 4.5, 3}}), points({1.5, 3, 2}), 3, 1, String("Title"), "x",
                        names({"y"}), 0, {}, Boolean(true), Boolean(false));
    surface.clear_log();
  }

  Control& control() override { return graph; }
  QWidget* window() const override { return nullptr; }
  void handle(const std::function<void(Control&)>& work) override {
    ++handled;
    try {
      work(graph);
    } catch (const Fault& fault) {
      faults.push_back(fault.kind());
    }
  }

  GraphDocument& document() { return graph.state().document; }
  // Since the last time.
  int redraws() {
    int count = 0;
    const std::string& log = surface.log();
    for (auto at = log.find("cls\n"); at != log.npos; at = log.find("cls\n", at + 1)) ++count;
    surface.clear_log();
    return count;
  }

  PlainContainer container;
  BusyShell shell;
  RecordingSurface surface{12000, 9000};
  Services services = make_services();
  Control graph{container, shell, surface, services};
  int handled = 0;
  std::vector<FaultKind> faults;
};

class FrmPropert : public testing::Test {
 protected:
  FrmPropert() { window->set_client(&client); }
  ~FrmPropert() override { delete window.data(); }

  // As a user sees it, with this tab in front.
  void open(Integer page) {
    window->init(page);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }

  template <class Widget>
  Widget* find(const char* name) {
    auto* const found = window->findChild<Widget*>(QLatin1String(name));
    if (!found) ADD_FAILURE() << name;
    return found;
  }
  QLineEdit* box(const char* name) { return find<QLineEdit>(name); }
  QCheckBox* check(const char* name) { return find<QCheckBox>(name); }
  QComboBox* list(const char* name) { return find<QComboBox>(name); }
  std::string text(const char* name) { return box(name)->text().toStdString(); }

  // Whether its text is marked as one that is not stored.
  bool is_red(const char* name) {
    return box(name)->palette().color(QPalette::Text) == QColor(255, 0, 0);
  }

  // Marks the old text and types over it.
  void type(const char* name, const char* keys) {
    QLineEdit* const field = box(name);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, QLatin1String(keys));
  }
  void press(const char* name, Qt::Key key) {
    QTest::keyClick(find<QWidget>(name), key);
    QApplication::processEvents();
  }
  void click(const char* button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }

  Control& graph() { return client.graph; }

  PropertClient client;
  QPointer<frmPropert> window = new frmPropert(nullptr);
};

}  // namespace kurv::test
