#include "bindings/c/pixel_graph.h"

#include <KurvGraph/file_fault.h>
#include <KurvGraph/font_text_painter.h>

#include <mutex>

#include "bindings/c/call_error.h"
#include "control/control_state.h"
#include "control/graph_file_commands.h"

namespace kurv::c {

namespace {

constexpr int kLongestSide = 32767;
constexpr double kHighestRatio = 16;

int checked_side(int side) {
  if (side < 1 || side > kLongestSide) {
    throw CallError(KURV_INVALID_CALL, "width and height take numbers from 1 to 32767");
  }
  return side;
}

// Written so that NaN is refused.
double checked_ratio(double ratio) {
  if (!(ratio > 0 && ratio <= kHighestRatio)) {
    throw CallError(KURV_INVALID_CALL, "the ratio takes a number above 0 and up to 16");
  }
  return ratio;
}

// A graph is used by one thread, so its texts are measured there: all graphs of a thread share the
// fonts that have been loaded.
std::shared_ptr<TextPainter> painter_of_this_thread() {
  static thread_local const std::shared_ptr<TextPainter> painter =
      std::make_shared<FontTextPainter>();
  return painter;
}

// Controls count themselves, and draw the numbers of their demonstration data from one generator.
std::mutex& creation() {
  static std::mutex mutex;
  return mutex;
}

// A run-time error that occurs while the graph's file is in use names that file.
template <class Work>
void with_file(Control& control, Work work) {
  String& file = control.state().used_file;
  file.clear();
  try {
    work();
  } catch (const Fault& fault) {
    if (file.empty()) throw;
    throw FileFault(fault.kind(), file);
  }
}

}  // namespace

PixelGraph::PixelGraph(int width, int height, double ratio)
    : m_picture(painter_of_this_thread(), checked_side(width), checked_side(height),
                checked_ratio(ratio)) {
  const std::lock_guard lock(creation());
  Container& container = *this;
  Shell& shell = *this;
  m_control.emplace(container, shell, m_picture);
  m_control->add_listener([this](const Event& event, std::span<const Variant> arguments) {
    notify_event(event, arguments);
  });
  m_control->first_placement();
  m_control->show();
}

// The end of a control may ask whether to save the graph; there is nobody to answer.
PixelGraph::~PixelGraph() {
  listen(nullptr, nullptr);
}

Variant PixelGraph::get(const MemberKey& key) {
  return get_property(*m_control, key);
}

void PixelGraph::let(const MemberKey& key, const Variant& value) {
  set_property(*m_control, key, value);
}

void PixelGraph::call(const MemberKey& key, std::span<Variant> arguments) {
  with_file(*m_control, [&] { call_method(*m_control, key, arguments); });
}

std::optional<String> PixelGraph::add_function(const String& expression) {
  return m_control->add_function(expression);
}

std::optional<String> PixelGraph::derive(const String& name, const String& expression) {
  return m_control->derive(name, expression);
}

void PixelGraph::append_points(const Matrix<Double>& points) {
  m_control->append_points(points);
}

void PixelGraph::replace_points(const Matrix<Double>& points, const List<String>& names) {
  m_control->replace_points(points, names);
}

PixelView PixelGraph::pixels() {
  return m_picture.pixels();
}

void PixelGraph::resize(int width, int height, double ratio) {
  m_picture.resize(checked_side(width), checked_side(height), checked_ratio(ratio));
  m_control->resize();
}

void PixelGraph::save_graph(const String& path) {
  with_file(*m_control, [&] { save_graph_file(m_control->state(), path); });
}

void PixelGraph::press_mouse(Integer button, Integer shift, Single x, Single y) {
  m_control->press_mouse(button, shift, x, y);
}

void PixelGraph::release_mouse(Integer button, Integer shift, Single x, Single y) {
  m_control->release_mouse(button, shift, x, y);
}

void PixelGraph::redrawn() {
  notify("redrawn", KURV_REDRAWN);
}

Answer PixelGraph::message_box(std::string_view text, int flags, std::string_view title) {
  notify("message", KURV_MESSAGE, {String(text), static_cast<Integer>(flags), String(title)});
  return HeadlessShell::message_box(text, flags, title);
}

}  // namespace kurv::c
