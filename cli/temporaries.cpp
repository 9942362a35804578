#include "cli/temporaries.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

#include "cli/failure.h"

namespace egfsvg {
namespace {

constexpr int kSlots = 16;
constexpr std::size_t kSlotSize = 4096;
constexpr mode_t kNewFileMode = 0666;

// The paths that the signal handler removes; an empty one is a free slot.
struct Removals {
  std::array<std::array<char, kSlotSize>, kSlots> paths{};
};
Removals removals;

int takeSlot(const std::string& path) {
  for (int i = 0; i < kSlots; ++i) {
    auto& slot = removals.paths[static_cast<std::size_t>(i)];
    if (slot[0] != '\0' || path.size() >= kSlotSize) continue;
    // The first byte comes last: the handler takes a path when it sees one.
    std::memcpy(slot.data() + 1, path.c_str() + 1, path.size());
    slot[0] = path[0];
    return i;
  }
  return -1;
}

void freeSlot(int slot) {
  if (slot >= 0) removals.paths[static_cast<std::size_t>(slot)][0] = '\0';
}

extern "C" void endBySignal(int number) {
  for (const auto& path : removals.paths) {
    if (path[0] != '\0') ::unlink(path.data());
  }
  ::signal(number, SIG_DFL);
  ::raise(number);
}

int openTemporary(std::string& pattern, std::size_t suffixLength) {
  return ::mkostemps(pattern.data(), static_cast<int>(suffixLength), O_CLOEXEC);
}

}  // namespace

TemporaryFile::TemporaryFile(std::string path, int descriptor)
    : path_(std::move(path)), descriptor_(descriptor), slot_(takeSlot(path_)) {}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : path_(std::exchange(other.path_, {})),
      descriptor_(std::exchange(other.descriptor_, -1)),
      slot_(std::exchange(other.slot_, -1)) {}

TemporaryFile TemporaryFile::beside(const std::string& target) {
  const std::filesystem::path path(target);
  const std::filesystem::path name = "." + path.filename().string() + ".XXXXXX";
  std::string pattern = (path.parent_path() / name).string();
  const int descriptor = openTemporary(pattern, 0);
  if (descriptor < 0) {
    throw Failure(ExitCode::kCannotCreate, target + ": cannot be created: " + std::strerror(errno) +
                                               "; check the folder and its permissions");
  }
  return {std::move(pattern), descriptor};
}

TemporaryFile TemporaryFile::scratch(const std::string& suffix) {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  std::string pattern = ((error ? "/tmp" : folder) / "egfsvg-XXXXXX").string() + suffix;
  const int descriptor = openTemporary(pattern, suffix.size());
  if (descriptor < 0) {
    throw Failure(ExitCode::kInputOutput, pattern + ": cannot be created: " + std::strerror(errno) +
                                              "; set TMPDIR to a folder with room");
  }
  return {std::move(pattern), descriptor};
}

TemporaryFile::~TemporaryFile() {
  close();
  if (!path_.empty()) ::unlink(path_.c_str());
  freeSlot(slot_);
}

bool TemporaryFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool TemporaryFile::close() {
  const int descriptor = std::exchange(descriptor_, -1);
  return descriptor < 0 || ::close(descriptor) == 0;
}

bool TemporaryFile::renameTo(const std::string& target) {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  ::chmod(path_.c_str(), kNewFileMode & ~mask);
  if (::rename(path_.c_str(), target.c_str()) != 0) return false;
  path_.clear();
  return true;
}

void removeTemporariesOnSignals() {
  for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) ::signal(number, endBySignal);
}

void forgetTemporaries() {
  for (auto& path : removals.paths) path[0] = '\0';
}

}  // namespace egfsvg
