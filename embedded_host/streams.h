// File objects and streams, the host objects behind the FLR_ calls.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "embedded_host/handles.h"
#include "embedded_host/sinks.h"
#include "embedded_host/sources.h"
#include "host/files.h"

namespace egfhost {

// What a stream was opened from: a path, or bytes in memory.
class FileObject : public HostObject {
 public:
  static constexpr HostKind kKind = HostKind::kFile;

  explicit FileObject(const QV_FILEID& id) : HostObject(kKind), id_(id) {}
  FileObject(const QV_FILEID& id, std::shared_ptr<const std::string> bytes)
      : HostObject(kKind), id_(id), bytes_(std::move(bytes)) {}

  const QV_FILEID& id() const { return id_; }
  const std::shared_ptr<const std::string>& bytes() const { return bytes_; }  // null for a path

 private:
  QV_FILEID id_;
  std::shared_ptr<const std::string> bytes_;
};

// Reads or writes at a position that moves on.
class Stream : public HostObject {
 public:
  static constexpr HostKind kKind = HostKind::kStream;

  // Both take a reference on the file object.
  Stream(FileObject* file, std::unique_ptr<Source> source);
  Stream(FileObject* file, std::unique_ptr<Sink> sink);
  ~Stream() override;

  FileObject* file() const { return file_; }
  Source* source() const { return source_.get(); }

  std::int32_t read(void* buffer, std::uint32_t count);
  bool write(const char* bytes, std::size_t count);
  bool writeLine(const char* text, std::size_t count);
  std::int64_t seek(std::int64_t offset, int origin);

  // Ends reading or writing. False when what was written could not be kept.
  bool close();
  void discard();

 private:
  std::int64_t length() const;

  FileObject* file_;
  std::unique_ptr<Source> source_;
  std::unique_ptr<Sink> sink_;
  std::int64_t position_ = 0;
  bool failed_ = false;  // a write failed: nothing is kept
};

// The file object of a file or stream handle, null for anything else.
FileObject* fileOf(HostHandle handle);

// The streams that FLR_OpenFile opens, in the modes of host/files.h. 0 on failure.
HostHandle openToRead(const QV_FILEID& id);
HostHandle openToWrite(const QV_FILEID& id, bool temporary);
// A new stream to read on a file object.
HostHandle reopen(FileObject* file);

}  // namespace egfhost
