// Conversion between bytes of a code page and 16-bit units.

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <limits>
#include <map>
#include <string>
#include <string_view>

#include "embedded_host/fault.h"
#include "embedded_host/handles.h"
#include "host/platform_text.h"

namespace egfhost {

namespace {

struct CodePageRow {
  std::uint32_t number;
  const char* charset;
};

constexpr const char* kWideCharset = "UTF-16LE";

// Code pages whose names are not "CP" and the number.
constexpr CodePageRow kNamedCodePages[] = {
    {kCodePageAnsi, "CP1252"}, {1, "CP850"},          {2, "MACINTOSH"},
    {1200, "UTF-16LE"},        {1201, "UTF-16BE"},    {1361, "JOHAB"},
    {10000, "MACINTOSH"},      {20127, "US-ASCII"},   {20866, "KOI8-R"},
    {21866, "KOI8-U"},         {28591, "ISO-8859-1"}, {28592, "ISO-8859-2"},
    {28595, "ISO-8859-5"},     {28597, "ISO-8859-7"}, {28605, "ISO-8859-15"},
    {51932, "EUC-JP"},         {54936, "GB18030"},    {65000, "UTF-7"},
    {kCodePageUtf8, "UTF-8"},
};

std::string charsetOf(std::uint32_t codePage) {
  for (const CodePageRow& row : kNamedCodePages) {
    if (row.number == codePage) return row.charset;
  }
  return "CP" + std::to_string(codePage);
}

// An open conversion; kept, since opening one costs more than using it.
class Conversion {
 public:
  Conversion(const std::string& to, const std::string& from)
      : handle_(iconv_open(to.c_str(), from.c_str())) {}
  ~Conversion() {
    if (usable()) iconv_close(handle_);
  }
  Conversion(const Conversion&) = delete;
  Conversion& operator=(const Conversion&) = delete;

  bool usable() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  // Converts until the input ends or something cannot be converted; true in the first case.
  bool run(const char*& input, std::size_t& left, std::string& output) {
    constexpr std::size_t kPiece = 512;
    while (left != 0) {
      std::array<char, kPiece> piece;
      char* target = piece.data();
      std::size_t room = piece.size();
      const std::size_t result = iconv(handle_, const_cast<char**>(&input), &left, &target, &room);
      const int error = errno;
      output.append(piece.data(), piece.size() - room);
      if (result == static_cast<std::size_t>(-1) && error != E2BIG) return false;
    }
    return true;
  }

  // Ends a conversion: back to the first shift state.
  void finish(std::string& output) {
    std::array<char, 16> piece;
    char* target = piece.data();
    std::size_t room = piece.size();
    iconv(handle_, nullptr, nullptr, &target, &room);
    output.append(piece.data(), piece.size() - room);
  }

 private:
  iconv_t handle_;
};

// All that code pages keep: the conversions used so far, by code page and direction.
struct CodePageState {
  std::map<std::uint32_t, Conversion> toWide;
  std::map<std::uint32_t, Conversion> fromWide;
};

CodePageState& state() {
  static CodePageState pages;
  return pages;
}

Conversion* toWide(std::uint32_t codePage) {
  const auto found = state().toWide.try_emplace(codePage, kWideCharset, charsetOf(codePage)).first;
  return found->second.usable() ? &found->second : nullptr;
}

Conversion* fromWide(std::uint32_t codePage) {
  const auto found =
      state().fromWide.try_emplace(codePage, charsetOf(codePage), kWideCharset).first;
  return found->second.usable() ? &found->second : nullptr;
}

// Bytes that are no character become U+FFFD, one for each byte.
std::string widen(Conversion& conversion, std::string_view bytes) {
  constexpr std::string_view kReplacement("\xfd\xff", 2);
  std::string wide;
  const char* input = bytes.data();
  std::size_t left = bytes.size();
  while (!conversion.run(input, left, wide)) {
    wide += kReplacement;
    ++input;
    --left;
  }
  conversion.finish(wide);
  return wide;
}

constexpr std::size_t kUnit = sizeof(char16_t);

// True when the upper byte of the unit at a place has the six bits of that kind of surrogate.
bool isSurrogate(std::string_view wide, std::size_t unit, unsigned kind) {
  constexpr unsigned kSurrogateMask = 0xfc;
  const std::size_t upper = unit * kUnit + 1;
  return upper < wide.size() && (static_cast<unsigned char>(wide[upper]) & kSurrogateMask) == kind;
}

// The bytes of the character at the start of a text.
std::size_t characterSize(std::string_view wide) {
  constexpr unsigned kHigh = 0xd8;
  constexpr unsigned kLow = 0xdc;
  const bool pair = isSurrogate(wide, 0, kHigh) && isSurrogate(wide, 1, kLow);
  return std::min(pair ? 2 * kUnit : kUnit, wide.size());
}

// Characters that the code page does not have become the default text.
std::string narrow(Conversion& conversion, std::string_view wide, std::string_view defaultText,
                   bool& usedDefault) {
  std::string bytes;
  const char* input = wide.data();
  std::size_t left = wide.size();
  while (!conversion.run(input, left, bytes)) {
    const std::size_t skipped = characterSize({input, left});
    bytes += defaultText;
    usedDefault = true;
    input += skipped;
    left -= skipped;
  }
  conversion.finish(bytes);
  return bytes;
}

// Stores the units when they fit; tells how many there are. 0 when they do not fit.
template <class Unit>
int give(const std::string& bytes, Unit* target, int targetSize) {
  const std::size_t count = bytes.size() / sizeof(Unit);
  if (count > static_cast<std::size_t>(std::numeric_limits<int>::max())) return 0;
  const int units = static_cast<int>(count);
  if (targetSize == 0) return units;
  if (target == nullptr || targetSize < units) return 0;
  std::memcpy(target, bytes.data(), count * sizeof(Unit));
  return units;
}

std::size_t wideLength(const char16_t* text) {
  std::size_t length = 0;
  while (text[length] != 0) ++length;
  return length;
}

}  // namespace

}  // namespace egfhost

int MultiByteToWideChar(std::uint32_t codePage, std::uint32_t, const char* source, int sourceLength,
                        char16_t* target, int targetSize) {
  using namespace egfhost;
  if (source == nullptr || sourceLength == 0 || targetSize < 0) return 0;
  if (faultFails(FaultCall::MultiByteToWideChar)) return 0;
  return hostCall(0, [&] {
    Conversion* const conversion = toWide(codePage);
    if (conversion == nullptr) return 0;
    const std::size_t length =
        sourceLength < 0 ? std::strlen(source) + 1 : static_cast<std::size_t>(sourceLength);
    return give(widen(*conversion, {source, length}), target, targetSize);
  });
}

int WideCharToMultiByte(std::uint32_t codePage, std::uint32_t, const char16_t* source,
                        int sourceLength, char* target, int targetSize, const char* defaultChar,
                        int* usedDefaultChar) {
  using namespace egfhost;
  if (usedDefaultChar != nullptr) *usedDefaultChar = 0;
  if (source == nullptr || sourceLength == 0 || targetSize < 0) return 0;
  if (faultFails(FaultCall::WideCharToMultiByte)) return 0;
  return hostCall(0, [&] {
    Conversion* const conversion = fromWide(codePage);
    if (conversion == nullptr) return 0;
    const std::size_t length =
        sourceLength < 0 ? wideLength(source) + 1 : static_cast<std::size_t>(sourceLength);
    bool usedDefault = false;
    const std::string bytes =
        narrow(*conversion, {reinterpret_cast<const char*>(source), length * sizeof(char16_t)},
               defaultChar == nullptr ? "?" : defaultChar, usedDefault);
    if (usedDefaultChar != nullptr && usedDefault) *usedDefaultChar = 1;
    return give(bytes, target, targetSize);
  });
}
