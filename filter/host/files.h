// Files. Names are QV_FILEID records, a stream is a handle, and so is the host's own file object.
// Every call takes a stream; where a comment says "file", it takes a stream or a file object.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host/wire.h"

inline constexpr int kFileBaseNameSize = 258;
inline constexpr int kFilePathSize = 1028;
// Room for the full name of any QV_FILEID: path, separator, base name, terminator.
inline constexpr int kFileFullNameSize = kFilePathSize + kFileBaseNameSize;

// Names a file by parts. All fields zero is an empty name.
struct QV_FILEID {
  char baseName[kFileBaseNameSize];  // with its extension, without directory
  std::int16_t volumeRef;            // 0 for files that the filter makes up
  char path[kFilePathSize];          // directory, with or without its last separator
  std::int32_t shareWriteFlag;       // 0 for files that the filter makes up
  std::int32_t demandLoadFlag;       // 0 for files that the filter makes up
};
static_assert(sizeof(QV_FILEID) == 1296);
static_assert(offsetof(QV_FILEID, volumeRef) == 258);
static_assert(offsetof(QV_FILEID, path) == 260);
static_assert(offsetof(QV_FILEID, shareWriteFlag) == 1288);
static_assert(offsetof(QV_FILEID, demandLoadFlag) == 1292);

// How FLR_OpenFile opens.
enum FileMode : int {
  kFileModeRead = 1,
  kFileModeWriteNew = 2,   // a new file; it appears whole when the stream is closed
  kFileModeTemporary = 10  // a temporary file, created at once and only when none is there
};

// Where FLR_Seek measures from.
enum FileOrigin : int { kFileOriginStart = 1, kFileOriginEnd = 3 };

// What FLR_Write returns on failure.
inline constexpr std::uint32_t kFileWriteFailed = 0xffffffffu;

extern "C" {

// 0 or positive on success, negative on failure. Only regular files open; never a network address,
// and nothing outside the folders that the file policy allows.
EGFHOST_API int FLR_OpenFile(const QV_FILEID* file, int mode, HostHandle* stream);
EGFHOST_API int FLR_Open(HostHandle file, int mode, HostHandle* stream);

// Turns on buffering for sequential reading. 0 on success.
EGFHOST_API int FLR_Buffer(HostHandle stream);

// 0 on success; non-zero when what was written could not be kept. Never throws.
EGFHOST_API int FLR_Close(HostHandle stream);

// Bytes read, fewer than asked at the end of the file; negative on failure.
EGFHOST_API std::int32_t FLR_Read(HostHandle stream, void* buffer, std::uint32_t count);

// Bytes written, or kFileWriteFailed.
EGFHOST_API std::uint32_t FLR_Write(HostHandle stream, const void* buffer, std::uint32_t count);

// Writes the text and one line feed. -1 on failure, anything else is success.
EGFHOST_API int FLR_PutLine(const char* text, HostHandle stream);

// The new position, negative on failure. The high word is the sign extension of the low word.
// Lengths above 0x7fffffff come back as they are: the caller decides.
EGFHOST_API std::int64_t FLR_Seek(HostHandle stream, std::int32_t offsetLow,
                                  std::int32_t offsetHigh, int origin);

EGFHOST_API int FLR_DeleteFile(const QV_FILEID* file);  // 0 on success
EGFHOST_API int FLR_FileExists(const QV_FILEID* file);  // non-zero when it exists

// Fills the base name with one that no file in the record's path has. 0 on success.
EGFHOST_API int FLR_GetUniqueFname(QV_FILEID* file, const char* extension);

// The fields of the QV_FILEID of a file; 0 on success. The outputs hold kFileBaseNameSize and
// kFilePathSize bytes.
EGFHOST_API int FLR_GetBaseFilename(HostHandle file, char* baseName);
EGFHOST_API int FLR_GetPath(HostHandle file, char* path);
EGFHOST_API std::int16_t FLR_GetVRefNum(HostHandle file);
EGFHOST_API std::int32_t FLR_GetShareWriteFlag(HostHandle file);
EGFHOST_API std::int32_t FLR_GetDemandLoadFlag(HostHandle file);

// The file object behind a stream, without a new reference; 0 when there is none.
EGFHOST_API HostHandle FLR_GetStorage(HostHandle stream);

// The temporary directory, with its last separator; owned by the host.
EGFHOST_API const char* FLR_GetTempPath();

// Joins a directory and the base name of a file id. fullName holds kFileFullNameSize bytes.
EGFHOST_API int FLR_FullFileName(char* fullName, const char* path, const QV_FILEID* file);

// The full name of a file object; non-zero on success. fullName holds kFileFullNameSize bytes.
EGFHOST_API int FLR_GetFullFilename(HostHandle file, char* fullName);

// Splits a full name into a directory, without its last separator, and a base name; 0 on success.
// The directory of a bare name is ".", that of a name in the root "/".
EGFHOST_API int FLR_SplitPath(const char* fullName, char* path, char* baseName);

}  // extern "C"
