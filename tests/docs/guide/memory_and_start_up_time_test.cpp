#include "guide/memory_and_start_up_time.inc"

#include <gtest/gtest.h>

namespace quindle::testing {
namespace {

TEST(GuidePlainWindowSurfaces, AreAskedForByAHint) {
  SDL_ClearHints();
  ASSERT_EQ(SDL_GetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION), nullptr);
  PreferPlainWindowSurfaces();
  EXPECT_STREQ(SDL_GetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION), "0");
  SDL_ClearHints();
}

}  // namespace
}  // namespace quindle::testing
