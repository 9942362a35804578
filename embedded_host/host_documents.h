// Documents, views and pages, as the tool and the tests make them.
#pragma once

#include <cstdint>

#include "host/documents.h"
#include "host/resolution.h"
#include "host/style_tables.h"

struct _egf_obj;

namespace egfhost {

// A new empty document with its style tables; 0 when memory is short.
EGFHOST_API HostHandle createDocument();

// Ends a document with its tree, style tables and map, whatever references are left. Views that
// stand on it stay and answer with 0.
EGFHOST_API void destroyDocument(HostHandle document);

// A view of a document. All views of a document share its map; the resolution is set on it.
EGFHOST_API HostHandle createView(HostHandle document, double dotsPerInch = kDefaultResolution);
EGFHOST_API void destroyView(HostHandle view);

// A new empty page as the document's object tree; the tree before is destroyed. It belongs to the
// document. The handle is what a read takes as its container.
EGFHOST_API HostHandle createPage(HostHandle document);

// The document's tree block without a new reference, 0 when it has none.
EGFHOST_API HostHandle documentTree(HostHandle document);

// Dots per inch of a view or document.
EGFHOST_API double resolutionOf(HostHandle view);

// Demand-loaded resources that were registered and not yet destroyed.
EGFHOST_API int dynaCall(HostHandle resource, DynaOperation operation, std::uintptr_t argument);
EGFHOST_API void* dynaRecord(HostHandle resource);  // null when there is none

// Gives the standard object behind a reference. The host keeps a copy; false when memory is short.
EGFHOST_API bool setStandardObject(HostHandle reference, _egf_obj* object);
EGFHOST_API void clearStandardObjects();

}  // namespace egfhost
