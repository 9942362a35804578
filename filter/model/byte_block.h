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
  void store(char* to) const { std::memcpy(to, bytes_.data(), kByteBlockSize); }

  /// Where the byte stands.
  ByteMask equal(char byte) const {
    return ask([byte](unsigned char own) { return own == static_cast<unsigned char>(byte); });
  }
  /// Where a byte is `highest` or less.
  ByteMask upTo(char highest) const {
    return ask([highest](unsigned char own) { return own <= static_cast<unsigned char>(highest); });
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
  /// With A to Z in lower case.
  PlainByteBlock folded() const {
    PlainByteBlock result = *this;
    for (unsigned char& byte : result.bytes_) {
      if (byte >= 'A' && byte <= 'Z') byte = static_cast<unsigned char>(byte | ('a' - 'A'));
    }
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
  void store(char* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes_); }

  ByteMask equal(char byte) const { return maskOf(_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(byte))); }
  ByteMask upTo(char highest) const {
    const __m128i limit = _mm_set1_epi8(highest);
    return maskOf(_mm_cmpeq_epi8(_mm_max_epu8(bytes_, limit), limit));
  }
  bool operator==(const Sse2ByteBlock& other) const {
    return maskOf(_mm_cmpeq_epi8(bytes_, other.bytes_)) == kWholeBlock;
  }

  std::uint64_t sum() const {
    const __m128i sums = _mm_add_epi64(bytes_, _mm_unpackhi_epi64(bytes_, bytes_));
    return static_cast<std::uint64_t>(_mm_cvtsi128_si64(sums));
  }
  Sse2ByteBlock first(std::size_t count) const {
    static constexpr auto kOnesAndZeros = [] {
      std::array<unsigned char, 2 * kByteBlockSize> bytes{};
      std::fill(bytes.begin(), bytes.begin() + kByteBlockSize, 0xFF);
      return bytes;
    }();
    const unsigned char* ones = kOnesAndZeros.data() + kByteBlockSize - count;
    const __m128i kept = _mm_loadu_si128(reinterpret_cast<const __m128i*>(ones));
    return Sse2ByteBlock(_mm_and_si128(bytes_, kept));
  }
  Sse2ByteBlock folded() const {
    // Moved so that A is the lowest signed value, the letters are those below the 26th.
    constexpr int kLowest = -128;
    constexpr int kLetters = 26;
    const __m128i moved = _mm_add_epi8(bytes_, _mm_set1_epi8(static_cast<char>(kLowest - 'A')));
    const __m128i upper = _mm_cmplt_epi8(moved, _mm_set1_epi8(kLowest + kLetters));
    return Sse2ByteBlock(_mm_or_si128(bytes_, _mm_and_si128(upper, _mm_set1_epi8('a' - 'A'))));
  }

 private:
  explicit Sse2ByteBlock(__m128i bytes) : bytes_(bytes) {}
  static ByteMask maskOf(__m128i flags) { return static_cast<ByteMask>(_mm_movemask_epi8(flags)); }

  __m128i bytes_;
};
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

/// The same for either of two bytes.
inline const char* findEither(const char* at, const char* end, char one, char other) {
  for (; at < end; at += kByteBlockSize) {
    const ByteBlock block = ByteBlock::load(at);
    const ByteMask hits = block.equal(one) | block.equal(other);
    if (hits != 0) return std::min(at + firstOf(hits), end);
  }
  return end;
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
