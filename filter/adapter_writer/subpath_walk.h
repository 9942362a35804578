// A path object's children as subpaths.
#pragma once

#include "adapter_writer/nesting.h"
#include "adapter_writer/user_scale.h"
#include "geometry/arcs.h"

namespace egfsvg {

/// Subpaths while they grow; frees them unless a record takes them.
struct SubPaths {
  SubPaths() = default;
  ~SubPaths();
  SubPaths(const SubPaths&) = delete;
  SubPaths& operator=(const SubPaths&) = delete;

  bool hasSegments() const;
  void giveTo(_svg_path* record);

  _svg_singlepath* paths = nullptr;
  int count = 0;
};

/// A new segment at the end of a subpath, its values 0; null, which the driver tells, without
/// memory.
_svg_path_data* appendSegment(CAdapterWriter& writer, _svg_singlepath& subPath,
                              std::int32_t command);

/// Walks the children of one path object. Nested path objects share the arrays.
class SubPathWalk {
 public:
  SubPathWalk(CAdapterWriter& writer, _svg_singlepath** paths, int* count)
      : writer_(writer), scale_(scaleOf(writer)), paths_(paths), count_(count) {}

  /// 0, or -1 when a subpath could not be had.
  int run(EgfPath& path);

 private:
  struct ChildRow;
  static const ChildRow kChildren[];

  int add(_egf_obj* child);
  int addArc(_egf_obj* child);
  int addLine(_egf_obj* child);
  int addEllipse(_egf_obj* child);
  int addPolyline(_egf_obj* child);
  int addPolygon(_egf_obj* child);
  int addPath(_egf_obj* child);

  int openSubPath();
  void joinLast();
  _svg_singlepath& subPath() { return (*paths_)[place_]; }
  bool isOpen();
  _svg_point converted(_mpl_spacept_tag point) const;
  void moveTo(const _svg_point& target);
  void moveTo(_mpl_spacept_tag target) { moveTo(converted(target)); }
  void arcTo(const ArcEndPoints& ends, _mpl_spacept_tag radii, std::int32_t large,
             std::int32_t sweep);
  void curveTo(const _mpl_spacept_tag* controls);
  void close();

  CAdapterWriter& writer_;
  const UserScale scale_;
  _svg_singlepath** paths_;
  int* count_;
  int place_ = -1;  // of the subpath that grows
  _svg_point current_{kDefaultValue, kDefaultValue};
  _svg_point start_{kDefaultValue, kDefaultValue};
};

}  // namespace egfsvg
