// The two cheap questions before a read, and its first pass, which keeps what later elements can
// point at.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "frame/result_codes.h"
#include "model/lifecycle.h"
#include "model/numbers.h"
#include "model/rmm_allocator.h"
#include "reader/svg_handlerreader.h"
#include "reader/tag_table.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

constexpr int kPagesProperty = 3;  // what a query may ask for
constexpr int kNumberKind = 9;     // of its answer
constexpr char kPageMarker[] = "Page_";

constexpr int kTagsBeforeText = 2;  // tags among which the resolution comment is looked for
constexpr char kResolutionMarker[] = "User agent resolution:";
constexpr std::size_t kResolutionAt = sizeof kResolutionMarker - 1;  // the number's only place
constexpr std::size_t kCommentRoom = 128;  // bytes of a comment that are kept, with terminator

/// The resolution that a comment's text tells, 0 for none.
std::int32_t resolutionIn(const char* text) {
  if (std::strstr(text, kResolutionMarker) == nullptr) return 0;
  return saturatingInteger(text + kResolutionAt);
}

/// What the first pass does at a tag. One style record serves the whole pass.
using FirstPassWork = void (*)(CHandlerReader& reader, int tag, _svg_style_props& style);

constexpr TagRow<FirstPassWork> kFirstPassRows[] = {
    {kTagTref,
     [](CHandlerReader& reader, int tag, _svg_style_props&) { reader.CreateLocalRefTable(tag); }},
    {kTagUse,
     [](CHandlerReader& reader, int tag, _svg_style_props&) { reader.CreateLocalRefTable(tag); }},
    {kTagComment, [](CHandlerReader& reader, int, _svg_style_props&) { reader.FindCommentEnd(); }},
    {kTagStyle, [](CHandlerReader& reader, int,
                   _svg_style_props& style) { reader.ParseStyleTagData(&style, nullptr); }},
    {kTagEntity, [](CHandlerReader& reader, int,
                    _svg_style_props& style) { reader.ParseEntityTagData(&style, nullptr); }},
    {kTagXmlStylesheet,
     [](CHandlerReader& reader, int, _svg_style_props& style) {
       reader.ParseExternalStyleSheet(&style, nullptr);
     }},
    {kTagLinearGradient, [](CHandlerReader& reader, int tag,
                            _svg_style_props&) { reader.ParseGradients(nullptr, tag); }},
    {kTagRadialGradient, [](CHandlerReader& reader, int tag,
                            _svg_style_props&) { reader.ParseGradients(nullptr, tag); }},
};
constexpr TagTable<FirstPassWork> kFirstPassWorks(kFirstPassRows);

/// By code: tags at which nothing is done.
constexpr auto kIsPassedOver = [] {
  constexpr std::int32_t kLast = std::ranges::max_element(kTagNames, {}, &NamedCode::code)->code;
  std::array<bool, kLast + 1> passed{};
  for (std::size_t code = 0; code < passed.size(); ++code) {
    passed[code] = kFirstPassWorks.find(static_cast<int>(code)) == nullptr;
  }
  return passed;
}();

/// Passes over tags that are as guessed and at which nothing is done, as far as they stand in the
/// block. The next tag is another, or stands elsewhere.
void passOverUsualTags(CHandlerReader& reader) {
  cBuffer& source = reader.buffer;
  while (const char* const opener = source.nextOpener()) {
    const TagPattern& guess = reader.state.tags.of(opener);
    const bool isPassed =
        guess.opens(opener) && kIsPassedOver[static_cast<std::size_t>(guess.code)];
    source.takeTo(isPassed ? opener + guess.length : opener);
    if (!isPassed) return;
    reader.hasAttributes = guess.hasAttributes;
    reader.stepGauge();
    ++reader.firstPassTags;
  }
}

/// Kept: not reset between style elements, so that after one of type text/css all are read as CSS.
struct PassStyle {
  PassStyle() { initStyleProps(&props); }
  ~PassStyle() {
    freeAll(props.href);  // of a style element: nobody used it
    DestroyStyleElements(&props);
  }
  PassStyle(const PassStyle&) = delete;
  PassStyle& operator=(const PassStyle&) = delete;

  _svg_style_props props;
};

}  // namespace

int CHandlerReader::PreprocessSource(_handlerPreprocess* record) {
  buffer.setFileHandle(record->source);
  for (int count = 0;; ++count) {
    const int tag = GetNextTag(nullptr);
    if (tag == kTagEnd || count == kTagsBeforeText) break;
    long resolution = 0;
    if (tag != kTagComment || GetDPI(&resolution) != 0) continue;
    char* const end = record->text + sizeof record->text - 1;
    *std::to_chars(record->text, end, resolution).ptr = '\0';
  }
  buffer.resetBuffer();
  return kOk;
}

/// Entered just behind a comment's opener. Dashes are not kept.
int CHandlerReader::GetDPI(long* result) {
  char text[kCommentRoom];
  std::size_t length = 0;
  int status = -1;
  for (int byte = buffer.nextByte();;) {
    for (; byte != '-'; byte = buffer.nextByte()) {
      if (byte == cBuffer::kSourceEnd) return -1;
      if (length < kCommentRoom - 1) text[length++] = static_cast<char>(byte);
    }
    text[length] = '\0';
    const std::int32_t resolution = resolutionIn(text);
    if (resolution != 0) {
      *result = resolution;
      status = 0;
    }
    byte = buffer.nextByte();
    if (byte == '-') return buffer.nextByte() == '>' ? status : -1;
  }
}

/// Counts page groups. Kept: only a group's first attribute is looked at, and it is asked for also
/// where a group has none.
int CHandlerReader::QueryProperty(_handlerQuery* record) {
  if (record->property != kPagesProperty) return kUnsupportedQuery;
  record->kind = kNumberKind;
  ScratchPair scratch(state);
  if (!scratch.hasValue()) return kOutOfMemory;
  buffer.setFileHandle(record->source);
  std::int32_t pages = 0;
  for (int tag = GetNextTag(nullptr); tag != kTagEnd; tag = GetNextTag(nullptr)) {
    if (tag != kTagGroup) continue;
    scratch.clear();
    const bool isId = GetNextAttribPair(&scratch.pair) == kAttId;
    if (isId && std::strstr(scratch.pair.value, kPageMarker) != nullptr) ++pages;
  }
  record->value = pages;
  buffer.resetBuffer();
  return kOk;
}

int CHandlerReader::ParseStyleSheetsAndReferences() {
  PassStyle style;
  for (;;) {
    passOverUsualTags(*this);
    const int tag = GetNextTag(nullptr);
    if (tag == kTagEnd) break;
    if (const FirstPassWork work = kFirstPassWorks.find(tag)) work(*this, tag, style.props);
    ++firstPassTags;
  }
  if (state.settings.useAnywhere && localRefs.count > 0) locateTargetsAnywhere();
  return kOk;
}
