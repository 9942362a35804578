// Small parts that converted elements own.
#pragma once

#include "adapter_writer/style_pools.h"
#include "adapter_writer/user_scale.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

/// Gives an element its only transform and returns its arguments to be set; null, which the driver
/// tells, without memory.
_svg_value* setTransform(CAdapterWriter& writer, _svg_common& head, TransformKind kind,
                         std::int32_t argCount);

/// Whole degrees of a rotation in millionths, turned the other way. Kept: the fraction is cut.
inline _svg_value clockwiseDegrees(std::int32_t millionths) {
  return {kUnitDegree, static_cast<double>(-(millionths / kMillionths)), kAxisNone};
}

/// A number as a text that a record owns; null, which the driver tells, without memory.
char* ownedNumber(CAdapterWriter& writer, std::int64_t number);

}  // namespace egfsvg
