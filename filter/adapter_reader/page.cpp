#include "adapter_reader/page.h"

#include "adapter_reader/group_stack.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/documents.h"
#include "host/egf_blocks.h"

namespace egfsvg {
namespace {

void enterContainer(CAdapterReader& adapter, HostHandle container) {
  auto* body = blockBody<EgfTreeBody>(at<EgfBlockHeader>(container));
  adapter.pageRecord = reinterpret_cast<char*>(body);
  adapter.rootGroup = body == nullptr ? nullptr : body->root.get();
  adapter.pageHeader = body == nullptr ? nullptr : reinterpret_cast<char*>(&body->pageHeader);
}

}  // namespace

/// A page that was broken off may have left its groups open. When a host call throws, what was set
/// up so far is taken back.
PageScope::PageScope(CAdapterReader& adapter, const _adapterReadData& record) : PageScope(adapter) {
  openGroups = {};
  releaseGroupStack(adapter);
  adapter.viewportWidth = 0.0F;
  adapter.viewportHeight = 0.0F;
  enterContainer(adapter, record.container);
  adapter.map = ISL_GetViewProperty(record.view, 0, kViewMap);
  const double resolution = resolutionOf(adapter);
  adapter.state.resolution = {resolution, pixelsPerSvgPixel(resolution)};
  adapter.state.styles.beginPage();
  loadDashTable(adapter);
}

PageScope::~PageScope() {
  freeDashTable(adapter_);
  releaseSpareNodes(adapter_);
  adapter_.state.styles.endPage();
  adapter_.state.resolution = {};
  adapter_.pageHeader = nullptr;
  adapter_.pageRecord = nullptr;
  adapter_.rootGroup = nullptr;
  adapter_.map = 0;
}

}  // namespace egfsvg
