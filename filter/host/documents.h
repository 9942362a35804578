// Documents, views, their properties and the references that are counted on host objects.
// A document handle and a view handle are accepted in each other's place; 0 gives nothing.
#pragma once

#include <cstdint>

#include "host/wire.h"

struct _egf_obj;

enum DocumentProperty : std::uint32_t {
  kDocumentLoadState = 106,      // set to 8 by the demand-load path
  kDocumentObjectTree = 115,     // the tree block with one more reference, 0 when empty
  kDocumentMapSource = 125,      // the map rectangle source that MPL_GetMER takes
  kDocumentKind = 132,           // a DocumentKind
  kDocumentUserData = 133,       // set by the demand-load callback
  kDocumentGradientTable = 165,  // style tables, one for each record kind
  kDocumentStrokeTable = 166,
  kDocumentArcTable = 167,
  kDocumentFillTable = 168,
  kDocumentGdiFillTable = 170
};

enum ViewProperty : std::uint32_t {
  kViewPalette = 23,  // a colour list's handle; the view owns it from then on
  kViewMap = 24       // the view's map
};

// The kinds in which a group whose first object is hidden is written as a nested svg.
enum DocumentKind : std::uint32_t {
  kDocumentKindDrawing = 0x18170000,
  kDocumentKindDrawingSheet = 0x18180000
};

inline constexpr std::uint32_t kDocumentLoadStateDemand = 8;

// Called by the host with an operation on a demand-loaded resource. argument is an address or a
// number, as the operation asks.
using DynaResourceProc = int (*)(int operation, void* record, std::uintptr_t argument);

enum DynaOperation : int {
  kDynaDestroy = 1,
  kDynaNextPage = 2,    // argument: u32[1], page out
  kDynaLoadPage = 3,    // argument: u32[3], page, view, object out
  kDynaUnloadPage = 4,  // argument: the page number itself
  kDynaHasPages = 5
};

extern "C" {

// The property, or 0. Property 115 adds a reference that OBJ_DestroyObjectTrace drops.
EGFHOST_API std::uint32_t ISL_GetProperty(HostHandle document, std::uint32_t property);
EGFHOST_API int ISL_SetProperty(HostHandle document, std::uint32_t property, std::uint32_t value);

// Whichever of the first two arguments is not 0 is asked.
EGFHOST_API std::uint32_t ISL_GetViewProperty(HostHandle first, HostHandle second,
                                              std::uint32_t property);
EGFHOST_API int ISL_SetViewProperty(HostHandle first, HostHandle second, std::uint32_t property,
                                    std::uint32_t value);

// The root document of a document, view or tree block.
EGFHOST_API HostHandle OBJ_GetRootTrace(HostHandle object, const char* file, int line);

// References on file objects, streams, tree blocks, documents and views.
EGFHOST_API int OBJ_AddReferenceTrace(HostHandle object, const char* file, int line);
EGFHOST_API int OBJ_DestroyObjectTrace(HostHandle object, const char* file, int line);

// The object tree context that EEL_MoveObject and EEL_RotateObject take.
EGFHOST_API HostHandle DOC_Get(HostHandle document, int kind, int reserved1, int reserved2);

// Registers a demand-loaded resource; 0 on failure. The record stays the caller's until the
// procedure is called with kDynaDestroy.
EGFHOST_API HostHandle DOC_CreateDynaResource(DynaResourceProc procedure, void* record);

// A copy of the standard object behind a reference, null when there is none. The caller destroys
// it.
EGFHOST_API _egf_obj* ETX_ObjQueryStdObj(HostHandle reference, int kind, int reserved);

}  // extern "C"
