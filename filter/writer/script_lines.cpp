// A fixed script that shows and hides annotations. Kept: nothing in the order of a file reaches it.

#include "writer/svg_handlerwriter.h"

namespace {

constexpr const char* kScriptLines[] = {
    " function EGF_ANNO_click(evt, indicatorId, indicatorId1,visibilityValue, visibilityValue1){",
    "  var target = evt.target;\n  var doc = target.ownerDocument;\n",
    "  var elementToShow = doc.getElementById(indicatorId);",
    "  var elementToShow1 = doc.getElementById(indicatorId1);",
    "  elementToShow.setAttribute('visibility', '' + visibilityValue);",
    "  elementToShow1.setAttribute('visibility', '' + visibilityValue1);\n}",
};

}  // namespace

int CHandlerWriter::writeOpenScriptTag(_svg_script* record, HostHandle stream) {
  line_.clear();
  line_.add("<script type=\"text/ecmascript\" ");
  if (record->href != nullptr) line_.format<"xlink:href=\"%s\"">(record->href);
  int result = line_.add("> <![CDATA[ ").put(stream);
  for (const char* text : kScriptLines) {
    if (result == -1) return -1;
    result = putLiteral(text, stream);
  }
  return result;
}

int CHandlerWriter::writeCloseScriptTag(HostHandle stream) {
  return putLiteral("   ]]></script>", stream);
}
