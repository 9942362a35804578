#include "cli/page_reader.h"

#include <cstring>
#include <new>

#include "cli/adapter_fields.h"
#include "cli/failure.h"
#include "cli/module.h"
#include "frame/result_codes.h"
#include "host/memory.h"
#include "host/objects.h"

namespace egfsvg {
namespace {

[[noreturn]] void failMemory(const std::string& name) {
  throw Failure(ExitCode::kLimit,
                name + ": there is not enough memory for its page; split the drawing");
}

}  // namespace

PageReader::PageReader(Source& source, const Options& options)
    : source_(source),
      document_(egfhost::createDocument()),
      view_(egfhost::createView(document_.get(), options.dpi.value_or(kDefaultResolution))),
      tree_(egfhost::createPage(document_.get())) {
  if (!document_ || !view_ || tree_ == 0) failMemory(source.name());
  openReader();
  pageCount_ = countPages();
  takeResolution(options);
}

PageReader::~PageReader() {
  _adapterUnloadData unload{reader_, 0};
  filterModule().unloadData(&unload);
  _adapterCloseReader close{reader_};
  filterModule().closeReader(&close);
}

void PageReader::openReader() {
  _adapterOpenReader open{0, source_.stream()};
  const std::int32_t code = filterModule().openReader(&open);
  if (code != kOk) source_.check(code, false);
  reader_ = open.reader;
  // The reader finds its document's style tables and map through the view.
  setReaderDocument(reader_, view_.get());
}

int PageReader::countPages() {
  _adapterQuery query{};
  query.reader = reader_;
  query.source = source_.stream();
  query.property = kPageCountProperty;
  const std::int32_t code = filterModule().queryProperty(&query);
  return code == kOk && query.value > 1 ? query.value : 1;
}

// The file's own resolution, unless the command line names one.
void PageReader::takeResolution(const Options& options) {
  if (options.dpi) return;
  _adapterPreprocess preprocess{reader_, source_.stream()};
  filterModule().preprocessSource(&preprocess);
}

void PageReader::read(int page) {
  emptyPage();
  _adapterReadData read{};
  read.reader = reader_;
  read.source = source_.stream();
  read.pageIndex = page - 1;
  read.container = tree_;
  read.view = view_.get();
  const std::int32_t code = filterModule().readData(&read, source_.file());
  // An outermost svg names its group.
  const auto* root = as<EgfGroup>(body()->root.get());
  source_.check(code, static_cast<bool>(root->groupName));
}

void PageReader::emptyPage() {
  _egf_obj* fresh = EEL_AllocObject(kClassGroup, RMM_SITE);
  if (fresh == nullptr) failMemory(source_.name());
  EEL_DestroyObject(body()->root.get());
  body()->root = static_cast<_egf_obj*>(RMM_ChownName(fresh));
}

EgfTreeBody* PageReader::body() const { return blockBody<EgfTreeBody>(at<EgfBlockHeader>(tree_)); }

egfrender::Page PageReader::page() const {
  return {body(), document_.get(), egfhost::resolutionOf(view_.get())};
}

const _sel_colour_list* PageReader::palette() const { return readerPalette(reader_); }

PageRange pagesToTake(const Options& options, const std::string& name, int pageCount,
                      bool allByDefault) {
  if (!options.page) return {1, allByDefault ? pageCount : 1};
  checkPage(name, *options.page, pageCount);
  return {*options.page, *options.page};
}

}  // namespace egfsvg
