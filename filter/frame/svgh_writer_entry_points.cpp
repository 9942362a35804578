// What the adapter calls to write SVG.
#include "frame/entry_point.h"
#include "frame/live_objects.h"
#include "frame/module_start.h"
#include "frame/svghinterface.h"
#include "writer/svg_handlerwriter.h"

namespace egfsvg {

namespace {

const DLLsvg library;

}  // namespace

template <>
struct LiveClass<CHandlerWriter> {
  static constexpr LiveKind kKind = LiveKind::kHandlerWriter;
  static constexpr const char* kFile = "svg_handlerwriter.h";
  static constexpr int kLine = __LINE__;
};

}  // namespace egfsvg

using egfsvg::entryPoint;
using egfsvg::kMissingField;
using egfsvg::liveObject;

std::int32_t SVGH_OpenWriter(_handlerOpenWriter* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    record->writer = 0;
    if (record->target == 0) return kMissingField;
    auto writer = egfsvg::makeLiveObject<CHandlerWriter>();
    if (writer == nullptr) return egfsvg::kOutOfMemory;
    const std::int32_t result = writer->OpenWriter(record);
    record->writer = result == egfsvg::kOk ? egfsvg::handleOf(writer.release()) : 0;
    return result;
  });
}

std::int32_t SVGH_WriteObject(_handlerWriteObject* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr || record->stream == 0) return kMissingField;
    auto* writer = liveObject<CHandlerWriter>(record->handler);
    return writer == nullptr ? kMissingField : writer->WriteObject(record);
  });
}

/// Kept: a writer whose close failed stays alive, unlike the adapter's.
std::int32_t SVGH_CloseWriter(_handlerCloseWriter* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    auto* writer = liveObject<CHandlerWriter>(record->writer);
    if (writer == nullptr) return kMissingField;
    const std::int32_t result = writer->CloseWriter();
    if (result == egfsvg::kOk) egfsvg::LiveDeleter()(writer);
    return result;
  });
}
