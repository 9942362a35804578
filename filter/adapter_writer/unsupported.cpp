#include "adapter_writer/unsupported.h"

#include <cstring>

#include "host/egf_codes.h"
#include "host/memory.h"
#include "host/messages.h"
#include "host/platform_window.h"

namespace egfsvg {
namespace {

struct UnsupportedRow {
  int objClass;
  const char* name;
};

/// The last row stands for every other class.
constexpr UnsupportedRow kRows[kUnsupportedKinds] = {
    {kClassIcon, "Icon"},
    {kClassBookmark, "Bookmark"},
    {kClassMetafile, "Metafile"},
    {kClassComplexLine, "ComplexLine"},
    {kClassRegion, "Region"},
    {kClassCopy, "Copy"},
    {kClassNone, ""},
};

int rowOf(int objClass) {
  int row = 0;
  while (row < kUnsupportedKinds - 1 && kRows[row].objClass != objClass) ++row;
  return row;
}

/// Two strings of the host, joined by a blank.
void showNotice() {
  char text[2 * kMessageStringSize];
  MSG_LoadStringEx(0, kStringWriterNotice, text, kMessageStringSize);
  const std::size_t length = std::strlen(text);
  text[length] = ' ';
  MSG_LoadStringEx(0, kStringNoticeDetails, text + length + 1, kMessageStringSize);
  MessageBoxA(GetActiveWindow(), text, nullptr, kMessageBoxInformation);
}

constinit WriterStatics statics;

}  // namespace

WriterStatics& writerStatics() { return statics; }

void reportUnsupported(int objClass) {
  if (!statics.noticeShown) {
    showNotice();
    statics.noticeShown = true;
  }
  const int row = rowOf(objClass);
  if (statics.logged[row]) return;
  statics.logged[row] = true;
  MSG_LogMsg_Named(kMessageSeverity, kMessageUnsupportedObject, kRows[row].name, 0, RMM_SITE);
}

}  // namespace egfsvg
