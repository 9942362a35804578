#include "embedded_host/sinks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "embedded_host/paths.h"

namespace egfhost {

namespace {

constexpr std::size_t kBufferSize = 65536;
constexpr mode_t kOwnerOnly = 0600;
constexpr mode_t kEverybody = 0666;

FileDescriptor createNew(const std::string& path) {
  return FileDescriptor(
      open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kOwnerOnly));
}

// What a new file's permissions would be without us.
mode_t permissionsFor(const std::string& target) {
  struct stat status;
  if (stat(target.c_str(), &status) == 0) return status.st_mode & kEverybody;
  const mode_t mask = umask(0);
  umask(mask);
  return kEverybody & ~mask;
}

bool writeAll(int file, std::int64_t position, const char* bytes, std::size_t count) {
  while (count != 0) {
    const ssize_t done = pwrite(file, bytes, count, position);
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) return false;
    bytes += done;
    count -= static_cast<std::size_t>(done);
    position += done;
  }
  return true;
}

}  // namespace

bool MemorySink::write(std::int64_t position, const char* bytes, std::size_t count) {
  const std::size_t at = start_ + static_cast<std::size_t>(position);
  if (at == target_->size()) {
    target_->append(bytes, count);
    return true;
  }
  if (at + count > target_->size()) target_->resize(at + count);
  std::memcpy(target_->data() + at, bytes, count);
  return true;
}

bool MemorySink::writeLine(std::int64_t position, const char* text, std::size_t count) {
  const std::size_t at = start_ + static_cast<std::size_t>(position);
  if (at != target_->size()) return Sink::writeLine(position, text, count);
  target_->append(text, count).push_back('\n');
  return true;
}

std::int64_t MemorySink::length() const {
  return static_cast<std::int64_t>(target_->size() - start_);
}

bool TakerSink::flush() {
  const bool taken = block_.empty() || taker_(block_);
  block_.clear();
  return taken;
}

bool TakerSink::write(std::int64_t position, const char* bytes, std::size_t count) {
  if (position != length_) return false;
  block_.append(bytes, count);
  length_ += static_cast<std::int64_t>(count);
  return block_.size() < kBufferSize || flush();
}

FileSink::FileSink(FileDescriptor file, std::string path, std::string target)
    : file_(std::move(file)), path_(std::move(path)), target_(std::move(target)) {
  buffer_.reserve(kBufferSize);
}

std::unique_ptr<FileSink> FileSink::create(const std::string& path) {
  const std::string folder = splitPath(path).folder;
  const std::string beside = joinPath(folder, "." + uniqueName(folder, "part"));
  FileDescriptor file = createNew(beside);
  if (!file) return nullptr;
  return std::unique_ptr<FileSink>(new FileSink(std::move(file), beside, path));
}

std::unique_ptr<FileSink> FileSink::createTemporary(const std::string& path) {
  FileDescriptor file = createNew(path);
  if (!file) return nullptr;
  return std::unique_ptr<FileSink>(new FileSink(std::move(file), path, path));
}

bool FileSink::flush() {
  if (!writeAll(file_.get(), bufferStart_, buffer_.data(), buffer_.size())) failed_ = true;
  bufferStart_ += static_cast<std::int64_t>(buffer_.size());
  buffer_.clear();
  return !failed_;
}

bool FileSink::write(std::int64_t position, const char* bytes, std::size_t count) {
  if (failed_ || !file_) return false;
  const std::int64_t bufferEnd = bufferStart_ + static_cast<std::int64_t>(buffer_.size());
  const bool fits = position == bufferEnd && buffer_.size() + count <= kBufferSize;
  if (!fits) {
    if (!flush()) return false;
    bufferStart_ = position;
  }
  if (count > kBufferSize) {
    if (!writeAll(file_.get(), position, bytes, count)) failed_ = true;
    bufferStart_ = position + static_cast<std::int64_t>(count);
  } else {
    buffer_.append(bytes, count);
  }
  length_ = std::max(length_, position + static_cast<std::int64_t>(count));
  return !failed_;
}

bool FileSink::writeLine(std::int64_t position, const char* text, std::size_t count) {
  const std::int64_t bufferEnd = bufferStart_ + static_cast<std::int64_t>(buffer_.size());
  const bool fits = position == bufferEnd && buffer_.size() + count < kBufferSize;
  if (!fits || failed_ || !file_) return Sink::writeLine(position, text, count);
  buffer_.append(text, count).push_back('\n');
  length_ = std::max(length_, position + static_cast<std::int64_t>(count) + 1);
  return true;
}

bool FileSink::keep() {
  if (!file_) return false;
  bool kept = flush();
  if (kept && path_ != target_) {
    kept = fchmod(file_.get(), permissionsFor(target_)) == 0 &&
           std::rename(path_.c_str(), target_.c_str()) == 0;
  }
  // Some file systems tell only now that there was no room.
  kept = close(file_.release()) == 0 && kept;
  if (!kept) unlink(path_.c_str());
  return kept;
}

void FileSink::discard() {
  if (!file_) return;
  file_.reset();
  unlink(path_.c_str());
}

}  // namespace egfhost
