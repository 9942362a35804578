// Writing a drawing as a whole file.
#include <array>

#include "adapter_writer/svg_adapterwriter.h"
#include "dyna/file_id.h"
#include "dyna/host_results.h"
#include "dyna/object_reference.h"
#include "dyna/resolution_comment.h"
#include "dyna/stream_owner.h"
#include "dyna/svgdyna.h"
#include "frame/entry_point.h"
#include "frame/module_start.h"
#include "host/compression.h"
#include "host/resolution.h"

namespace egfsvg {
namespace {

const DLLsvg library;

constexpr int kCompress = 1;
constexpr std::int32_t kNotWritten = -1;
constexpr const char* kPlainExtension = "svg";
constexpr const char* kPackedExtension = "svgz";
constexpr std::uint32_t kCopyBlock = 4096;

/// A writer, closed at the end unless it was closed before.
class WriterOwner {
 public:
  WriterOwner() = default;
  ~WriterOwner() { close(); }
  WriterOwner(const WriterOwner&) = delete;
  WriterOwner& operator=(const WriterOwner&) = delete;

  std::int32_t open(HostHandle target) {
    _adapterOpenWriter record{0, target};
    const std::int32_t code = SVGA_OpenWriter(&record);
    close_.writer = record.writer;
    return code;
  }
  /// A writer is gone after its close, whatever the result.
  std::int32_t close() {
    if (close_.writer == 0) return kOk;
    const std::int32_t code = SVGA_CloseWriter(&close_);
    close_.writer = 0;
    return code;
  }
  HostHandle get() const { return close_.writer; }

 private:
  _adapterCloseWriter close_{};
};

/// Writes the tree of the view's document, if there is one.
std::int32_t writeTree(HostHandle view, HostHandle writer, HostHandle target, HostHandle output,
                       double resolution) {
  const ObjectReference tree(ISL_GetProperty(view, kDocumentObjectTree));
  if (!tree) return kOk;
  _adapterWriteData data{};
  data.writer = writer;
  data.stream = target;
  data.writeFlag = 1;
  data.objectTree = tree.get();
  setResolutionComment(resolution, data.comment);
  // What goes beside the drawing goes beside the output, wherever the bytes go meanwhile.
  return SVGA_WriteData(&data, FLR_GetStorage(output));
}

std::int32_t writeDrawing(HostHandle view, HostHandle target, HostHandle output) {
  WriterOwner writer;
  const std::int32_t opened = writer.open(target);
  if (opened != kOk) return opened;
  const HostHandle map = ISL_GetViewProperty(0, view, kViewMap);
  double resolution = kDefaultResolution;
  MPL_GetResXFactor(1, 1, map, &resolution);
  attachWriter(writer.get(), view, map);
  const std::int32_t written = writeTree(view, writer.get(), target, output, resolution);
  const std::int32_t closed = writer.close();
  return written != kOk ? written : closed;
}

/// Appends a file to a stream.
bool copyFile(const QV_FILEID& file, HostHandle output) {
  StreamOwner stream;
  if (!stream.open(file, kFileModeRead)) return false;
  std::array<char, kCopyBlock> block;
  for (;;) {
    const std::int32_t got = FLR_Read(stream.get(), block.data(), kCopyBlock);
    if (got <= 0) return got == 0;
    const auto count = static_cast<std::uint32_t>(got);
    if (FLR_Write(output, block.data(), count) != count) return false;
  }
}

/// Packs a file and appends it to a stream; the plain file goes as soon as it is packed.
std::int32_t packInto(TemporaryFile& plain, HostHandle output) {
  TemporaryFile packed;
  if (!nameTemporary(FLR_GetTempPath(), kPackedExtension, &packed.id())) return kNotWritten;
  const FullName source = fullNameOf(plain.id());
  if (ZLIB_CompressFile(source.text, fullNameOf(packed.id()).text) != 0) return kNotWritten;
  packed.made();
  plain.remove();
  return copyFile(packed.id(), output) ? kOk : kNotWritten;
}

std::int32_t writeCompressed(HostHandle view, HostHandle output) {
  TemporaryFile plain;
  StreamOwner stream;
  if (!nameTemporary(FLR_GetTempPath(), kPlainExtension, &plain.id())) return kNotWritten;
  if (!stream.open(plain.id(), kFileModeTemporary)) return kNotWritten;
  plain.made();
  if (FLR_FileExists(&plain.id()) == 0) return kNotWritten;
  const std::int32_t code = writeDrawing(view, stream.get(), output);
  if (code != kOk) return code;
  return stream.close() ? packInto(plain, output) : kNotWritten;
}

}  // namespace
}  // namespace egfsvg

std::int32_t iSVG_WriteFile(HostHandle view, HostHandle output, int compress) {
  return egfsvg::hostResult(egfsvg::entryPoint([&] {
    return compress == egfsvg::kCompress ? egfsvg::writeCompressed(view, output)
                                         : egfsvg::writeDrawing(view, output, output);
  }));
}
