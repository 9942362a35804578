// `style` elements and `?xml-stylesheet` instructions: their attributes, and where their rules
// stand.

#include <cstring>

#include "frame/result_codes.h"
#include "host/messages.h"
#include "model/characters.h"
#include "model/rmm_allocator.h"
#include "reader/attribute_loop.h"
#include "reader/css_rules.h"
#include "reader/plain_style.h"

namespace egfsvg {

namespace {

constexpr std::string_view kSectionOpener = "![cdata[";
constexpr std::int32_t kContentCss = 1;

bool isWhiteByte(int byte) {
  return byte != cBuffer::kSourceEnd && isWhite(static_cast<char>(byte));
}

/// Whether the next "<" opens a CDATA section; the section's opener must be followed by white
/// space. What is read instead is lost to the scanner.
bool enterSection(cBuffer& source) {
  int byte = source.nextByte();
  while (byte != '<') {
    if (byte == cBuffer::kSourceEnd) return false;
    byte = source.nextByte();
  }
  std::size_t matched = 0;
  bool equal = true;
  for (byte = source.nextByte(); !isWhiteByte(byte); byte = source.nextByte()) {
    if (byte == cBuffer::kSourceEnd) return false;
    equal = equal && matched < kSectionOpener.size() &&
            lower(static_cast<char>(byte)) == kSectionOpener[matched];
    ++matched;
  }
  return equal && matched == kSectionOpener.size();
}

/// Attributes of the tag at hand, into the record. `typed` tells whether a type was among them.
int readStyleAttributes(CHandlerReader& reader, _svg_style_props* style, bool* typed) {
  if (reader.hasAttributes == 0) return kAttNoMore;
  return readAttributes(reader, [&](int code, _svg_attrib_pair* pair) {
    if (code == kAttType) *typed = true;
    reader.SetStyleTagAttribute(style, code, pair);
  });
}

/// A stream of the host while it is open.
class OpenStream {
 public:
  explicit OpenStream(const QV_FILEID& file) {
    open_ = FLR_OpenFile(&file, kFileModeRead, &stream_) >= 0;
  }
  ~OpenStream() {
    if (open_) FLR_Close(stream_);
  }
  OpenStream(const OpenStream&) = delete;
  OpenStream& operator=(const OpenStream&) = delete;

  bool isOpen() const { return open_; }
  HostHandle handle() const { return stream_; }

 private:
  HostHandle stream_ = 0;
  bool open_ = false;
};

/// The file of that name beside the source; false when the name is too long for one.
bool fileBeside(HostHandle source, const char* name, QV_FILEID* file) {
  *file = QV_FILEID{};
  const std::size_t length = std::strlen(name);
  if (length >= sizeof file->baseName || FLR_GetPath(source, file->path) != 0) return false;
  std::memcpy(file->baseName, name, length + 1);
  return true;
}

/// The address of a link that belongs to its user now.
struct TakenText {
  explicit TakenText(char*& owner) : text(owner) { owner = nullptr; }
  ~TakenText() { freeAll(text); }
  TakenText(const TakenText&) = delete;
  TakenText& operator=(const TakenText&) = delete;

  char* text;
};

constexpr char kRemoteMark[] = "http:///www.";  // Kept: three slashes

}  // namespace

}  // namespace egfsvg

int CHandlerReader::ParseStyleTagData(_svg_style_props* style, _svg_common* owner) {
  using namespace egfsvg;
  if (style == nullptr) return 0;
  style->common = owner;
  bool typed = false;
  if (readStyleAttributes(*this, style, &typed) == kAttSyntaxError) return kNothingToRead;
  const bool plain = state.settings.plainStyle;
  if (style->contentType != kContentCss && !(plain && !typed)) return 0;
  if (!plain) {
    ParseCSSData();
  } else if (hasAttributes == 0 || !endsSelfClosed(buffer)) {
    readPlainStyle(*this);
  }
  return 0;
}

int CHandlerReader::ParseCSSData() {
  if (!egfsvg::enterSection(buffer)) return -1;
  egfsvg::CssFile source(buffer);
  return egfsvg::readCssRules(*this, source, egfsvg::SheetEnd::kCdataSection);
}

int CHandlerReader::ParseExternalStyleSheet(_svg_style_props* style, _svg_common* owner) {
  using namespace egfsvg;
  if (style == nullptr) return -1;
  style->common = owner;
  bool typed = false;
  if (readStyleAttributes(*this, style, &typed) == kAttSyntaxError) return kNothingToRead;
  const TakenText href(style->href);
  if (style->contentType != kContentCss || href.text == nullptr) return -1;
  QV_FILEID file;
  if (fileBeside(buffer.file, href.text, &file)) {
    const OpenStream stream(file);
    if (stream.isOpen()) {
      FLR_Buffer(stream.handle());
      cBuffer sheet(stream.handle());
      ParseCSSFile(&sheet);
      return 0;
    }
  }
  if (std::strstr(href.text, kRemoteMark) != nullptr) {
    MSG_DispInfo(kMessageFileUnreadable, kMessageInfoSeverity, href.text, 0);
  }
  return -1;
}
