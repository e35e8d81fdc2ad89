// The import window of a table, and what a user finds in it.
#pragma once

#include <gmock/gmock.h>

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <string>

#include "app/window/import_dialog.h"

namespace kurv::app {

// Settings of its own, without those of the user.
struct ImportSettings {
  ImportSettings() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path())); }
  QTemporaryDir folder;
};

struct Import {
  explicit Import(const std::string& bytes, const std::string& path = "/data/a.csv",
                  std::shared_ptr<ImportSettings> kept = std::make_shared<ImportSettings>())
      : settings(std::move(kept)), dialog(path, bytes, nullptr) {
    dialog.show();
  }

  template <class Widget>
  Widget& get(const char* name) {
    return *dialog.findChild<Widget*>(name);
  }
  std::string label(const char* name) { return get<QLabel>(name).text().toStdString(); }
  std::string summary() { return label("lblSummary"); }
  bool can_import() { return get<QPushButton>("cmdImport").isEnabled(); }
  // The dialog waits a little for more changes before it reads the data anew.
  bool comes_to_say(const std::string& part) {
    return QTest::qWaitFor([&] { return summary().find(part) != std::string::npos; }, 5000);
  }
  QListWidgetItem* curve(const char* name) {
    return get<QListWidget>("lstCurves").findItems(name, Qt::MatchExactly).value(0);
  }
  // What is chosen or typed in a field.
  std::string shown_in(const char* box) { return get<QComboBox>(box).currentText().toStdString(); }
  void choose(const char* box, const QString& text) { get<QComboBox>(box).setCurrentText(text); }
  // As a user does it, who replaces what is in the field.
  void type(const char* box, const QString& text) {
    auto& field = get<QComboBox>(box);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, text);
  }
  const QAbstractItemModel& rows() { return *get<QTableView>("tblPreview").model(); }
  const QAbstractItemModel& lines() { return *get<QTableView>("tblLines").model(); }
  GraphSource taken() {
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    return dialog.take_source();
  }

  std::shared_ptr<ImportSettings> settings;
  ImportDialog dialog;
};

}  // namespace kurv::app
