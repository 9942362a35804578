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

// Of ASCII, and U+0080 to U+009F.
bool isControl(std::string_view character) {
  if (character.size() == 1) return character[0] == '\x7f' || within(character[0], 0, 0x1F);
  return character.size() == 2 && character[0] == '\xC2' && within(character[1], 0x80, 0x9F);
}

void addEscaped(std::string_view bytes, std::string& out) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  for (const char byte : bytes) {
    const auto code = static_cast<std::uint8_t>(byte);
    out += "\\x";
    out += kDigits[code >> 4];
    out += kDigits[code & 0xF];
  }
}

}  // namespace

std::size_t utf8Length(std::string_view text) {
  if (text.empty()) return 0;
  for (const LeadRow& row : kLeads) {
    if (within(text.front(), row.first, row.last)) return continues(text, row) ? row.length : 0;
  }
  return 0;
}

std::string printableText(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = utf8Length(text);
    const std::string_view character = text.substr(0, length == 0 ? 1 : length);
    if (length == 0 || isControl(character)) {
      addEscaped(character, out);
    } else {
      out += character;
    }
    text.remove_prefix(character.size());
  }
  return out;
}

}  // namespace egfsvg
