// A drawing as pages of objects: a document of the host, filled by the filter page by page.
#pragma once

#include <cstdint>
#include <string>

#include "cli/host_owner.h"
#include "cli/source.h"
#include "embedded_host/host_documents.h"
#include "host/egf_blocks.h"
#include "render/page.h"

struct _sel_colour_list;

namespace egfsvg {

// The query property that counts the pages of a source.
inline constexpr std::int32_t kPageCountProperty = 3;

class PageReader {
 public:
  // Opens the filter's reader. Throws a Failure.
  PageReader(Source& source, const Options& options);
  PageReader(const PageReader&) = delete;
  PageReader& operator=(const PageReader&) = delete;
  ~PageReader();

  // At least 1: a drawing without page groups is one page.
  int pageCount() const { return pageCount_; }

  // Reads a page, from 1, in place of the one before. Styles, dashes and colours stay from page to
  // page. Throws a Failure when nothing could be read.
  void read(int page);

  static std::string pageName(int page) { return "Page " + std::to_string(page); }

  egfrender::Page page() const;
  HostHandle document() const { return document_.get(); }
  HostHandle view() const { return view_.get(); }
  const _sel_colour_list* palette() const;

 private:
  void openReader();
  int countPages();
  void takeResolution(const Options& options);
  void emptyPage();
  EgfTreeBody* body() const;

  Source& source_;
  HandleOwner<egfhost::destroyDocument> document_;
  HandleOwner<egfhost::destroyView> view_;
  HostHandle tree_ = 0;  // belongs to the document
  HostHandle reader_ = 0;
  int pageCount_ = 1;
};

// The pages that a command takes: the one that was asked for, else all of them, else the first.
struct PageRange {
  int first;
  int last;
};
PageRange pagesToTake(const Options& options, const std::string& name, int pageCount,
                      bool allByDefault);

}  // namespace egfsvg
