// Where a stream reads from: a file through a window, or bytes in memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace egfhost {

// A system file descriptor, closed at the end.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int number) : number_(number) {}
  ~FileDescriptor() { reset(); }
  FileDescriptor(FileDescriptor&& other) noexcept : number_(other.release()) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    reset(other.release());
    return *this;
  }

  int get() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }
  int release() {
    const int number = number_;
    number_ = -1;
    return number;
  }
  void reset(int number = -1);

 private:
  int number_ = -1;
};

class Source {
 public:
  virtual ~Source() = default;
  virtual std::int64_t length() const = 0;
  // Bytes read from a position, fewer at the end; negative on failure.
  virtual std::int64_t readAt(std::int64_t position, void* buffer, std::uint32_t count) = 0;
  // A sequential reader is served in larger steps.
  virtual void readAhead() {}
};

class MemorySource : public Source {
 public:
  explicit MemorySource(std::shared_ptr<const std::string> bytes) : bytes_(std::move(bytes)) {}

  std::int64_t length() const override;
  std::int64_t readAt(std::int64_t position, void* buffer, std::uint32_t count) override;

 private:
  std::shared_ptr<const std::string> bytes_;
};

// Keeps a window of the file. The window is small after a jump and grows while the reading goes on
// from its end.
class FileSource : public Source {
 public:
  // Null when the path names no regular file that can be opened.
  static std::unique_ptr<FileSource> open(const std::string& path);

  std::int64_t length() const override { return length_; }
  std::int64_t readAt(std::int64_t position, void* buffer, std::uint32_t count) override;
  void readAhead() override;

 private:
  FileSource(FileDescriptor file, std::int64_t length) : file_(std::move(file)), length_(length) {}

  bool moveWindow(std::int64_t position);
  std::int64_t readDirectly(std::int64_t position, char* buffer, std::size_t count);

  FileDescriptor file_;
  std::int64_t length_;
  std::vector<char> window_;
  std::int64_t windowStart_ = 0;
  std::size_t windowLength_ = 0;  // bytes of the file in it
  std::size_t step_ = 0;          // the size of the next window
  std::size_t largestStep_ = kWindow;

  static constexpr std::size_t kJumpWindow = 8192;
  static constexpr std::size_t kWindow = 65536;
  static constexpr std::size_t kAheadWindow = 262144;
};

// Reads that went to the system, over all sources.
std::uint64_t systemReads();

}  // namespace egfhost
