#include "qt/designer/graph_plugin.h"

#include <KurvGraph/KurvGraph.h>

#include "qt/designer/designed_graph.h"
#include "qt/designer/form_text.h"
#include "qt/designer/property_groups.h"

namespace kurv {

QString GraphPlugin::name() const {
  return QString::fromLatin1(KurvGraph::staticMetaObject.className());
}

// One of the designer's own groups.
QString GraphPlugin::group() const {
  return QStringLiteral("Display Widgets");
}

QString GraphPlugin::toolTip() const {
  return QStringLiteral("Graph of curves and functions");
}

QString GraphPlugin::whatsThis() const {
  return QStringLiteral(
      "A graph with axes, legend and titles, below a toolbar. The program gives it its data; in "
      "the "
      "designer it shows a sample.");
}

// With angle brackets, so that uic writes the include directive with them.
QString GraphPlugin::includeFile() const {
  return QStringLiteral("<KurvGraph/KurvGraph.h>");
}

// As pixels: the palette has the designer's own icon in the place of one without sizes.
QIcon GraphPlugin::icon() const {
  const QIcon drawing(QStringLiteral(":/KurvGraph/designer/kurv.svg"));
  QIcon icon;
  for (const int side : {16, 24, 32, 48}) icon.addPixmap(drawing.pixmap(side, side));
  return icon;
}

bool GraphPlugin::isContainer() const {
  return false;
}

QString GraphPlugin::domXml() const {
  return form_text();
}

void GraphPlugin::initialize(QDesignerFormEditorInterface* designer) {
  m_designer = designer;
}

bool GraphPlugin::isInitialized() const {
  return !m_designer.isNull();
}

QWidget* GraphPlugin::createWidget(QWidget* parent) {
  if (!m_designer) return new KurvGraph(parent);
  auto* const graph = new DesignedGraph(parent);
  group_properties(*m_designer, *graph);
  return graph;
}

}  // namespace kurv
