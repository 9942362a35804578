#pragma once

#include "host/egf_objects.h"

// The host's object store. Objects live in the cage; each belongs to its parent or, while it has
// none, to the caller. Rectangles are geometry alone, in space units, without the pen's width.
// Results are 0 for success unless told otherwise.

extern "C" {

/// A zeroed object of a class with its head set: drawn, on no layer. Null on failure or for a class
/// that the host does not know.
EGFHOST_API _egf_obj* EEL_AllocObject(int objClass, const char* file, int line);

/// Frees an object, what it owns and its children, and takes it from its parent. Null is allowed.
EGFHOST_API void EEL_DestroyObject(_egf_obj* object);

/// Stores a deep copy of the object as the parent's last child and grows the parent's rectangle.
/// The object stays the caller's.
EGFHOST_API int EEL_PutObject(_egf_obj* parent, _egf_obj* object, HostHandle map);

/// Hands the object over to the parent as its last child. The parent's rectangle stays as it is.
EGFHOST_API int EEL_AppendObject(_egf_obj* parent, _egf_obj* object);

/// The object's rectangle. Non-zero, with a zeroed rectangle, when it has none: no points, no
/// children, no text, coordinates that are not finite. A tree block stands for its root.
EGFHOST_API int EEL_GetObjectMer(_egf_obj* object, _mpl_spacerect_tag* mer, HostHandle map);

/// Grows a rectangle so that it holds another. An all-zero one counts as empty and becomes a copy.
EGFHOST_API void EEL_ExpandMer(_mpl_spacerect_tag* mer, const _mpl_spacerect_tag* other);

/// Keeps the flags; bit 0x10 makes the group a link group, else it is none.
EGFHOST_API void EEL_SetGroupFlags(_egf_obj* group, int flags);

/// Keeps the flags; bit 0x10 marks the object as a viewport rectangle that is not for output.
EGFHOST_API void EEL_SetObjectFlags(_egf_obj* object, int flags);

/// Walks the children of a group or path: a null cursor gives the first, else the next sibling. The
/// result is stored in the cursor too; null at the end. The mask filters nothing.
EGFHOST_API _egf_obj* EEL_GetNextObject(_egf_obj* group, _egf_obj** cursor, int mask);

/// A new polygon with the ellipse's pen and style numbers: its outline, or its arc when it is not
/// whole, rotated by `ellipseRotation`. Null on failure.
EGFHOST_API _egf_obj* EEL_XlatEllipseToPolygon(_egf_obj* ellipse, int reserved);

/// The polyline of a cubic Bezier curve of four control points, both ends included, allocated with
/// RMM_ and owned by the caller. Null on failure. The count of control points is always 4.
EGFHOST_API _mpl_spacept_tag* EEL_DiscretizeCurve(const _mpl_spacept_tag* controls, int count,
                                                  int reserved1, int reserved2,
                                                  std::uint32_t* resultCount);

/// Moves an object and its children by a distance in space units. The tree context is ignored.
EGFHOST_API int EEL_MoveObject(HostHandle tree, _egf_obj* object, float dx, float dy);

/// Turns an object and its children about a point, by millionths of a degree counter-clockwise. On
/// failure, for want of memory, the first children may have been turned already.
EGFHOST_API int EEL_RotateObject(HostHandle tree, _egf_obj* object, const _mpl_spacept_tag* pivot,
                                 std::int32_t angle, int reserved);

/// A tree block with an empty root group and one reference; 0 on failure. Both arguments are 0.
EGFHOST_API HostHandle EEL_CreateEdtDesc(int reserved1, int reserved2);

}  // extern "C"
