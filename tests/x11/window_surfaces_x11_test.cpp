// The demo program's window surfaces: plain ones where there are any, as they cost the least.

#include <SDL.h>
#include <gtest/gtest.h>

#include "sdl_session.h"
#include "support/x11_display.h"

namespace quindle::demo {
namespace {

class WindowSurfaces : public testing::X11DisplayTest {
 protected:
  void SetUp() override { SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, nullptr); }
  void TearDown() override {
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, nullptr);
    SDL_ResetHint(SDL_HINT_VIDEODRIVER);
  }
};

TEST_F(WindowSurfaces, ArePlainOnX11) {
  const SdlSession session(VideoChoice::Display);
  EXPECT_STREQ(SDL_GetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION), "0");
}

TEST_F(WindowSurfaces, ArePlainInMemoryWithOpenGl) {
  const SdlSession session(VideoChoice::Memory);
  ASSERT_STREQ(SDL_GetCurrentVideoDriver(), "offscreen");
  EXPECT_STREQ(SDL_GetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION), "0");
}

TEST_F(WindowSurfaces, AreLeftToSdlElsewhere) {
  SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, "dummy", SDL_HINT_OVERRIDE);
  const SdlSession session(VideoChoice::Display);
  ASSERT_STREQ(SDL_GetCurrentVideoDriver(), "dummy");
  EXPECT_EQ(SDL_GetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION), nullptr);
}

}  // namespace
}  // namespace quindle::demo
