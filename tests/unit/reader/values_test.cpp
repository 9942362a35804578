#include "attribute_support.h"

namespace egfsvg::test {
namespace {

struct ValueCase {
  std::string text;
  double value;
  int unit;
};

class Values : public testing::TestWithParam<ValueCase> {};

TEST_P(Values, numberAndUnitAndTheAxisStays) {
  CHandlerReader reader;
  _svg_value value{kUnitUnset, -7.0, 42};
  EXPECT_EQ(reader.ParseValue(&value, GetParam().text.c_str()), 0);
  EXPECT_TRUE(isValue(value, GetParam().value, GetParam().unit)) << GetParam().text;
  EXPECT_EQ(value.axis, 42);
  for (const std::string& block : {GetParam().text, withRoomBehind(GetParam().text)}) {
    _svg_value again{kUnitUnset, -7.0, 42};
    EXPECT_EQ(reader.SetValueAtt(&again, Pair(block)), 0);
    EXPECT_EQ(again.value, value.value) << GetParam().text;
    EXPECT_EQ(again.unit, value.unit) << GetParam().text;
    EXPECT_EQ(again.axis, 42);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Reader, Values,
    testing::Values(ValueCase{"2em", 2, 3}, ValueCase{"2EM", 2, 1}, ValueCase{"2ex", 2, 3},
                    ValueCase{"2EX", 2, 2}, ValueCase{"50%", 50, 9}, ValueCase{"50 %", 50, 3},
                    ValueCase{"-3", -3, 3}, ValueCase{"1-2", 1, 3}, ValueCase{"1e2", 100, 3},
                    ValueCase{"1e-2", 0.01, 3}, ValueCase{"1e3", 1000, 3}, ValueCase{"1E3", 1, 3},
                    ValueCase{"1e3px", 1000, 3}, ValueCase{"5e-3mm", 0.005, 7},
                    ValueCase{"5e--3", 5, 3}, ValueCase{"+5", 5, 3}, ValueCase{"1,5", 1, 3},
                    ValueCase{"5pxx", 5, 3}, ValueCase{"50%x", 50, 3}, ValueCase{"% 50", 0, 9},
                    ValueCase{"0x1F", 0, 3}, ValueCase{"5Q", 5, 3}, ValueCase{"", 0, 3},
                    ValueCase{"px", 0, 3}, ValueCase{"mm", 0, 7}, ValueCase{" \t\r\n7in", 7, 8},
                    ValueCase{"7 in", 7, 3}, ValueCase{"7cm", 7, 6}, ValueCase{"7CM", 7, 6},
                    ValueCase{"7mm", 7, 7}, ValueCase{"7Mm", 7, 7}, ValueCase{"7px", 7, 3},
                    ValueCase{"7pt", 7, 4}, ValueCase{"7PT", 7, 4}, ValueCase{"7pc", 7, 5},
                    ValueCase{"7deg", 7, 10}, ValueCase{"7rad", 7, 11}, ValueCase{"7grad", 7, 12},
                    ValueCase{"7gradx", 7, 3}, ValueCase{"7mm2", 7, 7}, ValueCase{"7mm;", 7, 7},
                    ValueCase{"7mm ", 7, 7}, ValueCase{"inherit", 0, 3}, ValueCase{"\f7", 0, 3},
                    ValueCase{"1e999", HUGE_VAL, 3}, ValueCase{"-1e999", -HUGE_VAL, 3},
                    ValueCase{"1e-999", 0, 3}, ValueCase{".5", 0.5, 3}, ValueCase{"-.5e1", -5, 3},
                    ValueCase{"1.2.3", 1.2, 3}, ValueCase{"infinity", 0, 3},
                    ValueCase{"e5", 0, 3}));

TEST(ValuesReader, nullTextOrRecordDoesNothing) {
  CHandlerReader reader;
  _svg_value value{kUnitUnset, 1.5, 2};
  EXPECT_EQ(reader.ParseValue(&value, nullptr), 0);
  EXPECT_TRUE(isValue(value, 1.5, kUnitUnset));
  EXPECT_EQ(reader.ParseValue(nullptr, "5"), 0);
  EXPECT_EQ(reader.SetValueAtt(&value, nullptr), 0);
  EXPECT_EQ(reader.SetValueAtt(nullptr, Pair("5")), 0);
  EXPECT_TRUE(isValue(value, 1.5, kUnitUnset));
  EXPECT_EQ(reader.SetValueAtt(&value, Pair("5mm")), 0);
  EXPECT_TRUE(isValue(value, 5, kUnitMillimetre));
}

// What stands beyond 4095 bytes of a number is passed over, and the unit still follows it.
TEST(ValuesReader, aNumberIsReadUpToItsScratch) {
  CHandlerReader reader;
  _svg_value value{};
  reader.ParseValue(&value, ("0." + std::string(4094, '0') + "5mm").c_str());
  EXPECT_TRUE(isValue(value, 0, kUnitMillimetre));
  reader.ParseValue(&value, ("0." + std::string(200, '0') + "5mm").c_str());
  EXPECT_TRUE(isValue(value, 5e-201, kUnitMillimetre));
}

// Whoever clears the whole pair before it is filled has told no length.
TEST(ValuesReader, aZeroedPairIsReadToItsTerminator) {
  CHandlerReader reader;
  const auto zeroed = [](char* text) {
    _svg_attrib_pair pair;
    std::memset(static_cast<void*>(&pair), 0, sizeof pair);
    pair.value = text;
    pair.valueSize = static_cast<std::int32_t>(std::strlen(text)) + 1;
    return pair;
  };
  char lengthText[] = "7mm";
  _svg_attrib_pair length = zeroed(lengthText);
  _svg_value value{kUnitUnset, -7.0, 42};
  reader.SetValueAtt(&value, &length);
  EXPECT_TRUE(isValue(value, 7, kUnitMillimetre));

  char pointsText[] = "1,2 3,4";
  _svg_attrib_pair points = zeroed(pointsText);
  int count = 0;
  RMM_Free(reader.SetPointsAtt(&count, &points));
  EXPECT_EQ(count, 2);

  char idText[] = "name";
  _svg_attrib_pair id = zeroed(idText);
  char* name = nullptr;
  reader.SetIDAtt(&name, &id);
  EXPECT_STREQ(name, "name");
  RMM_Free(name);

  char ruleText[] = "evenodd";
  _svg_attrib_pair rule = zeroed(ruleText);
  constexpr std::int32_t kEvenOdd = 2;
  _svg_pa_fill fill{};
  reader.SetFillRulePatt(&fill, &rule);
  EXPECT_EQ(fill.fillRule, kEvenOdd);
}

// A scanned pair may be given another text, as the substitute of a colour is.
TEST(ValuesReader, theSubstituteOfAColourIsReadToItsTerminator) {
  CHandlerReader reader;
  char style[] = "fill:currentColor";
  char* at = style;
  char text[64] = "";
  _svg_attrib_pair pair{"", sizeof text, text};
  EXPECT_EQ(reader.GetNextAttribPair(&at, &pair), kAttFill);
  _svg_pa_graphics group{};
  group.color = {1, 2, 3, 0};
  reader.SetCurrentColorToAttribute(&group, &pair);
  char* copy = nullptr;
  reader.SetIDAtt(&copy, &pair);
  EXPECT_STREQ(copy, "rgb(1,2,3)");
  RMM_Free(copy);
}

struct PixelCase {
  _svg_value value;
  double pixels;
};

TEST(ValuesReader, pixelsReplaceTheValueOnce) {
  CHandlerReader reader;
  reader.viewportWidth = 200.0;
  reader.viewportHeight = 50.0;
  const PixelCase cases[] = {{{kUnitPoint, 72, 0}, 96},
                             {{kUnitPica, 6, 0}, 96},
                             {{kUnitCentimetre, 2.54, 0}, 96},
                             {{kUnitMillimetre, 25.4, 0}, 95.99999999999999},
                             {{kUnitInch, 1, 0}, 96},
                             {{kUnitEm, 2, 0}, 2},
                             {{kUnitEx, 3, 0}, 3},
                             {{kUnitPixel, 4, 0}, 4},
                             {{kUnitPercent, 10, 1}, 20},
                             {{kUnitPercent, 10, 2}, 5},
                             {{kUnitPercent, 10, 0}, 5},
                             {{kUnitDegree, 10, 0}, 0},
                             {{0, 10, 0}, 0},
                             {{kUnitUnset, 10, 0}, 0},
                             {{kUnitBoundingBox, 10, 0}, 0}};
  for (PixelCase row : cases) {
    SCOPED_TRACE(testing::Message() << row.value.value << " unit " << row.value.unit);
    EXPECT_TRUE(sameNumber(row.pixels, reader.SVGPixelValue(&row.value)));
    EXPECT_TRUE(isValue(row.value, row.pixels, kUnitPixel));
    EXPECT_TRUE(sameNumber(row.pixels, reader.SVGPixelValue(&row.value)));
  }
  EXPECT_EQ(reader.SVGPixelValue(nullptr), 0.0);
}

}  // namespace
}  // namespace egfsvg::test
