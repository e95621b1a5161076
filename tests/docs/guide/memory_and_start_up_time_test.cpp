#include "guide/memory_and_start_up_time.inc"

#include <gtest/gtest.h>

#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

class GuidePlainWindowSurfaces : public DialogTest {
 protected:
  // The hint once the host has chosen on this driver; null when it has none.
  static const char* HintOn(const std::string& driver) {
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, nullptr);
    Recorder().SetVideoDriver(driver);
    PreferPlainWindowSurfaces();
    return SDL_GetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION);
  }
  void TearDown() override {
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, nullptr);
    DialogTest::TearDown();
  }
};

TEST_F(GuidePlainWindowSurfaces, AreAskedForOnX11) {
  EXPECT_STREQ(HintOn("x11"), "0");
}

TEST_F(GuidePlainWindowSurfaces, AreNotAskedForElsewhere) {
  for (const char* driver : {"wayland", "windows", "cocoa", "dummy"}) {
    EXPECT_EQ(HintOn(driver), nullptr) << driver;
  }
}

TEST_F(GuidePlainWindowSurfaces, AreNotAskedForWithoutVideo) {
  SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, nullptr);
  Recorder().FailCall("SDL_GetCurrentVideoDriver");
  PreferPlainWindowSurfaces();
  EXPECT_EQ(SDL_GetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION), nullptr);
}

}  // namespace
}  // namespace quindle::testing
