// Saving the table as text.
#include <gmock/gmock.h>

#include <QFile>
#include <QPointer>
#include <QTemporaryDir>

#include "tests/dialogs/table_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TableFile : testing::Test {
  std::string path(const QString& name) const { return folder.filePath(name).toStdString(); }
  void save_as(const std::string& file) {
    table.shell().files = {{file, 1}};
    table.choose("mnuFileItem_0");
  }
  static std::string bytes_of(const std::string& file) {
    QFile input(QString::fromStdString(file));
    EXPECT_TRUE(input.open(QIODevice::ReadOnly)) << file;
    return input.readAll().toStdString();
  }

  QTemporaryDir folder;
  Table table;
};

TEST_F(TableFile, AsksWithItsTitleAndFilter) {
  table.choose("mnuFileItem_0");
  ASSERT_EQ(table.shell().save_dialogs.size(), 1u);
  const SaveDialog& dialog = table.shell().save_dialogs[0];
  EXPECT_EQ(dialog.title, "Save table File");
  EXPECT_EQ(dialog.filter, "Text files (*.txt)|*.txt|All files (*.*)|*.*");
  EXPECT_EQ(dialog.default_extension, "txt");
  EXPECT_EQ(dialog.file_name, "");
  EXPECT_EQ(dialog.flags, 2) << "asks before a file is replaced";
  EXPECT_THAT(table.client.faults, IsEmpty()) << "cancelled";
}

TEST_F(TableFile, OfThreePointsAndTwoCurvesHasFourLinesOfThreeFieldsAndCommas) {
  save_as(path("t.txt"));
  EXPECT_EQ(bytes_of(path("t.txt")), "x,curve1,curve2,\r\n3,30,-3,\r\n1,10,-1,\r\n2,20,-2,\r\n");
  EXPECT_EQ(table.client.redraws(), 0);
}

TEST_F(TableFile, HasTheNamesAndCellsExactlyAsTheyAreShown) {
  table.document().yVarName(2) = "  Größe, \"µ\"  ";
  table.document().yVarName(3) = "";
  table.select(2, 2);
  table.paste("abc\t");
  save_as(path("t.txt"));
  EXPECT_EQ(bytes_of(path("t.txt")), "x,Größe, \"µ\",,\r\n3,30,-3,\r\n1,abc,,\r\n2,20,-2,\r\n");
}

TEST_F(TableFile, HasTheRowsAsTheyAreSorted) {
  table.client.host.control.set_SortXY(true);
  table.client.host.control.build_the_graph();
  save_as(path("t.txt"));
  EXPECT_EQ(bytes_of(path("t.txt")), "x,curve1,curve2,\r\n1,10,-1,\r\n2,20,-2,\r\n3,30,-3,\r\n");
}

TEST_F(TableFile, ReplacesAnOlderOne) {
  save_as(path("t.txt"));
  table.select(1, 2, 3, 3);
  table.erase();
  save_as(path("t.txt"));
  EXPECT_EQ(bytes_of(path("t.txt")), "x,curve1,curve2,\r\n3,,,\r\n1,,,\r\n2,,,\r\n");
  EXPECT_FALSE(QFile::exists(folder.filePath("t.txt~")));
}

TEST_F(TableFile, ThatCannotBeOpenedIsAFaultOfTheCommand) {
  save_as(path("no/such/t.txt"));
  EXPECT_THAT(table.client.faults, ElementsAre(FaultKind::kPathNotFound));
  save_as(folder.path().toStdString());
  EXPECT_EQ(table.client.faults.back(), FaultKind::kPathFileAccessError);
  EXPECT_TRUE(table.window.isVisible());
}

TEST_F(TableFile, TakesWhatIsBeingTyped) {
  table.select(1, 2);
  QTest::keyClick(table.grid, Qt::Key_F2);
  auto* const editor = table.grid->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  QTest::keyClicks(editor, "5");
  save_as(path("t.txt"));
  EXPECT_EQ(bytes_of(path("t.txt")).substr(0, 24), "x,curve1,curve2,\r\n3,5,-3");
}

TEST_F(TableFile, TheLargestTableIsWrittenLineByLine) {
  constexpr int kPoints = 32767;
  std::vector<std::vector<Double>> data(150, std::vector<Double>(kPoints, 1.5));
  for (std::size_t i = 0; i < kPoints; ++i) data[0][i] = static_cast<Double>(i);
  load_columns(table.client.host, data, false);
  table.window.refill();
  save_as(path("large.txt"));
  const QByteArray text = QByteArray::fromStdString(bytes_of(path("large.txt")));
  EXPECT_EQ(text.count(','), 150 * (kPoints + 1));
  EXPECT_EQ(text.count("\r\n"), kPoints + 1);
}

}  // namespace
}  // namespace kurv::test
