// A widget behind the C interface.
#pragma once

#include <KurvGraph/KurvGraph.h>

#include <QImage>
#include <QPointer>

#include "bindings/c/bound_graph.h"

namespace kurv::c {

class WidgetGraph final : public BoundGraph {
 public:
  explicit WidgetGraph(QWidget* parent);
  ~WidgetGraph() override;

  // Makes the handle invalid when the widget is deleted, by whomever. Call it once the graph has
  // its handle.
  void watch();

  Variant get(const MemberKey& key) override;
  void let(const MemberKey& key, const Variant& value) override;
  void call(const MemberKey& key, std::span<Variant> arguments) override;
  std::optional<String> add_function(const String& expression) override;
  std::optional<String> derive(const String& name, const String& expression) override;
  void append_points(const Matrix<Double>& points) override;
  void replace_points(const Matrix<Double>& points, const List<String>& names) override;
  PixelView pixels() override;
  void resize(int width, int height, double ratio) override;
  void save_graph(const String& path) override;
  void press_mouse(Integer button, Integer shift, Single x, Single y) override;
  void release_mouse(Integer button, Integer shift, Single x, Single y) override;
  void* widget() override { return static_cast<QWidget*>(m_widget.data()); }
  void end(bool with_widget) override;

  KurvGraph& graph() const;

 private:
  QPointer<KurvGraph> m_widget;
  QImage m_image;  // what the last pixels() shows
};

}  // namespace kurv::c
