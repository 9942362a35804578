// Points of converted elements.
#pragma once

#include "adapter_writer/user_scale.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

/// Gives the record a new array of points, to be set one by one; false, which the driver tells,
/// without memory.
template <class Record>
bool makePoints(CAdapterWriter& writer, Record* record, std::int32_t count) {
  record->points =
      count > 0 ? allocateArray<_svg_point>(static_cast<std::size_t>(count), RMM_SITE) : nullptr;
  if (record->points == nullptr) {
    writer.state.outOfMemory = writer.state.outOfMemory || count > 0;
    return false;
  }
  record->pointCount = count;
  return true;
}

/// The record's points from an object's.
template <class Record>
void convertPoints(CAdapterWriter& writer, const _mpl_spacept_tag* points, std::int32_t count,
                   Record* record) {
  if (points == nullptr || !makePoints(writer, record, count)) return;
  const UserScale scale = scaleOf(writer);
  for (std::int32_t i = 0; i < count; ++i) {
    setPoint(record->points[i], scale, points[i].x, points[i].y);
  }
}

}  // namespace egfsvg
