// Which forms of selectors a style table holds, so that nothing is asked of it that it cannot
// answer.
#pragma once

#include <cstdint>

#include "model/keyed.h"
#include "model/svg_map.h"

namespace egfsvg {

/// Gathered from the keys as they come in. A table that shrank is gathered anew.
class RuleForms {
 public:
  bool classes(const Map<AttNode>& rules) { return has(rules, kClass); }
  bool ids(const Map<AttNode>& rules) { return has(rules, kId); }
  bool descendants(const Map<AttNode>& rules) { return has(rules, kDescendant); }
  bool children(const Map<AttNode>& rules) { return has(rules, kChild); }
  bool attributes(const Map<AttNode>& rules) { return has(rules, kAttribute); }

  /// To be called where the table is emptied.
  void forget() { seen_ = forms_ = 0; }

 private:
  enum Form : std::int32_t { kClass = 1, kId = 2, kDescendant = 4, kChild = 8, kAttribute = 16 };

  static constexpr std::int32_t formOf(char c) {
    switch (c) {
      case '.':
        return kClass;
      case '#':
        return kId;
      case ' ':
        return kDescendant;
      case '>':
        return kChild;
      case '[':
        return kAttribute;
      default:
        return 0;
    }
  }

  bool has(const Map<AttNode>& rules, Form form) {
    if (rules.count < seen_) forget();
    for (; seen_ < rules.count; ++seen_) {
      for (const char* at = rules.entries[seen_].key; *at != '\0'; ++at) forms_ |= formOf(*at);
    }
    return (forms_ & form) != 0;
  }

  std::int32_t seen_ = 0;
  std::int32_t forms_ = 0;
};

}  // namespace egfsvg
