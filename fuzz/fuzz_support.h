// What the fuzz targets share: checks that end the program, and inputs in the form that the parsers
// take them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "embedded_host/host_files.h"
#include "embedded_host/host_memory.h"
#include "embedded_host/host_settings.h"
#include "host/files.h"
#include "host/memory.h"
#include "model/values.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg::fuzz {

inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

// At its end no block is live that was not live at its start, and no free was wrong.
class LeakCheck {
 public:
  LeakCheck() : sites_(egfhost::liveSites()), badFrees_(egfhost::memoryCounters().badFrees) {}
  ~LeakCheck() {
    const auto left = egfhost::liveSitesSince(sites_);
    require(left.empty(), egfhost::describeSites(left).c_str());
    require(egfhost::memoryCounters().badFrees == badFrees_, "every free is of a live block");
  }
  LeakCheck(const LeakCheck&) = delete;
  LeakCheck& operator=(const LeakCheck&) = delete;

 private:
  std::vector<egfhost::SiteUse> sites_;
  std::uint64_t badFrees_;
};

// The input: its first byte chooses settings and a kind, the rest is the text.
struct Input {
  Input(const std::uint8_t* data, std::size_t size)
      : choice(size == 0 ? 0 : data[0]),
        text(size == 0 ? "" : std::string(reinterpret_cast<const char*>(data) + 1, size - 1)) {}

  // Host settings by the top bits of the choice.
  void applySettings() const {
    egfhost::setSetting("compactNumbers", (choice >> 7) & 1);
    egfhost::setSetting("plainStyle", (choice >> 6) & 1);
    egfhost::setSetting("diagnostics", (choice >> 5) & 1);
  }
  unsigned kind() const { return choice & 31u; }

  std::uint8_t choice;
  std::string text;
};

// A reader that stands at the start of a text.
class TextReader {
 public:
  explicit TextReader(std::string text)
      : stream_(egfhost::openMemory("drawing.svg", std::move(text))) {
    reader_.buffer.setFileHandle(stream_);
  }
  ~TextReader() { FLR_Close(stream_); }
  TextReader(const TextReader&) = delete;
  TextReader& operator=(const TextReader&) = delete;

  CHandlerReader* operator->() { return &reader_; }
  CHandlerReader& operator*() { return reader_; }
  HostHandle stream() const { return stream_; }

 private:
  HostHandle stream_;
  CHandlerReader reader_;
};

// An attribute as the scanner hands it out. The text ends at its first zero byte.
class Attribute {
 public:
  explicit Attribute(const std::string& text) {
    pair_ = {};
    const std::size_t length = std::strlen(text.c_str());
    pair_.valueSize = static_cast<std::int32_t>(length + 1);
    pair_.value = static_cast<char*>(RMM_AllocName(1, length + 1, RMM_SITE));
    std::memcpy(pair_.value, text.c_str(), length + 1);
  }
  ~Attribute() { RMM_Free(pair_.value); }
  Attribute(const Attribute&) = delete;
  Attribute& operator=(const Attribute&) = delete;

  _svg_attrib_pair* get() { return &pair_; }

 private:
  _svg_attrib_pair pair_;
};

}  // namespace egfsvg::fuzz
