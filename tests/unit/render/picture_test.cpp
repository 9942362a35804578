#include "render/picture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/render/test_page.h"

namespace egfrender {
namespace {

using namespace egfsvg;        // NOLINT(google-build-using-namespace)
using namespace egfsvg::test;  // NOLINT(google-build-using-namespace)

TEST(PageBox, IsTheViewportRectangle) {
  TestPage page;
  page.viewport(-10, 20, 100, 50);
  page.add(box(-500, -500, 2000, 2000));
  const Box box = pageBox(page.page());
  EXPECT_DOUBLE_EQ(box.left, -10);
  EXPECT_DOUBLE_EQ(box.top, 20);
  EXPECT_DOUBLE_EQ(box.width(), 100);
  EXPECT_DOUBLE_EQ(box.height(), 50);
}

TEST(PageBox, TakesOnlyARectangleThatIsNotForOutput) {
  TestPage page;
  page.add(box(5, 6, 10, 20));
  page.add(box(50, 60, 10, 10));
  const Box box = pageBox(page.page());
  EXPECT_NEAR(box.left, 5, 0.01);
  EXPECT_NEAR(box.right, 60, 0.01);
  EXPECT_NEAR(box.bottom, 70, 0.01);
}

TEST(PageBox, HoldsThePensOfWhatIsDrawn) {
  TestPage page;
  page.add(line({10, 10}, {90, 10}, {.width = 6, .capStyle = kCapSquare}));
  const Box box = pageBox(page.page());
  EXPECT_NEAR(box.left, 7, 0.05);
  EXPECT_NEAR(box.right, 93, 0.05);
  EXPECT_NEAR(box.top, 7, 0.05);
  EXPECT_NEAR(box.bottom, 13, 0.05);
}

TEST(PageBox, IsEmptyWhereNothingIsDrawn) {
  TestPage page;
  EXPECT_TRUE(pageBox(page.page()).empty);
  page.add(box(0, 0, 10, 10, {.fillStyle = kFillNone}));
  EXPECT_TRUE(pageBox(page.page()).empty);
  EXPECT_TRUE(pageBox(Page{}).empty);
}

TEST(PageBox, PassesOverAnEmptyViewport) {
  TestPage page;
  page.viewport(0, 0, 0, 50);
  page.add(box(10, 10, 20, 20));
  EXPECT_NEAR(pageBox(page.page()).width(), 20, 0.01);
}

TEST(PictureSize, IsWholePixels) {
  struct Row {
    double width, height, zoom;
    std::int64_t expectedWidth, expectedHeight;
  };
  for (const Row& row :
       {Row{100, 50, 1, 100, 50}, Row{100, 50, 2.5, 250, 125}, Row{100.2, 50.0005, 1, 101, 50},
        Row{0, 0, 1, 1, 1}, Row{24.00001, 24, 1, 24, 24}, Row{8000, 8000, 1, 8000, 8000}}) {
    const PictureSize size = pictureSize({0, 0, row.width, row.height, false}, row.zoom);
    EXPECT_EQ(size.width, row.expectedWidth);
    EXPECT_EQ(size.height, row.expectedHeight);
  }
}

TEST(PictureSize, HasItsBounds) {
  struct Row {
    double width, height, zoom;
    std::string words;
  };
  for (const Row& row : {Row{8001, 8000, 1, "8001 x 8000"}, Row{4000, 4000, 2.1, "8400 x 8400"},
                         Row{32768, 1, 1, "32768 x 1"}, Row{1, 40000, 1, "1 x 40000"},
                         Row{1e30, 10, 1, "1000000000 x 10"}}) {
    try {
      pictureSize({0, 0, row.width, row.height, false}, row.zoom);
      ADD_FAILURE() << row.words;
    } catch (const PictureTooLarge& size) {
      EXPECT_EQ(size.what(), row.words);
    }
  }
}

TEST(Picture, IsTransparentWithoutBackground) {
  TestPage page;
  page.viewport(0, 0, 20, 10);
  EXPECT_EQ(inkedPixels(page.picture()), 0U);
  EXPECT_EQ(colourAt(page.picture({1, plainColour(0xff102030)}), 3, 3), 0x102030ffU);
}

TEST(Picture, GrowsWithTheZoom) {
  TestPage page;
  page.viewport(10, 10, 20, 10);
  page.add(box(20, 10, 10, 10, {.fill = 0xff0000}));
  const Picture picture = page.picture({3, std::nullopt});
  EXPECT_EQ(picture.width, 60U);
  EXPECT_EQ(picture.height, 30U);
  EXPECT_EQ(colourAt(picture, 29, 15), 0U);
  EXPECT_EQ(colourAt(picture, 30, 15), 0xff0000ffU);
}

TEST(Picture, SaysWhenItsBytesAreRefused) {
  TestPage page;
  page.viewport(0, 0, 20, 10);
  EXPECT_FALSE(writePng(page.page(), {}, [](std::string_view) { return false; }));
}

std::string pdfOf(const std::vector<const TestPage*>& pages) {
  std::string bytes;
  PdfDocument pdf({}, [&](std::string_view part) {
    bytes += part;
    return true;
  });
  for (const TestPage* page : pages) pdf.addPage(page->page());
  EXPECT_TRUE(pdf.finish());
  return bytes;
}

TEST(Pdf, HasItsPagesAndTheSameBytesEachTime) {
  TestPage first;
  first.viewport(0, 0, 96, 48);
  first.add(box(0, 0, 50, 40, {.fill = 0xff0000}));
  TestPage second;
  second.viewport(0, 0, 192, 96);
  const std::string bytes = pdfOf({&first, &second});
  EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
  EXPECT_NE(bytes.find("/Count 2"), std::string::npos);
  EXPECT_NE(bytes.find("/MediaBox [ 0 0 72 36 ]"), std::string::npos);
  EXPECT_NE(bytes.find("/MediaBox [ 0 0 144 72 ]"), std::string::npos);
  EXPECT_EQ(bytes.find("CreationDate"), std::string::npos);
  EXPECT_EQ(bytes, pdfOf({&first, &second}));
}

TEST(Pdf, SaysWhenItsBytesAreRefused) {
  TestPage page;
  page.viewport(0, 0, 20, 10);
  PdfDocument pdf({}, [](std::string_view) { return false; });
  pdf.addPage(page.page());
  EXPECT_FALSE(pdf.finish());
}

}  // namespace
}  // namespace egfrender
