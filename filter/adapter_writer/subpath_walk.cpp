#include "adapter_writer/subpath_walk.h"

#include <cmath>
#include <cstdlib>

#include "adapter_writer/line_ends.h"
#include "host/egf.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"
#include "host/objects.h"
#include "model/path_commands.h"

namespace egfsvg {
namespace {

constexpr double kShortestPart = 0.0001;  // of a line child, in user units
constexpr std::int32_t kCurvePoints = 3;

/// Kept: the direction bits are a number from -2 to 1, of which the absolute value is written.
std::int32_t sweepOf(unsigned direction) {
  constexpr unsigned kSignBit = 2;
  constexpr int kModulus = 4;
  const int value = static_cast<int>(direction);
  return std::abs((direction & kSignBit) != 0 ? value - kModulus : value);
}

/// The sizes of a polygon's subpaths, never beyond its points.
class SubPathSizes {
 public:
  explicit SubPathSizes(const EgfPolygon& polygon)
      : sizes_(polygon.subPathSizes),
        split_(polygon.subPathCount != 0 && sizes_),
        count_(split_ ? polygon.subPathCount : 1),
        left_(std::max<std::int32_t>(polygon.pointCount, 0)) {}
  std::uint32_t count() const { return count_; }
  std::int32_t take(std::uint32_t index) {
    const std::int32_t size = split_ ? std::min<std::int32_t>(sizes_[index], left_) : left_;
    left_ -= size;
    return size;
  }

 private:
  const ref32<std::uint16_t> sizes_;
  const bool split_;
  const std::uint32_t count_;
  std::int32_t left_;
};

}  // namespace

struct SubPathWalk::ChildRow {
  int objClass;
  int (SubPathWalk::*add)(_egf_obj* child);
};

const SubPathWalk::ChildRow SubPathWalk::kChildren[] = {
    {kClassArc, &SubPathWalk::addArc},         {kClassLine, &SubPathWalk::addLine},
    {kClassEllipse, &SubPathWalk::addEllipse}, {kClassPolyline, &SubPathWalk::addPolyline},
    {kClassPolygon, &SubPathWalk::addPolygon}, {kClassPath, &SubPathWalk::addPath},
};

int SubPathWalk::run(EgfPath& path) {
  if (*paths_ != nullptr && path.joinFlag != 0) {
    joinLast();
  } else if (openSubPath() != 0) {
    return -1;
  }
  _egf_obj* child = nullptr;
  while (EEL_GetNextObject(headOf(&path), &child, kWalkMask) != nullptr) {
    if (add(child) != 0) return -1;
  }
  if (path.pathKind == kPathClosedFigure && isOpen()) close();
  return 0;
}

/// Children of other classes are passed over.
int SubPathWalk::add(_egf_obj* child) {
  const int objClass = EGF_GetObjectClass(child);
  for (const ChildRow& row : kChildren) {
    if (row.objClass == objClass) return (this->*row.add)(child);
  }
  return 0;
}

int SubPathWalk::openSubPath() {
  _svg_singlepath* added = nullptr;
  if (writer_._createSubPath(paths_, &added, count_) != 0) return -1;
  place_ = *count_ - 1;
  return 0;
}

/// Goes on where the last subpath ends.
void SubPathWalk::joinLast() {
  place_ = *count_ - 1;
  const _svg_singlepath& last = subPath();
  if (last.dataCount == 0) return;
  start_ = {last.data[0].arg0, last.data[0].arg1};
  const _svg_path_data& segment = last.data[last.dataCount - 1];
  switch (segment.command) {
    case kPathClose:
      current_ = start_;
      break;
    case kPathCubicAbs:
      current_ = {segment.arg4, segment.arg5};
      break;
    default:
      current_ = {segment.arg0, segment.arg1};
      break;
  }
}

/// There is something to close.
bool SubPathWalk::isOpen() {
  const _svg_singlepath& sub = subPath();
  return sub.dataCount > 0 && sub.data[sub.dataCount - 1].command != kPathClose;
}

_svg_point SubPathWalk::converted(_mpl_spacept_tag point) const {
  return {pixels(scale_.x(point.x)), pixels(scale_.y(point.y))};
}

void SubPathWalk::moveTo(const _svg_point& target) {
  writer_._moveTo(&current_, &start_, &target, &subPath());
}

void SubPathWalk::close() {
  appendSegment(writer_, subPath(), kPathClose);
  current_ = start_;
}

void SubPathWalk::arcTo(const ArcEndPoints& ends, _mpl_spacept_tag radii, std::int32_t large,
                        std::int32_t sweep) {
  moveTo(ends.first);
  current_ = converted(ends.last);
  _svg_path_data* arc = appendSegment(writer_, subPath(), kPathArcAbs);
  if (arc == nullptr) return;
  arc->arg0 = current_.x;
  arc->arg1 = current_.y;
  arc->arg2 = pixels(scale_.x(radii.x));
  arc->arg3 = pixels(scale_.y(radii.y));
  arc->arg4.axis = large;
  arc->arg5.unit = sweep;
}

void SubPathWalk::curveTo(const _mpl_spacept_tag* controls) {
  const _svg_point first = converted(controls[0]);
  const _svg_point second = converted(controls[1]);
  current_ = converted(controls[2]);
  _svg_path_data* curve = appendSegment(writer_, subPath(), kPathCubicAbs);
  if (curve == nullptr) return;
  *curve = {kPathCubicAbs, first.x, first.y, second.x, second.y, current_.x, current_.y};
}

/// Bits that are set turn it round.
int SubPathWalk::addArc(_egf_obj* child) {
  const auto& arc = *as<EgfArc>(child);
  const _mpl_spacept_tag radii = arc.radiusPt;
  const ArcEndPoints ends =
      polarArcEnds(arc.center, radii.x, radii.y, arc.startAngle, arc.endAngle);
  const unsigned direction = ArcDirectionBits::get(arc.pen.arcFlags);
  arcTo(direction == 0 ? ends : ArcEndPoints{ends.last, ends.first}, radii,
        writtenLarge(arc.startAngle, arc.endAngle) ? 1 : 0, sweepOf(direction));
  return 0;
}

int SubPathWalk::addEllipse(_egf_obj* child) {
  const auto& ellipse = *as<EgfEllipse>(child);
  const _mpl_spacept_tag radii{std::fabs(ellipse.radiusPt.x - ellipse.center.x),
                               std::fabs(ellipse.radiusPt.y - ellipse.center.y)};
  arcTo(polarArcEnds(ellipse.center, radii.x, radii.y, ellipse.startAngle, ellipse.endAngle), radii,
        writtenLarge(ellipse.startAngle, ellipse.endAngle) ? 1 : 0, 0);
  return 0;
}

int SubPathWalk::addLine(_egf_obj* child) {
  const auto& line = *as<EgfLine>(child);
  const _svg_point from = converted(line.startPt);
  const _svg_point to = converted(line.endPt);
  const bool visible = std::fabs(to.x.value - from.x.value) >= kShortestPart ||
                       std::fabs(to.y.value - from.y.value) >= kShortestPart;
  if (!visible) return 0;
  moveTo(from);
  moveTo(to);
  return 0;
}

int SubPathWalk::addPolyline(_egf_obj* child) {
  const auto& polyline = *as<EgfPolyline>(child);
  const PointArray points = polyline.points;
  const std::int32_t count = points ? pointCount(polyline.pointCount) : 0;
  for (std::int32_t i = 0; i < count; ++i) moveTo(points[static_cast<std::size_t>(i)]);
  return 0;
}

/// A chain of curves, or subpaths of straight sides, each closed when the figure is.
int SubPathWalk::addPolygon(_egf_obj* child) {
  const auto& polygon = *as<EgfPolygon>(child);
  const _mpl_spacept_tag* points = PointArray(polygon.points).get();
  if (points == nullptr || polygon.pointCount < 1) return 0;
  if (CurveBits::get(polygon.pen.modeFlags) == 1) {
    moveTo(points[0]);
    const std::int32_t curves = (polygon.pointCount - 1) / kCurvePoints;
    for (std::int32_t i = 0; i < curves; ++i) curveTo(points + 1 + kCurvePoints * i);
    return 0;
  }
  const bool closed = FigureBits::get(polygon.pen.modeFlags) == kFigureClosed;
  SubPathSizes sizes(polygon);
  for (std::uint32_t i = 0; i < sizes.count(); ++i) {
    if (i > 0 && openSubPath() != 0) return -1;
    const std::int32_t size = sizes.take(i);
    for (std::int32_t j = 0; j < size; ++j) moveTo(*points++);
    if (closed && size > 0) close();
  }
  return 0;
}

int SubPathWalk::addPath(_egf_obj* child) {
  OpenObject open(writer_.state);
  if (!open.fits()) return 0;
  SubPathWalk nested(writer_, paths_, count_);
  if (nested.run(*as<EgfPath>(child)) != 0) return -1;
  if (nested.place_ != place_) return 0;
  current_ = nested.current_;
  start_ = nested.start_;
  return 0;
}

}  // namespace egfsvg
