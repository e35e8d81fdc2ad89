// The graph's file as a host sees it.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

std::string text_of(const KurvGraph& graph) {
  std::string text;
  graph.graph_text([&text](std::string_view piece) { text += piece; });
  return text;
}

// As the graph itself would write it: the size comes after the positions of the three items.
void write_as_file(const KurvGraph& graph, const QString& path) {
  std::string whole = text_of(graph);
  std::size_t at = 0;
  for (int line = 0; line < 20; ++line) at = whole.find('\n', at) + 1;
  whole.insert(at, " 4800 \r\n 7200 \r\n");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(whole.data(), static_cast<qint64>(whole.size()));
}

TEST(WidgetFile, ThereIsNoGraphBeforeTheFirstData) {
  KurvGraph graph;
  EXPECT_FALSE(graph.has_graph());
  graph.plot(small_graph());
  EXPECT_TRUE(graph.has_graph());
  EXPECT_EQ(graph.FileName(), "");
}

TEST(WidgetFile, ReportsALoadWhileTheGraphMatchesTheFile) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("a.gdf").toStdString();
  KurvGraph graph;
  graph.plot(small_graph());
  int told = 0;
  std::string text;
  QObject::connect(&graph, &KurvGraph::filed, [&] {
    ++told;
    text = text_of(graph);
    EXPECT_TRUE(graph.GraphSaved());
  });
  write_as_file(graph, folder.filePath("a.gdf"));
  graph.load_path(path);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(graph.FileName(), path);
  graph.set_Title("Other");
  graph.build_the_graph();
  EXPECT_FALSE(graph.GraphSaved());
  graph.Save_graph();
  EXPECT_EQ(told, 2);
  EXPECT_EQ(text, text_of(graph));
}

TEST(WidgetFile, TheTextKnowsNothingOfTheSize) {
  KurvGraph graph;
  graph.plot(small_graph());
  const std::string before = text_of(graph);
  graph.resize(500, 400);
  graph.build_the_graph();
  EXPECT_EQ(text_of(graph), before);
  graph.set_Title("Other");
  EXPECT_NE(text_of(graph), before);
}

TEST(WidgetFile, AFileThatIsForgottenIsNotSavedOver) {
  KurvGraph graph;
  const QTemporaryDir folder;
  graph.plot(small_graph());
  write_as_file(graph, folder.filePath("a.gdf"));
  graph.file_load(folder.filePath("a.gdf"));
  EXPECT_NE(graph.FileName(), "");
  graph.reset_file();
  EXPECT_EQ(graph.FileName(), "");
}

TEST(WidgetFile, ListsTheFunctionsInTheirOrder) {
  KurvGraph graph;
  graph.plot(small_graph());
  ASSERT_EQ(graph.add_function("x^2"), std::nullopt);
  ASSERT_EQ(graph.add_function("max(x,2)"), std::nullopt);
  EXPECT_EQ(graph.functions(), (std::vector<QString>{"x^2", "max(x,2)"}));
}

}  // namespace
}  // namespace kurv::test
