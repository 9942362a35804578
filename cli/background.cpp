#include "cli/background.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>

#include "cli/failure.h"

namespace egfsvg {
namespace {

constexpr std::uint32_t kOpaque = 0xff000000U;

struct NameRow {
  std::string_view name;
  std::uint32_t rgb;
};

constexpr std::array<NameRow, 16> kNames{{
    {"aqua", 0x00ffff},
    {"black", 0x000000},
    {"blue", 0x0000ff},
    {"fuchsia", 0xff00ff},
    {"gray", 0x808080},
    {"green", 0x008000},
    {"lime", 0x00ff00},
    {"maroon", 0x800000},
    {"navy", 0x000080},
    {"olive", 0x808000},
    {"purple", 0x800080},
    {"red", 0xff0000},
    {"silver", 0xc0c0c0},
    {"teal", 0x008080},
    {"white", 0xffffff},
    {"yellow", 0xffff00},
}};

std::optional<std::uint32_t> digits(std::string_view text) {
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// Each digit of #rgb stands for two.
std::uint32_t doubled(std::uint32_t rgb) {
  const std::uint32_t red = (rgb >> 8U) & 0xfU;
  const std::uint32_t green = (rgb >> 4U) & 0xfU;
  const std::uint32_t blue = rgb & 0xfU;
  return (red * 0x11U << 16U) | (green * 0x11U << 8U) | blue * 0x11U;
}

std::optional<std::uint32_t> hexColour(std::string_view text) {
  const auto value = digits(text);
  if (!value) return std::nullopt;
  switch (text.size()) {
    case 3:
      return kOpaque | doubled(*value);
    case 6:
      return kOpaque | *value;
    case 8:
      return (*value >> 8U) | (*value << 24U);
    default:
      return std::nullopt;
  }
}

std::optional<std::uint32_t> colourWord(std::string_view text) {
  if (text.front() == '#') return hexColour(text.substr(1));
  for (const NameRow& row : kNames) {
    if (row.name == text) return kOpaque | row.rgb;
  }
  return std::nullopt;
}

}  // namespace

std::optional<egfrender::Colour> backgroundColour(const std::string& text) {
  if (text.empty() || text == "transparent") return std::nullopt;
  if (const auto word = colourWord(text)) return egfrender::plainColour(*word);
  throw Failure(ExitCode::kUsage, "--background: no colour: " + text +
                                      "; give #rgb, #rrggbb, #rrggbbaa or a basic colour's name");
}

}  // namespace egfsvg
