// The lines of a text and their places on a page.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include <KurvGraph/plot_surface.h>

namespace kurv {

// Splits at CR LF, LF or CR. A line end at the very end begins an empty line, and an empty text has
// one.
std::vector<std::string_view> lines_of(std::string_view text);

// Calls `place` for each line, in order, that may be visible on a page of that height, with the
// left and top end of the line. All lengths are in one unit. The top-left corner of the text is at
// `at`, which may be NaN, infinite or far away.
void place_lines(SurfacePoint at, std::string_view text, double page_height, double line_height,
                 const std::function<void(double left, double top, std::string_view line)>& place);

}  // namespace kurv
