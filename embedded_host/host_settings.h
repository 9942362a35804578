// The host's settings, by name. All are 0 when the host starts.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "host/settings.h"

namespace egfhost {

enum class SettingKind : std::uint8_t {
  kSwitch,  // 0 or 1
  kLimit,   // a number, 0 for the built-in one
  kText     // a text, null for none
};

struct SettingRow {
  std::string_view name;  // "hideUnderNone"
  egfsvg::Setting setting;
  SettingKind kind;
};

EGFHOST_API std::span<const SettingRow> settingRows();
EGFHOST_API const SettingRow* settingRow(std::string_view name);  // null when there is none

// False when the name is not known or of the other kind, or when memory is short.
EGFHOST_API bool setSetting(std::string_view name, std::uint32_t value);
EGFHOST_API bool setSettingText(std::string_view name, const char* text);

// The word of a setting, 0 for an unknown name.
EGFHOST_API std::uint32_t getSetting(std::string_view name);

// All words to 0; frees the texts.
EGFHOST_API void resetSettings();

}  // namespace egfhost
