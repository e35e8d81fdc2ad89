// Clips strokes to a path that stays near the page.
//
// A coordinate may be NaN, infinite or far away; the part on the page is accurate, in bounded time.
// Lengths are in twips. A stroke of length zero gets a length of a hundredth of a twip, because
// some viewers draw no dot for a subpath of length zero.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <QPainterPath>
#include <QRectF>
#include <optional>

namespace kurv {

// `page` includes the margin from which a pen may reach in. A segment that begins where the path
// ends continues the subpath.
void add_clipped_segment(QPainterPath& path, const QRectF& page, SurfacePoint from,
                         SurfacePoint to);

// As PlotSurface::Circle() and Arc(): a negative radius draws nothing, one of zero a dot.
void add_clipped_circle(QPainterPath& path, const QRectF& page, SurfacePoint centre, Single radius);
void add_clipped_arc(QPainterPath& path, const QRectF& page, SurfacePoint centre, Single radius,
                     Single start, Single end);

// The rectangle with these corners, clipped to the page; nothing where it misses it. Its width or
// height may be zero.
std::optional<QRectF> clipped_box(const QRectF& page, SurfacePoint a, SurfacePoint b);

}  // namespace kurv
