// What the answers to failed requests say about the cause, beside number and text.
#include <KurvGraph/automation.h>
#include <KurvGraph/fault.h>

#include "tests/app/host/host_fixture.h"

namespace kurv::app {
namespace {

struct Case {
  QByteArray line;
  int number;
  const char* detail;
};

class HostDetail : public Host {
 protected:
  void expect(const Case& wanted) {
    const QJsonObject failure = ask(wanted.line)["error"].toObject();
    const QByteArray line = wanted.line.left(120);
    EXPECT_EQ(failure["number"].toInt(), wanted.number) << line.constData();
    EXPECT_EQ(failure["text"].toString().toStdString(),
              fault_text(static_cast<FaultKind>(wanted.number)))
        << line.constData();
    EXPECT_EQ(failure["detail"].toString().toStdString(), wanted.detail) << line.constData();
  }
  template <std::size_t count>
  void expect_all(const Case (&cases)[count]) {
    for (const Case& wanted : cases) expect(wanted);
  }
};

TEST_F(HostDetail, LinesThatAreNoJson) {
  const Case cases[] = {
      {"", 5, "the line is empty"},
      {"   ", 5, "the line is empty"},
      {"no JSON", 5, "column 1: found 'no' where '{' is expected"},
      {"17", 5, "column 1: found '17' where '{' is expected"},
      {"\"get\"", 5, "column 1: found '\"' where '{' is expected"},
      {"[]", 5, "a request is an object such as {\"get\":\"Title\"}, not an array"},
      {"[{\"get\":\"Title\"}]", 5,
       "a request is an object such as {\"get\":\"Title\"}, not an array"},
      {R"({"get":})", 5, "column 8: found '}' where a value is expected"},
      {R"({"get":"Title")", 5, "column 15: the line ends where ',' or '}' is expected"},
      {R"({"get":"Title)", 5, "column 14: the line ends in a text that begins at column 8"},
      {R"({"get" "Title"})", 5, "column 8: found '\"' where ':' is expected"},
      {R"({"get":"Title"} x)", 5, "column 17: found 'x' after the end of the object"},
      {R"({"get":"Title"}{"get":"xmin"})", 5, "column 16: found '{' after the end of the object"},
      {R"({get:1})", 5, "column 2: found 'get' where a key in double quotes is expected"},
      {R"({'get':"Title"})", 5,
       "column 2: found a single quote where a key in double quotes is expected"},
      {R"({"get":'Title'})", 5, "column 8: found a single quote where a value is expected"},
      {R"({"get":"Title",})", 5, "column 16: found '}' where a key in double quotes is expected"},
      {R"({"resize":[1,2,]})", 5, "column 16: found ']' where a value is expected"},
      {R"({"resize":[1 2]})", 5, "column 14: found '2' where ',' or ']' is expected"},
      {R"({"resize":[1,2)", 5, "column 15: the line ends where ',' or ']' is expected"},
      {R"({"get":"Title" "id":2})", 5, "column 16: found '\"' where ',' or '}' is expected"},
      {R"({"set":"Connected","to":True})", 5,
       "column 25: 'True' is no JSON value; did you mean 'true'?"},
      {R"({"set":"Connected","to":flase})", 5,
       "column 25: 'flase' is no JSON value; did you mean 'false'?"},
      {R"({"set":"Connected","to":None})", 5,
       "column 25: 'None' is no JSON value; did you mean 'null'?"},
      {R"({"set":"Connected","to":yes})", 5, "column 25: found 'yes' where a value is expected"},
      {R"({"set":"NumTicks","to":01})", 5, "column 25: found '1' where ',' or '}' is expected"},
      {R"({"set":"NumTicks","to":0x10})", 5, "column 25: found 'x10' where ',' or '}' is expected"},
      {R"({"set":"NumTicks","to":+1})", 5, "column 24: found '+' where a value is expected"},
      {R"({"set":"xmax","to":1e})", 5, "column 20: '1e' is no JSON number"},
      {R"({"set":"xmax","to":-})", 5, "column 20: '-' is no JSON number"},
      {R"({"set":"xmax","to":1e400})", 5, "column 20: '1e400' is too large a number"},
      {R"({"set":"Title","to":"größer",5})", 5,
       "column 30: found '5' where a key in double quotes is expected"},
      {"\xff\xfe{}", 5, "column 1: found the byte 0xFF, which is no UTF-8"},
      {"{\"get\":\"\xff\"}", 5, "column 9: found the byte 0xFF, which is no UTF-8"},
      {QByteArray(100000, '['), 5, "column 1025: arrays and objects are nested too deeply"},
  };
  expect_all(cases);
}

TEST_F(HostDetail, NumbersThatJsonDoesNotHave) {
  const Case cases[] = {
      {R"({"set":"xmin","to":NaN})", 5,
       "column 20: 'NaN' is no JSON number; write it in double quotes: \"NaN\""},
      {R"({"set":"xmin","to":nan})", 5,
       "column 20: 'nan' is no JSON number; write it in double quotes: \"NaN\""},
      {R"({"set":"xmin","to":Infinity})", 5,
       "column 20: 'Infinity' is no JSON number; write it in double quotes: \"Inf\""},
      {R"({"set":"xmin","to":-Infinity})", 5,
       "column 20: '-Infinity' is no JSON number; write it in double quotes: \"-Inf\""},
      {R"({"call":"scatter_graph","args":[[[1,NaN]],[1,2],2,1,"T","x",["a"],0,[]]})", 5,
       "column 37: 'NaN' is no JSON number; write it in double quotes: \"NaN\""},
  };
  expect_all(cases);
  for (const char* text : {"\"NaN\"", "\"Inf\"", "\"-Inf\""}) {
    EXPECT_EQ(error(QByteArray(R"({"set":"xmin","to":)") + text + '}'), 0) << text;
  }
}

TEST_F(HostDetail, KeysThatAreNoRequest) {
  const Case cases[] = {
      {R"({"pictur":"a.png"})", 5, "'pictur' is no request; did you mean 'picture'?"},
      {R"({"Get":"Title","id":1})", 5, "'Get' is no request; did you mean 'get'?"},
      {R"({"colour":1})", 5,
       "'colour' is no request; requests are 'answers', 'call', 'close', 'drag', 'drawn', 'get', "
       "'mouse', 'picture', 'place', 'pointer', 'prompt', 'redo', 'resize', 'set', 'show' and "
       "'undo'"},
      {"{}", 5,
       "the object holds no request; requests are 'answers', 'call', 'close', 'drag', 'drawn', "
       "'get', 'mouse', 'picture', 'place', 'pointer', 'prompt', 'redo', 'resize', 'set', 'show' "
       "and 'undo'"},
      {R"({"at":[1,2]})", 5, "'at' is no request; it belongs to 'mouse'"},
      {R"({"get":"Title","set":"Title"})", 5,
       "'get' and 'set' are two requests; send each on a line of its own"},
      {R"({"get":"Title","to":1})", 5, "'to' does not belong to 'get'"},
      {R"({"call":"init","arg":[]})", 5, "'arg' does not belong to 'call'; did you mean 'args'?"},
      {R"({"call":"file_load","filename":"a.gdf"})", 5,
       "'filename' does not belong to 'call'; arguments go into 'args', an array, in their order"},
      {R"({"mouse":"down","at":[1,2],"":1})", 5, "'' does not belong to 'mouse'"},
  };
  expect_all(cases);
}

TEST_F(HostDetail, MembersThatDoNotExist) {
  const Case cases[] = {
      {R"({"get":"Titel"})", 438, "'Titel' is no property; did you mean 'Title'?"},
      {R"({"set":"numtick","to":5})", 438, "'numtick' is no property; did you mean 'NumTicks'?"},
      {R"({"call":"scattergraph"})", 438,
       "'scattergraph' is no method; did you mean 'scatter_graph'?"},
      {R"({"get":"Colour"})", 438, "'Colour' is no property"},
      {R"({"get":""})", 438, "'' is no property"},
      {R"({"get":"init"})", 438, "'init' is a method; use 'call'"},
      {R"({"set":"init","to":1})", 438, "'init' is a method; use 'call'"},
      {R"({"call":"Title"})", 438, "'Title' is a property; use 'get' or 'set'"},
      {R"({"get":12})", 438, "12 is no dispatch identifier"},
      {R"({"get":1.5})", 438, "1.5 is no dispatch identifier"},
      {R"({"get":-1})", 5, "'get' takes a name or a dispatch identifier, not -1"},
      {R"({"get":true})", 5, "'get' takes a name or a dispatch identifier, not true"},
      {R"({"call":[]})", 5, "'call' takes a name or a dispatch identifier, not an array"},
  };
  expect_all(cases);
}

TEST_F(HostDetail, ValuesThatAPropertyDoesNotTake) {
  const Case cases[] = {
      {R"({"set":"NumTicks"})", 449, "'to' is missing"},
      {R"({"set":"NumTicks","to":"many"})", 13,
       "'NumTicks' takes a whole number from -32768 to 32767, not 'many'"},
      {R"({"set":"NumTicks","to":null})", 13,
       "'NumTicks' takes a whole number from -32768 to 32767, not null"},
      {R"({"set":"NumTicks","to":[1]})", 13,
       "'NumTicks' takes a whole number from -32768 to 32767, not an array"},
      {R"({"set":"numticks","to":32768})", 6,
       "'NumTicks' takes a whole number from -32768 to 32767, not 32768"},
      {R"({"set":"xmin","to":{"a":1}})", 13, "'xmin' takes a number, not an object"},
      {R"({"set":"Title","to":null})", 13, "'Title' takes a text, not null"},
      {R"({"set":"Connected","to":"maybe"})", 13,
       "'Connected' takes true, false or a whole number from -32768 to 32767, not 'maybe'"},
      {R"({"set":"Connected","to":40000})", 6,
       "'Connected' takes true, false or a whole number from -32768 to 32767, not 40000"},
      {R"({"set":"FontSize","to":0})", 5,
       "'FontSize' takes a number above 0 and up to 32767, not 0"},
      {R"({"set":"TitleFontSize","to":1e39})", 6,
       "'TitleFontSize' takes a number above 0 and up to 32767, not 1E+39"},
      {R"({"set":"SubTitleFontSize","to":"big"})", 13,
       "'SubTitleFontSize' takes a number above 0 and up to 32767, not 'big'"},
  };
  expect_all(cases);
}

TEST_F(HostDetail, ArgumentsThatAMethodDoesNotTake) {
  const QByteArray call = R"({"call":"scatter_graph","args":)";
  const Case cases[] = {
      {R"({"call":"ChartOptions"})", 449,
       "'ChartOptions' takes 1 argument and got 0; 'command' is missing"},
      {R"({"call":"ChartOptions","args":["save","now"]})", 450,
       "'ChartOptions' takes 1 argument and got 2"},
      {R"({"call":"init","args":[1]})", 450, "'init' takes no arguments and got 1"},
      {call + "[null]}", 449,
       "'scatter_graph' takes 9 to 11 arguments and got 1; 'xarr' is missing"},
      {R"({"call":"file_load","args":"a.gdf"})", 5, "'args' takes an array, not 'a.gdf'"},
      {R"({"call":"file_load","args":{"filename":"a.gdf"}})", 5,
       "'args' takes an array, not an object"},
      {R"({"call":"file_load","args":[null]})", 13,
       "argument 1, 'filename', takes a text, not null"},
      {call + R"([[1,2],[1,2],2,1,"T","x",["a"],0,[]]})", 13,
       "argument 1, 'yarr_', takes an array of arrays of numbers, and its element 1 is 1"},
      {call + R"([[[1,2],[1]],[1,2],2,2,"T","x",["a","b"],0,[]]})", 13,
       "argument 1, 'yarr_', takes arrays of the same length, and 1 has 2 elements and 2 has 1"},
      {call + R"([[[1,2],[1,"b"]],[1,2],2,2,"T","x",["a","b"],0,[]]})", 13,
       "argument 1, 'yarr_', takes an array of arrays of numbers, and element 2 of its array 2 is "
       "'b'"},
      {call + R"([[[1,2]],[1,"two"],2,1,"T","x",["a"],0,[]]})", 13,
       "argument 2, 'xarr', takes an array of numbers, and its element 2 is 'two'"},
      {call + R"([[[1,2]],5,2,1,"T","x",["a"],0,[]]})", 13,
       "argument 2, 'xarr', takes an array of numbers, not 5"},
      {call + R"([[[1,2]],[1,2],"two",1,"T","x",["a"],0,[]]})", 13,
       "argument 3, 'pNumData_', takes a whole number from -32768 to 32767, not 'two'"},
      {call + R"([[[1,2]],[1,2],99999,1,"T","x",["a"],0,[]]})", 6,
       "argument 3, 'pNumData_', takes a whole number from -32768 to 32767, not 99999"},
      {call + R"([[[1,2]],[1,2],2,1,["T"],"x",["a"],0,[]]})", 13,
       "argument 5, 'pTitle_', takes a text, not an array"},
      {call + R"([[[1,2]],[1,2],2,1,"T","x",["a",null],0,[]]})", 13,
       "argument 7, 'yVarName_', takes an array of texts, and its element 2 is null"},
      {call + R"([[[1,2]],[1,2],2,1,"T","x",["a"],0,[],"maybe"]})", 13,
       "argument 10, 'pConnected_', takes true, false or a whole number from -32768 to 32767, not "
       "'maybe'"},
      {R"({"call":"scatter_graph2","args":["T",[[1,2],[3,4]],["x","a"],2,1,[{}],0,[]]})", 13,
       "argument 6, 'y_visible_', takes an array of true and false, and its element 1 is an "
       "object"},
  };
  expect_all(cases);
}

TEST_F(HostDetail, CountsThatTheArraysDoNotHave) {
  const QByteArray call = R"({"call":"scatter_graph","args":)";
  const Case cases[] = {
      {call + R"([[[1,2]],[1,2],3,1,"T","x",["a"],0,[]]})", 9,
       "'pNumData_' is 3, but 'xarr' has 2 elements"},
      {call + R"([[[1,2]],[1,2,3],3,1,"T","x",["a"],0,[]]})", 9,
       "'pNumData_' is 3, but each array of 'yarr_' has 2 elements"},
      {call + R"([[[1,2]],[1,2],2,2,"T","x",["a","b"],0,[]]})", 9,
       "'pNumY_' is 2, but 'yarr_' has 1 element"},
      {call + R"([[[1,2]],[1,2],2,1,"T","x",[],0,[]]})", 9,
       "'pNumY_' is 1, but 'yVarName_' has 0 elements"},
      {call + R"([[[1,2]],[1,2],2,1,"T","x",["a"],2,["x"]]})", 9,
       "'pNumYFunc_' is 2, but 'y_func_' has 1 element"},
      {call + R"([[[1,2]],[1,2],2,-2,"T","x",["a"],0,[]]})", 9, "'pNumY_' is -2"},
      {call + R"([[[1,2]],[1,2],2,150,"T","x",["a"],0,[]]})", 9,
       "'pNumY_' is 150, and there are at most 149 curves"},
      {R"({"call":"scatter_graph2","args":["T",[[1,2]],["x","a"],2,1,[true],0,[]]})", 9,
       "'pNumY_' is 1, so 'xyArr_' needs 2 elements, and has 1"},
      {R"({"call":"scatter_graph2","args":["T",[[1,2],[3,4]],["x"],2,1,[true],0,[]]})", 9,
       "'pNumY_' is 1, so 'xyVarNames_' needs 2 elements, and has 1"},
      {R"({"call":"scatter_graph2","args":["T",[[1,2],[3,4]],["x","a"],2,1,[],0,[]]})", 9,
       "'pNumY_' is 1, but 'y_visible_' has 0 elements"},
  };
  expect_all(cases);
}

TEST_F(HostDetail, PartsOfARequestThatDoNotFit) {
  const Case cases[] = {
      {R"({"answers":"yes"})", 5, "'answers' takes an array, not 'yes'"},
      {R"({"show":false})", 5, "'show' takes true, not false"},
      {R"({"close":1})", 5, "'close' takes true, not 1"},
      {R"({"drawn":null})", 5, "'drawn' takes true, not null"},
      {R"({"pointer":"yes"})", 5, "'pointer' takes true, not 'yes'"},
      {R"({"resize":[1]})", 5,
       "'resize' takes [width, height], two numbers from 1 to 32767, not an array of 1"},
      {R"({"resize":7})", 5, "'resize' takes [width, height], two numbers from 1 to 32767, not 7"},
      {R"({"resize":[0,9]})", 5, "the width of 'resize' takes a number from 1 to 32767, not 0"},
      {R"({"resize":[9,"9"]})", 5,
       "the height of 'resize' takes a number from 1 to 32767, not '9'"},
      {R"({"place":true})", 5, "'place' takes an object, not true"},
      {R"({"place":{"width":1e9}})", 5, "'width' takes a number from 1 to 32767, not 1000000000"},
      {R"({"place":{"scale":9}})", 5, "'scale' takes a number from 0.1 to 8, not 9"},
      {R"({"place":{"design":1}})", 5, "'design' takes true or false, not 1"},
      {R"({"place":{"heigth":1}})", 5,
       "'heigth' does not belong to 'place'; did you mean 'height'?"},
      {R"({"place":{"colour":1}})", 5, "'colour' does not belong to 'place'"},
      {R"({"picture":true})", 5, "'picture' takes the path of a file, not true"},
      {R"({"picture":"a.jpg"})", 5, "'a.jpg' does not end in .png, .bmp, .svg or .pdf"},
      {R"({"prompt":"marker sise"})", 5, "'marker sise' is no prompt; did you mean 'marker size'?"},
      {R"({"prompt":"colour"})", 5,
       "'colour' is no prompt; prompts are 'marker size', 'left margin', 'right margin', 'top "
       "margin', 'bottom margin', 'x title', 'axis font', 'title font', 'subtitle font', 'add "
       "function', 'edit function' and 'derive'"},
      {R"({"prompt":true})", 5, "'prompt' takes a text, not true"},
      {R"({"prompt":"derive","select":"x"})", 5, "'select' belongs to 'edit function' alone"},
      {R"({"prompt":"edit function","select":1})", 5, "'select' takes a text, not 1"},
      {R"({"mouse":"down"})", 5, "'at' is missing; it takes [x, y], two numbers"},
      {R"({"mouse":true,"at":[1,2]})", 5, "'mouse' takes a text, not true"},
      {R"({"mouse":"click","at":[1,2]})", 5, "'mouse' takes 'down', 'up' or 'double', not 'click'"},
      {R"({"mouse":"down","at":7})", 5, "'at' takes [x, y], two numbers, not 7"},
      {R"({"mouse":"down","at":[1]})", 5, "'at' takes [x, y], two numbers, not an array of 1"},
      {R"({"mouse":"down","at":[null,2]})", 5, "'at' takes [x, y], two numbers, and x is null"},
      {R"({"mouse":"down","at":[1,"2"]})", 5, "'at' takes [x, y], two numbers, and y is '2'"},
      {R"({"mouse":"down","at":[1e39,0]})", 6, "x of 'at' is too large: 1E+39"},
      {R"({"mouse":"down","at":[1,2],"button":"left"})", 5,
       "'button' takes a whole number from -32768 to 32767, not 'left'"},
      {R"({"mouse":"up","at":[0,0],"shift":-32769})", 6,
       "'shift' takes a whole number from -32768 to 32767, not -32769"},
      {R"({"drag":7,"grab":[0,0],"drop":[0,0]})", 5, "'drag' takes a text, not 7"},
      {R"({"drag":"Title","grab":[0,0]})", 5, "'drop' is missing; it takes [x, y], two numbers"},
      {R"({"drag":"Title","grab":[0,0],"drop":[9,9],"on":"title"})", 5,
       "'on' takes 'legend', 'Title' or 'SubTitle', not 'title'"},
      {R"({"drag":"Title","grab":[0,0],"drop":[9,9],"on":null})", 5, "'on' takes a text, not null"},
  };
  expect_all(cases);
}

TEST_F(HostDetail, FilesThatCannotBeReadOrWritten) {
  load();
  const std::string gone = "'" + path("none.gdf").toStdString() + "' cannot be loaded";
  const std::string folder = "'" + m_folder.path().toStdString() + "' cannot be loaded";
  const Case cases[] = {
      {R"({"picture":"/nosuch/out.png"})", 76, "'/nosuch/out.png' cannot be written"},
      {R"({"call":"file_load","args":["/nosuch/file.gdf"]})", 76,
       "'/nosuch/file.gdf' cannot be loaded"},
      {R"({"call":"file_load","args":[)" + quoted(path("none.gdf")) + "]}", 53, gone.c_str()},
      {R"({"call":"file_load","args":[)" + quoted(m_folder.path()) + "]}", 75, folder.c_str()},
  };
  expect_all(cases);
  EXPECT_EQ(error(R"({"answers":[{"path":"/nosuch/a.gdf"}]})"), 0);
  expect({R"({"call":"Save_graph"})", 76, "'/nosuch/a.gdf' cannot be written"});
  EXPECT_EQ(error(R"({"answers":[{"path":"/nosuch/b.gdf"}]})"), 0);
  expect({R"({"call":"ChartOptions","args":["saveas"]})", 76, "'/nosuch/b.gdf' cannot be written"});
  EXPECT_EQ(error(R"({"answers":[{"path":"/nosuch/c.gdf"}]})"), 0);
  expect({R"({"call":"ChartOptions","args":["open"]})", 76, "'/nosuch/c.gdf' cannot be loaded"});
  EXPECT_EQ(error(R"({"set":"QueryForSave","to":true})"), 0);
  EXPECT_EQ(error(R"({"answers":["yes",{"path":"/nosuch/d.gdf"}]})"), 0);
  expect({R"({"place":{}})", 76, "'/nosuch/d.gdf' cannot be written"});
}

TEST_F(HostDetail, AFileThatIsNoGraphSaysWhoKnowsMore) {
  const QString file = path("bad.gdf");
  QFile out(file);
  ASSERT_TRUE(out.open(QIODevice::WriteOnly));
  out.write("QXPLOT/V500//1E\r\nT\r\n");
  out.close();
  const std::string detail =
      "'" + file.toStdString() + "' cannot be loaded; 'kurv info --check' lists its faults";
  expect({R"({"call":"file_load","args":[)" + quoted(file) + "]}", 62, detail.c_str()});
}

TEST_F(HostDetail, SavesOverTheGraphsOwnFileNameIt) {
  load();
  ASSERT_TRUE(QDir(m_folder.path()).mkdir("folder"));
  const QString own = path("folder/own.gdf");
  EXPECT_EQ(error(R"({"answers":[{"path":)" + quoted(own) + "}]}"), 0);
  EXPECT_EQ(error(R"({"call":"Save_graph"})"), 0);
  EXPECT_EQ(error(R"({"call":"build_the_graph"})"), 0);
  ASSERT_TRUE(QDir(path("folder")).removeRecursively());
  const std::string detail = "'" + own.toStdString() + "' cannot be written";
  expect({R"({"call":"Save_graph"})", 76, detail.c_str()});
}

TEST_F(HostDetail, WhatARedrawCannotDo) {
  load();
  EXPECT_EQ(error(R"({"set":"NumTicks","to":0})"), 0);
  expect({R"({"call":"build_the_graph"})", 11, "'NumTicks' is 0"});
  expect({R"({"resize":[5000,4000]})", 11, "'NumTicks' is 0"});
  EXPECT_EQ(error(R"({"set":"NumTicks","to":10})"), 0);
  EXPECT_EQ(error(R"({"set":"Autoscale","to":false})"), 0);
  EXPECT_EQ(error(R"({"set":"xmin","to":3})"), 0);
  expect({R"({"call":"build_the_graph"})", 11, "'xmin' and 'xmax' are equal"});
  EXPECT_EQ(error(R"({"set":"xmin","to":1})"), 0);
  EXPECT_EQ(error(R"({"set":"ymax","to":1})"), 0);
  expect({R"({"call":"build_the_graph"})", 11, "'ymin' and 'ymax' are equal"});
}

TEST_F(HostDetail, FontsThatCannotBeDrawn) {
  load();
  EXPECT_EQ(error(R"({"answers":[{"name":"A","size":0},{"name":"A","size":"big"}]})"), 0);
  expect({R"({"prompt":"axis font"})", 5,
          "the 'size' of an answer takes a number above 0 and up to 32767, not 0"});
  expect({R"({"prompt":"axis font"})", 13,
          "the 'size' of an answer takes a number above 0 and up to 32767, not 'big'"});
}

TEST_F(HostDetail, ThereIsNoPrinterAndAfterCloseNoControl) {
  load();
  expect({R"({"call":"ChartOptions","args":["print"]})", 429,
          "there is no printer on a pipe; use 'picture'"});
  EXPECT_EQ(error(R"({"close":true})"), 0);
  expect({R"({"get":"Title"})", 5, "the control is closed; 'place' makes a new one"});
}

TEST_F(HostDetail, LongTextsAreCutAndStayOnTheirLine) {
  const QByteArray line = R"({"get":")" + QByteArray(5000, 'a') + "\"}";
  EXPECT_LT(ask(line)["error"].toObject()["detail"].toString().size(), 100);
  expect({R"({"get":"a\nb\u0007"})", 438, "'a b ' is no property"});
}

// Where an error names nothing, there is no member, and never an empty one.
TEST_F(HostDetail, IsLeftOutWhereNothingMoreIsKnown) {
  load();
  const QJsonObject failure =
      ask(R"({"drag":"Title","grab":[-3e38,0],"drop":[3e38,0]})")["error"].toObject();
  EXPECT_EQ(failure["number"], 6);
  EXPECT_FALSE(failure.contains("detail"));
}

}  // namespace
}  // namespace kurv::app
