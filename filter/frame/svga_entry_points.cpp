// What a host calls to read, and the callback that brings the elements back.
#include "adapter_reader/svg_adapterreader.h"
#include "frame/entry_point.h"
#include "frame/live_objects.h"
#include "frame/module_start.h"
#include "frame/svghinterface.h"

namespace egfsvg {

namespace {

const DLLsvg library;

}  // namespace

template <>
struct LiveClass<CAdapterReader> {
  static constexpr LiveKind kKind = LiveKind::kAdapterReader;
  static constexpr const char* kFile = "svg_adapterreader.h";
  static constexpr int kLine = __LINE__;
};

}  // namespace egfsvg

using egfsvg::entryPoint;
using egfsvg::kMissingField;
using egfsvg::liveObject;

std::int32_t SVGA_OpenReader(_adapterOpenReader* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    record->reader = 0;
    if (record->source == 0) return kMissingField;
    auto reader = egfsvg::makeLiveObject<CAdapterReader>();
    if (reader == nullptr) return egfsvg::kOutOfMemory;
    const std::int32_t result = reader->OpenReader(record);
    record->reader = result == egfsvg::kOk ? egfsvg::handleOf(reader.release()) : 0;
    return result;
  });
}

std::int32_t SVGA_PreprocessSource(_adapterPreprocess* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr || record->source == 0) return kMissingField;
    auto* reader = liveObject<CAdapterReader>(record->reader);
    return reader == nullptr ? kMissingField : reader->PreprocessSource(record);
  });
}

std::int32_t SVGA_QueryProperty(_adapterQuery* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    auto* reader = liveObject<CAdapterReader>(record->reader);
    return reader == nullptr ? kMissingField : reader->QueryProperty(record);
  });
}

std::int32_t SVGA_ReadData(_adapterReadData* record, QV_FILEID* file) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr || record->source == 0 || record->container == 0) return kMissingField;
    auto* reader = liveObject<CAdapterReader>(record->reader);
    return reader == nullptr ? kMissingField : reader->ReadData(record, file);
  });
}

std::int32_t SVGA_UnloadData(_adapterUnloadData* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    auto* reader = liveObject<CAdapterReader>(record->reader);
    return reader == nullptr ? kMissingField : reader->UnloadData(record);
  });
}

/// Kept: a reader whose close failed stays alive, unlike a writer.
std::int32_t SVGA_CloseReader(_adapterCloseReader* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    auto* reader = liveObject<CAdapterReader>(record->reader);
    if (reader == nullptr) return kMissingField;
    const std::int32_t result = reader->CloseReader();
    if (result == egfsvg::kOk) egfsvg::LiveDeleter()(reader);
    return result;
  });
}

std::int32_t SVGA_EnumerateDataCallback(_handlerObject* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr || record->owner == nullptr) return kMissingField;
    return static_cast<CAdapterReader*>(record->owner)->EnumerateDataCallback(record);
  });
}
