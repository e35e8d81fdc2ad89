// The hosted control's placement, files, pictures and end.
#include "tests/app/host/host_fixture.h"

namespace kurv::app {
namespace {

TEST_F(Host, SavesAndLoadsAGraph) {
  load();
  const QString file = path("graph.gdf");
  EXPECT_EQ(error(R"({"answers":[{"path":)" + quoted(file) + "}]}"), 0);
  EXPECT_EQ(error(R"({"call":"Save_graph"})"), 0);
  EXPECT_EQ(error(R"({"place":{"width":6000,"height":4500}})"), 0);
  EXPECT_EQ(error(R"({"call":"file_load","args":[)" + quoted(file) + "]}"), 0);
  EXPECT_EQ(get("Title"), "Squares");
  EXPECT_EQ(error(R"({"call":"file_load","args":["/nosuch/file.gdf"]})"), 76);
  EXPECT_EQ(error(R"({"call":"file_load","args":[)" + quoted(path("none.gdf")) + "]}"), 53);
  EXPECT_EQ(get("Title"), "Squares");
}

TEST_F(Host, PictureIsWrittenAtItsScale) {
  EXPECT_EQ(error(R"({"place":{"width":3000,"height":1500,"scale":2}})"), 0);
  load();
  EXPECT_EQ(error(R"({"picture":)" + quoted(path("out.png")) + "}"), 0);
  EXPECT_EQ(QImage(path("out.png")).size(), QSize(400, 200));
  for (const char* name : {"out.svg", "out.pdf"}) {
    EXPECT_EQ(error(R"({"picture":)" + quoted(path(name)) + "}"), 0);
    EXPECT_TRUE(QFileInfo(path(name)).size() > 200) << name;
  }
  EXPECT_EQ(error(R"({"picture":"/nosuch/out.png"})"), 76);
  EXPECT_NE(error(R"({"picture":"/proc/out.png"})"), 0);
}

TEST_F(Host, ResizeRedrawsOnceDataAreThere) {
  EXPECT_EQ(error(R"({"resize":[9000,6000]})"), 0);
  EXPECT_EQ(ask(R"({"drawn":true})")["result"].toArray().size(), 0);
  load();
  EXPECT_EQ(error(R"({"resize":[6000,4500]})"), 0);
  EXPECT_TRUE(ask(R"({"drawn":true})")["result"].toArray().contains("box 800 480 5200 3980 0"));
}

TEST_F(Host, ShowPlacesTheTitlesInRunModeAndNotInDesignMode) {
  for (const bool design : {false, true}) {
    EXPECT_EQ(error(design ? R"({"place":{"design":true}})" : R"({"place":{}})"), 0);
    load();
    EXPECT_EQ(error(R"({"set":"Left_margine","to":1500})"), 0);
    EXPECT_EQ(error(R"({"call":"build_the_graph"})"), 0);
    const auto title = [&] {
      QString line;
      for (const QJsonValue entry : ask(R"({"drawn":true})")["result"].toArray()) {
        if (entry.toString().endsWith("\"Squares\"")) line = entry.toString();
      }
      return line;
    };
    const QString before = title();
    EXPECT_TRUE(before.startsWith("print 800 ")) << before.toStdString();
    EXPECT_EQ(error(R"({"show":true})"), 0);
    EXPECT_EQ(title().startsWith("print 1500 "), !design) << title().toStdString();
  }
}

TEST_F(Host, NothingIsDrawnBeforeThereAreData) {
  for (const char* request : {R"({"show":true})", R"({"call":"ChartOptions","args":["refresh"]})",
                              R"({"resize":[5000,4000]})"}) {
    EXPECT_EQ(error(request), 0);
    EXPECT_EQ(ask(R"({"drawn":true})")["result"].toArray().size(), 0) << request;
  }
}

TEST_F(Host, LoadedGraphBringsItsSize) {
  load();
  const QString file = path("graph.gdf");
  EXPECT_EQ(error(R"({"answers":[{"path":)" + quoted(file) + "}]}"), 0);
  EXPECT_EQ(error(R"({"call":"Save_graph"})"), 0);
  EXPECT_EQ(error(R"({"place":{"width":6000,"height":4500}})"), 0);
  EXPECT_EQ(error(R"({"call":"file_load","args":[)" + quoted(file) + "]}"), 0);
  EXPECT_TRUE(ask(R"({"drawn":true})")["result"].toArray().contains("box 800 480 6400 4280 0"));
  EXPECT_EQ(error(R"({"picture":)" + quoted(path("out.png")) + "}"), 0);
  EXPECT_EQ(QImage(path("out.png")).size(), QSize(480, 320));
}

TEST_F(Host, SizeThatItHasAlreadyIsNoResize) {
  load();
  const QString file = path("graph.gdf");
  EXPECT_EQ(error(R"({"answers":[{"path":)" + quoted(file) + "}]}"), 0);
  EXPECT_EQ(error(R"({"call":"Save_graph"})"), 0);
  EXPECT_EQ(error(R"({"resize":[7200,4800]})"), 0);
  QFile::remove(file);
  EXPECT_EQ(error(R"({"call":"Save_graph"})"), 0);
  EXPECT_FALSE(QFile::exists(file)) << "the graph is still saved";
}

TEST_F(Host, BadGraphFilesAreTypedErrorsAndTheHostLivesOn) {
  load();
  const QString file = path("bad.gdf");
  const auto load_bytes = [&](const QByteArray& bytes) {
    QFile out(file);
    EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes);
    out.close();
    return error(R"({"call":"file_load","args":[)" + quoted(file) + "]}");
  };
  EXPECT_EQ(load_bytes(""), 62);
  EXPECT_EQ(load_bytes("QXPLOT/V500//1E\r\nT\r\n"), 62);
  EXPECT_NE(load_bytes(QByteArray(5000, '\xFF')), 0);
  EXPECT_EQ(load_bytes(QByteArray("QXPLOT/V500//1E\r\nT\r\n32767\r\n32767\r\n0\r\n") +
                       QByteArray("T\r\n\r\n10\r\n")),
            62);
  EXPECT_EQ(error(R"({"call":"file_load","args":[)" + quoted(m_folder.path()) + "]}"), 75);
  EXPECT_EQ(get("xmax"), 3) << "curves and limits are as before";
  EXPECT_EQ(error(R"({"answers":[{"path":"/dev/full"}]})"), 0);
  EXPECT_EQ(error(R"({"call":"ChartOptions","args":["saveas"]})"), 61);
  EXPECT_EQ(get("NumTicks"), 10);
}

TEST_F(Host, AfterCloseOnlyPlaceIsAnswered) {
  load();
  EXPECT_EQ(error(R"({"set":"QueryForSave","to":true})"), 0);
  const QJsonObject answer = ask(R"({"close":true})");
  EXPECT_TRUE(answer["ok"].toBool());
  EXPECT_EQ(answer["shown"].toArray()[0].toObject()["flags"], 36);
  EXPECT_EQ(error(R"({"get":"Title"})"), 5);
  EXPECT_EQ(error(R"({"close":true})"), 5);
  EXPECT_EQ(error(R"({"place":{}})"), 0);
  EXPECT_EQ(get("Title"), "Scatter Points Graph") << "a fresh control";
}

TEST_F(Host, SaveThatFailsAtTheEndIsReportedAndTheControlIsGone) {
  load();
  EXPECT_EQ(error(R"({"set":"QueryForSave","to":true})"), 0);
  EXPECT_EQ(error(R"({"answers":["yes",{"path":"/nosuch/a.gdf"}]})"), 0);
  EXPECT_EQ(error(R"({"close":true})"), 76);
  EXPECT_EQ(error(R"({"get":"Title"})"), 5);
}

TEST_F(Host, EndOfTheInputAsksLikeAHostThatCloses) {
  load();
  const QString file = path("end.gdf");
  EXPECT_EQ(error(R"({"set":"QueryForSave","to":true})"), 0);
  EXPECT_EQ(error(R"({"answers":["yes",{"path":)" + quoted(file) + "}]}"), 0);
  m_session.finish();
  EXPECT_TRUE(QFile::exists(file));
}

}  // namespace
}  // namespace kurv::app
