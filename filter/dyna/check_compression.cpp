// Telling plain files from compressed ones.
#include <cstring>

#include "dyna/file_id.h"
#include "dyna/stream_owner.h"
#include "dyna/svgdyna.h"
#include "frame/entry_point.h"
#include "frame/module_start.h"
#include "host/compression.h"
#include "host/messages.h"
#include "host/platform_text.h"

namespace egfsvg {
namespace {

const DLLsvg library;

constexpr int kFailed = -1;
constexpr const char* kUnpackedExtension = "svg";

constexpr std::uint32_t kSignatureSize = 3;
/// gzip, and deflate as its method.
constexpr unsigned char kGzipSignature[kSignatureSize] = {31, 139, 8};

bool readSignature(const QV_FILEID& file, unsigned char* signature) {
  StreamOwner stream;
  return stream.open(file, kFileModeRead) && FLR_Read(stream.get(), signature, kSignatureSize) ==
                                                 static_cast<std::int32_t>(kSignatureSize);
}

bool nameUnpacked(QV_FILEID* file) {
  char folder[kTempPathSize];
  const std::uint32_t length = GetTempPathA(kTempPathSize, folder);
  if (length == 0 || length >= kTempPathSize) return false;
  return nameTemporary(folder, kUnpackedExtension, file);
}

bool unpack(const QV_FILEID& source, const QV_FILEID& target) {
  const FullName name = fullNameOf(source);
  if (ZLIB_UnCompressFile(name.text, fullNameOf(target).text, 0) != -1) return true;
  MSG_DispInfo(kMessageFileUnreadable, kMessageInfoSeverity, name.text, 0);
  return false;
}

int check(const QV_FILEID* source, QV_FILEID* temporary, int* compressed) {
  if (source == nullptr || temporary == nullptr || compressed == nullptr) return kFailed;
  unsigned char signature[kSignatureSize];
  if (!readSignature(*source, signature)) return kFailed;
  if (std::memcmp(signature, kGzipSignature, sizeof signature) != 0) {
    *compressed = 0;
    return 0;
  }
  if (!nameUnpacked(temporary) || !unpack(*source, *temporary)) return kFailed;
  *compressed = 1;
  return 0;
}

}  // namespace
}  // namespace egfsvg

std::int32_t iSVG_checkCompression(const QV_FILEID* source, QV_FILEID* temporary, int* compressed) {
  const std::int32_t result =
      egfsvg::entryPoint([&] { return egfsvg::check(source, temporary, compressed); });
  return result == 0 ? 0 : egfsvg::kFailed;
}
