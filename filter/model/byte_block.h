// Sixteen bytes that are looked at together: for walks over text that ask the same question of each
// byte. With SSE2 a question is one instruction; elsewhere a loop that compilers turn into vectors.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) && defined(__x86_64__)
#include <emmintrin.h>
#endif

namespace egfsvg {

/// Answers about a block: bit i tells of byte i.
using ByteMask = std::uint32_t;

inline constexpr std::size_t kByteBlockSize = 16;
inline constexpr ByteMask kWholeBlock = 0xFFFF;

/// The block in plain C++. Bytes are unsigned.
class PlainByteBlock {
 public:
  /// All sixteen bytes must be readable.
  static PlainByteBlock load(const char* from) {
    PlainByteBlock block;
    std::memcpy(block.bytes_.data(), from, kByteBlockSize);
    return block;
  }
  /// The same, from the start of an aligned object.
  static PlainByteBlock loadAligned(const char* from) { return load(from); }
  void store(char* to) const { std::memcpy(to, bytes_.data(), kByteBlockSize); }

  /// Where the byte stands.
  ByteMask equal(char byte) const {
    return ask([byte](unsigned char own) { return own == static_cast<unsigned char>(byte); });
  }
  /// Where both blocks have the same byte.
  ByteMask equal(const PlainByteBlock& other) const {
    ByteMask mask = 0;
    for (std::size_t i = 0; i < kByteBlockSize; ++i) {
      mask |= ByteMask{bytes_[i] == other.bytes_[i]} << i;
    }
    return mask;
  }
  /// Where one of the two stands.
  ByteMask either(char one, char other) const { return equal(one) | equal(other); }
  /// Where a byte is `highest` or less, or the other.
  ByteMask upToOr(char highest, char other) const {
    const auto limit = static_cast<unsigned char>(highest);
    return ask([limit](unsigned char own) { return own <= limit; }) | equal(other);
  }
  bool operator==(const PlainByteBlock&) const = default;

  /// Of both halves, as words.
  std::uint64_t sum() const {
    std::uint64_t halves[2];
    std::memcpy(halves, bytes_.data(), kByteBlockSize);
    return halves[0] + halves[1];
  }
  /// The bytes before `count`, and zeros.
  PlainByteBlock first(std::size_t count) const {
    PlainByteBlock result = *this;
    std::fill(result.bytes_.begin() + static_cast<std::ptrdiff_t>(count), result.bytes_.end(), 0);
    return result;
  }

 private:
  template <class Question>
  ByteMask ask(Question question) const {
    ByteMask mask = 0;
    for (std::size_t i = 0; i < kByteBlockSize; ++i) mask |= ByteMask{question(bytes_[i])} << i;
    return mask;
  }

  std::array<unsigned char, kByteBlockSize> bytes_;
};

#if defined(__SSE2__) && defined(__x86_64__)

/// The same with one instruction a question.
class Sse2ByteBlock {
 public:
  static Sse2ByteBlock load(const char* from) {
    return Sse2ByteBlock(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
  }
  static Sse2ByteBlock loadAligned(const char* from) {
    return Sse2ByteBlock(_mm_load_si128(reinterpret_cast<const __m128i*>(from)));
  }
  void store(char* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes_); }

  ByteMask equal(char byte) const { return maskOf(sameAs(byte)); }
  ByteMask equal(const Sse2ByteBlock& other) const {
    return maskOf(_mm_cmpeq_epi8(bytes_, other.bytes_));
  }
  ByteMask either(char one, char other) const {
    return maskOf(_mm_or_si128(sameAs(one), sameAs(other)));
  }
  ByteMask upToOr(char highest, char other) const {
    const __m128i limit = _mm_set1_epi8(highest);
    const __m128i small = _mm_cmpeq_epi8(_mm_max_epu8(bytes_, limit), limit);
    return maskOf(_mm_or_si128(small, sameAs(other)));
  }
  bool operator==(const Sse2ByteBlock& other) const { return equal(other) == kWholeBlock; }

  std::uint64_t sum() const {
    const __m128i sums = _mm_add_epi64(bytes_, _mm_unpackhi_epi64(bytes_, bytes_));
    return static_cast<std::uint64_t>(_mm_cvtsi128_si64(sums));
  }
  Sse2ByteBlock first(std::size_t count) const {
    return Sse2ByteBlock(_mm_and_si128(
        bytes_, _mm_load_si128(reinterpret_cast<const __m128i*>(kFirst.rows[count]))));
  }

 private:
  /// By a count, that many bytes of ones and then zeros.
  struct FirstBytes {
    constexpr FirstBytes() {
      for (std::size_t count = 0; count <= kByteBlockSize; ++count) {
        for (std::size_t i = 0; i < count; ++i) rows[count][i] = 0xFF;
      }
    }
    alignas(kByteBlockSize) unsigned char rows[kByteBlockSize + 1][kByteBlockSize] = {};
  };
  static const FirstBytes kFirst;

  explicit Sse2ByteBlock(__m128i bytes) : bytes_(bytes) {}
  __m128i sameAs(char byte) const { return _mm_cmpeq_epi8(bytes_, _mm_set1_epi8(byte)); }
  static ByteMask maskOf(__m128i flags) { return static_cast<ByteMask>(_mm_movemask_epi8(flags)); }

  __m128i bytes_;
};
inline constexpr Sse2ByteBlock::FirstBytes Sse2ByteBlock::kFirst;

using ByteBlock = Sse2ByteBlock;

#else
using ByteBlock = PlainByteBlock;
#endif

/// Of a mask that has one: the number of its first byte.
inline std::size_t firstOf(ByteMask hits) {
  return static_cast<std::size_t>(static_cast<unsigned>(std::countr_zero(hits)));
}

/// Where a byte first stands from `at` on, or `end`. Less than a block behind the end is looked at.
inline const char* findByte(const char* at, const char* end, char byte) {
  for (; at < end; at += kByteBlockSize) {
    const ByteMask hits = ByteBlock::load(at).equal(byte);
    if (hits != 0) return std::min(at + firstOf(hits), end);
  }
  return end;
}

/// Where a byte first stands from `at` on: it stands somewhere there. Less than two blocks behind
/// it are looked at.
inline const char* findByteAhead(const char* at, char byte) {
  for (;; at += 2 * kByteBlockSize) {
    if (const ByteMask hits = ByteBlock::load(at).equal(byte)) return at + firstOf(hits);
    const char* const next = at + kByteBlockSize;
    if (const ByteMask hits = ByteBlock::load(next).equal(byte)) return next + firstOf(hits);
  }
}

/// The same for either of two bytes.
inline const char* findEitherAhead(const char* at, char one, char other) {
  for (;; at += kByteBlockSize) {
    if (const ByteMask hits = ByteBlock::load(at).either(one, other)) return at + firstOf(hits);
  }
}

/// Where a byte stands last between `first` and `end`, or null. Less than a block behind the end is
/// looked at.
inline const char* findLastByte(const char* first, const char* end, char byte) {
  while (end - first >= static_cast<std::ptrdiff_t>(kByteBlockSize)) {
    end -= kByteBlockSize;
    const ByteMask hits = ByteBlock::load(end).equal(byte);
    if (hits != 0) return end + std::bit_width(hits) - 1;
  }
  const ByteMask here = (ByteMask{1} << (end - first)) - 1;
  const ByteMask hits = ByteBlock::load(first).equal(byte) & here;
  return hits == 0 ? nullptr : first + std::bit_width(hits) - 1;
}

}  // namespace egfsvg
