// The parsers of elements without children: inherited values and rules first, then the tag's own
// attributes in the order of the source.
#include "frame/result_codes.h"
#include "model/lifecycle.h"
#include "reader/attribute_loop.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

/// Attributes through the element's setter; 0, or kNothingToRead at a syntax error.
template <auto Setter, class Record>
int applyAttributes(CHandlerReader& reader, Record* record, int tag) {
  if (reader.hasAttributes == 0) return kOk;
  const int ended = readAttributes(reader, [&reader, record](int code, _svg_attrib_pair* pair) {
    (reader.*Setter)(record, code, pair);
  });
  if (ended == kAttNoMore) return kOk;
  reportElement(reader, Diagnostic::kSyntaxError, tag, RMM_SITE);
  return kNothingToRead;
}

template <auto Setter, class Record>
int parseLeaf(CHandlerReader& reader, Record* record, _svg_common* parent, int tag) {
  record->head.parent = parent;
  record->head.type = tag;
  reader.InheritStyleAndTransform(record, tag);
  reader.SetStyleBasedOnTypeSelector(record, tag);
  return applyAttributes<Setter>(reader, record, tag);
}

/// A leaf with test attributes.
template <auto Setter, class Record>
int parseTestedLeaf(CHandlerReader& reader, Record* record, _svg_common* parent, int tag) {
  const int result = parseLeaf<Setter>(reader, record, parent, tag);
  if (result != kOk) DestroyTAElements(&record->ta);
  return result;
}

}  // namespace

int CHandlerReader::ParseRectTagData(_svg_rect* record, _svg_common* parent) {
  return parseTestedLeaf<&CHandlerReader::SetRectAttribute>(*this, record, parent, kTagRect);
}

int CHandlerReader::ParseCircleTagData(_svg_circle* record, _svg_common* parent) {
  return parseTestedLeaf<&CHandlerReader::SetCircleAttribute>(*this, record, parent, kTagCircle);
}

int CHandlerReader::ParseEllipseTagData(_svg_ellipse* record, _svg_common* parent) {
  return parseTestedLeaf<&CHandlerReader::SetEllipseAttribute>(*this, record, parent, kTagEllipse);
}

int CHandlerReader::ParseLineTagData(_svg_line* record, _svg_common* parent) {
  return parseTestedLeaf<&CHandlerReader::SetLineAttribute>(*this, record, parent, kTagLine);
}

int CHandlerReader::ParsePolylineTagData(_svg_polyline* record, _svg_common* parent) {
  return parseTestedLeaf<&CHandlerReader::SetPolylineAttribute>(*this, record, parent,
                                                                kTagPolyline);
}

int CHandlerReader::ParsePolygonTagData(_svg_polygon* record, _svg_common* parent) {
  return parseTestedLeaf<&CHandlerReader::SetPolygonAttribute>(*this, record, parent, kTagPolygon);
}

int CHandlerReader::ParsePathTagData(_svg_path* record, _svg_common* parent) {
  return parseTestedLeaf<&CHandlerReader::SetPathAttribute>(*this, record, parent, kTagPath);
}

int CHandlerReader::ParseStopTagData(_svg_stop* record, _svg_common* parent) {
  return parseLeaf<&CHandlerReader::SetStopObjAttribute>(*this, record, parent, kTagStop);
}

/// Neither inheritance nor rules.
int CHandlerReader::ParseDefsTagData(_svg_defs* record, _svg_common* parent) {
  record->head.parent = parent;
  record->head.type = kTagDefs;
  return applyAttributes<&CHandlerReader::SetDefsAttribute>(*this, record, kTagDefs);
}

/// `file` names the source, beside which links are looked for.
int CHandlerReader::ParseImageTagData(_svg_image* record, _svg_common* parent, QV_FILEID* file) {
  const int result =
      parseTestedLeaf<&CHandlerReader::SetImageAttribute>(*this, record, parent, kTagImage);
  static_cast<void>(file);
  return result;
}
