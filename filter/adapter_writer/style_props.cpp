// Pooled pens as style rules, pens of the document as entities.

#include <cstring>
#include <string_view>

#include "adapter_writer/style_pools.h"
#include "adapter_writer/user_scale.h"
#include "host/egf_bits.h"
#include "model/paint_codes.h"

namespace egfsvg {
namespace {

constexpr std::string_view kEntityPrefix = "st";

void setStrokeRule(CAdapterWriter& writer, const PooledStroke& pen, _svg_style_props* props) {
  _svg_pa_stroke& stroke = props->pa.stroke;
  writer._setStyleStroke(stroke, pen.rasterOp, pen.strokeColor);
  props->pa.fill.packedColor = kBlackPaint;
  props->pa.fill.fillOpacity = 0.0;
  stroke.strokeLinejoin = writer._setSvgLineJoin(pen.joinStyle);
  writer._setStrokeWidth(stroke, pen.lineWidth);
  stroke.strokeLinecap = writer._setSvgLineCap(pen.capStyle);
  stroke.strokeDashCount = 0;
}

void setFillRule(CAdapterWriter& writer, const PooledFill& pen, _svg_style_props* props) {
  _svg_pa_fill& fill = props->pa.fill;
  _svg_pa_stroke& stroke = props->pa.stroke;
  writer._setStyleFillAndStroke(fill, stroke, pen.fillStyle, pen.fillColor, pen.strokeColor);
  fill.fillRule = writer._setFillMode(static_cast<int>(FillRuleBits::get(pen.modeFlags)));
  stroke.strokeLinejoin = writer._setSvgLineJoin(pen.joinStyle);
  writer._setStrokeWidth(stroke, pen.lineWidth);
  stroke.strokeDashCount = 0;
}

/// Names the rule by the number of its record; false when the table has no such record.
bool nameRule(HostHandle table, std::uint32_t size, const void* record, std::string_view prefix,
              _svg_style_props* props) {
  const std::uint32_t number = STYLE_QueryStyleNo(table, size, record);
  if (number != 0) props->selector = styleName(prefix, number);
  return number != 0;
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

void CAdapterWriter::SetStyleProps(std::uint32_t size, const void* pooled,
                                   _svg_style_props* props) {
  if (size != kPooledStrokeSize && size != kPooledFillSize) return;
  const PoolRow& pool = size == kPooledStrokeSize ? kStrokePool : kFillPool;
  if (!nameRule(poolTable(*this, pool), size, pooled, pool.prefix, props)) return;
  if (size == kPooledStrokeSize) {
    setStrokeRule(*this, *static_cast<const PooledStroke*>(pooled), props);
  } else {
    setFillRule(*this, *static_cast<const PooledFill*>(pooled), props);
  }
}

void CAdapterWriter::SetStyleProps(const _egf_gdi_fillparms_tag* pen, _svg_style_props* props) {
  const HostHandle table = documentTable(*this, kStylePen);
  if (nameRule(table, sizeof *pen, pen, kEntityPrefix, props)) setFillRule(*this, *pen, props);
}
