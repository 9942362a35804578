#include "cli/settings.h"

#include <array>
#include <string_view>

#include "cli/failure.h"
#include "embedded_host/host_messages.h"
#include "embedded_host/host_settings.h"

namespace egfsvg {
namespace {

// What the tool turns on.
constexpr std::array<std::string_view, 8> kSwitches{"uprightText",   "trueCurves", "namespaces",
                                                    "hideUnderNone", "plainStyle", "compactNumbers",
                                                    "useAnywhere",   "diagnostics"};

struct LimitRow {
  std::string_view name;
  std::uint32_t LimitOptions::*field;
};

constexpr std::array<LimitRow, 4> kLimits{{
    {"maxNesting", &LimitOptions::maxNesting},
    {"maxReferenceDepth", &LimitOptions::maxReferenceDepth},
    {"maxReferencedObjects", &LimitOptions::maxReferencedObjects},
    {"maxSourceBytes", &LimitOptions::maxSourceBytes},
}};

void set(std::string_view name, std::uint32_t value) {
  if (egfhost::setSetting(name, value)) return;
  throw Failure(ExitCode::kInternal, "the host knows no setting " + std::string(name) +
                                         "; build the tool and its host together");
}

void setLanguage(const std::string& language) {
  const char* text = language == "none" ? nullptr : language.c_str();
  if (egfhost::setSettingText("textLanguage", text)) return;
  throw Failure(ExitCode::kInternal, "--lang: no memory for the text; give a shorter tag");
}

}  // namespace

void applySettings(const Options& options) {
  egfhost::resetSettings();
  for (const LimitRow& row : kLimits) set(row.name, options.limits.*row.field);
  egfhost::setModeWord(options.quiet ? kMessageModeSilentBit : 0);
  if (options.bare) return;
  for (const std::string_view name : kSwitches) set(name, 1);
  setLanguage(options.language);
}

std::uint64_t maxSourceBytes(const Options& options) {
  return options.limits.maxSourceBytes == 0 ? kBuiltInMaxSourceBytes
                                            : options.limits.maxSourceBytes;
}

}  // namespace egfsvg
