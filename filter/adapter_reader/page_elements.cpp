// Element records as they arrive: one row for each tag says whether display can hide it, what
// builds it and how the new object reaches the open group.

#include "adapter_reader/containers.h"
#include "adapter_reader/group_stack.h"
#include "adapter_reader/hidden.h"
#include "adapter_reader/owners.h"
#include "adapter_reader/shapes.h"
#include "adapter_reader/svg_adapterreader.h"
#include "frame/result_codes.h"

namespace egfsvg {
namespace {

using Formatter = _egf_obj* (*)(CAdapterReader& adapter, void* record);

struct ElementRow {
  std::int32_t tag;
  int (*take)(CAdapterReader& adapter, _handlerObject& object, const ElementRow& row);
  const _svg_pa_graphics* (*graphics)(const void* record);  // null: display hides nothing
  Formatter format;                                         // null: the element is passed over
};

template <class Record>
const _svg_pa_graphics* graphicsOf(const void* record) {
  return &static_cast<const Record*>(record)->graphics;
}

const _svg_pa_graphics* linkGraphics(const void* record) {
  return &static_cast<const _svg_a*>(record)->pa.graphics;
}

template <class Record, _egf_obj* (CAdapterReader::*kFormat)(Record*)>
_egf_obj* formatted(CAdapterReader& adapter, void* record) {
  return (adapter.*kFormat)(static_cast<Record*>(record));
}

/// A filled polyline needs an area, so it becomes an open polygon.
_egf_obj* formattedPolyline(CAdapterReader& adapter, void* record) {
  auto* polyline = static_cast<_svg_polyline*>(record);
  if (polyline->fill.fillOpacity == 0.0) return adapter.SVG_formatEGFPolyline(polyline);
  return formatPolygon(adapter, pointShape(*polyline, false));
}

/// The new object of a row, or none: nothing open, hidden, nothing to build. `result` is then the
/// callback's.
ObjectOwner build(CAdapterReader& adapter, _handlerObject& object, const ElementRow& row,
                  int* result) {
  *result = kGoOn;
  if (openGroups.currentNode == nullptr) {
    *result = adapter._logError(adapter.silent, kMessageNoOpenContainer);
    return nullptr;
  }
  void* record = object.payload<void>();
  if (row.graphics != nullptr && isNotDisplayed(*row.graphics(record), record)) return nullptr;
  return ObjectOwner(row.format == nullptr ? nullptr : row.format(adapter, record));
}

/// Hands the new object over to the open group. One without a rectangle is dropped.
int attach(CAdapterReader& adapter, _handlerObject& object, const ElementRow& row) {
  int result = kGoOn;
  ObjectOwner made = build(adapter, object, row, &result);
  _egf_obj* group = made ? currentGroup() : nullptr;
  if (group != nullptr && appendWithMer(group, made.get(), adapter.map)) (void)made.release();
  return result;
}

/// Gives the open group a copy of the new object.
int put(CAdapterReader& adapter, _handlerObject& object, const ElementRow& row) {
  int result = kGoOn;
  const ObjectOwner made = build(adapter, object, row, &result);
  _egf_obj* group = made ? currentGroup() : nullptr;
  if (group != nullptr) EEL_PutObject(group, made.get(), adapter.map);
  return result;
}

template <int (*kTake)(CAdapterReader&, _handlerObject&)>
int container(CAdapterReader& adapter, _handlerObject& object, const ElementRow&) {
  return kTake(adapter, object);
}

template <class Record, _egf_obj* (CAdapterReader::*kFormat)(Record*)>
constexpr ElementRow shapeRow(std::int32_t tag) {
  return {tag, attach, graphicsOf<Record>, formatted<Record, kFormat>};
}

constexpr ElementRow kElementRows[] = {
    shapeRow<_svg_rect, &CAdapterReader::SVG_formatEGFRect>(kTagRect),
    shapeRow<_svg_path, &CAdapterReader::SVG_formatGDIPlusPath>(kTagPath),
    {kTagGroup, container<openGroup>, nullptr, nullptr},
    {kTagEndGroup, container<closeContainer>, nullptr, nullptr},
    shapeRow<_svg_circle, &CAdapterReader::SVG_formatEGFCircle>(kTagCircle),
    shapeRow<_svg_ellipse, &CAdapterReader::SVG_formatEGFEllipse>(kTagEllipse),
    shapeRow<_svg_line, &CAdapterReader::SVG_formatEGFLine>(kTagLine),
    {kTagPolyline, attach, graphicsOf<_svg_polyline>, formattedPolyline},
    shapeRow<_svg_polygon, &CAdapterReader::SVG_formatEGFPolygon>(kTagPolygon),
    {kTagText, put, graphicsOf<_svg_text>, nullptr},
    {kTagImage, attach, graphicsOf<_svg_image>, nullptr},
    {kTagLink, attach, linkGraphics, nullptr},
    {kTagSvg, container<openSvg>, nullptr, nullptr},
    {kTagEndSvg, container<closeContainer>, nullptr, nullptr},
    {kTagCloud, put, nullptr, nullptr},
    {kTagCrossout, put, nullptr, nullptr},
    {kTagDiamond, put, nullptr, nullptr},
    {kTagAnnotation, attach, nullptr, nullptr},
};

}  // namespace
}  // namespace egfsvg

int CAdapterReader::EnumerateDataCallback(_handlerObject* record) {
  for (const egfsvg::ElementRow& row : egfsvg::kElementRows) {
    if (row.tag == record->type) return row.take(*this, *record, row);
  }
  return egfsvg::kUnknownReadType;
}
