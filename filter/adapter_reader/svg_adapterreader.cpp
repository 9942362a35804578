// The adapter's life and its talk with the handler: opening, querying, one page, closing.

#include "adapter_reader/svg_adapterreader.h"

#include <algorithm>
#include <cstring>

#include "adapter_reader/group_stack.h"
#include "adapter_reader/page.h"
#include "adapter_reader/page_palette.h"
#include "frame/result_codes.h"
#include "frame/svghinterface.h"
#include "host/documents.h"
#include "host/memory.h"
#include "host/messages.h"
#include "host/platform_text.h"
#include "host/platform_window.h"
#include "host/resolution.h"
#include "model/numbers.h"

namespace egfsvg {
namespace {

constexpr const char* kPageNameFormat = "Page %d";

/// The page's own name, or the name that its number gives it.
void setPageName(const _adapterReadData& record, _handlerEnumData* out) {
  static_assert(sizeof out->pageName == sizeof record.pageName);
  if (record.pageName[0] != '\0') {
    std::memcpy(out->pageName, record.pageName, sizeof out->pageName - 1);
    return;
  }
  char name[kFormatTextSize];
  const auto number = static_cast<std::uint32_t>(record.pageIndex) + 1;
  wsprintfA(name, kPageNameFormat, static_cast<std::int32_t>(number));
  std::memcpy(out->pageName, name, std::strlen(name));
}

/// The notice that something was left out, as the user sees it.
void showNotice() {
  char text[2 * kMessageStringSize];
  MSG_LoadStringEx(0, kStringReaderNotice, text, kMessageStringSize);
  const std::size_t length = std::strlen(text);
  text[length] = ' ';
  MSG_LoadStringEx(0, kStringNoticeDetails, text + length + 1, kMessageStringSize);
  MessageBoxA(GetActiveWindow(), text, nullptr, kMessageBoxInformation);
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

CAdapterReader::CAdapterReader() { CreatePalette(); }

CAdapterReader::~CAdapterReader() {
  freePalette(palette);
  releaseGroupStack(*this);
  releaseSpareNodes(*this);
}

void CAdapterReader::operator delete(void* block) { RMM_Free(block); }

int CAdapterReader::OpenReader(_adapterOpenReader* record) {
  _handlerOpenReader open{0, record->source};
  const int result = SVGH_OpenReader(&open);
  if (result == kOk) handler = open.reader;
  silent = MSG_GetCurMode() & kMessageModeSilentBit;
  return result;
}

int CAdapterReader::CloseReader() {
  if (handler == 0) return kNoHandler;
  _handlerCloseReader close{handler};
  const int result = SVGH_CloseReader(&close);
  if (result == kOk) handler = 0;
  return result;
}

/// A resolution that the source names becomes the resolution of the document's map.
int CAdapterReader::PreprocessSource(_adapterPreprocess* record) {
  if (handler == 0) return kNoHandler;
  _handlerPreprocess preprocess{handler, {}, record->source};
  const int result = SVGH_PreprocessSource(&preprocess);
  if (result != kOk || preprocess.text[0] == '\0') return result;
  preprocess.text[sizeof preprocess.text - 1] = '\0';
  const std::int32_t resolution = saturatingInteger(preprocess.text);
  const HostHandle documentMap = ISL_GetViewProperty(0, document, kViewMap);
  if (resolution != 0) MPL_SetResolution(resolution, resolution, 1, 0, documentMap);
  return result;
}

/// The caller's words change only when the query was answered.
int CAdapterReader::QueryProperty(_adapterQuery* record) {
  if (handler == 0) return kNoHandler;
  _handlerQuery query = *record;
  query.reader = handler;
  const int result = SVGH_QueryProperty(&query);
  if (result != kOk) return result;
  const HostHandle reader = record->reader;
  *record = query;
  record->reader = reader;
  return result;
}

int CAdapterReader::ReadData(_adapterReadData* record, QV_FILEID* file) {
  if (handler == 0) return kNoHandler;
  const PageScope page(*this, *record);
  _handlerEnumData data{};
  data.reader = handler;
  data.source = record->source;
  data.owner = this;
  data.callback = SVGA_EnumerateDataCallback;
  setPageName(*record, &data);
  return SVGH_EnumerateData(&data, file);
}

int CAdapterReader::UnloadData(_adapterUnloadData*) { return kOk; }

int CAdapterReader::_logError(int quiet, int message) {
  if (quiet == 0) showNotice();
  MSG_LogMsg_Named(kMessageSeverity, message, nullptr, 0, RMM_SITE);
  return kStopQuietly;
}
