// A file as a resource that loads its pages on demand.
#include <memory>

#include "dyna/dyna_pages.h"
#include "dyna/file_id.h"
#include "dyna/stream_owner.h"
#include "dyna/svgdyna.h"
#include "frame/entry_point.h"
#include "frame/module_start.h"
#include "host/memory.h"
#include "host/messages.h"

namespace egfsvg {
namespace {

const DLLsvg library;

/// The count of pages, as SVGA_QueryProperty knows it.
constexpr std::int32_t kPageCountProperty = 3;
constexpr std::int32_t kPageCountKind = 3;
constexpr std::int32_t kFewestSeveralPages = 2;

/// Ends a file object's reference, and the file when the resource is to delete it.
void endFile(const SvgDynaRes& resource) {
  QV_FILEID name{};
  // What a failing host throws here must not keep the rest from being released.
  const bool named =
      entryPoint([&] { return noteFileId(resource.file, &name) ? kOk : kMissingField; }) == kOk;
  OBJ_DestroyObjectTrace(resource.file, RMM_SITE);
  if (named && (resource.flags & kDynaDeleteFile) != 0) FLR_DeleteFile(&name);
}

int destroyResource(SvgDynaRes* resource) {
  endFile(*resource);
  unloadAllPages(*resource);
  _adapterCloseReader close{resource->reader};
  const int result = SVGA_CloseReader(&close);
  RMM_Free(resource);
  return result;
}

struct ResourceEnd {
  void operator()(SvgDynaRes* resource) const { destroyResource(resource); }
};
using ResourceOwner = std::unique_ptr<SvgDynaRes, ResourceEnd>;

/// Null, which is logged, without memory.
ResourceOwner makeResource(HostHandle file, std::uint32_t userData, const QV_FILEID* fileId,
                           int deleteFlag) {
  auto* resource = static_cast<SvgDynaRes*>(RMM_CallocName(1, sizeof(SvgDynaRes), RMM_SITE));
  if (resource == nullptr) {
    MSG_LogMsg_Named(kMessageSeverity, kMessageOutOfMemory, nullptr, 0, RMM_SITE);
    return nullptr;
  }
  OBJ_AddReferenceTrace(file, RMM_SITE);
  resource->file = file;
  resource->userData = userData;
  resource->currentPage = -1;
  resource->pageCount = -1;
  if (deleteFlag != 0) resource->flags |= kDynaDeleteFile;
  if (fileId != nullptr) resource->fileId = *fileId;
  return ResourceOwner(resource);
}

bool openReader(SvgDynaRes& resource, HostHandle stream) {
  _adapterOpenReader open{0, stream};
  const bool opened = SVGA_OpenReader(&open) == kOk;
  resource.reader = open.reader;
  return opened;
}

bool countPages(SvgDynaRes& resource, HostHandle stream) {
  _adapterQuery query{};
  query.reader = resource.reader;
  query.source = stream;
  query.property = kPageCountProperty;
  query.kind = kPageCountKind;
  if (SVGA_QueryProperty(&query) != kOk) return false;
  resource.pageCount = query.value;
  return true;
}

HostHandle createResource(HostHandle file, std::uint32_t userData, const QV_FILEID* fileId,
                          int deleteFlag) {
  char fullName[kFileFullNameSize];
  if (file == 0 || FLR_GetFullFilename(file, fullName) == 0) return 0;
  ResourceOwner resource = makeResource(file, userData, fileId, deleteFlag);
  if (!resource) return 0;
  StreamOwner stream;
  if (!stream.openToRead(file)) return 0;
  if (!openReader(*resource, stream.get()) || !countPages(*resource, stream.get())) return 0;
  const HostHandle handle = DOC_CreateDynaResource(SVG_DynaResCallback, resource.get());
  if (handle != 0) resource.release();
  return handle;
}

/// The page after the last one that was taken, if there is one.
int takeNextPage(SvgDynaRes& resource, std::uint32_t* page) {
  const std::int32_t next = resource.currentPage + 1;
  if (next >= resource.pageCount || page == nullptr) return kDynaFailed;
  resource.currentPage = next;
  *page = static_cast<std::uint32_t>(next);
  return 0;
}

int operate(int operation, SvgDynaRes& resource, std::uintptr_t argument) {
  switch (operation) {
    case kDynaNextPage:
      return takeNextPage(resource, reinterpret_cast<std::uint32_t*>(argument));
    case kDynaLoadPage:
      return loadPage(resource, reinterpret_cast<DynaPageWords*>(argument));
    case kDynaUnloadPage:
      return unloadPage(resource, argument);
    case kDynaHasPages:
      return resource.pageCount >= kFewestSeveralPages ? 0 : kDynaFailed;
    default:
      return kDynaFailed;
  }
}

/// The busy bit of a resource, while a call is under way.
class BusyScope {
 public:
  explicit BusyScope(SvgDynaRes& resource) : resource_(resource) { resource_.flags |= kDynaBusy; }
  ~BusyScope() { resource_.flags &= static_cast<std::uint8_t>(~kDynaBusy); }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  SvgDynaRes& resource_;
};

/// The busy bit stays set while the resource ends.
int callResource(int operation, SvgDynaRes& resource, std::uintptr_t argument) {
  if (operation == kDynaDestroy) {
    resource.flags |= kDynaBusy;
    return destroyResource(&resource);
  }
  const BusyScope busy(resource);
  return operate(operation, resource, argument);
}

}  // namespace
}  // namespace egfsvg

HostHandle iSVG_CreateDynaLoadResource(HostHandle file, std::uint32_t userData,
                                       const QV_FILEID* fileId, int deleteFlag) {
  HostHandle handle = 0;
  egfsvg::entryPoint([&]() -> std::int32_t {
    handle = egfsvg::createResource(file, userData, fileId, deleteFlag);
    return egfsvg::kOk;
  });
  return handle;
}

int SVG_DynaResCallback(int operation, void* resource, std::uintptr_t argument) {
  if (resource == nullptr) return egfsvg::kDynaFailed;
  auto& record = *static_cast<SvgDynaRes*>(resource);
  if ((record.flags & kDynaBusy) != 0) return egfsvg::kDynaFailed;
  const std::int32_t result =
      egfsvg::entryPoint([&] { return egfsvg::callResource(operation, record, argument); });
  const bool thrown = result == egfsvg::kExceptionCaught;
  return thrown && operation != kDynaDestroy ? egfsvg::kDynaFailed : result;
}
