// Shapes without gradients, painted in one go and step by step.
#include "adapter_reader/plain_paint.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "adapter_reader/shape_paint.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"
#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

constexpr int kRounds = 20000;

/// Groups that files seldom have too.
class RandomGroups {
 public:
  RandomGroups() {
    initFill(&fill);
    initStroke(&stroke);
    initGraphics(&graphics);
  }
  std::size_t pick(std::size_t count) { return engine_() % count; }
  void shuffle() {
    fill.fillColor = colour();
    fill.fillOpacity = opacity();
    fill.fillRule = static_cast<std::int32_t>(pick(4));
    stroke.strokeColor = colour();
    stroke.strokePresent = static_cast<std::uint8_t>(pick(3));
    constexpr std::int32_t kUnits[] = {kUnitPixel, kUnitPixel, kUnitPercent, kUnitInch, 0};
    stroke.strokeWidth = {kUnits[pick(5)], static_cast<double>(pick(40)) / 8.0, kAxisNone};
    stroke.strokeLinecap = static_cast<std::int32_t>(pick(5));
    stroke.strokeLinejoin = static_cast<std::int32_t>(pick(5));
    stroke.strokeMiterlimit = static_cast<std::int32_t>(pick(20));
    stroke.strokeOpacity = opacity();
    stroke.strokeDashArray = dashes_;
    stroke.strokeDashCount = pick(4) == 0 ? 2 : 0;
    graphics.opacity = opacity();
  }

  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;

 private:
  double opacity() {
    constexpr double kOpacities[] = {
        1, 1, 1, 0.5, 0.25, 0.999, 0, -0.0, 1.5, -0.1, std::numeric_limits<double>::quiet_NaN()};
    return kOpacities[pick(11)];
  }
  _svg_color colour() {
    const auto channel = [&] { return static_cast<std::int32_t>(pick(300)); };
    return {channel(), channel(), channel(), pick(4) == 0 ? channel() : 0};
  }

  std::mt19937 engine_{1};
  _svg_value dashes_[2] = {pixels(3), pixels(5)};
};

template <class Record>
class Pair {
 public:
  explicit Pair(int objClass) {
    for (ObjectOwner& object : objects_) object.reset(EEL_AllocObject(objClass, RMM_SITE));
  }
  Record* stepwise() { return as<Record>(objects_[0].get()); }
  Record* plain() { return as<Record>(objects_[1].get()); }
  bool isSame() { return std::memcmp(stepwise(), plain(), sizeof(Record)) == 0; }

 private:
  ObjectOwner objects_[2];
};

class PlainPaint : public testing::Test {
 protected:
  AdapterPage page_;
  RandomGroups groups_;
  int styled_ = 0;  // objects that have got an extended record
};

TEST_F(PlainPaint, PolygonsAreTheSame) {
  for (int round = 0; round < kRounds; ++round) {
    groups_.shuffle();
    Pair<EgfPolygon> pair(kClassPolygon);
    const unsigned figure = groups_.pick(2) == 0 ? kFigureOpen : kFigureClosed;
    for (EgfPolygon* polygon : {pair.stepwise(), pair.plain()}) polygon->pen = kPolygonPen;
    FilledPen& pen = filledPen(pair.stepwise()->pen);
    const auto rule = static_cast<unsigned>(page_->castFillMode(groups_.fill.fillRule));
    pen.modeFlags = FillRuleBits::with(FigureBits::with(pen.modeFlags, figure), rule);
    pair.stepwise()->pen.scaleFactor = 1.0;
    FilledPaint paint(page_.adapter(), groups_.fill, groups_.stroke, groups_.graphics);
    paint.setShapePen(pen);
    paint.setFillStyle(pen);
    paint.setJoin(pen);
    if (figure == kFigureOpen && pen.lineStyle == kLineSolid) paint.setCaps();
    paint.storeStyles(kPolygonForm, headOf(pair.stepwise()));
    paintPlainPolygon(page_.adapter(), groups_.fill, groups_.stroke, groups_.graphics, figure,
                      pair.plain());
    ASSERT_TRUE(pair.isSame()) << round;
    styled_ += pair.plain()->fillParmsNo != 0 ? 1 : 0;
  }
  EXPECT_GT(styled_, kRounds / 2);
  EXPECT_LT(styled_, kRounds);
}

TEST_F(PlainPaint, EllipsesAreTheSame) {
  for (int round = 0; round < kRounds; ++round) {
    groups_.shuffle();
    Pair<EgfEllipse> pair(kClassEllipse);
    for (EgfEllipse* ellipse : {pair.stepwise(), pair.plain()}) ellipse->pen = kEllipsePen;
    FilledPen& pen = filledPen(pair.stepwise()->pen);
    FilledPaint paint(page_.adapter(), groups_.fill, groups_.stroke, groups_.graphics);
    paint.setShapePen(pen);
    paint.setFillStyle(pen);
    paint.storeStyles(kEllipseForm, headOf(pair.stepwise()));
    paintPlainEllipse(page_.adapter(), groups_.fill, groups_.stroke, groups_.graphics,
                      pair.plain());
    ASSERT_TRUE(pair.isSame()) << round;
    styled_ += pair.plain()->fillParmsNo != 0 ? 1 : 0;
  }
  EXPECT_GT(styled_, kRounds / 2);
  EXPECT_LT(styled_, kRounds);
}

TEST_F(PlainPaint, PathsAreTheSame) {
  for (int round = 0; round < kRounds; ++round) {
    groups_.shuffle();
    Pair<EgfPath> pair(kClassPath);
    const std::uint32_t kind = groups_.pick(2) == 0 ? kPathClosedFigure : 0U;
    for (EgfPath* path : {pair.stepwise(), pair.plain()}) path->pathKind = kind;
    _egf_gdi_fillparms_tag record = kPolygonPen;
    FilledPen& pen = filledPen(record);
    FilledPaint paint(page_.adapter(), groups_.fill, groups_.stroke, groups_.graphics);
    paint.parms().open();
    paint.setPathPen(pen);
    paint.setFillStyle(pen);
    paint.setJoin(pen);
    if (kind != kPathClosedFigure) paint.setCaps();
    auto& styles = page_.adapter().state.styles;
    pair.stepwise()->gdiFillStyleNo = styles.number(page_.document(), record);
    paint.storeStyles(kPathForm, headOf(pair.stepwise()));
    _egf_gdi_fillparms_tag plainRecord = kPolygonPen;
    paintPlainPath(page_.adapter(), groups_.fill, groups_.stroke, groups_.graphics, plainRecord,
                   pair.plain());
    ASSERT_TRUE(pair.isSame()) << round;
    ASSERT_EQ(std::memcmp(&record, &plainRecord, sizeof record), 0) << round;
    ASSERT_NE(pair.plain()->fillParmsNo, 0U);
  }
}

TEST_F(PlainPaint, LinesAreTheSame) {
  for (int round = 0; round < kRounds; ++round) {
    groups_.shuffle();
    Pair<EgfLine> pair(kClassLine);
    for (EgfLine* line : {pair.stepwise(), pair.plain()}) line->pen = kLinePen;
    StrokedPen& pen = strokedPen(pair.stepwise()->pen);
    StrokedPaint paint(page_.adapter(), groups_.stroke, groups_.graphics);
    paint.setPen(pen);
    ASSERT_TRUE(paint.setColour(kLineForm, nullptr, {}, headOf(pair.stepwise()), pen));
    paint.storeStyles(kLineForm, headOf(pair.stepwise()));
    paintPlainLine(page_.adapter(), groups_.stroke, groups_.graphics, pair.plain());
    ASSERT_TRUE(pair.isSame()) << round;
    styled_ += pair.plain()->strokeParmsNo != 0 ? 1 : 0;
  }
  EXPECT_GT(styled_, kRounds / 2);
  EXPECT_LT(styled_, kRounds);
}

TEST_F(PlainPaint, PolylinesAreTheSame) {
  for (int round = 0; round < kRounds; ++round) {
    groups_.shuffle();
    Pair<EgfPolyline> pair(kClassPolyline);
    for (EgfPolyline* line : {pair.stepwise(), pair.plain()}) line->pen = kPolylinePen;
    StrokedPen& pen = strokedPen(pair.stepwise()->pen);
    StrokedPaint paint(page_.adapter(), groups_.stroke, groups_.graphics);
    paint.setPen(pen);
    ASSERT_TRUE(paint.setColour(kPolylineForm, nullptr, {}, headOf(pair.stepwise()), pen));
    pair.stepwise()->pen.joinStyle = paint.setJoin();
    paint.storeStyles(kPolylineForm, headOf(pair.stepwise()));
    paintPlainPolyline(page_.adapter(), groups_.stroke, groups_.graphics, pair.plain());
    ASSERT_TRUE(pair.isSame()) << round;
    styled_ += pair.plain()->strokeParmsNo != 0 ? 1 : 0;
  }
  EXPECT_GT(styled_, kRounds / 2);
  EXPECT_LT(styled_, kRounds);
}

}  // namespace
}  // namespace egfsvg::test
