// One walk over the commands of a path: resolves relative forms, reflections, quadratics and arcs,
// and hands plain moves, lines, cubic curves and arcs to a builder. Points are in space units
// (1/4096 pixel), in the path's own user space, before any transform.
#pragma once

#include "geometry/elliptic_arc.h"
#include "model/elements.h"

class CAdapterReader;

namespace egfsvg {

struct PlanePoint {
  double x, y;
  bool operator==(const PlanePoint&) const = default;
};

/// What a walk builds. Every call returns false when it ran out of memory; the walk then ends.
class PathSink {
 public:
  virtual bool beginSubPath(const _svg_singlepath& subPath) = 0;
  virtual bool moveTo(PlanePoint to) = 0;
  virtual bool lineTo(PlanePoint from, PlanePoint to) = 0;
  virtual bool curveTo(const PlanePoint (&controls)[4]) = 0;
  virtual bool arcTo(const ArcEnds& ends, const ArcCenter& arc) = 0;
  /// `from` and `first` may be the same place.
  virtual bool closeTo(PlanePoint from, PlanePoint first) = 0;
  virtual bool endSubPath(const _svg_singlepath& subPath) = 0;

 protected:
  ~PathSink() = default;
};

class PathWalk {
 public:
  PathWalk(CAdapterReader& adapter, PathSink& sink);

  /// True when the whole path went to the sink.
  bool run(const _svg_path& path);

 private:
  bool runSubPath(const _svg_singlepath& subPath);
  bool step(const _svg_path_data& command);
  bool move(const _svg_path_data& command);
  bool line(PlanePoint to);
  bool cubic(const _svg_path_data& command);
  bool smoothCubic(const _svg_path_data& command);
  bool quadratic(PlanePoint control, PlanePoint end);
  bool smoothQuadratic(const _svg_path_data& command);
  bool arc(const _svg_path_data& command);
  bool close();
  bool curve(PlanePoint first, PlanePoint second, PlanePoint end);
  double units(const _svg_value& value) const;
  PlanePoint point(const _svg_value& x, const _svg_value& y) const;
  PlanePoint reflected(PlanePoint control) const;

  CAdapterReader& adapter_;
  PathSink& sink_;
  double resolution_;
  bool trueCurves_;
  bool relative_ = false;
  PlanePoint current_{0.0, 0.0};
  PlanePoint first_{0.0, 0.0};      // of the sub-path
  std::int32_t previous_ = 0;       // absolute form of the command before, 0 at a sub-path's start
  PlanePoint lastCubic_{0.0, 0.0};  // control points that a smooth command reflects
  PlanePoint lastQuad_{0.0, 0.0};
};

/// The two inner control points of the cubic that stands for a quadratic. With `exact` it is the
/// degree elevation. Kept: without, the first lies one third from the control to the end and the
/// second is the control itself.
void raiseQuadratic(PlanePoint current, PlanePoint control, PlanePoint end, bool exact,
                    PlanePoint* first, PlanePoint* second);

}  // namespace egfsvg
