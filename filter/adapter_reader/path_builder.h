// Builds the class 33 object of a path from the steps of a PathWalk.
#pragma once

#include "adapter_reader/owners.h"
#include "adapter_reader/path_walk.h"
#include "adapter_reader/svg_adapterreader.h"

namespace egfsvg {

class BezierPathBuilder final : public PathSink {
 public:
  /// `map` may be null: nothing is mapped then. With `several`, each sub-path gets an object.
  BezierPathBuilder(CAdapterReader& adapter, _viewPortMap* map, bool several);
  ~BezierPathBuilder() { freeRun(); }
  BezierPathBuilder(const BezierPathBuilder&) = delete;
  BezierPathBuilder& operator=(const BezierPathBuilder&) = delete;

  bool ready() const { return outer_ != nullptr; }
  bool hasChildren() const;
  _egf_obj* release() { return outer_.release(); }
  /// The box of all points before the map, in pixels, grown by a margin in pixels.
  _mpl_spacerect_tag bounds(double margin) const;

  bool beginSubPath(const _svg_singlepath& subPath) override;
  bool moveTo(PlanePoint to) override;
  bool lineTo(PlanePoint from, PlanePoint to) override;
  bool curveTo(const PlanePoint (&controls)[4]) override;
  bool arcTo(const ArcEnds& ends, const ArcCenter& arc) override;
  bool closeTo(PlanePoint from, PlanePoint first) override;
  bool endSubPath(const _svg_singlepath& subPath) override;

 private:
  enum class ArcForm { kWhole, kHalves, kCurve };

  bool isPlainArc(const ArcEnds& ends, const ArcCenter& arc) const;
  ArcCenter childArc(const ArcEnds& ends, const ArcCenter& arc) const;
  bool putArc(const ArcCenter& arc, bool clockwise);
  bool putArcHalves(const ArcCenter& arc, bool clockwise);
  bool putArcCurve(const ArcEnds& ends, const ArcCenter& arc);
  bool putCurve(RmmOwner<_mpl_spacept_tag> points, int count);
  bool addToRun(PlanePoint point);
  bool attachRun();
  void freeRun();
  void grow(PlanePoint point);
  void growByArc(const ArcEnds& ends, const ArcCenter& arc);
  _mpl_spacept_tag mapped(PlanePoint point) const;
  static ArcForm formOf(const ArcCenter& child);
  static void turnCircle(double rotation, ArcCenter* arc);

  CAdapterReader& adapter_;
  _viewPortMap* map_;
  bool several_;
  double shear_ = 0.0, scaleX_ = 1.0, scaleY_ = 1.0, rotation_ = 0.0;
  ObjectOwner outer_;
  ObjectOwner sub_;
  _egf_obj* target_ = nullptr;       // the object that takes children now
  _mpl_spacept_tag* run_ = nullptr;  // pending straight points, mapped, owned
  unsigned int runCount_ = 0;
  bool hasClose_ = false;
  bool boxed_ = false;
  _mpl_spacerect_tag box_{};
};

}  // namespace egfsvg
