#include "dyna/dyna_pages.h"

#include <memory>

#include "adapter_reader/svg_adapterreader.h"
#include "dyna/object_reference.h"
#include "dyna/stream_owner.h"
#include "frame/result_codes.h"
#include "host/egf_blocks.h"
#include "host/egf_small.h"
#include "host/memory.h"
#include "host/messages.h"
#include "host/objects.h"
#include "host/palettes.h"
#include "host/resolution.h"

namespace egfsvg {
namespace {

constexpr std::uint32_t kSlotSize = sizeof(HostHandle);
constexpr int kDocumentOfView = 1;  // what DOC_Get is asked for
constexpr double kEdge = 1.0;       // a page's last pixel counts too

struct ColoursRelease {
  void operator()(_sel_colour_list* list) const {
    RMM_Free(list->colours.get());
    RMM_Free(list);
  }
};
using ColoursOwner = std::unique_ptr<_sel_colour_list, ColoursRelease>;

ColoursOwner ownedByDocument(_sel_colour_list* list) {
  return ColoursOwner(static_cast<_sel_colour_list*>(RMM_ChownName(list)));
}

/// Gives the view a copy of the colours that the page uses, and the reader a fresh list.
void handPaletteOver(CAdapterReader& reader, HostHandle view) {
  const ColoursOwner used = ownedByDocument(reader.QueryColourPalette());
  reader.palette = nullptr;
  ColoursOwner copy = ownedByDocument(SEL_CLOR_Duplicate(used.get(), RMM_SITE));
  if (copy && ISL_SetViewProperty(0, view, kViewPalette, handleOf(copy.get())) == 0) {
    copy.release();
  }
  reader.CreatePalette();
}

/// Fills the page's tree block.
bool fillPage(const SvgDynaRes& resource, HostHandle stream, const DynaPageWords& words,
              HostHandle tree, QV_FILEID* file) {
  at<EgfTreeBlock>(tree)->userData = resource.userData;
  _adapterReadData read{};
  read.reader = resource.reader;
  read.source = stream;
  read.pageIndex = static_cast<std::int32_t>(words.page);
  read.container = tree;
  read.view = DOC_Get(words.view, kDocumentOfView, 0, 0);
  return SVGA_ReadData(&read, file) == kOk;
}

/// A page's tree block, null when it could not be read.
ObjectReference readPage(SvgDynaRes& resource, const DynaPageWords& words) {
  StreamOwner stream;
  if (!stream.openToRead(resource.file)) return {};
  auto& reader = *at<CAdapterReader>(resource.reader);
  if (words.view != 0) {
    reader.document = words.view;
    _adapterPreprocess preprocess{resource.reader, stream.get()};
    SVGA_PreprocessSource(&preprocess);
  }
  ISL_SetProperty(words.view, kDocumentLoadState, kDocumentLoadStateDemand);
  ObjectReference tree(EEL_CreateEdtDesc(0, 0));
  if (!tree || !fillPage(resource, stream.get(), words, tree.get(), &resource.fileId)) return {};
  if (words.view != 0) handPaletteOver(reader, words.view);
  return tree;
}

/// Places the page in the view.
void locatePage(HostHandle tree, HostHandle view, HostHandle map) {
  _mpl_spacerect_tag space{};
  _mpl_spacerect_tag work{};
  EEL_GetObjectMer(at<_egf_obj>(tree), &space, map);
  MPL_XWORKtoWORK(&space, &work);
  const double left = work.left;
  const double top = work.top;
  MPL_SetCOMPloc(map, left, top, work.right - left + kEdge, work.bottom - top + kEdge);
  _mpl_spacerect_tag enclosing{};
  MPL_GetMER(ISL_GetProperty(view, kDocumentMapSource), &enclosing);
}

/// A place for the page in the list, free places up to it.
bool makeSlot(_lst_items& pages, std::uint32_t page) {
  if (page < pages.count) return true;
  const std::uint32_t missing = page - pages.count + 1;
  return missing != 0 && LST_InsertItems(&pages, kSlotSize, pages.count, missing) == 0;
}

HostHandle loadedPage(const _lst_items& pages, std::uintptr_t page) {
  return page < pages.count ? pages.items[page] : 0;
}

}  // namespace

int loadPage(SvgDynaRes& resource, DynaPageWords* words) {
  if (words == nullptr) return kDynaFailed;
  if (const HostHandle loaded = loadedPage(resource.pages, words->page)) {
    words->object = loaded;
    return 0;
  }
  if (!makeSlot(resource.pages, words->page)) return kDynaFailed;
  const HostHandle map = ISL_GetViewProperty(0, words->view, kViewMap);
  ObjectReference tree = readPage(resource, *words);
  if (!tree) return kDynaFailed;
  ISL_SetProperty(words->view, kDocumentUserData, resource.userData);
  locatePage(tree.get(), words->view, map);
  words->object = tree.release();
  resource.pages.items[words->page] = words->object;
  return 0;
}

int unloadPage(SvgDynaRes& resource, std::uintptr_t page) {
  const ObjectReference tree(loadedPage(resource.pages, page));
  if (!tree) return kDynaFailed;
  resource.pages.items[page] = 0;
  return 0;
}

void unloadAllPages(SvgDynaRes& resource) {
  for (std::uint32_t page = 0; page < resource.pages.count; ++page) unloadPage(resource, page);
  LST_DeleteItems(&resource.pages, kSlotSize, 0, resource.pages.count);
}

}  // namespace egfsvg
