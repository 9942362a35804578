// Names of files by parts.
#pragma once

#include "host/files.h"

namespace egfsvg {

/// A text of full names, cut off when it would not fit.
struct FullName {
  char text[kFileFullNameSize + 1];
};

/// Path and base name, one separator between them.
FullName fullNameOf(const QV_FILEID& file);

/// Names a new file in the folder for temporary files; false when there is no such name.
/// Nothing is created.
bool nameTemporary(const char* folder, const char* extension, QV_FILEID* file);

/// Fills the name of a file object or stream. False without one.
bool noteFileId(HostHandle file, QV_FILEID* out);

}  // namespace egfsvg
