// The picture for hosts: as pixels, as a vector document, and the mapping between pixels and data.
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "control/control_state.h"
#include "control/resized_picture.h"
#include "pixels/resolution.h"
#include "qt/surface/image_store.h"
#include "qt/surface/qt_text_painter.h"
#include "qt/widget/kurv_graph_state.h"
#include "render/mapping.h"

namespace kurv {

namespace {

constexpr double kLogicalDotsPerInch = 96;
constexpr double kMetresPerInch = 0.0254;
constexpr double kMostDotsPerMetre = 1e9;

// A picture whose size in pixels is given.
class ExportPicture final : public PixelPicture {
 public:
  ExportPicture(QSizeF logical_size, double ratio)
      : PixelPicture(std::make_unique<ImageStore>(), std::make_shared<QtTextPainter>(),
                     logical_size.width(), logical_size.height(), ratio) {}

  QImage image() const { return static_cast<const ImageStore&>(store()).image(); }
};

// Whether a picture of this many pixels would have them. Asked before it allocates its memory: it
// has fewer of too many pixels, and more at a resolution that is too low.
bool is_possible(QSize pixels, double ratio) {
  if (pixels.isEmpty() || !(ratio > 0) || !std::isfinite(ratio)) return false;
  const QSizeF logical = QSizeF(pixels) / ratio;
  const Resolution resolution = resolution_of(logical.width(), logical.height(), ratio);
  return QSize(resolution.width, resolution.height) == pixels;
}

std::optional<QPointF> finite(double x, double y) {
  if (!std::isfinite(x) || !std::isfinite(y)) return std::nullopt;
  return QPointF(x, y);
}

bool can_be_mapped(const GraphDocument& document, const PlotRect& plot) {
  return document.GraphValid && document.xmax != document.xmin && document.ymax != document.ymin &&
         plot.PlotWidth != 0 && plot.PlotHeight != 0;
}

}  // namespace

QImage KurvGraph::image() const {
  return m_state->picture.image();
}

QRect KurvGraph::plot_rect() const {
  return m_state->plot_rect();
}

QByteArray KurvGraph::svg() const {
  return m_state->document_in(VectorFormat::kSvg);
}

QByteArray KurvGraph::pdf() const {
  return m_state->document_in(VectorFormat::kPdf);
}

QByteArray KurvGraph::State::document_in(VectorFormat format) const {
  VectorPicture document(format, shown_text(graph.Title()), inner, ratio);
  graph.draw_on(document);
  return document.take_document();
}

QImage KurvGraph::picture(QSize pixels, double dots_per_inch) const {
  const double ratio = dots_per_inch / kLogicalDotsPerInch;
  if (!is_possible(pixels, ratio)) return {};
  try {
    ExportPicture picture(QSizeF(pixels) / ratio, ratio);
    draw_resized_on(m_state->graph.state(), picture);
    QImage image = picture.image();
    const int dots_per_metre =
        static_cast<int>(std::lround(std::min(dots_per_inch / kMetresPerInch, kMostDotsPerMetre)));
    image.setDotsPerMeterX(dots_per_metre);
    image.setDotsPerMeterY(dots_per_metre);
    return image;
  } catch (const std::bad_alloc&) {
    return {};
  }
}

QByteArray KurvGraph::document(VectorFormat format, QSize logical_size) const {
  VectorPicture document(format, shown_text(m_state->graph.Title()), logical_size);
  draw_resized_on(m_state->graph.state(), document);
  return document.take_document();
}

std::optional<QPointF> KurvGraph::data_at(QPointF pixel) const {
  const GraphDocument& document = m_state->graph.state().document;
  const PlotRect& plot = m_state->graph.state().layout.plot;
  if (!can_be_mapped(document, plot)) return std::nullopt;
  const QPointF twips = (pixel - plot_rect().topLeft()) * m_state->twips_per_logical_pixel();
  const double across = (twips.x() - plot.PlotLeft) / plot.PlotWidth;
  const double upwards = (plot.PlotTop + plot.PlotHeight - twips.y()) / plot.PlotHeight;
  return finite(document.xmin + across * (document.xmax - document.xmin),
                document.ymin + upwards * (document.ymax - document.ymin));
}

std::optional<QPointF> KurvGraph::pixel_of(double x, double y) const {
  const GraphDocument& document = m_state->graph.state().document;
  const PlotRect& plot = m_state->graph.state().layout.plot;
  if (!can_be_mapped(document, plot)) return std::nullopt;
  const Mapping mapping(document, plot);
  const double scale = m_state->twips_per_logical_pixel();
  const QPoint origin = plot_rect().topLeft();
  return finite(origin.x() + mapping.SurfX(x) / scale, origin.y() + mapping.SurfY(y) / scale);
}

}  // namespace kurv
