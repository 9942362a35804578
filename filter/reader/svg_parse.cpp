// The parsers of elements without children: inherited values and rules first, then the tag's own
// attributes in the order of the source.
#include "frame/result_codes.h"
#include "model/lifecycle.h"
#include "reader/attribute_rows.h"
#include "reader/leaf_kinds.h"
#include "reader/reports.h"
#include "reader/shape_inheritance.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

/// 0, or kNothingToRead at a syntax error.
int readOwnAttributes(CHandlerReader& reader, const ElementRow& row, void* record, int tag) {
  if (reader.hasAttributes == 0 || row.applyAll(reader, record) == kAttNoMore) return kOk;
  reportElement(reader, Diagnostic::kSyntaxError, tag, RMM_SITE);
  return kNothingToRead;
}

int parseLeaf(CHandlerReader& reader, const ElementRow& row, _svg_common* record,
              _svg_common* parent, int tag) {
  record->parent = parent;
  record->type = tag;
  ShapeStyle* style = shapeStyleOf(record, tag);
  if (style == nullptr || !inheritShape(reader, *record, *style)) {
    reader.InheritStyleAndTransform(record, tag);
  }
  if (reader.styles.count != 0) reader.SetStyleBasedOnTypeSelector(record, tag);
  return readOwnAttributes(reader, row, record, tag);
}

}  // namespace

int egfsvg::LeafKind::parse(CHandlerReader& reader, void* record, _svg_common* parent) const {
  const int result = parseLeaf(reader, *row, static_cast<_svg_common*>(record), parent, tag);
  if (result != kOk) DestroyTAElements(&tests(record));
  return result;
}

int CHandlerReader::ParseRectTagData(_svg_rect* record, _svg_common* parent) {
  return leafKind(kTagRect)->parse(*this, record, parent);
}

int CHandlerReader::ParseCircleTagData(_svg_circle* record, _svg_common* parent) {
  return leafKind(kTagCircle)->parse(*this, record, parent);
}

int CHandlerReader::ParseEllipseTagData(_svg_ellipse* record, _svg_common* parent) {
  return leafKind(kTagEllipse)->parse(*this, record, parent);
}

int CHandlerReader::ParseLineTagData(_svg_line* record, _svg_common* parent) {
  return leafKind(kTagLine)->parse(*this, record, parent);
}

int CHandlerReader::ParsePolylineTagData(_svg_polyline* record, _svg_common* parent) {
  return leafKind(kTagPolyline)->parse(*this, record, parent);
}

int CHandlerReader::ParsePolygonTagData(_svg_polygon* record, _svg_common* parent) {
  return leafKind(kTagPolygon)->parse(*this, record, parent);
}

int CHandlerReader::ParsePathTagData(_svg_path* record, _svg_common* parent) {
  return leafKind(kTagPath)->parse(*this, record, parent);
}

int CHandlerReader::ParseStopTagData(_svg_stop* record, _svg_common* parent) {
  return parseLeaf(*this, kStopRow, &record->head, parent, kTagStop);
}

/// Neither inheritance nor rules.
int CHandlerReader::ParseDefsTagData(_svg_defs* record, _svg_common* parent) {
  record->head.parent = parent;
  record->head.type = kTagDefs;
  return readOwnAttributes(*this, kDefsRow, record, kTagDefs);
}

/// `file` names the source, beside which links are looked for.
int CHandlerReader::ParseImageTagData(_svg_image* record, _svg_common* parent, QV_FILEID* file) {
  const int result = leafKind(kTagImage)->parse(*this, record, parent);
  static_cast<void>(file);
  return result;
}
