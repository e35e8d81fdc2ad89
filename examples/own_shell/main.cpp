// A host with a desktop of its own, the console: it reads pairs of numbers from standard input and
// saves them as a graph file.
//
//   kurv_own_shell squares.gdf < squares.txt
#include <KurvGraph/control.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/recording_surface.h>

#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace {

// Shows messages on standard error, and answers every dialog that asks for a file to save with the
// same path. Everything else is cancelled.
class ConsoleShell final : public kurv::HeadlessShell {
 public:
  explicit ConsoleShell(std::string path) : m_path(std::move(path)) {}

  kurv::Answer message_box(std::string_view text, int flags, std::string_view title) override {
    std::cerr << title << ": " << text << '\n';
    m_has_warned = true;
    return HeadlessShell::message_box(text, flags, title);
  }
  kurv::FileChoice save_file(const kurv::SaveDialog&) override { return {.path = m_path}; }

  bool has_warned() const { return m_has_warned; }

 private:
  std::string m_path;
  bool m_has_warned = false;
};

void load(kurv::Control& graph, std::vector<kurv::Double> x, std::vector<kurv::Double> values) {
  const int count = static_cast<int>(x.size());
  kurv::Matrix<kurv::Double> y(1, 1, 1, count);
  y.set_column(1, std::move(values));
  graph.scatter_graph(y, {1, std::move(x)}, kurv::to_integer(kurv::Double(count)), 1, "Pairs", "x",
                      {1, {"y"}}, 0, {}, true);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::vector<kurv::Double> x;
  std::vector<kurv::Double> y;
  for (kurv::Double a, b; std::cin >> a >> b;) {
    x.push_back(a);
    y.push_back(b);
  }
  kurv::RecordingSurface surface(12000, 9000);
  kurv::HeadlessContainer container(surface);
  ConsoleShell shell(argv[1]);
  try {
    kurv::Control graph(container, shell, surface);
    graph.first_placement();
    graph.show();
    load(graph, std::move(x), std::move(y));
    if (shell.has_warned()) return 1;  // the data cannot be plotted
    graph.ChartOptions("saveas");
    return graph.GraphSaved() ? 0 : 1;
  } catch (const kurv::Fault& fault) {
    std::cerr << argv[1] << ": " << fault.what() << '\n';
    return 1;
  }
}
