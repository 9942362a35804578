#include "embedded_host/file_policy.h"

#include <climits>
#include <cstdlib>
#include <memory>
#include <vector>

#include "embedded_host/paths.h"
#include "host/diagnostics.h"
#include "host/memory.h"

namespace egfhost {

namespace {

struct AllowedFolder {
  std::string path;  // without links
  FileAccess access;
};

// All that the policy keeps.
struct PolicyState {
  std::vector<AllowedFolder> folders;
  bool everything = false;
};

PolicyState& state() {
  static PolicyState policy;
  return policy;
}

// The path without links; empty when there is no such file.
std::string resolve(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> text(realpath(path.c_str(), nullptr),
                                                         &std::free);
  return text == nullptr ? std::string() : std::string(text.get());
}

bool isInside(std::string_view path, std::string_view folder) {
  if (folder == "/") return true;
  return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

bool isTemporary(std::string_view resolved) {
  const std::string& folder = temporaryFolderIfMade();
  return !folder.empty() && isInside(resolved, resolve(folder));
}

bool isAllowed(const std::string& resolved, FileAccess access) {
  if (state().everything || isTemporary(resolved)) return true;
  for (const AllowedFolder& folder : state().folders) {
    const bool enough = folder.access == FileAccess::kWrite || access == FileAccess::kRead;
    if (enough && isInside(resolved, folder.path)) return true;
  }
  return false;
}

}  // namespace

bool isRemote(std::string_view path) {
  return path.find("://") != std::string_view::npos || path.starts_with("\\\\");
}

FileVerdict mayRead(const std::string& path, std::string& resolved) {
  if (isRemote(path)) return FileVerdict::kRemote;
  resolved = resolve(path);
  if (resolved.empty()) return FileVerdict::kMissing;
  return isAllowed(resolved, FileAccess::kRead) ? FileVerdict::kAllowed : FileVerdict::kForbidden;
}

FileVerdict mayWrite(const std::string& path, std::string& resolved) {
  if (isRemote(path)) return FileVerdict::kRemote;
  const PathParts parts = splitPath(path);
  const std::string folder = resolve(parts.folder);
  if (folder.empty() || parts.name.empty()) return FileVerdict::kMissing;
  resolved = joinPath(folder, parts.name);
  return isAllowed(resolved, FileAccess::kWrite) ? FileVerdict::kAllowed : FileVerdict::kForbidden;
}

void reportVerdict(FileVerdict verdict, const std::string& path) {
  using egfsvg::Diagnostic;
  if (verdict != FileVerdict::kForbidden && verdict != FileVerdict::kRemote) return;
  egfsvg::logDiagnostic(
      verdict == FileVerdict::kRemote ? Diagnostic::kRemoteReference : Diagnostic::kForbiddenFile,
      egfsvg::kNoSourceOffset, path.c_str(), RMM_SITE);
}

bool allowFolder(const std::string& path, FileAccess access) {
  std::string resolved = resolve(path);
  if (resolved.empty()) return false;
  state().folders.push_back({std::move(resolved), access});
  return true;
}

void allowAllFiles(bool allowed) { state().everything = allowed; }

void resetFilePolicy() { state() = PolicyState{}; }

}  // namespace egfhost
