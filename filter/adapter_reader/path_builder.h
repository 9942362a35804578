// Builds the class 33 object of a path from the steps of a PathWalk.
#pragma once

#include <optional>

#include "adapter_reader/owners.h"
#include "adapter_reader/path_walk.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/point_map.h"
#include "adapter_reader/svg_adapterreader.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

/// Gives the path a line or a polyline of at least two points, of which it keeps a copy. False when
/// memory ran out.
bool attachStraight(_egf_obj* path, const _mpl_spacept_tag* points, unsigned int count);

/// Moves one control point of a cubic curve away from its neighbour, where two are the same: the
/// first such pair alone.
inline void repairControls(const CAdapterReader& adapter, _mpl_spacept_tag* p) {
  constexpr double kRepairOffset = 9024.0;  // space units at 96 pixels per inch
  const auto samePlace = [&](int a, int b) { return p[a].x == p[b].x && p[a].y == p[b].y; };
  const auto beside = [&](float x) {
    return x + static_cast<float>(kRepairOffset * resolutionOf(adapter) / 96.0);
  };
  if (samePlace(0, 1)) {
    p[1].x = beside(p[0].x);
  } else if (samePlace(2, 3)) {
    p[2].x = beside(p[3].x);
  } else if (samePlace(1, 2)) {
    p[2].x = beside(p[1].x);
  }
}

class BezierPathBuilder {
 public:
  /// What a builder needs to know of its path. The box costs time for each point.
  struct Plan {
    _viewPortMap* map;  // null: nothing is mapped
    bool several;       // each sub-path gets an object
    bool boxed;         // the box of the points is kept
  };

  BezierPathBuilder(CAdapterReader& adapter, const Plan& plan);
  ~BezierPathBuilder() = default;
  BezierPathBuilder(const BezierPathBuilder&) = delete;
  BezierPathBuilder& operator=(const BezierPathBuilder&) = delete;

  bool ready() const { return outer_ != nullptr; }
  bool hasChildren() const;
  _egf_obj* release() { return outer_.release(); }
  /// The box of all points before the map, in pixels, grown by a margin in pixels. Kept with a
  /// boxed plan alone.
  _mpl_spacerect_tag bounds(double margin) const;

  // The walk's sink.
  bool beginSubPath();
  bool moveTo(const PlanePoint& to);
  bool lineTo(const PlanePoint& from, const PlanePoint& to);
  bool curveTo(const CubicPoints& cubic);
  bool arcTo(const ArcEnds& ends, const ArcCenter& arc);
  bool closeTo(PlanePoint from, PlanePoint first);
  bool endSubPath(const _svg_singlepath& subPath);

 private:
  enum class ArcForm { kWhole, kHalves, kCurve };

  bool isPlainArc(const ArcEnds& ends, const ArcCenter& arc) const;
  ArcCenter childArc(const ArcEnds& ends, const ArcCenter& arc) const;
  void decomposeMap();
  bool putArc(const ArcCenter& arc, bool clockwise);
  bool putArcHalves(const ArcCenter& arc, bool clockwise);
  bool putArcCurve(const ArcEnds& ends, const ArcCenter& arc);
  bool putCurve(RmmOwner<_mpl_spacept_tag>&& points, int count);
  [[gnu::noinline]] bool startRun(const PlanePoint& from);
  bool addToRun(const PlanePoint& point);
  bool attachRun() { return run_.empty() || attachPoints(); }
  bool attachPoints();
  void grow(const PlanePoint& point) {
    if (plan_.boxed) [[unlikely]]
      growBox(point);
  }
  [[gnu::noinline]] void growBox(const PlanePoint& point);
  void growByCurve(const CubicPoints& cubic);
  void growByArc(const ArcEnds& ends, const ArcCenter& arc);
  _mpl_spacept_tag mapped(_mpl_spacept_tag place) const { return map_ ? (*map_)(place) : place; }
  _mpl_spacept_tag mapped(const PlanePoint& point) const { return mapped(stored(point)); }
  static ArcForm formOf(const ArcCenter& child);
  static void turnCircle(double rotation, ArcCenter* arc);

  CAdapterReader& adapter_;
  Plan plan_;
  std::optional<PointMap> map_;
  bool decomposed_ = false;  // the next four are those of the map; only arcs ask for them
  double shear_ = 0.0, scaleX_ = 1.0, scaleY_ = 1.0, rotation_ = 0.0;
  ObjectOwner outer_;
  ObjectOwner sub_;
  _egf_obj* target_ = nullptr;  // the object that takes children now
  bool hasClose_ = false;
  GrowingArray<_mpl_spacept_tag>& run_;  // pending straight points, mapped; the adapter's
  _mpl_spacept_tag here_;                // the current point, mapped
  bool boxStarted_ = false;
  _mpl_spacerect_tag box_{};
};

}  // namespace egfsvg
