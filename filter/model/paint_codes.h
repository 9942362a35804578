// Codes of paints, caps, joins and fill rules, as records on their way out hold them.
#pragma once

#include <cstdint>

namespace egfsvg {

/// `packedColor` values that are no colour.
inline constexpr std::int32_t kNoPaint = -1;
inline constexpr std::int32_t kReferencePaint = -2;  // painted by the reference alone
inline constexpr std::int32_t kBlackPaint = 0;       // the default fill: not written

inline constexpr double kUnsetWidth = -1.0;     // a stroke width that is not written
inline constexpr std::int32_t kUnsetCode = -1;  // a cap, join or fill rule that is not written

enum CapCode : std::int32_t { kCapCodeButt = 1, kCapCodeRound = 2, kCapCodeSquare = 3 };
enum JoinCode : std::int32_t { kJoinCodeMiter = 1, kJoinCodeRound = 2, kJoinCodeBevel = 3 };
enum FillRuleCode : std::int32_t { kRuleNonzero = 1, kRuleEvenOdd = 2 };
inline constexpr std::int32_t kDefaultMiterLimit = 4;

}  // namespace egfsvg
