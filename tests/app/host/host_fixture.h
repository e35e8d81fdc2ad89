// A host session that tests ask line by line.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "app/host/host_session.h"

namespace kurv::app {

class Host : public testing::Test {
 protected:
  QJsonObject ask(const QByteArray& line) {
    return QJsonDocument::fromJson(m_session.answer(line)).object();
  }
  // Zero where the request succeeded.
  int error(const QByteArray& line) {
    const QJsonObject answer = ask(line);
    EXPECT_EQ(answer["ok"].toBool(), !answer.contains("error"));
    return answer["error"].toObject()["number"].toInt();
  }
  QJsonValue get(const QByteArray& name) {
    const QJsonObject answer = ask("{\"get\":\"" + name + "\"}");
    EXPECT_TRUE(answer["ok"].toBool()) << name.constData();
    return answer["result"];
  }
  void load() {
    ASSERT_EQ(error(R"({"call":"scatter_graph","args":[[[1,4,9],[3,2,1]],[1,2,3],3,2,"Squares",)"
                    R"("x",["a","b"],0,[],true]})"),
              0);
  }
  QString path(const char* name) const { return m_folder.filePath(name); }
  QByteArray quoted(const QString& text) const { return '"' + text.toUtf8() + '"'; }

  QTemporaryDir m_folder;
  HostSession m_session;
};

}  // namespace kurv::app
