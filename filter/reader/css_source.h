// Where the text of a style sheet comes from.
#pragma once

#include "reader/cbuffer.h"

namespace egfsvg {

class CssSource {
 public:
  static constexpr int kEnd = cBuffer::kSourceEnd;

  virtual ~CssSource() = default;
  /// The next byte, 0 to 255, or kEnd.
  virtual int next() = 0;
  /// Steps back to the byte that was read last.
  virtual void stepBack() = 0;
  /// Where the next byte stands.
  virtual std::int32_t position() const = 0;
  /// Whether a byte ends a comment before its closing mark.
  virtual bool cutsComment(int byte) const = 0;
};

/// A file, or the reader's own source.
/// Kept: in a stream a NUL, a "]" or a byte 255 ends a comment early.
class CssFile final : public CssSource {
 public:
  explicit CssFile(cBuffer& buffer) : buffer_(buffer) {}
  int next() override { return buffer_.nextByte(); }
  void stepBack() override { buffer_.backupBuffer(1); }
  std::int32_t position() const override { return buffer_.getFileIndex(); }
  bool cutsComment(int byte) const override {
    constexpr int kLastByte = 255;
    return byte == '\0' || byte == ']' || byte == kLastByte;
  }

 private:
  cBuffer& buffer_;
};

/// A text in memory, which stays the caller's.
class CssText final : public CssSource {
 public:
  CssText(const char* text, std::int32_t length) : text_(text), length_(length) {}
  int next() override { return at_ == length_ ? kEnd : static_cast<unsigned char>(text_[at_++]); }
  void stepBack() override { --at_; }
  std::int32_t position() const override { return at_; }
  bool cutsComment(int) const override { return false; }

 private:
  const char* text_;
  std::int32_t length_;
  std::int32_t at_ = 0;
};

/// Passes over white space and one comment; `current` is the byte at hand and becomes the byte
/// behind them, or kEnd. Returns how many bytes were read; 0 when nothing stood there, and also at a
/// "/" that opens no comment: white space before it is passed over all the same.
std::int32_t skipCssComment(int& current, CssSource& source);

}  // namespace egfsvg
