// The page of a vector document: the interface of SvgPage and PdfPage.
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
  kRound,   // round caps and joins
  kSquare,  // square caps and mitre joins
  kCrisp,   // the same, snapped to whole pixels by the viewer
};

// Lengths are in twips, all coordinates finite and near the page; colours are palette indices.
class VectorPage {
 public:
  virtual ~VectorPage() = default;
  virtual void stroke(const QPainterPath& path, int colour, double pen_width, Style style) = 0;
  virtual void fill(const QRectF& rect, int colour, Style style) = 0;
  virtual void print(const PlacedPiece& piece, const TextLayout& layout, int colour) = 0;
  // Returns the bytes of the document. Nothing may be drawn afterwards.
  virtual QByteArray finish() = 0;
};

struct PageSetup {
  QString title;
  QSizeF twips;
  QSize logical_pixels;
};

// Both have a white background.
std::unique_ptr<VectorPage> make_svg_page(const PageSetup& setup);
std::unique_ptr<VectorPage> make_pdf_page(const PageSetup& setup);

}  // namespace kurv
