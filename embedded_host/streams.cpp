#include "embedded_host/streams.h"

#include <algorithm>
#include <limits>

#include "embedded_host/file_policy.h"
#include "embedded_host/host_files.h"
#include "embedded_host/paths.h"

namespace egfhost {

Stream::Stream(FileObject* file, std::unique_ptr<Source> source)
    : HostObject(kKind), file_(file), source_(std::move(source)) {
  file_->addReference();
}

Stream::Stream(FileObject* file, std::unique_ptr<Sink> sink)
    : HostObject(kKind), file_(file), sink_(std::move(sink)) {
  file_->addReference();
}

Stream::~Stream() {
  discard();
  releaseHostObject(file_);
}

std::int64_t Stream::length() const {
  if (source_ != nullptr) return source_->length();
  return sink_ == nullptr ? 0 : sink_->length();
}

std::int32_t Stream::read(void* buffer, std::uint32_t count) {
  if (source_ == nullptr) return -1;
  constexpr std::uint32_t kMost = std::numeric_limits<std::int32_t>::max();
  const std::int64_t got = source_->readAt(position_, buffer, std::min(count, kMost));
  if (got > 0) position_ += got;
  return static_cast<std::int32_t>(got);
}

bool Stream::write(const char* bytes, std::size_t count) {
  if (sink_ == nullptr || failed_) return false;
  if (!sink_->write(position_, bytes, count)) failed_ = true;
  position_ += static_cast<std::int64_t>(count);
  return !failed_;
}

bool Stream::writeLine(const char* text, std::size_t count) {
  if (sink_ == nullptr || failed_) return false;
  if (!sink_->writeLine(position_, text, count)) failed_ = true;
  position_ += static_cast<std::int64_t>(count) + 1;
  return !failed_;
}

std::int64_t Stream::seek(std::int64_t offset, int origin) {
  if (source_ == nullptr && sink_ == nullptr) return -1;
  if (origin != kFileOriginStart && origin != kFileOriginEnd) return -1;
  const std::int64_t base = origin == kFileOriginEnd ? length() : 0;
  if (offset > std::numeric_limits<std::int64_t>::max() - base || base + offset < 0) return -1;
  position_ = base + offset;
  return position_;
}

bool Stream::close() {
  source_.reset();
  if (sink_ == nullptr) return true;
  const bool kept = !failed_ && sink_->keep();
  if (!kept) sink_->discard();
  sink_.reset();
  return kept;
}

void Stream::discard() {
  source_.reset();
  if (sink_ != nullptr) sink_->discard();
  sink_.reset();
}

FileObject* fileOf(HostHandle handle) {
  if (const Stream* const stream = hostObjectAs<Stream>(handle)) return stream->file();
  return hostObjectAs<FileObject>(handle);
}

namespace {

// A stream with its handle, 0 when memory is short. The file object loses the caller's reference.
template <class Channel>
HostHandle openStream(FileObject* file, std::unique_ptr<Channel> channel) {
  if (file == nullptr) return 0;
  const Stream* const stream = makeHostObject<Stream>(RMM_SITE, file, std::move(channel));
  releaseHostObject(file);
  return stream == nullptr ? 0 : stream->handle();
}

std::unique_ptr<Source> openSource(const QV_FILEID& id) {
  const std::string path = pathOf(&id);
  std::string resolved;
  const FileVerdict verdict = mayRead(path, resolved);
  reportVerdict(verdict, path);
  return verdict == FileVerdict::kAllowed ? FileSource::open(resolved) : nullptr;
}

}  // namespace

HostHandle openToRead(const QV_FILEID& id) {
  std::unique_ptr<Source> source = openSource(id);
  if (source == nullptr) return 0;
  return openStream(makeHostObject<FileObject>(RMM_SITE, id), std::move(source));
}

HostHandle openToWrite(const QV_FILEID& id, bool temporary) {
  const std::string path = pathOf(&id);
  std::string resolved;
  const FileVerdict verdict = mayWrite(path, resolved);
  reportVerdict(verdict, path);
  if (verdict != FileVerdict::kAllowed) return 0;
  std::unique_ptr<Sink> sink =
      temporary ? FileSink::createTemporary(resolved) : FileSink::create(resolved);
  if (sink == nullptr) return 0;
  return openStream(makeHostObject<FileObject>(RMM_SITE, id), std::move(sink));
}

HostHandle reopen(FileObject* file) {
  std::unique_ptr<Source> source;
  if (file->bytes() != nullptr) {
    source = std::make_unique<MemorySource>(file->bytes());
  } else {
    source = openSource(file->id());
  }
  if (source == nullptr) return 0;
  file->addReference();
  return openStream(file, std::move(source));
}

HostHandle openMemory(std::string name, std::string bytes, std::string folder) {
  QV_FILEID id;
  if (!makeFileId(folder.empty() ? name : joinPath(folder, name), id)) return 0;
  auto shared = std::make_shared<const std::string>(std::move(bytes));
  std::unique_ptr<Source> source = std::make_unique<MemorySource>(shared);
  return openStream(makeHostObject<FileObject>(RMM_SITE, id, std::move(shared)), std::move(source));
}

namespace {

HostHandle openSink(const std::string& name, std::unique_ptr<Sink> sink) {
  QV_FILEID id;
  if (!makeFileId(name, id)) return 0;
  return openStream(makeHostObject<FileObject>(RMM_SITE, id), std::move(sink));
}

}  // namespace

HostHandle openMemoryOutput(std::string name, std::string* target) {
  return openSink(name, std::make_unique<MemorySink>(target));
}

HostHandle openTakenOutput(std::string name, ByteTaker taker) {
  return openSink(name, std::make_unique<TakerSink>(std::move(taker)));
}

}  // namespace egfhost
