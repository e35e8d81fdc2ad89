#include "app/sources/json_table.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "app/base/user_error.h"
#include "tests/app/sources/source_bytes.h"

namespace kurv::app {
namespace {

using test::source_bytes;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// The text of a table, or the sentence that refuses it.
std::string outcome(const std::string& bytes) {
  try {
    return read_json_table(bytes, "file").text;
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), StartsWith("file "));
    return error.what();
  }
}

TEST(JsonTable, ObjectsAreRowsAndTheirKeysAreColumns) {
  const JsonTable table =
      read_json_table(R"([{"t":1,"a":2},{"a":3,"t":2,"b":true},{"b":null}])", "");
  EXPECT_EQ(table.text, "t\ta\tb\n1\t2\t\n2\t3\tTRUE\n");
  EXPECT_TRUE(table.has_header);
  EXPECT_THAT(table.notes, IsEmpty());
}

TEST(JsonTable, ArraysAreRowsWithoutNames) {
  const JsonTable table = read_json_table(R"([["t","a"],[1,2.50],[2,null],[null,3,4]])", "");
  EXPECT_EQ(table.text, "t\ta\t\n1\t2.5\t\n2\t\t\n\t3\t4\n");
  EXPECT_FALSE(table.has_header);
  EXPECT_EQ(outcome("[1,2,\"x\"]"), "1\n2\nx\n");
}

TEST(JsonTable, AnObjectOfArraysHasColumns) {
  const JsonTable table =
      read_json_table(R"({"unit":"K","t":[1,2,3],"a":[4,null],"z":[],"meta":{"x":1}})", "");
  EXPECT_EQ(table.text, "t\ta\tz\n1\t4\t\n2\t\t\n3\t\t\n");
  EXPECT_TRUE(table.has_header);
}

TEST(JsonTable, WhatIsLostOfRepeatedKeysIsTold) {
  EXPECT_THAT(read_json_table(R"([{"t":1,"a":2,"a":3},{"t":2,"t":3,"a":4}])", "").notes,
              ElementsAre("The key \"a\" and others come twice in a row; the last value counts."));
  EXPECT_THAT(read_json_table(R"({"t":[1,2],"a":[3,4],"t":[5,6]})", "").notes,
              ElementsAre("The key \"t\" comes twice; the last array counts."));
}

TEST(JsonTable, ShorterColumnsAreTold) {
  EXPECT_THAT(read_json_table(R"({"a":[1,2,3],"b":[1,2],"c":[]})", "").notes,
              ElementsAre("2 columns are shorter than the longest one, which has 3 values (first "
                          "\"b\" with 2); the values that are not there count as missing."));
  EXPECT_THAT(read_json_table(R"({"a":[1,2,3],"b":[1,2,null]})", "").notes, IsEmpty());
}

TEST(JsonTable, IsFoundInsideObjects) {
  EXPECT_EQ(outcome(R"({"n":2,"tags":["x","y"],"data":[{"t":1},{"t":2}],"end":0})"), "t\n1\n2\n");
  EXPECT_EQ(outcome(R"({"a":{"b":{"data":[[1,2],[3,4]]}},"c":{}})"), "1\t2\n3\t4\n");
  EXPECT_EQ(outcome(R"({"meta":{"x":1},"series":{"t":[1,2],"a":[3,4]}})"), "t\ta\n1\t3\n2\t4\n");
  EXPECT_EQ(outcome(R"({"t":[1,2],"meta":{"tags":["x"]}})"), "t\n1\n2\n");
}

TEST(JsonTable, OneOfSeveralTablesIsNotGuessed) {
  EXPECT_THAT(outcome(R"({"a":[{"t":1}],"b":{"c":[{"t":1}]}})"),
              AllOf(HasSubstr("several tables"), HasSubstr(R"("a" and "b.c")")));
  EXPECT_THAT(outcome(R"({"a":{"t":[1]},"b":{"t":[1]}})"), HasSubstr("several tables"));
}

TEST(JsonTable, ValuesOnLinesAreRows) {
  EXPECT_EQ(outcome("{\"t\":1,\"a\":[1,2]}\n{\"t\":2,\"a\":[3]}\n\n"),
            "t\ta.1\ta.2\n1\t1\t2\n2\t3\t\n");
  EXPECT_EQ(outcome("[1,2]\r\n[3,4]\r\n"), "1\t2\n3\t4\n");
  EXPECT_EQ(outcome("\xEF\xBB\xBF{\"t\":1}"), "t\n1\n");
}

TEST(JsonTable, AnIncompleteLastLineIsLeftOut) {
  for (const char* rest : {"{\"t\":3", "{\"t\":", "{\"t", "{", "{\"t\":tru\n", "{\"t\":3,,}"}) {
    const JsonTable table =
        read_json_table("{\"t\":1,\"a\":1}\n{\"t\":2,\"a\":1}\n" + std::string(rest), "file");
    EXPECT_THAT(table.text, StartsWith("t\ta\n1\t1\n2\t1\n")) << rest;
    EXPECT_THAT(table.notes,
                ElementsAre("Line 3, the last one, is incomplete or wrong and left out."));
  }
}

// What an incomplete line has given before it ends is no row.
TEST(JsonTable, AnIncompleteLastLineLeavesNoCells) {
  EXPECT_EQ(outcome("{\"t\":1}\n{\"t\":2}\n{\"t\":3,\"u\":4"), "t\n1\n2\n");
  EXPECT_EQ(outcome("[1,2]\n[[5,6],[7"), "1\t2\n");
}

TEST(JsonTable, NestedObjectsAreFlattened) {
  EXPECT_EQ(outcome(R"([{"id":1,"p":{"x":1,"q":{"y":2}},"xy":[5,6]},{"p":{"q":{}},"xy":[]}])"),
            "id\tp.x\tp.q.y\txy.1\txy.2\n1\t1\t2\t5\t6\n");
}

TEST(JsonTable, NumbersReadBackToTheSameValue) {
  EXPECT_EQ(outcome("[[0.1,1E3,1.0,-0.0,12345678901234567890,9007199254740993]]"),
            "0.1\t1000\t1\t0\t1.2345678901234567E+19\t9.007199254740992E+15\n");
  EXPECT_EQ(outcome("[[0.30000000000000004,5e-324,1e-400,1.7976931348623157e308]]"),
            "0.30000000000000004\t5E-324\t0\t1.7976931348623157E+308\n");
  EXPECT_EQ(outcome("[[NaN,Infinity,-Infinity,1e400,-1e400]]"), "NaN\tInf\t-Inf\tInf\t-Inf\n");
}

TEST(JsonTable, TextsAreQuotedWhereNeeded) {
  EXPECT_EQ(
      outcome(R"([{"#n":"a\tb","m":"say \"x\""},{"#n":"#1","m":"\u00e9\ud83d\ude00 \u0000."}])"),
      "\"#n\"\tm\n\"a\tb\"\t\"say \"\"x\"\"\"\n\"#1\"\t\xC3\xA9\xF0\x9F\x98\x80  .\n");
}

TEST(JsonTable, OfEqualKeysTheLastCounts) {
  EXPECT_EQ(outcome(R"([{"a":1,"a":2}])"), "a\n2\n");
  EXPECT_EQ(outcome(R"({"a":[1,2],"a":[3]})"), "a\n3\n");
}

TEST(JsonTable, ReadsWhatProgramsWrite) {
  const std::string expected =
      "time\tplace.name\tplace.height\tvalue\tok\n"
      "2012-01-31T12:00:00\tGr\xC3\xBC"
      "n\t12.5\t0.1\tTRUE\n"
      "2012-02-01T12:00:00\tBlau\t-3\t\tFALSE\n";
  EXPECT_EQ(read_json_table(source_bytes("objects.json"), "").text, expected);
  EXPECT_EQ(read_json_table(source_bytes("objects.jsonl"), "").text, expected);
  EXPECT_EQ(read_json_table(source_bytes("columns.json"), "").text,
            "time\tvalue\n2012-01-31T12:00:00\t0.1\n2012-02-01T12:00:00\t\n");
  EXPECT_EQ(read_json_table(source_bytes("arrays.json"), "").text,
            "time\tvalue\n2012-01-31T12:00:00\t0.1\n2012-02-01T12:00:00\t\n");
}

TEST(JsonTable, RefusesWhatHasNoTable) {
  for (const char* text :
       {"{}", "[]", "[{}]", "[[],[]]", "[null]", "{\"a\":{}}", "{\"a\":[]}", "", " "}) {
    EXPECT_THAT(outcome(text), HasSubstr("holds no table")) << text;
  }
}

TEST(JsonTable, RefusesWhatIsNoJson) {
  EXPECT_THAT(outcome("[{\"a\":1},\n{\"a\":2"), HasSubstr("is incomplete"));
  EXPECT_THAT(outcome("[{\"a\":1},\n{\"a\" 2}]"), HasSubstr("no valid JSON in line 2"));
  EXPECT_THAT(outcome("{\"a\":1}\n{\"a\"}\n{\"a\":3}\n"), HasSubstr("no valid JSON in line 2"));
  EXPECT_THAT(outcome("[\"\xFF\"]"), HasSubstr("no valid JSON in line 1"));
  EXPECT_THAT(outcome("[[1]] 2"), HasSubstr("2\n"));
  EXPECT_THAT(outcome("[[1]] x"), HasSubstr("no valid JSON in line 1"));
  EXPECT_THAT(outcome("[\"\\ud800\"]"), HasSubstr("no valid JSON in line 1"));
}

TEST(JsonTable, RefusesWrongValues) {
  for (const char* value : {"01",
                            "1.",
                            ".5",
                            "+1",
                            "-",
                            "1e",
                            "1e+",
                            "0x1",
                            "tru",
                            "nul",
                            "nan",
                            "'a'",
                            "a",
                            "\"\\x\"",
                            "\"\\u12g4\"",
                            "\"\\udc00\"",
                            "\"\\ud800\\u0041\"",
                            "\"a\nb\"",
                            "1 2",
                            "1:2",
                            "{1:2}",
                            "{\"a\"}",
                            "{\"a\":1,}",
                            "[1,]",
                            "[1}",
                            "]"}) {
    EXPECT_THAT(outcome("[[0],[" + std::string(value) + "]]"), HasSubstr("no valid JSON in line "))
        << value;
  }
}

TEST(JsonTable, RefusesDeepNestingAndManyColumns) {
  EXPECT_THAT(outcome(std::string(10'000'000, '[')), HasSubstr("nested too deeply"));
  std::string deep;
  for (int i = 0; i < 100'000; ++i) deep += "{\"a\":";
  EXPECT_THAT(outcome(deep), HasSubstr("nested too deeply"));
  std::string wide = "[[1";
  for (int i = 0; i < 16'384; ++i) wide += ",1";
  EXPECT_THAT(outcome(wide + "]]"), HasSubstr("more than 16384 columns"));
}

TEST(JsonTable, CutOffFilesAreReadOrRefused) {
  for (const char* name : {"objects.json", "objects.jsonl", "columns.json", "arrays.json"}) {
    const std::string bytes = source_bytes(name);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
      EXPECT_FALSE(outcome(bytes.substr(0, size)).empty()) << name << " " << size;
    }
  }
}

// 16384 columns, of which most rows have none: time and memory are those of the values.
TEST(JsonTable, EmptyRowsCostLittle) {
  std::string text = "[[1";
  for (int i = 0; i < 16'383; ++i) text += ",1";
  text += "]";
  for (int i = 0; i < 300'000; ++i) text += ",{}";
  for (int i = 0; i < 1'000; ++i) text += ",[1]";
  EXPECT_LT(outcome(text + "]").size(), std::size_t{2} << 20);
}

TEST(LooksLikeJson, GoesByTheFirstValues) {
  for (const char* text :
       {"{\"a\":1}", " \n[ {", "[[1,2]]", "[\"x\"]", "[]", "{ }", "\xEF\xBB\xBF{\"", "[1,2]",
        "[-1.5e3 ,", "[null,", "[true]", "[1]\n[2]", "[NaN,1]"}) {
    EXPECT_TRUE(looks_like_json(text)) << text;
  }
  for (const char* text : {"", " ", "x,y\n1,2", "[Data]\n1,2", "[1] 2 3", "[mV],[s]\n1,2", "{a}",
                           "{", "[", "[s],x", "[1];[2]\n", "1,2", "\"x\",\"y\"", "[ ", "[5 V]"}) {
    EXPECT_FALSE(looks_like_json(text)) << text;
  }
}

}  // namespace
}  // namespace kurv::app
