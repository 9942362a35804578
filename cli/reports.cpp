#include "cli/reports.h"

#include <unistd.h>

#include <algorithm>
#include <array>

#include "cli/utf8.h"
#include "embedded_host/host_messages.h"

namespace egfsvg {
namespace {

// Warnings of one drawing that are printed; the rest is counted.
constexpr std::uint64_t kMostLines = 50;
// Different warnings that are remembered, so that each is printed once.
constexpr std::size_t kMostRemembered = 10000;

struct LimitRow {
  Diagnostic limit;
  const char* option;
};

constexpr std::array<LimitRow, 4> kLimitOptions{{
    {Diagnostic::kNestingLimit, "--max-nesting"},
    {Diagnostic::kReferenceDepthLimit, "--max-reference-depth"},
    {Diagnostic::kReferencedObjectsLimit, "--max-referenced-objects"},
    {Diagnostic::kSourceBytesLimit, "--max-source-bytes"},
}};

// What tells about a drawing and draws nothing. Leaving it out changes no picture, so it is counted
// and not warned about.
constexpr std::array<std::string_view, 5> kTellingElements{"title", "desc", "metadata", "script",
                                                           "!DOCTYPE"};
constexpr std::array<std::string_view, 6> kTellingAttributes{
    "version", "baseProfile", "contentScriptType", "role", "lang", "tabindex"};

template <std::size_t kCount>
bool isOneOf(const std::array<std::string_view, kCount>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// A name of another vocabulary than SVG: "inkscape:label", "data-id".
bool isForeign(std::string_view name) {
  constexpr std::array<std::string_view, 2> kOwn{"svg", "xlink"};
  const std::size_t colon = name.find(':');
  if (colon == std::string_view::npos)
    return name.starts_with("data-") || name.starts_with("aria-");
  return !isOneOf(kOwn, name.substr(0, colon));
}

bool drawsNothing(int number, std::string_view subject) {
  switch (static_cast<Diagnostic>(number)) {
    case Diagnostic::kUnknownElement:
      return isForeign(subject) || isOneOf(kTellingElements, subject);
    case Diagnostic::kUnknownAttribute:
      return isForeign(subject) || isOneOf(kTellingAttributes, subject);
    default:
      return false;
  }
}

}  // namespace

void sayLine(const std::string& text) {
  const std::string line = "egfsvg: " + printableText(text) + "\n";
  // One write, so that lines of several processes do not mix.
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, line.data(), line.size());
}

const char* limitOption(Diagnostic limit) {
  for (const LimitRow& row : kLimitOptions) {
    if (row.limit == limit) return row.option;
  }
  return nullptr;
}

Reports::Reports(std::string name, const std::string& path, bool quiet)
    : name_(std::move(name)), lines_(path), quiet_(quiet) {
  egfhost::setMessageListener([this](const egfhost::Message& message) { take(message); });
}

Reports::~Reports() { egfhost::setMessageListener({}); }

void Reports::finish() {
  if (heldBack_ > 0 && !quiet_) {
    sayLine(name_ + ": " + std::to_string(heldBack_) +
            " more kinds of warnings; info lists what was left out");
  }
  heldBack_ = 0;
}

void Reports::take(const egfhost::Message& message) {
  if (message.kind == egfhost::MessageKind::kNotice) return warn(name_ + ": " + message.text);
  if (diagnosticRow(message.number) != nullptr) {
    return takeDiagnostic(message.number, message.text);
  }
  const std::string words = egfhost::messageText(message.number, message.text);
  if (isFirst(message.number, words)) warn(name_ + ": warning: " + words);
}

void Reports::takeDiagnostic(int number, const std::string& text) {
  const egfhost::DiagnosticText parts = egfhost::splitDiagnosticText(text);
  const std::string words = egfhost::messageText(number, parts.subject);
  const bool first = isFirst(number, words);
  endedEarly_ = endedEarly_ || isEarlyEndDiagnostic(number);
  if (isLimitDiagnostic(number)) return takeLimit(number, placed(parts.offset) + words, first);
  if (first && !drawsNothing(number, parts.subject)) {
    warn(placed(parts.offset) + "warning: " + words);
  }
}

void Reports::takeLimit(int number, const std::string& line, bool first) {
  const char* option = limitOption(static_cast<Diagnostic>(number));
  const bool ends = option != nullptr || number == static_cast<int>(Diagnostic::kMemoryLimit);
  if (!ends) return warn(line);
  if (first) sayLine(option == nullptr ? line : line + "; raise the limit with " + option);
  limitHit_ = true;
}

// The same thing is told once, where it was first met; the others are counted.
bool Reports::isFirst(int number, const std::string& words) {
  const auto entry = told_.find({number, words});
  if (entry != told_.end()) {
    ++entry->second;
    return false;
  }
  if (told_.size() < kMostRemembered) told_.emplace(std::pair(number, words), 1);
  return true;
}

void Reports::warn(const std::string& line) {
  if (quiet_) return;
  if (printed_ == kMostLines) {
    ++heldBack_;
    return;
  }
  ++printed_;
  sayLine(line);
}

std::string Reports::placed(std::uint32_t offset) {
  if (offset == kNoSourceOffset) return name_ + ": ";
  const LineColumn place = lines_.at(offset);
  return name_ + ":" + std::to_string(place.line) + ":" + std::to_string(place.column) + ": ";
}

}  // namespace egfsvg
