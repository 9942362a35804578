#include "dyna/resolution_comment.h"

#include <cmath>
#include <cstring>

#include "host/platform_text.h"
#include "model/numbers.h"

namespace egfsvg {
namespace {

constexpr const char* kResolutionFormat = "User agent resolution:%ld dpi";

static_assert(kFormatTextSize >= kRecordTextSize);

}  // namespace

void setResolutionComment(double dotsPerInch, char (&comment)[kRecordTextSize]) {
  comment[0] = '\0';
  if (dotsPerInch == kUsualResolution) return;
  char text[kFormatTextSize];
  wsprintfA(text, kResolutionFormat, long{shownInteger(std::floor(dotsPerInch + 0.5))});
  std::memcpy(comment, text, std::strlen(text) + 1);
}

}  // namespace egfsvg
