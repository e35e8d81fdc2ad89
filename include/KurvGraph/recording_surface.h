/// @file
/// A drawing surface that logs every call as one line of text.
///
///     cls
///     width 2
///     forecolor 3
///     font "Liberation Sans" 8 0 0
///     segment 800 470 8000 470 8          box, fill: likewise
///     circle 1200 900 40 1
///     arc 1200 900 40 1 0 3.1415927
///     point 1200 900 0
///     print 800 520 "0.00"
///
/// Texts are quoted as in JSON; numbers are in the shortest form that reads back to the same single
/// precision value. Rules are logged as segments: snapping to pixels is up to a surface with
/// pixels. Without a target surface, texts are measured by the font size alone, so that a log
/// depends on no installed font: a character is half as wide as the font is high, and a line is 1.2
/// times as high.
#pragma once

#include <string>

#include <KurvGraph/plot_surface.h>

namespace kurv {

/// A drawing surface that logs every call as one line of text.
///
/// @copydetails recording_surface.h
class KURV_EXPORT RecordingSurface final : public PlotSurface {
 public:
  /// A surface of that size in twips.
  RecordingSurface(Double width, Double height) : m_width(width), m_height(height) {}
  /// Forwards all calls to `target` as well, which also measures the texts. It must outlive this
  /// surface.
  RecordingSurface(Double width, Double height, PlotSurface& target)
      : m_width(width), m_height(height), m_target(&target), m_font(target.font()) {}

  /// Sets the size in twips.
  void set_size(Double width, Double height) {
    m_width = width;
    m_height = height;
  }

  /// All lines since the last clear_log(), each ended by a line feed.
  const std::string& log() const { return m_log; }
  /// Empties the log.
  void clear_log() { m_log.clear(); }
  /// Whether the surface has ever been cleared, which every redraw does.
  bool has_redraw() const { return m_has_redraw; }
  /// After this call, each redraw drops what was logged before it, and the log stays empty before
  /// the first one.
  void keep_last_redraw_only() { m_last_redraw_only = true; }

  Double ScaleWidth() const override { return m_width; }
  Double ScaleHeight() const override { return m_height; }
  void Cls() override;
  void Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) override;
  void Circle(SurfacePoint centre, Single radius, int colour) override;
  void Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) override;
  void PSet(SurfacePoint at, int colour) override;
  void DrawWidth(Integer pixels) override;
  void Print(Single CurrentX, Single CurrentY, std::string_view text) override;
  Double TextWidth(std::string_view text) const override;
  Double TextHeight(std::string_view text) const override;
  String bitmap() const override { return m_target != nullptr ? m_target->bitmap() : String(); }
  const Font& font() const override { return m_font; }
  void set_font(const Font& font) override;
  int ForeColor() const override { return m_fore_colour; }
  void set_ForeColor(int colour) override;

 private:
  Double m_width;
  Double m_height;
  PlotSurface* m_target = nullptr;
  bool m_last_redraw_only = false;
  bool m_has_redraw = false;
  Font m_font;
  int m_fore_colour = 0;
  std::string m_log;
};

}  // namespace kurv
