// What the adapters call to read SVG.
#include "frame/entry_point.h"
#include "frame/live_objects.h"
#include "frame/module_start.h"
#include "frame/svghinterface.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

const DLLsvg library;

}  // namespace

template <>
struct LiveClass<CHandlerReader> {
  static constexpr LiveKind kKind = LiveKind::kHandlerReader;
  static constexpr const char* kFile = "svg_handlerreader.h";
  static constexpr int kLine = __LINE__;
};

}  // namespace egfsvg

using egfsvg::entryPoint;
using egfsvg::kMissingField;
using egfsvg::liveObject;

std::int32_t SVGH_OpenReader(_handlerOpenReader* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    record->reader = 0;
    if (record->source == 0) return kMissingField;
    auto reader = egfsvg::makeLiveObject<CHandlerReader>();
    if (reader == nullptr) return egfsvg::kOutOfMemory;
    record->reader = egfsvg::handleOf(reader.release());
    return egfsvg::kOk;
  });
}

std::int32_t SVGH_PreprocessSource(_handlerPreprocess* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr || record->source == 0) return kMissingField;
    auto* reader = liveObject<CHandlerReader>(record->reader);
    return reader == nullptr ? kMissingField : reader->PreprocessSource(record);
  });
}

std::int32_t SVGH_QueryProperty(_handlerQuery* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    auto* reader = liveObject<CHandlerReader>(record->reader);
    return reader == nullptr ? kMissingField : reader->QueryProperty(record);
  });
}

std::int32_t SVGH_EnumerateData(_handlerEnumData* record, QV_FILEID* file) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr || record->source == 0 || record->pageName[0] == '\0') {
      return kMissingField;
    }
    if (record->owner == nullptr || record->callback == nullptr) return kMissingField;
    auto* reader = liveObject<CHandlerReader>(record->reader);
    return reader == nullptr ? kMissingField : reader->EnumerateData(record, file);
  });
}

std::int32_t SVGH_CloseReader(_handlerCloseReader* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    auto* reader = liveObject<CHandlerReader>(record->reader);
    if (reader == nullptr) return kMissingField;
    egfsvg::LiveDeleter()(reader);
    return egfsvg::kOk;
  });
}
