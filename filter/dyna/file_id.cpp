#include "dyna/file_id.h"

#include <cstring>

namespace egfsvg {
namespace {

constexpr char kSeparator = '/';

/// Appends as much of a fixed field as there is room for.
char* append(char* at, const char* end, const char* text, std::size_t size) {
  const auto room = static_cast<std::size_t>(end - at);
  const std::size_t length = strnlen(text, size);
  const std::size_t taken = length < room ? length : room;
  std::memcpy(at, text, taken);
  return at + taken;
}

}  // namespace

FullName fullNameOf(const QV_FILEID& file) {
  FullName name;
  const char* end = name.text + sizeof name.text - 1;
  char* at = append(name.text, end, file.path, sizeof file.path);
  if (at != name.text && at[-1] != kSeparator) at = append(at, end, &kSeparator, 1);
  at = append(at, end, file.baseName, sizeof file.baseName);
  *at = '\0';
  return name;
}

bool nameTemporary(const char* folder, const char* extension, QV_FILEID* file) {
  *file = {};
  if (folder == nullptr || std::strlen(folder) >= sizeof file->path) return false;
  std::memcpy(file->path, folder, std::strlen(folder));
  return FLR_GetUniqueFname(file, extension) == 0;
}

bool noteFileId(HostHandle file, QV_FILEID* out) {
  *out = {};
  if (FLR_GetBaseFilename(file, out->baseName) != 0) return false;
  if (FLR_GetPath(file, out->path) != 0) return false;
  out->volumeRef = FLR_GetVRefNum(file);
  out->shareWriteFlag = FLR_GetShareWriteFlag(file);
  out->demandLoadFlag = FLR_GetDemandLoadFlag(file);
  return true;
}

}  // namespace egfsvg
