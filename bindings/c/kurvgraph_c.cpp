// The entry points of the C interface for graphs of either kind.
#include <KurvGraph/file_fault.h>
#include <KurvGraph/kurvgraph_c.h>
#include <KurvGraph/png_file.h>

#include <cstring>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "bindings/c/bound_graph.h"
#include "bindings/c/call_error.h"
#include "bindings/c/graph_table.h"
#include "bindings/c/pixel_graph.h"
#include "bindings/c/sized_structure.h"
#include "bindings/c/value_conversion.h"

namespace {

using kurv::MemberKey;
using kurv::c::BoundGraph;
using kurv::c::CallError;
using kurv::c::find_graph;
using kurv::c::guarded;
using kurv::c::required;

const char* text(const char* bytes) {
  return &required(bytes);
}

// Does work on a graph, which exists until it is done.
template <class Work>
std::int32_t on_graph(kurv_graph graph, Work work) noexcept {
  return guarded([&] { work(*find_graph(graph)); });
}

// The name of a member in the interface's own letter case, or what was asked for.
std::string name_of(const MemberKey& key) {
  if (const kurv::Member* const member = kurv::find_member(key)) return std::string(member->name);
  if (const auto* const name = std::get_if<std::string_view>(&key)) return std::string(*name);
  return "the identifier " + std::to_string(std::get<std::uint32_t>(key));
}

// Does work with a member; an error that has no detail of its own names it.
template <class Work>
void on_member(const MemberKey& key, Work work) {
  try {
    work();
  } catch (const kurv::FileFault&) {
    throw;
  } catch (const kurv::Fault& fault) {
    throw CallError(fault.number(), name_of(key));
  }
}

void get(BoundGraph& graph, const MemberKey& key, kurv_value* value) {
  required(value);
  on_member(key, [&] { *value = kurv::c::owned_value(graph.get(key)); });
}

void let(BoundGraph& graph, const MemberKey& key, const kurv_value* value) {
  required(value);
  on_member(key, [&] { graph.let(key, kurv::c::to_variant(*value)); });
}

void call(BoundGraph& graph, const MemberKey& key, kurv_value* arguments, std::size_t count) {
  // No member has more; this also refuses a count that no memory holds.
  constexpr std::size_t kMostArguments = 64;
  if (count > 0) required(arguments);
  on_member(key, [&] {
    if (count > kMostArguments) throw kurv::Fault(kurv::FaultKind::kTooManyArguments);
    std::vector<kurv::Variant> values;
    for (std::size_t i = 0; i < count; ++i) values.push_back(kurv::c::to_variant(arguments[i]));
    const std::vector<kurv::Variant> passed = values;
    graph.call(key, values);
    for (std::size_t i = 0; i < count; ++i) {
      kurv::c::return_argument(values[i], passed[i], arguments[i]);
    }
  });
}

// The content of a value that has to be of this type.
template <class T>
T content(const kurv_value* value) {
  kurv::Variant variant = kurv::c::to_variant(required(value));
  if (T* const found = std::get_if<T>(&variant)) return std::move(*found);
  throw kurv::Fault(kurv::FaultKind::kTypeMismatch);
}

void accept(const std::optional<kurv::String>& objection) {
  if (objection) throw CallError(KURV_INVALID_CALL, *objection);
}

void copy_argb(const kurv::PixelView& view, unsigned char* to) {
  const auto row_bytes = static_cast<std::size_t>(view.width) * sizeof(std::uint32_t);
  for (int y = 0; y < view.height; ++y, to += row_bytes) std::memcpy(to, view.row(y), row_bytes);
}

void copy_rgba(const kurv::PixelView& view, unsigned char* to) {
  for (int y = 0; y < view.height; ++y) {
    const std::uint32_t* const row = view.row(y);
    for (int x = 0; x < view.width; ++x) {
      *to++ = static_cast<unsigned char>(row[x] >> 16);
      *to++ = static_cast<unsigned char>(row[x] >> 8);
      *to++ = static_cast<unsigned char>(row[x]);
      *to++ = 0xFF;
    }
  }
}

}  // namespace

std::int32_t kurv_version() {
  return KURV_VERSION;
}

std::int32_t kurv_create_pixels(std::int32_t width, std::int32_t height, double ratio,
                                kurv_graph* graph) {
  return guarded([&] {
    required(graph);
    *graph = kurv::c::enter_graph(std::make_shared<kurv::c::PixelGraph>(width, height, ratio));
  });
}

std::int32_t kurv_destroy(kurv_graph graph) {
  return guarded([&] {
    const auto taken = kurv::c::take_graph(graph);
    if (!taken) throw CallError(KURV_INVALID_HANDLE);
    taken->end(true);
  });
}

std::int32_t kurv_detach(kurv_graph graph) {
  return guarded([&] {
    const auto taken = kurv::c::take_graph(graph);
    if (!taken) throw CallError(KURV_INVALID_HANDLE);
    taken->end(false);
  });
}

std::size_t kurv_living() {
  return kurv::c::living_graphs();
}

std::int32_t kurv_get_widget(kurv_graph graph, void** widget) {
  return on_graph(graph, [&](BoundGraph& bound) {
    required(widget);
    void* const found = bound.widget();
    if (found == nullptr) throw CallError(KURV_NO_WIDGET);
    *widget = found;
  });
}

std::int32_t kurv_get(kurv_graph graph, const char* name, kurv_value* value) {
  return on_graph(graph, [&](BoundGraph& bound) { get(bound, text(name), value); });
}

std::int32_t kurv_get_by_id(kurv_graph graph, std::uint32_t dispatch_id, kurv_value* value) {
  return on_graph(graph, [&](BoundGraph& bound) { get(bound, dispatch_id, value); });
}

std::int32_t kurv_let(kurv_graph graph, const char* name, const kurv_value* value) {
  return on_graph(graph, [&](BoundGraph& bound) { let(bound, text(name), value); });
}

std::int32_t kurv_let_by_id(kurv_graph graph, std::uint32_t dispatch_id, const kurv_value* value) {
  return on_graph(graph, [&](BoundGraph& bound) { let(bound, dispatch_id, value); });
}

std::int32_t kurv_call(kurv_graph graph, const char* name, kurv_value* arguments,
                       std::size_t count) {
  return on_graph(graph, [&](BoundGraph& bound) { call(bound, text(name), arguments, count); });
}

std::int32_t kurv_call_by_id(kurv_graph graph, std::uint32_t dispatch_id, kurv_value* arguments,
                             std::size_t count) {
  return on_graph(graph, [&](BoundGraph& bound) { call(bound, dispatch_id, arguments, count); });
}

std::int32_t kurv_add_function(kurv_graph graph, const char* expression) {
  return on_graph(graph, [&](BoundGraph& bound) { accept(bound.add_function(text(expression))); });
}

std::int32_t kurv_derive(kurv_graph graph, const char* name, const char* expression) {
  return on_graph(graph,
                  [&](BoundGraph& bound) { accept(bound.derive(text(name), text(expression))); });
}

std::int32_t kurv_append_points(kurv_graph graph, const kurv_value* points) {
  return on_graph(graph, [&](BoundGraph& bound) {
    bound.append_points(content<kurv::Matrix<kurv::Double>>(points));
  });
}

std::int32_t kurv_replace_points(kurv_graph graph, const kurv_value* points,
                                 const kurv_value* names) {
  return on_graph(graph, [&](BoundGraph& bound) {
    bound.replace_points(content<kurv::Matrix<kurv::Double>>(points),
                         content<kurv::List<kurv::String>>(names));
  });
}

std::int32_t kurv_get_pixels(kurv_graph graph, kurv_pixels* pixels) {
  return on_graph(graph, [&](BoundGraph& bound) {
    const kurv::PixelView view = bound.pixels();
    const auto stride = static_cast<std::int64_t>(view.stride) * std::int64_t{sizeof(*view.pixels)};
    kurv::c::fill_in(
        pixels, {sizeof(kurv_pixels), view.pixels, view.width, view.height, stride, KURV_ARGB32});
  });
}

std::int32_t kurv_copy_pixels(kurv_graph graph, std::int32_t format, void* buffer,
                              std::size_t bytes) {
  return on_graph(graph, [&](BoundGraph& bound) {
    auto* const to = &required(static_cast<unsigned char*>(buffer));
    const kurv::PixelView view = bound.pixels();
    const auto pixels =
        static_cast<std::size_t>(view.width) * static_cast<std::size_t>(view.height);
    if (bytes / sizeof(std::uint32_t) < pixels) throw CallError(KURV_INVALID_CALL, "the buffer");
    if (format == KURV_ARGB32) {
      copy_argb(view, to);
    } else if (format == KURV_RGBA8) {
      copy_rgba(view, to);
    } else {
      throw CallError(KURV_INVALID_CALL, "the format");
    }
  });
}

std::int32_t kurv_save_png(kurv_graph graph, const char* path) {
  return on_graph(graph, [&](BoundGraph& bound) { kurv::save_png(bound.pixels(), text(path)); });
}

std::int32_t kurv_save_graph(kurv_graph graph, const char* path) {
  return on_graph(graph, [&](BoundGraph& bound) { bound.save_graph(text(path)); });
}

std::int32_t kurv_resize(kurv_graph graph, std::int32_t width, std::int32_t height, double ratio) {
  return on_graph(graph, [&](BoundGraph& bound) { bound.resize(width, height, ratio); });
}

std::int32_t kurv_listen(kurv_graph graph, kurv_listener listener, void* user) {
  return on_graph(graph, [&](BoundGraph& bound) { bound.listen(listener, user); });
}

std::int32_t kurv_press_mouse(kurv_graph graph, std::int16_t button, std::int16_t shift, float x,
                              float y) {
  return on_graph(graph, [&](BoundGraph& bound) { bound.press_mouse(button, shift, x, y); });
}

std::int32_t kurv_release_mouse(kurv_graph graph, std::int16_t button, std::int16_t shift, float x,
                                float y) {
  return on_graph(graph, [&](BoundGraph& bound) { bound.release_mouse(button, shift, x, y); });
}
