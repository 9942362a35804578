// Random access to an open host file for the reader. One block of the file is kept; reading goes
// byte by byte, by copied text, or by SourceCursor over the block's own bytes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host/files.h"
#include "host/wire.h"
#include "model/byte_block.h"

class cBuffer {
 public:
  static constexpr std::int32_t kBlockSize = 4096;
  static constexpr std::int32_t kSlack = 64;  // bytes behind a block that may be looked at
  static constexpr int kSourceEnd = -1;       // what nextByte gives at the end

  cBuffer() = default;
  explicit cBuffer(HostHandle source);
  ~cBuffer();
  cBuffer(const cBuffer&) = delete;
  cBuffer& operator=(const cBuffer&) = delete;

  char* result = nullptr;       // the last text handed out, owned
  std::int32_t blockPos = 0;    // of the next byte within the block
  std::int32_t blockLen = 0;    // valid bytes in the block
  char* block = nullptr;        // null when nothing is loaded; a zero byte and "<" stand behind it
  HostHandle file = 0;          // not owned
  std::int32_t fileIndex = 0;   // offset of the next byte: block[blockPos] while a block is loaded
  std::int32_t fileLength = 0;  // taken when the file is set

  /// Unloads; file and length stay.
  void bufferInit();
  /// 0, or -1 for an empty file (also one beyond the size limit): the former file then stays, with
  /// length 0.
  int setFileHandle(HostHandle source);
  /// Back to the start of the same file.
  void resetBuffer();
  /// Loads up to `count` bytes (a block at most) from the file index on.
  void fillBuffer(std::int32_t count);
  /// Steps back; beyond the start it stops there.
  void backupBuffer(std::int32_t count);
  /// A terminated copy of the next `count` bytes, fewer at the end of the source; null when there
  /// are none. The text is good until the next call.
  char* readBuffer(std::int32_t count);
  /// The former file index, or -1 outside the file: nothing is loaded then, and the index is 0.
  long setFileIndex(long offset);
  std::int32_t getFileIndex() const { return fileIndex; }

  /// The next byte, 0 to 255, or kSourceEnd.
  int nextByte() {
    if (blockPos >= blockLen && !loadNext()) return kSourceEnd;
    ++fileIndex;
    return static_cast<unsigned char>(block[blockPos++]);
  }
  /// The unread bytes of the block, and where they end. Null, both, when nothing is loaded.
  const char* unread() const { return block == nullptr ? nullptr : block + blockPos; }
  const char* unreadEnd() const { return block == nullptr ? nullptr : block + blockLen; }
  /// The same bytes, to be changed for a while: a reader puts back what stood there.
  char* unreadText() { return block == nullptr ? nullptr : block + blockPos; }
  /// Takes the end of a tag, ">" or "/>", if it comes next in the block.
  bool takeTagEnd() {
    if (block == nullptr) return false;
    const char* const at = block + blockPos;
    const int length = at[0] == '>' ? 1 : at[0] == '/' && at[1] == '>' ? 2 : 0;
    take(length);
    return length != 0;
  }
  /// The bytes from one file index to another, when the block holds them all; null otherwise.
  const char* keptBytes(std::int32_t first, std::int32_t last) const {
    const std::int32_t blockStart = fileIndex - blockPos;
    const bool isKept =
        block != nullptr && first >= blockStart && first <= last && last <= blockStart + blockLen;
    return isKept ? block + (first - blockStart) : nullptr;
  }
  /// The next "<" in the block, or null.
  const char* nextOpener() const {
    if (block == nullptr) return nullptr;
    const char* const opener = egfsvg::findByteAhead(unread(), '<');
    return opener < unreadEnd() ? opener : nullptr;
  }
  /// The next "<" or "&" in the block, or null.
  const char* nextOpenerOrReference() const {
    if (block == nullptr) return nullptr;
    const char* const opener = egfsvg::findEitherAhead(unread(), '<', '&');
    return opener < unreadEnd() ? opener : nullptr;
  }
  /// Takes the unread bytes up to `at`.
  void takeTo(const char* at) { take(at - (block + blockPos)); }
  /// Takes so many unread bytes of the block.
  void take(std::ptrdiff_t count) {
    blockPos += static_cast<std::int32_t>(count);
    fileIndex += static_cast<std::int32_t>(count);
  }
  /// False at the end of the source; otherwise the block holds the byte at the file index.
  bool loadNext();

 private:
  bool takeBlock();
  void unload();

  char* spareBlock_ = nullptr;   // the block's memory while nothing is loaded
  std::int32_t resultSize_ = 0;  // without the terminator
};

namespace egfsvg {

/// Walks the unread bytes of a buffer by pointer, block after block. The buffer itself stands still
/// until `sync`, which the end of the cursor's life does too.
class SourceCursor {
 public:
  explicit SourceCursor(cBuffer& source) : source_(source) { restart(); }
  ~SourceCursor() { sync(); }
  SourceCursor(const SourceCursor&) = delete;
  SourceCursor& operator=(const SourceCursor&) = delete;

  const char* at() const { return at_; }
  const char* end() const { return end_; }
  std::int32_t fileIndex() const {
    return source_.fileIndex + static_cast<std::int32_t>(at_ - source_.unread());
  }

  /// The next byte, 0 to 255, or cBuffer::kSourceEnd.
  int next() {
    if (at_ == end_ && !refill()) return cBuffer::kSourceEnd;
    return static_cast<unsigned char>(*at_++);
  }
  /// The same without taking it.
  int peek() {
    if (at_ == end_ && !refill()) return cBuffer::kSourceEnd;
    return static_cast<unsigned char>(*at_);
  }
  /// Goes on at a byte of the block, or at its end.
  void moveTo(const char* byte) { at_ = byte; }

  /// Makes a byte available; false at the end of the source.
  bool refill() {
    sync();
    at_ = end_ = nullptr;  // the host may throw
    const bool more = source_.loadNext();
    restart();
    return more;
  }
  /// Tells the buffer how far the walk has come.
  void sync() {
    if (at_ != nullptr) source_.takeTo(at_);
  }
  /// Takes the buffer's position over.
  void restart() {
    at_ = source_.unread();
    end_ = source_.unreadEnd();
  }

 private:
  cBuffer& source_;
  const char* at_;
  const char* end_;
};

}  // namespace egfsvg
