// Lines and columns of a file by byte offset, without keeping the file.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace egfsvg {

struct LineColumn {
  std::uint64_t line = 1;    // from 1
  std::uint64_t column = 1;  // in characters, from 1
};

class SourceLines {
 public:
  explicit SourceLines(const std::string& path) : file_(path, std::ios::binary) {}

  // The place of an offset; the end of the file for one that lies beyond.
  LineColumn at(std::uint64_t offset);

 private:
  // Where a chunk of the file begins.
  struct Mark {
    std::uint64_t line = 1;
    std::uint64_t column = 1;
  };

  std::string chunk(std::uint64_t index);

  std::ifstream file_;
  std::vector<Mark> marks_{{}};  // one for each chunk that is known so far
};

}  // namespace egfsvg
