// What a host calls to write.
#include "adapter_writer/svg_adapterwriter.h"
#include "frame/entry_point.h"
#include "frame/live_objects.h"
#include "frame/module_start.h"
#include "frame/svghinterface.h"

namespace egfsvg {

namespace {

const DLLsvg library;

}  // namespace

template <>
struct LiveClass<CAdapterWriter> {
  static constexpr LiveKind kKind = LiveKind::kAdapterWriter;
  static constexpr const char* kFile = "svg_adapterwriter.h";
  static constexpr int kLine = __LINE__;
};

}  // namespace egfsvg

using egfsvg::entryPoint;
using egfsvg::kMissingField;
using egfsvg::kOutOfMemory;
using egfsvg::liveObject;

std::int32_t SVGA_OpenWriter(_adapterOpenWriter* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    record->writer = 0;
    if (record->target == 0) return kMissingField;
    auto writer = egfsvg::makeLiveObject<CAdapterWriter>();
    if (writer == nullptr) return kOutOfMemory;
    const std::int32_t result = writer->OpenWriter(record);
    record->writer = result == egfsvg::kOk ? egfsvg::handleOf(writer.release()) : 0;
    return result;
  });
}

/// Kept: a missing writer has another code here and at the close than at the serialiser's calls.
std::int32_t SVGA_WriteData(_adapterWriteData* record, HostHandle target) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr || record->stream == 0 || record->objectTree == 0) return kMissingField;
    auto* writer = liveObject<CAdapterWriter>(record->writer);
    return writer == nullptr ? kOutOfMemory : writer->WriteData(record, target);
  });
}

/// Kept: the writer ends whatever its close returns, unlike a reader.
std::int32_t SVGA_CloseWriter(_adapterCloseWriter* record) {
  return entryPoint([&]() -> std::int32_t {
    if (record == nullptr) return kMissingField;
    const egfsvg::LiveOwner<CAdapterWriter> writer(liveObject<CAdapterWriter>(record->writer));
    return writer == nullptr ? kOutOfMemory : writer->CloseWriter();
  });
}
