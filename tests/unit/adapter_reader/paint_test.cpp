#include <gtest/gtest.h>

#include <cstring>

#include "adapter_reader/owners.h"
#include "host/egf_templates.h"
#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

using FillParms = _egf_gdiplus_fillparms_tag;
using StrokeParms = _egf_gdiplus_stroke_parms_tag;

struct Groups {
  Groups() {
    initFill(&fill);
    initStroke(&stroke);
    initGraphics(&graphics);
    fill.fillColor = kRed;
    stroke.strokeColor = kBlue;
  }
  Groups& with(double fillOpacity, std::uint8_t present, double strokeOpacity, double opacity) {
    fill.fillOpacity = fillOpacity;
    stroke.strokePresent = present;
    stroke.strokeOpacity = strokeOpacity;
    graphics.opacity = opacity;
    return *this;
  }
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
};

// Whether a record is made, and with what.
struct Row {
  const char* name;
  double fillOpacity;
  std::uint8_t present;
  double strokeOpacity, opacity;
  bool shape, path;  // made for polygons and ellipses; for paths
  int fillAlpha, strokeAlpha;
};

constexpr Row kRows[] = {
    {"opaque", 1, 1, 1, 1, false, false, 0, 0},
    {"no stroke", 1, 0, 1, 1, true, true, 255, 0},
    {"no fill", 0, 1, 1, 1, false, true, 0, 255},
    {"half a fill", 0.5, 1, 1, 1, true, true, 127, 255},
    {"half a stroke", 1, 1, 0.5, 1, true, true, 255, 127},
    {"half of all", 1, 1, 1, 0.5, true, true, 127, 127},
    {"a quarter", 0.5, 0, 1, 0.5, true, true, 63, 0},
    {"too much", 1.5, 1, 1.5, 1, false, false, 0, 0},
    {"too much fill", 1.5, 1, 0.5, 1, true, true, 255, 127},
    {"below nothing", -1, 1, 0.5, 1, true, true, 0, 127},
    {"an odd stroke mark", 1, 2, 1, 1, true, true, 255, 0},
};

TEST(Paint, FilledShapesMakeTheRecordThatOpacitiesNeed) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    AdapterPage page;
    Groups groups;
    groups.with(row.fillOpacity, row.present, row.strokeOpacity, row.opacity);
    const OwnedObject polygon(allocObject(kClassPolygon));
    const OwnedObject ellipse(allocObject(kClassEllipse));
    _egf_gdi_fillparms_tag pen = kPolygonPen;
    FillParms* made[3] = {};
    auto& [fill, stroke, graphics] = groups;
    EXPECT_EQ(page->SetPgonFillAndStrokeColor(polygon.get(), &made[0], fill, stroke, graphics), 0);
    EXPECT_EQ(page->SetElipsFillAndStrokeColor(ellipse.get(), &made[1], fill, stroke, graphics), 0);
    EXPECT_EQ(page->SetPathFillAndStrokeColor(&pen, &made[2], fill, stroke, graphics), 0);
    for (int i = 0; i < 3; ++i) {
      const RmmOwner<FillParms> parms(made[i]);
      ASSERT_EQ(parms != nullptr, i == 2 ? row.path : row.shape) << i;
      if (!parms) continue;
      FillParms expected = kFillParms;
      expected.fillAlpha = static_cast<std::uint8_t>(row.fillAlpha);
      expected.strokeAlpha = static_cast<std::uint8_t>(row.strokeAlpha);
      EXPECT_EQ(std::memcmp(parms.get(), &expected, sizeof expected), 0) << i;
    }
    const std::uint32_t strokeWord = row.present != 0 ? 0x0000FFU : 0xFF0000U;
    EXPECT_EQ(colourWord(as<EgfPolygon>(polygon.get())->pen.fillColor), 0xFF0000U);
    EXPECT_EQ(colourWord(as<EgfPolygon>(polygon.get())->pen.strokeColor), strokeWord);
    EXPECT_EQ(colourWord(as<EgfEllipse>(ellipse.get())->pen.fillColor), 0xFF0000U);
    EXPECT_EQ(colourWord(as<EgfEllipse>(ellipse.get())->pen.strokeColor), strokeWord);
    EXPECT_EQ(colourWord(pen.fillColor), 0xFF0000U);
    EXPECT_EQ(colourWord(pen.strokeColor), strokeWord);
  }
}

TEST(Paint, LinesWantTheStrokeMarkToBeOne) {
  struct LineRow {
    std::uint8_t present;
    double strokeOpacity;
    int lineAlpha, polylineAlpha;  // -1: no record
  };
  constexpr LineRow kLineRows[] = {
      {0, 1.0, 0, 0}, {1, 1.0, -1, -1}, {1, 0.5, 127, 127}, {2, 0.5, 0, 127}, {1, 1.5, -1, -1}};
  for (const LineRow& row : kLineRows) {
    AdapterPage page;
    Groups groups;
    groups.with(1.0, row.present, row.strokeOpacity, 1.0);
    const OwnedObject line(allocObject(kClassLine));
    const OwnedObject polyline(allocObject(kClassPolyline));
    StrokeParms* made[2] = {};
    EXPECT_EQ(page->SetLineFillColor(line.get(), &made[0], groups.stroke, groups.graphics), 0);
    EXPECT_EQ(page->SetPlineFillColor(polyline.get(), &made[1], groups.stroke, groups.graphics), 0);
    const int alphas[] = {row.lineAlpha, row.polylineAlpha};
    for (int i = 0; i < 2; ++i) {
      const RmmOwner<StrokeParms> parms(made[i]);
      EXPECT_EQ(parms ? int{parms->strokeAlpha} : -1, alphas[i]) << int{row.present} << " " << i;
    }
    EXPECT_EQ(colourWord(as<EgfLine>(line.get())->pen.strokeColor), 0x0000FFU);
    EXPECT_EQ(colourWord(as<EgfPolyline>(polyline.get())->pen.strokeColor), 0x0000FFU);
  }
}

TEST(Paint, JoinsAndCapsStandInTheRecord) {
  AdapterPage page;
  Groups groups;
  groups.stroke.strokeMiterlimit = 7;
  groups.stroke.strokeLinecap = 3;
  FillParms* fill = nullptr;
  StrokeParms* stroke = nullptr;
  EXPECT_EQ(page->_setGdiPlusJoinStyle(&fill, groups.stroke), 0);
  EXPECT_EQ(page->_setGdiPlusCapStyle(&stroke, groups.stroke), 0);
  const RmmOwner<FillParms> fillOwner(fill);
  const RmmOwner<StrokeParms> strokeOwner(stroke);
  EXPECT_EQ(+fill->miterLimit, 7.0F);
  EXPECT_EQ(fill->startCap, 3);  // the template's
  EXPECT_EQ(stroke->capStyle, 1);
  EXPECT_EQ(+stroke->miterLimit, 10.0F);
  EXPECT_EQ(page->_setGdiPlusCapStyle(&fill, groups.stroke), 0);
  EXPECT_EQ(page->_setGdiPlusJoinStyle(&stroke, groups.stroke), 0);
  EXPECT_EQ(fill, fillOwner.get());
  EXPECT_EQ(fill->startCap, 1);
  EXPECT_EQ(fill->endCap, 1);
  EXPECT_EQ(+stroke->miterLimit, 7.0F);
}

TEST(Paint, FailuresAreTold) {
  AdapterPage page;
  Groups groups;
  const OwnedObject polygon(allocObject(kClassPolygon));
  const OwnedObject line(allocObject(kClassLine));
  egfhost::failAllocation(1, egfhost::FaultSpan::kForEver);
  FillParms* fill = nullptr;
  StrokeParms* stroke = nullptr;
  EXPECT_EQ(page->SetPgonFillAndStrokeColor(polygon.get(), &fill, groups.fill, groups.stroke,
                                            groups.graphics),
            -1);
  EXPECT_EQ(page->SetLineFillColor(line.get(), &stroke, groups.stroke, groups.graphics), -1);
  EXPECT_EQ(page->_setGdiPlusJoinStyle(&fill, groups.stroke), -1);
  EXPECT_EQ(page->_setGdiPlusCapStyle(&stroke, groups.stroke), -1);
  egfhost::clearFaults();
  EXPECT_EQ(fill, nullptr);
  EXPECT_EQ(stroke, nullptr);
  EXPECT_GE(egfhost::countMessages(kMessageOutOfMemory), 4U);
}

}  // namespace
}  // namespace egfsvg::test
