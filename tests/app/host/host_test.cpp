// The control on a pipe, asked as a script would ask it.
#include "tests/app/host/host_fixture.h"

#include <QGuiApplication>

#include "app/graph/headless_application.h"

namespace kurv::app {
namespace {

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

TEST_F(Host, ArgumentsAreCountedBeforeTheyAreRead) {
  EXPECT_EQ(error(R"({"call":"ChartOptions","args":[[],1,2]})"), 450);
  EXPECT_EQ(error(R"({"call":"scatter_graph","args":[null]})"), 449);
}

TEST_F(Host, FailedCommandLeavesTheHourglass) {
  load();
  EXPECT_EQ(ask(R"({"pointer":true})")["result"], 0);
  EXPECT_EQ(error(R"({"set":"NumTicks","to":0})"), 0);
  EXPECT_EQ(error(R"({"call":"ChartOptions","args":["refresh"]})"), 11);
  EXPECT_EQ(ask(R"({"pointer":true})")["result"], 11);
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

TEST_F(Host, ANewControlHasTheFontThatThePageStates) {
  EXPECT_EQ(get("FontName"), "Liberation Sans");
  EXPECT_EQ(get("FontSize"), 8);
  EXPECT_EQ(get("FontBold"), false);
  EXPECT_EQ(get("TitleFontSize"), 11);
}

TEST_F(Host, RefusesFontSizesThatCannotBeDrawnOrSaved) {
  load();
  const std::pair<const char*, int> kSizes[] = {
      {"0", 5},     {"-9", 5},   {"\"NaN\"", 5}, {"\"-Inf\"", 6}, {"32767.5", 6},
      {"40000", 6}, {"1e39", 6}, {"-1e39", 6},   {"\"Inf\"", 6},  {"\"big\"", 13},
  };
  for (const char* name : {"FontSize", "TitleFontSize", "SubTitleFontSize"}) {
    const QJsonValue before = get(name);
    for (const auto& [size, number] : kSizes) {
      EXPECT_EQ(error(QByteArray("{\"set\":\"") + name + "\",\"to\":" + size + '}'), number)
          << size;
      EXPECT_EQ(get(name), before) << size;
    }
  }
  const QJsonValue before = get("TitleFontName");
  for (const auto& [size, number] : kSizes) {
    EXPECT_EQ(error(QByteArray(R"({"answers":[{"name":"A","size":)") + size + "}]}"), 0);
    EXPECT_EQ(error(R"({"prompt":"title font"})"), number) << size;
    EXPECT_EQ(get("TitleFontName"), before) << size;
  }
  EXPECT_EQ(error(R"({"set":"FontSize","to":32767})"), 0);
  EXPECT_EQ(error(R"({"set":"FontSize","to":0.5})"), 0);
  EXPECT_EQ(error(R"({"answers":[{"name":"A"}]})"), 0);
  EXPECT_EQ(error(R"({"prompt":"axis font"})"), 0);
  EXPECT_EQ(get("FontSize"), 0.5) << "left out, it stays";
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
  const auto application = kurv::app::headless_application();
  return RUN_ALL_TESTS();
}
