#include "host/settings.h"

#include <array>
#include <cstring>

#include "embedded_host/host_settings.h"
#include "host/memory.h"

namespace egfhost {

namespace {

using egfsvg::Setting;

constexpr SettingRow kRows[] = {
    {"seventhStyleTable", Setting::kSeventhStyleTable, SettingKind::kSwitch},
    {"textLanguage", Setting::kTextLanguage, SettingKind::kText},
    {"uprightText", Setting::kUprightText, SettingKind::kSwitch},
    {"trueCurves", Setting::kTrueCurves, SettingKind::kSwitch},
    {"namespaces", Setting::kNamespaces, SettingKind::kSwitch},
    {"hideUnderNone", Setting::kHideUnderNone, SettingKind::kSwitch},
    {"maxNesting", Setting::kMaxNesting, SettingKind::kLimit},
    {"maxReferenceDepth", Setting::kMaxReferenceDepth, SettingKind::kLimit},
    {"maxReferencedObjects", Setting::kMaxReferencedObjects, SettingKind::kLimit},
    {"maxSourceBytes", Setting::kMaxSourceBytes, SettingKind::kLimit},
    {"plainStyle", Setting::kPlainStyle, SettingKind::kSwitch},
    {"compactNumbers", Setting::kCompactNumbers, SettingKind::kSwitch},
    {"useAnywhere", Setting::kUseAnywhere, SettingKind::kSwitch},
    {"diagnostics", Setting::kDiagnostics, SettingKind::kSwitch},
};

// All that the settings keep: the record, and the block behind its one text.
struct SettingsState {
  std::array<std::uint32_t, egfsvg::kSettingsWords> words{};
};

constinit SettingsState state{};

void setWord(Setting setting, std::uint32_t word) {
  state.words[static_cast<std::uint32_t>(setting)] = word;
}

bool setTextLanguage(const char* text) {
  char* block = nullptr;
  if (text != nullptr && *text != '\0') {
    const std::size_t size = std::strlen(text) + 1;
    block = static_cast<char*>(RMM_AllocName(size, 1, RMM_SITE));
    if (block == nullptr) return false;
    std::memcpy(block, text, size);
  }
  RMM_Free(egfsvg::at<char>(egfsvg::settingWord(Setting::kTextLanguage)));
  setWord(Setting::kTextLanguage, egfsvg::handleOf(block));
  return true;
}

}  // namespace

std::span<const SettingRow> settingRows() { return kRows; }

const SettingRow* settingRow(std::string_view name) {
  for (const SettingRow& row : kRows) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

bool setSetting(std::string_view name, std::uint32_t value) {
  const SettingRow* row = settingRow(name);
  if (row == nullptr || row->kind == SettingKind::kText) return false;
  setWord(row->setting, value);
  return true;
}

bool setSettingText(std::string_view name, const char* text) {
  const SettingRow* row = settingRow(name);
  if (row == nullptr || row->kind != SettingKind::kText) return false;
  return setTextLanguage(text);
}

std::uint32_t getSetting(std::string_view name) {
  const SettingRow* row = settingRow(name);
  return row == nullptr ? 0 : egfsvg::settingWord(row->setting);
}

void resetSettings() {
  setTextLanguage(nullptr);
  state.words.fill(0);
}

}  // namespace egfhost

std::uint32_t* CFG_GetDefaults(int, int) { return egfhost::state.words.data(); }
