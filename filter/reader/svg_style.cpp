// The class and the style attribute.

#include <cstring>

#include "frame/result_codes.h"
#include "model/rmm_allocator.h"
#include "reader/cascade.h"
#include "reader/class_names.h"
#include "reader/reports.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

constexpr std::int32_t kEmptyClassSlots = 5;  // what an attribute without a name still takes

/// Of what is left of a walk.
std::int32_t countNames(ClassNameWalk names) {
  std::int32_t count = 0;
  while (!names.next().empty()) ++count;
  return count;
}

/// Behind separators and comments.
const char* skipGaps(CHandlerReader& reader, const char* at) {
  for (;;) {
    const char* first = at;
    at += reader.SkipSeparators(at, 0);
    at += reader.SkipCSScomment(at, 0);
    if (at == first) return at;
  }
}

/// Tells of a property that is not known. The names of other programs start with a dash.
void reportProperty(const CHandlerReader& reader, const char* name) {
  if (name[0] != '-') report(reader, Diagnostic::kUnknownProperty, name, RMM_SITE);
}

/// Applies the entity behind "&"; returns what follows its ";".
char* applyEntity(CHandlerReader& reader, void* element, int type, char* at) {
  const char* name = at + 1;
  const std::size_t length = std::strcspn(name, ";");
  applyIdRules(reader, element, type, {name, length});
  at += 1 + length;
  return *at == ';' ? at + 1 : at;
}

}  // namespace

}  // namespace egfsvg

int CHandlerReader::SetClassNameAtt(_svg_common* head, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (head == nullptr || pair == nullptr || pair->value == nullptr) return 0;
  if (head->classNames != nullptr) return 0;
  ClassNameWalk walk(pair->value);
  const std::string_view first = walk.next();
  // Most attributes hold one name.
  const std::int32_t count = first.empty() ? 0 : 1 + countNames(walk);
  const auto slots = static_cast<std::size_t>(count == 0 ? kEmptyClassSlots : count);
  auto* names = static_cast<ClassName*>(RMM_CallocName(slots, sizeof(ClassName), RMM_SITE));
  if (names == nullptr) return 0;
  std::memcpy(names[0], first.data(), first.size());
  for (std::int32_t i = 1; i < count; ++i) {
    const std::string_view name = walk.next();
    std::memcpy(names[i], name.data(), name.size());
  }
  head->classNames = names;
  head->classCount = count;
  return 0;
}

// A style property inside a style attribute is passed over.
int CHandlerReader::SetLocalStyleAtt(void* element, char* value, int type) {
  using namespace egfsvg;
  if (element == nullptr || value == nullptr) return 0;
  ScratchPair scratch(state);
  if (!scratch.hasValue()) return 0;
  for (char* at = value;;) {
    at += skipGaps(*this, at) - at;
    if (*at == '&') {
      at = applyEntity(*this, element, type, at);
      continue;
    }
    scratch.clear();
    const int code = GetNextAttribPair(&at, &scratch.pair);
    if (code == kAttSyntaxError) return kNothingToRead;
    if (code == kAttNoMore) return 0;
    if (code == kAttUnknown) reportProperty(*this, scratch.pair.name);
    if (code != kAttStyle) applyStyleAttribute(*this, element, type, code, &scratch.pair);
  }
}

// Kept: the comment ends at its first "/" or ">".
int CHandlerReader::SkipCSScomment(const char* text, int index) {
  if (text == nullptr || text[index] != '/' || text[index + 1] != '*') return index;
  index += 2;
  while (text[index] != '\0' && text[index] != '/' && text[index] != '>') ++index;
  return text[index] == '\0' ? index : index + 1;
}
