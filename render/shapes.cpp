#include "render/shapes.h"

#include <algorithm>
#include <cmath>

#include "host/egf_bits.h"

namespace egfrender {
namespace {

using egfsvg::as;

using Points = std::span<const _mpl_spacept_tag>;

Points pointsOf(egfsvg::PointArray points, std::int64_t count) {
  if (!points || count <= 0) return {};
  return {points.get(), static_cast<std::size_t>(count)};
}

bool isClosed(const egfsvg::EgfPolygon& polygon) {
  return egfsvg::FigureBits::get(polygon.pen.modeFlags) != egfsvg::kFigureOpen;
}

// Sub-paths of straight lines, each beginning anew but for the first, which joins what is there.
void addSubPaths(Outline& outline, const egfsvg::EgfPolygon& polygon, Points points) {
  std::size_t done = 0;
  for (std::uint32_t i = 0; i < polygon.subPathCount && done < points.size(); ++i) {
    const std::size_t size = std::min<std::size_t>(polygon.subPathSizes[i], points.size() - done);
    if (size == 0) continue;
    if (i > 0) outline.moveTo(pixelsOf(points[done]));
    addPoints(outline, points.subspan(done, size));
    if (isClosed(polygon)) outline.close();
    done += size;
  }
}

}  // namespace

void addPolygon(Outline& outline, const egfsvg::EgfPolygon& polygon) {
  const Points points = pointsOf(polygon.points, polygon.pointCount);
  if (egfsvg::CurveBits::get(polygon.pen.modeFlags) == 1) return addCurves(outline, points);
  if (polygon.subPathSizes && polygon.subPathCount > 1) {
    return addSubPaths(outline, polygon, points);
  }
  addPoints(outline, points);
  if (isClosed(polygon)) outline.close();
}

void addEllipse(Outline& outline, const egfsvg::EgfEllipse& ellipse) {
  const Point center = pixelsOf(ellipse.center);
  const Point corner = pixelsOf(ellipse.radiusPt);
  EllipseArc arc{.center = center,
                 .rx = std::abs(corner.x - center.x),
                 .ry = std::abs(corner.y - center.y),
                 .start = ellipse.startAngle,
                 .end = ellipse.endAngle,
                 .rotation = ellipse.pen.ellipseRotation};
  // A whole ellipse runs clockwise, as in SVG 1.1; its dashes show it.
  arc.backwards = arc.isWhole();
  addArc(outline, arc);
  if (arc.isWhole()) outline.close();
}

void addLine(Outline& outline, const egfsvg::EgfLine& line) {
  outline.joinTo(pixelsOf(line.startPt));
  outline.lineTo(pixelsOf(line.endPt));
}

void addPolyline(Outline& outline, const egfsvg::EgfPolyline& polyline) {
  addPoints(outline, pointsOf(polyline.points, polyline.pointCount));
}

void addArcObject(Outline& outline, const egfsvg::EgfArc& arc) {
  const Point radii = pixelsOf(arc.radiusPt);
  addArc(outline, {.center = pixelsOf(arc.center),
                   .rx = std::abs(radii.x),
                   .ry = std::abs(radii.y),
                   .start = arc.startAngle,
                   .end = arc.endAngle,
                   .backwards = egfsvg::ArcDirectionBits::get(arc.pen.arcFlags) != 0});
}

void drawPolygon(Canvas& canvas, const Page& page, const _egf_obj& object) {
  const auto& polygon = *as<egfsvg::EgfPolygon>(&object);
  Outline outline(canvas.context(), canvas.placement());
  addPolygon(outline, polygon);
  const ShapePaints paints = polygonPaints(page, polygon);
  canvas.draw(paints.fill, paints.stroke);
}

void drawEllipse(Canvas& canvas, const Page& page, const _egf_obj& object) {
  const auto& ellipse = *as<egfsvg::EgfEllipse>(&object);
  Outline outline(canvas.context(), canvas.placement());
  addEllipse(outline, ellipse);
  const ShapePaints paints = ellipsePaints(page, ellipse);
  canvas.draw(paints.fill, paints.stroke);
}

void drawLine(Canvas& canvas, const Page& page, const _egf_obj& object) {
  const auto& line = *as<egfsvg::EgfLine>(&object);
  Outline outline(canvas.context(), canvas.placement());
  addLine(outline, line);
  canvas.draw(std::nullopt, linePaint(page, line));
}

void drawPolyline(Canvas& canvas, const Page& page, const _egf_obj& object) {
  const auto& polyline = *as<egfsvg::EgfPolyline>(&object);
  Outline outline(canvas.context(), canvas.placement());
  addPolyline(outline, polyline);
  canvas.draw(std::nullopt, polylinePaint(page, polyline));
}

void drawArc(Canvas& canvas, const Page& page, const _egf_obj& object) {
  const auto& arc = *as<egfsvg::EgfArc>(&object);
  Outline outline(canvas.context(), canvas.placement());
  addArcObject(outline, arc);
  canvas.draw(std::nullopt, arcPaint(page, arc));
}

}  // namespace egfrender
