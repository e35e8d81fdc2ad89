// The control on a pipe, asked as a script would ask it.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "app/host_session.h"
#include "app/windowless_application.h"

namespace kurv::app {
namespace {

class Host : public testing::Test {
 protected:
  QJsonObject ask(const QByteArray& line) {
    return QJsonDocument::fromJson(m_session.answer(line)).object();
  }
  // Zero where the request succeeded.
  int error(const QByteArray& line) {
    const QJsonObject answer = ask(line);
    EXPECT_EQ(answer["ok"].toBool(), !answer.contains("error"));
    return answer["error"].toObject()["number"].toInt();
  }
  QJsonValue get(const QByteArray& name) {
    const QJsonObject answer = ask("{\"get\":\"" + name + "\"}");
    EXPECT_TRUE(answer["ok"].toBool()) << name.constData();
    return answer["result"];
  }
  void load() {
    ASSERT_EQ(error(R"({"call":"scatter_graph","args":[[[1,4,9],[3,2,1]],[1,2,3],3,2,"Squares",)"
                    R"("x",["a","b"],0,[],true]})"),
              0);
  }
  QString path(const char* name) const { return m_folder.filePath(name); }
  QByteArray quoted(const QString& text) const { return '"' + text.toUtf8() + '"'; }

  QTemporaryDir m_folder;
  HostSession m_session;
};

TEST_F(Host, AnswersWithTheResultAndTheId) {
  EXPECT_EQ(m_session.answer(R"({"get":"NumTicks","id":7})"), R"({"id":7,"ok":true,"result":10})");
  EXPECT_EQ(m_session.answer(R"({"set":"Title","to":"Größe","id":"a"})"),
            R"({"id":"a","ok":true})");
  EXPECT_EQ(get("Title"), "Größe");
}

TEST_F(Host, NamesMembersInAnyLetterCaseOrByIdentifier) {
  EXPECT_EQ(get("tItLe"), "Scatter Points Graph");
  EXPECT_EQ(ask(R"({"get":1745027239})")["result"], "Scatter Points Graph");
}

TEST_F(Host, LoadsDataAndDrawsThem) {
  load();
  EXPECT_EQ(get("xmin"), 1);
  EXPECT_EQ(get("xmax"), 3);
  EXPECT_EQ(get("Connected"), true);
  const QJsonArray drawn = ask(R"({"drawn":true})")["result"].toArray();
  ASSERT_GT(drawn.size(), 40);
  EXPECT_EQ(drawn[0], "font \"Liberation Sans\" 11 1 0");
  EXPECT_EQ(drawn[3], "cls");
  EXPECT_TRUE(drawn.contains("width 1"));
}

TEST_F(Host, DrawnHoldsTheLastRedrawOnlyFromTheSizingOfTheHandlesOn) {
  load();
  const QJsonArray once = ask(R"({"drawn":true})")["result"].toArray();
  EXPECT_EQ(error(R"({"call":"ChartOptions","args":["refresh"]})"), 0);
  const QJsonArray again = ask(R"({"drawn":true})")["result"].toArray();
  EXPECT_EQ(again[0], once[0]);
  EXPECT_EQ(again[3], "cls");
  EXPECT_EQ(again.size(), once.size());
}

TEST_F(Host, TakesAMatrixWithFlagsAndKeepsTheirBits) {
  EXPECT_EQ(error(R"({"call":"scatter_graph2","args":["T",[[1,2,3],[4,null,6],[1e9,2e9,"Inf"]],)"
                  R"(["x","a","b"],3,2,[1,false],0,[]]})"),
            0);
  EXPECT_EQ(get("ymax"), 6) << "a flag of 1 stretches, False does not, null is missing";
  EXPECT_EQ(get("Connected"), false) << "omitted";
  EXPECT_EQ(error(R"({"set":"DrawMarkers","to":1})"), 0);
  EXPECT_EQ(get("DrawMarkers"), 1) << "neither True nor False";
  EXPECT_EQ(error(R"({"set":"DrawMarkers","to":true})"), 0);
  EXPECT_EQ(get("DrawMarkers"), true);
  EXPECT_EQ(error(R"({"set":"DrawMarkers","to":-1})"), 0);
  EXPECT_EQ(get("DrawMarkers"), true);
  EXPECT_EQ(error(R"({"set":"DrawMarkers","to":40000})"), 6);
}

TEST_F(Host, NullOmitsAnOptionalArgument) {
  EXPECT_EQ(
      error(R"({"call":"scatter_graph","args":[[[1,4]],[1,2],2,1,"T","x",["a"],0,[],null,true]})"),
      0);
  EXPECT_EQ(get("Connected"), false);
  EXPECT_EQ(get("DrawMarkers"), true);
}

TEST_F(Host, WritesWhatIsNoNumberAsNullAndText) {
  EXPECT_EQ(error(R"({"set":"xmin","to":"-Inf"})"), 0);
  EXPECT_EQ(get("xmin"), "-Inf");
  EXPECT_EQ(error(R"({"set":"xmin","to":"NaN"})"), 0);
  EXPECT_TRUE(get("xmin").isNull());
  EXPECT_EQ(error(R"({"set":"FontSize","to":8.1})"), 0);
  EXPECT_EQ(get("FontSize"), 8.1) << "with the digits that make out a Single";
}

TEST_F(Host, TypedErrors) {
  EXPECT_EQ(error(R"({"get":"Colour"})"), 438);
  EXPECT_EQ(error(R"({"get":"init"})"), 438) << "a method is not got";
  EXPECT_EQ(error(R"({"call":"Title"})"), 438) << "a property is not called";
  EXPECT_EQ(error(R"({"set":"init","to":1})"), 438);
  EXPECT_EQ(error(R"({"get":12})"), 438);
  EXPECT_EQ(error(R"({"set":"NumTicks","to":"many"})"), 13);
  EXPECT_EQ(error(R"({"set":"NumTicks","to":null})"), 13);
  EXPECT_EQ(error(R"({"set":"NumTicks","to":[1]})"), 13);
  EXPECT_EQ(error(R"({"set":"NumTicks","to":32768})"), 6);
  EXPECT_EQ(error(R"({"set":"NumTicks"})"), 449);
  EXPECT_EQ(error(R"({"call":"ChartOptions"})"), 449);
  EXPECT_EQ(error(R"({"call":"ChartOptions","args":["save","now"]})"), 450);
  EXPECT_EQ(
      error(R"({"call":"scatter_graph","args":[[[1,2],[1]],[1,2],2,2,"T","x",["a","b"],0,[]]})"),
      13)
      << "unequal lists";
  EXPECT_EQ(error(R"({"call":"scatter_graph","args":[[1,2],[1,2],2,1,"T","x",["a"],0,[]]})"), 13);
  EXPECT_EQ(error(R"({"call":"scatter_graph","args":[[[1,2]],[1,2],3,1,"T","x",["a"],0,[]]})"), 9)
      << "a count larger than the arrays";
  EXPECT_EQ(error(R"({"call":"scatter_graph","args":[[[1,2]],[1,2],2,-2,"T","x",["a"],0,[]]})"), 9);
  EXPECT_EQ(error(R"({"call":"scatter_graph","args":[[[1,2]],[1,2],99999,1,"T","x",["a"],0,[]]})"),
            6);
  EXPECT_EQ(ask(R"({"get":"Colour","id":3})")["error"].toObject()["text"],
            "Object doesn't support this property or method");
  load();
  EXPECT_EQ(error(R"({"set":"NumTicks","to":0})"), 0);
  EXPECT_EQ(error(R"({"call":"build_the_graph"})"), 11);
  EXPECT_EQ(get("NumTicks"), 0) << "and the host still answers";
}

TEST_F(Host, LinesThatAreNoRequestAreInvalidCalls) {
  const QByteArray deep(100000, '[');
  for (const QByteArray& line :
       {QByteArray(""), QByteArray("no JSON"), QByteArray("[]"), QByteArray("17"), QByteArray("{}"),
        QByteArray(R"({"id":1})"), QByteArray(R"({"get":"Title","set":"Title"})"),
        QByteArray(R"({"get":"Title","to":1})"), QByteArray(R"({"get":true})"),
        QByteArray(R"({"show":false})"), QByteArray(R"({"resize":[1]})"),
        QByteArray(R"({"resize":[0,0]})"), QByteArray(R"({"place":{"width":1e9}})"),
        QByteArray(R"({"place":{"colour":1}})"), QByteArray(R"({"picture":"a.jpg"})"),
        QByteArray(R"({"answers":"yes"})"), QByteArray("\xff\xfe{}"), deep}) {
    EXPECT_EQ(error(line), 5) << line.left(40).constData();
  }
  EXPECT_EQ(get("NumTicks"), 10);
}

TEST_F(Host, ShowsWhatTheControlShowed) {
  const QJsonObject answer =
      ask(R"({"call":"scatter_graph","args":[[[1,2]],[5,5],2,1,"T","x",["a"],0,[]]})");
  EXPECT_TRUE(answer["ok"].toBool());
  EXPECT_EQ(answer["shown"].toArray()[0].toObject(),
            (QJsonObject{{"kind", "message"},
                         {"text", "Graph cannot be plotted when all x values are the same."},
                         {"title", "KURV Guide"},
                         {"flags", 16}}));
  EXPECT_FALSE(ask(R"({"get":"Title"})").contains("shown")) << "told once";
}

TEST_F(Host, DialogsTakeQueuedAnswersInOrder) {
  load();
  const QString first = path("first.gdf");
  EXPECT_EQ(error(R"({"answers":[null]})"), 0);
  EXPECT_EQ(error(R"({"answers":[{"path":)" + quoted(first) + R"(,"filter":1}]})"), 0);
  QJsonObject answer = ask(R"({"call":"Save_graph"})");
  EXPECT_EQ(answer["shown"].toArray()[0].toObject()["kind"], "save");
  EXPECT_FALSE(QFile::exists(first)) << "the first answer cancels";
  answer = ask(R"({"call":"ChartOptions","args":["saveas"]})");
  const QJsonObject save = answer["shown"].toArray()[0].toObject();
  EXPECT_EQ(save["default_extension"], "gdf");
  EXPECT_EQ(save["flags"], 2);
  EXPECT_TRUE(QFile::exists(first));
  answer = ask(R"({"call":"ChartOptions","args":["open"]})");
  EXPECT_EQ(answer["shown"].toArray()[0].toObject(),
            (QJsonObject{{"kind", "open"},
                         {"title", "Open Graph File"},
                         {"filter", "Graph files (*.gdf)|*.gdf|All files (*.*)|*.*"},
                         {"default_extension", "gdf"}}));
}

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

TEST_F(Host, ArgumentsAreCountedBeforeTheyAreRead) {
  EXPECT_EQ(error(R"({"call":"ChartOptions","args":[[],1,2]})"), 450);
  EXPECT_EQ(error(R"({"call":"scatter_graph","args":[null]})"), 449);
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

TEST_F(Host, FailedCommandLeavesTheHourglass) {
  load();
  EXPECT_EQ(ask(R"({"pointer":true})")["result"], 0);
  EXPECT_EQ(error(R"({"set":"NumTicks","to":0})"), 0);
  EXPECT_EQ(error(R"({"call":"ChartOptions","args":["refresh"]})"), 11);
  EXPECT_EQ(ask(R"({"pointer":true})")["result"], 11);
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

TEST_F(Host, PromptedSettingsTakeQueuedAnswers) {
  load();
  EXPECT_EQ(error(R"({"answers":["60","900","901","902","903","time"]})"), 0);
  const QJsonObject answer = ask(R"({"prompt":"marker size"})");
  EXPECT_EQ(
      answer["shown"].toArray()[0].toObject(),
      (QJsonObject{{"kind", "prompt"},
                   {"text", "Enter the data point marker size (value should be between 1-300)."},
                   {"title", "KURV"},
                   {"default", "40"}}));
  EXPECT_EQ(get("MarkerSize"), 60);
  for (const char* margin : {"left", "right", "top", "bottom"}) {
    EXPECT_EQ(error(QByteArray("{\"prompt\":\"") + margin + " margin\"}"), 0);
  }
  EXPECT_EQ(get("Left_margine"), 900);
  EXPECT_EQ(get("Right_margine"), 901);
  EXPECT_EQ(get("Top_margine"), 902);
  EXPECT_EQ(get("Bottom_margine"), 903);
  EXPECT_EQ(ask(R"({"prompt":"x title"})")["shown"].toArray()[0].toObject()["default"], "x");
}

TEST_F(Host, FontPromptsTakeFonts) {
  load();
  EXPECT_EQ(error(R"({"answers":[{"name":"A","size":9,"bold":true,"italic":false},null,)"
                  R"({"name":"C","size":7,"bold":false,"italic":true}]})"),
            0);
  for (const char* font : {"axis", "title", "subtitle"}) {
    const QJsonObject answer = ask(QByteArray("{\"prompt\":\"") + font + " font\"}");
    EXPECT_EQ(answer["shown"].toArray()[0].toObject()["kind"], "font");
  }
  EXPECT_EQ(get("FontName"), "A");
  EXPECT_EQ(get("FontBold"), true);
  EXPECT_NE(get("TitleFontName"), "C") << "cancelled";
  EXPECT_EQ(get("SubTitleFontName"), "C");
  EXPECT_EQ(get("SubTitleFontSize"), 7);
}

TEST_F(Host, PromptsAddEditAndDeriveCurves) {
  load();
  const auto drawn = [&] { return ask(R"({"drawn":true})")["result"].toArray().size(); };
  const auto before = drawn();
  EXPECT_EQ(error(R"({"answers":["x^2","x+1","[a","sum","a+b"]})"), 0);
  EXPECT_EQ(error(R"({"prompt":"add function"})"), 0);
  EXPECT_GT(drawn(), before);
  QJsonObject answer = ask(R"({"prompt":"edit function","select":"x^2"})");
  EXPECT_EQ(answer["shown"].toArray()[0].toObject()["default"], "x^2");
  EXPECT_FALSE(ask(R"({"prompt":"edit function","select":"x^2"})").contains("shown"))
      << "there is none of that text any more";
  answer = ask(R"({"prompt":"derive"})");
  ASSERT_EQ(answer["shown"].toArray().size(), 4);
  EXPECT_EQ(answer["shown"].toArray()[1].toObject()["text"], "'[a' is not a valid variable name");
  EXPECT_EQ(get("ymax"), 10) << "1+3, 4+2, 9+1";
}

TEST_F(Host, UnknownPromptsAreInvalidCalls) {
  for (const char* line :
       {R"({"prompt":"colour"})", R"({"prompt":true})", R"({"prompt":""})",
        R"({"prompt":"x title","select":"x"})", R"({"prompt":"edit function","select":1})",
        R"({"prompt":"derive","to":1})", R"({"select":"x"})"}) {
    EXPECT_EQ(error(line), 5) << line;
  }
}

}  // namespace
}  // namespace kurv::app

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const auto application = kurv::app::windowless_application();
  return RUN_ALL_TESTS();
}
