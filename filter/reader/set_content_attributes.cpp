// Attributes of images, texts, gradients, gradient stops and style elements.

#include "reader/attribute_rows.h"
#include "reader/paints.h"

namespace egfsvg {

namespace {

using Reader = CHandlerReader;
using Pair = _svg_attrib_pair;

constexpr CodeRange kTextProperties[] = {{kAttFontFamily, kAttWordSpacing},
                                         {kAttColor, kAttDisplay},
                                         {kAttVisibility, kAttOpacity},
                                         {kAttFilter, kAttFilter},
                                         {kAttPointerEvents, kAttColorInterpolation},
                                         {kAttColorRendering, kAttImageRendering},
                                         {kAttShapeRendering, kAttWritingMode}};
constexpr CodeRange kGradientProperties[] = {{kAttStopOpacity, kAttStopOpacity}};
constexpr CodeRange kStopProperties[] = {{kAttColor, kAttColor},
                                         {kAttStopOpacity, kAttStopOpacity}};

void setAspect(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetPreserveAspectAtt(&static_cast<_svg_image*>(record)->preserveAspectRatio, pair);
}

void setTextX(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* text = static_cast<_svg_text*>(record);
  reader.SetValueAtt(&text->position.x, pair);
  text->hasX = 1;
}

void setTextY(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* text = static_cast<_svg_text*>(record);
  reader.SetValueAtt(&text->position.y, pair);
  text->hasY = 1;
}

void setLengthAdjust(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetLengthAdjustAtt(&static_cast<_svg_text*>(record)->lengthAdjust, pair);
}

void setLang(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetLangAtt(&static_cast<_svg_text*>(record)->lang, pair);
}

void setOnClick(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetOnClickEventAtt(&static_cast<_svg_text*>(record)->events, pair);
}

void setGradientUnits(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetGradientUnitsAtt(&static_cast<_svg_gradient*>(record)->gradientUnits, pair);
}

void setSpreadMethod(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetSpreadMethodAtt(&static_cast<_svg_gradient*>(record)->spreadMethod, pair);
}

void setGradientColor(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* gradient = static_cast<_svg_gradient*>(record);
  CurrentColor value(reader, &gradient->graphics, pair);
  reader.SetColorPatt(&gradient->graphics, value.pair());
}

template <class Record>
void setStopColor(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* target = static_cast<Record*>(record);
  CurrentColor value(reader, &target->graphics, pair);
  reader.SetStopColorPatt(target->head.parent, &target->gradients, value.pair());
}

// An offset is always held as a percentage.
void setOffset(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  constexpr double kPercentPerUnit = 100.0;
  _svg_value& offset = static_cast<_svg_stop*>(record)->offset;
  reader.SetValueAtt(&offset, pair);
  if (offset.unit == kUnitPercent) return;
  offset.unit = kUnitPercent;
  offset.value *= kPercentPerUnit;
}

constexpr ActionRow kImageActions[] = {{kAttPreserveAspectRatio, setAspect},
                                       {kAttX, setLength, offsetof(_svg_image, x)},
                                       {kAttY, setLength, offsetof(_svg_image, y)},
                                       {kAttWidth, setLength, offsetof(_svg_image, width)},
                                       {kAttHeight, setLength, offsetof(_svg_image, height)},
                                       {kAttXlinkHref, setLink<_svg_image>}};
constexpr ActionRow kTextActions[] = {{kAttX, setTextX},
                                      {kAttY, setTextY},
                                      {kAttLengthAdjust, setLengthAdjust},
                                      {kAttTextLength, setLength, offsetof(_svg_text, textLength)},
                                      {kAttDx, setLength, offsetof(_svg_text, dx)},
                                      {kAttDy, setLength, offsetof(_svg_text, dy)},
                                      {kAttXlinkHref, setLink<_svg_text>},
                                      {kAttXmlLang, setLang},
                                      {kAttOnClick, setOnClick}};
constexpr ActionRow kGradientActions[] = {
    {kAttId, setIdentifier},
    {kAttDesc, setDescription},
    {kAttExternalResourcesRequired, setExternalResources},
    {kAttClass, setClass},
    {kAttStyle, setOwnStyle},
    {kAttR, setLength, offsetof(_svg_gradient, parms.slots.g4)},
    {kAttX1, setLength, offsetof(_svg_gradient, parms.slots.g0)},
    {kAttCx, setLength, offsetof(_svg_gradient, parms.slots.g0)},
    {kAttY1, setLength, offsetof(_svg_gradient, parms.slots.g1)},
    {kAttCy, setLength, offsetof(_svg_gradient, parms.slots.g1)},
    {kAttX2, setLength, offsetof(_svg_gradient, parms.slots.g2)},
    {kAttFx, setLength, offsetof(_svg_gradient, parms.slots.g2)},
    {kAttY2, setLength, offsetof(_svg_gradient, parms.slots.g3)},
    {kAttFy, setLength, offsetof(_svg_gradient, parms.slots.g3)},
    {kAttXlinkHref, setLink<_svg_gradient>},
    {kAttGradientUnits, setGradientUnits},
    {kAttGradientTransform, setTransform},
    {kAttSpreadMethod, setSpreadMethod},
    {kAttColor, setGradientColor},
    {kAttStopColor, setStopColor<_svg_gradient>}};
constexpr ActionRow kStopActions[] = {{kAttId, setIdentifier},
                                      {kAttClass, setClass},
                                      {kAttStyle, setStyle<kTagStop>},
                                      {kAttOffset, setOffset},
                                      {kAttStopColor, setStopColor<_svg_stop>}};

void setStyleType(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetContentStyleTypeAtt(&static_cast<_svg_style_props*>(record)->contentType, pair);
}

void setStyleTitle(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetTitleAtt(&static_cast<_svg_style_props*>(record)->title, pair);
}

void setStyleMedia(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetMediaDescAtt(&static_cast<_svg_style_props*>(record)->media, pair);
}

void setStyleHref(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetHrefAtt(&static_cast<_svg_style_props*>(record)->href, pair);
}

void setStyleAlternate(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  reader.SetAlternateAtt(&static_cast<_svg_style_props*>(record)->alternate, pair);
}

constexpr ActionRow kStyleActions[] = {{kAttType, setStyleType},
                                       {kAttTitle, setStyleTitle},
                                       {kAttMedia, setStyleMedia},
                                       {kAttHref, setStyleHref},
                                       {kAttAlternate, setStyleAlternate}};
constexpr ElementRow kStyleTag{GroupOffsets{}, {}, kStyleActions, {}};

}  // namespace

constexpr ElementRow kImageRow{GroupOffsets::of<_svg_image>(), kImageProperties,
                               kElementActions<_svg_image, setStyle<kTagImage>>, kImageActions};
constexpr ElementRow kTextRow{GroupOffsets::of<_svg_text>(), kTextProperties,
                              kElementActions<_svg_text, setStyle<kTagText>>, kTextActions};
constexpr ElementRow kGradientRow{
    GroupOffsets::of<_svg_gradient>(), kGradientProperties, kGradientActions, {}};
constexpr ElementRow kStopRow{GroupOffsets::of<_svg_stop>(), kStopProperties, kStopActions, {}};

}  // namespace egfsvg

int CHandlerReader::SetImageAttribute(_svg_image* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kImageRow, record, attType, pair);
}

int CHandlerReader::SetTextAttribute(_svg_text* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kTextRow, record, attType, pair);
}

int CHandlerReader::SetGradientObjAttribute(_svg_gradient* record, int attType,
                                            _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kGradientRow, record, attType, pair);
}

int CHandlerReader::SetStopObjAttribute(_svg_stop* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kStopRow, record, attType, pair);
}

int CHandlerReader::SetStyleTagAttribute(_svg_style_props* record, int attType,
                                         _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kStyleTag, record, attType, pair);
}
