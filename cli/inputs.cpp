#include "cli/inputs.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "cli/failure.h"
#include "embedded_host/host_compression.h"
#include "embedded_host/host_files.h"

namespace egfsvg {
namespace {

namespace fs = std::filesystem;

constexpr const char* kStandardInput = "-";
// What the host unpacks at most.
constexpr std::uint64_t kMostUnpacked = std::uint64_t{1} << 30U;
constexpr std::array<const char*, 2> kDrawingExtensions{".svg", ".svgz"};

[[noreturn]] void failOpening(const std::string& path, int error) {
  throw Failure(ExitCode::kNoInput,
                path + ": cannot be opened: " + std::strerror(error) + "; check the path");
}

[[noreturn]] void failReading(const std::string& name, int error) {
  throw Failure(ExitCode::kInputOutput,
                name + ": cannot be read: " + std::strerror(error) + "; try a copy of it");
}

[[noreturn]] void failSize(const std::string& name, std::uint64_t maxBytes) {
  throw Failure(ExitCode::kLimit, name + ": larger than " + std::to_string(maxBytes) +
                                      " bytes; raise the limit with --max-source-bytes");
}

bool isDrawing(const fs::path& path) {
  std::string extension = path.extension().string();
  for (char& letter : extension) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return std::find(kDrawingExtensions.begin(), kDrawingExtensions.end(), extension) !=
         kDrawingExtensions.end();
}

std::vector<InputName> drawingsIn(const fs::path& folder) {
  std::vector<InputName> found;
  std::error_code error;
  auto entry = fs::recursive_directory_iterator(
      folder, fs::directory_options::skip_permission_denied, error);
  if (error) failOpening(folder.string(), error.value());
  for (; entry != fs::recursive_directory_iterator(); entry.increment(error)) {
    if (error) failOpening(folder.string(), error.value());
    if (entry->is_regular_file(error) && isDrawing(entry->path())) {
      const fs::path relative = entry->path().lexically_relative(folder);
      found.push_back({entry->path().string(), relative.string()});
    }
  }
  if (found.empty()) {
    throw Failure(ExitCode::kNoInput,
                  folder.string() + ": no .svg or .svgz file in it; name another folder");
  }
  std::sort(found.begin(), found.end(),
            [](const InputName& a, const InputName& b) { return a.relative < b.relative; });
  return found;
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ > STDERR_FILENO) ::close(number_);
  }
  int number() const { return number_; }

 private:
  int number_;
};

// Fewer bytes than asked for at the end alone.
std::size_t readFully(int descriptor, char* bytes, std::size_t count, const std::string& name) {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = ::read(descriptor, bytes + done, count - done);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) failReading(name, errno);
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

bool isGzip(const std::string& path, const std::string& name) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.number() < 0) failOpening(name, errno);
  std::array<char, 2> magic{};
  if (readFully(file.number(), magic.data(), magic.size(), name) < magic.size()) return false;
  return magic[0] == '\x1f' && magic[1] == '\x8b';
}

std::uint64_t fileSize(const std::string& path, const std::string& name) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) failOpening(name, errno);
  if (S_ISDIR(status.st_mode)) {
    throw Failure(ExitCode::kNoInput,
                  name + ": is a folder; name a file in it, or use convert with --to and --out");
  }
  return static_cast<std::uint64_t>(status.st_size);
}

// Unpacks a gzip file. Throws a Failure that says what is wrong with it.
void unpackGzip(const std::string& source, const std::string& target, const std::string& name,
                std::uint64_t maxBytes) {
  egfhost::allowFolder(fs::absolute(source).parent_path().string(), egfhost::FileAccess::kRead);
  egfhost::allowFolder(fs::path(target).parent_path().string(), egfhost::FileAccess::kWrite);
  if (ZLIB_UnCompressFile(source.c_str(), target.c_str(), 0) == 0) return;
  using Why = egfhost::CompressionFailure;
  const Why why = egfhost::compressionFailure();
  if (why == Why::kTooLarge) failSize(name, std::min(maxBytes, kMostUnpacked));
  const bool damaged = why == Why::kDamaged || why == Why::kCutOff;
  throw Failure(damaged ? ExitCode::kBadData : ExitCode::kInputOutput,
                name + ": cannot be unpacked: " + egfhost::describe(why) +
                    (damaged ? "; get a whole copy of it" : "; check TMPDIR and the disk"));
}

bool isRegular(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

std::vector<InputName> expandInputs(const std::vector<std::string>& arguments) {
  std::vector<InputName> names;
  for (const std::string& argument : arguments) {
    std::error_code error;
    if (argument == kStandardInput || !fs::is_directory(argument, error)) {
      const bool stream = argument == kStandardInput;
      names.push_back({argument, stream ? "stdin" : fs::path(argument).filename().string()});
      continue;
    }
    for (InputName& name : drawingsIn(argument)) names.push_back(std::move(name));
  }
  return names;
}

std::string shownInput(const std::string& path) {
  return path == kStandardInput ? "standard input" : path;
}

ReadyInput::ReadyInput(const std::string& path, std::uint64_t maxBytes)
    : name_(shownInput(path)), path_(path) {
  if (path == kStandardInput) spool(STDIN_FILENO, maxBytes);
  fileSize(path_, name_);
  if (!isRegular(path_)) {
    const Descriptor stream(::open(path_.c_str(), O_RDONLY | O_CLOEXEC));
    if (stream.number() < 0) failOpening(name_, errno);
    spool(stream.number(), maxBytes);
  }
  compressed_ = isGzip(path_, name_);
  if (compressed_) unpack(maxBytes);
  bytes_ = fileSize(path_, name_);
  if (bytes_ > maxBytes) failSize(name_, maxBytes);
}

// A pipe or a device, to a file that can be read twice.
void ReadyInput::spool(int descriptor, std::uint64_t maxBytes) {
  constexpr std::size_t kBlock = 1U << 16;
  spooled_.emplace(TemporaryFile::scratch(".svg"));
  std::array<char, kBlock> block;
  std::uint64_t total = 0;
  while (const std::size_t got = readFully(descriptor, block.data(), block.size(), name_)) {
    total += got;
    if (total > maxBytes) failSize(name_, maxBytes);
    if (!spooled_->write({block.data(), got})) failReading(name_, errno);
  }
  path_ = spooled_->path();
}

void ReadyInput::unpack(std::uint64_t maxBytes) {
  unpacked_.emplace(TemporaryFile::scratch(".svg"));
  unpackGzip(path_, unpacked_->path(), name_, maxBytes);
  path_ = unpacked_->path();
}

}  // namespace egfsvg
