#include "cli/source_lines.h"

#include <algorithm>
#include <string_view>

namespace egfsvg {
namespace {

constexpr std::uint64_t kChunkSize = 1U << 16;

// Bytes that continue a character take no column.
bool continuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

template <class Place>
void moveOn(Place& place, std::string_view bytes) {
  for (const char byte : bytes) {
    if (byte == '\n') {
      ++place.line;
      place.column = 1;
    } else if (!continuesCharacter(byte)) {
      ++place.column;
    }
  }
}

}  // namespace

LineColumn SourceLines::at(std::uint64_t offset) {
  const std::uint64_t wanted = offset / kChunkSize;
  while (marks_.size() <= wanted) {
    const std::string bytes = chunk(marks_.size() - 1);
    if (bytes.size() < kChunkSize) break;
    Mark next = marks_.back();
    moveOn(next, bytes);
    marks_.push_back(next);
  }
  const std::uint64_t index = std::min<std::uint64_t>(wanted, marks_.size() - 1);
  const Mark& mark = marks_[index];
  LineColumn place{mark.line, mark.column};
  const std::string bytes = chunk(index);
  moveOn(place, std::string_view(bytes).substr(0, offset - index * kChunkSize));
  return place;
}

std::string SourceLines::chunk(std::uint64_t index) {
  std::string bytes(kChunkSize, '\0');
  file_.clear();
  file_.seekg(static_cast<std::streamoff>(index * kChunkSize));
  file_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file_.gcount(), 0)));
  return bytes;
}

}  // namespace egfsvg
