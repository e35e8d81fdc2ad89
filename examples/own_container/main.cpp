// A host with a container of its own, a pane: it takes the size that a graph file asks for, and
// prints what the control reports.
//
//   kurv_own_container squares.gdf
#include <KurvGraph/control.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/recording_surface.h>

#include <iostream>

namespace {

// As large as its surface. A window would be resized and repainted where this one prints.
class Pane final : public kurv::Container {
 public:
  explicit Pane(kurv::RecordingSurface& surface) : m_surface(surface) {}
  void set_graph(kurv::Control& graph) { m_graph = &graph; }

  bool run_mode() const override { return true; }
  void set_MousePointer(kurv::Integer) override {}
  kurv::Single Height() const override { return kurv::to_single(m_surface.ScaleHeight()); }
  kurv::Single Width() const override { return kurv::to_single(m_surface.ScaleWidth()); }
  void set_Height(kurv::Single twips) override { resize(Width(), twips); }
  void set_Width(kurv::Single twips) override { resize(twips, Height()); }
  void redrawn() override { std::cout << "drawn, " << Width() << " x " << Height() << " twips\n"; }
  void MouseUp(kurv::Integer Button, kurv::Integer, kurv::Single x, kurv::Single Y) override {
    std::cout << "button " << Button << " released at " << x << ", " << Y << '\n';
  }

 private:
  void resize(kurv::Single width, kurv::Single height) {
    if (width == Width() && height == Height()) return;
    m_surface.set_size(width, height);
    if (m_graph != nullptr) m_graph->resize();
  }

  kurv::RecordingSurface& m_surface;
  kurv::Control* m_graph = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  kurv::RecordingSurface surface(12000, 9000);
  Pane pane(surface);
  kurv::HeadlessShell shell;
  try {
    kurv::Control graph(pane, shell, surface);
    pane.set_graph(graph);
    graph.first_placement();
    graph.show();
    graph.file_load(argv[1]);               // draws also after each change of the pane's size
    graph.release_mouse(1, 0, 6000, 4500);  // as a click of the left button does
  } catch (const kurv::Fault& fault) {
    std::cerr << argv[1] << ": " << fault.what() << '\n';
    return 1;
  }
}
