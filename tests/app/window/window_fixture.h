// Main windows without a screen: files, keys, and whoever answers their boxes.
#pragma once

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <vector>

#include "app/window/import_dialog.h"
#include "app/window/main_window.h"
#include "app/window/recent_files.h"

namespace kurv::app {

class Windows : public testing::Test {
 protected:
  Windows() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.path())); }
  ~Windows() override {
    for (MainWindow* window : all()) delete window;
    EXPECT_EQ(answers_left(), 0) << "a question that was expected has not come";
  }

  std::string path(const char* name) const { return m_folder.filePath(name).toStdString(); }

  std::string written(const std::string& file_path, const QByteArray& bytes) const {
    QFile file(QFile::decodeName(file_path.c_str()));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
    return file_path;
  }

  std::string table() const { return written(path("small.csv"), "x,y,z\n1,2,5\n2,3,4\n3,5,3\n"); }

  // A graph file of that table.
  std::string graph_file(const char* name = "small.gdf", const GraphChoice& choice = {}) const {
    save_graph(choice, load(table(), choice), path(name));
    return path(name);
  }
  // Other limits of x than exact ones cannot be computed where all x values are equal.
  std::string exact_graph_file() const {
    GraphChoice choice;
    choice.round_limits = false;
    return graph_file("exact.gdf", choice);
  }

  MainWindow* window() {
    auto* const made =
        new MainWindow(std::nullopt, [this](const std::string& text) { said.push_back(text); });
    made->show();
    return made;
  }

  MainWindow* window_of(const std::string& file) {
    MainWindow* const made = window();
    made->show_graph({}, load(file, {}));
    return made;
  }

  static std::vector<MainWindow*> all() {
    std::vector<MainWindow*> found;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* const window = dynamic_cast<MainWindow*>(widget);
      if (window && window->isVisible()) found.push_back(window);
    }
    return found;
  }

  // The next dialog of this kind, once it is open, gets this treatment; others wait for theirs.
  template <class Dialog>
  void answer(std::function<void(Dialog&)> treatment) {
    m_treatments.push_back([treatment](QWidget* widget) {
      auto* const dialog = dynamic_cast<Dialog*>(widget);
      if (!dialog) return false;
      treatment(*dialog);
      return true;
    });
    watch();
  }

  void click_box(const QString& button_text, QString* text = nullptr) {
    answer<QMessageBox>([=](QMessageBox& box) {
      if (text) *text = box.text();
      for (QAbstractButton* button : box.buttons()) {
        if (button->text() == button_text) return button->click();
      }
      ADD_FAILURE() << "no button " << button_text.toStdString();
      box.reject();
    });
  }

  // Before that the listing of the folder may come in late and select another file, so the name is
  // typed until it stays.
  void choose_file(const std::string& file, int filter = 0) {
    const QString name = QFile::decodeName(file.c_str());
    m_treatments.push_back([=](QWidget* widget) {
      auto* const dialog = dynamic_cast<QFileDialog*>(widget);
      if (!dialog) return false;
      auto* const field = dialog->findChild<QLineEdit*>("fileNameEdit");
      if (field->text() != name || !dialog->selectedFiles().value(0).startsWith(name)) {
        choose_filter(*dialog, filter);
        field->setText(name);
        return false;
      }
      QTest::keyClick(dialog, Qt::Key_Return);
      return true;
    });
    watch();
  }

  // As a person chooses it from the list.
  static void choose_filter(QFileDialog& dialog, int index) {
    auto* const filters = dialog.findChild<QComboBox*>("fileTypeCombo");
    filters->setCurrentIndex(index);
    Q_EMIT filters->activated(index);
  }

  static QAction& action(MainWindow* window, const char* name) {
    auto* const found = window->findChild<QAction*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }

  // As from the keyboard: what is disabled does nothing.
  static void press(MainWindow* window, const char* name) { action(window, name).trigger(); }

  static void change_title(MainWindow* window, const QString& title) {
    window->graph().set_Title(title);
    window->graph().build_the_graph();
  }

  static bool becomes_modified(MainWindow* window, bool modified) {
    return QTest::qWaitFor([=] { return window->isWindowModified() == modified; }, 5000);
  }

  std::size_t answers_left() const { return m_treatments.size(); }
  void expect_nothing() { m_treatments.clear(); }

  QTemporaryDir m_folder;
  std::vector<std::string> said;

 private:
  void watch() {
    if (m_watch.isActive()) return;
    QObject::connect(&m_watch, &QTimer::timeout, &m_watch, [this] {
      QWidget* const modal = QApplication::activeModalWidget();
      if (!modal) return;
      if (m_treatments.empty()) {
        ADD_FAILURE() << "nobody expected " << modal->metaObject()->className() << ' '
                      << modal->windowTitle().toStdString();
        modal->close();
        return;
      }
      const auto treatment = m_treatments.front();
      m_treatments.erase(m_treatments.begin());
      if (!treatment(modal)) m_treatments.insert(m_treatments.begin(), treatment);
    });
    m_watch.start(20);
  }

  QTimer m_watch;
  std::vector<std::function<bool(QWidget*)>> m_treatments;
};

}  // namespace kurv::app
