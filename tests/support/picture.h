// Pictures for tests: reading, writing and comparing PNG files with a small tolerance.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace egfsvg::test {

// 8-bit RGBA, rows from the top, not premultiplied.
struct Picture {
  unsigned width = 0;
  unsigned height = 0;
  std::vector<std::uint8_t> pixels;

  const std::uint8_t* pixel(unsigned x, unsigned y) const {
    return &pixels[(std::size_t{y} * width + x) * 4];
  }
  std::uint8_t* pixel(unsigned x, unsigned y) { return &pixels[(std::size_t{y} * width + x) * 4]; }
};

// Both throw std::runtime_error with the path and libpng's words.
Picture readPng(const std::string& path);
void writePng(const std::string& path, const Picture& picture);

struct PictureTolerance {
  int channel = 8;       // a pixel differs when one of its channels differs by more
  double share = 0.001;  // at most this share of the pixels may differ
};

struct PictureDifference {
  bool sameSize = true;
  int largestChannel = 0;     // the largest difference of one channel, 0 to 255
  double differingShare = 0;  // share of the pixels over the channel tolerance
  Picture map;  // differing pixels in red over a pale picture; empty when sizes differ
};

// Colours are compared premultiplied, so that the colour of a transparent pixel does not matter.
PictureDifference comparePictures(const Picture& expected, const Picture& actual, int channel);

// Success when the pictures agree within the tolerance. Otherwise writes expected, difference and
// actual side by side as files named after `name` and tells where.
testing::AssertionResult samePicture(const Picture& expected, const Picture& actual,
                                     const std::string& name, PictureTolerance tolerance = {});

}  // namespace egfsvg::test
