// Which files the host opens: nothing on a network, nothing outside the allowed folders.
#pragma once

#include <string>
#include <string_view>

#include "embedded_host/host_files.h"

namespace egfhost {

enum class FileVerdict : std::uint8_t { kAllowed, kMissing, kForbidden, kRemote };

// The verdict on reading an existing file. `resolved` becomes its path without links.
FileVerdict mayRead(const std::string& path, std::string& resolved);

// The verdict on making or removing a file; its folder must exist. `resolved` becomes its path, the
// folder without links.
FileVerdict mayWrite(const std::string& path, std::string& resolved);

// True for an address with a scheme, or the name of a network share.
bool isRemote(std::string_view path);

// Logs why a file was not opened, when that is worth a word.
void reportVerdict(FileVerdict verdict, const std::string& path);

}  // namespace egfhost
