// kurv render into documents of lines and text, and what is written of them.
#include <QRegularExpression>
#include <QXmlStreamReader>

#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;

class VectorRender : public Program {
 protected:
  QByteArray document(const QString& name, const QStringList& more = {}) {
    const Outcome outcome = run(QStringList{"render", small(), "-o", path(name)} + more);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return contents(path(name));
  }

  std::string output_of(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << tool.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().toStdString();
  }
};

TEST_F(VectorRender, AnSvgHasItsSizeTitleAndEveryCurve) {
  const QByteArray svg = document("out.svg", {"--title", "A < b", "--size", "300x200"});
  QXmlStreamReader xml(svg);
  ASSERT_TRUE(xml.readNextStartElement());
  EXPECT_EQ(xml.attributes().value("width").toString(), "300");
  EXPECT_EQ(xml.attributes().value("height").toString(), "200");
  ASSERT_TRUE(xml.readNextStartElement());
  EXPECT_EQ(xml.readElementText(), "A < b");
  while (!xml.atEnd()) xml.readNext();
  EXPECT_FALSE(xml.hasError());
  EXPECT_EQ(svg.count("stroke=\"#000080\""), 2) << "the curve and its sample in the legend";
  EXPECT_EQ(svg.count("stroke=\"#008000\""), 2);
}

TEST_F(VectorRender, APdfHasItsTitleAndItsLabelsAsText) {
  document("out.pdf", {"--title", "Growth & decay", "--size", "400x300"});
  EXPECT_THAT(output_of("pdftotext", {path("out.pdf"), "-"}), HasSubstr("Growth & decay"));
  const std::string info = output_of("pdfinfo", {path("out.pdf")});
  EXPECT_THAT(info, HasSubstr("Growth & decay"));
  EXPECT_THAT(info, HasSubstr("300 x 225 pts"));
}

TEST_F(VectorRender, TheSameGraphIsTheSameSvgWhateverTheDesktop) {
  const QByteArray first = document("a.svg", {"--set", "X_grid=True", "--function", "x^2"});
  QProcessEnvironment environment = m_process.processEnvironment();
  environment.insert("QT_SCALE_FACTOR", "2");
  environment.insert("QT_FONT_DPI", "192");
  m_process.setProcessEnvironment(environment);
  EXPECT_EQ(document("b.svg", {"--set", "X_grid=True", "--function", "x^2"}), first);
}

TEST_F(VectorRender, AGraphFileIsDrawnToo) {
  EXPECT_EQ(run({"convert", small(), "-o", path("g.gdf"), "--title", "Kept"}).status, 0);
  EXPECT_EQ(run({"render", path("g.gdf"), "-o", path("g.svg")}).status, 0);
  EXPECT_THAT(contents(path("g.svg")).toStdString(), HasSubstr("<title>Kept</title>"));
}

TEST_F(VectorRender, ThereAreNoPixelsToScale) {
  for (const char* name : {"out.svg", "out.PDF"}) {
    for (const char* scale : {"1", "2"}) {
      const Outcome outcome = run({"render", small(), "-o", path(name), "--scale", scale});
      expect_refusal(outcome, 2, "leave out --scale");
      EXPECT_FALSE(QFile::exists(path(name)));
    }
  }
}

TEST_F(VectorRender, WhatCannotBeWrittenIsSaidAndLeavesTheFileAsItWas) {
  for (const char* name : {"out.svg", "out.pdf"}) {
    const QString folder = path("missing") + '/' + name;
    expect_refusal(run({"render", small(), "-o", folder}), 1, "choose another folder");
    written(name, "old");
    // As on a full disk: no more than so many bytes fit into any file.
    const QString command = "trap '' XFSZ; ulimit -f 1; exec \"$0\" \"$@\"";
    m_process.start("/bin/sh", {"-c", command, KURV_PROGRAM, "render", small(), "-o", path(name)});
    ASSERT_TRUE(m_process.waitForFinished(60000));
    EXPECT_EQ(m_process.exitCode(), 1);
    EXPECT_THAT(m_process.readAllStandardError().toStdString(), HasSubstr("make room on the disk"));
    EXPECT_EQ(contents(path(name)), "old");
  }
  EXPECT_EQ(files().size(), 3) << "and nothing is left beside them";
}

TEST_F(VectorRender, DataThatCannotBeDrawnLeaveNoPicture) {
  const QString flat = written("flat.csv", "x,y\n1,1e308\n2,-1e308\n");
  const Outcome outcome = run({"render", flat, "-o", path("out.svg"), "--set", "xmax=1"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_FALSE(QFile::exists(path("out.svg")));
}

}  // namespace
}  // namespace kurv::app
