// A page that the filter loads on demand, as the drawing of a document of the host.
#pragma once

#include <string>

#include "cli/host_owner.h"
#include "cli/source.h"
#include "embedded_host/host_documents.h"

namespace egfsvg {

class DemandedPage {
 public:
  // Loads the page that was asked for, else the first. Throws a Failure.
  DemandedPage(Source& source, const Options& options);
  DemandedPage(const DemandedPage&) = delete;
  DemandedPage& operator=(const DemandedPage&) = delete;
  ~DemandedPage() = default;

  // A view of the document. It has the resolution that the file names, else the usual one.
  HostHandle view() const { return view_.get(); }

 private:
  static void endResource(HostHandle resource);
  static void endFile(HostHandle file);

  int countPages() const;
  HostHandle load(int page) const;

  // In the order of their ends: the resource drops its pages while their document is still there.
  HandleOwner<egfhost::destroyDocument> document_;
  HandleOwner<egfhost::destroyView> view_;
  HandleOwner<endFile> file_;
  HandleOwner<endResource> resource_;
};

}  // namespace egfsvg
