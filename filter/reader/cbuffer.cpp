#include "reader/cbuffer.h"

#include <algorithm>
#include <cstring>

#include "host/diagnostics.h"
#include "host/memory.h"
#include "host/settings.h"
#include "model/rmm_allocator.h"

using egfsvg::freeAll;

namespace {

constexpr std::int32_t kFirstResultSize = 256;

/// Length of a file as the reader counts it. What 32-bit indices cannot reach, or the limit
/// forbids, counts as empty.
std::int32_t readableLength(HostHandle file) {
  const std::int64_t length = FLR_Seek(file, 0, 0, kFileOriginEnd);
  if (length <= 0) return 0;
  if (length <= std::min<std::int64_t>(egfsvg::maxSourceBytes(), INT32_MAX)) {
    return static_cast<std::int32_t>(length);
  }
  egfsvg::logDiagnostic(egfsvg::Diagnostic::kSourceBytesLimit, 0, "source", RMM_SITE);
  return 0;
}

}  // namespace

cBuffer::cBuffer(HostHandle source) : file(source) {
  fileLength = readableLength(source);
  fillBuffer(kBlockSize);
}

cBuffer::~cBuffer() { freeAll(result, block, spareBlock_); }

void cBuffer::bufferInit() {
  unload();
  fileIndex = 0;
}

void cBuffer::unload() {
  if (block != nullptr) spareBlock_ = block;
  block = nullptr;
  blockPos = 0;
  blockLen = 0;
}

int cBuffer::setFileHandle(HostHandle source) {
  bufferInit();
  fileLength = readableLength(source);
  if (fileLength == 0) return -1;
  file = source;
  fillBuffer(kBlockSize);
  return 0;
}

void cBuffer::resetBuffer() {
  bufferInit();
  fillBuffer(kBlockSize);
}

bool cBuffer::takeBlock() {
  unload();
  if (spareBlock_ == nullptr) {
    spareBlock_ = static_cast<char*>(RMM_CallocName(kBlockSize + kSlack, 1, RMM_SITE));
  }
  return spareBlock_ != nullptr;
}

void cBuffer::fillBuffer(std::int32_t count) {
  if (file == 0) return unload();
  if (!takeBlock()) return;
  const std::int32_t high = fileIndex < 0 ? -1 : 0;
  FLR_Seek(file, fileIndex, high, kFileOriginStart);
  const auto wanted = static_cast<std::uint32_t>(std::clamp(count, 0, kBlockSize));
  const std::int32_t got = FLR_Read(file, spareBlock_, wanted);
  block = spareBlock_;
  spareBlock_ = nullptr;
  // Never past the length that was taken, should the file have grown.
  blockLen = std::clamp(got, 0, std::max(0, std::min(kBlockSize, fileLength - fileIndex)));
  block[blockLen] = '\0';
  block[blockLen + 1] = '<';
}

bool cBuffer::loadNext() {
  if (file == 0 || fileIndex >= fileLength) return false;
  if (blockPos < blockLen) return true;
  // A block that came back empty, or none at all, is not asked for again: the file has shrunk.
  if (blockLen == 0) return false;
  fillBuffer(kBlockSize);
  return blockLen > 0;
}

void cBuffer::backupBuffer(std::int32_t count) {
  if (count > fileIndex) {
    fileIndex = 0;
    fillBuffer(kBlockSize);
  } else if (count > blockPos) {
    fileIndex -= count;
    fillBuffer(kBlockSize);
  } else if (count > 0) {
    blockPos -= count;
    fileIndex -= count;
  }
}

char* cBuffer::readBuffer(std::int32_t count) {
  if (count < 0 || !loadNext()) return nullptr;
  count = std::min(count, fileLength - fileIndex);
  if (result == nullptr || count > resultSize_) {
    const std::int32_t size = std::max(count, kFirstResultSize);
    freeAll(result);
    resultSize_ = 0;
    result = egfsvg::allocateArray<char>(static_cast<std::size_t>(size) + 1, RMM_SITE);
    if (result == nullptr) return nullptr;
    resultSize_ = size;
  }
  std::int32_t copied = 0;
  while (copied < count && loadNext()) {
    const std::int32_t part = std::min(count - copied, blockLen - blockPos);
    std::memcpy(result + copied, block + blockPos, static_cast<std::size_t>(part));
    copied += part;
    blockPos += part;
    fileIndex += part;
  }
  result[copied] = '\0';
  return result;
}

long cBuffer::setFileIndex(long offset) {
  const std::int32_t former = fileIndex;
  if (offset < 0 || offset > fileLength) {
    bufferInit();
    return -1;
  }
  const long blockStart = static_cast<long>(fileIndex) - blockPos;
  fileIndex = static_cast<std::int32_t>(offset);
  if (block != nullptr && offset >= blockStart && offset < blockStart + blockLen) {
    blockPos = static_cast<std::int32_t>(offset - blockStart);
  } else {
    fillBuffer(kBlockSize);
  }
  return former;
}
