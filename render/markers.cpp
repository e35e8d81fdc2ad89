#include "render/markers.h"

#include <numbers>

#include "model/palette.h"
#include "render/curves.h"

namespace kurv {

namespace {

constexpr Single kPi = 3.1415927F;

// Draws around one centre in one colour. Offsets and lengths are in twips, y downwards.
class MarkerPen {
 public:
  MarkerPen(const GraphDocument& document, PlotSurface& surface, int pen_colour, Double x, Double y)
      : half_side(document.MarkerDrawSize),
        radius(document.MarkerSize),
        colour(pen_colour),
        m_surface(surface),
        m_x(x),
        m_y(y) {}

  static constexpr Double kSqrt2 = std::numbers::sqrt2;
  const Double half_side;  // of the square markers
  const Double radius;     // of the circular ones
  const int colour;

  void segment(Double dx1, Double dy1, Double dx2, Double dy2) const {
    m_surface.Line(at(dx1, dy1), at(dx2, dy2), colour, LineKind::kSegment);
  }
  void square() const {
    m_surface.Line(at(-half_side, -half_side), at(half_side, half_side), colour, LineKind::kBox);
  }
  void filled_square(Double half, int fill) const {
    m_surface.Line(at(-half, -half), at(half, half), fill, LineKind::kFilledBox);
  }
  void dot() const { filled_square(half_side / 3, colour); }
  void circle() const { m_surface.Circle(at(0, 0), to_single(radius), colour); }

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

  // The tip is sqrt(2) x half_side from the centre, as the two corners of the opposite side are.
  void triangle_up() const {
    triangle(-half_side, half_side, half_side, half_side, 0, -kSqrt2 * half_side);
  }
  void triangle_down() const {
    triangle(-half_side, -half_side, half_side, -half_side, 0, kSqrt2 * half_side);
  }
  void triangle_left() const {
    triangle(half_side, -half_side, half_side, half_side, -kSqrt2 * half_side, 0);
  }
  void triangle_right() const {
    triangle(-half_side, -half_side, -half_side, half_side, kSqrt2 * half_side, 0);
  }

  void upper_half() const {
    arc(0, kPi);
    horizontal(radius);
  }
  void lower_half() const {
    arc(kPi, 2 * kPi);
    horizontal(radius);
  }
  void left_half() const {
    arc(kPi / 2, 3 * kPi / 2);
    vertical(radius);
  }
  void right_half() const {
    arc(3 * kPi / 2, kPi / 2);
    vertical(radius);
  }

  // Pairs of arms of a plus, from the centre outwards.
  void horizontal_arms() const {
    segment(0, 0, -half_side, 0);
    segment(0, 0, half_side, 0);
  }
  void vertical_arms() const {
    segment(0, 0, 0, -half_side);
    segment(0, 0, 0, half_side);
  }

  // Four arms of length half_side: left, right and the two lower diagonals.
  void trestle() const {
    horizontal_arms();
    segment(0, 0, -half_side / kSqrt2, half_side / kSqrt2);
    segment(0, 0, half_side / kSqrt2, half_side / kSqrt2);
  }

 private:
  SurfacePoint at(Double dx, Double dy) const { return {to_single(m_x + dx), to_single(m_y + dy)}; }
  void triangle(Double ax, Double ay, Double bx, Double by, Double tip_x, Double tip_y) const {
    segment(ax, ay, bx, by);
    segment(bx, by, tip_x, tip_y);
    segment(tip_x, tip_y, ax, ay);
  }
  void arc(Single start, Single end) const {
    m_surface.Arc(at(0, 0), to_single(radius), colour, start, end);
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
    case 6: pen.filled_square(pen.half_side, pen.colour); break;
    case 7: case 23: pen.square(); pen.plus(pen.half_side); break;
    case 8: case 24: pen.circle(); pen.plus(pen.radius); break;
    case 9: case 25: pen.square(); pen.cross(pen.half_side); break;
    case 10: case 26: pen.circle(); pen.cross(pen.radius / pen.kSqrt2); break;
    case 11: case 27: pen.plus(pen.half_side); break;
    case 12: pen.triangle_left(); break;
    case 13: case 28: pen.cross(pen.half_side); break;
    case 14: pen.triangle_right(); break;
    case 15: case 19: pen.upper_half(); break;
    case 16: case 20: pen.lower_half(); break;
    case 17: case 21: pen.left_half(); break;
    case 18: case 22: pen.right_half(); break;
    case 29: case 30: pen.plus(pen.half_side); pen.cross(pen.half_side); break;
    case 31: pen.trestle(); break;
    case 32: pen.horizontal(pen.half_side); pen.rising(pen.half_side); break;
    case 33: pen.horizontal(pen.half_side); pen.falling(pen.half_side); break;
    case 34: pen.vertical(pen.half_side); pen.rising(pen.half_side); break;
    case 35: pen.vertical(pen.half_side); pen.falling(pen.half_side); break;
    case 36: pen.horizontal_arms(); pen.rising(pen.half_side); break;
    case 37: pen.horizontal_arms(); pen.falling(pen.half_side); break;
    case 38: pen.vertical_arms(); pen.rising(pen.half_side); break;
    case 39: pen.vertical_arms(); pen.falling(pen.half_side); break;
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
  pen.filled_square(pen.half_side, kWhite);
  if (lineSample) {
    surface.DrawWidth(document.CurvesWidth);
    pen.horizontal(pen.half_side);
    surface.DrawWidth(1);
    return;
  }
  const int kind = number % kMarkerKinds;
  paint_outline(pen, kind);
  if (has_dot(kind)) pen.dot();
}

}  // namespace kurv
