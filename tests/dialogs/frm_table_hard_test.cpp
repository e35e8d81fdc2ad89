// Edits under which something breaks, goes away or becomes very large.
#include <gmock/gmock.h>

#include <memory>

#include "tests/dialogs/table_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kInvalid = "Invalid numerical data cells were detected.";
constexpr const char* kLeftOut = "Note that some data has not been pasted in this action.";
constexpr const char* kAllTheSame = "Graph cannot be plotted when all x values are the same.";

TEST(TableEditItems, AnUnknownIndexIsReportedAndDoesNothing) {
  for (const int index : {-1, 4, 99}) {
    Table table;
    table.select(1, 1);
    QApplication::clipboard()->setText("77");
    table.window.mnuEditItem_Click(index);
    ASSERT_EQ(table.shell().messages.size(), 1u);
    EXPECT_EQ(table.shell().messages[0].text, "Error : illegal Edit command.");
    EXPECT_EQ(table.shell().messages[0].flags, kExclamation);
    EXPECT_EQ(table.shell().messages[0].title, "KURV Guide");
    EXPECT_THAT(table.column_of_host(1), ElementsAre(3, 1, 2));
    EXPECT_EQ(table.clipboard(), "77");
  }
}

TEST(TableEdit, AFaultOfTheRedrawIsTheClientsAndTheTableShowsTheData) {
  Table table;
  table.document().NumTicks = 0;
  table.select(1, 2);
  table.paste("55");
  EXPECT_THAT(table.client.faults, ElementsAre(FaultKind::kDivisionByZero));
  EXPECT_EQ(table.cell(1, 2), "55");
}

TEST(TableEdit, AFaultOfTheRedrawTakesNoMarkAndNoMessage) {
  Table table;
  table.document().NumTicks = 0;
  table.select(1, 2);
  table.paste("abc\t55\n5\t6\n7\t8\n9\t10");
  EXPECT_THAT(table.client.faults, ElementsAre(FaultKind::kDivisionByZero));
  EXPECT_THAT(table.messages(), ElementsAre(kInvalid, kLeftOut));
  EXPECT_EQ(table.cell(1, 2), "abc");
  EXPECT_TRUE(table.is_marked(1, 2));
  EXPECT_EQ(table.cell(1, 3), "55");
  EXPECT_EQ(table.status(), "3 &points, 3 columns; 1 cell is not in the graph");
}

TEST(TableEdit, ShowsNoMoreMessagesWhenTheGraphGoesMeanwhile) {
  Table table;
  table.shell().while_message_box = [&] { table.window.set_client(nullptr); };
  table.select(1, 1);
  table.paste("1\tx\n1\n1\n1");
  EXPECT_THAT(table.messages(), ElementsAre(kAllTheSame));
}

TEST(TableEdit, ShowsNoMoreMessagesWhenTheWindowGoesMeanwhile) {
  TableClient client;
  load_columns(client.host, {{3, 1, 2}, {30, 10, 20}});
  frmTable* const window = open_table(client);
  client.host.shell.while_message_box = [&] { delete window; };
  QApplication::clipboard()->setText("1\tx\n1\n1\n1");
  window->mnuEditItem_Click(2);
  ASSERT_EQ(client.host.shell.messages.size(), 1u);
  EXPECT_EQ(client.host.shell.messages[0].text, kAllTheSame);
}

TEST(TableEdit, TheWindowMayGoDuringItsOwnEdit) {
  auto table = std::make_unique<Table>();
  frmTable* const window = open_table(table->client);
  table->client.handled = [&] {
    table->client.handled = {};
    delete window;
  };
  QApplication::clipboard()->setText("1\tx");
  window->mnuEditItem_Click(2);
  EXPECT_EQ(table->document().xyArrUnsorted(1, 1), 1);
}

TEST(TableEdit, OfTheLargestTableIsOneCommand) {
  constexpr int kPoints = 32767;
  std::vector<std::vector<Double>> data(150, std::vector<Double>(kPoints));
  for (std::size_t c = 0; c < data.size(); ++c) {
    for (std::size_t i = 0; i < kPoints; ++i) data[c][i] = static_cast<Double>(i * 7 + c) / 8;
  }
  Table table(data, false);
  table.grid->selectAll();
  table.copy();
  const QString text = QApplication::clipboard()->text();
  EXPECT_EQ(text.count(u'\t'), 149 * kPoints);
  EXPECT_EQ(text.count(QStringLiteral("\r\n")), kPoints - 1);
  EXPECT_TRUE(text.startsWith(QStringLiteral("0\t0.125\t0.25\t")));
  EXPECT_TRUE(text.endsWith(QStringLiteral("\t28688.875")));
  table.select(1, 2, kPoints, 150);
  table.erase();
  EXPECT_THAT(table.messages(), IsEmpty());
  EXPECT_EQ(table.cell(kPoints, 150), "");
  table.select(1, 1);
  QApplication::clipboard()->setText(text);
  table.choose("mnuEditItem_2");
  EXPECT_EQ(table.cell(kPoints, 150), "28688.875");
  QApplication::clipboard()->clear();
}

}  // namespace
}  // namespace kurv::test
