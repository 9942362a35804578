// Owned text fields of records.
#pragma once

#include <cstring>

#include "model/rmm_allocator.h"
#include "model/values.h"

namespace egfsvg {

/// Stores a copy of the pair's value and frees the old text. Without memory the value is dropped
/// and the old text stays.
inline int replaceText(char** field, const _svg_attrib_pair* pair) {
  if (field == nullptr || pair == nullptr || pair->value == nullptr) return 0;
  const std::size_t length = pair->valueLength != kLengthNotTold
                                 ? static_cast<std::size_t>(pair->valueLength)
                                 : std::strlen(pair->value);
  char* copy = duplicateText(pair->value, length, RMM_SITE);
  if (copy == nullptr) return 0;
  freeAll(*field);
  *field = copy;
  return 0;
}

/// The same, but a text that is there stays.
inline int keepFirstText(char** field, const _svg_attrib_pair* pair) {
  return field == nullptr || *field != nullptr ? 0 : replaceText(field, pair);
}

/// Makes a field a copy of another record's text; null makes it null.
inline void copyText(char*& field, const char* text) {
  char* copy = text == nullptr ? nullptr : duplicateText(text, RMM_SITE);
  freeAll(field);
  field = copy;
}

/// A longer text does not go down: every element below would copy it.
inline constexpr std::size_t kLongestInherited = 65535;

/// Makes a field a copy of the parent's text, as far as that goes down.
inline void inheritText(char*& field, const char* text) {
  const bool goesDown =
      text != nullptr && strnlen(text, kLongestInherited + 1) <= kLongestInherited;
  copyText(field, goesDown ? text : nullptr);
}

}  // namespace egfsvg
