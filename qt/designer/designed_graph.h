// The widget on a form in the designer.
#pragma once

#include <KurvGraph/KurvGraph.h>

namespace kurv {

// A graph in design mode that shows a sample, with the properties of a new graph but for ymin and
// ymax: those of a new graph are random, here they are the limits of the sample.
//
// A property that is set by its name is drawn at once. A value that its setter refuses leaves it as
// it was: no exception gets out, because the designer catches none. No message box is ever shown.
class DesignedGraph final : public KurvGraph {
 public:
  explicit DesignedGraph(QWidget* parent = nullptr);
  ~DesignedGraph() override;

  // Without Q_OBJECT, so that the class of the meta-object, which the designer writes to forms, is
  // that of the widget.
  int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

 private:
  void show_sample();
};

}  // namespace kurv
