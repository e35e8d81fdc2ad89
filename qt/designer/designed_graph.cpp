#include "qt/designer/designed_graph.h"

#include <KurvGraph/fault.h>

#include <QMetaProperty>
#include <QVariant>
#include <utility>
#include <vector>

namespace kurv {

namespace {

// Between the limits of x that a new graph has.
Graph sample() {
  return {.x = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10},
          .y = {{"first", {0, 0.5, 1.5, 2, 3.5, 5, 6.5, 7.5, 9, 10}},
                {"second", {1, 2, 3.5, 4, 4.5, 4, 3.5, 2.5, 2, 1.5}}}};
}

bool is_y_limit(const QMetaProperty& property) {
  return property.name() == QByteArrayView("ymin") || property.name() == QByteArrayView("ymax");
}

}  // namespace

DesignedGraph::DesignedGraph(QWidget* parent) : KurvGraph(parent) {
  // A connected signal takes the place of the message box.
  connect(this, &KurvGraph::runTimeError, this, [] {});
  set_design_mode(true);
  show_sample();
}

// Otherwise the graph asks whether to save the sample.
DesignedGraph::~DesignedGraph() {
  set_QueryForSave(false);
}

// plot() sets Title, Connected, DrawMarkers and the limits.
void DesignedGraph::show_sample() {
  std::vector<std::pair<QMetaProperty, QVariant>> initial;
  const QMetaObject& type = KurvGraph::staticMetaObject;
  for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
    const QMetaProperty property = type.property(i);
    if (!is_y_limit(property)) initial.emplace_back(property, property.read(this));
  }
  plot(sample());
  for (const auto& [property, value] : initial) property.write(this, value);
}

int DesignedGraph::qt_metacall(QMetaObject::Call call, int id, void** arguments) {
  const bool is_write =
      call == QMetaObject::WriteProperty && id >= KurvGraph::staticMetaObject.propertyOffset();
  if (!is_write) return KurvGraph::qt_metacall(call, id, arguments);
  int left = -1;  // the call has been handled
  try {
    left = KurvGraph::qt_metacall(call, id, arguments);
    // The grid has the length of the plot rectangle before, and follows new margins one redraw
    // later.
    build_the_graph();
    build_the_graph();
  } catch (const Fault&) {
    // Refused, or stored and not to be drawn, such as two limits that are equal.
  }
  return left;
}

}  // namespace kurv
