#include "embedded_host/sources.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace egfhost {

namespace {

// All that sources keep for the process.
struct SourceState {
  std::uint64_t systemReads = 0;
};

constinit SourceState state{};

std::uint32_t readable(std::int64_t length, std::int64_t position, std::uint32_t count) {
  if (position < 0 || position >= length) return 0;
  return static_cast<std::uint32_t>(std::min<std::int64_t>(length - position, count));
}

}  // namespace

std::uint64_t systemReads() { return state.systemReads; }

void FileDescriptor::reset(int number) {
  if (number_ >= 0) close(number_);
  number_ = number;
}

std::int64_t MemorySource::length() const { return static_cast<std::int64_t>(bytes_->size()); }

std::int64_t MemorySource::readAt(std::int64_t position, void* buffer, std::uint32_t count) {
  const std::uint32_t there = readable(length(), position, count);
  if (there != 0) std::memcpy(buffer, bytes_->data() + position, there);
  return there;
}

std::unique_ptr<FileSource> FileSource::open(const std::string& path) {
  // Without O_NONBLOCK a pipe would hold the call until somebody writes.
  FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  struct stat status;
  if (!file || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return nullptr;
  return std::unique_ptr<FileSource>(new FileSource(std::move(file), status.st_size));
}

void FileSource::readAhead() {
  largestStep_ = kAheadWindow;
  posix_fadvise(file_.get(), 0, 0, POSIX_FADV_SEQUENTIAL);
}

std::int64_t FileSource::readDirectly(std::int64_t position, char* buffer, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    ++state.systemReads;
    const ssize_t got =
        pread(file_.get(), buffer + done, count - done, position + static_cast<off_t>(done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return -1;
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return static_cast<std::int64_t>(done);
}

bool FileSource::moveWindow(std::int64_t position) {
  const bool goesOn =
      windowLength_ != 0 && position == windowStart_ + static_cast<std::int64_t>(windowLength_);
  step_ = goesOn ? std::min(step_ * 2, largestStep_) : kJumpWindow;
  if (window_.size() < step_) window_.resize(step_);
  windowLength_ = 0;
  const std::int64_t got = readDirectly(position, window_.data(), step_);
  if (got < 0) return false;
  windowStart_ = position;
  windowLength_ = static_cast<std::size_t>(got);
  return true;
}

std::int64_t FileSource::readAt(std::int64_t position, void* buffer, std::uint32_t count) {
  const std::uint32_t wanted = readable(length_, position, count);
  auto* const target = static_cast<char*>(buffer);
  std::uint32_t done = 0;
  while (done < wanted) {
    const std::int64_t at = position + done;
    const std::int64_t inWindow = at - windowStart_;
    if (inWindow < 0 || inWindow >= static_cast<std::int64_t>(windowLength_)) {
      if (!moveWindow(at)) return done == 0 ? -1 : done;
      if (windowLength_ == 0) break;
      continue;
    }
    const auto left = static_cast<std::size_t>(static_cast<std::int64_t>(windowLength_) - inWindow);
    const std::size_t part = std::min<std::size_t>(left, wanted - done);
    std::memcpy(target + done, window_.data() + inWindow, part);
    done += static_cast<std::uint32_t>(part);
  }
  return done;
}

}  // namespace egfhost
