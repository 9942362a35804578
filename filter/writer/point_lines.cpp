// Elements of many points: polylines and polygons, five points a line, and paths, broken before the
// segment that finds its line too long.

#include "model/path_commands.h"
#include "writer/element_head.h"
#include "writer/path_segments.h"
#include "writer/svg_handlerwriter.h"

namespace egfsvg {
namespace {

constexpr std::int32_t kPointsInLine = 5;

template <FormatText kFormat>
void addPoints(const _svg_point* points, std::int32_t count, LineBuilder& line) {
  for (std::int32_t i = 0; i < count; ++i) {
    line.format<kFormat>(points[i].x.value, points[i].y.value);
  }
}

/// Full lines go out; the rest, in its own format, stays in `line`. -1 when one could not be
/// written.
template <FormatText kFull, FormatText kRest>
int putPoints(const _svg_point* points, std::int32_t count, LineBuilder& line, HostHandle stream) {
  for (; count >= kPointsInLine; count -= kPointsInLine, points += kPointsInLine) {
    addPoints<kFull>(points, kPointsInLine, line);
    if (line.put(stream) == -1) return -1;
    line.clear();
    line.add(kContinuation);
  }
  addPoints<kRest>(points, count, line);
  return 0;
}

}  // namespace

int putSegments(const _svg_path& path, PathForms forms, LineBuilder& line, HostHandle stream) {
  for (std::int32_t i = 0; i < path.pathCount; ++i) {
    const _svg_singlepath& sub = path.paths[i];
    for (std::int32_t j = 0; j < sub.dataCount; ++j) {
      if (line.length() > kLongestLine) {
        if (line.put(stream) == -1) return -1;
        line.clear();
        line.add(kContinuation);
      }
      addSegment(sub.data[j], forms, line);
    }
  }
  return 0;
}

void addSegment(const _svg_path_data& d, PathForms forms, LineBuilder& line) {
  switch (d.command) {
    case kPathClose:
      line.format<"Z ">();
      break;
    case kPathMoveAbs:
      line.format<"M%.2f,%.2f ">(d.arg0.value, d.arg1.value);
      break;
    case kPathLineAbs:
      line.format<"L%.2f,%.2f ">(d.arg0.value, d.arg1.value);
      break;
    case kPathCubicAbs:
      if (!forms.curves) break;
      line.format<"C%.2f,%.2f %.2f,%.2f %.2f,%.2f ">(d.arg0.value, d.arg1.value, d.arg2.value,
                                                     d.arg3.value, d.arg4.value, d.arg5.value);
      break;
    case kPathArcAbs:
      if (!forms.arcs) break;
      line.format<"A%.2f,%.2f %.2f %d,%d %.2f,%.2f ">(d.arg2.value, d.arg3.value, d.arg4.value,
                                                      d.arg4.axis, d.arg5.unit, d.arg0.value,
                                                      d.arg1.value);
      break;
    case kPathArcRel:
      if (!forms.relativeArcs) break;
      line.format<"a%.6f,%.6f %.4f %d,%d %.6f,%.6f ">(d.arg2.value, d.arg3.value, d.arg4.value,
                                                      d.arg4.axis, d.arg5.unit, d.arg0.value,
                                                      d.arg1.value);
      break;
    default:
      break;  // other commands print nothing
  }
}

}  // namespace egfsvg

int CHandlerWriter::writeSVGPolylineTag(_svg_polyline* record, HostHandle stream) {
  using namespace egfsvg;
  if (record->points == nullptr) return 0;
  GetLocalAttribs(record->fill, record->stroke, record->graphics, style_);
  AddLineJoinAttrib(record->stroke, style_);
  AddLineCapAttrib(record->stroke, style_);
  const auto& style = withReference<kStrokeReference>(record->head, style_, reference_);
  startElement<"polyline">(record->head, line_);
  line_.format<"points=\"">();
  const int put =
      putPoints<"%.1f,%.1f ", "%.1f,%.1f ">(record->points, record->pointCount, line_, stream);
  if (put == -1) return -1;
  return line_.format<"\" %s/>">(style).put(stream);
}

/// Kept: a polygon's last points are written with another precision.
int CHandlerWriter::writeSVGPolygonTag(_svg_polygon* record, HostHandle stream) {
  using namespace egfsvg;
  if (record->points == nullptr) return 0;
  GetLocalAttribs(record->fill, record->stroke, record->graphics, style_);
  AddLineJoinAttrib(record->stroke, style_);
  const auto& style = withReference<kAreaReference>(record->head, style_, reference_);
  startElement<"polygon">(record->head, line_);
  line_.format<"points=\"">();
  const int put =
      putPoints<"%.2f,%.2f ", "%.3f,%.3f ">(record->points, record->pointCount, line_, stream);
  if (put == -1) return -1;
  return line_.format<"\" %s/>">(style).put(stream);
}

int CHandlerWriter::writeSVGPathTag(_svg_path* record, HostHandle stream) {
  using namespace egfsvg;
  GetLocalAttribs(record->fill, record->stroke, record->graphics, style_);
  AddLineJoinAttrib(record->stroke, style_);
  AddLineCapAttrib(record->stroke, style_);
  const auto& style = withReference<kAreaReference>(record->head, style_, reference_);
  startElement<"path">(record->head, line_);
  line_.format<"d=\"">();
  if (putSegments(*record, kAllForms, line_, stream) == -1) return -1;
  line_.format<"\" ">().add(style).add(" ");
  if (const transformEntry* rotation = rotationOf(record->head)) {
    line_.format<" transform=\"rotate(%f %ld %ld)\"">(
        rotation->args[0].value, wholeOf(rotation->args[1]), wholeOf(rotation->args[2]));
  }
  return line_.format<"/>">().put(stream);
}
