#include <KurvGraph/recording_surface.h>

#include <algorithm>
#include <functional>
#include <initializer_list>

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

namespace kurv {

namespace {

const char* word(LineKind kind) {
  switch (kind) {
    case LineKind::kBox:
      return "box";
    case LineKind::kFilledBox:
      return "fill";
    case LineKind::kSegment:
    case LineKind::kRule:
      break;
  }
  return "segment";
}

// A JSON string: quotes, backslashes and control characters escaped, everything else as it is.
std::string quoted(std::string_view text) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  std::string result = "\"";
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      result += '\\';
      result += c;
    } else if (c == '\r') {
      result += "\\r";
    } else if (c == '\n') {
      result += "\\n";
    } else if (c == '\t') {
      result += "\\t";
    } else if (code < 0x20) {
      result += "\\u00";
      result += kHexDigits[code / 16];
      result += kHexDigits[code % 16];
    } else {
      result += c;
    }
  }
  return result + '"';
}

void append(std::string& log, const char* verb, std::initializer_list<Single> numbers) {
  log += verb;
  for (const Single number : numbers) log += ' ' + number_to_text(number);
}

// Code points, not bytes: continuation bytes of UTF-8 are not counted.
std::ptrdiff_t character_count(std::string_view line) {
  return std::count_if(line.begin(), line.end(), std::not_fn(is_utf8_continuation));
}

// Calls visit(line) for every line; CR LF, LF and CR each end one, and what follows the last line
// end is a line as well.
template <class Visit>
void for_each_line(std::string_view text, Visit visit) {
  for (;;) {
    const std::size_t end = text.find_first_of("\r\n");
    visit(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
  }
}

// A redraw selects the title's, the subtitle's and the axes' font before it clears the surface.
constexpr int kLinesBeforeClear = 3;

std::size_t start_of_last_lines(std::string_view log, int count) {
  std::size_t start = log.size();
  for (; count > 0 && start > 0; --count) {
    const std::size_t end_before = log.substr(0, start - 1).rfind('\n');
    start = end_before == std::string_view::npos ? 0 : end_before + 1;
  }
  return start;
}

}  // namespace

void RecordingSurface::Cls() {
  if (m_target != nullptr) m_target->Cls();
  if (m_last_redraw_only) m_log.erase(0, start_of_last_lines(m_log, kLinesBeforeClear));
  m_has_redraw = true;
  m_log += "cls\n";
}

void RecordingSurface::Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) {
  if (m_target != nullptr) m_target->Line(from, to, colour, kind);
  append(m_log, word(kind), {from.x, from.y, to.x, to.y, Single(colour)});
  m_log += '\n';
}

void RecordingSurface::Circle(SurfacePoint centre, Single radius, int colour) {
  if (m_target != nullptr) m_target->Circle(centre, radius, colour);
  append(m_log, "circle", {centre.x, centre.y, radius, Single(colour)});
  m_log += '\n';
}

void RecordingSurface::Arc(SurfacePoint centre, Single radius, int colour, Single start,
                           Single end) {
  if (m_target != nullptr) m_target->Arc(centre, radius, colour, start, end);
  append(m_log, "arc", {centre.x, centre.y, radius, Single(colour), start, end});
  m_log += '\n';
}

void RecordingSurface::PSet(SurfacePoint at, int colour) {
  if (m_target != nullptr) m_target->PSet(at, colour);
  append(m_log, "point", {at.x, at.y, Single(colour)});
  m_log += '\n';
}

void RecordingSurface::DrawWidth(Integer pixels) {
  if (m_target != nullptr) m_target->DrawWidth(pixels);
  append(m_log, "width", {Single(pixels)});
  m_log += '\n';
}

void RecordingSurface::Print(Single CurrentX, Single CurrentY, std::string_view text) {
  if (m_target != nullptr) m_target->Print(CurrentX, CurrentY, text);
  append(m_log, "print", {CurrentX, CurrentY});
  m_log += ' ' + quoted(text) + '\n';
}

Double RecordingSurface::TextWidth(std::string_view text) const {
  if (m_target != nullptr) return m_target->TextWidth(text);
  std::ptrdiff_t widest = 0;
  for_each_line(text,
                [&](std::string_view line) { widest = std::max(widest, character_count(line)); });
  return static_cast<Double>(widest) * m_font.FontSize * 20 / 2;
}

Double RecordingSurface::TextHeight(std::string_view text) const {
  if (m_target != nullptr) return m_target->TextHeight(text);
  int lines = 0;
  for_each_line(text, [&](std::string_view) { ++lines; });
  return lines * Double(m_font.FontSize) * 20 * 1.2;
}

void RecordingSurface::set_font(const Font& font) {
  if (m_target != nullptr) m_target->set_font(font);
  m_font = font;
  m_log += "font " + quoted(font.FontName) + ' ' + number_to_text(font.FontSize) +
           (font.FontBold ? " 1" : " 0") + (font.FontItalic ? " 1\n" : " 0\n");
  // Handles are sized also where nothing is drawn. Of these lines only the last are kept, which may
  // be the beginning of a redraw.
  if (m_last_redraw_only && !m_has_redraw) {
    m_log.erase(0, start_of_last_lines(m_log, kLinesBeforeClear));
  }
}

void RecordingSurface::set_ForeColor(int colour) {
  if (m_target != nullptr) m_target->set_ForeColor(colour);
  m_fore_colour = colour;
  append(m_log, "forecolor", {Single(colour)});
  m_log += '\n';
}

}  // namespace kurv
