// The FLR_ calls on names, and how the tool and the tests open files.

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "embedded_host/bounded_text.h"
#include "embedded_host/fault.h"
#include "embedded_host/file_policy.h"
#include "embedded_host/host_files.h"
#include "embedded_host/paths.h"
#include "embedded_host/streams.h"
#include "host/files.h"

namespace egfhost {

namespace {

void explain(std::string* why, const std::string& path, const char* reason) {
  if (why != nullptr) *why = path + ": " + reason;
}

// What keeps a file from being read; null when nothing does.
const char* obstacleToRead(const std::string& path) {
  struct stat status;
  if (isRemote(path)) return "network addresses are not opened";
  if (stat(path.c_str(), &status) != 0) return std::strerror(errno);
  if (S_ISDIR(status.st_mode)) return "is a folder";
  if (!S_ISREG(status.st_mode)) return "is not a regular file";
  if (access(path.c_str(), R_OK) != 0) return std::strerror(errno);
  return nullptr;
}

const char* obstacleToWrite(const std::string& path, const std::string& folder) {
  struct stat status;
  if (isRemote(path)) return "network addresses are not opened";
  if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    return "is not a regular file";
  }
  if (access(folder.c_str(), W_OK | X_OK) != 0) return std::strerror(errno);
  return nullptr;
}

// Copies a part of a file's id. 0 when there is such a file.
template <class Field>
int givePart(FaultCall call, HostHandle file, Field QV_FILEID::*field, char* out) {
  if (out == nullptr) return -1;
  out[0] = '\0';
  const FileObject* const found = fileOf(file);
  if (found == nullptr || faultFails(call)) return -1;
  copyText(out, sizeof(Field), fieldText(found->id().*field));
  return 0;
}

template <class Value>
Value valueOf(HostHandle file, Value QV_FILEID::*field) {
  const FileObject* const found = fileOf(file);
  return found == nullptr ? Value{0} : found->id().*field;
}

}  // namespace

bool fileIdOf(const std::string& path, QV_FILEID* file) { return makeFileId(path, *file); }

HostHandle openFile(const std::string& path, std::string* why) {
  return hostCall(HostHandle{0}, [&] {
    QV_FILEID id;
    HostHandle stream = 0;
    const char* const obstacle = obstacleToRead(path);
    if (obstacle != nullptr) {
      explain(why, path, obstacle);
    } else if (!makeFileId(path, id)) {
      explain(why, path, "the name is too long");
    } else {
      allowFolder(splitPath(path).folder, FileAccess::kRead);
      if (FLR_OpenFile(&id, kFileModeRead, &stream) < 0) explain(why, path, "cannot be opened");
    }
    return stream;
  });
}

HostHandle openOutput(const std::string& path, std::string* why) {
  return hostCall(HostHandle{0}, [&] {
    QV_FILEID id;
    HostHandle stream = 0;
    const std::string folder = splitPath(path).folder;
    const char* const obstacle = obstacleToWrite(path, folder);
    if (obstacle != nullptr) {
      explain(why, path, obstacle);
    } else if (!makeFileId(path, id)) {
      explain(why, path, "the name is too long");
    } else {
      allowFolder(folder, FileAccess::kWrite);
      if (FLR_OpenFile(&id, kFileModeWriteNew, &stream) < 0) {
        explain(why, path, "cannot be created");
      }
    }
    return stream;
  });
}

HostHandle fileObject(const std::string& path) {
  return hostCall(HostHandle{0}, [&] {
    QV_FILEID id;
    if (!makeFileId(path, id)) return HostHandle{0};
    allowFolder(splitPath(path).folder, FileAccess::kRead);
    const FileObject* const file = makeHostObject<FileObject>(RMM_SITE, id);
    return file == nullptr ? HostHandle{0} : file->handle();
  });
}

}  // namespace egfhost

using egfhost::FaultCall;
using egfhost::FileVerdict;

int FLR_DeleteFile(const QV_FILEID* file) {
  if (egfhost::faultFails(FaultCall::FLR_DeleteFile)) return -1;
  return egfhost::hostCall(-1, [&] {
    std::string resolved;
    const FileVerdict verdict = egfhost::mayWrite(egfhost::pathOf(file), resolved);
    return verdict == FileVerdict::kAllowed && unlink(resolved.c_str()) == 0 ? 0 : -1;
  });
}

int FLR_FileExists(const QV_FILEID* file) {
  if (egfhost::faultFails(FaultCall::FLR_FileExists)) return 0;
  return egfhost::hostCall(0, [&] {
    const std::string path = egfhost::pathOf(file);
    std::string resolved;
    const FileVerdict verdict = egfhost::mayRead(path, resolved);
    egfhost::reportVerdict(verdict, path);
    return verdict == FileVerdict::kAllowed ? 1 : 0;
  });
}

int FLR_GetUniqueFname(QV_FILEID* file, const char* extension) {
  if (file == nullptr || extension == nullptr) return -1;
  if (egfhost::faultFails(FaultCall::FLR_GetUniqueFname)) return -1;
  return egfhost::hostCall(-1, [&] {
    const std::string folder(egfhost::fieldText(file->path));
    const std::string name = egfhost::uniqueName(folder, extension);
    if (name.empty()) return -1;
    return egfhost::copyText(file->baseName, sizeof file->baseName, name).whole ? 0 : -1;
  });
}

int FLR_GetBaseFilename(HostHandle file, char* baseName) {
  return egfhost::givePart(FaultCall::FLR_GetBaseFilename, file, &QV_FILEID::baseName, baseName);
}

int FLR_GetPath(HostHandle file, char* path) {
  return egfhost::givePart(FaultCall::FLR_GetPath, file, &QV_FILEID::path, path);
}

std::int16_t FLR_GetVRefNum(HostHandle file) {
  return egfhost::valueOf(file, &QV_FILEID::volumeRef);
}

std::int32_t FLR_GetShareWriteFlag(HostHandle file) {
  return egfhost::valueOf(file, &QV_FILEID::shareWriteFlag);
}

std::int32_t FLR_GetDemandLoadFlag(HostHandle file) {
  return egfhost::valueOf(file, &QV_FILEID::demandLoadFlag);
}

const char* FLR_GetTempPath() { return egfhost::temporaryFolder().c_str(); }

int FLR_FullFileName(char* fullName, const char* path, const QV_FILEID* file) {
  if (fullName == nullptr) return -1;
  fullName[0] = '\0';
  if (file == nullptr || egfhost::faultFails(FaultCall::FLR_FullFileName)) return -1;
  return egfhost::hostCall(-1, [&] {
    const std::string joined =
        egfhost::joinPath(egfhost::textOrEmpty(path), egfhost::fieldText(file->baseName));
    return egfhost::copyText(fullName, kFileFullNameSize, joined).whole ? 0 : -1;
  });
}

int FLR_GetFullFilename(HostHandle file, char* fullName) {
  if (fullName == nullptr) return 0;
  fullName[0] = '\0';
  const egfhost::FileObject* const found = egfhost::fileOf(file);
  if (found == nullptr || egfhost::faultFails(FaultCall::FLR_GetFullFilename)) return 0;
  return egfhost::hostCall(0, [&] {
    const std::string path = egfhost::pathOf(&found->id());
    return egfhost::copyText(fullName, kFileFullNameSize, path).whole ? 1 : 0;
  });
}

int FLR_SplitPath(const char* fullName, char* path, char* baseName) {
  if (fullName == nullptr || path == nullptr || baseName == nullptr) return -1;
  path[0] = '\0';
  baseName[0] = '\0';
  if (egfhost::faultFails(FaultCall::FLR_SplitPath)) return -1;
  return egfhost::hostCall(-1, [&] {
    const egfhost::PathParts parts = egfhost::splitPath(fullName);
    const bool whole = egfhost::copyText(path, kFilePathSize, parts.folder).whole &&
                       egfhost::copyText(baseName, kFileBaseNameSize, parts.name).whole;
    return whole ? 0 : -1;
  });
}
