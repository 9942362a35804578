// Inputs of the tool: what the command line names, and one of them made ready to read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/temporaries.h"

namespace egfsvg {

// One drawing to take.
struct InputName {
  std::string path;      // "-" is standard input
  std::string relative;  // below the folder that was named, else the file's own name
};

// The drawings that the arguments name: files as they are, folders as the .svg and .svgz files in
// and below them, sorted. Throws a Failure (66) for what is not there and for an empty folder.
std::vector<InputName> expandInputs(const std::vector<std::string>& arguments);

// How an input is called in messages.
std::string shownInput(const std::string& path);

// A drawing in a plain file: standard input is spooled and gzip data unpacked to a scratch file
// that goes with this object.
class ReadyInput {
 public:
  // Throws a Failure: 66 when it cannot be opened, 65 when its gzip data are damaged, 69 when it is
  // larger than maxBytes, 74 when reading fails.
  ReadyInput(const std::string& path, std::uint64_t maxBytes);

  const std::string& name() const { return name_; }  // for messages
  const std::string& path() const { return path_; }  // of the plain file
  bool compressed() const { return compressed_; }
  std::uint64_t bytes() const { return bytes_; }  // of the plain file

 private:
  void spool(int descriptor, std::uint64_t maxBytes);
  void unpack(std::uint64_t maxBytes);

  std::string name_;
  std::string path_;
  bool compressed_ = false;
  std::uint64_t bytes_ = 0;
  std::optional<TemporaryFile> spooled_;
  std::optional<TemporaryFile> unpacked_;
};

}  // namespace egfsvg
