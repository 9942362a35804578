#pragma once

#include "host/egf_blocks.h"
#include "host/egf_objects.h"
#include "host/fonts.h"

// What the host knows about single objects: class, cached bounds, text measures, dashes.

extern "C" {

/// The class of an object as walkers switch on it: `objClass`, with a box reported as a polygon.
/// 0 for null.
EGFHOST_API int EGF_GetObjectClass(const _egf_obj* object);

// Recompute the cached bounds of an object of the named class. Non-zero when it has none.
EGFHOST_API int EGF_CalcPolygonMer(_egf_obj* object, HostHandle map);
EGFHOST_API int EGF_CalcPolylineMer(_egf_obj* object, HostHandle map);
EGFHOST_API int EGF_CalcTextMer(_egf_obj* object, HostHandle map);
EGFHOST_API int EGF_CalcAnnotnMer(_egf_obj* object, HostHandle map);

/// The same for an ellipse. The rectangle is in pixels and stands for the ellipse before its
/// transform; the bounds follow from the ellipse itself.
EGFHOST_API int EGF_CalcEllipseMer(const _mpl_spacerect_tag* bounds, _egf_obj* object);

/// Fills a selection record for a text's font.
EGFHOST_API int EGF_SetupSelAttr(const _egf_textparms* parms, int reserved1, HostHandle map,
                                 int reserved2, _sel_attr_type* selection);

/// The `charWidth` at which the font shows its own proportions. Stored before the call ends, also
/// when the result is not 0.
EGFHOST_API int EGF_CalcNaturalFontWidth(const _egf_textparms* parms, double* width);

/// A zeroed dash record that belongs to the caller (RMM_Free); null on failure.
EGFHOST_API _egf_dash_record* EGF_CreateDashRecord();

/// Gives the record a number and hands it over to the page's dash list.
EGFHOST_API int EGF_AppendDashRecord(egfsvg::EgfPageHeader* pageHeader, _egf_dash_record* record);

/// The dash record of a style number in the list that starts at the reference `firstDash`; null
/// when there is none.
EGFHOST_API _egf_dash_record* EGF_GetDashRecordByStyle(HostHandle firstDash, std::uint32_t style);

}  // extern "C"
