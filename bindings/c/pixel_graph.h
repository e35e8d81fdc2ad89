// A control with its container, its desktop and its picture, none of which needs a toolkit.
#pragma once

#include <KurvGraph/container.h>
#include <KurvGraph/control.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/pixel_picture.h>

#include "bindings/c/bound_graph.h"

namespace kurv::c {

class PixelGraph final : public BoundGraph, private Container, private HeadlessShell {
 public:
  // Throws CallError for a size or a ratio that is not accepted.
  PixelGraph(int width, int height, double ratio);
  ~PixelGraph() override;

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
  void* widget() override { return nullptr; }
  void end(bool) override {}

 private:
  bool run_mode() const override { return true; }
  void set_MousePointer(Integer) override {}
  Single Height() const override { return to_single(m_picture.ScaleHeight()); }
  Single Width() const override { return to_single(m_picture.ScaleWidth()); }
  // The size is the host's choice; a graph file does not change it.
  void set_Height(Single) override {}
  void set_Width(Single) override {}
  void MouseUp(Integer, Integer, Single, Single) override {}
  void redrawn() override;
  Answer message_box(std::string_view text, int flags, std::string_view title) override;

  PixelPicture m_picture;
  std::optional<Control> m_control;
};

}  // namespace kurv::c
