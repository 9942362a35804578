// Subpaths and segments, and path objects as path elements.

#include <cmath>

#include "adapter_writer/element_parts.h"
#include "adapter_writer/line_ends.h"
#include "adapter_writer/subpath_walk.h"
#include "frame/result_codes.h"
#include "host/egf_templates.h"
#include "model/lifecycle.h"
#include "model/paint_codes.h"
#include "model/path_commands.h"

namespace egfsvg {
namespace {

constexpr double kSamePoint = 0.005;  // user units

void freeSubPaths(_svg_singlepath*& paths, int& count) {
  for (int i = 0; paths != nullptr && i < count; ++i) freeAll(paths[i].data);
  freeAll(paths);
  count = 0;
}

/// The pen that the path names in its document; the template's when it names none, null when the
/// document has none of that number.
const _egf_gdi_fillparms_tag* penOf(const CAdapterWriter& writer, const EgfPath& path) {
  if (path.gdiFillStyleNo == 0) return &kPolygonPen;
  return documentRecord<_egf_gdi_fillparms_tag>(writer, kStylePen, path.gdiFillStyleNo);
}

/// What the entity does not hold.
void setPathPaint(CAdapterWriter& writer, const EgfPath& path, const _egf_gdi_fillparms_tag& pen,
                  const _egf_gdiplus_fillparms_tag* parms, _svg_path* record) {
  const PointArray points = path.gradPts;
  const int fill = writer.STYLE_GradParmsAppendUnique(parms, path.fillGradientNo, points.get(),
                                                      path.gradPtCount);
  const int stroke = writer.STYLE_GradParmsAppendUnique(parms, path.strokeGradientNo, points.get(),
                                                        path.gradPtCount);
  writer._setObjFillAndStroke(record->fill, record->stroke, parms, pen.fillStyle, pen.fillColor,
                              pen.strokeColor, fill, stroke);
  if (parms != nullptr) record->stroke.strokeLinecap = writer._setSvgLineCap(parms->startCap);
  record->fill.fillRule = kUnsetCode;
  writer._setSvgLineJoin(record->stroke, pen.joinStyle, parms);
  keepMiterAlone(record->stroke);
  writer._setStrokeDashArray(record->stroke, pen.lineStyle);
  record->stroke.strokeWidth.value = kUnsetWidth;
}

}  // namespace

SubPaths::~SubPaths() { freeSubPaths(paths, count); }

bool SubPaths::hasSegments() const {
  for (int i = 0; i < count; ++i) {
    if (paths[i].dataCount > 0) return true;
  }
  return false;
}

void SubPaths::giveTo(_svg_path* record) {
  record->paths = paths;
  record->pathCount = count;
  paths = nullptr;
  count = 0;
}

_svg_path_data* appendSegment(CAdapterWriter& writer, _svg_singlepath& subPath,
                              std::int32_t command) {
  void* grown = RMM_ReAllocName(subPath.data, static_cast<std::size_t>(subPath.dataCount) + 1,
                                sizeof(_svg_path_data), RMM_SITE);
  if (grown == nullptr) {
    writer.state.outOfMemory = true;
    return nullptr;
  }
  subPath.data = static_cast<_svg_path_data*>(grown);
  _svg_path_data* segment = &subPath.data[subPath.dataCount++];
  *segment = {command,       kDefaultValue, kDefaultValue, kDefaultValue,
              kDefaultValue, kDefaultValue, kDefaultValue};
  return segment;
}

}  // namespace egfsvg

using namespace egfsvg;

int CAdapterWriter::_createSubPath(_svg_singlepath** paths, _svg_singlepath** subPath, int* count) {
  const std::size_t room = static_cast<std::size_t>(*count) + 1;
  void* grown = *paths == nullptr
                    ? RMM_CallocName(1, sizeof(_svg_singlepath), RMM_SITE)
                    : RMM_ReAllocName(*paths, room, sizeof(_svg_singlepath), RMM_SITE);
  if (grown == nullptr) return -1;
  *paths = static_cast<_svg_singlepath*>(grown);
  *subPath = &(*paths)[*count];
  **subPath = {};
  ++*count;
  return 0;
}

/// A point that lies on the current one is dropped.
int CAdapterWriter::_moveTo(_svg_point* current, _svg_point* start, const _svg_point* target,
                            _svg_singlepath* subPath) {
  const bool first = subPath->dataCount == 0;
  const bool away = std::fabs(current->x.value - target->x.value) > kSamePoint ||
                    std::fabs(current->y.value - target->y.value) > kSamePoint;
  if (!first && !away) return 0;
  if (first) *start = *target;
  *current = *target;
  _svg_path_data* segment = appendSegment(*this, *subPath, first ? kPathMoveAbs : kPathLineAbs);
  if (segment == nullptr) return 0;
  setPixels(segment->arg0, target->x.value);
  setPixels(segment->arg1, target->y.value);
  return 0;
}

int CAdapterWriter::_setPathCommandsData(_svg_singlepath** paths, int* count, _egf_obj* object) {
  if (SubPathWalk(*this, paths, count).run(*as<EgfPath>(object)) != 0) return -1;
  if (*count == 1 && (*paths)[0].dataCount == 0) freeSubPaths(*paths, *count);
  return 0;
}

int CAdapterWriter::SetSVGPathForPath(_egf_obj* object, _svg_path* record) {
  const auto& path = *as<EgfPath>(object);
  const _egf_gdi_fillparms_tag* pen = penOf(*this, path);
  if (pen == nullptr) return kMissingField;
  const auto* parms =
      documentRecord<_egf_gdiplus_fillparms_tag>(*this, kStyleFill, path.fillParmsNo);
  initPath(record);
  SubPaths subPaths;
  if (_setPathCommandsData(&subPaths.paths, &subPaths.count, object) != 0) return kMissingField;
  if (!subPaths.hasSegments()) return kOk;
  subPaths.giveTo(record);
  if (path.gdiFillStyleNo != 0) record->head.styleRef = ownedNumber(*this, path.gdiFillStyleNo);
  setPathPaint(*this, path, *pen, parms, record);
  return kOk;
}
