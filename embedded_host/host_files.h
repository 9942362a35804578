// Files and streams as the tool and the tests open them, the file policy, and what was done.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "host/files.h"

namespace egfhost {

// The policy. At the start nothing is allowed but the temporary folder.
enum class FileAccess : std::uint8_t { kRead, kWrite };  // kWrite allows reading too

// Allows a folder and what lies below it; false when there is no such folder.
EGFHOST_API bool allowFolder(const std::string& path, FileAccess access);
EGFHOST_API void allowAllFiles(bool allowed);
EGFHOST_API void resetFilePolicy();

// Removes the folder for temporary files when it is empty; a process that ends in the ordinary way
// does so by itself. The next temporary file makes a new one.
EGFHOST_API void removeTemporaryFolder();

// Streams to read, 0 on failure; `why` then says so in words. Opening a file allows reading in its
// folder.
EGFHOST_API HostHandle openFile(const std::string& path, std::string* why = nullptr);
// A stream over bytes; the name is what FLR_GetBaseFilename tells. Files named beside it are
// looked for in `folder`, when that is not empty.
EGFHOST_API HostHandle openMemory(std::string name, std::string bytes, std::string folder = {});

// Streams to write, 0 on failure. The file appears whole when the stream is closed, or not at all
// when it is discarded or something could not be written. Opening allows writing in its folder.
EGFHOST_API HostHandle openOutput(const std::string& path, std::string* why = nullptr);
// Writes go to the end of *target, which must outlive the stream.
EGFHOST_API HostHandle openMemoryOutput(std::string name, std::string* target);

// Writes are handed on in their order, a block at a time and the last one when the stream is
// closed; the taker returns false to refuse. The name stands for the file that it is going to be.
using ByteTaker = std::function<bool(std::string_view bytes)>;
EGFHOST_API HostHandle openTakenOutput(std::string name, ByteTaker taker);

// Closes an output without keeping what was written.
EGFHOST_API void discardOutput(HostHandle stream);

// The file object behind a path, for what takes one; it belongs to the caller
// (OBJ_DestroyObjectTrace). It allows reading in its folder.
EGFHOST_API HostHandle fileObject(const std::string& path);

// The file id of a path; false when a part is too long. The path is taken as it is.
EGFHOST_API bool fileIdOf(const std::string& path, QV_FILEID* file);

// Called with each line before FLR_PutLine writes it. A value becomes the call's result, and the
// line is not written.
using LineHook = std::function<std::optional<int>(std::string_view line)>;
EGFHOST_API void setLineHook(LineHook hook);

// What was done since the start of the process.
struct FileCounters {
  std::uint64_t opens;
  std::uint64_t closes;
  std::uint64_t reads;  // FLR_Read calls
  std::uint64_t bytesRead;
  std::uint64_t systemReads;  // reads that went to the system
  std::uint64_t lines;        // FLR_PutLine calls
};
EGFHOST_API FileCounters fileCounters();

}  // namespace egfhost
