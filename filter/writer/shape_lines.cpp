// Plain shapes: style text, head, body, one line each. The body formats are the rows; the double
// blanks in them are required.

#include "writer/element_head.h"
#include "writer/svg_handlerwriter.h"

namespace egfsvg {

const transformEntry* rotationOf(const _svg_common& head) {
  const bool rotated =
      head.transforms != nullptr && head.transformCount > 0 && head.transforms[0].kind == kRotate;
  return rotated ? &head.transforms[0] : nullptr;
}

}  // namespace egfsvg

int CHandlerWriter::writeSVGLineTag(_svg_line* record, HostHandle stream) {
  using namespace egfsvg;
  GetLocalAttribs(record->fill, record->stroke, record->graphics, style_);
  AddLineCapAttrib(record->stroke, style_);
  const auto& style = withReference<kStrokeReference>(record->head, style_, reference_);
  startElement<"line">(record->head, line_);
  line_.format<"x1=\"%.2f\"  y1=\"%.2f\" x2=\"%.2f\" y2=\"%.2f\" %s/>">(
      record->x1.value, record->y1.value, record->x2.value, record->y2.value, style);
  return line_.put(stream);
}

int CHandlerWriter::writeSVGRectTag(_svg_rect* record, HostHandle stream) {
  using namespace egfsvg;
  GetLocalAttribs(record->fill, record->stroke, record->graphics, style_);
  AddLineJoinAttrib(record->stroke, style_);
  const auto& style = withReference<kAreaReference>(record->head, style_, reference_);
  startElement<"rect">(record->head, line_);
  line_.format<"x=\"%ld\" y=\"%ld\" width=\"%ld\" height=\"%ld\" %s />">(
      wholeOf(record->x), wholeOf(record->y), wholeOf(record->width), wholeOf(record->height),
      style);
  return line_.put(stream);
}

int CHandlerWriter::writeSVGCircleTag(_svg_circle* record, HostHandle stream) {
  using namespace egfsvg;
  GetLocalAttribs(record->fill, record->stroke, record->graphics, style_);
  const auto& style = withReference<kAreaReference>(record->head, style_, reference_);
  startElement<"circle">(record->head, line_);
  line_.format<"cx=\"%.3f\"  cy=\"%.3f\" r=\"%.3f\" %s />">(record->cx.value, record->cy.value,
                                                            record->r.value, style);
  return line_.put(stream);
}

int CHandlerWriter::writeSVGEllipseTag(_svg_ellipse* record, HostHandle stream) {
  using namespace egfsvg;
  GetLocalAttribs(record->fill, record->stroke, record->graphics, style_);
  const auto& style = withReference<kAreaReference>(record->head, style_, reference_);
  startElement<"ellipse">(record->head, line_);
  line_.format<"cx=\"%.3f\"  cy=\"%.3f\" rx=\"%.3f\" ry=\"%.3f\" %s ">(
      record->cx.value, record->cy.value, record->rx.value, record->ry.value, style);
  if (const transformEntry* rotation = rotationOf(record->head)) {
    line_.format<" transform=\"rotate(%f %ld %ld)\"">(rotation->args[0].value, wholeOf(record->cx),
                                                      wholeOf(record->cy));
  }
  return line_.format<"/>">().put(stream);
}
