// The window of the curves, open for three curves and two functions, and a user's hands.
#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QTabWidget>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "control/control_state.h"
#include "dialogs/frm_curves.h"
#include "tests/dialogs/test_client.h"

namespace kurv::test {

class FrmCurvesTest : public testing::Test {
 protected:
  void load(const std::vector<std::vector<Double>>& data, std::vector<String> column_names,
            std::vector<String> functions = {}) {
    const std::size_t curves = data.size() - 1;
    const auto count = static_cast<Integer>(functions.size());
    client.control().scatter_graph2("Title", columns(data), names(std::move(column_names)),
                                    static_cast<Integer>(data.front().size()),
                                    static_cast<Integer>(curves),
                                    flags(std::vector<Boolean>(curves, Boolean(true))), count,
                                    names(std::move(functions)), true, false);
  }
  void load_three() {
    load({{3, 1, 2}, {30, 10, 20}, {7, 9, 8}, {5, 5, 5}}, {"x", "a", "b", "flat"}, {"x", "x*x"});
  }

  void open() {
    window = std::make_unique<frmCurves>(nullptr);
    client.served = window.get();
    window->set_client(&client);
    window->init(0);
    window->show();
    QApplication::setActiveWindow(window.get());
    QApplication::processEvents();
    client.redraws();
  }
  void open_three() {
    load_three();
    open();
  }

  template <class Widget>
  Widget& get(const char* name) {
    auto* const widget = window->findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(widget, nullptr) << name;
    return *widget;
  }
  QComboBox& cmbX() { return get<QComboBox>("cmbX"); }
  QListWidget& lstScatters() { return get<QListWidget>("lstScatters"); }
  QListWidget& lstFuncs() { return get<QListWidget>("lstFuncs"); }
  QAbstractButton& button(const char* name) { return get<QAbstractButton>(name); }

  void show_functions() { get<QTabWidget>("tabCurves").setCurrentIndex(1); }
  void click(const char* name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
  static void click_at(QListWidget& list, QPoint at) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
  }
  // The box stands at the left of its row.
  static void click_box(QListWidget& list, int row) {
    const QRect rect = list.visualItemRect(list.item(row));
    click_at(list, rect.topLeft() + QPoint(rect.height() / 2, rect.height() / 2));
  }
  static void click_name(QListWidget& list, int row) {
    const QRect rect = list.visualItemRect(list.item(row));
    click_at(list, rect.center());
  }
  // A click before it, as a mouse sends it.
  static void double_click_at(QListWidget& list, QPoint at) {
    click_at(list, at);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    QApplication::processEvents();
  }
  static void double_click_name(QListWidget& list, int row) {
    double_click_at(list, list.visualItemRect(list.item(row)).center());
  }
  // As the user does it without opening the list.
  void choose_x(int index) {
    cmbX().setFocus();
    while (cmbX().currentIndex() < index) QTest::keyClick(&cmbX(), Qt::Key_Down);
    while (cmbX().currentIndex() > index) QTest::keyClick(&cmbX(), Qt::Key_Up);
  }

  static std::vector<std::string> texts(const QListWidget& list) {
    std::vector<std::string> found;
    for (int row = 0; row < list.count(); ++row) {
      found.push_back(list.item(row)->text().toStdString());
    }
    return found;
  }
  static std::vector<bool> ticks(const QListWidget& list) {
    std::vector<bool> found;
    for (int row = 0; row < list.count(); ++row) {
      found.push_back(list.item(row)->checkState() == Qt::Checked);
    }
    return found;
  }
  std::vector<std::string> x_names() {
    std::vector<std::string> found;
    for (int i = 0; i < cmbX().count(); ++i) found.push_back(cmbX().itemText(i).toStdString());
    return found;
  }
  ScriptedShell& shell() { return client.host.shell; }
  GraphDocument& document() { return client.document(); }

  TestClient client;
  std::unique_ptr<frmCurves> window;
};

}  // namespace kurv::test
