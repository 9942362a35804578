// Comments of style sheets in a stream.

#include "model/characters.h"
#include "reader/css_source.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

bool isWhiteByte(int byte) { return byte != CssSource::kEnd && isWhite(static_cast<char>(byte)); }

void skipWhite(int& current, CssSource& source) {
  while (isWhiteByte(current)) current = source.next();
}

/// Reads to the end of a comment whose opener has been read.
void skipToCommentEnd(CssSource& source) {
  bool star = false;
  for (;;) {
    const int byte = source.next();
    if (byte == CssSource::kEnd || source.cutsComment(byte)) return;
    if (star && byte == '/') return;
    star = byte == '*';
  }
}

}  // namespace

std::int32_t skipCssComment(int& current, CssSource& source) {
  const std::int32_t start = source.position();
  skipWhite(current, source);
  if (current == '/') {
    const int second = source.next();
    if (second != '*') {
      if (second != CssSource::kEnd) source.stepBack();
      return 0;
    }
    skipToCommentEnd(source);
    current = source.next();
    skipWhite(current, source);
  }
  return source.position() - start;
}

}  // namespace egfsvg

// At the end of the source the character becomes NUL.
int CHandlerReader::SkipCSScomment(char* current, cBuffer* source) {
  using namespace egfsvg;
  if (current == nullptr || source == nullptr) return 0;
  CssFile file(*source);
  int byte = static_cast<unsigned char>(*current);
  const std::int32_t skipped = skipCssComment(byte, file);
  *current = byte == CssSource::kEnd ? '\0' : static_cast<char>(byte);
  return skipped;
}
