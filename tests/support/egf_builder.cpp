#include "tests/support/egf_builder.h"

#include <cmath>
#include <cstring>
#include <stdexcept>

#include "embedded_host/host_trees.h"
#include "host/egf_templates.h"
#include "host/memory.h"

namespace egfsvg::test {

namespace {

template <class T>
T* needed(T* block) {
  if (block == nullptr) throw std::runtime_error("the host gave no memory to a test's drawing");
  return block;
}

char* newText(std::string_view text) {
  auto* copy = static_cast<char*>(needed(RMM_CallocName(text.size() + 1, 1, RMM_SITE)));
  std::memcpy(copy, text.data(), text.size());
  return copy;
}

_mpl_spacept_tag* newPoints(const Points& points) {
  if (points.empty()) return nullptr;
  auto* copy = static_cast<_mpl_spacept_tag*>(
      needed(RMM_AllocName(points.size(), sizeof(_mpl_spacept_tag), RMM_SITE)));
  for (std::size_t i = 0; i < points.size(); ++i) copy[i] = spacePoint(points[i]);
  return copy;
}

std::int32_t millionths(double degrees) {
  return static_cast<std::int32_t>(std::lround(degrees * kMillionths));
}

_egf_gdi_fillparms_tag areaPen(const AreaPen& pen) {
  _egf_gdi_fillparms_tag record = kPolygonPen;
  record.lineWidth = {kMeasureDevice, pen.width};
  record.strokeColor = colourOf(pen.stroke);
  record.fillColor = colourOf(pen.fill);
  record.lineStyle = pen.lineStyle;
  record.fillStyle = pen.fillStyle;
  record.joinStyle = pen.joinStyle;
  record.modeFlags = FigureBits::with(FillRuleBits::with(0, pen.evenOdd ? 1 : 0),
                                      pen.closed ? kFigureClosed : kFigureOpen);
  record.scaleFactor = 1.0;
  return record;
}

EgfLinePen linePen(const LinePen& pen) {
  EgfLinePen record = kLinePen;
  record.lineWidth = {kMeasureDevice, pen.width};
  record.strokeColor = colourOf(pen.stroke);
  record.lineStyle = pen.lineStyle;
  record.rasterOp = pen.rasterOp;
  record.capStyle = pen.capStyle;
  record.scaleFactor = 1.0;
  return record;
}

_egf_textparms textParms(const TextStyle& style) {
  _egf_textparms record = kTextParms;
  record.textColor = colourOf(style.color);
  record.textColor2 = colourOf(style.color);
  record.fontFlags = style.fontFlags;
  std::memset(record.typeface, 0, sizeof record.typeface);
  std::memcpy(record.typeface, style.typeface.data(), style.typeface.size());
  record.fontSize = {kMeasureDevice, style.size};
  record.charWidth = style.charWidth;
  record.textRotation = static_cast<std::int32_t>(std::lround(style.rotation * 10.0));
  record.justification = style.justification;
  return record;
}

template <class Record>
void setGradient(Record* record, const Points& points) {
  record->gradPtCount = static_cast<std::uint16_t>(points.size());
  record->gradPts = newPoints(points);
}

template <class Record>
void setStyles(Record* record, const AreaPen& pen) {
  record->fillParmsNo = pen.fillParmsNo;
  record->fillGradientNo = pen.fillGradientNo;
  record->strokeGradientNo = pen.strokeGradientNo;
  setGradient(record, pen.gradPts);
}

_egf_obj* polygonOfClass(int objClass, const Points& points, const AreaPen& pen) {
  _egf_obj* object = allocObject(objClass);
  auto* record = as<EgfPolygon>(object);
  record->points = newPoints(points);
  record->pointCount = static_cast<std::int32_t>(points.size());
  record->pen = areaPen(pen);
  record->trailingWord = kPolygonTrailingWord;
  setStyles(record, pen);
  EGF_CalcPolygonMer(object, 0);
  return object;
}

template <class Array>
void copyPoints(Array& target, const Points& points) {
  for (std::size_t i = 0; i < points.size() && i < std::size(target); ++i) {
    target[i] = spacePoint(points[i]);
  }
}

}  // namespace

float spaceUnits(double pixels) { return static_cast<float>(pixels * kSpaceUnits); }

_mpl_spacept_tag spacePoint(Px point) { return {spaceUnits(point.x), spaceUnits(point.y)}; }

_mpl_spacerect_tag spaceRect(double left, double top, double right, double bottom) {
  return {spaceUnits(left), spaceUnits(right), spaceUnits(top), spaceUnits(bottom)};
}

_egf_obj* allocObject(int objClass) { return needed(EEL_AllocObject(objClass, RMM_SITE)); }

_egf_obj* box(double x, double y, double width, double height, const AreaPen& pen) {
  return polygonOfClass(kClassBox,
                        {{x, y}, {x, y + height}, {x + width, y + height}, {x + width, y}}, pen);
}

_egf_obj* polygon(const Points& points, const AreaPen& pen) {
  return polygonOfClass(kClassPolygon, points, pen);
}

_egf_obj* polyPath(const std::vector<Points>& subPaths, const AreaPen& pen) {
  Points all;
  for (const Points& subPath : subPaths) all.insert(all.end(), subPath.begin(), subPath.end());
  _egf_obj* object = polygonOfClass(kClassPolygon, all, pen);
  auto* record = as<EgfPolygon>(object);
  record->subPathCount = static_cast<std::uint32_t>(subPaths.size());
  if (subPaths.size() < 2) return object;
  auto* sizes = static_cast<std::uint16_t*>(
      needed(RMM_AllocName(subPaths.size(), sizeof(std::uint16_t), RMM_SITE)));
  for (std::size_t i = 0; i < subPaths.size(); ++i) {
    sizes[i] = static_cast<std::uint16_t>(subPaths[i].size());
  }
  record->subPathSizes = sizes;
  return object;
}

_egf_obj* ellipse(double cx, double cy, double rx, double ry, const AreaPen& pen, double rotation,
                  double start, double end) {
  _egf_obj* object = allocObject(kClassEllipse);
  auto* record = as<EgfEllipse>(object);
  record->center = spacePoint({cx, cy});
  record->radiusPt = spacePoint({cx + rx, cy + ry});
  record->startAngle = millionths(start);
  record->endAngle = millionths(end);
  record->pen = kEllipsePen;
  record->pen.lineWidth = {kMeasureDevice, pen.width};
  record->pen.strokeColor = colourOf(pen.stroke);
  record->pen.fillColor = colourOf(pen.fill);
  record->pen.lineStyle = pen.lineStyle;
  record->pen.fillStyle = pen.fillStyle;
  record->pen.joinStyle = pen.joinStyle;
  record->pen.modeFlags = FillRuleBits::with(record->pen.modeFlags, pen.evenOdd ? 1 : 0);
  record->pen.scaleFactor = 1.0;
  record->pen.ellipseRotation = millionths(rotation);
  setStyles(record, pen);
  return object;
}

_egf_obj* line(Px from, Px to, const LinePen& pen) {
  _egf_obj* object = allocObject(kClassLine);
  auto* record = as<EgfLine>(object);
  record->startPt = spacePoint(from);
  record->endPt = spacePoint(to);
  record->pen = linePen(pen);
  record->strokeParmsNo = pen.strokeParmsNo;
  record->strokeGradientNo = pen.strokeGradientNo;
  setGradient(record, pen.gradPts);
  return object;
}

_egf_obj* arrowLine(Px from, Px to, const ArrowHeads& heads, const LinePen& pen) {
  constexpr unsigned kBothEnds = 3;
  _egf_obj* object = allocObject(kClassArrowLine);
  auto* record = as<EgfArrowLine>(object);
  record->startPt = spacePoint(from);
  record->endPt = spacePoint(to);
  copyPoints(record->headPts, heads.points);
  record->pen.lineWidth = {kMeasureDevice, pen.width};
  record->pen.strokeColor = colourOf(pen.stroke);
  record->pen.lineStyle = pen.lineStyle;
  record->pen.rasterOp = pen.rasterOp;
  record->pen.capStyle = pen.capStyle;
  record->pen.headFlags = BothHeadsBits::with(ClosedHeadBits::with(0, heads.closed ? 1 : 0),
                                              heads.both ? kBothEnds : 1);
  record->pen.layerMask = kLayerMask;
  record->pen.scaleFactor = 1.0;
  record->strokeParmsNo = pen.strokeParmsNo;
  return object;
}

_egf_obj* polyline(const Points& points, const LinePen& pen) {
  _egf_obj* object = allocObject(kClassPolyline);
  auto* record = as<EgfPolyline>(object);
  record->points = newPoints(points);
  record->pointCount = static_cast<std::uint32_t>(points.size());
  record->pen = kPolylinePen;
  record->pen.lineWidth = {kMeasureDevice, pen.width};
  record->pen.strokeColor = colourOf(pen.stroke);
  record->pen.lineStyle = pen.lineStyle;
  record->pen.rasterOp = pen.rasterOp;
  record->pen.capStyle = pen.capStyle;
  record->pen.joinStyle = pen.joinStyle;
  record->pen.scaleFactor = 1.0;
  record->strokeParmsNo = pen.strokeParmsNo;
  record->strokeGradientNo = pen.strokeGradientNo;
  setGradient(record, pen.gradPts);
  EGF_CalcPolylineMer(object, 0);
  return object;
}

_egf_obj* arc(double cx, double cy, double rx, double ry, double start, double end, bool reversed) {
  _egf_obj* object = allocObject(kClassArc);
  auto* record = as<EgfArc>(object);
  record->center = spacePoint({cx, cy});
  record->radiusPt = spacePoint({rx, ry});
  record->startAngle = millionths(start);
  record->endAngle = millionths(end);
  record->pen = kArcPen;
  record->pen.arcFlags = ArcDirectionBits::with(record->pen.arcFlags, reversed ? 1 : 0);
  return object;
}

_egf_obj* curve(const Points& points) {
  _egf_obj* object = allocObject(kClassPolygon);
  auto* record = as<EgfPolygon>(object);
  record->points = newPoints(points);
  record->pointCount = static_cast<std::int32_t>(points.size());
  record->pen.modeFlags = CurveChildBits::with(0, kCurveChild);
  return object;
}

_egf_obj* path(std::initializer_list<_egf_obj*> children, const PathStyle& style) {
  _egf_obj* object = allocObject(kClassPath);
  auto* record = as<EgfPath>(object);
  record->pathKind = style.pathKind;
  record->gdiFillStyleNo = style.gdiFillStyleNo;
  record->fillParmsNo = style.fillParmsNo;
  record->fillGradientNo = style.fillGradientNo;
  record->strokeGradientNo = style.strokeGradientNo;
  for (_egf_obj* child : children) EEL_AppendObject(object, child);
  return object;
}

namespace {

void addToGroup(_egf_obj* parent, _egf_obj* child) {
  EEL_AppendObject(parent, child);
  _mpl_spacerect_tag bounds;
  if (EEL_GetObjectMer(child, &bounds, 0) != 0) return;
  _mpl_spacerect_tag mer = as<EgfGroup>(parent)->groupMer;
  EEL_ExpandMer(&mer, &bounds);
  as<EgfGroup>(parent)->groupMer = mer;
}

}  // namespace

_egf_obj* group(std::initializer_list<_egf_obj*> children, std::string_view name, int flags) {
  _egf_obj* object = allocObject(kClassGroup);
  EEL_SetGroupFlags(object, flags);
  if (!name.empty()) as<EgfGroup>(object)->groupName = newText(name);
  for (_egf_obj* child : children) addToGroup(object, child);
  return object;
}

_egf_obj* text(Px origin, std::string_view content, const TextStyle& style) {
  _egf_obj* object = allocObject(kClassText);
  auto* record = as<EgfTextObject>(object);
  record->text.origin = spacePoint(origin);
  record->text.textString = newText(content);
  record->parms = textParms(style);
  EGF_CalcTextMer(object, 0);
  return object;
}

_egf_obj* annotation(Px origin, std::string_view lines, const TextStyle& style) {
  _egf_obj* object = allocObject(kClassAnnotation);
  auto* record = as<EgfAnnotation>(object);
  record->origin = spacePoint(origin);
  record->annotText = newText(lines);
  record->parms = textParms(style);
  record->hostWord248 = 2;
  EGF_CalcAnnotnMer(object, 0);
  return object;
}

_egf_obj* image(double left, double top, double right, double bottom, HostHandle raster) {
  _egf_obj* object = allocObject(kClassImage);
  auto* record = as<EgfImage>(object);
  record->placement = spaceRect(left, top, right, bottom);
  record->raster = raster;
  return object;
}

_egf_obj* stockObject(std::uint32_t reference, Px place, double angle) {
  _egf_obj* object = allocObject(kClassStockObject);
  auto* record = as<EgfStockObject>(object);
  record->reference = reference;
  record->place = spacePoint(place);
  record->angle = millionths(angle);
  return object;
}

_egf_obj* cloud(const Points& corners, const Points& outline, const AreaPen& pen) {
  _egf_obj* object = allocObject(kClassCloud);
  auto* record = as<EgfCloud>(object);
  copyPoints(record->corners, corners);
  record->outline = newPoints(outline);
  record->outlineCount = static_cast<std::uint32_t>(outline.size());
  record->pen = kCloudPen;
  record->pen.lineWidth = {kMeasureDevice, pen.width};
  record->pen.strokeColor = colourOf(pen.stroke);
  record->pen.fillColor = colourOf(pen.fill);
  record->pen.lineStyle = pen.lineStyle;
  record->pen.fillStyle = pen.fillStyle;
  return object;
}

_egf_obj* diamond(const Points& corners, const AreaPen& pen) {
  _egf_obj* object = allocObject(kClassDiamond);
  auto* record = as<EgfDiamond>(object);
  constexpr std::size_t kCorners = 4;
  Points four = corners;
  four.resize(kCorners);
  record->points = newPoints(four);
  record->pen = areaPen(pen);
  return object;
}

_egf_obj* crossout(Px from, Px to, Px from2, Px to2, const LinePen& pen) {
  _egf_obj* object = allocObject(kClassCrossout);
  auto* record = as<EgfCrossout>(object);
  record->startPt = spacePoint(from);
  record->endPt = spacePoint(to);
  record->startPt2 = spacePoint(from2);
  record->endPt2 = spacePoint(to2);
  record->pen = linePen(pen);
  return object;
}

_egf_obj* hotspot(std::string_view data) {
  _egf_obj* object = allocObject(kClassHotspot);
  auto* record = as<EgfHotspot>(object);
  record->data = newText(data);
  record->dataLength = static_cast<std::uint32_t>(data.size() + 1);
  return object;
}

_egf_obj* opaqueObject(int objClass, double left, double top, double right, double bottom) {
  _egf_obj* object = allocObject(objClass);
  as<EgfOpaqueObject>(object)->placement = spaceRect(left, top, right, bottom);
  return object;
}

_egf_obj* onLayer(_egf_obj* object, int layer) {
  object->layerIndex = static_cast<std::uint16_t>(layer);
  return object;
}

TreeBuilder::TreeBuilder() : tree_(egfhost::createTree(0)) { needed(egfhost::rootOf(tree_)); }

TreeBuilder::~TreeBuilder() { egfhost::freeTree(tree_); }

_egf_obj* TreeBuilder::root() const { return egfhost::rootOf(tree_); }

EgfPageHeader* TreeBuilder::pageHeader() const { return egfhost::pageHeaderOf(tree_); }

_egf_obj* TreeBuilder::add(_egf_obj* object) {
  addToGroup(root(), object);
  return object;
}

std::uint32_t TreeBuilder::dash(const std::vector<double>& segments, std::uint32_t unit) {
  _egf_dash_record* record = needed(EGF_CreateDashRecord());
  for (std::size_t i = 0; i < segments.size(); ++i) {
    writePacked(record->segments, i * sizeof(double), segments[i]);
  }
  record->segmentCount = static_cast<std::uint8_t>(segments.size());
  record->unit = unit;
  EGF_AppendDashRecord(pageHeader(), record);
  return record->number;
}

int TreeBuilder::layer(std::string_view name, bool shown, bool suppressed) {
  return egfhost::addLayer(tree_, std::string(name).c_str(), shown, suppressed);
}

void TreeBuilder::nameRoot(std::string_view name) {
  auto* record = as<EgfGroup>(root());
  RMM_Free(record->groupName.get());
  record->groupName = newText(name);
}

HostHandle TreeBuilder::release() {
  const HostHandle tree = tree_;
  tree_ = 0;
  return tree;
}

}  // namespace egfsvg::test
