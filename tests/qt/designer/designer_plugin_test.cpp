// The plugin, loaded as the designer and as QUiLoader load it.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QFileInfo>
#include <QFormBuilder>
#include <QMetaProperty>
#include <QPluginLoader>
#include <QUiLoader>
#include <QVBoxLayout>
#include <QWidget>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <memory>

namespace {

const QString kPlugin = QStringLiteral(KURV_PLUGIN);

QDesignerCustomWidgetInterface* plugin() {
  static QPluginLoader loader(kPlugin);
  auto* const found = qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
  EXPECT_NE(found, nullptr) << loader.errorString().toStdString();
  return found;
}

// Whether the mouse goes to the form instead of the plot, as in design mode.
bool is_in_design_mode(const QWidget& graph) {
  return graph.findChild<QWidget*>("PicGraph")->testAttribute(Qt::WA_TransparentForMouseEvents);
}

// A form around a graph, as QFormBuilder writes it.
QByteArray form_with(QWidget& graph) {
  QWidget form;
  form.setObjectName("Form");
  auto* const layout = new QVBoxLayout(&form);
  layout->addWidget(&graph);
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  QFormBuilder builder;
  builder.setPluginPath({QFileInfo(kPlugin).path()});
  builder.save(&file, &form);
  layout->removeWidget(&graph);
  graph.setParent(nullptr);
  return file.data();
}

TEST(DesignerPlugin, DescribesTheWidget) {
  QDesignerCustomWidgetInterface* const graph = plugin();
  ASSERT_NE(graph, nullptr);
  EXPECT_EQ(graph->name(), "kurv::KurvGraph");
  EXPECT_EQ(graph->includeFile(), "<KurvGraph/KurvGraph.h>");
  EXPECT_EQ(graph->group(), "Display Widgets");
  EXPECT_FALSE(graph->isContainer());
  EXPECT_FALSE(graph->toolTip().isEmpty());
  EXPECT_FALSE(graph->whatsThis().isEmpty());
  const QImage icon = graph->icon().pixmap(24, 24).toImage();
  EXPECT_EQ(icon.width(), 24);
  EXPECT_EQ(icon.pixelColor(12, 3), Qt::white);
}

// No designer has called initialize(), so this is the widget of a program.
TEST(DesignerPlugin, CreatesAnOrdinaryGraphForAProgram) {
  QDesignerCustomWidgetInterface* const factory = plugin();
  ASSERT_NE(factory, nullptr);
  EXPECT_FALSE(factory->isInitialized());
  QWidget parent;
  const QWidget* const graph = factory->createWidget(&parent);
  ASSERT_NE(graph, nullptr);
  EXPECT_EQ(graph->parent(), &parent);
  EXPECT_STREQ(graph->metaObject()->className(), "kurv::KurvGraph");
  EXPECT_FALSE(is_in_design_mode(*graph));
}

TEST(DesignerPlugin, FormsKeepThePropertiesThatAreChanged) {
  QDesignerCustomWidgetInterface* const factory = plugin();
  ASSERT_NE(factory, nullptr);
  const std::unique_ptr<QWidget> graph(factory->createWidget(nullptr));
  graph->setObjectName("graph");
  graph->setProperty("Title", QStringLiteral("Größe & <Gewicht>"));
  graph->setProperty("NumTicks", 7);
  graph->setProperty("ymax", 12.5);
  graph->setProperty("X_grid", true);
  graph->setProperty("FontSize", 9.75);
  graph->setProperty("toolbar_visible", false);
  QByteArray form = form_with(*graph);

  QUiLoader loader;
  loader.clearPluginPaths();
  loader.addPluginPath(QFileInfo(kPlugin).path());
  EXPECT_TRUE(loader.availableWidgets().contains("kurv::KurvGraph"));
  QBuffer file(&form);
  file.open(QIODevice::ReadOnly);
  const std::unique_ptr<QWidget> loaded(loader.load(&file));
  ASSERT_NE(loaded, nullptr) << loader.errorString().toStdString();
  const auto* const copy = loaded->findChild<QWidget*>("graph");
  ASSERT_NE(copy, nullptr);
  EXPECT_FALSE(is_in_design_mode(*copy));
  const QMetaObject* const type = graph->metaObject();
  EXPECT_EQ(copy->metaObject(), type);
  for (int i = type->indexOfProperty("ymin"); i < type->propertyCount(); ++i) {
    const char* const name = type->property(i).name();
    EXPECT_EQ(copy->property(name), graph->property(name)) << name;
  }
}

}  // namespace
