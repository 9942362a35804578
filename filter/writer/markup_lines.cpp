// Markup groups: a g whose class names the kind, its contents, and its close.

#include "writer/path_segments.h"
#include "writer/svg_handlerwriter.h"

namespace egfsvg {
namespace {

constexpr std::int32_t kCloudCorners = 4;

/// The hidden corners that a cloud is rebuilt from. Missing ones are written as 0.
void addCorners(const _svg_polyline& outline, LineBuilder& line) {
  line.add("   <polyline points=\"");
  for (std::int32_t i = 0; i < kCloudCorners; ++i) {
    const bool there = outline.points != nullptr && i < outline.pointCount;
    line.add(i == 0 ? "" : ",");
    line.format<"%.1f,%.1f">(there ? outline.points[i].x.value : 0.0,
                             there ? outline.points[i].y.value : 0.0);
  }
  line.add("\" visibility=\"hidden\"/>");
}

int putPath(const _svg_path& path, PathForms forms, LineBuilder& line, HostHandle stream) {
  line.clear();
  line.add("   <path d=\"");
  if (putSegments(path, forms, line, stream) == -1) return -1;
  return line.add("\" />").put(stream);
}

int putLine(const _svg_line& stroke, LineBuilder& line, HostHandle stream) {
  line.clear();
  return line
      .format<"   <line x1=\"%.2f\"  y1=\"%.2f\" x2=\"%.2f\" y2=\"%.2f\"/>">(
          stroke.x1.value, stroke.y1.value, stroke.x2.value, stroke.y2.value)
      .put(stream);
}

}  // namespace
}  // namespace egfsvg

/// A failed line within the path leaves the group open.
int CHandlerWriter::writeCloudGroup(_svg_markup_cloud* record, HostHandle stream) {
  using namespace egfsvg;
  writeSVGGroupTag(&record->group, stream);
  line_.clear();
  addCorners(record->outline, line_);
  line_.put(stream);
  if (putPath(record->curve, kCloudForms, line_, stream) == -1) return -1;
  return writeSVGGroupCloseTag(stream);
}

int CHandlerWriter::writeDiamondGroup(_svg_markup_diamond* record, HostHandle stream) {
  using namespace egfsvg;
  writeSVGGroupTag(&record->group, stream);
  if (putPath(record->outline, kDiamondForms, line_, stream) == -1) return -1;
  return writeSVGGroupCloseTag(stream);
}

int CHandlerWriter::writeCrossOutGroup(_svg_markup_crossout* record, HostHandle stream) {
  writeSVGGroupTag(&record->group, stream);
  egfsvg::putLine(record->line1, line_, stream);
  egfsvg::putLine(record->line2, line_, stream);
  return writeSVGGroupCloseTag(stream);
}

/// Without its opening an annotation has no text, yet the close is tried.
int CHandlerWriter::writeAnnoGroup(_svg_markup_anno* record, HostHandle stream) {
  if (writeSVGGroupTag(&record->group, stream) == 0) writeSVGTextTag(&record->note, stream);
  return writeSVGGroupCloseTag(stream);
}
