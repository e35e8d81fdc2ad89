// What the designer does with the widget: its palette, its property editor, and the forms that it
// writes.
#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QUndoStack>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QDesignerWidgetFactoryInterface>
#include <QtDesigner/QExtensionManager>
#include <memory>

namespace {

const char* const kEmptyForm = R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>600</width><height>400</height></rect>
  </property>
  %1
 </widget>
 %2
</ui>
)";
const char* const kGraph = R"(<widget class="kurv::KurvGraph" name="graph">%1</widget>)";
const char* const kClass = R"(<customwidgets><customwidget>
   <class>kurv::KurvGraph</class><extends>QWidget</extends>
   <header location="global">KurvGraph/KurvGraph.h</header>
  </customwidget></customwidgets>)";

// The designer, with all but its main window.
class Designer : public testing::Test {
 protected:
  void SetUp() override {
    QDesignerComponents::initializeResources();
    m_core = QDesignerComponents::createFormEditor(&m_owner);
    m_core->setWidgetBox(QDesignerComponents::createWidgetBox(m_core, &m_window));
    m_core->setPropertyEditor(QDesignerComponents::createPropertyEditor(m_core, &m_window));
    m_core->setTopLevel(&m_window);
    new QDesignerIntegration(m_core, m_core);
    QDesignerComponents::initializePlugins(m_core);
    m_core->widgetBox()->load();
  }

  void open(const QString& properties = {}) {
    const QString widget = QString(kGraph).arg(properties);
    open_text(QString(kEmptyForm).arg(widget, QLatin1String(kClass)));
  }
  void open_text(const QString& text) {
    m_form = m_core->formWindowManager()->createFormWindow(&m_window);
    QByteArray bytes = text.toUtf8();
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    QString error;
    ASSERT_TRUE(m_form->setContents(&file, &error)) << error.toStdString();
    m_core->formWindowManager()->setActiveFormWindow(m_form);
    m_graph = m_form->findChild<QWidget*>("graph");
    ASSERT_NE(m_graph, nullptr);
    ASSERT_STREQ(m_graph->metaObject()->className(), "kurv::KurvGraph");
  }
  // As the property editor does.
  void edit(const QString& name, const QVariant& value) {
    m_form->cursor()->setWidgetProperty(m_graph, name, value);
  }
  QDesignerPropertySheetExtension& sheet() {
    return *qt_extension<QDesignerPropertySheetExtension*>(m_core->extensionManager(), m_graph);
  }
  bool form_contains(const char* text) { return m_form->contents().contains(text); }

  QObject m_owner;
  QWidget m_window;
  QDesignerFormEditorInterface* m_core = nullptr;
  QDesignerFormWindowInterface* m_form = nullptr;
  QWidget* m_graph = nullptr;
};

TEST_F(Designer, HasTheWidgetInItsPalette) {
  const QDesignerWidgetBoxInterface& box = *m_core->widgetBox();
  int found = 0;
  for (int i = 0; i < box.categoryCount(); ++i) {
    const QDesignerWidgetBoxInterface::Category category = box.category(i);
    for (int k = 0; k < category.widgetCount(); ++k) {
      if (!category.widget(k).domXml().contains("kurv::KurvGraph")) continue;
      EXPECT_EQ(category.name(), "Display Widgets");
      EXPECT_EQ(category.widget(k).name(), "KurvGraph");
      ++found;
    }
  }
  EXPECT_EQ(found, 1);
}

TEST_F(Designer, WritesNoPropertyThatNobodyHasChanged) {
  open();
  const QString form = m_form->contents();
  EXPECT_TRUE(form.contains(R"(<widget class="kurv::KurvGraph" name="graph")"));
  EXPECT_TRUE(form.contains(R"(<header location="global">KurvGraph/KurvGraph.h</header>)"));
  EXPECT_FALSE(form.contains("ymin")) << form.toStdString();
  EXPECT_FALSE(form.contains("stdset")) << form.toStdString();
}

TEST_F(Designer, WritesAndReadsWhatIsChanged) {
  open();
  edit("NumTicks", 7);
  edit("ymax", 12.5);
  edit("X_grid", true);
  edit("Title", "Growth & <size>");
  edit("toolbar_visible", false);
  const QString form = m_form->contents();
  EXPECT_EQ(form.count("stdset"), 5) << form.toStdString();
  EXPECT_FALSE(form.contains("ymin")) << form.toStdString();

  open_text(form);
  EXPECT_EQ(m_graph->property("NumTicks"), 7);
  EXPECT_EQ(m_graph->property("ymax"), 12.5);
  EXPECT_EQ(m_graph->property("X_grid"), true);
  EXPECT_EQ(m_graph->property("Title"), "Growth & <size>");
  EXPECT_EQ(m_graph->property("toolbar_visible"), false);
  EXPECT_EQ(m_form->contents(), form);
}

// The form of compiled_form_test is one that the designer has written.
TEST_F(Designer, WritesTheFormOfTheTestsAsItIs) {
  QFile file(KURV_SOURCE_DIR "/tests/qt/designer/growth.ui");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString text = QString::fromUtf8(file.readAll());
  open_text(text);
  EXPECT_EQ(m_form->contents(), text);
}

TEST_F(Designer, RefusesWhatTheSettersRefuse) {
  open(R"(<property name="BorderWidth" stdset="0"><number>40000</number></property>)");
  EXPECT_EQ(m_graph->property("BorderWidth"), 2);
  edit("NumTicks", 40000);
  EXPECT_EQ(m_graph->property("NumTicks"), 10);
  edit("MarkerSize", 1);
  EXPECT_EQ(m_graph->property("MarkerSize"), 40);
  EXPECT_FALSE(form_contains("40000"));
  QApplication::processEvents();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Designer, UndoesAChange) {
  open();
  edit("NumTicks", 7);
  m_form->commandHistory()->undo();
  EXPECT_EQ(m_graph->property("NumTicks"), 10);
  EXPECT_FALSE(form_contains("NumTicks"));
}

TEST_F(Designer, ShowsThePropertiesBelowHeadings) {
  open();
  QDesignerPropertySheetExtension& properties = sheet();
  const auto group = [&](const char* name) {
    return properties.propertyGroup(properties.indexOf(QLatin1String(name))).toStdString();
  };
  EXPECT_EQ(group("ymin"), "Graph: axes");
  EXPECT_EQ(group("MarkerSize"), "Graph: curves");
  EXPECT_EQ(group("SubTitleFontName"), "Graph: subtitle");
  EXPECT_EQ(group("toolbar_visible"), "Graph: toolbar, keys, saving");
  EXPECT_EQ(group("sizePolicy"), "QWidget");
}

TEST_F(Designer, HasTheGraphInDesignMode) {
  open();
  const auto* const plot = m_graph->findChild<QWidget*>("PicGraph");
  ASSERT_NE(plot, nullptr);
  EXPECT_TRUE(plot->testAttribute(Qt::WA_TransparentForMouseEvents));
  edit("QueryForSave", true);
  delete m_form;
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
