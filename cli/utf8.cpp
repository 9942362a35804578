#include "cli/utf8.h"

#include <array>
#include <cstdint>

namespace egfsvg {
namespace {

// First bytes of a range, the length of their characters, and what may follow at the second place.
struct LeadRow {
  std::uint8_t first;
  std::uint8_t last;
  std::uint8_t length;
  std::uint8_t secondFirst;
  std::uint8_t secondLast;
};

constexpr std::array<LeadRow, 9> kLeads{{
    {0x00, 0x7F, 1, 0, 0},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
}};

bool within(char byte, std::uint8_t first, std::uint8_t last) {
  const auto code = static_cast<std::uint8_t>(byte);
  return code >= first && code <= last;
}

bool continues(std::string_view text, const LeadRow& row) {
  if (text.size() < row.length) return false;
  if (row.length > 1 && !within(text[1], row.secondFirst, row.secondLast)) return false;
  for (std::size_t i = 2; i < row.length; ++i) {
    if (!within(text[i], 0x80, 0xBF)) return false;
  }
  return true;
}

}  // namespace

std::size_t utf8Length(std::string_view text) {
  if (text.empty()) return 0;
  for (const LeadRow& row : kLeads) {
    if (within(text.front(), row.first, row.last)) return continues(text, row) ? row.length : 0;
  }
  return 0;
}

}  // namespace egfsvg
