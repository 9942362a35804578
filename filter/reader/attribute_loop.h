// The attributes of one tag, handed on one by one.
#pragma once

#include <cstring>

#include "reader/reports.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// Names of other vocabularies are nothing that this one leaves out.
inline bool isForeignName(const char* name) {
  return std::strchr(name, ':') != nullptr || std::strcmp(name, "xmlns") == 0;
}

/// Tells of an attribute that is not known.
inline void reportUnknownName(const CHandlerReader& reader, const char* name) {
  if (reader.state.reporting && !isForeignName(name)) {
    report(reader, Diagnostic::kUnknownAttribute, name, RMM_SITE);
  }
}

/// Reads on to the end of the tag and hands each pair to `apply(code, pair)`. kAttNoMore; or
/// kAttSyntaxError at a pair that cannot be read, and without memory.
template <class Apply>
int readAttributesQuietly(CHandlerReader& reader, Apply apply) {
  ScratchPair scratch(reader.state);
  if (!scratch.hasValue()) return kAttSyntaxError;
  for (;;) {
    scratch.clear();
    const int code = reader.GetNextAttribPair(&scratch.pair);
    if (code == kAttNoMore || code == kAttSyntaxError) return code;
    apply(code, &scratch.pair);
  }
}

/// The same, and names that are not known are told.
template <class Apply>
int readAttributes(CHandlerReader& reader, Apply apply) {
  return readAttributesQuietly(reader, [&](int code, _svg_attrib_pair* pair) {
    if (code == kAttUnknown) reportUnknownName(reader, pair->name);
    apply(code, pair);
  });
}

}  // namespace egfsvg
