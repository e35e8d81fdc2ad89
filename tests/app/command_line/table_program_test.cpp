// Tables on the command line: what is guessed, overruled, said and shown.
#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class TableProgram : public Program {
 protected:
  // The graph file of a table, line by line.
  QList<QByteArray> graph_lines(const QString& table, const QStringList& more = {}) {
    const Outcome outcome = run(QStringList{"convert", table, "-o", path("out.gdf")} + more);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return contents(path("out.gdf")).replace("\r\n", "\n").split('\n');
  }

  Outcome run_with_input(const QStringList& arguments, const QByteArray& input) {
    m_process.start(KURV_PROGRAM, arguments);
    m_process.write(input);
    m_process.closeWriteChannel();
    EXPECT_TRUE(m_process.waitForFinished(60000));
    return {m_process.exitCode(), m_process.readAllStandardOutput().toStdString(),
            m_process.readAllStandardError().toStdString()};
  }
};

TEST_F(TableProgram, AGuessThatCouldBeOtherwiseIsSaidAndOverruled) {
  const QString table = written("p.csv", "t;p\n1;980\n2;987\n3;994\n4;1.001\n");
  EXPECT_THAT(render(table).err,
              AllOf(HasSubstr("kurv: warning: \"1.001\" in column \"p\", line 5"),
                    HasSubstr("thousands point"), HasSubstr("--decimal")));
  EXPECT_EQ(graph_lines(table)[48], "980,987,994,1001");
  EXPECT_EQ(graph_lines(table, {"--decimal", "."})[48], "980,987,994,1.001");
}

TEST_F(TableProgram, NoPictureOfRowNumbersComesFromColumnsThatCannotBeRead) {
  expect_refusal(render(written("w.csv", "t,y\n1,one\n2,two\n")), 1,
                 "has no column of numbers beside x");
  expect_refusal(run({"info", written("v.csv", "t,y\n1,n/a\n2,n/a\n"), "--check"}), 2,
                 "--check is for graph files");
}

TEST_F(TableProgram, ANameWithACommaIsOneNameInTheGraphFile) {
  const QString table = written("n.csv", "t,\"load, left\",b\n1,2,3\n2,3,4\n");
  EXPECT_THAT(render(table).err, HasSubstr("\"load, left\" has a blank for each comma"));
  EXPECT_TRUE(graph_lines(table).contains("t,load left,b"));
}

TEST_F(TableProgram, ColumnsAreChosenByNumberAndRange) {
  const QString table = written("c.csv", "a,b,c,d\n1,2,3,4\n2,3,4,5\n");
  EXPECT_TRUE(graph_lines(table, {"--x", "2", "--y", "3-4"}).contains("b,c,d"));
  EXPECT_TRUE(graph_lines(table, {"--x", "row", "--y", "1,d"}).contains("row,a,d"));
  expect_refusal(render(table, {"--y", "3-9"}), 1, "has no column 9, which \"3-9\" names");
  expect_refusal(render(table, {"--x", "5"}), 1, "has no column \"5\"");
}

TEST_F(TableProgram, InfoSaysHowATableIsReadAndWhatIsDrawn) {
  const Outcome outcome = run({"info", written("i.csv",
                                               "Logger 5\n\nday;Temp (\u00B0"
                                               "C);state\n1.2.2021;1,5;ok\n"
                                               "2.2.2021;< 0,5;bad\n3.2.2021;-;ok\n")});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  for (const char* line :
       {"Encoding            UTF-8\n", "Separator           ;\n", "Decimal sign        ,\n",
        "Lines before it     2\n", "Header              line 3\n", "Rows                3\n",
        "Column 1            \"day\", dates, x\n",
        "Column 2            \"Temp (\u00B0"
        "C)\", numbers in \u00B0"
        "C, a curve, missing: 1, limits: 1\n",
        "Column 3            \"state\", words, not drawn\n",
        "x                   \"day (days since 2021-02-01)\"\n",
        "Note                line 1 is above the table"}) {
    EXPECT_THAT(outcome.out, HasSubstr(line));
  }
}

TEST_F(TableProgram, InfoMarksWhatIsChosenAndEndsWithTheErrorOfWhatCannotBeDrawn) {
  const Outcome outcome = run({"info", written("i.csv", "a;b\nc;d\n"), "--separator", ","});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out,
              AllOf(HasSubstr("Separator           , (chosen)\n"),
                    HasSubstr("Column 1            \"a;b\", words\n"), Not(HasSubstr("NumData"))));
  EXPECT_THAT(outcome.err, HasSubstr("no column of numbers"));
}

TEST_F(TableProgram, InfoDoesNotAdviseItself) {
  const Outcome words = run({"info", written("w.json", "[{\"a\":\"b\"},{\"a\":\"c\"}]")});
  EXPECT_THAT(words.err,
              AllOf(HasSubstr("its columns are listed above"), Not(HasSubstr("kurv info"))));
  EXPECT_THAT(run({"info", written("h.csv", "x,y\n")}).err,
              HasSubstr("has a header and nothing below it"));
}

TEST_F(TableProgram, InfoAdvisesAnotherSheetWhereTheFirstCannotBeDrawn) {
  const QString workbook = KURV_SOURCE_DIR "/tests/tables/sources/types.xlsx";
  EXPECT_THAT(run({"info", workbook, "--x", "nowhere"}).err, HasSubstr("--sheet chooses another"));
}

TEST_F(TableProgram, NamesArgumentsWithoutMeaningInTheirOrder) {
  const Outcome outcome = run({"info", small(), "-y", "up"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("arguments were not expected: -y up; \"kurv info --help\""));
  EXPECT_THAT(run({"-z", "-w"}).err,
              HasSubstr("arguments were not expected: -z -w; \"kurv --help\""));
  EXPECT_THAT(run({"info", small(), "-y"}).err,
              HasSubstr("argument was not expected: -y; \"kurv info --help\""));
}

TEST_F(TableProgram, InfoMarksNoEncodingAsChosenThatIsNotTheTexts) {
  const Outcome outcome =
      run({"info", written("l.csv", "x,\xE4\n1,2\n2,3\n"), "--encoding", "utf-8"});
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("Encoding            code page 1252\n"),
                                 HasSubstr("the text is not UTF-8")));
}

TEST_F(TableProgram, ReadsStandardInputAndWritesStandardOutput) {
  const QByteArray table = "x,y\n1,2\n2,3\n";
  const Outcome picture = run_with_input({"render", "-", "-o", "-"}, table);
  EXPECT_EQ(picture.status, 0) << picture.err;
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(picture.out)).size(), QSize(1000, 700));
  EXPECT_THAT(run_with_input({"render", "-", "-o", "-", "--format", "svg"}, table).out,
              HasSubstr("<svg"));
  EXPECT_THAT(run_with_input({"convert", "-", "-o", "-"}, table).out,
              testing::StartsWith("QXPLOT/V500//"));
  EXPECT_THAT(run_with_input({"info", "-"}, table).out, HasSubstr("Rows                2\n"));
  EXPECT_THAT(run_with_input({"render", "-", "-o", "-"}, "").err,
              HasSubstr("standard input is empty"));
}

TEST_F(TableProgram, OptionsAboutATableMakeNoSenseWithAGraphFile) {
  const QString table = small();
  EXPECT_EQ(run({"convert", table, "-o", path("a.gdf")}).status, 0);
  expect_refusal(render(path("a.gdf"), {"--separator", ";"}), 2, "leave out --separator.");
  expect_refusal(run({"info", path("a.gdf"), "--decimal", ","}), 2, "leave out --decimal.");
}

TEST_F(TableProgram, HostileTablesAreRefusedInOneSentence) {
  expect_refusal(render(written("s.csv", QByteArray(1000000, ','))), 1, "1000001 fields in line 1");
  expect_refusal(render(written("q.csv", "x,y\n1,2\n\"" + QByteArray(1000000, 'a'))), 1,
                 "never closed, in the row that begins in line 3");
  expect_refusal(render(written("z.csv", "x,y\n1,2\n2," + QByteArray(1, '\0') + "\n")), 1,
                 "is no text");
  QByteArray preamble;
  for (int i = 0; i < 200000; ++i) preamble += "Key: value\n";
  QByteArray rows;
  for (int i = 0; i < 200; ++i) rows += QByteArray::number(i) + ",5\n";
  const Outcome outcome = render(written("p.csv", preamble + "x,y\n" + rows));
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.err, HasSubstr("lines 1 to 200000 are above the table"));
}

}  // namespace
}  // namespace kurv::app
