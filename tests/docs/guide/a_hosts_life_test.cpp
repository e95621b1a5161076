#include <SDL.h>

#define main RunGuideHost
#include "guide/a_hosts_life.inc"
#undef main

#include <functional>

#include "block_test.h"

namespace {

int g_slices = 0;
std::function<void()> g_user;  // What the user does in the second slice.

}  // namespace

void RunEmulatorSlice() {
  if (++g_slices == 2) {
    g_user();
  }
}

namespace quindle::testing {
namespace {

// The block initialises SDL itself.
class GuideHost : public ::testing::Test {
 protected:
  void SetUp() override {
    Recorder().Reset();
    g_slices = 0;
  }

  void TearDown() override {
    EXPECT_EQ(SDL_WasInit(0), 0U);
    EXPECT_EQ(TTF_WasInit(), 0);
    Recorder().ExpectNothingAlive();
  }

  static int Run(std::function<void()> user) {
    g_user = std::move(user);
    return RunGuideHost(0, nullptr);
  }
};

TEST_F(GuideHost, ResetsAtAClickOnReset) {
  EXPECT_EQ(Run([] { ClickCaption("Reset"); }), 0);
}

TEST_F(GuideHost, DoesNotResetAtEscape) {
  EXPECT_EQ(Run([] { KeyDown(SDLK_ESCAPE); }), 1);
}

TEST_F(GuideHost, IsNotCalledOnceItHasRemovedItsHeartbeat) {
  Run([] { Quit(); });
  const int slices = g_slices;
  EXPECT_GE(slices, 2);
  gui::PumpModalDialogHeartbeat();
  EXPECT_EQ(g_slices, slices);
}

}  // namespace
}  // namespace quindle::testing
