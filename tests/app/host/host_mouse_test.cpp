// The mouse, the windows and the clipboard of a control on a pipe.
#include <algorithm>

#include "tests/app/host/host_fixture.h"

namespace kurv::app {
namespace {

class HostMouse : public Host {
 protected:
  // A graph of 7200 x 4800 twips, whose plot reaches from 800, 480 to 6400, 4280.
  void SetUp() override { load(); }

  // What a request showed.
  QJsonArray shown(const QByteArray& line) {
    const QJsonObject answer = ask(line);
    EXPECT_TRUE(answer["ok"].toBool()) << line.constData();
    EXPECT_FALSE(answer.contains("result"));
    return answer["shown"].toArray();
  }
  QJsonArray events(const QByteArray& line) { return ask(line)["events"].toArray(); }
  QJsonArray drawn() { return ask(R"({"drawn":true})")["result"].toArray(); }
  bool line_with(const QString& start) {
    const QJsonArray lines = drawn();
    return std::any_of(lines.begin(), lines.end(), [&start](const QJsonValue& line) {
      return line.toString().startsWith(start);
    });
  }
  // The drawn title with its position.
  QString title() {
    QString line;
    for (const QJsonValue entry : drawn()) {
      if (entry.toString().endsWith("\"Squares\"")) line = entry.toString();
    }
    return line;
  }
};

QJsonArray window(const char* name, int page) {
  return {QJsonObject{{"kind", "window"}, {"name", name}, {"page", page}}};
}

TEST_F(HostMouse, CommandsShowTheirWindowsWithTheirPages) {
  const auto command = [&](const QByteArray& word) {
    return shown(R"({"call":"ChartOptions","args":[")" + word + "\"]}");
  };
  EXPECT_EQ(command("setup"), window("frmPropert", 0));
  EXPECT_EQ(command("titles"), window("frmPropert", 1));
  EXPECT_EQ(command("curves"), window("frmCurves", 0));
  EXPECT_EQ(command("table"), window("frmTable", 0));
  EXPECT_EQ(command("copy"), (QJsonArray{QJsonObject{{"kind", "copy"}}}));
  for (const char* word : {"help", "design", "close", "Setup", "COPY", ""}) {
    EXPECT_EQ(command(word), QJsonArray()) << word;
  }
  EXPECT_EQ(shown(R"({"call":"CloseMe"})"), QJsonArray());
}

TEST_F(HostMouse, PrintingNeedsAPrinterThatAHostHasRegistered) {
  EXPECT_EQ(error(R"({"call":"ChartOptions","args":["print"]})"), 429);
  EXPECT_EQ(ask(R"({"pointer":true})")["result"], 11);
}

TEST_F(HostMouse, ReleaseOnTheSurfaceIsTheEvent) {
  EXPECT_EQ(events(R"({"mouse":"down","at":[3000,2000]})"), QJsonArray());
  const QJsonObject answer =
      ask(R"({"mouse":"up","button":2,"shift":5,"at":[-1.5,70000.25],"id":3})");
  EXPECT_TRUE(answer["ok"].toBool());
  EXPECT_EQ(answer["id"], 3);
  EXPECT_EQ(
      answer["events"].toArray(),
      (QJsonArray{QJsonObject{{"name", "MouseUp"}, {"args", QJsonArray{2, 5, -1.5, 70000.25}}}}));
  EXPECT_EQ(events(R"({"mouse":"up","at":[0.1,0]})"),
            (QJsonArray{QJsonObject{{"name", "MouseUp"}, {"args", QJsonArray{1, 0, 0.1, 0}}}}))
      << "the left button, and the digits that make out a Single";
}

TEST_F(HostMouse, ReleaseBelongsToWhereThePressWas) {
  const char* const on_title = R"({"mouse":"up","at":[850,300]})";
  EXPECT_EQ(events(on_title), QJsonArray()) << "an item";
  EXPECT_EQ(error(R"({"mouse":"down","at":[850,300]})"), 0);
  EXPECT_EQ(events(R"({"mouse":"up","at":[3000,2000]})"), QJsonArray()) << "pressed on an item";
  EXPECT_EQ(error(R"({"mouse":"down","at":[3000,2000]})"), 0);
  EXPECT_EQ(events(on_title).size(), 1) << "pressed on the surface";
}

TEST_F(HostMouse, DoubleClickOpensTheWindowOfWhatWasPressed) {
  const auto double_click = [&](const QByteArray& at) {
    EXPECT_EQ(shown(R"({"mouse":"down","at":)" + at + "}"), QJsonArray());
    EXPECT_EQ(error(R"({"mouse":"up","at":)" + at + "}"), 0);
    return shown(R"({"mouse":"double","at":)" + at + "}");
  };
  EXPECT_EQ(double_click("[800,2000]"), window("frmPropert", 4)) << "the frame";
  EXPECT_EQ(double_click("[300,2000]"), window("frmPropert", 2)) << "labels";
  EXPECT_EQ(double_click("[2000,4350]"), window("frmPropert", 2)) << "labels";
  EXPECT_EQ(double_click("[3600,4560]"), window("frmCurves", 0)) << "the caption";
  EXPECT_EQ(double_click("[3600,2000]"), window("frmCurves", 0)) << "the plot";
  EXPECT_EQ(double_click("[850,300]"), window("frmPropert", 1)) << "the title";
  EXPECT_EQ(double_click("[1010,690]"), window("frmCurves", 0)) << "the legend";
}

TEST_F(HostMouse, DoubleClickWithoutAGraphOpensTheCurves) {
  EXPECT_EQ(error(R"({"place":{}})"), 0);
  EXPECT_EQ(shown(R"({"mouse":"double","at":[850,300]})"), window("frmCurves", 0));
  EXPECT_EQ(shown(R"({"drag":"Title","grab":[0,0],"drop":[1,1]})"), QJsonArray());
  EXPECT_EQ(events(R"({"mouse":"up","at":[850,300]})").size(), 1);
}

TEST_F(HostMouse, WhatRefusedDataLeaveOnTheSurfaceCanBePressed) {
  ask(R"({"call":"scatter_graph","args":[[[1,2]],[3,3],2,1,"New","x",["y"],0,[]]})");
  EXPECT_EQ(error(R"({"mouse":"down","at":[300,2000]})"), 0);
  EXPECT_EQ(error(R"({"mouse":"up","at":[300,2000]})"), 0);
  EXPECT_EQ(shown(R"({"mouse":"double","at":[300,2000]})"), window("frmPropert", 2)) << "labels";
  EXPECT_EQ(shown(R"({"mouse":"double","at":[850,300]})"), window("frmPropert", 1)) << "the title";
}

TEST_F(HostMouse, DragMovesAnItemAndRedraws) {
  EXPECT_EQ(error(R"({"drag":"Title","grab":[10,20.5],"drop":[2010,3020.5]})"), 0);
  EXPECT_EQ(title(), "print 2000 3000 \"Squares\"");
  EXPECT_EQ(error(R"({"drag":"Title","grab":[0,0],"drop":[-500.5,-1000]})"), 0);
  EXPECT_EQ(title(), "print -500.5 -1000 \"Squares\"");
  EXPECT_EQ(error(R"({"drag":"Title","grab":[0,0],"drop":[700,800],"on":""})"), 0);
  EXPECT_EQ(title(), "print 700 800 \"Squares\"") << "an empty target is the surface";
  EXPECT_EQ(error(R"({"drag":"Title","grab":[10,10],"drop":[30,40],"on":"legend"})"), 0);
  EXPECT_EQ(title(), "print 1020 710 \"Squares\"") << "the legend stands at 1000, 680";
  EXPECT_EQ(error(R"({"drag":"legend","grab":[0,0],"drop":[0,500],"on":"Title"})"), 0);
  EXPECT_TRUE(line_with("box 1020 1210 ")) << "the legend, below the title";
}

TEST_F(HostMouse, OtherTagsMoveNothingAndOtherTargetsAreInvalid) {
  const QJsonArray before = drawn();
  for (const QByteArray tag : {"", "title", "TITLE", "Subtitle", "Legend", "picLegend", "imgTitle",
                               "Title ", "legend ", "toolbar"}) {
    const QByteArray drag = R"({"drag":")" + tag + R"(","grab":[0,0],"drop":[99,99])";
    EXPECT_EQ(error(drag + "}"), 0) << tag.constData();
    EXPECT_EQ(error(drag + R"(,"on":"legend"})"), 0) << tag.constData();
    EXPECT_EQ(error(drag + R"(,"on":"title"})"), 5) << tag.constData();
  }
  EXPECT_EQ(error(R"({"drag":"Title","grab":[0,0],"drop":[99,99],"on":"toolbar"})"), 5);
  EXPECT_EQ(drawn(), before);
}

TEST_F(HostMouse, DragThatCannotBeDrawnIsTheRedrawsError) {
  EXPECT_EQ(error(R"({"set":"NumTicks","to":0})"), 0);
  EXPECT_EQ(error(R"({"drag":"Title","grab":[0,0],"drop":[99,99]})"), 11);
}

TEST_F(HostMouse, WrongShapesAreInvalidCallsAndChangeNothing) {
  const QJsonArray before = drawn();
  for (const char* line : {R"({"mouse":"down"})",
                           R"({"mouse":true,"at":[1,2]})",
                           R"({"mouse":"click","at":[1,2]})",
                           R"({"mouse":"Down","at":[1,2]})",
                           R"({"mouse":"","at":[1,2]})",
                           R"({"mouse":"down","at":[1]})",
                           R"({"mouse":"down","at":[1,2,3]})",
                           R"({"mouse":"down","at":["1","2"]})",
                           R"({"mouse":"down","at":[null,2]})",
                           R"({"mouse":"down","at":{"x":1,"y":2}})",
                           R"({"mouse":"down","at":7})",
                           R"({"mouse":"down","at":[1e400,2]})",
                           R"({"mouse":"down","at":[1,2],"button":"left"})",
                           R"({"mouse":"down","at":[1,2],"button":null})",
                           R"({"mouse":"down","at":[1,2],"shift":true})",
                           R"({"mouse":"down","at":[1,2],"grab":[1,2]})",
                           R"({"at":[1,2]})",
                           R"({"mouse":"down","at":[1,2],"":1})",
                           R"({"drag":"Title"})",
                           R"({"drag":"Title","grab":[0,0]})",
                           R"({"drag":"Title","drop":[0,0]})",
                           R"({"drag":7,"grab":[0,0],"drop":[0,0]})",
                           R"({"drag":"Title","grab":[0],"drop":[0,0]})",
                           R"({"drag":"Title","grab":[0,0],"drop":[0,"0"]})",
                           R"({"drag":"Title","grab":[0,0],"drop":[0,0],"on":7})",
                           R"({"drag":"Title","grab":[0,0],"drop":[0,0],"on":null})",
                           R"({"drag":"Title","grab":[0,0],"drop":[0,0],"at":[0,0]})",
                           R"({"mouse":"down","drag":"Title","at":[0,0]})"}) {
    EXPECT_EQ(error(line), 5) << line;
  }
  EXPECT_EQ(drawn(), before);
}

TEST_F(HostMouse, NumbersThatDoNotFitOverflow) {
  for (const char* line :
       {R"({"mouse":"down","at":[1e39,0]})", R"({"mouse":"down","at":[0,-1e39]})",
        R"({"mouse":"up","at":[0,0],"button":32768})",
        R"({"mouse":"up","at":[0,0],"shift":-32769})",
        R"({"drag":"Title","grab":[-3e38,0],"drop":[3e38,0]})",
        R"({"drag":"Title","grab":[0,0],"drop":[1e300,0]})"}) {
    EXPECT_EQ(error(line), 6) << line;
  }
  EXPECT_EQ(events(R"({"mouse":"up","at":[3e38,-3e38]})").size(), 1);
}

TEST_F(HostMouse, AfterCloseThereIsNoMouse) {
  EXPECT_EQ(error(R"({"close":true})"), 0);
  EXPECT_EQ(error(R"({"mouse":"up","at":[0,0]})"), 5);
  EXPECT_EQ(error(R"({"drag":"Title","grab":[0,0],"drop":[0,0]})"), 5);
}

}  // namespace
}  // namespace kurv::app
