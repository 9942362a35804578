// Writes each object of the tables beside this file as the only one of its drawing.

#include "tests/support/written_rows.h"

namespace egfsvg::test {
namespace {

TEST_P(WrittenObject, HasItsLinesAndRules) {
  const WrittenRow& row = GetParam();
  DrawingWriter drawing(row.x, row.y);
  if (_egf_obj* object = row.make(drawing)) drawing.tree.add(object);
  ASSERT_EQ(drawing.write(), 0);
  EXPECT_EQ(drawing.body(), row.body);
  EXPECT_EQ(drawing.rules(), row.rules);
}

}  // namespace
}  // namespace egfsvg::test
