// Element records as they arrive: one row for each tag says whether display can hide it, what
// builds it and how the new object reaches the open group.

#include <array>
#include <cstddef>

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

/// Where a record keeps its graphics; 0: display hides nothing.
inline constexpr std::size_t kAlwaysShown = 0;

struct ElementRow {
  std::int32_t tag;
  int (*take)(CAdapterReader& adapter, _handlerObject& object, const ElementRow& row);
  std::size_t graphicsAt;
  Formatter format;  // null: the element is passed over
};

/// A filled polyline needs an area, so it becomes an open polygon.
_egf_obj* formattedPolyline(CAdapterReader& adapter, void* record) {
  auto* polyline = static_cast<_svg_polyline*>(record);
  if (polyline->fill.fillOpacity == 0.0) return adapter.SVG_formatEGFPolyline(polyline);
  return formatPolygon(adapter, pointShape(*polyline, false));
}

int logNothingOpen(CAdapterReader& adapter) {
  return adapter._logError(adapter.silent, kMessageNoOpenContainer);
}

/// The new object of a row, or none: hidden, nothing to build.
ObjectOwner build(CAdapterReader& adapter, _handlerObject& object, const ElementRow& row) {
  auto* record = object.payload<char>();
  const auto* graphics = reinterpret_cast<const _svg_pa_graphics*>(record + row.graphicsAt);
  const bool hidden = row.graphicsAt != kAlwaysShown && isNotDisplayed(*graphics, record);
  return ObjectOwner(hidden || row.format == nullptr ? nullptr : row.format(adapter, record));
}

/// Hands a new object, if there is one, over to the open group. One without a rectangle is dropped.
void handToGroup(CAdapterReader& adapter, ObjectOwner made) {
  _egf_obj* group = made ? currentGroup() : nullptr;
  if (group != nullptr && appendWithMer(group, made.get(), adapter.map)) (void)made.release();
}

int attach(CAdapterReader& adapter, _handlerObject& object, const ElementRow& row) {
  if (openGroups.currentNode == nullptr) return logNothingOpen(adapter);
  handToGroup(adapter, build(adapter, object, row));
  return kGoOn;
}

/// The same for a shape, whose formatter is called straight.
template <class Record, _egf_obj* (CAdapterReader::*kFormat)(Record*)>
int attachShape(CAdapterReader& adapter, _handlerObject& object, const ElementRow&) {
  if (openGroups.currentNode == nullptr) return logNothingOpen(adapter);
  auto* record = object.payload<Record>();
  if (isNotDisplayed(record->graphics, record)) return kGoOn;
  handToGroup(adapter, ObjectOwner((adapter.*kFormat)(record)));
  return kGoOn;
}

/// Gives the open group a copy of the new object.
int put(CAdapterReader& adapter, _handlerObject& object, const ElementRow& row) {
  if (openGroups.currentNode == nullptr) return logNothingOpen(adapter);
  const ObjectOwner made = build(adapter, object, row);
  _egf_obj* group = made ? currentGroup() : nullptr;
  if (group != nullptr) EEL_PutObject(group, made.get(), adapter.map);
  return kGoOn;
}

template <int (*kTake)(CAdapterReader&, _handlerObject&)>
int container(CAdapterReader& adapter, _handlerObject& object, const ElementRow&) {
  return kTake(adapter, object);
}

template <class Record, _egf_obj* (CAdapterReader::*kFormat)(Record*)>
constexpr ElementRow shapeRow(std::int32_t tag) {
  return {tag, attachShape<Record, kFormat>, offsetof(Record, graphics), nullptr};
}

constexpr ElementRow kElementRows[] = {
    shapeRow<_svg_rect, &CAdapterReader::SVG_formatEGFRect>(kTagRect),
    shapeRow<_svg_path, &CAdapterReader::SVG_formatGDIPlusPath>(kTagPath),
    {kTagGroup, container<openGroup>, kAlwaysShown, nullptr},
    {kTagEndGroup, container<closeContainer>, kAlwaysShown, nullptr},
    shapeRow<_svg_circle, &CAdapterReader::SVG_formatEGFCircle>(kTagCircle),
    shapeRow<_svg_ellipse, &CAdapterReader::SVG_formatEGFEllipse>(kTagEllipse),
    shapeRow<_svg_line, &CAdapterReader::SVG_formatEGFLine>(kTagLine),
    {kTagPolyline, attach, offsetof(_svg_polyline, graphics), formattedPolyline},
    shapeRow<_svg_polygon, &CAdapterReader::SVG_formatEGFPolygon>(kTagPolygon),
    {kTagText, put, offsetof(_svg_text, graphics), nullptr},
    {kTagImage, attach, offsetof(_svg_image, graphics), nullptr},
    {kTagLink, attach, offsetof(_svg_a, pa.graphics), nullptr},
    {kTagSvg, container<openSvg>, kAlwaysShown, nullptr},
    {kTagEndSvg, container<closeContainer>, kAlwaysShown, nullptr},
    {kTagCloud, put, kAlwaysShown, nullptr},
    {kTagCrossout, put, kAlwaysShown, nullptr},
    {kTagDiamond, put, kAlwaysShown, nullptr},
    {kTagAnnotation, attach, kAlwaysShown, nullptr},
};

/// The rows by tag: opening tags by their code, behind them the closing ones, from the first.
constexpr std::int32_t kOpeningTags = kTagAnnotation + 1;
constexpr std::int32_t kFirstClosing = kTagEndSvg;
constexpr std::int32_t kClosingTags = kTagEndGroup - kFirstClosing + 1;

constexpr std::size_t placeOf(std::int32_t tag) {
  const std::int32_t place = tag < kFirstClosing ? tag : kOpeningTags + (tag - kFirstClosing);
  return static_cast<std::size_t>(place);
}

consteval auto rowsByTag() {
  std::array<ElementRow, kOpeningTags + kClosingTags> rows{};
  for (const ElementRow& row : kElementRows) rows[placeOf(row.tag)] = row;
  return rows;
}

constexpr auto kRowsByTag = rowsByTag();

const ElementRow* rowOf(std::int32_t tag) {
  const bool isOpening = tag >= 0 && tag < kOpeningTags;
  const bool isClosing = tag >= kFirstClosing && tag < kFirstClosing + kClosingTags;
  return isOpening || isClosing ? &kRowsByTag[placeOf(tag)] : nullptr;
}

}  // namespace
}  // namespace egfsvg

int CAdapterReader::EnumerateDataCallback(_handlerObject* record) {
  const egfsvg::ElementRow* row = egfsvg::rowOf(record->type);
  if (row == nullptr || row->take == nullptr) return egfsvg::kUnknownReadType;
  return row->take(*this, *record, *row);
}
