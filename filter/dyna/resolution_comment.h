// The comment that names a drawing's resolution.
#pragma once

#include "frame/entry_records.h"

namespace egfsvg {

/// Dots per inch that a drawing has without a comment.
inline constexpr double kUsualResolution = 200.0;

/// Fills the comment, or leaves it empty at exactly the usual resolution. The number is rounded to
/// a whole one, halves upwards: 199.6 gives a comment, and it says 200.
void setResolutionComment(double dotsPerInch, char (&comment)[kRecordTextSize]);

}  // namespace egfsvg
