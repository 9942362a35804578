#include "tests/support/picture.h"

#include <filesystem>

#include "tests/support/files.h"

namespace egfsvg::test {
namespace {

Picture plain(unsigned width, unsigned height, std::vector<std::uint8_t> colour) {
  Picture picture{width, height, {}};
  for (unsigned i = 0; i < width * height; ++i) {
    picture.pixels.insert(picture.pixels.end(), colour.begin(), colour.end());
  }
  return picture;
}

TEST(Picture, FileGivesBackWhatWasWritten) {
  const TempDir folder;
  Picture written = plain(3, 2, {1, 2, 3, 255});
  written.pixel(2, 1)[0] = 200;
  writePng(folder.file("a.png"), written);
  const Picture read = readPng(folder.file("a.png"));
  EXPECT_EQ(read.width, 3u);
  EXPECT_EQ(read.height, 2u);
  EXPECT_EQ(read.pixels, written.pixels);
}

TEST(Picture, UnreadableFileIsTold) {
  const TempDir folder;
  EXPECT_THROW(readPng(folder.file("none.png")), std::runtime_error);
  EXPECT_THROW(readPng(folder.write("bad.png", "not a picture")), std::runtime_error);
}

TEST(Picture, DifferenceCountsPixelsOverTheTolerance) {
  const Picture expected = plain(10, 10, {100, 100, 100, 255});
  Picture actual = expected;
  actual.pixel(0, 0)[1] = 108;
  actual.pixel(9, 9)[2] = 90;
  const PictureDifference difference = comparePictures(expected, actual, 8);
  EXPECT_EQ(difference.largestChannel, 10);
  EXPECT_DOUBLE_EQ(difference.differingShare, 0.01);
  EXPECT_EQ(difference.map.pixel(9, 9)[1], 0);
  EXPECT_NE(difference.map.pixel(0, 0)[1], 0);
}

TEST(Picture, ColourOfTransparentPixelsDoesNotMatter) {
  EXPECT_TRUE(samePicture(plain(4, 4, {255, 0, 0, 0}), plain(4, 4, {0, 9, 80, 0}), "transparent"));
}

TEST(Picture, FailureKeepsThePictures) {
  const Picture expected = plain(4, 4, {0, 0, 0, 255});
  const Picture actual = plain(4, 4, {255, 255, 255, 255});
  const auto result = samePicture(expected, actual, "support/failure");
  EXPECT_FALSE(result);
  EXPECT_NE(std::string(result.message()).find("100% of the pixels"), std::string::npos);
  for (const char* kind : {"expected", "difference", "actual"}) {
    const std::string path = std::string("picture_failures/support/failure.") + kind + ".png";
    EXPECT_EQ(readPng(path).width, 4u) << path;
    std::filesystem::remove(path);
  }
  EXPECT_FALSE(samePicture(expected, plain(4, 5, {0, 0, 0, 255}), "support/size"));
}

}  // namespace
}  // namespace egfsvg::test
