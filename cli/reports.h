// What the host is told while a drawing is read, turned into lines on standard error.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "cli/source_lines.h"
#include "host/diagnostics.h"

namespace egfhost {
struct Message;
}

namespace egfsvg {

// One line on standard error: "egfsvg: TEXT". Control characters and bytes that are no text, which
// drawings can bring in, are escaped.
void sayLine(const std::string& text);

// The option that raises a limit; null when none does.
const char* limitOption(Diagnostic limit);

// Listens to the host's messages while it lives. Only one may live at a time.
class Reports {
 public:
  // name stands in the lines; path is the plain file that offsets refer to. Quiet prints nothing
  // but limits.
  Reports(std::string name, const std::string& path, bool quiet);
  Reports(const Reports&) = delete;
  Reports& operator=(const Reports&) = delete;
  ~Reports();

  // True when a limit that ends or cuts a read was hit.
  bool limitHit() const { return limitHit_; }
  // True when a read said that it ended before the end of its source.
  bool endedEarly() const { return endedEarly_; }
  // What was told, in words, and how often; the first kMostRemembered different things.
  using Told = std::map<std::pair<int, std::string>, std::uint64_t>;
  const Told& told() const { return told_; }

  // Prints how many lines were held back, if any.
  void finish();

 private:
  void take(const egfhost::Message& message);
  void takeDiagnostic(int number, const std::string& text);
  void takeLimit(int number, const std::string& line, bool first);
  bool isFirst(int number, const std::string& words);
  void warn(const std::string& line);
  std::string placed(std::uint32_t offset);

  std::string name_;
  SourceLines lines_;
  bool quiet_;
  bool limitHit_ = false;
  bool endedEarly_ = false;
  std::uint64_t printed_ = 0;
  std::uint64_t heldBack_ = 0;
  Told told_;
};

}  // namespace egfsvg
