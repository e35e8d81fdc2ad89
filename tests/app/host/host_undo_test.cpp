// Undo on a pipe.
#include "tests/app/host/host_fixture.h"

namespace kurv::app {
namespace {

using HostUndo = Host;

TEST_F(HostUndo, AnswersWithTheNameOfTheStepOrNull) {
  load();
  EXPECT_EQ(ask(R"({"undo":true})"), (QJsonObject{{"ok", true}, {"result", QJsonValue()}}));
  EXPECT_EQ(ask(R"({"redo":true})"), (QJsonObject{{"ok", true}, {"result", QJsonValue()}}));
  ask(R"({"answers":["70","time"]})");
  ask(R"({"prompt":"marker size"})");
  ask(R"({"prompt":"x title"})");
  EXPECT_EQ(ask(R"({"undo":true})")["result"], "Change X Axis Title");
  EXPECT_EQ(ask(R"({"undo":true})")["result"], "Change Marker Size");
  EXPECT_EQ(get("MarkerSize"), 40);
  EXPECT_EQ(ask(R"({"undo":true})")["result"], QJsonValue());
  EXPECT_EQ(ask(R"({"redo":true})")["result"], "Change Marker Size");
  EXPECT_EQ(get("MarkerSize"), 70);
}

TEST_F(HostUndo, DragsAreStepsAndSettingsAreNot) {
  load();
  ask(R"({"drag":"legend","grab":[20,20],"drop":[5000,900]})");
  ask(R"({"set":"Title","to":"Other"})");
  ask(R"({"call":"ChartOptions","args":["undo"]})");
  EXPECT_EQ(get("Title"), "Other");
  EXPECT_EQ(ask(R"({"redo":true})")["result"], "Move Legend");
}

TEST_F(HostUndo, OtherDataBeginANewHistory) {
  load();
  ask(R"({"drag":"legend","grab":[20,20],"drop":[5000,900]})");
  load();
  EXPECT_EQ(ask(R"({"undo":true})")["result"], QJsonValue());
}

TEST_F(HostUndo, TakesTrueAlone) {
  EXPECT_EQ(error(R"({"undo":false})"), 5);
  EXPECT_EQ(error(R"({"redo":1})"), 5);
}

TEST_F(HostUndo, ARedrawThatFailsIsAnswered) {
  load();
  ask(R"({"drag":"legend","grab":[20,20],"drop":[5000,900]})");
  ask(R"({"set":"NumTicks","to":0})");
  EXPECT_EQ(error(R"({"undo":true})"), 11);
  EXPECT_EQ(ask(R"({"undo":true})")["result"], QJsonValue());
}

}  // namespace
}  // namespace kurv::app
