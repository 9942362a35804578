// The FLR_ calls on streams. Those on names stand in file_names.cpp.

#include "host/files.h"

#include <cstring>
#include <utility>

#include "embedded_host/fault.h"
#include "embedded_host/host_files.h"
#include "embedded_host/streams.h"

namespace egfhost {

namespace {

// All that the stream calls keep.
struct FileState {
  FileCounters counters{};
  LineHook lineHook;
};

FileState& state() {
  static FileState files;
  return files;
}

int giveStream(HostHandle stream, HostHandle* out) {
  *out = stream;
  if (stream == 0) return -1;
  ++state().counters.opens;
  return 0;
}

HostHandle openInMode(const QV_FILEID& id, int mode) {
  switch (mode) {
    case kFileModeRead:
      return openToRead(id);
    case kFileModeWriteNew:
      return openToWrite(id, false);
    case kFileModeTemporary:
      return openToWrite(id, true);
    default:
      return 0;
  }
}

}  // namespace

FileCounters fileCounters() {
  FileCounters counters = state().counters;
  counters.systemReads = systemReads();
  return counters;
}

void setLineHook(LineHook hook) { state().lineHook = std::move(hook); }

void discardOutput(HostHandle stream) {
  if (Stream* const found = hostObjectAs<Stream>(stream)) {
    found->discard();
    releaseHostObject(found);
  }
}

}  // namespace egfhost

using egfhost::FaultCall;
using egfhost::FaultOutcome;
using egfhost::Stream;

int FLR_OpenFile(const QV_FILEID* file, int mode, HostHandle* stream) {
  if (stream == nullptr) return -1;
  *stream = 0;
  if (file == nullptr || egfhost::faultFails(FaultCall::FLR_OpenFile)) return -1;
  return egfhost::hostCall(
      -1, [&] { return egfhost::giveStream(egfhost::openInMode(*file, mode), stream); });
}

int FLR_Open(HostHandle file, int mode, HostHandle* stream) {
  if (stream == nullptr) return -1;
  *stream = 0;
  egfhost::FileObject* const found = egfhost::fileOf(file);
  if (found == nullptr || egfhost::faultFails(FaultCall::FLR_Open)) return -1;
  return egfhost::hostCall(-1, [&] {
    const HostHandle opened =
        mode == kFileModeRead ? egfhost::reopen(found) : egfhost::openInMode(found->id(), mode);
    return egfhost::giveStream(opened, stream);
  });
}

int FLR_Buffer(HostHandle stream) {
  const Stream* const found = egfhost::hostObjectAs<Stream>(stream);
  if (found == nullptr || egfhost::faultFails(FaultCall::FLR_Buffer)) return -1;
  if (found->source() != nullptr) found->source()->readAhead();
  return 0;
}

int FLR_Close(HostHandle stream) {
  Stream* const found = egfhost::hostObjectAs<Stream>(stream);
  if (found == nullptr) return -1;
  ++egfhost::state().counters.closes;
  const bool fails = egfhost::faultFails(FaultCall::FLR_Close);
  if (fails) found->discard();
  const bool kept = egfhost::hostCall(false, [&] { return found->close(); });
  egfhost::releaseHostObject(found);
  return kept && !fails ? 0 : -1;
}

std::int32_t FLR_Read(HostHandle stream, void* buffer, std::uint32_t count) {
  const FaultOutcome outcome = egfhost::faultOutcome(FaultCall::FLR_Read);
  Stream* const found = egfhost::hostObjectAs<Stream>(stream);
  if (found == nullptr || buffer == nullptr || outcome == FaultOutcome::kFail) return -1;
  if (outcome == FaultOutcome::kCutShort) count /= 2;
  return egfhost::hostCall(-1, [&] {
    const std::int32_t got = found->read(buffer, count);
    egfhost::FileCounters& counters = egfhost::state().counters;
    ++counters.reads;
    if (got > 0) counters.bytesRead += static_cast<std::uint32_t>(got);
    return got;
  });
}

std::uint32_t FLR_Write(HostHandle stream, const void* buffer, std::uint32_t count) {
  const FaultOutcome outcome = egfhost::faultOutcome(FaultCall::FLR_Write);
  Stream* const found = egfhost::hostObjectAs<Stream>(stream);
  if (found == nullptr || buffer == nullptr) return kFileWriteFailed;
  if (outcome == FaultOutcome::kFail) return kFileWriteFailed;
  if (outcome == FaultOutcome::kCutShort) count /= 2;
  const bool written = egfhost::hostCall(
      false, [&] { return found->write(static_cast<const char*>(buffer), count); });
  return written ? count : kFileWriteFailed;
}

int FLR_PutLine(const char* text, HostHandle stream) {
  const bool fails = egfhost::faultFails(FaultCall::FLR_PutLine);
  Stream* const found = egfhost::hostObjectAs<Stream>(stream);
  return egfhost::hostCall(-1, [&] {
    egfhost::FileState& files = egfhost::state();
    ++files.counters.lines;
    if (fails || found == nullptr || text == nullptr) return -1;
    if (files.lineHook) {
      if (const std::optional<int> result = files.lineHook(text)) return *result;
    }
    return found->writeLine(text, std::strlen(text)) ? 0 : -1;
  });
}

std::int64_t FLR_Seek(HostHandle stream, std::int32_t offsetLow, std::int32_t offsetHigh,
                      int origin) {
  if (egfhost::faultFails(FaultCall::FLR_Seek)) return -1;
  Stream* const found = egfhost::hostObjectAs<Stream>(stream);
  if (found == nullptr) return -1;
  const std::uint64_t high = static_cast<std::uint32_t>(offsetHigh);
  const std::uint64_t low = static_cast<std::uint32_t>(offsetLow);
  return found->seek(static_cast<std::int64_t>(high << 32 | low), origin);
}

HostHandle FLR_GetStorage(HostHandle stream) {
  const egfhost::FileObject* const file = egfhost::fileOf(stream);
  return file == nullptr ? 0 : file->handle();
}
