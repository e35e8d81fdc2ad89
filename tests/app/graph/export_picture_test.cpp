// A widget's graph as a picture file.
#include "app/graph/picture_file.h"

#include <gmock/gmock.h>
#include <unistd.h>

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

// Permissions do not stop root, so root becomes somebody else for a while.
TEST_F(ExportPicture, AFileThatMayBeWrittenInAFolderThatMayNotIsReplacedInPlace) {
  const QByteArray expected = exported("a.svg");
  for (const char* older : {"older", ""}) {
    QFile file(m_folder.filePath("a.svg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(older);
    file.close();
    file.setPermissions(QFile::Permissions::fromInt(0x6666));
    QFile::setPermissions(m_folder.path(), QFile::Permissions::fromInt(0x5555));
    const uid_t before = geteuid();
    if (before == 0) {
      ASSERT_EQ(seteuid(65534), 0);
    }
    const std::string failure = refusal(path("a.svg"));
    const std::string of_new_file = refusal(path("b.svg"));
    ASSERT_EQ(seteuid(before), 0);
    QFile::setPermissions(m_folder.path(), QFile::Permissions::fromInt(0x7777));
    EXPECT_EQ(failure, "none");
    EXPECT_THAT(of_new_file, HasSubstr("Permission denied; choose another folder"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), expected);
  }
  EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList{"a.svg"});
}

}  // namespace
}  // namespace kurv::app
