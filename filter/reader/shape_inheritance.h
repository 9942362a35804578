// What a shape takes over from the svg, symbol, g or use that it stands in: the same as
// CHandlerReader::InheritStyleAndTransform, for the elements that drawings are made of.
#pragma once

#include "reader/inherited_groups.h"
#include "reader/shape_style.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// The block of an open svg, symbol, g or use, by the record in its table; null for another parent,
/// and for one that is in no table.
inline const _svg_pa* blockOfOpen(const CHandlerReader& reader, const _svg_common& parent) {
  if (parent.type == kTagGroup || parent.type == kTagUse) {
    const _svg_group* group = reader.groups.at(parent.index);
    return group != nullptr && parent.index < reader.groupCount ? &group->pa : nullptr;
  }
  if (parent.type != kTagSvg && parent.type != kTagSymbol) return nullptr;
  const _svg_svg* svg = reader.svgs.at(parent.index);
  return svg != nullptr && parent.index < reader.svgCount ? &svg->pa : nullptr;
}

/// Whether nothing but plain values goes down.
inline bool handsDownValues(const _svg_pa& pa) {
  return allNull(pa.fill.fillGradient, pa.stroke.strokeGradient, pa.stroke.strokeDashArray,
                 pa.graphics.cursor, pa.markers.markerStart, pa.markers.markerMid,
                 pa.markers.markerEnd);
}

/// For a shape with its defaults, parent and type. False, and nothing is done, when its parent is
/// another one or has more than values to hand down.
inline bool inheritShape(CHandlerReader& reader, _svg_common& head, ShapeStyle& style) {
  if (head.parent == nullptr) return true;
  const _svg_pa* from = blockOfOpen(reader, *head.parent);
  if (from == nullptr || !handsDownValues(*from)) return false;
  inheritValues(style.fill, from->fill);
  inheritValues(style.stroke, from->stroke);
  inheritValues(style.graphics, from->graphics);
  if (head.type == kTagPath) reinterpret_cast<_svg_path&>(head).pathFlag = 1;
  if (head.parent->transforms != nullptr) reader.CopyTransformList(&head, head.parent);
  return true;
}

}  // namespace egfsvg
