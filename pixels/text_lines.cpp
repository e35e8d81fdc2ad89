#include "pixels/text_lines.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kurv {

std::vector<std::string_view> lines_of(std::string_view text) {
  std::vector<std::string_view> lines;
  for (;;) {
    const std::size_t end = text.find_first_of("\r\n");
    lines.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return lines;
    text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
  }
}

void place_lines(SurfacePoint at, std::string_view text, double page_height, double line_height,
                 const std::function<void(double left, double top, std::string_view line)>& place) {
  if (std::isnan(at.x) || std::isnan(at.y)) return;
  constexpr Single kMaxSingle = std::numeric_limits<Single>::max();
  const double left = std::clamp(at.x, -kMaxSingle, kMaxSingle);
  double top = std::clamp(at.y, -kMaxSingle, kMaxSingle);
  for (const std::string_view line : lines_of(text)) {
    // Accents and descenders extend past their line by no more than the height of a line.
    if (top > page_height + line_height) return;
    if (top > -2 * line_height) place(left, top, line);
    top += line_height;
  }
}

}  // namespace kurv
