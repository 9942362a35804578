// Owners of streams and temporary files.
#pragma once

#include "host/files.h"

namespace egfsvg {

/// An open stream, closed at the end unless it was closed before.
class StreamOwner {
 public:
  StreamOwner() = default;
  ~StreamOwner() { close(); }
  StreamOwner(const StreamOwner&) = delete;
  StreamOwner& operator=(const StreamOwner&) = delete;

  /// False when it cannot be opened.
  bool open(const QV_FILEID& file, FileMode mode) {
    return FLR_OpenFile(&file, mode, &stream_) >= 0;
  }
  /// A host file object, read from its start to its end.
  bool openToRead(HostHandle file) {
    if (FLR_Open(file, kFileModeRead, &stream_) < 0) return false;
    FLR_Buffer(stream_);
    return true;
  }
  /// False when what was written could not be kept, or nothing is open.
  bool close() {
    const HostHandle stream = stream_;
    stream_ = 0;
    return stream != 0 && FLR_Close(stream) == 0;
  }
  HostHandle get() const { return stream_; }

 private:
  HostHandle stream_ = 0;
};

/// A file that does not outlive this object, once it was made.
class TemporaryFile {
 public:
  TemporaryFile() = default;
  ~TemporaryFile() {
    remove();
    remove();
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  QV_FILEID& id() { return id_; }
  void made() { made_ = true; }
  /// Tried again at the end, twice, when it does not succeed.
  void remove() {
    if (made_ && FLR_DeleteFile(&id_) == 0) made_ = false;
  }

 private:
  QV_FILEID id_{};
  bool made_ = false;
};

}  // namespace egfsvg
