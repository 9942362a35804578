// The tag stream: on to the next known tag, or to an entity reference before it. Nothing checks
// that tags nest.
#include <algorithm>
#include <cstring>

#include "host/diagnostics.h"
#include "model/characters.h"
#include "model/name_tables.h"
#include "model/rmm_allocator.h"
#include "model/short_name_tables.h"
#include "reader/scan_classes.h"
#include "reader/svg_handlerreader.h"

using egfsvg::SourceCursor;

namespace {

constexpr int kSourceEnd = cBuffer::kSourceEnd;
constexpr std::int32_t kTagNameRoom = 128;     // a name of that many bytes is never known
constexpr std::int32_t kEntityNameRoom = 128;  // with the terminator
constexpr char kCommentOpener[] = "!--";
constexpr char kCDataOpener[] = "![CDATA[";
constexpr std::int32_t kCommentOpenerLength = 3;
constexpr std::int32_t kCDataOpenerLength = 8;

/// A tag name as far as it matters, and how the scan of it ended.
struct TagName {
  const char* first = nullptr;  // in the block or in `copy`; good until the next refill
  std::int32_t length = 0;      // of the name, without what ended it
  int code = egfsvg::kTagNone;
  int last = kSourceEnd;    // the byte that ended it
  bool early = false;       // an opener that was known before its name had ended
  char copy[kTagNameRoom];  // of a name that was read byte by byte
};

/// On to `wanted`, which is taken; false at the end of the source.
bool skipPast(SourceCursor& source, char wanted) {
  do {
    const char* const hit = egfsvg::findByte(source.at(), source.end(), wanted);
    if (hit != source.end()) {
      source.moveTo(hit + 1);
      return true;
    }
    source.moveTo(hit);
  } while (source.refill());
  return false;
}

/// A tag in its usual form: known, and its name whole in the block.
struct KnownTag {
  int code;
  int length;  // of its name
  char last;   // the byte that ends the name
};

/// Looks at the tag that an opener in the block may begin. False for any other than a known one.
inline bool scanKnownTag(const char* opener, KnownTag& tag) {
  const char* const name = opener + 1;
  const auto block = egfsvg::ByteBlock::load(name);
  // The zero byte behind the block ends a name, too, but is no usual end.
  const egfsvg::ByteMask ends = block.upToOr(' ', '>');
  if (ends == 0) return false;
  const std::size_t length = egfsvg::firstOf(ends);
  tag.length = static_cast<int>(length);
  tag.last = name[length];
  return egfsvg::kShortTags.find(block, length, tag.code) &&
         egfsvg::isScanned(tag.last, egfsvg::kEndsTagName);
}

/// A tag whose name is plain and stands whole in the block: taken, up to the end of its name.
/// False, with nothing taken, for any other.
bool readPlainTag(cBuffer& source, TagName& name) {
  const char* const end = source.unreadEnd();
  const char* const opener = egfsvg::findByte(source.unread(), end, '<');
  if (opener == end) return false;
  name.first = opener + 1;
  const char* at = name.first;
  // The zero byte behind the block ends the walk.
  while (!egfsvg::isScanned(*at, egfsvg::kEndsTagName | egfsvg::kOddInTagName)) ++at;
  if (egfsvg::isScanned(*at, egfsvg::kOddInTagName)) return false;
  name.length = static_cast<std::int32_t>(at - name.first);
  name.last = static_cast<unsigned char>(*at);
  const int code = egfsvg::tagCode(name.first, static_cast<std::size_t>(name.length));
  name.code = std::max<int>(code, egfsvg::kTagNone);
  source.takeTo(at + 1);
  return true;
}

bool opens(const TagName& name, const char* opener, std::int32_t length) {
  return name.length == length &&
         std::memcmp(name.copy, opener, static_cast<std::size_t>(length)) == 0;
}

/// Comments and CDATA are known before their name has ended.
bool endEarly(TagName& name, int code) {
  name.code = code;
  return name.early = true;
}

/// Any tag, byte by byte. CDATA is known at once; a comment by the byte behind its opener, which is
/// taken, also when the source ends there. False at the end of the source.
bool readOddTag(cBuffer& buffer, TagName& name) {
  SourceCursor source(buffer);
  name.first = name.copy;
  if (!skipPast(source, '<')) return false;
  for (;;) {
    if (opens(name, kCDataOpener, kCDataOpenerLength)) return endEarly(name, egfsvg::kTagCData);
    name.last = source.next();
    if (opens(name, kCommentOpener, kCommentOpenerLength)) {
      return endEarly(name, egfsvg::kTagComment);
    }
    if (name.last == kSourceEnd) return false;
    const char byte = static_cast<char>(name.last);
    if (egfsvg::isScanned(byte, egfsvg::kEndsTagName)) break;
    if (name.length < kTagNameRoom) name.copy[name.length] = byte;
    ++name.length;
  }
  if (name.length >= kTagNameRoom) return true;
  // A zero byte inside a name ends the compared text.
  const std::size_t length = strnlen(name.copy, static_cast<std::size_t>(name.length));
  name.code = std::max<int>(egfsvg::tagCode(name.copy, length), egfsvg::kTagNone);
  return true;
}

/// Elements that are passed over as unknown; closers, declarations and instructions are not told.
void reportUnknown(const TagName& name, std::int32_t tagIndex) {
  char text[kTagNameRoom];
  const std::int32_t length = std::min(name.length, kTagNameRoom - 1);
  if (length == 0 || std::strchr("/!?", name.first[0]) != nullptr) return;
  std::memcpy(text, name.first, static_cast<std::size_t>(length));
  text[length] = '\0';
  egfsvg::logDiagnostic(egfsvg::Diagnostic::kUnknownElement, static_cast<std::uint32_t>(tagIndex),
                        text, RMM_SITE);
}

}  // namespace

/// Any tag but a plain one.
int CHandlerReader::takeOtherTag(int* index) {
  for (;;) {
    TagName name;
    if (!readPlainTag(buffer, name) && !readOddTag(buffer, name)) return egfsvg::kTagEnd;
    // Kept: CDATA is known one byte early, so its index is one before its "<".
    const std::int32_t tagIndex = buffer.fileIndex - name.length - 2;
    if (index != nullptr) *index = tagIndex;
    if (name.early) return name.code;
    hasAttributes = name.last == '>' ? 0 : 1;
    stepGauge();
    if (name.code != egfsvg::kTagNone) return name.code;
    if (state.reporting) reportUnknown(name, tagIndex);
  }
}

/// A known tag whose opener, in the block, has been found. It is what the next tag of its kind is
/// guessed to be. Any other: that one, or the next.
int CHandlerReader::takeUnguessedTag(const char* opener, int* index) {
  KnownTag tag;
  if (!scanKnownTag(opener, tag)) return takeOtherTag(index);
  state.tags.remember(opener, tag.code, tag.last);
  buffer.takeTo(opener + tag.length + 2);
  if (index != nullptr) *index = buffer.fileIndex - tag.length - 2;
  hasAttributes = tag.last == '>' ? 0 : 1;
  stepGauge();
  return tag.code;
}

/// The tag whose opener, in the block, has been found, or the next.
inline int CHandlerReader::takeTag(const char* opener, int* index) {
  const egfsvg::TagPattern& guess = state.tags.of(opener);
  if (!guess.opens(opener)) return takeUnguessedTag(opener, index);
  buffer.takeTo(opener + guess.length);
  if (index != nullptr) *index = buffer.fileIndex - guess.length;
  hasAttributes = guess.hasAttributes;
  stepGauge();
  return guess.code;
}

int CHandlerReader::GetNextTag(int* index) {
  const char* const opener = buffer.nextOpener();
  return opener == nullptr ? takeOtherTag(index) : takeTag(opener, index);
}

/// Both of the others in one step.
int CHandlerReader::takeTagOrReference(int* index, char** name) {
  const char* const opener = buffer.nextOpenerOrReference();
  const bool isTag = opener != nullptr && *opener == '<';
  return isTag ? takeTag(opener, index) : takeOtherTagOrReference(index, name);
}

int CHandlerReader::takeOtherTagOrReference(int* index, char** name) {
  const int code = GetNextPoiterTag(name);
  return code == egfsvg::kTagEntityReference ? code : GetNextTag(index);
}

/// On to the next "<", or behind the next reference, whose name is given.
int CHandlerReader::GetNextPoiterTag(char** name) {
  SourceCursor source(buffer);
  int byte;
  do {
    byte = source.next();
    if (byte == kSourceEnd) return egfsvg::kTagNone;
  } while (byte != '<' && byte != '&');

  int result = egfsvg::kTagNone;
  if (byte == '&') {
    char text[kEntityNameRoom];
    std::int32_t length = 0;
    for (byte = source.next(); length < kEntityNameRoom; byte = source.next()) {
      if (byte == kSourceEnd || byte == ';' || byte == '<') break;
      if (egfsvg::isWhite(static_cast<char>(byte))) break;
      text[length++] = static_cast<char>(byte);
      if (length == kEntityNameRoom) break;
    }
    if (length > 0) {
      const std::int32_t kept = std::min(length, kEntityNameRoom - 1);
      *name = egfsvg::allocateArray<char>(kEntityNameRoom, RMM_SITE);
      if (*name == nullptr) {
        state.outOfMemory = true;
      } else {
        std::memcpy(*name, text, static_cast<std::size_t>(kept));
        (*name)[kept] = '\0';
        result = egfsvg::kTagEntityReference;
      }
    }
  }
  if (byte == '<') source.moveTo(source.at() - 1);
  return result;
}
