// One line of output while it grows. The formats are printf's, with the conversions that the
// written form needs: %.Nf, %f, %e, %d, %ld, %s, and %6x for a colour of six digits.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "host/wire.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

class LineBuilder;

/// An argument of a format. A null text prints as nothing.
class FormatArg {
 public:
  FormatArg(double number) : kind_(Kind::kDouble), number_(number) {}
  FormatArg(std::int32_t integer) : kind_(Kind::kInteger), integer_(integer) {}
  FormatArg(const char* text) : kind_(Kind::kText), text_(text == nullptr ? "" : text) {}
  FormatArg(std::string_view text) : kind_(Kind::kText), text_(text) {}
  /// The builder's text; when memory ran out for it, it has run out for this one too.
  FormatArg(const LineBuilder& part);

 private:
  friend class LineBuilder;
  enum class Kind { kDouble, kInteger, kText };
  Kind kind_;
  double number_ = 0.0;
  std::int32_t integer_ = 0;
  std::string_view text_;
  bool failed_ = false;
};

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

  LineBuilder& add(std::string_view text);
  LineBuilder& add(const LineBuilder& part) {
    failed_ = failed_ || part.failed_;
    return add(part.text());
  }
  LineBuilder& format(const char* format, std::initializer_list<FormatArg> args);
  /// Drops bytes from the end; the rest is overwritten by what is added next.
  LineBuilder& takeBack(std::int32_t count) {
    text_.cutTo(text_.count() > count ? text_.count() - count : 0);
    return *this;
  }

  /// Hands the line to the host: -1 when it could not be written, else what the host said.
  int put(HostHandle stream);

 private:
  const char* addConversion(const char* at, const FormatArg& arg);
  char* room(std::size_t bytes);
  void taken(const char* end);

  GrowingArray<char> text_;
  bool failed_ = false;
};

inline FormatArg::FormatArg(const LineBuilder& part)
    : kind_(Kind::kText), text_(part.text()), failed_(part.failed()) {}

}  // namespace egfsvg
