// What a reader keeps besides its required members: scratch blocks that are reused between
// elements, the settings and limits in force, and what has been counted against them.
#pragma once

#include <cstdint>

#include "host/settings.h"
#include "model/values.h"
#include "reader/attribute_guess.h"
#include "reader/rule_index.h"
#include "reader/tag_guess.h"

namespace egfsvg {

/// Limits of one read. 0 in the host's settings means the built-in value.
struct ReaderLimits {
  std::uint32_t maxNesting = kBuiltInMaxNesting;                      // open g and svg elements
  std::uint32_t maxReferenceDepth = kBuiltInMaxReferenceDepth;        // references in references
  std::uint32_t maxReferencedObjects = kBuiltInMaxReferencedObjects;  // sent through references
};

/// Host settings that the reader asks for.
struct ReaderSettings {
  bool compactNumbers = false;
  bool useAnywhere = false;
  bool plainStyle = false;
  bool trueCurves = false;
  bool diagnostics = false;
};

/// Memory that is lent for the time of one element and taken back, so that an element costs no
/// allocation of its own. Owns what is not lent.
class SpareBlocks {
 public:
  struct Block {
    char* memory;
    std::int32_t size;
  };

  SpareBlocks() = default;
  ~SpareBlocks() { clear(); }
  SpareBlocks(const SpareBlocks&) = delete;
  SpareBlocks& operator=(const SpareBlocks&) = delete;

  /// A block of at least `size` bytes, with null memory when there is none to have.
  Block take(std::int32_t size) {
    const bool isThere = count_ > 0 && blocks_[count_ - 1].size >= size;
    return isThere ? blocks_[--count_] : takeAnother(size);
  }
  /// Takes a block back, or frees it.
  void giveBack(Block block) {
    if (block.memory != nullptr && count_ < kMost && block.size <= kLargestKept) {
      blocks_[count_++] = block;
    } else {
      release(block);
    }
  }
  void clear();

 private:
  static constexpr int kMost = 4;                        // blocks kept
  static constexpr std::int32_t kLargestKept = 1 << 20;  // bytes

  [[gnu::noinline]] Block takeAnother(std::int32_t size);
  [[gnu::noinline]] static void release(Block block);

  Block blocks_[kMost] = {};
  int count_ = 0;
};

struct ReaderState {
  /// Counters at their start, limits and settings as the host has them now.
  void beginRead();
  void beginSecondPass();

  ReaderLimits limits;
  ReaderSettings settings;
  std::uint32_t nesting = 0;            // open g and svg elements
  std::uint32_t referenceDepth = 0;     // open references
  std::uint32_t definitionDepth = 0;    // open defs
  std::uint32_t switchDepth = 0;        // open switches
  std::uint32_t referencedObjects = 0;  // objects sent through references so far
  std::int32_t copiedDeclarations = 0;  // for the names of selector lists
  std::uint64_t rereadBytes = 0;        // of the source, by walks through references
  bool budgetIsSpent = false;           // no more objects through references
  bool transformsAreCut = false;        // the limit of transform lists has been told
  bool outOfMemory = false;             // an allocation failed: the read ends with that
  bool stopped = false;                 // something inside a nested enumeration ends the read
  bool reporting = false;               // what is dropped is logged: set in the second pass
  mutable std::int64_t reports = 0;     // things left out that were logged, counted over all reads
  std::int32_t gaugeThreshold = 0;      // file index below which the gauge cannot move
  SpareBlocks values;                   // value blocks of attribute pairs
  SpareBlocks objects;                  // envelopes with their records
  SpareBlocks groups;                   // records of groups
  RuleIndex rules;                      // about the style table
  AttributeGuess guesses;               // of the names of attributes
  TagGuess tags;                        // of the names of tags
};

/// An attribute pair whose value block is lent by the reader.
struct ScratchPair {
  explicit ScratchPair(ReaderState& lender) : state(lender) {
    const SpareBlocks::Block block = state.values.take(kAttribValueSize);
    pair.value = block.memory;
    pair.valueSize = block.size;
    if (block.memory == nullptr) {
      state.outOfMemory = true;
    } else {
      clear();
    }
  }
  ~ScratchPair() { state.values.giveBack({pair.value, pair.valueSize}); }
  ScratchPair(const ScratchPair&) = delete;
  ScratchPair& operator=(const ScratchPair&) = delete;

  /// False without memory; the reader knows then.
  bool hasValue() const { return pair.value != nullptr; }
  void clear() {
    pair.name[0] = '\0';
    pair.value[0] = '\0';
  }

  ReaderState& state;
  _svg_attrib_pair pair;
};

}  // namespace egfsvg
