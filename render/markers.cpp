#include "render/markers.h"

#include <cmath>

#include "model/palette.h"
#include "render/curves.h"

namespace kurv {

namespace {

constexpr Single kPi = 3.1415927F;

// Draws around one centre in one colour. Offsets and lengths are in twips, y downwards.
class MarkerPen {
 public:
  MarkerPen(const GraphDocument& document, PlotSurface& surface, int pen_colour, Double x, Double y)
      : s(document.MarkerDrawSize),
        r(document.MarkerSize),
        colour(pen_colour),
        m_surface(surface),
        m_x(x),
        m_y(y) {}

  const Double s;  // half the side of the square markers
  const Double r;  // radius of the circular ones
  const Double q = std::sqrt(2.0);
  const int colour;

  void segment(Double dx1, Double dy1, Double dx2, Double dy2) const {
    m_surface.Line(at(dx1, dy1), at(dx2, dy2), colour, LineKind::kSegment);
  }
  void square() const { m_surface.Line(at(-s, -s), at(s, s), colour, LineKind::kBox); }
  void filled_square(Double half_side, int fill) const {
    m_surface.Line(at(-half_side, -half_side), at(half_side, half_side), fill,
                   LineKind::kFilledBox);
  }
  void dot() const { filled_square(s / 3, colour); }
  void circle() const { m_surface.Circle(at(0, 0), to_single(r), colour); }

  void horizontal(Double half) const { segment(-half, 0, half, 0); }
  void vertical(Double half) const { segment(0, -half, 0, half); }
  void rising(Double half) const { segment(-half, half, half, -half); }
  void falling(Double half) const { segment(-half, -half, half, half); }
  void plus(Double half) const {
    horizontal(half);
    vertical(half);
  }
  void cross(Double half) const {
    falling(half);
    rising(half);
  }

  // The tip is q x s from the centre, as the two corners of the opposite side are.
  void triangle_up() const { triangle(-s, s, s, s, 0, -q * s); }
  void triangle_down() const { triangle(-s, -s, s, -s, 0, q * s); }
  void triangle_left() const { triangle(s, -s, s, s, -q * s, 0); }
  void triangle_right() const { triangle(-s, -s, -s, s, q * s, 0); }

  void upper_half() const {
    arc(0, kPi);
    horizontal(r);
  }
  void lower_half() const {
    arc(kPi, 2 * kPi);
    horizontal(r);
  }
  void left_half() const {
    arc(kPi / 2, 3 * kPi / 2);
    vertical(r);
  }
  void right_half() const {
    arc(3 * kPi / 2, kPi / 2);
    vertical(r);
  }

  // Pairs of arms of a plus, from the centre outwards.
  void side_arms() const {
    segment(0, 0, -s, 0);
    segment(0, 0, s, 0);
  }
  void upright_arms() const {
    segment(0, 0, 0, -s);
    segment(0, 0, 0, s);
  }

  // Four arms of length s: left, right and the two lower diagonals.
  void trestle() const {
    side_arms();
    segment(0, 0, -s / q, s / q);
    segment(0, 0, s / q, s / q);
  }

 private:
  SurfacePoint at(Double dx, Double dy) const { return {to_single(m_x + dx), to_single(m_y + dy)}; }
  void triangle(Double ax, Double ay, Double bx, Double by, Double tip_x, Double tip_y) const {
    segment(ax, ay, bx, by);
    segment(bx, by, tip_x, tip_y);
    segment(tip_x, tip_y, ax, ay);
  }
  void arc(Single start, Single end) const {
    m_surface.Arc(at(0, 0), to_single(r), colour, start, end);
  }

  PlotSurface& m_surface;
  Double m_x;
  Double m_y;
};

// One line a kind; a dot is added to many of them by paint_kind().
void paint_outline(const MarkerPen& pen, int kind) {
  // clang-format off
  switch (kind) {
    case 0: pen.triangle_up(); break;
    case 1: case 4: pen.circle(); break;
    case 2: case 3: pen.square(); break;
    case 5: pen.triangle_down(); break;
    case 6: pen.filled_square(pen.s, pen.colour); break;
    case 7: case 23: pen.square(); pen.plus(pen.s); break;
    case 8: case 24: pen.circle(); pen.plus(pen.r); break;
    case 9: case 25: pen.square(); pen.cross(pen.s); break;
    case 10: case 26: pen.circle(); pen.cross(pen.r / pen.q); break;
    case 11: case 27: pen.plus(pen.s); break;
    case 12: pen.triangle_left(); break;
    case 13: case 28: pen.cross(pen.s); break;
    case 14: pen.triangle_right(); break;
    case 15: case 19: pen.upper_half(); break;
    case 16: case 20: pen.lower_half(); break;
    case 17: case 21: pen.left_half(); break;
    case 18: case 22: pen.right_half(); break;
    case 29: case 30: pen.plus(pen.s); pen.cross(pen.s); break;
    case 31: pen.trestle(); break;
    case 32: pen.horizontal(pen.s); pen.rising(pen.s); break;
    case 33: pen.horizontal(pen.s); pen.falling(pen.s); break;
    case 34: pen.vertical(pen.s); pen.rising(pen.s); break;
    case 35: pen.vertical(pen.s); pen.falling(pen.s); break;
    case 36: pen.side_arms(); pen.rising(pen.s); break;
    case 37: pen.side_arms(); pen.falling(pen.s); break;
    case 38: pen.upright_arms(); pen.rising(pen.s); break;
    case 39: pen.upright_arms(); pen.falling(pen.s); break;
    default: break;
  }
  // clang-format on
}

constexpr bool has_dot(int kind) {
  return kind == 3 || kind == 4 || (kind >= 19 && kind <= 29) || (kind >= 36 && kind <= 39);
}

}  // namespace

void DrawMarker(const GraphDocument& document, PlotSurface& surface, int number, Double x, Double y,
                bool lineSample) {
  const int colour = curve_colour(number);
  const MarkerPen pen(document, surface, colour, x, y);
  // The white square hides the lines beneath, so that every marker reads well.
  pen.filled_square(pen.s, kWhite);
  if (lineSample) {
    surface.DrawWidth(document.CurvesWidth);
    pen.horizontal(pen.s);
    surface.DrawWidth(1);
    return;
  }
  const int kind = number % kMarkerKinds;
  paint_outline(pen, kind);
  if (has_dot(kind)) pen.dot();
}

}  // namespace kurv
