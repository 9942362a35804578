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

/// A line between two points, or a polyline, which owns its points. Null when memory ran out.
ObjectOwner straightLine(const _mpl_spacept_tag* points);
ObjectOwner straightRun(RmmOwner<_mpl_spacept_tag> points, unsigned int count);

/// Moves one control point of a cubic curve away from its neighbour, where two are the same: the
/// first such pair alone.
void repairControls(const CAdapterReader& adapter, _mpl_spacept_tag* p);

class BezierPathBuilder {
 public:
  /// What a builder needs to know of its path. The box costs time for each point.
  struct Plan {
    const _viewPortMap* map;  // null: nothing is mapped
    bool several;             // each sub-path gets an object
    bool boxed;               // the box of the points is kept
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
  bool beginSubPath(const _svg_singlepath& subPath);
  bool moveTo(const PlanePoint& to) {
    if (!attachRun()) return false;
    addToRun(to);
    return true;
  }
  /// After a curve the run is empty, so it starts again where the curve ended.
  [[gnu::always_inline]] bool lineTo(const PlanePoint& from, const PlanePoint& to) {
    if (runEnd_ == runStart_) startRun(from);
    addToRun(to);
    return true;
  }
  bool curveTo(const CubicPoints& cubic);
  bool arcTo(const ArcEnds& ends, const ArcCenter& arc);
  bool closeTo(const PlanePoint& from, const PlanePoint& first);
  bool endSubPath(const _svg_singlepath& subPath);

 private:
  enum class ArcForm { kWhole, kHalves, kCurve };

  bool isPlainArc(const ArcEnds& ends, const ArcCenter& arc) const;
  ArcCenter childArc(const ArcEnds& ends, const ArcCenter& arc) const;
  void decomposeMap();
  bool putArc(const ArcCenter& arc, bool clockwise);
  bool putArcHalves(const ArcCenter& arc, bool clockwise);
  bool putArcCurve(const ArcEnds& ends, const ArcCenter& arc);
  [[gnu::always_inline]] void startRun(const PlanePoint& from) {
    grow(from);
    *runEnd_++ = here_;
  }
  [[gnu::always_inline]] void addToRun(const PlanePoint& point) {
    grow(point);
    here_ = onPage(point);
    *runEnd_++ = here_;
  }
  bool attachRun() { return runEnd_ == runStart_ || attachPoints(); }
  bool attachPoints();
  bool attachLine(const _mpl_spacept_tag* ends);
  /// Brings points that become a child to their place where an identity maps, see `onPage`.
  [[gnu::always_inline]] void settle(_mpl_spacept_tag* points, unsigned int count) const {
    if (identity_ && !areFinite(points, count)) [[unlikely]]
      mapAll(points, count);
  }
  [[gnu::always_inline]] static bool areFinite(const _mpl_spacept_tag* points, unsigned int count) {
    FiniteCheck check;
    for (unsigned int i = 0; i < count; ++i) check.include(&points[i]);
    return check.isFinite();
  }
  [[gnu::noinline, gnu::cold]] void mapAll(_mpl_spacept_tag* points, unsigned int count) const;
  void grow(const PlanePoint& point) {
    if (plan_.boxed) [[unlikely]]
      growBox(point);
  }
  [[gnu::noinline]] void growBox(const PlanePoint& point);
  void growByCurve(const CubicPoints& cubic);
  void growByArc(const ArcEnds& ends, const ArcCenter& arc);
  /// Where a point stands on the page. An identity maps only what is not finite to something else:
  /// that is done where a child is made of the points.
  [[gnu::always_inline]] _mpl_spacept_tag onPage(const PlanePoint& point) const {
    if (identity_) [[likely]]
      return unsignedZeros(stored(point));
    return mapped(point);
  }
  _mpl_spacept_tag mapped(_mpl_spacept_tag place) const {
    if (map_) return (*map_)(place);
    return identity_ ? PointMap(plan_.map->matrix)(place) : place;
  }
  _mpl_spacept_tag mapped(const PlanePoint& point) const { return mapped(stored(point)); }
  static ArcForm formOf(const ArcCenter& child);
  static void turnCircle(double rotation, ArcCenter* arc);

  CAdapterReader& adapter_;
  Plan plan_;
  bool identity_;                // the map's
  std::optional<PointMap> map_;  // of no identity
  bool decomposed_ = false;      // the next four are those of the map; only arcs ask for them
  double shear_ = 0.0, scaleX_ = 1.0, scaleY_ = 1.0, rotation_ = 0.0;
  ObjectOwner outer_;
  ObjectOwner sub_;
  _egf_obj* target_ = nullptr;  // the object that takes children now
  bool hasClose_ = false;
  // Pending straight points on the page, in the adapter's array: room for all of a sub-path.
  _mpl_spacept_tag* runStart_ = nullptr;
  _mpl_spacept_tag* runEnd_ = nullptr;
  _mpl_spacept_tag here_;  // the current point on the page
  bool boxStarted_ = false;
  _mpl_spacerect_tag box_{};
};

}  // namespace egfsvg
