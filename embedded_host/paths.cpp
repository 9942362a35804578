#include "embedded_host/paths.h"

#include <sys/random.h>
#include <unistd.h>

#include <cstdlib>

#include "embedded_host/bounded_text.h"
#include "embedded_host/host_files.h"

namespace egfhost {

PathParts splitPath(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) return {".", std::string(path)};
  const std::string_view folder = slash == 0 ? path.substr(0, 1) : path.substr(0, slash);
  return {std::string(folder), std::string(path.substr(slash + 1))};
}

std::string joinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && path.back() != '/') path += '/';
  path += name;
  return path;
}

namespace {

// A folder of this process alone, made when it is first asked for.
class PrivateFolder {
 public:
  PrivateFolder() = default;
  ~PrivateFolder() { remove(); }
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  const std::string& path() {
    if (path_.empty()) make();
    return path_;
  }
  const std::string& pathIfMade() const { return path_; }

  void remove() {
    // A forked process must not remove its parent's folder.
    if (owner_ == getpid()) rmdir(path_.c_str());
    owner_ = -1;
    path_.clear();
  }

 private:
  void make() {
    const char* const named = std::getenv("TMPDIR");
    const bool usable = named != nullptr && named[0] == '/' && access(named, W_OK | X_OK) == 0;
    path_ = joinPath(usable ? named : "/tmp", "egfhost-XXXXXX");
    if (mkdtemp(path_.data()) != nullptr) owner_ = getpid();
    path_ += '/';
  }

  std::string path_;
  pid_t owner_ = -1;
};

PrivateFolder& privateFolder() {
  static PrivateFolder folder;
  return folder;
}

}  // namespace

const std::string& temporaryFolder() { return privateFolder().path(); }

const std::string& temporaryFolderIfMade() { return privateFolder().pathIfMade(); }

void removeTemporaryFolder() { privateFolder().remove(); }

std::string pathOf(const QV_FILEID* file) {
  if (file == nullptr) return {};
  return joinPath(fieldText(file->path), fieldText(file->baseName));
}

bool makeFileId(std::string_view path, QV_FILEID& file) {
  file = QV_FILEID{};
  const PathParts parts = splitPath(path);
  return copyText(file.path, sizeof file.path, parts.folder).whole &&
         copyText(file.baseName, sizeof file.baseName, parts.name).whole;
}

std::string uniqueName(const std::string& folder, std::string_view extension) {
  constexpr int kAttempts = 64;
  constexpr std::size_t kRandomLetters = 16;
  constexpr std::string_view kLetters = "0123456789abcdefghijklmnopqrstuv";
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    unsigned char random[kRandomLetters];
    if (getrandom(random, sizeof random, 0) != static_cast<ssize_t>(sizeof random)) continue;
    std::string name = "egf";
    for (const unsigned char each : random) name += kLetters[each % kLetters.size()];
    name += '.';
    name += extension;
    if (access(joinPath(folder, name).c_str(), F_OK) != 0) return name;
  }
  return {};
}

}  // namespace egfhost
