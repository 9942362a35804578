#pragma once

#include <cstdint>

#include "host/egf_objects.h"

// Blocks that hang a tree of objects together: the tree block of a page, its layers and dashes.

namespace egfsvg {

inline constexpr int kMaxDashSegments = 41;
inline constexpr int kDashNameSize = 28;

}  // namespace egfsvg

/// A dash pattern of the document. Lengths are positive for dashes and negative for gaps.
struct EGF_WIRE _egf_dash_record {
  std::uint32_t number;  ///< style number, unique in its list, never 0
  char name[egfsvg::kDashNameSize];
  double segments[egfsvg::kMaxDashSegments];
  std::uint32_t unit;
  std::uint8_t segmentCount;
  std::uint8_t reserved365[3];
  ref32<ref32<_egf_dash_record>> index;  ///< first record of a list only: all its records in order
  std::uint32_t indexCapacity;           ///< first record only
  std::uint32_t indexCount;              ///< first record only
  std::uint8_t reserved380[152];
  ref32<_egf_dash_record> next;
};

namespace egfsvg {

/// What stands behind a tree's root: dashes and layers.
struct EGF_WIRE EgfPageHeader {
  std::uint8_t reserved0[3048];
  ref32<_egf_dash_record> lastDash;   ///< last record of the dash list
  ref32<_egf_dash_record> firstDash;  ///< null when the document has no dashes
  std::uint32_t layerCount;
  ref32<HostHandle> layerTable;  ///< one layer block for each layer, 0 for a free place
  std::uint32_t nextDashNumber;  ///< 0 stands for 1
};

/// First word of every block that holds a tree or a layer: its low half says how far the body is.
struct EGF_WIRE EgfBlockHeader {
  std::uint16_t sizeAndKind;  ///< top six bits: bytes of this header
  std::uint16_t reserved2;
  std::uint32_t references;
};

/// The body of a tree block, which is also a page's record.
struct EGF_WIRE EgfTreeBody {
  ref32<_egf_obj> root;
  std::uint32_t hostWord;
  EgfPageHeader pageHeader;
};

/// A tree of objects as documents hold it; the handle of a tree is the handle of this block.
struct EGF_WIRE EgfTreeBlock {
  EgfBlockHeader header;
  std::uint32_t userData;
  HostHandle document;  ///< owner, 0 when none
  std::uint32_t reserved16[2];
  EgfTreeBody body;
};

struct EGF_WIRE EgfLayerBody {
  std::int32_t shown;       ///< 1 shows the layer's objects
  std::int32_t suppressed;  ///< not 0 hides them all the same
  char name[64];
};

struct EGF_WIRE EgfLayerBlock {
  EgfBlockHeader header;
  EgfLayerBody body;
};

inline constexpr unsigned kHeaderSizeShift = 10;
inline constexpr std::uint16_t kTreeBlockWord = 24U << kHeaderSizeShift;
inline constexpr std::uint16_t kLayerBlockWord = 8U << kHeaderSizeShift;

/// The body behind a block's header, null for a null block.
template <class Body>
Body* blockBody(EgfBlockHeader* block) {
  if (block == nullptr) return nullptr;
  return reinterpret_cast<Body*>(reinterpret_cast<char*>(block) +
                                 (block->sizeAndKind >> kHeaderSizeShift));
}

}  // namespace egfsvg
