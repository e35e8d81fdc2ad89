#include "app/csv/table_start.h"

#include <gmock/gmock.h>

#include "app/csv/csv_reader.h"
#include "app/csv/line_fields.h"

namespace kurv::app {
namespace {

std::size_t line_of(std::string_view text, char separator = ',', const std::string& comment = {}) {
  return find_table_start(text, separator, comment).line;
}

TEST(TableStart, IsTheFirstLineWhereNothingIsAboveTheNames) {
  EXPECT_EQ(line_of("x,y\n1,2\n3,4\n"), 1u);
  EXPECT_EQ(line_of("1,2\n3,4\n"), 1u);
  EXPECT_EQ(line_of("x,y\n1,oops\n3,4\n"), 1u);
  EXPECT_EQ(line_of("x,y\n,\n3,4\n"), 1u);
  EXPECT_EQ(line_of("a,b\nc,d\n"), 1u);
  EXPECT_EQ(line_of(""), 1u);
}

TEST(TableStart, IsBelowLinesOfOtherWidths) {
  EXPECT_EQ(line_of("A title\n\nx,y,z\n1,2,3\n4,5,6\n"), 3u);
  EXPECT_EQ(line_of("A title,,\nx,y,z\n1,2,3\n4,5,6\n"), 2u);
}

TEST(TableStart, IsBelowWordsOfAnInstrument) {
  EXPECT_EQ(line_of("Serial;12\nOperator;Smith\n\ntime;value\n0;1\n1;2\n", ';'), 4u);
  EXPECT_EQ(line_of("Serial;12\nOperator;Smith\ntime;value\n0;1\n1;2\n", ';'), 3u);
  EXPECT_EQ(line_of("Sample: quartz\nAxis: 2 theta\n20 105\n21 110\n22 131\n23 118\n", ' '), 3u);
}

TEST(TableStart, IsTheLineOfNamesBelowSeveralLinesWithFewerFields) {
  EXPECT_EQ(line_of("Device,ABC-12\nSerial,00123\nInterval,60\nTime,T1,T2\n0,1,2\n1,2,3\n"), 4u);
}

TEST(TableStart, IsTheFirstOfSeveralLinesOfNames) {
  EXPECT_EQ(line_of("time,speed,load\ns,m/s,N\n0,1,2\n1,2,3\n"), 1u);
  EXPECT_EQ(line_of("time;speed\n[s];m/s\n0;1\n1;2\n", ';'), 1u);
}

TEST(TableStart, IsTheLastCommentThatNamesTheColumns) {
  const TableStart start = find_table_start("# made today\n# x y\n1 2\n3 4\n", ' ', "#");
  EXPECT_EQ(start.line, 2u);
  EXPECT_TRUE(start.is_comment);
  const CsvTable table = parse_csv("# made today\n#x y\n1 2\n3 4\n", "data.txt");
  EXPECT_EQ(table.cell(0, 0), "x");
  EXPECT_EQ(table.rows(), 3u);
}

TEST(TableStart, IsFoundBelowADeepPreamble) {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "Key: value\n";
  for (int i = 0; i < 20000; ++i) text += "1,2,3\n";
  EXPECT_EQ(line_of(text), 20001u);
}

TEST(LineFields, AreSplitAtBlanksButNotInsideTimes) {
  EXPECT_EQ(split_row(" 01:09 PM  all 0.5 ", ' ').size(), 3u);
  EXPECT_EQ(split_row("2022-01-31 12:00 5", ' ').size(), 3u);
  EXPECT_EQ(split_row("2022-01-31 12:00 5", ' ', true).size(), 2u);
}

TEST(LineFields, LookLikeValues) {
  for (const char* text :
       {"1", "-1.5e3", "1 234,5", "2012-01-31 12:00", "12 %", "$5", "08:00:00"}) {
    EXPECT_TRUE(looks_like_value(text)) << text;
  }
  for (const char* text : {"", "a", "y1", "1 2", "5 2", "12,", "Probe 1", "#3"}) {
    EXPECT_EQ(looks_like_value(text), text == std::string("#3")) << text;
  }
}

}  // namespace
}  // namespace kurv::app
