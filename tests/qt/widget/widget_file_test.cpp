// The graph's file as a host sees it.
#include <KurvGraph/file_fault.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <memory>

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

// A graph whose file cannot be written again, because its folder is gone.
struct Homeless {
  Homeless() {
    QDir(folder.path()).mkdir("gone");
    graph.plot(small_graph());
    write_as_file(graph, file);
    graph.file_load(file);
    EXPECT_TRUE(QDir(folder.filePath("gone")).removeRecursively());
    graph.set_Title("Other");
    graph.build_the_graph();
  }

  const QTemporaryDir folder;
  const QString file = folder.filePath("gone/a.gdf");
  KurvGraph graph;
};

TEST(WidgetFile, AFaultOfTheGraphsOwnFileNamesIt) {
  Homeless homeless;
  KurvGraph& graph = homeless.graph;
  const auto failed_at = [](const auto& work) {
    try {
      work();
    } catch (const FileFault& fault) {
      EXPECT_EQ(fault.number(), 76);
      EXPECT_STREQ(fault.what(), "Path not found");
      return QString::fromStdString(fault.path());
    }
    return QString("none");
  };
  EXPECT_EQ(failed_at([&] { graph.Save_graph(); }), homeless.file);
  EXPECT_EQ(failed_at([&] { graph.file_load(homeless.file); }), homeless.file);
  const std::string other = homeless.folder.filePath("gone/b.gdf").toStdString();
  EXPECT_EQ(failed_at([&] { graph.load_path(other); }).toStdString(), other);
  graph.set_NumTicks(0);
  try {
    graph.build_the_graph();
    ADD_FAILURE();
  } catch (const FileFault&) {
    ADD_FAILURE() << "the file has nothing to do with it";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number(), 11);
  }
  graph.set_NumTicks(5);
  graph.reset_file();
}

TEST(WidgetFile, AMessageAboutTheGraphsOwnFileNamesIt) {
  auto homeless = std::make_unique<Homeless>();
  QStringList texts;
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [&] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    texts += box->text();
    auto* const yes = box->button(QMessageBox::Yes);
    yes ? yes->click() : box->accept();
  });
  answer.start(1);
  homeless->graph.show();
  homeless->graph.set_QueryForSave(true);
  homeless->graph.set_Title("Another");
  homeless->graph.build_the_graph();
  QTest::keyClick(plot_of(homeless->graph), Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !texts.empty(); }, 5000));
  const QString expected = homeless->file + ": Path not found";
  EXPECT_EQ(texts, QStringList{expected});
  homeless.reset();
  EXPECT_EQ(texts.size(), 3) << "the question whether to save, and the answer to yes";
  EXPECT_EQ(texts.last(), expected);
}

}  // namespace
}  // namespace kurv::test
