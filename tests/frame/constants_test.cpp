#include <gtest/gtest.h>

#include "frame/constants.h"

namespace {

double* new_doubles(int n) { return static_cast<double*>(gx_memalloc(sizeof(double) * n)); }

TEST(Constants, NewBlockIsValidAndEmpty) {
  gx_constants* block = gx_constants_new();
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(block->marker, GX_CONSTANTS_MARKER);
  EXPECT_EQ(gx_constants_p(block), 1);
  EXPECT_EQ(gx_constants_ints(block), nullptr);
  EXPECT_EQ(gx_constants_values(block), nullptr);
  EXPECT_EQ(gx_constants_doubles(block), nullptr);
  gx_constants_del(block);
}

TEST(Constants, SlotsHoldWhatWasSet) {
  gx_constants* block = gx_constants_new();
  int32_t* ints = static_cast<int32_t*>(gx_memalloc(sizeof(int32_t) * 2));
  void* values = gx_memalloc(16);
  double* doubles = new_doubles(6);
  EXPECT_EQ(gx_constants_set_ints(block, ints), 1);
  EXPECT_EQ(gx_constants_set_values(block, values), 1);
  EXPECT_EQ(gx_constants_set_doubles(block, doubles), 1);
  EXPECT_EQ(gx_constants_ints(block), ints);
  EXPECT_EQ(gx_constants_values(block), values);
  EXPECT_EQ(gx_constants_doubles(block), doubles);
  gx_constants_del(block);  // frees all three; the leak checker of the sanitizer build sees to it
}

TEST(Constants, SecondSetFreesTheFirstArray) {
  gx_constants* block = gx_constants_new();
  gx_constants_set_doubles(block, new_doubles(3));
  double* second = new_doubles(3);
  gx_constants_set_doubles(block, second);  // the first array must not leak
  EXPECT_EQ(gx_constants_doubles(block), second);
  gx_constants_set_doubles(block, second);  // the same pointer again is kept, not freed
  EXPECT_EQ(gx_constants_doubles(block), second);
  gx_constants_set_doubles(block, nullptr);
  EXPECT_EQ(gx_constants_doubles(block), nullptr);
  gx_constants_del(block);
}

TEST(Constants, InvalidBlocksAreNeutral) {
  gx_constants_del(nullptr);
  EXPECT_EQ(gx_constants_p(nullptr), 0);
  EXPECT_EQ(gx_constants_ints(nullptr), nullptr);
  EXPECT_EQ(gx_constants_values(nullptr), nullptr);
  EXPECT_EQ(gx_constants_doubles(nullptr), nullptr);

  gx_constants dead = {0, nullptr, nullptr, nullptr};
  gx_constants_del(&dead);  // marker gone: nothing is freed (it is not on the heap)
  EXPECT_EQ(gx_constants_p(&dead), 0);
  int32_t word = 7;
  EXPECT_EQ(gx_constants_set_ints(&dead, &word), 0);
  EXPECT_EQ(dead.ints, nullptr);
}

}  // namespace
