// The widget on a form in the designer.
#include "qt/designer/designed_graph.h"

#include <KurvGraph/property_list.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QMetaProperty>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

#include "qt/designer/form_text.h"
#include "qt/designer/property_groups.h"

namespace kurv {
namespace {

QStringList own_properties() {
  QStringList names;
  const QMetaObject& type = KurvGraph::staticMetaObject;
  for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
    names.append(QString::fromLatin1(type.property(i).name()));
  }
  return names;
}

// Whether a message box or another window is open.
bool has_windows() {
  QCoreApplication::processEvents();
  for (const QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) return true;
  }
  return false;
}

TEST(DesignedGraph, IsInDesignModeAndShowsASample) {
  const DesignedGraph graph;
  EXPECT_TRUE(graph.design_mode());
  EXPECT_TRUE(graph.has_graph());
  EXPECT_STREQ(graph.metaObject()->className(), "kurv::KurvGraph");
}

TEST(DesignedGraph, HasThePropertiesOfANewGraph) {
  const DesignedGraph designed;
  const KurvGraph graph;
  for (const QString& name : own_properties()) {
    if (name == "ymin" || name == "ymax") continue;
    const QByteArray key = name.toLatin1();
    EXPECT_EQ(designed.property(key), graph.property(key)) << key.toStdString();
  }
}

TEST(DesignedGraph, HasTheSameLimitsEachTime) {
  const DesignedGraph one;
  const DesignedGraph other;
  EXPECT_EQ(one.ymin(), other.ymin());
  EXPECT_EQ(one.ymax(), other.ymax());
  EXPECT_LT(one.ymin(), one.ymax());
}

TEST(DesignedGraph, DrawsAtEveryResize) {
  DesignedGraph graph;
  for (const QSize size : {QSize(440, 320), QSize(300, 500)}) {
    graph.resize(size);
    KurvGraph blank;
    blank.resize(size);
    EXPECT_EQ(graph.image().size(), blank.image().size());
    EXPECT_NE(graph.image(), blank.image());
  }
}

TEST(DesignedGraph, DrawsAPropertyThatIsSet) {
  DesignedGraph graph;
  const QImage before = graph.image();
  EXPECT_TRUE(graph.setProperty("Title", "Growth"));
  const QImage titled = graph.image();
  EXPECT_NE(titled, before);
  EXPECT_TRUE(graph.setProperty("X_grid", true));
  EXPECT_TRUE(graph.setProperty("Left_margine", 2000));
  const QImage moved = graph.image();
  EXPECT_NE(moved, titled);
  // One more redraw changes nothing.
  graph.build_the_graph();
  EXPECT_EQ(graph.image(), moved);
}

TEST(DesignedGraph, RefusesWhatTheSettersRefuseWithoutAnException) {
  DesignedGraph graph;
  graph.setProperty("NumTicks", 40000);
  EXPECT_EQ(graph.NumTicks(), 10);
  graph.setProperty("MarkerSize", 1);
  EXPECT_EQ(graph.MarkerSize(), 40);
  graph.setProperty("FontSize", 1e300);
  EXPECT_LT(graph.FontSize(), 100);
  graph.setProperty("NumTicks", 7);
  EXPECT_EQ(graph.NumTicks(), 7);
}

TEST(DesignedGraph, ShowsNoMessageBox) {
  {
    DesignedGraph graph;
    graph.setProperty("QueryForSave", true);
    graph.setProperty("NumTicks", 0);  // a division by zero at each redraw
    graph.resize(500, 500);
    graph.setProperty("NumTicks", 40000);
    EXPECT_FALSE(has_windows());
  }
  EXPECT_FALSE(has_windows());
}

TEST(DesignedGraph, LeavesTheMouseAndTheKeyboardToTheDesigner) {
  DesignedGraph graph;
  for (const char* const name : {"tbrGraph", "PicGraph"}) {
    const auto* const child = graph.findChild<QWidget*>(name);
    ASSERT_NE(child, nullptr) << name;
    EXPECT_TRUE(child->testAttribute(Qt::WA_TransparentForMouseEvents)) << name;
  }
  QTest::keyClick(&graph, Qt::Key_O, Qt::ControlModifier);
  EXPECT_FALSE(has_windows());
}

TEST(PropertyGroups, NameEachPropertyOfTheWidgetAndNoOther) {
  QSet<QString> groups;
  for (const QString& name : own_properties()) {
    EXPECT_TRUE(property_group(name).startsWith("Graph: ")) << name.toStdString();
    groups.insert(property_group(name));
  }
  EXPECT_EQ(groups.size(), 7);
  EXPECT_EQ(property_group("objectName"), "");
  EXPECT_EQ(property_group("font"), "");
}

TEST(FormText, HasAToolTipForEachProperty) {
  QXmlStreamReader xml(form_text());
  QStringList names;
  QStringList texts;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    const QString name = xml.attributes().value("name").toString();
    if (xml.name() == QStringView(u"tooltip")) {
      names.append(name);
      texts.append(xml.readElementText());
    }
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  EXPECT_EQ(names, own_properties());
  EXPECT_TRUE(texts.contains("Lower limit of y."));
  EXPECT_TRUE(texts.contains("Width of curves, pixels."));
}

TEST(FormText, KeepsFontNamesAndNumberFormatsUntranslated) {
  const QString text = form_text();
  for (const char* const name : {"FontName", "TitleFontName", "AxisLabelFormatX"}) {
    const auto line = QStringLiteral(R"(name="%1" type="singleline" notr="true")").arg(name);
    EXPECT_TRUE(text.contains(line)) << name;
  }
  EXPECT_TRUE(text.contains(R"(name="Title" type="multiline"/>)"));
}

}  // namespace
}  // namespace kurv
