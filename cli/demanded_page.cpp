#include "cli/demanded_page.h"

#include <algorithm>
#include <array>

#include "cli/failure.h"
#include "cli/module.h"
#include "cli/page_reader.h"
#include "embedded_host/host_files.h"
#include "frame/result_codes.h"
#include "host/egf_blocks.h"
#include "host/memory.h"

namespace egfsvg {
namespace {

constexpr std::uint32_t kNoUserData = 0;
constexpr int kKeepFile = 0;

// What a load takes and gives.
struct LoadWords {
  std::uint32_t page;  // from 0
  HostHandle view;
  HostHandle tree;  // out
};

// An outermost svg names its group.
bool holdsDrawing(HostHandle tree) {
  const auto* body = blockBody<EgfTreeBody>(at<EgfBlockHeader>(tree));
  return body != nullptr && static_cast<bool>(as<EgfGroup>(body->root.get())->groupName);
}

}  // namespace

DemandedPage::DemandedPage(Source& source, const Options& options)
    : document_(egfhost::createDocument()),
      view_(egfhost::createView(document_.get())),
      file_(egfhost::fileObject(source.input().path())) {
  if (!document_ || !view_ || !file_) {
    throw Failure(ExitCode::kLimit,
                  source.name() + ": there is not enough memory for its page; split the drawing");
  }
  resource_ = HandleOwner<endResource>(
      filterModule().createResource(file_.get(), kNoUserData, source.file(), kKeepFile));
  if (!resource_) source.check(kNothingToRead, false);
  const HostHandle tree =
      load(pagesToTake(options, source.name(), std::max(countPages(), 1), false).first);
  source.check(tree == 0 ? kNothingToRead : kOk, holdsDrawing(tree));
  // The document ends its own reference, the resource the other one.
  OBJ_AddReferenceTrace(tree, RMM_SITE);
  ISL_SetProperty(view_.get(), kDocumentObjectTree, tree);
}

void DemandedPage::endResource(HostHandle resource) {
  egfhost::dynaCall(resource, kDynaDestroy, 0);
}

void DemandedPage::endFile(HostHandle file) { OBJ_DestroyObjectTrace(file, RMM_SITE); }

int DemandedPage::countPages() const {
  int count = 0;
  std::uint32_t page = 0;
  while (egfhost::dynaCall(resource_.get(), kDynaNextPage,
                           reinterpret_cast<std::uintptr_t>(&page)) == 0) {
    ++count;
  }
  return count;
}

// Pages count from 1. 0 when it cannot be loaded.
HostHandle DemandedPage::load(int page) const {
  LoadWords words{static_cast<std::uint32_t>(page - 1), view_.get(), 0};
  egfhost::dynaCall(resource_.get(), kDynaLoadPage, reinterpret_cast<std::uintptr_t>(&words));
  return words.tree;
}

}  // namespace egfsvg
