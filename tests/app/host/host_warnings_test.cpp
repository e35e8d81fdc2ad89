// What the answers say about graph files that do not keep all of the graph.
#include "tests/app/host/host_fixture.h"

namespace kurv::app {
namespace {

class HostWarnings : public Host {
 protected:
  void load_with_comma() {
    ASSERT_EQ(error(R"({"call":"scatter_graph","args":[[[1,4,9],[3,2,1]],[1,2,3],3,2,"Squares",)"
                    R"("x",["a,b","c"],0,[],true]})"),
              0);
  }
  // The file dialog of the next save is answered with this file.
  void choose(const QString& file) {
    ASSERT_EQ(error(R"({"answers":[{"path":)" + quoted(file) + "}]}"), 0);
  }

  const QJsonArray m_expected{
      "a graph file splits the name \"a,b\" of a curve at its comma, so it comes back as \"a\", "
      "and the names after it change."};
};

TEST_F(HostWarnings, AreInTheAnswerToASave) {
  load_with_comma();
  choose(path("a.gdf"));
  const QJsonObject answer = ask(R"({"call":"Save_graph"})");
  EXPECT_TRUE(answer["ok"].toBool());
  EXPECT_EQ(answer["warnings"].toArray(), m_expected);
  EXPECT_FALSE(ask(R"({"call":"Save_graph"})").contains("warnings")) << "nothing is written";
  choose(path("b.gdf"));
  EXPECT_EQ(ask(R"({"call":"ChartOptions","args":["saveas"]})")["warnings"].toArray(), m_expected);
}

TEST_F(HostWarnings, AreNoMemberWhereEverythingComesBack) {
  load();
  choose(path("a.gdf"));
  EXPECT_FALSE(ask(R"({"call":"Save_graph"})").contains("warnings"));
  EXPECT_FALSE(
      ask(R"({"call":"file_load","args":[)" + quoted(path("a.gdf")) + "]}").contains("warnings"));
}

TEST_F(HostWarnings, AreInTheAnswerToAnEndThatSaves) {
  for (const char* request : {R"({"close":true})", R"({"place":{}})"}) {
    EXPECT_EQ(error(R"({"place":{}})"), 0);
    load_with_comma();
    EXPECT_EQ(error(R"({"set":"QueryForSave","to":true})"), 0);
    EXPECT_EQ(error(R"({"answers":["yes",{"path":)" + quoted(path("a.gdf")) + "}]}"), 0);
    EXPECT_EQ(ask(request)["warnings"].toArray(), m_expected) << request;
  }
}

TEST_F(HostWarnings, AreNotRepeatedForAFileThatIsLoaded) {
  load_with_comma();
  choose(path("a.gdf"));
  EXPECT_TRUE(ask(R"({"call":"Save_graph"})").contains("warnings"));
  EXPECT_FALSE(
      ask(R"({"call":"file_load","args":[)" + quoted(path("a.gdf")) + "]}").contains("warnings"));
}

}  // namespace
}  // namespace kurv::app
