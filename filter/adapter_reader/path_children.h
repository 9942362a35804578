// The children of a path object while it is built. They are linked in the path's record, and its
// rectangle is gathered from the points that are at hand: the host would measure each child for it.
// It still measures what it alone can: curves that leave the rectangle, and arcs.
#pragma once

#include "geometry/point_box.h"
#include "host/egf_objects.h"
#include "model/owners.h"

namespace egfsvg {

class PathChildren {
 public:
  /// The path has no children yet, and stays until `finish`.
  void begin(_egf_obj* path) {
    path_ = as<EgfPath>(path);
    parent_ = ref32<_egf_obj>::of(path);
    last_ = nullptr;
    box_ = {};
  }

  /// Hands a line or a polyline over, of these points.
  void addStraight(ObjectOwner object, const PointBox& points) {
    if (points.isFinite()) [[likely]]
      box_.include(points);  // else the child has no rectangle
    link(object.release());
  }
  /// Hands a curve over, of these control points, which it keeps among.
  void addCurve(ObjectOwner object, const PointBox& controls) {
    if (!box_.holds(controls) || !controls.isFinite()) measure(object.get());
    link(object.release());
  }
  /// Hands any child over.
  void add(ObjectOwner object) {
    measure(object.get());
    link(object.release());
  }

  /// Gives the path its rectangle.
  void finish() {
    if (box_.isEmpty()) return;
    path_->bounds = box_.rect();
    path_->hasBounds = 1;
  }

 private:
  void link(_egf_obj* child) {
    const auto added = ref32<_egf_obj>::of(child);
    child->parent = parent_;
    if (last_ == nullptr) {
      path_->firstChild = added;
    } else {
      last_->next = added;
    }
    path_->lastChild = added;
    last_ = child;
  }
  /// Asks the host for a child's rectangle, if it has one.
  [[gnu::noinline]] void measure(_egf_obj* child);

  EgfPath* path_ = nullptr;
  ref32<_egf_obj> parent_{};  // the path
  _egf_obj* last_ = nullptr;
  PointBox box_;
};

}  // namespace egfsvg
