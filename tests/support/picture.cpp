#include "tests/support/picture.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace egfsvg::test {
namespace {

constexpr int kChannels = 4;
constexpr int kAlpha = 3;
constexpr int kOpaque = 255;

png_image emptyImage() {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  return image;
}

std::array<int, kChannels> premultiplied(const std::uint8_t* pixel) {
  const int alpha = pixel[kAlpha];
  std::array<int, kChannels> result = {0, 0, 0, alpha};
  for (int i = 0; i < kAlpha; ++i) {
    result[static_cast<std::size_t>(i)] = (pixel[i] * alpha + kOpaque / 2) / kOpaque;
  }
  return result;
}

int largestDifference(const std::uint8_t* a, const std::uint8_t* b) {
  const auto left = premultiplied(a);
  const auto right = premultiplied(b);
  int largest = 0;
  for (std::size_t i = 0; i < kChannels; ++i) {
    largest = std::max(largest, std::abs(left[i] - right[i]));
  }
  return largest;
}

// A pixel of the difference map: red where the pictures differ, else the picture made pale.
void paintMapPixel(std::uint8_t* target, const std::uint8_t* source, bool differs) {
  const auto colour = premultiplied(source);
  for (std::size_t i = 0; i < kAlpha; ++i) {
    const int onWhite = colour[i] + kOpaque - colour[kAlpha];
    target[i] = static_cast<std::uint8_t>((onWhite + 3 * kOpaque) / 4);
  }
  if (differs) {
    target[0] = kOpaque;
    target[1] = target[2] = 0;
  }
  target[kAlpha] = kOpaque;
}

std::string keepPictures(const Picture& expected, const Picture& actual, const Picture& map,
                         const std::string& name) {
  const std::filesystem::path folder = "picture_failures";
  const std::filesystem::path base = folder / name;
  std::filesystem::create_directories(base.parent_path());
  writePng(base.string() + ".expected.png", expected);
  writePng(base.string() + ".actual.png", actual);
  if (map.width != 0) writePng(base.string() + ".difference.png", map);
  return std::filesystem::absolute(base).string() + ".{expected,difference,actual}.png";
}

}  // namespace

Picture readPng(const std::string& path) {
  png_image image = emptyImage();
  if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
    throw std::runtime_error(path + ": " + image.message);
  }
  image.format = PNG_FORMAT_RGBA;
  Picture picture{image.width, image.height, std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
  if (png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr) == 0) {
    throw std::runtime_error(path + ": " + image.message);
  }
  return picture;
}

void writePng(const std::string& path, const Picture& picture) {
  png_image image = emptyImage();
  image.width = picture.width;
  image.height = picture.height;
  image.format = PNG_FORMAT_RGBA;
  if (png_image_write_to_file(&image, path.c_str(), 0, picture.pixels.data(), 0, nullptr) == 0) {
    throw std::runtime_error(path + ": " + image.message);
  }
}

PictureDifference comparePictures(const Picture& expected, const Picture& actual, int channel) {
  PictureDifference result;
  result.sameSize = expected.width == actual.width && expected.height == actual.height;
  if (!result.sameSize) return result;
  result.map = expected;
  std::size_t differing = 0;
  for (unsigned y = 0; y < expected.height; ++y) {
    for (unsigned x = 0; x < expected.width; ++x) {
      const int largest = largestDifference(expected.pixel(x, y), actual.pixel(x, y));
      result.largestChannel = std::max(result.largestChannel, largest);
      if (largest > channel) ++differing;
      paintMapPixel(result.map.pixel(x, y), expected.pixel(x, y), largest > channel);
    }
  }
  const std::size_t all = std::size_t{expected.width} * expected.height;
  if (all != 0) result.differingShare = static_cast<double>(differing) / static_cast<double>(all);
  return result;
}

testing::AssertionResult samePicture(const Picture& expected, const Picture& actual,
                                     const std::string& name, PictureTolerance tolerance) {
  const PictureDifference difference = comparePictures(expected, actual, tolerance.channel);
  if (difference.sameSize && difference.differingShare <= tolerance.share) {
    return testing::AssertionSuccess();
  }
  auto failure = testing::AssertionFailure();
  if (difference.sameSize) {
    failure << difference.differingShare * 100 << "% of the pixels differ, by at most "
            << difference.largestChannel;
  } else {
    failure << "expected " << expected.width << "x" << expected.height << " pixels, found "
            << actual.width << "x" << actual.height;
  }
  return failure << "; see " << keepPictures(expected, actual, difference.map, name);
}

}  // namespace egfsvg::test
