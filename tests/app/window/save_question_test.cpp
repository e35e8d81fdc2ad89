// Names that do not come back are said before a graph file is written, on each road.
#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class SaveQuestion : public Windows {
 protected:
  // A graph of a file whose first curve got a name with a comma, as a user may rename it.
  MainWindow* renamed() {
    MainWindow* const kurv = window_of(graph_file());
    m_before = bytes();
    List<Boolean> visible(1, 2);
    visible(1) = visible(2) = true;
    Matrix<Double> values(1, 3, 1, 3);
    for (int i = 1; i <= 3; ++i) values(1, i) = values(2, i) = values(3, i) = i;
    List<String> names(1, 3);
    names(1) = "x";
    names(2) = "a,b";
    names(3) = "c";
    kurv->graph().scatter_graph2("small", values, names, 3, 2, visible, 0, {}, true, false);
    return kurv;
  }

  QByteArray bytes() const {
    QFile file(QFile::decodeName(path("small.gdf").c_str()));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }
  bool is_written() const { return bytes() != m_before; }

  QByteArray m_before;
};

TEST_F(SaveQuestion, SaysWhatWillComeBack) {
  MainWindow* const kurv = renamed();
  QString text;
  answer<QMessageBox>([&](QMessageBox& box) {
    text = box.informativeText();
    EXPECT_FALSE(is_written());
    EXPECT_EQ(box.defaultButton()->text(), "&Cancel");
    box.reject();
  });
  press(kurv, "mnuSave");
  EXPECT_THAT(text.toStdString(), HasSubstr("Curve \"a,b\" becomes \"a\""));
  EXPECT_THAT(text.toStdString(), HasSubstr("Curve \"c\" becomes \"b\""));
  EXPECT_FALSE(is_written());
  EXPECT_FALSE(kurv->is_saved());
  EXPECT_THAT(said, ElementsAre());
}

TEST_F(SaveQuestion, SavesAnywayWhereTheUserWants) {
  MainWindow* const kurv = renamed();
  click_box("&Save Anyway");
  press(kurv, "mnuSave");
  EXPECT_TRUE(is_written());
  EXPECT_TRUE(kurv->is_saved());
  EXPECT_THAT(said, ElementsAre(StartsWith("warning: a graph file splits the name \"a,b\"")));
}

TEST_F(SaveQuestion, ComesOnceForTheSameNamesAndFile) {
  MainWindow* const kurv = renamed();
  click_box("&Save Anyway");
  press(kurv, "mnuSave");
  change_title(kurv, "Other");
  press(kurv, "mnuSave");
  EXPECT_TRUE(kurv->is_saved());
  ASSERT_EQ(kurv->graph().add_function("max(x,2)"), std::nullopt);
  QString text;
  answer<QMessageBox>([&](QMessageBox& box) {
    text = box.informativeText();
    box.reject();
  });
  press(kurv, "mnuSave");
  EXPECT_THAT(text.toStdString(), HasSubstr("Function \"max(x,2)\" becomes \"max(x\""));
}

TEST_F(SaveQuestion, ComesForSaveAsBeforeTheFileIsChosen) {
  MainWindow* const kurv = renamed();
  click_box("&Cancel");
  press(kurv, "mnuSaveAs");
  click_box("&Save Anyway");
  choose_file(path("other.gdf"));
  press(kurv, "mnuSaveAs");
  EXPECT_TRUE(QFile::exists(m_folder.filePath("other.gdf")));
  click_box("&Cancel");
  press(kurv, "mnuSaveAs");
}

TEST_F(SaveQuestion, ComesForTheToolbarsButton) {
  MainWindow* const kurv = renamed();
  bool is_asked = false;
  answer<QMessageBox>([&](QMessageBox& box) {
    is_asked = true;
    box.reject();
  });
  QTest::mouseClick(kurv->findChild<QWidget*>("tbrGraph.save"), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([&] { return is_asked; }, 5000));
  EXPECT_FALSE(is_written());
}

TEST_F(SaveQuestion, KeepsAWindowOpenThatIsClosed) {
  MainWindow* const kurv = renamed();
  click_box("&Save");
  click_box("&Cancel");
  EXPECT_FALSE(kurv->close());
  EXPECT_FALSE(is_written());
  click_box("&Save");
  click_box("&Save Anyway");
  EXPECT_TRUE(kurv->close());
  EXPECT_TRUE(is_written());
}

TEST_F(SaveQuestion, DoesNotComeWhereNothingIsWrittenOrChanged) {
  MainWindow* const kurv = window_of(graph_file());
  press(kurv, "mnuSave");
  EXPECT_TRUE(kurv->is_saved());
  EXPECT_THAT(said, ElementsAre());
}

TEST_F(SaveQuestion, NamesTheFirstNumberThatADecimalCommaSplits) {
  auto* const kurv = new MainWindow(QLocale("de_DE"), [](const std::string&) {});
  const std::string file = written(path("halves.csv"), "x,y\n1,2\n2,3.5\n3,4\n");
  kurv->show_graph({}, load(file, {}));
  QString text;
  answer<QMessageBox>([&](QMessageBox& box) {
    text = box.informativeText();
    box.reject();
  });
  press(kurv, "mnuSave");
  EXPECT_THAT(text.toStdString(),
              HasSubstr("Numbers with a decimal comma are split: 3,5 becomes 3"));
}

}  // namespace
}  // namespace kurv::app
