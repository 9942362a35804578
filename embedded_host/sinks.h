// Where a stream writes to: a file that appears whole, a temporary file, or a string.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "embedded_host/host_files.h"
#include "embedded_host/sources.h"

namespace egfhost {

class Sink {
 public:
  virtual ~Sink() = default;
  virtual bool write(std::int64_t position, const char* bytes, std::size_t count) = 0;
  // The text and a line end behind it.
  virtual bool writeLine(std::int64_t position, const char* text, std::size_t count) {
    return write(position, text, count) &&
           write(position + static_cast<std::int64_t>(count), "\n", 1);
  }
  virtual std::int64_t length() const = 0;
  // Ends the writing. False when what was written could not be kept; then nothing is left.
  virtual bool keep() = 0;
  virtual void discard() = 0;
};

class MemorySink : public Sink {
 public:
  explicit MemorySink(std::string* target) : target_(target), start_(target->size()) {}

  bool write(std::int64_t position, const char* bytes, std::size_t count) override;
  bool writeLine(std::int64_t position, const char* text, std::size_t count) override;
  std::int64_t length() const override;
  bool keep() override { return true; }
  void discard() override { target_->resize(start_); }

 private:
  std::string* target_;
  std::size_t start_;
};

// Hands bytes on in their order, a block at a time.
class TakerSink : public Sink {
 public:
  explicit TakerSink(ByteTaker taker) : taker_(std::move(taker)) {}

  // At the end of what was written alone.
  bool write(std::int64_t position, const char* bytes, std::size_t count) override;
  std::int64_t length() const override { return length_; }
  bool keep() override { return flush(); }
  void discard() override { block_.clear(); }

 private:
  bool flush();

  ByteTaker taker_;
  std::string block_;
  std::int64_t length_ = 0;
};

class FileSink : public Sink {
 public:
  // A new file beside the path, which takes the path's name when it is kept.
  static std::unique_ptr<FileSink> create(const std::string& path);
  // The path itself, when nothing is there; readable by its owner alone.
  static std::unique_ptr<FileSink> createTemporary(const std::string& path);

  ~FileSink() override { discard(); }

  bool write(std::int64_t position, const char* bytes, std::size_t count) override;
  bool writeLine(std::int64_t position, const char* text, std::size_t count) override;
  std::int64_t length() const override { return length_; }
  bool keep() override;
  void discard() override;

 private:
  FileSink(FileDescriptor file, std::string path, std::string target);
  bool flush();

  FileDescriptor file_;
  std::string path_;    // where the bytes go
  std::string target_;  // the name that the file gets, the same for a temporary file
  std::string buffer_;
  std::int64_t bufferStart_ = 0;
  std::int64_t length_ = 0;
  bool failed_ = false;
};

}  // namespace egfhost
