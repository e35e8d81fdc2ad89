// What the C interface needs of a graph, in pixels or in a widget.
#pragma once

#include <KurvGraph/automation.h>
#include <KurvGraph/kurvgraph_c.h>
#include <KurvGraph/pixel_view.h>

#include <initializer_list>
#include <memory>
#include <optional>
#include <span>

namespace kurv::c {

class BoundGraph : public std::enable_shared_from_this<BoundGraph> {
 public:
  BoundGraph();
  virtual ~BoundGraph();
  BoundGraph(const BoundGraph&) = delete;
  BoundGraph& operator=(const BoundGraph&) = delete;

  // Late-bound members, as automation.h describes them.
  virtual Variant get(const MemberKey& key) = 0;
  virtual void let(const MemberKey& key, const Variant& value) = 0;
  virtual void call(const MemberKey& key, std::span<Variant> arguments) = 0;

  // As those of Control.
  virtual std::optional<String> add_function(const String& expression) = 0;
  virtual std::optional<String> derive(const String& name, const String& expression) = 0;
  virtual void append_points(const Matrix<Double>& points) = 0;
  virtual void replace_points(const Matrix<Double>& points, const List<String>& names) = 0;

  // Valid until the next call.
  virtual PixelView pixels() = 0;
  virtual void resize(int width, int height, double ratio) = 0;
  virtual void save_graph(const String& path) = 0;
  virtual void press_mouse(Integer button, Integer shift, Single x, Single y) = 0;
  virtual void release_mouse(Integer button, Integer shift, Single x, Single y) = 0;

  // A QWidget*; null where the graph has pixels only.
  virtual void* widget() = 0;
  // The handle is invalid from now on, and the last reference is about to go. Called on any thread.
  // `with_widget`: a widget goes as well, even where it has a parent.
  virtual void end(bool with_widget) = 0;

  kurv_graph handle() const { return m_handle; }
  void set_handle(kurv_graph handle) { m_handle = handle; }

  void listen(kurv_listener listener, void* user) {
    m_listener = listener;
    m_user = user;
  }

 protected:
  // Notifies the listener, if there is one.
  void notify(const char* name, std::uint32_t id, std::span<const Variant> arguments) const;
  void notify(const char* name, std::uint32_t id,
              std::initializer_list<Variant> arguments = {}) const {
    notify(name, id, std::span(arguments.begin(), arguments.size()));
  }
  void notify_event(const Event& event, std::span<const Variant> arguments) const {
    notify(event.name.data(), event.dispatch_id, arguments);
  }

 private:
  kurv_graph m_handle = nullptr;
  kurv_listener m_listener = nullptr;
  void* m_user = nullptr;
};

// Those that have been constructed and not destroyed.
std::size_t living_graphs();

}  // namespace kurv::c
