// What can be seen of a stroke, as a path that stays near the page.
//
// A coordinate may be NaN, infinite or far away; what lies on the page is exact, in bounded time.
// Lengths are in twips. A stroke of no length becomes one of a hundredth of a twip, because not
// everything that shows a path draws a dot for nothing.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <QPainterPath>
#include <QRectF>
#include <optional>

namespace kurv {

// `page` is the page and what a pen may reach in from around it. A segment that begins where the
// path ends goes on with it.
void add_clipped_segment(QPainterPath& path, const QRectF& page, SurfacePoint from,
                         SurfacePoint to);

// As PlotSurface::Circle() and Arc(): a negative radius draws nothing, one of zero a dot.
void add_clipped_circle(QPainterPath& path, const QRectF& page, SurfacePoint centre, Single radius);
void add_clipped_arc(QPainterPath& path, const QRectF& page, SurfacePoint centre, Single radius,
                     Single start, Single end);

// The rectangle with these corners, its far edges brought near, where it touches the page. It may
// have no width or no height.
std::optional<QRectF> clipped_box(const QRectF& page, SurfacePoint a, SurfacePoint b);

}  // namespace kurv
