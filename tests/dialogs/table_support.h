// A table window over a control on a recording surface, and the keys of its user.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/client.h"
#include "dialogs/frm_table.h"
#include "tests/support/test_host.h"

namespace kurv::test {

class TableClient final : public Client {
 public:
  Control& control() override { return host.control; }
  QWidget* window() const override { return parent; }
  void handle(const std::function<void(Control&)>& work) override {
    try {
      work(host.control);
    } catch (const Fault& fault) {
      faults.push_back(fault.kind());
    }
    if (handled) handled();
  }
  void run_command(const char* word) override { commands.emplace_back(word); }

  // How often the whole graph has been drawn since the last call.
  int redraws() {
    const std::string log = host.surface.log();
    host.surface.clear_log();
    int count = 0;
    for (std::size_t at = log.find("cls\n"); at != log.npos; at = log.find("cls\n", at + 1)) {
      ++count;
    }
    return count;
  }

  TestHost host;
  QWidget* parent = nullptr;
  std::vector<FaultKind> faults;
  std::vector<std::string> commands;
  std::function<void()> handled;  // what happens at the end of each handling
};

// Columns of the table from x on; those without a name are called after their number.
inline void load_columns(TestHost& host, const std::vector<std::vector<Double>>& data,
                         bool visible = true, std::vector<String> first_names = {}) {
  while (first_names.size() < data.size()) {
    const std::size_t curve = first_names.size();
    first_names.push_back(curve == 0 ? String(" x ") : " curve" + std::to_string(curve));
  }
  const List<String> column_names = names(std::move(first_names));
  const auto curves = static_cast<Integer>(data.size() - 1);
  host.control.scatter_graph2(
      "Title", columns(data), column_names, static_cast<Integer>(data.front().size()), curves,
      flags(std::vector<Boolean>(static_cast<std::size_t>(curves), visible)), 0, {}, Boolean(true),
      Boolean(false));
  host.surface.clear_log();
}

// A window without a parent, for tests that delete it.
inline frmTable* open_table(TableClient& client) {
  auto* const window = new frmTable(nullptr);
  window->set_client(&client);
  window->init(0);
  window->show();
  return window;
}

struct Table {
  // Three points, two curves: x 3 1 2, curve1 30 10 20, curve2 -3 -1 -2.
  Table() : Table({{3, 1, 2}, {30, 10, 20}, {-3, -1, -2}}) {}
  explicit Table(const std::vector<std::vector<Double>>& data, bool visible = true) {
    load_columns(client.host, data, visible);
    open();
  }
  Table(const std::vector<std::vector<Double>>& data, std::vector<String> first_names) {
    load_columns(client.host, data, true, std::move(first_names));
    open();
  }

  void open() {
    window.set_client(&client);
    window.init(0);
    window.show();
    grid = window.findChild<QTableView*>("grdTable");
    QApplication::setActiveWindow(&window);
    grid->setFocus();
    client.redraws();
  }

  GraphDocument& document() { return client.host.document(); }
  ScriptedShell& shell() { return client.host.shell; }
  std::vector<std::string> messages() {
    std::vector<std::string> texts;
    for (const auto& message : shell().messages) texts.push_back(message.text);
    shell().messages.clear();
    return texts;
  }

  // Rows and columns count from 1 here, as in the window's headings.
  QModelIndex at(int row, int column) const { return grid->model()->index(row - 1, column - 1); }
  std::string cell(int row, int column) const {
    return at(row, column).data().toString().toStdString();
  }
  bool is_marked(int row, int column) const {
    return at(row, column).data(Qt::BackgroundRole).isValid();
  }
  std::string status() const {
    return window.findChild<QLabel*>("lblStatus")->text().toStdString();
  }
  std::vector<Double> column_of_host(int c) {
    std::vector<Double> values;
    for (int i = 1; i <= document().NumData; ++i) {
      values.push_back(document().xyArrUnsorted(c, i));
    }
    return values;
  }

  void select(int row, int column, int last_row, int last_column) {
    grid->setCurrentIndex(at(row, column));
    grid->selectionModel()->select(QItemSelection(at(row, column), at(last_row, last_column)),
                                   QItemSelectionModel::ClearAndSelect);
  }
  void select(int row, int column) { select(row, column, row, column); }
  // In the cell with the keyboard, as a user would.
  void type(int row, int column, const QString& text) {
    select(row, column);
    QTest::keyClick(grid, Qt::Key_F2);
    auto* const editor = grid->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Backspace);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
  }
  // Closing an editor commits its text, then deletes it, then shows messages, each by a queued
  // event of the one before.
  static void settle() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void choose(const char* item) { window.findChild<QAction*>(item)->trigger(); }
  void cut() { choose("mnuEditItem_0"); }
  void copy() { choose("mnuEditItem_1"); }
  void paste(const QString& text) {
    QApplication::clipboard()->setText(text);
    choose("mnuEditItem_2");
  }
  void erase() { choose("mnuEditItem_3"); }
  static std::string clipboard() { return QApplication::clipboard()->text().toStdString(); }

  TableClient client;
  QWidget parent;
  frmTable window{&parent};
  QTableView* grid = nullptr;
};

}  // namespace kurv::test
