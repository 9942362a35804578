// Attributes of the elements that hold others.

#include "model/rmm_allocator.h"
#include "reader/attribute_rows.h"

namespace egfsvg {

namespace {

using Reader = CHandlerReader;
using Pair = _svg_attrib_pair;

// All presentation attributes that have a name.
constexpr CodeRange kEveryProperty[] = {{kAttFontFamily, kAttImageRendering},
                                        {kAttMarkerMid, kAttWritingMode}};

// Kept: no fill, no stroke.
constexpr CodeRange kLinkProperties[] = {{kAttFontFamily, kAttColorRendering},
                                         {kAttImageRendering, kAttImageRendering},
                                         {kAttMarkerMid, kAttShapeRendering},
                                         {kAttAlignmentBaseline, kAttWritingMode}};

void setContentStyleType(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetContentStyleTypeAtt(&static_cast<_svg_svg*>(record)->contentStyleType, pair);
}

void setViewBox(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetViewboxAtt(&static_cast<_svg_svg*>(record)->viewBox, pair);
}

void setAspect(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetPreserveAspectAtt(&static_cast<_svg_svg*>(record)->preserveAspectRatio, pair);
}

void setZoomAndPan(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetZoomAndPanAtt(&static_cast<_svg_svg*>(record)->zoomAndPan, pair);
}

void setXmlSpace(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* svg = static_cast<_svg_svg*>(record);
  reader.SetXmlSpaceAtt(svg, pair);
  reader.xmlSpace = svg->xmlSpace;
}

/// Appends the translation by a length's text. Without memory it is dropped.
void translateBy(Reader& reader, _svg_common* head, std::string_view before, const char* length,
                 std::string_view behind) {
  GrowingArray<char> text(RMM_SITE);
  const std::size_t lengthSize = std::strlen(length);
  const auto append = [&text](const char* part, std::size_t size) {
    return text.append(part, static_cast<std::int32_t>(size));
  };
  const bool complete =
      text.reserve(static_cast<std::int32_t>(before.size() + lengthSize + behind.size() + 1)) &&
      append(before.data(), before.size()) && append(length, lengthSize) &&
      append(behind.data(), behind.size()) && text.push('\0');
  if (!complete) return;
  Pair translation{"transform", text.count(), text.data()};
  reader.SetTransformAtt(head, &translation);
}

// The place of a `use` becomes a translation, where the attribute stands.
void setGroupX(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* group = static_cast<_svg_group*>(record);
  reader.SetValueAtt(&group->x, pair);
  translateBy(reader, &group->head, "translate(", pair->value, ",0)");
}

void setGroupY(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* group = static_cast<_svg_group*>(record);
  reader.SetValueAtt(&group->y, pair);
  translateBy(reader, &group->head, "translate(0,", pair->value, ")");
}

// Kept: the one element whose class names the bare keys of the table.
void setDefsClass(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* head = static_cast<_svg_common*>(record);
  reader.SetClassNameAtt(head, pair);
  if (head->classCount >= 1) reader.SetStyleBasedOnClass(record, kTagDefs);
}

constexpr ActionRow kSvgActions[] = {{kAttType, setContentStyleType},
                                     {kAttViewBox, setViewBox},
                                     {kAttPreserveAspectRatio, setAspect},
                                     {kAttZoomAndPan, setZoomAndPan},
                                     {kAttX, setLength, offsetof(_svg_svg, x)},
                                     {kAttY, setLength, offsetof(_svg_svg, y)},
                                     {kAttWidth, setLength, offsetof(_svg_svg, width)},
                                     {kAttHeight, setLength, offsetof(_svg_svg, height)},
                                     {kAttXmlSpace, setXmlSpace}};
constexpr ActionRow kGroupActions[] = {{kAttX, setGroupX},
                                       {kAttY, setGroupY},
                                       {kAttWidth, setLength, offsetof(_svg_group, width)},
                                       {kAttHeight, setLength, offsetof(_svg_group, height)},
                                       {kAttXlinkHref, setLink<_svg_group>}};
constexpr ActionRow kLinkActions[] = {{kAttXlinkHref, setLink<_svg_a>}};
constexpr ActionRow kDefsActions[] = {{kAttId, setIdentifier},
                                      {kAttDesc, setDescription},
                                      {kAttExternalResourcesRequired, setExternalResources},
                                      {kAttClass, setDefsClass},
                                      {kAttStyle, setStyle<kTagDefs>},
                                      {kAttTransform, setTransform}};

template <class Record, AttributeAction Style>
constexpr ElementRow containerRow(std::span<const CodeRange> presentation,
                                  std::span<const ActionRow> own) {
  return {GroupOffsets::of<Record>(), presentation, kElementActions<Record, Style>, own};
}

}  // namespace

constexpr ElementRow kSvgRow = containerRow<_svg_svg, setOwnStyle>(kEveryProperty, kSvgActions);
constexpr ElementRow kGroupRow =
    containerRow<_svg_group, setOwnStyle>(kEveryProperty, kGroupActions);
constexpr ElementRow kDefsRow{GroupOffsets::of<_svg_defs>(), kEveryProperty, kDefsActions, {}};
// Kept: the style attributes of these two go by the codes of `svg` and `image`.
constexpr ElementRow kSwitchRow = containerRow<_svg_switch, setStyle<kTagSvg>>(kEveryProperty, {});
constexpr ElementRow kLinkRow =
    containerRow<_svg_a, setStyle<kTagImage>>(kLinkProperties, kLinkActions);

constexpr ElementRow kLinkStyleRow =
    containerRow<_svg_a, setStyle<kTagImage>>(kImageProperties, {});
constexpr ElementRow kSwitchStyleRow =
    containerRow<_svg_switch, setStyle<kTagSvg>>(kEveryProperty, {});

}  // namespace egfsvg

int CHandlerReader::SetSVGAttribute(_svg_svg* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kSvgRow, record, attType, pair);
}

int CHandlerReader::SetGroupAttribute(_svg_group* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kGroupRow, record, attType, pair);
}

int CHandlerReader::SetDefsAttribute(_svg_defs* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kDefsRow, record, attType, pair);
}

int CHandlerReader::SetSwitchAttribute(_svg_switch* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kSwitchRow, record, attType, pair);
}

int CHandlerReader::SetLinkObjAttribute(_svg_a* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kLinkRow, record, attType, pair);
}
