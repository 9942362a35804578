#pragma once

#include <cstdint>

namespace egfsvg {

/// A run of bits inside a wire byte or word. Words are taken and given by value, since the fields
/// they come from are packed.
template <class Word, unsigned kShift, unsigned kWidth>
struct BitField {
  static constexpr Word kMask = static_cast<Word>(((1U << kWidth) - 1U) << kShift);

  static constexpr unsigned get(Word word) {
    return static_cast<unsigned>(static_cast<Word>(word & kMask) >> kShift);
  }
  static constexpr Word with(Word word, unsigned value) {
    return static_cast<Word>((word & static_cast<Word>(~kMask)) |
                             static_cast<Word>((value << kShift) & kMask));
  }
};

template <unsigned kShift, unsigned kWidth>
using ByteBits = BitField<std::uint8_t, kShift, kWidth>;

/// `objAttr`: 0 keeps the object out of written files.
using OutputBits = ByteBits<0, 2>;
/// `objAttr2`: not 0 keeps the object out of written files; 1 marks a viewport rectangle.
using ViewportBits = ByteBits<0, 2>;
/// The group's `linkFlags`: not 0 marks a link group.
using LinkBits = ByteBits<0, 2>;
/// `groupFlags`: 1 when a viewport rectangle is attached.
using GroupViewportBits = ByteBits<6, 2>;

/// `modeFlags`: 0 nonzero, 1 evenodd.
using FillRuleBits = ByteBits<0, 1>;
/// `modeFlags`: 0 an open figure, 1 a closed one.
using FigureBits = ByteBits<1, 2>;
/// `modeFlags`: 1 when the points hold curve segments.
using CurveBits = ByteBits<3, 2>;
/// `modeFlags`, figure and curve bits together; `kCurveChild` marks the curve child of a path.
using CurveChildBits = ByteBits<1, 4>;

inline constexpr unsigned kFigureOpen = 0;
inline constexpr unsigned kFigureClosed = 1;
inline constexpr unsigned kCurveChild = 4;

/// `arcFlags` of an arc: 0 runs from start to end, else from end to start.
using ArcDirectionBits = ByteBits<2, 2>;
/// `headFlags` of an arrow line: not 0 means closed heads.
using ClosedHeadBits = ByteBits<2, 2>;
/// `headFlags` of an arrow line: 3 means a head at both ends.
using BothHeadsBits = ByteBits<4, 2>;

/// `gradientKind`: 1 is a path gradient.
using PathGradientBits = ByteBits<0, 2>;
/// `gradientKind`: cleared for a radial fill.
using GradientShapeBits = ByteBits<2, 2>;
/// `gradientFlags`: cleared for a radial fill.
using GradientModeBits = ByteBits<0, 2>;

/// `justification`: 0 left, 2 right, 4 centre.
using HorizontalBits = ByteBits<0, 3>;
/// `justification`: 3 on the baseline.
using VerticalBits = ByteBits<3, 2>;
/// `textDirection`: 1 is right to left.
using DirectionBits = ByteBits<4, 2>;
/// `textDirection`: 2 puts a box behind the text, when bit 0 of `textFlags` is clear.
using BackgroundBits = ByteBits<6, 2>;
/// `textFlags`: set when no box stands behind the text.
using NoBackgroundBits = ByteBits<0, 1>;
/// `textFlags`: fill style code of the glyphs.
using TextFillBits = ByteBits<5, 3>;

/// `rotation` of an image: quarter turns, and the mirror mark.
using QuarterTurnBits = ByteBits<0, 2>;
using MirrorBits = ByteBits<4, 1>;

/// `hotspotFlags`: cleared by the reader.
using HotspotBits = ByteBits<0, 3>;

}  // namespace egfsvg
