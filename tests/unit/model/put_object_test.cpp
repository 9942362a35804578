#include "model/put_object.h"

#include <gtest/gtest.h>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_messages.h"
#include "model/lifecycle.h"
#include "model/rmm_allocator.h"

namespace {

_svg_objects* object(std::int32_t type) {
  auto* made = egfsvg::allocateZeroed<_svg_objects>(RMM_SITE);
  made->type = type;
  return made;
}

TEST(PutObject, AppendsInOrderAndTakesTheBlock) {
  _svg_a link;
  initA(&link);
  _svg_a* slot = &link;
  for (std::int32_t type : {6, 7, 5}) EXPECT_EQ(SVG_A_PutObject(&slot, object(type)), 0);
  ASSERT_EQ(link.objectCount, 3);
  EXPECT_EQ(link.objects[0].type, 6);
  EXPECT_EQ(link.objects[1].type, 7);
  EXPECT_EQ(link.objects[2].type, 5);
  DestroyAElements(&link);
}

TEST(PutObject, KeepsWhatTheChildOwns) {
  _svg_a link;
  initA(&link);
  _svg_a* slot = &link;
  _svg_objects* child = object(6);
  initRect(&child->rect);
  child->rect.head.id = egfsvg::duplicateText("id", RMM_SITE);
  ASSERT_EQ(SVG_A_PutObject(&slot, child), 0);
  EXPECT_STREQ(link.objects[0].rect.head.id, "id");
  DestroyAElements(&link);
}

TEST(PutObject, MissingArguments) {
  _svg_a link;
  initA(&link);
  _svg_a* slot = &link;
  _svg_a* none = nullptr;
  _svg_objects* child = object(6);
  EXPECT_EQ(SVG_A_PutObject(nullptr, child), -1);
  EXPECT_EQ(SVG_A_PutObject(&none, child), -1);
  EXPECT_EQ(SVG_A_PutObject(&slot, nullptr), -1);
  EXPECT_EQ(link.objectCount, 0);
  RMM_Free(child);
}

TEST(PutObject, WithoutMemoryTheObjectStaysTheCallers) {
  _svg_a link;
  initA(&link);
  _svg_a* slot = &link;
  ASSERT_EQ(SVG_A_PutObject(&slot, object(6)), 0);
  _svg_objects* child = object(7);
  egfhost::clearMessages();
  egfhost::failAllocation(1, egfhost::FaultSpan::kForEver);
  EXPECT_EQ(SVG_A_PutObject(&slot, child), -1);
  egfhost::clearFaults();
  EXPECT_EQ(egfhost::countMessages(1273), 1U);
  ASSERT_EQ(link.objectCount, 1);
  EXPECT_EQ(link.objects[0].type, 6);
  RMM_Free(child);
  DestroyAElements(&link);
}

}  // namespace
