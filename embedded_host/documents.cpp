#include "embedded_host/documents.h"

#include "embedded_host/blocks.h"
#include "embedded_host/fault.h"
#include "embedded_host/host_documents.h"
#include "embedded_host/host_trees.h"
#include "host/palettes.h"

namespace egfhost {

namespace {

std::uint32_t wordIn(const std::map<std::uint32_t, std::uint32_t>& words, std::uint32_t property) {
  const auto found = words.find(property);
  return found == words.end() ? 0 : found->second;
}

void freePalette(HostHandle palette) {
  auto* const list = egfsvg::at<_sel_colour_list>(palette);
  if (list == nullptr) return;
  RMM_Free(list->colours.get());
  RMM_Free(list);
}

egfsvg::EgfTreeBlock* treeBlock(HostHandle handle) {
  if (!isLiveAt(handle) || !isTree(handle)) return nullptr;
  return egfsvg::at<egfsvg::EgfTreeBlock>(handle);
}

// The view behind either handle; null when none is one.
View* viewOf(HostHandle first, HostHandle second) {
  return hostObjectAs<View>(first != 0 ? first : second);
}

// Property 115: the tree with one more reference.
HostHandle takeTree(const Document& document) {
  if (egfsvg::EgfTreeBlock* const block = treeBlock(document.tree())) ++block->header.references;
  return document.tree();
}

std::uint32_t propertyOf(Document& document, std::uint32_t property) {
  switch (property) {
    case kDocumentObjectTree:
      return takeTree(document);
    case kDocumentMapSource:
      return document.map()->handle();
    default:
      break;
  }
  const HostHandle table = document.styleTable(property);
  return table != 0 ? table : document.word(property);
}

int dropTreeReference(HostHandle handle, egfsvg::EgfTreeBlock* block) {
  if (--block->header.references != 0) return 0;
  if (Document* const owner = hostObjectAs<Document>(block->document)) owner->forgetTree();
  freeTree(handle);
  return 0;
}

}  // namespace

bool Document::open() {
  map_ = makeHostObject<Map>(RMM_SITE);
  if (map_ == nullptr) return false;
  for (StyleTable*& table : tables_) {
    table = makeHostObject<StyleTable>(RMM_SITE);
    if (table == nullptr) return false;
  }
  return true;
}

Document::~Document() {
  for (View* const view : views_) view->forgetDocument();
  freeTree(tree_);
  for (StyleTable* const table : tables_) endHostObject(table);
  endHostObject(map_);
}

void Document::setTree(HostHandle block) {
  if (block == tree_) return;
  freeTree(tree_);
  tree_ = block;
  if (egfsvg::EgfTreeBlock* const found = treeBlock(block)) found->document = handle();
}

std::uint32_t Document::word(std::uint32_t property) const { return wordIn(words_, property); }

HostHandle Document::styleTable(std::uint32_t property) const {
  for (std::size_t i = 0; i < tables_.size(); ++i) {
    if (kStyleTableProperties[i] == property) return tables_[i]->handle();
  }
  return 0;
}

View::~View() {
  if (document_ != nullptr) document_->removeView(this);
  freePalette(palette_);
}

std::uint32_t View::word(std::uint32_t property) const { return wordIn(words_, property); }

void View::setPalette(HostHandle palette) {
  if (palette != palette_) freePalette(palette_);
  palette_ = palette;
}

Document* documentOf(HostHandle handle) {
  if (!isLiveAt(handle)) return nullptr;
  if (HostObject* const object = taggedObject(handle)) {
    if (object->kind() == HostKind::kDocument) return static_cast<Document*>(object);
    return object->kind() == HostKind::kView ? static_cast<View*>(object)->document() : nullptr;
  }
  if (!isTree(handle)) return nullptr;
  return hostObjectAs<Document>(egfsvg::at<egfsvg::EgfTreeBlock>(handle)->document);
}

}  // namespace egfhost

using egfhost::Document;
using egfhost::FaultCall;
using egfhost::View;

std::uint32_t ISL_GetProperty(HostHandle document, std::uint32_t property) {
  if (egfhost::faultFails(FaultCall::ISL_GetProperty)) return 0;
  Document* const found = egfhost::documentOf(document);
  return found == nullptr ? 0 : egfhost::propertyOf(*found, property);
}

int ISL_SetProperty(HostHandle document, std::uint32_t property, std::uint32_t value) {
  if (egfhost::faultFails(FaultCall::ISL_SetProperty)) return -1;
  Document* const found = egfhost::documentOf(document);
  const bool fixed =
      property == kDocumentMapSource || (found != nullptr && found->styleTable(property) != 0);
  if (found == nullptr || fixed) return -1;
  if (property == kDocumentObjectTree) {
    found->setTree(value);
    return 0;
  }
  return egfhost::hostCall(-1, [&] {
    found->setWord(property, value);
    return 0;
  });
}

std::uint32_t ISL_GetViewProperty(HostHandle first, HostHandle second, std::uint32_t property) {
  if (egfhost::faultFails(FaultCall::ISL_GetViewProperty)) return 0;
  if (property == kViewMap) {
    const Document* const document = egfhost::documentOf(first != 0 ? first : second);
    return document == nullptr ? 0 : document->map()->handle();
  }
  const View* const view = egfhost::viewOf(first, second);
  if (view == nullptr) return 0;
  return property == kViewPalette ? view->palette() : view->word(property);
}

int ISL_SetViewProperty(HostHandle first, HostHandle second, std::uint32_t property,
                        std::uint32_t value) {
  if (egfhost::faultFails(FaultCall::ISL_SetViewProperty)) return -1;
  View* const view = egfhost::viewOf(first, second);
  if (view == nullptr || property == kViewMap) return -1;
  if (property == kViewPalette) {
    view->setPalette(value);
    return 0;
  }
  return egfhost::hostCall(-1, [&] {
    view->setWord(property, value);
    return 0;
  });
}

HostHandle OBJ_GetRootTrace(HostHandle object, const char*, int) {
  if (egfhost::faultFails(FaultCall::OBJ_GetRootTrace)) return 0;
  const Document* const found = egfhost::documentOf(object);
  return found == nullptr ? 0 : found->handle();
}

int OBJ_AddReferenceTrace(HostHandle object, const char*, int) {
  if (egfhost::HostObject* const found = egfhost::hostObject(object)) {
    found->addReference();
    return 0;
  }
  egfsvg::EgfTreeBlock* const block = egfhost::treeBlock(object);
  if (block == nullptr) return -1;
  ++block->header.references;
  return 0;
}

int OBJ_DestroyObjectTrace(HostHandle object, const char*, int) {
  if (egfhost::HostObject* const found = egfhost::hostObject(object)) {
    egfhost::releaseHostObject(found);
    return 0;
  }
  egfsvg::EgfTreeBlock* const block = egfhost::treeBlock(object);
  return block == nullptr ? -1 : egfhost::dropTreeReference(object, block);
}

HostHandle DOC_Get(HostHandle document, int, int, int) {
  if (egfhost::faultFails(FaultCall::DOC_Get)) return 0;
  const Document* const found = egfhost::documentOf(document);
  return found == nullptr ? 0 : found->handle();
}

namespace egfhost {

HostHandle createDocument() {
  Document* const document = makeHostObject<Document>(RMM_SITE);
  if (document == nullptr) return 0;
  if (document->open()) return document->handle();
  endHostObject(document);
  return 0;
}

HostHandle createView(HostHandle document, double dotsPerInch) {
  Document* const found = hostObjectAs<Document>(document);
  if (found == nullptr) return 0;
  const View* const view = makeHostObject<View>(RMM_SITE, found);
  if (view == nullptr) return 0;
  MPL_SetResolution(dotsPerInch, dotsPerInch, 1, 0, found->map()->handle());
  return view->handle();
}

void destroyView(HostHandle view) { endHostObject(hostObjectAs<View>(view)); }

void destroyDocument(HostHandle document) { endHostObject(hostObjectAs<Document>(document)); }

HostHandle createPage(HostHandle document) {
  Document* const found = documentOf(document);
  if (found == nullptr) return 0;
  const HostHandle page = createTree(found->handle());
  if (page != 0) found->setTree(page);
  return page;
}

HostHandle documentTree(HostHandle document) {
  const Document* const found = documentOf(document);
  return found == nullptr ? 0 : found->tree();
}

double resolutionOf(HostHandle view) {
  double factor = kDefaultResolution;
  MPL_GetResXFactor(1, 1, ISL_GetViewProperty(view, 0, kViewMap), &factor);
  return factor;
}

}  // namespace egfhost
