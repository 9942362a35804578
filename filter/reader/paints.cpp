// Colours, and the two paints: a colour, "none", or a reference to a gradient.

#include "reader/paints.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "model/characters.h"
#include "model/name_tables.h"
#include "model/numbers.h"
#include "reader/reports.h"

namespace egfsvg {

namespace {

constexpr int kChannels = 3;
constexpr int kChannelMax = 255;
constexpr std::size_t kFunctionSize = 3;  // of "url" and "rgb"

bool startsWith(const char* text, const char* word) {
  for (; *word != '\0'; ++text, ++word) {
    if (lower(*text) != *word) return false;
  }
  return true;
}

constexpr int kHexBase = 16;

/// By byte.
constexpr auto kHexDigits = [] {
  constexpr std::string_view kLower = "0123456789abcdef";
  constexpr std::string_view kUpper = "0123456789ABCDEF";
  std::array<std::int8_t, 256> digits{};
  digits.fill(-1);
  for (std::size_t i = 0; i < kHexBase; ++i) {
    for (const char c : {kLower[i], kUpper[i]}) {
      digits[static_cast<std::size_t>(c)] = static_cast<std::int8_t>(i);
    }
  }
  return digits;
}();

/// The hexadecimal digit, or -1.
int hexDigit(char c) { return kHexDigits[static_cast<unsigned char>(c)]; }

/// Two digits, or as many as stand there; a blank or a plus in front of one is passed over. -1 when
/// there is none.
int hexPair(const char* text) {
  if (isWhite(text[0]) || text[0] == '+') return hexDigit(text[1]);
  const int first = hexDigit(text[0]);
  if (first < 0) return -1;
  const int second = hexDigit(text[1]);
  return second < 0 ? first : first * kHexBase + second;
}

int doubledHexDigit(const char* text) {
  constexpr int kTwice = 17;  // 0xd becomes 0xdd
  const int digit = hexDigit(text[0]);
  return digit < 0 ? -1 : digit * kTwice;
}

/// "#rgb" or "#rrggbb"; false where a channel does not scan. The channels before it are stored.
bool readHexColor(const char* text, int* const (&channels)[kChannels]) {
  constexpr std::size_t kShortSize = 4;
  const bool isLong = std::strlen(text) > kShortSize;
  const char* at = text + 1;
  for (int* channel : channels) {
    const int value = isLong ? hexPair(at) : doubledHexDigit(at);
    if (value < 0) return false;
    *channel = value;
    at += isLong ? 2 : 1;
  }
  return true;
}

/// A component of rgb(); moves behind it. What is not there is 0.
int readComponent(const char*& at) {
  // Kept: a percentage above the range is 0, and 100% is 254, since 2.55 lies just under 2.55.
  constexpr double kPerPercent = 2.55;
  while (*at != '\0' && *at != '-' && !isDigit(*at)) ++at;
  const char* first = at;
  if (*at == '-') ++at;
  while (*at == '.' || isDigit(*at)) ++at;
  int value = saturatingInteger(first, at);
  if (*at == '%') {
    value = truncated<int>(value * kPerPercent);
    if (value > kChannelMax) value = 0;
  }
  return value < 0 ? 0 : value > kChannelMax ? kChannelMax : value;
}

/// Black and white change places.
void exchangeBlackAndWhite(int& red, int& green, int& blue) {
  const int any = red | green | blue;
  if (any == 0) {
    red = green = blue = kChannelMax;
  } else if (any == kChannelMax && (red & green & blue) == kChannelMax) {
    red = green = blue = 0;
  }
}

/// "#" and six digits, the usual form, as it is stored. False for any other text. So many bytes as
/// the form has are looked at.
constexpr std::int32_t kSixDigitSize = 7;
bool readSixDigits(const char* text, _svg_color& color) {
  if (*text != '#') return false;
  const int r1 = hexDigit(text[1]), r0 = hexDigit(text[2]);
  const int g1 = hexDigit(text[3]), g0 = hexDigit(text[4]);
  const int b1 = hexDigit(text[5]), b0 = hexDigit(text[6]);
  if ((r1 | r0 | g1 | g0 | b1 | b0) < 0) return false;
  int red = r1 * kHexBase + r0;
  int green = g1 * kHexBase + g0;
  int blue = b1 * kHexBase + b0;
  exchangeBlackAndWhite(red, green, blue);
  color = {red, green, blue, 0};
  return true;
}

/// False for the usual paint, a "#" and digits; a keyword or a reference may be any other.
bool isWord(const char* paint) { return *paint != '#'; }

/// What stands in the brackets of "url(...)", without further brackets and blanks; null without
/// memory.
char* referenceText(const char* value) {
  const char* at = value + kFunctionSize;
  char* text = allocateArray<char>(std::strlen(at) + 1, RMM_SITE);
  if (text == nullptr) return nullptr;
  char* out = text;
  for (; *at != '\0' && *at != ')'; ++at) {
    if (*at != '(' && *at != ' ') *out++ = *at;
  }
  *out = '\0';
  return text;
}

/// Replaces the reference of a paint; the gradient is null when none is found.
void setReference(const CHandlerReader& reader, const char* value, char*& url,
                  _svg_gradient*& gradient) {
  char* text = referenceText(value);
  freeAll(url);
  url = text;
  gradient = text == nullptr ? nullptr : reader.gradients.find(text);
  if (gradient == nullptr) report(reader, Diagnostic::kUnresolvedReference, text, RMM_SITE);
}

/// A stored colour as "rgb(r,g,b)", with black and white in their places again.
class RgbText {
 public:
  explicit RgbText(_svg_color color) {
    exchangeBlackAndWhite(color.red, color.green, color.blue);
    add("rgb(");
    for (std::int32_t channel : {color.red, color.green, color.blue}) {
      end_ = std::to_chars(end_, text_ + sizeof text_, channel).ptr;
      add(",");
    }
    end_[-1] = ')';
    *end_ = '\0';
  }
  const char* c_str() const { return text_; }
  std::size_t length() const { return static_cast<std::size_t>(end_ - text_); }

 private:
  void add(std::string_view part) { end_ = std::copy(part.begin(), part.end(), end_); }

  char text_[48];  // three integers of any size
  char* end_ = text_;
};

[[gnu::noinline]] _svg_color parseOtherColor(CHandlerReader& reader, _svg_attrib_pair* pair) {
  int red = 0;
  int green = 0;
  int blue = 0;
  reader.GetSVGColorPatt(red, green, blue, pair);
  return {red, green, blue, 0};
}

}  // namespace

bool isReference(const char* paint) { return lower(*paint) == 'u' && startsWith(paint, "url"); }

_svg_color parseColor(CHandlerReader& reader, _svg_attrib_pair* pair) {
  _svg_color color;
  if (hasValue(pair) && pair->valueSize >= kSixDigitSize && readSixDigits(pair->value, color)) {
    return color;
  }
  return parseOtherColor(reader, pair);
}

_svg_gradient* referencedGradient(const Map<_svg_gradient>& gradients, const char* paint) {
  char* text = referenceText(paint);
  _svg_gradient* gradient = gradients.find(text);
  RMM_Free(text);
  return gradient;
}

CurrentColor::CurrentColor(CHandlerReader& reader, _svg_pa_graphics* group, _svg_attrib_pair* pair)
    : pair_(pair) {
  if (group == nullptr || !namesCurrentColor(pair)) return;
  std::memcpy(text_, pair->value, std::strlen(pair->value) + 1);
  local_.name[0] = '\0';
  local_.value = text_;
  local_.valueSize = sizeof text_;
  pair_ = &local_;
  reader.SetCurrentColorToAttribute(group, pair_);
}

}  // namespace egfsvg

int CHandlerReader::GetSVGColorPatt(int& red, int& green, int& blue, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (!hasValue(pair)) return 0;
  int* const channels[kChannels] = {&red, &green, &blue};
  const char* at = pair->value;
  if (*at == '#') {
    if (!readHexColor(at, channels)) return -1;
  } else if (startsWith(at, "rgb")) {
    for (int* channel : channels) *channel = readComponent(at);
  } else {
    const int row = colorRow(at);
    red = row < 0 ? kSvgBlack.red : SVG_COLOR_RED[row];
    green = row < 0 ? kSvgBlack.green : SVG_COLOR_GREEN[row];
    blue = row < 0 ? kSvgBlack.blue : SVG_COLOR_BLUE[row];
    return 0;
  }
  exchangeBlackAndWhite(red, green, blue);
  return 0;
}

int CHandlerReader::SetCurrentColorToAttribute(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (group == nullptr || !hasValue(pair) || !equalsNoCase(pair->value, "currentcolor")) return 0;
  const RgbText text(group->color);
  if (text.length() < static_cast<std::size_t>(pair->valueSize)) {
    std::memcpy(pair->value, text.c_str(), text.length() + 1);
    pair->valueLength = kLengthNotTold;
  }
  return 0;
}

int CHandlerReader::SetColorPatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  return egfsvg::setColor(*this, &_svg_pa_graphics::color, group, pair);
}

// Kept: a colour undoes a fill-opacity of 0 that stands before it.
int CHandlerReader::SetFillPatt(_svg_pa_fill* group, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (group == nullptr || !hasValue(pair)) return 0;
  if (isWord(pair->value)) {
    if (isKeyword(pair->value, "inherit")) return 0;
    if (isReference(pair->value)) {
      setReference(*this, pair->value, group->fillUrl, group->fillGradient);
      if (group->fillGradient == nullptr) group->fillOpacity = 0.0;
      if (group->fillGradient != nullptr && group->fillOpacity == 0.0) group->fillOpacity = 1.0;
      return 0;
    }
  }
  freeAll(group->fillUrl);
  group->fillGradient = nullptr;
  if (isWord(pair->value) && isKeyword(pair->value, "none")) {
    group->fillOpacity = 0.0;
    return 0;
  }
  group->fillColor = parseColor(*this, pair);
  if (group->fillOpacity == 0.0) group->fillOpacity = 1.0;
  return 0;
}

// A reference strokes whether or not its gradient is found.
int CHandlerReader::SetStrokePatt(_svg_pa_stroke* group, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (group == nullptr || !hasValue(pair)) return 0;
  if (isWord(pair->value)) {
    if (isKeyword(pair->value, "inherit")) return 0;
    if (isReference(pair->value)) {
      setReference(*this, pair->value, group->strokeUrl, group->strokeGradient);
      group->strokePresent = 1;
      return 0;
    }
  }
  freeAll(group->strokeUrl);
  group->strokeGradient = nullptr;
  group->strokePresent = isWord(pair->value) && isKeyword(pair->value, "none") ? 0 : 1;
  group->strokeColor = parseColor(*this, pair);
  return 0;
}

int CHandlerReader::SetFillOpacityPatt(_svg_pa_fill* group, _svg_attrib_pair* pair) {
  return egfsvg::setNumber(&_svg_pa_fill::fillOpacity, group, pair);
}
