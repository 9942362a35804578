// Reads what `egfsvg dump` prints back into objects, so that trees and expectations can be text.
// Every function throws std::runtime_error that names the key which is missing or of a wrong kind.
#pragma once

#include <string_view>

#include "host/egf_objects.h"
#include "host/wire.h"

namespace egfsvg::test {

// One OBJECT with its children: {"objClass":3,...}. The caller destroys it. Keys that are left out
// keep what a new object has; keys that no field has are refused.
_egf_obj* readObject(std::string_view json);

// A whole dump: the styles go into the document's tables, and the first page's root, with the
// dashes, becomes a new tree of the document. Gives the tree's handle.
HostHandle readDump(std::string_view json, HostHandle document);

}  // namespace egfsvg::test
