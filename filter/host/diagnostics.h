// Diagnostics: what a read left out, which limit it hit, why it ended early. They are logged
// through MSG_LogMsg_Named with a text of the form "OFFSET NAME": the byte offset in the source
// ("-" when there is none) and the name that the row's "%s" stands for.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "host/messages.h"
#include "host/settings.h"

namespace egfsvg {

enum class Diagnostic : int {
#define EGFSVG_DIAGNOSTIC(name, number, text) name = number,
#include "host/diagnostics.def"
#undef EGFSVG_DIAGNOSTIC
};

struct DiagnosticRow {
  Diagnostic diagnostic;
  const char* name;  // the row's name without its leading "k"
  const char* text;
};

inline constexpr DiagnosticRow kDiagnosticRows[] = {
#define EGFSVG_DIAGNOSTIC(name, number, text) {Diagnostic::name, &#name[1], text},
#include "host/diagnostics.def"
#undef EGFSVG_DIAGNOSTIC
};

inline constexpr int kFirstDiagnostic = 60000;
inline constexpr int kFirstLimitDiagnostic = 60100;
inline constexpr int kFirstEarlyEndDiagnostic = 60200;
inline constexpr int kEndOfDiagnostics = 60300;

inline constexpr std::uint32_t kNoSourceOffset = 0xffffffffu;

// The row of a message number; null when it is no diagnostic.
constexpr const DiagnosticRow* diagnosticRow(int number) {
  for (const DiagnosticRow& row : kDiagnosticRows) {
    if (static_cast<int>(row.diagnostic) == number) return &row;
  }
  return nullptr;
}

constexpr bool isLimitDiagnostic(int number) {
  return number >= kFirstLimitDiagnostic && number < kFirstEarlyEndDiagnostic;
}

constexpr bool isEarlyEndDiagnostic(int number) {
  return number >= kFirstEarlyEndDiagnostic && number < kEndOfDiagnostics;
}

// Logs a diagnostic when the setting asks for it; a limit is logged in any case. offset may be
// kNoSourceOffset, subject may be null. Long subjects are cut.
inline void logDiagnostic(Diagnostic diagnostic, std::uint32_t offset, const char* subject,
                          const char* file, int line) {
  const int number = static_cast<int>(diagnostic);
  if (!isLimitDiagnostic(number) && !settingOn(Setting::kDiagnostics)) return;
  constexpr std::size_t kOffsetRoom = 16;
  char text[kOffsetRoom + 200];
  char* end = text;
  if (offset == kNoSourceOffset) {
    *end++ = '-';
  } else {
    end = std::to_chars(text, text + kOffsetRoom, offset).ptr;
  }
  *end++ = ' ';
  const std::size_t room = static_cast<std::size_t>(text + sizeof text - end) - 1;
  const std::size_t length = subject == nullptr ? 0 : strnlen(subject, room);
  std::memcpy(end, subject == nullptr ? "" : subject, length);
  end[length] = '\0';
  MSG_LogMsg_Named(kMessageSeverity, number, text, 0, file, line);
}

}  // namespace egfsvg
