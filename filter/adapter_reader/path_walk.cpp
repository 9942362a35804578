#include "adapter_reader/path_walk.h"

#include <cmath>

#include "adapter_reader/page.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/settings.h"
#include "model/path_commands.h"

namespace egfsvg {
namespace {

constexpr double kOneThird = 0.33333334;
constexpr double kUnitsPerPixel = 4096.0;
constexpr double kNoRadius = 1e-9 * kUnitsPerPixel;  // an arc with such a radius is a straight line

PlanePoint between(PlanePoint a, PlanePoint b, double part) {
  return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
}

/// The absolute form of a command code.
std::int32_t absoluteForm(std::int32_t command) {
  return command >= kPathMoveAbs && command % 2 == 0 ? command - 1 : command;
}

}  // namespace

void raiseQuadratic(PlanePoint current, PlanePoint control, PlanePoint end, bool exact,
                    PlanePoint* first, PlanePoint* second) {
  *first = exact ? between(control, current, kOneThird) : between(control, end, kOneThird);
  *second = exact ? between(control, end, kOneThird) : control;
}

PathWalk::PathWalk(CAdapterReader& adapter, PathSink& sink)
    : adapter_(adapter),
      sink_(sink),
      resolution_(resolutionOf(adapter)),
      trueCurves_(settingOn(Setting::kTrueCurves)) {}

bool PathWalk::run(const _svg_path& path) {
  for (std::int32_t i = 0; i < path.pathCount; ++i) {
    if (!runSubPath(path.paths[i])) return false;
  }
  return true;
}

bool PathWalk::runSubPath(const _svg_singlepath& subPath) {
  previous_ = 0;
  lastQuad_ = {0.0, 0.0};
  first_ = current_;
  if (!sink_.beginSubPath(subPath)) return false;
  for (std::int32_t i = 0; i < subPath.dataCount; ++i) {
    if (!step(subPath.data[i])) return false;
  }
  return sink_.endSubPath(subPath);
}

bool PathWalk::step(const _svg_path_data& d) {
  const std::int32_t form = absoluteForm(d.command);
  relative_ = form != d.command;
  bool done = true;
  switch (form) {
    case kPathClose:
      done = close();
      break;
    case kPathMoveAbs:
      done = move(d);
      break;
    case kPathLineAbs:
      done = line(point(d.arg0, d.arg1));
      break;
    case kPathHorizontalAbs:
      done = line({units(d.arg0) + (relative_ ? current_.x : 0.0), current_.y});
      break;
    case kPathVerticalAbs:
      done = line({current_.x, units(d.arg0) + (relative_ ? current_.y : 0.0)});
      break;
    case kPathCubicAbs:
      done = cubic(d);
      break;
    case kPathSmoothCubicAbs:
      done = smoothCubic(d);
      break;
    case kPathQuadAbs:
      done = quadratic(point(d.arg0, d.arg1), point(d.arg2, d.arg3));
      break;
    case kPathSmoothQuadAbs:
      done = smoothQuadratic(d);
      break;
    case kPathArcAbs:
      done = arc(d);
      break;
    default:
      return true;  // no command
  }
  if (form != kPathQuadAbs && form != kPathSmoothQuadAbs) lastQuad_ = {0.0, 0.0};
  previous_ = form;
  return done;
}

double PathWalk::units(const _svg_value& value) const {
  return adapter_.SVGValueToPixelValue(value, resolution_) * kUnitsPerPixel;
}

PlanePoint PathWalk::point(const _svg_value& x, const _svg_value& y) const {
  const PlanePoint given{units(x), units(y)};
  return relative_ ? PlanePoint{given.x + current_.x, given.y + current_.y} : given;
}

PlanePoint PathWalk::reflected(PlanePoint control) const {
  return {2.0 * current_.x - control.x, 2.0 * current_.y - control.y};
}

/// A relative move at the very start is absolute, since the walk starts at the origin.
bool PathWalk::move(const _svg_path_data& d) {
  current_ = point(d.arg0, d.arg1);
  first_ = current_;
  return sink_.moveTo(current_);
}

bool PathWalk::line(PlanePoint to) {
  const PlanePoint from = current_;
  current_ = to;
  return sink_.lineTo(from, to);
}

bool PathWalk::cubic(const _svg_path_data& d) {
  return curve(point(d.arg0, d.arg1), point(d.arg2, d.arg3), point(d.arg4, d.arg5));
}

bool PathWalk::smoothCubic(const _svg_path_data& d) {
  const bool follows = previous_ == kPathCubicAbs || previous_ == kPathSmoothCubicAbs;
  return curve(follows ? reflected(lastCubic_) : current_, point(d.arg0, d.arg1),
               point(d.arg2, d.arg3));
}

bool PathWalk::quadratic(PlanePoint control, PlanePoint end) {
  lastQuad_ = control;
  PlanePoint first, second;
  raiseQuadratic(current_, control, end, trueCurves_, &first, &second);
  return curve(first, second, end);
}

/// Kept: after any other command the control reflects the origin, and as the first command of a
/// sub-path it is the origin itself.
bool PathWalk::smoothQuadratic(const _svg_path_data& d) {
  const PlanePoint control = previous_ == 0 ? PlanePoint{0.0, 0.0} : reflected(lastQuad_);
  return quadratic(control, point(d.arg0, d.arg1));
}

bool PathWalk::curve(PlanePoint first, PlanePoint second, PlanePoint end) {
  const PlanePoint controls[4] = {current_, first, second, end};
  lastCubic_ = second;
  current_ = end;
  return sink_.curveTo(controls);
}

bool PathWalk::arc(const _svg_path_data& d) {
  const PlanePoint end = point(d.arg0, d.arg1);
  const ArcEnds ends{current_.x,
                     current_.y,
                     end.x,
                     end.y,
                     std::fabs(units(d.arg2)),
                     std::fabs(units(d.arg3)),
                     adapter_.SVGAngleToRAD({d.arg4.unit, d.arg4.value}),
                     d.arg4.axis != 0,
                     d.arg5.unit != 0};
  if (ends.rx < kNoRadius || ends.ry < kNoRadius) return line(end);
  ArcCenter center{};
  if (!arcFromEnds(ends, &center)) return true;
  current_ = end;
  return sink_.arcTo(ends, center);
}

/// Commands that follow go on from the sub-path's first point.
bool PathWalk::close() {
  const PlanePoint from = current_;
  current_ = first_;
  return sink_.closeTo(from, first_);
}

}  // namespace egfsvg
