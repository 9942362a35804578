// Outputs of the tool. A file appears whole or not at all: bytes go to a temporary file beside it,
// which takes its name at the end. "-" is standard output; a device or pipe is written straight.
#pragma once

#include <memory>
#include <string>

#include "cli/byte_sink.h"

namespace egfsvg {

class OutputFile : public ByteSink {
 public:
  // Throws a Failure (73) when the output cannot be created.
  static std::unique_ptr<OutputFile> create(const std::string& path);

  // Throws a Failure (74) when the bytes cannot be kept.
  void write(std::string_view bytes) override = 0;

  // Ends the output; a file without it is never seen. Throws a Failure (74).
  virtual void commit() = 0;

  // The path of the file that takes the bytes now, for those who write by name; empty for a stream.
  virtual const std::string& workingPath() const = 0;

  // The path that was asked for; "-" is standard output.
  virtual const std::string& path() const = 0;
};

// Creates a directory and those above it. Throws a Failure (73).
void createDirectory(const std::string& path);

}  // namespace egfsvg
