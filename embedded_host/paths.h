// Paths and file ids: joining, splitting, the temporary folder.
#pragma once

#include <string>
#include <string_view>

#include "host/files.h"

namespace egfhost {

struct PathParts {
  std::string folder;  // without its last separator, "/" for the root, "." for none
  std::string name;
};

PathParts splitPath(std::string_view path);

// One separator between the two; an empty folder adds nothing.
std::string joinPath(std::string_view folder, std::string_view name);

// The temporary folder with its last separator: private to the process, made at the first call,
// removed at the end unless something is left in it.
const std::string& temporaryFolder();

// The same when it has been made, else empty.
const std::string& temporaryFolderIfMade();

// The path that a file id names; empty for null.
std::string pathOf(const QV_FILEID* file);

// A file id for a path, the flags 0. False when a part does not fit.
bool makeFileId(std::string_view path, QV_FILEID& file);

// A name that no file in the folder has: random, ending with the extension. Empty when none was
// found.
std::string uniqueName(const std::string& folder, std::string_view extension);

}  // namespace egfhost
