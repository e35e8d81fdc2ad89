// The page of a vector document: what an SVG and a PDF have in common.
#pragma once

#include <QByteArray>
#include <QPainterPath>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <memory>

#include "qt/surface/text_layout.h"

namespace kurv {

enum class Style {
  kRound,   // round ends and joints
  kSquare,  // square ends and mitred joints
  kCrisp,   // the same, put on whole pixels by whoever shows the page
};

// Lengths are in twips, all coordinates finite and near the page; colours are palette indices.
class VectorPage {
 public:
  virtual ~VectorPage() = default;
  virtual void stroke(const QPainterPath& path, int colour, double pen_width, Style style) = 0;
  virtual void fill(const QRectF& rect, int colour, Style style) = 0;
  virtual void print(const PlacedPiece& piece, const TextLayout& layout, int colour) = 0;
  // The bytes of the document. Nothing can be drawn afterwards.
  virtual QByteArray finish() = 0;
};

struct PageSetup {
  QString title;
  QSizeF twips;
  QSize logical_pixels;
};

// Both are white.
std::unique_ptr<VectorPage> make_svg_page(const PageSetup& setup);
std::unique_ptr<VectorPage> make_pdf_page(const PageSetup& setup);

}  // namespace kurv
