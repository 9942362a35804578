// Groups, links and images.

#include "writer/element_head.h"
#include "writer/svg_handlerwriter.h"

int CHandlerWriter::writeSVGGroupTag(_svg_group* record, HostHandle stream) {
  GetLocalAttribs(record->pa.fill, record->pa.stroke, record->pa.graphics, style_);
  AddLineJoinAttrib(record->pa.stroke, style_);
  AddLineCapAttrib(record->pa.stroke, style_);
  line_.clear();
  if (record->head.classCount != 0) {
    line_.format<"  <g class=\"%s\" ">(record->head.classNames[0]);
  } else {
    line_.format<"  <g">();
  }
  return line_.format<" %s >">(style_).put(stream);
}

int CHandlerWriter::writeSVGGroupCloseTag(HostHandle stream) {
  return putLiteral("  </g>", stream);
}

int CHandlerWriter::writeSVGImageTag(_svg_image* record, HostHandle stream) {
  using egfsvg::wholeOf;
  line_.clear();
  line_.format<"   <image xlink:href=\"%s\" ">(record->link.value);
  line_.format<"x=\"%ld\" y=\"%ld\" width=\"%ld\" height=\"%ld\"/>">(
      wholeOf(record->x), wholeOf(record->y), wholeOf(record->width), wholeOf(record->height));
  return line_.put(stream);
}

/// Kept: always 0.
int CHandlerWriter::writeSVGLinkTag(_svg_a* record, HostHandle stream) {
  line_.clear();
  if (record->link.value != nullptr) {
    line_.format<"  <a xlink:href=\"%s\">">(record->link.value);
  } else {
    line_.format<"  <a >">();
  }
  line_.put(stream);
  if (record->cdata != nullptr) {
    line_.clear();
    line_.format<"      <![CDATA[%s]]>">(record->cdata).put(stream);
  }
  return 0;
}

int CHandlerWriter::writeSVGLinkCloseTag(HostHandle stream) { return putLiteral("  </a>", stream); }
