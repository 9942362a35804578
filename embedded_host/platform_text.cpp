#include "host/platform_text.h"

#include <algorithm>
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "embedded_host/bounded_text.h"
#include "embedded_host/handles.h"
#include "embedded_host/paths.h"

namespace {

constexpr unsigned char kCaseBit = 'a' - 'A';

unsigned char lowered(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 'A' && value <= 'Z' ? static_cast<unsigned char>(value + kCaseBit) : value;
}

}  // namespace

int _wu_stricmp(const char* left, const char* right) {
  left = egfhost::textOrEmpty(left);
  right = egfhost::textOrEmpty(right);
  for (;; ++left, ++right) {
    const unsigned char a = lowered(*left);
    const unsigned char b = lowered(*right);
    if (a != b) return a < b ? -1 : 1;
    if (a == 0) return 0;
  }
}

char* _wu_strupr(char* text) {
  for (char* at = text; at != nullptr && *at != '\0'; ++at) {
    if (*at >= 'a' && *at <= 'z') *at = static_cast<char>(*at - kCaseBit);
  }
  return text;
}

char* wu_itoa(int value, char* text, int radix) {
  constexpr int kMostDigits = 33;
  if (text == nullptr || radix < 2 || radix > 36) return text;
  const std::to_chars_result end =
      radix == 10 ? std::to_chars(text, text + kMostDigits, value)
                  : std::to_chars(text, text + kMostDigits, static_cast<unsigned>(value), radix);
  *end.ptr = '\0';
  return text;
}

int wsprintfA(char* text, const char* format, ...) {
  if (text == nullptr || format == nullptr) return 0;
  std::va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(text, kFormatTextSize, format, arguments);
  va_end(arguments);
  return std::clamp(length, 0, kFormatTextSize - 1);
}

std::uint32_t GetTempPathA(std::uint32_t size, char* text) {
  return egfhost::hostCall(std::uint32_t{0}, [&] {
    const std::string& folder = egfhost::temporaryFolder();
    const auto length = static_cast<std::uint32_t>(folder.size());
    if (text == nullptr || size <= length) return length + 1;
    egfhost::copyText(text, size, folder);
    return length;
  });
}
