// Groups, links and images.

#include "model/numbers.h"
#include "writer/svg_handlerwriter.h"

namespace {

std::int32_t whole(const _svg_value& value) { return egfsvg::truncated<std::int32_t>(value.value); }

}  // namespace

int CHandlerWriter::writeSVGGroupTag(_svg_group* record, HostHandle stream) {
  GetLocalAttribs(record->pa.fill, record->pa.stroke, record->pa.graphics, style_);
  AddLineJoinAttrib(record->pa.stroke, style_);
  AddLineCapAttrib(record->pa.stroke, style_);
  line_.clear();
  if (record->head.classCount != 0) {
    line_.format("  <g class=\"%s\" ", {record->head.classNames[0]});
  } else {
    line_.add("  <g");
  }
  return line_.format(" %s >", {style_.text()}).put(stream);
}

int CHandlerWriter::writeSVGGroupCloseTag(HostHandle stream) {
  return putLiteral("  </g>", stream);
}

int CHandlerWriter::writeSVGImageTag(_svg_image* record, HostHandle stream) {
  line_.clear();
  line_.format("   <image xlink:href=\"%s\" ", {record->link.value});
  line_.format("x=\"%ld\" y=\"%ld\" width=\"%ld\" height=\"%ld\"/>",
               {whole(record->x), whole(record->y), whole(record->width), whole(record->height)});
  return line_.put(stream);
}

/// Kept: always 0.
int CHandlerWriter::writeSVGLinkTag(_svg_a* record, HostHandle stream) {
  line_.clear();
  if (record->link.value != nullptr) {
    line_.format("  <a xlink:href=\"%s\">", {record->link.value});
  } else {
    line_.add("  <a >");
  }
  line_.put(stream);
  if (record->cdata != nullptr) {
    line_.clear();
    line_.format("      <![CDATA[%s]]>", {record->cdata}).put(stream);
  }
  return 0;
}

int CHandlerWriter::writeSVGLinkCloseTag(HostHandle stream) { return putLiteral("  </a>", stream); }
