// One line of output while it grows.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "host/wire.h"
#include "model/rmm_allocator.h"
#include "writer/line_format.h"

namespace egfsvg {

/// Memory that runs out is remembered and makes `put` fail.
class LineBuilder {
 public:
  LineBuilder() : text_(RMM_SITE) {}

  void clear() {
    text_.clear();
    failed_ = false;
  }
  std::int32_t length() const { return text_.count(); }
  std::string_view text() const { return {text_.data(), static_cast<std::size_t>(text_.count())}; }
  bool failed() const { return failed_; }

  LineBuilder& add(std::string_view text) {
    char* out = room(text.size());
    if (out == nullptr) return *this;
    text.copy(out, text.size());
    return takenTo(out + text.size());
  }

  /// Another builder's text; when memory ran out for it, it has run out for this one too.
  LineBuilder& add(const LineBuilder& part) { return add(printable(part)); }

  /// Adds the format with its arguments: doubles for %f and %e, std::int32_t for %d, %ld and %6x, a
  /// text or a builder for %s. A null text prints as nothing.
  template <FormatText kFormat, class... Args>
  LineBuilder& format(const Args&... args) {
    static_assert(FormatParts<kFormat>::kCount == sizeof...(Args) + 1);
    return addParts<kFormat>(std::index_sequence_for<Args...>(), printable(args)...);
  }

  /// Drops bytes from the end; the rest is overwritten by what is added next.
  LineBuilder& takeBack(std::int32_t count) {
    text_.cutTo(text_.count() > count ? text_.count() - count : 0);
    return *this;
  }

  /// Hands the line to the host: -1 when it could not be written, else what the host said.
  int put(HostHandle stream);

 private:
  std::string_view printable(const LineBuilder& part) {
    failed_ = failed_ || part.failed_;
    return part.text();
  }
  static double printable(double number) { return number; }
  static std::int32_t printable(std::int32_t number) { return number; }
  static std::string_view printable(std::string_view text) { return text; }
  static std::string_view printable(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
  }

  static std::size_t roomOf(std::string_view text) { return text.size(); }
  static std::size_t roomOf(double) { return 0; }

  /// A place for that many bytes behind the text and a terminator, or null.
  char* room(std::size_t bytes) {
    char* out = text_.room(bytes + 1);
    if (out == nullptr) failed_ = true;
    return out;
  }
  LineBuilder& takenTo(const char* end) {
    text_.setCount(static_cast<std::int32_t>(end - text_.data()));
    return *this;
  }

  template <FormatText kFormat, std::size_t... kParts, class... Args>
  LineBuilder& addParts(std::index_sequence<kParts...>, const Args&... args) {
    using Parts = FormatParts<kFormat>;
    char* out = room((Parts::kRoom + ... + roomOf(args)));
    if (out == nullptr) return *this;
    ((out = putConversion<Parts::kParts[kParts].conversion, Parts::kParts[kParts].decimals>(
          Parts::template putLiteral<kParts>(out), args)),
     ...);
    return takenTo(Parts::template putLiteral<sizeof...(Args)>(out));
  }

  template <Conversion kConversion, int kDecimals>
  static char* putConversion(char* out, double number) {
    static_assert(kConversion == Conversion::kFixed || kConversion == Conversion::kExponent);
    if constexpr (kConversion == Conversion::kFixed) return fixedText<kDecimals>(out, number);
    return exponentText(out, number);
  }
  template <Conversion kConversion, int kDecimals>
  static char* putConversion(char* out, std::int32_t number) {
    static_assert(kConversion == Conversion::kInteger || kConversion == Conversion::kColour);
    if constexpr (kConversion == Conversion::kInteger) return integerText(out, number);
    return colourText(out, static_cast<std::uint32_t>(number));
  }
  template <Conversion kConversion, int kDecimals>
  static char* putConversion(char* out, std::string_view text) {
    static_assert(kConversion == Conversion::kText);
    text.copy(out, text.size());
    return out + text.size();
  }

  GrowingArray<char> text_;
  bool failed_ = false;
};

}  // namespace egfsvg
