// Text that is no tag: comments, CDATA, and the look back at whether a tag closed itself.
#include <algorithm>
#include <cstring>
#include <string_view>

#include "model/byte_block.h"
#include "model/characters.h"
#include "model/rmm_allocator.h"
#include "reader/svg_handlerreader.h"

using egfsvg::SourceCursor;

namespace {

constexpr int kSourceEnd = cBuffer::kSourceEnd;
constexpr char kCDataCloser[] = "]]>";
constexpr std::int32_t kCDataCloserLength = 3;

/// What a step of the search for a comment's end has met.
enum class CommentStep { kNothing, kEnd, kBadEnd };

/// After a "-". `byte` is left at the byte to go on with.
CommentStep stepPastDash(SourceCursor& source, int& byte) {
  byte = source.next();
  if (byte != '-') return CommentStep::kNothing;
  byte = source.next();
  return byte == '>' ? CommentStep::kEnd : CommentStep::kBadEnd;
}

/// After a "<": a comment inside a comment is a bad end.
CommentStep stepPastOpener(SourceCursor& source, int& byte) {
  for (const char wanted : {'!', '-', '-'}) {
    byte = source.next();
    if (byte != wanted) return CommentStep::kNothing;
  }
  return CommentStep::kBadEnd;
}

/// Tells, from piece to piece, whether a stretch ends its last "/" with white space and ">".
class ClosedTest {
 public:
  void feed(std::string_view piece) {
    const char* const end = piece.data() + piece.size();
    if (const char* slash = egfsvg::findLastByte(piece.data(), end, '/')) {
      pending_ = true;
      closed_ = false;
      piece = {slash + 1, end};
    }
    for (std::size_t i = 0; pending_ && i < piece.size(); ++i) {
      if (egfsvg::isWhite(piece[i])) continue;
      pending_ = false;
      closed_ = piece[i] == '>';
    }
  }
  bool closed() const { return closed_; }

 private:
  bool pending_ = false;  // nothing but white space since the last "/"
  bool closed_ = false;
};

}  // namespace

int CHandlerReader::FindCommentEnd() {
  SourceCursor source(buffer);
  int byte = source.next();
  for (;;) {
    while (byte != '-' && byte != '<') {
      if (byte == kSourceEnd) return -1;
      byte = source.next();
    }
    const CommentStep step =
        byte == '-' ? stepPastDash(source, byte) : stepPastOpener(source, byte);
    if (step != CommentStep::kNothing) return step == CommentStep::kEnd ? 0 : -1;
    if (source.fileIndex() >= state.gaugeThreshold) {
      source.sync();
      UpdateGasGauge();
    }
  }
}

char* CHandlerReader::ParseCDATA(unsigned long* length) {
  *length = 1;
  SourceCursor source(buffer);
  int byte = source.next();
  while (byte != kSourceEnd && egfsvg::isWhite(static_cast<char>(byte))) byte = source.next();
  if (byte == kSourceEnd || byte == '\0') return nullptr;

  egfsvg::GrowingArray<char> text(RMM_SITE);
  bool stored = true;
  for (; stored && byte != kSourceEnd && byte != '\0'; byte = source.next()) {
    stored = text.push(static_cast<char>(byte));
    const std::int32_t count = text.count();
    if (!stored || count < kCDataCloserLength) continue;
    const std::int32_t before = count - kCDataCloserLength;
    if (std::memcmp(text.data() + before, kCDataCloser, kCDataCloserLength) != 0) continue;
    text.cutTo(before);
    break;
  }
  if (!stored || !text.push('\0')) {
    state.outOfMemory = true;
    return nullptr;
  }
  *length = static_cast<unsigned long>(text.count());
  return text.release();
}

int CHandlerReader::isSVGTagClosed(int start, int end) {
  ClosedTest test;
  if (const char* stretch = buffer.keptBytes(start, end)) {
    test.feed({stretch, static_cast<std::size_t>(end - start)});
    if (buffer.getFileIndex() != end) buffer.setFileIndex(end);
    return test.closed() ? 1 : 0;
  }
  if (buffer.getFileIndex() != start) buffer.setFileIndex(start);
  SourceCursor source(buffer);
  for (std::int32_t left = end - start; left > 0;) {
    if (source.peek() == kSourceEnd) break;
    const std::int32_t part = std::min(left, static_cast<std::int32_t>(source.end() - source.at()));
    test.feed({source.at(), static_cast<std::size_t>(part)});
    source.moveTo(source.at() + part);
    left -= part;
  }
  return test.closed() ? 1 : 0;
}
