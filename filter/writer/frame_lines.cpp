// The frame of a file: header, document type, definitions, style sheet, and the svg element.

#include <string_view>

#include "host/settings.h"
#include "writer/element_head.h"
#include "writer/svg_handlerwriter.h"

namespace egfsvg {
namespace {

constexpr double kXmlVersion = 1.0;
constexpr const char* kNotice = "<!-- Written by the SVG format filter -->";
constexpr const char* kDoctype =
    "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" "
    "\"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\" [";
constexpr const char* kNamespaces =
    " xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\"";

constexpr std::int32_t kAttributeStart = 6;  // of style="...": the text from its quote on
constexpr std::int32_t kListStart = 7;       // and behind it

}  // namespace
}  // namespace egfsvg

int CHandlerWriter::putLiteral(const char* text, HostHandle stream) {
  line_.clear();
  return line_.add(text).put(stream);
}

int CHandlerWriter::writeSVGHeader(_objectStream* record, HostHandle stream) {
  using namespace egfsvg;
  openSvgs_ = 0;
  line_.clear();
  line_.format<"<?xml version=\"%.1f\" standalone=\"no\"?>">(kXmlVersion);
  if (line_.put(stream) == -1 || putLiteral(kNotice, stream) == -1) return -1;
  if (record->comment[0] != '\0') {
    line_.clear();
    if (line_.format<"<!-- %s -->">(record->comment).put(stream) == -1) return -1;
  }
  return putLiteral(kDoctype, stream);
}

int CHandlerWriter::writeCloseDoctype(HostHandle stream) { return putLiteral("]>", stream); }
int CHandlerWriter::writeOpenDefsTag(HostHandle stream) { return putLiteral("   <defs>", stream); }
int CHandlerWriter::writeCloseDefsTag(HostHandle stream) {
  return putLiteral("   </defs>", stream);
}
int CHandlerWriter::writeOpenStyleTag(HostHandle stream) {
  return putLiteral("       <style type=\"text/css\"><![CDATA[ ", stream);
}
int CHandlerWriter::writeCloseStyleTag(HostHandle stream) {
  return putLiteral("       ]]></style>", stream);
}

/// The outermost svg can carry namespaces, so that other programs know the file.
int CHandlerWriter::writeOpenSVGTag(_svg_svg* record, HostHandle stream) {
  using namespace egfsvg;
  line_.clear();
  line_.add("<svg");
  if (openSvgs_++ == 0 && settingOn(Setting::kNamespaces)) line_.add(kNamespaces);
  const _svg_viewbox* box = record->viewBox;
  if (box == nullptr || record->width.unit != kUnitPercent) {
    line_.format<" x=\"%ld\" y=\"%ld\" width=\"%ld\" height=\"%ld\"">(
        wholeOf(record->x), wholeOf(record->y), wholeOf(record->width), wholeOf(record->height));
  } else {
    line_.add(" ");
  }
  if (box != nullptr) {
    line_.format<" viewBox=\"%ld %ld %ld %ld\"">(wholeOf(box->x), wholeOf(box->y),
                                                 wholeOf(box->width), wholeOf(box->height));
  }
  return line_.add(">").put(stream);
}

int CHandlerWriter::writeCloseSVGTag(HostHandle stream) {
  --openSvgs_;
  return putLiteral("</svg>", stream);
}

/// Kept: an entity has no line cap.
int CHandlerWriter::writeEntityData(_svg_style_props* record, HostHandle stream) {
  using namespace egfsvg;
  GetStyle(record->pa.fill, record->pa.stroke, record->pa.graphics, style_);
  AddLineJoinStyle(record->pa.stroke, style_);
  if (style_.failed()) return -1;
  line_.clear();
  line_.format<"   <!ENTITY %s">(record->selector);
  line_.format<" %s >">(style_.text().substr(kAttributeStart));
  return line_.put(stream);
}

int CHandlerWriter::writeCSSStyleSheetData(_svg_style_props* record, HostHandle stream) {
  using namespace egfsvg;
  GetStyle(record->pa.fill, record->pa.stroke, record->pa.graphics, style_);
  AddLineJoinStyle(record->pa.stroke, style_);
  AddLineCapStyle(record->pa.stroke, style_);
  if (style_.failed()) return -1;
  line_.clear();
  line_.format<"      .%s {">(record->selector);
  line_.format<" %s">(style_.text().substr(kListStart));
  return line_.takeBack(1).add(" }").put(stream);
}
