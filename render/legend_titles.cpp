#include "render/legend_titles.h"

#include <algorithm>
#include <vector>

#include <KurvGraph/text.h>

#include "model/palette.h"
#include "render/curves.h"
#include "render/markers.h"

namespace kurv {

namespace {

// Lengths in twips.
constexpr Double kRowPitchPerMarkerSize = 2.2;
constexpr Double kSymbolInset = 60;
constexpr Double kTextInset = 30;
constexpr Double kTextRise = 80;
constexpr Single kHomeGap = 60;
constexpr Single kTitleGap = 100;
constexpr int kLegendInset = 200;

constexpr const char* kDefinitionSign = " = ";
constexpr const char* kEntryLead = "   ";
constexpr const char* kEntryTail = "    ";
constexpr const char* kEllipsis = "\u2026";

struct Entry {
  int curve;  // 0 for the row that counts the curves without one
  String text;
};

// The name of a derived curve may be its definition, "speed = distance / time"; the legend then
// shows only the part before the first blank.
String entry_text(const String& name) {
  return name.find(kDefinitionSign) == String::npos ? name : name.substr(0, name.find(' '));
}

void shorten(std::vector<Entry>& entries, int rows) {
  if (rows < 1 || std::ssize(entries) <= rows) return;
  const std::ptrdiff_t left_out = std::ssize(entries) - rows + 1;
  entries.resize(static_cast<std::size_t>(rows) - 1);
  entries.push_back({0, "and " + std::to_string(left_out) + " more"});
}

// The first `letters` UTF-8 characters, the last of them replaced by an ellipsis where there are
// more.
String cut(const String& text, int letters) {
  std::size_t last = 0;
  int count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (is_utf8_continuation(text[i])) continue;
    if (++count == letters) last = i;
  }
  return count <= letters ? text : text.substr(0, last) + kEllipsis;
}

std::size_t letter_count(const String& text) {
  const auto begins_letter = [](char byte) { return !is_utf8_continuation(byte); };
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins_letter));
}

// A curve whose flag is neither True nor False is drawn but not listed: a host that passes such a
// flag gets a curve without a legend entry.
std::vector<Entry> legend_entries(const GraphDocument& document, int letters) {
  std::vector<Entry> entries;
  for (int k = 1; k <= document.NumY; ++k) {
    if (document.y_visible(k).is_exactly_true()) {
      entries.push_back({k, entry_text(document.yVarName(k + 1))});
    }
  }
  shorten(entries, document.fitted_items.legend_rows);
  if (letters > 0) {
    for (Entry& entry : entries) entry.text = cut(entry.text, letters);
  }
  return entries;
}

std::vector<Entry> legend_entries(const GraphDocument& document) {
  return legend_entries(document, document.fitted_items.legend_letters);
}

void keep_on_surface(Rect& handle, const PlotRect& plot, const PlotSurface& surface) {
  if (handle.top > surface.ScaleHeight()) handle.top = to_single(plot.PlotHeight / 3.0);
  if (handle.left > surface.ScaleWidth()) handle.left = to_single(plot.PlotWidth / 3.0);
}

void size_to_entries(const GraphDocument& document, const std::vector<Entry>& entries, Rect& legend,
                     const PlotSurface& surface) {
  String measured;
  for (const Entry& entry : entries) measured += kEntryLead + entry.text + kEntryTail + "\r\n";
  const Double count = static_cast<Double>(entries.size());
  const Double pitch = kRowPitchPerMarkerSize * document.MarkerSize;
  const Double height = surface.TextHeight(measured);
  legend.width = to_single(surface.TextWidth(measured) + 3 * document.MarkerSize);
  legend.height = to_single(height < count * pitch ? (count + 1) * pitch : height);
}

void paint_box(PlotSurface& surface, const Rect& rect, int colour, LineKind kind) {
  surface.Line({rect.left, rect.top}, {rect.left + rect.width, rect.top + rect.height}, colour,
               kind);
}

void paint_legend(const GraphDocument& document, const std::vector<Entry>& entries,
                  const Rect& legend, PlotSurface& surface) {
  const int text_colour = surface.ForeColor();
  paint_box(surface, legend, kWhite, LineKind::kFilledBox);
  paint_box(surface, legend, kBlack, LineKind::kBox);
  const Double row_height = Double(legend.height) / static_cast<Double>(entries.size());
  Double row = 0.5;
  for (const Entry& entry : entries) {
    const Double centre = legend.top + row * row_height;
    if (entry.curve > 0) {
      DrawMarker(document, surface, entry.curve, legend.left + kSymbolInset + document.MarkerSize,
                 centre, !document.DrawMarkers.is_exactly_true());
    }
    surface.set_ForeColor(entry.curve > 0 ? curve_colour(entry.curve) : kBlack);
    surface.Print(to_single(legend.left + kTextInset + 2 * document.MarkerSize),
                  to_single(centre - kTextRise), entry.text + kEntryTail);
    row += 1;
  }
  surface.set_ForeColor(text_colour);
}

void paint_title(const Font& font, const Rect& handle, const String& text, PlotSurface& surface) {
  surface.set_font(font);
  paint_box(surface, handle, kWhite, LineKind::kFilledBox);
  surface.Print(handle.left, handle.top, text);
}

void size_to_text(const Font& font, const String& text, Rect& handle, PlotSurface& surface) {
  surface.set_font(font);
  handle.width = to_single(surface.TextWidth(text));
  handle.height = to_single(surface.TextHeight(text));
}

}  // namespace

void SizeTitleHandles(const GraphDocument& document, Layout& layout, PlotSurface& surface) {
  size_to_text(title_font(document), document.Title, layout.imgTitle, surface);
  size_to_text(subtitle_font(document), document.SubTitle, layout.imgSubTitle, surface);
  surface.set_font(axis_font(document));
}

void DrawLegendAndTitles(const GraphDocument& document, Layout& layout, PlotSurface& surface) {
  for (Rect* handle : {&layout.picLegend, &layout.imgTitle, &layout.imgSubTitle}) {
    keep_on_surface(*handle, layout.plot, surface);
  }
  const std::vector<Entry> entries = legend_entries(document);
  if (!entries.empty()) {
    size_to_entries(document, entries, layout.picLegend, surface);
    paint_legend(document, entries, layout.picLegend, surface);
  }
  paint_title(title_font(document), layout.imgTitle, document.Title, surface);
  paint_title(subtitle_font(document), layout.imgSubTitle, document.SubTitle, surface);
  surface.set_font(axis_font(document));
}

void place_titles(const GraphDocument& document, Layout& layout) {
  Rect& title = layout.imgTitle;
  Rect& subtitle = layout.imgSubTitle;
  title.top = Single(document.Top_margine) - title.height - kHomeGap;
  title.left = document.Left_margine;
  subtitle.top = Single(document.Top_margine) - subtitle.height - kHomeGap;
  subtitle.left = title.left + title.width + kTitleGap;
}

void size_legend(const GraphDocument& document, Layout& layout, const PlotSurface& surface) {
  size_to_entries(document, legend_entries(document), layout.picLegend, surface);
}

int legend_rows(const GraphDocument& document, Double height, const PlotSurface& surface) {
  const Double line = surface.TextHeight("Mg\r\nMg") - surface.TextHeight("Mg");
  const Double pitch = std::max(line, kRowPitchPerMarkerSize * document.MarkerSize);
  return std::max(1, static_cast<int>((height - pitch) / pitch));
}

int legend_letters(const GraphDocument& document, Double width, const PlotSurface& surface) {
  int letters = 0;
  for (const Entry& entry : legend_entries(document, 0)) {
    letters = std::max(letters, static_cast<int>(letter_count(entry.text)));
  }
  const auto is_too_wide = [&] {
    Rect legend;
    size_to_entries(document, legend_entries(document, letters), legend, surface);
    return legend.width > width;
  };
  while (letters > 0 && is_too_wide()) letters -= letters / 16 + 1;
  return letters;
}

int unlisted_curves(const GraphDocument& document) {
  const int rows = document.fitted_items.legend_rows;
  int curves = 0;
  for (int k = 1; k <= document.NumY; ++k) {
    if (document.y_visible(k).is_exactly_true()) ++curves;
  }
  return rows < 1 || curves <= rows ? 0 : curves - rows + 1;
}

std::optional<int> legend_curve_at(const GraphDocument& document, const Rect& legend, Single y) {
  const std::vector<Entry> entries = legend_entries(document);
  if (entries.empty() || !(legend.height > 0)) return std::nullopt;
  const Double rows = static_cast<Double>(entries.size());
  const Double row = std::clamp((y - legend.top) / legend.height * rows, 0.0, rows - 1);
  const int curve = entries[static_cast<std::size_t>(row)].curve;
  return curve > 0 ? std::optional(curve) : std::nullopt;
}

bool has_legend(const GraphDocument& document) {
  // Called at every mouse move, also after an intake that failed between the count of curves and
  // their flags, so it must not throw where there are fewer flags than curves.
  const int known = std::min<int>(document.NumY, document.y_visible.upper());
  for (int k = 1; k <= known; ++k) {
    if (document.y_visible(k).is_exactly_true()) return true;
  }
  return false;
}

void place_legend(const GraphDocument& document, Layout& layout) {
  layout.picLegend.top = to_integer(Double(document.Top_margine + kLegendInset));
  layout.picLegend.left = to_integer(Double(document.Left_margine + kLegendInset));
}

}  // namespace kurv
