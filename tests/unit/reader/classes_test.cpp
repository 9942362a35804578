#include <vector>

#include "attribute_support.h"
#include "embedded_host/host_faults.h"

namespace egfsvg::test {
namespace {

struct ClassCase {
  std::string text;
  std::vector<std::string> names;
};

TEST(Classes, namesBetweenSeparators) {
  const ClassCase cases[] = {{"a, b;c", {"a", "b", "c"}},
                             {"a", {"a"}},
                             {" \t\r\n,;a", {"a"}},
                             {"a b c d e", {"a", "b", "c", "d", "e"}},
                             {"a b c d e f", {"a", "b", "c", "d", "e", "f"}},
                             {"a.b#c", {"a.b#c"}},
                             {std::string(128, 'x'), {std::string(128, 'x')}},
                             {std::string(129, 'x'), {std::string(128, 'x'), "x"}},
                             {std::string(130, 'x'), {std::string(128, 'x'), "xx"}},
                             {std::string(128, 'x') + " y", {std::string(128, 'x'), "y"}}};
  CHandlerReader reader;
  for (const ClassCase& row : cases) {
    SCOPED_TRACE(row.text);
    Rect rect;
    EXPECT_EQ(reader.SetClassNameAtt(&rect->head, Pair(row.text)), 0);
    ASSERT_EQ(rect->head.classCount, static_cast<int>(row.names.size()));
    for (std::size_t i = 0; i < row.names.size(); ++i) {
      EXPECT_EQ(row.names[i], rect->head.classNames[i]);
    }
  }
}

TEST(Classes, withoutANameTheSlotsAreThere) {
  CHandlerReader reader;
  for (const char* text : {"", " ", ",;"}) {
    Rect rect;
    reader.SetClassNameAtt(&rect->head, Pair(text));
    EXPECT_EQ(rect->head.classCount, 0);
    EXPECT_NE(rect->head.classNames, nullptr);
    reader.SetClassNameAtt(&rect->head, Pair("a"));
    EXPECT_EQ(rect->head.classCount, 0);
  }
}

TEST(Classes, theFirstAttributeWins) {
  CHandlerReader reader;
  Rect rect;
  reader.SetClassNameAtt(&rect->head, Pair("a"));
  reader.SetClassNameAtt(&rect->head, Pair("b c"));
  ASSERT_EQ(rect->head.classCount, 1);
  EXPECT_STREQ(rect->head.classNames[0], "a");
  EXPECT_EQ(reader.SetClassNameAtt(&rect->head, nullptr), 0);
  EXPECT_EQ(reader.SetClassNameAtt(nullptr, Pair("a")), 0);
}

TEST(Classes, atMostAsManyAsTheBound) {
  std::string text;
  for (int i = 0; i < 2000; ++i) text += "c" + std::to_string(i) + " ";
  CHandlerReader reader;
  Rect rect;
  reader.SetClassNameAtt(&rect->head, Pair(text));
  ASSERT_EQ(rect->head.classCount, 1024);
  EXPECT_STREQ(rect->head.classNames[1023], "c1023");
}

TEST(Classes, withoutMemoryThereAreNone) {
  CHandlerReader reader;
  Rect rect;
  egfhost::failAllocation(1);
  EXPECT_EQ(reader.SetClassNameAtt(&rect->head, Pair("a")), 0);
  egfhost::clearFaults();
  EXPECT_EQ(rect->head.classCount, 0);
  EXPECT_EQ(rect->head.classNames, nullptr);
}

}  // namespace
}  // namespace egfsvg::test
