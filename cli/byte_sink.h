// Where bytes go: a file under way, standard output, or a text in memory.
#pragma once

#include <string>
#include <string_view>

namespace egfsvg {

class ByteSink {
 public:
  ByteSink() = default;
  ByteSink(const ByteSink&) = delete;
  ByteSink& operator=(const ByteSink&) = delete;
  virtual ~ByteSink() = default;

  // Takes all bytes or throws a Failure.
  virtual void write(std::string_view bytes) = 0;
};

// Keeps what is written.
class TextSink : public ByteSink {
 public:
  void write(std::string_view bytes) override { text_.append(bytes); }

  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace egfsvg
