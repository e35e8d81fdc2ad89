// A widget's graph as a picture file.
#include "app/graph/picture_file.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "app/base/user_error.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::HasSubstr;

class ExportPicture : public testing::Test {
 protected:
  ExportPicture() {
    m_graph.resize(300, 200);
    m_graph.plot({.title = "Growth", .x = {1, 2, 3}, .y = {{"a", {1, 4, 2}}}});
  }

  std::string path(const QString& name) const { return m_folder.filePath(name).toStdString(); }

  QByteArray exported(const QString& name) const {
    export_picture(m_graph, path(name));
    QFile file(m_folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  std::string refusal(const std::string& target) const {
    try {
      export_picture(m_graph, target);
    } catch (const UserError& error) {
      return error.what();
    }
    return "none";
  }

  QTemporaryDir m_folder;
  KurvGraph m_graph;
};

TEST_F(ExportPicture, TheExtensionChoosesTheFormat) {
  EXPECT_EQ(QImage::fromData(exported("a.png"), "PNG").convertToFormat(QImage::Format_RGB32),
            m_graph.image().convertToFormat(QImage::Format_RGB32));
  EXPECT_EQ(QImage::fromData(exported("a.Bmp"), "BMP").size(), m_graph.image().size());
  EXPECT_EQ(exported("a.svg"), m_graph.svg());
  EXPECT_TRUE(exported("a.PDF").startsWith("%PDF"));
}

TEST_F(ExportPicture, AnUnknownExtensionIsRefused) {
  EXPECT_THAT(refusal(path("a.jpg")), HasSubstr(".png, .bmp, .svg or .pdf"));
  EXPECT_THAT(refusal(path("a")), HasSubstr("must end in"));
  EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
}

TEST_F(ExportPicture, WhatCannotBeWrittenOrDrawnIsSaid) {
  EXPECT_THAT(refusal(path("missing/a.svg")),
              AllOf(HasSubstr("cannot be written"), HasSubstr("choose another folder")));
  m_graph.set_xmax(m_graph.xmin());
  EXPECT_THAT(refusal(path("a.svg")), HasSubstr("the graph cannot be drawn"));
  EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
}

}  // namespace
}  // namespace kurv::app
