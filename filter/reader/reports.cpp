#include "reader/reports.h"

#include <cstring>

#include "model/characters.h"

namespace egfsvg {

namespace {

struct TagText {
  int tag;
  const char* text;
};
constexpr TagText kTagTexts[] = {
#define EGFSVG_TAG(name, code, text) {code, text},
#include "model/tags.def"
#undef EGFSVG_TAG
};

}  // namespace

const char* elementName(int tag, char (&text)[kElementNameSize]) {
  text[0] = '\0';
  for (const TagText& row : kTagTexts) {
    if (row.tag != tag) continue;
    std::size_t i = 0;
    for (; row.text[i] != '\0' && i + 1 < kElementNameSize; ++i) text[i] = lower(row.text[i]);
    text[i] = '\0';
    break;
  }
  return text;
}

void reportElement(const CHandlerReader& reader, Diagnostic diagnostic, int tag, const char* file,
                   int line) {
  char name[kElementNameSize];
  if (reader.state.reporting) report(reader, diagnostic, elementName(tag, name), file, line);
}

}  // namespace egfsvg
