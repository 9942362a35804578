// One walk over the commands of a path: resolves relative forms, reflections, quadratics and arcs,
// and hands plain moves, lines, cubic curves and arcs to a builder. Points are in space units
// (1/4096 pixel), in the path's own user space, before any transform.
#pragma once

#include <cmath>
#include <concepts>

#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/svg_adapterreader.h"
#include "geometry/elliptic_arc.h"
#include "host/settings.h"
#include "model/elements.h"
#include "model/path_commands.h"

namespace egfsvg {

/// The current point and the three that a cubic curve is given by.
struct CubicPoints {
  PlanePoint from, first, second, to;
};

/// What a walk builds. Every call returns false when it ran out of memory; the walk then ends. The
/// place that a call starts from is the origin, or where the call before it led; a close leads to
/// the first point of the sub-path, which may be the same place.
template <class Sink>
concept PathSink = requires(Sink sink, const _svg_singlepath& subPath, PlanePoint point,
                            const CubicPoints& cubic, const ArcEnds& ends, const ArcCenter& arc) {
  { sink.beginSubPath(subPath) } -> std::same_as<bool>;
  { sink.moveTo(point) } -> std::same_as<bool>;
  { sink.lineTo(point, point) } -> std::same_as<bool>;
  { sink.curveTo(cubic) } -> std::same_as<bool>;
  { sink.arcTo(ends, arc) } -> std::same_as<bool>;
  { sink.closeTo(point, point) } -> std::same_as<bool>;
  { sink.endSubPath(subPath) } -> std::same_as<bool>;
};

/// The two inner control points of the cubic that stands for a quadratic. With `exact` it is the
/// degree elevation. Kept: without, the first lies one third from the control to the end and the
/// second is the control itself.
void raiseQuadratic(PlanePoint current, PlanePoint control, PlanePoint end, bool exact,
                    PlanePoint* first, PlanePoint* second);

template <PathSink Sink>
class PathWalk {
 public:
  PathWalk(CAdapterReader& adapter, Sink& sink) : adapter_(adapter), sink_(sink), scale_(adapter) {}

  /// True when the whole path went to the sink.
  bool run(const _svg_path& path) {
    for (std::int32_t i = 0; i < path.pathCount; ++i) {
      if (!runSubPath(path.paths[i])) return false;
    }
    return true;
  }

 private:
  /// What the coordinates of a command are counted from.
  enum class From { kOrigin, kCurrent };
  /// The command before, as far as a smooth one asks.
  enum class Before { kNothing, kCubic, kQuadratic, kOther };

  bool runSubPath(const _svg_singlepath& subPath);
  bool step(const _svg_path_data& command);
  bool moveTo(const PlanePoint& to);
  [[gnu::noinline]] bool lineTo(const PlanePoint& to) { return straightTo(to); }
  bool straightTo(const PlanePoint& to);
  bool cubic(const CubicPoints& points);
  bool quadratic(PlanePoint control, PlanePoint end);
  bool curve(const CubicPoints& points);
  bool arc(const _svg_path_data& command, PlanePoint end);
  bool close();
  PlanePoint smoothCubicControl() const;
  PlanePoint smoothQuadraticControl() const;
  PlanePoint reflected(PlanePoint control) const {
    return {2.0 * current_.x - control.x, 2.0 * current_.y - control.y};
  }

  template <From kFrom>
  double along(const _svg_value& value, double current) const {
    const double given = scale_.spaceUnits(value);
    return kFrom == From::kCurrent ? given + current : given;
  }
  template <From kFrom>
  [[gnu::always_inline]] PlanePoint point(const _svg_value& x, const _svg_value& y) const {
    const PlanePoint given = scale_.place(x, y);
    if constexpr (kFrom == From::kOrigin) return given;
    return {given.x + current_.x, given.y + current_.y};
  }

  CAdapterReader& adapter_;
  Sink& sink_;
  PixelScale scale_;
  Before before_ = Before::kNothing;
  PlanePoint current_{0.0, 0.0};
  PlanePoint first_{0.0, 0.0};        // of the sub-path
  PlanePoint lastControl_{0.0, 0.0};  // of the curve before: what a smooth command reflects
};

template <PathSink Sink>
bool PathWalk<Sink>::runSubPath(const _svg_singlepath& subPath) {
  before_ = Before::kNothing;
  first_ = current_;
  if (!sink_.beginSubPath(subPath)) return false;
  for (std::int32_t i = 0; i < subPath.dataCount; ++i) {
    if (!step(subPath.data[i])) return false;
  }
  return sink_.endSubPath(subPath);
}

/// A relative move at the very start is absolute, since the walk starts at the origin.
template <PathSink Sink>
bool PathWalk<Sink>::step(const _svg_path_data& d) {
  constexpr From kAbs = From::kOrigin;
  constexpr From kRel = From::kCurrent;
  constexpr double kPlus = 0.0;  // a lone zero loses its sign
  switch (d.command) {
    case kPathClose:
      return close();
    case kPathMoveAbs:
      return moveTo(point<kAbs>(d.arg0, d.arg1));
    case kPathMoveRel:
      return moveTo(point<kRel>(d.arg0, d.arg1));
    case kPathLineAbs:
      return straightTo(point<kAbs>(d.arg0, d.arg1));
    case kPathLineRel:
      return straightTo(point<kRel>(d.arg0, d.arg1));
    case kPathHorizontalAbs:
      return lineTo({along<kAbs>(d.arg0, 0.0) + kPlus, current_.y});
    case kPathHorizontalRel:
      return lineTo({along<kRel>(d.arg0, current_.x), current_.y});
    case kPathVerticalAbs:
      return lineTo({current_.x, along<kAbs>(d.arg0, 0.0) + kPlus});
    case kPathVerticalRel:
      return lineTo({current_.x, along<kRel>(d.arg0, current_.y)});
    case kPathCubicAbs:
      return cubic({current_, point<kAbs>(d.arg0, d.arg1), point<kAbs>(d.arg2, d.arg3),
                    point<kAbs>(d.arg4, d.arg5)});
    case kPathCubicRel:
      return cubic({current_, point<kRel>(d.arg0, d.arg1), point<kRel>(d.arg2, d.arg3),
                    point<kRel>(d.arg4, d.arg5)});
    case kPathSmoothCubicAbs:
      return cubic({current_, smoothCubicControl(), point<kAbs>(d.arg0, d.arg1),
                    point<kAbs>(d.arg2, d.arg3)});
    case kPathSmoothCubicRel:
      return cubic({current_, smoothCubicControl(), point<kRel>(d.arg0, d.arg1),
                    point<kRel>(d.arg2, d.arg3)});
    case kPathQuadAbs:
      return quadratic(point<kAbs>(d.arg0, d.arg1), point<kAbs>(d.arg2, d.arg3));
    case kPathQuadRel:
      return quadratic(point<kRel>(d.arg0, d.arg1), point<kRel>(d.arg2, d.arg3));
    case kPathSmoothQuadAbs:
      return quadratic(smoothQuadraticControl(), point<kAbs>(d.arg0, d.arg1));
    case kPathSmoothQuadRel:
      return quadratic(smoothQuadraticControl(), point<kRel>(d.arg0, d.arg1));
    case kPathArcAbs:
      return arc(d, point<kAbs>(d.arg0, d.arg1));
    case kPathArcRel:
      return arc(d, point<kRel>(d.arg0, d.arg1));
    default:
      return true;  // no command
  }
}

template <PathSink Sink>
bool PathWalk<Sink>::moveTo(const PlanePoint& to) {
  before_ = Before::kOther;
  first_ = current_ = to;
  return sink_.moveTo(to);
}

template <PathSink Sink>
[[gnu::always_inline]] inline bool PathWalk<Sink>::straightTo(const PlanePoint& to) {
  before_ = Before::kOther;
  const PlanePoint from = current_;
  current_ = to;
  return sink_.lineTo(from, to);
}

template <PathSink Sink>
bool PathWalk<Sink>::cubic(const CubicPoints& points) {
  before_ = Before::kCubic;
  lastControl_ = points.second;
  return curve(points);
}

template <PathSink Sink>
bool PathWalk<Sink>::quadratic(PlanePoint control, PlanePoint end) {
  before_ = Before::kQuadratic;
  lastControl_ = control;
  CubicPoints points{current_, {}, {}, end};
  raiseQuadratic(current_, control, end, settingOn(Setting::kTrueCurves), &points.first,
                 &points.second);
  return curve(points);
}

template <PathSink Sink>
bool PathWalk<Sink>::curve(const CubicPoints& points) {
  current_ = points.to;
  return sink_.curveTo(points);
}

template <PathSink Sink>
PlanePoint PathWalk<Sink>::smoothCubicControl() const {
  return before_ == Before::kCubic ? reflected(lastControl_) : current_;
}

/// Kept: after any other command the control reflects the origin, and as the first command of a
/// sub-path it is the origin itself.
template <PathSink Sink>
PlanePoint PathWalk<Sink>::smoothQuadraticControl() const {
  constexpr PlanePoint kOrigin{0.0, 0.0};
  if (before_ == Before::kNothing) return kOrigin;
  return reflected(before_ == Before::kQuadratic ? lastControl_ : kOrigin);
}

template <PathSink Sink>
bool PathWalk<Sink>::arc(const _svg_path_data& d, PlanePoint end) {
  constexpr double kNoRadius = 1e-9 * kSpaceUnits;  // an arc with such a radius is a straight line
  const ArcEnds ends{current_.x,
                     current_.y,
                     end.x,
                     end.y,
                     std::fabs(scale_.spaceUnits(d.arg2)),
                     std::fabs(scale_.spaceUnits(d.arg3)),
                     adapter_.SVGAngleToRAD({d.arg4.unit, d.arg4.value}),
                     d.arg4.axis != 0,
                     d.arg5.unit != 0};
  if (ends.rx < kNoRadius || ends.ry < kNoRadius) return lineTo(end);
  before_ = Before::kOther;
  ArcCenter center{};
  if (!arcFromEnds(ends, &center)) return true;
  current_ = end;
  return sink_.arcTo(ends, center);
}

/// Commands that follow go on from the sub-path's first point.
template <PathSink Sink>
bool PathWalk<Sink>::close() {
  before_ = Before::kOther;
  const PlanePoint from = current_;
  current_ = first_;
  return sink_.closeTo(from, first_);
}

}  // namespace egfsvg
