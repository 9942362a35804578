#include "cli/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include "cli/failure.h"
#include "cli/temporaries.h"

namespace egfsvg {
namespace {

constexpr const char* kStandardOutput = "-";

std::string shownName(const std::string& path) {
  return path == kStandardOutput ? "standard output" : path;
}

[[noreturn]] void failWriting(const std::string& path, int error) {
  throw Failure(ExitCode::kInputOutput, shownName(path) +
                                            ": cannot be written: " + std::strerror(error) +
                                            "; free some space or choose another place");
}

[[noreturn]] void failCreating(const std::string& path, int error) {
  throw Failure(ExitCode::kCannotCreate, path + ": cannot be created: " + std::strerror(error) +
                                             "; check the folder and its permissions");
}

void writeAll(int descriptor, std::string_view bytes, const std::string& path) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) failWriting(path, errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

// Standard output, a device, a pipe.
class StreamOutput : public OutputFile {
 public:
  StreamOutput(std::string path, int descriptor)
      : path_(std::move(path)), descriptor_(descriptor) {}
  ~StreamOutput() override {
    if (descriptor_ > STDERR_FILENO) ::close(descriptor_);
  }

  void write(std::string_view bytes) override { writeAll(descriptor_, bytes, path_); }
  void commit() override {}
  const std::string& workingPath() const override { return none_; }
  const std::string& path() const override { return path_; }

 private:
  std::string path_;
  std::string none_;
  int descriptor_;
};

// A new file that takes its name when it is whole.
class ReplacingOutput : public OutputFile {
 public:
  explicit ReplacingOutput(std::string path)
      : path_(std::move(path)), temporary_(TemporaryFile::beside(path_)) {}

  void write(std::string_view bytes) override {
    if (!temporary_.write(bytes)) failWriting(path_, errno);
  }
  const std::string& workingPath() const override { return temporary_.path(); }
  const std::string& path() const override { return path_; }

  void commit() override {
    if (!temporary_.close()) failWriting(path_, errno);
    if (!temporary_.renameTo(path_)) failCreating(path_, errno);
  }

 private:
  std::string path_;
  TemporaryFile temporary_;
};

bool isStream(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

}  // namespace

std::unique_ptr<OutputFile> OutputFile::create(const std::string& path) {
  if (path == kStandardOutput) return std::make_unique<StreamOutput>(path, STDOUT_FILENO);
  if (std::filesystem::is_directory(path)) failCreating(path, EISDIR);
  if (!isStream(path)) return std::make_unique<ReplacingOutput>(path);
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) failCreating(path, errno);
  return std::make_unique<StreamOutput>(path, descriptor);
}

void createDirectory(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  if (error) failCreating(path, error.value());
}

}  // namespace egfsvg
