#include "adapter_writer/path_groups.h"

#include <algorithm>
#include <cstring>

#include "adapter_writer/svg_adapterwriter.h"
#include "frame/result_codes.h"
#include "frame/svghinterface.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"
#include "host/egf_templates.h"
#include "host/objects.h"
#include "model/lifecycle.h"
#include "model/owners.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

/// A run of a polygon's subpaths.
struct SubPathRun {
  std::uint32_t first;
  std::uint32_t count;
  std::int32_t firstPoint;
  std::int32_t pointCount;
};

SubPathRun runOf(const EgfPolygon& source, std::uint32_t first, std::int32_t firstPoint) {
  const ref32<std::uint16_t> sizes = source.subPathSizes;
  const std::uint32_t count = std::min(source.subPathCount - first, kSubPathsInPath);
  const std::int32_t left = std::max(source.pointCount, 0) - firstPoint;
  std::int32_t points = 0;
  for (std::uint32_t i = 0; sizes && i < count; ++i) points += sizes[first + i];
  return {first, count, firstPoint, sizes ? std::min(points, left) : left};
}

/// A polygon of the run alone, with a template's pen; null when memory ran out.
ObjectOwner makePart(const EgfPolygon& source, const SubPathRun& run) {
  ObjectOwner part(static_cast<_egf_obj*>(RMM_ChownName(EEL_AllocObject(kClassPolygon, RMM_SITE))));
  if (part == nullptr) return nullptr;
  auto& polygon = *as<EgfPolygon>(part.get());
  polygon.pen = kPolygonPen;
  polygon.pen.modeFlags =
      FigureBits::with(polygon.pen.modeFlags, FigureBits::get(source.pen.modeFlags));
  const auto pointCount = static_cast<std::size_t>(run.pointCount);
  auto* points = allocateArray<_mpl_spacept_tag>(pointCount, RMM_SITE);
  if (points == nullptr) return nullptr;
  polygon.points = points;
  polygon.pointCount = run.pointCount;
  std::memcpy(points, PointArray(source.points).get() + run.firstPoint,
              pointCount * sizeof *points);
  const ref32<std::uint16_t> sizes = source.subPathSizes;
  if (!sizes) return part;
  auto* copied = allocateArray<std::uint16_t>(run.count, RMM_SITE);
  if (copied == nullptr) return nullptr;
  polygon.subPathSizes = copied;
  polygon.subPathCount = run.count;
  std::memcpy(copied, sizes.get() + run.first, run.count * sizeof *copied);
  return part;
}

/// One path. A path that has no segments is not written.
int writePart(CAdapterWriter& writer, _handlerWriteObject* envelope, _egf_obj* styleObject,
              _egf_obj* part) {
  auto* record = envelope->payload<_svg_path>();
  writer.state.outOfMemory = false;
  const int converted = writer.SetSVGPathForPolygon(styleObject, record, part);
  int result = writer.state.outOfMemory ? static_cast<int>(kOutOfMemory) : converted;
  if (result == kOk && record->paths != nullptr) result = SVGH_WriteObject(envelope);
  svg_DestroyObjectAtt(record, kTagPath);
  return result;
}

}  // namespace
}  // namespace egfsvg

/// Kept: a path that fails does not end the others, and the last one's result counts.
int CAdapterWriter::_transferSVGPathArray(_handlerWriteObject* envelope, _egf_obj* object,
                                          int groups) {
  using namespace egfsvg;
  const auto& source = *as<EgfPolygon>(object);
  if (!source.points) return kOk;
  int result = kOk;
  std::int32_t firstPoint = 0;
  for (int group = 0; group < groups && firstPoint < source.pointCount; ++group) {
    const auto first = static_cast<std::uint32_t>(group) * kSubPathsInPath;
    const SubPathRun run = runOf(source, first, firstPoint);
    if (run.pointCount <= 0) continue;
    firstPoint += run.pointCount;
    const ObjectOwner part = makePart(source, run);
    if (part == nullptr) {
      logOutOfMemory(RMM_SITE);
      return kOutOfMemory;
    }
    result = writePart(*this, envelope, groups == 1 ? object : nullptr, part.get());
  }
  return result;
}
