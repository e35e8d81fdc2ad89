#include "app/window/settings_text.h"

#include <KurvGraph/graph_file_fields.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace kurv::app {

namespace {

constexpr std::array<std::string_view, 3> kOfData{"NumData", "AxisLabelFormatX",
                                                  "AxisLabelFormatY"};
constexpr std::array<std::string_view, 4> kLimits{"xmin", "xmax", "ymin", "ymax"};
constexpr std::array<std::string_view, 9> kPlaces{
    "Title, top",   "Title, left", "SubTitle, top", "SubTitle, left", "Legend, top",
    "Legend, left", "Top_margine", "Right_margine", "TitleFontSize"};
// A text that is compared has no size in it.
constexpr std::array<std::string_view, 2> kSize{"Height", "Width"};

template <std::size_t count>
bool is_in(const std::array<std::string_view, count>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// Passes on the lines that are wanted, as they come.
class LineFilter {
 public:
  explicit LineFilter(const IgnoredFields& ignored) : m_drops_values(ignored.data) {
    for (const GraphFileField& field : graph_file_fields()) {
      if (is_in(kSize, field.name)) continue;
      if (field.name == "NumY") m_curves_line = m_drops.size();
      m_drops.push_back((ignored.data && is_in(kOfData, field.name)) ||
                        (ignored.limits && is_in(kLimits, field.name)) ||
                        (ignored.ticks && field.name == "NumTicks") ||
                        (ignored.places && is_in(kPlaces, field.name)));
    }
  }

  void pass(std::string_view piece, const std::function<void(std::string_view)>& sink) {
    while (!piece.empty()) {
      const std::size_t size = std::min(piece.find('\n'), piece.size() - 1) + 1;
      const std::string_view part = piece.substr(0, size);
      piece.remove_prefix(size);
      if (!is_ignored()) sink(part);
      if (m_line == m_curves_line) m_curves += part;
      if (part.back() == '\n') ++m_line;
    }
  }

 private:
  bool is_ignored() const {
    if (m_line < m_drops.size()) return m_drops[m_line];
    if (!m_drops_values) return false;
    // The values follow the fields, a line for x and for each curve.
    const std::size_t columns = 1 + std::strtoul(m_curves.c_str(), nullptr, 10);
    return m_line < m_drops.size() + columns;
  }

  bool m_drops_values;
  std::vector<bool> m_drops;
  std::size_t m_curves_line = 0;
  std::string m_curves;
  std::size_t m_line = 0;
};

}  // namespace

TextSource settings_text(TextSource text, const IgnoredFields& ignored) {
  return [text = std::move(text), ignored](const std::function<void(std::string_view)>& sink) {
    LineFilter filter(ignored);
    text([&](std::string_view piece) { filter.pass(piece, sink); });
  };
}

}  // namespace kurv::app
