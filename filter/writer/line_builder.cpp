#include "writer/line_builder.h"

#include <cstring>

#include "host/files.h"
#include "model/number_text.h"

namespace egfsvg {
namespace {

constexpr int kDefaultDecimals = 6;

}  // namespace

LineBuilder& LineBuilder::add(std::string_view text) {
  if (!text_.append(text.data(), static_cast<std::int32_t>(text.size()))) failed_ = true;
  return *this;
}

/// A place for that many bytes behind the text, or null.
char* LineBuilder::room(std::size_t bytes) {
  const auto needed = text_.count() + static_cast<std::int32_t>(bytes);
  if (!text_.reserve(needed > 2 * text_.count() ? needed : 2 * text_.count())) {
    failed_ = true;
    return nullptr;
  }
  return text_.data() + text_.count();
}

void LineBuilder::taken(const char* end) {
  text_.setCount(static_cast<std::int32_t>(end - text_.data()));
}

LineBuilder& LineBuilder::format(const char* format, std::initializer_list<FormatArg> args) {
  const FormatArg* arg = args.begin();
  while (*format != '\0') {
    const char* percent = std::strchr(format, '%');
    if (percent == nullptr) return add(format);
    add({format, static_cast<std::size_t>(percent - format)});
    format = percent[1] == '%' ? percent + 1 : addConversion(percent + 1, *arg++);
    if (format == percent + 1) {
      add("%");
      ++format;
    }
  }
  return *this;
}

/// Takes one conversion, behind its "%"; returns what follows it.
const char* LineBuilder::addConversion(const char* at, const FormatArg& arg) {
  int decimals = kDefaultDecimals;
  if (*at == '.') {
    decimals = at[1] - '0';
    at += 2;
  }
  while (*at == 'l' || *at == '6') ++at;
  if (arg.kind_ == FormatArg::Kind::kText) {
    failed_ = failed_ || arg.failed_;
    add(arg.text_);
    return at + 1;
  }
  char* out = room(kNumberTextSize);
  if (out == nullptr) return at + 1;
  switch (*at) {
    case 'f':
      taken(fixedText(out, arg.number_, decimals));
      break;
    case 'e':
      taken(exponentText(out, arg.number_));
      break;
    case 'x':
      taken(colourText(out, static_cast<std::uint32_t>(arg.integer_)));
      break;
    default:
      taken(integerText(out, arg.integer_));
      break;
  }
  return at + 1;
}

int LineBuilder::put(HostHandle stream) {
  if (failed_ || !text_.push('\0')) return -1;
  text_.cutTo(text_.count() - 1);
  return FLR_PutLine(text_.data(), stream);
}

}  // namespace egfsvg
