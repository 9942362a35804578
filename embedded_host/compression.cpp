#include "host/compression.h"

#include <zlib.h>

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "embedded_host/fault.h"
#include "embedded_host/file_policy.h"
#include "embedded_host/handles.h"
#include "embedded_host/host_compression.h"
#include "embedded_host/sinks.h"
#include "embedded_host/sources.h"

namespace egfhost {

namespace {

constexpr std::size_t kPiece = 65536;
constexpr std::int64_t kUnbounded = std::numeric_limits<std::int64_t>::max();
constexpr int kGzipWrapper = 16;  // added to the window bits: gzip header and trailer

// All that compression keeps.
struct CompressionState {
  CompressionFailure failure = CompressionFailure::kNone;
  std::int64_t largestInflated = kBuiltInLargestInflated;
};

constinit CompressionState state{};

bool fail(CompressionFailure failure) {
  state.failure = failure;
  return false;
}

// Reads a source piece by piece into a zlib stream.
class Feeder {
 public:
  Feeder(Source& source, z_stream& stream) : source_(source), stream_(stream) {}

  // Refills the stream's input when it is empty. False when the source cannot be read.
  bool refill() {
    if (stream_.avail_in != 0 || ended_) return true;
    const std::int64_t got = source_.readAt(position_, piece_.data(), kPiece);
    if (got < 0) return fail(CompressionFailure::kUnreadable);
    position_ += got;
    ended_ = got == 0;
    stream_.next_in = piece_.data();
    stream_.avail_in = static_cast<uInt>(got);
    return true;
  }
  bool ended() const { return ended_; }

 private:
  Source& source_;
  z_stream& stream_;
  std::array<Bytef, kPiece> piece_;
  std::int64_t position_ = 0;
  bool ended_ = false;
};

// Takes what a zlib stream gives.
class Drain {
 public:
  Drain(Sink& sink, z_stream& stream, std::int64_t most)
      : sink_(sink), stream_(stream), most_(most) {
    empty();
  }

  // Writes what the stream has given so far.
  bool flush() {
    const std::size_t count = kPiece - stream_.avail_out;
    if (!sink_.write(position_, reinterpret_cast<const char*>(piece_.data()), count)) {
      return fail(CompressionFailure::kUnwritable);
    }
    position_ += static_cast<std::int64_t>(count);
    empty();
    return position_ <= most_ || fail(CompressionFailure::kTooLarge);
  }

 private:
  void empty() {
    stream_.next_out = piece_.data();
    stream_.avail_out = kPiece;
  }

  Sink& sink_;
  z_stream& stream_;
  std::int64_t most_;  // bytes, beyond it the conversion fails
  std::array<Bytef, kPiece> piece_;
  std::int64_t position_ = 0;
};

class Deflater {
 public:
  Deflater() {
    usable_ = deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + kGzipWrapper,
                           kMemoryLevel, Z_DEFAULT_STRATEGY) == Z_OK;
  }
  ~Deflater() {
    if (usable_) deflateEnd(&stream);
  }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  bool usable() const { return usable_; }
  z_stream stream{};

 private:
  static constexpr int kMemoryLevel = 8;
  bool usable_;
};

class Inflater {
 public:
  Inflater() { usable_ = inflateInit2(&stream, MAX_WBITS + kGzipWrapper) == Z_OK; }
  ~Inflater() {
    if (usable_) inflateEnd(&stream);
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  bool usable() const { return usable_; }
  z_stream stream{};

 private:
  bool usable_;
};

// zlib writes no name and a time of 0 unless it is told one, so equal input gives equal output.
bool deflateAll(Source& source, Sink& sink) {
  Deflater deflater;
  if (!deflater.usable()) return fail(CompressionFailure::kNoMemory);
  z_stream& stream = deflater.stream;
  const auto feeder = std::make_unique<Feeder>(source, stream);
  const auto drain = std::make_unique<Drain>(sink, stream, kUnbounded);
  int result = Z_OK;
  while (result != Z_STREAM_END) {
    if (!feeder->refill()) return false;
    result = deflate(&stream, feeder->ended() ? Z_FINISH : Z_NO_FLUSH);
    if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) {
      return fail(CompressionFailure::kNoMemory);
    }
    if ((stream.avail_out == 0 || result == Z_STREAM_END) && !drain->flush()) return false;
  }
  return true;
}

// After the end of a member: true when another one follows in what was read. Other bytes there are
// padding, and ignored.
bool nextMember(z_stream& stream) {
  constexpr Bytef kGzipFirstByte = 31;
  if (stream.avail_in == 0 || *stream.next_in != kGzipFirstByte) return false;
  return inflateReset(&stream) == Z_OK;
}

bool inflateAll(Source& source, Sink& sink) {
  Inflater inflater;
  if (!inflater.usable()) return fail(CompressionFailure::kNoMemory);
  z_stream& stream = inflater.stream;
  const auto feeder = std::make_unique<Feeder>(source, stream);
  const auto drain = std::make_unique<Drain>(sink, stream, state.largestInflated);
  for (;;) {
    if (!feeder->refill()) return false;
    const int result = inflate(&stream, Z_NO_FLUSH);
    if (!drain->flush()) return false;
    if (result == Z_STREAM_END) {
      if (!feeder->refill()) return false;
      if (!nextMember(stream)) return true;
      continue;
    }
    if (result == Z_MEM_ERROR) return fail(CompressionFailure::kNoMemory);
    if (result < 0 && result != Z_BUF_ERROR) return fail(CompressionFailure::kDamaged);
    if (feeder->ended()) return fail(CompressionFailure::kCutOff);
  }
}

std::unique_ptr<Source> openSource(const std::string& path) {
  std::string resolved;
  const FileVerdict verdict = mayRead(path, resolved);
  reportVerdict(verdict, path);
  return verdict == FileVerdict::kAllowed ? FileSource::open(resolved) : nullptr;
}

std::unique_ptr<Sink> openSink(const std::string& path) {
  std::string resolved;
  const FileVerdict verdict = mayWrite(path, resolved);
  reportVerdict(verdict, path);
  return verdict == FileVerdict::kAllowed ? FileSink::create(resolved) : nullptr;
}

using Convert = bool (*)(Source&, Sink&);

bool convertFile(const std::string& source, const std::string& target, Convert convert) {
  const std::unique_ptr<Source> from = openSource(source);
  if (from == nullptr) return fail(CompressionFailure::kUnreadable);
  from->readAhead();
  const std::unique_ptr<Sink> to = openSink(target);
  if (to == nullptr) return fail(CompressionFailure::kUnwritable);
  if (!convert(*from, *to)) {
    to->discard();
    return false;
  }
  return to->keep() || fail(CompressionFailure::kUnwritable);
}

int convertCall(FaultCall call, const char* source, const char* target, Convert convert) {
  state.failure = CompressionFailure::kNone;
  if (source == nullptr || target == nullptr) return -1;
  if (faultFails(call)) return -1;
  return hostCall(-1, [&] { return convertFile(source, target, convert) ? 0 : -1; });
}

}  // namespace

void setLargestInflated(std::int64_t bytes) {
  state.largestInflated = bytes == 0 ? kBuiltInLargestInflated : bytes;
}

CompressionFailure compressionFailure() { return state.failure; }

const char* describe(CompressionFailure failure) {
  constexpr std::array kTexts = {"no failure",
                                 "the source cannot be read",
                                 "the target cannot be written",
                                 "the compressed data is damaged",
                                 "the compressed data ends early",
                                 "the data is larger than allowed when it is not compressed",
                                 "there is not enough memory"};
  return kTexts[static_cast<std::size_t>(failure)];
}

}  // namespace egfhost

int ZLIB_CompressFile(const char* source, const char* target) {
  return egfhost::convertCall(egfhost::FaultCall::ZLIB_CompressFile, source, target,
                              &egfhost::deflateAll);
}

int ZLIB_UnCompressFile(const char* source, const char* target, int) {
  return egfhost::convertCall(egfhost::FaultCall::ZLIB_UnCompressFile, source, target,
                              &egfhost::inflateAll);
}
