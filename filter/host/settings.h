// The host's settings record: 32-bit words, one record for the process, all 0 at the start.
// A word of 0 is the bare filter; the limits always apply, 0 meaning the built-in one.
#pragma once

#include <cstdint>

#include "host/wire.h"

extern "C" EGFHOST_API std::uint32_t* CFG_GetDefaults(int reserved1, int reserved2);

namespace egfsvg {

// Indices of the words that the filter reads.
enum class Setting : std::uint32_t {
  kSeventhStyleTable = 1568,  // non-zero: a writer's style set holds a seventh table
  kTextLanguage = 1600,       // ref32 to a text: the language of text that names none
  kUprightText = 1601,
  kTrueCurves = 1602,
  kNamespaces = 1603,
  kHideUnderNone = 1604,
  kMaxNesting = 1605,            // open containers
  kMaxReferenceDepth = 1606,     // references inside references
  kMaxReferencedObjects = 1607,  // objects that a read takes through references
  kMaxSourceBytes = 1608,
  kPlainStyle = 1609,
  kCompactNumbers = 1610,
  kUseAnywhere = 1611,
  kDiagnostics = 1612  // what is dropped is logged (host/diagnostics.h)
};

inline constexpr std::uint32_t kSettingsWords = 2048;

inline constexpr std::uint32_t kBuiltInMaxNesting = 1024;
inline constexpr std::uint32_t kBuiltInMaxReferenceDepth = 64;
inline constexpr std::uint32_t kBuiltInMaxReferencedObjects = 1000000;
inline constexpr std::uint32_t kBuiltInMaxSourceBytes = 0x7fffffff;

inline std::uint32_t settingWord(Setting setting) {
  const std::uint32_t* words = CFG_GetDefaults(0, 0);
  return words == nullptr ? 0 : words[static_cast<std::uint32_t>(setting)];
}

inline bool settingOn(Setting setting) { return settingWord(setting) != 0; }

// A limit, or the built-in one when the word is 0.
inline std::uint32_t settingLimit(Setting setting, std::uint32_t builtIn) {
  const std::uint32_t word = settingWord(setting);
  return word == 0 ? builtIn : word;
}

inline std::uint32_t maxNesting() { return settingLimit(Setting::kMaxNesting, kBuiltInMaxNesting); }
inline std::uint32_t maxReferenceDepth() {
  return settingLimit(Setting::kMaxReferenceDepth, kBuiltInMaxReferenceDepth);
}
inline std::uint32_t maxReferencedObjects() {
  return settingLimit(Setting::kMaxReferencedObjects, kBuiltInMaxReferencedObjects);
}
inline std::uint32_t maxSourceBytes() {
  return settingLimit(Setting::kMaxSourceBytes, kBuiltInMaxSourceBytes);
}

// The language given to text that names none; null when there is none.
inline const char* textLanguage() { return at<const char>(settingWord(Setting::kTextLanguage)); }

}  // namespace egfsvg
