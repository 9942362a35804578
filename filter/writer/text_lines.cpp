// Text: attributes, then the style form, then the content; later runs as tspan elements.

#include <cstring>

#include "writer/svg_handlerwriter.h"

namespace egfsvg {
namespace {

constexpr const char* kEnglish = "xml:lang=\"en\"";
constexpr int kMatrixArguments = 6;

/// Bytes that would end the attribute's element are dropped.
void addFamily(const char* family, LineBuilder& out) {
  for (const char* c = family == nullptr ? "" : family; *c != '\0'; ++c) {
    if (*c != '<' && *c != '>') out.add({c, 1});
  }
}

/// Kept: only this one language text is ever printed, and it carries no leading blank.
void addLanguage(const char* language, LineBuilder& out) {
  if (language != nullptr && std::strcmp(language, kEnglish) == 0) out.format<" %s">(language);
}

void addMatrix(const _svg_common& head, LineBuilder& out) {
  if (head.transforms == nullptr || head.transformCount < 1) return;
  const transformEntry& entry = head.transforms[0];
  if (entry.kind != kMatrix || entry.argCount < kMatrixArguments) return;
  const _svg_value* m = entry.args;
  out.format<" transform=\"matrix(%.6f,%.6f,%.6f,%.6f,%.6f,%.6f)\"">(
      m[0].value, m[1].value, m[2].value, m[3].value, m[4].value, m[5].value);
}

void addAttributes(const _svg_text& text, LineBuilder& out) {
  out.format<"x=\"%.2f\" y=\"%.2f\" font-family=\"">(text.position.x.value, text.position.y.value);
  addFamily(text.fontspec.fontFamily, out);
  out.format<"\" font-size=\"%.2f\"">(text.fontspec.fontSize.value);
  addLanguage(text.lang.value, out);
  addMatrix(text.head, out);
}

}  // namespace
}  // namespace egfsvg

/// Kept: runs behind the first lose their style.
int CHandlerWriter::writeSVGTextTag(_svg_text* record, HostHandle stream) {
  using namespace egfsvg;
  GetStyle(record->fill, record->stroke, record->graphics, style_);
  AddTextElemsTextContentElemsStyle(record->textelems, record->textcontentelems, style_);
  AddFontStyle(record->fontspec, style_);
  AddGraphicalEventAttrib(record->graphics, record->events, style_);
  line_.clear();
  line_.add("   <text ");
  addAttributes(*record, line_);
  line_.format<"\n    %s>\n     %s">(style_, record->content);
  if (record->next == nullptr) return line_.add("\n   </text>").put(stream);
  if (line_.put(stream) == -1) return -1;
  for (const _svg_text* run = record->next; run != nullptr; run = run->next) {
    line_.clear();
    line_.format<"   <tspan x=\"%.3f\" y=\"%.3f\" >\n     %s\n   </tspan>">(
        run->position.x.value, run->position.y.value, run->content);
    if (line_.put(stream) == -1) return -1;
  }
  return putLiteral("   </text>", stream);
}
